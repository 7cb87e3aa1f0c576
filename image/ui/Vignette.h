// A drawing as a small picture: of a file, of a step of undo.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <vector>

#include "core/Types.h"

namespace ovelin {

// The points on paper, in the colours in force and as sharp as the screen of `pour`. `points` are thinned already
// (image/Apercu.h); without any only the paper.
QPixmap Vignette(const std::vector<PointTrace>& points, const QSize& taille, const QWidget& pour);

}  // namespace ovelin
