// Paths that are drawn twice, but not to the last digit.
#include "closed/pathwerk/assemblage/Jumeaux.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::assemblage {

namespace {

struct Boite {
  double x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  void Etend(const Boite& b) {
    x0 = std::min(x0, b.x0);
    x1 = std::max(x1, b.x1);
    y0 = std::min(y0, b.y0);
    y1 = std::max(y1, b.y1);
  }
  [[nodiscard]] bool Rencontre(const Boite& b) const {
    return x0 <= b.x1 && b.x0 <= x1 && y0 <= b.y1 && b.y0 <= y1;
  }
  [[nodiscard]] std::array<double, 4> Bords() const { return {x0, x1, y0, y1}; }
};

Vec2 EnDouble(PointF p) { return {double{p.x}, double{p.y}}; }

Boite BoiteDe(PointF a, PointF b) {
  const Vec2 p = EnDouble(a);
  const Vec2 q = EnDouble(b);
  return {std::min(p.x, q.x), std::max(p.x, q.x), std::min(p.y, q.y), std::max(p.y, q.y)};
}

Boite BoiteDe(std::span<const PointF> points) {
  Boite b = BoiteDe(points[0], points[0]);
  for (const PointF p : points) b.Etend(BoiteDe(p, p));
  return b;
}

// Share of a segment, from 0 to 1 of its length; empty when it begins behind its end.
struct Part {
  double de = 1;
  double a = 0;
  void Joint(double x, double y) {
    if (x > y) return;
    de = std::min(de, std::max(x, 0.0));
    a = std::max(a, std::min(y, 1.0));
  }
};

// The share of the segment p-q within `r` of the segment u-v. What lies within r of a segment is convex: two discs
// and the band between them, so the share is one piece, from the first entry into any of the three to the last
// exit.
Part PartProche(Vec2 p, Vec2 q, Vec2 u, Vec2 v, double r) {
  Part part;
  const Vec2 d{q.x - p.x, q.y - p.y};
  const double dd = d.x * d.x + d.y * d.y;
  for (const Vec2 c : {u, v}) {
    const Vec2 w{p.x - c.x, p.y - c.y};
    const double b = w.x * d.x + w.y * d.y;
    const double reste = w.x * w.x + w.y * w.y - r * r;
    const double discriminant = b * b - dd * reste;
    if (dd == 0) {
      if (reste <= 0) part.Joint(0, 1);
    } else if (discriminant >= 0) {
      part.Joint((-b - std::sqrt(discriminant)) / dd, (-b + std::sqrt(discriminant)) / dd);
    }
  }
  const double longueur = std::hypot(v.x - u.x, v.y - u.y);
  if (longueur == 0) return part;
  const Vec2 e{(v.x - u.x) / longueur, (v.y - u.y) / longueur};
  double de = 0;
  double a = 1;
  // Where the linear function that goes from f to g along p-q stays within [bas, haut].
  const auto limite = [&](double f, double g, double bas, double haut) {
    if (f == g) {
      if (f < bas || f > haut) a = -1;
      return;
    }
    const double x = (bas - f) / (g - f);
    const double y = (haut - f) / (g - f);
    de = std::max(de, std::min(x, y));
    a = std::min(a, std::max(x, y));
  };
  const Vec2 up{p.x - u.x, p.y - u.y};
  const Vec2 uq{q.x - u.x, q.y - u.y};
  limite(up.x * e.x + up.y * e.y, uq.x * e.x + uq.y * e.y, 0, longueur);
  limite(up.y * e.x - up.x * e.y, uq.y * e.x - uq.x * e.y, -r, r);
  part.Joint(de, a);
  return part;
}

// The edges of one path under levels of boxes, eight to a box.
class Aretes {
 public:
  explicit Aretes(std::span<const PointF> points) : points_(points) {
    std::vector<Boite> etage;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) etage.push_back(BoiteDe(points[i], points[i + 1]));
    etages_.push_back(std::move(etage));
    while (etages_.back().size() > Paquet) {
      const std::vector<Boite>& bas = etages_.back();
      std::vector<Boite> haut;
      for (std::size_t i = 0; i < bas.size(); ++i) {
        if (i % Paquet == 0) haut.push_back(bas[i]);
        haut.back().Etend(bas[i]);
      }
      etages_.push_back(std::move(haut));
    }
  }

  // Does every place of the path `autre` lie within `r` of these edges? `travail` counts the edges looked at; when
  // it is used up the answer is no.
  [[nodiscard]] bool Longe(std::span<const PointF> autre, double r, std::size_t& travail) const {
    std::vector<Part> parts;
    for (std::size_t i = 0; i + 1 < autre.size(); ++i) {
      parts.clear();
      Boite zone = BoiteDe(autre[i], autre[i + 1]);
      zone = {zone.x0 - r, zone.x1 + r, zone.y0 - r, zone.y1 + r};
      const auto arete = [&](std::size_t k) {
        const Part part = PartProche(EnDouble(autre[i]), EnDouble(autre[i + 1]), EnDouble(points_[k]),
                                     EnDouble(points_[k + 1]), r);
        if (part.de <= part.a) parts.push_back(part);
        return part.de <= 0 && part.a >= 1;
      };
      bool couverte = false;
      for (std::size_t k = 0; k < etages_.back().size() && !couverte; ++k) {
        couverte = Cherche(zone, etages_.size() - 1, k, travail, arete);
      }
      if (travail == 0 || (!couverte && !Couvrent(parts))) return false;
    }
    return true;
  }

 private:
  static constexpr std::size_t Paquet = 8;

  // Calls `f` for the edges under a box that come into the zone, until it says true.
  template <class F>
  bool Cherche(const Boite& zone, std::size_t etage, std::size_t k, std::size_t& travail, F& f) const {
    if (travail == 0 || !etages_[etage][k].Rencontre(zone)) return false;
    if (etage == 0) {
      --travail;
      return f(k);
    }
    const std::size_t fin = std::min((k + 1) * Paquet, etages_[etage - 1].size());
    for (std::size_t i = k * Paquet; i < fin; ++i) {
      if (Cherche(zone, etage - 1, i, travail, f)) return true;
    }
    return false;
  }

  // Together the whole segment?
  static bool Couvrent(std::vector<Part>& parts) {
    constexpr double Rien = 1e-9;  // of the length: where two parts meet
    std::sort(parts.begin(), parts.end(), [](const Part& x, const Part& y) { return x.de < y.de; });
    double atteint = 0;
    for (const Part& p : parts) {
      if (p.de > atteint + Rien) return false;
      atteint = std::max(atteint, p.a);
    }
    return atteint >= 1 - Rien;
  }

  std::span<const PointF> points_;
  std::vector<std::vector<Boite>> etages_;
};

// Paths by the four sides of their boxes: those of two paths that lie within `ecart` of each other differ by no
// more.
class Boites {
 public:
  // For that many paths at most.
  Boites(double ecart, std::size_t nombre)
      : ecart_(ecart), maille_(8 * ecart), cases_(std::bit_ceil(2 * nombre + 1)), suivants_(nombre, Rien) {}

  void Ajoute(const Boite& b, std::uint32_t rang) {
    std::uint64_t cle = 0;
    for (const double bord : b.Bords()) cle = Suite(cle, Case(bord));
    Tete& tete = cases_[Place(cle)];
    suivants_[rang] = std::exchange(tete.premier, rang);
    tete.cle = cle;
  }

  // Calls `f` for the paths that may have such a box, until it says true.
  template <class F>
  bool Cherche(const Boite& b, F f) const {
    const auto bords = b.Bords();
    std::array<std::array<std::int64_t, 2>, 4> choisies{};
    unsigned doubles = 0;  // a side away from the edge of its cell has one choice
    for (unsigned k = 0; k < 4; ++k) {
      choisies[k] = {Case(bords[k] - ecart_), Case(bords[k] + ecart_)};
      if (choisies[k][0] != choisies[k][1]) doubles |= 1U << k;
    }
    for (unsigned choix = 0; choix < 16; ++choix) {
      if ((choix & ~doubles) != 0) continue;
      std::uint64_t cle = 0;
      for (unsigned k = 0; k < 4; ++k) cle = Suite(cle, choisies[k][choix >> k & 1U]);
      for (std::uint32_t rang = cases_[Place(cle)].premier; rang != Rien; rang = suivants_[rang]) {
        if (f(rang)) return true;
      }
    }
    return false;
  }

 private:
  static constexpr std::uint32_t Rien = std::numeric_limits<std::uint32_t>::max();
  struct Tete {
    std::uint64_t cle = 0;
    std::uint32_t premier = Rien;  // path that came last into this cell; Rien: the place is free
  };

  // Coordinates and cells are far within what 64 bits hold.
  [[nodiscard]] std::int64_t Case(double bord) const {
    const double quotient = bord / maille_;
    const auto entier = static_cast<std::int64_t>(quotient);
    return entier - (static_cast<double>(entier) > quotient ? 1 : 0);
  }
  // Of the cell of that key, or the free one where it would stand. At least half of all are free.
  [[nodiscard]] std::size_t Place(std::uint64_t cle) const {
    const std::size_t masque = cases_.size() - 1;
    std::size_t place = (cle ^ cle >> 32) & masque;
    while (cases_[place].premier != Rien && cases_[place].cle != cle) place = (place + 1) & masque;
    return place;
  }
  static std::uint64_t Suite(std::uint64_t cle, std::int64_t v) {
    return (cle ^ (static_cast<std::uint64_t>(v) + 0x9e3779b97f4a7c15ULL)) * 0xbf58476d1ce4e5b9ULL;
  }
  double ecart_;
  double maille_;
  std::vector<Tete> cases_;
  std::vector<std::uint32_t> suivants_;  // by paths: the one that came into the same cell before
};

}  // namespace

// Method: a path meets the earlier ones whose boxes have the same four sides; of two such paths every edge of each
// must be covered by what lies near the edges of the other. A pair that would take more than some looks for each
// edge, which only scribbles do, stays two paths.
long MarqueJumeaux(const CheminsAssembles& assembles, double ecart, std::vector<char>& garde) {
  if (!(ecart > 1e-12) || !std::isfinite(ecart)) return 0;
  const double r = ecart * (1 + 1e-9);
  constexpr std::size_t Regards = 64;
  std::vector<std::unique_ptr<Aretes>> arbres(assembles.chemins.size());
  const auto arbre = [&](std::size_t i) -> const Aretes& {
    if (!arbres[i]) arbres[i] = std::make_unique<Aretes>(assembles.De(i));
    return *arbres[i];
  };
  Boites boites(r, assembles.chemins.size());
  long jumeaux = 0;
  for (std::size_t i = 0; i < assembles.chemins.size(); ++i) {
    if (garde[i] == 0) continue;
    const Boite b = BoiteDe(assembles.De(i));
    const Nature nature = assembles.chemins[i].nature;
    if (nature != Nature::Percage && std::hypot(b.x1 - b.x0, b.y1 - b.y0) <= 4 * ecart) continue;
    const auto jumeau = [&](std::uint32_t k) {
      if (assembles.chemins[k].nature != nature) return false;
      std::size_t travail = Regards * (assembles.chemins[i].nb + assembles.chemins[k].nb);
      return arbre(k).Longe(assembles.De(i), r, travail) && arbre(i).Longe(assembles.De(k), r, travail);
    };
    if (boites.Cherche(b, jumeau)) {
      garde[i] = 0;
      ++jumeaux;
    } else {
      boites.Ajoute(b, Numero32(i));
    }
    if (garde[i] == 0) arbres[i].reset();
  }
  return jumeaux;
}

}  // namespace pathwerk::assemblage
