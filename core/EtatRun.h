// What goes on at the machine: the wishes and the marks of a run. Data only: the run, the windows and the class of
// the board read and write it.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/TableDecoupe.h"
#include "core/Types.h"

namespace ovelin {

struct EtatRun {
  // Wishes. A press or a key sets them and nothing else; the run finds them at its next look.
  Drapeau StopDemande = Faux;  // stop; set by windows, keys and the reader of replies
  Drapeau Pause = Faux;        // wait before the next move
  Drapeau ArretRampe = Faux;   // the next stop slows down first

  Drapeau FraisageEnCours = Faux;  // a run is active; the stop face clears it before the run has returned
  bool RunActif = false;           // from the first line of LanceDecoupe to its return
  bool FinProgramme = false;       // the program is closing: nothing waits for the board any more
  bool TestEnCours = false;        // a speed or lost-step test runs: what would end it beeps and stays
  bool OperationCarte = false;     // an operation of the board runs: commands that would disturb it beep

  std::uint8_t ModeEnvoiTable = 0;       // 0 straight to the board, 1 list only, 2 list, then run
  std::vector<std::uint8_t> ListeFlash;  // the job as stored records
  // Rows that the last stop left, from 1; empty while nothing can be resumed.
  std::vector<Deplacement> TableReprise;

  std::int32_t IndexSuivi = 0;      // row of the table of moves up to which positions have been counted
  Drapeau SansSuivi = Faux;         // replies to motion records are not read as a status
  std::int32_t NbBlocsTotal = 0;    // motion records that the board has accepted in this job
  float VitesseJog = 0;             // mm/s of the move by hand
  Drapeau ClavierActif = Faux;      // the key comes from the board's keypad
  Drapeau EcranVeilleActif = Faux;  // the screen saver is held back for a run, and is to be given back

  // Where the first row of TableReprise begins, steps of the board's counters.
  std::array<std::int32_t, 3> DepartReprise{};
  // The link was lost in a job: the board may go on with what it has, and its place is not known until it is asked.
  bool AttendCarte = false;
  // The board has forgotten the job whose place it knew: what is left of it can only be given up.
  bool PlacePerdue = false;

  // What is shown of the run.
  double TempsTotal = 0;               // s, foreseen
  double HeureDebut = 0;               // s of the monotonic clock
  std::int32_t IndexTraceRun = 0;      // next row to be drawn
  float XTraceRun = 0, YTraceRun = 0;  // mm, where the line of the run has come to

  bool operator==(const EtatRun&) const = default;
};

}  // namespace ovelin
