#include "toolpath/chemins/NoyauTournee.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <random>
#include <utility>

namespace ovelin {

namespace {

constexpr std::size_t Voisins = 10;
constexpr double Gain = 1e-9;                   // mm, below which nothing has been gained
constexpr std::size_t TravailMax = 40'000'000;  // places copied in all the random exchanges
constexpr std::size_t EssaisMax = 30'000;
constexpr std::size_t PartMax = 30;  // paths in a part that is exchanged

// Nearly all of the time goes here, and places on a table are far from where a square overflows.
double Distance(const LieuTournee& a, const LieuTournee& b) {
  const double dx = a.x - b.x;
  const double dy = a.y - b.y;
  return std::sqrt(dx * dx + dy * dy);
}

// Places in cells of a grid, about two in each, for the search of near ones.
class Grille {
 public:
  explicit Grille(const std::vector<Etape>& etapes) {
    for (const Etape& e : etapes) {
      x0_ = std::min(x0_, e.entree.x), x1_ = std::max(x1_, e.entree.x);
      y0_ = std::min(y0_, e.entree.y), y1_ = std::max(y1_, e.entree.y);
    }
    const double cellules = std::max(1.0, static_cast<double>(etapes.size()) / 2);
    const double aire = std::max((x1_ - x0_) * (y1_ - y0_), 1e-9);
    cote_ = std::max({std::sqrt(aire / cellules), (x1_ - x0_) / 1000, (y1_ - y0_) / 1000, 1e-6});
    colonnes_ = static_cast<long>((x1_ - x0_) / cote_) + 1;
    lignes_ = static_cast<long>((y1_ - y0_) / cote_) + 1;
    cellules_.resize(static_cast<std::size_t>(colonnes_ * lignes_));
  }
  void Ajoute(std::size_t i, const LieuTournee& ou) { De(ou).push_back({i, ou}); }
  void Enleve(std::size_t i, const LieuTournee& ou) {
    std::erase_if(De(ou), [i](const Occupant& o) { return o.index == i; });
  }
  // The nearest ones in the order of their distance, `nombre` at most.
  void Proches(const LieuTournee& ou, std::size_t nombre,
               std::vector<std::pair<double, std::size_t>>& proches) const {
    proches.clear();
    const long cx = Rang(ou.x, x0_, colonnes_);
    const long cy = Rang(ou.y, y0_, lignes_);
    for (long r = 0; r <= std::max(colonnes_, lignes_); ++r) {
      Anneau(cx, cy, r, ou, proches);
      if (proches.size() < nombre) continue;
      std::sort(proches.begin(), proches.end());
      // What lies farther out than this ring is farther than its inner edge. Outside of the grid there is nothing.
      if (proches[nombre - 1].first <= static_cast<double>(r) * cote_) break;
    }
    std::sort(proches.begin(), proches.end());
    proches.resize(std::min(proches.size(), nombre));
  }

 private:
  struct Occupant {
    std::size_t index;
    LieuTournee ou;
  };
  [[nodiscard]] long Rang(double v, double v0, long n) const {
    return std::clamp(static_cast<long>(std::floor((v - v0) / cote_)), 0L, n - 1);
  }
  std::vector<Occupant>& De(const LieuTournee& ou) {
    return cellules_[static_cast<std::size_t>(Rang(ou.y, y0_, lignes_) * colonnes_ + Rang(ou.x, x0_, colonnes_))];
  }
  void Anneau(long cx, long cy, long r, const LieuTournee& ou,
              std::vector<std::pair<double, std::size_t>>& proches) const {
    for (long y = std::max(cy - r, 0L); y <= std::min(cy + r, lignes_ - 1); ++y) {
      const bool bord = std::abs(y - cy) == r;
      for (long x = cx - r; x <= cx + r; x += bord || r == 0 ? 1 : 2 * r) {
        if (x < 0 || x >= colonnes_) continue;
        for (const Occupant& o : cellules_[static_cast<std::size_t>(y * colonnes_ + x)]) {
          proches.emplace_back(Distance(ou, o.ou), o.index);
        }
      }
    }
  }
  // The origin, where the tour begins, is among them.
  double x0_ = 0, x1_ = 0, y0_ = 0, y1_ = 0, cote_ = 1;
  long colonnes_ = 1, lignes_ = 1;
  std::vector<std::vector<Occupant>> cellules_;
};

// The tour that is being shortened: place 0 and the one behind the last are the origin.
class Tournee {
 public:
  explicit Tournee(const std::vector<Etape>& etapes) : n_(etapes.size()), etapes_(etapes), dedans_(n_), place_(n_) {
    for (std::size_t i = 0; i < n_; ++i) {
      for (const std::size_t j : etapes_[i].apres) dedans_[j].push_back(i);
      symetrique_ = symetrique_ && Distance(etapes_[i].entree, etapes_[i].sortie) == 0;
    }
    Grille grille(etapes_);
    for (std::size_t i = 0; i < n_; ++i) grille.Ajoute(i, etapes_[i].entree);
    voisins_.resize(n_);
    std::vector<std::pair<double, std::size_t>> proches;
    for (std::size_t i = 0; i < n_; ++i) {
      grille.Proches(etapes_[i].sortie, Voisins + 1, proches);
      for (const auto& [d, j] : proches) {
        if (j != i) voisins_[i].push_back(j);
      }
    }
  }

  std::vector<std::size_t> ordre;

  // Nearest first, among those before which nothing is left that must come.
  void PlusProches() {
    std::vector<std::size_t> attend(n_);
    Grille grille(etapes_);
    for (std::size_t i = 0; i < n_; ++i) {
      attend[i] = dedans_[i].size();
      if (attend[i] == 0) grille.Ajoute(i, etapes_[i].entree);
    }
    LieuTournee ici;
    std::vector<std::pair<double, std::size_t>> proches;
    ordre.clear();
    while (ordre.size() < n_) {
      grille.Proches(ici, 1, proches);
      if (proches.empty()) break;
      const std::size_t i = proches.front().second;
      grille.Enleve(i, etapes_[i].entree);
      ordre.push_back(i);
      ici = etapes_[i].sortie;
      for (const std::size_t j : etapes_[i].apres) {
        if (--attend[j] == 0) grille.Ajoute(j, etapes_[j].entree);
      }
    }
  }
  void Place() {
    for (std::size_t k = 0; k < n_; ++k) place_[ordre[k]] = k;
  }
  // Until none of the waiting paths finds a better neighbour.
  void Ameliore(std::vector<std::size_t> attente) {
    std::vector<char> attend(n_, 0);
    for (const std::size_t i : attente) attend[i] = 1;
    while (!attente.empty()) {
      const std::size_t i = attente.back();
      attente.pop_back();
      attend[i] = 0;
      touches_.clear();
      while (Retourne(i) || Deplace(i)) {
      }
      for (const std::size_t j : touches_) {
        if (attend[j] == 0) attente.push_back(j), attend[j] = 1;
      }
    }
  }
  // Exchanges two parts that follow each other, each of PartMax paths at most. False: a rule forbids it.
  template <class Hasard>
  bool Secoue(Hasard& hasard, std::vector<std::size_t>& touches) {
    const auto tire = [&](std::size_t max) { return static_cast<std::size_t>(hasard() % max); };
    const std::size_t a = tire(n_);
    const std::size_t b = std::min(a + 1 + tire(PartMax), n_);
    const std::size_t c = std::min(b + 1 + tire(PartMax), n_);
    if (b >= n_ || c <= b) return false;
    for (std::size_t k = a; k < b; ++k) {
      for (const std::size_t j : etapes_[ordre[k]].apres) {
        if (place_[j] >= b && place_[j] < c) return false;
      }
    }
    Tourne(a, b, c);
    touches = {ordre[a], ordre[c - 1], ordre[a + (c - b) - 1], ordre[std::min(a + (c - b), n_ - 1)]};
    if (a > 0) touches.push_back(ordre[a - 1]);
    if (c < n_) touches.push_back(ordre[c]);
    return true;
  }

 private:
  // Where the tool comes from before place k, and where it goes at place k.
  [[nodiscard]] LieuTournee Avant(std::size_t k) const {
    return k == 0 ? LieuTournee{} : etapes_[ordre[k - 1]].sortie;
  }
  [[nodiscard]] LieuTournee A(std::size_t k) const { return k == n_ ? LieuTournee{} : etapes_[ordre[k]].entree; }

  void Touche(std::size_t k) {
    if (k < n_) touches_.push_back(ordre[k]);
  }
  // [a, b) and [b, c) change their places.
  void Tourne(std::size_t a, std::size_t b, std::size_t c) {
    const auto ou = [this](std::size_t k) { return ordre.begin() + static_cast<std::ptrdiff_t>(k); };
    std::rotate(ou(a), ou(b), ou(c));
    for (std::size_t k = a; k < c; ++k) place_[ordre[k]] = k;
  }

  // 2-opt: the places [a, b) the other way round, so that `i` gets a near neighbour behind it or in front of it.
  bool Retourne(std::size_t i) {
    const std::size_t k = place_[i];
    for (const std::size_t j : voisins_[i]) {
      const std::size_t m = place_[j];
      // i ... j becomes i j ..., or ... i j ... becomes j ... with i in front of what follows.
      if (m > k + 1 && Essaie(k + 1, m + 1)) return true;
      if (m + 1 < k && Essaie(m + 1, k + 1)) return true;
    }
    return k > 0 && Essaie(0, k + 1);
  }
  bool Essaie(std::size_t a, std::size_t b) {
    const LieuTournee avant = Avant(a);
    const LieuTournee apres = A(b);
    const Etape& premier = etapes_[ordre[a]];
    const Etape& dernier = etapes_[ordre[b - 1]];
    double gain = Distance(avant, premier.entree) + Distance(dernier.sortie, apres) -
                  Distance(avant, dernier.entree) - Distance(premier.sortie, apres);
    if (symetrique_ && gain <= Gain) return false;
    for (std::size_t k = a; k + 1 < b && !symetrique_; ++k) {
      const Etape& p = etapes_[ordre[k]];
      const Etape& q = etapes_[ordre[k + 1]];
      gain += Distance(p.sortie, q.entree) - Distance(q.sortie, p.entree);
    }
    if (gain <= Gain) return false;
    for (std::size_t k = a; k < b; ++k) {
      for (const std::size_t j : etapes_[ordre[k]].apres) {
        if (place_[j] < b) return false;  // it lies in there, too
      }
    }
    std::reverse(ordre.begin() + static_cast<std::ptrdiff_t>(a), ordre.begin() + static_cast<std::ptrdiff_t>(b));
    for (std::size_t k = a; k < b; ++k) place_[ordre[k]] = k;
    for (const std::size_t k : {a, b - 1, b}) Touche(k);
    if (a > 0) Touche(a - 1);
    return true;
  }

  // Or-opt: one to three paths from `i` on go behind or in front of a neighbour.
  bool Deplace(std::size_t i) {
    const std::size_t a = place_[i];
    for (std::size_t b = a + 1; b <= std::min(a + 3, n_); ++b) {
      const double parti = Distance(Avant(a), A(a)) + Distance(Avant(b), A(b)) - Distance(Avant(a), A(b));
      if (parti <= Gain) continue;
      const auto cible = [&](std::size_t c) {
        if (c >= a && c <= b) return false;
        const double venu = Distance(Avant(c), A(a)) + Distance(Avant(b), A(c)) - Distance(Avant(c), A(c));
        return parti - venu > Gain && Permis(a, b, c) && Mene(a, b, c);
      };
      for (const std::size_t j : voisins_[i]) {
        if (cible(place_[j]) || cible(place_[j] + 1)) return true;
      }
      for (const std::size_t j : voisins_[ordre[b - 1]]) {
        if (cible(place_[j])) return true;
      }
    }
    return false;
  }
  // Whether [a, b) may go in front of place c.
  [[nodiscard]] bool Permis(std::size_t a, std::size_t b, std::size_t c) const {
    for (std::size_t k = a; k < b; ++k) {
      if (c > b) {
        for (const std::size_t j : etapes_[ordre[k]].apres) {
          if (place_[j] >= b && place_[j] < c) return false;
        }
      } else {
        for (const std::size_t j : dedans_[ordre[k]]) {
          if (place_[j] >= c && place_[j] < a) return false;
        }
      }
    }
    return true;
  }
  bool Mene(std::size_t a, std::size_t b, std::size_t c) {
    c > b ? Tourne(a, b, c) : Tourne(c, a, b);
    for (const std::size_t k : {a, b, c}) {
      Touche(k);
      if (k > 0) Touche(k - 1);
    }
    return true;
  }

  std::size_t n_;
  const std::vector<Etape>& etapes_;
  std::vector<std::vector<std::size_t>> dedans_;  // paths that must come before
  std::vector<std::vector<std::size_t>> voisins_;
  std::vector<std::size_t> place_;
  std::vector<std::size_t> touches_;
  bool symetrique_ = true;  // every path ends where it starts
};

}  // namespace

double LongueurAir(const std::vector<Etape>& etapes, const std::vector<std::size_t>& ordre) {
  double longueur = 0;
  LieuTournee ici;
  for (const std::size_t i : ordre) {
    longueur += Distance(ici, etapes[i].entree);
    ici = etapes[i].sortie;
  }
  return longueur + Distance(ici, {});
}

std::vector<std::size_t> OrdreCourt(const std::vector<Etape>& etapes) {
  std::vector<std::size_t> premier(etapes.size());
  std::iota(premier.begin(), premier.end(), std::size_t{0});
  if (etapes.size() < 2) return premier;
  Tournee tournee(etapes);
  tournee.PlusProches();
  if (tournee.ordre.size() < etapes.size()) return premier;  // rules that can't be kept
  tournee.Place();
  tournee.Ameliore(tournee.ordre);
  std::mt19937 hasard(20'011);
  std::vector<std::size_t> meilleur = tournee.ordre;
  double longueur = LongueurAir(etapes, meilleur);
  const std::size_t essais = std::min(EssaisMax, TravailMax / etapes.size());
  std::vector<std::size_t> touches;
  for (std::size_t i = 0; i < essais; ++i) {
    if (!tournee.Secoue(hasard, touches)) continue;
    tournee.Ameliore(touches);
    const double neuve = LongueurAir(etapes, tournee.ordre);
    if (neuve < longueur) {
      longueur = neuve;
      meilleur = tournee.ordre;
    } else {
      tournee.ordre = meilleur;
      tournee.Place();
    }
  }
  return LongueurAir(etapes, premier) <= longueur ? premier : meilleur;
}

}  // namespace ovelin
