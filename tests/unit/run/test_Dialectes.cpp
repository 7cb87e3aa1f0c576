// Files in each dialect: how they begin and end, and that each line is one of its control.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>
#include <sstream>

#include "core/Texte8.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "run/Dialectes.h"
#include "run/NoyauNC.h"
#include "run/NoyauPlan.h"
#include "run/TexteDialecte.h"
#include "tests/support/Golden.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

CadreNC Cadre() {
  return CadreNC{
      {"Fichier généré", " Vitesse matière : 3", ""}, "mm", "absolu", "marche", "arrêt", "fin", 12'000, 2};
}

std::vector<std::string> LignesDe(const std::string& texte) {
  std::vector<std::string> lignes;
  std::istringstream s(texte);
  for (std::string l; std::getline(s, l);) lignes.push_back(l);
  return lignes;
}

// The plan of the tool path in force, without a machine.
std::vector<Deplacement> LePlan() {
  CdeZENIK->FixeResolutions(1, 1, 1);
  EXPECT_TRUE(Tableau_Decoupe());
  const auto lignes = ovelin::LignesDe(Plan);
  return {lignes.begin(), lignes.end()};
}

// A square at (3, 4), 2 mm deep in one pass.
std::vector<Deplacement> PlanDuCarre() {
  ReglagesPlan();
  AjouteTrajet(" A", -2, {{3, 4}, {3, 14}, {13, 14}, {13, 4}, {3, 4}});
  return LePlan();
}

// A disc of 60 mm, its chords 0.01 mm high at most, and a fillet.
std::vector<Deplacement> PlanDuDisque() {
  ReglagesPlan();
  std::vector<PointEssai> points;
  for (int k = 0; k <= 124; ++k) {
    const double a = 2 * std::numbers::pi * k / 124;
    points.push_back({static_cast<float>(40 + 30 * std::cos(a)), static_cast<float>(40 + 30 * std::sin(a))});
  }
  points.back() = points.front();
  AjouteTrajet(" A", -3, points);
  return LePlan();
}

std::string Compose(const std::vector<Deplacement>& lignes, const Dialecte& d, EcritureNC* resultat = nullptr) {
  EcritureNC r;
  std::string texte = ComposeNC(lignes, Cadre(), d, r);
  EXPECT_EQ(r.tropLongues, 0);
  if (resultat != nullptr) *resultat = r;
  return texte;
}

TEST(Dialectes, TheOwnComesFirstAndNamesAreUnlike) {
  std::set<std::string> noms;
  for (const Dialecte& d : TableDialectes()) noms.insert(d.nom);
  EXPECT_EQ(noms, (std::set<std::string>{"grbl", "iso", "linuxcnc", "mach", "own"}));
  EXPECT_EQ(DialectePropre().nom, "own");
  EXPECT_EQ(DialecteDeTable("GrBl")->titre, "GRBL 1.1");
  EXPECT_EQ(DialecteDeTable("grb"), nullptr);
}

TEST(Dialectes, GrblFromItsFirstLineToItsLast) {
  const std::vector<std::string> attendu{"(Fichier genere)",
                                         "(Vitesse matiere : 3)",
                                         "(mm)",
                                         "G21",
                                         "(absolu)",
                                         "G17",
                                         "G90",
                                         "G94",
                                         "G0 Z5.000",  // up first
                                         "(marche)",
                                         "M3 S12000",
                                         "G4 P2",
                                         "G0 X3.000 Y4.000",
                                         "G1 Z0.000 F480.000",
                                         "Z-2.000 F60.000",
                                         "Y14.000 F180.000",
                                         "X13.000",
                                         "Y4.000",
                                         "X3.000",
                                         "Z0.000 F60.000",
                                         "G0 Z5.000",  // lifted,
                                         "(arret)",
                                         "M5",                // the spindle stops,
                                         "G0 X0.000 Y0.000",  // and then home
                                         "G1 Z0.000 F480.000",
                                         "(fin)",
                                         "M30"};
  EXPECT_EQ(LignesDe(Compose(PlanDuCarre(), *DialecteDeTable("grbl"))), attendu);
}

TEST(Dialectes, IsoHasNumberedLinesBetweenPercentSigns) {
  const auto lignes = LignesDe(Compose(PlanDuCarre(), *DialecteDeTable("iso")));
  EXPECT_EQ(lignes.front(), "%");
  EXPECT_EQ(lignes.back(), "%");
  EXPECT_THAT(lignes, testing::IsSupersetOf({"N10 G71", "N20 G17", "N30 G90", "N40 G94", "N50 T01 M06",
                                             "N60 G00 Z5.000", "N70 M03 S12000", "N80 G04 P2"}));
  EXPECT_EQ(lignes[lignes.size() - 2].substr(lignes[lignes.size() - 2].find(' ') + 1), "M30");
}

TEST(Dialectes, LinuxCncAndMachSayThatCentresOfArcsAreIncremental) {
  for (const char* nom : {"linuxcnc", "mach"}) {
    EXPECT_THAT(LignesDe(Compose(PlanDuCarre(), *DialecteDeTable(nom))), testing::Contains("G91.1")) << nom;
  }
}

TEST(Dialectes, TheOwnIsWhatTheWriterGivesWithoutOne) {
  const auto plan = PlanDuDisque();
  EcritureNC r;
  EXPECT_EQ(Compose(plan, DialectePropre()), ComposeNC(plan, Cadre(), r));
}

TEST(Dialectes, WithoutASpeedOrADwellTheirWordsAreMissing) {
  CadreNC cadre = Cadre();
  cadre.vitesseBroche = cadre.attenteBroche = 0;
  EcritureNC r;
  const auto lignes = LignesDe(ComposeNC(PlanDuCarre(), cadre, *DialecteDeTable("grbl"), r));
  EXPECT_THAT(lignes, testing::Contains("M3"));
  EXPECT_THAT(lignes, testing::Not(testing::Contains(testing::StartsWith("G4"))));
}

TEST(Dialectes, AJobWithoutAWayHomeInTheAirStopsTheSpindleAtItsEnd) {
  std::vector<Deplacement> lignes(3);
  lignes[1].Z = -1;
  lignes[1].Vitesse = lignes[2].Vitesse = 1;
  lignes[2].Z = -1;
  lignes[2].X = 5;
  const auto texte = LignesDe(Compose(lignes, *DialecteDeTable("grbl")));
  const std::vector<std::string> fin(texte.end() - 5, texte.end());
  EXPECT_EQ(fin, (std::vector<std::string>{"X5.000", "(arret)", "M5", "(fin)", "M30"}));
}

TEST(Dialectes, TheStopComesBehindTheLiftOfTheLastCutOfAPen) {
  ReglagesPlan();
  AjouteTrajet(" A", 0, {{3, 4}, {9, 4}});
  const auto lignes = LignesDe(Compose(LePlan(), *DialecteDeTable("grbl")));
  const auto arret = std::ranges::find(lignes, "M5");
  ASSERT_LT(arret - lignes.begin(), static_cast<long>(lignes.size()));
  EXPECT_EQ(*(arret - 2), "G0 Z5.000");
  EXPECT_EQ(*(arret - 3), "X9.000 F180.000");
}

TEST(Dialectes, ADiscOfSixtyMillimetresIsFourArcsForTwoPasses) {
  const auto plan = PlanDuDisque();  // 3 mm in passes of 2
  for (const char* nom : {"grbl", "linuxcnc", "mach", "iso"}) {
    Dialecte d = *DialecteDeTable(nom);
    EcritureNC avec, sans;
    Compose(plan, d, &avec);
    d.arcs = false;
    Compose(plan, d, &sans);
    EXPECT_EQ(avec.arcs, 4) << nom;
    EXPECT_EQ(sans.arcs, 0);
    EXPECT_EQ(sans.lignes - avec.lignes, 2 * 124 - 4) << nom;
    EXPECT_EQ(avec.deplacements, sans.deplacements);
    EXPECT_DOUBLE_EQ(avec.LongueurNC, sans.LongueurNC);
    EXPECT_DOUBLE_EQ(avec.TempsNC, sans.TempsNC);
  }
}

// --- the rules of GRBL 1.1, from its manual: words, length of a line, bytes, arcs (error 33)

const std::set<std::string> MotsGrbl{"G0",  "G1",  "G2",  "G3",  "G4",  "G17", "G18", "G19",   "G20", "G21", "G40",
                                     "G49", "G53", "G54", "G61", "G80", "G90", "G91", "G91.1", "G92", "G93", "G94",
                                     "M0",  "M1",  "M2",  "M3",  "M4",  "M5",  "M8",  "M9",    "M30"};

// Words of a line, comments left out, as letter and number.
std::vector<std::pair<char, std::string>> Mots(std::string ligne) {
  const auto debut = ligne.find('(');
  if (debut != std::string::npos) ligne.erase(debut, ligne.find(')', debut) - debut + 1);
  std::vector<std::pair<char, std::string>> mots;
  for (const char c : ligne) {
    if (c == ' ') continue;
    if (c >= 'A' && c <= 'Z') {
      mots.emplace_back(c, "");
    } else {
      mots.back().second += c;
    }
  }
  return mots;
}

struct Grbl {
  double x = 0, y = 0;
  std::string faute;

  void Arc(double bx, double by, double i, double j) {
    const double r = std::hypot(i, j), cible = std::hypot(bx - x - i, by - y - j);
    const double ecart = std::abs(r - cible);
    if (ecart > 0.005 && (ecart > 0.5 || ecart > 0.001 * r)) faute = "error 33";
    if (bx == x && by == y) faute = "a full circle";
  }
  void Ligne(const std::string& ligne) {
    if (ligne.size() > 80) faute = "longer than 80";
    for (const char c : ligne) {
      if (static_cast<unsigned char>(c) > 126 || c == '!' || c == '?' || c == '~' || c < 32) faute = "a byte";
    }
    double bx = x, by = y, i = 0, j = 0;
    bool arc = false;
    for (const auto& [lettre, nombre] : Mots(ligne)) {
      if (lettre == 'G' || lettre == 'M') {
        if (!MotsGrbl.contains(lettre + nombre)) faute = "unknown word";
        arc = arc || (lettre == 'G' && (nombre == "2" || nombre == "3"));
        modal_ = lettre == 'G' && nombre.size() == 1 && nombre[0] < '4' ? nombre[0] - '0' : modal_;
        continue;
      }
      if (std::string("FIJPSXYZ").find(lettre) == std::string::npos) faute = "unknown letter";
      const double v = std::stod(nombre);
      if (lettre == 'X') bx = v;
      if (lettre == 'Y') by = v;
      if (lettre == 'I') i = v;
      if (lettre == 'J') j = v;
      if (lettre == 'F' && !(v > 0)) faute = "no feed";
    }
    if (arc || (modal_ > 1 && (bx != x || by != y))) Arc(bx, by, i, j);
    x = bx;
    y = by;
  }

 private:
  int modal_ = 0;
};

TEST(RegleGrbl, RefusesWhatItMust) {
  for (const char* ligne :
       {"G71", "T1 M6", "G3 X5 Y5 I3 J0", "G2 X0 Y0 I5 J0", "(o\xE9)", "(quoi ?)", "G1 X1 E5", "G1 X1 F0"}) {
    Grbl g;
    g.Ligne(ligne);
    EXPECT_NE(g.faute, "") << ligne;
  }
}

TEST(RegleGrbl, EveryLineOfAJobIsOneOfIts) {
  InstalleTextesGolden();
  for (const auto& plan : {PlanDuDisque(), PlanDuCarre()}) {
    Grbl g;
    for (const std::string& ligne : LignesDe(Compose(plan, *DialecteDeTable("grbl")))) {
      g.Ligne(ligne);
      ASSERT_EQ(g.faute, "") << ligne;
    }
  }
}

TEST(RegleGrbl, CommentsOfEveryLanguageAreQuietAndFit) {
  for (const char* langue : {"fr", "en", "de", "es", "ca", "it", "pt"}) {
    Regl.Langue = langue;
    OublieTraductions();
    CadreNC cadre;
    for (const auto& nomme : Textes::Tous) {
      if (nomme.nom.starts_with("NC")) cadre.presentation.push_back(Traduire(nomme.texte));
    }
    ASSERT_GT(cadre.presentation.size(), 15U);
    EcritureNC r;
    Grbl g;
    for (const std::string& ligne : LignesDe(ComposeNC({}, cadre, *DialecteDeTable("grbl"), r))) {
      g.Ligne(ligne);
      ASSERT_EQ(g.faute, "") << ligne;
    }
  }
}

}  // namespace
}  // namespace essai
