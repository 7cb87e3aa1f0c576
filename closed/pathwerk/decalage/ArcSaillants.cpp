// A scan that lays a million points into a band of a tenth of a millimetre has nearly all of its raw parallels
// buried under the few points that stand out. Which these are is not known beforehand, but of each cell of a grid
// the hull bounds what the cell can bury, and sixteen directions tell the hull but for a hair:
//
//        .  * .  . *        *  farthest to the upper left, to the upper right, ...
//       *  . .. . .  *      .  tens or hundreds of others
//        . *  . . *
//
// What these bury needs no other judge. What they leave is cut by all segments, so the result is the same.
#include "closed/pathwerk/decalage/ArcSaillants.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <vector>

#include "base/Arret.h"
#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::decalage {

namespace {

constexpr std::size_t NombreMin = 4096;  // fewer points are no crowd
constexpr std::size_t ParCaseMin = 64;   // points of a cell, in the mean: fewer are no crowd either
constexpr std::size_t Directions = 16;
constexpr std::size_t CotesMax = 1024;  // cells along a side of the finest grid
constexpr double Foule = 40;            // so many times the outline has to pass through a cell, in the mean
constexpr double PartDuRayon = 0.5;     // a cell as wide as more of it has its hull too far from its points
constexpr std::size_t PointsParRegard = 4096;

// Cells over all points, each side a power of two of them.
class Cases {
 public:
  explicit Cases(const ArcSource& source) : source_(source), nombre_(source.Taille()) {
    base::Boite<double> b;
    for (std::size_t i = 0; i < nombre_; ++i) b.Etend(source.A(i).x, source.A(i).y);
    coin_ = {b.x0, b.y0};
    largeur_ = std::max({b.x1 - b.x0, b.y1 - b.y0, 1e-9}) * (1 + 1e-9);
    for (std::size_t i = 0; i < nombre_; ++i) longueur_ += Norme(source.B(i) - source.A(i));
  }
  // May the outline be a crowd at all?
  [[nodiscard]] bool Longue() const { return longueur_ >= Foule * largeur_; }
  // The finest grid whose cells hold as many points as there are cells, or as many as they do where cells are `pas`
  // mm wide. Its side in cells; 0 where the outline is no crowd in them.
  std::size_t Choisit(double pas) {
    cotes_ = CotesMax;
    if (largeur_ > pas * static_cast<double>(cotes_)) return 0;
    std::vector<std::uint8_t> pleines(cotes_ * cotes_, 0);
    for (std::size_t i = 0; i < nombre_; ++i) pleines[De(source_.A(i))] = 1;
    for (;; cotes_ /= 2) {
      const auto occupees = static_cast<std::size_t>(std::count(pleines.begin(), pleines.end(), 1));
      const bool derniere = largeur_ * 2 > pas * static_cast<double>(cotes_);
      if (derniere || occupees * std::max(occupees, ParCaseMin) <= nombre_) {
        const double passages =
            longueur_ / (largeur_ / static_cast<double>(cotes_) * static_cast<double>(occupees));
        return occupees * ParCaseMin <= nombre_ && passages >= Foule ? cotes_ : 0;
      }
      Reduit(pleines);
    }
  }
  [[nodiscard]] std::size_t De(Vec2 p) const {
    const double part = static_cast<double>(cotes_) / largeur_;
    const auto x = static_cast<std::size_t>((p.x - coin_.x) * part);
    const auto y = static_cast<std::size_t>((p.y - coin_.y) * part);
    return y * cotes_ + x;
  }

 private:
  // Four cells to one.
  void Reduit(std::vector<std::uint8_t>& pleines) const {
    const std::size_t demi = cotes_ / 2;
    std::vector<std::uint8_t> r(demi * demi, 0);
    for (std::size_t k = 0; k < pleines.size(); ++k) {
      if (pleines[k] != 0) r[k / cotes_ / 2 * demi + k % cotes_ / 2] = 1;
    }
    pleines.swap(r);
  }
  const ArcSource& source_;
  std::size_t nombre_;
  Vec2 coin_;
  double largeur_ = 0;   // mm
  double longueur_ = 0;  // mm
  std::size_t cotes_ = 0;
};

// The vertices that lie farthest in one of the directions, of all in their cell.
std::vector<std::uint32_t> Extremes(const ArcSource& source, const Cases& cases, std::size_t cotes) {
  struct Bouts {
    std::array<double, Directions> loin;
    std::array<std::uint32_t, Directions> sommet;
  };
  std::array<Vec2, Directions> u;
  for (std::size_t k = 0; k < Directions; ++k) {
    const double a = 2 * std::numbers::pi * static_cast<double>(k) / Directions;
    u[k] = {std::cos(a), std::sin(a)};
  }
  std::vector<std::uint32_t> rang(cotes * cotes, Naturel);
  std::vector<Bouts> bouts;
  for (std::size_t i = 0; i < source.Taille(); ++i) {
    if (i % PointsParRegard == 0 && base::ArretDemande()) break;
    const Vec2 p = source.A(i);
    std::uint32_t& r = rang[cases.De(p)];
    if (r == Naturel) {
      r = Numero32(bouts.size());
      bouts.emplace_back();
      bouts.back().loin.fill(-std::numeric_limits<double>::infinity());
    }
    Bouts& b = bouts[r];
    for (std::size_t k = 0; k < Directions; ++k) {
      const double loin = Scalaire(p, u[k]);
      if (loin <= b.loin[k]) continue;
      b.loin[k] = loin;
      b.sommet[k] = Numero32(i);
    }
  }
  std::vector<std::uint32_t> extremes;
  for (const Bouts& b : bouts) extremes.insert(extremes.end(), b.sommet.begin(), b.sommet.end());
  std::sort(extremes.begin(), extremes.end());
  extremes.erase(std::unique(extremes.begin(), extremes.end()), extremes.end());
  return extremes;
}

}  // namespace

std::optional<Tueurs> Saillants(const ArcSource& source, double r) {
  if (source.Taille() < NombreMin) return std::nullopt;
  Cases cases(source);
  if (!cases.Longue()) return std::nullopt;
  const std::size_t cotes = cases.Choisit(PartDuRayon * r);
  if (cotes == 0) return std::nullopt;
  Tueurs t;
  t.segments = Extremes(source, cases, cotes);
  const auto lieu = [&source](std::uint32_t i) { return source.A(i); };
  ArcSource::Arbre::RangeParVoisinage(t.segments.begin(), t.segments.size(), lieu);
  t.arbre = ArcSource::Arbre(t.segments.size(), [&](std::size_t k, base::Boite<double>& b) {
    const Vec2 p = lieu(t.segments[k]);
    b.Etend(p.x, p.y);
  });
  return t;
}

}  // namespace pathwerk::decalage
