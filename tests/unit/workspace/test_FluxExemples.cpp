// The projects of samples/, opened, planned and run on the virtual board.
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "core/DocumentCourant.h"
#include "run/Module_Planificateur.h"
#include "tests/unit/run/FluxEssai.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;
using essai::Flux;

class Exemple : public testing::TestWithParam<const char*> {};

TEST_P(Exemple, RunsOnTheBoardAsItWasPlanned) {
  Flux f(true, essai::TableDe(6, 5));
  OptionsOuverture options;
  options.ecritFichier = false;  // the samples stay as they are
  options.rendUniforme = false;
  ASSERT_EQ(mnu_Ouvrir(essai::DossierExemples() + "/" + GetParam(), options), Ouverture::Reussie);
  CdeZENIK->ChargeParametres();
  ASSERT_TRUE(Tableau_Decoupe());
  const double prevu = TempsDecoupe();
  EXPECT_GT(prevu, 0);
  f.Compacte();
  ASSERT_GT(NbDeplacements, 3);
  ASSERT_TRUE(CdeZENIK->EnvoiUSB());
  f.Nourrit();
  f.Finit();
  EXPECT_EQ(f.carte->Compteurs().etat, zenikcom::EtatCarte::Fini);
  EXPECT_EQ(f.carte->Lieu(), Flux::Somme(NbDeplacements));
  EXPECT_EQ(Flux::PasDuProgramme(), f.carte->Lieu());
  // Every job ends on the origin of the work.
  EXPECT_EQ(f.carte->Lieu(), (zenikcom::Axes3{0, 0, 0}));
  double ecart = 0;
  int courtes = 0;
  const auto& joues = f.carte->Joues();
  ASSERT_EQ(joues.size(), f.durees.size());
  for (std::size_t i = 0; i < joues.size(); ++i) {
    const Deplacement& l = TableDecoupe[i + 1];
    const Mouvement m = CdeZENIK->Calcule({l.dX, l.dY, l.dZ}, l.Vitesse);
    if (m.rampe && m.Descente < 0) {
      ++courtes;
      continue;
    }
    const double tick = m.rampe ? CdeZENIK->Parametres().TableFreq[static_cast<std::size_t>(m.N)].Periode / 6e6
                                : 1e-4 / CdeZENIK->Parametres().Multiplicateur;
    ecart = std::max(ecart, std::fabs(joues[i].secondes - f.durees[i]) / tick);
  }
  EXPECT_LT(ecart, 1.01);
  RecordProperty("short", courtes);
}

INSTANTIATE_TEST_SUITE_P(Samples, Exemple,
                         testing::Values("aile-mousse.OVL", "enseigne-texte.OVL", "equerre-attaches.OVL",
                                         "percage-ligne.OVL", "plaque-poches.OVL"),
                         [](const auto& cas) {
                           std::string nom = std::filesystem::path(cas.param).stem().string();
                           std::replace(nom.begin(), nom.end(), '-', '_');
                           return nom;
                         });

}  // namespace
