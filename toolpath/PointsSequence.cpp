// Changes of the points of the drawing. NbPoints is the length of the array behind each of them.
#include "toolpath/PointsSequence.h"

#include <algorithm>
#include <optional>
#include <span>
#include <unordered_set>
#include <utility>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "toolpath/CalculDecalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/traces/Ilots.h"
#include "toolpath/traces/NoyauPasse.h"

namespace ovelin {

namespace {

void ComptePoints() { NbPoints = base::Compte(TraceInitial.size()); }

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
  TraceInitial.insert(Place(std::clamp(index, 0, base::Compte(TraceInitial.size()))), copie);
  ComptePoints();
}

void RemplaceSequence(Code2 code, const std::vector<PointTrace>& points) {
  const std::int32_t premier = IndexSequence(code);
  if (premier < 0) return;
  const std::int32_t n = NbPointsSequence(premier);
  const auto nouveaux = base::Compte(points.size());
  const std::int32_t communs = std::min(n, nouveaux);
  std::copy_n(points.begin(), communs, Place(premier));
  if (nouveaux > n) {
    TraceInitial.insert(Place(premier + n), points.begin() + n, points.end());
  } else {
    TraceInitial.erase(Place(premier + nouveaux), Place(premier + n));
  }
  ComptePoints();
}

void InverseSequence(Code2 code) {
  if (const std::int32_t premier = IndexSequence(code); premier >= 0) {
    InverseEtendue(base::Indice(premier));
  }
}

void InverseEtendue(std::optional<std::size_t> premier) {
  if (!premier) return;
  const std::span<PointTrace> run = PointsDe(TraceInitial, EtendueDepuis(TraceInitial, *premier));
  std::reverse(run.begin(), run.end());
}

// One pass that writes the array anew, so that closing all paths costs as much as closing one.
void FermeSequences() {
  std::unordered_set<std::uint32_t> aFermer = ClesSelectionnees();
  std::vector<PointTrace> points;
  points.reserve(TraceInitial.size() + aFermer.size());
  for (const Etendue& e : EtenduesSequences()) {
    const std::span<const PointTrace> run = PointsDe(TraceInitial, e);
    points.insert(points.end(), run.begin(), run.end());
    // The first run of a code is the one that counts.
    if (aFermer.erase(e.code.Cle()) > 0 && !EstFermee(run)) points.push_back(run.front());
  }
  TraceInitial.swap(points);
  ComptePoints();
}

void DeplaceSelection(Direction direction, float distance) {
  const IndexCodes index = IndexDocument();
  for (const SequenceInfo& s : Sequences) {
    const auto premier = index.PremierPoint(s.Code);
    if (s.Selection == Faux || !premier) continue;
    for (PointTrace& p : PointsDe(TraceInitial, EtendueDepuis(TraceInitial, *premier))) {
      if (direction == Direction::X) p.X += distance;
      if (direction == Direction::Y) p.Y += distance;
    }
  }
  OrigineX = 0;
  OrigineY = 0;
}

// With the record of a code go all points and traces that it governs, also those of a second run, and what stands
// beside it. An island that goes is filled by its pocket, and where a pocket goes its islands are milled.
SuiteRetrait OteSelection() {
  SuiteRetrait suite{CodesSelectionnes(), {}};
  const std::unordered_set<std::uint32_t> cles = ClesSelectionnees();
  if (cles.empty()) return suite;
  std::vector<Code2> lies = AIlots(Complements) ? CodesDesIlots(Doc) : std::vector<Code2>{};
  const auto suit = [&](Code2 code) { return cles.contains(code.Cle()); };
  const bool ilots = std::any_of(lies.begin(), lies.end(), suit);
  std::erase_if(lies, suit);
  const bool dessin = !TraceInitial.empty();
  std::erase_if(TraceInitial, [&](const PointTrace& p) { return cles.contains(p.Seq.Cle()); });
  std::erase_if(Sequences, [](const SequenceInfo& s) { return s.Selection != Faux; });
  Complements.OublieSi([&](Code2 code) { return cles.contains(code.Cle()); });
  // Neither table is left without a record: an empty one stands for "nothing".
  if (dessin && TraceInitial.empty()) TraceInitial.push_back({0, 0, Code2{}, Code2{}});
  if (Sequences.empty()) Sequences.emplace_back();
  ComptePoints();
  EncombrementGeneral();
  if (ilots) suite.lies = std::move(lies);
  return suite;
}

void SupprimeSelection() {
  const SuiteRetrait suite = OteSelection();
  OteTraces(TraceDecale, suite.partis);
  if (!suite.lies.empty()) RefaitDecalages(suite.lies);
}

}  // namespace ovelin
