// The writer of G-code files: order of its steps, layout, refusals.
#include <algorithm>
#include <filesystem>
#include <sstream>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Texte8.h"
#include "core/Traduction.h"
#include "machine/TableCourante.h"
#include "run/Module_GCode.h"
#include "tests/support/Golden.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

std::string Chemin(const std::string& nom = "essai.nc") { return Dossier() + "/" + nom; }

std::vector<std::string> LignesDe(const std::string& chemin) {
  std::vector<std::string> lignes;
  std::istringstream s(LitFichierEssai(chemin));
  for (std::string l; std::getline(s, l);) lignes.push_back(l);
  return lignes;
}

// A refusal by `cle`: nothing is written, the box is critical and titled with the program's name.
void AttendRefus(const std::string& section, const std::string& cle) {
  Attend(section, cle);
  EcritureNC r;
  EXPECT_FALSE(EcritGCode(Chemin(), r));
  EXPECT_FALSE(FichierExiste(Chemin()));
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
  EXPECT_EQ(Boites()[0].titre, "OVELIN");
}

void Travail() {
  ReglagesPlan();
  InstalleTextesGolden();
  AjouteTrajet(" A", -2, Carre);
}

TEST(EcritGCode, RefusesWithoutATrace) {
  ReglagesPlan();
  AttendRefus("F_Fraisage", "lib040");
}

TEST(EcritGCode, RefusesWithoutATraceBeforeItLooksAtTheSpeeds) {
  ReglagesPlan();
  Vitesse_Mat_H = 0;
  AttendRefus("F_Fraisage", "lib040");
}

TEST(EcritGCode, RefusesASpeedInTheMaterialOfZeroWithATextOfTwoKeys) {
  Travail();
  Vitesse_Mat_H = 0;
  AttendRefus("F_Fraisage", "lib041");
  EXPECT_EQ(Boites()[0].texte, Traduire("F_Fraisage", "lib041") + "\n" + Traduire("F_Fraisage", "lib042"));
}

TEST(EcritGCode, RefusesASpeedDownwardOfZero) {
  Travail();
  Vitesse_Mat_V = 0;
  AttendRefus("F_Fraisage", "lib041");
}

TEST(EcritGCode, RefusesATopSpeedOfZeroInX) {
  Travail();
  VitesseMaxX = 0;
  AttendRefus("F_Fraisage", "lib041");
}

TEST(EcritGCode, RefusesATopSpeedOfZeroInY) {
  Travail();
  VitesseMaxY = 0;
  AttendRefus("F_Fraisage", "lib041");
}

TEST(EcritGCode, RefusesATopSpeedOfZeroInZ) {
  Travail();
  VitesseMaxZ = 0;
  AttendRefus("F_Fraisage", "lib041");
}

TEST(EcritGCode, RefusesANegativeSpeedWhichNoMachineTakes) {
  Travail();
  Vitesse_Mat_H = -2;
  AttendRefus("F_Fraisage", "lib041");
}

TEST(EcritGCode, RefusesASpeedBeyondAllMachines) {
  Travail();
  Vitesse_Mat_H = 1e300;
  AttendRefus("F_Fraisage", "lib041");
}

TEST(EcritGCode, ARefusedSpeedLeavesTheResolutionsAndTheTable) {
  Travail();
  Vitesse_Mat_H = 0;
  AttendRefus("F_Fraisage", "lib041");
  EXPECT_EQ(CdeZENIK->MmParPasX(), 0.01);
  EXPECT_EQ(NbDeplacements, 0);
}

TEST(EcritGCode, WritesNothingWhenThePlanIsRefused) {
  Travail();
  ProfPasse = 0;
  AttendRefus("erreurs", "95");
}

TEST(EcritGCode, RefusesAnotherExtensionAndRemembersTheName) {
  Travail();
  Attend("F_Fraisage", "lib037");
  EcritureNC r;
  EXPECT_FALSE(EcritGCode(Chemin("essai.txt"), r));
  EXPECT_FALSE(FichierExiste(Chemin("essai.txt")));
  EXPECT_EQ(NomFichierNC, Chemin("essai.txt"));
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
}

TEST(EcritGCode, TakesTheExtensionInEitherCase) {
  Travail();
  EcritureNC r;
  EXPECT_TRUE(EcritGCode(Chemin("ESSAI.NC"), r));
  EXPECT_TRUE(FichierExiste(Chemin("ESSAI.NC")));
}

TEST(EcritGCode, AsksForTheNameAndProposesTheLastOne) {
  Travail();
  std::vector<DialogueFichier> demandes;
  Svc.ChoisitFichier = [&](const DialogueFichier& d) {
    demandes.push_back(d);
    return demandes.size() == 1 ? Chemin("un.nc") : std::string();
  };
  EcritureNC r;
  EXPECT_TRUE(EcritGCode("", r));
  EXPECT_TRUE(FichierExiste(Chemin("un.nc")));
  EXPECT_FALSE(EcritGCode("", r));  // cancelled
  ASSERT_EQ(demandes.size(), 2U);
  EXPECT_EQ(demandes[0].cle, "Btn_Gener_GCODE");
  EXPECT_TRUE(demandes[0].enregistrer);
  EXPECT_EQ(demandes[0].titre, "NC");
  EXPECT_EQ(demandes[0].motif, "*.nc");
  EXPECT_THAT(demandes[0].filtre, testing::HasSubstr("NC"));
  EXPECT_THAT(demandes[0].filtre, testing::HasSubstr("nc"));
  EXPECT_EQ(demandes[0].propose, "");
  EXPECT_EQ(demandes[1].propose, Chemin("un.nc"));
  EXPECT_EQ(NomFichierNC, Chemin("un.nc"));
}

TEST(EcritGCode, PlansBeforeItAsksForTheName) {
  Travail();
  Svc.ChoisitFichier = [&](const DialogueFichier&) {
    EXPECT_GT(NbDeplacements, 1);
    return std::string();
  };
  EcritureNC r;
  EXPECT_FALSE(EcritGCode("", r));
}

TEST(EcritGCode, SetsTheResolutionsToOneAndTheyStaySo) {
  Travail();
  EcritureNC r;
  EXPECT_TRUE(EcritGCode(Chemin(), r));
  EXPECT_EQ(CdeZENIK->MmParPasX(), 1);
  EXPECT_EQ(CdeZENIK->MmParPasY(), 1);
  EXPECT_EQ(CdeZENIK->MmParPasZ(), 1);
}

TEST(EcritGCode, HoldsTheHeaderInItsOrder) {
  Travail();
  Vitesse_Mat_H = 2.5;
  RayonFraise = 1.5;
  HautDeg = 6.5F;
  ProfFraisage = -2;
  Svc.MarqueDecimale = ',';
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  const auto lignes = LignesDe(Chemin());
  const auto t = [](const char* cle) { return EnTexte8(Traduire("F_Fraisage", cle)); };
  const std::vector<std::string> attendu{
      "(" + t("lib044") + " OVELIN Version 4.10.0)",
      "(" + t("lib044_1") + ")",
      "(" + t("lib045") + ")",
      "()",
      "( " + t("lib046") + " 2,5)",
      "( " + t("lib047") + " 1)",
      "( " + t("lib048") + " 50)",
      "( " + t("lib049") + " 20)",
      "( " + t("lib050") + " 8)",
      "( " + t("lib051") + " 6,5)",
      "( " + t("lib052") + " -2)",
      "( " + t("lib053") + " -2)",
      "( " + t("lib054") + " 1,5)",
      "()",
      "(" + t("lib057") + ")",
      "G71",
      "(" + t("lib058") + ")",
      "(" + t("lib060") + ")",
      "M03",
      "F480.00000",
  };
  ASSERT_GT(lignes.size(), attendu.size());
  EXPECT_EQ(std::vector<std::string>(lignes.begin(), lignes.begin() + static_cast<long>(attendu.size())), attendu);
  const std::vector<std::string> fin{"(" + t("lib071") + ")", "M05", "(" + t("lib072") + ")", "M02"};
  EXPECT_EQ(std::vector<std::string>(lignes.end() - 4, lignes.end()), fin);
  EXPECT_EQ(r.lignes, static_cast<long>(lignes.size()));
}

TEST(EcritGCode, WithoutAnOffsetThereIsNoLineForTheRadius) {
  Travail();
  EcritureNC avec;
  ASSERT_TRUE(EcritGCode(Chemin(), avec));
  DecalageOutil = 3;  // the other side
  EcritureNC autre;
  ASSERT_TRUE(EcritGCode(Chemin("autre.nc"), autre));
  EXPECT_EQ(autre.lignes, avec.lignes);
  DecalageOutil = 2;
  EcritureNC sans;
  ASSERT_TRUE(EcritGCode(Chemin("sans.nc"), sans));
  EXPECT_EQ(sans.lignes, avec.lignes - 1);
  EXPECT_THAT(LitFichierEssai(Chemin("sans.nc")),
              testing::Not(testing::HasSubstr(Traduire("F_Fraisage", "lib054"))));
  EXPECT_THAT(LitFichierEssai(Chemin()), testing::HasSubstr(Traduire("F_Fraisage", "lib054")));
}

TEST(EcritGCode, EndsEveryLineWithALineFeedAlone) {
  Travail();
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  const std::string octets = LitFichierEssai(Chemin());
  EXPECT_EQ(octets.find('\r'), std::string::npos);
  EXPECT_EQ(octets.back(), '\n');
}

TEST(EcritGCode, WritesCommentsInTheSetOfTheFile) {
  Travail();
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  EXPECT_THAT(LitFichierEssai(Chemin()), testing::HasSubstr("(Unit\xE9s en millim\xE8tres)\n"));
}

TEST(EcritGCode, CountsRowsLengthAndTime) {
  Travail();
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  EXPECT_EQ(r.deplacements, 10);  // up, down, plunge, four sides, up, up, down
  EXPECT_EQ(r.deplacements, NbDeplacements - 1);
  EXPECT_NEAR(r.LongueurNC, 5 + 5 + 2 + 40 + 2 + 5 + 5, 1e-9);
  EXPECT_NEAR(r.TempsNC, 20.0 / 8 + 4.0 / 1 + 40.0 / 3, 1e-9);
}

TEST(EcritGCode, StartsItsSumsAnewWithEachFile) {
  Travail();
  EcritureNC premiere;
  ASSERT_TRUE(EcritGCode(Chemin(), premiere));
  EcritureNC deuxieme = premiere;
  ASSERT_TRUE(EcritGCode(Chemin("deux.nc"), deuxieme));
  EXPECT_EQ(deuxieme.LongueurNC, premiere.LongueurNC);
  EXPECT_EQ(deuxieme.TempsNC, premiere.TempsNC);
  EXPECT_EQ(deuxieme.deplacements, premiere.deplacements);
  EXPECT_EQ(LitFichierEssai(Chemin("deux.nc")), LitFichierEssai(Chemin()));
}

TEST(EcritGCode, MeasuresTheFirstRowFromTheOriginWhereverTheMachineStands) {
  Travail();
  CdeZENIK->FixeResolutions(1, 1, 1);
  CdeZENIK->FixePosition(30, 40, 5);
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  const auto lignes = LignesDe(Chemin());
  const auto m03 = std::find(lignes.begin(), lignes.end(), "M03");
  ASSERT_LT(lignes.end() - m03, 100);
  EXPECT_EQ(*(m03 + 2), "G00  X30.000 Y40.000 Z5.000");
  // from (0, 0, 0) to there, then the rapid to the square at the origin, then the rest
  EXPECT_NEAR(r.LongueurNC, std::sqrt(900.0 + 1600 + 25) + 50 + 5 + 2 + 40 + 2 + 5 + 5, 1e-5);
}

TEST(EcritGCode, BeginsWhereTheMachineStandsHoweverFineItsSteps) {
  Travail();
  CdeZENIK->FixeResolutions(0.005, 0.004, 0.0025);
  CdeZENIK->FixePosition(100, 50, 10);
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  const auto lignes = LignesDe(Chemin());
  const auto m03 = std::find(lignes.begin(), lignes.end(), "M03");
  ASSERT_LT(lignes.end() - m03, 100);
  // down from 10 to the clearance of 5
  EXPECT_EQ(*(m03 + 2), "G00  X100.000 Y50.000 Z5.000");
  EXPECT_EQ(CdeZENIK->PosX, 100);
  EXPECT_EQ(CdeZENIK->PosY, 50);
  EXPECT_EQ(CdeZENIK->PosZ, 10);
  EXPECT_EQ(CdeZENIK->MmParPasX(), 1);
  EXPECT_EQ(CdeZENIK->MmParPasY(), 1);
  EXPECT_EQ(CdeZENIK->MmParPasZ(), 1);
}

TEST(EcritGCode, AJobAtDepthZeroHasABareLineForItsPlunge) {
  Travail();
  Sequences[0].Profondeur = 0;
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  EXPECT_THAT(LignesDe(Chemin()), testing::Contains("G01 "));
}

TEST(EcritGCode, WritesTheSpeedInTheMaterialAsTyped) {
  Travail();
  Vitesse_Mat_H = 900;  // the axes can 50 and 20
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  EXPECT_THAT(LignesDe(Chemin()), testing::Contains("F54000.00000"));
}

TEST(EcritGCode, AFileThatCanNotBeWrittenIsToldWithItsReason) {
  Travail();
  const std::string chemin = Dossier() + "/nulle-part/essai.nc";
  Attend("F_Fraisage", "lib043");
  EcritureNC r;
  EXPECT_FALSE(EcritGCode(chemin, r));
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
  EXPECT_EQ(Boites()[0].fichier, chemin);
  EXPECT_THAT(Boites()[0].texte, testing::HasSubstr(chemin));
  EXPECT_THAT(Boites()[0].texte, testing::HasSubstr("No such file or directory"));
  EXPECT_FALSE(std::filesystem::exists(Dossier() + "/nulle-part"));
}

TEST(EcritGCode, AFailureLeavesTheFileThatWasThere) {
  Travail();
  EcritFichierEssai("essai.nc", "avant\n");
  std::filesystem::permissions(Chemin(), std::filesystem::perms::owner_read);
  Attend("F_Fraisage", "lib043");
  EcritureNC r;
  EXPECT_FALSE(EcritGCode(Chemin(), r));
  EXPECT_EQ(LitFichierEssai(Chemin()), "avant\n");
}

TEST(EcritGCode, ReplacesWhatWasThere) {
  Travail();
  EcritFichierEssai("essai.nc", std::string(100000, 'x'));
  EcritureNC r;
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  EXPECT_THAT(LitFichierEssai(Chemin()), testing::Not(testing::HasSubstr("xxx")));
}

TEST(EcritGCode, ShowsItsCountGoingUpWhileItWrites) {
  ReglagesPlan();
  std::vector<PointEssai> points;
  points.reserve(9000);
  for (int i = 0; i < 9000; ++i) points.push_back({static_cast<float>(i), 0});
  AjouteTrajet(" A", -1, points);
  double heure = 0;
  Svc.Horloge = [&] { return heure += 0.02; };
  EcritureNC r;
  std::vector<double> longueurs;
  Svc.LaisseEvenements = [&](Evenements e) {
    EXPECT_EQ(e, Evenements::Affichage);
    if (r.deplacements > 0) longueurs.push_back(r.LongueurNC);
  };
  ASSERT_TRUE(EcritGCode(Chemin(), r));
  ASSERT_GE(longueurs.size(), 3U);
  EXPECT_GT(longueurs[0], 0);
  EXPECT_GT(longueurs[2], longueurs[1]);
  EXPECT_LT(longueurs[2], r.LongueurNC);
}

}  // namespace
}  // namespace essai
