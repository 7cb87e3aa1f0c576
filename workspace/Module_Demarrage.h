// Start of the program below the windows.
#pragma once

#include <string>

namespace ovelin {

struct OptionsDemarrage {
  std::string dossierExecutable;  // no separator at the end
  std::string config;             // the program's folder when not empty
  std::string locale;             // the system's locale name ("fr_FR.UTF-8")
  std::string langue;             // two letters that stand before the key `Language`; "" for none
  std::string table;              // name that stands before the key `TableDefaut`; "" for none
};

// The start of Module_Cycle.h without a window: no lock against a second copy, no snapshots, no board, and the
// material presets only where the settings file has just been made. "" or the reason why the settings file can't be
// written; the program can go on with the built-in defaults.
std::string DemarreProgramme(const OptionsDemarrage& options);

}  // namespace ovelin
