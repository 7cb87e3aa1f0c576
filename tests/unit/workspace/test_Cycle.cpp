// Start of the program: the order of the steps, and what each refusal leaves.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/Document.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "tests/places/Lieux.h"
#include "tests/support/Support.h"
#include "workspace/FinCycle.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Demarrage.h"

namespace {

using namespace ovelin;
using Pas = std::vector<std::string>;

// A start whose outside writes down what it is asked for. The temporary folder is the test's own.
struct Demarrage {
  Pas pas;
  OptionsDemarrage options;
  CrochetsDemarrage crochets;

  Demarrage() {
    options.config = essai::Dossier() + "/config";
    options.dossierExecutable = essai::Dossier();
    options.locale = "fr_FR.UTF-8";
    const std::string temp = DossierTemp;
    auto note = [this](const std::string& texte) { pas.push_back(texte); };
    crochets.AutreCopie = [=] { return note("copy"), false; };
    crochets.MarqueDecimale = [=] { return note("mark"), ','; };
    crochets.CompteurPrecis = [=] { return note("clock"), true; };
    crochets.Associe = [=](const Association& a) { note("associate " + a.extension); };
    crochets.VersionPathwerk = [=] { return note("library"), 62; };
    crochets.DossierTemporaire = [=] { return note("temp"), true; };
    crochets.Connecte = [=] { return note("network"), true; };
    crochets.DemandeMiseAJour = [=](const std::string& adresse) { note("request " + adresse); };
    crochets.CreeCarte = [=] { note("board"); };
    crochets.CartePresente = [=] { return note("present"), true; };
    crochets.ResetBuffer = [=] { note("reset"); };
    crochets.Touche = [=] { return note("key"), false; };
    crochets.TableVerif = [=] { note("table"); };
    crochets.MontreFenetre = [=] { note("window"); };
  }
  ResultatDemarrage Lance() { return DemarreCycle(options, crochets); }
};

// Settings file of the start above, so that nothing is asked for a default one.
void EcritIni(const std::string& lignes) {
  std::filesystem::create_directories(essai::Dossier() + "/config");
  essai::EcritFichierEssai("config/OVELIN.ini", "[OVELIN]\r\n" + lignes);
}

TEST(Demarrage, TheStepsComeInTheirOrder) {
  EcritIni("AdresseMaj=https://example.org/\r\n[table_KR4400]\r\nCB_SAV_17=1\r\n");
  Demarrage d;
  EXPECT_TRUE(d.Lance().lance);
  Pas attendu = {"copy",    "mark",    "clock",   "associate .ovl",
                 "library", "temp",    "network", "request https://example.org/Kolvane/files/OVELIN/ver.txt",
                 "board",   "present", "reset"};
  attendu.insert(attendu.end(), 10, "key");
  attendu.insert(attendu.end(), {"table", "window"});
  EXPECT_EQ(d.pas, attendu);
}

TEST(Demarrage, AFolderNamedFromHereIsAFullPathInTheSettingsOfAFirstStart) {
  const std::filesystem::path avant = std::filesystem::current_path();
  std::filesystem::current_path(essai::Dossier());
  Demarrage d;
  d.options.config = "neuf";
  essai::Attend("erreurs", "401");
  EXPECT_TRUE(d.Lance().lance);
  std::filesystem::current_path(avant);
  EXPECT_EQ(DossierProgramme, std::filesystem::canonical(essai::Dossier()).string() + "/neuf");
  EXPECT_EQ(LireCle("MRUFiles2", ""), DossierProgramme + "\\Carre.dxf");
}

TEST(Demarrage, SetsTheValuesThatTheWindowsRead) {
  EcritIni("");
  Cycle.OuvertureDehors = Cycle.AfficheOutil = Cycle.AfficheOutil2 = OperationCarte = true;
  Cycle.Outil = {3, 4};
  Demarrage d;
  d.Lance();
  EXPECT_EQ(Cycle.NomSysteme, "Unix");
  EXPECT_EQ(Svc.MarqueDecimale, ',');
  EXPECT_EQ(Cycle.Outil, (MemoireOutil{-999, -999}));
  EXPECT_FALSE(Cycle.OuvertureDehors || Cycle.AfficheOutil || Cycle.AfficheOutil2 || OperationCarte);
}

TEST(Demarrage, ASecondCopyIsToldAndNothingElseHappens) {
  Demarrage d;
  d.crochets.AutreCopie = [] { return true; };
  Svc.MarqueDecimale = '.';
  const std::string instantane = essai::EcritFichierEssai("temp/00001.OVL", "x");
  essai::Attend("erreurs", "31");
  EXPECT_FALSE(d.Lance().lance);
  EXPECT_TRUE(d.pas.empty());
  EXPECT_EQ(essai::Boites()[0].titre, "Erreur");
  EXPECT_EQ(essai::Boites()[0].icone, Icone::Exclamation);
  EXPECT_TRUE(FichierExiste(instantane));
  EXPECT_FALSE(FichierExiste(CheminIni()));
  EXPECT_EQ(Svc.MarqueDecimale, '.');
}

TEST(Demarrage, EachFailedCheckIsToldAndTheStartGoesOn) {
  EcritIni("");
  Demarrage d;
  d.crochets.CompteurPrecis = [] { return false; };
  d.crochets.VersionPathwerk = [] { return 61; };
  d.crochets.DossierTemporaire = [] { return false; };
  essai::Attend("erreurs", "lib306");
  essai::Attend("erreurs", "lib001");
  essai::AttendTexte("Temp Path Error");
  EXPECT_TRUE(d.Lance().lance);
  EXPECT_EQ(DossierTemp, "");
  EXPECT_EQ(essai::Boites()[0].icone, Icone::Information);
  EXPECT_EQ(essai::Boites()[1].icone, Icone::Information);
  EXPECT_EQ(essai::Boites()[1].titre, "OVELIN");
  EXPECT_EQ(d.pas.back(), "window");
}

TEST(Demarrage, AFirstRunKeepsTheBuiltInDefaultsInMemory) {
  Demarrage d;
  essai::Attend("erreurs", "401", Reponse::Ok);
  EXPECT_EQ(d.Lance().raison, "");
  EXPECT_TRUE(FichierExiste(CheminIni()));
  EXPECT_EQ(LireCleIni("TableDefaut", ""), "OVELIN");
  EXPECT_EQ(TableDefaut, "KR4400");
  EXPECT_EQ(Regl.Langue, "fr");  // of the system: the file has no such key
  EXPECT_FALSE(Regl.DebugZENIK);
  EXPECT_EQ(LireCleIni("DB1", "none"), "none");  // the presets come with the load of the window
  ChargeTableEtFiches();
  EXPECT_EQ(TableDefaut, "OVELIN");
  EXPECT_EQ(LitFiches().size(), 5U);
}

TEST(Demarrage, TheDefaultFileIsWrittenBehindTheSnapshotsAndBeforeTheUpdate) {
  Demarrage d;
  d.crochets.AutreCopie = [] {
    EXPECT_FALSE(FichierExiste(CheminIni()));
    return false;
  };
  d.crochets.DossierTemporaire = [] {
    EXPECT_FALSE(FichierExiste(CheminIni()));
    return true;
  };
  d.crochets.CreeCarte = [] { EXPECT_TRUE(FichierExiste(CheminIni())); };
  essai::Attend("erreurs", "401", Reponse::Ok);
  d.Lance();
}

TEST(Demarrage, ADefaultFileThatCantBeWrittenGivesTheReason) {
  Demarrage d;
  // A file where the folder should be: refused to everybody, also to the superuser.
  essai::EcritFichierEssai("config", "");
  essai::Attend("erreurs", "401", Reponse::Ok);
  const ResultatDemarrage r = d.Lance();
  EXPECT_TRUE(r.lance);
  EXPECT_NE(r.raison, "");
}

TEST(Demarrage, WhatACrashLeftOfUndoIsRemovedHiddenOnesToo) {
  EcritIni("");
  essai::EcritFichierEssai("temp/00001.OVL", "x");
  essai::EcritFichierEssai("temp/.00002.OVL", "x");
  Demarrage d;
  d.Lance();
  EXPECT_TRUE(ListeFichiers(DossierTemp, "OVL").empty());
}

TEST(Demarrage, SettingsAreReadInTheirGroups) {
  EcritIni(
      "Language=de\r\nTableDefaut=Mini\r\nDebugZENIK=Vrai\r\nRayonFraise=1,25\r\nPCPoche=40\r\nHautDeg=7\r\n"
      "CouleurInitial=255\r\n[table_Mini]\r\nTB_SAV_18=321\r\n");
  Demarrage d;
  d.Lance();
  EXPECT_EQ(Regl.Langue, "de");
  EXPECT_EQ(TableDefaut, "Mini");
  EXPECT_TRUE(Regl.DebugZENIK);
  EXPECT_EQ(Regl.RayonFraise, 1.25);
  EXPECT_EQ(Regl.PCPoche, 40);
  EXPECT_EQ(Regl.HautDeg, 7.0F);
  EXPECT_EQ(Regl.CouleurInitial, 255);
  EXPECT_EQ(CourseX, 321.0F);
  ASSERT_NE(Crochets.ChargeTable, nullptr);
  ASSERT_NE(Crochets.ChercheMateriau, nullptr);
}

TEST(Demarrage, ALanguageAndATableOfTheCallStandBeforeTheKeys) {
  EcritIni("Language=de\r\nTableDefaut=Mini\r\n");
  Demarrage d;
  d.options.langue = "it";
  d.options.table = "Autre";
  d.Lance();
  EXPECT_EQ(Regl.Langue, "it");
  EXPECT_EQ(TableDefaut, "Autre");
}

TEST(Demarrage, TheAssociationNamesTheProgramAndItsFiles) {
  EcritIni("");
  std::filesystem::copy_file(essai::DossierSource() + "/translations/OVELINfr.trad",
                             essai::Dossier() + "/config/OVELINfr.trad");
  Demarrage d;
  Association vue;
  d.crochets.Associe = [&vue](const Association& a) { vue = a; };
  d.Lance();
  EXPECT_EQ(vue, (Association{"OVELIN", ".ovl", Traduire("erreurs", "310"), "OVELIN-2.ico"}));
}

TEST(Demarrage, WithoutAnAddressOrAConnectionNoRequestIsMade) {
  EcritIni("");
  Demarrage sansAdresse;
  sansAdresse.Lance();
  EXPECT_EQ(std::count(sansAdresse.pas.begin(), sansAdresse.pas.end(), "network"), 0);
  EcritIni("AdresseMaj=https://example.org\r\n");
  OublieCles();
  Demarrage sansReseau;
  sansReseau.crochets.Connecte = [] { return false; };
  sansReseau.crochets.DemandeMiseAJour = [](const std::string&) { ADD_FAILURE() << "requested"; };
  sansReseau.Lance();
}

TEST(Demarrage, AHeldKeyIsAskedAboutAndYesTurnsTheKeypadOff) {
  EcritIni("[table_KR4400]\r\nCB_SAV_17=1\r\n");
  Demarrage d;
  int n = 0;
  d.crochets.Touche = [&n] { return ++n == 3; };  // the others are asked all the same
  essai::Attend("erreurs", "410", Reponse::Oui);
  d.Lance();
  EXPECT_EQ(n, 10);
  EXPECT_EQ(ClavierZENIK, 0);
  EXPECT_EQ(LireCleSection("table_KR4400", "CB_SAV_17", ""), "0");
  EXPECT_EQ(essai::Boites()[0].boutons, Boutons::OuiNon);
  EXPECT_EQ(essai::Boites()[0].icone, Icone::Question);
}

TEST(Demarrage, NoLeavesTheKeypadOn) {
  EcritIni("[table_KR4400]\r\nCB_SAV_17=1\r\n");
  Demarrage d;
  d.crochets.Touche = [] { return true; };
  essai::Attend("erreurs", "410", Reponse::Non);
  d.Lance();
  EXPECT_EQ(ClavierZENIK, 1);
  EXPECT_EQ(LireCleSection("table_KR4400", "CB_SAV_17", ""), "1");
}

TEST(Demarrage, AKeypadThatIsNotUsedIsNotAsked) {
  EcritIni("[table_KR4400]\r\nCB_SAV_17=0\r\n");
  Demarrage d;
  d.crochets.Touche = [] {
    ADD_FAILURE() << "asked";
    return true;
  };
  d.Lance();
}

TEST(Demarrage, WithoutABoardTheTableIsCheckedAllTheSame) {
  EcritIni("");
  Demarrage d;
  d.crochets.CartePresente = [] { return false; };
  d.Lance();
  EXPECT_EQ(std::count(d.pas.begin(), d.pas.end(), "reset"), 0);
  EXPECT_EQ(std::count(d.pas.begin(), d.pas.end(), "key"), 0);
  EXPECT_EQ(std::count(d.pas.begin(), d.pas.end(), "table"), 1);
}

TEST(Demarrage, NothingOutsideIsNeeded) {
  EcritIni("AdresseMaj=https://example.org\r\n");
  Demarrage d;
  d.crochets = CrochetsDemarrage{};
  EXPECT_TRUE(d.Lance().lance);
  EXPECT_FALSE(DossierTemp.empty());
  OteDossierTemp();
  LibereCopie();
}

TEST(VerrouilleCopie, AnotherProcessFindsTheFolderTakenUntilItIsFree) {
  const auto autre = [] {
    const pid_t enfant = fork();
    if (enfant == 0) {
      LibereCopie();  // a process of its own has not inherited the lock: its file is opened anew
      _exit(VerrouilleCopie() ? 1 : 0);
    }
    int etat = 0;
    waitpid(enfant, &etat, 0);
    return WEXITSTATUS(etat) == 1;
  };
  EXPECT_FALSE(VerrouilleCopie());
  EXPECT_FALSE(VerrouilleCopie());  // one's own lock is no other copy
  EXPECT_TRUE(autre());
  LibereCopie();
  EXPECT_FALSE(autre());
}

TEST(VerrouilleCopie, AFolderThatCantHoldALockKeepsNobodyOut) {
  DossierProgramme = essai::Dossier() + "/absent";
  EXPECT_FALSE(VerrouilleCopie());
}

TEST(MiseAJour, AnyHigherFieldOffersTheUpdateEachByItself) {
  EXPECT_FALSE(MiseAJourOfferte("4.10.0 OVELIN"));
  EXPECT_TRUE(MiseAJourOfferte("5.0.0 OVELIN"));
  EXPECT_TRUE(MiseAJourOfferte("4.11.0 OVELIN"));
  EXPECT_TRUE(MiseAJourOfferte("3.99.0 OVELIN"));  // older by any other count
  EXPECT_TRUE(MiseAJourOfferte("1.0.1 OVELIN"));
  EXPECT_FALSE(MiseAJourOfferte("3.9.0 OVELIN"));
  EXPECT_FALSE(MiseAJourOfferte("4.10 OVELIN"));
  EXPECT_TRUE(MiseAJourOfferte("5 OVELIN"));
  EXPECT_FALSE(MiseAJourOfferte("4.10.0.7 OVELIN"));
}

TEST(MiseAJour, AnswersOfAnotherKindOfferNothing) {
  EXPECT_FALSE(MiseAJourOfferte(""));
  EXPECT_FALSE(MiseAJourOfferte("9.9.9"));
  EXPECT_FALSE(MiseAJourOfferte("9.9.9 OVELIN not found"));
  EXPECT_FALSE(MiseAJourOfferte("OVELIN"));
}

TEST(MiseAJour, YesOpensTheProjectsPage) {
  EcrireCle("AdresseMaj", "https://example.org/");
  std::string ouverte;
  const auto ouvre = [&ouverte](const std::string& adresse) { ouverte = adresse; };
  TraiteMiseAJour("4.10.0 OVELIN", ouvre);
  essai::Attend("erreurs", "Lib091", Reponse::Non);
  TraiteMiseAJour("4.10.1 OVELIN", ouvre);
  EXPECT_EQ(ouverte, "");
  essai::Attend("erreurs", "Lib091", Reponse::Oui);
  TraiteMiseAJour("4.10.1 OVELIN", ouvre);
  EXPECT_EQ(ouverte, "https://example.org");
}

TEST(ChargeTableEtFiches, TheFirstRunHasTheSpeedsOfEveryLaterOne) {
  Demarrage d;
  essai::Attend("erreurs", "401", Reponse::Ok);
  d.Lance();
  EXPECT_EQ(VitesseMaxX, 5);  // of a table that isn't there
  ChargeTableEtFiches();
  EXPECT_EQ(VitesseMaxX, 15);  // TB_SAV_15 of the delivered table
  EXPECT_EQ(VitesseMaxY, 15);
  EXPECT_EQ(VitesseMaxZ, 15);
  EXPECT_EQ(CourseX, 1000);
}

TEST(ChargeTableEtFiches, TheBoardsRecordsStandOnTheSameTable) {
  Demarrage d;
  essai::Attend("erreurs", "401", Reponse::Ok);
  d.Lance();
  EXPECT_DOUBLE_EQ(CdeZENIK->MmParPasX(), 1.0 / 400);  // of a table that isn't there
  ChargeTableEtFiches();
  EXPECT_DOUBLE_EQ(CdeZENIK->MmParPasX(), 1.0 / 200);  // 100 steps halved, 1 mm a turn
  EXPECT_EQ(CdeZENIK->Parametres().Multiplicateur, 6);
}

TEST(ChargeTableEtFiches, ReadsTheTableItsFlagAndKeepsRecordsThatAreThere) {
  EcrireCle("TableDefaut", "Mini");
  EcrireCleSection("table_Mini", "CB_SAV_13", "1");
  EcrireCle("DB1", "Bois\t1\tx\t-1\t-1\t2\t2\t0\t0");
  ChargeTableEtFiches();
  EXPECT_EQ(TableDefaut, "Mini");
  EXPECT_TRUE(Cycle.OutilFiche);
  EXPECT_EQ(LitFiches().size(), 1U);
}

TEST(LitPlacement, DefaultsWithoutAnyKey) {
  EXPECT_EQ(LitPlacement("F_Representation", 20000, 15000), (Placement{0, 0, 1000, 800, false}));
}

TEST(LitPlacement, APlaceBeyondTheScreenIsDrawnBackToItsEdge) {
  EcrireCle("F_Representation_Left", "19000");
  EcrireCle("F_Representation_Top", "14900");
  EcrireCle("F_Representation_Width", "5000");
  EcrireCle("F_Representation_Height", "4000");
  EXPECT_EQ(LitPlacement("F_Representation", 20000, 15000), (Placement{15000, 11000, 5000, 4000, false}));
}

TEST(LitPlacement, AWindowWiderThanTheScreenBeginsAtItsEdgeAndAScreenToTheLeftIsKept) {
  EcrireCle("F_Representation_Left", "100");
  EcrireCle("F_Representation_Top", "-500");
  EcrireCle("F_Representation_Width", "30000");
  const Placement p = LitPlacement("F_Representation", 20000, 15000);
  EXPECT_EQ(p.gauche, 0);
  EXPECT_EQ(p.haut, -500);
}

TEST(LitPlacement, TheKeyOfAMaximisedWindowIsFoundInEitherLetterCase) {
  EcrireCle("F_Representation_Max", "-1");
  EXPECT_TRUE(LitPlacement("F_Representation", 20000, 15000).maximisee);
  EcrireCle("F_Representation_Max", "0");
  EXPECT_FALSE(LitPlacement("F_Representation", 20000, 15000).maximisee);
}

TEST(LitPlacement, ValuesThatNoScreenHasDoNotOverflow) {
  EcrireCle("F_Representation_Left", "-99999999999");
  EcrireCle("F_Representation_Width", "1e300");
  EcrireCle("F_Representation_Height", "-5");
  const Placement p = LitPlacement("F_Representation", 20000, 15000);
  EXPECT_GT(p.largeur, 0);
  EXPECT_EQ(p.hauteur, 1);
  EXPECT_LT(p.gauche, 0);
}

TEST(Demarre, TheFirstStartWritesTheDefaultSettingsAndThePresets) {
  const std::string config = essai::Dossier() + "/config";
  std::filesystem::create_directories(config);
  essai::Attend("erreurs", "401", Reponse::Ok);
  OptionsDemarrage options;
  options.dossierExecutable = essai::Dossier();
  options.config = config;
  options.locale = "de_DE.UTF-8";
  ASSERT_EQ(DemarreProgramme(options), "");
  EXPECT_EQ(TableDefaut, "OVELIN");
  EXPECT_EQ(Regl.Langue, "de");
  EXPECT_EQ(LitFiches().size(), 5U);
  EXPECT_EQ(LireCleSection("table_OVELIN", "COMBO_SAV_0", ""), "0");
  // The second start asks nothing and reads the same.
  ASSERT_EQ(DemarreProgramme(options), "");
  EXPECT_EQ(TableDefaut, "OVELIN");
}

TEST(Demarre, AFolderThatCantBeWrittenGoesOnWithTheBuiltInValues) {
  const std::string config = essai::EcritFichierEssai("fichier", "no folder") + "/dossier";
  essai::Attend("erreurs", "401", Reponse::Ok);
  OptionsDemarrage options;
  options.dossierExecutable = essai::Dossier();
  options.config = config;
  const std::string raison = DemarreProgramme(options);
  EXPECT_NE(raison.find("OVELIN.ini"), std::string::npos);
  EXPECT_EQ(RayonFraise, 3);
  EXPECT_EQ(TableDefaut, "KR4400");
}

TEST(Demarre, OptionsStandBeforeTheKeysAndANewFolderIsMade) {
  const std::string config = essai::Dossier() + "/un/nouveau";
  essai::Attend("erreurs", "401", Reponse::Ok);
  OptionsDemarrage options;
  options.dossierExecutable = essai::Dossier();
  options.config = config;
  options.langue = "it";
  options.table = "Autre";
  ASSERT_EQ(DemarreProgramme(options), "");
  EXPECT_EQ(Regl.Langue, "it");
  EXPECT_EQ(TableDefaut, "Autre");
}

}  // namespace
