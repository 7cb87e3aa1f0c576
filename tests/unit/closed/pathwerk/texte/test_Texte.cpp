#include <ft2build.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>
#include FT_FREETYPE_H

#include "closed/Pathwerk.h"

// Numbers in font units are those of the tables "hmtx", "glyf" and "kern" of DejaVuSans.ttf 2.37, 2048 units an em.

namespace {

using namespace pathwerk;

using Contour = std::vector<PointTrace>;

constexpr double Unite = 20.0 / 2048;  // mm a font unit of the DejaVu family
constexpr double Pres = 0.0101;        // mm: the chords' tolerance and the rounding to 32-bit floats

std::vector<Contour> Contours(const std::vector<PointTrace>& points) {
  std::vector<Contour> contours;
  for (const PointTrace& p : points) {
    if (contours.empty() || contours.back().back().Seq != p.Seq) contours.emplace_back();
    contours.back().push_back(p);
  }
  return contours;
}

struct Cadre {
  double x0 = 1e9, y0 = 1e9, x1 = -1e9, y1 = -1e9;
};
Cadre Bornes(const std::vector<PointTrace>& points) {
  Cadre b;
  for (const PointTrace& p : points) {
    b.x0 = std::min(b.x0, static_cast<double>(p.X));
    b.x1 = std::max(b.x1, static_cast<double>(p.X));
    b.y0 = std::min(b.y0, static_cast<double>(p.Y));
    b.y1 = std::max(b.y1, static_cast<double>(p.Y));
  }
  return b;
}

// Signed area, mm2: positive counter-clockwise.
double Aire(const Contour& c) {
  double a = 0;
  for (std::size_t i = 0; i + 1 < c.size(); ++i) {
    a += static_cast<double>(c[i].X) * static_cast<double>(c[i + 1].Y) -
         static_cast<double>(c[i + 1].X) * static_cast<double>(c[i].Y);
  }
  return a / 2;
}

std::vector<PointTrace> Ecrit(const std::string& texte, const std::string& police = "DejaVu Sans",
                              std::int32_t espace = 0, std::int32_t style = 0) {
  std::vector<PointTrace> points;
  const std::int32_t n = Texte(points, texte, police, espace, style);
  EXPECT_EQ(n, static_cast<std::int32_t>(points.size())) << texte << " in " << police;
  return points;
}

std::string DossierPolices() { return "/usr/share/fonts/truetype/dejavu/"; }

void ExigeBoite(const Cadre& b, double x0, double y0, double x1, double y1) {
  EXPECT_NEAR(b.x0, x0 * Unite, Pres);
  EXPECT_NEAR(b.y0, y0 * Unite, Pres);
  EXPECT_NEAR(b.x1, x1 * Unite, Pres);
  EXPECT_NEAR(b.y1, y1 * Unite, Pres);
}

TEST(Texte, LetterFillsTheBoxThatTheFontGivesIt) {
  const auto points = Ecrit("O");
  ExigeBoite(Bornes(points), 115, -29, 1497, 1520);
}

TEST(Texte, StraightLetterHasExactlyItsCorners) {
  const auto contours = Contours(Ecrit("H"));
  ASSERT_EQ(contours.size(), 1U);
  EXPECT_EQ(contours[0].size(), 13U);  // twelve corners and the first one again
  const Cadre b = Bornes(contours[0]);
  EXPECT_FLOAT_EQ(static_cast<float>(b.x0), static_cast<float>(201 * Unite));
  EXPECT_FLOAT_EQ(static_cast<float>(b.x1), static_cast<float>(1339 * Unite));
  EXPECT_EQ(b.y0, 0);  // stands on the base line
  EXPECT_FLOAT_EQ(static_cast<float>(b.y1), static_cast<float>(1493 * Unite));
}

TEST(Texte, LetterWithACounterGivesTwoContours) {
  EXPECT_EQ(Contours(Ecrit("O")).size(), 2U);
  EXPECT_EQ(Contours(Ecrit("I")).size(), 1U);
  EXPECT_EQ(Contours(Ecrit("B")).size(), 3U);
}

TEST(Texte, AccentIsAContourOfItsOwn) {
  EXPECT_EQ(Contours(Ecrit("e")).size(), 2U);
  EXPECT_EQ(Contours(Ecrit("\xC3\xA9")).size(), 3U);  // é
  ExigeBoite(Bornes(Ecrit("\xC3\xA9")), 113, -29, 1151, 1638);
}

TEST(Texte, AccentTypedAsACharacterOfItsOwnMeetsItsLetter) {
  // e and U+0301: the same letter as U+00E9.
  const auto compose = Bornes(Ecrit("\xC3\xA9"));
  const auto separe = Bornes(Ecrit("e\xCC\x81"));
  EXPECT_NEAR(separe.x1, compose.x1, 0.05);
  EXPECT_NEAR(separe.y1, compose.y1, 0.05);
}

TEST(Texte, EveryContourIsClosedExactly) {
  for (const Contour& c : Contours(Ecrit("OVELIN &@%\xC3\xA9g8", "DejaVu Serif"))) {
    ASSERT_GE(c.size(), 4U);
    EXPECT_EQ(c.front().X, c.back().X);
    EXPECT_EQ(c.front().Y, c.back().Y);
    for (std::size_t i = 0; i + 1 < c.size(); ++i) EXPECT_FALSE(MemePlace(c[i], c[i + 1])) << "a move of no length";
  }
}

TEST(Texte, PointsAreOrdinary) {
  for (const PointTrace& p : Ecrit("A")) EXPECT_EQ(p.Cde, CodePD);
}

TEST(Texte, BodyLiesToTheRightOfTheTravelInEveryFormat) {
  // The default side of the tool is the left: outside the letter, inside its counter.
  for (const char* police : {"DejaVu Sans", "Liberation Serif"}) {
    const auto contours = Contours(Ecrit("O", police));
    ASSERT_EQ(contours.size(), 2U) << police;
    EXPECT_GT(Aire(contours[0]), 0) << police << ": the counter counter-clockwise";
    EXPECT_LT(Aire(contours[1]), 0) << police << ": the outside clockwise";
  }
}

TEST(Texte, CounterComesBeforeTheContourAroundIt) {
  const auto contours = Contours(Ecrit("O"));
  ASSERT_EQ(contours.size(), 2U);
  EXPECT_LT(std::fabs(Aire(contours[0])), std::fabs(Aire(contours[1])));
}

TEST(Texte, PostScriptOutlinesTurnTheSameWay) {
  // Their own sense is the opposite one.
  const std::string fichier = "/usr/share/fonts/opentype/urw-base35/NimbusSans-Regular.otf";
  if (!std::filesystem::exists(fichier)) GTEST_SKIP() << "no PostScript font here";
  const auto contours = Contours(Ecrit("O", fichier));
  ASSERT_EQ(contours.size(), 2U);
  EXPECT_GT(Aire(contours[0]), 0);
  EXPECT_LT(Aire(contours[1]), 0);
}

TEST(Texte, AreaAgreesWithTheStrokesOfTheFont) {
  // A full stop is a square: (430 - 219) x 254 units.
  const auto contours = Contours(Ecrit("."));
  ASSERT_EQ(contours.size(), 1U);
  EXPECT_NEAR(-Aire(contours[0]), 211 * 254 * Unite * Unite, 1e-4);
}

TEST(Texte, ContoursFollowTheReading) {
  double avant = -1;
  for (const Contour& c : Contours(Ecrit("IHLE"))) {
    const Cadre b = Bornes(c);
    EXPECT_GT(b.x0, avant);
    avant = b.x1;
  }
}

TEST(Texte, SecondLetterBeginsBehindTheAdvanceOfTheFirst) {
  // I: advance 604, its stroke from 201 to 403.
  const auto contours = Contours(Ecrit("II"));
  ASSERT_EQ(contours.size(), 2U);
  EXPECT_NEAR(Bornes(contours[1]).x0, (604 + 201) * Unite, 1e-4);
}

TEST(Texte, PairIsKerned) {
  // A and V are brought together by 131 units.
  const Cadre b = Bornes(Ecrit("AV"));
  EXPECT_NEAR(b.x1, (1401 - 131 + 1384) * Unite, Pres);
  EXPECT_LT(b.x1 - b.x0, (1401 + 1384 - 16) * Unite);
}

TEST(Texte, BlankAdvancesOnly) {
  EXPECT_EQ(Ecrit(" ").size(), 0U);
  const auto contours = Contours(Ecrit("I I"));
  ASSERT_EQ(contours.size(), 2U);
  EXPECT_NEAR(Bornes(contours[1]).x0, (604 + 651 + 201) * Unite, 1e-4);
}

TEST(Texte, LeadingBlankMovesTheText) { EXPECT_NEAR(Bornes(Ecrit(" I")).x0, (651 + 201) * Unite, 1e-4); }

TEST(Texte, ControlCharacterCountsAsABlank) {
  EXPECT_EQ(Ecrit("\t\n").size(), 0U);
  for (const char* texte : {"I\tI", "I\x7FI"}) EXPECT_NEAR(Bornes(Ecrit(texte)).x1, Bornes(Ecrit("I I")).x1, 1e-6);
}

TEST(Texte, SpacingStandsBetweenLettersOnly) {
  // 250 thousandths of 20 mm are 5 mm.
  const auto contours = Contours(Ecrit("III", "DejaVu Sans", 250));
  ASSERT_EQ(contours.size(), 3U);
  EXPECT_NEAR(Bornes(contours[0]).x0, 201 * Unite, 1e-4);
  EXPECT_NEAR(Bornes(contours[1]).x0, (604 + 201) * Unite + 5, 1e-4);
  EXPECT_NEAR(Bornes(contours[2]).x0, (2 * 604 + 201) * Unite + 10, 1e-4);
}

TEST(Texte, NegativeSpacingBringsLettersTogether) {
  const auto contours = Contours(Ecrit("II", "DejaVu Sans", -100));
  ASSERT_EQ(contours.size(), 2U);
  EXPECT_NEAR(Bornes(contours[1]).x0, (604 + 201) * Unite - 2, 1e-4);
}

TEST(Texte, SpacingDoesNotPartALetterFromItsAccent) {
  const Cadre serre = Bornes(Ecrit("e\xCC\x81"));
  const Cadre large = Bornes(Ecrit("e\xCC\x81", "DejaVu Sans", 500));
  EXPECT_NEAR(large.x1, serre.x1, 1e-4);
}

// x and U+0302: no letter of the font holds both, so the mark is a glyph of its own, placed by the font.
const char* const XAccent = "x\xCC\x82";

TEST(Texte, MarkIsPlacedOverItsLetter) {
  for (const char* lettre : {"x", "X"}) {
    const auto contours = Contours(Ecrit(lettre + std::string("\xCC\x82")));
    ASSERT_EQ(contours.size(), 2U) << lettre;
    const Cadre corps = Bornes(contours[0]);
    const Cadre marque = Bornes(contours[1]);
    EXPECT_NEAR((marque.x0 + marque.x1) / 2, (corps.x0 + corps.x1) / 2, 0.3) << lettre;
    EXPECT_GT(marque.y0, corps.y1) << lettre;
    EXPECT_LT(marque.y0, corps.y1 + 2) << lettre;
  }
}

TEST(Texte, SpacingDoesNotPartALetterFromItsMark) { EXPECT_EQ(Ecrit(XAccent, "DejaVu Sans", 500), Ecrit(XAccent)); }

TEST(Texte, MarkTakesNoPlaceInABolderTextEither) {
  const std::string police = "DejaVu Sans Light";  // one face, not a bold one
  const double sans = Bornes(Ecrit("xI", police, 0, StyleGras)).x1;
  EXPECT_NEAR(Bornes(Ecrit(XAccent + std::string("I"), police, 0, StyleGras)).x1, sans, 0.01);
}

TEST(Texte, LigatureIsTakenApartBySpacing) {
  // DejaVu Sans draws "ffi" as one letter; with a distance between letters there are three again, dot included.
  const auto serre = Ecrit("ffi");
  const auto large = Ecrit("ffi", "DejaVu Sans", 100);
  EXPECT_NE(Contours(serre).size(), Contours(large).size());
  EXPECT_EQ(Contours(large).size(), 4U);
}

TEST(Texte, LigatureCanBeSet) { EXPECT_EQ(Contours(Ecrit("fi", "DejaVu Sans")).size(), 2U); }

TEST(Texte, EmptyTextIsNothing) {
  std::vector<PointTrace> points(3);
  EXPECT_EQ(Texte(points, "", "DejaVu Sans", 0, 0), 0);
  EXPECT_TRUE(points.empty());
}

TEST(Texte, UnknownFontIsRefusedNotReplaced) {
  std::vector<PointTrace> points(3);
  EXPECT_EQ(Texte(points, "A", "No Such Family", 0, 0), static_cast<std::int32_t>(Erreur::Police));
  EXPECT_TRUE(points.empty());
  EXPECT_EQ(Texte(points, "A", "", 0, 0), static_cast<std::int32_t>(Erreur::Police));
  EXPECT_EQ(Texte(points, "A", std::string("DejaVu Sans\0x", 13), 0, 0), static_cast<std::int32_t>(Erreur::Police));
}

TEST(Texte, FamilyIsFoundWithoutRegardToCase) { EXPECT_EQ(Ecrit("O", "dejavu sans"), Ecrit("O")); }

TEST(Texte, FontFileThatIsMissingOrIsNoFontIsRefused) {
  std::vector<PointTrace> points;
  const auto refus = static_cast<std::int32_t>(Erreur::PoliceFichier);
  EXPECT_EQ(Texte(points, "A", "/nowhere/font.ttf", 0, 0), refus);
  const auto chemin =
      std::filesystem::temp_directory_path() / ("ovelin-police-" + std::to_string(getpid()) + ".ttf");
  std::ofstream(chemin) << "no font at all";
  EXPECT_EQ(Texte(points, "A", chemin.string(), 0, 0), refus);
  // The beginning of a real font.
  std::ifstream source(DossierPolices() + "DejaVuSans.ttf", std::ios::binary);
  std::string debut(3000, '\0');
  source.read(debut.data(), static_cast<std::streamsize>(debut.size()));
  std::ofstream(chemin, std::ios::binary) << debut;
  EXPECT_EQ(Texte(points, "A", chemin.string(), 0, 0), refus);
  std::filesystem::remove(chemin);
  EXPECT_TRUE(points.empty());
}

TEST(Texte, FontFileCanBeNamedByItsPath) {
  EXPECT_EQ(Ecrit("OVELIN", DossierPolices() + "DejaVuSans.ttf"), Ecrit("OVELIN"));
}

TEST(Texte, RealFaceServesBoldAndItalic) {
  const std::string d = DossierPolices();
  EXPECT_EQ(Ecrit("Rag", "DejaVu Serif", 0, StyleItalique), Ecrit("Rag", d + "DejaVuSerif-Italic.ttf"));
  EXPECT_EQ(Ecrit("Rag", "DejaVu Serif", 0, StyleGras), Ecrit("Rag", d + "DejaVuSerif-Bold.ttf"));
  EXPECT_EQ(Ecrit("Rag", "DejaVu Serif", 0, StyleGras + StyleItalique),
            Ecrit("Rag", d + "DejaVuSerif-BoldItalic.ttf"));
  EXPECT_EQ(Ecrit("Rag", "DejaVu Serif"), Ecrit("Rag", d + "DejaVuSerif.ttf"));
}

TEST(Texte, FamilyWithoutItalicIsSlanted) {
  // DejaVu Math TeX Gyre has one face. Y stays, X moves by the height times tan 12 degrees.
  const std::string police = "DejaVu Math TeX Gyre";
  const auto droit = Ecrit("H", police);
  const auto penche = Ecrit("H", police, 0, StyleItalique);
  ASSERT_EQ(droit.size(), penche.size());
  for (std::size_t i = 0; i < droit.size(); ++i) {
    EXPECT_NEAR(penche[i].Y, droit[i].Y, 2e-4);
    EXPECT_NEAR(static_cast<double>(penche[i].X - droit[i].X), static_cast<double>(droit[i].Y) * 0.2126, 0.01);
  }
}

TEST(Texte, FamilyWithoutBoldIsMadeBolder) {
  const std::string police = "DejaVu Math TeX Gyre";
  const Cadre maigre = Bornes(Ecrit("I", police));
  const Cadre gras = Bornes(Ecrit("I", police, 0, StyleGras));
  // The strokes grow by 1/24 em, and so does the letter.
  EXPECT_NEAR((gras.x1 - gras.x0) - (maigre.x1 - maigre.x0), 20.0 / 24, 0.05);
  EXPECT_NEAR((gras.y1 - gras.y0) - (maigre.y1 - maigre.y0), 20.0 / 24, 0.05);
  const Cadre deux = Bornes(Ecrit("II", police));
  const Cadre deuxGras = Bornes(Ecrit("II", police, 0, StyleGras));
  EXPECT_NEAR((deuxGras.x1 - deuxGras.x0) - (deux.x1 - deux.x0), 2 * 20.0 / 24, 0.05);
}

TEST(Texte, FaceNamedByItsPathIsNotStyledAgain) {
  const std::string fichier = DossierPolices() + "DejaVuSans-Bold.ttf";
  EXPECT_EQ(Ecrit("I", fichier, 0, StyleGras), Ecrit("I", fichier));
  const std::string oblique = DossierPolices() + "DejaVuSans-Oblique.ttf";
  EXPECT_EQ(Ecrit("I", oblique, 0, StyleItalique), Ecrit("I", oblique));
}

// A curve of the font by the definition of the TrueType outline, sampled without a thought for its cost.
std::vector<std::pair<double, double>> Echantillons(char lettre) {
  FT_Library bibliotheque = nullptr;
  FT_Face face = nullptr;
  EXPECT_EQ(FT_Init_FreeType(&bibliotheque), 0);
  EXPECT_EQ(FT_New_Face(bibliotheque, (DossierPolices() + "DejaVuSans.ttf").c_str(), 0, &face), 0);
  EXPECT_EQ(FT_Load_Char(face, static_cast<FT_ULong>(lettre), FT_LOAD_NO_SCALE), 0);
  const FT_Outline& trace = face->glyph->outline;
  std::vector<std::pair<double, double>> echantillons;
  int debut = 0;
  for (int k = 0; k < trace.n_contours; ++k) {
    const int fin = trace.contours[k];
    struct P {
      double x, y;
      bool sur;
    };
    std::vector<P> points;  // with the implied points written out
    for (int i = debut; i <= fin; ++i) {
      const int j = i == fin ? debut : i + 1;
      const P p{static_cast<double>(trace.points[i].x), static_cast<double>(trace.points[i].y),
                (trace.tags[i] & 1) != 0};
      const P q{static_cast<double>(trace.points[j].x), static_cast<double>(trace.points[j].y),
                (trace.tags[j] & 1) != 0};
      points.push_back(p);
      if (!p.sur && !q.sur) points.push_back({(p.x + q.x) / 2, (p.y + q.y) / 2, true});
    }
    const std::size_t n = points.size();
    for (std::size_t i = 0; i < n; ++i) {
      if (points[i].sur) continue;
      const P a = points[(i + n - 1) % n];
      const P m = points[i];
      const P b = points[(i + 1) % n];
      for (int s = 0; s <= 200; ++s) {
        const double t = s / 200.0;
        const double u = 1 - t;
        echantillons.emplace_back((u * u * a.x + 2 * u * t * m.x + t * t * b.x) * Unite,
                                  (u * u * a.y + 2 * u * t * m.y + t * t * b.y) * Unite);
      }
    }
    debut = fin + 1;
  }
  FT_Done_Face(face);
  FT_Done_FreeType(bibliotheque);
  return echantillons;
}

double DistanceSegment(double x, double y, const PointTrace& a, const PointTrace& b) {
  const double ax = static_cast<double>(a.X);
  const double ay = static_cast<double>(a.Y);
  const double dx = static_cast<double>(b.X) - ax;
  const double dy = static_cast<double>(b.Y) - ay;
  const double l2 = dx * dx + dy * dy;
  const double t = l2 > 0 ? std::clamp(((x - ax) * dx + (y - ay) * dy) / l2, 0.0, 1.0) : 0.0;
  return std::hypot(x - ax - t * dx, y - ay - t * dy);
}

TEST(Texte, ChordsStayWithinAHundredthOfTheCurve) {
  for (const char lettre : {'O', 'S', 'g', '&'}) {
    const auto points = Ecrit(std::string(1, lettre));
    const auto echantillons = Echantillons(lettre);
    ASSERT_GT(echantillons.size(), 1000U);
    double pire = 0;
    for (const auto& [x, y] : echantillons) {
      double pres = 1e9;
      for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        if (points[i].Seq == points[i + 1].Seq)
          pres = std::min(pres, DistanceSegment(x, y, points[i], points[i + 1]));
      }
      pire = std::max(pire, pres);
    }
    EXPECT_LE(pire, 0.0101) << lettre;
    EXPECT_GT(pire, 1e-5) << lettre << ": nothing but curves sampled to death stays nearer";
  }
}

TEST(Texte, CodesChangeFromContourToContourBeyondTheLastCode) {
  // 8,000 codes and some: one contour a letter.
  const std::size_t lettres = NbCodes() + 50;
  const auto points = Ecrit(std::string(lettres, 'I'));
  std::size_t fermes = 0;
  for (const Contour& c : Contours(points)) {
    ASSERT_EQ(c.size(), 5U) << "two letters ran together";
    ++fermes;
  }
  EXPECT_EQ(fermes, lettres);
}

TEST(Texte, BrokenUtf8IsDrawnNotFollowed) {
  // A lone continuation byte and a cut sequence: whatever is drawn for them, the letters around them stand.
  const auto points = Ecrit("I\x80I\xC3");
  EXPECT_GE(Contours(points).size(), 2U);
}

TEST(Texte, RightToLeftTextIsSetFromTheRight) {
  // Hebrew alef, then vav: the vav stands to the left, so it comes first.
  const auto deux = Contours(Ecrit("\xD7\x90\xD7\x95"));
  const auto vav = Contours(Ecrit("\xD7\x95"));
  ASSERT_GE(deux.size(), 2U);
  ASSERT_EQ(vav.size(), 1U);
  EXPECT_EQ(deux[0].size(), vav[0].size());
  EXPECT_NEAR(Bornes(deux[0]).x0, Bornes(vav[0]).x0, 1e-4);
}

TEST(ListePolices, NamesEachFamilyOnceAndSorted) {
  const auto noms = ListePolices();
  EXPECT_THAT(noms,
              testing::IsSupersetOf({"DejaVu Sans", "DejaVu Sans Condensed", "DejaVu Serif", "Liberation Mono"}));
  EXPECT_TRUE(std::is_sorted(noms.begin(), noms.end()));
  EXPECT_EQ(std::adjacent_find(noms.begin(), noms.end()), noms.end());
}

TEST(ListePolices, EveryFamilyCanBeUsed) {
  for (const std::string& nom : ListePolices()) {
    std::vector<PointTrace> points;
    EXPECT_GE(Texte(points, "A", nom, 0, 0), 0) << nom;
  }
}

// Five times as high, and chords as near to the curve as before: more of them, not longer ones.
TEST(TexteHaut, GivesOutlinesOfThatHeightWithChordsAsNear) {
  std::vector<PointTrace> petit;
  std::vector<PointTrace> grand;
  ASSERT_GT(Texte(petit, "O", "DejaVu Sans", 0, 0), 0);
  ASSERT_GT(TexteHaut(grand, "O", "DejaVu Sans", 0, 0, 100), 0);
  const Cadre p = Bornes(petit);
  const Cadre g = Bornes(grand);
  EXPECT_NEAR(g.x1 - g.x0, 5 * (p.x1 - p.x0), 6 * Pres);
  EXPECT_NEAR(g.y1 - g.y0, 5 * (p.y1 - p.y0), 6 * Pres);
  EXPECT_GT(grand.size(), petit.size() * 3 / 2);
}

TEST(TexteHaut, SpacesLettersInPartsOfItsOwnHeight) {
  std::vector<PointTrace> serre;
  std::vector<PointTrace> large;
  ASSERT_GT(TexteHaut(serre, "II", "DejaVu Sans", 0, 0, 50), 0);
  ASSERT_GT(TexteHaut(large, "II", "DejaVu Sans", 100, 0, 50), 0);
  EXPECT_NEAR(Bornes(large).x1 - Bornes(serre).x1, 5, 2 * Pres);  // a tenth of 50 mm
}

TEST(TexteHaut, HasNoPointAtAHeightThatIsNone) {
  std::vector<PointTrace> points(3);
  EXPECT_EQ(TexteHaut(points, "O", "DejaVu Sans", 0, 0, 0), 0);
  EXPECT_EQ(TexteHaut(points, "O", "DejaVu Sans", 0, 0, -5), 0);
  EXPECT_TRUE(points.empty());
}

}  // namespace
