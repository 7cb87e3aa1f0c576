#include "workspace/ui/TableCommandes.h"

#include <algorithm>
#include <array>

namespace ovelin {

namespace {

constexpr const char* Fichier = "mnu_Fichier";
constexpr const char* Edition = "mnu_Edition";
constexpr const char* Affichage = "mnu_Affichage";
constexpr const char* Outils = "mnu_Outils";
constexpr const char* Options = "mnu_Options";
constexpr const char* Aide = "mnu_Aide";

constexpr std::array Menus{
    LigneMenu{Fichier, "&Fichier"}, LigneMenu{Edition, "&Edition"}, LigneMenu{Affichage, "&Affichage"},
    LigneMenu{Outils, "&Outils"},   LigneMenu{Options, "O&ptions"}, LigneMenu{Aide, "&?"},
};

// The tool bar follows the order of the work: open, choose the material, mill; then the tools.
using C = LigneCommande;
constexpr std::array Commandes{
    C{.nom = "mnu_Ouvrir", .menu = Fichier, .groupe = 1, .texte = "&Ouvrir...", .touches = "Ctrl+O", .barre = 11},
    C{.nom = "mnu_Save",
      .menu = Fichier,
      .groupe = 1,
      .texte = "&Enregistrer le projet",
      .touches = "Ctrl+S",
      .barre = 12,
      .dessin = true},
    C{.nom = "mnu_SaveAs",
      .menu = Fichier,
      .groupe = 1,
      .texte = "Enregistrer le projet &sous...",
      .touches = "Ctrl+Shift+S",
      .barre = 13,
      .dessin = true},
    C{.nom = "mnu_Exporter",
      .menu = Fichier,
      .groupe = 1,
      .texte = "E&xporter...",
      .touches = "Ctrl+E",
      .barre = 14,
      .dessin = true,
      .fenetre = "F_Exporter"},
    C{.nom = "mnu_Fraisage",
      .menu = Fichier,
      .groupe = 2,
      .texte = "&Fraisage...",
      .touches = "F5",
      .barre = 31,
      .contexte = 42,
      .dessin = true,
      .fenetre = "F_Fraisage"},
    C{.nom = "mnu_Gcode",
      .menu = Fichier,
      .groupe = 2,
      .texte = "&Atelier GCODE...",
      .touches = "Ctrl+G",
      .course = true,
      .fenetre = "F_Gcode"},
    C{.nom = "mnu_Quitter", .menu = Fichier, .groupe = 3, .texte = "&Quitter", .touches = "Ctrl+Q", .course = true},

    C{.nom = "mnu_Undo",
      .menu = Edition,
      .groupe = 1,
      .texte = "&Annuler",
      .touches = "Ctrl+Z",
      .barre = 41,
      .contexte = 21},
    C{.nom = "mnu_Tout",
      .menu = Edition,
      .groupe = 2,
      .texte = "&Tout sélectionner",
      .touches = "Ctrl+A",
      .contexte = 11,
      .dessin = true},
    C{.nom = "mnu_InverseSelection",
      .menu = Edition,
      .groupe = 2,
      .texte = "&Inverser la sélection",
      .touches = "Ctrl+I",
      .contexte = 12,
      .dessin = true},
    C{.nom = "mnu_Supprimer",
      .menu = Edition,
      .groupe = 2,
      .texte = "&Supprimer la sélection",
      .touches = "Del",
      .contexte = 13,
      .dessin = true},

    C{.nom = "mnu_ZoomPlus",
      .menu = Affichage,
      .groupe = 1,
      .texte = "Zoom &avant",
      .touches = "Ctrl++",
      .barre = 63,
      .dessin = true,
      .course = true},
    C{.nom = "mnu_ZoomMoins",
      .menu = Affichage,
      .groupe = 1,
      .texte = "Zoom a&rrière",
      .touches = "Ctrl+-",
      .barre = 61,
      .dessin = true,
      .course = true},
    C{.nom = "mnu_Zoom1",
      .menu = Affichage,
      .groupe = 1,
      .texte = "&Dessin entier",
      .touches = "Ctrl+0",
      .barre = 64,
      .contexte = 31,
      .dessin = true,
      .course = true},
    C{.nom = "mnu_ZoomSelection",
      .menu = Affichage,
      .groupe = 1,
      .texte = "&Loupe",
      .touches = "Ctrl+R",
      .barre = 65,
      .contexte = 32,
      .bascule = true,
      .dessin = true},
    C{.nom = "mnu_NumPoint",
      .menu = Affichage,
      .groupe = 2,
      .texte = "&Points",
      .touches = "F6",
      .barre = 71,
      .bascule = true,
      .dessin = true,
      .course = true},
    C{.nom = "mnu_Sequence",
      .menu = Affichage,
      .groupe = 2,
      .texte = "&Numéros des séquences",
      .touches = "F7",
      .barre = 72,
      .bascule = true,
      .dessin = true,
      .course = true},
    C{.nom = "mnu_Panneau",
      .menu = Affichage,
      .groupe = 3,
      .texte = "Panneau &latéral",
      .touches = "F9",
      .bascule = true,
      .course = true},

    C{.nom = "mnu_Lever",
      .menu = Outils,
      .groupe = 1,
      .texte = "&Points d'attache",
      .touches = "F8",
      .barre = 51,
      .contexte = 41,
      .bascule = true,
      .dessin = true},
    C{.nom = "mnu_Optimisation",
      .menu = Outils,
      .groupe = 1,
      .texte = "&Optimiser les départs",
      .touches = "Ctrl+T",
      .barre = 52,
      .dessin = true},
    C{.nom = "mnu_Nettoyage",
      .menu = Outils,
      .groupe = 1,
      .texte = "&Nettoyer les points...",
      .touches = "Ctrl+L",
      .barre = 54,
      .dessin = true,
      .fenetre = "F_Nettoyage"},
    C{.nom = "mnu_Vinyl",
      .menu = Outils,
      .groupe = 1,
      .texte = "Outil &vinyle...",
      .barre = 53,
      .dessin = true,
      .fenetre = "F_Vinyl"},
    C{.nom = "mnu_Texte", .menu = Outils, .groupe = 1, .texte = "&Texte...", .fenetre = "F_Texte"},
    C{.nom = "mnu_BD",
      .menu = Outils,
      .groupe = 2,
      .texte = "&Matériaux...",
      .touches = "Ctrl+B",
      .barre = 22,
      .fenetre = "F_BD"},
    C{.nom = "mnu_Soudure",
      .menu = Outils,
      .groupe = 2,
      .texte = "Tolérance de &soudure...",
      .fenetre = "F_Soudure"},

    C{.nom = "mnu_ParamAppli",
      .menu = Options,
      .groupe = 1,
      .texte = "&Réglages...",
      .touches = "Ctrl+,",
      .fenetre = "F_ParamAppli"},
    C{.nom = "mnu_ZENIK",
      .menu = Options,
      .groupe = 1,
      .texte = "Paramètres de la &machine...",
      .barre = 81,
      .fenetre = "F_ParamMachine"},
    C{.nom = "mnu_PilMan",
      .menu = Options,
      .groupe = 1,
      .texte = "&Pilotage manuel...",
      .course = true,
      .fenetre = "F_PilMan"},
    C{.nom = "mnu_Defaut", .menu = Options, .groupe = 2, .texte = "Remettre les réglages par &défaut"},

    C{.nom = "mnu_Help", .menu = Aide, .groupe = 1, .texte = "&Aide", .touches = "F1", .course = true},
    C{.nom = "mnu_APropos",
      .menu = Aide,
      .groupe = 1,
      .texte = "À &propos...",
      .course = true,
      .fenetre = "F_About"},

    // controls of the tool bar
    C{.nom = "CB_BD", .barre = 21},
    C{.nom = "Combo_Zoom", .barre = 62, .dessin = true, .course = true},
};

}  // namespace

std::span<const LigneCommande> TableCommandes() { return Commandes; }

std::span<const LigneMenu> TableMenus() { return Menus; }

const LigneCommande* ChercheCommande(std::string_view nom) {
  const auto ligne =
      std::find_if(Commandes.begin(), Commandes.end(), [nom](const LigneCommande& c) { return c.nom == nom; });
  return ligne == Commandes.end() ? nullptr : &*ligne;
}

std::vector<const LigneCommande*> ParPlace(int LigneCommande::*place) {
  std::vector<const LigneCommande*> lignes;
  for (const LigneCommande& c : Commandes) {
    if (c.*place != 0) lignes.push_back(&c);
  }
  std::sort(lignes.begin(), lignes.end(),
            [place](const LigneCommande* a, const LigneCommande* b) { return a->*place < b->*place; });
  return lignes;
}

}  // namespace ovelin
