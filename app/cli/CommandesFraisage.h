// The job of a drawing on the board. Takes its parsed options and returns the exit status.
#pragma once

#include <string>

#include "app/cli/Contexte.h"

namespace ovelin::cli {

struct OptionsFraisage {
  std::string mode = "usb";    // "usb", "flash": into the board's memory alone, "both": and run from there
  int arretAuRecord = 0;       // the run is stopped once the board has begun this record; 0: never
  std::string arret = "ramp";  // or "now"
  bool reprend = false;        // goes on behind that stop
  std::string vitesseA;        // "N:V": from record N on at V mm/s; "" for none
};

// 130 when a signal has stopped it, 1 behind any other stop.
int Fraise(Contexte& contexte, const std::string& dessin, const OptionsFraisage& options);

}  // namespace ovelin::cli
