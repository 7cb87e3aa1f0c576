// Real EPS files of other programs, and this system's own sample.
//
// Boxes in points. The expected ones are the node boxes of pstoedit 3.78 (text as outlines) where these are the
// lines themselves, else Ghostscript's bounding box device less half a line width:
//   zi_upca_addon     pstoedit 0 -0.05 276 116.4: white background included, which paints nothing in the box device
//   gm_input          pstoedit counts moves far outside (-53 .. 9149); box device 0.766 0.774 496.242 316.242 with
//   lines
//                     of half a point around
//   pi_gnuplot_*      both count the pen's place behind the last letter, 370.94; its outline ends at 370.64
//   pi_reqd_showpage  control points reach 0.06 further than the curves
#include <fstream>
#include <sstream>

#include "tests/support/Corpus.h"
#include "tests/unit/closed/pathwerk/lecture/eps/Mesures.h"

namespace pathwerk::lecture::eps {
namespace {

using namespace mesures;
namespace fs = std::filesystem;

const fs::path DossierDuFormat = essai::DossierDessins("EPS");
const fs::path Exemples = essai::DossierExemples();

std::string Contenu(const fs::path& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  std::stringstream s;
  s << f.rdbuf();
  return s.str();
}

struct Attendu {
  const char* fichier;
  double xmin, ymin, xmax, ymax;  // points
  double ecart;                   // points
  long fermes;                    // closed subpaths by pstoedit where all are closed, otherwise -1
  long clips, images;
};

const std::vector<Attendu> Reels = {
    {"zi_dotcode.eps", 0, 0, 44, 32, 0.01, 29, 0, 0},
    {"zi_code128_rot90.eps", 0, 0, 118.9, 224, 0.01, 43, 0, 0},
    {"zi_maxicode_cmyk.eps", 0, 0, 57.73, 60, 0.01, 361, 0, 0},
    {"zi_ultracode.eps", 0, 0, 28, 26, 0.01, 99, 0, 0},
    {"zi_upca_addon.eps", 0, -0.05, 276, 116.4, 0.01, 60, 0, 0},
    {"gm_input.eps", 1.0, 1.0, 496.0, 316.0, 0.02, -1, 1, 0},
    {"pi_gnuplot_zero_bb.eps", 80.52, 63.71, 370.64, 291.44, 0.02, -1, 0, 0},
    {"pi_gnuplot_nonzero_bb.eps", 80.52, 63.71, 370.64, 291.44, 0.02, -1, 0, 0},
    {"pi_bb_trailer.eps", 80.52, 63.71, 370.64, 291.44, 0.02, -1, 0, 0},
    {"pi_reqd_showpage.eps", 19.77, 12.62, 520.32, 465.69, 0.07, -1, 0, 0},
};
// The ring is 200 points wide about (110, 130); below it the box ends with the letters, which no line makes wider.
const std::vector<Attendu> Echantillons = {{"logo.eps", 10, 3.35, 210, 230, 0.05, -1, 0, 0}};
const std::vector<Attendu>& Attendus = essai::CorpusPresent() ? Reels : Echantillons;

TEST(LireEps, RealDrawingsHaveTheBoxThatOtherProgramsGiveThem) {
  AVEC_GS();
  for (const Attendu& a : Attendus) {
    SCOPED_TRACE(a.fichier);
    const Lecture l = Lit(Contenu(DossierDuFormat / a.fichier));
    ASSERT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
    const Boite b = BoiteDe(l.traits);
    EXPECT_NEAR(b.xmin / PointPostScript, a.xmin, a.ecart);
    EXPECT_NEAR(b.ymin / PointPostScript, a.ymin, a.ecart);
    EXPECT_NEAR(b.xmax / PointPostScript, a.xmax, a.ecart);
    EXPECT_NEAR(b.ymax / PointPostScript, a.ymax, a.ecart);
    EXPECT_EQ(Ignores(l, "clip"), a.clips);
    EXPECT_EQ(Ignores(l, "image"), a.images);
    if (a.fermes < 0) continue;
    EXPECT_EQ(static_cast<long>(l.traits.size()), a.fermes);
    for (const Trait& t : l.traits) EXPECT_EQ(t.nature, Nature::Ferme);
  }
}

TEST(LireEps, APictureWithoutVectorsGivesNothingAndSaysSo) {
  AVEC_GS();
  if (!essai::CorpusPresent()) GTEST_SKIP() << essai::CorpusAbsent;
  const Lecture l = Lit(Contenu(DossierDuFormat / "pi_raster_only.eps"));
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune);
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "image"), 1);
}

TEST(LireEps, OwnSampleIsReadWhole) {
  AVEC_GS();
  const Lecture l = Lit(Contenu(Exemples / "logo.eps"));
  ASSERT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
  const Boite b = BoiteDe(l.traits);
  // The ring is 200 points wide about (110, 130).
  EXPECT_NEAR(b.xmin, 10 * PointPostScript, 0.02);
  EXPECT_NEAR(b.xmax, 210 * PointPostScript, 0.02);
  EXPECT_NEAR(b.ymax, 230 * PointPostScript, 0.02);
  EXPECT_TRUE(l.rapport.Ignores.empty());
  // Two circles, a leaf, and six letters of which O and E, L, I, N give 2 + 1 + 1 + 1 + 1 + 1 contours at least.
  EXPECT_GE(l.traits.size(), 9U);
}

TEST(LireFichier, OpensEpsByItsName) {
  AVEC_GS();
  std::vector<PointTrace> points;
  float xmin = 0, xmax = 0, ymin = 0, ymax = 0;
  std::string message(LongueurMessage, ' ');
  const std::int32_t n = LireFichier(points, (Exemples / "logo.eps").string(), xmin, xmax, ymin, ymax, message);
  ASSERT_GT(n, 0);
  EXPECT_EQ(static_cast<std::size_t>(n), points.size());
  EXPECT_NEAR(xmax - xmin, 200 * PointPostScript, 0.03);
}

TEST(LireFichier, NamesTheErrorOfADrawing) {
  AVEC_GS();
  const DossierEssai dossier;
  const std::string chemin = dossier.Chemin() + "/faux.eps";
  std::ofstream(chemin) << "%!PS\nnosuchname\n";
  std::vector<PointTrace> points;
  float xmin = 0, xmax = 0, ymin = 0, ymax = 0;
  std::string message(LongueurMessage, ' ');
  EXPECT_EQ(LireFichier(points, chemin, xmin, xmax, ymin, ymax, message),
            static_cast<std::int32_t>(Erreur::GsErreur));
  EXPECT_EQ(message.substr(0, 21), "faux.eps:2: undefined") << message;
}

}  // namespace
}  // namespace pathwerk::lecture::eps
