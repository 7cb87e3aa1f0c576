// From the first line of the program to the main window. The order is binding: the first settings are read before
// the settings file has been looked for, several checks warn and go on.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "image/Marques.h"
#include "workspace/Module_Demarrage.h"

namespace ovelin {

// Set once at the start and read by the windows.
struct EtatCycle {
  std::string NomSysteme;
  bool OuvertureDehors = false;  // an opening from outside the dialog waits
  MemoireOutil Outil;            // last position shown of the tool
  bool AfficheOutil = false;     // the two flags of the tool display
  bool AfficheOutil2 = false;
  bool OutilFiche = false;     // the tool of the database is shown (CB_SAV_13 of the table)
  bool RemiseDefauts = false;  // mnu_Defaut: the settings file makes room for a fresh one at the end
};
extern EtatCycle Cycle;

// --- start ---------------------------------------------------------------------------------------------------

// Project files open with the program.
struct Association {
  std::string nom, extension, description, icone;
  bool operator==(const Association&) const = default;
};

// Everything outside that the start needs. An empty function is left out, with the answer that lets the start go
// on.
struct CrochetsDemarrage {
  std::function<bool()> AutreCopie;      // another copy runs; left out: a lock in the program's folder
  std::function<char()> MarqueDecimale;  // of the user's locale
  std::function<bool()> CompteurPrecis;  // there is a precise clock
  std::function<void(const Association&)> Associe;
  std::function<int()> VersionPathwerk;     // left out: the library's own
  std::function<bool()> DossierTemporaire;  // left out: PrepareDossierTemp
  std::function<bool()> Connecte;           // the network is there
  // Starts the request for the file of the update server and returns at once; TraiteMiseAJour takes the answer.
  std::function<void(const std::string& adresse)> DemandeMiseAJour;
  std::function<void()> CreeCarte;  // the one board object
  std::function<bool()> CartePresente;
  std::function<void()> ResetBuffer;
  std::function<bool()> Touche;  // a key of the board's keypad is held
  std::function<void()> TableVerif;
  std::function<void()> MontreFenetre;
};
struct ResultatDemarrage {
  bool lance = false;  // false: a second copy; the user has been told
  bool neuf = false;   // the default settings file has been written
  std::string raison;  // why the default settings file can't be written; the built-in values are in force
};
ResultatDemarrage DemarreCycle(const OptionsDemarrage& options, const CrochetsDemarrage& crochets);

// --- update --------------------------------------------------------------------------------------------------

// "4.11.0 OVELIN" is offered when any field is higher than its counterpart, each by itself: 3.99 is newer
// than 4.10.
bool MiseAJourOfferte(std::string_view reponse);
// The answer of the update server, "" for none. Asks, and on yes opens the project's page.
void TraiteMiseAJour(std::string_view reponse, const std::function<void(const std::string& adresse)>& ouvre);

// --- load of the main window ---------------------------------------------------------------------------------

// Table and material database: the key TableDefaut, or `imposee` before it, with the table's values where that
// makes another one current than the start has loaded (a first run writes the key behind its reading); CB_SAV_13 of
// that table; the presets where there is no record yet.
void ChargeTableEtFiches(const std::string& imposee = "");

// Size and place in twips, as the settings keep them.
struct Placement {
  std::int32_t gauche = 0, haut = 0, largeur = 1000, hauteur = 800;
  bool maximisee = false;
  bool operator==(const Placement&) const = default;
};
// Drawn back so that the far edge meets the screen's edge at most; a window wider than the screen begins at its
// edge.
Placement LitPlacement(const std::string& fenetre, std::int32_t largeurEcran, std::int32_t hauteurEcran);

enum class SuiteCommande {
  Aucune,             // no command line
  Ouverte,            // the drawing stands, as the project, modified
  Refusee,            // the opening has failed or was taken back, or there is no such file
  ExtensionInconnue,  // told; the load of the window ends there
  OvlCorrompu,        // told; the load of the window ends there
};
// A file given on the command line; `ligne` may hold double quotes. A drawing that isn't a project becomes
// FichierProjet too, but no key is ever placed in it.
SuiteCommande OuvreLigneCommande(std::string ligne);
// The parameter fields stay blank and the manual window closed.
constexpr bool FinChargement(SuiteCommande s) {
  return s == SuiteCommande::ExtensionInconnue || s == SuiteCommande::OvlCorrompu;
}

}  // namespace ovelin
