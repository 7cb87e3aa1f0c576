// The machine behind the board: three axes that follow edges in time, or do not.
#pragma once

#include <cstdint>
#include <vector>

#include "closed/CarteVirtuelle.h"

namespace zenikcom {

// What one axis can have as its rate, from the edges that it has followed. An edge comes at a moment known to one
// tick, so two edges give an interval of rates; the axis can be at any rate that fits all of them. An edge that
// fits none is lost: the axis was too slow for it, or too fast.
class SuiviAxe {
 public:
  // `t` s, `tick` s: how exactly the moment is known; `sens` 1 or -1. False: the edge is lost.
  bool Front(const ModeleAxe& modele, double t, double tick, int sens);

 private:
  bool arrete_ = true;  // never moved
  double dernier_ = 0;
  double mini_ = 0, maxi_ = 0;  // signed rates that are possible, steps/s
};

class Machine {
 public:
  void Modele(const ModeleMachine& modele);
  [[nodiscard]] const ModeleMachine& Modele() const { return modele_; }
  // Whether the axis has to be told the moment of each edge.
  [[nodiscard]] bool Limite(std::size_t axe) const { return modele_[axe].vitesseLibre > 0; }

  void Avance(std::size_t axe, int sens, std::int64_t fronts);  // an axis without limit
  void Perd(std::size_t axe, int sens, std::int64_t fronts);
  void Front(std::size_t axe, int sens, double t, double tick);  // one with a limit

  void Place(const Axes3& lieu);
  void Jalon();  // a record has ended here
  [[nodiscard]] const Axes3& Lieu() const { return lieu_; }
  [[nodiscard]] const Axes3& Pas() const { return pas_; }
  [[nodiscard]] const Axes3& Perdus() const { return perdus_; }
  [[nodiscard]] std::vector<Axes3> Parcours() const;

 private:
  void Bouge(std::size_t axe, int sens, std::int64_t fronts);

  ModeleMachine modele_{};
  Axes3 lieu_{}, pas_{}, perdus_{};
  std::array<int, 3> sens_{};  // of the last movement; 0: none yet, no play to take up
  Axes3 reste_{};              // steps of play still to take up in that sense
  std::array<SuiviAxe, 3> suivi_;
  std::vector<Axes3> parcours_{Axes3{}};
};

}  // namespace zenikcom
