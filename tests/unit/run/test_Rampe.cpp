// The way down along closed paths: rows by hand, and the paths that the tool still goes straight into.
#include <algorithm>
#include <cmath>
#include <limits>

#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "run/NoyauPlan.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

constexpr double UnPourDix = 5.710593137499643;    // degrees: sinks 1 mm in 10
constexpr double UnPourCinq = 11.309932474020215;  // degrees: sinks 1 mm in 5

// Passes of 1 mm at that angle; the rest as in ReglagesPlan.
void Reglages(double angle) {
  ReglagesPlan();
  ProfPasse = -1;
  AngleRampe = angle;
}

std::vector<PointEssai> CarreDe(float cote) { return {{0, 0}, {0, cote}, {cote, cote}, {cote, 0}, {0, 0}}; }

// A square of 10 mm with a bridge between 3.5 and 6.5 mm of its first side.
const std::vector<PointEssai> CarreEncoche{{0, 0},  {0, 3.5F, "PE"}, {0, 5, "PC"}, {0, 6.5F, "PD"},
                                           {0, 10}, {10, 10},        {10, 0},      {0, 0}};

// At 3 degrees the tool needs 1 / tan 3° = 19.081 mm for a pass of 1 mm.
TEST(Rampe, EachPassSinksFromWhereTheOneBeforeEndedAndGoesRoundAtItsDepth) {
  Reglages(3);
  AjouteTrajet(" A", -3, CarreDe(40));
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",         // rise to clearance
                            "0 0 0 @8",         // down to the surface, no further
                            "0 19.081 -1 @3",   // first ramp
                            "0 40 -1 @3",       //
                            "40 40 -1 @3",      //
                            "40 0 -1 @3",       //
                            "0 0 -1 @3",        //
                            "0 19.081 -1 @3",   // what stood under the ramp
                            "0 38.162 -2 @3",   // second ramp, from there
                            "0 40 -2 @3",       //
                            "40 40 -2 @3",      //
                            "40 0 -2 @3",       //
                            "0 0 -2 @3",        //
                            "0 38.162 -2 @3",   //
                            "0 40 -2.096 @3",   // third: 1.838 mm to the corner sink 0.0963 mm
                            "17.243 40 -3 @3",  // the other 17.243 mm behind it
                            "40 40 -3 @3",      //
                            "40 0 -3 @3",       //
                            "0 0 -3 @3",        //
                            "0 40 -3 @3",       //
                            "17.243 40 -3 @3",  //
                            "17.243 40 0 @1",   // up to the surface in the material
                            "17.243 40 5 @8",   // to clearance
                            "0 0 5 @21.779",    // rapid home: 20 x 43.558 / 40
                            "0 0 0 @8",         // on the surface
                        }));
}

TEST(Rampe, OnAShortPathItGoesRoundAndRound) {
  Reglages(3);
  AjouteTrajet(" A", -1, CarreDe(4));
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",       //
                            "0 0 0 @8",       //
                            "0 4 -0.21 @3",   // 4 mm sink 0.2096 mm
                            "4 4 -0.419 @3",  //
                            "4 0 -0.629 @3",  //
                            "0 0 -0.839 @3",  //
                            "0 3.081 -1 @3",  // 19.081 - 16
                            "0 4 -1 @3",      //
                            "4 4 -1 @3",      //
                            "4 0 -1 @3",      //
                            "0 0 -1 @3",      //
                            "0 3.081 -1 @3",  //
                            "0 3.081 0 @1",   //
                            "0 3.081 5 @8",   //
                            "0 0 5 @20",      //
                            "0 0 0 @8",       //
                        }));
}

TEST(Rampe, ALastPassThatIsNotAsDeepHasAShorterRamp) {
  Reglages(UnPourDix);
  AjouteTrajet(" A", -1.25, CarreDe(40));
  const Liste plan = Planifie();
  EXPECT_EQ(plan[2], "0 10 -1 @3");
  EXPECT_EQ(plan[8], "0 12.5 -1.25 @3");
}

TEST(Rampe, ItsVerticalPartIsNoFasterThanThePlunge) {
  Reglages(45);
  AjouteTrajet(" A", -1, CarreDe(10));
  EXPECT_EQ(Planifie()[2], "0 1 -1 @1.414");  // 1 mm/s down and 1 mm/s along
  Vitesse_Mat_V = 2.5;
  EXPECT_EQ(Planifie()[2], "0 1 -1 @3") << "2.12 mm/s down at the feed of the cut";
}

TEST(Rampe, InANotchItStaysOnTheBridgeAndBehindItTheToolGoesDownToItsRamp) {
  Reglages(UnPourDix);
  MiniEncoche = 0.5;
  AjouteTrajet(" A", -1, CarreEncoche);
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",        //
                            "0 0 0 @8",        //
                            "0 3.5 -0.35 @3",  // at the notch, still above the bridge at -0.5
                            "0 5 -0.5 @3",     // which the ramp reaches at its middle
                            "0 6.5 -0.5 @3",   //
                            "0 6.5 -0.65 @1",  // down to where the ramp is there
                            "0 10 -1 @3",      //
                            "10 10 -1 @3",     //
                            "10 0 -1 @3",      //
                            "0 0 -1 @3",       //
                            "0 3.5 -1 @3",     //
                            "0 3.5 -0.5 @1",   // up
                            "0 5 -0.5 @3",     //
                            "0 6.5 -0.5 @3",   //
                            "0 6.5 -1 @1",     // and down
                            "0 10 -1 @3",      //
                            "0 10 0 @1",       //
                            "0 10 5 @8",       //
                            "0 0 5 @20",       //
                            "0 0 0 @8",        //
                        }));
}

TEST(Rampe, APassThatEndsInANotchEndsOnItsBridge) {
  Reglages(UnPourCinq);
  MiniEncoche = 0.5;
  AjouteTrajet(" A", -1, CarreEncoche);
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",       //
                            "0 0 0 @8",       //
                            "0 3.5 -0.7 @3",  // below the bridge already
                            "0 3.5 -0.5 @1",  // up
                            "0 5 -0.5 @3",    // here the ramp would have reached its depth
                            "0 6.5 -0.5 @3",  //
                            "0 6.5 -1 @1",    // down to the depth
                            "0 10 -1 @3",     //
                            "10 10 -1 @3",    //
                            "10 0 -1 @3",     //
                            "0 0 -1 @3",      //
                            "0 3.5 -1 @3",    //
                            "0 3.5 -0.5 @1",  //
                            "0 5 -0.5 @3",    //
                            "0 5 0 @1",       // half a millimetre up: no further than the surface
                            "0 5 5 @8",       //
                            "0 0 5 @20",      //
                            "0 0 0 @8",       //
                        }));
}

TEST(Rampe, APassThatBeginsInANotchGoesDownToItsRampWhereTheNotchEnds) {
  Reglages(UnPourCinq);
  MiniEncoche = 1.5;  // bridge at -0.5, passes at -1 and -2
  AjouteTrajet(" A", -2, CarreEncoche);
  const Liste plan = Planifie();
  // the first pass ends at 5 mm, on the bridge; its ramp goes on from -1 there and is at -1.3 where the notch ends
  const std::size_t fin = 13;
  EXPECT_EQ(plan[fin], "0 5 -0.5 @3");
  EXPECT_EQ(plan[fin + 1], "0 6.5 -0.5 @3");
  EXPECT_EQ(plan[fin + 2], "0 6.5 -1.3 @1");
  EXPECT_EQ(plan[fin + 3], "0 10 -2 @3");
}

TEST(Rampe, AnOpenPieceSinksAlongItsFirstRing) {
  Reglages(UnPourDix);
  AjouteTrajet(" A", -1.2, {{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0, 0}, {-2, 0}});
  EXPECT_EQ(Planifie(), (Liste{
                            "0 0 5 @8",      //
                            "0 0 0 @8",      //
                            "0 4 -0.4 @3",   //
                            "4 4 -0.8 @3",   //
                            "4 2 -1 @3",     // 10 mm
                            "4 0 -1 @3",     //
                            "0 0 -1 @3",     //
                            "0 4 -1 @3",     //
                            "4 4 -1 @3",     //
                            "4 2 -1 @3",     // once round
                            "4 0 -1 @3",     // on to the end of the ring
                            "0 0 -1 @3",     //
                            "-2 0 -1 @3",    // and to the end of the piece
                            "-2 0 0 @1",     //
                            "-2 0 5 @8",     //
                            "0 0 5 @50",     // back in the air
                            "0 0 0 @8",      //
                            "0 0 -1 @1",     // down in what the first pass has cut
                            "0 2 -1.2 @3",   // 2 mm for the other 0.2
                            "0 4 -1.2 @3",   //
                            "4 4 -1.2 @3",   //
                            "4 0 -1.2 @3",   //
                            "0 0 -1.2 @3",   //
                            "0 2 -1.2 @3",   //
                            "0 4 -1.2 @3",   //
                            "4 4 -1.2 @3",   //
                            "4 0 -1.2 @3",   //
                            "0 0 -1.2 @3",   //
                            "-2 0 -1.2 @3",  //
                            "-2 0 0 @1",     //
                            "-2 0 5 @8",     //
                            "0 0 5 @50",     //
                            "0 0 0 @8",      //
                        }));
}

// --- straight down

struct Droit {
  const char* nom;
  std::vector<PointEssai> points;
};
class RampeDroite : public testing::TestWithParam<Droit> {};

TEST_P(RampeDroite, IsPlannedAsWithoutAnAngle) {
  Reglages(0);
  MiniEncoche = 0.5;
  AjouteTrajet(" A", -3, GetParam().points);
  const Liste droit = Planifie();
  AngleRampe = 3;
  EXPECT_EQ(Planifie(), droit);
}

INSTANTIATE_TEST_SUITE_P(
    Chemins, RampeDroite,
    testing::Values(Droit{"OpenPath", {{0, 0}, {10, 0}, {10, 5}}}, Droit{"Hole", {{3, 4}, {3, 4}}},
                    Droit{"Point", {{3, 4}}}, Droit{"PointGivenThrice", {{3, 4}, {3, 4}, {3, 4}}},
                    Droit{"LoopOfDust", {{0, 0}, {0, 0.02F}, {0.02F, 0.02F}, {0.02F, 0}, {0, 0}}},
                    Droit{"Blade", {{5, 5}, {5, 0, "PU"}, {15, 5}, {10, 15}, {5, 5}}},
                    Droit{"NotchOverTheStart", {{0, 0}, {10, 0}, {10, 10, "PE"}, {0, 10, "PC"}, {0, 0, "PC"}}}),
    [](const auto& cas) { return std::string(cas.param.nom); });

TEST(Rampe, APathOfNoDepthIsPlannedAsWithoutAnAngle) {
  Reglages(0);
  AjouteTrajet(" A", 0, CarreDe(10));
  const Liste droit = Planifie();
  AngleRampe = 3;
  EXPECT_EQ(Planifie(), droit);
}

TEST(Rampe, WhatIsNoAngleOfARampMeansStraightDown) {
  Reglages(0);
  AjouteTrajet(" A", -3, CarreDe(10));
  const Liste droit = Planifie();
  for (const double angle :
       {-3.0, 45.1, 90.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    AngleRampe = angle;
    EXPECT_EQ(Planifie(), droit) << angle;
  }
}

// --- bounds

TEST(Rampe, OnATinyLoopItTakesAHundredRoundsAtMost) {
  Reglages(0.01);  // 5730 mm for a millimetre, which 2 mm round would take 2865 times
  AjouteTrajet(" A", -1, CarreDe(0.5F));
  ASSERT_TRUE(Tableau_Decoupe());
  // rise, down; 400 sides of the ramp, 4 at its depth; up twice and down, on the origin
  EXPECT_EQ(NbDeplacements - 1, 2 + 400 + 4 + 3);
  EXPECT_NEAR(Ligne(3 + 200).Z, -0.5, 1e-6) << "half way after fifty rounds";
}

TEST(Rampe, EndsWhereThePlanWithoutItEnds) {
  for (const double angle : {0.0, 3.0}) {
    Reglages(angle);
    Doc = Document{};
    AjouteTrajet(" A", -3, CarreDe(40));
    AjouteTrajet(" B", -2.3, {{50, 3}, {57, 9}, {61, 2}, {50, 3}});
    ASSERT_TRUE(Tableau_Decoupe());
    std::int32_t x = 0, y = 0, z = 0;
    for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
      x += Ligne(i).dX;
      y += Ligne(i).dY;
      z += Ligne(i).dZ;
    }
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 0);
    EXPECT_EQ(z, 0);
    EXPECT_EQ(Texte(Derniere()), "0 0 0 @8");
  }
}

// Nearly all of these rows move on three axes.
TEST(Rampe, StepsFollowTheMillimetresOverAMillionRows) {
  Reglages(0.02);
  ProfPasse = -3;
  CdeZENIK->FixeResolutions(0.0123, 0.0071, 0.0049);
  std::vector<PointEssai> cercle;
  for (int i = 0; i < 10'000; ++i) {
    const double a = 2 * Pi * i / 10'000;
    cercle.push_back({static_cast<float>(200 + 15 * std::cos(a)), static_cast<float>(100 + 15 * std::sin(a))});
  }
  cercle.push_back(cercle.front());
  AjouteTrajet(" A", -3, cercle);
  ASSERT_TRUE(Tableau_Decoupe());
  ASSERT_GT(NbDeplacements, 900'000);
  std::int64_t x = 0, y = 0, z = 0;
  double pire = 0;  // steps
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
    const Deplacement& d = Ligne(i);
    x += d.dX;
    y += d.dY;
    z += d.dZ;
    const auto ecart = [](std::int64_t pas, double mmParPas, float mm) {
      return std::abs(static_cast<double>(pas) - static_cast<double>(mm) / mmParPas);
    };
    pire = std::max({pire, ecart(x, 0.0123, d.X), ecart(y, 0.0071, d.Y), ecart(z, 0.0049, d.Z)});
  }
  EXPECT_LT(pire, 0.65);  // half a step and an eighth, and the last digit of a coordinate
}

TEST(EstimePlan, NeverCountsFewerRowsThanAPlanWithRampsHas) {
  for (const double angle : {0.05, 0.7, 3.0, 20.0, 45.0}) {
    Reglages(angle);
    Doc = Document{};
    MiniEncoche = 0.5;
    AjouteTrajet(" A", -3, CarreEncoche);
    AjouteTrajet(" B", -2.5, CarreDe(3));
    AjouteTrajet(" C", -2.5, {{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0, 0}, {-2, 0}});
    ASSERT_TRUE(Tableau_Decoupe());
    ParametresPlan p;
    p.ProfPasse = ProfPasse;
    p.AngleRampe = angle;
    const std::vector<UsinageTrace> usinages{{true, -3}, {true, -2.5}, {true, -2.5}};
    const EstimationPlan e = EstimePlan(p, TraceDecale, usinages);
    EXPECT_EQ(e.jugement, JugementPlan::Bon);
    EXPECT_GE(e.lignes, static_cast<std::int64_t>(TableDecoupe.size())) << angle;
    EXPECT_LE(e.lignes, 6 * static_cast<std::int64_t>(TableDecoupe.size())) << angle;
  }
}

TEST(VerifiePlan, RefusesRampsOfMoreRowsThanATableHolds) {
  Reglages(0.0001);  // a hundred rounds a pass
  AjouteTrajet(" A", -3, {});
  std::vector<PointTrace>& points = TraceDecale.back().Points;
  for (int i = 0; i < 200'000; ++i) {
    const double a = 2 * Pi * i / 200'000;
    points.push_back({static_cast<float>(100 * std::cos(a)), static_cast<float>(100 * std::sin(a)), CodePD, {}});
  }
  points.push_back(points.front());
  ASSERT_TRUE(VerifiePlan());
  EXPECT_EQ(VerifiePlan()->Cle(), "95");
  AngleRampe = 3;
  EXPECT_FALSE(VerifiePlan());
}

}  // namespace
}  // namespace essai
