// What the fill of a pocket clears: everything that the cutter could reach, nothing outside, at every overlap.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/places/Lieux.h"
#include "tests/unit/closed/pathwerk/poche/AidePoche.h"

using namespace controle;

namespace {

void RienNeReste(const Trace& contour, double rayon, const std::vector<int>& recouvrements) {
  double signe = 1;  // both sides are the same fill, one run backwards
  for (const int recouvrement : recouvrements) {
    const auto [r, t] = Decale(contour, signe * rayon, recouvrement);
    ASSERT_GT(r, 0);
    Juge(contour, {}, t, rayon, recouvrement);
    signe = -signe;
  }
}

void RienNeReste(const Forme& forme, double rayon) {
  RienNeReste(EnTrace(forme, true), rayon, {std::begin(Recouvrements), std::end(Recouvrements)});
}

// Closed paths of some records, each as one trace.
std::vector<Trace> Fermes(const Trace& tout) {
  std::vector<Trace> r;
  for (const Trace& t : Pieces(tout)) {
    if (t.size() > 3 && EstFermee(t)) r.push_back(t);
  }
  return r;
}

}  // namespace

TEST(PocheCouverture, SquareIsCleared) { RienNeReste(Carre(0, 0, 20), 1.5); }

TEST(PocheCouverture, SquareOfASizeThatRingsDoNotDivideIsCleared) {
  for (const double cote : {17.3, 18.01, 12.6, 9.1, 6.05}) RienNeReste(Carre(-3, 5, cote), 1.5);
}

TEST(PocheCouverture, StarsAreCleared) {
  RienNeReste(EtoileA(5, 30, 12), 1.5);
  RienNeReste(EtoileA(9, 30, 24), 2);
  RienNeReste(EtoileA(6, 25, 7), 1);
}

TEST(PocheCouverture, LettersAreCleared) {
  const Forme f{{0, 0}, {8, 0}, {8, 18}, {20, 18}, {20, 26}, {8, 26}, {8, 40}, {26, 40}, {26, 48}, {0, 48}};
  const Forme x{{0, 0},   {9, 0},   {15, 16}, {21, 0}, {30, 0}, {20, 24},
                {30, 48}, {21, 48}, {15, 32}, {9, 48}, {0, 48}, {10, 24}};
  RienNeReste(f, 1.2);
  RienNeReste(x, 1);
}

TEST(PocheCouverture, OutlinesOfTextAreCleared) {
  // As many fonts as there are, but few: they differ in strokes and serifs.
  std::size_t polices = 0;
  for (const std::string& police : pathwerk::ListePolices()) {
    Trace t;
    if (pathwerk::Texte(t, "EgR", police, 0, 0) <= 0) continue;
    for (Trace& c : Fermes(t)) {
      const Boite b = BoiteDe(c);
      RienNeReste(c, (b.x1 - b.x0) / 25, {0, 25, 40, 60});
    }
    if (++polices == 3) break;
  }
}

TEST(PocheCouverture, CombIsCleared) {
  RienNeReste(Peigne(4, 9, 20, 4), 1.2);
  RienNeReste(Peigne(3, 8, 20, 7), 2);
}

TEST(PocheCouverture, ThinWedgeIsCleared) {
  RienNeReste({{0, 0}, {60, -4}, {60, 4}}, 1);
  RienNeReste({{0, 0}, {60, 1}, {50, 9}}, 0.9);
}

TEST(PocheCouverture, CircleAndRandomOutlineAreCleared) {
  RienNeReste(Cercle(15, 80), 1.5);
  RienNeReste(Etoile(7), 1);
}

TEST(PocheCouverture, NoisyCircleIsClearedByRingsThatItsTipsCarry) {
  // Off by up to six times the way from one point to the next.
  Forme f = Cercle(9, 3000);
  std::mt19937 g(4);
  std::uniform_real_distribution<double> u(0.99, 1.01);
  for (P& p : f) {
    const double k = u(g);
    p = {k * p.x, k * p.y};
  }
  RienNeReste(EnTrace(f, true), 1.5, {0, 25, 40, 75});
}

TEST(PocheCouverture, ChambersBehindNarrowDoorsAreCleared) {
  for (const double porte : {1.01, 1.3, 2.0, 3.5}) {
    RienNeReste({{0, 0},
                 {12, 0},
                 {12, 6 - porte},
                 {16, 6 - porte},
                 {16, 0},
                 {28, 0},
                 {28, 12},
                 {16, 12},
                 {16, 6 + porte},
                 {12, 6 + porte},
                 {12, 12},
                 {0, 12}},
                1);
  }
}

TEST(PocheCouverture, BothLoopsOfAFigureOfEightAreCleared) {
  RienNeReste({{-8, -15}, {8, -15}, {-8, 15}, {8, 15}}, 1);
}

TEST(PocheCouverture, RandomOutlinesAreCleared) {
  for (unsigned graine = 0; graine < 24; ++graine) {
    std::mt19937 g(graine);
    Forme f = graine % 3 == 0 ? Polyomino(graine) : graine % 3 == 1 ? Etoile(graine) : Peigne(3, 7, 15, graine);
    if (graine % 3 == 0) {
      for (P& p : f) p = {4 * p.x, 4 * p.y};
    }
    const double rayon = 0.8 + 0.1 * static_cast<double>(g() % 10);
    const int recouvrement = Recouvrements[g() % 9];
    const Trace s = EnTrace(f, true);
    const auto [r, t] = Decale(s, rayon, recouvrement);
    if (r == 0) continue;
    SCOPED_TRACE("outline " + std::to_string(graine));
    Juge(s, {}, t, rayon, recouvrement);
  }
}

TEST(PocheCouverture, ContoursOfTheSamplesAreCleared) {
  std::size_t contours = 0;
  for (const char* nom : {"plaque.dxf", "equerre.dxf", "enseigne.plt", "aile.dat"}) {
    Trace points;
    float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
    std::string message;
    const auto chemin = std::filesystem::path(essai::DossierSource()) / "samples" / nom;
    ASSERT_GT(pathwerk::LireFichier(points, chemin.string(), x0, x1, y0, y1, message), 0) << chemin;
    for (const Trace& c : Fermes(points)) {
      const Boite b = BoiteDe(c);
      const double petit = std::min(b.x1 - b.x0, b.y1 - b.y0);
      RienNeReste(c, petit / 12, {0, 40});
      ++contours;
    }
  }
  EXPECT_GT(contours, 4U);
}
