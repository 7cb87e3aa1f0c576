#include "workspace/ui/prise/Survol.h"

#include "core/DocumentCourant.h"
#include "core/ui/ServicesQt.h"
#include "workspace/Module_Souris.h"

namespace ovelin {

namespace {

constexpr int Attente = 15;  // ms

}  // namespace

Survol::Survol(QObject* parent) : QObject(parent), attente_(this) {
  attente_.setSingleShot(true);
  attente_.setInterval(Attente);
  attente_.setObjectName(QStringLiteral("Timer_Survol"));
  connect(&attente_, &QTimer::timeout, this, &Survol::Cherche);
}

void Survol::Va(const QPointF& place, float hauteur) {
  place_ = place;
  hauteur_ = hauteur;
  if (!attente_.isActive()) attente_.start();
}

void Survol::Quitte() {
  attente_.stop();
  Prend({});
}

void Survol::Cherche() {
  if (PasseEnCours()) return;
  const PointTrace p =
      VersDessin(Vue, hauteur_, {static_cast<float>(place_.x()), static_cast<float>(place_.y()), CodePD, {}});
  Prend(SegmentLePlusProche(TraceInitial, NbPoints, p.X, p.Y).code);
}

void Survol::Prend(Code2 code) {
  if (code == code_) return;
  code_ = code;
  Q_EMIT Change();
}

}  // namespace ovelin
