#include "workspace/ui/PlaceACote.h"

#include <algorithm>

namespace ovelin {

QPoint PlaceACote(const QRect& ecran, const QRect& principale, const QRect& image, const QSize& taille) {
  constexpr int Bord = 16;
  const int pied = std::max(std::min(principale.bottom(), ecran.bottom()) + 1 - taille.height(), ecran.top());
  if (ecran.right() - principale.right() >= taille.width()) return {principale.right() + 1, pied};
  if (principale.left() - ecran.left() >= taille.width()) return {principale.left() - taille.width(), pied};
  const QPoint coin = image.bottomRight() - QPoint(Bord + taille.width(), Bord + taille.height());
  return {std::max(coin.x(), ecran.left()), std::max(coin.y(), ecran.top())};
}

}  // namespace ovelin
