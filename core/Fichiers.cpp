#include "core/Fichiers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <system_error>

#include "core/Nombres.h"

namespace ovelin {

namespace {

ErreurSysteme Texte(int numero) { return std::generic_category().message(numero); }

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
ErreurSysteme EcritFlux(const std::string& chemin, std::string_view octets) {
  Descripteur f(open(chemin.c_str(), O_WRONLY | O_CLOEXEC));
  if (f.Numero() < 0) return Texte(errno);
  const int erreur = EcritTout(f.Numero(), octets);
  if (erreur != 0) return Texte(erreur);
  return f.Ferme() == 0 ? "" : Texte(errno);
}

}  // namespace

std::optional<std::string> LitFichierEntier(const std::string& chemin, ErreurSysteme* raison) {
  const auto refuse = [raison](int numero) -> std::optional<std::string> {
    if (raison != nullptr) *raison = Texte(numero);
    return std::nullopt;
  };
  if (raison != nullptr) raison->clear();
  // Not blocking: opening a pipe that nobody feeds would wait for ever.
  const Descripteur f(open(chemin.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (f.Numero() < 0) return refuse(errno);
  struct stat etat {};
  if (fstat(f.Numero(), &etat) != 0) return refuse(errno);
  if (S_ISDIR(etat.st_mode)) return refuse(EISDIR);
  if (!S_ISREG(etat.st_mode)) return refuse(EINVAL);
  try {
    std::string contenu(static_cast<std::size_t>(std::max<off_t>(etat.st_size, 0)), '\0');
    std::size_t lu = 0;
    while (true) {
      if (lu == contenu.size()) {
        char tampon[4096];  // at the end of the file, or where it has grown meanwhile
        const ssize_t n = read(f.Numero(), tampon, sizeof tampon);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return refuse(errno);
        if (n == 0) return contenu;
        contenu.append(tampon, static_cast<std::size_t>(n));
        lu = contenu.size();
        continue;
      }
      const ssize_t n = read(f.Numero(), contenu.data() + lu, contenu.size() - lu);
      if (n < 0 && errno == EINTR) continue;
      if (n < 0) return refuse(errno);
      if (n == 0) {
        contenu.resize(lu);
        return contenu;
      }
      lu += static_cast<std::size_t>(n);
    }
  } catch (const std::bad_alloc&) {
    return refuse(ENOMEM);
  } catch (const std::length_error&) {
    return refuse(ENOMEM);
  }
}

ErreurSysteme EcritureRefusee(const std::string& chemin) {
  struct stat etat {};
  if (chemin.empty()) return Texte(ENOENT);
  if (stat(chemin.c_str(), &etat) != 0) return errno == ENOENT ? "" : Texte(errno);
  if (S_ISDIR(etat.st_mode)) return Texte(EISDIR);
  // The mode itself, since the superuser passes every test of permission.
  if ((etat.st_mode & 0222U) == 0) return Texte(EACCES);
  return access(chemin.c_str(), W_OK) == 0 ? "" : Texte(errno);
}

ErreurSysteme EcritFichierEntier(const std::string& chemin, std::string_view octets, Garantie garantie) {
  if (ErreurSysteme refus = EcritureRefusee(chemin); !refus.empty()) return refus;
  const std::string cible = CheminReel(chemin);
  struct stat ancien {};
  const bool existe = stat(cible.c_str(), &ancien) == 0;
  if (existe && !S_ISREG(ancien.st_mode)) return EcritFlux(cible, octets);
  if (existe && ancien.st_size == static_cast<off_t>(octets.size()) && ContenuEgal(cible, octets)) return "";

  const std::string dossier = DossierDe(cible).empty() ? "." : DossierDe(cible);
  std::string provisoire = dossier + "/.ovelin-XXXXXX";
  const int fd = mkostemp(provisoire.data(), O_CLOEXEC);
  if (fd < 0) return Texte(errno);
  const int erreur = EcritProvisoire(provisoire, fd, octets, existe ? &ancien : nullptr, garantie);
  if (erreur != 0) return Texte(erreur);
  if (rename(provisoire.c_str(), cible.c_str()) != 0) {
    const int numero = errno;
    unlink(provisoire.c_str());
    return Texte(numero);
  }
  if (garantie == Garantie::Disque) {
    // The new name too must outlive a power cut. Some file systems can't flush a folder: the save stands anyway.
    const Descripteur d(open(dossier.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (d.Numero() >= 0) fsync(d.Numero());
  }
  return "";
}

bool FichierExiste(const std::string& chemin) {
  struct stat etat {};
  return stat(chemin.c_str(), &etat) == 0 && S_ISREG(etat.st_mode);
}

bool LectureSeule(const std::string& chemin) {
  struct stat etat {};
  return stat(chemin.c_str(), &etat) == 0 && ((etat.st_mode & 0222U) == 0 || access(chemin.c_str(), W_OK) != 0);
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

std::string NomSansExtension(const std::string& nom) {
  const std::size_t point = nom.rfind('.');
  const std::size_t barre = nom.rfind('/');
  if (point == std::string::npos || (barre != std::string::npos && point < barre)) return nom;
  return nom.substr(0, point);
}

std::string ExtensionDe(const std::string& chemin) {
  const std::string nom = NomDe(chemin);
  const std::size_t point = nom.rfind('.');
  return point == std::string::npos ? "" : Majuscules(std::string_view(nom).substr(point + 1));
}

std::vector<std::string> ListeFichiers(const std::string& dossier, const std::string& extension) {
  std::vector<std::string> noms;
  std::error_code erreur;
  std::filesystem::directory_iterator i(dossier, erreur);
  while (!erreur && i != std::filesystem::directory_iterator()) {
    std::error_code sansType;
    const std::string nom = i->path().filename().string();
    if (ExtensionDe(nom) == extension && i->is_regular_file(sansType)) noms.push_back(nom);
    i.increment(erreur);
  }
  std::sort(noms.begin(), noms.end());
  return noms;
}

}  // namespace ovelin
