// What the tool takes away, under the lines of the drawing.
//
// A path is a band of the tool's width, the deeper the darker; the rings of a pocket make a surface. A bridge is a
// gap in the band, or a lighter place where the tool passes it below the surface of the material, with its height
// where there is room for it. A contour that the tool doesn't fit into is hatched.
#pragma once

#include "core/Document.h"
#include "image/SceneDocument.h"

namespace ovelin {

// Behind what the scene holds. Nothing where the band would be no wider than a line.
void AjouteSaignees(const Document& document, const EtatVue& vue, const TailleImage& taille,
                    const OptionsScene& options, Scene& scene);
// Contours that are to be milled and have no tool path.
void AjouteTropEtroits(const Document& document, const EtatVue& vue, const TailleImage& taille,
                       const OptionsScene& options, Scene& scene);

}  // namespace ovelin
