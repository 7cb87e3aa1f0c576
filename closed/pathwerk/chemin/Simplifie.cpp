// Thinning by a sleeve, in one pass (the cone form of Imai and Iri's criterion, after J. Sklansky and V. Gonzalez,
// "Fast polygonal approximation of digitized curves", Pattern Recognition 12, 1980).
//
// From the last kept point A every point P further on is a disc of radius `tolerance`; the directions from A that
// hit all discs so far make a cone. A point may end the segment that starts at A if its own direction lies in the
// cone and it lies at least as far from A as everything in between: then all of these are within the tolerance of
// the segment itself, not only of its line.
//
//               . o  .          o  skipped points with their discs
//       A <  o       .  > P     the cone narrows from disc to disc
//               '  o '
//
// Points within the tolerance of A put no bound on the direction. Behind the last point that could end the segment
// at most Regard points are looked at, so the pass stays linear.
#include "closed/pathwerk/chemin/Simplifie.h"

#include <algorithm>
#include <cmath>

#include "base/Indices.h"

namespace pathwerk::chemin {

namespace {

constexpr std::size_t Regard = 48;
constexpr std::size_t Dense = 200000;      // points of a path that may have far too many
constexpr std::size_t ParCorde = 12;       // points that a chord stands for
constexpr double PartDesCordes = 1.0 / 8;  // of the tolerance

// The directions that hit all discs so far. Its bounds are not of unit length: so neither root nor quotient is
// needed to hold a disc against them, and one root where it narrows them.
struct Cone {
  bool ouvert = true;  // no bound yet
  Vec2 gauche;
  Vec2 droite;
  double lg = 0;  // lengths of both
  double ld = 0;

  // Where a place `v` lies.
  struct Vue {
    double a, b;    // left of the left bound, left of the right one: times their lengths
    double sa, sb;  // ahead along both
    bool devant;    // on the side to which the cone opens
    bool dedans;    // in the cone
    double eg, ed;  // radius of the disc, times the lengths
    // The whole disc lies to the left, or to the right, of a bound.
    [[nodiscard]] static bool AGauche(double x, double s, double e) { return x > e || (x > 0 && s <= 0); }
    [[nodiscard]] static bool ADroite(double x, double s, double e) { return x < -e || (x < 0 && s <= 0); }
  };
  [[nodiscard]] Vue Regarde(Vec2 v, double e) const {
    Vue r{};
    r.a = Vectoriel(gauche, v);
    r.b = Vectoriel(droite, v);
    r.sa = Scalaire(gauche, v);
    r.sb = Scalaire(droite, v);
    r.devant = r.sa * ld + r.sb * lg > 0;
    r.dedans = r.a <= 0 && r.b >= 0 && r.devant;
    r.eg = e * lg;
    r.ed = e * ld;
    return r;
  }
  // The first disc, of the radius `e` around `v` (d2 = |v|^2 > e^2).
  void Ouvre(Vec2 v, double d2, double e) {
    ouvert = false;
    const double t = std::sqrt(d2 - e * e);
    gauche = v * t + Gauche(v) * e;
    droite = v * t - Gauche(v) * e;
    lg = ld = d2;
  }
  // Narrows to the directions that hit that disc. False: none is left.
  bool Restreint(const Vue& r, Vec2 v, double d2, double e) {
    if (!r.devant || Vue::AGauche(r.a, r.sa, r.eg) || Vue::ADroite(r.b, r.sb, r.ed)) return false;
    const bool deGauche = Vue::ADroite(r.a, r.sa, r.eg);
    const bool deDroite = Vue::AGauche(r.b, r.sb, r.ed);
    if (!deGauche && !deDroite) return true;
    const double t = std::sqrt(d2 - e * e);
    if (deGauche) {
      gauche = v * t + Gauche(v) * e;
      lg = d2;
    }
    if (deDroite) {
      droite = v * t - Gauche(v) * e;
      ld = d2;
    }
    return true;
  }
};

// Last index that the segment from `a` may reach, not beyond `fin`. `p(i)`: place i, here and below.
template <class Places>
std::size_t Portee(Places p, std::size_t a, std::size_t fin, double e) {
  Cone cone;
  const Vec2 ici = p(a);
  std::size_t atteint = a + 1;
  double loin2 = 0;  // farthest so far, squared
  for (std::size_t j = a + 1; j <= fin && j <= atteint + Regard; ++j) {
    const Vec2 v = p(j) - ici;
    const double d2 = Scalaire(v, v);
    // The path turns back: its far end stays.
    const bool revient = d2 < loin2 && std::sqrt(d2) < std::sqrt(loin2) - 2 * e;
    if (cone.ouvert) {
      atteint = j;
      if (revient) break;
      if (d2 > e * e) cone.Ouvre(v, d2, e);
    } else {
      const Cone::Vue vue = cone.Regarde(v, e);
      if (d2 >= loin2 && vue.dedans) atteint = j;
      if (revient || (d2 > e * e && !cone.Restreint(vue, v, d2, e))) break;
    }
    loin2 = std::max(loin2, d2);
  }
  return atteint;
}

// Does the path turn so much at b that no line from a passes both near b and near c? The sine between them is then
// more than both discs together are wide as seen from a. Never a wrong yes.
bool Tourne(Vec2 a, Vec2 b, Vec2 c, double e) {
  const Vec2 v = b - a;
  const Vec2 w = c - a;
  const double sinus = Vectoriel(v, w);
  return sinus * sinus > 2 * e * e * (Scalaire(v, v) + Scalaire(w, w)) && Scalaire(v, w) > 0;
}

// From `a` on all points that are corners, as most of a small drawing are: they stay, and cost no cone. Returns the
// last one.
template <class Places>
std::size_t GardeCoins(Places p, std::size_t a, std::size_t fin, double e, std::vector<std::size_t>& reste) {
  if (a + 2 > fin) return a;
  Vec2 ici = p(a);
  Vec2 coin = p(a + 1);
  for (; a + 2 <= fin; ++a) {
    const Vec2 apres = p(a + 2);
    if (!Tourne(ici, coin, apres, e)) break;
    reste.push_back(a + 1);
    ici = coin;
    coin = apres;
  }
  return a;
}

template <class Places>
bool Couvre(Places p, std::size_t a, std::size_t b, double e) {
  const Vec2 d = p(b) - p(a);
  const double l2 = Scalaire(d, d);
  for (std::size_t i = a + 1; i < b; ++i) {
    const double t = l2 > 0 ? std::clamp(Scalaire(p(i) - p(a), d) / l2, 0.0, 1.0) : 0.0;
    if (Norme(p(a) + d * t - p(i)) > e) return false;
  }
  return true;
}

// Both ends of [debut, fin] stay; `reste` already ends with `debut`.
template <class Places>
void Passe(Places p, std::size_t debut, std::size_t fin, double e, std::vector<std::size_t>& reste) {
  const std::size_t premier = reste.size();
  for (std::size_t a = debut; a < fin;) {
    a = Portee(p, GardeCoins(p, a, fin, e, reste), fin, e);
    reste.push_back(a);
  }
  // The greedy walk can leave its last but one point beside the end.
  const std::size_t n = reste.size();
  if (n >= premier + 2 && Norme(p(reste[n - 2]) - p(fin)) <= e && Couvre(p, reste[n - 3], fin, e)) {
    reste.erase(reste.end() - 2);
  }
}

template <class Places>
std::vector<std::size_t> Parcours(Places p, std::size_t n, std::span<const std::size_t> gardes, double e) {
  std::vector<std::size_t> reste{0};
  std::size_t debut = 0;
  const auto jusque = [&](std::size_t i) {
    if (i > debut) Passe(p, debut, i, e, reste);
    debut = i;
  };
  for (const std::size_t i : gardes) jusque(i);
  jusque(n - 1);
  return reste;
}

template <class Places>
std::vector<std::size_t> Simplifie(Places p, std::size_t n, std::span<const std::size_t> gardes, double tolerance) {
  if (n < 3) return n == 2 ? std::vector<std::size_t>{0, 1} : std::vector<std::size_t>(n, 0);
  const double e = tolerance * (1 - 1e-9);
  std::vector<std::size_t> reste = Parcours(p, n, gardes, e);
  const bool ferme = p(0) == p(n - 1);
  if (!ferme || reste.size() >= 4) return reste;

  // A small ring that went flat: the point farthest from the seam stays, and the one farthest from that line.
  std::size_t f = 0;
  std::size_t g = 0;
  for (std::size_t i = 1; i < n; ++i) {
    if (Norme(p(i) - p(0)) > Norme(p(f) - p(0))) f = i;
  }
  if (f == 0) return {0, n - 1};
  const Vec2 axe = p(f) - p(0);
  double ecart = 0;
  for (std::size_t i = 1; i < n; ++i) {
    const double d = std::abs(Vectoriel(axe, p(i) - p(0)));
    if (d > ecart) {
      ecart = d;
      g = i;
    }
  }
  std::vector<std::size_t> force(gardes.begin(), gardes.end());
  force.push_back(f);
  if (g != 0) force.push_back(g);
  std::sort(force.begin(), force.end());
  return Parcours(p, n, force, e);
}

// Do all of these places lie within `e` of the segment from the first to the last?
bool SuitSaCorde(std::span<const PointTrace> points, double e) {
  const PointTrace& a = points.front();
  const auto vers = [&a](const PointTrace& p) {
    return Vec2{double{p.X} - double{a.X}, double{p.Y} - double{a.Y}};
  };
  const Vec2 d = vers(points.back());
  const double l2 = Scalaire(d, d);
  double ecart = 0;
  double avant = 0;
  double apres = l2;
  for (const PointTrace& p : points) {
    const Vec2 v = vers(p);
    const double s = Scalaire(d, v);
    ecart = std::max(ecart, std::abs(Vectoriel(d, v)));
    avant = std::min(avant, s);
    apres = std::max(apres, s);
  }
  return l2 > 0 && ecart * ecart <= e * e * l2 && avant >= 0 && apres <= l2;
}

// Of a path with far more points than the tolerance tells apart most can go before the sleeve looks at any: runs of
// a few that lie within `e` of their chord. A chord whose ends lie within the rest of the tolerance does so, too.
std::vector<std::size_t> Eclaircit(std::span<const PointTrace> points, std::span<const std::size_t> gardes,
                                   double e) {
  std::vector<std::size_t> r{0};
  std::size_t g = 0;
  for (std::size_t i = 0; i + 1 < points.size();) {
    while (g < gardes.size() && gardes[g] <= i) ++g;
    const std::size_t loin = std::min(i + ParCorde, g < gardes.size() ? gardes[g] : points.size() - 1);
    if (loin > i + 1 && SuitSaCorde(points.subspan(i, loin - i + 1), e)) {
      i = loin;
      r.push_back(i);
    } else {
      while (i < loin) r.push_back(++i);
    }
  }
  return r;
}

}  // namespace

std::vector<std::size_t> Simplifie(std::span<const Vec2> points, std::span<const std::uint8_t> garde,
                                   double tolerance) {
  std::vector<std::size_t> gardes;
  for (std::size_t i = 0; i < garde.size(); ++i) {
    if (garde[i] != 0) gardes.push_back(i);
  }
  return Simplifie([points](std::size_t i) { return points[i]; }, points.size(), gardes, tolerance);
}

std::vector<std::size_t> Simplifie(std::span<const PointTrace> points, Vec2 centre,
                                   std::span<const std::size_t> gardes, double tolerance) {
  const auto place = [points, centre](std::size_t i) {
    return Vec2{double{points[i].X}, double{points[i].Y}} - centre;
  };
  if (points.size() < Dense) return Simplifie(place, points.size(), gardes, tolerance);
  const double part = tolerance * PartDesCordes;
  const std::vector<std::size_t> rangs = Eclaircit(points, gardes, part);
  // Of a noisy path few go, and all of the tolerance is worth more.
  if (rangs.size() > points.size() / 2) return Simplifie(place, points.size(), gardes, tolerance);
  std::vector<std::size_t> rangsGardes;
  for (const std::size_t i : gardes) {
    rangsGardes.push_back(base::Indice(std::lower_bound(rangs.begin(), rangs.end(), i) - rangs.begin()));
  }
  std::vector<std::size_t> reste =
      Simplifie([&](std::size_t k) { return place(rangs[k]); }, rangs.size(), rangsGardes, tolerance - part);
  for (std::size_t& i : reste) i = rangs[i];
  return reste;
}

}  // namespace pathwerk::chemin
