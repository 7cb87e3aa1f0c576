// What one stadium takes from a raw piece, in closed form.
#include <algorithm>
#include <cmath>
#include <limits>

#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/decalage/ArcTaille.h"

namespace pathwerk::decalage {

namespace {

constexpr double Court = 1e-10;  // a stretch shorter than this (mm, or measure of angle) is none

// Interval of the line p + t u inside the disc around `c`.
bool CoupeDisque(Vec2 c, Vec2 u, double r, double& t0, double& t1) {
  const double h = Vectoriel(u, c);
  const double q = r * r - h * h;
  if (q <= 0) return false;
  const double t = Scalaire(u, c);
  const double demi = std::sqrt(q);
  t0 = std::min(t0, t - demi);
  t1 = std::max(t1, t + demi);
  return true;
}

// Narrows [t0, t1] to lo < a + t k < hi.
bool Borne(double a, double k, double lo, double hi, double& t0, double& t1) {
  if (std::abs(k) < 1e-300) return a > lo && a < hi;
  double e = (lo - a) / k;
  double f = (hi - a) / k;
  if (e > f) std::swap(e, f);
  t0 = std::max(t0, e);
  t1 = std::min(t1, f);
  return t0 < t1;
}

}  // namespace

void ArcTailleur::Retire(const LimiteLibre& b0, const LimiteLibre& b1, std::size_t j, bool toujours) {
  bool touche = false;
  for (const Intervalle& v : reste_) touche |= b0.t < v.a.t && b1.t > v.de.t;
  if (!touche) return;
  const double limite = r_ - bruit_;
  autre_.clear();
  for (const Intervalle& v : reste_) {
    const LimiteLibre& e = b0.t > v.de.t ? b0 : v.de;
    const LimiteLibre& f = b1.t < v.a.t ? b1 : v.a;
    if (e.t >= f.t || (!toujours && source_.Distance2(j, Milieu(e, f)) >= limite * limite)) {
      autre_.push_back(v);
      continue;
    }
    change_ = true;
    if (b0.t > v.de.t + Court) autre_.push_back({v.de, b0});
    if (b1.t < v.a.t - Court) autre_.push_back({b1, v.a});
  }
  if (change_) reste_.swap(autre_);
}

void ArcTailleur::RetireDeSegment(std::size_t j) {
  if (j == i_) return;
  const Vec2 a = source_.A(j) - origine_;
  const Vec2 b = source_.B(j) - origine_;
  // Wholly on one side, farther than r.
  const double ha = Vectoriel(u_, a);
  const double hb = Vectoriel(u_, b);
  if ((ha >= r_ && hb >= r_) || (ha <= -r_ && hb <= -r_)) {
    // The only touch that counts here is a parallel that coincides.
    if (j < i_ && std::abs(std::abs(ha) - r_) <= bruit_ && std::abs(ha - hb) <= bruit_) {
      const double l = Norme(b - a);
      RetireEgalSegment(j, (b - a) * (1 / l), l);
    }
    return;
  }
  // Wholly before or behind all that is left.
  const double ta = Scalaire(u_, a);
  const double tb = Scalaire(u_, b);
  if (std::max(ta, tb) + r_ < reste_.front().de.t || std::min(ta, tb) - r_ > reste_.back().a.t) return;
  double t0 = std::numeric_limits<double>::infinity();
  double t1 = -t0;
  CoupeDisque(a, u_, r_, t0, t1);
  CoupeDisque(b, u_, r_, t0, t1);
  const Vec2 w = b - a;
  const double l = Norme(w);
  const Vec2 v = w * (1 / l);
  double s0 = -std::numeric_limits<double>::infinity();
  double s1 = -s0;
  if (Borne(-Vectoriel(v, a), Vectoriel(v, u_), -r_, r_, s0, s1) &&
      Borne(-Scalaire(v, a), Scalaire(v, u_), 0, l, s0, s1)) {
    t0 = std::min(t0, s0);
    t1 = std::max(t1, s1);
  }
  const auto cause = Numero32(j);
  if (t0 < t1) Retire({t0, u_, cause}, {t1, u_, cause}, j, false);
  if (j < i_ && !reste_.empty() && std::abs(std::abs(ha) - r_) <= bruit_ && std::abs(ha - hb) <= bruit_) {
    RetireEgalSegment(j, v, l);
  }
}

void ArcTailleur::RetireEgalSegment(std::size_t j, Vec2 v, double l) {
  if (Scalaire(v, u_) < 0.5) return;
  // The source lies r beside the line, on the side that makes its own parallel fall on it.
  const Vec2 a = source_.A(j) - origine_;
  if (Vectoriel(u_, a) * d_ > 0) return;
  const double t = Scalaire(u_, a);
  const auto cause = Numero32(j);
  Retire({t, u_, cause}, {t + l, u_, cause}, j, true);
}

void ArcTailleur::RetireDArc(std::size_t j) {
  if (j == i_ || j == source_.Precedent(i_)) return;
  const Vec2 a = source_.A(j) - origine_;
  const Vec2 b = source_.B(j) - origine_;
  const Vec2 w = b - a;
  const double l = Norme(w);
  const Vec2 v = w * (1 / l);
  const double a0 = -Scalaire(v, a);  // foot of the centre along the segment
  double h = -Vectoriel(v, a);        // height of the centre over the segment, left positive
  const double foot = std::clamp(a0, 0.0, l);
  const Vec2 proche = a + v * foot;
  const double distance = Norme(proche);
  if (distance >= 2 * r_ - bruit_) return;
  const auto cause = Numero32(j);
  Vec2 entre;
  Vec2 sort;
  const double cote = h >= 0 ? 1 : -1;
  const Vec2 n = Gauche(v) * cote;
  if (distance <= 10 * bruit_) {
    // The centre lies on the segment: one half of the circle is buried, or all of it.
    if (j < i_ && foot <= 10 * bruit_) RetireEgalArc(j);
    if (reste_.empty()) return;
    if (foot > 10 * bruit_ && foot < l - 10 * bruit_) {
      Retire(LimiteLibre{-1, u_, cause}, LimiteLibre{5, u_, cause}, j, true);
      return;
    }
    const Vec2 g = Gauche(v);
    entre = foot <= 10 * bruit_ ? g * -1.0 : g;
    sort = entre * -1.0;
  } else {
    h = std::abs(h);
    const double sinus = std::clamp(1 - h / r_, -1.0, 1.0);
    const double cosinus = h < 2 * r_ ? std::sqrt(std::max(0.0, h * (2 * r_ - h))) / r_ : 0.0;
    // Seen along v with the centre above, the circle turns counter-clockwise into the stadium on the lower side of
    // the line and leaves it on the upper one.
    const auto croise = [&](double le, double signe) {
      if (le > 0 && le < l) return v * (signe * cosinus) + n * sinus;
      const Vec2 p = a + v * std::clamp(le, 0.0, l);
      const double q = Norme(p);
      const double c = std::min(q / (2 * r_), 1.0);
      const double s = std::sqrt(std::max(0.0, 1 - c * c)) * signe * cote;
      const Vec2 e = p * (1 / q);
      return e * c + Gauche(e) * s;
    };
    entre = croise(a0 - r_ * cosinus, -1.0);
    sort = croise(a0 + r_ * cosinus, 1.0);
    if (cote < 0) std::swap(entre, sort);
  }
  if (sens_ < 0) std::swap(entre, sort);
  const LimiteLibre e{Mesure(entre), entre, cause};
  const LimiteLibre s{Mesure(sort), sort, cause};
  if (e.t <= s.t) {
    Retire(e, s, j, false);
    return;
  }
  if (s.t > 0) Retire(LimiteLibre{-1, u_, cause}, s, j, false);
  if (!reste_.empty() && e.t < fin_) Retire(e, LimiteLibre{5, u_, cause}, j, false);
}

// The arc around the start of segment j, where that has one and shares this centre.
void ArcTailleur::RetireEgalArc(std::size_t j) {
  const Vec2 p = source_.A(j);
  const Vec2 u = Unite(p - source_.A(source_.Precedent(j)));
  const Vec2 v = Unite(source_.B(j) - p);
  const double c = Vectoriel(u, v);
  const bool retour = Scalaire(u, v) < 0 && std::abs(c) < 1e-9;
  if (!retour && c * d_ >= 0) return;
  const double cote = d_ > 0 ? 1 : -1;
  const Vec2 e = Gauche(u) * cote;
  const Vec2 s = Gauche(v) * cote;
  const auto cause = Numero32(j);
  const LimiteLibre be{Mesure(e), e, cause};
  const LimiteLibre bs{Mesure(s), s, cause};
  if (be.t <= bs.t) {
    Retire(be, bs, j, true);
    return;
  }
  if (bs.t > 0) Retire(LimiteLibre{-1, u_, cause}, bs, j, true);
  if (!reste_.empty() && be.t < fin_) Retire(be, LimiteLibre{5, u_, cause}, j, true);
}

}  // namespace pathwerk::decalage
