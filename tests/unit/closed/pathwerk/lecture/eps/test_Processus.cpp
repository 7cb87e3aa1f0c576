// The process around Ghostscript, tried with small shell scripts in its place.
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <fstream>

#include "base/Arret.h"
#include "closed/pathwerk/lecture/eps/Processus.h"
#include "tests/unit/closed/pathwerk/lecture/eps/Mesures.h"

namespace pathwerk::lecture::eps {
namespace {

using namespace mesures;

class LanceGsTest : public testing::Test {
 protected:
  // Runs a script; its output is in `sortie`.
  EpsFin Lance(const std::string& script) {
    const std::string chemin = outils_.Chemin() + "/programme";
    std::ofstream(chemin) << "#!/bin/sh\n" << script << "\n";
    ::chmod(chemin.c_str(), 0700);
    moyens.programme = chemin;
    moyens.dossier = prive_.Chemin();
    const auto recoit = [this](std::string_view m) {
      sortie += m;
      return sortie.size() < arretApres;
    };
    return LanceGs(moyens, "the prologue", "the drawing", recoit, {});
  }
  void TearDown() override {
    EXPECT_TRUE(prive_.Vide()) << "a folder is left";
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a process is left";
    EXPECT_EQ(errno, ECHILD);
  }

  EpsMoyens moyens;
  std::string sortie;
  std::size_t arretApres = 1 << 30;

 private:
  DossierEssai outils_;
  DossierEssai prive_;
};

TEST_F(LanceGsTest, HandsOverTheOutputAndTheExitCode) {
  const EpsFin fin = Lance("printf hello; exit 3");
  EXPECT_EQ(fin.numero, Erreur::Aucune);
  EXPECT_EQ(fin.code, 3);
  EXPECT_EQ(sortie, "hello");
}

TEST_F(LanceGsTest, TheFolderIsPrivateAndHoldsTheTwoFilesAlone) {
  EXPECT_EQ(Lance("stat -c %a .; ls -A | sort | tr '\\n' ' '; cat prologue.ps; printf ,; cat dessin.ps").code, 0);
  EXPECT_EQ(sortie, "700\ndessin.ps prologue.ps the prologue,the drawing");
}

TEST_F(LanceGsTest, TheEnvironmentHoldsPathAndTmpdirAlone) {
  ::setenv("OVELIN_SECRET", "1", 1);
  Lance(
      "tr '\\0' '\\n' < /proc/$$/environ | sed 's/=.*//' | sort | tr '\\n' ' '; test \"$TMPDIR\" = \"$(pwd -P)\" "
      "&& echo same");
  ::unsetenv("OVELIN_SECRET");
  EXPECT_EQ(sortie, "PATH TMPDIR same\n");
}

TEST_F(LanceGsTest, ThereIsNoInputAndNoOtherFileIsOpen) {
  const int secret = ::open("/etc/passwd", 0);  // not closed on exec
  Lance("wc -c; readlink /proc/$$/fd/0; readlink /proc/$$/fd/* | grep -c passwd");
  ::close(secret);
  EXPECT_EQ(sortie, "0\n/dev/null\n0\n");
}

TEST_F(LanceGsTest, TheArgumentsAskForProtection) {
  Lance("echo $*");
  EXPECT_EQ(sortie, "-q -dSAFER -dNODISPLAY -dNOPAUSE -dBATCH --permit-file-read=dessin.ps prologue.ps\n");
}

TEST_F(LanceGsTest, TheClockEndsAProgramThatIsSilent) {
  moyens.delai = std::chrono::milliseconds(200);
  EXPECT_EQ(Lance("sleep 100").numero, Erreur::GsDelai);
}

TEST_F(LanceGsTest, TheClockEndsAProgramThatClosedItsOutput) {
  moyens.delai = std::chrono::milliseconds(200);
  EXPECT_EQ(Lance("exec >&-; sleep 100").numero, Erreur::GsDelai);
}

TEST_F(LanceGsTest, TheClockEndsAProgramThatIgnoresSignals) {
  moyens.delai = std::chrono::milliseconds(200);
  EXPECT_EQ(Lance("trap '' TERM INT HUP; while :; do :; done").numero, Erreur::GsDelai);
}

TEST_F(LanceGsTest, ChildrenOfTheProgramEndWithIt) {
  moyens.delai = std::chrono::milliseconds(300);
  Lance("sleep 100 & echo $!; exit 0");
  const int enfant = std::stoi(sortie);
  // Killed; whoever inherited it may still have to collect it.
  bool parti = false;
  for (int i = 0; i < 200 && !parti; ++i) {
    std::ifstream etat("/proc/" + std::to_string(enfant) + "/stat");
    std::string pid, nom, lettre;
    parti = !(etat >> pid >> nom >> lettre) || lettre == "Z" || lettre == "X";
    if (!parti) ::usleep(5000);
  }
  EXPECT_TRUE(parti);
}

TEST_F(LanceGsTest, TooMuchOutputEndsIt) {
  moyens.volume = 100000;
  EXPECT_EQ(Lance("while :; do echo aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa; done").numero, Erreur::GsVolume);
  EXPECT_LE(sortie.size(), 100000U);
}

TEST_F(LanceGsTest, TheReceiverCanEndIt) {
  arretApres = 1000;
  EXPECT_EQ(Lance("while :; do echo aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa; done").numero, Erreur::Aucune);
  EXPECT_GE(sortie.size(), 1000U);
}

TEST_F(LanceGsTest, TheWishToEndEndsIt) {
  struct AuTroisiemeRegard : base::Arret {
    [[nodiscard]] bool Demandee() const override { return ++regards > 2; }
    mutable int regards = 0;
  } arret;
  const base::SousArret sous(&arret);
  moyens.delai = std::chrono::milliseconds(5000);
  const EpsFin fin = Lance("sleep 100");
  EXPECT_EQ(fin.code, 128 + SIGKILL);
  EXPECT_EQ(fin.numero, Erreur::Aucune) << "no delay is blamed";
}

TEST_F(LanceGsTest, ASignalIsAnExitCode) {
  const EpsFin fin = Lance("kill -SEGV $$");
  EXPECT_EQ(fin.numero, Erreur::Aucune);
  EXPECT_EQ(fin.code, 128 + SIGSEGV);
}

TEST_F(LanceGsTest, AProgramThatCannotStartIsAbsent) {
  moyens.memoire = 1 << 10;  // not even room for itself
  const EpsFin fin = Lance("echo never");
  EXPECT_TRUE(fin.numero == Erreur::GsAbsent || fin.code != 0);
  EXPECT_EQ(sortie, "");
}

TEST_F(LanceGsTest, AFolderThatCannotBeMadeIsAnErrorOfWriting) {
  EpsMoyens ailleurs;
  ailleurs.programme = "sh";
  ailleurs.dossier = "/nonexistent/folder";
  const EpsFin fin = LanceGs(ailleurs, "", "", [](std::string_view) { return true; }, {});
  EXPECT_EQ(fin.numero, Erreur::Ecriture);
}

}  // namespace
}  // namespace pathwerk::lecture::eps
