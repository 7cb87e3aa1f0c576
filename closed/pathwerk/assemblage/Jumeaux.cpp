// Paths that are drawn twice, but not to the last digit.
#include "closed/pathwerk/assemblage/Jumeaux.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <utility>

#include "base/Boite.h"
#include "base/Equipe.h"
#include "closed/pathwerk/assemblage/Crible.h"
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

Boite EnDouble(const base::Boite<float>& b) { return {double{b.x0}, double{b.x1}, double{b.y0}, double{b.y1}}; }

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

// The sides of boxes in cells, four of them to a key. Those of two paths that lie within `ecart` of each other
// differ by no more.
class Cellules {
 public:
  explicit Cellules(double ecart) : ecart_(ecart), parMm_(1 / (8 * ecart)) {}

  [[nodiscard]] std::uint64_t De(const Boite& b) const {
    std::uint64_t cle = 0;
    for (const double bord : b.Bords()) cle = Suite(cle, Case(bord));
    return cle;
  }

  // Calls `f` for the keys of all boxes whose sides differ by no more, its own among them, until it says true.
  template <class F>
  bool Autour(const Boite& b, F f) const {
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
      if (f(cle)) return true;
    }
    return false;
  }

 private:
  // Coordinates and cells are far within what 64 bits hold.
  [[nodiscard]] std::int64_t Case(double bord) const {
    const double quotient = bord * parMm_;
    const auto entier = static_cast<std::int64_t>(quotient);
    return entier - (static_cast<double>(entier) > quotient ? 1 : 0);
  }
  static std::uint64_t Suite(std::uint64_t cle, std::int64_t v) {
    return (cle ^ (static_cast<std::uint64_t>(v) + 0x9e3779b97f4a7c15ULL)) * 0xbf58476d1ce4e5b9ULL;
  }
  double ecart_;
  double parMm_;  // cells
};

// Paths by the keys of their boxes.
class Boites {
 public:
  // For that many paths at most.
  explicit Boites(std::size_t nombre) : cases_(std::bit_ceil(2 * nombre + 1)) {}

  void Ajoute(std::uint64_t cle, std::uint32_t rang) {
    Tete& tete = cases_[Place(cle)];
    suites_.push_back({rang, std::exchange(tete.premier, Numero32(suites_.size()))});
    tete.cle = cle;
  }

  // Calls `f` for the paths of that key, the last one first, until it says true.
  template <class F>
  bool Cherche(std::uint64_t cle, F f) const {
    for (std::uint32_t k = cases_[Place(cle)].premier; k != Rien; k = suites_[k].avant) {
      if (f(suites_[k].rang)) return true;
    }
    return false;
  }

 private:
  static constexpr std::uint32_t Rien = std::numeric_limits<std::uint32_t>::max();
  struct Tete {
    std::uint64_t cle = 0;
    std::uint32_t premier = Rien;  // of `suites_`; Rien: the place is free
  };
  struct Suite {
    std::uint32_t rang = 0;
    std::uint32_t avant = Rien;  // of `suites_`: the path that came into the same cell before
  };

  // Of the cell of that key, or the free one where it would stand. At least half of all are free.
  [[nodiscard]] std::size_t Place(std::uint64_t cle) const {
    const std::size_t masque = cases_.size() - 1;
    std::size_t place = (cle ^ cle >> 32) & masque;
    while (cases_[place].premier != Rien && cases_[place].cle != cle) place = (place + 1) & masque;
    return place;
  }
  std::vector<Tete> cases_;
  std::vector<Suite> suites_;
};

// What is to be done with each path: most lie along none, and no other path's box is like theirs. Sieves over the
// keys of all boxes tell, so that few come into the table and few are looked for in it.
class Tamis {
 public:
  Tamis(const CheminsAssembles& assembles, const Cellules& cellules, double ecart, const std::vector<char>& garde,
        unsigned fils)
      : roles_(assembles.chemins.size(), 0) {
    const std::size_t n = assembles.chemins.size();
    const auto parLots = [&](auto f) {
      base::FaitParLots(fils, n, [&](std::size_t debut, std::size_t fin) {
        for (std::size_t i = debut; i < fin; ++i) f(i, EnDouble(assembles.chemins[i].boite));
      });
    };
    CribleDeDoubles poses(n);
    parLots([&](std::size_t i, const Boite& b) {
      const bool miette =
          assembles.chemins[i].nature != Nature::Percage && std::hypot(b.x1 - b.x0, b.y1 - b.y0) <= 4 * ecart;
      if (garde[i] == 0 || miette) return;
      roles_[i] = Pose;
      poses.Note(cellules.De(b));
    });
    Crible cherches(n);
    parLots([&](std::size_t i, const Boite& b) {
      if (roles_[i] == 0) return;
      const std::uint64_t sienne = cellules.De(b);
      const auto occupee = [&](std::uint64_t cle) { return cle == sienne ? poses.Double(cle) : poses.Vu(cle); };
      if (!cellules.Autour(b, occupee)) return;
      roles_[i] = Pose | Cherche;
      cellules.Autour(b, [&](std::uint64_t cle) {
        cherches.Note(cle);
        return false;
      });
    });
    parLots([&](std::size_t i, const Boite& b) {
      if (roles_[i] == Pose && !cherches.Vu(cellules.De(b))) roles_[i] = 0;
    });
  }

  // Another path may have such a box, earlier or later.
  [[nodiscard]] bool EstCherche(std::size_t i) const { return (roles_[i] & Cherche) != 0; }
  // It may be found by one of those.
  [[nodiscard]] bool EstPose(std::size_t i) const { return (roles_[i] & Pose) != 0; }
  [[nodiscard]] std::size_t NbPoses() const {
    return roles_.size() - static_cast<std::size_t>(std::ranges::count(roles_, 0));
  }

 private:
  static constexpr std::uint8_t Pose = 1;
  static constexpr std::uint8_t Cherche = 2;
  std::vector<std::uint8_t> roles_;
};

}  // namespace

// Method: a path meets the earlier ones whose boxes have the same four sides; of two such paths every edge of each
// must be covered by what lies near the edges of the other. A pair that would take more than some looks for each
// edge, which only scribbles do, stays two paths.
long MarqueJumeaux(const CheminsAssembles& assembles, double ecart, std::vector<char>& garde, unsigned fils) {
  if (!(ecart > 1e-12) || !std::isfinite(ecart)) return 0;
  const double r = ecart * (1 + 1e-9);
  constexpr std::size_t Regards = 64;
  const Cellules cellules(r);
  const Tamis tamis(assembles, cellules, ecart, garde, fils);
  Boites boites(tamis.NbPoses());
  std::unordered_map<std::size_t, Aretes> arbres;
  const auto arbre = [&](std::size_t i) -> const Aretes& {
    return arbres.try_emplace(i, assembles.De(i)).first->second;
  };
  long jumeaux = 0;
  for (std::size_t i = 0; i < assembles.chemins.size(); ++i) {
    if (!tamis.EstPose(i)) continue;
    const CheminAssemble& chemin = assembles.chemins[i];
    const Boite b = EnDouble(chemin.boite);
    const auto jumeau = [&](std::uint32_t k) {
      if (assembles.chemins[k].nature != chemin.nature) return false;
      std::size_t travail = Regards * (chemin.nb + assembles.chemins[k].nb);
      return arbre(k).Longe(assembles.De(i), r, travail) && arbre(i).Longe(assembles.De(k), r, travail);
    };
    const auto trouve = [&](std::uint64_t cle) { return boites.Cherche(cle, jumeau); };
    if (tamis.EstCherche(i) && cellules.Autour(b, trouve)) {
      garde[i] = 0;
      ++jumeaux;
      arbres.erase(i);
    } else {
      boites.Ajoute(cellules.De(b), Numero32(i));
    }
  }
  return jumeaux;
}

}  // namespace pathwerk::assemblage
