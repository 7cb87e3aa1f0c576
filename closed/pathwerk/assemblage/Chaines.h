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
    lien.assign(2 * n, BoutLibre);
    autre_.resize(2 * n);
    longueur_.assign(2 * n, 0);
    segments_.assign(2 * n, 0);
    for (std::size_t i = 0; i < n; ++i) {
      const auto e = Numero32(2 * i);
      autre_[e] = e + 1;
      autre_[e + 1] = e;
      if (assembles.chemins[i].nature != Nature::Ouvert) continue;
      const auto pts = assembles.De(i);
      for (std::size_t k = 1; k < pts.size(); ++k) longueur_[e] += Ecart(pts[k - 1], pts[k]);
      longueur_[e + 1] = longueur_[e];
      segments_[e] = segments_[e + 1] = Numero32(pts.size() - 1);
    }
  }

  std::vector<Bout> lien;  // partner of each end, BoutLibre when free

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
    if (e == f || lien[e] != BoutLibre || lien[f] != BoutLibre) return false;
    if (autre_[e] != f) return true;
    return segments_[e] >= 2 && (Place(e) == Place(f) || longueur_[e] > 4 * tolerance_);
  }

  void Relie(Bout e, Bout f) {
    lien[e] = f;
    lien[f] = e;
    const Bout a = autre_[e];
    const Bout b = autre_[f];
    if (a == f) return;  // closed
    autre_[a] = b;
    autre_[b] = a;
    longueur_[a] = longueur_[b] = longueur_[e] + longueur_[f];
    segments_[a] = segments_[b] = segments_[e] + segments_[f];
  }

 private:
  static double Ecart(PointF a, PointF b) { return std::hypot(double{b.x} - a.x, double{b.y} - a.y); }

  const CheminsAssembles& assembles_;
  std::span<const Bouts> bouts_;
  double tolerance_;
  std::vector<Bout> autre_;              // for a free end: the other free end of its chain
  std::vector<double> longueur_;         // for a free end: length of its chain, mm
  std::vector<std::uint32_t> segments_;  // for a free end: segments of its chain
};

}  // namespace pathwerk::assemblage
