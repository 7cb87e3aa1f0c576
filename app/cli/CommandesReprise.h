// Commands over the work of programs that died. Each takes its parsed options and returns the exit status.
#pragma once

#include <string>

#include "app/cli/Contexte.h"

namespace ovelin::cli {

// Work that programs left which died: listed, or number `n` of the list written as a project, which then waits no
// more.
int ListeReprises(Contexte& contexte);
int OuvreReprise(Contexte& contexte, int n, const std::string& sortie);

}  // namespace ovelin::cli
