// A scene onto a painter of the window toolkit.
#pragma once

#include <QFont>
#include <QPainter>

#include "image/Palette.h"
#include "image/Scene.h"

namespace ovelin {

// Walks the list in its order. The painter counts in logical pixels, 15 twips each, with its origin at the corner
// of the picture, and may stand on a device of any scale; its font is that of the texts. The paper lies there
// already. Smooth edges where the scene is small enough to be drawn so at once (see PeutLisser).
void PeintScene(QPainter& peintre, const Scene& scene, const Palette& palette);

// Whether smooth edges can be afforded: by what there is to draw, with lines of this many pixels of the device.
bool PeutLisser(const Scene& scene, const Palette& palette, double pixels);

// Sizes of texts in this font, for OptionsScene::mesureTexte.
MesureTexte MesureDe(const QFont& police);

}  // namespace ovelin
