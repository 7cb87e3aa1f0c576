// Pairs of things of a path that may meet: pairs of boxes of a tree, less those of runs that go one way.
//
// A run that goes strictly one way along an axis can't meet itself, however long it is. That spares nearly all the
// pairs that neighbouring boxes would leave:
//
//         .--1--.--2--.       1 and 2 go to the right: no pair of them is looked at
//                      \      3 goes down: nor is one of 2 and 3, which go to the lower right
//                       3     1 and 3: their boxes are looked at
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/Arret.h"
#include "closed/pathwerk/commun/Lieux.h"

namespace pathwerk {

// Senses that occur in a run, two bits for each of four axes (x, y, and the two diagonals): "some step doesn't go
// up" and "some step doesn't go down".
using Sens = std::uint8_t;
constexpr Sens SensDe(Vec2 d) {
  const auto axe = [](double v) { return static_cast<unsigned>(!(v > 0)) | static_cast<unsigned>(!(v < 0)) << 1; };
  return static_cast<Sens>(axe(d.x) | axe(d.y) << 2 | axe(d.x + d.y) << 4 | axe(d.x - d.y) << 6);
}
constexpr Sens TousSens = 0xFF;  // of what turns right round
constexpr bool UnSeulSens(unsigned sens) { return (sens & sens >> 1 & 0x55U) != 0x55U; }

// `Arbre`: a base::ArbreBoites over the things in the order of the path.
template <class Arbre>
class Suites {
 public:
  // `sens(i)`: senses of thing i and of the step to its start from the end of the one before. `fermee`: the path is
  // one that comes back from its last thing to its first.
  template <class SensDuPas>
  Suites(const Arbre& arbre, bool fermee, SensDuPas sens)
      : arbre_(arbre), fermee_(fermee), sens_(arbre.Noeuds(), 0) {
    for (std::size_t i = 0; i < arbre.Nombre(); ++i) {
      Sens& s = sens_[arbre.FeuilleDe(i)];
      s = static_cast<Sens>(s | sens(i));
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
    return Dans(2 * k, paire) && Dans(2 * k + 1, paire) && Entre(2 * k, 2 * k + 1, true, fermee_ && k == 1, paire);
  }

  // `joints`: d begins where g ends. `boucle`: g begins with the first thing of a closed path, d ends with the
  // last.
  template <class Paire>
  bool Entre(std::size_t g, std::size_t d, bool joints, bool boucle, Paire& paire) const {
    if (!arbre_.De(g).Rencontre(arbre_.De(d))) return true;
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
      return Entre(2 * g, d, false, boucle, paire) && Entre(2 * g + 1, d, joints, false, paire);
    }
    return Entre(g, 2 * d, joints, false, paire) && Entre(g, 2 * d + 1, false, boucle, paire);
  }

  [[nodiscard]] bool Arrete(std::size_t noeud) const {
    return noeud < NoeudsHauts && arbre_.Nombre() > Peu && base::ArretDemande();
  }

  const Arbre& arbre_;
  bool fermee_;
  std::vector<Sens> sens_;
};

}  // namespace pathwerk
