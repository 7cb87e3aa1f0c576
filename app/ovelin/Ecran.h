// Whether there is a screen to open windows on. The toolkit ends the program on the spot where there is none, so
// that has to be known before.
#pragma once

#include <string>

#include "base/SansCopie.h"

namespace ovelin {

struct Affichage {
  std::string plateforme;  // names of platform plugins asked for, apart by ";", first choice first; "" for none
  std::string x11;         // DISPLAY
  std::string wayland;     // WAYLAND_DISPLAY
};
// From the environment; `plateforme` of the command line stands before QT_QPA_PLATFORM.
Affichage LitAffichage(const std::string& plateforme);
// One of the platforms that would be tried can have a screen.
bool EcranPossible(const Affichage& a);

// While one stands, an end of the program by the toolkit (no such platform, a screen that doesn't answer) tells why
// on standard error and gives `SansEcran` as the exit status.
class GardeEcran : base::SansCopie {
 public:
  GardeEcran();
  ~GardeEcran();
};

inline constexpr int SansEcran = 3;
// The text for a user without a screen, with the reason of the toolkit behind it.
std::string TexteSansEcran(const std::string& raison);

}  // namespace ovelin
