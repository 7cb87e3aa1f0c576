// From a point to the nearest place of a segment or of a path.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

#include "base/Boite.h"
#include "base/Vecteur.h"

namespace base {

struct Segment {
  Vec2 a;
  Vec2 b;
};

// A place on a segment: a + t (b - a), 0 <= t <= 1.
struct Lieu {
  std::size_t segment = 0;
  double t = 0;
  double distance2 = std::numeric_limits<double>::infinity();  // squared, mm2
  Vec2 point;
};

// Share of the segment, 0 to 1, at which it comes nearest to `p`; 0 for a segment without length.
inline double PartProche(const Segment& s, Vec2 p) {
  const Vec2 d = s.b - s.a;
  const double l2 = Scalaire(d, d);
  return l2 > 0 ? std::clamp(Scalaire(p - s.a, d) / l2, 0.0, 1.0) : 0.0;
}

// Nearest place of the segment to `p`.
inline Lieu LieuSurSegment(const Segment& s, Vec2 p) {
  Lieu l;
  l.t = PartProche(s, p);
  l.point = l.t == 1 ? s.b : s.a + (s.b - s.a) * l.t;
  const Vec2 e = p - l.point;
  l.distance2 = Scalaire(e, e);
  return l;
}

// A share of a segment, 0 <= t0 <= t1 <= 1.
struct Part {
  double t0 = 0;
  double t1 = 1;
};

// The share of the segment within the box, whose edge belongs to it; nothing where there is none. Liang and Barsky:
// each edge narrows the share.
inline std::optional<Part> PartDans(const Segment& s, const Boite<double>& b) {
  const Vec2 d = s.b - s.a;
  Part part;
  const auto bord = [&part](double pente, double reste) {
    if (pente == 0) return reste >= 0;
    const double t = reste / pente;
    if (pente < 0) {
      part.t0 = std::max(part.t0, t);
    } else {
      part.t1 = std::min(part.t1, t);
    }
    return part.t0 <= part.t1;
  };
  const bool dedans =
      bord(-d.x, s.a.x - b.x0) && bord(d.x, b.x1 - s.a.x) && bord(-d.y, s.a.y - b.y0) && bord(d.y, b.y1 - s.a.y);
  return dedans ? std::optional(part) : std::nullopt;
}

// The first of the nearest places among `nombre` segments, `segment(i)` each; linear. `limite2`: what is that far
// from `p` or farther, squared, is none.
template <class De>
Lieu LieuProche(std::size_t nombre, De segment, Vec2 p, double limite2 = std::numeric_limits<double>::infinity()) {
  Lieu meilleur;
  meilleur.distance2 = limite2;
  for (std::size_t i = 0; i < nombre; ++i) {
    const Segment s = segment(i);
    // Most lie too far along one axis already.
    const double dx = std::max(std::min(s.a.x, s.b.x) - p.x, p.x - std::max(s.a.x, s.b.x));
    if (dx > 0 && dx * dx >= meilleur.distance2) continue;
    const double dy = std::max(std::min(s.a.y, s.b.y) - p.y, p.y - std::max(s.a.y, s.b.y));
    if (dy > 0 && dy * dy >= meilleur.distance2) continue;
    Lieu l = LieuSurSegment(s, p);
    l.segment = i;
    if (l.distance2 < meilleur.distance2) meilleur = l;
  }
  return meilleur;
}

// Edges of a path: a closed one has the edge back to its start.
inline std::size_t NbAretes(const Chemin& chemin, bool ferme) {
  const std::size_t n = chemin.size();
  return n < 2 ? 0 : ferme ? n : n - 1;
}
inline Segment Arete(const Chemin& chemin, std::size_t i) { return {chemin[i], chemin[Suivant(i, chemin.size())]}; }

}  // namespace base
