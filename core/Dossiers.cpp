// The program's own folders: settings, files that come with it, and the temporary folder of this process.
#include "core/Dossiers.h"

#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/Reprises.h"

namespace ovelin {

std::string DossierProgramme;
std::string DossierTemp;
std::vector<std::string> DossiersProduit;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] {
  DossierProgramme.clear();
  DossierTemp.clear();
  DossiersProduit.clear();
});

constexpr const char* NomVerrou = "verrou";
int VerrouProcessus = -1;  // held as long as this process uses its temporary folder

std::string DossierPersonnel() {
  if (const char* maison = std::getenv("HOME"); maison != nullptr && maison[0] == '/') return maison;
  const passwd* compte = getpwuid(getuid());
  return compte != nullptr && compte->pw_dir != nullptr ? compte->pw_dir : "";
}

std::string DossierConfiguration() {
  // A relative path in the variable is to be taken as if it were not there.
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg != nullptr && xdg[0] == '/') return xdg;
  return DossierPersonnel() + "/.config";
}

// The folder with mode 0700, the user's own and no link: in the shared folder another user could have put one of
// that name there beforehand.
bool DossierPrive(const std::string& dossier) {
  if (mkdir(dossier.c_str(), 0700) != 0 && errno != EEXIST) return false;
  struct stat etat {};
  if (lstat(dossier.c_str(), &etat) != 0 || !S_ISDIR(etat.st_mode) || etat.st_uid != geteuid()) return false;
  return (etat.st_mode & 0777U) == 0700U || chmod(dossier.c_str(), 0700) == 0;
}

// The lock file of a folder, locked; -1 when another process holds it or it can't be had.
int Verrouille(const std::string& dossier, bool attend) {
  const std::string nom = dossier + "/" + NomVerrou;
  const int fd = open(nom.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (fd < 0) return -1;
  while (flock(fd, attend ? LOCK_EX : LOCK_EX | LOCK_NB) != 0) {
    if (errno == EINTR) continue;
    close(fd);
    return -1;
  }
  return fd;
}

// The folder of this program and this user in the system's temporary folder; "" when it can't be had.
std::string DossierBase() {
  std::error_code erreur;
  const std::filesystem::path systeme = std::filesystem::temp_directory_path(erreur);
  if (erreur) return "";
  const std::string base = (systeme / ("ovelin-" + std::to_string(geteuid()))).string();
  return DossierPrive(base) ? base : "";
}

// Takes away what processes left that are no more, but for their last state: a living one holds the lock in its
// folder.
void OteRestes(const std::string& base) {
  std::error_code erreur;
  std::filesystem::directory_iterator i(base, erreur);
  while (!erreur && i != std::filesystem::directory_iterator()) {
    std::error_code sansType;
    if (i->is_directory(sansType) && !i->is_symlink(sansType) && i->path().filename() != NomDossierReprises) {
      const std::string dossier = i->path().string();
      if (const int verrou = Verrouille(dossier, false); verrou >= 0) {
        RecueilleReprise(dossier);
        std::error_code ignoree;
        std::filesystem::remove_all(dossier, ignoree);
        close(verrou);
      }
    }
    i.increment(erreur);
  }
}

}  // namespace

void TrouveDossiersProduit(const std::string& dossierExecutable) {
  const auto la = [&dossierExecutable](const char* ou) {
    return (std::filesystem::path(dossierExecutable) / ou).lexically_normal().string();
  };
  DossiersProduit = {la("../share/ovelin"), la("../share/ovelin/samples")};
  if (FichierExiste(dossierExecutable + "/../CMakeCache.txt")) {  // a build tree, build/<preset>/bin
    DossiersProduit.push_back(la("../../../translations"));
    DossiersProduit.push_back(la("../../../samples"));
    DossiersProduit.push_back(la("../../manual"));
  }
}

std::string TrouveDossierProgramme(const std::string& dossierExecutable) {
  TrouveDossiersProduit(dossierExecutable);
  if (FichierExiste(dossierExecutable + "/OVELIN.ini") || FichierExiste(dossierExecutable + "/OVELIN.inisav")) {
    return dossierExecutable;
  }
  const std::string configuration = DossierConfiguration();
  std::error_code erreur;
  std::filesystem::create_directories(configuration, erreur);
  std::string dossier = configuration + "/ovelin";
  if (mkdir(dossier.c_str(), 0700) != 0 && errno == EEXIST) {
    struct stat etat {};  // it may hold paths and names of the user's work
    if (stat(dossier.c_str(), &etat) == 0 && S_ISDIR(etat.st_mode) && etat.st_uid == geteuid()) {
      chmod(dossier.c_str(), 0700);
    }
  }
  return dossier;
}

std::string TrouveFichierProduit(const std::string& nom) {
  if (std::string chemin = DansDossier(DossierProgramme, nom); FichierExiste(chemin)) return chemin;
  for (const std::string& dossier : DossiersProduit) {
    if (std::string chemin = DansDossier(dossier, nom); FichierExiste(chemin)) return chemin;
  }
  return "";
}

bool RecueilleReprises() {
  const std::string base = DossierBase();
  const int verrouBase = base.empty() ? -1 : Verrouille(base, true);
  if (verrouBase < 0) return false;
  DossierReprises = base + "/" + NomDossierReprises;
  OteRestes(base);
  close(verrouBase);
  return true;
}

bool PrepareDossierTemp() {
  OteDossierTemp();
  const std::string base = DossierBase();
  // One process at a time cleans up and makes its folder: between making it and locking it, it looks dead.
  const int verrouBase = base.empty() ? -1 : Verrouille(base, true);
  if (verrouBase < 0) return false;
  DossierReprises = base + "/" + NomDossierReprises;
  OteRestes(base);
  const std::string dossier = base + "/" + std::to_string(getpid());
  if (DossierPrive(dossier)) {
    VerrouProcessus = Verrouille(dossier, false);
    if (VerrouProcessus >= 0) DossierTemp = dossier;
  }
  close(verrouBase);
  return VerrouProcessus >= 0;
}

void OteDossierTemp() {
  if (VerrouProcessus < 0) return;
  std::error_code erreur;
  std::filesystem::remove_all(DossierTemp, erreur);
  close(VerrouProcessus);
  VerrouProcessus = -1;
  DossierTemp.clear();
}

}  // namespace ovelin
