// What a press of the start button means: start, stop, resume, give up. The window and the command line call these.
#pragma once

#include <cstdint>
#include <string>

namespace ovelin {

// How the records go to the board: Option_Mode.
inline constexpr std::uint8_t EnvoiDirect = 0, MemoireSeule = 1, MemoireEtFraisage = 2;

// The start face. `vitesse` is the text of TB_Vit_Mat_H, mm/s; where the user takes the highest speed of the way
// instead, it becomes that one. Asks with lib005 and lib007, tells what forbids a run. Returns when the run has
// ended or was stopped; false: there was none.
bool LanceFraisage(std::string& vitesse, std::uint8_t mode);

// The stop face: the run finds the wish at its next look.
void ArreteFraisage();

// The resume face: back over the row that was interrupted, down to its level, and on with what is left. A speed
// typed meanwhile counts for cuts and rapids alike. The way back ends at the very step at which that row begins.
// False: there is nothing to resume, the board moves or is gone, or its place is lost.
bool ReprendFraisage(const std::string& vitesse);

// Nothing will be resumed.
void AbandonneFraisage();

// Command1, "Essai Flash": the whole plan, without its empty rows and whatever Option_Mode says, into the board's
// memory and run from there. Returns when it has ended or was stopped; false: there is no board, no flash memory,
// no plan, or the machine is busy.
bool EssaiFlash();

// Timer_MotorOff: motors without current, unless the machine is at work. False: it is.
bool EteintMoteur();

// The program ends while the machine works: it stops by its ramp, waited for, then spindle and outputs are off. A
// board that does not stand then is reset.
void ArreteAvantFin();

}  // namespace ovelin
