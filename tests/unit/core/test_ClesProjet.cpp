// The overrides of the open project, and the placing of keys in it.
#include <sys/stat.h>

#include <filesystem>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::Dossier;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;

// A project that is open, over a settings file with the same keys.
std::string Ouvre(const std::string& contenu, const std::string& nom = "p.OVL") {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=1\r\nCB_SAV_1=ini\r\ngMaxMRU=4\r\nAdresseMaj=ini\r\n");
  FichierCourant = FichierProjet = EcritFichierEssai(nom, contenu);
  return FichierProjet;
}

TEST(LireCle, PrefersTheProject) {
  Ouvre("$$RayonFraise=2\r\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), "2");
  EXPECT_EQ(LireCle("absente", "d"), "d");
  EXPECT_EQ(LireCle("CB_SAV_1", ""), "ini");
}

TEST(LireCle, ReadsTheSettingsFileAloneWithABlankProject) {
  Ouvre("$$RayonFraise=2\r\n");
  for (const char* blanc : {"", "   "}) {
    FichierProjet = blanc;
    EXPECT_EQ(LireCle("RayonFraise", ""), "1");
  }
}

TEST(LireCle, GivesWhatWaitsForTheProjectAsItWillBeRead) {
  Ouvre("$$RayonFraise=2\r\n");
  const LotCles lot;
  EcrireCle("RayonFraise", " 3 ");
  EXPECT_EQ(LireCle("RayonFraise", ""), "3");
  EXPECT_NE(LitFichierEssai(FichierProjet).find("RayonFraise=2"), std::string::npos);
}

TEST(LireCle, LooksIntoTheCurrentFileWhateverTheProjectIsCalled) {
  Ouvre("$$RayonFraise=2\r\n");
  FichierProjet = "Chargt";
  EXPECT_EQ(LireCle("RayonFraise", ""), "2");
  FichierProjet = Dossier() + "/autre.OVL";
  EXPECT_EQ(LireCle("RayonFraise", ""), "2");
}

TEST(LireCle, NeedsTheFolderOfTheCurrentFile) {
  Ouvre("$$RayonFraise=2\r\n");
  const auto avant = std::filesystem::current_path();
  std::filesystem::current_path(Dossier());
  FichierCourant = "p.OVL";
  EXPECT_EQ(LireCle("RayonFraise", ""), "1");
  std::filesystem::current_path(avant);
  FichierCourant = Dossier() + "/absent/p.OVL";
  EXPECT_EQ(LireCle("RayonFraise", ""), "1");
  FichierCourant = Dossier() + "/absent.OVL";
  EXPECT_EQ(LireCle("RayonFraise", ""), "1");
}

TEST(LireCle, TellsTheCaseOfKeysInAProject) {
  Ouvre("$$rayonfraise=2\r\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), "1");
}

TEST(LireCle, DoesNotTakeALongerKeyForAShorterOne) {
  Ouvre("$$CB_SAV_10=10\r\n$$CB_SAV_1=1\r\n");
  EXPECT_EQ(LireCle("CB_SAV_1", ""), "1");
  Ouvre("$$CB_SAV_10=10\r\n");
  EXPECT_EQ(LireCle("CB_SAV_1", ""), "ini");
}

TEST(LireCle, WantsTheMarkAtTheStartOfTheLine) {
  Ouvre(" $$RayonFraise=2\r\nx$$RayonFraise=3\r\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), "1");
}

TEST(LireCle, TakesTheFirstLineAndTheFirstEqualSign) {
  Ouvre("$$RayonFraise sans\r\n$$RayonFraise=a=b\r\n$$RayonFraise=c\r\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), "a=b");
}

TEST(LireCle, TrimsAProjectsValueAndTurnsAmpersandsIntoTabs) {
  Ouvre("$$RayonFraise=  &&a&&b  \r\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), "\ta\tb");
}

TEST(LireCle, TakesAnEmptyValueOfAProject) {
  Ouvre("$$RayonFraise=\r\n");
  EXPECT_EQ(LireCle("RayonFraise", "d"), "");
  EXPECT_EQ(LireNombre("RayonFraise", 9), 9);
}

TEST(LireCle, CutsAProjectsValueAt255CharactersToo) {
  Ouvre("$$RayonFraise=" + std::string(300, 'x') + "\r\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), std::string(255, 'x'));
}

TEST(LireCle, ReadsAProjectWithLineFeedsAlone) {
  Ouvre("$$A=1\n$$RayonFraise=2\n0              0\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), "2");
}

TEST(LireCle, ReadsTheSystemsSetOfAProject) {
  Ouvre("$$RayonFraise=D\xE9pron\r\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), "Dépron");
}

TEST(LireCle, NeverTakesTheLengthOfTheRecentListFromAProject) {
  Ouvre("$$gMaxMRU=9\r\n");
  EXPECT_EQ(LireCle("gMaxMRU", ""), "4");
}

TEST(LireCleIni, NeverLooksIntoAProject) {
  Ouvre("$$AdresseMaj=http://ailleurs\r\n$$CarteZENIK=/tmp/x.so\r\n");
  EXPECT_EQ(LireCleIni("AdresseMaj", ""), "ini");
  EXPECT_EQ(LireCleIni("CarteZENIK", "auto"), "auto");
}

TEST(LireCleSection, NeverLooksIntoAProject) {
  Ouvre("$$TB_SAV_15=99\r\n");
  EXPECT_EQ(LireCleSection("table_X", "TB_SAV_15", "5"), "5");
}

TEST(LireCle, SeesAProjectThatHasChangedOnDisk) {
  Ouvre("$$RayonFraise=2\r\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), "2");
  EcritFichierEssai("p.OVL", "$$RayonFraise=3\r\n");
  EXPECT_EQ(LireCle("RayonFraise", ""), "3");
}

TEST(EcrireCle, PlacesTheKeyInTheSettingsFileAndInTheProject) {
  const std::string projet = Ouvre("$$RayonFraise=2\r\n0              1\r\n");
  EcrireCle("RayonFraise", "5");
  EcrireCle("F_Representation_Left", "12");
  EXPECT_EQ(LitFichierEssai(projet), "$$RayonFraise=5\r\n0              1\r\n$$F_Representation_Left=12\r\n");
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "5");
  EXPECT_EQ(LireCleIni("F_Representation_Left", ""), "12");
}

TEST(EcrireCle, WithABlankProjectWritesTheSettingsFileAlone) {
  const std::string projet = Ouvre("$$RayonFraise=2\r\n");
  FichierProjet = " ";
  EcrireCle("RayonFraise", "5");
  EXPECT_EQ(LitFichierEssai(projet), "$$RayonFraise=2\r\n");
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "5");
}

TEST(EcrireCle, StopsAtAValueThatLooksLikeAPlacementKey) {
  const std::string projet = Ouvre("$$RayonFraise=2\r\n");
  EcrireCle("A", "_LEFT");
  EcrireCle("B", "_topaze");
  EcrireCle("C", "x_LEFT");
  EXPECT_EQ(LitFichierEssai(projet), "$$RayonFraise=2\r\n$$C=x_LEFT\r\n");
  EXPECT_EQ(LireCleIni("A", ""), "_LEFT");
  EXPECT_EQ(LireCleIni("B", ""), "_topaze");
}

TEST(EcrireCle, PrefersTheSnapshotToTheProject) {
  const std::string projet = Ouvre("$$RayonFraise=2\r\n");
  Instantane = Vrai;
  FichierInstantane = EcritFichierEssai("00001.OVL", "");
  EcrireCle("RayonFraise", "5");
  EXPECT_EQ(LitFichierEssai(FichierInstantane), "$$RayonFraise=5\r\n");
  EXPECT_EQ(LitFichierEssai(projet), "$$RayonFraise=2\r\n");
}

TEST(EcrireCle, AfterAnUndoMakesNoOtherFile) {
  Ouvre("$$RayonFraise=2\r\n");
  FichierProjet = "Chargt";
  const auto avant = std::filesystem::current_path();
  std::filesystem::current_path(Dossier());
  EcrireCle("Neuve", "5");
  std::filesystem::current_path(avant);
  EXPECT_FALSE(std::filesystem::exists(Dossier() + "/Chargt"));
  EXPECT_EQ(LitFichierEssai(FichierCourant), "$$RayonFraise=2\r\n");
  EXPECT_EQ(LireCleIni("Neuve", ""), "5");
  EXPECT_EQ(Magasin.DerniereErreur, "");
}

TEST(EcrireCle, NeverWritesIntoADrawingOfAnotherFormat) {
  const std::string dessin = Ouvre("0\nSECTION\n", "dessin.dxf");
  EcrireCle("RayonFraise", "5");
  EXPECT_EQ(LitFichierEssai(dessin), "0\nSECTION\n");
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "5");
}

TEST(EcrireCle, TakesTheExtensionOfAProjectInEitherCase) {
  const std::string projet = Ouvre("", "p.ovl");
  EcrireCle("A", "1");
  EXPECT_EQ(LitFichierEssai(projet), "$$A=1\r\n");
}

TEST(EcrireCle, SilentlyLeavesAReadOnlyProjectAsItIs) {
  const std::string projet = Ouvre("$$RayonFraise=2\r\n");
  chmod(projet.c_str(), 0444);
  EcrireCle("RayonFraise", "5");
  EXPECT_EQ(LitFichierEssai(projet), "$$RayonFraise=2\r\n");
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "5");
  EXPECT_EQ(Magasin.DerniereErreur, "");
}

TEST(EcrireCle, StartsAProjectThatIsNotThereYet) {
  FichierProjet = Dossier() + "/neuf.OVL";
  EcrireCle("A", "1");
  EXPECT_EQ(LitFichierEssai(FichierProjet), "$$A=1\r\n");
}

TEST(EcrireCle, PlacesTabsAsDoubleAmpersandsAndTheSystemsSet) {
  const std::string projet = Ouvre("");
  EcrireCle("MatDefaut", "Dépron\t3");
  EXPECT_EQ(LitFichierEssai(projet), "$$MatDefaut=D\xE9pron&&3\r\n");
  EXPECT_EQ(LireCle("MatDefaut", ""), "Dépron\t3");
}

TEST(EcrireCle, KeepsAValueWithALineEndOnOneLine) {
  const std::string projet = Ouvre("");
  EcrireCle("A", "x\r\n$$B=1");
  EXPECT_EQ(LitFichierEssai(projet), "$$A=x  $$B=1\r\n");
}

TEST(SupprimerCle, LeavesTheProjectAlone) {
  const std::string projet = Ouvre("$$RayonFraise=2\r\n");
  SupprimerCle("RayonFraise");
  EXPECT_EQ(LitFichierEssai(projet), "$$RayonFraise=2\r\n");
  EXPECT_EQ(LireCleIni("RayonFraise", "d"), "d");
}

}  // namespace
