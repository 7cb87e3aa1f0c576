// Where a window goes that has no place of its own yet.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace ovelin {

// The upper left corner of a window of that size, frames included, all in pixels of the desktop: beside
// `principale`, at its foot, where the screen has room, to the right before the left; or else in the lower right
// corner of `image`, as far as that lies on the screen.
QPoint PlaceACote(const QRect& ecran, const QRect& principale, const QRect& image, const QSize& taille);

}  // namespace ovelin
