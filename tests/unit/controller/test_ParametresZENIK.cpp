#include <cmath>
#include <map>
#include <string>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "machine/Module_Table.h"
#include "tests/support/Support.h"
#include "tests/unit/controller/LiaisonScenario.h"

namespace {

using namespace ovelin;

// A table of these keys; all others take the default of the reading.
LectureParametres Lit(const std::map<std::string, double>& cles) {
  return LitParametres([&](const LectureChamp& champ) {
    const auto cle = cles.find(champ.champ.Cle());
    return cle == cles.end() ? champ.Nombre() : cle->second;
  });
}

void PoseTable(const std::string& cles) {
  OublieCles();
  essai::EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\n" + cles);
  TableDefaut = "Essai";
}

TEST(LitParametres, TableWithoutKeysGivesTheDefaultsOfTheBoardCheck) {
  const auto [p, tenues] = Lit({});
  EXPECT_EQ(p.Multiplicateur, 2);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(p.Axes[i].Transmission, 1);
    EXPECT_EQ(p.Axes[i].PasParTour, 400);  // 200 steps, halved once
    EXPECT_EQ(p.VitesseDepart[i], 5);
    EXPECT_EQ(p.VitesseRampe[i], 5);
    EXPECT_EQ(p.PasParMm[i], 400);
    EXPECT_EQ(p.PasDepart[i], 2000);
    EXPECT_EQ(p.PasRampe[i], 2000);
    EXPECT_DOUBLE_EQ(p.MmParPas()[i], 0.0025);
  }
  EXPECT_EQ(p.VitesseMaxPC, 0);
  EXPECT_EQ(p.TimeOutMoteur, 0);
  EXPECT_EQ(p.PenteAccel, 5);
  EXPECT_EQ(p.TempsPalier, 16384);
  EXPECT_EQ(p.OptFinCourse + p.OptOrientation + p.OptMoteur + p.OptSens, 0);
  EXPECT_TRUE(tenues.empty());
}

TEST(LitParametres, ObjectWithoutATableHoldsTheSame) {
  EXPECT_EQ(ClsCdeZENIK().Parametres(), [] {
    ParametresZENIK p = Lit({}).parametres;
    p.Affectation.fill(
        0);  // a table without keys names the first signal ten times; before the first load there is none
    return p;
  }());
}

TEST(LitParametres, EachAxisHasItsOwnKeys) {
  const auto p = Lit({{"TB_SAV_0", 4},
                      {"TB_SAV_1", 5},
                      {"TB_SAV_2", 1.25},
                      {"TB_SAV_3", 48},
                      {"TB_SAV_4", 100},
                      {"TB_SAV_5", 200},
                      {"Combo_SAV_12", 0},
                      {"Combo_SAV_13", 2},
                      {"Combo_SAV_14", 3},
                      {"TB_SAV_12", 6},
                      {"TB_SAV_13", 7},
                      {"TB_SAV_14", 1.5},
                      {"TB_SAV_15", 20},
                      {"TB_SAV_16", 30},
                      {"TB_SAV_17", 2.5}})
                     .parametres;
  EXPECT_EQ(p.Axes, (std::array<AxeZENIK, 3>{{{4, 48}, {5, 400}, {1.25, 1600}}}));
  EXPECT_EQ(p.VitesseDepart, (std::array<double, 3>{6, 7, 1.5}));
  EXPECT_EQ(p.VitesseRampe, (std::array<double, 3>{20, 30, 2.5}));
  EXPECT_EQ(p.PasParMm, (std::array<std::int32_t, 3>{12, 80, 1280}));
  EXPECT_EQ(p.PasDepart, (std::array<std::int32_t, 3>{72, 560, 1920}));
  EXPECT_EQ(p.PasRampe, (std::array<std::int32_t, 3>{240, 2400, 3200}));
}

TEST(LitParametres, StepsPerMillimetreAreRoundedAndStepsPerTurnHave32Bits) {
  const auto p = Lit({{"TB_SAV_0", 3}, {"TB_SAV_3", 200}, {"Combo_SAV_12", 9}}).parametres;
  EXPECT_EQ(p.Axes[0].PasParTour, 102'400);
  EXPECT_EQ(p.PasParMm[0], 34'133);       // 34,133.3
  EXPECT_EQ(p.PasDepart[0], 5 * 34'133);  // of the rounded one
  EXPECT_DOUBLE_EQ(p.MmParPas()[0], 3.0 / 102'400);
}

TEST(LitParametres, MultiplierIsOneMoreThanTheChoice) {
  EXPECT_EQ(Lit({{"Combo_SAV_11", 0}}).parametres.Multiplicateur, 1);
  EXPECT_EQ(Lit({{"Combo_SAV_11", 5}}).parametres.Multiplicateur, 6);
}

TEST(ResolutionsTable, PlanAndBoardCountInTheSameStepsWhateverTheTable) {
  for (const char* cles :
       {"TB_SAV_0=4\r\nTB_SAV_4=400\r\nCombo_SAV_13=3\r\n", "Combo_SAV_12=25\r\nCombo_SAV_13=-5\r\n",
        "TB_SAV_0=0\r\nTB_SAV_3=0\r\nCombo_SAV_12=4\r\nTB_SAV_4=1e9\r\n", "TB_SAV_1=1e-30\r\nTB_SAV_2=-1e30\r\n",
        "TB_SAV_3=0.2\r\nTB_SAV_4=-51.43\r\n"}) {
    PoseTable(cles);
    Svc.Montre = [](const BoiteMessage&) { return Reponse::Ok; };
    ClsCdeZENIK cde;
    cde.ChargeParametres();
    EXPECT_EQ(ResolutionsTable(), cde.Parametres().MmParPas()) << cles;
  }
}

TEST(LitParametres, LevelOfTheRampLastsAPowerOfTwo) {
  for (int pente = 1; pente <= 9; ++pente) {
    const auto p = Lit({{"Sld_SAV_0", pente}}).parametres;
    EXPECT_EQ(p.PenteAccel, pente);
    EXPECT_EQ(p.TempsPalier, std::int32_t{1} << (9 + pente));
  }
}

TEST(LitParametres, TickRatesFollowMultiplierAndSlope) {
  const auto p = Lit({{"Combo_SAV_11", 0}, {"Sld_SAV_0", 7}}).parametres;
  EXPECT_EQ(p.TableFreq, CalculTableFreq(1, 65'536));
}

TEST(LitParametres, MoreThanAHundredPerCentAreAHundred) {
  for (const auto& [lu, pris] : {std::pair{-1.0, 0}, {0.0, 0}, {40.0, 40}, {100.0, 100}, {120.0, 100}}) {
    const auto lecture = Lit({{"TB_SAV_31", lu}});
    EXPECT_EQ(lecture.parametres.VitesseMaxPC, pris) << lu;
    EXPECT_TRUE(lecture.tenues.empty());
  }
}

TEST(LitParametres, OptionsComeFromTheirOwnSwitches) {
  EXPECT_EQ(Lit({{"CB_SAV_12", 1}}).parametres.OptFinCourse, 1);
  EXPECT_EQ(Lit({{"CB_SAV_13", 1}}).parametres.OptOrientation, 1);
  EXPECT_EQ(Lit({{"CB_SAV_15", 1}}).parametres.OptMoteur, 1);
  EXPECT_EQ(Lit({{"CB_SAV_16", 2}}).parametres.OptSens, 2);
  EXPECT_EQ(Lit({{"TB_SAV_30", 30}}).parametres.TimeOutMoteur, 30);
}

TEST(LitParametres, OutputsTakeTheirSignalAndTheirInversion) {
  const auto p = Lit({{"Combo_SAV_1", 2}, {"Combo_SAV_2", 5}, {"Combo_SAV_10", 6}, {"CB_SAV_102", 1}}).parametres;
  EXPECT_EQ(p.Affectation[0], 2);             // direction of Y
  EXPECT_EQ(p.Affectation[1], 3 + 64 + 128);  // step of Z, inverted
  EXPECT_EQ(p.Affectation[9], 0);             // none
}

TEST(OctetSortie, IsAxisKindAndInversion) {
  const std::array<int, 8> attendus{1, 129, 2, 130, 3, 131, 0, 0};
  for (int signal = 0; signal < 8; ++signal) {
    EXPECT_EQ(OctetSortie(signal, false), attendus[static_cast<std::size_t>(signal)]) << signal;
    EXPECT_EQ(OctetSortie(signal, true), attendus[static_cast<std::size_t>(signal)] + 64) << signal;
  }
  EXPECT_EQ(OctetSortie(-1, false), 0);
}

TEST(LitParametres, ValuesBeyondTheirRangesAreHeldAndNamed) {
  const auto [p, tenues] = Lit({{"Combo_SAV_11", 300},
                                {"TB_SAV_0", 0},
                                {"TB_SAV_4", 0},
                                {"Combo_SAV_12", 16},
                                {"Combo_SAV_13", -1},
                                {"TB_SAV_13", 0},
                                {"TB_SAV_17", -2},
                                {"Sld_SAV_0", 0}});
  EXPECT_EQ(p.Multiplicateur, 255);
  EXPECT_EQ(p.Axes[0], (AxeZENIK{1, 200 * 32'768}));
  EXPECT_EQ(p.Axes[1], (AxeZENIK{1, 200}));
  EXPECT_EQ(p.VitesseDepart[1], 0.001);
  EXPECT_EQ(p.VitesseRampe[2], 0.001);
  EXPECT_EQ(p.PenteAccel, 1);
  const std::vector<ValeurTenue> attendues{
      {"Combo_SAV_11", 300, 254}, {"TB_SAV_0", 0, 1},      {"Combo_SAV_12", 16, 15}, {"TB_SAV_4", 0, 200},
      {"Combo_SAV_13", -1, 0},    {"TB_SAV_13", 0, 0.001}, {"TB_SAV_17", -2, 0.001}, {"Sld_SAV_0", 0, 1}};
  EXPECT_EQ(tenues, attendues);
}

TEST(LitParametres, AbsurdNumbersLeaveNothingInfinite) {
  for (const double v : {1e300, -1e300, 1e-300, -1e-300, 0.0}) {
    std::map<std::string, double> cles;
    for (const ChampMachine& c : ChampsMachine::Tous) cles[c.Cle()] = v;
    const ParametresZENIK p = Lit(cles).parametres;
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_TRUE(std::isnormal(p.MmParPas()[i])) << v;
      EXPECT_TRUE(std::isnormal(p.VitesseDepart[i]) && p.VitesseDepart[i] > 0) << v;
      EXPECT_TRUE(std::isnormal(p.VitesseRampe[i]) && p.VitesseRampe[i] > 0) << v;
      EXPECT_NE(p.Axes[i].PasParTour, 0) << v;
    }
  }
}

TEST(CalculTableFreq, GivesTheKnownPeriods) {
  const std::array<std::size_t, 7> paliers{0, 1, 2, 10, 128, 254, 255};
  const std::array<std::array<std::int32_t, 7>, 2> periodes{
      {{65535, 46008, 35447, 12497, 1185, 602, 600}, {65535, 35372, 24223, 6879, 595, 301, 300}}};
  for (int m = 1; m <= 2; ++m) {
    const TableFrequences table = CalculTableFreq(m, 16'384);
    for (std::size_t i = 0; i < paliers.size(); ++i) {
      EXPECT_EQ(table[paliers[i]].Periode, periodes[static_cast<std::size_t>(m - 1)][i]) << m << " " << paliers[i];
    }
  }
}

TEST(CalculTableFreq, RampThroughAllLevelsRunsTheKnownTicks) {
  for (const auto& [m, ticks] : {std::pair{1, 1764}, {2, 3511}}) {
    double somme = 0;
    const TableFrequences table = CalculTableFreq(m, 16'384);
    for (std::size_t i = 0; i < 256; ++i) somme += table[i].Duree;
    EXPECT_EQ(std::lround(somme), ticks) << m;
  }
  EXPECT_DOUBLE_EQ(CalculTableFreq(1, 16'384)[0].Duree, 8192.0 / 65535);
}

TEST(ChargeParametres, TakesTheTableInForceWithoutABoard) {
  PoseTable("TB_SAV_0=4\r\nTB_SAV_3=100\r\nCombo_SAV_12=2\r\nSld_SAV_0=6\r\n");
  ClsCdeZENIK cde;
  cde.ChargeParametres();
  EXPECT_DOUBLE_EQ(cde.MmParPasX(), 0.01);
  EXPECT_DOUBLE_EQ(cde.MmParPasY(), 0.0025);
  EXPECT_EQ(cde.Parametres().PenteAccel, 6);
}

TEST(ChargeParametres, SendsNothing) {
  essai::Scenario s;
  ClsCdeZENIK cde(std::make_unique<essai::LiaisonScenario>(s));
  PoseTable("");
  cde.ChargeParametres();
  EXPECT_TRUE(s.envois.empty());
}

TEST(ChargeParametres, MillimetresFollowTheStepsOfAnotherTable) {
  PoseTable("");
  ClsCdeZENIK cde;
  cde.ChargeParametres();  // 0.0025 mm a step
  cde.FixePosition(10, -5, 2);
  PoseTable("TB_SAV_0=2\r\nTB_SAV_2=0.5\r\n");
  cde.ChargeParametres();
  EXPECT_EQ(cde.PasX, 4000);
  EXPECT_EQ(cde.PasZ, 800);
  EXPECT_DOUBLE_EQ(cde.PosX, 20);
  EXPECT_DOUBLE_EQ(cde.PosY, -5);
  EXPECT_DOUBLE_EQ(cde.PosZ, 1);
}

TEST(ChargeParametres, SameTableLeavesThePositionAsItWasGiven) {
  PoseTable("");
  ClsCdeZENIK cde;
  cde.ChargeParametres();
  cde.FixePosition(1.2346, 0, 0);
  cde.ChargeParametres();
  EXPECT_EQ(cde.PosX, 1.2346);
  EXPECT_EQ(cde.PasX, 494);  // 493.84
}

TEST(ChargeParametres, PlanInStepsOfItsOwnLosesNoStep) {
  PoseTable("");
  ClsCdeZENIK cde;
  cde.ChargeParametres();
  cde.FixePosition(12.34, -0.0075, 3);
  cde.FixeResolutions(1, 1, 1);
  cde.ChargeParametres();
  EXPECT_EQ(cde.PasX, 4936);
  EXPECT_EQ(cde.PasY, -3);
  EXPECT_EQ(cde.PosX, 12.34);
  EXPECT_EQ(cde.PosY, -0.0075);
}

TEST(ChargeParametres, HeldValueIsToldOnceForEachValue) {
  PoseTable("Sld_SAV_0=12\r\n");
  ClsCdeZENIK cde;
  essai::Attend("erreurs", "Table");
  cde.ChargeParametres();
  EXPECT_THAT(essai::Boites().back().texte, testing::EndsWith("\ntable_Essai: Sld_SAV_0=12 : 9"));
  cde.ChargeParametres();
  EXPECT_EQ(essai::Boites().size(), 1U);
  PoseTable("Sld_SAV_0=13\r\n");
  essai::Attend("erreurs", "Table");
  cde.ChargeParametres();
  EXPECT_EQ(essai::Boites().size(), 2U);
}

}  // namespace
