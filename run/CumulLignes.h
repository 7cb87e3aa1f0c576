// The way along rows and the time that it takes, row by row: the one sum of the figures, the G-code writer and the
// command line.
#pragma once

#include <cmath>

namespace ovelin {

struct CumulLignes {
  double DernierX = 0, DernierY = 0, DernierZ = 0;  // where the last row ended, mm
  double LongueurNC = 0;                            // mm
  double TempsNC = 0;                               // s at row speed, without ramps

  // On to (x, y, z) at `vitesse`, mm/s; a row of speed 0 takes no time. The length of this row, mm.
  double Va(double x, double y, double z, double vitesse) {
    const double ecartX = x - DernierX;
    const double ecartY = y - DernierY;
    const double ecartZ = z - DernierZ;
    const double distance = std::sqrt(ecartX * ecartX + ecartY * ecartY + ecartZ * ecartZ);
    LongueurNC += distance;
    if (vitesse != 0) TempsNC += distance / vitesse;
    DernierX = x;
    DernierY = y;
    DernierZ = z;
    return distance;
  }
};

}  // namespace ovelin
