#include <limits>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;

TEST(LitReglages, GivesTheDefaultsWithoutAFile) {
  Regl.RayonFraise = 99;
  Regl.ProfFraisage = 99;
  Regl.PCPoche = 99;
  Regl.CouleurNumero = 99;
  LitMateriau();
  LitCouleurs();
  LitOptions();
  LitOutil();
  EXPECT_EQ(Regl.Vitesse_Mat_H, 2);
  EXPECT_EQ(Regl.Vitesse_Mat_V, 2);
  EXPECT_EQ(Regl.HautDeg, 10.0F);
  EXPECT_EQ(Regl.ProfFraisage, -3);
  EXPECT_EQ(Regl.ProfPasse, -1);
  EXPECT_EQ(Regl.MiniEncoche, 0);
  EXPECT_EQ(Regl.AngleRampe, 0);
  EXPECT_EQ(Regl.ModeZENIK, 0);
  EXPECT_EQ(Regl.PCPoche, 15);
  EXPECT_TRUE(Regl.ConfirmSuppr);
  EXPECT_EQ(Regl.TimerInterval, 275);
  EXPECT_EQ(Regl.gMaxMRU, 4);
  EXPECT_EQ(Regl.DecalageOutil, 1);
  EXPECT_EQ(Regl.RayonFraise, 3);
  EXPECT_EQ(Regl.LargeurEncoche, 5);
  EXPECT_EQ(Regl.CouleurNumero, 0);
  EXPECT_EQ(Regl.CouleurSequence, 255 * 65536);
  EXPECT_EQ(Regl.CouleurInitial, 0);
  EXPECT_EQ(Regl.Couleurselectionne, 100);
  EXPECT_EQ(Regl.CouleurDecalage, 255);
  EXPECT_EQ(Regl.CouleurEncoche, 100 * 65536);
}

TEST(LitMateriau, ReadsWithTheProjectsOverrides) {
  EcritFichierEssai("OVELIN.ini",
                    "[OVELIN]\r\nVitesse_Mat_H=5,5\r\nVitesse_Mat_V=4\r\nHautDeg=7.25\r\nModeZENIK=2\r\n");
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$Vitesse_Mat_V=3\r\n$$ProfFraisage=-12.5\r\n");
  LitMateriau();
  EXPECT_EQ(Regl.Vitesse_Mat_H, 5.5);
  EXPECT_EQ(Regl.Vitesse_Mat_V, 3);
  EXPECT_EQ(Regl.HautDeg, 7.25F);
  EXPECT_EQ(Regl.ProfFraisage, -12.5);
  EXPECT_EQ(Regl.ModeZENIK, 2);
}

TEST(LitMateriau, TurnsAPassOfNoDepthIntoATenth) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nProfPasse=0\r\n");
  LitMateriau();
  EXPECT_EQ(Regl.ProfPasse, -0.1);
}

TEST(LitMateriau, FallsBackOnTheDefaultForWhatIsNoNumber) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nProfPasse=abc\r\nHautDeg=1e300\r\n");
  LitMateriau();
  EXPECT_EQ(Regl.ProfPasse, -1);
  EXPECT_EQ(Regl.HautDeg, std::numeric_limits<float>::max());  // clipped, never infinite
}

TEST(LitMateriau, ReadsTheAngleOfTheRamp) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nAngleRampe=3,5\r\n");
  LitMateriau();
  EXPECT_EQ(Regl.AngleRampe, 3.5);
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$AngleRampe=7\r\n");
  LitMateriau();
  EXPECT_EQ(Regl.AngleRampe, 7);
}

TEST(LitMateriau, AProjectWithoutAnAngleHasNoRampWhateverTheSettingsHave) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nAngleRampe=3,5\r\n");
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$ProfPasse=-1\r\n");
  LitMateriau();
  EXPECT_EQ(Regl.AngleRampe, 0);
  Magasin.Surcharge["AngleRampe"] = "9";
  LitMateriau();
  EXPECT_EQ(Regl.AngleRampe, 9) << "what this call asks for stands above both";
  Magasin.Surcharge.clear();
  FichierCourant = essai::Dossier() + "/dessin.dxf";  // a drawing, behind an undo
  FichierProjet = "Chargt";
  LitMateriau();
  EXPECT_EQ(Regl.AngleRampe, 3.5);
}

TEST(LitMateriau, TakesNoAngleThatIsNone) {
  for (const char* texte : {"-3", "45,1", "90", "abc", "1e999"}) {
    EcritFichierEssai("OVELIN.ini", std::string("[OVELIN]\r\nAngleRampe=") + texte + "\r\n");
    OublieCles();
    LitMateriau();
    EXPECT_EQ(Regl.AngleRampe, 0) << texte;
  }
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nAngleRampe=45\r\n");
  OublieCles();
  LitMateriau();
  EXPECT_EQ(Regl.AngleRampe, 45);
}

TEST(EcritRampe, WritesAnAngleIntoSettingsAndProject) {
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "");
  Regl.AngleRampe = 2.5;
  EcritRampe();
  EXPECT_EQ(LitFichierEssai(FichierProjet), "$$AngleRampe=2.5\r\n");
  EXPECT_EQ(LireCleIni("AngleRampe", ""), "2.5");
}

TEST(EcritRampe, WritesNoZeroWhereThereWasNoAngle) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nProfPasse=-1\r\n");
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$ProfPasse=-1\r\n");
  EcritRampe();
  EXPECT_EQ(LitFichierEssai(FichierProjet), "$$ProfPasse=-1\r\n");
  EXPECT_EQ(LitFichierEssai(CheminIni()), "[OVELIN]\r\nProfPasse=-1\r\n");
}

TEST(EcritRampe, AZeroReplacesTheAngleThatWasThere) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nAngleRampe=3\r\n");
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$AngleRampe=7\r\n");
  EcritRampe();
  EXPECT_EQ(LitFichierEssai(FichierProjet), "$$AngleRampe=0\r\n");
  EXPECT_EQ(LireCleIni("AngleRampe", ""), "0");
}

TEST(LitOutil, TurnsASideBelowOneIntoOne) {
  for (const char* texte : {"0", "-3", "0,4"}) {
    EcritFichierEssai("OVELIN.ini", std::string("[OVELIN]\r\nDecalageOutil=") + texte + "\r\n");
    LitOutil();
    EXPECT_EQ(Regl.DecalageOutil, 1) << texte;
  }
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nDecalageOutil=2\r\n");
  LitOutil();
  EXPECT_EQ(Regl.DecalageOutil, 2);
}

TEST(LitOptions, ReadsTheWordsAndTheNumbers) {
  EcritFichierEssai("OVELIN.ini",
                    "[OVELIN]\r\nPCPoche=50\r\nConfirmSuppr=Faux\r\nTimerInterval=100\r\ngMaxMRU=7\r\n");
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$gMaxMRU=9\r\n$$PCPoche=20\r\n");
  LitOptions();
  EXPECT_EQ(Regl.PCPoche, 20);
  EXPECT_FALSE(Regl.ConfirmSuppr);
  EXPECT_EQ(Regl.TimerInterval, 100);
  EXPECT_EQ(Regl.gMaxMRU, 7);  // never the project's
}

TEST(LitOptions, RoundsAndClipsWhatDoesNotFit) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nPCPoche=99999\r\nTimerInterval=2.5\r\n");
  LitOptions();
  EXPECT_EQ(Regl.PCPoche, 32767);
  EXPECT_EQ(Regl.TimerInterval, 2);
}

TEST(LitOptions, TakesTheWeldToleranceFromTheSettingsFileAlone) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nToleranceSoudure=0,3\r\n");
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$ToleranceSoudure=0.5\r\n");
  LitOptions();
  EXPECT_EQ(Regl.ToleranceSoudure, 0.3F);
}

TEST(LitOptions, HasTheBuiltInWeldToleranceWhereTheFileHoldsNone) {
  for (const char* valeur : {"", "abc", "-1", "1e999"}) {
    EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nToleranceSoudure=" + std::string(valeur) + "\r\n");
    OublieCles();
    Regl.ToleranceSoudure = 7;
    LitOptions();
    EXPECT_EQ(Regl.ToleranceSoudure, 0.01F) << valeur;
  }
}

TEST(LitOptions, LetsTheWeldToleranceBeZero) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nToleranceSoudure=0\r\n");
  LitOptions();
  EXPECT_EQ(Regl.ToleranceSoudure, 0.0F);
}

TEST(EcritSoudure, WritesTheSettingsFileAndNeverTheProject) {
  const std::string projet = EcritFichierEssai("p.OVL", "$$PCPoche=20\r\n");
  FichierCourant = FichierProjet = projet;
  Regl.ToleranceSoudure = 0.2F;
  EcritSoudure();
  EXPECT_EQ(FichierProjet, projet);
  EXPECT_EQ(LitFichierEssai(projet), "$$PCPoche=20\r\n");
  Regl.ToleranceSoudure = 0.01F;
  LitOptions();
  EXPECT_EQ(Regl.ToleranceSoudure, 0.2F);
}

TEST(LitCouleurs, ReadsTheWholeValue) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nCouleurDecalage=16777215\r\n");
  LitCouleurs();
  EXPECT_EQ(Regl.CouleurDecalage, 16777215);
}

TEST(Couleur, CountsRedFirst) { EXPECT_EQ(Couleur(1, 2, 3), 1 + 2 * 256 + 3 * 65536); }

TEST(EcritReglages, WritesEachGroupInItsOrder) {
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "");
  Regl.HautDeg = 0.1F;
  Regl.ProfPasse = -0.1;
  Svc.MarqueDecimale = ',';
  EcritMateriau();
  EcritCouleurs();
  EcritOptions();
  EcritOutil();
  EXPECT_EQ(
      LitFichierEssai(FichierProjet),
      "$$Vitesse_Mat_H=2\r\n$$Vitesse_Mat_V=2\r\n$$HautDeg=0,1\r\n$$ProfFraisage=-3\r\n$$ProfPasse=-0,1\r\n"
      "$$MiniEncoche=0\r\n$$ModeZENIK=0\r\n$$CouleurNumero=0\r\n$$CouleurSequence=16711680\r\n"
      "$$CouleurInitial=0\r\n$$Couleurselectionne=100\r\n$$CouleurDecalage=255\r\n$$CouleurEncoche=6553600\r\n"
      "$$PCPoche=15\r\n$$ConfirmSuppr=Vrai\r\n$$TimerInterval=275\r\n"
      "$$DecalageOutil=1\r\n$$RayonFraise=3\r\n$$LargeurEncoche=5\r\n");
  EXPECT_EQ(LireCleIni("gMaxMRU", ""), "4");
  EXPECT_EQ(LireCleIni("HautDeg", ""), "0,1");
}

TEST(EcritOptions, PutsTheProjectBack) {
  FichierProjet = "Chargt";
  EcritOptions();
  EXPECT_EQ(FichierProjet, "Chargt");
}

TEST(EcritReglages, ReadsBackWhatItWrites) {
  Regl.RayonFraise = 0.1 + 0.2;
  Regl.HautDeg = 12.345F;
  Regl.ConfirmSuppr = false;
  Regl.CouleurEncoche = Couleur(1, 2, 3);
  const Reglages avant = Regl;
  for (const char marque : {'.', ','}) {
    Svc.MarqueDecimale = marque;
    EcritMateriau();
    EcritCouleurs();
    EcritOptions();
    EcritOutil();
    Regl = Reglages{};
    LitMateriau();
    LitCouleurs();
    LitOptions();
    LitOutil();
    EXPECT_EQ(Regl.RayonFraise, avant.RayonFraise);
    EXPECT_EQ(Regl.HautDeg, avant.HautDeg);
    EXPECT_EQ(Regl.ConfirmSuppr, avant.ConfirmSuppr);
    EXPECT_EQ(Regl.CouleurEncoche, avant.CouleurEncoche);
  }
}

TEST(EcritCouleursDefaut, WritesOtherValuesPartlyUnderOtherKeys) {
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "");
  EcritCouleursDefaut();
  EXPECT_EQ(LitFichierEssai(FichierProjet),
            "$$CouleurNumero=0\r\n$$CouleurSequence=16711680\r\n$$CouleurSelectionne=255\r\n"
            "$$CouleurDeselectionne=100\r\n$$CouleurDecalage=65280\r\n$$CouleurEncoche=6553700\r\n");
}

TEST(EcritCouleursDefaut, TheSelectedColourFollowsInTheSettingsFileAlone) {
  EcritCouleursDefaut();  // the settings file does not tell letter case
  LitCouleurs();
  EXPECT_EQ(Regl.Couleurselectionne, 255);
  EXPECT_EQ(Regl.CouleurDecalage, Couleur(0, 255, 0));
}

}  // namespace
