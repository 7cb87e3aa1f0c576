// Which paths stand as islands in a pocket.
#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>
#include <span>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/decalage/ArcSource.h"
#include "closed/pathwerk/decalage/MoteurClipper.h"

namespace pathwerk {

namespace {

constexpr double Pres = 0.01;               // mm: contours so near may lie on each other as drawn
constexpr double LimiteCoordonnee = 1.0e8;  // mm

struct Contour {
  Chemin chemin;  // in the frame of the first contour
  base::Boite<double> boite;
};

// None: not closed, or a coordinate that is none.
std::optional<Contour> ContourDe(std::span<const PointTrace> points, Vec2 origine) {
  if (points.size() < 4 || !MemePlace(points.front(), points.back())) return std::nullopt;
  Contour c;
  for (const PointTrace& p : points.first(points.size() - 1)) {
    if (!(std::abs(p.X) <= LimiteCoordonnee && std::abs(p.Y) <= LimiteCoordonnee)) return std::nullopt;
    const Vec2 q = Vec2{double{p.X}, double{p.Y}} - origine;
    if (!c.chemin.empty() && q == c.chemin.back()) continue;
    c.chemin.push_back(q);
    c.boite.Etend(q.x, q.y);
  }
  if (c.chemin.size() < 3) return std::nullopt;
  return c;
}

// The outline of a pocket, against one path after the other.
class Poche {
 public:
  explicit Poche(const Contour& contour)
      : contour_(contour), arbre_(SegmentsDe(contour.chemin, true)), source_(std::span(&contour.chemin, 1)) {}

  [[nodiscard]] bool PorteIlot(const Contour& ilot) const {
    if (!ilot.boite.Rencontre(contour_.boite)) return false;
    const std::vector<Segment> bord = SegmentsDe(ilot.chemin, true);
    if (std::any_of(bord.begin(), bord.end(), [this](const Segment& s) { return arbre_.PassePres(s, Pres); })) {
      return Empiete(ilot);
    }
    return source_.Tours(ilot.chemin[0]) != 0;
  }

 private:
  // Contours that meet: by their areas, so that neither a shared edge nor two equal contours leave it open.
  [[nodiscard]] bool Empiete(const Contour& ilot) const {
    const decalage::AiresDeDeux aires = decalage::AiresCommunes(contour_.chemin, ilot.chemin);
    const double bande = Pres * std::min(Perimetre(contour_.chemin), Perimetre(ilot.chemin));
    if (aires.commune <= bande) return false;
    const bool autour = aires.premier - aires.commune <= bande && aires.second - aires.premier > bande;
    return !autour;
  }

  const Contour& contour_;
  ArbreSegments arbre_;
  decalage::ArcSource source_;
};

}  // namespace

std::vector<std::size_t> IlotsDans(std::span<const PointTrace> contour,
                                   std::span<const std::span<const PointTrace>> chemins) {
  std::vector<std::size_t> ilots;
  if (contour.empty()) return ilots;
  const Vec2 origine{double{contour[0].X}, double{contour[0].Y}};
  try {
    const std::optional<Contour> bord = ContourDe(contour, origine);
    if (!bord) return ilots;
    const Poche poche(*bord);
    for (std::size_t k = 0; k < chemins.size(); ++k) {
      const std::optional<Contour> ilot = ContourDe(chemins[k], origine);
      if (ilot && poche.PorteIlot(*ilot)) ilots.push_back(k);
    }
  } catch (const std::exception&) {
    // No memory, or figures beyond all machines: rather all of them than one too few.
    ilots.clear();
    for (std::size_t k = 0; k < chemins.size(); ++k) ilots.push_back(k);
  }
  return ilots;
}

}  // namespace pathwerk
