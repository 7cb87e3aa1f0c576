#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Services.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::Dossier;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;
using testing::ElementsAre;

std::string Ini() { return LitFichierEssai(CheminIni()); }

ino_t Numero(const std::string& chemin) {
  struct stat etat {};
  stat(chemin.c_str(), &etat);
  return etat.st_ino;
}

TEST(LireCle, ReadsTheSettingsFileAndFallsBackOnTheDefault) {
  EXPECT_EQ(LireCle("RayonFraise", "3"), "3");
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=1,5\r\nvide=\r\n");
  EXPECT_EQ(LireCle("rayonfraise", "3"), "1,5");
  EXPECT_EQ(LireCle("vide", "x"), "");
  EXPECT_EQ(LireCle("absente", "x"), "x");
}

TEST(LireCle, TakesAtMost255Characters) {
  const std::string longue(300, 'x');
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nk=" + longue + "\r\ne=" + std::string(300, '\xE9') + "\r\n");
  EXPECT_EQ(LireCle("k", "").size(), 255U);
  EXPECT_EQ(LireCle("e", "").size(), 2 * 255U);  // accented letters count once, though they take two bytes here
}

TEST(LireCle, TurnsDoubleAmpersandsIntoTabs) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nDB1=Bois&&3&&x&y\r\n");
  EXPECT_EQ(LireCle("DB1", ""), "Bois\t3\tx&y");
}

TEST(LireCle, CutsBeforeItTurnsAmpersandsIntoTabs) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nk=" + std::string(254, 'x') + "&&y\r\n");
  EXPECT_EQ(LireCle("k", ""), std::string(254, 'x') + "&");
}

TEST(EcrireCle, StoresTabsAsDoubleAmpersands) {
  EcrireCle("DB1", "\tBois\t3");
  EXPECT_EQ(Ini(), "[OVELIN]\r\nDB1=&&Bois&&3\r\n");
  EXPECT_EQ(LireCle("DB1", ""), "\tBois\t3");
}

TEST(EcrireCle, AValueThatHoldsDoubleAmpersandsReadsBackWithATab) {
  EcrireCle("k", "a&&b");
  EXPECT_EQ(LireCle("k", ""), "a\tb");
}

TEST(EcrireCle, ReplacesAKeyWhereItStandsAndAddsNewOnesAtTheEndOfTheSection) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nA=1\r\nB=2\r\n[table_X]\r\nA=9\r\n");
  EcrireCle("a", "11");
  EcrireCle("C", "3");
  EXPECT_EQ(Ini(), "[OVELIN]\r\nA=11\r\nB=2\r\nC=3\r\n[table_X]\r\nA=9\r\n");
}

TEST(EcrireCle, DoesNotWriteTheFileWhenNothingChanges) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\nF_Left = 1860\n");
  const ino_t avant = Numero(CheminIni());
  EcrireCle("F_Left", "1860");
  EXPECT_EQ(Numero(CheminIni()), avant);
  EXPECT_EQ(Ini(), "[OVELIN]\nF_Left = 1860\n");
}

TEST(EcrireCle, LetsPaintingRunTwiceForEachKey) {
  int fois = 0;
  Svc.LaisseEvenements = [&fois](Evenements e) {
    EXPECT_EQ(e, Evenements::Affichage);
    ++fois;
  };
  EcrireCle("k", "v");
  EXPECT_EQ(fois, 2);
}

TEST(EcrireCle, LeavesTheSettingsFileAloneOnTheCommandLine) {
  Magasin.EcrireIni = false;
  EcrireCle("k", "v");
  EcrireCleSection("table_X", "TB_SAV_1", "3");
  EXPECT_FALSE(FichierExiste(CheminIni()));
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nk=1\r\n[table_X]\r\nk=2\r\n");
  SupprimerCle("k");
  SupprimerCleSection("table_X", "k");
  CopierSection("table_X", "table_Y", CheminIni());
  DeplacerSection("table_X", "table_Z", CheminIni());
  SupprimerSection("table_X", CheminIni());
  EXPECT_EQ(Ini(), "[OVELIN]\r\nk=1\r\n[table_X]\r\nk=2\r\n");
}

TEST(EcrireCle, KeepsTheReasonOfTheFirstFailure) {
  DossierProgramme = Dossier() + "/absent";
  EcrireCle("k", "v");
  EXPECT_EQ(Magasin.DerniereErreur, "No such file or directory");
  DossierProgramme = Dossier();
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nk=1\r\n");
  chmod(CheminIni().c_str(), 0444);
  EcrireCle("k", "v");
  EXPECT_EQ(Magasin.DerniereErreur, "No such file or directory");
  Magasin.DerniereErreur.clear();
  EcrireCle("k", "v");
  EXPECT_EQ(Magasin.DerniereErreur, "Permission denied");
  EXPECT_EQ(LireCle("k", ""), "1");  // what stands on disk counts
}

TEST(EcrireCle, DoesNotOverwriteASettingsFileThatCannotBeRead) {
  std::filesystem::create_directory(CheminIni());
  EcrireCle("k", "v");
  EXPECT_EQ(Magasin.DerniereErreur, "Is a directory");
  EXPECT_TRUE(std::filesystem::is_directory(CheminIni()));
}

TEST(EcrireCle, IgnoresAnEmptyKey) {
  EcrireCle("", "v");
  EXPECT_FALSE(FichierExiste(CheminIni()));
}

TEST(SupprimerCle, TakesTheKeyOutOfTheSettingsFile) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nA=1\r\nMRUFiles2=x\r\n[autre]\r\nMRUFiles2=y\r\n");
  SupprimerCle("mrufiles2");
  EXPECT_EQ(Ini(), "[OVELIN]\r\nA=1\r\n[autre]\r\nMRUFiles2=y\r\n");
}

TEST(LireNombre, TakesEitherMarkWhateverTheUsersIs) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\na=1,5\r\nb=2.5\r\nc=1.000,5\r\nd=abc\r\ne=\r\n");
  for (const char marque : {'.', ','}) {
    Svc.MarqueDecimale = marque;
    EXPECT_EQ(LireNombre("a", 9), 1.5);
    EXPECT_EQ(LireNombre("b", 9), 2.5);
    EXPECT_EQ(LireNombre("c", 9), 9);
    EXPECT_EQ(LireNombre("d", 9), 9);
    EXPECT_EQ(LireNombre("e", 9), 9);
    EXPECT_EQ(LireNombre("absente", 9), 9);
  }
}

TEST(LireBooleen, TakesAnythingButFauxAsTrue) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\na=Faux\r\nb=Vrai\r\nc=faux\r\nd=0\r\ne=\r\n");
  EXPECT_FALSE(LireBooleen("a", true));
  for (const char* cle : {"b", "c", "d", "e"}) EXPECT_TRUE(LireBooleen(cle, false)) << cle;
  EXPECT_TRUE(LireBooleen("absente", true));
  EXPECT_FALSE(LireBooleen("absente", false));
}

TEST(LireCleSection, ReadsAnySection) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTB_SAV_0=1\r\n[table_X]\r\nTB_SAV_0=7&&8\r\n");
  EXPECT_EQ(LireCleSection("TABLE_x", "tb_sav_0", ""), "7\t8");
  EXPECT_EQ(LireNombreSection("OVELIN", "TB_SAV_0", 0), 1);
  EXPECT_EQ(LireNombreSection("table_X", "TB_SAV_0", 5), 5);  // not a number
  EXPECT_EQ(LireCleSection("absente", "TB_SAV_0", "d"), "d");
}

TEST(EcrireCleSection, WritesToTheSettingsFileAlone) {
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$A=1\r\n");
  EcrireCleSection("table_X", "Combo_SAV_1", "2\t3");
  EXPECT_EQ(Ini(), "[table_X]\r\nCombo_SAV_1=2&&3\r\n");
  EXPECT_EQ(LitFichierEssai(FichierProjet), "$$A=1\r\n");
}

TEST(SupprimerCleSection, TakesTheKeyOutOfItsSection) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nA=1\r\n[t]\r\nA=2\r\nB=3\r\n");
  SupprimerCleSection("T", "a");
  EXPECT_EQ(Ini(), "[OVELIN]\r\nA=1\r\n[t]\r\nB=3\r\n");
}

TEST(ListerSections, GivesTheNamesInTheOrderOfTheFile) {
  const std::string f = EcritFichierEssai("t.ini", "[OVELIN]\r\n[table_B]\r\n[table_A]\r\n");
  EXPECT_THAT(ListerSections(f), ElementsAre("OVELIN", "table_B", "table_A"));
  EXPECT_TRUE(ListerSections(Dossier() + "/absent.ini").empty());
}

TEST(ListerSections, GoesThroughABufferOf8192Characters) {
  std::string contenu;
  for (int i = 0; i < 1000; ++i) contenu += "[table_" + std::to_string(1000 + i) + "]\r\n";
  const auto noms = ListerSections(EcritFichierEssai("t.ini", contenu));
  EXPECT_EQ(noms.size(), 744U);  // 744 names of 10 characters with their ends are 8184, one more would be 8195
  EXPECT_EQ(noms.back(), "table_1743");
}

TEST(CopierSection, WritesTheKeysInUpperCase) {
  const std::string f = EcritFichierEssai("t.ini", "[table_A]\r\nCombo_SAV_0=1\r\nSld_SAV_0=5\r\n");
  CopierSection("table_A", "table_Neuve", f);
  EXPECT_EQ(LitFichierEssai(f),
            "[table_A]\r\nCombo_SAV_0=1\r\nSld_SAV_0=5\r\n[table_Neuve]\r\nCOMBO_SAV_0=1\r\nSLD_SAV_0=5\r\n");
}

TEST(CopierSection, KeepsTheNameOfTheTargetAsItIsAndItsKeysStayFindable) {
  EcritFichierEssai("OVELIN.ini", "[table_A]\r\nCombo_SAV_0=1\r\n");
  CopierSection("table_A", "table_Été", CheminIni());
  EXPECT_EQ(LireCleSection("table_Été", "Combo_SAV_0", ""), "1");
  EXPECT_THAT(ListerSections(CheminIni()), ElementsAre("table_A", "table_Été"));
}

// The end of the list takes a place too: names that fill the buffer to the last one are one too many.
TEST(ListerSections, KeepsAPlaceForTheEndOfTheList) {
  const auto fichier = [](std::size_t derniere) {
    std::string contenu;
    for (int i = 0; i < 100; ++i) contenu += "[" + std::string(80, static_cast<char>('a' + i % 26)) + "]\r\n";
    return EcritFichierEssai("t.ini", contenu + "[" + std::string(derniere, 'z') + "]\r\n");
  };
  // 100 names of 80 characters with their ends are 8100; 8192 less the end of the list and of the name leave 90.
  EXPECT_EQ(ListerSections(fichier(90)).size(), 101U);
  EXPECT_EQ(ListerSections(fichier(91)).size(), 100U);
}

TEST(CopierSection, GoesThroughABufferOf8192Characters) {
  std::string contenu = "[table_A]\r\n";
  for (int i = 0; i < 100; ++i) contenu += "K" + std::to_string(100 + i) + "=" + std::string(95, 'v') + "\r\n";
  const std::string f = EcritFichierEssai("t.ini", contenu);
  CopierSection("table_A", "table_B", f);
  const std::string apres = LitFichierEssai(f);
  const std::string copie = apres.substr(apres.find("[table_B]"));
  // Lines of 100 characters and their end: 81 of them are 8181, one more does not fit and none is cut.
  EXPECT_EQ(std::count(copie.begin(), copie.end(), '\n'), 1 + 81);
  EXPECT_NE(copie.find("K180=" + std::string(95, 'v') + "\r\n"), std::string::npos);
}

TEST(CopierSection, OfAMissingSectionMakesNothing) {
  const std::string f = EcritFichierEssai("t.ini", "[A]\r\nk=1\r\n");
  CopierSection("absente", "B", f);
  EXPECT_EQ(LitFichierEssai(f), "[A]\r\nk=1\r\n");
}

TEST(SupprimerSection, TakesTheSectionOut) {
  const std::string f = EcritFichierEssai("t.ini", "[A]\r\nk=1\r\n[B]\r\nk=2\r\n");
  SupprimerSection("a", f);
  EXPECT_EQ(LitFichierEssai(f), "[B]\r\nk=2\r\n");
}

TEST(DeplacerSection, CopiesAndDeletes) {
  const std::string f = EcritFichierEssai("t.ini", "[A]\r\nk=1\r\n[B]\r\nx=2\r\n");
  DeplacerSection("A", "C", f);
  EXPECT_EQ(LitFichierEssai(f), "[B]\r\nx=2\r\n[C]\r\nK=1\r\n");
}

TEST(DeplacerSection, OntoItselfLosesNothing) {
  const std::string f = EcritFichierEssai("t.ini", "[A]\r\nk=1\r\n");
  DeplacerSection("A", "a", f);
  EXPECT_EQ(LitFichierEssai(f), "[A]\r\nk=1\r\n");
}

TEST(Magasin, OverlaysStandBeforeEveryFile) {
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$RayonFraise=2\r\n");
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=1\r\nCarteZENIK=usb\r\n");
  Magasin.Surcharge["RAYONFRAISE"] = "7,5";
  Magasin.Surcharge["cartezenik"] = "virtuelle";
  EXPECT_EQ(LireCle("RayonFraise", ""), "7,5");
  EXPECT_EQ(LireNombre("RayonFraise", 0), 7.5);
  EXPECT_EQ(LireCleIni("CarteZENIK", ""), "virtuelle");
  EcrireCle("AutreCle", "1");
  EXPECT_EQ(Ini(), "[OVELIN]\r\nRayonFraise=1\r\nCarteZENIK=usb\r\nAutreCle=1\r\n");
}

TEST(Magasin, OverlaysOfMachineKeysActInAnyMachineTable) {
  EcritFichierEssai("OVELIN.ini", "[table_A]\r\nTB_SAV_15=1\r\nOptionLPT=4\r\n[autre]\r\nTB_SAV_15=1\r\n");
  for (const char* cle : {"TB_SAV_15", "CB_SAV_1", "combo_sav_2", "Option_SAV_0", "Sld_SAV_0"}) {
    Magasin.Surcharge = {{cle, "20"}};
    EXPECT_EQ(LireNombreSection("table_A", cle, 0), 20) << cle;
    EXPECT_EQ(LireCleSection("TABLE_absente", cle, ""), "20") << cle;
  }
  Magasin.Surcharge = {{"TB_SAV_15", "20"}, {"OptionLPT", "9"}};
  EXPECT_EQ(LireCleSection("autre", "TB_SAV_15", ""), "1");
  EXPECT_EQ(LireCleSection("table_A", "OptionLPT", ""), "4");  // no machine key of these families
}

TEST(LotCles, WritesOnceAtItsEnd) {
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$A=0\r\n");
  {
    const LotCles dehors;
    EcrireCle("A", "1");
    {
      const LotCles dedans;
      EcrireCle("B", "2");
      EcrireCle("A", "3");
    }
    EXPECT_FALSE(FichierExiste(CheminIni()));
    EXPECT_EQ(LitFichierEssai(FichierProjet), "$$A=0\r\n");
    EXPECT_EQ(LireCle("A", ""), "3");  // reads see what waits
    EXPECT_EQ(LireCle("B", ""), "2");
    EXPECT_EQ(LireCleIni("B", ""), "2");
  }
  EXPECT_EQ(Ini(), "[OVELIN]\r\nA=3\r\nB=2\r\n");
  EXPECT_EQ(LitFichierEssai(FichierProjet), "$$A=3\r\n$$B=2\r\n");
}

TEST(LotCles, LeavesNothingBehindAfterAFailure) {
  DossierProgramme = Dossier() + "/absent";
  {
    const LotCles lot;
    EcrireCle("A", "1");
    EXPECT_EQ(LireCle("A", "d"), "1");
  }
  EXPECT_EQ(LireCle("A", "d"), "d");
}

TEST(OublieCles, ReadsTheFilesAnew) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nk=1\r\n");
  EXPECT_EQ(LireCle("k", ""), "1");
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nk=2\r\n");
  EXPECT_EQ(LireCle("k", ""), "2");  // of the same length, within the same tick of the file's clock
  OublieCles();
  EXPECT_EQ(LireCle("k", ""), "2");
}

// In place and to the same length, within one step of the file system's clock.
TEST(LireCle, SeesAChangeThatLeavesNoTraceInTheTimesOfTheFile) {
  for (int i = 0; i < 300; ++i) {
    const std::string valeur = std::to_string(100 + i);
    std::ofstream(CheminIni(), std::ios::in | std::ios::out | (i == 0 ? std::ios::trunc : std::ios::openmode{}))
        << "[OVELIN]\r\nk=" << valeur << "\r\n";
    ASSERT_EQ(LireCle("k", ""), valeur);
  }
}

TEST(LireCle, SeesWhatAnotherProgramHasWritten) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nk=1\r\n");
  std::filesystem::last_write_time(CheminIni(),
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  EXPECT_EQ(LireCle("k", ""), "1");
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nk=2\r\n");
  EXPECT_EQ(LireCle("k", ""), "2");
  EcrireCle("l", "3");
  EXPECT_EQ(Ini(), "[OVELIN]\r\nk=2\r\nl=3\r\n");
}

TEST(OrigineDe, FollowsTheOrderInWhichAKeyIsRead) {
  EXPECT_EQ(OrigineDe("HautDeg"), OrigineCle::Defaut);
  EcrireCle("HautDeg", "4");
  EXPECT_EQ(OrigineDe("hautdeg"), OrigineCle::Reglages);
  FichierProjet = FichierCourant = EcritFichierEssai("p.OVL", "$$HautDeg=5\r\n");
  EXPECT_EQ(OrigineDe("HautDeg"), OrigineCle::Projet);
  Magasin.Surcharge["HautDeg"] = "6";
  EXPECT_EQ(OrigineDe("HautDeg"), OrigineCle::Surcharge);
}

// Within a batch a file is read once, so that nothing but the forgetting can bring the change of another program
// in.
TEST(OublieCles, HasTheFilesReadAnew) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=1\r\n");
  FichierProjet = FichierCourant = EcritFichierEssai("p.OVL", "$$HautDeg=5\r\n");
  const LotCles lot;
  ASSERT_EQ(LireCle("RayonFraise", ""), "1");
  ASSERT_EQ(LireCle("HautDeg", ""), "5");
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=2\r\n");
  EcritFichierEssai("p.OVL", "$$HautDeg=7\r\n");
  ASSERT_EQ(LireCle("RayonFraise", ""), "1");
  ASSERT_EQ(LireCle("HautDeg", ""), "5");
  OublieCles();
  EXPECT_EQ(LireCle("RayonFraise", ""), "2");
  EXPECT_EQ(LireCle("HautDeg", ""), "7");
}

TEST(EcrireCle, AFileThatAnotherProgramHoldsIsToldBehindTheTimeLimit) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=1\r\n");
  const int autre = open(DossierProgramme.c_str(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(flock(autre, LOCK_EX), 0);
  double heure = 0;
  Svc.Horloge = [&heure] { return heure; };
  Svc.Attend = [&heure](double secondes) { heure += secondes; };
  EcrireCle("RayonFraise", "2");
  EXPECT_NEAR(heure, 5, 0.02);
  EXPECT_FALSE(Magasin.DerniereErreur.empty());
  EXPECT_EQ(Ini(), "[OVELIN]\r\nRayonFraise=1\r\n");
  close(autre);
  EcrireCle("RayonFraise", "3");
  EXPECT_EQ(Ini(), "[OVELIN]\r\nRayonFraise=3\r\n");
}

TEST(EcrireCle, KeepsWhatAnotherProgramHasWrittenSinceTheBatchBegan) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=1\r\n");
  {
    const LotCles lot;
    EcrireCle("RayonFraise", "2");
    EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=1\r\nHautDeg=7\r\n");
  }
  EXPECT_EQ(Ini(), "[OVELIN]\r\nRayonFraise=2\r\nHautDeg=7\r\n");
}

}  // namespace
