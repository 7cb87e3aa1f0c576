// Whole jobs on the virtual board, from the project to the last step of the motors: against files that were looked
// over. A line is a record as the board has run it, decoded by the board: steps on X, Y and Z, ticks at the full
// rate, first and top level of its ramp.
#include <algorithm>
#include <sstream>

#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "run/Module_Lancement.h"
#include "tests/support/Golden.h"
#include "tests/unit/run/FluxEssai.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;
using essai::Flux;
using zenikcom::Axes3;

std::string Enregistrement(zenikcom::CarteVirtuelle& carte) {
  const std::vector<Axes3> lieux = carte.Parcours();
  const std::vector<zenikcom::RecordJoue>& joues = carte.Joues();
  EXPECT_EQ(lieux.size(), joues.size() + 1) << "a place for each record";
  std::ostringstream texte;
  texte << "record X Y Z ticks first top\n";
  for (std::size_t i = 0; i < std::min(joues.size(), lieux.size() - 1); ++i) {
    texte << i + 1;
    for (std::size_t axe = 0; axe < 3; ++axe) texte << ' ' << lieux[i + 1][axe] - lieux[i][axe];
    texte << ' ' << joues[i].ticks << ' ' << joues[i].depart << ' ' << joues[i].sommet << '\n';
  }
  return texte.str();
}

struct Cas {
  const char* projet;
  std::uint8_t mode;
};

class GoldenRun : public testing::TestWithParam<Cas> {};

TEST_P(GoldenRun, TheMachineDoesWhatWasLookedOver) {
  Flux f(true, essai::TableDe(6, 5));
  Svc.Montre = [](const BoiteMessage& b) { return b.boutons == Boutons::OuiNon ? Reponse::Oui : Reponse::Ok; };
  OptionsOuverture options;
  options.ecritFichier = false;  // the samples stay as they are
  options.rendUniforme = false;
  const std::string projet = GetParam().projet;
  ASSERT_EQ(mnu_Ouvrir(essai::DossierExemples() + "/" + projet + ".OVL", options), Ouverture::Reussie);
  std::string vitesse = TexteNombre(Vitesse_Mat_H);
  ASSERT_TRUE(LanceFraisage(vitesse, GetParam().mode));
  EXPECT_EQ(StopDemande, Faux);
  EXPECT_EQ(f.carte->Lieu(), (Axes3{0, 0, 0}));
  const std::string fichier = essai::EcritFichierEssai("travail.run", Enregistrement(*f.carte));
  EXPECT_EQ(essai::CompareGoldenTexte("run-" + projet + ".run", fichier), "");
}

// Streamed and stored it is the same job.
INSTANTIATE_TEST_SUITE_P(Samples, GoldenRun,
                         testing::Values(Cas{"equerre-attaches", EnvoiDirect},
                                         Cas{"equerre-attaches", MemoireEtFraisage},
                                         Cas{"percage-ligne", EnvoiDirect}, Cas{"aile-mousse", EnvoiDirect},
                                         Cas{"aile-mousse", MemoireEtFraisage}),
                         [](const auto& cas) {
                           std::string nom = cas.param.projet;
                           std::replace(nom.begin(), nom.end(), '-', '_');
                           return nom + (cas.param.mode == EnvoiDirect ? "_Streamed" : "_Stored");
                         });

}  // namespace
