// What must hold for every job whatever the drawing: many random documents, checked row by row.
#include <algorithm>
#include <random>

#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

// A drawing of closed and open paths, holes and notches with random depths.
void DocumentAleatoire(std::mt19937& alea) {
  Doc = Document{};
  ReglagesPlan();
  std::uniform_real_distribution<float> place(-200, 200);
  std::uniform_int_distribution<int> nombre(1, 12);
  std::uniform_real_distribution<double> profondeur(-9, 0);
  ProfPasse = std::min(profondeur(alea) / 3, -0.05);
  MiniEncoche = -profondeur(alea) / 9;
  CdeZENIK->FixeResolutions(0.0123, 0.0071, 0.0049);
  CdeZENIK->FixePosition(static_cast<double>(place(alea)), static_cast<double>(place(alea)), 7);
  for (int s = 0; s < 6; ++s) {
    std::vector<PointEssai> points;
    const int n = nombre(alea);
    points.reserve(static_cast<std::size_t>(n) + 1);
    for (int i = 0; i < n; ++i) points.push_back({place(alea), place(alea), i % 4 == 2 && i + 1 < n ? "PE" : "PD"});
    if (s % 2 == 0) points.push_back({points[0].x, points[0].y});
    AjouteTrajet(std::string(" ") + static_cast<char>('A' + s), profondeur(alea), points);
  }
}

TEST(Tableau_Decoupe, NeverCrossesTheWorkFasterThanTheMaterialAllows) {
  std::mt19937 alea(3);
  for (int essai = 0; essai < 60; ++essai) {
    DocumentAleatoire(alea);
    ASSERT_TRUE(Tableau_Decoupe());
    const double fond = std::min_element(Sequences.begin(), Sequences.end(), [](const auto& a, const auto& b) {
                          return a.Profondeur < b.Profondeur;
                        })->Profondeur;
    for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
      const Deplacement& d = Ligne(i);
      const Deplacement& avant = Ligne(i - 1);
      ASSERT_GE(d.Z, static_cast<float>(fond) - 1e-4F) << "row " << i;
      if (d.X != avant.X || d.Y != avant.Y) {
        if (d.Z < 4.999F) {
          ASSERT_EQ(d.Vitesse, 3) << "row " << i << " below clearance";
        }
      } else if (d.Z < avant.Z && d.Z < -1e-4F) {
        ASSERT_EQ(d.Vitesse, 1) << "row " << i << " goes down into the material";
      }
      ASSERT_LE(d.Vitesse, 54) << "row " << i;  // no faster than both axes at their top
    }
    EXPECT_EQ(Derniere().X, 0);
    EXPECT_EQ(Derniere().Y, 0);
    EXPECT_NEAR(Derniere().Z, 0, 1e-4);
  }
}

TEST(Tableau_Decoupe, StepsFollowTheMillimetresOnEveryRow) {
  std::mt19937 alea(5);
  for (int essai = 0; essai < 30; ++essai) {
    DocumentAleatoire(alea);
    ASSERT_TRUE(Tableau_Decoupe());
    std::int64_t x = 0;
    std::int64_t y = 0;
    std::int64_t z = 0;
    for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
      const Deplacement& d = Ligne(i);
      x += d.dX;
      y += d.dY;
      z += d.dZ;
      // half a step, the eighth that the sum may stray, and the last digit that 32 bits have at these lengths
      const auto ecart = [&](std::int64_t pas, double mmParPas, float mm, float depart) {
        return std::abs(static_cast<double>(pas) * mmParPas - static_cast<double>(mm) +
                        static_cast<double>(depart));
      };
      ASSERT_LE(ecart(x, 0.0123, d.X, Ligne(1).X), 0.0123 * 0.625 + 4e-5) << "row " << i;
      ASSERT_LE(ecart(y, 0.0071, d.Y, Ligne(1).Y), 0.0071 * 0.625 + 4e-5) << "row " << i;
      ASSERT_LE(ecart(z, 0.0049, d.Z, Ligne(1).Z), 0.0049 * 0.625 + 4e-5) << "row " << i;
    }
  }
}

}  // namespace
}  // namespace essai
