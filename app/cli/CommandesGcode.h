// Commands over a G-code file. Each takes its parsed options and returns the exit status.
#pragma once

#include <string>

#include "app/cli/Contexte.h"

namespace ovelin::cli {

// Judged and measured.
int Verifie(Contexte& contexte, const std::string& fichier);
// The same run on the board. 130 when a signal has stopped it.
int JoueProgramme(Contexte& contexte, const std::string& fichier);

}  // namespace ovelin::cli
