#include <cmath>

#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::EcritFichierEssai;

// A settings file with one table, current.
void PoseTable(const std::string& lignes, const std::string& nom = "OVELIN") {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=" + nom + "\r\n[table_" + nom + "]\r\n" + lignes);
  OublieCles();
  TableDefaut = nom;
}

TEST(SectionTable, IsThePrefixAndTheName) { EXPECT_EQ(SectionTable("KR4400"), "table_KR4400"); }

TEST(LireNombreTable, ReadsTheCurrentTable) {
  EcritFichierEssai("OVELIN.ini", "[table_A]\r\nTB_SAV_0=4\r\n[table_B]\r\nTB_SAV_0=5\r\n");
  TableDefaut = "A";
  EXPECT_EQ(LireNombreTable(ChampsMachine::TransmissionX), 4);
  TableDefaut = "B";
  EXPECT_EQ(LireNombreTable(ChampsMachine::TransmissionX), 5);
}

TEST(LireNombreTable, GivesTheReadersOwnDefaultForAMissingKey) {
  TableDefaut = "Nowhere";
  EXPECT_EQ(LireNombreTable(ChampsMachine::PasParTourX), 200);
  EXPECT_EQ(LireNombreTable(ChampsMachine::GlobalePasX), 48);
  EXPECT_EQ(LireNombreTable(ChampsMachine::NettoyageY), 600);
  EXPECT_EQ(LireNombreTable(ChampsMachine::LimiteY), 400);
  EXPECT_EQ(LireNombreTable(ChampsMachine::DegresParPasX), 0);
}

TEST(LireNombreTable, DoesNotTellCase) {
  PoseTable("COMBO_SAV_12=3\r\n");
  EXPECT_EQ(LireNombreTable(ChampsMachine::DivisionX), 3);
}

TEST(LireNombreTable, TakesTheValueGivenForThisCallFirst) {
  PoseTable("TB_SAV_15=20\r\n");
  Magasin.Surcharge["TB_SAV_15"] = "7";
  EXPECT_EQ(LireNombreTable(ChampsMachine::VitesseMaxX), 7);
}

TEST(ChargeGlobalesTable, EmptyTableGivesTheDefaultsOfTheGlobals) {
  TableDefaut = "Nowhere";
  CourseX = CourseY = CourseZ = 1;
  BrocheAuto = ClavierZENIK = 7;
  PasTourX = 3;
  ChargeGlobalesTable();
  EXPECT_EQ(BrocheAuto, 1);
  EXPECT_EQ(ClavierZENIK, 1);
  EXPECT_EQ(CourseX, 1000);
  EXPECT_EQ(CourseY, 500);
  EXPECT_EQ(CourseZ, 200);
  EXPECT_EQ(PasTourX, 48);
  EXPECT_EQ(PasTourY, 48);
  EXPECT_EQ(PasTourZ, 48);
  EXPECT_EQ(TransmissionX, 1);
  EXPECT_EQ(TransmissionY, 1);
  EXPECT_EQ(TransmissionZ, 1);
  EXPECT_EQ(VitesseMaxX, 5);
  EXPECT_EQ(VitesseMaxY, 5);
  EXPECT_EQ(VitesseMaxZ, 5);
}

TEST(ChargeGlobalesTable, TakesEachValueFromItsKey) {
  PoseTable(
      "TB_SAV_0=2\r\nTB_SAV_1=3\r\nTB_SAV_2=4\r\nTB_SAV_3=100\r\nTB_SAV_4=200\r\nTB_SAV_5=400\r\n"
      "COMBO_SAV_12=0\r\nCOMBO_SAV_13=1\r\nCOMBO_SAV_14=3\r\nTB_SAV_15=15\r\nTB_SAV_16=16\r\nTB_SAV_17=17.5\r\n"
      "TB_SAV_18=600\r\nTB_SAV_19=400\r\nTB_SAV_188888=90\r\nCB_SAV_16=0\r\nCB_SAV_17=0\r\n");
  ChargeGlobalesTable();
  EXPECT_EQ(TransmissionX, 2);
  EXPECT_EQ(TransmissionY, 3);
  EXPECT_EQ(TransmissionZ, 4);
  EXPECT_EQ(PasTourX, 100);
  EXPECT_EQ(PasTourY, 400);   // 200 x 2
  EXPECT_EQ(PasTourZ, 3200);  // 400 x 8
  EXPECT_EQ(VitesseMaxX, 15);
  EXPECT_EQ(VitesseMaxY, 16);
  EXPECT_EQ(VitesseMaxZ, 17.5F);
  EXPECT_EQ(CourseX, 600);
  EXPECT_EQ(CourseY, 400);
  EXPECT_EQ(CourseZ, 90);
  EXPECT_EQ(BrocheAuto, 0);
  EXPECT_EQ(ClavierZENIK, 0);
}

TEST(ChargeGlobalesTable, ZTravelOfTheWindowHasNoEffect) {
  PoseTable("TB_SAV_20=80\r\n");
  ChargeGlobalesTable();
  EXPECT_EQ(CourseZ, 200);
}

TEST(ChargeGlobalesTable, DivisionIsAPowerOfTwoAlsoWithTheDefaultSteps) {
  PoseTable("COMBO_SAV_12=4\r\n");
  ChargeGlobalesTable();
  EXPECT_EQ(PasTourX, 48 * 16);
}

TEST(ChargeGlobalesTable, AMotorHasWholeStepsBeforeTheyAreDivided) {
  PoseTable("TB_SAV_3=51.43\r\nCOMBO_SAV_12=1\r\n");
  ChargeGlobalesTable();
  EXPECT_EQ(PasTourX, 102);
  EXPECT_DOUBLE_EQ(ResolutionsTable()[0], 1.0 / 102);
}

TEST(ChargeGlobalesTable, AbsurdValuesStayWithinTheirTypes) {
  PoseTable(
      "TB_SAV_3=1e30\r\nCOMBO_SAV_12=1e9\r\nCB_SAV_16=1e9\r\nTB_SAV_4=-1e300\r\nCOMBO_SAV_14=-400\r\n"
      "TB_SAV_15=1e300\r\nTB_SAV_16=1e300\r\nTB_SAV_17=1e300\r\nTB_SAV_18=1e300\r\nTB_SAV_19=-1e300\r\n"
      "TB_SAV_188888=1e300\r\n");
  ChargeGlobalesTable();
  for (const float v : {VitesseMaxX, VitesseMaxY, VitesseMaxZ, CourseX, CourseY, CourseZ}) {
    EXPECT_TRUE(std::isfinite(v)) << v;
  }
  EXPECT_EQ(PasTourX, 2147483647);
  EXPECT_EQ(PasTourY, -2147483647 - 1);
  EXPECT_EQ(PasTourZ, 48) << "a division below 0 is none";
  EXPECT_EQ(BrocheAuto, 32767);
}

TEST(ChargeGlobalesTable, TextThatIsNoNumberGivesTheDefault) {
  PoseTable("TB_SAV_18=wide\r\nTB_SAV_19=\r\n");
  ChargeGlobalesTable();
  EXPECT_EQ(CourseX, 1000);
  EXPECT_EQ(CourseY, 500);
}

TEST(ChargeGlobalesTable, PointInTheFileIsReadWhateverTheUsersMark) {
  PoseTable("TB_SAV_0=1.25\r\n");
  for (const char marque : {'.', ','}) {
    Svc.MarqueDecimale = marque;
    ChargeGlobalesTable();
    EXPECT_EQ(TransmissionX, 1.25) << marque;
  }
}

TEST(ChargeGlobalesTable, TellsWhoHoldsMoreOfTheTable) {
  static float vue = 0;
  vue = 0;
  TableChargee = [] { vue = VitesseMaxX; };
  PoseTable("TB_SAV_15=33\r\n");
  ChargeGlobalesTable();
  EXPECT_EQ(vue, 33) << "the globals are in force by then";
}

TEST(ResolutionsTable, EmptyTableGivesTheDefaultsOfTheBoardCheck) {
  // 1 mm a turn, 200 steps, division 1: not the 48 steps and division 0 of the travel globals.
  TableDefaut = "Nowhere";
  for (const double r : ResolutionsTable()) EXPECT_DOUBLE_EQ(r, 0.0025);
}

TEST(ResolutionsTable, IsTheTravelOfOneStep) {
  PoseTable(
      "TB_SAV_0=4\r\nTB_SAV_1=5\r\nTB_SAV_2=2\r\nTB_SAV_3=100\r\nTB_SAV_4=200\r\nTB_SAV_5=400\r\n"
      "COMBO_SAV_12=0\r\nCOMBO_SAV_13=3\r\nCOMBO_SAV_14=1\r\n");
  const auto r = ResolutionsTable();
  EXPECT_DOUBLE_EQ(r[0], 0.04);
  EXPECT_DOUBLE_EQ(r[1], 0.003125);
  EXPECT_DOUBLE_EQ(r[2], 0.0025);
}

TEST(ResolutionsTable, ZeroGivesWayToTheDefault) {
  PoseTable("TB_SAV_0=0\r\nTB_SAV_4=0\r\n");
  const auto r = ResolutionsTable();
  EXPECT_DOUBLE_EQ(r[0], 0.0025);
  EXPECT_DOUBLE_EQ(r[1], 0.0025);
}

TEST(ResolutionsTable, AbsurdDivisionStillLeavesALength) {
  PoseTable("COMBO_SAV_12=1e9\r\nCOMBO_SAV_13=-1e9\r\n");
  for (const double r : ResolutionsTable()) {
    EXPECT_GT(r, 0);
    EXPECT_TRUE(std::isfinite(r));
  }
}

TEST(ResolutionFine, IsTheFinerOfXAndY) {
  PoseTable("TB_SAV_0=4\r\nTB_SAV_1=2\r\nTB_SAV_2=0.001\r\n");
  EXPECT_DOUBLE_EQ(ResolutionFine(), 0.005);  // 2 / 400; Z, finer still, doesn't count
  PoseTable("COMBO_SAV_12=4\r\nCOMBO_SAV_13=0\r\n");
  EXPECT_DOUBLE_EQ(ResolutionFine(), 1.0 / 3200) << "divisions that differ by axis";
}

TEST(ResolutionFine, SignOfATransmissionDoesNotMatter) {
  PoseTable("TB_SAV_0=-4\r\nTB_SAV_1=2\r\n");
  EXPECT_DOUBLE_EQ(ResolutionFine(), 0.005);
}

TEST(TempsDouble, DoublesEightTimes) {
  ASSERT_EQ(TempsDouble.size(), 9U);
  EXPECT_EQ(TempsDouble[0], 0.021875F);
  for (std::size_t i = 1; i < TempsDouble.size(); ++i) EXPECT_FLOAT_EQ(TempsDouble[i], 2 * TempsDouble[i - 1]);
  EXPECT_EQ(TempsDouble[8], 5.6F);
}

// Texts whose wording doesn't matter here: the file is the test's own.
void PoseTraduction() {
  EcritFichierEssai("OVELINfr.trad", "[F_ParamMachine]\r\nlib004=doubles in\r\nlib005=seconds\r\n");
}

TEST(TextePente, SliderFiveShows035) {
  PoseTraduction();
  EXPECT_EQ(TextePente(5), "doubles in 0.35 seconds");
}

TEST(TextePente, ShowsTwoDecimalsWithTheUsersMark) {
  PoseTraduction();
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(TextePente(1), "doubles in 0,02 seconds");
  EXPECT_EQ(TextePente(9), "doubles in 5,60 seconds");
}

TEST(TextePente, RoundsTheDecimalsThatTheTableNames) {
  PoseTraduction();
  EXPECT_EQ(TextePente(2), "doubles in 0.04 seconds");  // 0.04375
  EXPECT_EQ(TextePente(3), "doubles in 0.09 seconds");  // 0.0875
  EXPECT_EQ(TextePente(4), "doubles in 0.18 seconds");  // 0.175
}

TEST(TextePente, SliderBeyondItsEndsShowsTheEnd) {
  PoseTraduction();
  EXPECT_EQ(TextePente(0), TextePente(1));
  EXPECT_EQ(TextePente(10), TextePente(9));
}

}  // namespace
