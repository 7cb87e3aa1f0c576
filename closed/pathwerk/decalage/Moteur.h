// The offset engine: the one place that knows how parallel curves are computed. Everything around it (thinning,
// crossings, pockets, marks, floats) only stands on this contract, so that another engine can take its place.
#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <vector>

#include "closed/pathwerk/commun/Lieux.h"
#include "closed/pathwerk/decalage/Origine.h"

namespace pathwerk::decalage {

// A region and the way its outline runs.
struct Region {
  std::vector<Chemin> contours;
  // +1: the region lies to the left of the outline (outer contours counter-clockwise, holes clockwise).
  // -1: to the right. 0: no area, every stretch is walked there and back.
  int signe = 0;
  // Of each contour, where its segments lie on the path that the region was cut from. Empty: unknown, but for the
  // first contour where that is the path itself.
  std::vector<Origines> origines = {};
  bool entiere = false;  // the first contour is the path itself
  // Contours that cross, themselves or each other: each strand is a wall from both sides, the winding number tells
  // which places lie in the region.
  bool fouillis = false;
  // Of those that cross, how many at the end are islands: what one of them runs around is no part of the region,
  // however it runs.
  std::size_t iles = 0;
  // How far the contours may lie from those that they stand for, mm: what the thinning moved. What fits between
  // those exactly is passed all the same.
  double ecart = 0;
  // The contours with a search tree over them, where somebody has built it.
  std::shared_ptr<const class ArcSource> source = nullptr;
};

// What is known of one region from the distances that it was asked for before.
struct MemoireDeRegion {
  std::shared_ptr<class ArcSuite> suite;
  std::shared_ptr<const class Fouillis> fouillis;           // of contours that cross
  double croise = std::numeric_limits<double>::infinity();  // mm from which on the raw curve meets itself
};

// Parallel curves of the outline at `distance` mm, to the left of its travel when positive, else to its right.
//
// In: the contours of one region, closed without a repeated point, neighbours distinct, finite, near the origin
// (|coordinate| up to 1e8 mm); they may touch themselves and each other, not cross. distance != 0; tolerance > 0.
// Out: the border of the places on that side that are at least |distance| away from the outline, as closed loops
// that don't repeat their first point and run as the outline beside them does. Corners are rounded. Each point of a
// loop lies between |distance| - tolerance and |distance| from the outline, and no part of the border is missing by
// more than the tolerance. Where the distance fits exactly,
// as a cutter in a slot of its own width, a loop without width comes back.
// False: no memory, or figures out of range; `boucles` is then empty.
bool DecaleRegion(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles);

// The same, and of each loop where its edges lie on the contours, whose segments count on from one contour to the
// next. Empty for the loops of the engine that can't tell.
bool DecaleRegion(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                  std::vector<Origines>& origines);

// The same for one region at many distances on one side of it. A distance not less than the one before it costs
// what that one left of the outline; each result is still computed from the outline itself. `origines`: null where
// they are not asked for.
bool DecaleRegion(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                  std::vector<Origines>* origines, MemoireDeRegion& memoire);

// Does all of the border at `entre` mm lie within `portee` mm of the one at `loin` mm, as both are drawn? Known
// where `loin` was the last distance asked for, its border isn't empty, and the one before was less than both; may
// be false where it holds, never true where it doesn't. Costs what died between the distances, and no curve.
bool DansLaPortee(const Region& region, const MemoireDeRegion& memoire, double entre, double loin, double portee,
                  double tolerance);

// The same for an open path, given as the region of the path walked there and back. Stretches that surely run
// beside the way back alone may be left out; the border then comes in open chains, with one origin less than
// points.
bool DecaleAllerRetour(const Region& allerRetour, double distance, double tolerance, class Contacts& contacts,
                       std::vector<Chemin>& boucles, std::vector<Origines>& origines);

// Origins on the contours of the region, carried back to the path that the region was cut from.
Origines Remonte(const Region& region, Origines origines);

// Cuts a closed path at its crossings into the region it runs around counter-clockwise and the one it runs around
// clockwise: a figure of eight gives one of each. What is thinner than `tolerance` doesn't count. A path that only
// touches itself comes back as it is. The regions know where their contours lie on the path, but for those of the
// engine that can't tell.
bool SepareLobes(const Chemin& chemin, double tolerance, std::vector<Region>& regions);

// How often which engine gave the result since the program began: the raw curve alone, the arc engine, Clipper.
// More than a few of the last in a million calls is worth a look at the drawing.
struct CompteDuMoteur {
  unsigned long simples = 0;
  unsigned long arcs = 0;
  unsigned long replis = 0;
  unsigned long replisLobes = 0;  // crossings that Clipper cut
};
CompteDuMoteur CompteDecaleRegion();

// --- for benches and tests that compare the engines ---

// The raw curve alone, where it doesn't meet itself and so is the whole answer; false where it does.
bool DecaleRegionSimple(const Region& region, double distance, double tolerance, std::vector<Chemin>& boucles,
                        std::vector<Origines>* origines = nullptr);

// The region that a path bounds by itself, walked once forwards; both ways round where `signe` is 0 and `deuxSens`.
Region RegionDe(const Chemin& chemin, int signe, bool deuxSens = false);

}  // namespace pathwerk::decalage
