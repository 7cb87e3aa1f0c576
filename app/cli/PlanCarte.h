// The table of moves as the board gets it: a record for each row that moves a motor, streamed or stored.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controller/Mouvement.h"

namespace ovelin::cli {

struct PlanCarte {
  std::vector<Mouvement> lignes;  // of the rows from the second on; one that moves nothing has no ticks
  std::int32_t nombreRecords = 0;
  double prevu = 0;     // s, ramps included
  std::string records;  // 37 bytes a record as handed to the board, bytes 33 to 36 are 0
  std::string liste;    // the stored job with its end mark
};
// By the parameters that are loaded, without a board. The speed of each row is lowered to what the axes can do.
PlanCarte CalculePlanCarte();

}  // namespace ovelin::cli
