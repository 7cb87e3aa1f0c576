// Numbers, lengths and transforms, held against the grammar of SVG 1.1 and arithmetic by hand.
#include <gtest/gtest.h>

#include <cmath>

#include "closed/pathwerk/lecture/svg/Valeurs.h"

namespace pathwerk::lecture::svg {
namespace {

using Nombres = std::vector<double>;

TEST(LitNombres, NeedsNothingBetweenTwoNumbersThatCanNotBeOne) {
  EXPECT_EQ(LitNombres("1-2", 9), (Nombres{1, -2}));
  EXPECT_EQ(LitNombres("1.5.5", 9), (Nombres{1.5, 0.5}));
  EXPECT_EQ(LitNombres("1e2-3", 9), (Nombres{100, -3}));
  EXPECT_EQ(LitNombres("+.5 -.25", 9), (Nombres{0.5, -0.25}));
}

TEST(LitNombres, PassesBlanksAndCommas) { EXPECT_EQ(LitNombres(" \t1 ,\n2,3 ", 9), (Nombres{1, 2, 3})); }

TEST(LitNombres, EndsAtWhatIsNoNumber) {
  EXPECT_EQ(LitNombres("1 nan 2", 9), Nombres{1});
  EXPECT_EQ(LitNombres("inf", 9), Nombres{});
  EXPECT_EQ(LitNombres("- 2", 9), Nombres{});
}

TEST(LitNombres, TooLargeIsInfiniteAndTooSmallIsZero) {
  const auto n = LitNombres("1e999 -1e999 1e-999", 9);
  ASSERT_EQ(n.size(), 3U);
  EXPECT_TRUE(std::isinf(n[0]) && n[0] > 0);
  EXPECT_TRUE(std::isinf(n[1]) && n[1] < 0);
  EXPECT_EQ(n[2], 0);
}

TEST(LecteurValeurs, AFlagIsOneCharacter) {
  LecteurValeurs l("0112");
  double a = 9, b = 9, c = 9;
  EXPECT_TRUE(l.Drapeau(a) && l.Drapeau(b) && l.Nombre(c));
  EXPECT_EQ(a, 0);
  EXPECT_EQ(b, 1);
  EXPECT_EQ(c, 12);
  EXPECT_FALSE(LecteurValeurs("2").Drapeau(a));
}

// 96 user units are an inch.
TEST(EnPixels, UnitsAreThoseOfTheStandard) {
  const auto px = [](const char* t) { return EnPixels(*LitLongueur(t), 10, 200); };
  EXPECT_DOUBLE_EQ(px("1in"), 96);
  EXPECT_DOUBLE_EQ(px("25.4mm"), 96);
  EXPECT_DOUBLE_EQ(px("2.54cm"), 96);
  EXPECT_DOUBLE_EQ(px("101.6Q"), 96);
  EXPECT_DOUBLE_EQ(px("72pt"), 96);
  EXPECT_DOUBLE_EQ(px("6pc"), 96);
  EXPECT_DOUBLE_EQ(px("7px"), 7);
  EXPECT_DOUBLE_EQ(px("7"), 7);
  EXPECT_DOUBLE_EQ(px("2em"), 20);
  EXPECT_DOUBLE_EQ(px("25%"), 50);
}

TEST(LitLongueur, TakesNoWordAndNoUnknownUnit) {
  for (const char* t : {"", "auto", "3 4", "3furlong", "px"}) EXPECT_FALSE(LitLongueur(t)) << t;
}

void AttendPlace(const char* transformation, Vec2 de, Vec2 vers) {
  const auto m = LitTransformation(transformation);
  ASSERT_TRUE(m) << transformation;
  const Vec2 p = m->Place(de);
  EXPECT_NEAR(p.x, vers.x, 1e-12) << transformation;
  EXPECT_NEAR(p.y, vers.y, 1e-12) << transformation;
}

TEST(LitTransformation, EachKindMovesAPointAsTheStandardSays) {
  AttendPlace("translate(3,4)", {1, 1}, {4, 5});
  AttendPlace("translate(3)", {1, 1}, {4, 1});
  AttendPlace("scale(2 3)", {1, 1}, {2, 3});
  AttendPlace("scale(2)", {1, 1}, {2, 2});
  AttendPlace("rotate(90)", {1, 0}, {0, 1});
  AttendPlace("rotate(-90)", {1, 0}, {0, -1});
  AttendPlace("rotate(180)", {1, 2}, {-1, -2});
  AttendPlace("rotate(450)", {1, 0}, {0, 1});
  AttendPlace("rotate(30)", {2, 0}, {std::sqrt(3.0), 1});
  AttendPlace("rotate(90 10 10)", {11, 10}, {10, 11});
  AttendPlace("skewX(45)", {1, 2}, {3, 2});
  AttendPlace("skewY(45)", {1, 2}, {1, 3});
  AttendPlace("matrix(1 2 3 4 5 6)", {1, 1}, {9, 12});
}

TEST(LitTransformation, TheLastOfAListActsFirst) {
  AttendPlace("translate(10,0) scale(2)", {1, 1}, {12, 2});
  AttendPlace("scale(2),translate(10,0)", {1, 1}, {22, 2});
}

TEST(LitTransformation, AListWithAFaultDoesNotCount) {
  for (const char* t : {"turn(3)", "scale()", "matrix(1 2 3)", "translate(1", "rotate(1 2)", "scale 2"}) {
    EXPECT_FALSE(LitTransformation(t)) << t;
  }
}

TEST(Matrice, GrowsByItsLargerSingularValue) {
  EXPECT_DOUBLE_EQ(Echelle(2, 5).Agrandissement(), 5);
  // A shear by 1 has the golden ratio.
  EXPECT_NEAR(Matrice({1, 0, 1, 1, 0, 0}).Agrandissement(), (1 + std::sqrt(5.0)) / 2, 1e-12);
}

}  // namespace
}  // namespace pathwerk::lecture::svg
