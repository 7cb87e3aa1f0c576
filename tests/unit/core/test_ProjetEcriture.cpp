#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <thread>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "tests/unit/core/ProjetTest.h"

namespace {

using namespace ovelin;
using essai::AjouteSequence;
using essai::Dossier;
using essai::EcritFichierEssai;
using essai::LignePoint;
using essai::LigneSequence;
using essai::LitFichierEssai;
using essai::Rempli;

// Saves as the menu does it: the project's path first, then the writer.
std::string Enregistre(const std::string& nom = "p.OVL") {
  FichierProjet = FichierCourant = Dossier() + "/" + nom;
  EXPECT_EQ(EcrireProjet(FichierProjet), "");
  return LitFichierEssai(FichierProjet);
}

const char* const ReglagesDepart =
    "$$Vitesse_Mat_H=2\r\n$$Vitesse_Mat_V=2\r\n$$HautDeg=10\r\n$$ProfFraisage=-3\r\n$$ProfPasse=-1\r\n"
    "$$MiniEncoche=0\r\n$$ModeZENIK=0\r\n$$CouleurNumero=0\r\n$$CouleurSequence=16711680\r\n"
    "$$CouleurInitial=0\r\n$$Couleurselectionne=100\r\n$$CouleurDecalage=255\r\n$$CouleurEncoche=6553600\r\n"
    "$$PCPoche=15\r\n$$ConfirmSuppr=Vrai\r\n$$TimerInterval=275\r\n";
const char* const ReglagesFin = "$$DecalageOutil=1\r\n$$RayonFraise=3\r\n$$LargeurEncoche=5\r\n";
const std::string Encoches = Rempli("$$Mat015", 60) + "\r\n" + Rempli("$$Mat020", 60) + "\r\n";

TEST(EcrireProjet, WritesTheWholeFileColumnForColumn) {
  AjouteSequence(" A", {{0, 0}, {12.5F, -0.1F}}, 1, -3);
  AjouteSequence("Zz", {{100, 200}, {1e-6F, 5}}, 3, -1.5);
  Sequences[0].Poche = Vrai;
  Sequences[1].Fraiser = Faux;
  TraceInitial[1].Cde = CodePC;
  EXPECT_EQ(Enregistre(), ReglagesDepart + std::string(ReglagesFin) + LigneSequence(" A", "011", "-3") +
                              "$$SeD1\r\n" + LigneSequence("Zz", "000", "-1.5") + "$$SeD3\r\n" +
                              LignePoint("0", "0", "PD", " A") + LignePoint("12.5", "-0.1", "PC", " A") +
                              LignePoint("100", "200", "PD", "Zz") + LignePoint("0.000001", "5", "PD", "Zz") +
                              Encoches);
}

TEST(EcrireProjet, HoldsTheAngleOfARampBehindTheOtherSettings) {
  AjouteSequence(" A", {{0, 0}, {1, 1}}, 2, -3);
  Regl.AngleRampe = 3.5;
  const std::string texte = Enregistre();
  EXPECT_TRUE(texte.starts_with(ReglagesDepart + std::string(ReglagesFin) + "$$AngleRampe=3.5\r\n$$Seq A"));
  Regl.AngleRampe = 0;
  EXPECT_TRUE(LireProjet(FichierProjet));
  EXPECT_EQ(Regl.AngleRampe, 3.5);
}

TEST(EcrireProjet, WithoutARampIsTheSameFileWhateverTheSettingsHad) {
  AjouteSequence(" A", {{0, 0}, {1, 1}}, 2, -3);
  const std::string texte = Enregistre();
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nAngleRampe=3\r\n");
  OublieCles();
  EXPECT_EQ(Enregistre("q.OVL"), texte);
  EXPECT_EQ(texte.find("Rampe"), std::string::npos);
}

TEST(EcrireProjet, UsesTheUsersDecimalMark) {
  Svc.MarqueDecimale = ',';
  Regl.LargeurEncoche = 2.5;
  Regl.MiniEncoche = 0.25;
  AjouteSequence(" A", {{0.5F, 0}, {1, 1}}, 2, -0.75);
  const std::string texte = Enregistre();
  EXPECT_NE(texte.find("$$LargeurEncoche=2,5\r\n" + LigneSequence(" A", "001", "-0,75") + "$$SeD2\r\n" +
                       LignePoint("0,5", "0", "PD", " A")),
            std::string::npos);
  EXPECT_TRUE(texte.ends_with(Rempli("$$Mat012,5", 60) + "\r\n" + Rempli("$$Mat020,25", 60) + "\r\n"));
}

TEST(EcrireProjet, GivesARunWithoutARecordTheDefaultsOfAnUnknownCode) {
  AjouteSequence(" A", {{0, 0}, {1, 1}});
  Sequences = {SequenceInfo{}};
  EXPECT_NE(Enregistre().find(LigneSequence(" A", "001", "0") + "$$SeD1\r\n"), std::string::npos);
}

TEST(EcrireProjet, TakesTheFirstRecordOfACode) {
  AjouteSequence(" A", {{0, 0}, {1, 1}}, 1, -2);
  Sequences.push_back({Code2(" A"), Vrai, -9, Faux, 3, Faux});
  EXPECT_NE(Enregistre().find(LigneSequence(" A", "001", "-2") + "$$SeD1\r\n"), std::string::npos);
}

TEST(EcrireProjet, WritesEachRunEvenIfItsCodeComesTwice) {
  AjouteSequence(" A", {{0, 0}});
  AjouteSequence(" B", {{1, 0}});
  const auto encore = essai::Trace(" A", {{2, 0}});
  TraceInitial.insert(TraceInitial.end(), encore.begin(), encore.end());
  const std::string texte = Enregistre();
  const std::size_t premiere = texte.find("$$Seq A");
  EXPECT_NE(texte.find("$$Seq A", premiere + 1), std::string::npos);
}

TEST(EcrireProjet, OfAnEmptyDrawingHoldsSettingsAndNotchesAlone) {
  EXPECT_EQ(Enregistre(), ReglagesDepart + std::string(ReglagesFin) + Encoches);
}

TEST(EcrireProjet, KeepsNothingOfTheFileThatWasThere) {
  AjouteSequence(" A", {{0, 0}, {1, 1}});
  EcritFichierEssai("p.OVL", "$$Fichier=x\r\n$$RayonFraise=99\r\n" + essai::DeuxPoints("ZZ"));
  const std::string texte = Enregistre();
  EXPECT_EQ(texte.find("Fichier"), std::string::npos);
  EXPECT_EQ(texte.find("ZZ"), std::string::npos);
  EXPECT_TRUE(texte.starts_with(ReglagesDepart));
}

TEST(EcrireProjet, RefreshesTheSettingsFileToo) {
  Regl.RayonFraise = 1.25;
  Enregistre();
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "1.25");
  EXPECT_EQ(LireCleIni("gMaxMRU", ""), "4");
}

TEST(EcrireProjet, TheLengthOfTheRecentListStandsInASnapshotAlone) {
  AjouteSequence(" A", {{0, 0}, {1, 1}});
  EXPECT_EQ(Enregistre().find("gMaxMRU"), std::string::npos);
  Instantane = Vrai;
  FichierInstantane = Dossier() + "/00001.OVL";
  EXPECT_EQ(EcrireProjet(FichierInstantane), "");
  const std::string texte = LitFichierEssai(FichierInstantane);
  EXPECT_TRUE(texte.starts_with(std::string(ReglagesDepart) + "$$gMaxMRU=4\r\n" + ReglagesFin));
}

TEST(EcrireProjet, ASnapshotLeavesTheProjectAlone) {
  AjouteSequence(" A", {{0, 0}, {1, 1}});
  const std::string avant = Enregistre();
  Instantane = Vrai;
  FichierInstantane = Dossier() + "/00001.OVL";
  Regl.RayonFraise = 7;
  EXPECT_EQ(EcrireProjet(FichierInstantane), "");
  EXPECT_EQ(LitFichierEssai(FichierProjet), avant);
  EXPECT_NE(LitFichierEssai(FichierInstantane).find("$$RayonFraise=7\r\n"), std::string::npos);
}

TEST(EcrireProjet, ASnapshotAfterAnUndoHoldsItsSettings) {
  FichierProjet = "Chargt";
  Instantane = Vrai;
  FichierInstantane = Dossier() + "/00002.OVL";
  EXPECT_EQ(EcrireProjet(FichierInstantane), "");
  EXPECT_TRUE(LitFichierEssai(FichierInstantane).starts_with(ReglagesDepart));
  EXPECT_FALSE(std::filesystem::exists(Dossier() + "/Chargt"));
}

TEST(EcrireProjet, WithoutAnOpenProjectHoldsNoSettings) {
  AjouteSequence(" A", {{0, 0}, {1, 1}});
  FichierProjet.clear();
  EXPECT_EQ(EcrireProjet(Dossier() + "/q.OVL"), "");
  EXPECT_TRUE(LitFichierEssai(Dossier() + "/q.OVL").starts_with("$$Seq A"));
}

TEST(EcrireProjet, DropsKeysThatWaitedForTheFile) {
  AjouteSequence(" A", {{0, 0}, {1, 1}});
  FichierProjet = FichierCourant = EcritFichierEssai("p.OVL", "$$RayonFraise=99\r\n");
  {
    const LotCles lot;
    EcrireCle("Fichier", "avant");
    EXPECT_EQ(LireCle("RayonFraise", ""), "99");
    EXPECT_EQ(EcrireProjet(FichierProjet), "");
    EcrireCle("Autre", "apres");
    EXPECT_EQ(LireCle("RayonFraise", ""), "3");
  }
  const std::string texte = LitFichierEssai(FichierProjet);
  EXPECT_EQ(texte.find("Fichier"), std::string::npos);
  EXPECT_TRUE(texte.ends_with(Encoches + "$$Autre=apres\r\n"));
}

TEST(EcrireProjet, RefusesAReadOnlyProjectAndChangesNothing) {
  AjouteSequence(" A", {{0, 0}, {1, 1}});
  FichierProjet = FichierCourant = EcritFichierEssai("p.OVL", "ancien");
  chmod(FichierProjet.c_str(), 0444);
  EXPECT_EQ(EcrireProjet(FichierProjet), "Permission denied");
  EXPECT_EQ(LitFichierEssai(FichierProjet), "ancien");
  EXPECT_FALSE(FichierExiste(CheminIni()));
}

TEST(EcrireProjet, LeavesTheOldProjectWholeOnAFullDisk) {
  AjouteSequence(" A", std::vector<std::pair<float, float>>(200, {1, 2}));
  FichierProjet = FichierCourant = EcritFichierEssai("p.OVL", "ancien");
  auto* const avant = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limite{};
  getrlimit(RLIMIT_FSIZE, &limite);
  rlimit basse = limite;
  basse.rlim_cur = 4000;  // the settings file fits, the project does not
  setrlimit(RLIMIT_FSIZE, &basse);
  const ErreurSysteme erreur = EcrireProjet(FichierProjet);
  setrlimit(RLIMIT_FSIZE, &limite);
  std::signal(SIGXFSZ, avant);
  EXPECT_EQ(erreur, "File too large");
  EXPECT_EQ(LitFichierEssai(FichierProjet), "ancien");
}

TEST(EcrireProjet, GivesTheSystemsReason) {
  EXPECT_EQ(EcrireProjet(""), "No such file or directory");
  EXPECT_EQ(EcrireProjet(Dossier() + "/absent/p.OVL"), "No such file or directory");
}

TEST(EcrireProjet, ShowsItsProgressAndTakesItAway) {
  std::string suite;
  Svc.AvancementDebut = [&suite](const std::string&, long) { suite += "d"; };
  Svc.AvancementFin = [&suite] { suite += "f"; };
  Enregistre();
  EXPECT_EQ(suite, "df");
}

// A thread of its own for the kernel, as a window offers it. What happens on the other side meanwhile is `pendant`.
int EnFondEssai(const std::function<void()>& pendant = {}) {
  static int fois;
  fois = 0;
  Svc.EnFond = [pendant](const std::function<void()>& noyau) {
    ++fois;
    std::thread fil(noyau);
    if (pendant) pendant();
    fil.join();
  };
  Enregistre();
  return fois;
}

TEST(EcrireProjet, WritesALargeDrawingBesideTheWindowAndASmallOneDirectly) {
  AjouteSequence(" A", {{1, 2}, {3, 4}});
  EXPECT_EQ(EnFondEssai(), 0);
  AjouteSequence(" B", std::vector<std::pair<float, float>>(20000, {1, 2}));
  const std::string direct = Enregistre();
  EXPECT_EQ(EnFondEssai(), 1);
  EXPECT_EQ(LitFichierEssai(FichierProjet), direct);
}

TEST(EcrireProjet, WritesTheDocumentAsItStoodAtTheStart) {
  AjouteSequence(" A", std::vector<std::pair<float, float>>(20000, {1, 2}));
  const std::string avant = Enregistre();
  EXPECT_EQ(EnFondEssai([] {
              for (PointTrace& p : TraceInitial) p.X = 9;
              Sequences[0].Profondeur = -8;
            }),
            1);
  EXPECT_EQ(LitFichierEssai(FichierProjet), avant);
}

TEST(EcrireProjet, CutsADepthWithoutLosingItsMagnitude) {
  AjouteSequence(" A", {{0, 0}, {1, 1}}, 1, -1.2345678901234567e-5);
  const std::string texte = Enregistre();
  const std::size_t ligne = texte.find("$$Seq A001");
  ASSERT_NE(ligne, std::string::npos);
  EXPECT_EQ(texte.substr(ligne, 60), Rempli("$$Seq A001-0.00001234567890123", 60));
}

TEST(EcrireProjet, WritesASideOutOfRangeAsOneDigit) {
  AjouteSequence(" A", {{0, 0}, {1, 1}}, 12);
  AjouteSequence(" B", {{0, 0}, {1, 1}}, -4);
  const std::string texte = Enregistre();
  EXPECT_NE(texte.find("$$SeD9\r\n"), std::string::npos);
  EXPECT_NE(texte.find("$$SeD0\r\n"), std::string::npos);
}

}  // namespace
