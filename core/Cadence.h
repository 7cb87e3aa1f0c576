// The pulse of a long loop: pending events run about every 15 ms, by the clock, not by the item. Painting and
// timers go on, the user's input stays held back: the document can't change under the loop.
#pragma once

#include <cstdint>

#include "core/Services.h"

namespace ovelin {

inline constexpr double PeriodeCadence = 0.015;  // s

// For short items. Made at the start of a loop, told of each item; the clock is looked at once in 2048 items, so
// that the pulse costs nothing beside the work.
class Cadence {
 public:
  Cadence() : dernier_(Heure()) {}

  // True when events are due; the caller brings to light what may be seen, then calls Laisse.
  bool Echeance() {
    if ((++elements_ & 2047U) != 0) return false;
    return Heure() - dernier_ >= PeriodeCadence;
  }
  void Laisse() {
    if (Svc.LaisseEvenements) Svc.LaisseEvenements(Evenements::Affichage);
    dernier_ = Heure();
  }
  void Bat() {
    if (Echeance()) Laisse();
  }

 private:
  static double Heure() { return Svc.Horloge ? Svc.Horloge() : 0.0; }

  std::uint32_t elements_ = 0;
  double dernier_;
};

// For items that may take long themselves: the clock is looked at for each.
class Respiration {
 public:
  Respiration() : derniere_(Svc.Horloge()) {}
  void Laisse() {
    if (Svc.Horloge() - derniere_ < PeriodeCadence) return;
    Svc.LaisseEvenements(Evenements::Affichage);
    derniere_ = Svc.Horloge();
  }

 private:
  double derniere_;
};

}  // namespace ovelin
