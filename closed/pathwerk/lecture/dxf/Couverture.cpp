#include "closed/pathwerk/lecture/dxf/Couverture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace pathwerk::lecture::dxf {

namespace {

struct Temoin {
  Vec2 p;
  std::uint32_t rang = 0;  // in `rangs`
};

struct Boite {
  double xmin, xmax, ymin, ymax;
};

// Witness points in a balanced tree of boxes. Segments are laid over it one by one; each witness that one of them
// touches is taken out, so that no place is looked at twice, however many lines run over it.
class Arbre {
 public:
  explicit Arbre(std::vector<Temoin> temoins) : temoins_(std::move(temoins)) {
    if (temoins_.empty()) return;
    noeuds_.reserve(2 * (temoins_.size() / kFeuille + 1));
    Construit(0, static_cast<std::uint32_t>(temoins_.size()));
  }

  // Takes out what lies within `tolerance` of the segment.
  void Efface(Vec2 a, Vec2 b, double tolerance) {
    if (!noeuds_.empty()) Visite(0, a, b, tolerance);
  }

  // Calls f with the rank of each path that has a witness left.
  template <class F>
  void Restants(F f) const {
    for (const Noeud& n : noeuds_) {
      if (n.droite != 0) continue;
      for (std::uint32_t i = n.debut; i < n.debut + n.vivants; ++i) f(temoins_[i].rang);
    }
  }

 private:
  static constexpr std::uint32_t kFeuille = 8;

  struct Noeud {
    Boite boite;
    std::uint32_t debut;
    std::uint32_t vivants;     // witnesses not yet taken out
    std::uint32_t droite = 0;  // right child, 0 in a leaf; the left one follows at once
  };

  std::uint32_t Construit(std::uint32_t debut, std::uint32_t fin) {
    const auto ici = static_cast<std::uint32_t>(noeuds_.size());
    Boite b{temoins_[debut].p.x, temoins_[debut].p.x, temoins_[debut].p.y, temoins_[debut].p.y};
    for (std::uint32_t i = debut; i < fin; ++i) {
      const Vec2 p = temoins_[i].p;
      b = {std::min(b.xmin, p.x), std::max(b.xmax, p.x), std::min(b.ymin, p.y), std::max(b.ymax, p.y)};
    }
    noeuds_.push_back({b, debut, fin - debut});
    if (fin - debut <= kFeuille) return ici;
    const bool large = b.xmax - b.xmin > b.ymax - b.ymin;
    const std::uint32_t milieu = debut + (fin - debut) / 2;
    std::nth_element(temoins_.begin() + debut, temoins_.begin() + milieu, temoins_.begin() + fin,
                     [large](const Temoin& l, const Temoin& r) { return large ? l.p.x < r.p.x : l.p.y < r.p.y; });
    Construit(debut, milieu);
    const std::uint32_t droite = Construit(milieu, fin);
    noeuds_[ici].droite = droite;
    return ici;
  }

  // No separating line: neither along the axes nor across the segment.
  static bool Touche(const Boite& q, Vec2 a, Vec2 b, double t) {
    if (std::max(a.x, b.x) < q.xmin - t || std::min(a.x, b.x) > q.xmax + t) return false;
    if (std::max(a.y, b.y) < q.ymin - t || std::min(a.y, b.y) > q.ymax + t) return false;
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double ecart = dx * ((q.ymin + q.ymax) / 2 - a.y) - dy * ((q.xmin + q.xmax) / 2 - a.x);
    const double portee = std::fabs(dx) * ((q.ymax - q.ymin) / 2 + t) + std::fabs(dy) * ((q.xmax - q.xmin) / 2 + t);
    return std::fabs(ecart) <= portee;
  }

  static bool Pres(Vec2 p, Vec2 a, Vec2 b, double tolerance) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double l2 = dx * dx + dy * dy;
    const double t = l2 > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / l2, 0.0, 1.0) : 0;
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy) <= tolerance;
  }

  void Visite(std::uint32_t n, Vec2 a, Vec2 b, double tolerance) {
    Noeud& noeud = noeuds_[n];
    if (noeud.vivants == 0 || !Touche(noeud.boite, a, b, tolerance)) return;
    if (noeud.droite == 0) {
      const auto debut = temoins_.begin() + noeud.debut;
      const auto fin =
          std::remove_if(debut, debut + noeud.vivants, [&](const Temoin& w) { return Pres(w.p, a, b, tolerance); });
      noeud.vivants = static_cast<std::uint32_t>(fin - debut);
      return;
    }
    Visite(n + 1, a, b, tolerance);
    Visite(noeud.droite, a, b, tolerance);
    noeud.vivants = noeuds_[n + 1].vivants + noeuds_[noeud.droite].vivants;
  }

  std::vector<Temoin> temoins_;
  std::vector<Noeud> noeuds_;
};

// f(a, b) for each segment of a path, the closing one included.
template <class F>
void Segments(const Trait& t, F f) {
  const std::size_t n = t.points.size();
  if (t.nature == Nature::Percage || n < 2) return;
  for (std::size_t i = 0; i + 1 < n; ++i) f(t.points[i], t.points[i + 1]);
  if (t.nature == Nature::Ferme) f(t.points[n - 1], t.points[0]);
}

}  // namespace

// Each segment in question is represented by its start and two places on it, at odd shares, so that lines that only
// cross it at its middle or its ends don't count as drawing it.
std::vector<char> TraitsCouverts(const std::vector<Trait>& traits, const std::vector<std::size_t>& rangs,
                                 double tolerance) {
  std::vector<Temoin> temoins;
  std::size_t nombre = 0;
  for (const std::size_t r : rangs) nombre += 3 * traits[r].points.size();
  temoins.reserve(nombre);
  std::vector<char> couverts(rangs.size(), 1);
  for (std::size_t i = 0; i < rangs.size(); ++i) {
    Segments(traits[rangs[i]], [&](Vec2 a, Vec2 b) {
      for (const double part : {0.0, 0.31, 0.73}) {
        const Vec2 p{a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
        if (std::isfinite(p.x) && std::isfinite(p.y)) {
          temoins.push_back({p, static_cast<std::uint32_t>(i)});
        } else {
          couverts[i] = 0;  // it would upset the order of the tree; the drawing will be refused for it
        }
      }
    });
  }
  Arbre arbre(std::move(temoins));
  std::size_t prochain = 0;
  for (std::size_t i = 0; i < traits.size(); ++i) {
    if (prochain < rangs.size() && rangs[prochain] == i) {
      ++prochain;
      continue;
    }
    Segments(traits[i], [&](Vec2 a, Vec2 b) { arbre.Efface(a, b, tolerance); });
  }
  arbre.Restants([&](std::uint32_t rang) { couverts[rang] = 0; });
  return couverts;
}

}  // namespace pathwerk::lecture::dxf
