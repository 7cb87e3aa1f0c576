// Until which depth a stretch of the outline is left alone: the circle that touches it meets nothing else.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "closed/pathwerk/decalage/ArcLibres.h"
#include "closed/pathwerk/decalage/ArcSursis.h"
#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using base::Gauche;
using base::Norme;
using base::Scalaire;
using pathwerk::Vec2;
using pathwerk::decalage::ArcsLibres;
using pathwerk::decalage::ArcSource;
using pathwerk::decalage::ArcSursis;
using pathwerk::decalage::Intervalle;
using pathwerk::decalage::PieceBrute;
using pathwerk::decalage::PiecesVives;

namespace {

constexpr double Bruit = 1e-10;  // mm
constexpr double Inf = std::numeric_limits<double>::infinity();

// Radius of the circle that touches the outline at `pied`, its middle in the direction `haut`, and meets `g`.
double RayonTouche(Vec2 pied, Vec2 haut, Vec2 g) {
  const Vec2 w = g - pied;
  const double h = Scalaire(haut, w);
  return h > 1e-9 ? Scalaire(w, w) / (2 * h) : Inf;
}

// The least of them over many feet of the stretch and many places of all segments that don't end it.
double Rencontre(const ArcSource& s, const PieceBrute& p, const Intervalle& reste, double sens) {
  double r = Inf;
  for (const double t : {0.0, 0.25, 0.5, 0.75, 1.0}) {
    Vec2 pied = s.A(p.source);
    Vec2 haut = Gauche(p.u) * sens;
    if (p.arc) {
      haut = reste.de.u * (1 - t) + reste.a.u * t;
      haut = haut * (1 / Norme(haut));
    } else {
      pied = pied + p.u * (reste.de.t * (1 - t) + reste.a.t * t);
    }
    for (std::size_t j = 0; j < s.Taille(); ++j) {
      if (j == p.source || (p.arc && j == s.Precedent(p.source))) continue;
      if (j == reste.de.cause || j == reste.a.cause) continue;
      for (int k = 0; k <= 20; ++k)
        r = std::min(r, RayonTouche(pied, haut, s.A(j) + (s.B(j) - s.A(j)) * (k / 20.0)));
    }
  }
  return r;
}

// No stretch is promised more than it gets. Returns how many are promised anything beyond the depth.
int Tient(const Chemin& contour, double d) {
  const std::vector<Chemin> contours{contour};
  const ArcSource source(contours);
  PiecesVives vives;
  ArcsLibres(source, d, Bruit, &vives);
  ArcSursis sursis(source, nullptr, d, Bruit);
  int promis = 0;
  for (const PiecesVives::Vive& v : vives.pieces) {
    const Intervalle& reste = vives.Reste(v)[0];
    if (vives.Reste(v).size() != 1) continue;
    const double s = sursis.De(v.brute, reste, std::abs(d));
    if (s == 0) continue;
    ++promis;
    EXPECT_GT(s, std::abs(d) * (1 - 1e-6));
    EXPECT_LE(s, Rencontre(source, v.brute, reste, d > 0 ? 1 : -1)) << "segment " << v.brute.source;
  }
  return promis;
}

}  // namespace

TEST(ArcSursis, ASideOfASquareLivesUntilTheOppositeOneMeetsIt) {
  const std::vector<Chemin> contours{{{0, 0}, {200, 0}, {200, 200}, {0, 200}}};
  const ArcSource source(contours);
  PiecesVives vives;
  ArcsLibres(source, 1, Bruit, &vives);
  ASSERT_EQ(vives.pieces.size(), 4U);
  ArcSursis sursis(source, nullptr, 1, Bruit);
  for (const PiecesVives::Vive& v : vives.pieces) {
    EXPECT_NEAR(sursis.De(v.brute, vives.Reste(v)[0], 1), 100, 1e-6) << "half of 200 mm";
    EXPECT_EQ(sursis.De(v.brute, vives.Reste(v)[0], 101), 0) << "less than is asked for is nothing";
  }
}

TEST(ArcSursis, WhatFacesNothingLivesForEver) {
  const std::vector<Chemin> contours{{{0, 0}, {200, 0}, {200, 200}, {0, 200}}};
  const ArcSource source(contours);
  PiecesVives vives;
  ArcsLibres(source, -1, Bruit, &vives);
  ASSERT_EQ(vives.pieces.size(), 8U) << "four sides and four corners";
  ArcSursis sursis(source, nullptr, -1, Bruit);
  for (const PiecesVives::Vive& v : vives.pieces) EXPECT_EQ(sursis.De(v.brute, vives.Reste(v)[0], 1), Inf);
}

TEST(ArcSursis, NoStretchIsPromisedMoreThanItGets) {
  for (unsigned k = 0; k < 8; ++k) {
    SCOPED_TRACE(k);
    EXPECT_GT(Tient(EnChemin(Etoile(k)), 0.5), 3);
    EXPECT_GT(Tient(EnChemin(CercleBruite(k, 150, 0.6)), 1.5), 3);
    Tient(EnChemin(Peigne(5, 9, 25, k)), -0.6);
    Tient(EnChemin(Polyomino(k)), 0.1);
  }
  EXPECT_GT(Tient(EnChemin(Cercle(50, 120)), 2), 100);
  EXPECT_GT(Tient(EnChemin(Koch(3, 60)), -0.2), 3);
}
