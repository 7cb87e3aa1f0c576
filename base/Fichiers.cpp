#include "base/Fichiers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <system_error>

namespace base {

namespace {

// An open file, closed at the end of its scope.
class Descripteur {
 public:
  explicit Descripteur(int fd) : fd_(fd) {}
  ~Descripteur() { Ferme(); }
  Descripteur(const Descripteur&) = delete;
  Descripteur& operator=(const Descripteur&) = delete;
  [[nodiscard]] int Numero() const { return fd_; }
  int Ferme() {
    const int r = fd_ >= 0 ? close(fd_) : 0;
    fd_ = -1;
    return r;
  }

 private:
  int fd_;
};

// 0, or the system's error number.
int EcritTout(int fd, std::string_view octets) {
  while (!octets.empty()) {
    const ssize_t n = write(fd, octets.data(), octets.size());
    if (n < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    octets.remove_prefix(static_cast<std::size_t>(n));
  }
  return 0;
}

bool ContenuEgal(const std::string& chemin, std::string_view octets) {
  const Descripteur f(open(chemin.c_str(), O_RDONLY | O_CLOEXEC));
  if (f.Numero() < 0) return false;
  char tampon[65536];
  while (true) {
    const ssize_t n = read(f.Numero(), tampon, sizeof tampon);
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    if (n == 0) return octets.empty();
    const auto lu = static_cast<std::size_t>(n);
    if (lu > octets.size() || octets.substr(0, lu) != std::string_view(tampon, lu)) return false;
    octets.remove_prefix(lu);
  }
}

// The file behind symbolic links, so that a save does not replace the link itself.
std::string CheminReel(const std::string& chemin) {
  char reel[PATH_MAX];
  return realpath(chemin.c_str(), reel) != nullptr ? std::string(reel) : chemin;
}

// A new file beside `cible`, with `octets`, under `provisoire`. 0, or the system's error number.
int EcritProvisoire(const std::string& provisoire, int fd, std::string_view octets, const struct stat* ancien,
                    Garantie garantie) {
  Descripteur f(fd);
  int erreur = EcritTout(f.Numero(), octets);
  if (erreur == 0) {
    mode_t mode = ancien != nullptr ? ancien->st_mode & 07777U : 0;
    if (ancien == nullptr) {
      const mode_t masque = umask(0);
      umask(masque);
      mode = 0666U & ~masque;
    } else if (fchown(f.Numero(), ancien->st_uid, ancien->st_gid) != 0) {
      mode &= 0777U;  // another owner's file, replaced by a user who may write it: his from now on
    }
    if (fchmod(f.Numero(), mode) != 0) erreur = errno;
  }
  if (erreur == 0 && garantie == Garantie::Disque && fsync(f.Numero()) != 0) erreur = errno;
  if (f.Ferme() != 0 && erreur == 0) erreur = errno;
  if (erreur != 0) unlink(provisoire.c_str());
  return erreur;
}

// A device or a pipe ("/dev/stdout") takes the bytes as they come; it must not be replaced by a file.
int EcritFlux(const std::string& chemin, std::string_view octets) {
  Descripteur f(open(chemin.c_str(), O_WRONLY | O_CLOEXEC));
  if (f.Numero() < 0) return errno;
  const int erreur = EcritTout(f.Numero(), octets);
  if (erreur != 0) return erreur;
  return f.Ferme() == 0 ? 0 : errno;
}

// The rest of an open file, which announces `taille` bytes; it may have grown meanwhile, or hide its size. 0, or
// the system's error number.
int LitTout(int fd, std::size_t taille, std::string& octets) {
  try {
    octets.resize(taille);
    std::size_t lu = 0;
    while (true) {
      char tampon[4096];
      const bool plein = lu == octets.size();
      const ssize_t n = read(fd, plein ? tampon : octets.data() + lu, plein ? sizeof tampon : octets.size() - lu);
      if (n < 0 && errno == EINTR) continue;
      if (n < 0) return errno;
      if (plein) octets.append(tampon, static_cast<std::size_t>(n));
      lu += static_cast<std::size_t>(n);
      if (n > 0) continue;
      octets.resize(lu);
      return 0;
    }
  } catch (const std::bad_alloc&) {
    return ENOMEM;
  } catch (const std::length_error&) {
    return ENOMEM;
  }
}

}  // namespace

std::string TexteErreur(int numero) { return numero == 0 ? "" : std::generic_category().message(numero); }

int LitFichier(const std::string& chemin, std::string& octets) {
  octets.clear();
  // Not blocking: opening a pipe that nobody feeds would wait for ever.
  const Descripteur f(open(chemin.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (f.Numero() < 0) return errno;
  struct stat etat {};
  if (fstat(f.Numero(), &etat) != 0) return errno;
  if (S_ISDIR(etat.st_mode)) return EISDIR;
  if (!S_ISREG(etat.st_mode)) return EINVAL;
  const int erreur = LitTout(f.Numero(), static_cast<std::size_t>(std::max<off_t>(etat.st_size, 0)), octets);
  if (erreur != 0) std::string().swap(octets);
  return erreur;
}

int RefusEcriture(const std::string& chemin) {
  struct stat etat {};
  if (chemin.empty()) return ENOENT;
  if (stat(chemin.c_str(), &etat) != 0) return errno == ENOENT ? 0 : errno;
  if (S_ISDIR(etat.st_mode)) return EISDIR;
  // The mode itself, since the superuser passes every test of permission.
  if ((etat.st_mode & 0222U) == 0) return EACCES;
  return access(chemin.c_str(), W_OK) == 0 ? 0 : errno;
}

int EcritFichier(const std::string& chemin, std::string_view octets, Garantie garantie) {
  if (const int refus = RefusEcriture(chemin); refus != 0) return refus;
  const std::string cible = CheminReel(chemin);
  struct stat ancien {};
  const bool existe = stat(cible.c_str(), &ancien) == 0;
  if (existe && !S_ISREG(ancien.st_mode)) return EcritFlux(cible, octets);
  if (existe && ancien.st_size == static_cast<off_t>(octets.size()) && ContenuEgal(cible, octets)) return 0;

  const std::string dossier = DossierDe(cible).empty() ? "." : DossierDe(cible);
  std::string provisoire = dossier + "/.ovelin-XXXXXX";
  const int fd = mkostemp(provisoire.data(), O_CLOEXEC);
  if (fd < 0) return errno;
  const int erreur = EcritProvisoire(provisoire, fd, octets, existe ? &ancien : nullptr, garantie);
  if (erreur != 0) return erreur;
  if (rename(provisoire.c_str(), cible.c_str()) != 0) {
    const int numero = errno;
    unlink(provisoire.c_str());
    return numero;
  }
  if (garantie == Garantie::Disque) {
    // The new name too must outlive a power cut. Some file systems can't flush a folder: the save stands anyway.
    const Descripteur d(open(dossier.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (d.Numero() >= 0) fsync(d.Numero());
  }
  return 0;
}

std::string DossierDe(const std::string& chemin) {
  const std::size_t barre = chemin.rfind('/');
  if (barre == std::string::npos) return "";
  return barre == 0 ? "/" : chemin.substr(0, barre);
}

std::string NomDe(const std::string& chemin) {
  const std::size_t barre = chemin.rfind('/');
  return barre == std::string::npos ? chemin : chemin.substr(barre + 1);
}

std::string_view ExtensionBrute(std::string_view chemin) {
  const std::string_view nom = chemin.substr(chemin.rfind('/') + 1);
  const std::size_t point = nom.rfind('.');
  return point == std::string_view::npos ? std::string_view() : nom.substr(point + 1);
}

}  // namespace base
