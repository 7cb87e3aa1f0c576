// The interpreter of LinuxCNC as a judge of G-code files: it reads them without a machine, refuses what no machine
// of its kind would take, and tells every move that it understood.
#pragma once

#include <string>
#include <vector>

namespace essai {

struct MouvementRs274 {
  bool rapide = false;         // STRAIGHT_TRAVERSE, otherwise STRAIGHT_FEED
  double x = 0, y = 0, z = 0;  // mm, absolute
  double avance = 0;           // mm/min in force
  bool arc = false;            // ARC_FEED in the plane of X and Y, about (cx, cy)
  bool horaire = false;
  double cx = 0, cy = 0;
};
struct ResultatRs274 {
  bool accepte = false;
  std::string erreurs;  // what the interpreter says against the file, "" when nothing
  std::vector<MouvementRs274> mouvements;
};

// Is the program `rs274` (Debian: linuxcnc-uspace) in PATH? A test that needs it skips itself without:
//   if (!Rs274Present()) GTEST_SKIP() << Rs274Absent;
bool Rs274Present();
inline constexpr const char* Rs274Absent = "rs274 of LinuxCNC is not installed: the independent check is left out";

// Reads `fichier` from a copy in the test's folder, in which the line "G71", with a number or without, is "G21":
// that interpreter knows G71 as a turning cycle. `change` false leaves the file as it is.
ResultatRs274 LanceRs274(const std::string& fichier, bool change = true);

// The canonical moves against the planned rows, one by one: place within 0.0005 mm, feed, kind by the height of the
// row, and the end at (0, 0, 0). "" when all agree, else the first difference.
std::string CompareTableDecoupe(const ResultatRs274& resultat);

}  // namespace essai
