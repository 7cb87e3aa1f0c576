// The request for the version file, against a server of this test.
#include <ifaddrs.h>
#include <net/if.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include "app/ovelin/MiseAJour.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

// Answers every call with the same bytes; keeps the line open when told to.
class Serveur {
 public:
  explicit Serveur(QByteArray reponse, bool ferme = true) : reponse_(std::move(reponse)) {
    QObject::connect(&serveur_, &QTcpServer::newConnection, &serveur_, [this, ferme] {
      QTcpSocket* ligne = serveur_.nextPendingConnection();
      QObject::connect(ligne, &QTcpSocket::readyRead, ligne, [this, ligne, ferme] {
        demande += ligne->readAll().toStdString();
        if (demande.find("\r\n\r\n") == std::string::npos) return;
        ligne->write(reponse_);
        if (ferme) ligne->disconnectFromHost();
      });
    });
    EXPECT_TRUE(serveur_.listen(QHostAddress::LocalHost));
  }
  [[nodiscard]] std::string Adresse() const {
    return "http://127.0.0.1:" + std::to_string(serveur_.serverPort()) + "/Kolvane/files/OVELIN/ver.txt";
  }
  void Ferme() { serveur_.close(); }
  std::string demande;

 private:
  QTcpServer serveur_;
  QByteArray reponse_;
};

QByteArray Bonne(const QByteArray& texte) { return "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + texte; }

// A request with what it handed over. Events run until then; the guard only ends a test that would never end.
class Demandeur {
 public:
  Demandeur()
      : maj([this] { return libre; },
            [this](const std::string& texte) {
              ++fois;
              reponse = texte;
              boucle_.quit();
            }) {}
  void Attend() {
    QTimer::singleShot(60000, &boucle_, &QEventLoop::quit);
    boucle_.exec();
  }
  bool libre = true;
  int fois = 0;
  std::string reponse = "rien";
  MiseAJour maj;

 private:
  QEventLoop boucle_;
};

TEST(MiseAJour, AsksInTheProgramsNameAndPastEveryCache) {
  Serveur serveur(Bonne("4.11.0 OVELIN"));
  Demandeur d;
  d.maj.Demande(serveur.Adresse());
  EXPECT_EQ(d.fois, 0);  // the start goes on at once
  d.Attend();
  EXPECT_EQ(d.reponse, "4.11.0 OVELIN");
  EXPECT_TRUE(serveur.demande.starts_with("GET /Kolvane/files/OVELIN/ver.txt HTTP/1.1\r\n"));
  EXPECT_NE(serveur.demande.find("\r\nUser-Agent: OVELIN\r\n"), std::string::npos) << serveur.demande;
  EXPECT_NE(serveur.demande.find("\r\nCache-Control: no-cache\r\n"), std::string::npos) << serveur.demande;
}

TEST(MiseAJour, TakesTheFirst256CharactersAndHangsUp) {
  Serveur serveur(Bonne(QByteArray("4.11.0 OVELIN ") + QByteArray(5000, 'x')), false);
  Demandeur d;
  d.maj.Demande(serveur.Adresse());
  d.Attend();  // the server never ends its answer
  EXPECT_EQ(d.reponse, "4.11.0 OVELIN " + std::string(242, 'x'));
  EXPECT_EQ(d.fois, 1);
}

TEST(MiseAJour, TakesARefusalForNoAnswer) {
  Serveur serveur("HTTP/1.1 404 Not Found\r\nConnection: close\r\n\r\n9.9.9 OVELIN");
  Demandeur d;
  d.maj.Demande(serveur.Adresse());
  d.Attend();
  EXPECT_EQ(d.reponse, "");
}

TEST(MiseAJour, TakesAServerThatIsAwayForNoAnswer) {
  Serveur serveur("");
  serveur.Ferme();
  Serveur mort("");
  const std::string adresse = mort.Adresse();
  mort.Ferme();
  Demandeur d;
  d.maj.Demande(adresse);
  d.Attend();
  EXPECT_EQ(d.reponse, "");
  EXPECT_EQ(d.fois, 1);
}

TEST(MiseAJour, KeepsTheAnswerUntilItMayBeHandedOver) {
  Serveur serveur(Bonne("4.11.0 OVELIN"));
  Demandeur d;
  d.libre = false;
  d.maj.Demande(serveur.Adresse());
  while (d.fois == 0 && !d.maj.Attend()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  d.maj.Livre();
  EXPECT_EQ(d.fois, 0);
  d.libre = true;
  d.maj.Livre();
  EXPECT_EQ(d.reponse, "4.11.0 OVELIN");
  d.maj.Livre();
  EXPECT_EQ(d.fois, 1);
}

TEST(MiseAJour, AsksOnlyServersOfTheWeb) {
  const std::string secret = essai::EcritFichierEssai("ver.txt", "9.9.9 OVELIN");
  Demandeur d;
  d.maj.Demande("file://" + secret);
  d.maj.Demande("");
  d.maj.Demande("pas une adresse");
  QCoreApplication::processEvents();
  d.maj.Livre();
  EXPECT_EQ(d.fois, 0);
}

// The same question to the system's own list.
TEST(ReseauPresent, WantsAnInterfaceThatLeadsOut) {
  bool dehors = false;
  ifaddrs* liste = nullptr;
  ASSERT_EQ(getifaddrs(&liste), 0);
  for (const ifaddrs* i = liste; i != nullptr; i = i->ifa_next) {
    if (i->ifa_addr == nullptr) continue;
    const bool adresse = i->ifa_addr->sa_family == AF_INET || i->ifa_addr->sa_family == AF_INET6;
    const unsigned drapeaux = i->ifa_flags;
    dehors = dehors || (adresse && (drapeaux & IFF_UP) != 0 && (drapeaux & IFF_RUNNING) != 0 &&
                        (drapeaux & IFF_LOOPBACK) == 0);
  }
  freeifaddrs(liste);
  EXPECT_EQ(ReseauPresent(), dehors);
}

}  // namespace
