// Whole plans of tool paths made by hand: passes, lifts, notches, pecking.
#include <algorithm>
#include <limits>

#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "run/NoyauPlan.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

// Depths of the passes: plunges at the vertical material speed.
std::vector<float> Passes() {
  EXPECT_TRUE(Tableau_Decoupe());
  return Plongees(static_cast<float>(Vitesse_Mat_V));
}

TEST(Tableau_Decoupe, LeavesTheTableAloneWithoutATrace) {
  ReglagesPlan();
  InitDecoupe();
  AjoutDeplacementZ(3, Faux, 0);
  const auto avant = TableDecoupe.size();
  EXPECT_FALSE(Tableau_Decoupe());
  EXPECT_EQ(NbDeplacements, 2);
  EXPECT_EQ(TableDecoupe.size(), avant);
  EXPECT_EQ(CumulZ, 3);
}

TEST(Tableau_Decoupe, AClosedPathComesDownOnceAndGoesStraightDownBetweenPasses) {
  ReglagesPlan();
  AjouteTrajet(" A", -3, {{1, 2}, {1, 12}, {11, 12}, {1, 2}});
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",       // rise to clearance
                            "1 2 5 @22.361",  // rapid; Y: 1000 x 2/2.236 is 44.7 times too fast
                            "1 2 0 @8",       // down to the surface
                            "1 2 -2 @1",      // first pass
                            "1 12 -2 @3",     //
                            "11 12 -2 @3",    //
                            "1 2 -2 @3",      //
                            "1 2 -3 @1",      // second pass
                            "1 12 -3 @3",     //
                            "11 12 -3 @3",    //
                            "1 2 -3 @3",      //
                            "1 2 0 @1",       // up to the surface in the material
                            "1 2 5 @8",       // to clearance
                            "0 0 5 @22.361",  // rapid to the origin
                            "0 0 0 @8",       // on the surface
                        }));
}

// A closed cut that the drag knife lengthens: its stroke in the margin, the contour from (0, 5), a millimetre more.
const std::vector<PointEssai> AvecAmorce{{0, -1}, {1, -1, "PU"}, {0, 5}, {10, 5}, {10, 15}, {0, 5}, {1, 5}};

TEST(Tableau_Decoupe, TheBladeIsUpBetweenItsStrokeInTheMarginAndTheContour) {
  ReglagesPlan();
  AjouteTrajet(" A", -2, AvecAmorce);
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",       // rise to clearance
                            "0 -1 5 @20",     // rapid to the margin
                            "0 -1 0 @8",      //
                            "0 -1 -2 @1",     //
                            "1 -1 -2 @3",     // the stroke that turns the blade
                            "1 -1 0 @1",      // out of the sheet
                            "1 -1 5 @8",      // to clearance
                            "0 5 5 @20.276",  // rapid over the start; Y limits: 20 x 6.083 / 6
                            "0 5 0 @8",       // down again
                            "0 5 -2 @1",      //
                            "10 5 -2 @3",     //
                            "10 15 -2 @3",    //
                            "0 5 -2 @3",      //
                            "1 5 -2 @3",      // over the seam
                            "1 5 0 @1",       //
                            "1 5 5 @8",       //
                            "0 0 5 @20.396",  // rapid to the origin
                            "0 0 0 @8",       // on the surface
                        }));
}

TEST(Tableau_Decoupe, WithoutTheStrokeNothingIsLiftedInsideTheCut) {
  ReglagesPlan();
  AjouteTrajet(" A", -2, {{0, 5}, {10, 5}, {10, 15}, {0, 5}});
  const Liste lignes = Planifie();
  EXPECT_EQ(std::count_if(lignes.begin(), lignes.end(), [](const std::string& l) { return l.ends_with(" 5 @8"); }),
            2)
      << "the first rise and the last";
}

TEST(Tableau_Decoupe, AnOpenPathLiftsToClearanceAfterEachPassAndComesBackByRapid) {
  ReglagesPlan();
  AjouteTrajet(" A", -3, {{0, 0}, {10, 0}, {10, 5}});
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",       // already over the first point: no rapid
                            "0 0 0 @8",       //
                            "0 0 -2 @1",      //
                            "10 0 -2 @3",     //
                            "10 5 -2 @3",     //
                            "10 5 0 @1",      // up to the surface in the material
                            "10 5 5 @8",      // to clearance
                            "0 0 5 @44.721",  // rapid back: 11.18 mm, 1000 x 5/11.18 / 20
                            "0 0 0 @8",       //
                            "0 0 -3 @1",      // from the surface again
                            "10 0 -3 @3",     //
                            "10 5 -3 @3",     //
                            "10 5 0 @1",      //
                            "10 5 5 @8",      //
                            "0 0 5 @44.721",  //
                            "0 0 0 @8",       //
                        }));
}

TEST(Tableau_Decoupe, AClosedPathHasNoRapidToItsStartBetweenPasses) {
  ReglagesPlan();
  AjouteTrajet(" A", -6, Carre);
  Planifie();
  int rapides = 0;
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
    if (Ligne(i).dX != 0 || Ligne(i).dY != 0) rapides += Ligne(i).Vitesse != 3 ? 1 : 0;
  }
  EXPECT_EQ(rapides, 0);  // it starts on the origin and ends there
}

TEST(Tableau_Decoupe, EndsOnTheOriginOfTheWorkWithTheToolOnTheSurface) {
  ReglagesPlan();
  CdeZENIK->PosX = 30;
  CdeZENIK->PosY = 40;
  CdeZENIK->PosZ = 2;
  AjouteTrajet(" A", -1, {{5, 0}, {8, 4}});
  const Liste plan = Planifie();
  EXPECT_EQ(Texte(Ligne(1)), "30 40 2 @0");
  EXPECT_EQ(plan.front(), "30 40 5 @8");  // rises by what is missing to clearance
  EXPECT_EQ(Ligne(2).dZ, 300);
  EXPECT_EQ(plan.back(), "0 0 0 @8");
  EXPECT_EQ(PasCumulX, -3000);  // back to where the work's origin is, in steps of 0.01
  EXPECT_EQ(PasCumulY, -4000);
  EXPECT_EQ(PasCumulZ, -200);
}

TEST(Tableau_Decoupe, AToolAboveClearanceComesDownToIt) {
  ReglagesPlan();
  CdeZENIK->PosZ = 9;
  AjouteTrajet(" A", -1, Carre);
  EXPECT_EQ(Planifie().front(), "0 0 5 @8");
  EXPECT_EQ(Ligne(2).dZ, -400);
}

TEST(Tableau_Decoupe, APathThatIsNotMilledGivesNoRowsAndLeavesTheTool) {
  ReglagesPlan();
  AjouteTrajet(" A", -1, {{0, 0}, {10, 0}});
  AjouteTrajet(" B", -1, {{50, 50}, {60, 60}}, false);
  AjouteTrajet(" C", -1, {{10, 4}, {20, 4}});
  const Liste plan = Planifie();
  for (const auto& ligne : plan)
    EXPECT_THAT(ligne, testing::Not(testing::AnyOf(testing::StartsWith("50 "), testing::StartsWith("60 "))))
        << ligne;
  // the rapid to " C" starts at the end of " A": 4 mm in Y alone
  EXPECT_THAT(plan, testing::IsSupersetOf({"10 4 5 @20"}));
}

TEST(Tableau_Decoupe, WithNothingMilledTheToolRisesGoesToTheOriginAndComesDown) {
  ReglagesPlan();
  CdeZENIK->PosX = 10;
  AjouteTrajet(" A", -1, Carre, false);
  EXPECT_EQ(Planifie(), (Liste{"10 0 5 @8", "0 0 5 @50", "0 0 0 @8"}));
}

TEST(Tableau_Decoupe, ARecordWithoutPointsIsPassedOver) {
  ReglagesPlan();
  AjouteTrajet(" A", -1, {});
  AjouteTrajet(" B", -1, {{3, 0}, {3, 0}});
  EXPECT_EQ(Planifie(), (Liste{"0 0 5 @8", "3 0 5 @50", "3 0 0 @8", "3 0 -1 @1", "3 0 0 @1", "3 0 5 @8",
                               "0 0 5 @50", "0 0 0 @8"}));
}

TEST(Tableau_Decoupe, ASinglePointIsAHoleInOneStroke) {
  ReglagesPlan();
  AjouteTrajet(" A", -1, {{3, 0}});
  EXPECT_EQ(Planifie(), (Liste{"0 0 5 @8", "3 0 5 @50", "3 0 0 @8", "3 0 -1 @1", "3 0 0 @1", "3 0 5 @8",
                               "0 0 5 @50", "0 0 0 @8"}));
}

TEST(Tableau_Decoupe, ASinglePointIsNotPecked) {
  ReglagesPlan();
  AjouteTrajet(" A", -3, {{3, 0}});
  EXPECT_EQ(Planifie(), (Liste{"0 0 5 @8", "3 0 5 @50", "3 0 0 @8", "3 0 -2 @1", "3 0 -3 @1", "3 0 0 @1",
                               "3 0 5 @8", "0 0 5 @50", "0 0 0 @8"}));
}

TEST(Tableau_Decoupe, ACodeWithoutARecordIsMilledAtDepthZero) {
  ReglagesPlan();
  AjouteTrajet(" A", -3, {{0, 0}, {10, 0}, {0, 0}});
  TraceDecale[0].Seq = Code2("ZZ");
  EXPECT_EQ(Planifie(), (Liste{"0 0 5 @8", "0 0 0 @8", "0 0 0 @1", "10 0 0 @3", "0 0 0 @3", "0 0 0 @1", "0 0 5 @8",
                               "0 0 0 @8"}));
}

TEST(Tableau_Decoupe, TheFirstRecordOfACodeCounts) {
  ReglagesPlan();
  AjouteTrajet(" A", -1, Carre);
  SequenceInfo deuxieme;
  deuxieme.Code = Code2(" A");
  deuxieme.Profondeur = -9;
  deuxieme.Fraiser = Faux;
  Sequences.push_back(deuxieme);
  EXPECT_EQ(Passes(), std::vector<float>{-1});
}

TEST(Tableau_Decoupe, DepthZeroMakesOnePassWithAPlungeOfNoHeight) {
  ReglagesPlan();
  AjouteTrajet(" A", 0, Carre);
  const Liste plan = Planifie();
  EXPECT_EQ(plan.size(), 10U);
  EXPECT_EQ(plan[2], "0 0 0 @1");
  EXPECT_EQ(Ligne(4).dZ, 0);
}

TEST(Tableau_Decoupe, ADepthThatIsNoMultipleOfThePassEndsAtTheDepth) {
  ReglagesPlan();
  AjouteTrajet(" A", -5, Carre);
  EXPECT_EQ(Passes(), (std::vector<float>{-2, -4, -5}));
}

TEST(Tableau_Decoupe, APassDeeperThanTheDepthIsOnePassAtTheDepth) {
  ReglagesPlan();
  ProfPasse = -20;
  AjouteTrajet(" A", -5, Carre);
  EXPECT_EQ(Passes(), std::vector<float>{-5});
}

TEST(Tableau_Decoupe, DepthsThatHaveNoEndInBinaryEndAtTheir32BitValue) {
  for (const double profondeur : {-0.1, -0.7, -2.57}) {
    for (const double passe : {-0.1, -0.7}) {
      Doc = Document{};
      ReglagesPlan();
      ProfPasse = passe;
      AjouteTrajet(" A", profondeur, Ouverte);
      ASSERT_TRUE(Tableau_Decoupe());
      std::vector<float> fonds;  // height of each cut to the second point, one a pass
      for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
        if (Ligne(i).X == 10 && Ligne(i).Y == 0 && Ligne(i - 1).X == 0) fonds.push_back(Ligne(i).Z);
      }
      const double passes = std::ceil(profondeur / passe - 1e-9);
      EXPECT_EQ(fonds.size(), static_cast<std::size_t>(passes)) << profondeur << " by " << passe;
      EXPECT_EQ(fonds.back(), static_cast<float>(profondeur)) << profondeur << " by " << passe;
    }
  }
}

TEST(Tableau_Decoupe, PassesAre32BitSumsSoARoundedRemainderIsAPassOfItsOwn) {
  ReglagesPlan();
  ProfPasse = -0.1;
  AjouteTrajet(" A", -5, Ouverte);
  // fifty times 0.1 in 32 bits is 4.9999976: one more pass takes the rest, and it stops exactly at the depth
  const std::vector<float> passes = Passes();
  EXPECT_EQ(passes.size(), 51U);
  EXPECT_NEAR(passes[49], -4.9999976, 1e-6);
  EXPECT_EQ(passes[50], -5);
}

TEST(Tableau_Decoupe, APathIsFinishedBeforeTheNextAndCountsItsOwnPasses) {
  ReglagesPlan();
  AjouteTrajet(" B", -4, {{0, 0}, {1, 0}, {0, 0}});
  AjouteTrajet(" A", -2, {{5, 0}, {6, 0}, {5, 0}});
  EXPECT_EQ(Passes(), (std::vector<float>{-2, -4, -2}));
  EXPECT_EQ(PassePremiere, 2);  // behind the only pass of the last path
}

TEST(Tableau_Decoupe, ComesDownFromClearanceOnceHoweverManyPassesThereAre) {
  ReglagesPlan();
  ProfPasse = -0.0001;
  AjouteTrajet(" A", -8, {{0, 0}, {1, 0}, {0, 0}});  // more passes than 16 bits can count
  ASSERT_TRUE(Tableau_Decoupe());
  EXPECT_GT(NbDeplacements, 3 * 65536);                           // a plunge and two cuts each
  EXPECT_EQ(Plongees(8), (std::vector<float>{0, Derniere().Z}));  // to the surface at the start and at the end
}

TEST(Tableau_Decoupe, SeveralPiecesOfOnePathTakeItsDepthOneAfterTheOther) {
  ReglagesPlan();
  AjouteTrajet(" A", -3, {{0, 0}, {1, 0}, {0, 0}});
  AjouteTrajet(" A", -3, {{5, 0}, {6, 0}, {5, 0}});
  EXPECT_EQ(Passes(), (std::vector<float>{-2, -3, -2, -3}));
}

// A path along X with a notch from 4 to 6.
const std::vector<PointEssai> AvecEncoche{{0, 0}, {4, 0, "PE"}, {5, 0, "PC"}, {6, 0, "PD"}, {10, 0}, {0, 0}};

TEST(Tableau_Decoupe, ANotchIsLiftedForOnlyInThePassBelowItsBridge) {
  ReglagesPlan();
  MiniEncoche = 1;  // bridge at -4
  AjouteTrajet(" A", -5, AvecEncoche);
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",   "0 0 0 @8",                                                        //
                            "0 0 -2 @1",  "4 0 -2 @3", "5 0 -2 @3", "6 0 -2 @3", "10 0 -2 @3", "0 0 -2 @3",  //
                            "0 0 -4 @1",  "4 0 -4 @3", "5 0 -4 @3", "6 0 -4 @3", "10 0 -4 @3", "0 0 -4 @3",  //
                            "0 0 -5 @1",  "4 0 -5 @3",
                            "4 0 -4 @1",                // up by 1
                            "5 0 -4 @3",  "6 0 -4 @3",  //
                            "6 0 -5 @1",                // down by 1
                            "10 0 -5 @3", "0 0 -5 @3",  //
                            "0 0 0 @1",   "0 0 5 @8",  "0 0 0 @8",
                        }));
}

TEST(Tableau_Decoupe, ABridgeThatEqualsAPassInDecimalsIsNotLiftedFor) {
  ReglagesPlan();
  ProfPasse = -0.1;
  MiniEncoche = 0.9;  // bridge at -0.1, which 64 bits hold as -0.09999999999999998
  AjouteTrajet(" A", -1, AvecEncoche);
  ASSERT_TRUE(Tableau_Decoupe());
  // row 4 is the first plunge, row 5 the cut to the notch, row 6 the cut through it
  EXPECT_EQ(Ligne(5).X, 4);
  EXPECT_EQ(Ligne(6).X, 5);
}

TEST(Tableau_Decoupe, ABridgeAtOrAboveTheSurfaceIsLiftedToInEachPass) {
  ReglagesPlan();
  MiniEncoche = 3;
  AjouteTrajet(" A", -3, AvecEncoche);  // bridge at 0
  EXPECT_THAT(Planifie(), testing::IsSupersetOf({"4 0 0 @1", "5 0 0 @3", "6 0 -2 @1", "6 0 -3 @1"}));
}

TEST(Tableau_Decoupe, ASecondEntryInANotchChangesNothing) {
  ReglagesPlan();
  MiniEncoche = 1;
  AjouteTrajet(" A", -2, {{0, 0}, {4, 0, "PE"}, {5, 0, "PE"}, {6, 0, "PD"}, {0, 0}});
  EXPECT_EQ(Planifie(), (Liste{"0 0 5 @8", "0 0 0 @8", "0 0 -2 @1", "4 0 -2 @3", "4 0 -1 @1", "5 0 -1 @3",
                               "6 0 -1 @3", "6 0 -2 @1", "0 0 -2 @3", "0 0 0 @1", "0 0 5 @8", "0 0 0 @8"}));
}

TEST(Tableau_Decoupe, WithoutABridgeHeightANotchIsRunThrough) {
  ReglagesPlan();
  AjouteTrajet(" A", -2, AvecEncoche);
  EXPECT_EQ(Planifie().size(), 11U);  // three down, five cuts, three up and down
}

TEST(Tableau_Decoupe, ANotchThatAPathLeavesOpenIsClosedByTheNextOrdinaryPoint) {
  ReglagesPlan();
  MiniEncoche = 1;
  AjouteTrajet(" A", -2, {{0, 0}, {4, 0, "PE"}});
  AjouteTrajet(" B", -2, {{4, 0}, {4, 3}, {4, 6}});
  const Liste plan = Planifie();
  // " A": up by 1 at 4; " B": the lift still stands, its first cut ends with the way down
  EXPECT_THAT(plan, testing::IsSupersetOf({"4 0 -1 @1"}));
  const auto coupe = std::find(plan.begin(), plan.end(), "4 3 -1 @3");
  ASSERT_NE(coupe, plan.end());
  EXPECT_EQ(*(coupe + 1), "4 3 -2 @1");
}

TEST(Tableau_Decoupe, TheFirstPointOfAPathIsNoNotchEntry) {
  ReglagesPlan();
  MiniEncoche = 1;
  AjouteTrajet(" A", -2, {{0, 0, "PE"}, {4, 0}, {0, 0}});
  EXPECT_EQ(Planifie(), (Liste{"0 0 5 @8", "0 0 0 @8", "0 0 -2 @1", "4 0 -2 @3", "0 0 -2 @3", "0 0 0 @1",
                               "0 0 5 @8", "0 0 0 @8"}));
}

TEST(Tableau_Decoupe, AHoleIsPeckedAfterEachPassButTheLast) {
  ReglagesPlan();
  AjouteTrajet(" A", -5, {{3, 0}, {3, 0}});
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",
                            "3 0 5 @50",
                            "3 0 0 @8",  //
                            "3 0 -2 @1",
                            "3 0 0 @1",
                            "3 0 -2 @1",  // out and back
                            "3 0 -4 @1",
                            "3 0 0 @1",
                            "3 0 -4 @1",  //
                            "3 0 -5 @1",
                            "3 0 0 @1",
                            "3 0 5 @8",  // the last pass goes straight up
                            "0 0 5 @50",
                            "0 0 0 @8",
                        }));
}

TEST(Tableau_Decoupe, AnOpenLineOfTwoPointsPecksAboveClearance) {
  ReglagesPlan();
  AjouteTrajet(" A", -3, {{0, 0}, {10, 0}});
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",
                            "0 0 0 @8",
                            "0 0 -2 @1",
                            "10 0 -2 @3",
                            "10 0 0 @1",
                            "10 0 5 @8",
                            "10 0 7 @1",
                            "10 0 5 @1",  // the two rows of a hole, in the air
                            "0 0 5 @50",
                            "0 0 0 @8",
                            "0 0 -3 @1",
                            "10 0 -3 @3",
                            "10 0 0 @1",
                            "10 0 5 @8",
                            "0 0 5 @50",
                            "0 0 0 @8",
                        }));
}

TEST(Tableau_Decoupe, AHoleOfABinaryDepthIsNotPeckedInItsLastPass) {
  ReglagesPlan();
  ProfPasse = -1;
  AjouteTrajet(" A", -0.7, {{0, 0}, {0, 0}});
  EXPECT_EQ(Planifie(), (Liste{"0 0 5 @8", "0 0 0 @8", "0 0 -0.7 @1", "0 0 0 @1", "0 0 5 @8", "0 0 0 @8"}));
}

TEST(Tableau_Decoupe, BuildsFromNothingEachTime) {
  ReglagesPlan();
  AjouteTrajet(" A", -3, Carre);
  const Liste premiere = Planifie();
  EXPECT_EQ(Planifie(), premiere);
}

TEST(Tableau_Decoupe, TheStepsOfAWholeJobAddUpToTheWayBack) {
  ReglagesPlan();
  CdeZENIK->FixeResolutions(0.0123, 0.0457, 0.0089);
  ProfPasse = -0.31;
  AjouteTrajet(" A", -2.57, {{1.1F, 2.3F}, {17.77F, 3.13F}, {9.99F, 44.4F}});
  ASSERT_TRUE(Tableau_Decoupe());
  std::int64_t x = 0;
  std::int64_t y = 0;
  std::int64_t z = 0;
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
    x += Ligne(i).dX;
    y += Ligne(i).dY;
    z += Ligne(i).dZ;
  }
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 0);
  EXPECT_EQ(z, 0);
}

TEST(Tableau_Decoupe, LetsPaintingGoOnByTheClockAlone) {
  ReglagesPlan();
  std::vector<PointEssai> points;
  points.reserve(10000);
  for (int i = 0; i < 10000; ++i) points.push_back({static_cast<float>(i), 0});
  AjouteTrajet(" A", -1, points);
  int battements = 0;
  Svc.LaisseEvenements = [&](Evenements e) {
    EXPECT_EQ(e, Evenements::Affichage);
    ++battements;
  };
  double heure = 0;
  Svc.Horloge = [&] { return heure; };
  ASSERT_TRUE(Tableau_Decoupe());
  EXPECT_EQ(battements, 0);
  Svc.Horloge = [&] { return heure += 0.02; };  // each look at the clock is 20 ms later
  ASSERT_TRUE(Tableau_Decoupe());
  EXPECT_GE(battements, 3);
  EXPECT_LE(battements, 10);
}

}  // namespace
}  // namespace essai
