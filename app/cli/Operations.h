// The operations of `edit`: the procedures of the program by name, with their arguments from JSON.
#pragma once

#include <string>
#include <vector>

#include "app/cli/Contexte.h"

namespace ovelin::cli {

struct ResultatOperation {
  bool faite = true;
  std::string raison;  // argument missing or of the wrong kind; "" when a box has told why
};

// Runs one operation {"op": NAME, ...}. An operation that a rule refuses (a beep, a box) gives `faite` false.
ResultatOperation Opere(Contexte& contexte, const Json& operation);

// Names in the order of the documentation.
std::vector<std::string> NomsOperations();

// `edit`: opens the drawing, runs the list in the file `operations` (JSON), saves the project. The exit status.
int Edite(Contexte& contexte, const std::string& dessin, const std::string& operations, const std::string& sortie);

}  // namespace ovelin::cli
