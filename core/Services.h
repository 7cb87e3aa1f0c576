// Everything the outside world does for the procedures: boxes, dialogs, progress, clock. The windows fill it with
// the toolkit, the command line with the terminal, tests with a script. What nobody has filled fails loudly.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Traduction.h"

namespace ovelin {

enum class Icone { Aucune, Information, Question, Exclamation, Critique };
enum class Boutons { Ok, OkAnnuler, OuiNon, OuiNonAnnuler };
enum class Reponse { Ok, Annuler, Oui, Non };

// A box. `cle` with `section` names it (tests script by key; "" for the few fixed texts, then `texte` names it);
// `texte` is what the user reads, complete and translated.
struct BoiteMessage {
  std::string section;
  std::string cle;
  std::string texte;
  std::string titre;
  Icone icone = Icone::Aucune;
  Boutons boutons = Boutons::Ok;
  // Where a file is at fault: its name and line, for programs that read the answer.
  std::string fichier;
  long ligne = 0;
};

enum class Evenements {
  Affichage,  // painting and timers; the user's input is held back
  Tous,       // the loops of a run
};

// Panels of the status bar that procedures write to, by their numbers there.
enum class PanneauEtat {
  Fichier = 1,  // the file, or the path that is current
  Points = 2,   // what is being counted or cleaned
  Statut = 5,   // what goes on
};

// Save and open dialogs.
struct DialogueFichier {
  bool enregistrer = false;
  std::string cle;  // names the dialog: "mnu_Ouvrir", "mnu_Save", "Btn_Gener_GCODE", "Btn_Gener_Fichier"
  std::string titre;
  std::string filtre;   // text of the filter
  std::string motif;    // "*.nc"
  std::string propose;  // proposed path or name
};

// The size dialog of a newly read drawing: mm in, ratios out.
struct DemandeDimension {
  double largeur = 0, hauteur = 0;    // mm
  double courseX = 0, courseY = 0;    // travel, mm
  double rapportX = 1, rapportY = 1;  // answer
};

// What came of opening a file or an address by the desktop.
enum class IssueBureau {
  Ouvert,
  FichierAbsent,    // there is no such file
  CheminAbsent,     // its folder is missing
  SansDroit,        // this user may not read it
  SansAssociation,  // the desktop knows no program for it
};

// What is asked of the window of manual control: by a run, whichever window has started it, and at the start.
enum class DemandePilotage {
  Reduit,       // lower the window: somebody else drives
  Retablit,     // its full height again
  SeTait,       // its timer asks the board nothing
  Interroge,    // its timer asks again
  SansOrigine,  // its panel of origins is disabled
  Plie,         // low until the user's hand is in it: it lies over the drawing
};

struct Services {
  std::function<Reponse(const BoiteMessage&)> Montre;
  std::function<std::string(const DialogueFichier&)> ChoisitFichier;  // "" when cancelled
  // "" when cancelled; the prompt is named by the key of its text.
  std::function<std::string(CleTexte cle, const std::string& texte, const std::string& propose)> Saisit;
  std::function<void(DemandeDimension&)> Dimensionne;
  // Opens the window of that name over the one in front and waits for its end where it is modal. What the user has
  // chosen in it, 0 in a window without a choice; nothing where it was left without OK, where it stays open, or
  // where there is no such window.
  std::function<std::optional<int>(const std::string& nom)> OuvreFenetre;
  // A file or an address, opened by the program that the desktop has for it.
  std::function<IssueBureau(const std::string& cible)> OuvreParBureau;

  // Progress: opened with a text and a total, stepped, closed.
  std::function<void(const std::string& texte, long total)> AvancementDebut;
  std::function<void()> AvancementPlus;
  std::function<void()> AvancementFin;
  // Text of a panel of the status bar.
  std::function<void(PanneauEtat panneau, const std::string& texte)> Panneau;
  // The status bar shows at once what has been written to it.
  std::function<void()> RafraichitEtat;
  // Lists, trees and picture follow the document.
  std::function<void()> Rafraichit;
  // Menus and buttons that need a drawing: disabled while one is opened, enabled when it stands; then the view is
  // fitted to it and the caption takes its name.
  std::function<void(bool ouvert)> DessinOuvert;
  // The caption of a drawing that comes from no file, until it is saved or another one is opened.
  std::function<void(const std::string& titre)> TitreDessin;
  // A path for the recent list.
  std::function<void(const std::string& chemin)> FichierRecent;

  // While held, neither screen saver nor sleep comes; the desktop gives it back by itself when the program dies.
  std::function<void(bool retenue)> RetientVeille;
  // The place of the tool has been read, mm: its mark in the picture follows, and the manual window's labels.
  std::function<void(double x, double y)> MarquePosition;
  std::function<void(double x, double y, double z)> MontrePosition;
  // The line of the run in the picture: a way that has been cut, mm; without it again.
  std::function<void(float x0, float y0, float x1, float y1)> LigneRun;
  std::function<void()> EffaceLigneRun;
  // The one control that stops whatever runs.
  std::function<void(bool visible)> MontreStop;
  // A run of a job begins, or has ended: what would disturb it is shown as disabled meanwhile, in every window. Not
  // told for a move by hand: there the commands refuse by OperationCarte.
  std::function<void(bool enCours)> MontreRun;
  std::function<void(DemandePilotage)> Pilotage;
  // The main window's idle look at the board, on or off: off while another window has the board for itself.
  std::function<void(bool actif)> Timer_Interro;
  // `pas` is called every few milliseconds as long as events run, in the loop of a box or a dialog, too, until it
  // is given nothing.
  std::function<void(const std::function<void()>& pas)> Battement;

  std::function<void(Evenements)> LaisseEvenements;
  // Runs a kernel over copies to its end while painting and timers go on, on a thread of its own where there is a
  // window; see Travaille below. The kernel touches nothing of the document and calls no service.
  std::function<void(const std::function<void()>& noyau)> EnFond;
  std::function<double()> Horloge;     // s, monotonic
  std::function<void(double)> Attend;  // s
  std::function<void()> Bip;
  char MarqueDecimale = '.';  // the user's decimal mark
};
extern Services Svc;

// A kernel that may take long, run through `EnFond`, or directly where nobody offers one. Returns when it is done.
void Travaille(const std::function<void()>& noyau);
// The same for work that may also be small: directly where it is not worth a thread.
void TravailleSi(bool long_, const std::function<void()>& noyau);

// A box with its text under the program's name, to be completed.
BoiteMessage BoiteDe(CleTexte texte, Icone icone, Boutons boutons = Boutons::Ok);
// Such a box shown; the shortest way.
Reponse Message(CleTexte texte, Icone icone, Boutons boutons = Boutons::Ok, std::string_view titre = "OVELIN");
// A box about a file: its text, then `suite`, which names the file and the reason where they help.
void MessageFichier(CleTexte texte, const std::string& suite, Icone icone, const std::string& fichier);

// Services for a program without a window or a script: boxes fail loudly (see Verifie), progress and panels do
// nothing, the clock is the system's.
Services ServicesMuets();

// Always-on check of what can't be: tells file and line on standard error and ends the program after `ArretFatal`.
[[noreturn]] void Impossible(const char* quoi, const char* fichier, int ligne);
extern void (*ArretFatal)();  // stops the machine first
#define VERIFIE(condition)                                                  \
  do {                                                                      \
    if (!(condition)) ::ovelin::Impossible(#condition, __FILE__, __LINE__); \
  } while (false)

}  // namespace ovelin
