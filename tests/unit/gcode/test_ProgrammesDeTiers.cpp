// Programs by other people: their boxes as other readers of G-code give them, or why they differ.
#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <regex>

#include "gcode/Mesure.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;

using Boite6 = std::array<double, 6>;  // Xmin Ymin Zmin Xmax Ymax Zmax, mm

Boite6 BoiteDuProgramme(const MesureProgramme& m) {
  const BornesProgramme& b = m.bornes;
  return {b.Xmin, b.Ymin, b.Zmin, b.Xmax, b.Ymax, b.Zmax};
}

bool Egales(const Boite6& a, const Boite6& b) {
  constexpr double Demi = 0.0006;  // half a unit of the last digit given
  return std::equal(a.begin(), a.end(), b.begin(), [](double u, double v) { return std::abs(u - v) < Demi; });
}

// The box and the count of moves that an independent reader of tool paths gives, from the list beside the programs.
struct LectureDeTiers {
  Boite6 boite{};
  std::size_t mouvements = 0;
};
std::map<std::string, LectureDeTiers> LecturesDeTiers() {
  static const std::regex Lecture(
      R"(gcode-toolpath 2: G0=([0-9]+) G1=([0-9]+) arcs=[0-9]+, feed bbox mm \[([^\]]*)\])");
  std::map<std::string, LectureDeTiers> lectures;
  std::ifstream f(DossierCorpus() + "/MANIFEST.tsv");
  for (std::string ligne; std::getline(f, ligne);) {
    std::smatch m;
    if (!ligne.starts_with("GCODE\t") || !std::regex_search(ligne, m, Lecture)) continue;
    LectureDeTiers& l = lectures[ligne.substr(6, ligne.find('\t', 6) - 6)];
    l.mouvements = std::stoul(m[1]) + std::stoul(m[2]);
    std::istringstream nombres(m[3]);
    for (double& v : l.boite) nombres >> v;
  }
  return lectures;
}

MesureProgramme MesureDuCorpus(const std::string& nom) {
  const ProgrammeLu lu = LitProgramme(DossierCorpus() + "/GCODE/" + nom);
  EXPECT_EQ(lu.refus, "") << nom;
  return MesureDe(lu.programme, {}, false);
}

TEST(ProgrammesDeTiers, BoxesOfStraightMovesAreThoseOfOtherReaders) {
  if (!CorpusPresent()) GTEST_SKIP() << CorpusAbsent;
  const auto lectures = LecturesDeTiers();
  ASSERT_EQ(lectures.size(), 13U);
  for (const char* nom : {"cn_jsdc.gcode", "cn_tball_engrave.gcode", "cn_calibration.gcode", "sc_shapes.nc"}) {
    EXPECT_TRUE(Egales(BoiteDuProgramme(MesureDuCorpus(nom)), lectures.at(nom).boite)) << nom;
  }
  // The comment behind the first lift holds capitals, which makes its line no valid one.
  for (const char* nom : {"cn_jsdc.gcode", "cn_tball_engrave.gcode"}) {
    EXPECT_EQ(MesureDuCorpus(nom).mouvements, lectures.at(nom).mouvements - 1) << nom;
  }
  EXPECT_EQ(MesureDuCorpus("sc_shapes.nc").mouvements, lectures.at("sc_shapes.nc").mouvements);
  EXPECT_EQ(MesureDuCorpus("cn_calibration.gcode").mouvements, lectures.at("cn_calibration.gcode").mouvements)
      << "the ends of its eighty arcs lie within the box of the rest";
}

// Boxes read off the lines by hand.
TEST(ProgrammesDeTiers, TheOthersDifferByArcsInchesOrLetters) {
  if (!CorpusPresent()) GTEST_SKIP() << CorpusAbsent;
  const auto lectures = LecturesDeTiers();
  struct Cas {
    const char* nom;
    Boite6 boite;
    const char* raison;
  };
  const Cas cas[] = {
      {"cn_arc_ijk.gcode", {0, 20, 0, 0, 20, 0}, "its arc is skipped; one move is left"},
      {"cn_arc_xz.gcode", {0, 0, 20, 0, 0, 20}, "its arc is skipped"},
      {"cn_arc_yz.gcode", {0, 0, 20, 0, 0, 20}, "its arc is skipped"},
      {"cn_circle_inch.gcode", {-0.5, 0, 0, 0, 0, 0.25}, "G20 stands on a line with G17, which is skipped"},
      {"cn_full_circle_noxyz.gcode", {-4.75, -3.4, -0.5, 0.75, 0.75, 0.2}, "the lowest point is that of an arc"},
      {"cn_helical_thread.gcode",
       {0, -0.0939 * 2.54, -0.6533 * 2.54, 0.0235 * 2.54, 0, -0.6533 * 2.54},
       "an inch is 2.54 mm, and the helix is skipped"},
      {"sc_circle_latin1.nc", {8, 0, -1, 11.358, 7.444, 10}, "the X of its wait is a move, its arc is skipped"},
      {"sc_circles_r.nc", {0, 0, -2, 1860.368, 596.8, 10}, "its circles are skipped"},
  };
  for (const Cas& c : cas) {
    const Boite6 boite = BoiteDuProgramme(MesureDuCorpus(c.nom));
    EXPECT_TRUE(Egales(boite, c.boite)) << c.nom << ": " << c.raison;
    EXPECT_FALSE(Egales(boite, lectures.at(c.nom).boite)) << c.nom;
  }
}

// Of a print only the moves without material are left: all others hold an E.
TEST(ProgrammesDeTiers, APrintKeepsTheMovesWithoutMaterial) {
  if (!CorpusPresent()) GTEST_SKIP() << CorpusAbsent;
  const std::string nom = "cn_octocat_3dprint.gcode";
  const std::regex mot("([XYZ])(-?[0-9.]+)");
  std::array<double, 3> place{};
  Boite6 attendue{};
  std::size_t mouvements = 0;
  bool relatif = false;
  std::ifstream f(DossierCorpus() + "/GCODE/" + nom);
  for (std::string ligne; std::getline(f, ligne);) {
    // It ends with two lifts.
    if (ligne.starts_with("G90") || ligne.starts_with("G91")) relatif = ligne.starts_with("G91");
    if (!ligne.starts_with("G1 ") || ligne.find('E') != std::string::npos) continue;
    for (std::sregex_iterator i(ligne.begin(), ligne.end(), mot), fin; i != fin; ++i) {
      double& v = place[static_cast<std::size_t>((*i)[1].str()[0] - 'X')];
      v = std::stod((*i)[2]) + (relatif ? v : 0);
    }
    for (std::size_t axe = 0; axe < 3; ++axe) {
      attendue[axe] = mouvements == 0 ? place[axe] : std::min(attendue[axe], place[axe]);
      attendue[axe + 3] = mouvements == 0 ? place[axe] : std::max(attendue[axe + 3], place[axe]);
    }
    ++mouvements;
  }
  EXPECT_GT(mouvements, 700U);
  const MesureProgramme m = MesureDuCorpus(nom);
  EXPECT_EQ(m.mouvements, mouvements);
  EXPECT_TRUE(Egales(BoiteDuProgramme(m), attendue));
  EXPECT_FALSE(Egales(BoiteDuProgramme(m), LecturesDeTiers().at(nom).boite));
}

TEST(ProgrammesDeTiers, AProgramThatNamesNoSpeedIsFoundMoveByMove) {
  if (!CorpusPresent()) GTEST_SKIP() << CorpusAbsent;
  EXPECT_EQ(MesureDuCorpus("sc_shapes.nc").sansVitesse, 1909U);
}

}  // namespace
}  // namespace essai
