#include "toolpath/traces/Prolongement.h"

#include <cmath>
#include <cstddef>

#include "toolpath/chemins/Etendues.h"

namespace ovelin {

namespace {

constexpr double LongueurAmorce = 1.0;  // mm
constexpr float Marge = -1.0F;          // mm, Y of the stroke in the margin

}  // namespace

// The knife turns into the direction of the cut on a stroke below the drawing, and the cut overlaps at its seam:
//
//            P
//      A ----+---- B             trace   M1 M2 A B ... A P
//      |           |             M1-M2   the way A-P, moved down so that M1 lies at Y = -1
//      +-----------+
//
//      M1 == M2
void ProlongePoints(std::vector<PointTrace>& points) {
  if (points.size() < 2 || !pathwerk::MemePlace(points.front(), points.back())) return;
  const PointTrace a = points.front();
  std::size_t suivant = 1;
  while (suivant < points.size() && pathwerk::MemePlace(points[suivant], a)) ++suivant;
  if (suivant == points.size()) return;
  const PointTrace& b = points[suivant];
  const double dx = Ecart(a.X, b.X);
  const double dy = Ecart(a.Y, b.Y);
  const double echelle = LongueurAmorce / std::sqrt(dx * dx + dy * dy);

  PointTrace p = a;
  p.X = static_cast<float>(a.X + dx * echelle);
  p.Y = static_cast<float>(a.Y + dy * echelle);
  p.Cde = CodePD;
  PointTrace m1 = a;
  m1.Y = Marge;
  m1.Cde = CodePD;
  PointTrace m2 = p;
  m2.Y = static_cast<float>(Ecart(a.Y, p.Y) + Marge);
  m2.Cde = CodePU;
  points.insert(points.begin(), {m1, m2});
  points.push_back(p);
}

}  // namespace ovelin
