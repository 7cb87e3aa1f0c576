// What a stranger's drawing makes another program do is bounded here: endless loops end by the clock, floods by a
// count of bytes, greed for memory by a limit on the address space, files in the temporary folder by giving it a
// private one, children by a process group.
#include "closed/pathwerk/lecture/processus/Outil.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "base/Arret.h"
#include "base/Indices.h"
#include "base/SansCopie.h"

namespace pathwerk::lecture::processus {

namespace {

namespace fs = std::filesystem;
using Horloge = std::chrono::steady_clock;

constexpr const char* Dossiers[] = {"/usr/local/bin", "/usr/bin", "/bin"};

// A folder of mode 0700 for as long as this lives.
class DossierPrive : base::SansCopie {
 public:
  explicit DossierPrive(const std::string& parent) {
    std::error_code erreur;
    const fs::path base = parent.empty() ? fs::temp_directory_path(erreur) : fs::path(parent);
    chemin_ = (erreur ? fs::path("/tmp") : base) / "ovelin-outil-XXXXXX";
    if (::mkdtemp(chemin_.data()) == nullptr) chemin_.clear();
  }
  ~DossierPrive() {
    if (chemin_.empty()) return;
    std::error_code erreur;
    fs::remove_all(chemin_, erreur);
  }

  [[nodiscard]] const std::string& Chemin() const { return chemin_; }
  [[nodiscard]] bool Pose(const std::string& nom, std::string_view contenu) const {
    const int fd = ::open((chemin_ + "/" + nom).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd < 0) return false;
    while (!contenu.empty()) {
      const ssize_t n = ::write(fd, contenu.data(), contenu.size());
      if (n < 0 && errno == EINTR) continue;
      if (n <= 0) break;
      contenu.remove_prefix(base::Indice(n));
    }
    return (::close(fd) == 0) && contenu.empty();
  }

 private:
  std::string chemin_;
};

// Both ends of a pipe; each is closed when it has been given away or at the end.
class Tuyau : base::SansCopie {
 public:
  Tuyau() { ouvert_ = ::pipe2(bouts_.data(), O_CLOEXEC) == 0; }
  ~Tuyau() {
    Ferme(0);
    Ferme(1);
  }
  [[nodiscard]] bool Ouvert() const { return ouvert_; }
  [[nodiscard]] int Lecture() const { return bouts_[0]; }
  [[nodiscard]] int Ecriture() const { return bouts_[1]; }
  void Ferme(std::size_t bout) {
    if (bouts_[bout] >= 0) ::close(bouts_[bout]);
    bouts_[bout] = -1;
  }

 private:
  std::array<int, 2> bouts_{-1, -1};
  bool ouvert_ = false;
};

// The program's path, or nothing.
std::string Trouve(const std::string& programme) {
  if (programme.find('/') != std::string::npos) return ::access(programme.c_str(), X_OK) == 0 ? programme : "";
  for (const char* const dossier : Dossiers) {
    std::string chemin = std::string(dossier) + "/" + programme;
    if (::access(chemin.c_str(), X_OK) == 0) return chemin;
  }
  return "";
}

void Limite(int quoi, rlim_t valeur) {
  const rlimit l{valeur, valeur};
  ::setrlimit(static_cast<__rlimit_resource>(quoi), &l);
}

// Everything that the child needs, prepared before the fork: after it only calls that are safe in a copy of a
// process with threads are made.
struct Lancement {
  const char* chemin;
  char* const* arguments;
  char* const* environnement;
  const char* dossier;
  int sortie;
  int alerte;
  rlim_t memoire;
  rlim_t secondes;
  pid_t parent;
};

[[noreturn]] void Enfant(const Lancement& l) {
  ::setpgid(0, 0);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  bool va = ::getppid() == l.parent && ::chdir(l.dossier) == 0;
  const int nul = ::open("/dev/null", O_RDWR);
  va = va && nul >= 0 && ::dup2(nul, 0) == 0 && ::dup2(l.sortie, 1) == 1 && ::dup2(nul, 2) == 2;
  ::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
  sigset_t aucun;
  ::sigemptyset(&aucun);
  ::sigprocmask(SIG_SETMASK, &aucun, nullptr);
  for (const int s : {SIGPIPE, SIGCHLD, SIGINT, SIGTERM, SIGHUP}) ::signal(s, SIG_DFL);
  Limite(RLIMIT_CORE, 0);
  Limite(RLIMIT_AS, l.memoire);
  Limite(RLIMIT_CPU, l.secondes);
  Limite(RLIMIT_FSIZE, rlim_t{64} << 20);
  Limite(RLIMIT_NOFILE, 64);
  if (va) ::execve(l.chemin, l.arguments, l.environnement);
  const char echec = 1;
  [[maybe_unused]] const ssize_t n = ::write(l.alerte, &echec, 1);
  ::_exit(127);
}

// Waits for the process until `fin`, ends its group in any case, and takes its exit code.
int Ramasse(pid_t pid, Horloge::time_point fin, bool attend, bool& aTemps) {
  siginfo_t info{};
  aTemps = false;
  for (;;) {
    info.si_pid = 0;
    const int r = ::waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT);
    if (r != 0 && errno != EINTR) break;
    if (r == 0 && info.si_pid == pid) {
      aTemps = true;
      break;
    }
    if (!attend || Horloge::now() >= fin) break;
    ::usleep(2000);
  }
  // The number stays taken until the process is collected below, so the signal can't meet a stranger.
  ::kill(-pid, SIGKILL);
  ::kill(pid, SIGKILL);
  int etat = 0;
  while (::waitpid(pid, &etat, 0) < 0) {
    if (errno != EINTR) return 0;
  }
  if (WIFSIGNALED(etat)) return 128 + WTERMSIG(etat);
  return WEXITSTATUS(etat);
}

// Hands over the output until it ends. Fini with `arret`: the receiver has had enough, or this thread is to end.
IssueOutil Ecoute(int fd, const MoyensOutil& moyens, Horloge::time_point depart,
                  const std::function<bool(std::string_view)>& recoit, const std::function<void(double)>& attente,
                  bool& arret) {
  std::vector<char> tampon(1 << 16);
  std::size_t volume = 0;
  Horloge::time_point rapport = depart;
  const Horloge::time_point fin = depart + moyens.delai;
  for (;;) {
    const Horloge::time_point maintenant = Horloge::now();
    if (maintenant >= fin) return IssueOutil::Delai;
    if (base::ArretDemande()) {
      arret = true;
      return IssueOutil::Fini;
    }
    if (attente && maintenant - rapport >= std::chrono::milliseconds(50)) {
      rapport = maintenant;
      attente(std::chrono::duration<double>(maintenant - depart) / std::chrono::duration<double>(moyens.delai));
    }
    const auto reste = std::chrono::duration_cast<std::chrono::milliseconds>(fin - maintenant).count() + 1;
    pollfd p{fd, POLLIN, 0};
    const int r = ::poll(&p, 1, static_cast<int>(std::min<long long>(reste, 50)));
    if (r < 0 && errno != EINTR) return IssueOutil::Systeme;
    if (r <= 0) continue;
    const ssize_t n = ::read(fd, tampon.data(), tampon.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return IssueOutil::Fini;
    volume += base::Indice(n);
    if (volume > moyens.volume) return IssueOutil::Volume;
    if (!recoit(std::string_view(tampon.data(), base::Indice(n)))) {
      arret = true;
      return IssueOutil::Fini;
    }
  }
}

}  // namespace

FinOutil LanceOutil(const MoyensOutil& moyens, const std::vector<std::string>& arguments,
                    std::span<const DepotOutil> depots, const std::function<bool(std::string_view)>& recoit,
                    const std::function<void(double)>& attente) {
  const std::string chemin = Trouve(moyens.programme);
  if (chemin.empty()) return {IssueOutil::Absent, moyens.programme, 0};
  const DossierPrive dossier(moyens.dossier);
  for (const DepotOutil& depot : depots) {
    if (dossier.Chemin().empty() || !dossier.Pose(depot.nom, depot.contenu)) {
      return {IssueOutil::Ecriture, depot.nom, 0};
    }
  }
  std::vector<std::string> mots{chemin};
  mots.insert(mots.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables{"PATH=/usr/local/bin:/usr/bin:/bin", "TMPDIR=" + dossier.Chemin()};
  const auto pointeurs = [](std::vector<std::string>& textes) {
    std::vector<char*> p;
    p.reserve(textes.size() + 1);
    for (std::string& t : textes) p.push_back(t.data());
    p.push_back(nullptr);
    return p;
  };
  const std::vector<char*> textes = pointeurs(mots);
  const std::vector<char*> environnement = pointeurs(variables);
  Tuyau sortie;
  Tuyau alerte;
  if (!sortie.Ouvert() || !alerte.Ouvert()) return {IssueOutil::Systeme, "pipe", 0};

  const rlim_t secondes = static_cast<rlim_t>(moyens.delai.count() / 1000 + 2);
  const Lancement lancement{chemin.c_str(),           textes.data(),     environnement.data(),
                            dossier.Chemin().c_str(), sortie.Ecriture(), alerte.Ecriture(),
                            moyens.memoire,           secondes,          ::getpid()};
  const Horloge::time_point depart = Horloge::now();
  const pid_t pid = ::fork();
  if (pid < 0) return {IssueOutil::Systeme, "fork", 0};
  if (pid == 0) Enfant(lancement);
  ::setpgid(pid, pid);
  sortie.Ferme(1);
  alerte.Ferme(1);

  // The other end closes by itself when the program has started.
  char echec = 0;
  ssize_t lu = 0;
  do lu = ::read(alerte.Lecture(), &echec, 1);
  while (lu < 0 && errno == EINTR);
  FinOutil fin;
  bool arret = lu > 0;
  if (lu > 0) {
    fin.issue = IssueOutil::Absent;
    fin.detail = moyens.programme;
  } else {
    fin.issue = Ecoute(sortie.Lecture(), moyens, depart, recoit, attente, arret);
  }
  bool aTemps = false;
  fin.code = Ramasse(pid, depart + moyens.delai, fin.issue == IssueOutil::Fini && !arret, aTemps);
  if (fin.issue == IssueOutil::Fini && !arret && !aTemps) fin.issue = IssueOutil::Delai;
  if (fin.issue == IssueOutil::Delai) fin.detail = std::to_string(moyens.delai.count() / 1000) + " s";
  if (fin.issue == IssueOutil::Volume) fin.detail = std::to_string(moyens.volume >> 20) + " MB";
  return fin;
}

}  // namespace pathwerk::lecture::processus
