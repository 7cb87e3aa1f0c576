// Plans that are refused before the first row is made.
#include <limits>

#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "run/NoyauPlan.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

// A table of two rows that a refusal has to leave alone.
void TableAvant() {
  InitDecoupe();
  AjoutDeplacementZ(3, Faux, 0);
}
void AttendTableIntacte() {
  EXPECT_EQ(NbDeplacements, 2);
  EXPECT_EQ(Texte(Ligne(2)), "0 0 3 @8");
  EXPECT_EQ(CumulZ, 3);
}
void AttendRefus(const std::string& section, const std::string& cle) {
  TableAvant();
  const std::optional<CleTexte> refus = VerifiePlan();
  ASSERT_TRUE(refus);
  EXPECT_EQ(refus->Section(), section);
  EXPECT_EQ(refus->Cle(), cle);
  Attend(section, cle);
  EXPECT_FALSE(Tableau_Decoupe());
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
  EXPECT_EQ(Boites()[0].titre, "OVELIN");
  AttendTableIntacte();
}

TEST(VerifiePlan, AcceptsAnOrdinaryJob) {
  ReglagesPlan();
  AjouteTrajet(" A", -5, Carre);
  EXPECT_FALSE(VerifiePlan());
}

TEST(VerifiePlan, RefusesADepthOfPassOfZero) {
  ReglagesPlan();
  ProfPasse = 0;
  AjouteTrajet(" A", -5, Carre);
  AttendRefus("erreurs", "95");
}

TEST(VerifiePlan, RefusesAPositiveDepthOfPass) {
  ReglagesPlan();
  ProfPasse = 1;
  AjouteTrajet(" A", -5, Carre);
  AttendRefus("erreurs", "95");
}

TEST(VerifiePlan, RefusesADepthOfPassThatIsNoNumber) {
  ReglagesPlan();
  ProfPasse = std::numeric_limits<double>::quiet_NaN();
  AjouteTrajet(" A", -5, Carre);
  AttendRefus("erreurs", "95");
}

TEST(VerifiePlan, RefusesAPassThatNoLongerGoesDeeperOnTheWay) {
  ReglagesPlan();
  ProfPasse = -0.0000004;  // at -8 the next 32-bit number is a million-th deeper: the sum stays where it is
  AjouteTrajet(" A", -9, Carre);
  AttendRefus("erreurs", "95");
}

TEST(VerifiePlan, RefusesMoreRowsThanMemoryHolds) {
  ReglagesPlan();
  ProfPasse = -0.000001;
  AjouteTrajet(" A", -1000, Carre);  // a thousand million passes
  AttendRefus("erreurs", "95");
}

TEST(VerifiePlan, RefusesManyPathsThatAreTooMuchTogether) {
  ReglagesPlan();
  ProfPasse = -0.0001;  // about 100,000 passes of 11 rows at most: 44 paths fit, 47 do not
  for (int i = 0; i < 44; ++i) AjouteTrajet(" A", -10, Carre);
  EXPECT_FALSE(static_cast<bool>(VerifiePlan()));
  for (int i = 0; i < 3; ++i) AjouteTrajet(" A", -10, Carre);
  AttendRefus("erreurs", "95");
}

TEST(VerifiePlan, LooksAtMilledPathsAlone) {
  ReglagesPlan();
  ProfPasse = -0.000001;
  AjouteTrajet(" A", -1000, Carre, false);
  AjouteTrajet(" B", -0.00001, Carre);
  EXPECT_FALSE(static_cast<bool>(VerifiePlan()));
  EXPECT_TRUE(Tableau_Decoupe());
}

TEST(VerifiePlan, RefusesAPointThatIsNoNumberWithATextOfItsOwn) {
  for (const float faux : {std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
                           std::numeric_limits<float>::quiet_NaN(), 2e9F}) {
    Doc = Document{};
    ReglagesPlan();
    AjouteTrajet(" A", -1, {{0, 0}, {faux, 0}, {1, 1}});
    EXPECT_EQ(essai::CleDe(VerifiePlan()), "lib043_1") << faux;
    TraceDecale[0].Points[1] = {0, faux, CodePD, Code2("01")};
    EXPECT_EQ(essai::CleDe(VerifiePlan()), "lib043_1") << faux;
  }
  AttendRefus("F_Fraisage", "lib043_1");
}

TEST(VerifiePlan, RefusesHeightsAndDepthsThatAreNoNumber) {
  constexpr double rien = std::numeric_limits<double>::quiet_NaN();
  ReglagesPlan();
  AjouteTrajet(" A", rien, Carre);
  EXPECT_EQ(essai::CleDe(VerifiePlan()), "lib043_1");
  Sequences[0].Profondeur = -1;
  EXPECT_EQ(essai::CleDe(VerifiePlan()), "");
  HautDeg = std::numeric_limits<float>::infinity();
  EXPECT_EQ(essai::CleDe(VerifiePlan()), "lib043_1");
  HautDeg = 5;
  MiniEncoche = rien;
  EXPECT_EQ(essai::CleDe(VerifiePlan()), "lib043_1");
  MiniEncoche = 0;
  CdeZENIK->PosY = rien;
  EXPECT_EQ(essai::CleDe(VerifiePlan()), "lib043_1");
}

TEST(NombrePasses, CountsWhatAJobWillMill) {
  EXPECT_EQ(NombrePasses(-5, -2), 3);
  EXPECT_EQ(NombrePasses(-4, -2), 2);
  EXPECT_EQ(NombrePasses(-1, -2), 1);
  EXPECT_EQ(NombrePasses(0, -2), 1);
  EXPECT_EQ(NombrePasses(3, -2), 1);
  EXPECT_EQ(NombrePasses(-0.1, -0.1), 1);
  EXPECT_EQ(NombrePasses(-0.7, -0.1), 7);
  EXPECT_EQ(NombrePasses(-2.57, -0.7), 4);
  EXPECT_EQ(NombrePasses(-5, -0.1), 51);
}

TEST(NombrePasses, TellsAPassThatNeverArrives) {
  EXPECT_EQ(NombrePasses(-5, 0), 0);
  EXPECT_EQ(NombrePasses(-5, 1), 0);
  EXPECT_EQ(NombrePasses(-1e9, -1), 0);
  EXPECT_EQ(NombrePasses(-9, -0.0000004), 0);
  EXPECT_EQ(NombrePasses(-1, -std::numeric_limits<double>::infinity()), 1);
}

TEST(EstimePlan, NeverCountsFewerRowsThanThePlanHas) {
  ReglagesPlan();
  MiniEncoche = 1.5;
  AjouteTrajet(" A", -5, {{0, 0}, {4, 0, "PE"}, {6, 0}, {8, 0, "PE"}, {9, 0}, {10, 1}});
  AjouteTrajet(" B", -3, {{20, 0}, {20, 0}});
  AjouteTrajet(" C", -3, {{20, 0}, {30, 0}});
  AjouteTrajet(" D", -7, {{1, 1}});
  ASSERT_TRUE(Tableau_Decoupe());
  ParametresPlan p;
  p.ProfPasse = ProfPasse;
  const std::vector<UsinageTrace> usinages{{true, -5}, {true, -3}, {true, -3}, {true, -7}};
  const EstimationPlan e = EstimePlan(p, TraceDecale, usinages);
  EXPECT_EQ(e.jugement, JugementPlan::Bon);
  EXPECT_GE(e.lignes, static_cast<std::int64_t>(TableDecoupe.size()));
  EXPECT_LE(e.lignes, 2 * static_cast<std::int64_t>(TableDecoupe.size()));
}

TEST(EstimePlan, CountsTheTwoRowsOfEachNotch) {
  ReglagesPlan();
  MiniEncoche = 1;
  std::vector<PointEssai> points{{0, 0}};
  for (int i = 1; i < 400; ++i) points.push_back({static_cast<float>(i), 0, i % 2 == 1 ? "PE" : "PD"});
  points.push_back({0, 0});
  AjouteTrajet(" A", -2, points);
  ASSERT_TRUE(Tableau_Decoupe());
  EXPECT_EQ(NbDeplacements - 1, 3 + 400 + 2 * 200 + 3);  // down, cuts, up and down over 200 notches, up and down
  ParametresPlan p;
  p.ProfPasse = ProfPasse;
  const EstimationPlan e = EstimePlan(p, TraceDecale, std::vector<UsinageTrace>{{true, -2}});
  EXPECT_GE(e.lignes, static_cast<std::int64_t>(TableDecoupe.size()));
}

}  // namespace
}  // namespace essai
