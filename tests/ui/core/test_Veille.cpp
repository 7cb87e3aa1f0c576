// Screen saver and sleep against a desktop that this test plays, over a bus of its own.
#include <fcntl.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusServer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <array>
#include <memory>

#include "core/ui/Veille.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;

class Ecran : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")
 public:
  using QObject::QObject;
  QStringList demandes;
  QList<uint> rendus;
 public Q_SLOTS:
  uint Inhibit(const QString& qui, const QString& pourquoi) {
    demandes << qui + '/' + pourquoi;
    return 41 + static_cast<uint>(demandes.size());
  }
  void UnInhibit(uint ticket) { rendus << ticket; }
};

class Systeme : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
 public:
  using QObject::QObject;
  ~Systeme() override { ::close(lit); }
  QStringList demandes;
  int lit = -1;  // end of a pipe whose other end the program holds
 public Q_SLOTS:
  QDBusUnixFileDescriptor Inhibit(const QString& quoi, const QString& qui, const QString&, const QString& comment) {
    demandes << quoi + '/' + qui + '/' + comment;
    std::array<int, 2> tube{};
    if (::pipe2(tube.data(), O_NONBLOCK) != 0) return {};
    lit = tube[0];
    const QDBusUnixFileDescriptor garde(tube[1]);
    ::close(tube[1]);
    return garde;
  }
};

// One connection without a bus between: what is asked on one end is answered by the objects of the other.
class Bureau {
 public:
  Bureau() {
    QObject::connect(&serveur_, &QDBusServer::newConnection, &serveur_, [this](const QDBusConnection& c) {
      QDBusConnection la = c;
      la.registerObject("/org/freedesktop/ScreenSaver", &ecran, QDBusConnection::ExportAllSlots);
      la.registerObject("/org/freedesktop/login1", &systeme, QDBusConnection::ExportAllSlots);
      cote_ = std::make_unique<QDBusConnection>(la);
    });
  }
  // The thread of the connection would look at the services when it sees the end of it, while they go here.
  ~Bureau() {
    if (cote_ != nullptr) cote_->unregisterObject("/org/freedesktop", QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromPeer("essai-veille");
  }
  Bureau(const Bureau&) = delete;
  Bureau& operator=(const Bureau&) = delete;

  QDBusConnection Joint() {
    QDBusConnection ici = QDBusConnection::connectToPeer(serveur_.address(), "essai-veille");
    EXPECT_TRUE(QTest::qWaitFor([this] { return cote_ != nullptr; }));
    return ici;
  }

  Ecran ecran;
  Systeme systeme;

 private:
  QTemporaryDir dossier_;
  QDBusServer serveur_{"unix:path=" + dossier_.path() + "/bus"};
  std::unique_ptr<QDBusConnection> cote_;
};

bool EstFerme(int lit) {
  char octet = 0;
  return ::read(lit, &octet, 1) ==
         0;  // end of file: nobody holds the other end; while somebody does there is nothing to read yet
}

TEST(RetenueVeille, IsAskedForOnceAndGivenBackByItsTicket) {
  Bureau bureau;
  const QDBusConnection joint = bureau.Joint();
  RetenueVeille veille(joint, QDBusConnection("absente"));
  veille.Retient(true);
  veille.Retient(true);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !bureau.ecran.demandes.isEmpty(); }));
  essai::Evenements();
  EXPECT_EQ(bureau.ecran.demandes, QStringList{"OVELIN/Fraisage"});
  EXPECT_TRUE(bureau.ecran.rendus.isEmpty());
  veille.Retient(false);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !bureau.ecran.rendus.isEmpty(); }));
  EXPECT_EQ(bureau.ecran.rendus, QList<uint>{42});
}

TEST(RetenueVeille, GivesBackATicketThatComesTooLate) {
  Bureau bureau;
  const QDBusConnection joint = bureau.Joint();
  RetenueVeille veille(joint, QDBusConnection("absente"));
  veille.Retient(true);
  veille.Retient(false);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !bureau.ecran.rendus.isEmpty(); }));
  EXPECT_EQ(bureau.ecran.rendus, QList<uint>{42});
}

TEST(RetenueVeille, HoldsSleepBackByAFileThatItOpensAndCloses) {
  Bureau bureau;
  const QDBusConnection joint = bureau.Joint();
  if (!joint.connectionCapabilities().testFlag(QDBusConnection::UnixFileDescriptorPassing)) GTEST_SKIP();
  auto veille = std::make_unique<RetenueVeille>(QDBusConnection("absente"), joint);
  veille->Retient(true);
  ASSERT_TRUE(QTest::qWaitFor([&] { return bureau.systeme.lit >= 0; }));
  EXPECT_EQ(bureau.systeme.demandes, QStringList{"idle:sleep/OVELIN/block"});
  essai::Evenements();
  veille->Retient(false);
  EXPECT_TRUE(QTest::qWaitFor([&] { return EstFerme(bureau.systeme.lit); }));
}

TEST(RetenueVeille, WithoutADesktopNothingHappens) {
  RetenueVeille veille(QDBusConnection("absente"), QDBusConnection("absente"));
  veille.Retient(true);
  veille.Retient(false);
  essai::Evenements();
}

}  // namespace

#include "test_Veille.moc"
