// The order of paths that makes the moves in the air short. Values in, values out.
#pragma once

#include <cstddef>
#include <vector>

namespace ovelin {

struct LieuTournee {
  double x = 0, y = 0;  // mm
};

// A path as the tool meets it.
struct Etape {
  LieuTournee entree, sortie;
  std::vector<std::size_t> apres;  // paths that must not come before this one
};

// Length of the moves in the air, mm: from the origin to the first path, from each to the next, back to the origin.
double LongueurAir(const std::vector<Etape>& etapes, const std::vector<std::size_t>& ordre);

// A short order. The order of the array keeps all the rules `apres`, and so does the result, which is never longer.
//
// The nearest path that may come next, from the origin on; then the exchanges of two and three edges by which a
// tour is improved, 2-opt (Croes, "A method for solving traveling-salesman problems", 1958) and or-opt (Or, 1976),
// tried among the ten nearest neighbours only; then small parts of the tour are exchanged at random (double bridge:
// Martin, Otto and Felten, 1991) and the result is kept where it is shorter. The random numbers are always the
// same.
std::vector<std::size_t> OrdreCourt(const std::vector<Etape>& etapes);

}  // namespace ovelin
