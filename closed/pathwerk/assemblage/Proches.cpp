// Where many ends meet, and where ends almost meet.
#include "closed/pathwerk/assemblage/Proches.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <queue>

#include "base/Vecteur.h"
#include "closed/pathwerk/assemblage/Chaines.h"
#include "closed/pathwerk/assemblage/Tri.h"
#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::assemblage {

namespace {

// A node with few ends: all pairs, the straightest first.
void RelieTout(Chaines& chaines, std::span<const Bout> bouts) {
  struct Paire {
    double pli;
    Bout e, f;
  };
  std::vector<Paire> paires;
  for (std::size_t i = 0; i < bouts.size(); ++i) {
    for (std::size_t j = i + 1; j < bouts.size(); ++j) {
      paires.push_back({chaines.Pli(bouts[i], bouts[j]), bouts[i], bouts[j]});
    }
  }
  std::stable_sort(paires.begin(), paires.end(), [](const Paire& a, const Paire& b) { return a.pli < b.pli; });
  for (const Paire& p : paires) {
    if (chaines.Permis(p.e, p.f)) chaines.Relie(p.e, p.f);
  }
}

// A node where very many ends meet (the hub of a star). Directions are folded onto half a turn: two ends that go on
// straight fall side by side there, one from each half. Neighbours of different halves are joined, the straightest
// first, and what stood on both sides of them become neighbours.
class GrandNoeud {
 public:
  GrandNoeud(Chaines& chaines, std::span<const Bout> bouts) : chaines_(chaines) {
    for (const Bout e : bouts) {
      const Vec2 u = chaines.Direction(e);
      const bool haut = u.y > 0 || (u.y == 0 && u.x > 0);
      rayons_.push_back({haut ? std::atan2(u.y, u.x) : std::atan2(-u.y, -u.x), haut, e, 0, 0});
    }
    std::sort(rayons_.begin(), rayons_.end(),
              [](const Rayon& a, const Rayon& b) { return a.angle != b.angle ? a.angle < b.angle : a.e < b.e; });
    const std::size_t n = rayons_.size();
    for (std::size_t i = 0; i < n; ++i) {
      rayons_[i].avant = base::Precedent(i, n);
      rayons_[i].apres = base::Suivant(i, n);
    }
  }

  void Relie() {
    for (std::size_t i = 0; i < rayons_.size(); ++i) Propose(i);
    while (!paires_.empty()) {
      const Paire p = paires_.top();
      paires_.pop();
      if (rayons_[p.i].apres != p.j || !chaines_.Permis(rayons_[p.i].e, rayons_[p.j].e)) continue;
      chaines_.Relie(rayons_[p.i].e, rayons_[p.j].e);
      const std::size_t a = rayons_[p.i].avant;
      const std::size_t b = rayons_[p.j].apres;
      rayons_[p.i].apres = rayons_[p.j].apres = p.i;  // out of the ring: never a pair again
      rayons_[a].apres = b;
      rayons_[b].avant = a;
      Propose(a);
    }
    // All that is left comes from one side.
    std::vector<Bout> restes;
    for (const Rayon& r : rayons_) {
      if (chaines_.Lien(r.e) == BoutLibre) restes.push_back(r.e);
    }
    for (std::size_t i = 0; i + 1 < restes.size(); ++i) {
      if (chaines_.Permis(restes[i], restes[i + 1])) chaines_.Relie(restes[i], restes[i + 1]);
    }
  }

 private:
  struct Rayon {
    double angle;  // 0 to pi
    bool haut;
    Bout e;
    std::size_t avant, apres;
  };
  struct Paire {
    double ecart;
    std::size_t i, j;
    bool operator<(const Paire& p) const { return ecart != p.ecart ? ecart > p.ecart : i > p.i; }  // least on top
  };

  // Half a turn on, a ray of one half is one of the other.
  void Propose(std::size_t i) {
    const std::size_t j = rayons_[i].apres;
    if (i == j) return;
    const bool tour = j < i;
    if ((rayons_[i].haut != rayons_[j].haut) == tour) return;
    paires_.push({rayons_[j].angle - rayons_[i].angle + (tour ? std::numbers::pi : 0), i, j});
  }

  Chaines& chaines_;
  std::vector<Rayon> rayons_;
  std::priority_queue<Paire> paires_;
};

double Distance(const Chaines& chaines, Bout e, Bout f) {
  const Vec2 a = chaines.PlaceFine(e);
  const Vec2 b = chaines.PlaceFine(f);
  return std::hypot(a.x - b.x, a.y - b.y);
}

// Free ends sorted by the cells of a square grid, column by column.
class Grille {
 public:
  Grille(const Chaines& chaines, std::span<const Bout> bouts, double maille) : chaines_(chaines), maille_(maille) {
    double etendue = 0;
    if (!bouts.empty()) origine_ = chaines.PlaceFine(bouts[0]);
    for (const Bout e : bouts) {
      const Vec2 p = chaines.PlaceFine(e);
      origine_ = {std::min(origine_.x, p.x), std::min(origine_.y, p.y)};
    }
    for (const Bout e : bouts) {
      const Vec2 p = chaines.PlaceFine(e);
      etendue = std::max({etendue, p.x - origine_.x, p.y - origine_.y});
    }
    maille_ = std::max(maille_, etendue / 2e9);  // columns and rows count in 32 bits
    cases_.reserve(bouts.size());
    for (const Bout e : bouts) cases_.push_back({Cle(chaines.PlaceFine(e)), e});
    TrieParCle(cases_);
  }

  // Calls `f` with the ends of each cell.
  template <class F>
  void ParCellule(F&& f) const {
    std::vector<Bout> groupe;
    for (std::size_t a = 0; a < cases_.size();) {
      groupe.clear();
      std::size_t b = a;
      for (; b < cases_.size() && cases_[b].cle == cases_[a].cle; ++b) groupe.push_back(cases_[b].rang);
      f(groupe);
      a = b;
    }
  }

  // Calls `f` once for each two ends in the same or in neighbouring cells, with their distance, when that is no
  // more than `portee`. Each end looks forward: at what follows in its column, and at three cells of the next one.
  template <class F>
  void Paires(double portee, F&& f) const {
    std::size_t voisine = 0;
    for (std::size_t i = 0; i < cases_.size(); ++i) {
      const auto essaie = [&](std::size_t k) {
        const double d = Distance(chaines_, cases_[i].rang, cases_[k].rang);
        if (d <= portee) f(cases_[i].rang, cases_[k].rang, d);
      };
      const std::uint64_t cle = cases_[i].cle;
      for (std::size_t k = i + 1; k < cases_.size() && cases_[k].cle <= cle + 1; ++k) essaie(k);
      const std::uint64_t colonne = cle + (std::uint64_t{1} << 32);
      while (voisine < cases_.size() && cases_[voisine].cle < colonne - 1) ++voisine;
      for (std::size_t k = voisine; k < cases_.size() && cases_[k].cle <= colonne + 1; ++k) essaie(k);
    }
  }

 private:
  // Rows count from 1, so that a row below and above never runs into another column.
  [[nodiscard]] std::uint64_t Cle(Vec2 p) const {
    const auto x = static_cast<std::uint64_t>((p.x - origine_.x) / maille_);
    const auto y = static_cast<std::uint64_t>((p.y - origine_.y) / maille_);
    return (x << 32) + y + 1;
  }
  const Chaines& chaines_;
  double maille_;
  Vec2 origine_;
  std::vector<EntreeTri> cases_;
};

void GardeLibres(const Chaines& chaines, std::vector<Bout>& bouts) {
  std::erase_if(bouts, [&](Bout e) { return chaines.Lien(e) != BoutLibre; });
}

// Ends nearer than this share of the tolerance count as one place: there the straightest goes first.
constexpr int Tours = 10;  // 2^-10

// All pairs within reach, the best first. Meant for ends that have few neighbours each.
void RelieParDistance(Chaines& chaines, std::span<const Bout> bouts, double portee, double unePlace) {
  struct Paire {
    double distance, pli;
    Bout e, f;
  };
  std::vector<Paire> paires;
  Grille(chaines, bouts, portee).Paires(portee, [&](Bout e, Bout f, double d) {
    if (chaines.Permis(e, f)) paires.push_back({d <= unePlace ? 0 : d, chaines.Pli(e, f), e, f});
  });
  std::sort(paires.begin(), paires.end(), [](const Paire& a, const Paire& b) {
    if (a.distance != b.distance) return a.distance < b.distance;
    if (a.pli != b.pli) return a.pli < b.pli;
    return std::minmax(a.e, a.f) < std::minmax(b.e, b.f);
  });
  for (const Paire& p : paires) {
    if (chaines.Permis(p.e, p.f)) chaines.Relie(p.e, p.f);
  }
}

}  // namespace

void RelieNoeud(Chaines& chaines, std::span<const Bout> bouts) {
  if (bouts.size() <= 24) {
    RelieTout(chaines, bouts);
  } else {
    GrandNoeud(chaines, bouts).Relie();
  }
}

// Where ends lie thick (a drawing smaller than the tolerance was meant for), listing all pairs would be quadratic.
// There the reach grows by doubling from a thousandth of the tolerance: what lies together in a cell has been
// joined one round before, so no cell ever holds more than a few free ends.
void RelieBoutsProches(const CheminsAssembles& assembles, Chaines& chaines, double tolerance) {
  std::vector<Bout> libres;
  for (std::size_t i = 0; i < assembles.chemins.size(); ++i) {
    if (assembles.chemins[i].nature != Nature::Ouvert) continue;
    libres.push_back(Numero32(2 * i));
    libres.push_back(Numero32(2 * i + 1));
  }
  GardeLibres(chaines, libres);
  const double unePlace = std::ldexp(tolerance, -Tours);
  constexpr std::size_t Foule = 8;
  std::vector<Bout> foule;
  Grille(chaines, libres, tolerance).ParCellule([&](const std::vector<Bout>& cellule) {
    if (cellule.size() > Foule) foule.insert(foule.end(), cellule.begin(), cellule.end());
  });
  if (!foule.empty()) {
    Grille(chaines, foule, unePlace).ParCellule([&](const std::vector<Bout>& cellule) {
      RelieNoeud(chaines, cellule);
    });
    for (int tour = Tours - 1; tour >= 0; --tour) {
      GardeLibres(chaines, foule);
      RelieParDistance(chaines, foule, std::ldexp(tolerance, -tour), unePlace);
    }
    GardeLibres(chaines, libres);
  }
  RelieParDistance(chaines, libres, tolerance, unePlace);
}

}  // namespace pathwerk::assemblage
