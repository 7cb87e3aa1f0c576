// The drawing as values: its runs, its codes, its bounds. Nothing here knows the document in force;
// Module_Sequence.h holds the same look-ups on that document.
//
// A look-up by one code is a scan with the first match. Who asks for all codes makes an `IndexCodes` once, so that
// no pass costs points times paths.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "core/Document.h"
#include "core/Gestes.h"

namespace ovelin {

// A run of equal `Seq`: places of an array of points.
struct Etendue {
  Code2 code;
  std::size_t premier = 0;
  std::size_t nombre = 0;
  [[nodiscard]] std::size_t Fin() const { return premier + nombre; }
};

// The runs in order. A code that stands in two runs comes twice.
std::vector<Etendue> EtenduesDe(std::span<const PointTrace> points);
// One code for each run, in order.
std::vector<Code2> CodesDe(std::span<const PointTrace> points);
// The run that begins at `premier`, which lies in the array.
Etendue EtendueDepuis(std::span<const PointTrace> points, std::size_t premier);
inline std::span<const PointTrace> PointsDe(std::span<const PointTrace> points, const Etendue& e) {
  return points.subspan(e.premier, e.nombre);
}
inline std::span<PointTrace> PointsDe(std::vector<PointTrace>& points, const Etendue& e) {
  return std::span(points).subspan(e.premier, e.nombre);
}
inline std::vector<PointTrace> CopieDe(std::span<const PointTrace> points, const Etendue& e) {
  const std::span<const PointTrace> run = PointsDe(points, e);
  return {run.begin(), run.end()};
}
// Whether a run ends where it starts, without tolerance. A single point is closed, an empty run isn't.
bool EstFermee(std::span<const PointTrace> run);

// Where each code stands first among points and records, as of the moment the index was made.
class IndexCodes {
 public:
  IndexCodes(std::span<const PointTrace> points, std::span<const SequenceInfo> fiches);
  // Of a whole document: as many points as it counts, and never past its array.
  explicit IndexCodes(const Document& document);
  [[nodiscard]] std::optional<std::size_t> PremierPoint(Code2 code) const;  // in the points
  [[nodiscard]] std::optional<std::size_t> Fiche(Code2 code) const;         // in the records
 private:
  std::unordered_map<std::uint32_t, std::size_t> points_;
  std::unordered_map<std::uint32_t, std::size_t> fiches_;
};

// The points of a document that a walk may look at. A refused project leaves a count beyond the array.
std::span<const PointTrace> PointsComptes(const Document& document);

// How a path is milled.
struct ProprietesSequence {
  Drapeau Poche = Faux;
  Drapeau Fraiser = Vrai;
  double Profondeur = 0;
  std::int16_t Decalage = CoteDirect;
  bool operator==(const ProprietesSequence&) const = default;
};
ProprietesSequence ProprietesDe(const SequenceInfo& fiche);
// Of the first record with that code; those of an unknown code (milled, at depth 0) where there is none.
ProprietesSequence ProprietesDe(std::span<const SequenceInfo> fiches, const IndexCodes& index, Code2 code);

// Bounds of a document from all its points; untouched when there are none.
void MesureDocument(Document& document);

// From `a` to `b`, formed in 64 bits.
inline double Ecart(float a, float b) { return double{b} - a; }
double DistancePoints(const PointTrace& a, const PointTrace& b);  // mm, differences formed in 32 bits
Code2 CodeSuivant(Code2 code);

}  // namespace ovelin
