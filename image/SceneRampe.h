// The way down into a path, under its line.
#pragma once

#include <span>

#include "core/Types.h"
#include "image/SceneDocument.h"
#include "image/Traceur.h"

namespace ovelin {

// The stretch of a piece of tool path, `profondeur` mm deep, along which its first pass sinks; once round at most.
// `sorte`: of its dots. Nothing where the tool goes straight down.
void AjouteRampe(std::span<const PointTrace> points, double profondeur, const DescenteScene& descente,
                 unsigned sorte, Traceur& traceur);

}  // namespace ovelin
