// Sizes, units and viewports.
#include "closed/pathwerk/lecture/svg/Cadrage.h"
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

namespace pathwerk::lecture::svg {
namespace {

using namespace mesures;

std::string Carre(const std::string& tete) {
  return "<svg " + tete + R"(><rect x="10" y="20" width="30" height="40"/></svg>)";
}

TEST(Cadrage, AUnitOfTheSizeIsTheUnitOfTheDrawing) {
  AttendEtendue(Lit(Carre(R"(width="200mm" height="100mm" viewBox="0 0 200 100")")).traits, 10, 40, 40, 80, 1e-9);
  AttendEtendue(Lit(Carre(R"(width="20cm" height="10cm" viewBox="0 0 200 100")")).traits, 10, 40, 40, 80, 1e-9);
  AttendEtendue(Lit(Carre(R"(width="1in" height="1in" viewBox="0 0 254 254")")).traits, 1, 19.4, 4, 23.4, 1e-9);
  AttendEtendue(Lit(Carre(R"(width="72pt" height="72pt" viewBox="0 0 254 254")")).traits, 1, 19.4, 4, 23.4, 1e-9);
}

TEST(Cadrage, PixelsAre96ToTheInch) {
  const Lecture l = Lit(Carre(R"(width="96px" height="96px")"));
  AttendEtendue(l.traits, 25.4 / 9.6, 25.4 - 60 * 25.4 / 96, 40 * 25.4 / 96, 25.4 - 20 * 25.4 / 96, 1e-9);
  EXPECT_TRUE(l.rapport.Suppose.empty());
}

TEST(Cadrage, ASizeWithoutUnitIsToldAndTakenAsPixels) {
  for (const char* tete : {R"(width="96" height="48")", R"(width="100%" height="100%" viewBox="0 0 96 48")",
                           R"(viewBox="0 0 96 48")"}) {
    const Lecture l = Lit(Carre(tete));
    ASSERT_EQ(l.rapport.Suppose.size(), 1U) << tete;
    EXPECT_EQ(l.rapport.Suppose[0], (AvisLecture{Avis::SansUniteSvg, "96 x 48"})) << tete;
    EXPECT_NEAR(EtendueDe(l.traits).x1, 40 * 25.4 / 96, 1e-9) << tete;
  }
}

TEST(Cadrage, TheCallerMayNameTheUnitThatIsMissing) {
  OptionsLecture options;
  options.UniteSupposee = 1;
  const Lecture l = Lit(Carre(R"(width="200" height="100")"), options);
  AttendEtendue(l.traits, 10, 40, 40, 80, 1e-9);
  EXPECT_TRUE(l.rapport.Suppose.empty());
  // One that the drawing says is not touched.
  AttendEtendue(Lit(Carre(R"(width="20cm" height="10cm" viewBox="0 0 200 100")"), options).traits, 10, 40, 40, 80);
}

TEST(Cadrage, OneSideGivesTheOther) {
  AttendEtendue(Lit(Carre(R"(width="200mm" viewBox="0 0 200 100")")).traits, 10, 40, 40, 80, 1e-9);
  AttendEtendue(Lit(Carre(R"(height="100mm" viewBox="0 0 200 100")")).traits, 10, 40, 40, 80, 1e-9);
}

TEST(Cadrage, ADrawingWithoutAnySizeStandsOnItsLowestPlace) {
  EXPECT_NEAR(EtendueDe(Lit(Carre("")).traits).y0, 0, 1e-9);
}

// A view of 100 x 50 in a viewport of 100 x 100: by 1 in the middle, above, below, by 2 where it is cut, and
// stretched.
TEST(CadreVue, KeepsTheProportionsAsItIsTold) {
  const Rectangle vue{0, 0, 100, 50};
  const auto place = [&](const char* proportions) { return CadreVue(vue, 100, 100, proportions).Place({100, 50}); };
  EXPECT_EQ(place(""), (Vec2{100, 75}));
  EXPECT_EQ(place("xMidYMid meet"), (Vec2{100, 75}));
  EXPECT_EQ(place("xMinYMin"), (Vec2{100, 50}));
  EXPECT_EQ(place("xMaxYMax"), (Vec2{100, 100}));
  EXPECT_EQ(place("xMinYMin slice"), (Vec2{200, 100}));
  EXPECT_EQ(place("xMidYMid slice"), (Vec2{150, 100}));
  EXPECT_EQ(place("none"), (Vec2{100, 100}));
}

TEST(CadreVue, TheCornerOfTheViewIsTheCornerOfTheViewport) {
  EXPECT_EQ(CadreVue({-10, 20, 100, 100}, 50, 50, "").Place({-10, 20}), (Vec2{0, 0}));
}

TEST(LitViewBox, WithoutAreaItIsNone) {
  for (const char* t : {"", "0 0 0 10", "0 0 10", "0 0 -1 1", "a", "0 0 1e999 1", "0 0 1 2 3"}) {
    EXPECT_FALSE(LitViewBox(t)) << t;
  }
}

// A nested drawing of 20 x 20 at (10, 10) shows a view of 40 x 40: half as large.
TEST(Cadrage, ANestedDrawingHasItsOwnFrame) {
  AttendEtendue(Traits(R"(<svg x="10" y="10" width="20" height="20" viewBox="0 0 40 40">
                          <rect width="40" height="20"/></svg>)"),
                10, 80, 30, 90, 1e-9);
}

TEST(Cadrage, PercentAreOfTheNearestViewport) {
  AttendEtendue(Traits(R"(<rect x="10%" width="50%" y="0" height="20%"/>)"), 10, 80, 60, 100, 1e-9);
  AttendEtendue(
      Traits(R"(<svg width="50" height="50" viewBox="0 0 10 10"><rect width="50%" height="100%"/></svg>)"), 0, 50,
      25, 100, 1e-9);
}

}  // namespace
}  // namespace pathwerk::lecture::svg
