// The lock of the screen against a desktop that this test plays, over a bus of its own.
#include <QDBusMessage>
#include <QDBusServer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <memory>

#include "core/ui/VerrouEcran.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;

// One connection without a bus between: signals of one end are heard at the other.
class Bureau {
 public:
  Bureau() {
    QObject::connect(&serveur_, &QDBusServer::newConnection, &serveur_,
                     [this](const QDBusConnection& c) { cote_ = std::make_unique<QDBusConnection>(c); });
  }
  ~Bureau() { QDBusConnection::disconnectFromPeer("essai-verrou"); }
  Bureau(const Bureau&) = delete;
  Bureau& operator=(const Bureau&) = delete;

  QDBusConnection Joint() {
    QDBusConnection ici = QDBusConnection::connectToPeer(serveur_.address(), "essai-verrou");
    EXPECT_TRUE(QTest::qWaitFor([this] { return cote_ != nullptr; }));
    return ici;
  }
  void Dit(const char* chemin, const char* interface, const char* signal, const QVariantList& valeurs = {}) {
    QDBusMessage message = QDBusMessage::createSignal(QString::fromLatin1(chemin), QString::fromLatin1(interface),
                                                      QString::fromLatin1(signal));
    message.setArguments(valeurs);
    cote_->send(message);
  }

 private:
  QTemporaryDir dossier_;
  QDBusServer serveur_{"unix:path=" + dossier_.path() + "/bus"};
  std::unique_ptr<QDBusConnection> cote_;
};

TEST(VerrouEcran, HearsTheSessionLocked) {
  Bureau bureau;
  VerrouEcran verrou(QDBusConnection("absente"), bureau.Joint());
  QSignalSpy entendu(&verrou, &VerrouEcran::Verrouille);
  bureau.Dit("/org/freedesktop/login1/session/_31", "org.freedesktop.login1.Session", "Lock");
  EXPECT_TRUE(QTest::qWaitFor([&] { return entendu.count() == 1; }));
}

TEST(VerrouEcran, HearsTheScreenSaverComeAndNotGo) {
  Bureau bureau;
  VerrouEcran verrou(bureau.Joint(), QDBusConnection("absente"));
  QSignalSpy entendu(&verrou, &VerrouEcran::Verrouille);
  bureau.Dit("/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver", "ActiveChanged", {false});
  bureau.Dit("/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver", "ActiveChanged", {true});
  bureau.Dit("/org/gnome/ScreenSaver", "org.gnome.ScreenSaver", "ActiveChanged", {true});
  EXPECT_TRUE(QTest::qWaitFor([&] { return entendu.count() >= 2; }));
  EXPECT_EQ(entendu.count(), 2);
}

}  // namespace
