// The projects of samples/, opened, planned and run on the virtual board, streamed and stored.
#include <algorithm>
#include <filesystem>
#include <tuple>

#include "core/DocumentCourant.h"
#include "run/Module_Planificateur.h"
#include "tests/unit/run/FluxEssai.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;
using essai::Flux;
using essai::Voie;

std::vector<std::string> Projets() {
  std::vector<std::string> noms;
  for (const auto& entree : std::filesystem::directory_iterator(essai::DossierExemples())) {
    if (entree.path().extension() == ".OVL") noms.push_back(entree.path().filename().string());
  }
  std::sort(noms.begin(), noms.end());
  return noms;
}

class Exemple : public testing::TestWithParam<std::tuple<std::string, Voie>> {};

TEST_P(Exemple, RunsOnTheBoardAsItWasPlanned) {
  const auto& [projet, voie] = GetParam();
  Flux f(true, essai::TableDe(6, 5));
  OptionsOuverture options;
  options.ecritFichier = false;  // the samples stay as they are
  options.rendUniforme = false;
  ASSERT_EQ(mnu_Ouvrir(essai::DossierExemples() + "/" + projet, options), Ouverture::Reussie);
  CdeZENIK->ChargeParametres();
  ASSERT_TRUE(Tableau_Decoupe());
  EXPECT_GT(f.Prepare(voie), 0);
  ASSERT_GT(NbDeplacements, 3);
  f.SuitPlace();
  ASSERT_TRUE(f.Joue());
  essai::VerifieJob(f, {0, 0, 0});
  // Every job ends on the origin of the work.
  EXPECT_EQ(f.carte->Lieu(), (zenikcom::Axes3{0, 0, 0}));
  RecordProperty("short", essai::CompareTemps(f).courtes);
}

INSTANTIATE_TEST_SUITE_P(Samples, Exemple,
                         testing::Combine(testing::ValuesIn(Projets()), testing::Values(Voie::Flux, Voie::Liste)),
                         [](const auto& cas) {
                           std::string nom = std::filesystem::path(std::get<0>(cas.param)).stem().string();
                           std::replace(nom.begin(), nom.end(), '-', '_');
                           return nom + (std::get<1>(cas.param) == Voie::Flux ? "_Streamed" : "_Stored");
                         });

}  // namespace
