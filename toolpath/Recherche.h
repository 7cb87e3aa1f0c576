// Look-ups in the document in force. The same look-ups on values are in Etendues.h.
#pragma once

#include <cstdint>
#include <vector>

#include "core/Document.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

// Where each code stands first in TraceInitial and in Sequences, as of this moment. Who asks for all codes makes
// one once: a look-up by one code is a scan with the first match.
IndexCodes IndexDocument();

// The runs of TraceInitial in order. A code that stands in two runs comes twice.
std::vector<Etendue> EtenduesSequences();
// One code for each change of `Seq`, in order.
std::vector<Code2> ListeCodes();

// A scan is bounded by the array whatever NbPoints says.
std::int32_t IndexSequence(Code2 code);
std::int32_t NbPointsSequence(std::int32_t premier);
std::int32_t EncombrementSequence(std::int32_t premier, float& xmin, float& xmax, float& ymin, float& ymax);
void EncombrementSelection(float& xmin, float& xmax, float& ymin, float& ymax, int tout);
// Bounds of the document, from all its points; untouched when there are none. The status bar follows.
void EncombrementGeneral();
PointTrace CentreSelection();
// The lowest and the greatest `Seq` in text order; CodeAucun without points.
Code2 PlusPetitCode();
Code2 PlusGrandCode();
std::int32_t NbSequences();

// A run of TraceInitial that ends where it starts, without tolerance.
bool EstFermee(const Etendue& e);

}  // namespace ovelin
