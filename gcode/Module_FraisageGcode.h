// A program run on the machine: its lines interpreted one after the other, each move sent at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "gcode/Mesure.h"

namespace ovelin {

// What the workshop, or the command line, shows of its run.
struct VueGcode {
  std::function<void(std::size_t ligne, std::uint32_t numero)>
      Mouvement;  // move `numero`, from 1, of a line from 0
  // The tool is to be changed: wait for ReprendOutil, which takes it back. Where nobody takes it a question
  // (lib022) goes on or stops.
  std::function<void(bool attend)> AttendOutil;
  // An S word: that share of the spindle's top speed, per cent. It is told and changes nothing.
  std::function<void(double pourcent)> Broche;
  std::function<void(const Lieu& lieu)> Outil;  // where the tool is, mm in the program's coordinates
};
extern VueGcode Vue_Gcode;

enum class IssueGcode {
  Refusee,   // nothing has moved; why was told
  Terminee,  // to its last line
  Arretee,   // by the user, or by a board that is gone (told); ResteGcode says whether it can go on
};

// The run of `mnu_Fraisage`. Refused without a board (lib001), with moves that have no speed, and where the user
// does not want the lines skipped that are not valid (question lib020, once). The place where the machine stands is
// the program's origin. Returns when the last step is done, or behind the stop: by the ramp, then spindle and
// output off.
IssueGcode LanceGcode(const Programme& programme, const MesureProgramme& mesure);

// A stopped run of this program can go on.
bool ResteGcode();
// Goes on with the line that was under way, behind the question lib021: up to clearance, over the start of that
// line, spindle and output as they were, down at the program's feed.
IssueGcode ReprendGcode(const Programme& programme, const MesureProgramme& mesure);
// Another program is loaded, or the job is given up.
void OublieGcode();

// `Btn_Reprise`, behind a change of the tool: a new job on the board, motors and output as they were.
void ReprendOutil();

}  // namespace ovelin
