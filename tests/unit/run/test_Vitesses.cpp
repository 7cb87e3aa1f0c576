// Speeds that a job allows.
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

// Speeds without ramp 4 and 2, with ramp 40 and 10, in the section of the current table.
void TableEssai() {
  TableDefaut = "ESSAI";
  EcrireCleSection("table_ESSAI", "TB_SAV_12", "4");
  EcrireCleSection("table_ESSAI", "TB_SAV_13", "2");
  EcrireCleSection("table_ESSAI", "TB_SAV_15", "40");
  EcrireCleSection("table_ESSAI", "TB_SAV_16", "10");
}

void Mesure(double& sansRampe, double& max) {
  std::int16_t reserve = 7;
  Vitesse_Decoupe_H(sansRampe, max, reserve);
  EXPECT_EQ(reserve, 0);
}

TEST(Vitesse_Decoupe_H, TakesTheRowThatLimitsMost) {
  ReglagesPlan();
  TableEssai();
  InitDecoupe();
  AjoutDeplacementRelatif(10, 0, Vrai, 0);  // X alone: 4 and 40
  AjoutDeplacementRelatif(3, 4, Vrai, 0);   // 5 mm: Y takes 4/2 = 2 s, 2.5 mm/s; with ramp 0.4 s, 12.5 mm/s
  double sansRampe = 0;
  double max = 0;
  Mesure(sansRampe, max);
  EXPECT_NEAR(sansRampe, 2.5, 1e-9);
  EXPECT_NEAR(max, 12.5, 1e-9);
}

TEST(Vitesse_Decoupe_H, ReadsTheTableAnewAndNotTheLoadedLimits) {
  ReglagesPlan();  // VitesseMaxX 50
  TableEssai();
  InitDecoupe();
  AjoutDeplacementRelatif(-10, 0, Vrai, 0);
  double sansRampe = 0;
  double max = 0;
  Mesure(sansRampe, max);
  EXPECT_NEAR(sansRampe, 4, 1e-9);
  EXPECT_NEAR(max, 40, 1e-9);
  EcrireCleSection("table_ESSAI", "TB_SAV_15", "33");
  Mesure(sansRampe, max);
  EXPECT_NEAR(max, 33, 1e-9);
}

TEST(Vitesse_Decoupe_H, TakesFiveWhereTheTableSaysNothing) {
  ReglagesPlan();
  TableDefaut = "VIDE";
  InitDecoupe();
  AjoutDeplacementRelatif(0, 10, Vrai, 0);
  double sansRampe = 0;
  double max = 0;
  Mesure(sansRampe, max);
  EXPECT_NEAR(sansRampe, 5, 1e-9);
  EXPECT_NEAR(max, 5, 1e-9);
  InitDecoupe();
  AjoutDeplacementRelatif(10, 0, Vrai, 0);
  Mesure(sansRampe, max);
  EXPECT_NEAR(sansRampe, 5, 1e-9);
  EXPECT_NEAR(max, 5, 1e-9);
}

TEST(Vitesse_Decoupe_H, SkipsVerticalRowsAndStaysHighWithoutAMove) {
  ReglagesPlan();
  TableEssai();
  InitDecoupe();
  AjoutDeplacementZ(5, Faux, 0);
  AjoutDeplacementZ(-5, Vrai, 0);
  double sansRampe = 0;
  double max = 0;
  Mesure(sansRampe, max);
  EXPECT_EQ(sansRampe, 1e10);
  EXPECT_EQ(max, 1e10);
}

TEST(Vitesse_Decoupe_H, WithoutATableThereIsNoLimit) {
  double sansRampe = 0;
  double max = 0;
  Mesure(sansRampe, max);
  EXPECT_EQ(sansRampe, 1e10);
  EXPECT_EQ(max, 1e10);
}

TEST(Vitesse_Decoupe_H, AnAxisOfNoSpeedAllowsNoneWhereItMovesAndIsIgnoredWhereItStands) {
  ReglagesPlan();
  TableEssai();
  EcrireCleSection("table_ESSAI", "TB_SAV_13", "0");
  EcrireCleSection("table_ESSAI", "TB_SAV_16", "0");
  InitDecoupe();
  AjoutDeplacementRelatif(10, 0, Vrai, 0);
  double sansRampe = 0;
  double max = 0;
  Mesure(sansRampe, max);
  EXPECT_NEAR(sansRampe, 4, 1e-9);
  EXPECT_NEAR(max, 40, 1e-9);
  AjoutDeplacementRelatif(0, 1, Vrai, 0);
  Mesure(sansRampe, max);
  EXPECT_EQ(sansRampe, 0);
  EXPECT_EQ(max, 0);
}

TEST(CalculDeplac, AddsThePlaneDistanceAndGivesItsTime) {
  double longueur = 1;
  EXPECT_DOUBLE_EQ(CalculDeplac(1, 4, 2, 6, 2, longueur), 2.5);
  EXPECT_DOUBLE_EQ(longueur, 6);
}

TEST(CalculDeplac, GivesNoTimeForNoDistanceOrNoSpeed) {
  double longueur = 0;
  EXPECT_EQ(CalculDeplac(3, 3, 2, 2, 0, longueur), 0);
  EXPECT_EQ(CalculDeplac(0, 3, 0, 4, 0, longueur), 0);
  EXPECT_EQ(longueur, 5);
}

}  // namespace
}  // namespace essai
