// What of manual control lasts: speed, mode, distances and the place of the machine, in the settings file alone.
// And a mark there that stands as long as the place may change, so that an end without a farewell is noticed.
#pragma once

#include "core/Services.h"

namespace ovelin {

// Before each showing of the window: its settings. At the first one of a session the counters of the board's object
// take over the place of the last, in steps; the mark of an end that was not clean makes it a doubtful one. Once a
// job has run, or an origin was set, its counters stand: a resume reckons with them.
void LitPilMan();
// The window closes: settings and place, and the mark is taken away, unless the place is doubtful.
void FermePilMan();
// The place alone, behind whatever has changed it. Before the first job and the first showing of the window nothing
// is written: the counters stand from here on.
void EcritPlace();
// What a run, whoever has started it, asks of manual control: the mark before it, the place behind it. A job whose
// link was lost leaves a doubtful place.
void SuitPilotage(DemandePilotage demande);
// True once behind a change of the board: its counters begin at zero wherever the machine stands, so that the place
// is a doubtful one.
bool SuitCarte();
// The user has looked: the place is the one that is shown.
void ConfirmePlace();

// Corner of the window, twips; nothing (false) where none was kept.
bool LitCoin(int& gauche, int& haut);
void EcritCoin(int gauche, int haut);

}  // namespace ovelin
