// What the tests of windows share, on top of tests/support/Support.h: an application without a screen, real
// events, controls by their names.
#pragma once

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <string>

#include "tests/support/Support.h"

namespace essai {

// The control of that name below `fenetre`; its absence ends the program by its name.
template <class T>
T* Controle(QWidget& fenetre, const char* nom) {
  T* trouve = fenetre.objectName() == QLatin1String(nom) ? qobject_cast<T*>(&fenetre) : fenetre.findChild<T*>(nom);
  if (trouve == nullptr) qFatal("no control %s", nom);
  return trouve;
}

// Shown and laid out, with the keyboard, pending events done.
void Montre(QWidget& fenetre, int largeur = 0, int hauteur = 0);
// Runs what is pending, timers of zero length included.
void Evenements();
// Types a text into a field as a user does: into it, all selected, keys, out of it (or Enter).
enum class Sortie { Tab, Entree };
void Tape(QWidget& champ, const std::string& texte, Sortie sortie = Sortie::Tab);
// A click in the middle of a control.
void Clique(QWidget& controle, Qt::MouseButton bouton = Qt::LeftButton, Qt::KeyboardModifiers touches = {});

// Light or dark palette of the whole application; each test begins light.
void ThemeSombreEssai(bool sombre);

}  // namespace essai
