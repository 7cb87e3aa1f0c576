// Real plots of other programs, and this system's own samples.
//
// Expected sizes: hp2xx 3.4.4 for the encoded plots and the textile marker, whose boxes gpcl6 10.0.0 confirms
// within a line width where it makes a page. hp2xx draws labels, which are left out here; of the two plots with
// labels the size is that of the lines by their coordinates in the file: frame 0..10000 x 0..7000, trace 952..9577
// x 1085..6845. hp2xx places turned plots elsewhere (its own idea of the sheet), so the place is not compared.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/Corpus.h"
#include "tests/unit/closed/pathwerk/lecture/hpgl/Mesures.h"

namespace pathwerk::lecture::hpgl {
namespace {

using namespace mesures;
namespace fs = std::filesystem;

const fs::path DossierDuFormat = essai::DossierDessins("HPGL");
const fs::path Exemples = essai::DossierExemples();

std::string Contenu(const fs::path& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  std::stringstream s;
  s << f.rdbuf();
  return s.str();
}

struct Attendu {
  const char* fichier;
  double large, haut;  // mm
  long traits;         // strokes where hp2xx counts nothing else, otherwise -1
  long fermes;
  long etiquettes;
};

const std::vector<Attendu> Reels = {
    {"tg_feature_exercise.plt", 250.0, 175.0, -1, -1, 21},
    {"tg_analyzer_trace.plt", 215.625, 144.0, -1, -1, 18},
    {"jg_pe_square.plt", 98.89, 98.89, 1, 0, 0},
    {"jg_pe_circle.plt", 98.89, 98.89, 5, 1, 0},
    {"jg_pe_ro180.plt", 39.88, 39.88, 1, 1, 0},
    {"jg_pe_layout.plt", 232.24, 162.90, 3, 0, 0},
    {"ez_plotfile_pe.plt", 593.80, 419.85, -1, -1, 0},
    {"ez_hsg_iso_pe.plt", 1499.75, 840.85, -1, -1, 0},
    {"ez_bf_iso_pe.plt", 840.80, 593.85, -1, -1, 0},
    {"sc_s_fabric_nesting.plt", 14896.60, 1700.0, 31833, 1795, 0},
};
// The frame: 8000 x 3200 units of 0.025 mm.
const std::vector<Attendu> Echantillons = {{"enseigne.plt", 200.0, 80.0, -1, -1, 0}};
const std::vector<Attendu>& Attendus = essai::CorpusPresent() ? Reels : Echantillons;

TEST(LireHpgl, RealPlotsHaveTheSizeThatOtherProgramsGiveThem) {
  for (const Attendu& a : Attendus) {
    SCOPED_TRACE(a.fichier);
    const Lecture l = Lit(Contenu(DossierDuFormat / a.fichier));
    ASSERT_EQ(l.rapport.Numero, Erreur::Aucune);
    const Boite b = BoiteDe(l.traits);
    // hp2xx keeps its places in single precision: 0.05 mm at 15 m.
    EXPECT_NEAR(b.Large(), a.large, 0.006 + a.large * 4e-6);
    EXPECT_NEAR(b.Haute(), a.haut, 0.006 + a.haut * 4e-6);
    EXPECT_EQ(Ignores(l, "LB"), a.etiquettes);
    EXPECT_FALSE(l.rapport.Tronque);
    if (a.traits < 0) continue;
    EXPECT_EQ(static_cast<long>(l.traits.size()), a.traits);
    const auto ferme = [](const Trait& t) { return t.nature == Nature::Ferme; };
    EXPECT_EQ(std::count_if(l.traits.begin(), l.traits.end(), ferme), a.fermes);
  }
}

// Is there a closed stroke with this box (mm)?
bool ContourDansLaBoite(const Lecture& l, double xmin, double ymin, double xmax, double ymax) {
  return std::any_of(l.traits.begin(), l.traits.end(), [&](const Trait& t) {
    const Boite b = BoiteDe({t});
    return t.nature == Nature::Ferme && std::abs(b.xmin - xmin) < 0.011 && std::abs(b.ymin - ymin) < 0.011 &&
           std::abs(b.xmax - xmax) < 0.011 && std::abs(b.ymax - ymax) < 0.011;
  });
}

TEST(LireHpgl, ThePolygonsOfRealPlotsComeAsContours) {
  if (!essai::CorpusPresent()) {
    // The letter D of the sign: a polygon with a hole, each a straight back and a half circle of 1000 and 720
    // units.
    const Lecture l = Lit(Contenu(DossierDuFormat / "enseigne.plt"));
    EXPECT_TRUE(ContourDansLaBoite(l, 117.5, 15, 152.5, 65));
    EXPECT_TRUE(ContourDansLaBoite(l, 124.5, 22, 145.5, 58));
    return;
  }
  // 274 PM instructions are 137 polygons, each filled once.
  const Lecture l = Lit(Contenu(DossierDuFormat / "ez_plotfile_pe.plt"));
  const auto ferme = [](const Trait& t) { return t.nature == Nature::Ferme; };
  EXPECT_GE(std::count_if(l.traits.begin(), l.traits.end(), ferme), 130);
}

TEST(LireHpgl, OwnSampleIsReadWhole) {
  // Frame of 200 x 80 mm; its README line says what is on it.
  const Lecture l = Lit(Contenu(Exemples / "enseigne.plt"));
  ASSERT_EQ(l.rapport.Numero, Erreur::Aucune);
  const Boite b = BoiteDe(l.traits);
  EXPECT_DOUBLE_EQ(b.Large(), 200);
  EXPECT_DOUBLE_EQ(b.Haute(), 80);
  EXPECT_TRUE(l.rapport.Ignores.empty());
  EXPECT_EQ(
      std::count_if(l.traits.begin(), l.traits.end(), [](const Trait& t) { return t.nature == Nature::Percage; }),
      2);
}

// What comes out of the whole road: number of points, paths, bounds.
struct Resultat {
  std::int32_t n = 0;
  std::size_t sequences = 0;
  float xmin = 0, xmax = 0, ymin = 0, ymax = 0;
  std::string message = std::string(LongueurMessage, ' ');
};

Resultat Ouvre(const fs::path& chemin) {
  Resultat r;
  std::vector<PointTrace> points;
  r.n = LireFichier(points, chemin.string(), r.xmin, r.xmax, r.ymin, r.ymax, r.message);
  for (std::size_t i = 0; i < points.size() && r.n > 0; ++i) {
    if (i == 0 || points[i].Seq != points[i - 1].Seq) ++r.sequences;
  }
  return r;
}

TEST(LireFichier, OpensRealPlotsWithTheBoundsOfTheirLines) {
  for (const Attendu& a : Attendus) {
    SCOPED_TRACE(a.fichier);
    const Resultat r = Ouvre(DossierDuFormat / a.fichier);
    // A dashed marker and a shaded picture: more separate strokes than there are codes for paths.
    const bool trop =
        a.fichier == std::string("sc_s_fabric_nesting.plt") || a.fichier == std::string("ez_bf_iso_pe.plt");
    if (trop) {
      EXPECT_EQ(r.n, static_cast<std::int32_t>(Erreur::TropDeSequences));
      continue;
    }
    ASSERT_GT(r.n, 0);
    EXPECT_NEAR(r.xmax - r.xmin, a.large, 0.006 + a.large * 4e-6);
    EXPECT_NEAR(r.ymax - r.ymin, a.haut, 0.006 + a.haut * 4e-6);
    if (a.traits < 0) continue;
    EXPECT_LE(static_cast<long>(r.sequences), a.traits);
  }
}

TEST(LireFichier, WeldsTheLooseSegmentsOfTheOwnSample) {
  const Resultat r = Ouvre(Exemples / "enseigne.plt");
  // Frame, two holes, A twice, O twice, D twice, leaf, rectangle; the A was eight loose segments.
  EXPECT_EQ(r.sequences, 11U);
  EXPECT_FLOAT_EQ(r.xmax - r.xmin, 200);
  EXPECT_FLOAT_EQ(r.ymax - r.ymin, 80);
}

TEST(LireFichier, SaysWhatOfAPlotWasLeftOut) {
  if (!essai::CorpusPresent()) GTEST_SKIP() << essai::CorpusAbsent;
  const Resultat r = Ouvre(DossierDuFormat / "tg_feature_exercise.plt");
  EXPECT_NE(r.message.find("LB 21"), std::string::npos) << r.message;
  EXPECT_EQ(r.message.size(), LongueurMessage);
}

}  // namespace
}  // namespace pathwerk::lecture::hpgl
