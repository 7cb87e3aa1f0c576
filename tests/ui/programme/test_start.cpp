// ./start, as a user runs it, on programs that are built already.
#include <QProcess>
#include <QProcessEnvironment>

#include "core/Fichiers.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using namespace essai;

struct Fin {
  int statut = -1;
  std::string sortie;
};

Fin Start(const QStringList& arguments, const QString& ecran = {}) {
  QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
  for (const char* nom : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    environnement.remove(QString::fromLatin1(nom));
  }
  if (!ecran.isEmpty()) environnement.insert(QStringLiteral("DISPLAY"), ecran);
  const QString dossier = QString::fromStdString(Dossier());
  environnement.insert(QStringLiteral("OVELIN_PROGRAMS"), QStringLiteral(OVELIN_BINARY_DIR "/bin"));
  environnement.insert(QStringLiteral("OVELIN_OUT"), dossier + QStringLiteral("/sortie"));
  environnement.insert(QStringLiteral("XDG_CONFIG_HOME"), dossier);
  environnement.insert(QStringLiteral("XDG_DATA_HOME"), dossier);
  environnement.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
  QProcess processus;
  processus.setProcessEnvironment(environnement);
  processus.setProcessChannelMode(QProcess::MergedChannels);
  processus.start(QStringLiteral(OVELIN_SOURCE_DIR "/start"), arguments);
  Fin fin;
  if (!processus.waitForFinished(300000)) return fin;
  fin.statut = processus.exitCode();
  fin.sortie = processus.readAll().toStdString();
  return fin;
}

TEST(Start, DoesTheJobWithoutAWindowWhereThereIsNoDisplay) {
  const Fin fin = Start({});
  EXPECT_EQ(fin.statut, 0) << fin.sortie;
  EXPECT_NE(fin.sortie.find("No display"), std::string::npos) << fin.sortie;
  EXPECT_NE(LitFichierEssai(Dossier() + "/sortie/equerre.nc").find("M03"), std::string::npos);
  EXPECT_TRUE(FichierExiste(Dossier() + "/sortie/equerre.svg"));
  EXPECT_TRUE(FichierExiste(Dossier() + "/sortie/equerre.png"));
}

TEST(Start, DoesSoTooWhenTheDisplayDoesNotAnswer) {
  const Fin fin = Start({QStringLiteral(OVELIN_SOURCE_DIR "/samples/aile.dat")}, QStringLiteral(":7777"));
  EXPECT_EQ(fin.statut, 0) << fin.sortie;
  EXPECT_NE(fin.sortie.find("no display"), std::string::npos) << fin.sortie;
  EXPECT_TRUE(FichierExiste(Dossier() + "/sortie/aile.nc"));
}

TEST(Start, RefusesADrawingThatIsNotThere) {
  const Fin fin = Start({QStringLiteral("/absent.dxf")});
  EXPECT_EQ(fin.statut, 1);
  EXPECT_NE(fin.sortie.find("no such drawing: /absent.dxf"), std::string::npos);
}

}  // namespace
