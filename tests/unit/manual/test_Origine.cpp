#include "manual/Module_Origine.h"
#include "tests/unit/manual/CarteMain.h"

namespace essai {
namespace {

// The machine stands at (10, 4, -1) mm.
class Origines : public CarteMain {
 protected:
  Origines() {
    HautDeg = 3;
    PilMan.ValeurX = 10;
    PilMan.ValeurY = 4;
    PilMan.ValeurZ = 1;
    Mode(touche::V);
    Appuie(touche::Pave(9));
    Appuie(touche::PageBas);
    EXPECT_EQ(Lieu(), (Axes3{1000, 200, -200}));
  }
  // Highest and lowest Z, mm, and whether X or Y moved below clearance.
  void Surveille() {
    aChaqueTour_ = [this, avant = Lieu()]() mutable {
      const Axes3 ici = Lieu();
      haut_ = std::max(haut_, ici[2]);
      bas_ = std::min(bas_, ici[2]);
      if (ici[2] < 600 && (ici[0] != avant[0] || ici[1] != avant[1])) rase_ = true;
      avant = ici;
      tourne_ = tourne_ || carte_->Sorties().broche;
    };
  }
  std::int64_t haut_ = -100'000, bas_ = 100'000;
  bool rase_ = false, tourne_ = false;
};

TEST_F(Origines, AreSetOnTheCheckedAxesAlone) {
  FixeOrigine({.X = true, .Y = false, .Z = false});
  EXPECT_EQ(Compte(), (Axes3{0, 200, -200}));
  EXPECT_EQ(CdeZENIK->PasDebutX, 0);
  EXPECT_EQ(CdeZENIK->PosX, 0);
  EXPECT_DOUBLE_EQ(CdeZENIK->PosY, 4);
  EXPECT_EQ(Lieu(), (Axes3{1000, 200, -200})) << "nothing moves";
  EXPECT_EQ(Vu().marques.back(), (std::array<double, 2>{0, 4}));
}

TEST_F(Origines, TheBoardIsNotTold) {
  const std::int64_t avant = carte_->Compteurs().echanges;
  FixeOrigine({true, true, true});
  EXPECT_EQ(Compte(), (Axes3{0, 0, 0}));
  EXPECT_EQ(carte_->Compteurs().echanges, avant);
}

TEST_F(Origines, AreNotSetWhileTheMachineMoves) {
  OperationCarte = true;
  FixeOrigine({true, true, true});
  EXPECT_EQ(Compte(), (Axes3{1000, 200, -200}));
  EXPECT_EQ(Bips(), 1);
}

TEST_F(Origines, AllAxesGoBackToZero) {
  Surveille();
  EXPECT_TRUE(RetourOrigine({true, true, true}, false));
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 0}));
  EXPECT_EQ(Compte(), (Axes3{0, 0, 0}));
  EXPECT_NEAR(static_cast<double>(haut_), 600, 2) << "3 mm, as often as it is looked at";
  EXPECT_FALSE(rase_);
}

TEST_F(Origines, NoAxisCheckedGoesUpAndBack) {
  Surveille();
  EXPECT_TRUE(RetourOrigine({}, false));
  EXPECT_EQ(Lieu(), (Axes3{1000, 200, -200}));
  EXPECT_NEAR(static_cast<double>(haut_), 600, 2);
}

TEST_F(Origines, ZAloneGoesUpAndDownToZero) {
  Surveille();
  EXPECT_TRUE(RetourOrigine({.X = false, .Y = false, .Z = true}, false));
  EXPECT_EQ(Lieu(), (Axes3{1000, 200, 0}));
  EXPECT_NEAR(static_cast<double>(haut_), 600, 2);
}

TEST_F(Origines, YAloneLeavesXAndComesBackToItsHeight) {
  EXPECT_TRUE(RetourOrigine({.X = false, .Y = true, .Z = false}, false));
  EXPECT_EQ(Lieu(), (Axes3{1000, 0, -200}));
}

TEST_F(Origines, FromAboveClearanceTheToolComesDownToIt) {
  PilMan.ValeurZ = 6;
  Appuie(touche::PageHaut);
  ASSERT_EQ(Lieu()[2], 1000);
  EXPECT_TRUE(RetourOrigine({.X = true, .Y = false, .Z = false}, false));
  EXPECT_EQ(Lieu(), (Axes3{0, 200, 1000}));
}

// Row 2 of the table, once it has run, is the move in the plane.
TEST_F(Origines, TheSpeedIsThatOfTheJogOrOfTheTable) {
  PilMan.Vitesse = 2.5F;
  RetourOrigine({.X = true, .Y = false, .Z = false}, false);
  EXPECT_FLOAT_EQ(TableDecoupe[2].Vitesse, 2.5F);
  EXPECT_FLOAT_EQ(VitesseJog, 2.5F);
  Appuie(touche::Pave(9));
  RetourOrigine({.X = true, .Y = false, .Z = false}, true);
  EXPECT_FLOAT_EQ(TableDecoupe[2].Vitesse, 16) << "the slower of 20 and 16";
}

TEST_F(Origines, NeverSwitchTheSpindle) {
  ASSERT_EQ(Table.BrocheAuto, 0) << "the jog has cleared it";
  ChargeGlobalesTable();
  ASSERT_EQ(Table.BrocheAuto, 1);
  Surveille();
  RetourOrigine({true, true, true}, false);
  ChargeGlobalesTable();
  VaAuPoint(5, 5);
  EXPECT_FALSE(tourne_);
}

TEST_F(Origines, EscapeStopsTheReturnAtOnceAndTheCountsHold) {
  Apres(0.5, [] { ArreteAussitot(); });
  RetourOrigine({true, true, true}, false);
  EXPECT_NE(Lieu(), (Axes3{0, 0, 0}));
  EXPECT_EQ(Lieu(), Compte());
  EXPECT_FALSE(PilMan.JogActif);
}

TEST_F(Origines, WhatEndsAJogEndsNoReturn) {
  Apres(0.5, [] {
    ArreteJog();
    Form_KeyUp(touche::Droite);
  });
  RetourOrigine({true, true, true}, false);
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 0}));
}

TEST_F(Origines, WithoutABoardNothingMovesAndNothingIsSaid) {
  carte_->Debranche(true);
  EXPECT_FALSE(RetourOrigine({true, true, true}, false));
  EXPECT_TRUE(Boites().empty());
}

TEST_F(Origines, APointIsReachedOverClearance) {
  Surveille();
  EXPECT_TRUE(VaAuPoint(25.5, -8));
  EXPECT_EQ(Lieu(), (Axes3{2550, -400, 600}));
  EXPECT_FALSE(rase_);
  EXPECT_EQ(Vu().positions.back(), (std::array<double, 3>{25.5, -8, 3})) << "the place is shown";
  EXPECT_EQ(Vu().marques.back(), (std::array<double, 2>{25.5, -8}));
}

TEST_F(Origines, APointWithoutABoardIsToldAndWithABusyOneBeeps) {
  OperationCarte = true;
  EXPECT_FALSE(VaAuPoint(1, 1));
  EXPECT_EQ(Bips(), 1);
  OperationCarte = false;
  carte_->Debranche(true);
  Attend("erreurs", "91");
  EXPECT_FALSE(VaAuPoint(1, 1));
}

}  // namespace
}  // namespace essai
