// Whatever ends a continuous jog: how soon, how far it runs out, and what is left. The clock is the test's.
#include <array>

#include "controller/Module_ZENIK.h"
#include "tests/unit/manual/CarteMain.h"

namespace essai {
namespace {

constexpr double DelaiArret = 0.1;  // s from the event to the stop that the board gets

class ArretJog : public CarteMain {
 protected:
  // Runs a continuous jog along X at `vitesse` mm/s, at which `quoi` happens after a second.
  void Jogue(double vitesse, std::function<void()> quoi) {
    Mode(touche::F5);
    PilMan.Vitesse = static_cast<float>(vitesse);
    Apres(1, [this, quoi] {
      debut_ = Lieu();
      quoi();
    });
    ASSERT_EQ(Appuie(touche::Droite), EffetTouche::Mouvement);
    ASSERT_GT(instant_, 0) << "nothing has happened";
    duree_ = heure_ - instant_;
    sortie_ = static_cast<double>(Lieu()[0] - debut_[0]) / 100;
  }
  // Stopped by the ramp, in time, and counted to the step.
  void AttendRampe(double vitesse) {
    EXPECT_LE(stop_ - instant_, DelaiArret);
    EXPECT_GE(stop_, instant_);
    EXPECT_LT(heure_ - stop_, DureeRampe + Regard);
    EXPECT_GT(heure_ - stop_, DureeRampe * 0.9) << "at once";
    EXPECT_LT(static_cast<double>(Lieu()[0] - lieuStop_[0]) / 100, (vitesse + 4) / 2 * DureeRampe);
    EXPECT_EQ(Lieu(), Compte());
    EXPECT_FALSE(PilMan.JogActif);
    EXPECT_EQ(carte_->Compteurs().etat, zenikcom::EtatCarte::Arretee);
  }

  Axes3 debut_{};
  double duree_ = 0, sortie_ = 0;  // s and mm from the event to the stand-still
};

TEST_F(ArretJog, ALetGoKeyStopsByTheRamp) {
  Jogue(20, [] { Form_KeyUp(touche::Droite); });
  AttendRampe(20);
}

TEST_F(ArretJog, AnotherKeyLetGoStopsToo) {
  Jogue(20, [] { Form_KeyUp(touche::Haut); });
  AttendRampe(20);
}

TEST_F(ArretJog, TheWindowsReasonsStopByTheRamp) {
  Jogue(20, [] { ArreteJog(); });
  AttendRampe(20);
}

TEST_F(ArretJog, EscapeStopsAtOnce) {
  Jogue(20, [] { Form_KeyDown(touche::Echap, false, false); });
  EXPECT_LT(duree_, 0.02);
  EXPECT_LT(sortie_, 20 * 0.02);
  EXPECT_EQ(Lieu(), Compte());
}

TEST_F(ArretJog, TheStopLabelStopsAtOnce) {
  Jogue(20, [] { ArreteAussitot(); });
  EXPECT_LT(duree_, 0.02);
  EXPECT_EQ(Lieu(), lieuStop_) << "no step behind the stop";
}

TEST_F(ArretJog, AModifierLetGoStopsNothing) {
  bool dedans = false;
  Jogue(4, [&] {
    Form_KeyUp(touche::Majuscule);
    Form_KeyUp(touche::Controle);
    dedans = PilMan.JogActif && StopDemande == Faux;
    Form_KeyUp(touche::Droite);
  });
  EXPECT_TRUE(dedans);
}

TEST_F(ArretJog, AnotherModeChosenInAJogLeavesItContinuous) {
  Jogue(20, [] {
    Form_KeyDown(touche::F6, false, false);
    Form_KeyUp(touche::Droite);
  });
  AttendRampe(20);
}

TEST_F(ArretJog, ASilentLinkStopsAfterATenthOfASecondTwiceOver) {
  Mode(touche::F5);
  PilMan.Vitesse = 20;
  double muette = 0, vu = 0;
  aChaqueTour_ = [&] {
    SurveilleLiaison();
    if (muette == 0 && carte_->Compteurs().ticks > 60'000) {
      muette = heure_;
      carte_->Debranche(true);
    }
    if (muette > 0 && vu == 0 && StopDemande != Faux) {
      vu = heure_;
      carte_->Debranche(false);  // and is there again
    }
  };
  Appuie(touche::Droite);
  EXPECT_NEAR(vu - muette, 0.2, 0.01);
  EXPECT_LE(stop_ - vu, DelaiArret);
  EXPECT_LT(heure_ - stop_, DureeRampe + Regard);
  EXPECT_EQ(Lieu(), Compte());
}

TEST_F(ArretJog, ALinkThatAnswersAgainInTimeStopsNothing) {
  Mode(touche::F6);
  int fois = 0;
  aChaqueTour_ = [&] {
    SurveilleLiaison();
    const std::int64_t ticks = carte_->Compteurs().ticks;
    carte_->Debranche(ticks > 30'000 && ticks < 35'000);  // 83 ms at 60 kHz
    fois += CdeZENIK->Silence() > 0.05 ? 1 : 0;
  };
  Appuie(touche::Droite);
  EXPECT_GT(fois, 0);
  EXPECT_EQ(Lieu(), (Axes3{1000, 0, 0}));
}

TEST_F(ArretJog, UnpluggedForGoodIsToldAndTheProgramGoesOn) {
  Mode(touche::F5);
  Attend("F_Fraisage", "Run_liaison");
  aChaqueTour_ = [&] {
    SurveilleLiaison();
    if (carte_->Compteurs().ticks > 60'000) carte_->Debranche(true);
  };
  Appuie(touche::Droite);
  EXPECT_FALSE(PilMan.JogActif || RunActif || OperationCarte);
  aChaqueTour_ = {};
  carte_->Debranche(false);
  heure_ += 10'000;  // the board has done what it had
  Mode(touche::F7);
  const Axes3 avant = Lieu();
  EXPECT_EQ(Appuie(touche::Haut), EffetTouche::Mouvement);
  EXPECT_EQ(Lieu()[1] - avant[1], 50);
}

TEST_F(ArretJog, AReleaseEndsNoStepButEscapeDoes) {
  Mode(touche::F6);
  Apres(0.5, [] { Form_KeyUp(touche::Droite); });
  Appuie(touche::Droite);
  EXPECT_EQ(Lieu(), (Axes3{1000, 0, 0}));
  Apres(0.5, [] { Form_KeyDown(touche::Echap, false, false); });
  Appuie(touche::Droite);
  EXPECT_LT(Lieu()[0], 1900);
  EXPECT_EQ(Lieu(), Compte());
}

TEST_F(ArretJog, TheNextKeyMovesAgain) {
  Jogue(4, [] { ArreteAussitot(); });
  aChaqueTour_ = {};
  Mode(touche::F7);
  const Axes3 avant = Lieu();
  Appuie(touche::Gauche);
  EXPECT_EQ(Lieu()[0], avant[0] - 100);
}

// The key is let go while the box about the board's table stands.
TEST_F(ArretJog, AJogThatIsEndedBeforeItBeginsMovesNothing) {
  Mode(touche::F7);
  Appuie(touche::Droite);  // the table stands on the board
  EcrireCleSection("table_Essai", "TB_SAV_31", "70");
  OublieCles();
  const Axes3 avant = Lieu();
  const auto montre = Svc.Montre;
  int boites = 0;
  Svc.Montre = [&](const BoiteMessage&) {
    ++boites;
    ArreteJog();
    EXPECT_EQ(Appuie(touche::Haut), EffetTouche::Aucun) << "nor does another key begin one meanwhile";
    return Reponse::Non;
  };
  EXPECT_EQ(Appuie(touche::Droite), EffetTouche::Aucun);
  Svc.Montre = montre;
  EXPECT_EQ(boites, 1);
  EXPECT_EQ(Lieu(), avant);
}

TEST_F(ArretJog, NoStepIsLostByAReleaseAtFullSpeed) {
  carte_->Modele(MachineJog());
  Jogue(20, [] { Form_KeyUp(touche::Droite); });
  AttendRampe(20);
  EXPECT_EQ(carte_->Compteurs().pasPerdus, (Axes3{0, 0, 0}));
  EXPECT_EQ(Lieu(), Compte());
}

TEST_F(ArretJog, TheModelWouldTell) {
  carte_->Modele({zenikcom::ModeleAxe{.vitesseLibre = 100, .rampe = 50, .jeu = 0}, {}, {}});
  Jogue(20, [] { Form_KeyUp(touche::Droite); });
  EXPECT_GT(carte_->Compteurs().pasPerdus[0], 0);
}

TEST_F(ArretJog, NoStepIsLostFromTheKeypadEither) {
  carte_->Modele(MachineJog());
  Mode(touche::F5);
  PilMan.Vitesse = 20;
  for (const std::uint8_t t : {zenikcom::ToucheDroite, zenikcom::ToucheHaut, zenikcom::ToucheBasZ}) {
    Apres(6, [&] { carte_->Appuie(0); });
    carte_->Appuie(t);
    TimerPosition();
    TimerPosition();
  }
  EXPECT_EQ(carte_->Compteurs().pasPerdus, (Axes3{0, 0, 0}));
  EXPECT_EQ(Lieu(), Compte());
  EXPECT_GT(Lieu()[1], 500);
}

}  // namespace
}  // namespace essai
