// Real files. The figures are those that other programs and a plain scan of the files gave: XFOIL's point counts
// for airfoils, gerbv's and gerber-parser's hits for drill files.
#include "tests/support/Corpus.h"
#include "tests/unit/closed/pathwerk/Aide.h"

using namespace aide;

namespace {

constexpr std::int32_t NonCompte = -1;  // arcs: their chords are this system's own
struct Attendu {
  const char* nom;
  std::int32_t points;
  std::size_t sequences;
  std::size_t fermees;  // closed paths, holes not counted
  float xmin, xmax, ymin, ymax;
};

std::ostream& operator<<(std::ostream& os, const Attendu& a) { return os << a.nom; }

void Verifie(const std::string& chemin, const Attendu& a, float marge) {
  const auto f = Lis(chemin);
  if (a.points == NonCompte) {
    EXPECT_GT(f.Nombre, 0) << f.Message;
  } else {
    EXPECT_EQ(f.Nombre, a.points) << f.Message;
  }
  const auto s = Sequences(f.Points);
  EXPECT_EQ(s.size(), a.sequences);
  EXPECT_EQ(static_cast<std::size_t>(std::count_if(s.begin(), s.end(), EstFerme)), a.fermees);
  EXPECT_NEAR(f.Xmin, a.xmin, marge);
  EXPECT_NEAR(f.Xmax, a.xmax, marge);
  EXPECT_NEAR(f.Ymin, a.ymin, marge);
  EXPECT_NEAR(f.Ymax, a.ymax, marge);
  EXPECT_FALSE(f.Rapport.Tronque);
}

class CorpusDat : public testing::TestWithParam<Attendu> {};
class CorpusDrl : public testing::TestWithParam<Attendu> {};

}  // namespace

TEST_P(CorpusDat, PointsAndBox) {
  Verifie(essai::DossierDessins("DAT") / GetParam().nom, GetParam(), 1e-7F * std::max(1.0F, GetParam().xmax));
}

// e850 has 35 + 33 rows, and both surfaces begin with the same nose point. The first row of c090 is the domain of
// computation; its box is that of the other 300 rows. Three have a thick tail: the point that closes it comes on
// top. The last row of naca4412 says 10000 where 1.0000 was meant.
const std::vector<Attendu> Profils = {
    {"as_a18_selig.dat", 41 + 1, 1, 1, 0, 1, 0, 0.08466F},
    {"as_e850_lednicer.dat", 67, 1, 1, 0, 1, -0.03186F, 0.05075F},
    {"as_naca4412_parens.dat", 34, 1, 0, 0, 10000, -0.0288F, 0.098F},
    {"as_n64_exponents.dat", 160, 1, 1, 2.19958e-07F, 1, -0.0257749F, 0.0966925F},
    {"as_tasopt_c090_3col.dat", 300, 1, 1, 2.61948e-07F, 1, -0.0317568F, 0.0587953F},
    {"as_hn1023_tabs.dat", 101, 1, 1, 0, 1, -0.03098F, 0.0731F},
    {"as_hm50_484pts.dat", 484, 1, 1, 2.26e-05F, 1, -0.0402107F, 0.0699066F},
    {"as_phonix10_noheader.dat", 495 + 1, 1, 1, 8.2e-06F, 1, -0.0236002F, 0.0776129F},
    {"as_drela_opt6.dat", 942, 1, 1, 0, 1, -0.013455F, 0.127384F},
    {"as_naca23021_text.dat", 34 + 1, 1, 1, 0, 1, -0.0895F, 0.1206F},
    {"ff_30p30n_slat.dat", 201, 1, 1, -0.085382F, 0.018772F, -0.115748F, 0.005079F},
    {"as_dp168_comma_name.dat", 260, 1, 1, 0, 1, -0.02568F, 0.05842F}};
// Rows of the file; chord 200 mm, ordinates as they stand in it.
const std::vector<Attendu> ProfilPropre = {{"aile.dat", 121, 1, 1, 0, 200, -8.4712F, 15.836F}};

INSTANTIATE_TEST_SUITE_P(Corpus, CorpusDat, testing::ValuesIn(essai::CorpusPresent() ? Profils : ProfilPropre),
                         [](const auto& i) { return "f" + std::to_string(i.index); });

TEST_P(CorpusDrl, HitsAndBox) {
  Verifie(essai::DossierDessins("DRL") / GetParam().nom, GetParam(), 0.0006F);  // the boxes are given to 0.001 mm
}

// A hole is two points. The nine slots of the contour file are routes of three points each; its box is by hand from
// the coordinates of the file.
const std::vector<Attendu> Percages = {
    {"gb_diptrace_keyboard.drl", 2 * 106, 106, 0, 12.319F, 59.53F, 13.81F, 86.2F},
    {"gb_diptrace_mainboard.drl", 2 * 168, 168, 0, 11.43F, 91.915F, 13.017F, 60.8F},
    {"gb_diptrace_panel_metric.drl", 2 * 73, 73, 0, 12.86F, 75.63F, 11.11F, 42.39F},
    {"gb_eagle9_drills.xln", 2 * 39, 39, 0, 8.89F, 58.42F, 1.27F, 19.05F},
    {"gb_fritzing_combined.txt", 2 * 482, 482, 0, 3.222F, 95.257F, 3.481F, 96.257F},
    {"gb_mentor_thruplated.ncd", 2 * 294, 294, 0, 1.757F, 120.438F, 2.989F, 68.062F},
    {"gb_mentor_contour.ncd", 3 * 9, 9, 0, 56.668F, 120.759F, 6.56F, 64.369F},
    {"gb_mentor_nonplated.ncd", 2 * 9, 9, 0, 58.168F, 112.242F, 32.855F, 64.588F},
    {"pt_eagle_ncdrill.drd", 2 * 36, 36, 0, 3.81F, 52.832F, 10.323F, 43.089F},
    {"gb_altium_composite.txt", 2 * 12, 12, 0, 254, 1016, 0, 508}};
// 20 holes, 3 slots and a closed route; the four holes of the corners make the box.
const std::vector<Attendu> PercagePropre = {{"percage.drl", NonCompte, 24, 1, 5, 95, 5, 55}};

INSTANTIATE_TEST_SUITE_P(Corpus, CorpusDrl, testing::ValuesIn(essai::CorpusPresent() ? Percages : PercagePropre),
                         [](const auto& i) { return "f" + std::to_string(i.index); });

TEST(Samples, ARibAndADrillPlateAreRead) {
  const std::string samples = essai::DossierExemples() + "/";
  // NACA 2412 with a chord of 200 mm: 60 panels a side, thickness 12 %, highest point near 7.9 %.
  const auto aile = Lis(samples + "aile.dat");
  EXPECT_EQ(aile.Nombre, 121);
  EXPECT_TRUE(EstFerme(Sequences(aile.Points).at(0)));
  EXPECT_NEAR(aile.Xmax, 200, 1e-4);
  EXPECT_NEAR(aile.Ymax - aile.Ymin, 24.3, 0.3);
  // 4 holes, two rows of 8, 3 slots, and a closed route of two lines and two half circles of radius 3.
  const auto plaque = Sequences(Lis(samples + "percage.drl").Points);
  ASSERT_EQ(plaque.size(), 4U + 16U + 3U + 1U);
  const auto route = std::find_if(plaque.begin(), plaque.end(), EstFerme);
  ASSERT_NE(route, plaque.end());
  EXPECT_NEAR(Aire(*route), -(20 * 6 + std::numbers::pi * 9), 0.2);
}
