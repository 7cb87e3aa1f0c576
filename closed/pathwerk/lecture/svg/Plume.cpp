#include "closed/pathwerk/lecture/svg/Plume.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "closed/pathwerk/commun/Courbes.h"

namespace pathwerk::lecture::svg {

namespace {

constexpr double CordesMax = 8192;

// Points nearer than this are one, mm: far below what any machine tells apart, far above what rounding leaves.
constexpr double MemeLieu = 1e-9;

bool Memes(Vec2 a, Vec2 b) { return std::fabs(a.x - b.x) <= MemeLieu && std::fabs(a.y - b.y) <= MemeLieu; }

double Angle(Vec2 v) { return std::atan2(v.y, v.x); }

}  // namespace

void Plume::Compte() { plus_ = std::max(plus_, faits_ + courant_.points.size()); }

void Plume::Pose(Vec2 enMm) {
  if (courant_.points.empty() || !Memes(courant_.points.back(), enMm)) courant_.points.push_back(enMm);
  Compte();
}

// A line behind a closed subpath goes on from its start.
void Plume::Entame() {
  if (courant_.points.empty()) Pose(m_.Place(ici_));
  courant_.bouge = true;
}

void Plume::Va(Vec2 p) {
  FinitSousChemin();
  ici_ = depart_ = p;
  Pose(m_.Place(p));
}

void Plume::Ligne(Vec2 p) {
  Entame();
  ici_ = p;
  Pose(m_.Place(p));
}

void Plume::Cubique(Vec2 p1, Vec2 p2, Vec2 p) {
  Entame();
  ici_ = p;
  std::vector<Vec2>& points = courant_.points;
  const std::size_t avant = points.size();
  AjouteBezier(points, m_.Place(p1), m_.Place(p2), m_.Place(p), fleche_);
  points.erase(std::unique(points.begin() + static_cast<std::ptrdiff_t>(avant) - 1, points.end(), Memes),
               points.end());
  Compte();
}

// A quadratic curve is the cubic whose handles lie two thirds of the way to the quadratic's one.
void Plume::Quadratique(Vec2 q, Vec2 p) {
  const Vec2 a = ici_;
  Cubique({a.x + (q.x - a.x) * 2 / 3, a.y + (q.y - a.y) * 2 / 3},
          {p.x + (q.x - p.x) * 2 / 3, p.y + (q.y - p.y) * 2 / 3}, p);
}

// From the ends to the centre as the appendix on implementation of SVG 1.1 has it (F.6.5), in the frame of the
// ellipse where it is a circle of radius 1: the centre lies on the perpendicular over the middle of both ends, on
// the side that the flags choose. Radii too small for the ends grow until they reach (F.6.6).
void Plume::Arc(double rx, double ry, double degres, bool grand, bool positif, Vec2 p) {
  rx = std::fabs(rx);
  ry = std::fabs(ry);
  const Vec2 a = ici_;
  if (a == p) {
    courant_.bouge = true;
    return;
  }
  if (!(rx > 0 && ry > 0 && std::isfinite(rx) && std::isfinite(ry) && std::isfinite(degres))) return Ligne(p);
  const double w = std::fmod(degres, 360) * (std::numbers::pi / 180);
  const Vec2 u{std::cos(w), std::sin(w)};
  const Vec2 v{-u.y, u.x};
  const Vec2 demi{(a.x - p.x) / 2, (a.y - p.y) / 2};
  Vec2 d{(demi.x * u.x + demi.y * u.y) / rx, (demi.x * v.x + demi.y * v.y) / ry};  // from the middle to the start
  const double long2 = d.x * d.x + d.y * d.y;
  if (!(long2 > 0)) return Ligne(p);  // so large an ellipse is straight here
  if (long2 > 1) {
    const double agrandi = std::sqrt(long2);
    rx *= agrandi;
    ry *= agrandi;
    d = {d.x / agrandi, d.y / agrandi};
  }
  const double reste = long2 >= 1 ? 0 : std::sqrt((1 - long2) / long2) * (grand == positif ? -1 : 1);
  const Vec2 c{reste * d.y, -reste * d.x};  // the centre from the middle, in the frame of the circle
  const double debut = Angle({d.x - c.x, d.y - c.y});
  double balayage = Angle({-d.x - c.x, -d.y - c.y}) - debut;
  if (positif && balayage < 0) balayage += 2 * std::numbers::pi;
  if (!positif && balayage > 0) balayage -= 2 * std::numbers::pi;
  const Vec2 centre{(a.x + p.x) / 2 + c.x * rx * u.x + c.y * ry * v.x,
                    (a.y + p.y) / 2 + c.x * rx * u.y + c.y * ry * v.y};
  Entame();
  Balaye(m_.Place(centre), m_.Direction({rx * u.x, rx * u.y}), m_.Direction({ry * v.x, ry * v.y}), debut, balayage);
  ici_ = p;
  Pose(m_.Place(p));
}

void Plume::Ellipse(Vec2 centre, double rx, double ry) {
  Va({centre.x + rx, centre.y});
  Entame();
  Balaye(m_.Place(centre), m_.Direction({rx, 0}), m_.Direction({0, ry}), 0, 2 * std::numbers::pi);
  Ferme();
}

// Chords of an ellipse at equal steps of its parameter, both ends left out. An ellipse is the image of the circle
// of radius 1, whose chords over the step h lie 1 - cos(h/2) from it; no length grows by more than the larger half
// axis R of the image, so that R (1 - cos(h/2)) bounds the distance.
void Plume::Balaye(Vec2 centre, Vec2 u, Vec2 v, double debut, double balayage) {
  const double r = Matrice{u.x, u.y, v.x, v.y, 0, 0}.Agrandissement();
  const double part = fleche_ / r;  // infinite for r = 0
  double pas = std::numbers::pi / 4;
  if (part < 1) pas = std::min(pas, 4 * std::asin(std::sqrt(part / 2)));
  const double ideal = std::ceil(std::fabs(balayage) / pas - 1e-9);
  const int n = static_cast<int>(ideal >= 1 ? std::min(ideal, CordesMax) : 1);  // 1 for what is no number, too
  for (int i = 1; i < n; ++i) {
    const double t = debut + balayage * i / n;
    Pose({centre.x + u.x * std::cos(t) + v.x * std::sin(t), centre.y + u.y * std::cos(t) + v.y * std::sin(t)});
  }
}

void Plume::Ferme() {
  if (courant_.points.empty()) return;
  courant_.bouge = true;
  courant_.ferme = true;
  const Vec2 depart = depart_;
  FinitSousChemin();
  ici_ = depart;
}

void Plume::FinitSousChemin() {
  std::vector<Vec2>& p = courant_.points;
  if (courant_.ferme) {
    while (p.size() > 1 && Memes(p.front(), p.back())) p.pop_back();
  }
  if (!p.empty() && courant_.bouge) {
    faits_ += p.size() + 4;  // a subpath costs as much as some points
    if (p.capacity() > p.size() + p.size() / 4 + 1) p.shrink_to_fit();
    finis_.push_back(std::move(courant_));
  }
  courant_ = {};
  Compte();
}

std::vector<SousChemin> Plume::Finit() {
  FinitSousChemin();
  return std::exchange(finis_, {});
}

}  // namespace pathwerk::lecture::svg
