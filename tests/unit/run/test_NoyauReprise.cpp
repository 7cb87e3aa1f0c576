// What a run makes of its table: without empty rows, the rest of it, the way back.
#include "run/NoyauReprise.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

Deplacement Pas(std::int32_t x, std::int32_t y, std::int32_t z) {
  Deplacement d;
  d.dX = x;
  d.dY = y;
  d.dZ = z;
  return d;
}

EtatPlan PlanDe(const std::vector<Deplacement>& lignes) {
  EtatPlan plan;
  plan.TableDecoupe.resize(1);
  plan.TableDecoupe.insert(plan.TableDecoupe.end(), lignes.begin(), lignes.end());
  plan.NbDeplacements = static_cast<std::int32_t>(lignes.size());
  return plan;
}

TEST(CompacteTable, TakesOutTheFirstRowAndAllThatMoveNothing) {
  EtatPlan plan = PlanDe({Pas(0, 0, 0), Pas(1, 0, 0), Pas(0, 0, 0), Pas(0, 0, -2), Pas(0, 3, 0)});
  CompacteTable(plan);
  ASSERT_EQ(plan.NbDeplacements, 3);
  EXPECT_EQ(plan.TableDecoupe[1].dX, 1);
  EXPECT_EQ(plan.TableDecoupe[2].dZ, -2);
  EXPECT_EQ(plan.TableDecoupe[3].dY, 3);
}

TEST(CompacteTable, LeavesAnUnbegunTableAlone) {
  EtatPlan plan;
  CompacteTable(plan);
  EXPECT_EQ(plan, EtatPlan{});
}

TEST(LignesDepuis, HoldsTheRowUnderWayAndThoseBehindIt) {
  const EtatPlan plan = PlanDe({Pas(1, 0, 0), Pas(2, 0, 0), Pas(3, 0, 0)});
  const auto reste = LignesDepuis(plan, 3);
  ASSERT_EQ(reste.size(), 2U);
  EXPECT_EQ(reste[1].dX, 3);
  EXPECT_EQ(LignesDepuis(plan, 4).size(), 1U);
}

TEST(TexteTempsRestant, HasHoursAndMinutesWhereThereAreAny) {
  EXPECT_EQ(TexteTempsRestant(0), "00");
  EXPECT_EQ(TexteTempsRestant(-3), "00");
  EXPECT_EQ(TexteTempsRestant(5.4), "05");
  EXPECT_EQ(TexteTempsRestant(59.6), "01:00");
  EXPECT_EQ(TexteTempsRestant(125), "02:05");
  EXPECT_EQ(TexteTempsRestant(3600 + 2 * 60 + 5), "1:02:05");
  EXPECT_EQ(TexteTempsRestant(36000), "10:00:00");
}

}  // namespace
}  // namespace essai
