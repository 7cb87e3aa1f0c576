// What a step of undo has changed, in words: one change at a time on a drawing of squares.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/ReglagesCourants.h"
#include "core/Types.h"
#include "tests/support/Support.h"
#include "workspace/Changement.h"

namespace {

using namespace ovelin;

struct Etat {
  std::vector<PointTrace> points;
  std::vector<SequenceInfo> fiches;
  std::string reglages = "$$RayonFraise=1.5\r\n$$ProfPasse=-1\r\n$$TimerInterval=50\r\n";
};

SequenceInfo Fiche(const char* code) {
  SequenceInfo f;
  f.Code = Code2(code);
  f.Profondeur = -3;
  f.Fraiser = Vrai;
  f.Decalage = 1;
  return f;
}

void Ajoute(Etat& etat, const char* code, float x, float y, float cote) {
  const auto points =
      essai::Trace(code, {{x, y}, {x, y + cote}, {x + 2 * cote, y + cote}, {x + 2 * cote, y}, {x, y}});
  etat.points.insert(etat.points.end(), points.begin(), points.end());
  etat.fiches.push_back(Fiche(code));
}

// Two rectangles, 20 x 10 and 10 x 5 mm.
Etat Depart() {
  Etat etat;
  Ajoute(etat, " A", 0, 0, 10);
  Ajoute(etat, " B", 50, 30, 5);
  return etat;
}

Changement Entre(const Etat& avant, const Etat& apres) {
  return ChangementEntre({avant.points, avant.fiches, avant.reglages},
                         {apres.points, apres.fiches, apres.reglages});
}

// Each point of the path `code` through `f`.
template <class F>
Etat Change(const char* code, const F& f) {
  Etat etat = Depart();
  for (PointTrace& p : etat.points) {
    if (p.Seq == Code2(code)) f(p);
  }
  return etat;
}

using S = SorteChangement;

TEST(ChangementEntre, NothingIsTheView) {
  EXPECT_EQ(Entre(Depart(), Depart()), (Changement{S::Affichage, 0}));
  EXPECT_TRUE(Entre(Depart(), Depart()).Muet());
}

TEST(ChangementEntre, TheSelectionAloneIsNoChange) {
  Etat apres = Depart();
  apres.fiches[0].Selection = Vrai;
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Affichage, 0}));
}

TEST(ChangementEntre, PathsThatComeAndGoAreCounted) {
  Etat trois = Depart();
  Ajoute(trois, " C", 80, 0, 10);
  EXPECT_EQ(Entre(Depart(), trois), (Changement{S::Ajout, 1}));
  EXPECT_EQ(Entre(trois, Depart()), (Changement{S::Suppression, 1}));
}

TEST(ChangementEntre, AMoveIsToldOfThePathsThatMoved) {
  const Etat apres = Change(" B", [](PointTrace& p) { p.X += 3, p.Y -= 7; });
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Deplacement, 1}));
  EXPECT_FALSE(Entre(Depart(), apres).Muet());
}

TEST(ChangementEntre, TwoPathsThatMoveApartAreNoMove) {
  Etat apres = Change(" B", [](PointTrace& p) { p.X += 3; });
  for (PointTrace& p : apres.points) {
    if (p.Seq == Code2(" A")) p.X -= 3;
  }
  EXPECT_EQ(Entre(Depart(), apres).sequences, 2);
  EXPECT_NE(Entre(Depart(), apres).sorte, S::Deplacement);
}

TEST(ChangementEntre, AQuarterOfATurnIsATurn) {
  const Etat apres = Change(" A", [](PointTrace& p) {
    const float x = p.X;
    p.X = -p.Y;
    p.Y = x;
  });
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Rotation, 1}));
}

TEST(ChangementEntre, ATurnBy30DegreesRoundedTo32BitsIsATurn) {
  const double c = std::cos(Pi / 6);
  const double s = std::sin(Pi / 6);
  const Etat apres = Change(" B", [&](PointTrace& p) {
    const double x = p.X;
    const double y = p.Y;
    p.X = static_cast<float>(c * x - s * y);
    p.Y = static_cast<float>(s * x + c * y);
  });
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Rotation, 1}));
}

// A rectangle that is mirrored in its own middle has the same places: a triangle tells.
TEST(ChangementEntre, TheMirrorImageIsAMirrorAndNoTurn) {
  Etat avant;
  avant.points = essai::Trace(" A", {{0, 0}, {0, 10}, {20, 0}, {0, 0}});
  avant.fiches = {Fiche(" A")};
  Etat apres = avant;
  for (PointTrace& p : apres.points) p.X = 20 - p.X;
  EXPECT_EQ(Entre(avant, apres), (Changement{S::Miroir, 1}));
}

TEST(ChangementEntre, OneRatioForXAndOneForYIsTheSize) {
  const Etat apres = Change(" B", [](PointTrace& p) { p.X = 50 + 2 * (p.X - 50), p.Y = 30 + 3 * (p.Y - 30); });
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Taille, 1}));
}

TEST(ChangementEntre, ASinglePointThatMovesIsTheShape) {
  Etat apres = Depart();
  apres.points[1].Y += 4;
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Forme, 1}));
}

TEST(ChangementEntre, AnotherStartOnTheSamePlacesIsTheStart) {
  Etat apres = Depart();
  apres.points.erase(apres.points.begin());
  const PointTrace debut = apres.points.front();
  apres.points.insert(apres.points.begin() + 4, debut);
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Depart, 1}));
}

TEST(ChangementEntre, AMiddleOfANotchIsAnAttachmentPoint) {
  Etat apres = Depart();
  apres.points.insert(apres.points.begin() + 1, PointTrace{0, 5, CodePC, Code2(" A")});
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Attache, 1}));
  Etat plusHaut = Depart();
  plusHaut.points.insert(plusHaut.points.begin() + 1, PointTrace{0, 7, CodePC, Code2(" A")});
  EXPECT_EQ(Entre(apres, plusHaut), (Changement{S::Attache, 1})) << "along its path";
  EXPECT_EQ(Entre(apres, Depart()), (Changement{S::Attache, 1})) << "taken away";
}

TEST(ChangementEntre, ThePathsInAnotherOrderAreTheOrder) {
  Etat apres = Depart();
  std::rotate(apres.points.begin(), apres.points.begin() + 5, apres.points.end());
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Ordre, 0}));
}

TEST(ChangementEntre, EachPropertyHasItsName) {
  Etat cote = Depart();
  cote.fiches[0].Decalage = 2;
  EXPECT_EQ(Entre(Depart(), cote), (Changement{S::Cote, 1}));
  Etat poche = Depart();
  poche.fiches[0].Poche = poche.fiches[1].Poche = Vrai;
  EXPECT_EQ(Entre(Depart(), poche), (Changement{S::Poche, 2}));
  Etat profondeur = Depart();
  profondeur.fiches[1].Profondeur = -5;
  EXPECT_EQ(Entre(Depart(), profondeur), (Changement{S::Profondeur, 1}));
  Etat fraiser = Depart();
  fraiser.fiches[1].Fraiser = Faux;
  EXPECT_EQ(Entre(Depart(), fraiser), (Changement{S::Fraiser, 1}));
  fraiser.fiches[1].Profondeur = -5;
  EXPECT_EQ(Entre(Depart(), fraiser), (Changement{S::Proprietes, 1}));
}

TEST(ChangementEntre, ASideThatTurnsThePointsRoundIsTheSide) {
  Etat apres = Depart();
  std::reverse(apres.points.begin(), apres.points.begin() + 5);
  apres.fiches[0].Decalage = 3;
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Cote, 1}));
}

TEST(ChangementEntre, SettingsAreToldAsMaterialToolOrTheRest) {
  Etat apres = Depart();
  apres.reglages = "$$RayonFraise=2\r\n$$ProfPasse=-1\r\n$$TimerInterval=50\r\n";
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Outil, 0}));
  apres.reglages = "$$RayonFraise=2\r\n$$ProfPasse=-2\r\n$$TimerInterval=50\r\n";
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Materiau, 0})) << "which brings its tool";
  apres.reglages = "$$RayonFraise=1.5\r\n$$ProfPasse=-1\r\n$$TimerInterval=90\r\n";
  EXPECT_EQ(Entre(Depart(), apres), (Changement{S::Reglage, 0}));
}

TEST(TexteChangement, SaysWhatAndHowMany) {
  Regl.Langue = "fr";
  EXPECT_EQ(TexteChangement({S::Deplacement, 3}), "Déplacement, 3 séquences");
  EXPECT_EQ(TexteChangement({S::Poche, 1}), "Poche, 1 séquence");
  EXPECT_EQ(TexteChangement({S::Ilot, 2}), "Îlot, 2 séquences");
  EXPECT_EQ(TexteChangement({S::Affichage, 0}), "Vue");
  Regl.Langue = "en";
  EXPECT_EQ(TexteChangement({S::Deplacement, 3}), "Moved, 3 paths");
  EXPECT_EQ(TexteChangement({S::Calque, 1}), "Layer, 1 path");
}

TEST(ChangementEntre, WhatStandsBesideTheRecordsHasItsNameToo) {
  const Etat etat = Depart();
  TableComplements avant;
  TableComplements apres;
  avant.Pose(Code2(" A"), {false, "Bord", std::nullopt});
  apres.Pose(Code2(" A"), {true, "Bord", std::nullopt});
  const auto entre = [&etat](const TableComplements* de, const TableComplements* vers) {
    return ChangementEntre({etat.points, etat.fiches, etat.reglages, de},
                           {etat.points, etat.fiches, etat.reglages, vers});
  };
  EXPECT_EQ(entre(&avant, &apres), (Changement{S::Ilot, 1}));
  EXPECT_EQ(entre(nullptr, &avant), (Changement{S::Calque, 1}));
  EXPECT_EQ(entre(nullptr, &apres), (Changement{S::Proprietes, 1})) << "two at once";
  EXPECT_EQ(entre(&avant, &avant), (Changement{S::Affichage, 0}));
}

}  // namespace
