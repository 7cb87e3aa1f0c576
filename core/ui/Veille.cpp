#include "core/ui/Veille.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace ovelin {

namespace {

constexpr int Delai = 5000;  // ms, of an answer

QString Qui() { return QStringLiteral("OVELIN"); }
QString Pourquoi() { return QStringLiteral("Fraisage"); }

QDBusMessage Ecran(const char* methode) {
  return QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("/org/freedesktop/ScreenSaver"),
      QStringLiteral("org.freedesktop.ScreenSaver"), QString::fromLatin1(methode));
}

QDBusMessage Sommeil() {
  QDBusMessage message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
      QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
  message << QStringLiteral("idle:sleep") << Qui() << Pourquoi() << QStringLiteral("block");
  return message;
}

}  // namespace

RetenueVeille::RetenueVeille(QDBusConnection session, QDBusConnection systeme, QObject* parent)
    : QObject(parent), session_(std::move(session)), systeme_(std::move(systeme)) {}

void RetenueVeille::Retient(bool retenue) {
  if (std::exchange(retenue_, retenue) == retenue) return;
  if (retenue) {
    DemandeEcran();
    DemandeSommeil();
    return;
  }
  RendEcran();
  sommeil_ = {};
}

// What arrives after it is no longer wanted is given back at once.
void RetenueVeille::DemandeEcran() {
  if (!session_.isConnected() || ecranDemande_) return;
  ecranDemande_ = true;
  QDBusMessage message = Ecran("Inhibit");
  message << Qui() << Pourquoi();
  auto* attente = new QDBusPendingCallWatcher(session_.asyncCall(message, Delai), this);
  connect(attente, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* fini) {
    const QDBusPendingReply<uint> reponse = *fini;
    fini->deleteLater();
    ecranDemande_ = false;
    if (reponse.isError()) return;
    ecran_ = reponse.value();
    if (!retenue_) RendEcran();
  });
}

void RetenueVeille::RendEcran() {
  if (!ecran_) return;
  QDBusMessage message = Ecran("UnInhibit");
  message << *std::exchange(ecran_, std::nullopt);
  session_.send(message);
}

void RetenueVeille::DemandeSommeil() {
  if (!systeme_.isConnected() || sommeilDemande_) return;
  sommeilDemande_ = true;
  auto* attente = new QDBusPendingCallWatcher(systeme_.asyncCall(Sommeil(), Delai), this);
  connect(attente, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* fini) {
    const QDBusPendingReply<QDBusUnixFileDescriptor> reponse = *fini;
    fini->deleteLater();
    sommeilDemande_ = false;
    if (!reponse.isError() && retenue_) sommeil_ = reponse.value();
  });
}

}  // namespace ovelin
