#include "core/Verrou.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"

namespace ovelin {

namespace {

constexpr double Pas = 0.01;  // s between two tries

// The folder of the file behind links, which is the same for all who write it.
std::string DossierReel(const std::string& chemin) {
  std::error_code erreur;
  const std::filesystem::path reel = std::filesystem::canonical(chemin, erreur);
  const std::string dossier = DossierDe(erreur ? chemin : reel.string());
  return dossier.empty() ? "." : dossier;
}

}  // namespace

Verrou::~Verrou() {
  if (fd_ >= 0) close(fd_);
}

ErreurSysteme Verrou::Prend(const std::string& chemin, double attente) {
  fd_ = open(DossierReel(chemin).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd_ < 0) return "";  // a folder that isn't there: the write tells why
  const double debut = Svc.Horloge();
  while (flock(fd_, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EINTR) continue;
    if (errno != EWOULDBLOCK) return "";
    if (Svc.Horloge() - debut >= attente) {
      return Traduire(Textes::ReglagesTenus) + " (" + Formate(attente, "0.0") + " s)";
    }
    Svc.Attend(Pas);
  }
  return "";
}

}  // namespace ovelin
