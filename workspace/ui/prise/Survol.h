// The path under the pointer, lightened before a click takes it.
#pragma once

#include <QObject>
#include <QPointF>
#include <QTimer>

#include "core/Types.h"

namespace ovelin {

// Looks for the path once the movements that wait have come: a large drawing takes milliseconds.
class Survol : public QObject {
  Q_OBJECT
 public:
  explicit Survol(QObject* parent);

  // The pointer is at this place of a picture `hauteur` high, twips.
  void Va(const QPointF& place, float hauteur);
  // It is on no path: it has left, or does something else.
  void Quitte();
  [[nodiscard]] Code2 Code() const { return code_; }

 Q_SIGNALS:
  void Change();

 private:
  void Cherche();
  void Prend(Code2 code);

  QTimer attente_;
  QPointF place_;
  float hauteur_ = 0;
  Code2 code_;
};

}  // namespace ovelin
