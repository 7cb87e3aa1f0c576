#include "core/ui/VerrouEcran.h"

namespace ovelin {

VerrouEcran::VerrouEcran(QDBusConnection session, QDBusConnection systeme, QObject* parent) : QObject(parent) {
  systeme.connect({}, {}, QStringLiteral("org.freedesktop.login1.Session"), QStringLiteral("Lock"), this,
                  SLOT(Session()));
  for (const char* nom : {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver"}) {
    session.connect({}, {}, QString::fromLatin1(nom), QStringLiteral("ActiveChanged"), this, SLOT(Ecran(bool)));
  }
}

void VerrouEcran::Session() { Q_EMIT Verrouille(); }

void VerrouEcran::Ecran(bool masque) {
  if (masque) Q_EMIT Verrouille();
}

}  // namespace ovelin
