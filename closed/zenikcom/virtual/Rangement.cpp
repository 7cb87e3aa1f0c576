#include "closed/zenikcom/virtual/Rangement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <system_error>

namespace zenikcom {

namespace {

// Beyond what the largest memory takes, so that a file of any size is judged without being read.
constexpr std::size_t OctetsMaxi = NbBlocsFlash * OctetsBloc + 4096;

std::string Texte(int numero) { return std::generic_category().message(numero); }

// An empty text and no reason: there is no such file.
std::optional<std::string> LitTout(const std::string& chemin, std::string& raison) {
  const int fd = open(chemin.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) {
    if (errno != ENOENT) raison = Texte(errno);
    return std::nullopt;
  }
  // A device or a pipe is nobody's memory: it must not be renamed as a damaged one.
  struct stat s {};
  if (fstat(fd, &s) != 0 || (!S_ISREG(s.st_mode) && !S_ISDIR(s.st_mode))) {
    raison = "not a regular file";
    close(fd);
    return std::nullopt;
  }
  std::string octets;
  char tampon[65'536];
  ssize_t n = 0;
  while (octets.size() <= OctetsMaxi) {
    n = read(fd, tampon, sizeof tampon);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;
    octets.append(tampon, static_cast<std::size_t>(n));
  }
  if (n < 0) raison = Texte(errno);
  close(fd);
  return n < 0 ? std::nullopt : std::optional(octets);
}

// 0, or the system's error number.
int EcritTout(const std::string& chemin, const std::string& octets) {
  std::string provisoire = chemin + ".XXXXXX";
  const int fd = mkostemp(provisoire.data(), O_CLOEXEC);
  if (fd < 0) return errno;
  int erreur = 0;
  for (std::size_t ecrit = 0; ecrit < octets.size() && erreur == 0;) {
    const ssize_t n = write(fd, octets.data() + ecrit, octets.size() - ecrit);
    if (n >= 0) {
      ecrit += static_cast<std::size_t>(n);
    } else if (errno != EINTR) {
      erreur = errno;
    }
  }
  if (close(fd) != 0 && erreur == 0) erreur = errno;
  if (erreur == 0 && rename(provisoire.c_str(), chemin.c_str()) != 0) erreur = errno;
  if (erreur != 0) unlink(provisoire.c_str());
  return erreur;
}

}  // namespace

bool Rangement::Ouvre(const std::string& chemin, Memoire& memoire) {
  etat_.chemin = chemin;
  if (chemin.empty()) return true;
  if (!verrou_.Prend(chemin + ".verrou")) return false;
  std::string raison;
  const auto octets = LitTout(chemin, raison);
  if (!octets) {
    // A file that this user may not read, or a folder: neither moved nor written over.
    ecrire_ = raison.empty();
    etat_.raison = raison;
    return true;
  }
  auto lue = Memoire::Lit(*octets, raison);
  if (lue) {
    memoire = std::move(*lue);
  } else {
    MetDeCote(raison);
  }
  return true;
}

void Rangement::MetDeCote(const std::string& raison) {
  etat_.raison = raison;
  for (int n = 1; n < 1000; ++n) {
    const std::string nom = etat_.chemin + ".endommage" + (n > 1 ? "-" + std::to_string(n) : "");
    struct stat s {};
    if (lstat(nom.c_str(), &s) == 0) continue;
    if (rename(etat_.chemin.c_str(), nom.c_str()) == 0) {
      etat_.misDeCote = nom;
      return;
    }
    break;
  }
  ecrire_ = false;
}

bool Rangement::Ecrit(const Memoire& memoire) {
  if (etat_.chemin.empty()) return true;
  if (!ecrire_) return false;
  struct stat s {};
  // The mode itself, since the superuser passes every test of permission.
  const bool protege = stat(etat_.chemin.c_str(), &s) == 0 && (s.st_mode & 0222U) == 0;
  const int erreur = protege ? EACCES : EcritTout(etat_.chemin, memoire.Octets());
  if (erreur != 0) {
    etat_.raison = Texte(erreur);
  } else if (etat_.misDeCote.empty()) {
    etat_.raison.clear();
  }
  return erreur == 0;
}

}  // namespace zenikcom
