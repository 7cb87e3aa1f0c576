// Keys on the virtual board: how far each of them moves the machine, at what speed, and what is asked of the board.
#include <set>

#include "manual/Module_PilMan.h"
#include "tests/unit/manual/CarteMain.h"

namespace essai {
namespace {

using PilotageManuel = CarteMain;

struct CasTouche {
  int code;
  Axes3 pas;  // steps of 10 mm
};
class ChaqueTouche : public CarteMain, public testing::WithParamInterface<CasTouche> {};
INSTANTIATE_TEST_SUITE_P(Touches, ChaqueTouche,
                         testing::Values(CasTouche{103, {-1000, 500, 0}}, CasTouche{36, {-1000, 500, 0}},
                                         CasTouche{104, {0, 500, 0}}, CasTouche{38, {0, 500, 0}},
                                         CasTouche{105, {1000, 500, 0}}, CasTouche{100, {-1000, 0, 0}},
                                         CasTouche{37, {-1000, 0, 0}}, CasTouche{102, {1000, 0, 0}},
                                         CasTouche{39, {1000, 0, 0}}, CasTouche{97, {-1000, -500, 0}},
                                         CasTouche{35, {-1000, -500, 0}}, CasTouche{98, {0, -500, 0}},
                                         CasTouche{40, {0, -500, 0}}, CasTouche{99, {1000, -500, 0}},
                                         CasTouche{33, {0, 0, 2000}}, CasTouche{34, {0, 0, -2000}}),
                         [](const auto& cas) { return "Touche" + std::to_string(cas.param.code); });

TEST_P(ChaqueTouche, MovesTenMillimetresToTheStep) {
  Mode(touche::F6);
  EXPECT_EQ(Appuie(GetParam().code), EffetTouche::Mouvement);
  EXPECT_EQ(Lieu(), GetParam().pas);
  EXPECT_EQ(Compte(), GetParam().pas);
  EXPECT_EQ(carte_->Compteurs().etat, zenikcom::EtatCarte::Fini);
}

TEST_P(ChaqueTouche, InvertsYWhereTheMachineIsDrawnTheOtherWayRound) {
  EcritTable("CB_SAV_13=1\r\n");
  Mode(touche::F6);
  Appuie(GetParam().code);
  Axes3 inverse = GetParam().pas;
  inverse[1] = -inverse[1];
  EXPECT_EQ(Lieu(), inverse);
}

TEST_F(PilotageManuel, EachModeHasItsDistance) {
  Mode(touche::F7);
  Appuie(touche::Droite);
  EXPECT_EQ(Lieu(), (Axes3{100, 0, 0}));
  Mode(touche::F8);
  Appuie(touche::Droite);
  EXPECT_EQ(Lieu(), (Axes3{110, 0, 0}));
  PilMan.ValeurX = 2.5F;
  PilMan.ValeurY = -4;
  PilMan.ValeurZ = 100;
  EXPECT_EQ(Appuie(touche::V), EffetTouche::Valeurs);
  Appuie(touche::Pave(9));
  EXPECT_EQ(Lieu(), (Axes3{360, -200, 0}));
}

TEST_F(PilotageManuel, PageUpMovesZAloneWhateverTheOtherDistancesAre) {
  PilMan.ValeurX = PilMan.ValeurY = 30;
  PilMan.ValeurZ = 1;
  Mode(touche::V);
  Appuie(touche::PageHaut);
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 200}));
}

TEST_F(PilotageManuel, AKeyThatMovesNothingAsksTheBoardNothing) {
  Mode(touche::V);  // all distances 0
  const std::int64_t avant = carte_->Compteurs().echanges;
  for (int code = 0; code < 256; ++code) {
    if (code == touche::F5 || code == touche::F6 || code == touche::F7 || code == touche::F8) continue;
    Appuie(code);
    Form_KeyUp(code);
  }
  EXPECT_EQ(carte_->Compteurs().echanges, avant);
  EXPECT_FALSE(PilMan.JogActif);
}

TEST_F(PilotageManuel, AModeKeyAsksTheBoardNothingEither) {
  const std::int64_t avant = carte_->Compteurs().echanges;
  for (const int code : {touche::F5, touche::F6, touche::F7, touche::F8}) Mode(code);
  EXPECT_EQ(carte_->Compteurs().echanges, avant);
  EXPECT_EQ(PilMan.Pas, 4);
}

TEST_F(PilotageManuel, MinusStopsAtAHalf) {
  PilMan.Vitesse = 1;
  for (const float v : {0.5F, 0.5F}) {
    EXPECT_EQ(Appuie(touche::Moins), EffetTouche::Vitesse);
    EXPECT_EQ(PilMan.Vitesse, v);
  }
}

TEST_F(PilotageManuel, PlusStopsAtTheSlowerAxisOfThePlaneAndTimesGoesThere) {
  PilMan.Vitesse = 15;
  for (const float v : {15.5F, 16.0F, 16.0F}) {
    Appuie(touche::Plus);
    EXPECT_EQ(PilMan.Vitesse, v);
  }
  PilMan.Vitesse = 2;
  Appuie(touche::Multiplie);
  EXPECT_EQ(PilMan.Vitesse, 16);
}

TEST_F(PilotageManuel, WithoutSpeedsInTheTableTheyAreOne) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_0=1\r\n");
  OublieCles();
  Appuie(touche::Multiplie);
  EXPECT_EQ(PilMan.Vitesse, 1);
}

// Row 1 of the table, once it has run, is the move.
TEST_F(PilotageManuel, ModifiersOfTheKeyAndOfTheScreenChangeTheSpeed) {
  Mode(touche::F7);
  const auto vitesse = [](bool shift, bool ctrl) {
    Appuie(touche::Droite, shift, ctrl);
    return TableDecoupe[1].Vitesse;
  };
  EXPECT_FLOAT_EQ(vitesse(false, false), 4);
  EXPECT_FLOAT_EQ(vitesse(true, false), 0.2F);
  EXPECT_FLOAT_EQ(vitesse(false, true), 8);
  EXPECT_FLOAT_EQ(vitesse(true, true), 8) << "the fast one wins";
  Appuie(touche::Majuscule);
  EXPECT_FLOAT_EQ(vitesse(false, false), 0.2F);
  Form_KeyUp(touche::Majuscule);
  EXPECT_FLOAT_EQ(vitesse(false, false), 4);
  Appuie(touche::Controle);
  EXPECT_FLOAT_EQ(vitesse(false, false), 8);
  EXPECT_FLOAT_EQ(VitesseJog, 8);
}

TEST_F(PilotageManuel, TheLineOfTheSpeedFollowsTheModifiers) {
  PilMan.Vitesse = 10;
  EXPECT_EQ(AfficheVitesse().vitesse, "10.0 mm/s");
  EXPECT_FALSE(AfficheVitesse().modifiee);
  Appuie(touche::Majuscule);
  EXPECT_EQ(AfficheVitesse().vitesse, "0.5 mm/s");
  EXPECT_TRUE(AfficheVitesse().modifiee);
  Appuie(touche::Controle);
  EXPECT_EQ(AfficheVitesse().vitesse, "16.0 mm/s") << "not more than the slower axis can do";
}

TEST_F(PilotageManuel, NoSpeedNorModifierChangesInAJog) {
  Mode(touche::F5);
  Apres(0.1, [&] {
    EXPECT_TRUE(PilMan.JogActif);
    EXPECT_EQ(Appuie(touche::Plus), EffetTouche::Aucun);
    EXPECT_EQ(Appuie(touche::Moins), EffetTouche::Aucun);
    EXPECT_EQ(Appuie(touche::Majuscule), EffetTouche::Aucun);
    EXPECT_EQ(PilMan.Vitesse, 4);
    EXPECT_EQ(PilMan.Shift, Faux);
    Form_KeyUp(touche::Droite);
  });
  Appuie(touche::Droite);
  EXPECT_FALSE(PilMan.JogActif);
}

TEST_F(PilotageManuel, ASecondKeyInAJogMovesNothing) {
  Mode(touche::F6);
  Apres(0.2, [&] { EXPECT_EQ(Appuie(touche::Haut), EffetTouche::Aucun); });
  Appuie(touche::Droite);
  EXPECT_EQ(Lieu(), (Axes3{1000, 0, 0}));
}

TEST_F(PilotageManuel, MovesNothingWhileTheBoardWorksForSomebodyElse) {
  Mode(touche::F7);
  OperationCarte = true;
  const std::int64_t avant = carte_->Compteurs().echanges;
  EXPECT_EQ(Appuie(touche::Droite), EffetTouche::Aucun);
  OperationCarte = false;
  CdeZENIK->EnCours = Vrai;
  EXPECT_EQ(Appuie(touche::Droite), EffetTouche::Aucun);
  EXPECT_EQ(carte_->Compteurs().echanges, avant);
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 0}));
}

TEST_F(PilotageManuel, WithoutABoardKeysDoNothing) {
  carte_->Debranche(true);
  Mode(touche::F7);
  EXPECT_EQ(Appuie(touche::Droite), EffetTouche::Aucun);
  EXPECT_FALSE(TimerPosition().enButee);
  EXPECT_EQ(TimerPosition().lieu[0], "0.00");
}

TEST_F(PilotageManuel, AJogLeavesTheSpindleAlone) {
  ASSERT_EQ(Table.BrocheAuto, 1);
  Mode(touche::F6);
  bool tourne = false;
  aChaqueTour_ = [&] { tourne = tourne || carte_->Sorties().broche; };
  Appuie(touche::Droite);
  EXPECT_FALSE(tourne);
}

TEST_F(PilotageManuel, TheSpindlesWishIsEnforcedAtEachTick) {
  EXPECT_TRUE(BasculeBroche());
  EXPECT_FALSE(carte_->Sorties().broche) << "the click sends nothing";
  TimerPosition();
  EXPECT_TRUE(carte_->Sorties().broche);
  CdeZENIK->CommandePWM(0, 255);  // somebody else
  TimerPosition();
  EXPECT_TRUE(carte_->Sorties().broche);
  EXPECT_FALSE(BasculeBroche());
  TimerPosition();
  EXPECT_FALSE(carte_->Sorties().broche);
}

TEST_F(PilotageManuel, TheSpindlesWishWaitsWhileAJobHasTheBoard) {
  BasculeBroche();
  OperationCarte = true;
  const std::int64_t avant = carte_->Compteurs().echanges;
  TimerPosition();
  EXPECT_FALSE(carte_->Sorties().broche);
  EXPECT_EQ(carte_->Compteurs().echanges, avant) << "the reader of the job's replies keeps the display";
}

TEST_F(PilotageManuel, TheReaderOfRepliesShowsThePlaceInAMove) {
  Mode(touche::F6);
  Appuie(touche::Droite);  // 10 mm at 4 mm/s
  std::set<double> lieux;
  for (const auto& p : Vu().positions) lieux.insert(p[0]);
  EXPECT_GT(lieux.size(), 50U) << "twenty a second";
  EXPECT_DOUBLE_EQ(Vu().positions.back()[0], 10);
}

TEST_F(PilotageManuel, SwitchesAndTheToolZeroAreShown) {
  EXPECT_FALSE(TimerPosition().palpeur);
  EcritTable("CB_SAV_12=1\r\n");
  EXPECT_TRUE(TimerPosition().palpeur);
  carte_->Origine(true);
  EXPECT_TRUE(TimerPosition().enButee);
  carte_->Origine(false);
  EXPECT_FALSE(TimerPosition().enButee);
  carte_->FinDeCourse(true);
  EXPECT_TRUE(TimerPosition().enButee);
}

TEST_F(PilotageManuel, TheMotorsAreHeldForTheTimeOfTheTable) {
  EXPECT_EQ(TientMoteur(), 30'000);
  EXPECT_TRUE(carte_->Sorties().moteur);
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_30=-4\r\n");
  OublieCles();
  EXPECT_EQ(TientMoteur(), 0);
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_0=1\r\n");
  OublieCles();
  EXPECT_EQ(TientMoteur(), 30'000) << "where the table says nothing";
}

// --- the board's keypad

struct CasCarte {
  std::uint8_t touche;
  Axes3 pas;  // steps of 10 mm
};
class ChaqueToucheCarte : public CarteMain, public testing::WithParamInterface<CasCarte> {
 protected:
  // Held until the move has ended, then let go.
  void Tient(std::uint8_t touche) {
    carte_->Appuie(touche);
    TimerPosition();
    carte_->Appuie(0);
    TimerPosition();
  }
};
INSTANTIATE_TEST_SUITE_P(
    Carte, ChaqueToucheCarte,
    testing::Values(CasCarte{zenikcom::ToucheHautZ, {0, 0, 2000}}, CasCarte{zenikcom::ToucheBasZ, {0, 0, -2000}},
                    CasCarte{zenikcom::ToucheGauche, {-1000, 0, 0}}, CasCarte{zenikcom::ToucheBas, {0, -500, 0}},
                    CasCarte{zenikcom::ToucheHaut, {0, 500, 0}}, CasCarte{zenikcom::ToucheDroite, {1000, 0, 0}}),
    [](const auto& cas) { return "Touche" + std::to_string(cas.param.touche); });

TEST_P(ChaqueToucheCarte, MovesWithinOneTickOfTheTimer) {
  Mode(touche::F6);
  Tient(GetParam().touche);
  EXPECT_EQ(Lieu(), GetParam().pas);
  EXPECT_EQ(Compte(), GetParam().pas);
}

TEST_P(ChaqueToucheCarte, FollowsTheOrientationAsTheKeyboardDoes) {
  EcritTable("CB_SAV_13=1\r\n");
  Mode(touche::F6);
  Tient(GetParam().touche);
  Axes3 inverse = GetParam().pas;
  inverse[1] = -inverse[1];
  EXPECT_EQ(Lieu(), inverse);
}

TEST_P(ChaqueToucheCarte, BeginsGently) {
  Mode(touche::F6);
  PilMan.Vitesse = 5;
  Tient(GetParam().touche);
  // 0.5 mm at a twentieth, 2 mm at a fifth
  ASSERT_EQ(NbDeplacements, 3);
  EXPECT_FLOAT_EQ(TableDecoupe[1].Vitesse, 0.25F);
  EXPECT_FLOAT_EQ(TableDecoupe[2].Vitesse, 1);
  EXPECT_FLOAT_EQ(TableDecoupe[3].Vitesse, 5);
  EXPECT_EQ(std::abs(TableDecoupe[1].dX + TableDecoupe[1].dY + TableDecoupe[1].dZ) * 20,
            std::abs(GetParam().pas[0] + GetParam().pas[1] + GetParam().pas[2]));
}

TEST_F(PilotageManuel, TheFirstKeyOfTheKeypadCountsAndTheOthersWait) {
  Mode(touche::F7);
  carte_->Appuie(zenikcom::ToucheDroite | zenikcom::ToucheHautZ);
  TimerPosition();
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 200}));
  carte_->Appuie(zenikcom::ToucheDroite);
  TimerPosition();
  EXPECT_EQ(Lieu(), (Axes3{100, 0, 200}));
}

TEST_F(PilotageManuel, AKeyOfTheKeypadHeldMovesOneStepAlone) {
  Mode(touche::F7);
  carte_->Appuie(zenikcom::ToucheDroite);
  for (int i = 0; i < 4; ++i) TimerPosition();
  EXPECT_EQ(Lieu(), (Axes3{100, 0, 0}));
  carte_->Appuie(0);
  TimerPosition();
  carte_->Appuie(zenikcom::ToucheDroite);
  TimerPosition();
  EXPECT_EQ(Lieu(), (Axes3{200, 0, 0}));
}

TEST_F(PilotageManuel, LettingAKeyOfTheKeypadGoEndsAContinuousJog) {
  Mode(touche::F5);
  Apres(1, [&] { carte_->Appuie(0); });
  carte_->Appuie(zenikcom::ToucheGauche);
  TimerPosition();
  EXPECT_GT(stop_, instant_);
  EXPECT_LE(stop_ - instant_, 0.1);
  EXPECT_LT(heure_ - stop_, DureeRampe + Regard);
  EXPECT_LT(Lieu()[0], 0);
  EXPECT_EQ(Lieu(), Compte());
}

TEST_F(PilotageManuel, WithoutTheKeypadOfTheTableItsKeysDoNothing) {
  EcritTable("CB_SAV_17=0\r\n");
  Mode(touche::F7);
  carte_->Appuie(zenikcom::ToucheDroite);
  TimerPosition();
  EXPECT_EQ(Lieu(), (Axes3{0, 0, 0}));
}

TEST_F(PilotageManuel, AKeyOfTheKeyboardHasNoGentleStart) {
  Mode(touche::F6);
  Appuie(touche::Droite);
  EXPECT_EQ(NbDeplacements, 1);
}

}  // namespace
}  // namespace essai
