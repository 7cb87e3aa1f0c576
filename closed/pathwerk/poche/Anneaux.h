// The rings of a fill, depth by depth, and what they leave standing.
#pragma once

#include <optional>
#include <vector>

#include "closed/pathwerk/decalage/Moteur.h"
#include "closed/pathwerk/poche/Acces.h"

namespace pathwerk::poche {

using decalage::Origines;

struct Boucle {
  Chemin points;
  Origines origines;  // on the path that the region was cut from; of the first depth alone
};

// Loops of one depth, in the sense of travel.
struct Niveau {
  double profondeur = 0;  // mm from the outline
  std::vector<Boucle> anneaux;
  std::vector<Chemin>
      fond;  // border of what lies too deep for these rings; none where the next ones reach it anyway
};

struct Remplissage {
  double rayon = 0;
  double pas = 0;  // mm between the rings
  double tolerance = 0;
  bool horaire = false;  // the rings run clockwise around what is deeper
  std::vector<Niveau> niveaux;
};

// Rings of the region. `distance`: radius of the cutter, mm; positive has the outline to the right of the tool.
// `recouvrement` in per cent, above 100 for the outermost rings alone. No level: there is no room. None: a ring
// could not be computed (no memory, figures out of range), and half a fill is no fill.
std::optional<Remplissage> Anneaux(const Region& region, double distance, int recouvrement, double tolerance);

// The stretches of a loop that lie farther than `portee` from everything in `atteint`, each closed to a loop of its
// own, by a straight move where that is free, else by the way back; the whole loop if all of it does.
struct Reste {
  Chemin points;
  bool entier = false;
};
std::vector<Reste> HorsDAtteinte(const Chemin& fond, const ArbreSegments& atteint, double portee, double tolerance,
                                 const Acces& acces);

// The first place on the way from `de` to `vers` that lies within `portee` of all the points; none if there is
// none.
std::optional<Vec2> PlacePresDeTous(const Chemin& points, Vec2 de, Vec2 vers, double portee);

// From which distance on places just too deep for one ring count as out of reach of the next, mm.
double PorteeDuSuivant(double rayon, double pas);

}  // namespace pathwerk::poche
