// The way that an interpreter has read against the rows of the plan, in both directions.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "core/TableDecoupe.h"
#include "tests/support/Rs274.h"

namespace essai {

struct EcartTrajet {
  std::string faute;  // the first move that is none of the plan's, "" when all are
  std::size_t arcs = 0;
  double rangs = 0;   // mm: a row's end from the way at most
  double fleche = 0;  // mm: the way from the rows at most; over a chord of the plan an arc rises
  double rayons = 0;  // mm: between the distances of an arc's ends from its centre at most
};

// `plan` from row 1, the start, on. Moves stand for rows in their order: a line for one row and those before it
// that go nowhere, an arc for a run of rows at one height. `avances`: the feed of each cut is that of its rows.
EcartTrajet CompareTrajet(const std::vector<MouvementRs274>& mouvements, std::span<const ovelin::Deplacement> plan,
                          bool avances);

}  // namespace essai
