// Rows of the table one by one: carries, speeds, bounds.
#include <limits>

#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "machine/TableCourante.h"
#include "run/NoyauPlan.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

PointTrace P(float x, float y) { return {x, y, CodePD, Code2("01")}; }

TEST(InitDecoupe, RowOneIsThePositionOfTheMachineAndNoMove) {
  ReglagesPlan();
  CdeZENIK->PosX = 12.5;
  CdeZENIK->PosY = -3;
  CdeZENIK->PosZ = 7.25;
  InitDecoupe();
  EXPECT_EQ(NbDeplacements, 1);
  EXPECT_EQ(Texte(Ligne(1)), "12.5 -3 7.25 @0");
  EXPECT_EQ(Ligne(1).dX, 0);
  EXPECT_EQ(Ligne(1).dY, 0);
  EXPECT_EQ(Ligne(1).dZ, 0);
}

TEST(InitDecoupe, ForgetsTheTableAndTheCarriesBefore) {
  ReglagesPlan();
  InitDecoupe();
  AjoutDeplacement(P(0, 0), P(1.004F, 2.004F), Vrai, 0);
  AjoutDeplacementZ(3.004F, Faux, 0);
  InitDecoupe();
  EXPECT_EQ(NbDeplacements, 1);
  EXPECT_EQ(TableDecoupe.size(), 2U);
  EXPECT_EQ(CumulX, 0);
  EXPECT_EQ(CumulY, 0);
  EXPECT_EQ(CumulZ, 0);
  EXPECT_EQ(PasCumulX, 0);
  EXPECT_EQ(PasCumulY, 0);
  EXPECT_EQ(PasCumulZ, 0);
}

TEST(AjoutDeplacement, FiveRowsOfFourTenthsOfAStepGiveTwoStepsInSum) {
  ReglagesPlan();
  CdeZENIK->FixeResolutions(1, 1, 1);
  InitDecoupe();
  std::vector<int> pas;
  for (int i = 0; i < 5; ++i) {
    AjoutDeplacement(P(0.4F * static_cast<float>(i), 0), P(0.4F * static_cast<float>(i + 1), 0), Vrai, 0);
    pas.push_back(Derniere().dX);
  }
  EXPECT_EQ(pas, (std::vector<int>{0, 1, 0, 1, 0}));
  EXPECT_EQ(PasCumulX, 2);
}

TEST(AjoutDeplacement, KeepsTheErrorUnderHalfAStepOverManyShortRows) {
  ReglagesPlan();
  CdeZENIK->FixeResolutions(0.0125, 0.0125, 0.0125);
  InitDecoupe();
  float x = 0;
  for (int i = 0; i < 10000; ++i) {
    const float suivant = x + 0.0078125F;  // 2^-7, so that the sum itself is exact
    AjoutDeplacement(P(x, 0), P(suivant, -suivant), Vrai, 0);
    x = suivant;
    ASSERT_LE(std::abs(static_cast<double>(x) - PasCumulX * 0.0125), 0.00625 + 1e-9) << i;
  }
  EXPECT_EQ(PasCumulX, 6250);  // 78.125 mm
}

// Rows of about `pas` mm from -77.7, far enough for 32 bits to round each sum; the worst distance of the steps from
// the path, in steps of `mmParPas`.
double PireEcart(int lignes, float pas, double mmParPas) {
  ParametresPlan p;
  p.PosX = p.PosY = static_cast<double>(-77.7F);
  p.MmParPasX = p.MmParPasY = mmParPas;
  EtatPlan plan;
  InitialisePlan(plan, p);
  float x = -77.7F;
  double pire = 0;
  for (int i = 0; i < lignes; ++i) {
    const float suivant = x + pas;
    PlanAjoute(plan, p, P(x, -x), P(suivant, -suivant), Vrai, 0);
    x = suivant;
    const double fait = static_cast<double>(x) - static_cast<double>(-77.7F);
    pire = std::max({pire, std::abs(fait / mmParPas - plan.PasCumulX), std::abs(fait / mmParPas + plan.PasCumulY)});
  }
  return pire;
}

TEST(AjoutDeplacement, StaysOnThePathOverAMillionRowsFarFromTheStart) {
  // half a step, and the eighth of one that the sum may be behind; a plain 32-bit sum is off by dozens of steps
  EXPECT_LE(PireEcart(1000000, 0.0003F, 0.0025), 0.625 + 0.01);
  EXPECT_LE(PireEcart(1000000, 0.00017F, 0.01), 0.625 + 0.01);
}

TEST(AjoutDeplacement, AShortJobIsThePlain32BitSum) {
  ReglagesPlan();
  CdeZENIK->FixeResolutions(0.0025, 0.0025, 0.0025);
  CdeZENIK->FixePosition(-77.7, 31.3, 0);
  InitDecoupe();
  float cumul = 0;
  std::int32_t pasCumul = 0;
  for (int i = 0; i < 30; ++i) {
    const float x = 0.137F * static_cast<float>(i * i % 17);
    const float suivant = 0.137F * static_cast<float>((i + 1) * (i + 1) % 17);
    if (x == suivant) continue;
    AjoutDeplacement(P(x, 0), P(suivant, 0), Vrai, 0);
    cumul += suivant - x;
    const auto pas = static_cast<std::int32_t>(std::nearbyint(static_cast<double>(cumul) / 0.0025 - pasCumul));
    pasCumul += pas;
    ASSERT_EQ(Derniere().dX, pas) << i;
    ASSERT_EQ(CumulX, cumul) << i;
  }
}

TEST(AjoutDeplacementZ, TheSumOfManyLiftsStaysWithTheLifts) {
  ParametresPlan p;
  p.MmParPasZ = 0.0025;
  EtatPlan plan;
  InitialisePlan(plan, p);
  double z = 0;
  for (int i = 0; i < 300000; ++i) {
    PlanAjouteZ(plan, p, 0.0003F, Faux, 0);
    z += static_cast<double>(0.0003F);
  }
  EXPECT_NEAR(plan.PasCumulZ * 0.0025, z, 0.625 * 0.0025 + 1e-5);
}

TEST(AjoutDeplacement, RoundsHalfAStepToTheEvenNumber) {
  ReglagesPlan();
  CdeZENIK->FixeResolutions(1, 1, 1);
  for (const auto& [mm, pas] :
       std::vector<std::pair<float, int>>{{0.5F, 0}, {1.5F, 2}, {2.5F, 2}, {-0.5F, 0}, {-1.5F, -2}, {3.5F, 4}}) {
    InitDecoupe();
    AjoutDeplacement(P(0, 0), P(mm, 2 * mm), Vrai, 0);
    EXPECT_EQ(Derniere().dX, pas) << mm;
    EXPECT_EQ(Derniere().dY, static_cast<int>(2 * mm)) << mm;
  }
}

TEST(AjoutDeplacement, MakesNoRowForAMoveOfNoLength) {
  ReglagesPlan();
  InitDecoupe();
  AjoutDeplacement(P(4, 5), P(4, 5), Vrai, 7);
  EXPECT_EQ(NbDeplacements, 1);
  EXPECT_EQ(TableDecoupe.size(), 2U);
}

TEST(AjoutDeplacement, AMoveOfNoLengthKeepsTheFractionThatWasCarried) {
  ReglagesPlan();
  CdeZENIK->FixeResolutions(1, 1, 1);
  InitDecoupe();
  AjoutDeplacement(P(0, 0), P(0.4F, 0), Vrai, 0);
  AjoutDeplacement(P(0.4F, 0), P(0.4F, 0), Faux, 0);
  AjoutDeplacement(P(0.4F, 0), P(0.8F, 0), Vrai, 0);
  EXPECT_EQ(Derniere().dX, 1);
  EXPECT_EQ(NbDeplacements, 3);
}

TEST(AjoutDeplacement, CountsFromItsOwnStartPointNotFromTheLastRow) {
  ReglagesPlan();
  CdeZENIK->FixeResolutions(1, 1, 1);
  InitDecoupe();
  AjoutDeplacement(P(100, 0), P(103, 4), Vrai, 0);  // the last row stands at (0, 0)
  EXPECT_EQ(Derniere().dX, 3);
  EXPECT_EQ(Derniere().dY, 4);
  EXPECT_EQ(CumulX, 3);
}

TEST(AjoutDeplacement, CopiesTheHeightOfTheRowBefore) {
  ReglagesPlan();
  InitDecoupe();
  AjoutDeplacementZ(-1.5F, Faux, 0);
  AjoutDeplacement(P(0, 0), P(1, 0), Vrai, 0);
  EXPECT_EQ(Derniere().Z, -1.5F);
  EXPECT_EQ(Derniere().dZ, 0);
}

TEST(AjoutDeplacement, ADiagonalRapidRunsAsFastAsTheSlowerAxisLetsIt) {
  ReglagesPlan();  // X 50, Y 20
  InitDecoupe();
  AjoutDeplacement(P(0, 0), P(10, 10), Faux, 0);
  EXPECT_NEAR(Derniere().Vitesse, 28.284, 0.001);  // 1000 / (707.1 / 20)
}

TEST(AjoutDeplacement, ARapidAlongAnAxisRunsAtTheSpeedOfThatAxis) {
  ReglagesPlan();
  InitDecoupe();
  AjoutDeplacement(P(0, 0), P(-10, 0), Faux, 0);
  EXPECT_FLOAT_EQ(Derniere().Vitesse, 50);
  AjoutDeplacement(P(-10, 0), P(-10, -3), Faux, 0);
  EXPECT_FLOAT_EQ(Derniere().Vitesse, 20);
}

TEST(AjoutDeplacement, ARapidIsNeverFasterThanAThousand) {
  ReglagesPlan();
  VitesseMaxX = 5000;
  InitDecoupe();
  AjoutDeplacement(P(0, 0), P(10, 0), Faux, 0);
  EXPECT_EQ(Derniere().Vitesse, 1000);
}

TEST(AjoutDeplacement, ACutKeepsTheSpeedAsTypedWhateverTheAxesCan) {
  ReglagesPlan();
  Vitesse_Mat_H = 80;
  InitDecoupe();
  AjoutDeplacement(P(0, 0), P(10, 10), Vrai, 0);
  EXPECT_EQ(Derniere().Vitesse, 80);
}

TEST(AjoutDeplacement, AGivenSpeedIsLimitedToTheAxesInTheMaterialToo) {
  ReglagesPlan();
  InitDecoupe();
  AjoutDeplacement(P(0, 0), P(3, 4), Vrai, 100);  // 60 and 80 on the axes; Y is 4 times too fast
  EXPECT_FLOAT_EQ(Derniere().Vitesse, 25);
  AjoutDeplacement(P(3, 4), P(13, 4), Faux, 49);
  EXPECT_EQ(Derniere().Vitesse, 49);
  AjoutDeplacement(P(13, 4), P(3, 4), Vrai, 0.25F);
  EXPECT_EQ(Derniere().Vitesse, 0.25F);
}

TEST(AjoutDeplacement, AnAxisWithoutSpeedStopsTheRowsThatMoveItAlone) {
  ReglagesPlan();
  VitesseMaxY = 0;
  InitDecoupe();
  AjoutDeplacement(P(0, 0), P(10, 0), Faux, 0);
  EXPECT_FLOAT_EQ(Derniere().Vitesse, 50);
  AjoutDeplacement(P(10, 0), P(10, 1), Faux, 0);
  EXPECT_EQ(Derniere().Vitesse, 0);
}

TEST(PlanAjoute, WithoutAResolutionThereAreNoSteps) {
  ParametresPlan p;
  p.MmParPasX = 0;
  p.MmParPasY = 0.01;
  p.MmParPasZ = 0;
  EtatPlan plan;
  InitialisePlan(plan, p);
  PlanAjoute(plan, p, P(0, 0), P(10, 10), Faux, 0);
  EXPECT_EQ(plan.TableDecoupe[2].dX, 0);
  EXPECT_EQ(plan.TableDecoupe[2].dY, 1000);
  EXPECT_EQ(plan.TableDecoupe[2].X, 10);
  PlanAjouteZ(plan, p, 3, Faux, 0);
  EXPECT_EQ(plan.TableDecoupe[3].dZ, 0);
  EXPECT_EQ(plan.TableDecoupe[3].Z, 3);
}

TEST(PlanAjoute, SpeedsBeyondTheWidthOfARowAreBounded) {
  ParametresPlan p;
  p.Vitesse_Mat_H = 1e300;
  p.Vitesse_Mat_V = -1e300;
  EtatPlan plan;
  InitialisePlan(plan, p);
  PlanAjoute(plan, p, P(0, 0), P(10, 10), Vrai, 0);
  EXPECT_EQ(plan.TableDecoupe[2].Vitesse, std::numeric_limits<float>::max());
  PlanAjouteZ(plan, p, 3, Vrai, 0);
  EXPECT_EQ(plan.TableDecoupe[3].Vitesse, -std::numeric_limits<float>::max());
}

TEST(AjoutDeplacement, StepsBeyondTheirWidthAreClipped) {
  ReglagesPlan();
  CdeZENIK->FixeResolutions(1e-6, 1e-6, 1e-6);
  InitDecoupe();
  AjoutDeplacement(P(0, 0), P(1e9F, -1e9F), Faux, 0);
  EXPECT_EQ(Derniere().dX, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(Derniere().dY, std::numeric_limits<std::int32_t>::min());
  AjoutDeplacement(P(0, 0), P(1e9F, -1e9F), Faux, 0);
  EXPECT_EQ(PasCumulX, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(PasCumulY, std::numeric_limits<std::int32_t>::min());
}

TEST(AjoutDeplacement, GrowsBehindTheLastRowOfACompactedTable) {
  ReglagesPlan();
  InitDecoupe();
  for (int i = 0; i < 4; ++i) AjoutDeplacementZ(1, Faux, 0);
  NbDeplacements = 2;  // rows were taken out, the array kept its length
  AjoutDeplacementZ(0.5F, Faux, 0);
  EXPECT_EQ(NbDeplacements, 3);
  EXPECT_EQ(Derniere().Z, 1.5F);
  EXPECT_EQ(TableDecoupe.size(), 4U);
}

TEST(AjoutDeplacement, GoesOnWithATableThatHasBegunWhereverTheMachineIsNow) {
  ReglagesPlan();
  InitDecoupe();
  CdeZENIK->PosX = 30;
  AjoutDeplacement(P(0, 0), P(1, 1), Vrai, 0);
  EXPECT_EQ(Texte(Ligne(1)), "0 0 0 @0");
}

TEST(AjoutDeplacement, BeginsATableThatNobodyHasBegun) {
  ReglagesPlan();
  CdeZENIK->PosZ = 2;
  AjoutDeplacement(P(0, 0), P(1, 1), Vrai, 0);
  EXPECT_EQ(NbDeplacements, 2);
  EXPECT_EQ(Texte(Ligne(1)), "0 0 2 @0");
  EXPECT_EQ(Texte(Ligne(2)), "1 1 2 @3");
}

TEST(AjoutDeplacementRelatif, StartsFromTheLastRow) {
  ReglagesPlan();
  CdeZENIK->PosX = 10;
  InitDecoupe();
  AjoutDeplacementRelatif(2, -1, Vrai, 0);
  AjoutDeplacementRelatif(0.5F, 0, Faux, 40);
  EXPECT_EQ(Texte(Ligne(2)), "12 -1 0 @3");
  EXPECT_EQ(Texte(Ligne(3)), "12.5 -1 0 @40");
  EXPECT_EQ(Ligne(2).dX, 200);
  EXPECT_EQ(Ligne(2).dY, -100);
}

TEST(AjoutDeplacementRelatif, MakesNoRowForNoDistance) {
  ReglagesPlan();
  InitDecoupe();
  AjoutDeplacementRelatif(0, 0, Vrai, 0);
  EXPECT_EQ(NbDeplacements, 1);
}

TEST(AjoutDeplacementZ, MakesARowEvenForNoHeight) {
  ReglagesPlan();
  CdeZENIK->PosX = 4;
  CdeZENIK->PosY = 6;
  InitDecoupe();
  AjoutDeplacementZ(0, Vrai, 0);
  EXPECT_EQ(NbDeplacements, 2);
  EXPECT_EQ(Texte(Ligne(2)), "4 6 0 @1");
  EXPECT_EQ(Ligne(2).dX, 0);
  EXPECT_EQ(Ligne(2).dY, 0);
  EXPECT_EQ(Ligne(2).dZ, 0);
}

TEST(AjoutDeplacementZ, ChoosesTheSpeedByTheMaterialUnlessOneIsGiven) {
  ReglagesPlan();
  InitDecoupe();
  AjoutDeplacementZ(1, Faux, 0);
  AjoutDeplacementZ(1, Vrai, 0);
  AjoutDeplacementZ(1, Faux, 99);  // a given speed isn't limited
  AjoutDeplacementZ(1, Vrai, 0.5F);
  EXPECT_EQ(ListePlan(), (std::vector<std::string>{"0 0 1 @8", "0 0 2 @1", "0 0 3 @99", "0 0 4 @0.5"}));
}

TEST(AjoutDeplacementZ, CarriesFractionsOfAStep) {
  ReglagesPlan();
  CdeZENIK->FixeResolutions(1, 1, 1);
  InitDecoupe();
  std::vector<int> pas;
  for (int i = 0; i < 5; ++i) {
    AjoutDeplacementZ(-0.4F, Vrai, 0);
    pas.push_back(Derniere().dZ);
  }
  EXPECT_EQ(pas, (std::vector<int>{0, -1, 0, -1, 0}));
}

}  // namespace
}  // namespace essai
