// The selection, or an attachment point, taken by the mouse: moved where a selected path is held, scaled at the
// corners of its box, turned at the grip above it. Nothing changes before the button comes up; then the procedures
// of the panel's fields do it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "image/SceneSelection.h"
#include "workspace/Module_Souris.h"

namespace ovelin {

enum class SortePrise : std::uint8_t { Aucune, Deplace, Echelle, Tourne, Attache };

struct EtatPrise {
  SortePrise sorte = SortePrise::Aucune;
  bool tire = false;          // the mouse has gone so far that it is a drag
  float x0 = 0, y0 = 0;       // of the press, twips
  std::vector<Code2> avant;   // selection of before the press
  bool rend = false;          // it comes back with the drag
  BoiteSelection boite;       // of what is dragged, mm
  double dx = 0, dy = 0;      // mm
  double rapport = 1;         // of the size
  double angle = 0;           // radians
  std::int32_t attache = -1;  // the attachment point that is held, in TraceInitial ...
  float x = 0, y = 0;         // ... and where the mouse is with it, mm
  PointEcran pointeur;        // the mouse, twips
};
extern EtatPrise Prise;

// Grips of the selection's box on the screen: four corners, and the one that turns.
struct Poignees {
  PointEcran coins[4];
  PointEcran tourne;
};
Poignees PoigneesDe(const BoiteSelection& boite, const TailleImage& taille);

// A press at this place, before it selects: remembers the selection, and whether a grip is held.
void PrepareTirage(const EvenementSouris& e, const TailleImage& taille);
// The press has selected. A path is held where the press lies within a few pixels of it.
void CommenceTirage(const EvenementSouris& e, const TailleImage& taille, const SegmentProche& proche);
// The mouse is at this place. True: what is dragged has changed. The first call beyond the threshold brings the
// selection of before the press back where a selected path or a grip is held. Shift keeps the axis, or steps of 15
// degrees; Control snaps corners and middle of the box to the grid and to the boxes of the other paths.
bool Tire(const EvenementSouris& e, const TailleImage& taille, SuiteSouris& suite);
// The button comes up: what was dragged is done. False: it was no drag.
bool LacheTirage();
// Escape, or another button: as if the mouse had not moved.
void AbandonneTirage();

// "12.0, -3.5 mm", "120 %", "45.0°"
std::string TexteTirage();

}  // namespace ovelin
