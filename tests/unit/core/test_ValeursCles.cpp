#include "core/Cles.h"
#include "core/ValeursCles.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

TEST(JugeCle, TakesANumberOfTheRangeOfItsSetting) {
  EXPECT_EQ(JugeCle("RayonFraise", "1.5"), std::nullopt);
  EXPECT_EQ(JugeCle("RayonFraise", "-1"), FauteCle::Limites);
  EXPECT_EQ(JugeCle("ProfFraisage", "-3"), std::nullopt);
  EXPECT_EQ(JugeCle("ProfFraisage", "1000001"), FauteCle::Limites);
  EXPECT_EQ(JugeCle("DecalageOutil", "3"), std::nullopt);
  EXPECT_EQ(JugeCle("DecalageOutil", "4"), FauteCle::Limites);
  EXPECT_EQ(JugeCle("PCPoche", "32768"), FauteCle::Limites);
  EXPECT_EQ(JugeCle("gMaxMRU", "32768"), std::nullopt);
  EXPECT_EQ(JugeCle("PeriodeInterro", "1s"), FauteCle::Illisible);
}

TEST(JugeCle, DoesNotTellCaseAndTakesAnyWordWhereNoNumberIsNeeded) {
  EXPECT_EQ(JugeCle("rayonfraise", "1.5mm"), FauteCle::Illisible);
  EXPECT_EQ(JugeCle("CouleurSelectionne", "red"), FauteCle::Illisible) << "the one that is read, in other case";
  for (const char* cle : {"Language", "TABLEDEFAUT", "MatDefaut", "CarteZENIK", "ConfirmSuppr"}) {
    EXPECT_EQ(JugeCle(cle, "any word"), std::nullopt) << cle;
  }
}

TEST(JugeCle, KnowsTheFieldsOfAMachineTableAndNoOthers) {
  for (const char* cle : {"TB_SAV_0", "tb_sav_32", "TB_SAV_188888", "CB_SAV_0", "CB_SAV_17", "CB_SAV_110",
                          "Combo_SAV_14", "Option_SAV_1", "Sld_SAV_0", "OptionLPT"}) {
    EXPECT_EQ(JugeCle(cle, "7"), std::nullopt) << cle;
    EXPECT_EQ(JugeCle(cle, "x"), FauteCle::Illisible) << cle;
  }
  for (const char* cle :
       {"TB_SAV_33", "TB_SAV_", "CB_SAV_4", "CB_SAV_111", "Combo_SAV_15", "Option_SAV_2", "Sld_SAV_1"}) {
    EXPECT_EQ(JugeCle(cle, "7"), FauteCle::Inconnue) << cle;
  }
}

TEST(JugeCle, WantsANumberBehindTheKeysOfLists) {
  EXPECT_EQ(JugeCle("MRUFiles1", "/d/x.dxf"), std::nullopt);
  EXPECT_EQ(JugeCle("DB12", "Wood\t1\tA\t-3\t-1\t2\t2\t5\t0"), std::nullopt);
  EXPECT_EQ(JugeCle("DB12", "Wood\t1"), FauteCle::Illisible);
  for (const char* cle : {"MRUFiles", "MRUFiles0", "DB", "DB0", "DBx"}) {
    EXPECT_EQ(JugeCle(cle, "x"), FauteCle::Inconnue) << cle;
  }
}

TEST(JugeCle, KnowsThePlacesOfWindowsByTheirSuffix) {
  for (const char* cle :
       {"F_Representation_Left", "F_Fraisage_TOP", "F_Representation_max", "F_Representation_Panneau"}) {
    EXPECT_EQ(JugeCle(cle, "15"), std::nullopt) << cle;
    EXPECT_EQ(JugeCle(cle, "wide"), FauteCle::Illisible) << cle;
  }
  EXPECT_EQ(JugeCle("F_Representation_Colour", "15"), FauteCle::Inconnue);
}

TEST(FicheIllisible, NamesTheRowOfTheFileWithItsLine) {
  essai::EcritFichierEssai(
      "OVELIN.ini", "[OVELIN]\r\nDB1=Wood&&1&&A&&-3&&-1&&2&&2&&5&&0\r\nDB2=Oak&&1&&A&&-3x&&-1&&2&&2&&5&&0\r\n");
  EXPECT_FALSE(FicheIllisible(1).has_value());
  const auto v = FicheIllisible(2);
  ASSERT_TRUE(v.has_value());
  EXPECT_EQ(v->fichier, CheminIni());
  EXPECT_EQ(v->ligne, 3);
  EXPECT_EQ(v->cle, "DB2");
  EXPECT_EQ(v->valeur, "Oak\t1\tA\t-3x\t-1\t2\t2\t5\t0");
  EXPECT_FALSE(FicheIllisible(3).has_value()) << "there is none";
}

// The window takes rows without a width and a height of notches, and fills short rows up.
TEST(FicheIllisible, TakesFieldsThatWereLeftEmpty) {
  essai::EcritFichierEssai("OVELIN.ini",
                           "[OVELIN]\r\nDB1=Wood&&1&&&&-3&&-1&&2&&2&&&& \r\nDB2=Oak&&1,5&&3 mm&&-3\r\n");
  EXPECT_FALSE(FicheIllisible(1).has_value());
  EXPECT_FALSE(FicheIllisible(2).has_value());
}

}  // namespace
