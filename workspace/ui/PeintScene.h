// A scene of the picture onto a painter.
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <cstdint>
#include <functional>
#include <string>

#include "workspace/Module_Scene.h"

namespace ovelin {

// How a scene is painted.
struct AspectScene {
  QColor papier;                // what lies under it already: colours that could not be told from it are lifted
  bool legende = true;          // false: the texts of the legend are left to labels
  std::int32_t selection = -1;  // lines of the drawing in this colour are wide; -1: none are
};

// Walks the list in its order. The painter counts in logical pixels, 15 twips each, with its origin at the corner
// of the picture, and may stand on a device of any scale; its font is that of the texts. Smooth edges where the
// scene is small enough to be drawn so at once (see PeutLisser).
void PeintScene(QPainter& peintre, const Scene& scene, const AspectScene& aspect);

// Whether smooth edges can be afforded: by what there is to draw, with lines of this many pixels of the device.
bool PeutLisser(const Scene& scene, const AspectScene& aspect, double pixels);

// Sizes of texts in this font, for OptionsScene::mesureTexte.
std::function<TailleTexte(const std::string&)> MesureDe(const QFont& police);

}  // namespace ovelin
