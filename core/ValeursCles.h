// What the keys of the settings hold, and whether a text is that: a value that can't be read falls back on a
// default, which is a job at other speeds, so who takes values from outside asks here first.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ValeurIllisible.h"

namespace ovelin {

enum class FauteCle {
  Inconnue,   // no such key
  Illisible,  // no number where one is needed ("1.5mm", "nan", "")
  Limites,    // a number that the value can't take
};

// A key of the settings, of a machine table or of the material database with the value that it is to take. Nothing
// when it can be taken. Keys without regard to case.
std::optional<FauteCle> JugeCle(std::string_view cle, std::string_view valeur);

// "path:line: key=value" for the eye.
std::string TexteValeur(const ValeurIllisible& v);

// A row of the material database whose numbers can't all be read; `rang` from 1. A field that was left empty is
// none of them. Nothing where the row can be taken, or isn't there.
std::optional<ValeurIllisible> FicheIllisible(int rang);

// The numbers among the settings in force that the open project or the settings file holds in a form that can't be
// read, and those of the machine table in force.
std::vector<ValeurIllisible> ReglagesIllisibles();
// One box with all of them ("Valeur" of "erreurs"): a job at other values than those of its file is told before it
// is milled. None without any.
void AvertitValeurs(const std::vector<ValeurIllisible>& valeurs);

}  // namespace ovelin
