// Every command whose tool path follows from it, with the tool path computed beside the window: whole or not at
// all, and the same as without a window.
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/support/PasseEcrite.h"
#include "tests/support/Support.h"
#include "toolpath/ChampsOutil.h"
#include "toolpath/Module_Copie.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Nettoyage.h"
#include "toolpath/Module_Ordre.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Texte.h"
#include "toolpath/Module_Transforme.h"
#include "toolpath/Module_Vinyl.h"
#include "toolpath/traces/Bibliotheque.h"

using namespace ovelin;
using namespace essai;

namespace {

struct Commande {
  const char* nom;
  std::function<void()> prepare;
  std::function<void()> fait;
};

void Choisit(const std::vector<std::string>& codes) {
  for (SequenceInfo& s : Sequences) {
    s.Selection = Faux;
    for (const std::string& code : codes) {
      if (s.Code == Code2(code)) s.Selection = Vrai;
    }
  }
}

// A closed circle, clockwise, or with `sens` = 1 the other way round.
void AjouteCercle(const std::string& code, float x, float y, double r, int n, int sens = -1) {
  std::vector<std::pair<float, float>> xy;
  for (int i = 0; i <= n; ++i) {
    const double a = sens * 2 * M_PI * (i % n) / n;
    xy.emplace_back(x + static_cast<float>(r * std::cos(a)), y + static_cast<float>(r * std::sin(a)));
  }
  AjouteSequence(code, xy);
}

// The path moved by the distance, in two pieces under codes of the library's own.
std::int32_t Deplace(Bibliotheque::Points& points, float decal) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    points[i].X += decal;
    points[i].Seq = Code2(i < points.size() / 2 ? "#a" : "#b");
  }
  return 1;
}

// Either path is worth a pass of its own: a pocket of many points ("A"), an outline of very many ("C"). Two small
// ones lie far apart, so that there is an order that is shorter than theirs.
class PasseDesCommandes : public testing::Test {
 protected:
  void SetUp() override {
    RayonFraise = 1.5;
    LargeurEncoche = 4;
    PCPoche = 40;
    Regl.ConfirmSuppr = false;
    AjouteCercle(" A", 0, 0, 20, 2600);
    Sequences.back().Poche = Vrai;
    AjouteCarre(" B", 300, 300, 10);
    AjouteCercle(" C", 60, 0, 30, 50100);
    AjouteCarre(" D", 320, 300, 10);
    NbPoints = static_cast<std::int32_t>(TraceInitial.size());
    Biblio.DecalSequence = [](Bibliotheque::Points& p, float, float d, std::int32_t) { return Deplace(p, d); };
    Biblio.DecalSequenceIlots = [](Bibliotheque::Points& p, float, float d, std::int32_t, Bibliotheque::Chemin) {
      return Deplace(p, d);
    };
    Biblio.NettoyageFichier = [](Bibliotheque::Points& p, float) {
      if (p.size() > 100) p.erase(p.begin() + 50);
      return static_cast<std::int32_t>(p.size());
    };
    Biblio.LissageSequence = [](Bibliotheque::Points& p) { p[7].X += 0.5F; };
    Biblio.Texte = [](Bibliotheque::Points& p, const std::string&, const std::string&, std::int32_t, std::int32_t) {
      p = Trace("t1", {{0, 0}, {0, 5}, {5, 5}, {0, 0}});
      return static_cast<std::int32_t>(p.size());
    };
    EncombrementGeneral();
    RecalculDecalages();
    Choisit({" A", " C"});
    OrigineX = 3;
  }
  PasseEcrite passe_;
};

class PasseCommandes : public PasseDesCommandes, public testing::WithParamInterface<Commande> {};

}  // namespace

TEST_P(PasseCommandes, IsInForceWholeOrNotAtAllWithAnArrowMeanwhile) {
  GetParam().prepare();
  VerifieCommande(passe_, GetParam().fait, [] { Deplacement_Selection(Direction::X, 0.25F); });
}

TEST_P(PasseCommandes, IsTheSameWithTheKernelOnAThreadOfItsOwn) {
  GetParam().prepare();
  passe_.aCote = true;
  VerifieCommande(passe_, GetParam().fait, [] { Deplacement_Selection(Direction::Y, 0.5F); });
}

TEST_P(PasseCommandes, IsInForceWholeOrNotAtAllWithAFieldOfTheToolMeanwhile) {
  GetParam().prepare();
  VerifieCommande(passe_, GetParam().fait, [] { EntreRayonFraise("2"); });
}

INSTANTIATE_TEST_SUITE_P(
    , PasseCommandes,
    testing::Values(Commande{"Rotation", [] {}, [] { TourneSelectionEtTraces(0.3, CentreSelection()); }},
                    Commande{"Miroir", [] {}, [] { MiroirSelectionEtTraces(AxeMiroir::X); }},
                    Commande{"Echelle", [] {}, [] { Dimensionne_Selection(1.1, 1.2, false); }},
                    Commande{"Place", [] {}, [] { Recale(50, 60); }},
                    Commande{"Origine", [] {}, [] { PlaceOrigine(); }},
                    Commande{"PointDeplace", [] {}, [] { ChangePosition(0, 21, 1); }},
                    Commande{"PointsSupprimes", [] {},
                             [] {
                               SupprimePoints({3, 4});
                             }},
                    Commande{"PointsDePlusieurs", [] {},
                             [] {
                               SupprimePoints({3, 2603});
                             }},
                    Commande{"AutreSens", [] {}, [] { DecaleSelection(3); }},
                    Commande{"SurTrait", [] {}, [] { DecaleSelection(2); }},
                    Commande{"Poche", [] {}, [] { PocheSelection(true); }},
                    Commande{"Ilot", [] { Choisit({" B"}); }, [] { IlotSelection(true); }},
                    Commande{"AFraiser", [] { Sequences[2].Fraiser = Faux; }, [] { FraiserSelection(true); }},
                    Commande{"Optimisation", [] {}, [] { mnu_Optimisation_Click(); }},
                    Commande{"Trajets", [] {}, [] { OrdonneTrajets(); }},
                    Commande{"PlusTard", [] { Choisit({" A"}); }, [] { ChangeOrdre(PasOrdre::PlusTard); }},
                    Commande{"PlusTot",
                             [] {
                               Choisit({" C", " D"});
                             },
                             [] { ChangeOrdre(PasOrdre::PlusTot); }},
                    Commande{"Depart", [] {}, [] { ChangeDepart(700); }},
                    Commande{"Inversion", [] {}, [] { InverseSelectionnees(); }},
                    Commande{"Nettoyage", [] {}, [] { mnu_Nettoyage_Click(0.01F); }},
                    Commande{"Lissage", [] {}, [] { LisseSelection(); }},
                    Commande{"Copie", [] { Choisit({" B"}); }, [] { DupliqueSelection(10, 10); }},
                    Commande{"DepartVinyl", [] {}, [] { ChoixDepart(3); }},
                    Commande{"Prolongement", [] {}, [] { RegleProlongement(true); }},
                    Commande{"Texte", [] {}, [] { GenereTexte("x", "DejaVu Sans", 0, 0); }},
                    Commande{"Attache", [] {}, [] { AjouteAttache(60, 30); }},
                    Commande{"AttacheEnlevee",
                             [] {
                               AjouteAttache(60, 30);
                               Modifie = Faux;
                             },
                             [] { EnleveAttache(60, 30); }},
                    Commande{"Attaches", [] { Choisit({" C"}); },
                             [] {
                               VoeuAttaches voeu;
                               voeu.nombre = 4;
                               PoseAttaches(voeu);
                             }}),
    [](const auto& cas) { return std::string(cas.param.nom); });

TEST_F(PasseDesCommandes, AnotherPassIsNotTheirs) {
  passe_.Offre();
  SvcPasse.SePeut = [] { return false; };
  InverseSelectionnees();
  EXPECT_EQ(passe_.passes, 0);
  EXPECT_EQ(passe_.rafraichis, 1);
  EXPECT_EQ(Modifie, Vrai);
}
