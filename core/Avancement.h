// Progress on the screen while something long runs.
#pragma once

#include <string>

#include "base/SansCopie.h"
#include "core/Cadence.h"
#include "core/Services.h"

namespace ovelin {

// The frame `Frame_Avancement` with its bar: opened and closed with the object, one step an item. A total of 0 is a
// pass whose length nobody knows.
class Avancement : base::SansCopie {
 public:
  explicit Avancement(const std::string& texte, long total = 0) {
    Svc.AvancementDebut(texte, total);
    Svc.LaisseEvenements(Evenements::Affichage);
  }
  ~Avancement() { Svc.AvancementFin(); }
  void Plus() {
    Svc.AvancementPlus();
    respiration_.Laisse();
  }

 private:
  Respiration respiration_;
};

}  // namespace ovelin
