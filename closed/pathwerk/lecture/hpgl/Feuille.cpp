// Frames of a plot.
//
//   user units --SC over P1, P2--> plotter units --RO--> sheet
//
// A rotation turns the axes counter-clockwise and moves the origin to the corner that then lies lower left as seen
// along them, so that a sheet L x W stays in the positive quarter:
//
//   0: (x, y)     90: (L - y, x)     180: (L - x, W - y)     270: (y, W - x)
//
// P1 and P2 keep their numbers in the turned system. The default P1 and P2 are those of a desk plotter with A4
// paper; after PS they are the corners of that sheet. They matter only to plots that scale without saying IP.
#include "closed/pathwerk/lecture/hpgl/Feuille.h"

#include <algorithm>
#include <cmath>

namespace pathwerk::lecture::hpgl {

namespace {

bool Finis(std::span<const double> n) {
  return std::all_of(n.begin(), n.end(), [](double v) { return std::isfinite(v); });
}

// An extent of nothing would make the scale infinite; the plotter takes one unit instead.
double NonNul(double v) { return v == 0 ? 1 : v; }

}  // namespace

void HpglFeuille::Initialise() {
  echelle_ = Echelle::Aucune;
  rotation_ = 0;
  PointsDefaut();
  Range();
}

void HpglFeuille::PointsDefaut() {
  p1_ = feuilleDonnee_ ? Vec2{0, 0} : Vec2{603, 521};
  p2_ = feuilleDonnee_ ? Etendue() : Vec2{10603, 7721};
}

Vec2 HpglFeuille::Etendue() const { return rotation_ % 2 == 0 ? feuille_ : Vec2{feuille_.y, feuille_.x}; }

void HpglFeuille::PoseFeuille(std::span<const double> n) {
  if (n.empty() || !Finis(n) || n[0] <= 0) return;
  const double large = n.size() > 1 && n[1] > 0 ? n[1] : n[0];
  feuille_ = {n[0], large};
  feuilleDonnee_ = true;
  PointsDefaut();
  Range();
}

void HpglFeuille::PosePoints(std::span<const double> n) {
  if (!Finis(n)) return;
  if (n.size() < 2) {
    PointsDefaut();
  } else {
    const Vec2 ecart{p2_.x - p1_.x, p2_.y - p1_.y};
    p1_ = {n[0], n[1]};
    p2_ = n.size() < 4 ? Vec2{p1_.x + ecart.x, p1_.y + ecart.y} : Vec2{n[2], n[3]};
  }
  Range();
}

void HpglFeuille::PosePointsRelatifs(std::span<const double> n) {
  if (!Finis(n)) return;
  const Vec2 e = Etendue();
  if (n.size() < 2) {
    PointsDefaut();
  } else {
    const Vec2 ecart{p2_.x - p1_.x, p2_.y - p1_.y};
    p1_ = {n[0] / 100 * e.x, n[1] / 100 * e.y};
    p2_ = n.size() < 4 ? Vec2{p1_.x + ecart.x, p1_.y + ecart.y} : Vec2{n[2] / 100 * e.x, n[3] / 100 * e.y};
  }
  Range();
}

// SC; no scale. Type 0: each axis for itself. 1: both axes by the smaller factor, the rest of the room shared by
// the percentages left and below (50). 2: the second and fourth number are plotter units to a user unit.
void HpglFeuille::PoseEchelle(std::span<const double> n) {
  if (n.size() < 4) {
    if (n.empty()) echelle_ = Echelle::Aucune;
    Range();
    return;
  }
  const double type = n.size() > 4 ? n[4] : 0;
  const bool plat = type == 2 ? n[1] == 0 || n[3] == 0 : n[0] == n[1] || n[2] == n[3];
  if (!Finis(n) || plat) return;
  std::copy_n(n.begin(), 4, sc_.begin());
  sc_[4] = n.size() > 6 ? std::clamp(n[5], 0.0, 100.0) / 100 : 0.5;
  sc_[5] = n.size() > 6 ? std::clamp(n[6], 0.0, 100.0) / 100 : 0.5;
  echelle_ = type == 2 ? Echelle::Facteur : type == 1 ? Echelle::Isotrope : Echelle::Libre;
  Range();
}

void HpglFeuille::PoseRotation(std::span<const double> n) {
  if (!Finis(n)) return;
  const double quarts = n.empty() ? 0 : std::round(n[0] / 90);
  const int tour = static_cast<int>(std::fmod(quarts, 4));
  rotation_ = (tour + 4) % 4;
  Range();
}

void HpglFeuille::SansEchelle() {
  echelle_ = Echelle::Aucune;
  Range();
}

void HpglFeuille::Range() { affine_ = Calcule(); }

HpglFeuille::Affine HpglFeuille::Calcule() const {
  if (echelle_ == Echelle::Aucune) return {};
  if (echelle_ == Echelle::Facteur) {
    return {{p1_.x - sc_[0] * sc_[1], p1_.y - sc_[2] * sc_[3]}, {sc_[1], sc_[3]}};
  }
  const Vec2 place{NonNul(p2_.x - p1_.x), NonNul(p2_.y - p1_.y)};
  Vec2 k{place.x / (sc_[1] - sc_[0]), place.y / (sc_[3] - sc_[2])};
  Vec2 o{p1_.x, p1_.y};
  if (echelle_ == Echelle::Isotrope) {
    const double plus = std::min(std::fabs(k.x), std::fabs(k.y));
    const Vec2 iso{std::copysign(plus, k.x), std::copysign(plus, k.y)};
    o.x += (place.x - iso.x * (sc_[1] - sc_[0])) * sc_[4];
    o.y += (place.y - iso.y * (sc_[3] - sc_[2])) * sc_[5];
    k = iso;
  }
  return {{o.x - k.x * sc_[0], o.y - k.y * sc_[2]}, k};
}

Vec2 HpglFeuille::Place(Vec2 p) const {
  const double x = affine_.o.x + affine_.k.x * p.x;
  const double y = affine_.o.y + affine_.k.y * p.y;
  switch (rotation_) {
    case 1:
      return {feuille_.x - y, x};
    case 2:
      return {feuille_.x - x, feuille_.y - y};
    case 3:
      return {y, feuille_.y - x};
    default:
      return {x, y};
  }
}

Vec2 HpglFeuille::Pas(Vec2 d) const {
  const double x = affine_.k.x * d.x;
  const double y = affine_.k.y * d.y;
  switch (rotation_) {
    case 1:
      return {-y, x};
    case 2:
      return {-x, -y};
    case 3:
      return {y, -x};
    default:
      return {x, y};
  }
}

Vec2 HpglFeuille::Unites(Vec2 feuille) const {
  Vec2 p = feuille;
  switch (rotation_) {
    case 1:
      p = {feuille.y, feuille_.x - feuille.x};
      break;
    case 2:
      p = {feuille_.x - feuille.x, feuille_.y - feuille.y};
      break;
    case 3:
      p = {feuille_.y - feuille.y, feuille.x};
      break;
    default:
      break;
  }
  return {(p.x - affine_.o.x) / affine_.k.x, (p.y - affine_.o.y) / affine_.k.y};
}

double HpglFeuille::Grossissement() const { return std::max(std::fabs(affine_.k.x), std::fabs(affine_.k.y)); }

}  // namespace pathwerk::lecture::hpgl
