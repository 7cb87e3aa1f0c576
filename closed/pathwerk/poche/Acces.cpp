#include "closed/pathwerk/poche/Acces.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pathwerk::poche {

namespace {

std::vector<Segment> SegmentsDeRegion(const Region& region) {
  std::vector<Segment> segments;
  for (const Chemin& c : region.contours) {
    const std::vector<Segment> s = SegmentsDe(c, true);
    segments.insert(segments.end(), s.begin(), s.end());
  }
  return segments;
}

}  // namespace

// Rings come as near as their hair and their chords make them (Jeu.h): so may the ways along and between them, and
// no nearer. A cutter hardly wider than the tolerance still may not cross the outline.
Acces::Acces(const Region& region, double rayon, double tolerance)
    : contour_(SegmentsDeRegion(region)), limite_(std::max(rayon - 0.94 * tolerance, rayon / 2)) {}

bool Acces::Libre(Vec2 a, Vec2 b) const { return !contour_.PassePres({a, b}, limite_); }

Vec2 Acces::VersLeBord(Vec2 p, double profondeur) const {
  const Lieu l = contour_.PlusProche(p);
  const double e = std::sqrt(l.distance2);
  return e > profondeur ? l.point + (p - l.point) * (profondeur / e) : p;
}

}  // namespace pathwerk::poche
