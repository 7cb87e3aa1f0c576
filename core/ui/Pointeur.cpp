#include "core/ui/Pointeur.h"

#include <QCursor>
#include <QGuiApplication>

namespace ovelin {

namespace {

// A compositor of Wayland moves its pointer alone.
void Bouge(int dx, int dy) {
  if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) return;
  QCursor::setPos(QCursor::pos() + QPoint(dx, dy));
}

}  // namespace

std::function<void(int, int)> BougePointeur = Bouge;

}  // namespace ovelin
