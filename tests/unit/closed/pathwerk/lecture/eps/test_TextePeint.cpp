// Text comes as outlines of its letters, at the places where PostScript puts them.
#include "tests/unit/closed/pathwerk/lecture/eps/Mesures.h"

namespace pathwerk::lecture::eps {
namespace {

using namespace mesures;

// A font whose letters are procedures: "a" a square of 500, "b" a slanted line; both 600 wide, in thousandths.
const std::string Police3 =
    "8 dict begin /FontType 3 def /FontMatrix [.001 0 0 .001 0 0] def /FontBBox [0 0 1000 1000] def\n"
    "/Encoding 256 array def 0 1 255 {Encoding exch /.notdef put} for\n"
    "Encoding 97 /a put Encoding 98 /b put\n"
    "/BuildGlyph { exch pop 600 0 0 0 1000 1000 setcachedevice\n"
    "  /a eq { 0 0 500 500 rectfill } { 0 0 moveto 100 100 lineto stroke } ifelse } bind def\n"
    "/BuildChar { 1 index /Encoding get exch get 1 index /BuildGlyph get exec } bind def\n"
    "currentdict end /T3 exch definefont pop /T3 findfont 10 scalefont setfont\n";

// A monospaced font: every letter is 0.6 of the size wide.
const std::string PoliceCourier = "/Courier findfont 100 scalefont setfont\n";

double XMin(const Trait& t) { return BoiteDe({t}).xmin; }

// Outlines of "I" in Courier at 100 points start 9.6 points right of the pen; found from the first one, so that the
// test holds with any font that stands in for it.
double Retrait() { return XMin(Traits(PoliceCourier + "0 0 moveto (I) show").at(0)); }

TEST(LireEps, LettersAreContoursOfTheirHeightAndHoles) {
  AVEC_GS();
  const auto t = Traits(PoliceCourier + "72 72 moveto (O) show");
  ASSERT_EQ(t.size(), 2U);  // outside and inside
  for (const Trait& c : t) EXPECT_EQ(c.nature, Nature::Ferme);
  const Boite b = BoiteDe(t);
  EXPECT_GT(b.xmin, 25.4);
  EXPECT_LT(b.xmax, 25.4 + 60 * PointPostScript);
  EXPECT_NEAR(b.ymax - b.ymin, 60 * PointPostScript, 8 * PointPostScript);
  EXPECT_LT(Aire(t[0]) * Aire(t[1]), 0);
}

TEST(LireEps, ShowMovesThePenByTheWidthOfItsLetters) {
  AVEC_GS();
  const auto t = Traits(PoliceCourier + "10 20 moveto (III) show currentpoint lineto 0 5 rlineto stroke");
  ASSERT_EQ(t.size(), 4U);
  AttendPoints(t[3], {{190, 20}, {190, 25}});
  EXPECT_NEAR(XMin(t[1]) - XMin(t[0]), 60 * PointPostScript, 0.02);
}

TEST(LireEps, ShowWithoutACurrentPointIsAnError) {
  AVEC_GS();
  const Lecture l = Lit("%!PS\n" + PoliceCourier + "(I) show");
  EXPECT_EQ(l.rapport.Numero, Erreur::GsErreur);
  EXPECT_EQ(l.rapport.Detail, "nocurrentpoint");
}

TEST(LireEps, SpacedTextIsSpaced) {
  AVEC_GS();
  const double r = Retrait();
  struct Cas {
    const char* texte;
    double second;  // place of the second "I", points
    double fin;     // of the pen
  };
  // Courier at 100 points: 60 a letter. The code of "I" is 73, of a blank 32.
  const Cas cas[] = {
      {"0 0 moveto 7 0 (II) ashow", 67, 134},
      {"0 0 moveto 5 0 32 (I I) widthshow", 125, 185},
      {"0 0 moveto 5 0 32 7 0 (I I) awidthshow", 139, 206},
      {"0 0 moveto (II) [80 90] xshow", 80, 170},
      {"0 0 moveto (II) [80 0 90 0] xyshow", 80, 170},
      {"0 0 moveto {pop pop 11 0 rmoveto} (II) kshow", 71, 131},
      {"0 0 moveto /I glyphshow 5 0 rmoveto /I glyphshow", 65, 125},
  };
  for (const Cas& c : cas) {
    SCOPED_TRACE(c.texte);
    const auto t = Traits(PoliceCourier + c.texte + " currentpoint lineto 0 5 rlineto stroke");
    ASSERT_EQ(t.size(), 3U);
    EXPECT_NEAR(XMin(t[0]), r, 0.02);
    EXPECT_NEAR(XMin(t[1]), r + c.second * PointPostScript, 0.02);
    EXPECT_NEAR(t[2].points[0].x, c.fin * PointPostScript, 0.02);
  }
}

TEST(LireEps, VerticalSpacingIsTakenToo) {
  AVEC_GS();
  const auto t = Traits(PoliceCourier + "0 0 moveto (II) [50 60] yshow");
  ASSERT_EQ(t.size(), 2U);
  EXPECT_NEAR(XMin(t[0]), XMin(t[1]), 0.02);
  EXPECT_NEAR(BoiteDe({t[1]}).ymin - BoiteDe({t[0]}).ymin, 50 * PointPostScript, 0.02);
}

TEST(LireEps, CshowGivesCodesAndWidthsAndPaintsWhatItsProcedurePaints) {
  AVEC_GS();
  // The procedure draws a line at the height of the code, as long as the letter is wide.
  const std::string proc = "{ /wy exch def /wx exch def /c exch def 0 c moveto wx 0 rlineto stroke } (IJ) cshow";
  const auto t = Traits(PoliceCourier + proc);
  ASSERT_EQ(t.size(), 2U);
  AttendPoints(t[0], {{0, 73}, {60, 73}});
  AttendPoints(t[1], {{0, 74}, {60, 74}});
  const auto t3 =
      Traits(Police3 + "{ /wy exch def /wx exch def /c exch def 0 c moveto wx 0 rlineto stroke } (ab) cshow");
  ASSERT_EQ(t3.size(), 2U);
  AttendPoints(t3[0], {{0, 97}, {6, 97}});
}

TEST(LireEps, LettersThatAreProceduresArePaintedEachTime) {
  AVEC_GS();
  const auto t = Traits(Police3 + "10 20 moveto (aab) show currentpoint lineto 0 1 rlineto stroke");
  ASSERT_EQ(t.size(), 4U);
  AttendPoints(t[0], {{10, 20}, {15, 20}, {15, 25}, {10, 25}});
  AttendPoints(t[1], {{16, 20}, {21, 20}, {21, 25}, {16, 25}});
  AttendPoints(t[2], {{22, 20}, {23, 21}});
  AttendPoints(t[3], {{28, 20}, {28, 21}});
}

TEST(LireEps, MeasuringTextPaintsNothing) {
  AVEC_GS();
  EXPECT_TRUE(Traits(Police3 + "(abab) stringwidth pop pop 0 0 moveto (ab) true charpath newpath").empty());
  EXPECT_TRUE(Traits(PoliceCourier + "(IIII) stringwidth pop pop").empty());
  const auto t = Traits(Police3 + "0 0 moveto (ab) stringwidth pop 0 lineto stroke");
  ASSERT_EQ(t.size(), 1U);
  AttendPoints(t[0], {{0, 0}, {12, 0}});
}

TEST(LireEps, OutlinesOfTextCanBePaths) {
  AVEC_GS();
  const auto t = Traits(PoliceCourier + "0 0 moveto (O) false charpath stroke");
  EXPECT_EQ(t.size(), 2U);
}

TEST(LireEps, TextInACompositeFontIsDrawnAtLeastUnspaced) {
  AVEC_GS();
  const std::string police =
      "/C /Identity-H [ << /FontType 1 >> pop /Courier findfont ] pop pop pop\n"
      "<< /FontType 0 /FMapType 2 /FontMatrix [1 0 0 1 0 0] /Encoding [0] /FDepVector [/Courier findfont] >> "
      "/Comp exch definefont 100 scalefont setfont\n";
  const auto t = Traits(police + "0 0 moveto (\\000I\\000I) show");
  ASSERT_EQ(t.size(), 2U);
  const Lecture l = Lit("%!PS\n" + police + "0 0 moveto 7 0 (\\000I\\000I) ashow");
  EXPECT_EQ(l.traits.size(), 2U);
  EXPECT_EQ(Ignores(l, "ashow"), 1);
}

}  // namespace
}  // namespace pathwerk::lecture::eps
