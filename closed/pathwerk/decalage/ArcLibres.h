// The free stretches of a raw parallel curve, and the loops that they make.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "closed/pathwerk/decalage/ArcSource.h"
#include "closed/pathwerk/decalage/ArcTaille.h"
#include "closed/pathwerk/decalage/Origine.h"

namespace pathwerk::decalage {

// One free stretch: of the parallel of segment `source`, or of the arc around vertex `source`.
struct ArcLibre {
  Vec2 a;
  Vec2 b;
  std::uint32_t source = 0;
  std::uint32_t causeA = Naturel;
  std::uint32_t causeB = Naturel;
  std::uint32_t suite = Naturel;  // the stretch that follows, Naturel: none
  bool arc = false;
  bool hors = false;  // not part of the result
};

// The raw pieces of which something is left, in the order of the outline, each with its free stretches.
struct PiecesVives {
  struct Vive {
    PieceBrute brute;
    std::uint32_t debut = 0;  // of its stretches in `reste`
    std::uint32_t fin = 0;
    double sursis = 0;  // depth, mm, below which nothing but what ends its one stretch now takes from it
  };
  std::vector<Vive> pieces;
  std::vector<Intervalle> reste;
  void Ajoute(const ArcTailleur& tailleur, double sursis = 0);
  [[nodiscard]] std::span<const Intervalle> Reste(const Vive& v) const {
    return {reste.data() + v.debut, reste.data() + v.fin};
  }
};

// The free stretches of the tailor's last piece, behind those of `libres`.
void AjouteReste(const ArcTailleur& tailleur, std::vector<ArcLibre>& libres);

// Links the stretches that follow each other in a corner, of all in the order of the outline.
void LieSuites(const ArcSource& source, std::vector<ArcLibre>& libres);

// All free stretches, in the order of the outline. Stretches that follow each other in a corner are linked.
// `vives`, when asked for: what is left of which raw piece.
std::vector<ArcLibre> ArcsLibres(const ArcSource& source, double d, double bruit, PiecesVives* vives = nullptr);
// Segments [debut, fin) of one contour.
struct Plage {
  std::size_t debut = 0;
  std::size_t fin = 0;
};
// The same of these segments alone, each with the arc around its start. `tueurs`: what takes away, null for all.
std::vector<ArcLibre> ArcsLibres(const ArcSource& source, double d, double bruit, std::span<const Plage> plages,
                                 const Tueurs* tueurs, PiecesVives* vives = nullptr);
// The same where no more than `avant` is left of the raw pieces, at a depth less by `pas`, and no more than
// `tueurs` can take away. `apres`: what is left then; `pas` of 0: no depth will be asked for that comes of it.
std::vector<ArcLibre> ArcsLibres(const ArcSource& source, double d, double bruit, const PiecesVives& avant,
                                 const Tueurs* tueurs, PiecesVives& apres, double pas = 0);

// Of each stretch, whether another one leads to it.
std::vector<std::uint8_t> Precedes(const std::vector<ArcLibre>& libres);

// Ends that meet to the last digits are no farther apart, mm.
inline constexpr double MemePlace = 1e-6;

// Links the loose ends: where stretch p ends because of the segment that q belongs to, q begins because of p's.
// Ends are matched nearest first, those that name each other before others; none farther apart than `ecart`. Then
// wider gaps are bridged whose chord keeps its distance to within `creux`: a corner that pokes through another side
// by less than that makes such dents. Returns how many ends stay loose.
std::size_t LieArcs(const ArcSource& source, std::vector<ArcLibre>& libres, double r, double ecart, double creux);

// Takes out what lies on the wrong side of the region: a spike that stands out of it has a parallel of its own on
// both sides, closed or ending where the region begins. `signe` as in Region. Returns how many ends stay loose.
std::size_t OteMauvaisCote(const ArcSource& source, std::vector<ArcLibre>& libres, double d, int signe);

}  // namespace pathwerk::decalage
