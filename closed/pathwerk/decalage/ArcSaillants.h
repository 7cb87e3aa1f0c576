// The few vertices of a very dense outline that bury nearly all of its raw parallel curve.
#pragma once

#include <optional>

#include "closed/pathwerk/decalage/ArcTaille.h"

namespace pathwerk::decalage {

// Of all vertices those that stand out farthest from a small cell, each as the segment that leaves it,
// near ones beside each other. None where the points don't lie so dense, beside the radius `r`, that a choice would
// be much less than all of them.
std::optional<Tueurs> Saillants(const ArcSource& source, double r);

}  // namespace pathwerk::decalage
