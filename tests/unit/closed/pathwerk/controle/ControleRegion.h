// Judge and shapes for the offset of whole regions, in double precision: distances and winding numbers by brute
// force, no code shared with the library but its vectors.
#pragma once

#include <random>
#include <vector>

#include "closed/pathwerk/decalage/Moteur.h"
#include "tests/unit/closed/pathwerk/controle/Controle.h"

namespace controle {

using pathwerk::Chemin;
using pathwerk::decalage::Region;

Chemin EnChemin(const Forme& f);
// Winding number of the contours around `p`.
int Tours(const std::vector<Chemin>& contours, pathwerk::Vec2 p);
double Distance(const std::vector<Chemin>& contours, pathwerk::Vec2 p);
double AireDe(const std::vector<Chemin>& contours);

// Worst errors of a parallel curve of a region, mm.
struct EcartsRegion {
  double tropPres = 0;       // a place of the result nearer than the distance
  double tropLoin = 0;       // ... or farther
  double manque = 0;         // a place of the true curve off the result
  bool mauvaisCote = false;  // a place of the result on the wrong side of the region
};
EcartsRegion MesureRegion(const Region& region, const std::vector<Chemin>& boucles, double distance);

// A path walked there and back.
Chemin AllerRetour(const Forme& f);
// Border of random unit squares times `cote`, with holes; `coupe`: where two squares touch in a corner each keeps
// its own, else the border runs from one to the other.
Region Damier(std::mt19937_64& g, double part, double cote, bool coupe);
// Random steps along a grid, forwards and back again, closed or open.
Forme MarcheSurGrille(std::mt19937_64& g, int n);
// Random chords between grid places: crosses itself, with corners on corners and on edges.
Forme Croisee(std::mt19937_64& g, int n);

}  // namespace controle
