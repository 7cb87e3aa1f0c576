// The dialects that a user has: the program's rows, files beside the settings, and the choice among them.
#include <cmath>
#include <filesystem>

#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Textes.h"
#include "run/Module_Dialecte.h"
#include "run/Module_GCode.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

std::vector<std::string> Noms() {
  std::vector<std::string> noms;
  for (const DialecteOffert& o : DialectesOfferts()) noms.push_back(o.dialecte.nom + (o.refus ? "!" : ""));
  return noms;
}

void Travail() {
  ReglagesPlan();
  AjouteTrajet(" A", -2, Carre);
}

TEST(DialectesOfferts, AreTheRowsAndTheUsersFilesByName) {
  EcritFichierEssai("zinc.dialecte", "base = grbl\n");
  EcritFichierEssai("atelier.DIALECTE", "base = mach\n");
  EcritFichierEssai("faux.dialecte", "arcs = peut-etre\n");
  EcritFichierEssai("grbl.dialecte", "");
  EcritFichierEssai("notes.txt", "");
  EXPECT_EQ(Noms(), (std::vector<std::string>{"own", "grbl", "linuxcnc", "mach", "iso", "atelier", "faux!", "grbl!",
                                              "zinc"}));
}

TEST(TrouveDialecte, FindsInEitherCaseAndARowBeforeAFile) {
  EcritFichierEssai("Zinc.dialecte", "base = grbl\nextension = zn\n");
  EcritFichierEssai("grbl.dialecte", "");
  EXPECT_EQ(TrouveDialecte("zINC")->dialecte.extension, "zn");
  EXPECT_FALSE(TrouveDialecte("GRBL")->refus);
  EXPECT_FALSE(TrouveDialecte("cuivre"));
}

TEST(DialecteEnVigueur, IsTheOwnAsDelivered) {
  LitSortieNC();
  EXPECT_EQ(DialecteEnVigueur()->nom, "own");
  EXPECT_EQ(Regl.VitesseBroche, 10'000);
  EXPECT_EQ(Regl.AttenteBroche, 3);
}

TEST(DialecteEnVigueur, TellsANameThatThereIsNot) {
  Regl.DialecteNC = "cuivre";
  Attend("F_Fraisage", "Dialecte_inconnu");
  EXPECT_FALSE(DialecteEnVigueur());
  EXPECT_THAT(Boites()[0].texte, testing::HasSubstr("cuivre"));
}

TEST(DialecteEnVigueur, TellsFileLineAndReason) {
  const std::string fichier = EcritFichierEssai("faux.dialecte", "base = grbl\n\narcs = peut-etre\n");
  Regl.DialecteNC = "faux";
  Attend("F_Fraisage", "Dialecte_valeur");
  EXPECT_FALSE(DialecteEnVigueur());
  EXPECT_EQ(Boites()[0].fichier, fichier);
  EXPECT_EQ(Boites()[0].ligne, 3);
  EXPECT_THAT(Boites()[0].texte, testing::HasSubstr(fichier + ":3: arcs = peut-etre"));
}

TEST(DialecteEnVigueur, TellsAFileThatCanNotBeRead) {
  std::filesystem::create_directory(Dossier() + "/dossier.dialecte");
  Regl.DialecteNC = "dossier";
  // a folder is no file of the list
  Attend("F_Fraisage", "Dialecte_inconnu");
  EXPECT_FALSE(DialecteEnVigueur());
}

TEST(ChoisitDialecte, LastsInTheSettingsFileAndNeverInAProject) {
  const std::string projet = EcritFichierEssai("p.OVL", "$$PCPoche=20\r\n");
  FichierCourant = FichierProjet = projet;
  ChoisitDialecte("mach");
  EXPECT_EQ(LireCleIni(cles::DialecteNC, ""), "mach");
  EXPECT_EQ(LitFichierEssai(projet), "$$PCPoche=20\r\n");
  Regl.DialecteNC = "";
  LitSortieNC();
  EXPECT_EQ(Regl.DialecteNC, "mach");
}

TEST(ChoisitDialecte, TheNameUsedLastTakesItsExtension) {
  NomFichierNC = "/tmp/piece.nc";
  ChoisitDialecte("linuxcnc");
  EXPECT_EQ(NomFichierNC, "/tmp/piece.ngc");
  NomFichierNC.clear();
  ChoisitDialecte("own");
  EXPECT_EQ(NomFichierNC, "");
}

TEST(EntreVitesseBroche, TakesNumbersOfZeroOrMore) {
  EXPECT_FALSE(EntreVitesseBroche("18000"));
  EXPECT_EQ(Regl.VitesseBroche, 18'000);
  EXPECT_EQ(LireCleIni(cles::VitesseBroche, ""), "18000");
  EXPECT_EQ(EntreVitesseBroche("-1"), Textes::BrocheHorsLimites);
  EXPECT_EQ(EntreVitesseBroche("1000001"), Textes::BrocheHorsLimites);
  EXPECT_EQ(EntreVitesseBroche("vite"), Textes::VitesseNonNombre);
  EXPECT_EQ(Regl.VitesseBroche, 18'000);
  EXPECT_FALSE(EntreAttenteBroche("0"));
  EXPECT_EQ(Regl.AttenteBroche, 0);
}

TEST(LitSortieNC, TakesNoNegativeValueOfAFile) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nVitesseBroche=-5\r\nAttenteBroche=-1\r\n");
  LitSortieNC();
  EXPECT_EQ(Regl.VitesseBroche, 0);
  EXPECT_EQ(Regl.AttenteBroche, 0);
}

TEST(EcritGCode, WritesInTheDialectOfTheSettingUnderAnyExtension) {
  Travail();
  Regl.DialecteNC = "grbl";
  Regl.VitesseBroche = 900;
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Dossier() + "/a.txt", r));
  EXPECT_THAT(LitFichierEssai(Dossier() + "/a.txt"), testing::HasSubstr("\nM3 S900\nG4 P3\n"));
}

TEST(EcritGCode, ProposesTheExtensionOfTheDialect) {
  Travail();
  Regl.DialecteNC = "linuxcnc";
  DialogueFichier demande;
  Svc.ChoisitFichier = [&](const DialogueFichier& d) {
    demande = d;
    return std::string();
  };
  EcritureNC r;
  EXPECT_FALSE(EcritGCode("", r));
  EXPECT_EQ(demande.titre, "LinuxCNC");
  EXPECT_EQ(demande.motif, "*.ngc");
  EXPECT_EQ(demande.filtre, "LinuxCNC (*.ngc)");
}

// An arc far out, at a speed that fills its word: N99000 G03 X-9899.999999 Y-... I-... J-... F60000000000.000000
TEST(EcritGCode, AFileWithLinesBeyondTheLimitIsNone) {
  ReglagesPlan();
  std::vector<PointEssai> points;
  for (int k = 0; k <= 400; ++k) {
    const double a = -2.5 + k * 0.0035;
    points.push_back(
        {static_cast<float>(-9500 + 400 * std::cos(a)), static_cast<float>(-9500 + 400 * std::sin(a))});
  }
  AjouteTrajet(" A", -2, points);
  Vitesse_Mat_H = 1e9;
  EcritFichierEssai("court.dialecte",
                    "base = iso\nlongueur = 80\ndecimales = 6\ndecimales_avance = 6\nnumeros = 1000\n");
  Regl.DialecteNC = "court";
  Attend("F_Fraisage", "Dialecte_lignes");
  EcritureNC r;
  EXPECT_FALSE(EcritGCode(Dossier() + "/a.iso", r));
  EXPECT_GT(r.arcs, 0);
  EXPECT_FALSE(FichierExiste(Dossier() + "/a.iso"));
}

TEST(EcritGCode, AnUnknownDialectIsToldBeforeAnythingIsPlanned) {
  Travail();
  Regl.DialecteNC = "cuivre";
  Attend("F_Fraisage", "Dialecte_inconnu");
  EcritureNC r;
  EXPECT_FALSE(EcritGCode(Dossier() + "/a.nc", r));
  EXPECT_EQ(NbDeplacements, 0);
}

}  // namespace
}  // namespace essai
