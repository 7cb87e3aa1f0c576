// The kernel of the traces: a path into its offset trace, and the table of all traces. Values in, values out; of
// the outside world only the pulse of long passes and the thread for long paths.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "core/Document.h"
#include "core/Reglages.h"
#include "toolpath/chemins/Etendues.h"
#include "toolpath/traces/Ilots.h"
#include "toolpath/traces/TableTraces.h"

namespace ovelin {

// What all traces depend on beside paths and records.
struct ParametresTrace {
  double rayon = 0;               // of the tool, mm
  std::int16_t recouvrement = 0;  // of pockets, per cent
  double encoche = 0;             // radius of a notch around its mark, mm
  bool prolongement = false;      // drag knife: closed traces are lengthened
};
ParametresTrace ParametresTraceDe(const Reglages& reglages, bool prolongement);
// Radius of a notch around its mark: half its width and the radius of the tool, mm.
double RayonEncocheDe(const Reglages& reglages);
// Are pockets cleared with these? With an overlap of 100 or without a radius they are contours.
bool VidePoches(const ParametresTrace& parametres);

// The trace of one path. Nothing when it is too short to have one.
std::optional<TraceCalculee> CalculeTrace(std::span<const PointTrace> chemin, Code2 code,
                                          const ProprietesSequence& proprietes, const ParametresTrace& parametres,
                                          const PartIlots& ilots = {});

// The table `traces` behind the trace of one path: its entries are replaced where they stand; without any they come
// last. A failed path leaves one entry without points and drops the entries behind it.
void PoseTrace(std::vector<SequenceDecalee>& traces, Code2 code, TraceCalculee&& trace);

// Whether the thread belongs to the window, which stays alive while a long path has a thread of its own, or is such
// a thread itself and asks nothing of the outside world.
enum class OuTracer : std::uint8_t { ALaFenetre, SurCeFil };

// The table `traces` of a document behind `codes`, computed in that order. `avance` is called before each code.
// True when one of them came to its end. Where the thread works under a wish to end (base::Arret) that has been
// told, `traces` is left as it was.
bool CalculeTraces(const Document& document, std::span<const Code2> codes, const ParametresTrace& parametres,
                   std::vector<SequenceDecalee>& traces, const std::function<void()>& avance,
                   OuTracer ou = OuTracer::ALaFenetre);

// The number in the points of each trace: the position of its record among those that have points, for the eye. The
// points of the paths `sauf` keep what they have.
void NumeroteTraces(std::vector<SequenceDecalee>& traces, std::span<const Code2> sauf = {});

// All traces of a document, as values: TraceDecale is made anew.
void TraceDocument(Document& document, const ParametresTrace& parametres);

}  // namespace ovelin
