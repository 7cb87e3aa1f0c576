// Project files open with the program: what is written for the desktop, and when.
#include <QProcess>
#include <QStandardPaths>
#include <filesystem>

#include "app/ovelin/Association.h"
#include "core/Fichiers.h"
#include "tests/places/Lieux.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::LitFichierEssai;

const Association Projets{"OVELIN", ".ovl", "Projet <OVELIN> & Cie", "OVELIN-2.ico"};

struct Bureau {
  std::vector<std::pair<std::string, std::string>> outils;
  LieuAssociation lieu;
  explicit Bureau(const std::string& programme = "/opt/ovelin/bin/ovelin") {
    lieu.donnees = essai::Dossier() + "/donnees";
    lieu.programme = programme;
    lieu.icone = "<svg/>";
    lieu.lance = [this](const std::string& outil, const std::string& dossier) {
      outils.emplace_back(outil, dossier);
    };
  }
  std::string Entree() const { return LitFichierEssai(lieu.donnees + "/applications/ovelin.desktop"); }
  std::string Mime() const { return LitFichierEssai(lieu.donnees + "/mime/packages/ovelin.xml"); }
};

TEST(LigneExec, QuotesTheProgram) {
  EXPECT_EQ(LigneExec("/opt/mes outils/ovelin"), R"("/opt/mes outils/ovelin" %f)");
}

TEST(LigneExec, EscapesForTheCommandAndForTheLine) {
  // In the command a backslash stands before ", `, $ and \; the line doubles every backslash.
  EXPECT_EQ(LigneExec(R"(/a$b)"), R"("/a\\$b" %f)");
  EXPECT_EQ(LigneExec(R"(/a"b`c)"), R"("/a\\"b\\`c" %f)");
  EXPECT_EQ(LigneExec(R"(/a\b)"), R"("/a\\\\b" %f)");
  EXPECT_EQ(LigneExec("/100%"), R"("/100%%" %f)");
}

TEST(InscritAssociation, WritesTheEntryTheTypeAndTheIcon) {
  Bureau b;
  InscritAssociation(Projets, b.lieu);
  const std::string entree = b.Entree();
  EXPECT_TRUE(entree.starts_with("[Desktop Entry]\n"));
  EXPECT_NE(entree.find("\nExec=\"/opt/ovelin/bin/ovelin\" %f\n"), std::string::npos);
  EXPECT_NE(entree.find("\nTryExec=/opt/ovelin/bin/ovelin\n"), std::string::npos);
  EXPECT_NE(entree.find("\nMimeType=application/x-ovelin;\n"), std::string::npos);
  EXPECT_NE(entree.find("\nComment=Projet <OVELIN> & Cie\n"), std::string::npos);
  EXPECT_NE(b.Mime().find("<comment>Projet &lt;OVELIN&gt; &amp; Cie</comment>"), std::string::npos);
  EXPECT_EQ(LitFichierEssai(b.lieu.donnees + "/icons/hicolor/scalable/apps/ovelin.svg"), "<svg/>");
}

TEST(InscritAssociation, BringsTheListsOfTheChangedFoldersUpToDate) {
  Bureau b;
  InscritAssociation(Projets, b.lieu);
  const std::vector<std::pair<std::string, std::string>> deux{
      {"update-mime-database", b.lieu.donnees + "/mime"},
      {"update-desktop-database", b.lieu.donnees + "/applications"}};
  EXPECT_EQ(b.outils, deux);
}

TEST(InscritAssociation, WritesNothingWhenNothingHasChanged) {
  Bureau b;
  InscritAssociation(Projets, b.lieu);
  const auto avant = std::filesystem::last_write_time(b.lieu.donnees + "/applications/ovelin.desktop");
  b.outils.clear();
  InscritAssociation(Projets, b.lieu);
  EXPECT_TRUE(b.outils.empty());
  EXPECT_EQ(std::filesystem::last_write_time(b.lieu.donnees + "/applications/ovelin.desktop"), avant);
}

TEST(InscritAssociation, FollowsAProgramThatHasMoved) {
  Bureau b;
  InscritAssociation(Projets, b.lieu);
  Bureau ailleurs("/usr/bin/ovelin");
  InscritAssociation(Projets, ailleurs.lieu);
  EXPECT_NE(b.Entree().find("\nExec=\"/usr/bin/ovelin\" %f\n"), std::string::npos);
  EXPECT_EQ(b.Entree().find("/opt/ovelin"), std::string::npos);
  ASSERT_EQ(ailleurs.outils.size(), 1U);  // the type is the same
  EXPECT_EQ(ailleurs.outils[0].first, "update-desktop-database");
}

TEST(InscritAssociation, SaysNothingOfARefusal) {
  Bureau b;
  essai::EcritFichierEssai("donnees", "a file where the folder would be");
  InscritAssociation(Projets, b.lieu);
  EXPECT_TRUE(b.outils.empty());
  EXPECT_EQ(LitFichierEssai(b.lieu.donnees), "a file where the folder would be");
}

TEST(LieuDuBureau, LiesInTheUsersDataFolderAndBringsTheIcon) {
  const QByteArray avant = qgetenv("XDG_DATA_HOME");
  qputenv("XDG_DATA_HOME", QByteArray::fromStdString(essai::Dossier()));
  const LieuAssociation lieu = LieuDuBureau(Projets);
  if (avant.isEmpty()) {
    qunsetenv("XDG_DATA_HOME");
  } else {
    qputenv("XDG_DATA_HOME", avant);
  }
  EXPECT_EQ(lieu.donnees, essai::Dossier());
  EXPECT_TRUE(FichierExiste(lieu.programme));
  EXPECT_TRUE(lieu.icone.starts_with("<svg"));
}

// What an installation gives all users names the same type and the same entry.
TEST(TexteMime, AgreesWithThePackage) {
  const std::string paquet = LitFichierEssai(essai::DossierSource() + "/packaging/ovelin.xml");
  const std::string entree = LitFichierEssai(essai::DossierSource() + "/packaging/ovelin.desktop");
  const std::string mime = TexteMime({"OVELIN", ".ovl", "OVELIN project", "OVELIN-2.ico"});
  std::size_t debut = 0;
  for (std::size_t fin = mime.find('\n'); fin != std::string::npos; fin = mime.find('\n', debut)) {
    const std::string ligne = mime.substr(debut, fin - debut + 1);
    EXPECT_NE(paquet.find(ligne), std::string::npos) << ligne;
    debut = fin + 1;
  }
  for (const char* ligne :
       {"\nTryExec=ovelin\n", "\nExec=ovelin %f\n", "\nMimeType=application/x-ovelin;\n", "\nIcon=ovelin\n"}) {
    EXPECT_NE(entree.find(ligne), std::string::npos) << ligne;
  }
}

// The system's own tool reads what has been written.
TEST(InscritAssociation, IsUnderstoodByTheToolOfTheDesktop) {
  const QString outil = QStandardPaths::findExecutable(QStringLiteral("update-mime-database"));
  if (outil.isEmpty()) GTEST_SKIP() << "update-mime-database (shared-mime-info) is not installed";
  Bureau b;
  InscritAssociation(Projets, b.lieu);
  QProcess processus;
  processus.start(outil, {QString::fromStdString(b.lieu.donnees + "/mime")});
  ASSERT_TRUE(processus.waitForFinished(60000));
  EXPECT_EQ(processus.exitCode(), 0) << processus.readAllStandardError().toStdString();
  const std::string globs = LitFichierEssai(b.lieu.donnees + "/mime/globs2");
  EXPECT_NE(globs.find("60:application/x-ovelin:*.ovl\n"), std::string::npos) << globs;
}

}  // namespace
