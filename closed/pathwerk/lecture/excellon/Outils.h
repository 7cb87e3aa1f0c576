// The tools of a drill file.
#pragma once

#include <string>
#include <unordered_map>

#include "closed/pathwerk/lecture/excellon/Mots.h"

namespace pathwerk::lecture::excellon {

class Outils {
 public:
  // A line names that tool, and may tell its diameter: "T01C0.8". `echelle`: mm to the unit of the file.
  void Note(int numero, const Mots& mots, double echelle);
  // The one that was named last, with its diameter where that is known: "1", "1 (0.8 mm)".
  [[nodiscard]] std::string Nom() const;

 private:
  int dernier_ = 0;
  std::unordered_map<int, double> diametres_;  // mm
};

}  // namespace pathwerk::lecture::excellon
