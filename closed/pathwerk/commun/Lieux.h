// Places, paths and segments of `base/` under the geometry library's own names.
#pragma once

#include "base/Segment.h"
#include "base/Vecteur.h"
#include "closed/pathwerk/commun/Point.h"

namespace pathwerk {

using base::Aire;
using base::Chemin;
using base::Lieu;
using base::LieuSurSegment;
using base::Perimetre;
using base::Segment;

}  // namespace pathwerk
