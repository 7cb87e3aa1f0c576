#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "run/ArcsDuPlan.h"

namespace ovelin {
namespace {

// A way that turns more or less, over which height and speed change now and then, each by itself.
std::vector<Deplacement> Chemin(unsigned graine) {
  std::mt19937 hasard(graine);
  const auto part = [&hasard] { return static_cast<double>(hasard() % 1000) / 1000; };
  std::vector<Deplacement> rangs(400);
  double x = 100, y = 100, angle = 0, courbe = 0.1;
  float z = -1, vitesse = 10;
  for (Deplacement& d : rangs) {
    if (part() < 0.06) courbe = part() < 0.2 ? 0 : part() - 0.5;
    if (part() < 0.04) z = part() < 0.3 ? 5.0F : -1.0F - static_cast<float>(hasard() % 3);
    if (part() < 0.04) vitesse = static_cast<float>(5 + hasard() % 2);
    angle += courbe;
    x += 0.5 * std::cos(angle);
    y += 0.5 * std::sin(angle);
    d.X = static_cast<float>(x), d.Y = static_cast<float>(y), d.Z = z, d.Vitesse = vitesse;
  }
  return rangs;
}

}  // namespace

TEST(ArcsDuPlan, PiecesHaveTheArcsThatTheWholeHas) {
  std::size_t arcs = 0;
  for (unsigned graine = 1; graine <= 60; ++graine) {
    const auto rangs = Chemin(graine);
    for (const unsigned fils : {2U, 7U}) {
      ArcsDuPlan pieces(rangs, ToleranceArc{}, fils, 16);
      for (std::size_t i = 1; i < rangs.size(); ++i) {
        const auto attendu = ArcDepuis(rangs, i, ToleranceArc{});
        const auto arc = pieces.Depuis(i);
        ASSERT_EQ(arc.has_value(), attendu.has_value()) << graine << ' ' << i;
        if (!arc) continue;
        ASSERT_EQ(arc->dernier, attendu->dernier) << graine << ' ' << i;
        ASSERT_EQ(arc->horaire, attendu->horaire);
        ASSERT_EQ(arc->i, attendu->i);
        ASSERT_EQ(arc->j, attendu->j);
        i = arc->dernier;
        ++arcs;
      }
    }
  }
  EXPECT_GT(arcs, 1000U);
}

}  // namespace ovelin
