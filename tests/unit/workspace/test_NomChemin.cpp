// Paths in words.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "tests/unit/workspace/DeuxArbres.h"
#include "toolpath/Module_Decalage.h"
#include "workspace/Module_Arbres.h"
#include "workspace/NomChemin.h"

namespace {

using namespace ovelin;
using essai::Trace;

// A circle of `n` chords, counter-clockwise.
std::vector<PointTrace> Cercle(int n, double rayon) {
  std::vector<std::pair<float, float>> xy;
  for (int i = 0; i <= n; ++i) {
    const double a = 2 * Pi * (i % n) / n;
    xy.emplace_back(static_cast<float>(10 + rayon * std::cos(a)), static_cast<float>(20 + rayon * std::sin(a)));
  }
  return Trace(" A", xy);
}

SequenceInfo Fiche() {
  SequenceInfo f;
  f.Code = Code2(" A");
  f.Profondeur = -3;
  f.Fraiser = Vrai;
  f.Decalage = 1;
  return f;
}

TEST(FormeDe, ACircleTurnedLeftIsAHoleAndTurnedRightADisc) {
  auto points = Cercle(32, 2);
  EXPECT_EQ(FormeDe(points, 1).sorte, SorteChemin::Trou);
  EXPECT_NEAR(FormeDe(points, 1).a, 4, 1e-4);
  std::reverse(points.begin(), points.end());
  EXPECT_EQ(FormeDe(points, 1).sorte, SorteChemin::Disque);
  EXPECT_EQ(FormeDe(points, 3).sorte, SorteChemin::Trou) << "the same cut in the other sense";
}

TEST(FormeDe, SixChordsAreNoCircle) {
  EXPECT_EQ(FormeDe(Cercle(6, 2), 1).sorte, SorteChemin::Decoupe);
  EXPECT_EQ(FormeDe(Cercle(8, 2), 1).sorte, SorteChemin::Trou);
}

TEST(FormeDe, AnEllipseIsNoCircle) {
  auto points = Cercle(32, 20);
  for (PointTrace& p : points) p.Y = 20 + (p.Y - 20) * 0.9F;
  EXPECT_EQ(FormeDe(points, 1).sorte, SorteChemin::Decoupe);
}

TEST(FormeDe, ARectangleHasItsTwoSides) {
  const auto points = Trace(" A", {{0, 0}, {0, 20}, {30, 20}, {30, 0}, {0, 0}});
  const FormeChemin f = FormeDe(points, 1);
  EXPECT_EQ(f.sorte, SorteChemin::Contour);
  EXPECT_EQ(f.a, 30);
  EXPECT_EQ(f.b, 20);
}

TEST(FormeDe, AnOpenPathHasItsLengthAndOnePlaceIsADrilling) {
  EXPECT_EQ(FormeDe(Trace(" A", {{0, 0}, {3, 4}, {3, 10}}), 1).sorte, SorteChemin::Ligne);
  EXPECT_EQ(FormeDe(Trace(" A", {{0, 0}, {3, 4}, {3, 10}}), 1).a, 11);
  EXPECT_EQ(FormeDe(Trace(" A", {{5, 5}, {5, 5}}), 1).sorte, SorteChemin::Percage);
}

TEST(NomChemin, SaysDepthPocketAndWhatIsNotMilled) {
  Regl.Langue = "fr";
  const auto points = Trace(" A", {{0, 0}, {0, 208}, {284, 208}, {284, 0}, {0, 0}});
  SequenceInfo fiche = Fiche();
  EXPECT_EQ(NomChemin(points, fiche), "Contour 284.0 x 208.0, -3.0");
  fiche.Poche = Vrai;
  fiche.Profondeur = -1.25;
  fiche.Fraiser = Faux;
  EXPECT_EQ(NomChemin(points, fiche), "Contour 284.0 x 208.0, -1.25, poche, non fraisé");
  Regl.Langue = "en";
  EXPECT_EQ(NomChemin(Cercle(32, 2), Fiche()), "Hole 4.0, -3.0");
}

TEST(NomChemin, SaysIsland) {
  Regl.Langue = "en";
  EXPECT_EQ(NomChemin(Cercle(32, 2), Fiche(), "", true), "Hole 4.0, -3.0, island");
}

TEST(Arbre, BothTreesNameTheirPaths) {
  Regl.Langue = "en";
  essai::AjouteCarre(" A", 0, 0, 40);
  essai::AjouteCarre(" B", 100, 0, 30, 1, -5);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  RecalculDecalages();
  const auto arbres = essai::DeuxArbres();
  for (const Arbre& arbre : arbres) {
    ASSERT_EQ(arbre.groupes.size(), 2U);
    EXPECT_EQ(arbre.Nom(0), "Outline 40.0 x 40.0, -3.0");
    EXPECT_EQ(arbre.Nom(1), "Outline 30.0 x 30.0, -5.0");
    EXPECT_EQ(arbre.Nom(2), "");
  }
  Sequences[1].Profondeur = -6;
  EXPECT_EQ(arbres[0].Nom(1), "Outline 30.0 x 30.0, -6.0") << "as it stands now";
}

}  // namespace
