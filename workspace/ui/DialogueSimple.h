// What the small windows with an OK and a Cancel have in common.
#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <initializer_list>
#include <optional>

#include "core/ui/ChampNombre.h"

namespace ovelin {

// The row of buttons: OK, which Enter presses too, and Cancel, which closes. They are named and stand at the right.
struct BoutonsDialogue {
  QHBoxLayout* rangee = nullptr;
  QPushButton* ok = nullptr;
  QPushButton* annuler = nullptr;
};
BoutonsDialogue PoseBoutons(QDialog& fenetre, const char* bulleOk, const char* bulleAnnuler);

// The keyboard goes through these in their order.
void OrdreTab(std::initializer_list<QWidget*> controles);

// The label in front of a control; a key of its mnemonic goes to it.
QLabel* EtiquetteDialogue(const char* nom, const char* texte, QWidget* controle);

// A tolerance as its field holds it, mm; the field shows the value that will be used. Nothing for what is no number
// or negative, which the field then tells ("lib001", "lib002" of that section).
std::optional<float> LitTolerance(ChampNombre& champ, const char* section);

}  // namespace ovelin
