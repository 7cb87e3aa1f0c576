// Pairs of things of a path that may meet: pairs of boxes of a tree, less those of runs that go one way.
//
// A run that goes strictly one way along an axis can't meet itself, however long it is. That spares nearly all the
// pairs that neighbouring boxes would leave:
//
//         .--1--.--2--.       1 and 2 go to the right: no pair of them is looked at
//                      \      3 goes down: nor is one of 2 and 3, which go to the lower right
//                       3     1 and 3: their boxes are looked at
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "base/Arret.h"
#include "closed/pathwerk/commun/Lieux.h"

namespace pathwerk {

// Senses that occur in a run, two bits for each of four axes (x, y, and the two diagonals): "some step doesn't go
// up" and "some step doesn't go down".
using Sens = std::uint8_t;
constexpr bool UnSeulSens(unsigned sens) { return (sens & sens >> 1 & 0x55U) != 0x55U; }

// Steps of a run. The least and the greatest along each axis tell their senses, and cost less than the senses of
// each step.
class Pas {
 public:
  constexpr void Ajoute(Vec2 d) {
    Etend(0, d.x);
    Etend(1, d.y);
    Etend(2, d.x + d.y);
    Etend(3, d.x - d.y);
  }
  // What turns right round.
  constexpr void AjouteTous() {
    for (std::size_t k = 0; k < Axes; ++k) {
      Etend(k, -1);
      Etend(k, 1);
    }
  }
  [[nodiscard]] constexpr Sens Vus() const {
    const auto axe = [this](std::size_t k) {
      return static_cast<unsigned>(moins_[k] <= 0) | static_cast<unsigned>(plus_[k] >= 0) << 1U;
    };
    return static_cast<Sens>(axe(0) | axe(1) << 2U | axe(2) << 4U | axe(3) << 6U);
  }

 private:
  static constexpr std::size_t Axes = 4;
  constexpr void Etend(std::size_t k, double v) {
    moins_[k] = std::min(moins_[k], v);
    plus_[k] = std::max(plus_[k], v);
  }
  static constexpr double Inf = std::numeric_limits<double>::infinity();
  double moins_[Axes] = {Inf, Inf, Inf, Inf};
  double plus_[Axes] = {-Inf, -Inf, -Inf, -Inf};
};

// `Arbre`: a base::ArbreBoites over the things in the order of the path.
template <class Arbre>
class Suites {
 public:
  // `ajoute(i, pas)` adds the steps of thing i and the one to its start from the end of the thing before. `fermee`:
  // the path is one that comes back from its last thing to its first.
  template <class AjoutePas>
  Suites(const Arbre& arbre, bool fermee, AjoutePas ajoute)
      : arbre_(arbre), fermee_(fermee), sens_(arbre.Noeuds(), 0) {
    for (std::size_t k = arbre.Feuilles(), i = 0; i < arbre.Nombre(); ++k) {
      Pas pas;
      for (const std::size_t fin = arbre.Fin(k); i < fin; ++i) ajoute(i, pas);
      sens_[k] = pas.Vus();
    }
    for (std::size_t k = arbre.Feuilles() - 1; k >= 1; --k)
      sens_[k] = static_cast<Sens>(sens_[2 * k] | sens_[2 * k + 1]);
  }

  // `paire(i, j)`, i < j, for each pair that may meet; false ends the walk. Returns whether the walk came to its
  // end; it doesn't where somebody wishes the end.
  template <class Paire>
  bool Parcourt(Paire paire) const {
    return arbre_.Nombre() == 0 || Dans(1, paire);
  }

 private:
  // Nodes near the root, at each of which a wish to end is looked for: what lies below one takes a few
  // milliseconds. Of few things none are.
  static constexpr std::size_t NoeudsHauts = 4096;
  static constexpr std::size_t Peu = 1024;

  template <class Paire>
  bool Dans(std::size_t k, Paire& paire) const {
    if (UnSeulSens(sens_[k])) return true;
    if (Arrete(k)) return false;
    if (arbre_.EstFeuille(k)) {
      const std::size_t fin = arbre_.Fin(k);
      for (std::size_t i = arbre_.Debut(k); i < fin; ++i) {
        for (std::size_t j = i + 1; j < fin; ++j) {
          if (!paire(i, j)) return false;
        }
      }
      return true;
    }
    return Dans(2 * k, paire) && Dans(2 * k + 1, paire) && Essaie(2 * k, 2 * k + 1, true, fermee_ && k == 1, paire);
  }

  // `joints`: d begins where g ends. `boucle`: g begins with the first thing of a closed path, d ends with the
  // last.
  template <class Paire>
  bool Essaie(std::size_t g, std::size_t d, bool joints, bool boucle, Paire& paire) const {
    return !arbre_.De(g).Rencontre(arbre_.De(d)) || Entre(g, d, joints, boucle, paire);
  }
  // The same of two whose boxes meet.
  template <class Paire>
  bool Entre(std::size_t g, std::size_t d, bool joints, bool boucle, Paire& paire) const {
    // Two runs joined end to end that go one way together. Their far ends may join too, but only in a closed path,
    // and that can't go one way.
    if ((joints || boucle) && UnSeulSens(static_cast<unsigned>(sens_[g] | sens_[d]))) return true;
    if (Arrete(g)) return false;
    const bool feuilleG = arbre_.EstFeuille(g);
    const bool feuilleD = arbre_.EstFeuille(d);
    if (feuilleG && feuilleD) {
      const std::size_t finG = arbre_.Fin(g);
      const std::size_t finD = arbre_.Fin(d);
      for (std::size_t i = arbre_.Debut(g); i < finG; ++i) {
        for (std::size_t j = arbre_.Debut(d); j < finD; ++j) {
          if (!paire(i, j)) return false;
        }
      }
      return true;
    }
    // The greater box is halved; leaves stay whole. An empty half has no box that meets another.
    if (feuilleD || std::bit_width(g) < std::bit_width(d)) {
      return Essaie(2 * g, d, false, boucle, paire) && Essaie(2 * g + 1, d, joints, false, paire);
    }
    return Essaie(g, 2 * d, joints, false, paire) && Essaie(g, 2 * d + 1, false, boucle, paire);
  }

  [[nodiscard]] bool Arrete(std::size_t noeud) const {
    return noeud < NoeudsHauts && arbre_.Nombre() > Peu && base::ArretDemande();
  }

  const Arbre& arbre_;
  bool fermee_;
  std::vector<Sens> sens_;
};

}  // namespace pathwerk
