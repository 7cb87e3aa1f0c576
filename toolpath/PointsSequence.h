// Changes of the points of the paths in force; they refresh nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/Document.h"
#include "core/Gestes.h"

namespace ovelin {

void InserePoint(std::int32_t index, const PointTrace& point);
void RemplaceSequence(Code2 code, const std::vector<PointTrace>& points);
void InverseSequence(Code2 code);
void InverseEtendue(std::optional<std::size_t> premier);  // the same for the run that begins there
void FermeSequences();
void DeplaceSelection(Direction direction, float distance);  // mm
void SupprimeSelection();
// The same without the traces: those of `partis` are to go, those of `lies` to be computed anew.
struct SuiteRetrait {
  std::vector<Code2> partis;
  std::vector<Code2> lies;  // islands and their pockets, where an island was among the selection
};
SuiteRetrait OteSelection();

}  // namespace ovelin
