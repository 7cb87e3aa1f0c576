// Changes of the points of the drawing. NbPoints is the length of the array behind each of them.
#include <algorithm>
#include <unordered_set>

#include "core/DocumentCourant.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

void ComptePoints() { NbPoints = static_cast<std::int32_t>(TraceInitial.size()); }

std::vector<PointTrace>::iterator Place(std::int32_t index) { return TraceInitial.begin() + index; }

std::unordered_set<std::uint32_t> ClesSelectionnees() {
  std::unordered_set<std::uint32_t> cles;
  for (const SequenceInfo& s : Sequences) {
    if (s.Selection != Faux) cles.insert(s.Code.Cle());
  }
  return cles;
}

}  // namespace

void InserePoint(std::int32_t index, const PointTrace& point) {
  const PointTrace copie = point;  // it may lie in the array that grows
  TraceInitial.insert(Place(std::clamp(index, 0, static_cast<std::int32_t>(TraceInitial.size()))), copie);
  ComptePoints();
}

void RemplaceSequence(Code2 code, const std::vector<PointTrace>& points) {
  const std::int32_t premier = IndexSequence(code);
  if (premier < 0) return;
  const std::int32_t n = NbPointsSequence(premier);
  const auto nouveaux = static_cast<std::int32_t>(points.size());
  const std::int32_t communs = std::min(n, nouveaux);
  std::copy_n(points.begin(), communs, Place(premier));
  if (nouveaux > n) {
    TraceInitial.insert(Place(premier + n), points.begin() + n, points.end());
  } else {
    TraceInitial.erase(Place(premier + nouveaux), Place(premier + n));
  }
  ComptePoints();
}

void InverseSequence(Code2 code) { InverseEtendue(IndexSequence(code)); }

void InverseEtendue(std::int32_t premier) {
  if (premier < 0) return;
  std::reverse(Place(premier), Place(premier + NbPointsSequence(premier)));
}

// One pass that writes the array anew, so that closing all paths costs as much as closing one.
void FermeSequences() {
  std::unordered_set<std::uint32_t> aFermer = ClesSelectionnees();
  std::vector<PointTrace> points;
  points.reserve(TraceInitial.size() + aFermer.size());
  for (const Etendue& e : EtenduesSequences()) {
    points.insert(points.end(), Place(e.premier), Place(e.premier + e.nombre));
    // The first run of a code is the one that counts.
    if (aFermer.erase(e.code.Cle()) > 0 && !EstFermee(e)) points.push_back(*Place(e.premier));
  }
  TraceInitial.swap(points);
  ComptePoints();
}

void DeplaceSelection(int direction, float distance) {
  const IndexCodes index;
  for (const SequenceInfo& s : Sequences) {
    if (s.Selection == Faux) continue;
    const std::int32_t premier = index.PremierPoint(s.Code);
    const std::int32_t n = NbPointsSequence(premier);
    for (std::int32_t i = premier; i < premier + n; ++i) {
      if (direction == 1) Place(i)->X += distance;
      if (direction == 3) Place(i)->Y += distance;
    }
  }
  OrigineX = 0;
  OrigineY = 0;
}

// With the record of a code go all points and traces that it governs, also those of a second run.
void SupprimeSelection() {
  const std::unordered_set<std::uint32_t> cles = ClesSelectionnees();
  if (cles.empty()) return;
  const bool dessin = !TraceInitial.empty();
  std::erase_if(TraceDecale, [&](const SequenceDecalee& d) { return cles.contains(d.Seq.Cle()); });
  std::erase_if(TraceInitial, [&](const PointTrace& p) { return cles.contains(p.Seq.Cle()); });
  std::erase_if(Sequences, [](const SequenceInfo& s) { return s.Selection != Faux; });
  // Neither table is left without a record: an empty one stands for "nothing".
  if (dessin && TraceInitial.empty()) TraceInitial.push_back({0, 0, Code2{}, Code2{}});
  if (Sequences.empty()) Sequences.emplace_back();
  ComptePoints();
  EncombrementGeneral();
}

}  // namespace ovelin
