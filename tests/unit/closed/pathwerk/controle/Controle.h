// Shapes and an independent judge for the geometry tests. The judge knows only the definition of a parallel curve:
// it measures distances to the source by brute force and shares no code with the library.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "closed/Pathwerk.h"

namespace controle {

using Trace = std::vector<pathwerk::PointTrace>;
struct P {
  double x, y;
};
using Forme = std::vector<P>;

// Records of a path; `ferme` repeats the first point behind the last.
Trace EnTrace(const Forme& forme, bool ferme);
// Pieces of a result: runs of equal `Seq`.
std::vector<Trace> Pieces(const Trace& trace);
bool EstFermee(const Trace& t);
double Aire(const Trace& t);
double Longueur(const Trace& t);
struct Boite {
  double x0, y0, x1, y1;
};
Boite BoiteDe(const Trace& t);
double Distance(const Trace& ligne, P p);  // to the polyline
// The path as C++ text, to paste into a test.
std::string Texte(const Trace& t);

// Worst errors of an offset, mm; 0 is perfect.
struct Ecarts {
  double tropPres = 0;  // a result point nearer than |R| to the source by this much
  double tropLoin = 0;  // a result point off the parallel segments and corner arcs of the wanted side
  double manque = 0;    // a place of the true parallel curve that far from the result
  [[nodiscard]] double Pire() const;
};
// For a path that doesn't cross itself, or an open one. At most `max` samples each way.
Ecarts Mesure(const Trace& source, const Trace& resultat, double decal, std::size_t max = 3000);

// A copy of `source` offset; the result of the call comes back beside it.
std::pair<int, Trace> Decale(const Trace& source, double decal, int recouvrement = 100, float tolerance = 0.01F);

// --- Shapes ------------------------------------------------------------------------------------------------
Forme Carre(double x0, double y0, double cote);        // counter-clockwise
Forme Cercle(double rayon, int n, P centre = {0, 0});  // counter-clockwise
Forme Retourne(Forme f);
Forme Etoile(unsigned graine);  // random radii, simple
Forme CercleBruite(unsigned graine, int n, double amplitude);
Forme Peigne(int dents, double pas, double creux, unsigned graine);
Forme Koch(int niveau, double cote);
Forme Spirale(double tours, double pas, double largeur, int n);  // a closed band
// Outline of a random heap of unit squares, one contour, touching corners possible.
Forme Polyomino(unsigned graine);
Forme Onde(int n, double longueur, double hauteur, double periodes);  // open
Forme SpiraleOuverte(double tours, double pas, int n);
Forme MarcheOuverte(unsigned graine, int n);  // open, crosses itself

}  // namespace controle
