// Which board: chosen once, at the start, from the keys CarteZENIK and CarteZENIK_USB of the settings file, and
// never changing by itself. What can't be had is told with key, value and reason.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"
#include "core/CleTexte.h"

namespace ovelin {

enum class GenreCarte { Aucune, Usb, Bibliotheque, Virtuelle };

struct ReglageCarte {
  std::string carte = "auto";  // "auto", "usb", "virtuelle", "aucune", or the absolute path of a library
  std::string usb;             // "1A2B:3C4D"; empty: none
  bool operator==(const ReglageCarte&) const = default;
};
// From the settings file alone: a project chooses no board.
ReglageCarte LitReglageCarte();

// Something that stands between the user and a board.
struct RefusCarte {
  CleTexte texte;
  std::string cle, valeur;  // of the settings
  std::string raison;       // behind it, "" where the text says all
};
// Text, key and value, reason: what the user reads.
std::string TexteRefus(const RefusCarte& refus);

// What a board is opened with.
struct MoyensCarte {
  std::string fichier;                       // of the virtual board; empty: it keeps nothing
  std::string dossierVerrous;                // where the locks of real boards lie; empty: no lock
  std::function<std::int64_t()> horloge;     // ns
  std::function<void(std::int64_t)> attend;  // ns
  bool rapide = false;                       // the virtual board as fast as it can
  std::vector<zenikcom::Faute> fautes;       // of the virtual board
  // A way to look at every exchange; left out: none.
  std::function<std::unique_ptr<zenikcom::Liaison>(std::unique_ptr<zenikcom::Liaison>)> enveloppe;
  // The link to a USB board; left out: that of the library.
  std::function<zenikcom::Ouverture(zenikcom::IdentiteUsb, const std::string& verrou)> usb;
};
// The file in the program's folder, locks in the system's temporary folder, the clock of the services.
MoyensCarte MoyensOrdinaires();

struct CarteChoisie {
  GenreCarte genre = GenreCarte::Aucune;
  std::unique_ptr<zenikcom::Liaison> liaison;           // never null
  std::shared_ptr<zenikcom::CarteVirtuelle> virtuelle;  // of a virtual board alone
  std::vector<RefusCarte> refus;
};
// "auto" is the USB board of the settings where one is plugged in, else the virtual board; one that is there and
// can't be opened is told and is no reason to take another. A USB board that isn't there yet is waited for. Where a
// setting is wrong there is no board.
CarteChoisie ChoisitCarte(const ReglageCarte& reglage, const MoyensCarte& moyens);

// The board of this program; the class speaks to it.
struct CarteDuProgramme {
  GenreCarte genre = GenreCarte::Aucune;
  std::shared_ptr<zenikcom::CarteVirtuelle> virtuelle;
  std::string raisonDite;  // why its file can't be written, as it was told last
  int rang = 0;  // how many boards the program has had with this one: their counters have nothing in common
};
extern CarteDuProgramme LaCarte;

// Chooses by the settings and makes the one object of the class, with the parameters of the table in force. What
// the object before it has told and asked is neither told nor asked again.
std::vector<RefusCarte> InstalleCarte(const MoyensCarte& moyens);
// Lets the board go, with all that it has to keep, and its lock; then there is none.
void FermeCarte();
// The user's command: another board from now on. Its setting is written, then it is opened and checked as at the
// start. A job that was stopped can only be given up then. False, told: the machine moves or an operation holds the
// board, and nothing has changed.
bool ChangeCarte(const ReglageCarte& reglage, const MoyensCarte& moyens);
// The same with a prompt: what is typed is a value of CarteZENIK, or vendor and product of a USB board. False:
// nothing has changed.
bool DemandeCarte(const MoyensCarte& moyens);
// One box each.
void DitRefus(const std::vector<RefusCarte>& refus);
// Writes what the virtual board has to keep. Why that can't be, told not yet.
std::optional<RefusCarte> RefusFichierCarte();
// The name of the board for the status bar.
CleTexte NomCarte();

}  // namespace ovelin
