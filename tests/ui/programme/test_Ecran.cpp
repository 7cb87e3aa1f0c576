// Starting without a display: said before the toolkit ends the program on the spot.
#include <QProcess>
#include <QProcessEnvironment>

#include "app/ovelin/Ecran.h"
#include "tests/places/Lieux.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

TEST(EcranPossible, WantsAnXServerOrACompositor) {
  EXPECT_FALSE(EcranPossible({"", "", ""}));
  EXPECT_TRUE(EcranPossible({"", ":0", ""}));
  EXPECT_TRUE(EcranPossible({"", "", "wayland-0"}));
}

TEST(EcranPossible, LooksAtThePlatformThatIsAskedFor) {
  EXPECT_FALSE(EcranPossible({"xcb", "", "wayland-0"}));
  EXPECT_TRUE(EcranPossible({"xcb:option", ":0", ""}));
  EXPECT_FALSE(EcranPossible({"wayland-egl", ":0", ""}));
  EXPECT_TRUE(EcranPossible({"offscreen", "", ""}));
  EXPECT_TRUE(EcranPossible({"vnc:size=800x600", "", ""}));
}

TEST(EcranPossible, TriesTheChoicesInTurn) {
  EXPECT_TRUE(EcranPossible({"wayland;xcb", ":0", ""}));
  EXPECT_TRUE(EcranPossible({"xcb;offscreen", "", ""}));
  EXPECT_FALSE(EcranPossible({"wayland;xcb", "", ""}));
}

// The program as a user starts it.
struct Fin {
  int statut = -1;
  std::string sortie, erreurs;
};
Fin Lance(const QStringList& arguments, const std::vector<std::pair<const char*, const char*>>& variables = {}) {
  QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
  for (const char* nom : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    environnement.remove(QString::fromLatin1(nom));
  }
  environnement.insert(QStringLiteral("XDG_DATA_HOME"), QString::fromStdString(essai::Dossier()));
  environnement.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(essai::Dossier()));
  environnement.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
  for (const auto& [nom, valeur] : variables) {
    environnement.insert(QString::fromLatin1(nom), QString::fromUtf8(valeur));
  }
  QProcess processus;
  processus.setProcessEnvironment(environnement);
  processus.start(QString::fromStdString(essai::DossierProgrammes() + "/ovelin"), arguments);
  Fin fin;
  if (!processus.waitForFinished(60000)) return fin;
  fin.statut = processus.exitStatus() == QProcess::NormalExit ? processus.exitCode() : -2;
  fin.sortie = processus.readAllStandardOutput().toStdString();
  fin.erreurs = processus.readAllStandardError().toStdString();
  return fin;
}

const std::string Sans = "no display";

TEST(Programme, SaysThatThereIsNoDisplay) {
  const Fin fin = Lance({});
  EXPECT_EQ(fin.statut, SansEcran);
  EXPECT_NE(fin.erreurs.find(Sans), std::string::npos) << fin.erreurs;
  EXPECT_NE(fin.erreurs.find("ovelin-cli"), std::string::npos);
}

TEST(Programme, SaysSoInTheLanguageOfTheCall) {
  EXPECT_NE(Lance({"--lang", "fr"}).erreurs.find("écran"), std::string::npos);
}

TEST(Programme, SaysSoWhenTheDisplayDoesNotAnswer) {
  const Fin fin = Lance({}, {{"DISPLAY", ":7777"}});
  EXPECT_EQ(fin.statut, SansEcran);
  EXPECT_NE(fin.erreurs.find(Sans), std::string::npos) << fin.erreurs;
}

TEST(Programme, SaysSoWhenThereIsNoSuchPlatform) {
  const Fin fin = Lance({"-platform", "martien"});
  EXPECT_EQ(fin.statut, SansEcran);
  EXPECT_NE(fin.erreurs.find(Sans), std::string::npos) << fin.erreurs;
  EXPECT_NE(fin.erreurs.find("martien"), std::string::npos);
}

TEST(Programme, NeedsNoDisplayForHelpAndVersion) {
  EXPECT_EQ(Lance({"--version"}).sortie, "4.10.0\n");
  const Fin aide = Lance({"--help"});
  EXPECT_EQ(aide.statut, 0);
  EXPECT_NE(aide.sortie.find("--config DIR"), std::string::npos);
}

TEST(Programme, RefusesACallThatItDoesNotUnderstand) {
  const Fin fin = Lance({"--nimporte"});
  EXPECT_EQ(fin.statut, 2);
  EXPECT_NE(fin.erreurs.find("unknown option: --nimporte"), std::string::npos);
}

}  // namespace
