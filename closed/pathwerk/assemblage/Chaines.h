// Which end of which path is joined with which other one. Used by the welding alone.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "closed/pathwerk/assemblage/CheminsAssembles.h"
#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::assemblage {

using Bout = std::uint32_t;  // end of a path: 2 * path, + 1 for its last point
inline constexpr Bout BoutLibre = std::numeric_limits<Bout>::max();

constexpr Bout Oppose(Bout e) { return e ^ 1U; }

// Who is joined with whom, and which free end belongs to which other one.
class Chaines {
 public:
  Chaines(const CheminsAssembles& assembles, std::span<const Bouts> bouts, double tolerance)
      : assembles_(assembles), bouts_(bouts), tolerance_(tolerance) {
    const std::size_t n = assembles.chemins.size();
    fins_.resize(2 * n);
    for (std::size_t i = 0; i < n; ++i) {
      const auto e = Numero32(2 * i);
      fins_[e].autre = e + 1;
      fins_[e + 1].autre = e;
      if (assembles.chemins[i].nature != Nature::Ouvert) continue;
      const auto pts = assembles.De(i);
      for (std::size_t k = 1; k < pts.size(); ++k) fins_[e].longueur += Ecart(pts[k - 1], pts[k]);
      fins_[e + 1].longueur = fins_[e].longueur;
      fins_[e].segments = fins_[e + 1].segments = Numero32(pts.size() - 1);
    }
  }

  // Partner of an end, BoutLibre when it is free.
  [[nodiscard]] Bout Lien(Bout e) const { return fins_[e].lien; }
  [[nodiscard]] PointF Place(Bout e) const {
    const auto pts = assembles_.De(e / 2);
    return (e & 1U) != 0 ? pts.back() : pts.front();
  }
  [[nodiscard]] Vec2 PlaceFine(Bout e) const { return (e & 1U) != 0 ? bouts_[e / 2].fin : bouts_[e / 2].debut; }
  // Unit vector from the end into its path.
  [[nodiscard]] Vec2 Direction(Bout e) const {
    const auto pts = assembles_.De(e / 2);
    const PointF a = (e & 1U) != 0 ? pts[pts.size() - 1] : pts[0];
    const PointF b = (e & 1U) != 0 ? pts[pts.size() - 2] : pts[1];
    const double dx = double{b.x} - a.x;
    const double dy = double{b.y} - a.y;
    const double d = std::hypot(dx, dy);
    return d > 0 ? Vec2{dx / d, dy / d} : Vec2{1, 0};
  }
  // -1 for a straight continuation, 1 for a path that comes back on itself.
  [[nodiscard]] double Pli(Bout e, Bout f) const {
    const Vec2 u = Direction(e);
    const Vec2 v = Direction(f);
    return u.x * v.x + u.y * v.y;
  }

  // A chain may close on itself when something lies between its ends: a lone stroke may not, and nor may a crumb
  // that lies within the tolerance as a whole.
  [[nodiscard]] bool Permis(Bout e, Bout f) const {
    if (e == f || Lien(e) != BoutLibre || Lien(f) != BoutLibre) return false;
    if (fins_[e].autre != f) return true;
    return fins_[e].segments >= 2 && (Place(e) == Place(f) || fins_[e].longueur > 4 * tolerance_);
  }

  // Whether any two ends were joined.
  [[nodiscard]] bool Reliees() const { return reliees_; }

  void Relie(Bout e, Bout f) {
    reliees_ = true;
    fins_[e].lien = f;
    fins_[f].lien = e;
    const Bout a = fins_[e].autre;
    const Bout b = fins_[f].autre;
    if (a == f) return;  // closed
    fins_[a].autre = b;
    fins_[b].autre = a;
    fins_[a].longueur = fins_[b].longueur = fins_[e].longueur + fins_[f].longueur;
    fins_[a].segments = fins_[b].segments = fins_[e].segments + fins_[f].segments;
  }

 private:
  // One end, in one place of memory: ends are joined in the order of their places, which is none of the file.
  struct Fin {
    double longueur = 0;         // of a free end's chain, mm
    Bout lien = BoutLibre;       // partner
    Bout autre = BoutLibre;      // for a free end: the other free end of its chain
    std::uint32_t segments = 0;  // of a free end's chain
  };

  static double Ecart(PointF a, PointF b) { return std::hypot(double{b.x} - a.x, double{b.y} - a.y); }

  const CheminsAssembles& assembles_;
  std::span<const Bouts> bouts_;
  double tolerance_;
  bool reliees_ = false;
  std::vector<Fin> fins_;
};

}  // namespace pathwerk::assemblage
