// The curve through given points: what a spline means whose writer left its control points out.
#include "closed/pathwerk/lecture/dxf/SplinePoints.h"

#include <cmath>

#include "base/Vecteur.h"

namespace pathwerk::lecture::dxf {

namespace {

// Rows of a three-diagonal system for the tangents.
struct Ligne {
  double bas = 0;
  double milieu = 1;
  double haut = 0;
};

// Thomas's elimination. The systems here are diagonally dominant, so it needs no pivots.
template <class T>
void Resout(std::vector<Ligne> lignes, std::vector<T>& x) {
  const std::size_t n = lignes.size();
  for (std::size_t i = 1; i < n; ++i) {
    const double k = lignes[i].bas / lignes[i - 1].milieu;
    lignes[i].milieu -= k * lignes[i - 1].haut;
    x[i] = x[i] - x[i - 1] * k;
  }
  x[n - 1] = x[n - 1] * (1 / lignes[n - 1].milieu);
  for (std::size_t i = n - 1; i-- > 0;) x[i] = (x[i] - x[i + 1] * lignes[i].haut) * (1 / lignes[i].milieu);
}

// Row i of the condition that the second derivatives of both neighbours meet at point i; `avant` and `apres` are
// the lengths of the chords at its sides.
Ligne Jonction(double avant, double apres) { return {1 / avant, 2 / avant + 2 / apres, 1 / apres}; }
Vec3 Second(Vec3 p0, Vec3 p1, Vec3 p2, double avant, double apres) {
  return (p1 - p0) * (3 / (avant * avant)) + (p2 - p1) * (3 / (apres * apres));
}

std::vector<Vec3> TangentesOuvertes(const std::vector<Vec3>& p, const std::vector<double>& h, Vec3 debut,
                                    Vec3 fin) {
  const std::size_t n = p.size();
  std::vector<Ligne> lignes(n);
  std::vector<Vec3> x(n);
  // An end: its tangent given as a direction (the parameter is a length, so of length 1), or no curvature.
  const auto bout = [&](std::size_t i, Vec3 tangente, Vec3 corde, double longueur, Ligne libre) {
    const double norme = Norme(tangente);
    if (norme > 0 && std::isfinite(norme)) {
      x[i] = tangente * (1 / norme);
    } else {
      lignes[i] = libre;
      x[i] = corde * (3 / longueur);
    }
  };
  bout(0, debut, p[1] - p[0], h[0], {0, 2, 1});
  bout(n - 1, fin, p[n - 1] - p[n - 2], h[n - 2], {1, 2, 0});
  for (std::size_t i = 1; i + 1 < n; ++i) {
    lignes[i] = Jonction(h[i - 1], h[i]);
    x[i] = Second(p[i - 1], p[i], p[i + 1], h[i - 1], h[i]);
  }
  Resout(std::move(lignes), x);
  return x;
}

// A closed curve couples the last row with the first. The two corner elements are split off as a product of two
// vectors and put back by the formula of Sherman and Morrison. p ends with its first point.
std::vector<Vec3> TangentesFermees(const std::vector<Vec3>& p, const std::vector<double>& h) {
  const std::size_t n = p.size() - 1;
  std::vector<Ligne> lignes(n);
  std::vector<Vec3> x(n);
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t avant = base::Precedent(i, n);
    lignes[i] = Jonction(h[avant], h[i]);
    x[i] = Second(p[avant], p[i], p[i + 1], h[avant], h[i]);
  }
  const double coin = 1 / h[n - 1];
  const double gamma = -lignes[0].milieu;
  lignes[0].milieu -= gamma;
  lignes[n - 1].milieu -= coin * coin / gamma;
  std::vector<double> z(n, 0.0);
  z[0] = gamma;
  z[n - 1] = coin;
  Resout(lignes, x);
  Resout(std::move(lignes), z);
  const double v = coin / gamma;
  const Vec3 facteur = (x[0] + x[n - 1] * v) * (1 / (1 + z[0] + z[n - 1] * v));
  for (std::size_t i = 0; i < n; ++i) x[i] = x[i] - facteur * z[i];
  x.push_back(x[0]);
  return x;
}

}  // namespace

// Chord-length parameters keep the curve from looping where points stand unevenly. Each piece is then written as a
// Bezier curve between knots of multiplicity three.
Spline SplineParPoints(std::vector<Vec3> points, Vec3 tangenteDebut, Vec3 tangenteFin, bool fermee) {
  if (fermee && points.size() > 1 && points.front() != points.back()) points.push_back(points.front());
  std::vector<Vec3> p;
  std::vector<double> h;
  for (const Vec3& q : points) {
    if (!p.empty()) {
      const double longueur = Norme(q - p.back());
      if (!(longueur > 1e-12)) continue;
      h.push_back(longueur);
    }
    p.push_back(q);
  }
  Spline s;
  if (p.size() < 2) return s;
  const bool boucle = fermee && p.size() > 3 && p.front() == p.back();
  const std::vector<Vec3> t = boucle ? TangentesFermees(p, h) : TangentesOuvertes(p, h, tangenteDebut, tangenteFin);
  s.controle.reserve(3 * h.size() + 1);
  s.controle.push_back(p[0]);
  s.noeuds.assign(4, 0.0);
  for (std::size_t i = 0; i < h.size(); ++i) {
    s.controle.push_back(p[i] + t[i] * (h[i] / 3));
    s.controle.push_back(p[i + 1] - t[i + 1] * (h[i] / 3));
    s.controle.push_back(p[i + 1]);
    s.noeuds.insert(s.noeuds.end(), 3, static_cast<double>(i + 1));
  }
  s.noeuds.push_back(s.noeuds.back());
  return s;
}

}  // namespace pathwerk::lecture::dxf
