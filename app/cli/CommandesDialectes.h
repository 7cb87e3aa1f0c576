// Commands over the dialects of G-code. Each takes its parsed options and returns the exit status.
#pragma once

#include <string>

#include "app/cli/Contexte.h"

namespace ovelin::cli {

// All that there are; a user's file that is refused goes to standard error with its line and reason.
int ListeDialectes(Contexte& contexte);
// One of them as the text of a user's file.
int MontreDialecte(Contexte& contexte, const std::string& nom);

}  // namespace ovelin::cli
