// The command line, and the end of the program: what is asked, what is written, in which order.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "tests/support/Support.h"
#include "workspace/FinCycle.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Recents.h"

namespace {

using namespace ovelin;
using Pas = std::vector<std::string>;

std::string EcritProjetEssai(const std::string& nom) {
  essai::AjouteCarre(" A", 0, 0, 10);
  const std::string chemin = essai::Dossier() + "/" + nom;
  EXPECT_EQ(EcrireProjet(chemin), "");
  Doc = Document{};
  return chemin;
}
const std::string CarreDxf =
    "0\r\nSECTION\r\n2\r\nENTITIES\r\n0\r\nLWPOLYLINE\r\n8\r\n0\r\n90\r\n4\r\n70\r\n1\r\n10\r\n0\r\n20\r\n0\r\n"
    "10\r\n40\r\n20\r\n0\r\n10\r\n40\r\n20\r\n40\r\n10\r\n0\r\n20\r\n40\r\n0\r\nENDSEC\r\n0\r\nEOF\r\n";

TEST(LigneCommande, NoneGivesNothing) {
  EXPECT_EQ(OuvreLigneCommande(""), SuiteCommande::Aucune);
  EXPECT_EQ(OuvreLigneCommande(" \"\" "), SuiteCommande::Aucune);
  EXPECT_FALSE(FinChargement(SuiteCommande::Aucune));
}

TEST(LigneCommande, AProjectOpensWithItsQuotesStripped) {
  const std::string chemin = EcritProjetEssai("mon projet.ovl");
  EXPECT_EQ(OuvreLigneCommande("\"" + chemin + "\""), SuiteCommande::Ouverte);
  EXPECT_EQ(FichierProjet, chemin);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(TraceInitial.size(), 5U);
  EXPECT_FALSE(Cycle.OuvertureDehors);
  EXPECT_FALSE(FinChargement(SuiteCommande::Ouverte));
}

TEST(LigneCommande, TheFlagOfAnOpeningFromOutsideStandsMeanwhile) {
  const std::string chemin = EcritProjetEssai("p.OVL");
  bool pendant = false;
  Svc.DessinOuvert = [&pendant](bool) { pendant = pendant || Cycle.OuvertureDehors; };
  OuvreLigneCommande(chemin);
  EXPECT_TRUE(pendant);
}

TEST(LigneCommande, OtherExtensionsAreRefusedEvenThoseOfTheDialog) {
  for (const char* nom : {"/a.eps", "/a.prn", "/a.hpgl", "/a.drd", "/a.txt", "/a", "/dir.dxf/a"}) {
    essai::AttendTexte("Extension fichier inconnue");
    const SuiteCommande suite = OuvreLigneCommande(nom);
    EXPECT_EQ(suite, SuiteCommande::ExtensionInconnue) << nom;
    EXPECT_TRUE(FinChargement(suite));
  }
  EXPECT_EQ(FichierCourant, "");
  EXPECT_EQ(Modifie, Faux);
}

TEST(LigneCommande, AProjectMustBeginWithItsMark) {
  const std::string chemin = essai::EcritFichierEssai("faux.OVL", "0              0\r\n$$x=1\r\n");
  essai::AttendTexte("Fichier OVL corrompu");
  const SuiteCommande suite = OuvreLigneCommande(chemin);
  EXPECT_EQ(suite, SuiteCommande::OvlCorrompu);
  EXPECT_TRUE(FinChargement(suite));
  EXPECT_EQ(FichierProjet, "");
  essai::AttendTexte("Fichier OVL corrompu");
  EXPECT_EQ(OuvreLigneCommande("/absent.ovl"), SuiteCommande::OvlCorrompu);
}

TEST(LigneCommande, ADrawingThatIsGoneIsToldAndChangesNothing) {
  essai::Attend("F_Representation", "lib340");
  EXPECT_EQ(OuvreLigneCommande("/absent.dxf"), SuiteCommande::Refusee);
  EXPECT_EQ(FichierProjet, "");
  EXPECT_EQ(Modifie, Faux);
}

TEST(LigneCommande, NothingIsEverWrittenIntoADrawingThatIsNoProject) {
  const std::string chemin = essai::EcritFichierEssai("piece.dxf", CarreDxf);
  EXPECT_EQ(OuvreLigneCommande(chemin), SuiteCommande::Ouverte);
  EXPECT_EQ(FichierProjet, chemin);
  EXPECT_EQ(Modifie, Vrai);
  EcrireCle("RayonFraise", "2");
  EcritOutil();
  PrendInstantane();
  essai::Attend("F_Representation", "lib004", Reponse::Non);
  EXPECT_TRUE(DemandeFermeture({}, "OVELIN"));
  DechargeFenetre({}, "");
  EXPECT_EQ(essai::LitFichierEssai(chemin), CarreDxf);
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "3");
}

TEST(LigneCommande, LineFeedsAloneAreMadeUniform) {
  std::string lf = CarreDxf;
  std::erase(lf, '\r');
  const std::string chemin = essai::EcritFichierEssai("piece.DXF", lf);
  EXPECT_EQ(OuvreLigneCommande(chemin), SuiteCommande::Ouverte);
  EXPECT_EQ(essai::LitFichierEssai(chemin), CarreDxf);
}

TEST(DemandeFermeture, WithoutAProjectTheParametersAreWrittenAndNothingIsAsked) {
  Modifie = Vrai;
  Regl.RayonFraise = 1.75;
  Regl.HautDeg = 12;
  Regl.PCPoche = 33;
  Regl.CouleurNumero = 5;
  Pas pas;
  Svc.AvancementDebut = [&pas](const std::string&, long) { pas.emplace_back("frame"); };
  Svc.AvancementFin = [&pas] { pas.emplace_back("end"); };
  CrochetsFermeture c;
  c.FermeFenetres = [&pas] { return pas.emplace_back("windows"), true; };
  c.Sauve = [] { ADD_FAILURE() << "saved"; };
  EXPECT_TRUE(DemandeFermeture(c, "OVELIN"));
  EXPECT_EQ(pas, (Pas{"windows", "frame", "end"}));
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "1.75");
  EXPECT_EQ(LireCleIni("HautDeg", ""), "12");
  EXPECT_EQ(LireCleIni("PCPoche", ""), "33");
  EXPECT_EQ(LireCleIni("CouleurNumero", ""), "5");
}

TEST(DemandeFermeture, WithAProjectTheParametersArentWritten) {
  FichierProjet = "/p.OVL";
  EXPECT_TRUE(DemandeFermeture({}, "OVELIN"));  // not modified: nothing asked
  EXPECT_FALSE(FichierExiste(CheminIni()));
}

TEST(DemandeFermeture, AModifiedProjectIsAskedAboutUnderTheWindowsTitle) {
  FichierProjet = "/p.OVL";
  Modifie = Vrai;
  CrochetsFermeture c;
  int sauvegardes = 0;
  c.Sauve = [&sauvegardes] { ++sauvegardes, Modifie = Faux; };
  essai::Attend("F_Representation", "lib004", Reponse::Annuler);
  EXPECT_FALSE(DemandeFermeture(c, "OVELIN <-> p.OVL"));
  EXPECT_EQ(essai::Boites()[0].titre, "OVELIN <-> p.OVL");
  EXPECT_EQ(essai::Boites()[0].icone, Icone::Question);
  EXPECT_EQ(essai::Boites()[0].boutons, Boutons::OuiNonAnnuler);
  essai::Attend("F_Representation", "lib004", Reponse::Non);
  EXPECT_TRUE(DemandeFermeture(c, ""));
  EXPECT_EQ(sauvegardes, 0);
  essai::Attend("F_Representation", "lib004", Reponse::Oui);
  EXPECT_TRUE(DemandeFermeture(c, ""));
  EXPECT_EQ(sauvegardes, 1);
}

TEST(DemandeFermeture, AWantedSaveThatDidNotHappenStopsTheEnd) {
  FichierProjet = "/p.OVL";
  Modifie = Vrai;
  CrochetsFermeture c;
  c.Sauve = [] {};
  essai::Attend("F_Representation", "lib004", Reponse::Oui);
  EXPECT_FALSE(DemandeFermeture(c, ""));
}

TEST(DemandeFermeture, AWindowThatMustStayStopsTheEndBeforeAnyQuestion) {
  CrochetsFermeture c;
  c.FermeFenetres = [] { return false; };
  EXPECT_FALSE(DemandeFermeture(c, ""));
  EXPECT_FALSE(FichierExiste(CheminIni()));
}

EtatFenetre Fenetre() {
  EtatFenetre f;
  f.place = {10, 20, 3000, 2000, false};
  f.indexBD = 3;
  return f;
}

TEST(DechargeFenetre, WritesTheRecentListThePlaceAndTheMaterial) {
  Recents.chemins = {"/a"};
  DechargeFenetre(Fenetre(), "");
  EXPECT_EQ(LireCleIni("MRUFiles1", ""), "/a");
  EXPECT_EQ(LireCleIni("F_Representation_Left", ""), "10");
  EXPECT_EQ(LireCleIni("F_Representation_Top", ""), "20");
  EXPECT_EQ(LireCleIni("F_Representation_Width", ""), "3000");
  EXPECT_EQ(LireCleIni("F_Representation_Height", ""), "2000");
  EXPECT_EQ(LireCleIni("F_Representation_Max", ""), "0");
  EXPECT_EQ(LireCleIni("F_Representation_BD", ""), "3");
}

TEST(DechargeFenetre, AMaximisedOrMinimisedWindowKeepsItsLastPlace) {
  EcrireCle("F_Representation_Width", "777");
  EtatFenetre f = Fenetre();
  f.place.maximisee = true;
  DechargeFenetre(f, "");
  EXPECT_EQ(LireCleIni("F_Representation_Width", ""), "777");
  EXPECT_EQ(LireCleIni("F_Representation_Max", ""), "-1");
  f.place.maximisee = false;
  f.minimisee = true;
  DechargeFenetre(f, "");
  EXPECT_EQ(LireCleIni("F_Representation_Width", ""), "777");
  EXPECT_EQ(LireCleIni("F_Representation_Max", ""), "0");
}

TEST(RetaillePlacement, WritesAPlaceUnlessTheWindowIsMaximisedOrMinimised) {
  EtatFenetre f = Fenetre();
  f.place = {1, 2, 3000, 4000, false};
  RetaillePlacement(f);
  f.place.largeur = 9999;
  f.place.maximisee = true;
  RetaillePlacement(f);
  f.place.maximisee = false;
  f.minimisee = true;
  RetaillePlacement(f);
  EXPECT_EQ(LireCleIni("F_Representation_Left", ""), "1");
  EXPECT_EQ(LireCleIni("F_Representation_Top", ""), "2");
  EXPECT_EQ(LireCleIni("F_Representation_Width", ""), "3000");
  EXPECT_EQ(LireCleIni("F_Representation_Height", ""), "4000");
  EXPECT_EQ(LireCleIni("F_Representation_Max", "-"), "-") << "the state belongs to the end of the window";
}

TEST(DechargeFenetre, PlacementGoesIntoTheProjectTheRecentListDoesNot) {
  FichierProjet = FichierCourant = EcritProjetEssai("p.OVL");
  FichierProjet = FichierCourant = essai::Dossier() + "/p.OVL";
  Recents.chemins = {"/a"};
  DechargeFenetre(Fenetre(), "");
  const std::string texte = essai::LitFichierEssai(FichierProjet);
  EXPECT_NE(texte.find("$$F_Representation_Left=10\r\n"), std::string::npos);
  EXPECT_EQ(texte.find("MRUFiles"), std::string::npos);
}

TEST(DechargeFenetre, ACopyOfTheSettingsGoesToTheUsersDocuments) {
  const std::string documents = essai::Dossier() + "/documents";
  std::filesystem::create_directories(documents);
  DechargeFenetre(Fenetre(), documents);
  const std::string copie = essai::LitFichierEssai(documents + "/OVELIN.inisav");
  EXPECT_NE(copie.find("F_Representation_Left=10"), std::string::npos);
  EXPECT_EQ(copie, essai::LitFichierEssai(CheminIni()));
}

TEST(DechargeFenetre, AFolderOfDocumentsThatIsntThereIsNoHarm) {
  DechargeFenetre(Fenetre(), essai::Dossier() + "/absent");
  EXPECT_FALSE(std::filesystem::exists(essai::Dossier() + "/absent"));
  EXPECT_TRUE(FichierExiste(CheminIni()));
}

TEST(DechargeFenetre, AResetMovesTheSettingsAsideSoThatTheNextStartWritesFreshOnes) {
  EcrireCle("Essai", "1");
  essai::EcritFichierEssai("OVELIN.inisav", "older");
  Cycle.RemiseDefauts = true;
  essai::Attend("F_Representation", "lib205", Reponse::Oui);
  DechargeFenetre(Fenetre(), essai::Dossier());
  EXPECT_EQ(essai::Boites()[0].icone, Icone::Exclamation);
  EXPECT_EQ(essai::Boites()[0].boutons, Boutons::OuiNon);
  EXPECT_FALSE(FichierExiste(CheminIni()));
  EXPECT_NE(essai::LitFichierEssai(DossierProgramme + "/OVELIN.inisav").find("Essai=1"), std::string::npos);
  EXPECT_EQ(LireCleIni("Essai", "gone"), "gone");
}

TEST(DechargeFenetre, AResetAnsweredNoLeavesTheSettingsWithoutACopy) {
  const std::string documents = essai::Dossier() + "/documents";
  std::filesystem::create_directories(documents);
  Cycle.RemiseDefauts = true;
  essai::Attend("F_Representation", "lib205", Reponse::Non);
  DechargeFenetre(Fenetre(), documents);
  EXPECT_TRUE(FichierExiste(CheminIni()));
  EXPECT_FALSE(FichierExiste(documents + "/OVELIN.inisav"));
}

TEST(DechargeFenetre, SnapshotsGoHiddenOnesToo) {
  essai::EcritFichierEssai("temp/00001.OVL", "x");
  essai::EcritFichierEssai("temp/.00002.ovl", "x");
  DechargeFenetre(Fenetre(), "");
  EXPECT_TRUE(ListeFichiers(DossierTemp, "OVL").empty());
}

TEST(DechargeFenetre, NothingWaitsForTheBoardAnyMore) {
  EXPECT_FALSE(FinProgramme);
  DechargeFenetre(Fenetre(), "");
  EXPECT_TRUE(FinProgramme);
  FinProgramme = false;
  TermineSansQuestion(Fenetre(), "", false);
  EXPECT_TRUE(FinProgramme);
}

TEST(OuvreLigneCommande, TellsAnUnknownExtensionInTheUsersLanguage) {
  essai::EcritFichierEssai("OVELINde.trad", "[erreurs]\nExtension=Unbekannte Dateiendung\n");
  Regl.Langue = "de";
  essai::AttendTexte("Unbekannte Dateiendung");
  EXPECT_EQ(OuvreLigneCommande("/tmp/lettre.txt"), SuiteCommande::ExtensionInconnue);
}

}  // namespace
