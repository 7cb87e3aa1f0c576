// Where each edge of a computed curve comes from, so that marks, start and side are known and not searched for.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "closed/pathwerk/commun/Lieux.h"

namespace pathwerk::decalage {

inline constexpr std::uint32_t SansOrigine = std::numeric_limits<std::uint32_t>::max();

// Stretch of a source that an edge runs beside: of the segment from vertex `segment` to the next, from the share
// `de` to the share `a` of its length (0 to 1, either way round). An edge of the arc around a vertex has both at
// that vertex. SansOrigine: the edge belongs to no place (the chord over a gap).
struct Origine {
  std::uint32_t segment = SansOrigine;
  float de = 0;
  float a = 0;
  [[nodiscard]] bool Connue() const { return segment != SansOrigine; }
  [[nodiscard]] float En(double t) const { return de + static_cast<float>(t) * (a - de); }
};
// Of the edges of one path, edge k from point k to the next. Empty: nothing is known.
using Origines = std::vector<Origine>;

// The origin of an edge beside the source, where that source is itself made of stretches of another one.
inline Origine Compose(Origine vers, const Origines& source) {
  if (!vers.Connue() || vers.segment >= source.size()) return {};
  const Origine& s = source[vers.segment];
  if (!s.Connue()) return {};
  return {s.segment, s.En(vers.de), s.En(vers.a)};
}

// The closed path the other way round, its edges with it.
void Retourne(Chemin& chemin, Origines& origines);

}  // namespace pathwerk::decalage
