// Slanting lines in an outline.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "image/Hachures.h"

namespace {

using namespace ovelin;

constexpr TailleImage Image{1000, 1000};

double Longueur(const std::vector<PointEcran>& traits) {
  double somme = 0;
  for (std::size_t i = 0; i + 1 < traits.size(); i += 2) {
    somme += std::hypot(traits[i + 1].X - traits[i].X, traits[i + 1].Y - traits[i].Y);
  }
  return somme;
}

TEST(Hachures, LieOnTheirLinesAndInsideTheOutline) {
  const std::vector<PointEcran> carre{{100, 100}, {200, 100}, {200, 200}, {100, 200}};
  const auto traits = Hachures(carre, Image, 30);
  ASSERT_FALSE(traits.empty());
  for (const PointEcran& p : traits) {
    EXPECT_NEAR(std::remainder(p.X + p.Y, 30), 0, 1e-3);
    EXPECT_TRUE(p.X >= 100 && p.X <= 200 && p.Y >= 100 && p.Y <= 200) << p.X << " " << p.Y;
  }
  // An area is what its lines are long, times their distance of 30 / sqrt 2.
  EXPECT_NEAR(Longueur(traits) * 30 / std::sqrt(2.0), 10'000, 1000);
}

TEST(Hachures, LeaveAHoleFree) {
  // Out to the hole and back on the same way.
  const std::vector<PointEcran> anneau{{0, 0},     {300, 0},   {300, 300}, {0, 300},   {0, 0},
                                       {100, 100}, {100, 200}, {200, 200}, {200, 100}, {100, 100}};
  const auto traits = Hachures(anneau, Image, 20);
  for (std::size_t i = 0; i + 1 < traits.size(); i += 2) {
    const double x = (traits[i].X + traits[i + 1].X) / 2.0;
    const double y = (traits[i].Y + traits[i + 1].Y) / 2.0;
    EXPECT_FALSE(x > 101 && x < 199 && y > 101 && y < 199) << x << " " << y;
  }
  EXPECT_NEAR(Longueur(traits) * 20 / std::sqrt(2.0), 80'000, 4000);
}

TEST(Hachures, AreThoseOfThePictureHoweverLargeTheOutline) {
  const std::vector<PointEcran> grand{{-1e7F, -1e7F}, {1e7F, -1e7F}, {1e7F, 1e7F}, {-1e7F, 1e7F}};
  EXPECT_LE(Hachures(grand, Image, 100).size(), 2U * 21U);
}

TEST(Hachures, ThereAreNoneInALineOrInPlacesThatAreNoNumbers) {
  EXPECT_TRUE(Hachures({}, Image, 10).empty());
  const std::vector<PointEcran> rien{{NAN, 0}, {10, NAN}, {NAN, 20}};
  EXPECT_TRUE(Hachures(rien, Image, 10).empty());
}

}  // namespace
