// The measuring pass: a program walked through with no machine. Its bounds, lengths and vertices, and what stands
// in the way of running it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "gcode/Programme.h"
#include "gcode/Sommets.h"

namespace ovelin {

// Of all targets and points of arcs, mm. All 0 for a program without a move.
struct BornesProgramme {
  double Xmin = 0, Xmax = 0, Ymin = 0, Ymax = 0, Zmin = 0, Zmax = 0;
  bool operator==(const BornesProgramme&) const = default;
};

struct MesureProgramme {
  BornesProgramme bornes;
  std::size_t mouvements = 0;        // made, those of no length among them
  double longueur = 0;               // mm, all moves
  double longueurRapide = 0;         // mm of it without a speed of their own
  double secondes = 0;               // of the other moves at their speed, without ramps
  std::size_t sansVitesse = 0;       // moves of some length with no F before them
  std::size_t ligneSansVitesse = 0;  // line of the first, from 1; 0: none
  std::size_t lignesEchouees = 0;    // failed in the middle
  std::vector<std::string> rejets;   // words that the interpreter doesn't know
  std::vector<DefautArc> defauts;    // arcs that could not be made as they were meant
  // A strip of the way: first the start at the origin, then each place where a move of some length ends.
  std::vector<Vertex> TraceVertex;
  std::vector<Vertex> CadreVertex;  // the box of the bounds as separate lines
};

// Colours of the stretches, as RGBtoDXCOLOR gives them.
struct CouleursMouvement {
  std::uint32_t rapide = 0, coupe = 0, plongee = 0, cadre = 0;
};

// What a move stands for in the picture: a plunge is a move of the tool's axis alone that is not rapid.
GenreMouvement GenreDe(const MouvementLigne& mouvement);
// A length of the way in space, mm.
double LongueurDe(const MouvementLigne& mouvement);

// `avecTrace` false: no vertices.
MesureProgramme MesureDe(const Programme& programme, const CouleursMouvement& couleurs, bool avecTrace);

}  // namespace ovelin
