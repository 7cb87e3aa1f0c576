// The command line of the program with windows.
#pragma once

#include <string>
#include <vector>

namespace ovelin {

struct OptionsProgramme {
  std::string config;      // folder of the settings file
  std::string langue;      // two letters
  std::string dessin;      // absolute path of the drawing
  std::string depose;      // absolute path of a file that is opened as if it were dropped on the window
  std::string plateforme;  // of the toolkit (-platform), which reads it itself
  bool aide = false;
  bool version = false;
  std::string refus;  // what is wrong with the call; "" when nothing is
};

// `arguments` without the program's name. Options of the toolkit pass; `dossierCourant` is what a relative path
// begins at.
OptionsProgramme LitOptions(const std::vector<std::string>& arguments, const std::string& dossierCourant);

std::string TexteAide();
std::string TexteVersion();  // "4.10.0"

}  // namespace ovelin
