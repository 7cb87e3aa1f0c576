#include "base/Fichiers.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <system_error>

#include "base/Indices.h"
#include "base/SansCopie.h"

namespace base {

namespace {

// An open file, closed at the end of its scope.
class Descripteur : SansCopie {
 public:
  explicit Descripteur(int fd) : fd_(fd) {}
  ~Descripteur() { Ferme(); }
  [[nodiscard]] int Numero() const { return fd_; }
  void Prend(int fd) {
    Ferme();
    fd_ = fd;
  }
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
    octets.remove_prefix(base::Indice(n));
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
    const auto lu = base::Indice(n);
    if (lu > octets.size() || octets.substr(0, lu) != std::string_view(tampon, lu)) return false;
    octets.remove_prefix(lu);
  }
}

// The file behind symbolic links, so that a save does not replace the link itself.
std::string CheminReel(const std::string& chemin) {
  char reel[PATH_MAX];
  return realpath(chemin.c_str(), reel) != nullptr ? std::string(reel) : chemin;
}

constexpr std::string_view Debut = ".ovelin-";  // of the names of files that are being written

// The process that a file being written names, 0 for any other file.
pid_t Ecrivain(std::string_view nom) {
  if (!nom.starts_with(Debut)) return 0;
  nom.remove_prefix(Debut.size());
  pid_t processus = 0;
  const auto lu = std::from_chars(nom.data(), nom.data() + nom.size(), processus);
  return lu.ec == std::errc{} && lu.ptr != nom.data() + nom.size() && *lu.ptr == '-' ? processus : 0;
}

// Takes away what processes left in a folder that are no more.
void OteRestes(const std::string& dossier) {
  DIR* const flux = opendir(dossier.c_str());
  if (flux == nullptr) return;
  while (const dirent* entree = readdir(flux)) {
    const pid_t processus = Ecrivain(entree->d_name);
    if (processus > 0 && kill(processus, 0) != 0 && errno == ESRCH) unlinkat(dirfd(flux), entree->d_name, 0);
  }
  closedir(flux);
}

// A file beside its target while it is written. Without a name where the file system can do that, so that a process
// that is killed leaves nothing; else, and for the moment of the renaming, under a name with the process in it.
class Provisoire : SansCopie {
 public:
  Provisoire(const std::string& dossier, bool nomme)
      : nom_(dossier + "/" + std::string(Debut) + std::to_string(getpid()) + "-XXXXXX"),
        fichier_(nomme ? -1 : open(dossier.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600)) {
    if (fichier_.Numero() < 0) Nomme();
  }
  ~Provisoire() {
    if (nomme_) unlink(nom_.c_str());
  }

  [[nodiscard]] int Numero() const { return fichier_.Numero(); }
  [[nodiscard]] int Erreur() const { return erreur_; }
  // Takes the place of `cible`. 0, or the system's error number.
  int Remplace(const std::string& cible) {
    if (!nomme_ && !Relie()) return erreur_;
    if (fichier_.Ferme() != 0 || rename(nom_.c_str(), cible.c_str()) != 0) return errno;
    nomme_ = false;
    return 0;
  }

 private:
  void Nomme() {
    const int fd = mkostemp(nom_.data(), O_CLOEXEC);
    erreur_ = fd < 0 ? errno : 0;
    nomme_ = fd >= 0;
    fichier_.Prend(fd);
  }
  // A name for the file without one. Each of this process's files has another number.
  bool Relie() {
    static std::atomic<unsigned> numero{0};
    const std::string soi = "/proc/self/fd/" + std::to_string(Numero());
    const std::string racine = nom_.substr(0, nom_.size() - 6);
    do {
      nom_ = racine + std::to_string(++numero);
      nomme_ = linkat(AT_FDCWD, soi.c_str(), AT_FDCWD, nom_.c_str(), AT_SYMLINK_FOLLOW) == 0;
    } while (!nomme_ && errno == EEXIST);
    erreur_ = nomme_ ? 0 : errno;
    return nomme_;
  }

  std::string nom_;
  Descripteur fichier_;
  bool nomme_ = false;
  int erreur_ = 0;
};

// The bytes, mode and owner of a file being written, on disk where that is wanted. 0, or the system's error number.
int Remplit(const Provisoire& f, std::string_view octets, const struct stat* ancien, Garantie garantie) {
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

// The rest of an open file, which announces `taille` bytes, and no more than `auPlus` of it; it may have grown
// meanwhile, or hide its size. 0, or the system's error number.
int LitTout(int fd, std::size_t taille, std::size_t auPlus, std::string& octets) {
  try {
    octets.resize(std::min(taille, auPlus));
    std::size_t lu = 0;
    while (true) {
      char tampon[4096];
      const bool plein = lu == octets.size();
      const ssize_t n = read(fd, plein ? tampon : octets.data() + lu, plein ? sizeof tampon : octets.size() - lu);
      if (n < 0 && errno == EINTR) continue;
      if (n < 0) return errno;
      if (plein) octets.append(tampon, base::Indice(n));
      lu += base::Indice(n);
      if (n > 0 && lu < auPlus) continue;
      octets.resize(std::min(lu, auPlus));
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

int LitFichier(const std::string& chemin, std::string& octets, std::size_t auPlus) {
  octets.clear();
  // Not blocking: opening a pipe that nobody feeds would wait for ever.
  const Descripteur f(open(chemin.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (f.Numero() < 0) return errno;
  struct stat etat {};
  if (fstat(f.Numero(), &etat) != 0) return errno;
  if (S_ISDIR(etat.st_mode)) return EISDIR;
  if (!S_ISREG(etat.st_mode)) return EINVAL;
  // Memory is promised without regard to what there is, and the program killed for it when it is filled.
  const auto taille = base::Indice(std::max<off_t>(etat.st_size, 0));
  if (taille <= auPlus && etat.st_size / sysconf(_SC_PAGESIZE) >= sysconf(_SC_PHYS_PAGES)) return ENOMEM;
  const int erreur = LitTout(f.Numero(), taille, auPlus, octets);
  if (erreur != 0) std::string().swap(octets);
  return erreur;
}

int AjouteAuFichier(const std::string& chemin, std::string_view octets) {
  const Descripteur f(open(chemin.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
  if (f.Numero() < 0) return errno;
  struct stat avant {};
  if (fstat(f.Numero(), &avant) != 0) return errno;
  const int erreur = EcritTout(f.Numero(), octets);
  // What got in before the disk was full goes again; where even that fails the first error is the one to tell.
  if (erreur != 0 && S_ISREG(avant.st_mode)) {
    [[maybe_unused]] const int remis = ftruncate(f.Numero(), avant.st_size);
  }
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
  if (existe && ancien.st_size == std::ssize(octets) && ContenuEgal(cible, octets)) return 0;

  const std::string dossier = DossierDe(cible).empty() ? "." : DossierDe(cible);
  OteRestes(dossier);
  const auto ecrit = [&](bool nomme) {
    Provisoire provisoire(dossier, nomme);
    if (provisoire.Erreur() != 0) return provisoire.Erreur();
    const int erreur = Remplit(provisoire, octets, existe ? &ancien : nullptr, garantie);
    return erreur != 0 ? erreur : provisoire.Remplace(cible);
  };
  int erreur = ecrit(false);
  if (erreur == ENOENT || erreur == EPERM) erreur = ecrit(true);  // no way to a name for a file without one
  if (erreur != 0) return erreur;
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
