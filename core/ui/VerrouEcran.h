// The moment at which the screen is locked, as the desktop tells it on D-Bus.
#pragma once

#include <QDBusConnection>
#include <QObject>

namespace ovelin {

// Hears the session manager of the system and the screen savers of the session. A machine without one of them says
// nothing.
class VerrouEcran : public QObject {
  Q_OBJECT
 public:
  VerrouEcran(QDBusConnection session, QDBusConnection systeme, QObject* parent = nullptr);

 Q_SIGNALS:
  void Verrouille();

 private Q_SLOTS:
  void Session();           // the session is told to lock
  void Ecran(bool masque);  // the saver has come, or gone
};

}  // namespace ovelin
