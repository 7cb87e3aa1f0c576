// Signals to ovelin-cli while the machine moves: it stops, the state is printed, the status says that it was one.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

#include "tests/places/Lieux.h"
#include "tests/unit/app/Appel.h"

namespace {

using essai::Atelier;
using essai::Carre;
using essai::DossierProgrammes;

// The call in a process of its own, whose exchanges with the board come through a pipe: once
// records have gone out and the board has been asked often enough to be at work the signal goes out, and the rest
// is read to the end. What it has printed, and how it ended.
struct FinDAppel {
  int statut = -1;  // as waitpid gives it
  std::string sortie;
  std::vector<std::string> demandes;  // behind the signal: letter and byte 2, hexadecimal
};

FinDAppel AppelleEtSignale(const Atelier& a, std::vector<std::string> arguments, int signal) {
  FinDAppel fin;
  const std::string fil = a.Chemin("fil");
  const std::string sortie = a.Chemin("sortie.json");
  if (mkfifo(fil.c_str(), 0600) != 0) return fin;
  const std::string programme = DossierProgrammes() + "/ovelin-cli";
  arguments.insert(arguments.begin(), {programme, "--config", a.Chemin(""), "--lang", "fr", "--decimal", "."});
  arguments.insert(arguments.end(), {"--wire", fil});
  std::vector<char*> argv;
  for (std::string& texte : arguments) argv.push_back(texte.data());
  argv.push_back(nullptr);
  const pid_t enfant = fork();
  if (enfant == 0) {
    const int fd = open(sortie.c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(fd, STDOUT_FILENO);
    dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    execv(programme.c_str(), argv.data());
    _exit(127);
  }
  std::FILE* lecture = std::fopen(fil.c_str(), "r");
  constexpr int Questions = 30;
  bool envoye = false, record = false;
  int questions = 0;
  char ligne[512];
  while (lecture != nullptr && std::fgets(ligne, sizeof ligne, lecture) != nullptr) {
    const std::string texte = ligne;
    const std::size_t sens = texte.find("> ");
    if (sens == std::string::npos) continue;
    const std::string demande = texte.substr(sens + 5, 5);  // behind byte 0
    if (envoye) fin.demandes.push_back(demande);
    record = record || demande.starts_with("44");
    questions += record && demande.starts_with("49") ? 1 : 0;
    if (!envoye && questions >= Questions) {
      envoye = true;
      kill(enfant, signal);
    }
  }
  if (lecture != nullptr) std::fclose(lecture);
  waitpid(enfant, &fin.statut, 0);
  fin.sortie = Atelier::Lit(sortie);
  return fin;
}

TEST(Mill, ASignalStopsByTheRampPrintsTheStateAndEndsWith130) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const Atelier a;
    const FinDAppel fin = AppelleEtSignale(a,
                                           {"mill",
                                            a.Ecrit("carre.dxf", Carre),
                                            "--json",
                                            "--board-file",
                                            a.Chemin("carte"),
                                            "--set",
                                            "RayonFraise=1",
                                            "--set",
                                            "ProfFraisage=-2",
                                            "--set",
                                            "ProfPasse=-2",
                                            "--set",
                                            "Vitesse_Mat_H=4",
                                            "--answer",
                                            "2=yes",
                                            "--answer",
                                            "lib007=ok",
                                            "--answer",
                                            "lib005=ok",
                                            "--resume"},
                                           signal);
    ASSERT_TRUE(WIFEXITED(fin.statut)) << signal;
    EXPECT_EQ(WEXITSTATUS(fin.statut), 130) << signal;
    const auto json = nlohmann::json::parse(fin.sortie, nullptr, false);
    ASSERT_TRUE(json.is_object()) << fin.sortie;
    EXPECT_EQ(json["state"], "stopped") << signal << " and --resume goes on with nothing";
    EXPECT_TRUE(json.contains("steps") && json.contains("planned") && json.contains("records"));
    EXPECT_NE(json["steps"], json["planned"]);
    EXPECT_NE(std::find(fin.demandes.begin(), fin.demandes.end(), "53 01"), fin.demandes.end()) << "by the ramp";
  }
}

}  // namespace
