// What the painting operators give.
#include <numbers>

#include "tests/unit/closed/pathwerk/lecture/eps/Mesures.h"

namespace pathwerk::lecture::eps {
namespace {

using namespace mesures;

TEST(LireEps, PointsAreASeventySecondOfAnInch) {
  AVEC_GS();
  const auto t = Traits("0 0 moveto 72 0 lineto 72 144 lineto stroke");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ouvert);
  AttendPoints(t[0], {{0, 0}, {72, 0}, {72, 144}});
  EXPECT_NEAR(t[0].points[1].x, 25.4, 1e-9);
}

TEST(LireEps, ReportsItsFormatAndLetsEndsBeWelded) {
  AVEC_GS();
  const Lecture l = Lit("%!PS\n0 0 moveto 9 9 lineto stroke");
  EXPECT_EQ(l.rapport.Format, "EPS");
  EXPECT_TRUE(l.souder);
  EXPECT_TRUE(l.rapport.Ignores.empty());
}

TEST(LireEps, ADrawingThatEndsItselfInTheMiddleIsCutOff) {
  AVEC_GS();
  for (const std::string fin : {"quit", "stop"}) {
    const Lecture l = Lit("%!PS\n0 0 moveto 9 9 lineto stroke\n" + fin + "\n0 5 moveto 9 5 lineto stroke\n");
    EXPECT_EQ(l.traits.size(), 1U) << fin;
    EXPECT_TRUE(l.rapport.Tronque) << fin;
  }
}

TEST(LireEps, ADrawingThatEndsItselfBehindItsLastLineIsWhole) {
  AVEC_GS();
  for (const std::string fin : {"", "showpage\n%%EOF\n", "quit", "quit\n%%Trailer\n\n  %%EOF\r\n\004", "stop\n"}) {
    const Lecture l = Lit("%!PS\n0 0 moveto 9 9 lineto stroke\n" + fin);
    EXPECT_EQ(l.traits.size(), 1U) << fin;
    EXPECT_FALSE(l.rapport.Tronque) << fin;
  }
}

TEST(LireEps, ADrawingThatGoesRoundTheEndThatItIsGivenIsCutOff) {
  AVEC_GS();
  const Lecture l = Lit("%!PS\n0 0 moveto 9 9 lineto stroke\nsystemdict /quit get exec\n");
  EXPECT_EQ(l.traits.size(), 1U);
  EXPECT_TRUE(l.rapport.Tronque);
}

TEST(LireEps, ClosedAndFilledPathsAreContours) {
  AVEC_GS();
  const auto t = Traits(
      "0 0 moveto 10 0 lineto 10 10 lineto closepath stroke "
      "0 0 moveto 20 0 lineto 20 20 lineto fill "
      "0 0 moveto 30 0 lineto 30 30 lineto 0 0 lineto stroke");
  ASSERT_EQ(t.size(), 3U);
  for (const Trait& c : t) EXPECT_EQ(c.nature, Nature::Ferme);
  AttendPoints(t[0], {{0, 0}, {10, 0}, {10, 10}});
  AttendPoints(t[1], {{0, 0}, {20, 0}, {20, 20}});
  AttendPoints(t[2], {{0, 0}, {30, 0}, {30, 30}});
}

TEST(LireEps, SubpathsComeOneByOneAndATrailingMoveIsNothing) {
  AVEC_GS();
  const auto t = Traits("0 0 moveto 5 0 lineto 9 9 moveto 9 5 lineto 500 500 moveto stroke");
  ASSERT_EQ(t.size(), 2U);
  AttendPoints(t[1], {{9, 9}, {9, 5}});
}

TEST(LireEps, ALineMayGoOnFromAClosedSubpath) {
  AVEC_GS();
  const auto t = Traits("1 1 moveto 5 1 lineto 5 5 lineto closepath 1 9 lineto stroke");
  ASSERT_EQ(t.size(), 2U);
  AttendPoints(t[1], {{1, 1}, {1, 9}});
}

TEST(LireEps, TheMatrixOfTheDrawingApplies) {
  AVEC_GS();
  const auto t = Traits("10 20 translate 90 rotate 2 3 scale 0 0 moveto 5 0 lineto 5 1 lineto stroke");
  AttendPoints(t[0], {{10, 20}, {10, 30}, {7, 30}});
}

TEST(LireEps, PlacesMayBeNegativeAndFar) {
  AVEC_GS();
  const auto t = Traits("-3000 -100 moveto 20000 12.345 lineto stroke");
  AttendPoints(t[0], {{-3000, -100}, {20000, 12.345}});
}

TEST(LireEps, ACircleStaysWithinAHundredthOfAMillimetre) {
  AVEC_GS();
  // arc is made of Bezier curves that leave the circle by less than 0.03 per cent of the radius.
  const auto t = Traits("100 100 50 0 360 arc closepath stroke");
  ASSERT_EQ(t.size(), 1U);
  const double r = 50 * PointPostScript;
  const double c = 100 * PointPostScript;
  for (std::size_t i = 0; i < t[0].points.size(); ++i) {
    const Vec2 p = t[0].points[i];
    const Vec2 q = t[0].points[i + 1 < t[0].points.size() ? i + 1 : 0];
    EXPECT_NEAR(std::hypot(p.x - c, p.y - c), r, 0.0003 * r + 2e-4);
    EXPECT_NEAR(std::hypot((p.x + q.x) / 2 - c, (p.y + q.y) / 2 - c), r, 0.0003 * r + 0.0102);
  }
  EXPECT_NEAR(Aire(t[0]), std::numbers::pi * r * r, 1.0);
}

TEST(LireEps, RectanglesAreTakenInEveryForm) {
  AVEC_GS();
  const auto t = Traits(
      "1 2 30 40 rectfill [0 0 10 10 20 20 5 6] rectfill 1 2 30 40 rectstroke "
      "1 2 30 40 [2 0 0 1 0 0] rectstroke [1 1 2 2] rectstroke");
  ASSERT_EQ(t.size(), 6U);
  for (const Trait& r : t) EXPECT_EQ(r.nature, Nature::Ferme);
  AttendPoints(t[0], {{1, 2}, {31, 2}, {31, 42}, {1, 42}});
  AttendPoints(t[1], {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
  AttendPoints(t[2], {{20, 20}, {25, 20}, {25, 26}, {20, 26}});
  AttendPoints(t[3], {{1, 2}, {31, 2}, {31, 42}, {1, 42}});
  AttendPoints(t[4], {{1, 2}, {31, 2}, {31, 42}, {1, 42}});
  AttendPoints(t[5], {{1, 1}, {3, 1}, {3, 3}, {1, 3}});
}

TEST(LireEps, RectanglesLeaveTheCurrentPathAlone) {
  AVEC_GS();
  const auto t = Traits("0 0 moveto 7 0 lineto 50 50 9 9 rectfill 7 7 lineto stroke");
  ASSERT_EQ(t.size(), 2U);
  AttendPoints(t[1], {{0, 0}, {7, 0}, {7, 7}});
}

TEST(LireEps, UserPathsArePainted) {
  AVEC_GS();
  const auto t = Traits(
      "{0 0 20 20 setbbox 0 0 moveto 20 0 lineto 20 20 lineto closepath} ufill "
      "{0 0 20 20 setbbox 0 0 moveto 20 20 lineto} ustroke "
      "{0 0 20 20 setbbox 0 5 moveto 20 5 lineto} [1 0 0 1 0 0] ustroke");
  ASSERT_EQ(t.size(), 3U);
  AttendPoints(t[0], {{0, 0}, {20, 0}, {20, 20}});
  AttendPoints(t[1], {{0, 0}, {20, 20}});
  AttendPoints(t[2], {{0, 5}, {20, 5}});
}

TEST(LireEps, EoFillAndFillOfAnEmptyPathAndStrokePathWork) {
  AVEC_GS();
  EXPECT_EQ(Traits("newpath fill stroke eofill 0 0 moveto 9 0 lineto 9 9 lineto eofill").size(), 1U);
  const auto t = Traits("4 setlinewidth 0 0 moveto 100 0 lineto strokepath fill");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_NEAR(std::fabs(Aire(t[0])), 400 * PointPostScript * PointPostScript, 0.01);
}

TEST(LireEps, ARoundDotIsAHoleAndASquareOneIsNothing) {
  AVEC_GS();
  EXPECT_TRUE(Traits("10 20 moveto 0 0 rlineto stroke").empty());
  const auto t = Traits("1 setlinecap 10 20 moveto 0 0 rlineto stroke 5 5 moveto stroke");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Percage);
  AttendPoints(t[0], {{10, 20}});
}

TEST(LireEps, DefinitionsOfTheDrawingDoNotDisturb) {
  AVEC_GS();
  const auto t = Traits(
      "/bd {bind def} bind def /m {moveto} bd /l /lineto load def /s {stroke} bd /n /newpath load def\n"
      "/exch {pop} def /add {sub} def /w {clear} def /p {} def /writestring {clear} def\n"
      "5 dict begin /fill {stroke} def n 0 0 m 9 0 l s n 1 1 m 2 2 l s end");
  ASSERT_EQ(t.size(), 2U);
  AttendPoints(t[0], {{0, 0}, {9, 0}});
}

TEST(LireEps, SaveAndRestoreAndShowpageAreNeutral) {
  AVEC_GS();
  const Lecture l =
      Lit("%!PS\n/s save def 2 2 scale 0 0 moveto 9 0 lineto stroke 0 0 1 1 rectclip s restore showpage "
          "<< /PageSize [10 10] >> setpagedevice a4 letter initgraphics initmatrix "
          "0 0 moveto 9 0 lineto stroke copypage erasepage");
  ASSERT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
  ASSERT_EQ(l.traits.size(), 2U);
  AttendPoints(l.traits[0], {{0, 0}, {18, 0}});
  AttendPoints(l.traits[1], {{0, 0}, {9, 0}});
  EXPECT_EQ(Ignores(l, "clip"), 1);
}

TEST(LireEps, TheDefaultMatrixIsOursWhereverADrawingAsksForIt) {
  AVEC_GS();
  const auto t = Traits(
      "7 7 scale matrix defaultmatrix setmatrix 1 1 moveto 9 1 lineto stroke grestoreall "
      "2 2 moveto 9 2 lineto stroke");
  ASSERT_EQ(t.size(), 2U);
  AttendPoints(t[0], {{1, 1}, {9, 1}});
  AttendPoints(t[1], {{2, 2}, {9, 2}});
}

TEST(LireEps, ClipsAreLeftOutAndCounted) {
  AVEC_GS();
  const Lecture l = Lit(
      "%!PS\n0 0 5 5 rectclip 0 0 moveto 3 0 lineto 3 3 lineto closepath clip newpath [0 0 1 1] rectclip eoclip "
      "0 0 moveto 90 0 lineto stroke");
  ASSERT_EQ(l.traits.size(), 1U);
  AttendPoints(l.traits[0], {{0, 0}, {90, 0}});
  EXPECT_EQ(Ignores(l, "clip"), 4);
}

TEST(LireEps, APathThatWasClippedToCanStillBePainted) {
  AVEC_GS();
  EXPECT_EQ(Traits("0 0 moveto 9 0 lineto 9 9 lineto closepath clip stroke").size(), 1U);
}

TEST(LireEps, TheOutlineOfThePageIsNoDrawing) {
  AVEC_GS();
  const Lecture l =
      Lit("%!PS\nclippath fill 2 2 scale clippath stroke clippath pathbbox 4 {pop} repeat newpath "
          "0 0 moveto 9 9 lineto stroke");
  EXPECT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(Ignores(l, "clippath"), 2);
}

TEST(LireEps, ImagesAndShadingsAreLeftOutAndTheirDataRead) {
  AVEC_GS();
  const Lecture l =
      Lit("%!PS\n/s 2 string def 2 2 8 [2 0 0 2 0 0] {currentfile s readhexstring pop} image\n00112233\n"
          "4 1 true [4 0 0 1 0 0] {(\\360)} imagemask\n"
          "1 1 8 [1 0 0 1 0 0] {(abc)} false 3 colorimage\n"
          "<< /ImageType 1 /Width 1 /Height 1 /BitsPerComponent 8 /Decode [0 1] /ImageMatrix [1 0 0 1 0 0]\n"
          "/DataSource currentfile /ASCIIHexDecode filter >> image\n7f>\n"
          "<< /ShadingType 2 /ColorSpace /DeviceGray /Coords [0 0 1 0] /Function << /FunctionType 2 /Domain [0 1] "
          "/N 1 >> "
          ">> shfill\n"
          "0 0 moveto 9 9 lineto stroke");
  ASSERT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Detail;
  EXPECT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(Ignores(l, "image"), 4);
  EXPECT_EQ(Ignores(l, "shading"), 1);
}

TEST(LireEps, FormsPaintAndPatternsFillTheOutlineOnce) {
  AVEC_GS();
  const auto t = Traits(
      "/f << /FormType 1 /BBox [0 0 9 9] /Matrix [1 0 0 1 0 0] /PaintProc {pop 0 0 moveto 9 0 lineto stroke} >> "
      "def "
      "gsave 10 10 translate f execform grestore 20 20 translate f execform "
      "<< /PatternType 1 /PaintType 1 /TilingType 1 /BBox [0 0 5 5] /XStep 5 /YStep 5 "
      "/PaintProc {pop 0 0 moveto 5 5 lineto stroke} >> matrix makepattern setpattern "
      "0 0 moveto 50 0 lineto 50 50 lineto closepath fill");
  ASSERT_EQ(t.size(), 3U);
  AttendPoints(t[0], {{10, 10}, {19, 10}});
  AttendPoints(t[1], {{20, 20}, {29, 20}});
  EXPECT_EQ(t[2].nature, Nature::Ferme);
}

TEST(LireEps, WhatTheDrawingPrintsIsNoPath) {
  AVEC_GS();
  const auto t = Traits(
      "(\\001 F\\nm 0 0\\nl 99 99\\n\\001 E\\n) print (m 0 0) = (\\nm 1 1\\nl 5 5\\nh\\n) print flush\n"
      "0 0 moveto 9 0 lineto (l 77 77\\n) print stroke (no line end) print 3 3 moveto 5 5 lineto stroke");
  ASSERT_EQ(t.size(), 2U);
  AttendPoints(t[0], {{0, 0}, {9, 0}});
  AttendPoints(t[1], {{3, 3}, {5, 5}});
}

TEST(LireEps, ADrawingMayQuitOrStopByItself) {
  AVEC_GS();
  EXPECT_EQ(Traits("0 0 moveto 9 0 lineto stroke quit this is never read").size(), 1U);
  EXPECT_EQ(Traits("0 0 moveto 9 0 lineto stroke stop this is never read").size(), 1U);
  EXPECT_EQ(Traits("0 0 moveto 9 0 lineto stroke {nosuchname} stopped clear 1 1 moveto 2 2 lineto stroke").size(),
            2U);
}

}  // namespace
}  // namespace pathwerk::lecture::eps
