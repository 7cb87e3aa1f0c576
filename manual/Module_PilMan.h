// Manual control: keys pressed and let go, what else ends a jog, the poll of the board, spindle and motors. The
// window tells what happens and shows what comes back.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/Types.h"

namespace ovelin {

// The state of manual control, one in the program.
struct EtatPilMan {
  double DistX = 1, DistY = 1, DistZ = 1;       // mm of the last jog on each axis
  std::int16_t Pas = 1;                         // mode, 0 to 4 (NoyauJog.h)
  float ValeurX = 0, ValeurY = 0, ValeurZ = 0;  // mm typed for mode 0
  float Vitesse = 4;                            // mm/s
  Drapeau SensFleche = Faux;                    // the arrow held is the plus arrow
  Drapeau Ctrl = Faux, Shift = Faux;            // modifiers held, or set on the screen
  Drapeau Broche = Faux;                        // the spindle is wanted
  bool JogActif = false;                        // from the begin of a move by hand to its end
  bool continu = false;                         // that move lasts as long as its key
  bool prepare = false;                         // the key is down, the move has not yet begun
  bool annule = false;                          // an end came before the begin
  int toucheCarte = 0;                          // key of the board's keypad that has begun a move and is still down
  bool dansTick = false;                        // a tick of TimerPosition is on its way
  // Places (Module_PlaceMan.h).
  int carte = 0;               // board whose counters these are (CarteDuProgramme::rang)
  bool lue = false;            // the counters of this session stand: none are taken over from an earlier one
  bool marque = false;         // the settings file says that the place may have changed
  bool fermee = false;         // a job runs that began without the mark: the window is closed
  bool placeDouteuse = false;  // nobody can say where the machine stands until the user has looked

  [[nodiscard]] std::array<double, 3> Valeurs() const {
    return {static_cast<double>(ValeurX), static_cast<double>(ValeurY), static_cast<double>(ValeurZ)};
  }
  bool operator==(const EtatPilMan&) const = default;
};
extern EtatPilMan PilMan;

// What a key has done, so that the window follows.
enum class EffetTouche {
  Aucun,
  Arret,         // stopped at once
  Modificateur,  // slow or fast
  Aide,          // the help is to be shown, or hidden
  Vitesse,
  Mode,
  Valeurs,    // mode 0: the typed distances are to be shown
  Mouvement,  // a move has been made; on return it has ended
};

// A key goes down; repeats are not told. Returns when the move has ended: meanwhile events run, and the key's
// release comes in by Form_KeyUp. `shift` and `ctrl`: modifiers of the key. A key that moves nothing asks the board
// nothing, and none moves while the board works for somebody else.
EffetTouche Form_KeyDown(int code, bool shift, bool ctrl);
// A key goes up. A continuous jog ends by its ramp; a stepped one runs to its end.
void Form_KeyUp(int code);
// Ends a continuous jog by its ramp, for what is no key: the window has lost the keyboard, is hidden or closed, the
// pointer is let go, the screen is locked. One that is only about to begin does not.
void ArreteJog();
// `Lbl_Stop` and Escape: whatever runs stops at once.
void ArreteAussitot();
// A step of a timer in a jog: ends it where the link has not answered for 200 ms.
void SurveilleLiaison();

// Moves TableDecoupe for this window at `vitesse` mm/s, the spindle left alone. Returns when it has ended.
void LanceParMain(float vitesse, bool continu);
bool CartePresente();
// The board is there, free, and has the table in force.
bool PretParMain();

struct VueVitesse {
  std::string vitesse;  // with its unit
  bool modifiee = false;
  std::string mode;  // for the status line
};
VueVitesse AfficheVitesse();

// What a tick of TimerPosition shows.
struct VuePosition {
  bool palpeur = false;  // the machine has limit switches: the tool's zero is offered
  bool enButee = false;  // a switch is pressed: "END/ORIG"
  std::array<std::string, 3> lieu;
};
// What is known of it without asking.
VuePosition DernierePosition();
// Asks the board, unless a job has it; then the spindle's wish, then the keypad, whose jog has ended on return.
VuePosition TimerPosition();

// `Lbl_Motor`: the motors are held. For how long, ms.
std::int32_t TientMoteur();
// `Lbl_Broche`: the next tick sends it. True: on.
bool BasculeBroche();

}  // namespace ovelin
