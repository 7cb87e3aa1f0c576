// The way back and what is left of a job, row by row.
#include <algorithm>

#include "core/TableDecoupe.h"
#include "machine/TableCourante.h"
#include "run/NoyauReprise.h"
#include "tests/unit/run/UnRun.h"

namespace essai {
namespace {

// The table as it goes to the board, empty rows and all, without its first row, which moves nothing.
std::vector<Deplacement> TableEnvoyee() {
  return {TableDecoupe.begin() + 2, TableDecoupe.begin() + NbDeplacements + 1};
}

class LignesDeReprise : public UnRun {
 protected:
  // The square of 10 mm alone, one pass: 1 rise, 2 rapid to its corner (2, 3), 3 down to the surface, 4 plunge to
  // -1, 5 to 8 its sides, 9 to the surface, 10 up, 11 to the origin, 12 down.
  LignesDeReprise() {
    TraceDecale.resize(1);
    ProfPasse = -1;
  }
  void ArreteDansLaLigne(std::int32_t ligne) {
    aChaqueTour_ = [this, ligne] {
      if (RunActif && carte_->Compteurs().commences >= ligne) StopDemande = Vrai;
    };
    ASSERT_TRUE(Lance());
    aChaqueTour_ = nullptr;
    ASSERT_EQ(CdeZENIK->NbBlocsTraites, ligne);
  }
  void Reprend(const char* vitesse) {
    Vue_Decoupe.Debut = [this](double) { envoyee_ = TableEnvoyee(); };
    ASSERT_TRUE(ReprendFraisage(vitesse));
  }

  std::vector<Deplacement> envoyee_;
};

TEST_F(LignesDeReprise, WhatIsLeftBeginsWithTheRowThatWasInterrupted) {
  std::vector<Deplacement> plan;
  Vue_Decoupe.Avance = [&](double, double) {
    plan.assign(TableDecoupe.begin() + 1, TableDecoupe.begin() + NbDeplacements + 1);
  };
  ArreteDansLaLigne(6);
  ASSERT_EQ(plan.size(), 12U);
  ASSERT_EQ(TableReprise.size(), 1 + 7U) << "rows 6 to 12, from index 1";
  for (std::size_t i = 1; i < TableReprise.size(); ++i) {
    EXPECT_EQ(TableReprise[i].X, plan[4 + i].X) << i;
    EXPECT_EQ(TableReprise[i].Y, plan[4 + i].Y) << i;
    EXPECT_EQ(TableReprise[i].dX, plan[4 + i].dX) << i;
    EXPECT_EQ(TableReprise[i].dZ, plan[4 + i].dZ) << i;
  }
  EXPECT_EQ(TableReprise[1].Y, 13) << "the second side, from (2, 13) to (12, 13)";
}

TEST_F(LignesDeReprise, TheWayBackRisesGoesOverTheStartComesDownAndPlunges) {
  ArreteDansLaLigne(6);
  const double x = CdeZENIK->PosX;
  ASSERT_GT(x, 2);
  ASSERT_LT(x, 12);
  Reprend("3");
  ASSERT_GE(envoyee_.size(), 5U);
  const auto& [monte, va, descend, plonge] = std::tie(envoyee_[0], envoyee_[1], envoyee_[2], envoyee_[3]);
  EXPECT_NEAR(static_cast<double>(monte.X), x, 0.02);
  EXPECT_NEAR(static_cast<double>(monte.Z), 3, 0.02) << "to the clearance height";
  EXPECT_EQ(monte.Vitesse, VitesseMaxZ);
  EXPECT_NEAR(static_cast<double>(va.X), 2, 0.02) << "over the start of the second side";
  EXPECT_NEAR(static_cast<double>(va.Y), 13, 0.02);
  EXPECT_EQ(va.dZ, 0);
  EXPECT_NEAR(static_cast<double>(va.Vitesse), 20, 1e-3) << "as a rapid";
  EXPECT_NEAR(static_cast<double>(descend.Z), 0, 0.02) << "to the surface";
  EXPECT_EQ(descend.Vitesse, VitesseMaxZ);
  EXPECT_EQ(plonge.Z, -1) << "to the level of the row";
  EXPECT_EQ(plonge.Vitesse, 2) << "at the speed of the material";
}

TEST_F(LignesDeReprise, TheRestFollowsAtTheSpeedThatWasTypedCutsAndRapidsAlike) {
  ArreteDansLaLigne(6);
  const std::vector<Deplacement> reste(TableReprise.begin() + 1, TableReprise.end());
  Reprend("1.5");
  ASSERT_EQ(envoyee_.size(), 4 + reste.size());
  for (std::size_t i = 0; i < reste.size(); ++i) {
    const Deplacement& d = envoyee_[4 + i];
    EXPECT_EQ(d.X, reste[i].X) << i;
    EXPECT_EQ(d.Y, reste[i].Y) << i;
    EXPECT_EQ(d.Z, reste[i].Z) << i;
    EXPECT_EQ(d.dX, reste[i].dX) << i;
    EXPECT_EQ(d.dZ, reste[i].dZ) << i;
    EXPECT_EQ(d.Vitesse, reste[i].dZ == 0 ? 1.5F : reste[i].Vitesse) << i;
  }
  EXPECT_EQ(reste[5].dZ, 0) << "the rapid to the origin is among them";
  EXPECT_EQ(Vitesse_Mat_H, 1.5);
}

TEST_F(LignesDeReprise, APlungeThatWasInterruptedIsReachedByTheWayBackAlone) {
  ArreteDansLaLigne(4);
  ASSERT_LT(TableReprise[1].dZ, 0);
  Reprend("3");
  ASSERT_GE(envoyee_.size(), 3 + 9U);  // it stands over its place: the way there may have no length
  const Deplacement& retour = envoyee_[envoyee_.size() - 10];
  const Deplacement& ligne = envoyee_[envoyee_.size() - 9];
  EXPECT_EQ(retour.Z, -1) << "the way back plunges to the level of the row";
  EXPECT_EQ(retour.Vitesse, 2);
  EXPECT_EQ(ligne.Z, -1);
  EXPECT_EQ(ligne.dZ, 0) << "so the row itself has nothing left to do";
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(LignesDeReprise, TheLastRowIsDoneAgainFromItsStart) {
  ArreteDansLaLigne(12);
  ASSERT_EQ(TableReprise.size(), 2U);
  Reprend("3");
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
  EXPECT_TRUE(TableReprise.empty());
}

TEST_F(LignesDeReprise, AResumeIsDirectWhateverTheModeOfTheStart) {
  aChaqueTour_ = [this] {
    if (RunActif && carte_->Compteurs().commences >= 6) StopDemande = Vrai;
  };
  ASSERT_TRUE(Lance(MemoireEtFraisage));
  aChaqueTour_ = nullptr;
  ASSERT_EQ(FaceCourante(), FaceFraisage::Reprise);
  const std::vector<std::uint8_t> liste = ListeFlash;
  std::uint8_t mode = 9;
  Vue_Decoupe.Accepte = [&](std::int32_t, float&) { mode = ModeEnvoiTable; };
  ASSERT_TRUE(ReprendFraisage("3"));
  EXPECT_EQ(mode, EnvoiDirect);
  EXPECT_EQ(ListeFlash, liste);
}

TEST_F(LignesDeReprise, TheSpindleRunsAgainBeforeTheFirstRow) {
  ArreteDansLaLigne(6);
  EXPECT_FALSE(carte_->Sorties().broche);
  bool broche = false;
  Vue_Decoupe.Accepte = [&](std::int32_t ligne, float&) {
    broche = broche || (ligne == 1 && carte_->Sorties().broche);
  };
  ASSERT_TRUE(ReprendFraisage("3"));
  EXPECT_TRUE(broche);
  EXPECT_FALSE(carte_->Sorties().broche) << "and stands at the end";
}

TEST_F(LignesDeReprise, NothingIsResumedWhileTheMachineMovesOrWithoutARest) {
  EXPECT_FALSE(ReprendFraisage("3")) << "nothing is left of any job";
  ArreteDansLaLigne(6);
  CdeZENIK->EnCours = Vrai;
  const auto avant = carte_->Compteurs().echanges;
  EXPECT_FALSE(ReprendFraisage("3"));
  EXPECT_EQ(carte_->Compteurs().echanges, avant) << "and nothing is said to the board";
  CdeZENIK->EnCours = Faux;
  TraceDecale.clear();
  EXPECT_FALSE(ReprendFraisage("3")) << "without a tool path a press does nothing";
}

TEST_F(LignesDeReprise, AnotherStartForgetsTheOldRest) {
  ArreteDansLaLigne(6);
  Vue_Decoupe.Debut = [](double) { StopDemande = Vrai; };
  ASSERT_TRUE(Lance());
  EXPECT_EQ(TableReprise.size(), 1 + 12U) << "the whole of the new job, though none of it has run";
}

// The same square with a way down of 1 in 10: 4 is the ramp along the first side, 5 to 8 the round at its depth.
class RepriseDeRampe : public LignesDeReprise {
 protected:
  RepriseDeRampe() { AngleRampe = 5.710593137499643; }
};

TEST_F(RepriseDeRampe, InsideTheRampTheWayBackEndsWhereTheRampBegins) {
  ArreteDansLaLigne(4);
  const Deplacement rampe = TableReprise[1];
  ASSERT_LT(rampe.dZ, 0);
  ASSERT_GT(rampe.dY, 0);
  Reprend("3");
  ASSERT_GE(envoyee_.size(), 3 + 9U);
  const Deplacement& retour = envoyee_[envoyee_.size() - 10];
  const Deplacement& ligne = envoyee_[envoyee_.size() - 9];
  EXPECT_NEAR(static_cast<double>(retour.Z), 0, 1e-5) << "on the surface, over the start of the ramp";
  EXPECT_NEAR(static_cast<double>(retour.Y), 3, 0.02);
  EXPECT_EQ(ligne.Z, -1);
  EXPECT_EQ(ligne.dY, rampe.dY);
  EXPECT_EQ(ligne.dZ, rampe.dZ) << "and the ramp sinks anew";
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(RepriseDeRampe, InsideASecondRampTheWayBackEndsAtTheDepthOfTheFirst) {
  ProfPasse = -0.5;  // 4 the first ramp, to (2, 8), 5 to 9 round, 10 the second, to (2, 13)
  ArreteDansLaLigne(10);
  const Deplacement rampe = TableReprise[1];
  ASSERT_LT(rampe.dZ, 0);
  Reprend("3");
  const auto ligne =
      std::find_if(envoyee_.begin(), envoyee_.end(), [](const Deplacement& d) { return d.dZ < 0 && d.dY > 0; });
  ASSERT_NE(ligne, envoyee_.end());
  ASSERT_NE(ligne, envoyee_.begin());
  EXPECT_NEAR(static_cast<double>((ligne - 1)->Z), -0.5, 1e-5);
  EXPECT_NEAR(static_cast<double>((ligne - 1)->Y), 8, 0.02);
  EXPECT_EQ(ligne->Z, -1);
  EXPECT_EQ(ligne->dZ, rampe.dZ);
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(RepriseDeRampe, BehindTheRampTheToolGoesBackToTheDepthOfThePass) {
  ArreteDansLaLigne(6);
  Reprend("3");
  ASSERT_GE(envoyee_.size(), 5U);
  const Deplacement& plonge = envoyee_[3];
  EXPECT_EQ(plonge.Z, -1) << "where the round has cut";
  EXPECT_NEAR(static_cast<double>(plonge.X), 12, 0.02);
  EXPECT_NEAR(static_cast<double>(plonge.Y), 13, 0.02);
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(RepriseDeRampe, ARampFollowsASlowerFeedOfTheRunAndNoFasterOne) {
  for (const auto& [vitesse, attendue] : {std::pair{1.5, 1.5F}, {6.0, 3.0F}}) {
    Vitesse_Mat_H = 3;
    float prise = 0;
    Vue_Decoupe.Accepte = [&, voulue = vitesse](std::int32_t ligne, float& v) {
      if (ligne == 3) Vitesse_Mat_H = voulue;
      if (ligne == 4) prise = v;
    };
    ASSERT_TRUE(Lance());
    EXPECT_EQ(prise, attendue);
  }
}

// --- the kernel

Deplacement Rang(float x, float y, float z, std::int32_t dx, std::int32_t dy, std::int32_t dz, float v) {
  Deplacement d;
  d.X = x;
  d.Y = y;
  d.Z = z;
  d.dX = dx;
  d.dY = dy;
  d.dZ = dz;
  d.Vitesse = v;
  return d;
}

TEST(AjouteReste, CopiesRowsWithTheNewSpeedWhereTheyDoNotMoveInZ) {
  EtatPlan plan;
  plan.TableDecoupe = {{}, Rang(0, 0, -1, 0, 0, 0, 0)};
  plan.NbDeplacements = 1;
  AjouteReste(plan, {{}, Rang(1, 0, -1, 100, 0, 0, 3), Rang(1, 0, 2, 0, 0, 300, 8), Rang(0, 0, 2, -100, 0, 0, 20)},
              5);
  ASSERT_EQ(plan.NbDeplacements, 4);
  EXPECT_EQ(plan.TableDecoupe[2].Vitesse, 5);
  EXPECT_EQ(plan.TableDecoupe[3].Vitesse, 8);
  EXPECT_EQ(plan.TableDecoupe[3].dZ, 300);
  EXPECT_EQ(plan.TableDecoupe[4].Vitesse, 5);
  EXPECT_EQ(plan.TableDecoupe[4].dX, -100);
}

TEST(AjouteReste, ARampTakesASlowerSpeedAndNoFasterOne) {
  for (const auto& [nouvelle, attendue] : {std::pair{1.5F, 1.5F}, {5.0F, 3.0F}}) {
    EtatPlan plan;
    plan.TableDecoupe = {{}, Rang(0, 0, -1, 0, 0, 0, 0)};
    plan.NbDeplacements = 1;
    AjouteReste(plan, {{}, Rang(1, 0, -1.5F, 100, 0, -50, 3)}, nouvelle);
    EXPECT_EQ(plan.TableDecoupe[2].Vitesse, attendue);
    EXPECT_EQ(plan.TableDecoupe[2].dZ, -50);
  }
}

TEST(ArriveeReprise, IsTheEndOfARowInZAloneAndTheLevelOfOneInThePlane) {
  const Deplacement plongee = Rang(1, 2, -2, 0, 0, -100, 2);
  EXPECT_EQ(ArriveeReprise(plongee, 0.01), plongee);
  const Deplacement coupe = Rang(1, 2, -2, 40, 0, 0, 3);
  EXPECT_EQ(ArriveeReprise(coupe, 0.01), coupe);
}

TEST(ArriveeReprise, IsTheBeginningOfARamp) {
  const Deplacement arrivee = ArriveeReprise(Rang(1, 2, -2, 40, 30, -50, 3), 0.01);
  EXPECT_FLOAT_EQ(arrivee.Z, -1.5F);
  EXPECT_EQ(arrivee.dZ, 0);
}

TEST(AjouteReste, ARowWhoseLevelIsReachedMovesNothingInZAndKeepsItsOwnSpeed) {
  EtatPlan plan;
  plan.TableDecoupe = {{}, Rang(0, 0, -1, 0, 0, 0, 0)};
  plan.NbDeplacements = 1;
  AjouteReste(plan, {{}, Rang(0, 0, -1, 0, 0, -100, 2), Rang(0, 0, 0, 0, 0, 100, 2)}, 5);
  EXPECT_EQ(plan.TableDecoupe[2].dZ, 0);
  EXPECT_EQ(plan.TableDecoupe[2].Vitesse, 2);
  EXPECT_EQ(plan.TableDecoupe[3].dZ, 100) << "the one behind it leaves that level";
}

// Steps that the millimetres alone would miss by one.
TEST(CaleApproche, EndsOnTheVeryStep) {
  EtatPlan plan;
  plan.TableDecoupe = {{},
                       Rang(5, 5, -1, 0, 0, 0, 0),
                       Rang(5, 5, 3, 0, 0, 400, 8),
                       Rang(2, 9, 3, -300, 400, 0, 20),
                       Rang(2, 9, 0, 0, 0, -300, 8),
                       Rang(2, 9, -1, 0, 0, -100, 2)};
  plan.NbDeplacements = 5;
  CaleApproche(plan, {500, 500, -100}, {201, 899, -101}, Rang(4, 9, -1, 200, 0, 0, 3));
  EXPECT_EQ(plan.TableDecoupe[3].dX, 201 - 500);
  EXPECT_EQ(plan.TableDecoupe[3].dY, 899 - 500);
  EXPECT_EQ(plan.TableDecoupe[2].dZ, 400);
  EXPECT_EQ(plan.TableDecoupe[4].dZ, -300);
  EXPECT_EQ(plan.TableDecoupe[5].dZ, -101) << "-100 + 400 - 300 - 101 = -101";
}

TEST(CaleApproche, WithoutARowInThePlaneTheDescentTakesTheDifferenceAlong) {
  EtatPlan plan;
  plan.TableDecoupe = {{}, Rang(2, 9, -1, 0, 0, 0, 0), Rang(2, 9, 3, 0, 0, 400, 8), Rang(2, 9, -1, 0, 0, -400, 2)};
  plan.NbDeplacements = 3;
  CaleApproche(plan, {200, 900, -100}, {201, 899, -100}, Rang(4, 9, -1, 200, 0, 0, 3));
  EXPECT_EQ(plan.TableDecoupe[3].dX, 1);
  EXPECT_EQ(plan.TableDecoupe[3].dY, -1);
  EXPECT_EQ(plan.TableDecoupe[3].dZ, -400);
}

}  // namespace
}  // namespace essai
