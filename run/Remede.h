// What mends a warning of the milling window: one press, the same as the entry in a field. Where only the user
// knows the value, the press leads to its field.
#pragma once

#include <cstdint>
#include <string>

namespace ovelin {

enum class SorteRemede : std::uint8_t {
  Aucun,
  Coin,          // the drawing into the corner of the travel
  Vitesse,       // material speed, mm/s
  Degagement,    // clearance height, mm
  Pont,          // height of the bridges, mm
  Recouvrement,  // overlap of pockets, per cent
  Profondeur,    // the deepest that the travel reaches, mm
  Encoche,       // width of the notches, mm
  Rayon,         // leads to the field of the radius: what slipped there nobody else knows
};

struct Remede {
  SorteRemede sorte = SorteRemede::Aucun;
  std::string valeur;  // as it would be typed; "" where none is
};

// What stands on its button: "Pont de 4 mm"; "" for none.
std::string TexteRemede(const Remede& remede);
// By the procedure of the field or the command. False: nothing to do, or refused.
bool Remedie(const Remede& remede);
// The field that a remedy leads to, by its name; nullptr for one that does it itself.
const char* ChampDuRemede(const Remede& remede);

}  // namespace ovelin
