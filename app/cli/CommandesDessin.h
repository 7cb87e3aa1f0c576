// Commands that open a drawing and give something back. Each takes its parsed options and returns the exit status.
#pragma once

#include <string>

#include "app/cli/Contexte.h"

namespace ovelin::cli {

int Info(Contexte& contexte, const std::string& dessin);
int GCode(Contexte& contexte, const std::string& dessin, const std::string& sortie);
int Enregistre(Contexte& contexte, const std::string& dessin, const std::string& sortie);
// `source`: "initial", "outil", or "" for the format's own choice (pictures show both, files the drawing).
int Exporte(Contexte& contexte, const std::string& dessin, const std::string& sortie, const std::string& source);
int Trace(Contexte& contexte, const std::string& dessin, const std::string& sortie);
struct OptionsPlan {
  std::string position;  // "X,Y,Z" in mm, or ""
  // Files to write, "" for none: rows as CSV, records, stored list.
  std::string lignes, records, flash;
};
int Planifie(Contexte& contexte, const std::string& dessin, const OptionsPlan& options);

}  // namespace ovelin::cli
