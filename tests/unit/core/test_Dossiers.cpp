#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::Dossier;
using essai::EcritFichierEssai;
namespace fs = std::filesystem;

// An environment variable for the time of a test; a null pointer takes it away.
class Variable {
 public:
  Variable(const char* nom, const char* valeur) : nom_(nom) {
    if (const char* avant = std::getenv(nom)) avant_ = avant;
    valeur != nullptr ? setenv(nom, valeur, 1) : unsetenv(nom);
  }
  ~Variable() { avant_ ? setenv(nom_, avant_->c_str(), 1) : unsetenv(nom_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* nom_;
  std::optional<std::string> avant_;
};

mode_t Mode(const std::string& chemin) {
  struct stat etat {};
  stat(chemin.c_str(), &etat);
  return etat.st_mode & 0777U;
}

TEST(TrouveDossierProgramme, IsTheUsersConfigurationFolderWithModeForHimAlone) {
  const Variable xdg("XDG_CONFIG_HOME", (Dossier() + "/neuf/config").c_str());
  EXPECT_EQ(TrouveDossierProgramme("/usr/bin"), Dossier() + "/neuf/config/ovelin");
  EXPECT_EQ(Mode(Dossier() + "/neuf/config/ovelin"), 0700U);
}

TEST(TrouveDossierProgramme, ClosesAFolderThatOthersCouldRead) {
  fs::create_directories(Dossier() + "/ovelin");
  fs::permissions(Dossier() + "/ovelin", fs::perms(0755));
  const Variable xdg("XDG_CONFIG_HOME", Dossier().c_str());
  TrouveDossierProgramme("/usr/bin");
  EXPECT_EQ(Mode(Dossier() + "/ovelin"), 0700U);
}

TEST(TrouveDossierProgramme, FallsBackOnTheHomeFolder) {
  const Variable maison("HOME", Dossier().c_str());
  {
    const Variable xdg("XDG_CONFIG_HOME", nullptr);
    EXPECT_EQ(TrouveDossierProgramme("/usr/bin"), Dossier() + "/.config/ovelin");
  }
  const Variable relatif("XDG_CONFIG_HOME", "relatif");
  EXPECT_EQ(TrouveDossierProgramme("/usr/bin"), Dossier() + "/.config/ovelin");
}

TEST(TrouveDossierProgramme, StaysBesideThePortableExecutable) {
  for (const char* nom : {"OVELIN.ini", "OVELIN.inisav"}) {
    const std::string chemin = EcritFichierEssai(nom, "");
    EXPECT_EQ(TrouveDossierProgramme(Dossier()), Dossier()) << nom;
    fs::remove(chemin);
  }
}

TEST(TrouveFichierProduit, LooksInTheProgramsFolderFirst) {
  fs::create_directories(Dossier() + "/bin");
  fs::create_directories(Dossier() + "/share/ovelin");
  const Variable xdg("XDG_CONFIG_HOME", (Dossier() + "/config").c_str());
  DossierProgramme = TrouveDossierProgramme(Dossier() + "/bin");
  EXPECT_EQ(TrouveFichierProduit("OVELINxx.trad"), "");
  EcritFichierEssai("share/ovelin/OVELINxx.trad", "partage");
  EXPECT_EQ(*LitFichierEntier(TrouveFichierProduit("OVELINxx.trad")), "partage");
  EXPECT_EQ(TrouveFichierProduit("OVELINxx.trad"),
            Dossier() + "/share/ovelin/OVELINxx.trad");  // as a user writes it
  EcritFichierEssai("config/ovelin/OVELINxx.trad", "utilisateur");
  EXPECT_EQ(*LitFichierEntier(TrouveFichierProduit("OVELINxx.trad")), "utilisateur");
}

TEST(TrouveFichierProduit, FindsAManualThatWasBuiltBesideABuildTree) {
  fs::create_directories(Dossier() + "/build/dev/bin");
  fs::create_directories(Dossier() + "/build/manual");
  EcritFichierEssai("build/dev/CMakeCache.txt", "");
  const std::string manuel = EcritFichierEssai("build/manual/OVELIN V4.pdf", "%PDF");
  const Variable xdg("XDG_CONFIG_HOME", (Dossier() + "/config").c_str());
  DossierProgramme = TrouveDossierProgramme(Dossier() + "/build/dev/bin");
  EXPECT_EQ(TrouveFichierProduit("OVELIN V4.pdf"), manuel);
}

TEST(TrouveFichierProduit, LooksInTheSourcesFromABuildTree) {
  fs::create_directories(Dossier() + "/build/dev/bin");
  fs::create_directories(Dossier() + "/translations");
  EcritFichierEssai("translations/OVELINxx.trad", "sources");
  const Variable xdg("XDG_CONFIG_HOME", (Dossier() + "/config").c_str());
  DossierProgramme = TrouveDossierProgramme(Dossier() + "/build/dev/bin");
  EXPECT_EQ(TrouveFichierProduit("OVELINxx.trad"), "");
  EcritFichierEssai("build/dev/CMakeCache.txt", "");
  DossierProgramme = TrouveDossierProgramme(Dossier() + "/build/dev/bin");
  EXPECT_EQ(*LitFichierEntier(TrouveFichierProduit("OVELINxx.trad")), "sources");
}

TEST(PrepareDossierTemp, GivesTheProcessAFolderOfItsOwn) {
  const Variable tmp("TMPDIR", Dossier().c_str());
  ASSERT_TRUE(PrepareDossierTemp());
  const std::string base = Dossier() + "/ovelin-" + std::to_string(geteuid());
  EXPECT_EQ(DossierTemp, base + "/" + std::to_string(getpid()));
  EXPECT_EQ(Mode(base), 0700U);
  EXPECT_EQ(Mode(DossierTemp), 0700U);
  EcritFichierEssai("ovelin-" + std::to_string(geteuid()) + "/" + std::to_string(getpid()) + "/00001.OVL", "x");
  const std::string dossier = DossierTemp;
  OteDossierTemp();
  EXPECT_FALSE(fs::exists(dossier));
  EXPECT_EQ(DossierTemp, "");
}

TEST(PrepareDossierTemp, RemovesWhatDeadProcessesLeft) {
  const Variable tmp("TMPDIR", Dossier().c_str());
  const std::string base = Dossier() + "/ovelin-" + std::to_string(geteuid());
  fs::create_directories(base + "/1234567");
  EcritFichierEssai("ovelin-" + std::to_string(geteuid()) + "/1234567/00001.OVL", "x");
  ASSERT_TRUE(PrepareDossierTemp());
  EXPECT_FALSE(fs::exists(base + "/1234567"));
  OteDossierTemp();
}

TEST(PrepareDossierTemp, LeavesTheFolderOfALivingProcess) {
  const Variable tmp("TMPDIR", Dossier().c_str());
  int pret[2], fini[2];
  ASSERT_EQ(pipe(pret), 0);
  ASSERT_EQ(pipe(fini), 0);
  const pid_t enfant = fork();
  if (enfant == 0) {
    const char bon = PrepareDossierTemp() ? 'o' : 'n';
    if (write(pret[1], &bon, 1) != 1) _exit(1);
    char c = 0;
    close(fini[1]);
    if (read(fini[0], &c, 1) < 0) _exit(1);
    _exit(0);
  }
  close(fini[0]);
  char bon = 0;
  ASSERT_EQ(read(pret[0], &bon, 1), 1);
  EXPECT_EQ(bon, 'o');
  const std::string dossier = Dossier() + "/ovelin-" + std::to_string(geteuid()) + "/" + std::to_string(enfant);
  ASSERT_TRUE(PrepareDossierTemp());
  EXPECT_TRUE(fs::exists(dossier));
  OteDossierTemp();
  close(fini[1]);
  waitpid(enfant, nullptr, 0);
  ASSERT_TRUE(PrepareDossierTemp());
  EXPECT_FALSE(fs::exists(dossier));
  OteDossierTemp();
  close(pret[0]);
  close(pret[1]);
}

TEST(PrepareDossierTemp, RefusesAFolderThatIsALink) {
  const Variable tmp("TMPDIR", Dossier().c_str());
  fs::create_directories(Dossier() + "/ailleurs");
  fs::create_symlink(Dossier() + "/ailleurs", Dossier() + "/ovelin-" + std::to_string(geteuid()));
  DossierTemp.clear();
  EXPECT_FALSE(PrepareDossierTemp());
  EXPECT_EQ(DossierTemp, "");
}

TEST(PrepareDossierTemp, DoesNotFollowLinksWhenItCleansUp) {
  const Variable tmp("TMPDIR", Dossier().c_str());
  const std::string base = Dossier() + "/ovelin-" + std::to_string(geteuid());
  fs::create_directories(Dossier() + "/ailleurs");
  fs::create_directories(base);
  EcritFichierEssai("ailleurs/garde.OVL", "x");
  fs::create_symlink(Dossier() + "/ailleurs", base + "/99");
  ASSERT_TRUE(PrepareDossierTemp());
  EXPECT_TRUE(fs::exists(Dossier() + "/ailleurs/garde.OVL"));
  OteDossierTemp();
}

TEST(PrepareDossierTemp, FailsWithoutATemporaryFolder) {
  const Variable tmp("TMPDIR", (Dossier() + "/absent").c_str());
  DossierTemp.clear();
  EXPECT_FALSE(PrepareDossierTemp());
  EXPECT_EQ(DossierTemp, "");
}

}  // namespace
