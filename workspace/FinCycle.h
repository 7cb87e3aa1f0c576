// From the wish to quit to the end of the program, and the lock that stands until then.
#pragma once

#include <functional>
#include <string>

#include "workspace/Module_Cycle.h"

namespace ovelin {

// The lock that keeps a second copy out, in the program's folder. True: another copy holds it. A folder that can't
// hold a lock keeps nobody out.
bool VerrouilleCopie();
void LibereCopie();

struct CrochetsFermeture {
  std::function<bool()> FermeFenetres;  // every other window; false: one of them must stay
  std::function<void()> Sauve;          // mnu_Save
};
// The closing request. Without a project the parameters go to the settings file and nothing is asked; with one,
// EnregistreModifie is asked when it has been modified. False: the program stays; also when the wanted save did not
// happen.
bool DemandeFermeture(const CrochetsFermeture& crochets, const std::string& titre);

struct EtatFenetre {
  Placement place;  // `maximisee` included
  bool minimisee = false;
  int indexBD = 0;    // of the combo CB_BD
  int panneau = 340;  // width of the side panel, logical pixels, 0 when it is closed; never in a project
};
// The window has another size: its place goes to the settings file, so that one that is maximised afterwards and
// then closed comes back with the size that it had last.
void RetaillePlacement(const EtatFenetre& fenetre);
// The unloading: recent list, placement keys, the end of the settings file, snapshots. `documents`: the user's
// documents folder, "" for none.
void DechargeFenetre(const EtatFenetre& fenetre, const std::string& documents);
// The end when nobody can be asked: the same settings, to the settings file alone. The snapshots stay for the next
// start where `gardeInstantanes`.
void TermineSansQuestion(const EtatFenetre& fenetre, const std::string& documents, bool gardeInstantanes);

}  // namespace ovelin
