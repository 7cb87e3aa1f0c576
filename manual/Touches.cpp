#include "manual/Touches.h"

#include <algorithm>

namespace ovelin {

namespace {

struct LigneSens {
  int code;
  SensJog sens;
};
constexpr std::array Sens{
    LigneSens{touche::Pave(7), {-1, 1, 0}}, LigneSens{touche::Debut, {-1, 1, 0}},
    LigneSens{touche::Pave(8), {0, 1, 0}},  LigneSens{touche::Haut, {0, 1, 0}},
    LigneSens{touche::Pave(9), {1, 1, 0}},  LigneSens{touche::Pave(4), {-1, 0, 0}},
    LigneSens{touche::Gauche, {-1, 0, 0}},  LigneSens{touche::Pave(6), {1, 0, 0}},
    LigneSens{touche::Droite, {1, 0, 0}},   LigneSens{touche::Pave(1), {-1, -1, 0}},
    LigneSens{touche::Fin, {-1, -1, 0}},    LigneSens{touche::Pave(2), {0, -1, 0}},
    LigneSens{touche::Bas, {0, -1, 0}},     LigneSens{touche::Pave(3), {1, -1, 0}},
    LigneSens{touche::PageHaut, {0, 0, 1}}, LigneSens{touche::PageBas, {0, 0, -1}},
};

constexpr std::array Autres{touche::Majuscule, touche::Controle, touche::Echap, touche::V,
                            touche::Multiplie, touche::Plus,     touche::Moins, touche::F1,
                            touche::F5,        touche::F6,       touche::F7,    touche::F8};

}  // namespace

SensJog SensDe(int code) {
  const auto* ligne = std::find_if(Sens.begin(), Sens.end(), [code](const LigneSens& l) { return l.code == code; });
  return ligne == Sens.end() ? SensJog{} : ligne->sens;
}

bool EstTouchePilMan(int code) {
  return SensDe(code) != SensJog{} || std::find(Autres.begin(), Autres.end(), code) != Autres.end();
}

}  // namespace ovelin
