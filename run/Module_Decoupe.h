// A job on the board: from the table of moves to the last step, whoever has filled it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace ovelin {

// Who starts a run. Every other name is a run that neither scales its speeds nor can be resumed.
inline constexpr const char* AppelantFraisage = "F_Fraisage";
inline constexpr const char* AppelantPilotage = "F_PilMan";
// "Essai Flash": the rows at their own speeds into the board's memory and run from there, spindle off.
inline constexpr const char* AppelantEssaiFlash = "Command1";

// The three faces of the start button.
enum class FaceFraisage { Depart, Arret, Reprise };

// What the milling window, or the command line, shows of its run.
struct VueDecoupe {
  std::function<void(double total)> Debut;                          // s foreseen; progress begins at 0
  std::function<void(double reste, double ecoule)> Avance;          // s, never below 0
  std::function<void(bool ecrit)> Memorise;                         // the long write into the board's memory
  std::function<void(FaceFraisage)> Face;                           // another face, at rest or in motion
  std::function<void(std::int32_t ligne, float& vitesse)> Accepte;  // a row has been taken, of that speed, mm/s
};
extern VueDecoupe Vue_Decoupe;

// The face that belongs to the state of the run.
FaceFraisage FaceCourante();

// Runs TableDecoupe on the board and returns when it has ended or was stopped. Only AppelantFraisage scales: rows
// in the plane get Vitesse_Mat_H * Vitesse / VRef, so that a speed typed in the run counts from the next row on.
// What it tells by a box: a list or a link that failed, a board that stands still. Always 0.
std::int16_t LanceDecoupe(float& VRef, const std::string& appelant);

// The line of the run up to row `index`, the status line, the time that is left.
void AffichageAvancement(double tempsTotal, double heureDebut, std::int32_t index);

// Behind a lost link: asks the board, once it is there again, how far it has come, stops it where it still moves,
// and leaves what is left of the job in TableReprise; a job that was never told to go is left as a whole. False: it
// is not there yet. A board that counts less than before has forgotten the job: PlacePerdue.
bool RetrouveCarte();

}  // namespace ovelin
