#include "closed/zenikcom/virtual/Rangement.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "base/Fichiers.h"

namespace zenikcom {

namespace {

// One byte beyond what the largest memory takes, so that a file of any size is judged without being read whole.
constexpr std::size_t OctetsMaxi = NbBlocsFlash * OctetsBloc + 4097;

}  // namespace

bool Rangement::Ouvre(const std::string& chemin, Memoire& memoire) {
  etat_.chemin = chemin;
  if (chemin.empty()) return true;
  if (!verrou_.Prend(chemin + ".verrou")) return false;
  std::string octets;
  const int erreur = base::LitFichier(chemin, octets, OctetsMaxi);
  if (erreur == ENOENT) return true;
  if (erreur != 0) {
    // A file that this user may not read, a folder, a device or a pipe: neither moved nor written over.
    ecrire_ = false;
    etat_.raison = erreur == EINVAL ? "not a regular file" : base::TexteErreur(erreur);
    return true;
  }
  std::string raison;
  auto lue = Memoire::Lit(octets, raison);
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
  // Written within an exchange, which must not wait for a disk.
  const int erreur = base::EcritFichier(etat_.chemin, memoire.Octets(), base::Garantie::Processus);
  if (erreur != 0) {
    etat_.raison = base::TexteErreur(erreur);
  } else if (etat_.misDeCote.empty()) {
    etat_.raison.clear();
  }
  return erreur == 0;
}

}  // namespace zenikcom
