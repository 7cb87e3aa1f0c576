#include <filesystem>

#include "controller/ChoixCarte.h"
#include "core/DocumentCourant.h"
#include "core/Projet.h"
#include "manual/Module_Origine.h"
#include "manual/Module_PlaceMan.h"
#include "tests/unit/manual/CarteMain.h"

namespace essai {
namespace {

class PlaceMan : public CarteMain {
 protected:
  static std::string Ini(const std::string& cle) { return LireCleIni("F_PilMan" + cle, "-"); }
  // The program has ended, cleanly or not, and is started again with this board.
  void Redemarre() {
    PilMan = EtatPilMan{};
    OublieCles();
    Branche();
    LitPilMan();
  }
};

TEST_F(PlaceMan, BeginsWithItsDefaults) {
  LitPilMan();
  EXPECT_EQ(PilMan.Vitesse, 4);
  EXPECT_EQ(PilMan.Pas, 1);
  EXPECT_EQ(PilMan.DistX, 1);
  EXPECT_EQ(PilMan.ValeurZ, 0);
  EXPECT_EQ(Compte(), (Axes3{0, 0, 0}));
  EXPECT_FALSE(PilMan.placeDouteuse);
}

TEST_F(PlaceMan, WhatIsKeptComesBack) {
  LitPilMan();
  PilMan.Vitesse = 7.5F;
  PilMan.ValeurX = 1.5F;
  PilMan.ValeurY = -2;
  PilMan.ValeurZ = 3;
  Mode(touche::V);
  Appuie(touche::Pave(9));
  FermePilMan();
  Redemarre();
  EXPECT_EQ(PilMan.Vitesse, 7.5F);
  EXPECT_EQ(PilMan.Pas, 0);
  EXPECT_EQ(PilMan.ValeurX, 1.5F);
  EXPECT_EQ(PilMan.ValeurY, -2);
  EXPECT_EQ(PilMan.DistX, 1.5);
  EXPECT_EQ(Compte(), (Axes3{150, -100, 0}));
  EXPECT_EQ(CdeZENIK->PasDebutX, 150);
  EXPECT_DOUBLE_EQ(CdeZENIK->PosX, 1.5);
  EXPECT_DOUBLE_EQ(CdeZENIK->PosY, -2);
  EXPECT_FALSE(PilMan.placeDouteuse);
}

TEST_F(PlaceMan, HoldsStepsAndMillimetresOfTheSameMoment) {
  LitPilMan();
  Mode(touche::F7);
  Appuie(touche::Droite);
  Appuie(touche::PageBas);
  EXPECT_EQ(Ini("_posX"), "100");
  EXPECT_EQ(Ini("_posReelX"), "1");
  EXPECT_EQ(Ini("_posZ"), "-200");
  EXPECT_EQ(Ini("_posReelZ"), "-1");
}

TEST_F(PlaceMan, TheStepsCount) {
  EcritTable("", "F_PilMan_posX=250\r\nF_PilMan_posReelX=99\r\n");
  LitPilMan();
  EXPECT_EQ(CdeZENIK->PasX, 250);
  EXPECT_DOUBLE_EQ(CdeZENIK->PosX, 2.5);
}

TEST_F(PlaceMan, ValuesThatAreNoneFallBack) {
  EcritTable("", "F_PilMan_Vitesse=-3\r\nF_PilMan_Pas=9\r\nF_PilMan_posX=1e99\r\nF_PilMan_ValeurX=oui\r\n");
  LitPilMan();
  EXPECT_EQ(PilMan.Vitesse, 4);
  EXPECT_EQ(PilMan.Pas, 1);
  EXPECT_EQ(PilMan.ValeurX, 0);
}

TEST_F(PlaceMan, IsWrittenBehindEveryJobWhoeverHasStartedIt) {
  LitPilMan();
  Svc.Pilotage(DemandePilotage::SeTait);
  CdeZENIK->FixePosition(3, 2, 1);
  Svc.Pilotage(DemandePilotage::Interroge);
  EXPECT_EQ(Ini("_posX"), "300");
  EXPECT_EQ(Ini("_posY"), "100");
  EXPECT_EQ(Ini("_posZ"), "200");
}

TEST_F(PlaceMan, NeverGoesToAProjectNorComesFromOne) {
  FichierProjet = EcritFichierEssai("projet.OVL", "F_PilMan_posX=7700\r\nF_PilMan_Vitesse=9\r\n");
  OublieCles();
  const std::string avant = LitFichierEssai(FichierProjet);
  LitPilMan();
  EXPECT_EQ(PilMan.Vitesse, 4);
  EXPECT_EQ(CdeZENIK->PasX, 0);
  Mode(touche::F7);
  Appuie(touche::Droite);
  FermePilMan();
  EXPECT_EQ(LitFichierEssai(FichierProjet), avant);
  EXPECT_EQ(Ini("_posX"), "100");
}

TEST_F(PlaceMan, IsTakenOverOnceInASession) {
  EcritTable("", "F_PilMan_posX=250\r\n");
  LitPilMan();
  CdeZENIK->FixePosition(9, 9, 9);  // the drawing's origin has moved
  LitPilMan();
  EXPECT_EQ(CdeZENIK->PasX, 900) << "the window has only been opened again";
}

// A job that was stopped is resumed by its counters: a window opened in between must not put others in their place.
TEST_F(PlaceMan, OfAJobThatRanBeforeTheWindowIsNotReplacedByThatOfAnEarlierSession) {
  EcritTable("", "F_PilMan_posX=250\r\n");
  Svc.Pilotage(DemandePilotage::SeTait);
  CdeZENIK->FixePosition(3, 2, 1);
  Svc.Pilotage(DemandePilotage::Interroge);
  EXPECT_EQ(Ini("_posX"), "300") << "kept for the next session";
  EXPECT_EQ(Ini("_Course"), "0");
  LitPilMan();
  EXPECT_EQ(Compte(), (Axes3{300, 100, 200}));
}

TEST_F(PlaceMan, OfAnOriginSetBeforeTheWindowIsNotReplacedEither) {
  EcritTable("", "F_PilMan_posX=250\r\n");
  CdeZENIK->FixePosition(-4, 0, 0);
  EcritPlace();
  LitPilMan();
  EXPECT_EQ(CdeZENIK->PasX, -400);
}

TEST_F(PlaceMan, OfAnotherBoardIsDoubtful) {
  LitPilMan();
  ++LaCarte.rang;
  EXPECT_TRUE(SuitCarte());
  EXPECT_TRUE(PilMan.placeDouteuse);
  EXPECT_FALSE(SuitCarte()) << "told once";
  ConfirmePlace();
  ++LaCarte.rang;
  FermePilMan();
  EXPECT_EQ(Ini("_Course"), "-1") << "and at the next start, when nobody has looked";
}

TEST_F(PlaceMan, AnEndThatWasNotCleanIsNoticedBehindAJobToo) {
  LitPilMan();
  PilMan = EtatPilMan{};
  OublieCles();
  Branche();
  Svc.Pilotage(DemandePilotage::SeTait);
  Svc.Pilotage(DemandePilotage::Interroge);
  EXPECT_EQ(Ini("_Course"), "-1");
  LitPilMan();
  EXPECT_TRUE(PilMan.placeDouteuse);
}

TEST_F(PlaceMan, AnEndThatWasNotCleanIsNoticed) {
  LitPilMan();
  Redemarre();
  EXPECT_TRUE(PilMan.placeDouteuse);
  FermePilMan();
  Redemarre();
  EXPECT_TRUE(PilMan.placeDouteuse) << "until the user has looked";
  ConfirmePlace();
  FermePilMan();
  Redemarre();
  EXPECT_FALSE(PilMan.placeDouteuse);
}

TEST_F(PlaceMan, AnEndInAJobOfAnotherWindowIsNoticedToo) {
  LitPilMan();
  FermePilMan();  // manual control is closed
  Svc.Pilotage(DemandePilotage::SeTait);
  Redemarre();
  EXPECT_TRUE(PilMan.placeDouteuse);
}

TEST_F(PlaceMan, AJobOfAnotherWindowThatHasEndedLeavesNoDoubt) {
  LitPilMan();
  FermePilMan();
  Svc.Pilotage(DemandePilotage::SeTait);
  Svc.Pilotage(DemandePilotage::Interroge);
  Redemarre();
  EXPECT_FALSE(PilMan.placeDouteuse);
}

TEST_F(PlaceMan, AWindowThatIsClosedInAJobLeavesTheMarkToItsEnd) {
  LitPilMan();
  Mode(touche::F5);
  std::string pendant;
  Apres(0.5, [&] {
    ArreteJog();
    FermePilMan();
    pendant = Ini("_Course");
  });
  Appuie(touche::Droite);
  EXPECT_EQ(pendant, "-1");
  EXPECT_EQ(Ini("_Course"), "0");
  EXPECT_EQ(Ini("_posX"), std::to_string(Lieu()[0]));
}

TEST_F(PlaceMan, ALostLinkLeavesADoubtfulPlace) {
  LitPilMan();
  Mode(touche::F5);
  Attend("F_Fraisage", "Run_liaison");
  Apres(0.5, [&] { carte_->Debranche(true); });
  Appuie(touche::Droite);
  EXPECT_TRUE(PilMan.placeDouteuse);
  FixeOrigine({true, true, false});
  EXPECT_TRUE(PilMan.placeDouteuse);
  FixeOrigine({true, true, true});
  EXPECT_FALSE(PilMan.placeDouteuse) << "the place is zero now";
}

TEST_F(PlaceMan, AnOriginIsKeptAtOnce) {
  LitPilMan();
  Mode(touche::F7);
  Appuie(touche::Droite);
  FixeOrigine({.X = true, .Y = false, .Z = false});
  EXPECT_EQ(Ini("_posX"), "0");
}

// A file written without a machine counts in steps of 1 mm meanwhile.
TEST_F(PlaceMan, IsThatOfTheMachineWhileAPlanForAFileCountsOtherwise) {
  LitPilMan();
  Mode(touche::F7);
  Appuie(touche::Droite);
  CdeZENIK->FixeResolutions(1, 1, 1);
  FermePilMan();
  EXPECT_EQ(Ini("_posX"), "100");
}

TEST_F(PlaceMan, SettingsThatCannotBeWrittenStopNothing) {
  LitPilMan();
  std::filesystem::remove(Dossier() + "/OVELIN.ini");
  std::filesystem::create_directory(Dossier() + "/OVELIN.ini");
  Magasin.DerniereErreur.clear();
  Mode(touche::F7);
  EXPECT_EQ(Appuie(touche::Droite), EffetTouche::Mouvement);
  FermePilMan();
  EXPECT_NE(Magasin.DerniereErreur, "") << "which the program tells";
  EXPECT_EQ(Compte()[0], Lieu()[0]);
}

TEST_F(PlaceMan, TheCornerOfTheWindowIsKept) {
  int gauche = 0, haut = 0;
  EXPECT_FALSE(LitCoin(gauche, haut));
  EcritCoin(1500, -30);
  ASSERT_TRUE(LitCoin(gauche, haut));
  EXPECT_EQ(gauche, 1500);
  EXPECT_EQ(haut, -30);
}

}  // namespace
}  // namespace essai
