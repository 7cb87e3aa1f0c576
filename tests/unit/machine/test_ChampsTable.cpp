#include <algorithm>

#include "core/Cles.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::Dossier;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;

std::string Champ(const ChampsTable& champs, const std::string& cle) {
  const auto it = std::find_if(champs.begin(), champs.end(), [&](const auto& c) { return c.first == cle; });
  return it != champs.end() ? it->second : "(no such field)";
}

void Change(ChampsTable& champs, const std::string& cle, const std::string& texte) {
  const auto it = std::find_if(champs.begin(), champs.end(), [&](const auto& c) { return c.first == cle; });
  ASSERT_NE(it, champs.end()) << cle;
  it->second = texte;
}

void PoseTable(const std::string& lignes) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=Mill\r\n[table_Mill]\r\n" + lignes);
  OublieCles();
  TableDefaut = "Mill";
}

std::string CleEcrite(const std::string& cle) {
  OublieCles();
  return LireCleSection("table_Mill", cle, "(missing)");
}

TEST(Chargt_Table, HoldsEveryFieldOnce) {
  const auto champs = Chargt_Table("Mill");
  // 33 entry fields, 15 lists, 19 check boxes, 2 options, 1 slider.
  EXPECT_EQ(champs.size(), 33U + 15 + 19 + 2 + 1);
  for (const auto& [cle, texte] : champs) {
    EXPECT_EQ(std::count_if(champs.begin(), champs.end(), [&, c = cle](const auto& x) { return x.first == c; }), 1)
        << cle;
  }
}

TEST(Chargt_Table, EmptyTableShowsTheDefaultsOfTheReaders) {
  const auto champs = Chargt_Table("Nowhere");
  const std::pair<const char*, const char*> attendus[] = {
      {"TB_SAV_0", "1"},     {"TB_SAV_2", "1"},     {"TB_SAV_3", "200"},   {"TB_SAV_5", "200"},
      {"TB_SAV_6", "1.8"},   {"TB_SAV_8", "1.8"},   {"TB_SAV_9", "0"},     {"TB_SAV_12", "5"},
      {"TB_SAV_15", "5"},    {"TB_SAV_17", "5"},    {"TB_SAV_18", "1000"}, {"TB_SAV_19", "500"},
      {"TB_SAV_20", "2"},    {"TB_SAV_21", "0"},    {"TB_SAV_25", "600"},  {"TB_SAV_26", "10"},
      {"TB_SAV_27", "10"},   {"TB_SAV_28", "100"},  {"TB_SAV_29", "0"},    {"TB_SAV_30", "0"},
      {"TB_SAV_31", "0"},    {"TB_SAV_32", ""},     {"Combo_SAV_0", "0"},  {"Combo_SAV_1", "0"},
      {"Combo_SAV_10", "0"}, {"Combo_SAV_11", "1"}, {"Combo_SAV_12", "1"}, {"Combo_SAV_14", "1"},
      {"CB_SAV_1", "1"},     {"CB_SAV_2", "0"},     {"CB_SAV_3", "0"},     {"CB_SAV_14", "0"},
      {"Option_SAV_0", "1"}, {"Option_SAV_1", "0"}, {"CB_SAV_12", "0"},    {"CB_SAV_13", "0"},
      {"CB_SAV_15", "0"},    {"CB_SAV_16", "1"},    {"CB_SAV_17", "1"},    {"CB_SAV_101", "0"},
      {"CB_SAV_110", "0"},   {"Sld_SAV_0", "5"},
  };
  for (const auto& [cle, texte] : attendus) EXPECT_EQ(Champ(champs, cle), texte) << cle;
}

TEST(Chargt_Table, ReadsTheTableThatIsNamed) {
  EcritFichierEssai("OVELIN.ini", "[table_A]\r\nTB_SAV_15=11\r\n[table_B]\r\nTB_SAV_15=22\r\nCOMBO_SAV_3=6\r\n");
  TableDefaut = "A";
  EXPECT_EQ(Champ(Chargt_Table("B"), "TB_SAV_15"), "22");
  EXPECT_EQ(Champ(Chargt_Table("B"), "Combo_SAV_3"), "6");
}

TEST(Chargt_Table, ShowsTheUsersMark) {
  PoseTable("TB_SAV_0=1.25\r\n");
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(Champ(Chargt_Table("Mill"), "TB_SAV_0"), "1,25");
}

TEST(Chargt_Table, MissingDegreesFollowTheSteps) {
  PoseTable("TB_SAV_3=400\r\nTB_SAV_4=0\r\nTB_SAV_8=7.2\r\n");
  const auto champs = Chargt_Table("Mill");
  EXPECT_EQ(Champ(champs, "TB_SAV_6"), "0.9");
  EXPECT_EQ(Champ(champs, "TB_SAV_7"), "") << "no degrees for a motor without steps";
  EXPECT_EQ(Champ(champs, "TB_SAV_8"), "7.2") << "what is stored stays";
}

TEST(Sauve_Table, StoresWhatWasLoaded) {
  PoseTable("");
  auto champs = Chargt_Table("Mill");
  Change(champs, "TB_SAV_15", "21.5");
  Change(champs, "Combo_SAV_2", "4");
  Change(champs, "CB_SAV_103", "1");
  Change(champs, "Option_SAV_1", "1");
  Change(champs, "Sld_SAV_0", "7");
  EXPECT_TRUE(Sauve_Table("Mill", champs));
  OublieCles();
  EXPECT_EQ(Chargt_Table("Mill"), champs);
}

TEST(Sauve_Table, StoresThePoint) {
  PoseTable("");
  Svc.MarqueDecimale = ',';
  auto champs = Chargt_Table("Mill");
  Change(champs, "TB_SAV_0", "1,25");
  Sauve_Table("Mill", champs);
  EXPECT_EQ(CleEcrite("TB_SAV_0"), "1.25");
}

TEST(Sauve_Table, NamesTheTableInItself) {
  PoseTable("COMBO_TABLE=old\r\n");
  Sauve_Table("Mill", Chargt_Table("Mill"));
  EXPECT_EQ(CleEcrite("COMBO_TABLE"), "Mill");
}

TEST(Sauve_Table, ReplacesAKeyOfOtherCaseWhereItStands) {
  PoseTable("COMBO_SAV_12=3\r\n");
  auto champs = Chargt_Table("Mill");
  Change(champs, "Combo_SAV_12", "2");
  Sauve_Table("Mill", champs);
  EXPECT_EQ(CleEcrite("COMBO_SAV_12"), "2");
  const std::string ini = LitFichierEssai(Dossier() + "/OVELIN.ini");
  EXPECT_EQ(ini.find("COMBO_SAV_12=3"), std::string::npos);
}

TEST(Sauve_Table, KeepsKeysThatNoFieldHolds) {
  PoseTable("TB_SAV_188888=90\r\nCB_SAV_0=4\r\n");
  Sauve_Table("Mill", Chargt_Table("Mill"));
  EXPECT_EQ(CleEcrite("TB_SAV_188888"), "90");
  EXPECT_EQ(CleEcrite("CB_SAV_0"), "4");
}

TEST(Sauve_Table, DoesNotWriteTheZTravelOfTheGlobals) {
  PoseTable("");
  auto champs = Chargt_Table("Mill");
  Change(champs, "TB_SAV_20", "80");
  Sauve_Table("Mill", champs);
  EXPECT_EQ(CleEcrite("TB_SAV_20"), "80");
  EXPECT_EQ(CleEcrite("TB_SAV_188888"), "(missing)");
  ChargeGlobalesTable();
  EXPECT_EQ(CourseZ, 200);
}

TEST(Sauve_Table, GivesTheOptionOfTheInterface) {
  PoseTable("");
  for (const auto& [genre, option] : {std::pair("0", "20"), {"1", "1"}, {"2", "2"}, {"4", "10"}, {"5", "5"}}) {
    auto champs = Chargt_Table("Mill");
    Change(champs, "Combo_SAV_0", genre);
    Sauve_Table("Mill", champs);
    EXPECT_EQ(CleEcrite("OptionLPT"), option) << genre;
  }
}

TEST(Sauve_Table, TakesTheSpindleSwitchOver) {
  PoseTable("");
  auto champs = Chargt_Table("Mill");
  for (const auto& [texte, valeur] : {std::pair("0", 0), {"1", 1}, {"2", 2}}) {
    Change(champs, "CB_SAV_16", texte);
    Sauve_Table("Mill", champs);
    EXPECT_EQ(BrocheAuto, valeur);
  }
}

TEST(Sauve_Table, FieldsThatAreNotGivenKeepTheirKeys) {
  PoseTable("CB_SAV_16=0\r\nCombo_SAV_0=4\r\nTB_SAV_0=3\r\n");
  Sauve_Table("Mill", {{"TB_SAV_15", "9"}});
  EXPECT_EQ(CleEcrite("TB_SAV_0"), "3");
  EXPECT_EQ(CleEcrite("TB_SAV_15"), "9");
  EXPECT_EQ(CleEcrite("OptionLPT"), "10");
  EXPECT_EQ(BrocheAuto, 0);
}

TEST(Sauve_Table, KeysThatStandNowhereCountAsTheirDefaults) {
  PoseTable("");
  BrocheAuto = 0;
  Sauve_Table("Mill", {{"TB_SAV_15", "9"}});
  EXPECT_EQ(BrocheAuto, 1);
  EXPECT_EQ(CleEcrite("OptionLPT"), "20");
}

TEST(Sauve_Table, AFailureOfBeforeIsNotItsOwn) {
  PoseTable("");
  Magasin.DerniereErreur = "No space left on device";
  EXPECT_TRUE(Sauve_Table("Mill", {{"TB_SAV_15", "9"}}));
}

TEST(Sauve_Table, ValueGivenForThisCallIsNeverWritten) {
  PoseTable("TB_SAV_15=9\r\n");
  Magasin.Surcharge["tb_sav_15"] = "33";
  const auto champs = Chargt_Table("Mill");
  EXPECT_EQ(Champ(champs, "TB_SAV_15"), "33");
  Sauve_Table("Mill", champs);
  Magasin.Surcharge.clear();
  EXPECT_EQ(CleEcrite("TB_SAV_15"), "9");
}

TEST(Sauve_Table, ReportsAFileThatCannotBeWritten) {
  PoseTable("");
  DossierProgramme = Dossier() + "/nowhere/at/all";
  OublieCles();
  EXPECT_FALSE(Sauve_Table("Mill", {{"TB_SAV_15", "9"}}));
}

TEST(Sauve_Table, NeedsAName) { EXPECT_FALSE(Sauve_Table("", {})); }

TEST(FormateChamp, EachGroupHasItsDecimals) {
  const std::pair<int, const char*> attendus[] = {
      {0, "12.3457"}, {2, "12.3457"}, {3, "12"},    {5, "12"},    {6, "12.35"}, {8, "12.35"}, {9, "12"},
      {11, "12"},     {12, "12.3"},   {20, "12.3"}, {27, "12.3"}, {28, "12"},   {31, "12"},   {32, "12"},
  };
  for (const auto& [index, texte] : attendus)
    EXPECT_EQ(FormateChamp(FamilleChamp::TB_SAV, index, "12.34567"), texte) << index;
}

TEST(FormateChamp, FieldsWithoutAFormatStayAsTyped) {
  EXPECT_EQ(FormateChamp(FamilleChamp::TB_SAV, 29, "12.34567"), "12.34567");
  EXPECT_EQ(FormateChamp(FamilleChamp::TB_SAV, 30, "12.34567"), "12.34567");
  EXPECT_EQ(FormateChamp(FamilleChamp::Combo_SAV, 3, "2.5"), "2.5");
}

TEST(FormateChamp, EmptyFieldIsNotProcessed) {
  EXPECT_EQ(FormateChamp(FamilleChamp::TB_SAV, 0, ""), "");
  EXPECT_EQ(FormateChamp(FamilleChamp::TB_SAV, 0, "fast"), "fast");
}

TEST(FormateChamp, WritesTheUsersMarkAndReadsEither) {
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(FormateChamp(FamilleChamp::TB_SAV, 12, "6"), "6,0");
  EXPECT_EQ(FormateChamp(FamilleChamp::TB_SAV, 12, "6.25"), "6,3");
  EXPECT_EQ(FormateChamp(FamilleChamp::TB_SAV, 0, "0,5"), "0,5000");
}

TEST(ChampJumeau, StepsGiveDegreesWithTwoDecimals) {
  EXPECT_EQ(ChampJumeau(3, "200"), std::make_pair(6, std::string("1.8")));
  EXPECT_EQ(ChampJumeau(4, "48"), std::make_pair(7, std::string("7.5")));
  EXPECT_EQ(ChampJumeau(5, "7"), std::make_pair(8, std::string("51.43")));
}

TEST(ChampJumeau, DegreesGiveSteps) {
  EXPECT_EQ(ChampJumeau(6, "1.8"), std::make_pair(3, std::string("200")));
  EXPECT_EQ(ChampJumeau(7, "7,5"), std::make_pair(4, std::string("48")));
  EXPECT_EQ(ChampJumeau(8, "3.6"), std::make_pair(5, std::string("100")));
}

TEST(ChampJumeau, WritesTheUsersMark) {
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(ChampJumeau(3, "200").second, "1,8");
}

TEST(ChampJumeau, ZeroChangesNothing) {
  for (int index = 3; index <= 8; ++index) {
    EXPECT_EQ(ChampJumeau(index, "0").first, -1);
    EXPECT_EQ(ChampJumeau(index, "").first, -1);
    EXPECT_EQ(ChampJumeau(index, "x").first, -1);
    EXPECT_EQ(ChampJumeau(index, "1e-320").first, -1) << "a quotient without an end";
  }
}

TEST(ChampJumeau, OtherFieldsHaveNone) {
  for (const int index : {0, 2, 9, 12, 20, -1}) EXPECT_EQ(ChampJumeau(index, "5").first, -1) << index;
}

TEST(SuitChamp, SpeedsWithRampActAtOnce) {
  SuitChamp(15, "21");
  SuitChamp(16, "22,5");
  SuitChamp(17, "23");
  EXPECT_EQ(VitesseMaxX, 21);
  EXPECT_EQ(VitesseMaxY, 22.5F);
  EXPECT_EQ(VitesseMaxZ, 23);
}

TEST(SuitChamp, ZeroAndHalfTypedTextAreNoSpeed) {
  VitesseMaxX = 9;
  for (const char* texte : {"0", "", "-", "0,0", "1e300"}) SuitChamp(15, texte);
  EXPECT_EQ(VitesseMaxX, 9);
}

TEST(SuitChamp, OtherFieldsDoNot) {
  const TableMachine avant = Table;
  for (int index = 0; index < 33; ++index) {
    if (index < 15 || index > 17) SuitChamp(index, "77");
  }
  EXPECT_EQ(Table.VitesseMaxX, avant.VitesseMaxX);
  EXPECT_EQ(Table.VitesseMaxY, avant.VitesseMaxY);
  EXPECT_EQ(Table.VitesseMaxZ, avant.VitesseMaxZ);
  EXPECT_EQ(Table.CourseX, avant.CourseX);
}

TEST(CurseurPente, FollowsAValueOfTheSlider) {
  EXPECT_EQ(CurseurPente("1", 5), 1);
  EXPECT_EQ(CurseurPente("9", 5), 9);
  for (const char* texte : {"0", "10", "", "x", "0.9", "9.1"}) EXPECT_EQ(CurseurPente(texte, 5), 5) << texte;
}

TEST(AppliqueInterface, EachPresetAssignsTheTenOutputs) {
  const std::pair<const char*, const char*> attendus[] = {
      {"KR4400", "2301450166"},
      {"HobbyCNC EZ driver", "1032546666"},
      {"Step Four", "1032665466"},
      {"CNC3AX", "1032546666"},
      {"BreakOut Drive (Hobby-Pratique)", "0123456666"},
  };
  ASSERT_EQ(ListeInterfaces().size(), std::size(attendus));
  std::size_t rang = 0;
  for (const auto& [nom, sorties] : attendus) {
    EXPECT_EQ(ListeInterfaces()[rang++], nom);
    auto champs = Chargt_Table("Nowhere");
    EXPECT_TRUE(AppliqueInterface(nom, champs));
    for (int i = 1; i <= 10; ++i) {
      EXPECT_EQ(Champ(champs, "Combo_SAV_" + std::to_string(i)), std::string(1, sorties[i - 1])) << nom << " " << i;
    }
    EXPECT_EQ(Champ(champs, "Combo_SAV_0"), "0");
    EXPECT_EQ(Champ(champs, "Combo_SAV_11"), "1");
  }
}

TEST(AppliqueInterface, ClearsTheInversionsButForCNC3AX) {
  for (const std::string& nom : ListeInterfaces()) {
    auto champs = Chargt_Table("Nowhere");
    for (int i = 101; i <= 110; ++i) Change(champs, "CB_SAV_" + std::to_string(i), "1");
    Change(champs, "CB_SAV_17", "1");
    AppliqueInterface(nom, champs);
    for (int i = 101; i <= 110; ++i) {
      EXPECT_EQ(Champ(champs, "CB_SAV_" + std::to_string(i)), nom == "CNC3AX" ? "1" : "0") << nom;
    }
    EXPECT_EQ(Champ(champs, "CB_SAV_17"), "1");
  }
}

TEST(AppliqueInterface, FieldsThatWereNotThereAreAdded) {
  ChampsTable champs;
  EXPECT_TRUE(AppliqueInterface("KR4400", champs));
  EXPECT_EQ(champs.size(), 20U);
}

TEST(AppliqueInterface, UnknownNameChangesNothing) {
  auto champs = Chargt_Table("Nowhere");
  const auto avant = champs;
  EXPECT_FALSE(AppliqueInterface("No such driver", champs));
  EXPECT_EQ(champs, avant);
}

}  // namespace
