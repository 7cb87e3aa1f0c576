// What the tests of windows share, on top of tests/support/Support.h: an application without a screen, real
// events, controls by their names.
#pragma once

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <string>
#include <vector>

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

// The texts of that language from now on; windows take them when they are built, or by TraduireFenetre.
void ChoisitLangue(const std::string& code);
// Two letters of each language that the product comes with.
const std::vector<std::string>& LanguesDuProduit();

// What a user of this window can't read or reach, one line each; empty when all is well. The window is shown and
// laid out before. Every page of tabs and stacks is looked at in turn.
//   texts wider or taller than their room: labels, buttons, check boxes, tabs, titles of groups and docks, headers
//   of
//     tables and trees, the text in a combo (each item of one that is translated), tool bars and menu bars with
//     entries that find no room
//   children that lie over each other or outside their parent
// Left out: a control with the property "texteLibre" (its text is the user's, such as a path) or "placeLibre" (it
// lies over others on purpose), and names that begin with "qt_".
std::vector<std::string> TextesCoupes(QWidget& fenetre);
// The same, as one text for a message.
std::string TextesCoupesEnTexte(QWidget& fenetre);

// Texts of this window that the language in force has no words for, one line each: captions, controls, actions,
// tabs and headers that say something and whose key is missing. Left out as above, besides entries that are numbers
// or signs alone and what the program fills (property "valeur").
std::vector<std::string> SansTraduction(QWidget& fenetre);
// Controls that can be reached with the keyboard and have no accessible name or no tool tip, and labels and fields
// that nobody named.
std::vector<std::string> SansNom(QWidget& fenetre);

// A picture of the window into the folder of the environment variable OVELIN_CAPTURES, to be looked at; nothing
// without it. `nom` without extension.
void Capture(QWidget& fenetre, const std::string& nom);

}  // namespace essai
