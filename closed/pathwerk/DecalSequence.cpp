// The offset of one path, from records to records: choice of the kind, budget of the tolerance, guards.
#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "base/Arret.h"
#include "base/Indices.h"
#include "closed/Pathwerk.h"
#include "closed/pathwerk/decalage/DecaleFerme.h"
#include "closed/pathwerk/decalage/DecaleOuvert.h"
#include "closed/pathwerk/poche/Poche.h"

namespace pathwerk {

namespace {

constexpr double ToleranceParDefaut = 0.01;  // mm
constexpr double DistanceMax = 1e7;          // mm
constexpr std::size_t PointsMax = 1000;      // of a small outline

bool SansEtendue(const std::vector<PointTrace>& points) {
  return std::all_of(points.begin(), points.end(),
                     [&](const PointTrace& p) { return MemePlace(p, points.front()); });
}

bool TousFinis(const std::vector<PointTrace>& points) {
  return std::all_of(points.begin(), points.end(),
                     [](const PointTrace& p) { return std::isfinite(p.X) && std::isfinite(p.Y); });
}

// The closed ones of some paths, prepared in the frame of `source`. None: one can't be, and what has to stay is
// never left out.
std::optional<std::vector<base::Chemin>> Iles(std::span<const PointTrace> ilots, const decalage::Source& source,
                                              double tolerance) {
  std::vector<base::Chemin> iles;
  for (auto debut = ilots.begin(); debut != ilots.end();) {
    const auto fin = std::find_if(debut, ilots.end(), [&](const PointTrace& p) { return p.Seq != debut->Seq; });
    const std::vector<PointTrace> points(debut, fin);
    debut = fin;
    if (!TousFinis(points)) return std::nullopt;
    if (points.size() < 3 || !MemePlace(points.front(), points.back()) || SansEtendue(points)) continue;
    std::optional<decalage::Source> ile = decalage::PrepareSource(points, tolerance);
    if (!ile) return std::nullopt;
    for (Vec2& p : ile->chemin) p = p + (ile->centre - source.centre);
    iles.push_back(std::move(ile->chemin));
  }
  return iles;
}

std::int32_t Decale(std::vector<PointTrace>& points, double tolerance, double distance, std::int32_t recouvrement,
                    std::span<const PointTrace> ilots) {
  if (points.empty() || !(std::abs(distance) <= DistanceMax)) return 0;
  if (SansEtendue(points)) {  // a hole, however often its place is given: it has no side
    if (!TousFinis(points)) return 0;
    points.resize(2, points.front());
    points[1] = points[0];
    points[1].Cde = CodePD;
    return 2;
  }
  if (distance == 0) {
    if (!TousFinis(points)) return 0;
    for (PointTrace& p : points) p.Seq = Code2{u'0', u'1'};
    return base::Compte(points.size());
  }
  // A curve alone bears coarser thinning, as what it takes is taken off the arcs (Jeu.h); where there are few
  // points, that costs more than it gains. The rings of a pocket have to cover all between them.
  const bool ferme = MemePlace(points.front(), points.back());
  const bool seule = points.size() > PointsMax && (!ferme || recouvrement == 100);
  const double part = seule ? 0.2 : 0.1;
  const std::optional<decalage::Source> source = decalage::PrepareSource(points, part * tolerance);
  if (!source || base::ArretDemande()) return 0;
  const double reste = tolerance * 0.88;
  std::vector<decalage::Piece> pieces;
  if (!source->ferme) {
    pieces = decalage::DecaleOuvert(*source, distance, reste);
  } else if (recouvrement == 100) {
    pieces = decalage::DecaleFerme(*source, distance, reste);
  } else {
    const auto iles = Iles(ilots, *source, tolerance / 10);
    if (!iles) return 0;
    pieces = poche::RemplitPoche(*source, *iles, distance, recouvrement, reste);
  }
  if (base::ArretDemande()) return 0;
  std::vector<PointTrace> resultat = decalage::EcritPieces(std::move(pieces), *source, distance, tolerance);
  if (resultat.empty()) return 0;
  points.swap(resultat);
  return base::Compte(points.size());
}

}  // namespace

std::int32_t DecalSequence(std::vector<PointTrace>& points, float tolerance, float decal,
                           std::int32_t recouvrement) {
  return DecalSequenceIlots(points, tolerance, decal, recouvrement, {});
}

std::int32_t DecalSequenceIlots(std::vector<PointTrace>& points, float tolerance, float decal,
                                std::int32_t recouvrement, std::span<const PointTrace> ilots) {
  double t = tolerance;
  if (!(t > 0)) t = ToleranceParDefaut;
  t = std::clamp(t, 1e-4, 10.0);
  try {
    return Decale(points, t, decal, recouvrement, ilots);
  } catch (const std::exception&) {
    return 0;
  }
}

}  // namespace pathwerk
