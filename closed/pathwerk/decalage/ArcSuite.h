// The free stretches of one outline at ever greater depths.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "closed/pathwerk/decalage/ArcLibres.h"

namespace pathwerk::decalage {

class ArcSuite {
 public:
  explicit ArcSuite(std::span<const Chemin> contours) : source_(contours) {}

  [[nodiscard]] const ArcSource& Source() const { return source_; }
  // As ArcsLibres(). Quick where a depth not greater, on the same side, was right.
  std::vector<ArcLibre> Libres(double d, double bruit);
  // The stretches given last make the true border.
  void Retient();

 private:
  // What is left at one depth.
  struct Etat {
    double d = 0;
    PiecesVives vives;
    std::shared_ptr<const Tueurs> tueurs;  // null: all segments
  };
  void ChoisitTueurs(Etat& etat) const;

  ArcSource source_;
  std::optional<Etat> etats_[2];  // the one that served last, and the one that came of it
  int base_ = 0;                  // which of them the last stretches came from
  Etat nouveau_;
};

}  // namespace pathwerk::decalage
