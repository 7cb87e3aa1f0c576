// The feed of a run, in steps so small that whoever has a moment can make one: the loop of the run, or a timer
// while somebody has a box open.
#pragma once

#include <cstdint>
#include <string>

namespace ovelin {

class Alimentation {
 public:
  enum class Phase { Lignes, Fin, Attente, Arret, Finie };
  enum class Panne { Aucune, Liaison, Immobile };

  // `vRef` mm/s: the speed that the plan was made with; 0: rows go out at their own speed.
  explicit Alimentation(float vRef);

  // One exchange with the board at most, a stop apart, which is waited for. True: something was done, another step
  // may follow at once. False: the board's buffer is full, it still moves, or all is done.
  bool Pas();
  [[nodiscard]] Phase Ou() const { return phase_; }
  [[nodiscard]] Panne Pourquoi() const { return panne_; }
  [[nodiscard]] bool Finie() const { return phase_ == Phase::Finie; }
  // Rows have gone into the list: what follows is up to the caller, then the wait for the board's own job.
  [[nodiscard]] bool ListeFaite() const { return listeFaite_; }
  void SuitListe(bool lancee) { phase_ = lancee ? Phase::Attente : Phase::Finie; }

 private:
  bool PasLigne();
  bool PasFin();
  bool PasAttente();
  bool Perdue();
  [[nodiscard]] bool Oubliee() const;
  void Arrete();
  // The rows stand in the list, which the caller writes: no step meanwhile.
  [[nodiscard]] bool EcritListe() const { return listeFaite_ && phase_ == Phase::Fin; }
  void Surveille(bool avance);

  float vRef_;
  Phase phase_ = Phase::Lignes;
  Panne panne_ = Panne::Aucune;
  bool listeFaite_ = false;
  bool dedans_ = false;  // a step runs, and its events may want another
  std::int32_t ligne_ = 1;
  // The last sign of life: what was counted then, and when.
  std::int32_t blocs_ = -1, ticks_ = -1;
  double vivante_;  // s
};

}  // namespace ovelin
