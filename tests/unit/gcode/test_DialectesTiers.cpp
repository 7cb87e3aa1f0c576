// Jobs in every dialect as others read them: by the interpreter of LinuxCNC and by a second one the way is that of
// the plan; the workshop takes what has no arcs, but for the words that it does not know.
#include <algorithm>
#include <set>
#include <sstream>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "gcode/Mesure.h"
#include "run/Dialectes.h"
#include "run/Module_GCode.h"
#include "run/NoyauPlan.h"
#include "tests/support/Rs274.h"
#include "tests/support/Support.h"
#include "tests/support/Toolpath.h"
#include "tests/support/Trajet.h"
#include "workspace/Module_Ouverture.h"

namespace essai {
namespace {

using namespace ovelin;

// A sample and a dialect, and whether that one writes its arcs.
using Cas = std::tuple<std::string, std::string>;

class DialectesTiers : public testing::TestWithParam<Cas> {
 protected:
  static const std::string& Dessin() { return std::get<0>(GetParam()); }
  static const std::string& Nom() { return std::get<1>(GetParam()); }

  // The job of the sample in that dialect.
  void Ecrit(bool arcs = true) {
    OptionsOuverture options;
    options.ecritFichier = false;
    options.rendUniforme = false;
    ASSERT_EQ(mnu_Ouvrir(DossierExemples() + "/" + Dessin(), options), Ouverture::Reussie);
    HautDeg = 5;
    AngleRampe = rampe_;
    Regl.DialecteNC = Nom();
    if (!arcs) {
      EcritFichierEssai("sans.dialecte", "base = " + Nom() + "\narcs = non\n");
      Regl.DialecteNC = "sans";
    }
    ASSERT_TRUE(EcritGCode(fichier_ = Dossier() + "/job.tap", ecriture_));
  }

  // Ends of rows within 0.003 mm of the way, and the way within that of the rows, but where an arc rises over a
  // chord of the plan, which lies beside the curve that both stand for.
  void Compare(const ResultatRs274& lu, bool avances) {
    ASSERT_TRUE(lu.accepte) << lu.erreurs;
    ASSERT_EQ(lu.erreurs, "");
    const EcartTrajet e = CompareTrajet(lu.mouvements, LignesDe(Plan), avances);
    EXPECT_EQ(e.faute, "");
    EXPECT_EQ(static_cast<long>(e.arcs), ecriture_.arcs);
    EXPECT_LE(e.rangs, 0.003);
    EXPECT_LE(e.fleche, 0.02 + 0.003);
    EXPECT_LE(e.rayons, 0.003);
  }

  std::string fichier_;
  double rampe_ = 0;  // degrees
  EcritureNC ecriture_;
};

TEST_P(DialectesTiers, LinuxCncReadsTheWayOfThePlan) {
  if (!Rs274Present()) GTEST_SKIP() << Rs274Absent;
  Ecrit();
  Compare(LanceRs274(fichier_, Nom() != "linuxcnc"), true);  // its own row unchanged
}

TEST_P(DialectesTiers, AnotherInterpreterReadsTheWayOfThePlan) {
  if (!ToolpathPresent()) GTEST_SKIP() << ToolpathAbsent;
  Ecrit();
  Compare(LanceToolpath(fichier_), false);
}

TEST_P(DialectesTiers, RampsAreReadAsTheyArePlanned) {
  if (!Rs274Present()) GTEST_SKIP() << Rs274Absent;
  rampe_ = 3;
  Ecrit();
  Compare(LanceRs274(fichier_, Nom() != "linuxcnc"), true);
}

TEST_P(DialectesTiers, TheWorkshopMeasuresRampsAsTheyArePlanned) {
  rampe_ = 3;
  Ecrit(false);
  const MesureProgramme mesure = MesureDe(Programme(LitFichierEssai(fichier_)), {}, false);
  EXPECT_EQ(mesure.sansVitesse, 0U);
  EXPECT_NEAR(mesure.longueur, ecriture_.LongueurNC, 0.002 * static_cast<double>(ecriture_.deplacements));
}

TEST_P(DialectesTiers, WithoutArcsTheWorkshopMarksTheWordsThatItDoesNotKnowAndNothingElse) {
  Ecrit(false);
  const Programme programme(LitFichierEssai(fichier_));
  std::set<std::string> refusees;
  for (std::size_t i = 0; i < programme.NombreLignes(); ++i) {
    std::string ligne = programme.Texte(i);
    if (programme.JugementDe(i) != Jugement::Refusee) continue;
    if (ligne.starts_with("N")) ligne.erase(0, ligne.find(' ') + 1);
    refusees.insert(ligne);
  }
  for (const std::string& ligne : refusees) {
    EXPECT_TRUE((std::set<std::string>{"G17", "G94", "G40", "G49", "G80", "G64 P0.01", "%"}).contains(ligne))
        << ligne;
  }
  const MesureProgramme mesure = MesureDe(programme, {}, false);
  EXPECT_EQ(mesure.sansVitesse, 0U);
  EXPECT_NEAR(mesure.longueur, ecriture_.LongueurNC, 0.002 * static_cast<double>(ecriture_.deplacements));
  const auto lignes = LignesDe(Plan);
  const auto [gauche, droite] = std::ranges::minmax(lignes, {}, &Deplacement::X);
  const auto [bas, haut] = std::ranges::minmax(lignes, {}, &Deplacement::Y);
  EXPECT_NEAR(mesure.bornes.Xmin, std::min(0.0, static_cast<double>(gauche.X)), 0.001);
  EXPECT_NEAR(mesure.bornes.Xmax, static_cast<double>(droite.X), 0.001);
  EXPECT_NEAR(mesure.bornes.Ymin, std::min(0.0, static_cast<double>(bas.Y)), 0.001);
  EXPECT_NEAR(mesure.bornes.Ymax, static_cast<double>(haut.Y), 0.001);
}

TEST_P(DialectesTiers, WithArcsTheWorkshopRefusesThem) {
  Ecrit();
  const Programme programme(LitFichierEssai(fichier_));
  const long refusees = static_cast<long>(programme.Comptes().refusees);
  EXPECT_GE(refusees, ecriture_.arcs);
  EXPECT_LE(refusees, ecriture_.arcs + 8);
}

INSTANTIATE_TEST_SUITE_P(Exemples, DialectesTiers,
                         testing::Combine(testing::Values("Cercle.dxf", "plaque.dxf", "equerre-attaches.OVL",
                                                          "plaque-poches.OVL", "enseigne-texte.OVL", "logo.eps",
                                                          "aile-mousse.OVL", "percage-ligne.OVL"),
                                          testing::Values("grbl", "linuxcnc", "mach", "iso")),
                         [](const auto& cas) {
                           std::string nom = std::get<1>(cas.param) + "_" + std::get<0>(cas.param);
                           std::ranges::replace_if(
                               nom, [](char c) { return !std::isalnum(c); }, '_');
                           return nom;
                         });

TEST(CompareTrajet, TellsAWayThatIsNotThePlans) {
  std::vector<Deplacement> plan(4);
  plan[1].Z = 5;
  plan[2].X = 10;
  plan[2].Z = 5;
  plan[3].X = 10;
  const auto mouvement = [](double x, double z, bool rapide) {
    MouvementRs274 m;
    m.x = x;
    m.z = z;
    m.rapide = rapide;
    return m;
  };
  const std::vector<MouvementRs274> bons{mouvement(0, 5, true), mouvement(10, 5, true), mouvement(10, 0, false)};
  EXPECT_EQ(CompareTrajet(bons, plan, false).faute, "");
  EXPECT_NE(CompareTrajet({bons[0], bons[1]}, plan, false).faute, "");
  EXPECT_NE(CompareTrajet({bons[0], mouvement(10.002, 5, true), bons[2]}, plan, false).faute, "");
  EXPECT_NE(CompareTrajet({bons[0], mouvement(10, 5, false), bons[2]}, plan, false).faute, "");
  EXPECT_NE(CompareTrajet({bons[0], bons[2]}, plan, false).faute, "");
}

// A quarter about the origin in four rows, read as an arc about other places.
TEST(CompareTrajet, MeasuresAnArcAgainstItsRows) {
  std::vector<Deplacement> plan(5);
  for (std::size_t k = 0; k < 5; ++k) {
    const double a = 0.1 * static_cast<double>(k);
    plan[k].X = static_cast<float>(10 * std::cos(a));
    plan[k].Y = static_cast<float>(10 * std::sin(a));
    plan[k].Z = -1;
  }
  plan[0].Z = -1;
  MouvementRs274 arc;
  arc.arc = true;
  arc.x = 10 * std::cos(0.4);
  arc.y = 10 * std::sin(0.4);
  arc.z = -1;
  EcartTrajet e = CompareTrajet({arc}, plan, false);
  EXPECT_EQ(e.faute, "");
  EXPECT_LT(e.rangs, 1e-5);
  EXPECT_NEAR(e.fleche, 10 * (1 - std::cos(0.05)), 1e-4);  // over a chord of a tenth
  arc.cx = -0.5;
  EXPECT_GT(CompareTrajet({arc}, plan, false).rangs, 0.003);
  arc.cx = 0;
  arc.horaire = true;  // the long way round
  EXPECT_GT(CompareTrajet({arc}, plan, false).fleche, 1);
}

}  // namespace
}  // namespace essai
