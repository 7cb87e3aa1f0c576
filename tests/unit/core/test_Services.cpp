#include <gtest/gtest-spi.h>

#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

DialogueFichier Dialogue(const char* cle) {
  DialogueFichier d;
  d.cle = cle;
  return d;
}

TEST(Message, ShowsTheTextOfItsKey) {
  essai::EcritFichierEssai("OVELINfr.trad", "[erreurs]\n31=Deux fois\n");
  OublieTraductions();
  essai::Attend("erreurs", "31", Reponse::Oui);
  EXPECT_EQ(Message(Textes::DejaOuvert, Icone::Exclamation, Boutons::OuiNon, "Erreur"), Reponse::Oui);
  ASSERT_EQ(essai::Boites().size(), 1U);
  const BoiteMessage& boite = essai::Boites()[0];
  EXPECT_EQ(boite.texte, "Deux fois");
  EXPECT_EQ(boite.titre, "Erreur");
  EXPECT_EQ(boite.icone, Icone::Exclamation);
  EXPECT_EQ(boite.boutons, Boutons::OuiNon);
}

TEST(Message, BearsTheProgramsNameByDefault) {
  essai::Attend("erreurs", "31");
  Message(Textes::DejaOuvert, Icone::Information);
  EXPECT_EQ(essai::Boites()[0].titre, "OVELIN");
  EXPECT_EQ(essai::Boites()[0].boutons, Boutons::Ok);
}

TEST(Script, FailsATestWithABoxThatItDoesNotHold) {
  EXPECT_NONFATAL_FAILURE(Message(Textes::DejaOuvert, Icone::Information), "erreurs/31");
  essai::Attend("erreurs", "32");
  EXPECT_NONFATAL_FAILURE(Message(Textes::DejaOuvert, Icone::Information), "erreurs/31");
  EXPECT_NONFATAL_FAILURE(Svc.ChoisitFichier(Dialogue("mnu_Save")), "mnu_Save");
  EXPECT_NONFATAL_FAILURE(Svc.Saisit(Textes::NomNouvelleTable, "", ""), "lib007");
}

TEST(Script, AnswersDialogsInTheirOrder) {
  essai::AttendFichier("mnu_Save", "/x/a.OVL");
  essai::AttendSaisie("lib007", "Neuve");
  EXPECT_EQ(Svc.ChoisitFichier(Dialogue("mnu_Save")), "/x/a.OVL");
  EXPECT_EQ(Svc.Saisit(Textes::NomNouvelleTable, "", ""), "Neuve");
}

TEST(Script, FailsATestWithAWindowOrAnOpeningThatItDoesNotHold) {
  EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Svc.OuvreFenetre("F_ChangtTable"), std::nullopt), "window F_ChangtTable");
  EXPECT_NONFATAL_FAILURE(EXPECT_NE(Svc.OuvreParBureau("/x/aide.pdf"), IssueBureau::Ouvert), "/x/aide.pdf");
}

TEST(Script, AnswersWindowsAndOpeningsInTheirOrder) {
  essai::AttendFenetre("F_ChangtTable", 2);
  essai::AttendFenetre("F_ChangtTable", std::nullopt);
  essai::AttendBureau("/x/aide.pdf", IssueBureau::SansDroit);
  EXPECT_EQ(Svc.OuvreFenetre("F_ChangtTable"), 2);
  EXPECT_EQ(Svc.OuvreFenetre("F_ChangtTable"), std::nullopt);
  EXPECT_EQ(Svc.OuvreParBureau("/x/aide.pdf"), IssueBureau::SansDroit);
}

TEST(Script, KeepsWhatWindowsAreToldOfAMachineThatMoves) {
  Svc.RetientVeille(true);
  Svc.MontreStop(true);
  Svc.MontreRun(true);
  Svc.MarquePosition(1.5, 2);
  Svc.MontrePosition(1.5, 2, -3);
  Svc.LigneRun(0, 0, 1.5F, 2);
  Svc.Pilotage(DemandePilotage::Reduit);
  EXPECT_EQ(essai::Vu().veilles, std::vector<bool>{true});
  EXPECT_EQ(essai::Vu().stops, std::vector<bool>{true});
  EXPECT_EQ(essai::Vu().runs, std::vector<bool>{true});
  EXPECT_THAT(essai::Vu().marques, testing::ElementsAre(std::array<double, 2>{1.5, 2}));
  EXPECT_THAT(essai::Vu().positions, testing::ElementsAre(std::array<double, 3>{1.5, 2, -3}));
  EXPECT_THAT(essai::Vu().lignes, testing::ElementsAre(std::array<float, 4>{0, 0, 1.5F, 2}));
  EXPECT_THAT(essai::Vu().pilotage, testing::ElementsAre(DemandePilotage::Reduit));
  Svc.EffaceLigneRun();
  EXPECT_TRUE(essai::Vu().lignes.empty());
}

TEST(EtatRun, IsNewAgainInEachTest) {
  for (int tour = 0; tour < 2; ++tour) {
    EXPECT_EQ(Marche, EtatRun{});
    StopDemande = Pause = FraisageEnCours = ArretRampe = SansSuivi = ClavierActif = EcranVeilleActif = Vrai;
    ModeEnvoiTable = 2;
    ListeFlash = {0, 128};
    TableReprise.resize(2);
    IndexSuivi = NbBlocsTotal = 7;
    VitesseJog = 4;
    RunActif = OperationCarte = true;
    EXPECT_NE(Marche, EtatRun{});
    RemetTout();
  }
}

TEST(ServicesMuets, EndsTheProgramAtABoxThatNobodyAnswers) {
  const Services muets = ServicesMuets();
  BoiteMessage boite;
  boite.section = "erreurs";
  boite.cle = "31";
  EXPECT_DEATH(muets.Montre(boite), "erreurs 31");
  EXPECT_DEATH(muets.ChoisitFichier(Dialogue("mnu_Ouvrir")), "mnu_Ouvrir");
  EXPECT_DEATH(muets.Saisit(Textes::NomNouvelleTable, "", ""), "lib007");
  EXPECT_DEATH(muets.OuvreFenetre("F_ChangtTable"), "F_ChangtTable");
  EXPECT_DEATH(muets.OuvreParBureau("/x/aide.pdf"), "/x/aide.pdf");
}

TEST(ServicesMuets, LetsEverythingElsePass) {
  const Services muets = ServicesMuets();
  DemandeDimension d;
  muets.Dimensionne(d);
  EXPECT_EQ(d.rapportX, 1);
  muets.AvancementDebut("", 1);
  muets.AvancementPlus();
  muets.AvancementFin();
  muets.Panneau(PanneauEtat::Fichier, "");
  muets.Rafraichit();
  muets.DessinOuvert(true);
  muets.TitreDessin("");
  muets.FichierRecent("");
  muets.RetientVeille(true);
  muets.MarquePosition(0, 0);
  muets.MontrePosition(0, 0, 0);
  muets.LigneRun(0, 0, 0, 0);
  muets.EffaceLigneRun();
  muets.MontreStop(true);
  muets.MontreRun(true);
  muets.Pilotage(DemandePilotage::Reduit);
  muets.LaisseEvenements(Evenements::Tous);
  muets.Bip();
  const double avant = muets.Horloge();
  muets.Attend(0.001);
  EXPECT_GE(muets.Horloge(), avant + 0.001);
  EXPECT_EQ(muets.MarqueDecimale, '.');
}

TEST(Verifie, StopsTheMachineBeforeItEndsTheProgram) {
  ArretFatal = [] { std::fprintf(stderr, "machine stopped\n"); };
  EXPECT_DEATH(VERIFIE(1 + 1 == 3), "1 \\+ 1 == 3\nmachine stopped");
  ArretFatal = nullptr;
  EXPECT_DEATH(VERIFIE(false), "false");
  VERIFIE(true);
}

TEST(RemetTout, MakesEveryGlobalNew) {
  TraceInitial = essai::Trace("AB", {{1, 2}});
  NbPoints = 1;
  SeqCourante = Code2("AB");
  RayonFraise = 9;
  NbDeplacements = 5;
  Svc.MarqueDecimale = ',';
  RemetTout();
  EXPECT_TRUE(TraceInitial.empty());
  EXPECT_EQ(NbPoints, 0);
  EXPECT_EQ(SeqCourante, CodeAucun);
  ASSERT_EQ(Sequences.size(), 1U);
  EXPECT_EQ(Sequences[0], SequenceInfo{});
  EXPECT_EQ(RayonFraise, 3);
  EXPECT_EQ(NbDeplacements, 0);
  EXPECT_EQ(Svc.MarqueDecimale, '.');
}

}  // namespace
