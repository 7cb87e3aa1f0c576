// The table of moves of a job, and the carries that belong to it. Data only: the planner fills it.
#pragma once

#include <cstdint>
#include <vector>

namespace ovelin {

// One straight move. Row 1 is no move: it holds the machine's position at the moment of planning.
struct Deplacement {
  float X = 0, Y = 0, Z = 0;            // target, mm, absolute; Z 0 at the surface, negative downward
  std::int32_t dX = 0, dY = 0, dZ = 0;  // increment in motor steps, signed
  float Vitesse = 0;                    // mm/s along the path
  std::int32_t Reserve1 = 0, Reserve2 = 0;
  std::int32_t Ticks = 0;  // written by the run alone
  bool operator==(const Deplacement&) const = default;
};
static_assert(sizeof(Deplacement) == 40);

struct EtatPlan {
  std::vector<Deplacement> TableDecoupe;  // index from 1: element 0 is never used
  std::int32_t NbDeplacements = 0;        // upper index
  // Rounding carry since InitDecoupe: what was asked for in mm, what was put in rows in steps.
  float CumulX = 0, CumulY = 0, CumulZ = 0;
  std::int32_t PasCumulX = 0, PasCumulY = 0, PasCumulZ = 0;
  // What 32 bits have rounded off the three sums, mm. It joins its sum once it is worth an eighth of a step: a
  // short job is the plain sum, and over a million rows the place is still that of the drawing.
  double ResteX = 0, ResteY = 0, ResteZ = 0;
  std::int16_t PassePremiere = 0;  // number of the pass of the current path, from 1
  bool operator==(const EtatPlan&) const = default;
};

}  // namespace ovelin
