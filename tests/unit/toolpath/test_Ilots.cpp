// Islands of the drawing: which paths stay, which pockets go around them, and what has to be computed anew when one
// of them changes.
#include <cmath>

#include "core/Coeurs.h"
#include "core/ReglagesCourants.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/traces/Ilots.h"

using namespace ovelin;
using namespace essai;

namespace {

const Code2 A(" A");
const Code2 B(" B");
const Code2 C(" C");
const Code2 D(" D");

void Marque(Code2 code, bool ilot = true) { Complements.Pose(code, {ilot, "", std::nullopt}); }

// A pocket of 60 mm with an island of 20 in it, and a square beside them.
void PocheAvecIlot() {
  RayonFraise = 1.5;
  PCPoche = 40;
  AjouteCarre(" A", 0, 0, 60);
  AjouteCarre(" B", 20, 20, 20);
  AjouteCarre(" C", 100, 0, 10);
  Sequences[0].Poche = Vrai;
  Marque(B);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
}

bool SansTrajet(Code2 code) {
  bool vu = false;
  for (const SequenceDecalee& d : TraceDecale) {
    if (d.Seq != code) continue;
    vu = true;
    if (!d.Points.empty()) return false;
  }
  return vu;
}

// Points of the trace of a path within a square.
long Dans(Code2 code, float x, float y, float cote) {
  long n = 0;
  for (const SequenceDecalee& d : TraceDecale) {
    if (d.Seq != code) continue;
    for (std::size_t i = 0; i + 1 < d.Points.size(); ++i) {
      for (int k = 0; k < 20; ++k) {
        const float t = static_cast<float>(k) / 20;
        const float px = d.Points[i].X + t * (d.Points[i + 1].X - d.Points[i].X);
        const float py = d.Points[i].Y + t * (d.Points[i + 1].Y - d.Points[i].Y);
        n += px > x && px < x + cote && py > y && py < y + cote ? 1 : 0;
      }
    }
  }
  return n;
}

// All traces computed anew are what is there now.
void EstCommeNeuf(const char* quoi) {
  std::vector<SequenceDecalee> ici = TraceDecale;
  RecalculDecalages();
  ASSERT_EQ(ici.size(), TraceDecale.size()) << quoi;
  for (std::size_t i = 0; i < ici.size(); ++i) {
    EXPECT_EQ(ici[i].Seq, TraceDecale[i].Seq) << quoi;
    EXPECT_EQ(Lieux(ici[i].Points), Lieux(TraceDecale[i].Points)) << quoi << " " << i;
  }
}

void Choisit(std::initializer_list<Code2> codes) {
  DeselectionneTout();
  for (const Code2 code : codes) BasculeSelection(code);
}

}  // namespace

TEST(Ilots, TheirPocketGoesAroundThemAndTheyHaveNoPathOfTheirOwn) {
  PocheAvecIlot();
  RecalculDecalages();
  EXPECT_TRUE(SansTrajet(B));
  EXPECT_EQ(CodesTraces(), " A B C") << "one piece, and the place of the island is kept";
  EXPECT_EQ(Dans(A, 18.52F, 22, 16), 0);
  EXPECT_GT(Dans(A, 18.48F, 22, 16), 0) << "its wall is cut, 1.5 mm beside it";
  Marque(B, false);
  RecalculDecalages();
  EXPECT_FALSE(SansTrajet(B));
  EXPECT_GT(Dans(A, 20, 20, 20), 0) << "without the mark the pocket fills its outline whole";
}

TEST(Ilots, WithoutAPocketAroundThemAreMilledAsTheyAre) {
  PocheAvecIlot();
  Marque(B, false);
  Marque(C);
  RecalculDecalages();
  const auto sans = TraceDecale;
  EXPECT_FALSE(SansTrajet(C));
  Marque(C, false);
  RecalculDecalages();
  EXPECT_EQ(TraceDecale, sans);
}

TEST(Ilots, AreNoneInAPathThatIsNotCleared) {
  PocheAvecIlot();
  const auto milled = [](const char* quoi) {
    RecalculDecalages();
    const auto avec = TraceDecale;
    EXPECT_FALSE(SansTrajet(B)) << quoi;
    Marque(B, false);
    RecalculDecalages();
    EXPECT_EQ(TraceDecale, avec) << quoi;
    Marque(B);
  };
  Sequences[0].Poche = Faux;
  milled("no pocket");
  Sequences[0].Poche = Vrai;
  Sequences[0].Decalage = CoteLigne;
  milled("on the line");
  Sequences[0].Decalage = CoteDirect;
  PCPoche = 100;
  milled("an overlap of 100: the contour alone");
  PCPoche = 40;
  RayonFraise = 0;
  milled("a tool without width");
  RayonFraise = 1.5;
  RecalculDecalages();
  EXPECT_TRUE(SansTrajet(B));
}

TEST(Ilots, StayWhateverIsMilledNowAndHoweverDeep) {
  PocheAvecIlot();
  RecalculDecalages();
  const auto avant = TraceDecale;
  Sequences[0].Fraiser = Faux;
  Sequences[1].Profondeur = -9;
  RecalculDecalages();
  EXPECT_EQ(TraceDecale, avant);
}

TEST(Ilots, AnOpenPathIsNone) {
  PocheAvecIlot();
  Marque(B, false);
  AjouteSequence(" D", {{20, 20}, {40, 20}, {40, 40}});
  Sequences.back().Decalage = CoteLigne;
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  RecalculDecalages();
  const auto sans = TraceDecale;
  Marque(D);
  RecalculDecalages();
  EXPECT_EQ(TraceDecale, sans);
}

TEST(Ilots, APocketWithinOneIsClearedAndHasItsOwn) {
  PocheAvecIlot();
  AjouteCarre(" D", 22, 22, 16);
  AjouteCarre(" E", 28, 28, 4);
  Sequences[3].Poche = Vrai;
  Marque(Code2(" E"));
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  RecalculDecalages();
  EXPECT_TRUE(SansTrajet(B));
  EXPECT_TRUE(SansTrajet(Code2(" E")));
  EXPECT_FALSE(SansTrajet(D));
  EXPECT_GT(Dans(D, 22, 22, 16), 0);
  EXPECT_EQ(Dans(D, 27, 27, 6), 0);
  EXPECT_EQ(Dans(A, 19, 19, 22), 0);
}

TEST(Ilots, StandInEachPocketAroundThem) {
  PocheAvecIlot();
  AjouteCarre(" D", 10, 10, 40);
  Sequences[3].Poche = Vrai;
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  RecalculDecalages();
  EXPECT_TRUE(SansTrajet(B));
  for (const Code2 poche : {A, D}) EXPECT_EQ(Dans(poche, 19, 19, 22), 0) << poche.Texte();
}

TEST(Ilots, OfPathsThatAreIslandAndPocketTheLargerIsThePocket) {
  RayonFraise = 1.5;
  PCPoche = 40;
  AjouteCarre(" B", 20, 20, 20);
  AjouteCarre(" A", 0, 0, 60);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  for (SequenceInfo& s : Sequences) s.Poche = Vrai;
  Marque(A);
  Marque(B);
  RecalculDecalages();
  EXPECT_TRUE(SansTrajet(B));
  EXPECT_EQ(Dans(A, 19, 19, 22), 0);
  EXPECT_GT(Dans(A, 0, 0, 60), 0);
}

TEST(Ilots, TheSwitchRenewsThePocketsAround) {
  PocheAvecIlot();
  Marque(B, false);
  RecalculDecalages();
  const auto sans = TraceDecale;
  Choisit({B});
  IlotSelection(true);
  EXPECT_TRUE(SansTrajet(B));
  EXPECT_EQ(Dans(A, 19, 19, 22), 0);
  EXPECT_EQ(Modifie, Vrai);
  IlotSelection(false);
  EXPECT_TRUE(Complements.Vide());
  ASSERT_EQ(TraceDecale.size(), sans.size());
  for (std::size_t i = 0; i < sans.size(); ++i) EXPECT_EQ(Lieux(TraceDecale[i].Points), Lieux(sans[i].Points));
}

TEST(Ilots, TheSwitchReachesThePocketOfAPathThatIsNotMilled) {
  PocheAvecIlot();
  Sequences[1].Fraiser = Faux;
  Marque(B, false);
  RecalculDecalages();
  Choisit({B});
  IlotSelection(true);
  EXPECT_EQ(Dans(A, 19, 19, 22), 0);
}

TEST(Ilots, WhatChangesOneRenewsThePocketsAround) {
  PocheAvecIlot();
  RecalculDecalages();
  Choisit({B});
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 10));
  EXPECT_GT(Dans(A, 20, 20, 8), 0) << "where it was";
  EXPECT_EQ(Dans(A, 29, 19, 22), 0) << "where it is";
  EstCommeNeuf("moved");
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 100));
  EXPECT_FALSE(SansTrajet(B)) << "out of the pocket it is milled";
  EstCommeNeuf("moved out");
  EXPECT_TRUE(Deplacement_Selection(Direction::X, -110));
  EXPECT_TRUE(SansTrajet(B));
  EXPECT_TRUE(ChangePosition(7, 45, 45));
  EstCommeNeuf("one of its points moved");
  EXPECT_TRUE(TourneSelection(0.3, {30, 30, CodePD, A}));
  EstCommeNeuf("turned");
}

TEST(Ilots, ThePocketThatIsNoneAnyMoreGivesThemTheirPath) {
  PocheAvecIlot();
  RecalculDecalages();
  Choisit({A});
  PocheSelection(false);
  EXPECT_FALSE(SansTrajet(B));
  EstCommeNeuf("no pocket");
  PocheSelection(true);
  EXPECT_TRUE(SansTrajet(B));
  EstCommeNeuf("pocket");
  DecaleSelection(CoteLigne);
  EXPECT_FALSE(SansTrajet(B));
  EstCommeNeuf("on the line");
}

TEST(Ilots, ThePocketOfOneThatIsDeletedFillsItsPlace) {
  PocheAvecIlot();
  RecalculDecalages();
  Choisit({B});
  SupprimeSelection();
  EXPECT_GT(Dans(A, 20, 20, 20), 0);
  EstCommeNeuf("deleted");
}

TEST(Ilots, OfAPocketThatIsDeletedAreMilled) {
  PocheAvecIlot();
  RecalculDecalages();
  Choisit({A});
  SupprimeSelection();
  EXPECT_FALSE(SansTrajet(B));
  EstCommeNeuf("deleted");
}

TEST(Ilots, APathThatHasNothingToDoWithThemIsComputedAlone) {
  PocheAvecIlot();
  BiblioEssai biblio;
  Biblio.DecalSequenceIlots = [&](Bibliotheque::Points&, float, float, std::int32_t, Bibliotheque::Chemin) {
    ADD_FAILURE() << "the pocket";
    return 0;
  };
  RefaitDecalage(C);
  ASSERT_EQ(biblio.appels.size(), 1U);
  EXPECT_EQ(biblio.appels[0].points.front().Seq, C);
}

TEST(Ilots, AreAskedForOnlyWhereAPathIsMarked) {
  PocheAvecIlot();
  Marque(B, false);
  BiblioEssai biblio;
  Biblio.IlotsDans = [](Bibliotheque::Chemin, std::span<const Bibliotheque::Chemin>) {
    ADD_FAILURE() << "no path is marked";
    return std::vector<std::size_t>{};
  };
  RecalculDecalages();
  EXPECT_EQ(biblio.appels.size(), 3U);
  EXPECT_EQ(biblio.appels[0].recouvrement, 40);
}

TEST(Ilots, AreTheSameOnSeveralCores) {
  RayonFraise = 1.5;
  PCPoche = 40;
  for (int k = 0; k < 6; ++k) {
    std::vector<std::pair<float, float>> xy;
    for (int i = 0; i <= 900; ++i) {
      const double a = 2 * M_PI * (i % 900) / 900;
      const double r = 30 + 0.3 * std::sin(24 * a + k);
      xy.emplace_back(static_cast<float>(80 * k + r * std::cos(a)), static_cast<float>(r * std::sin(a)));
    }
    AjouteSequence(std::string(" ") + static_cast<char>('A' + k), xy);
    Sequences.back().Poche = Vrai;
    AjouteCarre(std::string(" ") + static_cast<char>('a' + k), static_cast<float>(80 * k - 5), -5, 10);
    Marque(Sequences.back().Code);
  }
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  RecalculDecalages();
  const auto seul = TraceDecale;
  EXPECT_TRUE(SansTrajet(Code2(" c")));
  for (const unsigned coeurs : {2U, 7U}) {
    NombreCoeurs = coeurs;
    RecalculDecalages();
    EXPECT_EQ(TraceDecale, seul) << coeurs;
  }
}

TEST(IlotCommun, TellsMixedFromAllAndNone) {
  PocheAvecIlot();
  EXPECT_EQ(IlotCommun(), Mixte);
  Choisit({B});
  EXPECT_EQ(IlotCommun(), Vrai);
  Choisit({A, C});
  EXPECT_EQ(IlotCommun(), Faux);
  Choisit({});
  EXPECT_EQ(IlotCommun(), Faux);
}
