// The pulse of a long loop: pending events run about every 15 ms, by the clock, not by the item.
#pragma once

#include <cstdint>

#include "core/Services.h"

namespace ovelin {

// Made at the start of a loop, told of each item. The clock is looked at once in 2048 items, so that the pulse
// costs nothing beside the work; input stays held back, painting and timers run.
class Cadence {
 public:
  Cadence() : dernier_(Heure()) {}

  // True when events are due; the caller brings to light what may be seen, then calls Laisse.
  bool Echeance() {
    if ((++elements_ & 2047U) != 0) return false;
    return Heure() - dernier_ >= Periode;
  }
  void Laisse() {
    if (Svc.LaisseEvenements) Svc.LaisseEvenements(Evenements::Affichage);
    dernier_ = Heure();
  }
  void Bat() {
    if (Echeance()) Laisse();
  }

 private:
  static constexpr double Periode = 0.015;  // s
  static double Heure() { return Svc.Horloge ? Svc.Horloge() : 0.0; }

  std::uint32_t elements_ = 0;
  double dernier_;
};

}  // namespace ovelin
