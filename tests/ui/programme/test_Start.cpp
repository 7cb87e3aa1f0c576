// ./start, as a user runs it, on programs that are built already.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include "core/Fichiers.h"
#include "tests/places/Lieux.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using namespace essai;

struct Fin {
  int statut = -1;
  std::string sortie;
};

Fin Start(const QStringList& arguments, const QString& ecran = {},
          const QString& programmes = QString::fromStdString(essai::DossierProgrammes())) {
  QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
  for (const char* nom : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    environnement.remove(QString::fromLatin1(nom));
  }
  if (!ecran.isEmpty()) environnement.insert(QStringLiteral("DISPLAY"), ecran);
  const QString dossier = QString::fromStdString(Dossier());
  environnement.insert(QStringLiteral("OVELIN_PROGRAMS"), programmes);
  environnement.insert(QStringLiteral("OVELIN_OUT"), dossier + QStringLiteral("/sortie"));
  environnement.insert(QStringLiteral("XDG_CONFIG_HOME"), dossier);
  environnement.insert(QStringLiteral("XDG_DATA_HOME"), dossier);
  environnement.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
  QProcess processus;
  processus.setProcessEnvironment(environnement);
  processus.setProcessChannelMode(QProcess::MergedChannels);
  processus.start(QString::fromStdString(essai::DossierSource() + "/start"), arguments);
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
  const Fin fin =
      Start({QString::fromStdString(essai::DossierSource() + "/samples/aile.dat")}, QStringLiteral(":7777"));
  EXPECT_EQ(fin.statut, 0) << fin.sortie;
  EXPECT_NE(fin.sortie.find("no display"), std::string::npos) << fin.sortie;
  EXPECT_TRUE(FichierExiste(Dossier() + "/sortie/aile.nc"));
}

// A window that only tells how it was called.
std::string AppelDeLaFenetre(const QString& dessin) {
  const QString programmes = QString::fromStdString(Dossier() + "/programmes");
  QDir().mkpath(programmes);
  const std::string fenetre = EcritFichierEssai("programmes/ovelin", "#!/bin/sh\necho \"called: $*\"\n");
  QFile::setPermissions(QString::fromStdString(fenetre), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  return Start({dessin}, QStringLiteral(":0"), programmes).sortie;
}

TEST(Start, HandsTheFiveKindsToTheWindowsCommandLine) {
  const std::string dessin = EcritFichierEssai("a b.PLT", "IN;");
  EXPECT_EQ(AppelDeLaFenetre(QString::fromStdString(dessin)), "called: " + dessin + "\n");
}

TEST(Start, HandsAnotherKindToTheWindowAsADropDoes) {
  const std::string dessin = EcritFichierEssai("logo.eps", "%!PS\n");
  EXPECT_EQ(AppelDeLaFenetre(QString::fromStdString(dessin)), "called: --open " + dessin + "\n");
}

TEST(Start, RefusesADrawingThatIsNotThere) {
  const Fin fin = Start({QStringLiteral("/absent.dxf")});
  EXPECT_EQ(fin.statut, 1);
  EXPECT_NE(fin.sortie.find("no such drawing: /absent.dxf"), std::string::npos);
}

}  // namespace
