// The commands of the main window, one row each: menus, tool bar, context menu and their rules are made from it.
#pragma once

#include <span>
#include <vector>

namespace ovelin {

struct LigneCommande {
  const char* nom;           // of its action, its picture and its texts
  const char* menu = "";     // "" where it stands in none: a control of the tool bar
  int groupe = 0;            // of the menu, a line between two
  const char* texte = "";    // French, UTF-8; the fallback of the translation
  const char* touches = "";  // shortcut, or several with "; " between them
  // Places are group times 10 plus rank, a line between two groups; 0: none.
  int barre = 0;
  int contexte = 0;          // in the menu of the picture and the trees
  bool bascule = false;      // on and off
  bool dessin = false;       // needs a drawing
  bool course = false;       // allowed while an operation of the board runs
  const char* fenetre = "";  // window that it opens; "" for an action of the main window
};

struct LigneMenu {
  const char* nom;
  const char* texte;
};

// In the order of the menus. A command that the window has nothing to do for, or whose window doesn't exist, isn't
// shown; nor is the panel of the virtual board with another board.
std::span<const LigneCommande> TableCommandes();
std::span<const LigneMenu> TableMenus();

// The rows with a place there, in the order of their places.
std::vector<const LigneCommande*> ParPlace(int LigneCommande::*place);

}  // namespace ovelin
