#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

void TroisChemins() {
  AjouteSequence(" A", {{0, 0}, {1, 0}, {2, 0}});
  AjouteSequence(" B", {{10, 0}, {11, 0}});
  AjouteSequence(" C", {{20, 0}, {21, 0}, {22, 0}});
  Sequences[1].Selection = Faux;
}

std::vector<Code2> Demandes(const BiblioEssai& biblio) {
  std::vector<Code2> codes;
  for (const auto& a : biblio.appels) codes.push_back(a.points.front().Seq);
  return codes;
}

}  // namespace

TEST(DecaleSelection, ReversesThePointsOnTheWayToAndFrom3) {
  BiblioEssai biblio;
  TroisChemins();
  RayonFraise = 2;
  DecaleSelection(3);
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{2, 1, 0, 10, 11, 22, 21, 20}));
  EXPECT_EQ(Sequences[0].Decalage, 3);
  EXPECT_EQ(Sequences[1].Decalage, 1);
  EXPECT_EQ(biblio.appels.at(0).decal, -2);
  EXPECT_EQ(biblio.appels.at(0).points.front().X, 2);
  DecaleSelection(3);
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{2, 1, 0, 10, 11, 22, 21, 20}));
  DecaleSelection(2);
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 1, 2, 10, 11, 20, 21, 22}));
  EXPECT_EQ(CodesDessin(), " A B C");
}

TEST(DecaleSelection, LeavesTheOrderAloneBetween1And2) {
  BiblioEssai biblio;
  TroisChemins();
  DecaleSelection(2);
  DecaleSelection(1);
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 1, 2, 10, 11, 20, 21, 22}));
}

TEST(DecaleSelection, RecomputesWhatIsSelectedAndMilled) {
  BiblioEssai biblio;
  TroisChemins();
  Sequences[2].Fraiser = Faux;
  DecaleSelection(1);
  EXPECT_EQ(Demandes(biblio), (std::vector<Code2>{Code2(" A")}));
  EXPECT_EQ(Modifie, Vrai);
  ASSERT_FALSE(Panneaux().empty());
  EXPECT_EQ(Panneaux().front().first, 5);
  EXPECT_EQ(Panneaux().back(), (std::pair<int, std::string>{5, ""}));
}

TEST(PocheSelection, SetsTheFlagOnOpenAndClosedPathsAlike) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{0, 0}, {1, 0}, {2, 0}});
  AjouteCarre(" B", 10, 10, 5);
  biblio.echecs = {Code2(" A")};
  RecalculDecalages();
  biblio.appels.clear();
  PCPoche = 20;
  PocheSelection(true);
  EXPECT_EQ(Sequences[0].Poche, Vrai);
  EXPECT_EQ(Sequences[1].Poche, Vrai);
  EXPECT_EQ(biblio.appels.at(0).recouvrement, 20);
  EXPECT_EQ(biblio.appels.at(1).recouvrement, 20);
  // The failed open path stands with an entry without points.
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_TRUE(TraceDecale[0].Points.empty());
  PocheSelection(false);
  EXPECT_EQ(Sequences[0].Poche, Faux);
  EXPECT_EQ(biblio.appels.back().recouvrement, 100);
  EXPECT_EQ(Modifie, Vrai);
}

TEST(FraiserSelection, RecomputesOnlyWhatIsToBeMilled) {
  BiblioEssai biblio;
  TroisChemins();
  FraiserSelection(false);
  EXPECT_EQ(Sequences[0].Fraiser, Faux);
  EXPECT_EQ(Sequences[1].Fraiser, Vrai);
  EXPECT_TRUE(biblio.appels.empty());
  FraiserSelection(true);
  EXPECT_EQ(Sequences[2].Fraiser, Vrai);
  EXPECT_EQ(Demandes(biblio), (std::vector<Code2>{Code2(" A"), Code2(" C")}));
}

TEST(ProfondeurSelection, WritesTheDepthOfTheSelectedPaths) {
  TroisChemins();
  EXPECT_TRUE(ProfondeurSelection(-0.5));
  EXPECT_EQ(Sequences[0].Profondeur, -0.5);
  EXPECT_EQ(Sequences[1].Profondeur, -3);
  EXPECT_EQ(Sequences[2].Profondeur, -0.5);
  EXPECT_EQ(Modifie, Vrai);
}

TEST(ProfondeurSelection, RefusesZeroAndPositiveDepths) {
  TroisChemins();
  for (const double z : {0.0, 2.5}) {
    Attend("F_Representation", "lib361");
    EXPECT_FALSE(ProfondeurSelection(z));
    EXPECT_EQ(Boites().back().titre, "OVELIN");
  }
  EXPECT_EQ(Sequences[0].Profondeur, -3);
  EXPECT_EQ(Modifie, Faux);
}

TEST(ProfondeurSelection, AsksWhereTheSelectedDepthsDiffer) {
  TroisChemins();
  Sequences[2].Profondeur = -7;
  Attend("F_Representation", "lib106", Reponse::Non);
  EXPECT_FALSE(ProfondeurSelection(-4));
  EXPECT_EQ(Boites()[0].boutons, Boutons::OuiNon);
  EXPECT_EQ(Sequences[0].Profondeur, -3);
  EXPECT_EQ(Modifie, Faux);
  Attend("F_Representation", "lib106", Reponse::Oui);
  EXPECT_TRUE(ProfondeurSelection(-4));
  EXPECT_EQ(Sequences[0].Profondeur, -4);
  EXPECT_EQ(Sequences[2].Profondeur, -4);
}

TEST(ProfondeurSelection, AsksBeforeItLooksAtTheDepth) {
  TroisChemins();
  Sequences[2].Profondeur = -7;
  Attend("F_Representation", "lib106", Reponse::Oui);
  Attend("F_Representation", "lib361");
  EXPECT_FALSE(ProfondeurSelection(1));
}

TEST(ProfondeurSelection, IgnoresTheDepthsOfPathsThatAreNotSelected) {
  TroisChemins();
  Sequences[1].Profondeur = -7;
  EXPECT_TRUE(ProfondeurSelection(-4));
}
