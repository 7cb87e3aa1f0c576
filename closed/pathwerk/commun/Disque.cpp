#include "closed/pathwerk/commun/Disque.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "closed/Pathwerk.h"

namespace pathwerk {

namespace {

std::string TexteErreur(int numero) { return std::generic_category().message(numero); }

class Descripteur {
 public:
  explicit Descripteur(int fd) : fd_(fd) {}
  ~Descripteur() { Ferme(); }
  Descripteur(const Descripteur&) = delete;
  Descripteur& operator=(const Descripteur&) = delete;
  [[nodiscard]] int Get() const { return fd_; }
  int Ferme() {
    const int r = fd_ >= 0 ? ::close(fd_) : 0;
    fd_ = -1;
    return r;
  }

 private:
  int fd_;
};

bool EcritOctets(int fd, std::string_view octets) {
  while (!octets.empty()) {
    const ssize_t n = ::write(fd, octets.data(), octets.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    octets.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

// Through a symbolic link to the file that it names, so that the link stays one.
std::string CheminReel(const std::string& chemin) {
  char* reel = ::realpath(chemin.c_str(), nullptr);
  if (reel == nullptr) return chemin;
  std::string r(reel);
  std::free(reel);  // realpath hands out memory of malloc
  return r;
}

}  // namespace

bool LitTout(const std::string& chemin, std::string& octets, std::string& raison) {
  octets.clear();
  // Without waiting: a pipe with nobody at its other end would hold the program up.
  Descripteur f(::open(chemin.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat etat {};
  if (f.Get() < 0 || ::fstat(f.Get(), &etat) != 0) {
    raison = TexteErreur(errno);
    return false;
  }
  if (!S_ISREG(etat.st_mode)) {
    raison = TexteErreur(S_ISDIR(etat.st_mode) ? EISDIR : EINVAL);
    return false;
  }
  octets.resize(static_cast<std::size_t>(std::max<off_t>(etat.st_size, 0)));
  std::size_t lu = 0;
  for (;;) {
    if (lu == octets.size()) octets.resize(lu + 4096);  // the file may have grown, or hide its size
    const ssize_t n = ::read(f.Get(), octets.data() + lu, octets.size() - lu);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) {
      raison = TexteErreur(errno);
      octets.clear();
      return false;
    }
    if (n == 0) break;
    lu += static_cast<std::size_t>(n);
  }
  octets.resize(lu);
  return true;
}

std::string EcritTout(const std::string& chemin, std::string_view octets) {
  const std::string cible = CheminReel(chemin);
  struct stat etat {};
  const bool existe = ::stat(cible.c_str(), &etat) == 0;
  if (existe && S_ISDIR(etat.st_mode)) return TexteErreur(EISDIR);
  if (existe && !S_ISREG(etat.st_mode)) return TexteErreur(EINVAL);
  if (existe && (etat.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return TexteErreur(EACCES);
  const std::string nom = NomSeul(cible);
  const std::string dossier = cible.substr(0, cible.size() - nom.size());
  std::string essai;
  int fd = -1;
  for (int k = 0; k < 100 && fd < 0; ++k) {
    essai = dossier + ".ovelin-" + std::to_string(::getpid()) + "-" + std::to_string(k) + ".tmp";
    fd = ::open(essai.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0 && errno != EEXIST) break;
  }
  if (fd < 0) return TexteErreur(errno);
  Descripteur f(fd);
  int erreur = 0;
  if (existe && ::fchmod(f.Get(), etat.st_mode & 07777) != 0) erreur = errno;
  if (erreur == 0 && !EcritOctets(f.Get(), octets)) erreur = errno;
  if (erreur == 0 && ::fsync(f.Get()) != 0) erreur = errno;
  if (f.Ferme() != 0 && erreur == 0) erreur = errno;
  if (erreur == 0 && ::rename(essai.c_str(), cible.c_str()) != 0) erreur = errno;
  if (erreur != 0) {
    ::unlink(essai.c_str());
    return TexteErreur(erreur);
  }
  // The new name on disk too; the file is whole either way.
  const Descripteur d(::open(dossier.empty() ? "." : dossier.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (d.Get() >= 0) (void)::fsync(d.Get());
  return "";
}

std::string NomSeul(const std::string& chemin) { return chemin.substr(chemin.find_last_of('/') + 1); }

std::string Extension(const std::string& chemin) {
  const std::string nom = NomSeul(chemin);
  const std::size_t point = nom.find_last_of('.');
  if (point == std::string::npos) return "";
  std::string e = nom.substr(point + 1);
  for (char& c : e) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
  return e;
}

std::string SansNul(const std::string& chemin) { return chemin.substr(0, chemin.find('\0')); }

std::string EnMessage(std::string texte) {
  if (texte.size() > LongueurMessage) {
    std::size_t fin = LongueurMessage;
    const auto suite = [&](std::size_t i) { return (static_cast<unsigned char>(texte[i]) & 0xC0U) == 0x80U; };
    for (int k = 0; k < 3 && suite(fin); ++k) --fin;
    texte.resize(fin);
  }
  texte.resize(LongueurMessage, ' ');
  return texte;
}

}  // namespace pathwerk
