#include "core/Reprises.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/LectureProjet.h"

namespace ovelin {

std::string DossierReprises;

namespace {

constexpr const char* NomDessin = "dessin";       // beside the snapshots
constexpr const char* SuffixeDessin = ".dessin";  // beside what waits
constexpr const char* SuffixeReprise = ".reprise";

struct Note {
  std::string dossier, chemin;
  bool operator==(const Note&) const = default;
};
Note Notee;

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] {
  DossierReprises.clear();
  Notee = Note{};
});

bool Entier(const std::string& chemin) {
  const ProjetLu lu = LitProjet(chemin);
  return !lu.refus && !lu.tronque;
}

std::int64_t Heure(const std::string& chemin) {
  struct stat etat {};
  return stat(chemin.c_str(), &etat) == 0 ? static_cast<std::int64_t>(etat.st_mtim.tv_sec) : 0;
}

}  // namespace

void RecueilleReprise(const std::string& dossierMort) {
  if (DossierReprises.empty()) return;
  std::vector<std::string> noms = ListeFichiers(dossierMort, "OVL");
  std::reverse(noms.begin(), noms.end());  // the highest number is the newest
  for (const std::string& nom : noms) {
    const std::string instantane = DansDossier(dossierMort, nom);
    if (!Entier(instantane)) continue;
    std::error_code erreur;
    std::filesystem::create_directories(DossierReprises, erreur);
    // Unique: a process has one number while its folder stands, and a state one moment.
    std::string base = DansDossier(DossierReprises, std::to_string(Heure(instantane)));
    base.append("-").append(NomDe(dossierMort)).append("-").append(nom);
    std::rename(DansDossier(dossierMort, NomDessin).c_str(), (base + SuffixeDessin).c_str());
    std::rename(instantane.c_str(), (base + SuffixeReprise).c_str());
    return;
  }
}

std::vector<Reprise> ListeReprises() {
  std::vector<Reprise> liste;
  if (DossierReprises.empty()) return liste;
  for (const std::string& nom : ListeFichiers(DossierReprises, "REPRISE")) {
    const std::string fichier = DansDossier(DossierReprises, nom);
    liste.push_back(
        {fichier, LitFichierEntier(NomSansExtension(fichier) + SuffixeDessin).value_or(""), Heure(fichier)});
  }
  std::stable_sort(liste.begin(), liste.end(),
                   [](const Reprise& a, const Reprise& b) { return a.heure > b.heure; });
  return liste;
}

void OteReprise(const Reprise& reprise) {
  unlink(reprise.fichier.c_str());
  unlink((NomSansExtension(reprise.fichier) + SuffixeDessin).c_str());
}

void NoteDessin(const std::string& chemin) {
  const Note note{DossierTemp, chemin};
  if (DossierTemp.empty() || chemin.empty() || note == Notee) return;
  // An undo, or work that is being recovered, goes by another name for a moment.
  const std::string dossier = DossierDe(chemin);
  if (dossier == DossierTemp || dossier == DossierReprises) return;
  if (EcritFichierEntier(DansDossier(DossierTemp, NomDessin), chemin, Garantie::Processus).empty()) Notee = note;
}

}  // namespace ovelin
