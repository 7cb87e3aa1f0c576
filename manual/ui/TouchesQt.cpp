#include "manual/ui/TouchesQt.h"

#include <algorithm>
#include <array>

#include "manual/Touches.h"

namespace ovelin {

namespace {

struct LigneTouche {
  int qt, code;
};

constexpr std::array Pave{
    LigneTouche{Qt::Key_Home, touche::Pave(7)},   LigneTouche{Qt::Key_Up, touche::Pave(8)},
    LigneTouche{Qt::Key_PageUp, touche::Pave(9)}, LigneTouche{Qt::Key_Left, touche::Pave(4)},
    LigneTouche{Qt::Key_Right, touche::Pave(6)},  LigneTouche{Qt::Key_End, touche::Pave(1)},
    LigneTouche{Qt::Key_Down, touche::Pave(2)},   LigneTouche{Qt::Key_PageDown, touche::Pave(3)},
};

constexpr std::array Autres{
    LigneTouche{Qt::Key_Shift, touche::Majuscule},
    LigneTouche{Qt::Key_Control, touche::Controle},
    LigneTouche{Qt::Key_Escape, touche::Echap},
    LigneTouche{Qt::Key_PageUp, touche::PageHaut},
    LigneTouche{Qt::Key_PageDown, touche::PageBas},
    LigneTouche{Qt::Key_End, touche::Fin},
    LigneTouche{Qt::Key_Home, touche::Debut},
    LigneTouche{Qt::Key_Left, touche::Gauche},
    LigneTouche{Qt::Key_Up, touche::Haut},
    LigneTouche{Qt::Key_Right, touche::Droite},
    LigneTouche{Qt::Key_Down, touche::Bas},
    LigneTouche{Qt::Key_V, touche::V},
    LigneTouche{Qt::Key_Asterisk, touche::Multiplie},
    LigneTouche{Qt::Key_Plus, touche::Plus},
    LigneTouche{Qt::Key_Minus, touche::Moins},
    LigneTouche{Qt::Key_F1, touche::F1},
    LigneTouche{Qt::Key_F5, touche::F5},
    LigneTouche{Qt::Key_F6, touche::F6},
    LigneTouche{Qt::Key_F7, touche::F7},
    LigneTouche{Qt::Key_F8, touche::F8},
};

template <class Table>
int Cherche(const Table& table, int cle) {
  const auto ligne = std::find_if(table.begin(), table.end(), [cle](const LigneTouche& l) { return l.qt == cle; });
  return ligne == table.end() ? 0 : ligne->code;
}

}  // namespace

int CodeTouche(const QKeyEvent& e) {
  if ((e.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) != 0) return 0;
  if ((e.modifiers() & Qt::KeypadModifier) != 0) {
    if (e.key() >= Qt::Key_1 && e.key() <= Qt::Key_9) return touche::Pave(e.key() - Qt::Key_0);
    if (const int code = Cherche(Pave, e.key()); code != 0) return code;
  }
  return Cherche(Autres, e.key());
}

}  // namespace ovelin
