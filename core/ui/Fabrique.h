// What windows are made of. Each part is made here and nowhere else, so that all windows look and behave alike.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <initializer_list>

#include "core/ui/ChampNombre.h"

namespace ovelin {

// Names are object names, by which a window is translated; texts and tips are French, in UTF-8, and serve where a
// translation has none. What is made belongs to `parent`, or to the layout that takes it.

// A control under its name, with its tip.
template <class T>
T* Nomme(T* controle, const QString& nom, const QString& bulle = {}) {
  controle->setObjectName(nom);
  if (!bulle.isEmpty()) controle->setToolTip(bulle);
  return controle;
}

// The label in front of a control: a key of its mnemonic goes to `controle`, and it names it to those who don't
// see.
QLabel* Etiquette(const QString& nom, const QString& texte, QWidget* controle = nullptr);
// The heading of a column of fields.
QLabel* EnTete(const QString& nom, const QString& texte);
// A label that the program fills with a value; it has no text to translate (property "valeur").
QLabel* Valeur(const QString& nom, const QString& bulle = {}, QWidget* parent = nullptr);
// A sentence on as many lines as it needs.
QLabel* Phrase(const QString& nom, const QString& texte, QWidget* parent = nullptr);

// A numeric field with its unit ("" for none).
ChampNombre* Champ(const QString& nom, const QString& unite, const QString& bulle, QWidget* parent = nullptr);
QCheckBox* Coche(const QString& nom, const QString& texte, const QString& bulle, QWidget* parent = nullptr);
// A list that is opened to be changed: the wheel over a closed one goes to what lies behind it.
QComboBox* Liste(const QString& nom, const QString& bulle, QWidget* parent = nullptr);
QGroupBox* Groupe(const QString& nom, const QString& titre, QWidget* parent = nullptr);

// A button of a window, with the picture of its name where there is one.
QPushButton* Bouton(const QString& nom, const QString& texte, const QString& bulle, QWidget* parent = nullptr);
// Buttons of a page, with a larger picture, alone or beside a text. A press takes the keyboard, so that an entry in
// a field is taken over first.
QToolButton* BoutonIcone(const QString& nom, const QString& bulle);
QPushButton* BoutonTexte(const QString& nom, const QString& texte, const QString& bulle);
// One of a row of which one is chosen: that one has a stroke under it, since a dark theme hardly tells a button
// that is down from the others.
QToolButton* BoutonChoix(const QString& nom, const QString& texte, QWidget* parent = nullptr);

// The column of a window's parts, a grid of labels and fields in a window, the column of a page of the panel, the
// grid and the row inside a group of it; each with its margins and distances.
QVBoxLayout* ColonneFenetre(QWidget& fenetre);
QGridLayout* GrilleFenetre();
QVBoxLayout* ColonnePage(QWidget& page);
QGridLayout* GrilleGroupe(QWidget& groupe);
QHBoxLayout* RangeeGroupe(QWidget& groupe);

// The row of buttons under a window, at the right.
QHBoxLayout* RangeeBoutons(std::initializer_list<QPushButton*> boutons);
// The usual ones: OK, which Enter presses too and whose click the window connects, and Cancel, which closes.
struct BoutonsDialogue {
  QHBoxLayout* rangee = nullptr;
  QPushButton* ok = nullptr;
  QPushButton* annuler = nullptr;
};
BoutonsDialogue PoseBoutons(QDialog& fenetre, const QString& bulleOk, const QString& bulleAnnuler);

// The order in which the tab key goes through these controls, or through the controls of these names below
// `parent`.
void OrdreTab(std::initializer_list<QWidget*> controles);
void OrdreTab(QWidget& parent, std::initializer_list<const char*> noms);

}  // namespace ovelin
