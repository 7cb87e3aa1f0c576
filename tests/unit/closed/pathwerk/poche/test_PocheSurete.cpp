// What a pocket owes to a machine whatever its shape: no move through a wall, a whole wall at the end, each mark
// once.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "closed/pathwerk/poche/Anneaux.h"
#include "tests/unit/closed/pathwerk/poche/AidePoche.h"

using namespace controle;
using pathwerk::CodePC;
using pathwerk::PointTrace;

namespace {

P EnP(const PointTrace& p) { return {static_cast<double>(p.X), static_cast<double>(p.Y)}; }

// The last round of a piece: all that lies at the depth of the wall, from the first of its places to which the end
// comes back.
Trace DernierTour(const Trace& contour, const Trace& piece, double rayon) {
  std::size_t debut = piece.size() - 1;
  for (std::size_t i = piece.size() - 1; i-- > 0;) {
    const P a = EnP(piece[i]), b = EnP(piece[i + 1]);
    if (Distance(contour, a) > rayon + Tolerance) break;
    if (Distance(contour, {(a.x + b.x) / 2, (a.y + b.y) / 2}) > rayon + Tolerance) break;
    if (MemePlace(piece[i], piece.back())) debut = i;
  }
  return {piece.begin() + static_cast<long>(debut), piece.end()};
}

long NbMarques(const Trace& t) {
  return std::count_if(t.begin(), t.end(), [](const PointTrace& p) { return p.Cde == CodePC; });
}

// The wall all around, twice: once by the pocket, once by the outermost ring alone, which the tests of the plain
// offset hold.
void MurEntierEtMarquesUneFois(Trace contour, double rayon, int recouvrement) {
  for (const std::size_t quart : {1U, 2U, 3U}) contour[quart * contour.size() / 4].Cde = CodePC;
  const auto [r, t] = Decale(contour, rayon, recouvrement);
  const auto [rMur, mur] = Decale(contour, rayon, 101);
  ASSERT_EQ(r > 0, rMur > 0);
  double longueur = 0, aire = 0;
  for (const Trace& piece : Pieces(t)) {
    const Trace tour = DernierTour(contour, piece, std::abs(rayon));
    ASSERT_GT(tour.size(), 1U) << "a piece without a wall\n" << Texte(contour);
    EXPECT_EQ(NbMarques(piece), NbMarques(tour)) << "a mark off the wall\n" << Texte(contour);
    longueur += Longueur(tour);
    aire += Aire(tour);
  }
  double longueurMur = 0, aireMur = 0;
  for (const Trace& piece : Pieces(mur)) {
    longueurMur += Longueur(piece);
    aireMur += Aire(piece);
  }
  EXPECT_NEAR(longueur, longueurMur, 1e-4 * longueurMur + 0.01) << Texte(contour);
  EXPECT_NEAR(aire, aireMur, Tolerance * longueurMur) << Texte(contour);
  if (r > 0) {
    EXPECT_EQ(NbMarques(t), 3) << Texte(contour);
  }
}

// Outline of a band that runs to and fro in `n` rows (even) and then in `n` columns: a mesh, whose holes stand.
Forme Treillis(int n, double maille, double largeur) {
  Forme axe;
  const double l = n * maille;
  for (int i = 0; i < n; ++i) {
    const P gauche{i + 1 < n ? -maille : -2 * maille, maille * i};
    const P droite{l, maille * i};
    axe.push_back(i % 2 == 0 ? gauche : droite);
    axe.push_back(i % 2 == 0 ? droite : gauche);
  }
  axe.push_back({-2 * maille, -2 * maille});
  for (int i = 1; i < n; ++i) {
    const double x = maille * (i - 1);
    axe.push_back({x, i % 2 != 0 ? -2 * maille : l});
    axe.push_back({x, i % 2 != 0 ? l : -2 * maille});
  }
  Forme f;
  for (const double cote : {-1.0, 1.0}) {
    Forme bord;
    for (std::size_t i = 0; i < axe.size(); ++i) {
      const P avant = axe[i > 0 ? i - 1 : 0], ici = axe[i], apres = axe[i + 1 < axe.size() ? i + 1 : i];
      const auto signe = [](double x) { return x > 0 ? 1.0 : x < 0 ? -1.0 : 0.0; };
      P u{signe(ici.x - avant.x), signe(ici.y - avant.y)};
      P v{signe(apres.x - ici.x), signe(apres.y - ici.y)};
      if (i == 0) u = v;
      if (i + 1 == axe.size()) v = u;
      const bool droit = u.x == v.x && u.y == v.y;
      const double k = cote * largeur / 2 * (droit ? 0.5 : 1);
      bord.push_back({ici.x - k * (u.y + v.y), ici.y + k * (u.x + v.x)});
    }
    if (cote > 0) std::reverse(bord.begin(), bord.end());
    f.insert(f.end(), bord.begin(), bord.end());
  }
  return f;
}

// A room and an arm beside it, where the outline begins. At a scale of 1 and a radius of 1 mm the arm takes two
// rings, the room more.
Forme BrasReplie(double echelle) {
  Forme f{{23.5, 0}, {26, 0},  {26, 27}, {5, 27},  {5, 20},  {0, 20}, {0, 0},
          {20, 0},   {20, 20}, {10, 20}, {10, 22}, {21, 22}, {21, 0}};
  for (P& p : f) p = {p.x * echelle, p.y * echelle};
  return f;
}

}  // namespace

TEST(PocheSurete, RingsBeginInTheArmOfTheStartWithoutAWayThroughItsWall) {
  const Trace s = EnTrace(BrasReplie(1), true);
  for (const double signe : {1.0, -1.0}) {
    for (const int recouvrement : {0, 20, 40, 60, 80}) {
      const auto [r, t] = Decale(s, signe, recouvrement);
      ASSERT_GT(r, 0);
      EXPECT_EQ(Pieces(t).size(), 1U) << "overlap " << recouvrement;
      EXPECT_LE(MesureCouverture(s, t, 1).entaille, Tolerance) << "overlap " << recouvrement;
    }
  }
}

TEST(PocheSurete, ACutterAsThinAsTheToleranceStaysInside) {
  for (const double rayon : {0.003, 0.004, 0.006}) {
    for (const double echelle : {1.0 / 150, 1.0 / 120}) {
      const Trace s = EnTrace(BrasReplie(echelle), true);
      const auto [r, t] = Decale(s, rayon, 40);
      ASSERT_GT(r, 0);
      EXPECT_LT(MesureCouverture(s, t, rayon).entaille, rayon) << "R " << rayon << ", scale " << echelle;
    }
  }
}

TEST(PocheSurete, AMeshOfManyIslandsIsOnePiece) {
  for (const double signe : {1.0, -1.0}) {
    const auto [r, t] = Decale(EnTrace(Treillis(20, 10, 4), true), signe * 0.7, 40);
    ASSERT_GT(r, 0);
    EXPECT_EQ(Pieces(t).size(), 1U);
    // More than 300 islands of 6 x 6 mm: the walls around them are there.
    EXPECT_GT(Longueur(t), 300 * 4 * 6.0);
  }
}

TEST(PocheSurete, TheWallIsWholeAndEachMarkStandsOnItOnce) {
  for (unsigned graine = 1; graine <= 8; ++graine) {
    SCOPED_TRACE("seed " + std::to_string(graine));
    const int recouvrement = static_cast<int>(graine * 12 % 97);
    MurEntierEtMarquesUneFois(EnTrace(Etoile(graine), true), 0.9, recouvrement);
    MurEntierEtMarquesUneFois(EnTrace(CercleBruite(graine, 150, 1.2), true), 1.3, recouvrement);
    MurEntierEtMarquesUneFois(EnTrace(Retourne(Peigne(5, 8, 25, graine)), true), -1.4, recouvrement);
    MurEntierEtMarquesUneFois(EnTrace(Koch(3, 60), true), -0.8, recouvrement);
  }
}

TEST(PocheSurete, RingsThatWouldJustTouchLieAHairNearer) {
  const Trace s = EnTrace(Carre(0, 0, 40), true);
  const auto [r, t] = Decale(s, 2, 0);
  ASSERT_GT(r, 0);
  double deuxieme = 1e9;  // depth of the second ring, on its sides of 28 mm
  for (std::size_t i = 0; i + 1 < t.size(); ++i) {
    const P a = EnP(t[i]), b = EnP(t[i + 1]);
    const double d = Distance(s, {(a.x + b.x) / 2, (a.y + b.y) / 2});
    if (std::hypot(b.x - a.x, b.y - a.y) > 10 && d > 4) deuxieme = std::min(deuxieme, d);
  }
  EXPECT_LT(deuxieme, 6 - Tolerance);
  EXPECT_GT(deuxieme, 6 - 3 * Tolerance);
}

TEST(PocheSurete, ARingThatCannotBeComputedIsNotTheEndOfTheFill) {
  using namespace pathwerk;
  using namespace pathwerk::decalage;
  using namespace pathwerk::poche;
  const auto carre = [](double c) { return Region{{{{0, 0}, {c, 0}, {c, c}, {0, c}}}, 1}; };
  EXPECT_FALSE(Anneaux(carre(3e9), 1e8, 40, 0.01)) << "beyond what the engine takes: no fill at all";
  const auto petit = Anneaux(carre(1), 2, 40, 0.01);
  ASSERT_TRUE(petit);
  EXPECT_TRUE(petit->niveaux.empty()) << "no room is an answer";
}

TEST(PocheSurete, OnePlaceIsNearAllPointsOrThereIsNone) {
  using pathwerk::poche::PlacePresDeTous;
  const pathwerk::Chemin points{{-4, 3}, {4, 3}};
  EXPECT_FALSE(PlacePresDeTous(points, {-10, 0}, {10, 0}, 4)) << "each is near some place of the way, none both";
  EXPECT_FALSE(PlacePresDeTous(points, {-10, 0}, {10, 0}, 2.9));
  const auto p = PlacePresDeTous(points, {-10, 0}, {10, 0}, 6);
  ASSERT_TRUE(p);
  EXPECT_NEAR(p->x, 4 - std::sqrt(36.0 - 9.0), 1e-9) << "the first on the way";
  EXPECT_NEAR(p->y, 0, 1e-9);
}
