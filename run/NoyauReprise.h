// What a run makes of its table of moves: without empty rows, what is left of it, the way back into it. Values in,
// values out. Tables have their rows from index 1 on, as the planner leaves them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/TableDecoupe.h"

namespace ovelin {

// Rows that move nothing go; the order stays. From here on a row's index is the number of its record on the board.
void CompacteTable(EtatPlan& plan);

// The rows from number `premiere` to the last, from index 1 on; the table before `premiere` 1 is all of it.
std::vector<Deplacement> LignesDepuis(const EtatPlan& plan, std::int32_t premiere);

// Where the way back ends, as a row that ends there: at the end of an interrupted row that moves in Z alone, and of
// one in the plane, which has the level; where one sinks on its way, as the ramp into a path does, at its
// beginning, for the material under it is still there. `mmParPasZ`: mm a step.
Deplacement ArriveeReprise(const Deplacement& premiere, double mmParPasZ);

// The steps of the way back, put right: the rows of `plan` behind row 1 lead from the board's counters to the very
// step at which the first row of `reste` begins, or to its level where it is reached already. `ici`, `depart`: the
// counters now and there. The last of the rows that move in Z takes the difference, as does the one in the plane.
// `arrivee`: as `ArriveeReprise` has it.
void CaleApproche(EtatPlan& plan, const std::array<std::int32_t, 3>& ici, const std::array<std::int32_t, 3>& depart,
                  const Deplacement& arrivee);

// What is left of a job, behind the way back: cuts and rapids at `vitesse` mm/s, a ramp never faster than it was; a
// row that only leads to a level at which the tool is already moves nothing in Z.
void AjouteReste(EtatPlan& plan, const std::vector<Deplacement>& reste, float vitesse);

// "1:02:05", "02:05" or "05": hours and minutes where there are any. Below 0 counts as 0.
std::string TexteTempsRestant(double secondes);

}  // namespace ovelin
