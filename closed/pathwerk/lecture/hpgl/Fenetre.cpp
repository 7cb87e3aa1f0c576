#include "closed/pathwerk/lecture/hpgl/Fenetre.h"

#include <algorithm>
#include <array>

#include "base/Vecteur.h"

namespace pathwerk::lecture::hpgl {

namespace {

// Share of the segment a-b inside the window (Liang and Barsky 1984): each border narrows the range of the
// parameter.
//
//   a +---|=======|---+ b       t0, t1: the two strokes; false when they pass each other
bool Part(Vec2 a, Vec2 b, const HpglFenetre& f, double& t0, double& t1) {
  const std::array<double, 4> p{a.x - b.x, b.x - a.x, a.y - b.y, b.y - a.y};
  const std::array<double, 4> q{a.x - f.min.x, f.max.x - a.x, a.y - f.min.y, f.max.y - a.y};
  t0 = 0;
  t1 = 1;
  for (std::size_t i = 0; i < 4; ++i) {
    if (p[i] == 0) {
      if (q[i] < 0) return false;
    } else if (p[i] < 0) {
      t0 = std::max(t0, q[i] / p[i]);
    } else {
      t1 = std::min(t1, q[i] / p[i]);
    }
  }
  return t0 < t1;
}

Vec2 Entre(Vec2 a, Vec2 b, double t) { return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t}; }

}  // namespace

std::vector<std::vector<Vec2>> CoupePolyligne(std::span<const Vec2> ligne, const HpglFenetre& fenetre) {
  std::vector<std::vector<Vec2>> morceaux;
  bool suite = false;  // the last segment left at its very end, so the next one goes on
  for (std::size_t i = 1; i < ligne.size(); ++i) {
    const Vec2 a = ligne[i - 1];
    const Vec2 b = ligne[i];
    double t0 = 0;
    double t1 = 1;
    if (a == b) continue;
    if (!Part(a, b, fenetre, t0, t1)) {
      suite = false;
      continue;
    }
    if (!suite || t0 > 0) morceaux.push_back({t0 > 0 ? Entre(a, b, t0) : a});
    morceaux.back().push_back(t1 < 1 ? Entre(a, b, t1) : b);
    suite = t1 == 1;
  }
  return morceaux;
}

// Cut by one border after the other (Sutherland and Hodgman 1974).
std::vector<Vec2> CoupeContour(std::span<const Vec2> contour, const HpglFenetre& fenetre) {
  std::vector<Vec2> reste(contour.begin(), contour.end());
  for (int bord = 0; bord < 4; ++bord) {
    // Distance to the border, positive inside.
    const auto ecart = [&](Vec2 p) {
      switch (bord) {
        case 0:
          return p.x - fenetre.min.x;
        case 1:
          return fenetre.max.x - p.x;
        case 2:
          return p.y - fenetre.min.y;
        default:
          return fenetre.max.y - p.y;
      }
    };
    std::vector<Vec2> coupe;
    const auto ajoute = [&](Vec2 p) {
      if (coupe.empty() || coupe.back() != p) coupe.push_back(p);
    };
    for (std::size_t i = 0; i < reste.size(); ++i) {
      const Vec2 a = reste[i];
      const Vec2 b = reste[base::Suivant(i, reste.size())];
      const double da = ecart(a);
      const double db = ecart(b);
      if (da >= 0) ajoute(a);
      if ((da > 0 && db < 0) || (da < 0 && db > 0)) ajoute(Entre(a, b, da / (da - db)));
    }
    if (coupe.size() > 1 && coupe.front() == coupe.back()) coupe.pop_back();
    reste = std::move(coupe);
  }
  if (reste.size() < 3) reste.clear();
  return reste;
}

}  // namespace pathwerk::lecture::hpgl
