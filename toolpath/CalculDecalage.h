// Traces of paths, computed and stored.
#pragma once

#include <vector>

#include "core/Document.h"

namespace ovelin {

// Computes and stores the trace of one path; -1 does nothing.
void CalculDecalage(Code2 code);
// The same for several, with the outcome of calling them one after the other, at a cost that grows with the points
// of those paths alone.
void CalculDecalages(const std::vector<Code2>& codes);
// What a command calls that has changed one path, or some: the above, and all traces anew where one of those paths
// failed or has no points left to be offset. A failure alone takes the traces behind it along, and a path without
// points keeps its old one: the job would miss paths that nobody touched, or mill what is no longer there. Where
// one of them is an island or a pocket and the drawing has islands, the pockets and islands are computed with it.
void RefaitDecalage(Code2 code);
void RefaitDecalages(const std::vector<Code2>& codes);
// All traces. True when TraceInitial was not empty and the walk ended normally.
bool RecalculDecalages();

// Radius of a notch around its mark: LargeurEncoche / 2 + RayonFraise, mm.
double RayonEncoche();
// Opens a notch of that radius at each "PC" of a trace, in place.
void PoseEncoches(std::vector<PointTrace>& points);
// Drag knife: lengthens the closed traces of a path (Prolongement).
void ProlongeTrace(Code2 code);

}  // namespace ovelin
