// The offset of one path, from records to records: choice of the kind, budget of the tolerance, guards.
#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>
#include <utility>
#include <vector>

#include "base/Indices.h"
#include "closed/Pathwerk.h"
#include "closed/pathwerk/decalage/DecaleFerme.h"
#include "closed/pathwerk/decalage/DecaleOuvert.h"
#include "closed/pathwerk/poche/Poche.h"

namespace pathwerk {

namespace {

constexpr double ToleranceParDefaut = 0.01;  // mm
constexpr double DistanceMax = 1e7;          // mm

bool SansEtendue(const std::vector<PointTrace>& points) {
  return std::all_of(points.begin(), points.end(),
                     [&](const PointTrace& p) { return MemePlace(p, points.front()); });
}

bool TousFinis(const std::vector<PointTrace>& points) {
  return std::all_of(points.begin(), points.end(),
                     [](const PointTrace& p) { return std::isfinite(p.X) && std::isfinite(p.Y); });
}

std::int32_t Decale(std::vector<PointTrace>& points, double tolerance, double distance, std::int32_t recouvrement) {
  if (points.empty() || !TousFinis(points) || !(std::abs(distance) <= DistanceMax)) return 0;
  if (SansEtendue(points)) {  // a hole, however often its place is given: it has no side
    points.resize(2, points.front());
    points[1] = points[0];
    points[1].Cde = CodePD;
    return 2;
  }
  if (distance == 0) {
    for (PointTrace& p : points) p.Seq = Code2{u'0', u'1'};
    return base::Compte(points.size());
  }
  const std::optional<decalage::Source> source = decalage::PrepareSource(points, tolerance / 10);
  if (!source) return 0;
  // One tenth is spent; a little more stays aside for the rounding to floats.
  const double reste = tolerance * 0.88;
  std::vector<decalage::Piece> pieces;
  if (!source->ferme) {
    pieces = decalage::DecaleOuvert(*source, distance, reste);
  } else if (recouvrement == 100) {
    pieces = decalage::DecaleFerme(*source, distance, reste);
  } else {
    pieces = poche::RemplitPoche(*source, distance, recouvrement, reste);
  }
  std::vector<PointTrace> resultat = decalage::EcritPieces(std::move(pieces), *source, distance, tolerance);
  if (resultat.empty()) return 0;
  points.swap(resultat);
  return base::Compte(points.size());
}

}  // namespace

std::int32_t DecalSequence(std::vector<PointTrace>& points, float tolerance, float decal,
                           std::int32_t recouvrement) {
  double t = tolerance;
  if (!(t > 0)) t = ToleranceParDefaut;
  t = std::clamp(t, 1e-4, 10.0);
  try {
    return Decale(points, t, decal, recouvrement);
  } catch (const std::exception&) {
    return 0;
  }
}

}  // namespace pathwerk
