#include "core/Cles.h"
#include "core/Dossiers.h"
#include "core/FichierDefaut.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Traduction.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::Attend;
using essai::Boites;
using essai::Dossier;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;

std::string Attendu(const std::string& interface, const std::string& optionLPT) {
  std::string s =
      "[OVELIN]\nTableDefaut=OVELIN\nMatDefaut=D\xE9pron 3 mm\nDebugZENIK=Faux\n"
      "MRUFiles1=<dir>\\Cercle.dxf\nMRUFiles2=<dir>\\Carre.dxf\nMRUFiles3=<dir>\\Octogone.dxf\n"
      "F_Representation_Left = 1860\nF_Representation_Top = 1035\nF_Representation_Width = 18750\n"
      "F_Representation_Height = 13560\n[table_OVELIN]\n"
      "COMBO_SAV_0=" +
      interface +
      "\nCOMBO_SAV_1=2\nCOMBO_SAV_2=3\nCOMBO_SAV_3=0\nCOMBO_SAV_4=1\nCOMBO_SAV_5=4\n"
      "COMBO_SAV_6=5\nCOMBO_SAV_7=0\nCOMBO_SAV_8=1\nCOMBO_SAV_9=6\nCOMBO_SAV_10=6\nCOMBO_SAV_11=5\nCOMBO_SAV_12=1\n"
      "COMBO_SAV_13=1\nCOMBO_SAV_14=1\nCB_SAV_0=0\nCB_SAV_1=1\nCB_SAV_2=0\nCB_SAV_3=0\nCB_SAV_13=0\nCB_SAV_101=0\n"
      "CB_SAV_102=0\nCB_SAV_103=0\nCB_SAV_104=0\nCB_SAV_105=0\nCB_SAV_106=0\nCB_SAV_107=0\nCB_SAV_108=0\n"
      "CB_SAV_109=0\nCB_SAV_110=0\nTB_SAV_0=1\nTB_SAV_1=1\nTB_SAV_2=1\nTB_SAV_3=100\nTB_SAV_4=100\nTB_SAV_5=100\n"
      "TB_SAV_6=3.6\nTB_SAV_7=3.6\nTB_SAV_8=3.6\nTB_SAV_9=0\nTB_SAV_10=0\nTB_SAV_11=0\nTB_SAV_12=6\nTB_SAV_13=6\n"
      "TB_SAV_14=6\nTB_SAV_15=15\nTB_SAV_16=15\nTB_SAV_17=15\nTB_SAV_18=1000\nTB_SAV_19=500\nTB_SAV_20=2\n"
      "TB_SAV_21=0\nTB_SAV_22=0\nTB_SAV_23=0\nTB_SAV_24=0\nTB_SAV_25=600\nTB_SAV_26=10\nTB_SAV_27=10\nTB_SAV_28="
      "100\n"
      "TB_SAV_29=0\nTB_SAV_30=30\nSld_SAV_0=5\nCombo_Table=OVELIN\nOptionLPT=" +
      optionLPT + "\n\n";
  for (std::size_t i = s.find("<dir>"); i != std::string::npos; i = s.find("<dir>")) s.replace(i, 5, Dossier());
  for (std::size_t i = s.find('\n'); i != std::string::npos; i = s.find('\n', i + 2)) s.replace(i, 1, "\r\n");
  return s;
}

TEST(EcritFichierDefaut, WritesEveryLineInItsOrder) {
  Attend("erreurs", "401", Reponse::Ok);
  EXPECT_TRUE(EcritFichierDefaut());
  EXPECT_EQ(LitFichierEssai(CheminIni()), Attendu("0", "20"));
}

TEST(EcritFichierDefaut, CancelGivesTheOtherInterface) {
  Attend("erreurs", "401", Reponse::Annuler);
  EXPECT_TRUE(EcritFichierDefaut());
  EXPECT_EQ(LitFichierEssai(CheminIni()), Attendu("1", "0"));
}

TEST(EcritFichierDefaut, AsksWithTwoTextsJoinedByALineBreak) {
  EcritFichierEssai("OVELINfr.trad", "[erreurs]\n401=Premier\n402=Second\n");
  OublieTraductions();
  Attend("erreurs", "401", Reponse::Ok);
  EcritFichierDefaut();
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_EQ(Boites()[0].texte, "Premier\nSecond");
  EXPECT_EQ(Boites()[0].titre, "OVELIN");
  EXPECT_EQ(Boites()[0].boutons, Boutons::OkAnnuler);
}

TEST(EcritFichierDefaut, LeavesAFileThatIsThere) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\n");
  EXPECT_TRUE(EcritFichierDefaut());
  EXPECT_EQ(LitFichierEssai(CheminIni()), "[OVELIN]\r\n");
}

TEST(EcritFichierDefaut, LeavesNothingWhereItCannotWrite) {
  DossierProgramme = Dossier() + "/absent";
  Attend("erreurs", "401", Reponse::Ok);
  EXPECT_FALSE(EcritFichierDefaut());
  EXPECT_FALSE(FichierExiste(CheminIni()));
  EXPECT_EQ(Magasin.DerniereErreur, "No such file or directory");
}

TEST(EcritFichierDefaut, IsReadBackThroughTheKeyStore) {
  Attend("erreurs", "401", Reponse::Ok);
  EXPECT_EQ(LireCle("TableDefaut", "KR4400"), "KR4400");
  EcritFichierDefaut();
  EXPECT_EQ(LireCle("TableDefaut", "KR4400"), "OVELIN");
  EXPECT_EQ(LireCle("MatDefaut", ""), "Dépron 3 mm");
  EXPECT_EQ(LireNombre("F_Representation_Width", 0), 18750);
  EXPECT_EQ(LireNombreSection("table_OVELIN", "TB_SAV_6", 0), 3.6);
  EXPECT_EQ(LireCleSection("table_OVELIN", "Combo_SAV_12", ""), "1");
}

}  // namespace
