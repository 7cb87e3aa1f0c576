#include "closed/pathwerk/lecture/dxf/Couverture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/ArbreBoites.h"
#include "base/Indices.h"
#include "base/Segment.h"
#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::lecture::dxf {

namespace {

struct Temoin {
  Vec2 p;
  std::uint32_t rang = 0;  // in `rangs`
};

using Boite = base::Boite<double>;

// Witness points under a tree of boxes. Segments are laid over it one by one; each witness that one of them touches
// is taken out, so that no place is looked at twice, however many lines run over it.
class Arbre {
 public:
  explicit Arbre(std::vector<Temoin> temoins) : temoins_(std::move(temoins)) {
    Boites::RangeParVoisinage(temoins_.begin(), temoins_.size(), [](const Temoin& t) { return t.p; });
    boites_ =
        Boites(temoins_.size(), [this](std::size_t i, Boite& b) { b.Etend(temoins_[i].p.x, temoins_[i].p.y); });
    for (std::size_t k = 0; k < boites_.Noeuds(); ++k) {
      vivants_.push_back(k == 0 ? 0 : boites_.Fin(k) - boites_.Debut(k));
    }
  }

  // Takes out what lies within `tolerance` of the segment.
  void Efface(const base::Segment& s, double tolerance) {
    boites_.Parcourt([&](std::size_t k) { return vivants_[k] > 0 && Touche(boites_.De(k), s.a, s.b, tolerance); },
                     [](std::size_t) { return true; },
                     [&](std::size_t feuille) {
                       EffaceDans(feuille, s, tolerance);
                       return true;
                     });
  }

  // Calls f with the rank of each path that has a witness left.
  template <class F>
  void Restants(F f) const {
    for (std::size_t k = boites_.Feuilles(); k < boites_.Noeuds(); ++k) {
      const std::size_t debut = boites_.Debut(k);
      for (std::size_t i = debut; i < debut + vivants_[k]; ++i) f(temoins_[i].rang);
    }
  }

 private:
  using Boites = base::ArbreBoites<double, 8>;

  // No separating line: neither along the axes nor across the segment.
  static bool Touche(const Boite& q, Vec2 a, Vec2 b, double t) {
    if (std::max(a.x, b.x) < q.x0 - t || std::min(a.x, b.x) > q.x1 + t) return false;
    if (std::max(a.y, b.y) < q.y0 - t || std::min(a.y, b.y) > q.y1 + t) return false;
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double ecart = dx * ((q.y0 + q.y1) / 2 - a.y) - dy * ((q.x0 + q.x1) / 2 - a.x);
    const double portee = std::fabs(dx) * ((q.y1 - q.y0) / 2 + t) + std::fabs(dy) * ((q.x1 - q.x0) / 2 + t);
    return std::fabs(ecart) <= portee;
  }

  static bool Pres(Vec2 p, const base::Segment& s, double tolerance) {
    const double t = base::PartProche(s, p);
    return std::hypot(p.x - s.a.x - t * (s.b.x - s.a.x), p.y - s.a.y - t * (s.b.y - s.a.y)) <= tolerance;
  }

  void EffaceDans(std::size_t feuille, const base::Segment& s, double tolerance) {
    const auto debut = base::Iterateur(temoins_, boites_.Debut(feuille));
    const auto fin = debut + static_cast<std::ptrdiff_t>(vivants_[feuille]);
    const auto reste = std::remove_if(debut, fin, [&](const Temoin& w) { return Pres(w.p, s, tolerance); });
    const auto effaces = base::Indice(fin - reste);
    for (std::size_t k = feuille; k >= 1; k /= 2) vivants_[k] -= effaces;
  }

  std::vector<Temoin> temoins_;
  Boites boites_;
  std::vector<std::size_t> vivants_;  // of each node, witnesses not yet taken out: in a leaf those in front
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
          temoins.push_back({p, Numero32(i)});
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
    Segments(traits[i], [&](Vec2 a, Vec2 b) { arbre.Efface({a, b}, tolerance); });
  }
  arbre.Restants([&](std::uint32_t rang) { couverts[rang] = 0; });
  return couverts;
}

}  // namespace pathwerk::lecture::dxf
