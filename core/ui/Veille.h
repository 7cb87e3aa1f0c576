// Screen saver and sleep, held back through the desktop's own services on D-Bus.
#pragma once

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <optional>

namespace ovelin {

// Asks the screen saver of the session and the session manager of the system. Neither answer is waited for, and a
// machine without one of them goes on without it. Both hold only as long as this program is there: the first ends
// with its place on the bus, the second with its open file.
class RetenueVeille : public QObject {
  Q_OBJECT
 public:
  RetenueVeille(QDBusConnection session, QDBusConnection systeme, QObject* parent = nullptr);

  // Held once, whoever asks again; given back once.
  void Retient(bool retenue);

 private:
  void DemandeEcran();
  void DemandeSommeil();
  void RendEcran();

  QDBusConnection session_, systeme_;
  bool retenue_ = false;
  bool ecranDemande_ = false, sommeilDemande_ = false;  // the answer is on its way
  std::optional<uint> ecran_;                           // what the screen saver wants back
  QDBusUnixFileDescriptor sommeil_;
};

}  // namespace ovelin
