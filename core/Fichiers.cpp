#include "core/Fichiers.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/Nombres.h"

namespace ovelin {

std::optional<std::string> LitFichierEntier(const std::string& chemin, ErreurSysteme* raison) {
  std::string contenu;
  const int erreur = base::LitFichier(chemin, contenu);
  if (raison != nullptr) *raison = base::TexteErreur(erreur);
  if (erreur != 0) return std::nullopt;
  return contenu;
}

ErreurSysteme EcritureRefusee(const std::string& chemin) { return base::TexteErreur(base::RefusEcriture(chemin)); }

ErreurSysteme EcritFichierEntier(const std::string& chemin, std::string_view octets, Garantie garantie) {
  return base::TexteErreur(base::EcritFichier(chemin, octets, garantie));
}

bool FichierExiste(const std::string& chemin) {
  struct stat etat {};
  return stat(chemin.c_str(), &etat) == 0 && S_ISREG(etat.st_mode);
}

bool LectureSeule(const std::string& chemin) {
  struct stat etat {};
  return stat(chemin.c_str(), &etat) == 0 && ((etat.st_mode & 0222U) == 0 || access(chemin.c_str(), W_OK) != 0);
}

std::string CheminComplet(const std::string& chemin) {
  if (chemin.empty()) return "";
  std::error_code erreur;
  const std::filesystem::path complet = std::filesystem::absolute(chemin, erreur);
  if (erreur) return chemin;
  const std::filesystem::path court = complet.lexically_normal();
  // A file that isn't there yet is known by its folder.
  const bool meme = std::filesystem::equivalent(complet, court, erreur) ||
                    std::filesystem::equivalent(complet.parent_path(), court.parent_path(), erreur);
  return (meme ? court : complet).string();
}

bool MemeFichier(const std::string& a, const std::string& b) {
  struct stat etatA {};
  struct stat etatB {};
  return stat(a.c_str(), &etatA) == 0 && stat(b.c_str(), &etatB) == 0 && etatA.st_dev == etatB.st_dev &&
         etatA.st_ino == etatB.st_ino;
}

std::string NomSansExtension(const std::string& nom) {
  const std::size_t point = nom.rfind('.');
  const std::size_t barre = nom.rfind('/');
  if (point == std::string::npos || (barre != std::string::npos && point < barre)) return nom;
  return nom.substr(0, point);
}

std::string ExtensionDe(const std::string& chemin) { return Majuscules(base::ExtensionBrute(chemin)); }

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
