// Nesting of contours: which path lies in which.
#include "closed/pathwerk/assemblage/Niveaux.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "base/ArbreBoites.h"
#include "base/Indices.h"

namespace pathwerk::assemblage {

namespace {

using Boite = base::Boite<float>;

// Abscissa of an edge at the height y that it straddles.
double Traverse(PointF a, PointF b, double y) {
  const double ax = a.x;
  const double ay = a.y;
  const double bx = b.x;
  const double by = b.y;
  return ax + (y - ay) * ((bx - ax) / (by - ay));
}

bool Dessus(PointF p, double y) { return p.y > y; }

// Even-odd test of a point against one contour. The edges lie in a tree of boxes, sixteen to a box; a run of edges
// that lies wholly to the right of the point needs no look inside: it crosses the ray an odd number of times
// exactly when its two ends lie on different sides of it.
//
//       point .------->-------/\---/-----      ends of the run: one below, one above: odd
//
class Interieur {
 public:
  explicit Interieur(std::span<const PointF> contour)
      : contour_(contour), arbre_(contour.size() - 1, [contour](std::size_t i, Boite& b) {
          b.Etend(contour[i].x, contour[i].y);
          b.Etend(contour[i + 1].x, contour[i + 1].y);
        }) {}

  [[nodiscard]] bool Contient(Vec2 p) const {
    bool impair = false;  // crossings to the right of `p`
    const auto entre = [&](std::size_t k) {
      const Boite& b = arbre_.De(k);
      if (b.y0 > p.y || b.y1 <= p.y || b.x1 < p.x) {
        return false;
      }
      if (b.x0 <= p.x) return true;
      impair ^= Dessus(contour_[arbre_.Debut(k)], p.y) != Dessus(contour_[arbre_.Fin(k)], p.y);
      return false;
    };
    const auto feuille = [&](std::size_t k) {
      for (std::size_t i = arbre_.Debut(k), fin = arbre_.Fin(k); i < fin; ++i) {
        const PointF a = contour_[i];
        const PointF c = contour_[i + 1];
        if (Dessus(a, p.y) != Dessus(c, p.y)) impair ^= Traverse(a, c, p.y) > p.x;
      }
      return true;
    };
    arbre_.Parcourt(
        entre, [](std::size_t) { return true; }, feuille);
    return impair;
  }

 private:
  std::span<const PointF> contour_;
  base::ArbreBoites<float, 16> arbre_;
};

// Places that stand for a path when it is asked what it lies in. Of a contour: the middles of the widest inner
// pieces of five level lines. They keep off its own border, so a contour that shares a corner or an edge with
// another, or that crosses it a little, is judged by where its body lies.
std::vector<Vec2> Temoins(std::span<const PointF> points, Nature nature, const Boite& b) {
  std::vector<Vec2> temoins;
  if (nature == Nature::Ferme) {
    constexpr std::array Hauteurs = {0.5037, 0.1721, 0.8293, 0.3383, 0.6719};
    std::array<std::vector<double>, Hauteurs.size()> coupes;
    std::array<double, Hauteurs.size()> y{};
    for (std::size_t k = 0; k < y.size(); ++k) {
      y[k] = b.y0 + (double{b.y1} - b.y0) * Hauteurs[k];
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
      for (std::size_t k = 0; k < y.size(); ++k) {
        if (Dessus(points[i - 1], y[k]) != Dessus(points[i], y[k])) {
          coupes[k].push_back(Traverse(points[i - 1], points[i], y[k]));
        }
      }
    }
    for (std::size_t k = 0; k < y.size(); ++k) {
      auto& c = coupes[k];
      std::sort(c.begin(), c.end());
      std::size_t large = 0;
      for (std::size_t i = 0; i + 1 < c.size(); i += 2) {
        if (c[i + 1] - c[i] > c[large + 1] - c[large]) large = i;
      }
      if (c.size() > 1 && c[large + 1] > c[large]) temoins.push_back({(c[large] + c[large + 1]) / 2, y[k]});
    }
    if (!temoins.empty()) return temoins;
  }
  // A hole is its point; of an open path, or a contour without area, the middles of segments spread over it.
  const std::size_t aretes = points.size() - 1;
  const std::size_t nombre = std::min<std::size_t>(aretes, 7);
  for (std::size_t k = 0; k < nombre; ++k) {
    const std::size_t i = (2 * k + 1) * aretes / (2 * nombre);
    temoins.push_back(
        {(double{points[i].x} + (points[i + 1].x)) / 2, (double{points[i].y} + (points[i + 1].y)) / 2});
  }
  return temoins;
}

struct Contour {
  std::size_t chemin = 0;
  double aire = 0;
  Boite boite;
};

}  // namespace

// Contours are sorted by area; the first one behind a path whose box holds the path's box and that holds most of
// its witnesses is its parent. There are no more contours than codes, so the look through their boxes stays short;
// points are looked at through the tree of one contour at a time.
std::vector<std::size_t> Parents(const CheminsAssembles& assembles, double marge) {
  const std::size_t n = assembles.chemins.size();
  std::vector<Contour> contours;
  for (std::size_t i = 0; i < n; ++i) {
    const CheminAssemble& c = assembles.chemins[i];
    if (c.nature == Nature::Ferme) contours.push_back({i, std::fabs(c.doubleAire), c.boite});
  }
  std::sort(contours.begin(), contours.end(), [](const Contour& a, const Contour& b) {
    return a.aire != b.aire ? a.aire < b.aire : a.chemin < b.chemin;
  });
  std::vector<std::unique_ptr<Interieur>> arbres(contours.size());
  std::vector<std::size_t> parents(n, SansParent);
  std::vector<Vec2> temoins;
  for (std::size_t i = 0; i < n; ++i) {
    const CheminAssemble& chemin = assembles.chemins[i];
    const Boite& b = chemin.boite;
    const float jeu = static_cast<float>(std::min(marge, 0.01 * (b.x1 - b.x0 + b.y1 - b.y0)));
    const Boite dedans{b.x0 + jeu, b.y0 + jeu, b.x1 - jeu, b.y1 - jeu};
    temoins.clear();
    // Two contours of the same area lie beside each other, or are one contour drawn with other points.
    const double seuil = chemin.nature == Nature::Ferme ? std::fabs(chemin.doubleAire) * (1 + 1e-7) : -1;
    auto it = std::upper_bound(contours.begin(), contours.end(), seuil,
                               [](double a, const Contour& c) { return a < c.aire; });
    for (; it != contours.end(); ++it) {
      const Boite& c = it->boite;
      if (c.x0 > dedans.x0 || c.x1 < dedans.x1 || c.y0 > dedans.y0 || c.y1 < dedans.y1) continue;
      if (temoins.empty()) temoins = Temoins(assembles.De(i), chemin.nature, b);
      auto& arbre = arbres[base::Indice(it - contours.begin())];
      if (!arbre) arbre = std::make_unique<Interieur>(assembles.De(it->chemin));
      const auto dans = std::count_if(temoins.begin(), temoins.end(), [&](Vec2 p) { return arbre->Contient(p); });
      if (2 * dans > std::ssize(temoins)) {
        parents[i] = it->chemin;
        break;
      }
    }
  }
  return parents;
}

// The forest of contours walked children first, without recursion: a drawing may be nested as deep as it has paths.
std::vector<std::size_t> OrdreDeCoupe(std::span<const std::size_t> parents) {
  const std::size_t n = parents.size();
  std::vector<std::size_t> premier(n + 1, SansParent);  // first child; of the drawing itself at n
  std::vector<std::size_t> suivant(n, SansParent);      // next one with the same parent
  for (std::size_t i = n; i-- > 0;) {
    auto& tete = premier[parents[i] == SansParent ? n : parents[i]];
    suivant[i] = tete;
    tete = i;
  }
  std::vector<std::size_t> ordre;
  ordre.reserve(n);
  std::size_t i = premier[n];
  while (i != SansParent) {
    while (premier[i] != SansParent) i = premier[i];
    for (;;) {
      ordre.push_back(i);
      if (suivant[i] != SansParent) {
        i = suivant[i];
        break;
      }
      i = parents[i];
      if (i == SansParent) break;
    }
  }
  return ordre;
}

}  // namespace pathwerk::assemblage
