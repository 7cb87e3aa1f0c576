// The free stretches of one outline at ever greater depths.
#pragma once

#include <cmath>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "closed/pathwerk/decalage/ArcLibres.h"

namespace pathwerk::decalage {

// All depths on one side; those of the other cost as much as the first.
class ArcSuite {
 public:
  explicit ArcSuite(std::span<const Chemin> contours) : source_(contours) {}

  [[nodiscard]] const ArcSource& Source() const { return source_; }
  // As ArcsLibres(). Quick where a depth not greater, on the same side, was right.
  std::vector<ArcLibre> Libres(double d, double bruit);
  // The stretches given last make the true border; `complet`: and all of it is drawn, down to the shortest loop.
  void Retient(bool complet = true);
  // Does all of the border at the signed depth `entre` lie within `portee` mm of what is drawn at `loin`, the last
  // depth but for its slack? Known only where that one came of a depth less than `entre`. Never a wrong yes.
  [[nodiscard]] bool DansLaPortee(double entre, double loin, double ecart, double portee, double bruit) const;
  // Raw pieces that were free at the last depth that was right, and all that the next one will look at.
  [[nodiscard]] std::size_t Vivantes() const;

 private:
  // What is left at one depth.
  struct Etat {
    double d = 0;
    PiecesVives vives;
    std::shared_ptr<const Tueurs> tueurs;  // null: all segments
    bool complet = true;
  };
  static bool PlusLoin(const Etat& etat, double d) { return etat.d * d > 0 && std::abs(etat.d) > std::abs(d); }
  void ChoisitTueurs(Etat& etat) const;

  ArcSource source_;
  // The one that served last, and the one that came of it: two, so that a depth may be asked for that is a little
  // less than the last.
  std::optional<Etat> etats_[2];
  int base_ = 0;     // which of them the last stretches came from
  int dernier_ = 0;  // which of them was retained last
  Etat nouveau_;
};

}  // namespace pathwerk::decalage
