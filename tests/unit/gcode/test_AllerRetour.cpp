// Jobs written as G-code, read back and run on the virtual board: the machine goes where the plan went.
#include <algorithm>
#include <cmath>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/PlanCourant.h"
#include "run/Module_GCode.h"
#include "tests/unit/gcode/FraisageEssai.h"
#include "workspace/Module_Ouverture.h"

namespace essai {
namespace {

class AllerRetour : public FraisageGcode, public testing::WithParamInterface<const char*> {
 protected:
  // The job of a sample as a file; the rows of its plan stay in `plan_`.
  void Ecrit(const std::string& exemple) {
    OptionsOuverture options;
    options.ecritFichier = false;
    options.rendUniforme = false;
    ASSERT_EQ(mnu_Ouvrir(DossierExemples() + "/" + exemple, options), Ouverture::Reussie);
    HautDeg = 5;
    EcritureNC ecriture;
    ASSERT_TRUE(EcritGCode(Dossier() + "/job.nc", ecriture));
    plan_.assign(TableDecoupe.begin() + 1, TableDecoupe.begin() + NbDeplacements + 1);
    texte_ = LitFichierEntier(Dossier() + "/job.nc").value_or("");
  }

  std::vector<Deplacement> plan_;
  std::string texte_;
};

TEST_P(AllerRetour, WhatTheProgramWritesPassesUnmarked) {
  Ecrit(GetParam());
  const Programme programme(texte_);
  EXPECT_GT(programme.Comptes().valides, 20U);
  EXPECT_EQ(programme.Comptes().refusees, 0U);
  EXPECT_EQ(programme.Comptes().douteuses, 0U);
  EXPECT_EQ(MesureDe(programme, {}, false).sansVitesse, 0U);
}

// The file holds thousandths of a millimetre, and a place is a whole step.
TEST_P(AllerRetour, ThePathOnTheBoardIsThatOfThePlan) {
  Ecrit(GetParam());
  ASSERT_EQ(Lance(texte_), IssueGcode::Terminee);
  const std::array<double, 3> mm{CdeZENIK->MmParPasX(), CdeZENIK->MmParPasY(), CdeZENIK->MmParPasZ()};
  const auto presDe = [&](const zenikcom::Axes3& pas, const Deplacement& d) {
    const std::array<double, 3> but{static_cast<double>(d.X), static_cast<double>(d.Y), static_cast<double>(d.Z)};
    for (std::size_t axe = 0; axe < 3; ++axe) {
      if (std::abs(static_cast<double>(pas[axe]) * mm[axe] - but[axe]) > 0.001 + mm[axe] / 2 + 1e-4) return false;
    }
    return true;
  };
  std::size_t ligne = 0;
  const auto parcours = carte_->Parcours();
  ASSERT_GT(parcours.size(), 10U);
  for (const zenikcom::Axes3& p : parcours) {
    const std::size_t avant = ligne;
    while (ligne < plan_.size() && !presDe(p, plan_[ligne])) ++ligne;
    ASSERT_LT(ligne, plan_.size()) << "no row of the plan from " << avant << " on leads here";
    EXPECT_LE(ligne - avant, 2U) << "rows that the machine did not go to";
  }
  const Deplacement& fin = plan_.back();
  AttendPlace(static_cast<double>(fin.X), static_cast<double>(fin.Y), static_cast<double>(fin.Z));
}

INSTANTIATE_TEST_SUITE_P(Exemples, AllerRetour,
                         testing::Values("plaque.dxf", "equerre-attaches.OVL", "plaque-poches.OVL", "enseigne.plt",
                                         "aile-mousse.OVL", "percage-ligne.OVL"),
                         [](const auto& exemple) {
                           std::string nom = exemple.param;
                           std::replace_if(
                               nom.begin(), nom.end(), [](char c) { return !std::isalnum(c); }, '_');
                           return nom;
                         });

}  // namespace
}  // namespace essai
