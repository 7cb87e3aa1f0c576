#include "gcode/Programme.h"

#include <cerrno>
#include <filesystem>
#include <utility>

#include "base/Fichiers.h"
#include "base/Texte.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

constexpr std::string_view MarqueUtf8 = "\xEF\xBB\xBF";

}  // namespace

Programme::Programme(std::string octets) : octets_(std::move(octets)) { Juge(); }

void Programme::Juge() {
  std::string_view reste = octets_;
  if (reste.starts_with(MarqueUtf8)) reste.remove_prefix(MarqueUtf8.size());
  std::vector<Mot> mots;
  std::string_view ligne;
  while (base::LigneSuivante(reste, ligne)) {
    const Jugement jugement = JugeLigne(ligne, mots);
    Rang rang;
    rang.debut = static_cast<std::uint64_t>(ligne.data() - octets_.data()) & TailleMaxiProgramme;
    rang.longueur = ligne.size() & TailleMaxiProgramme;
    rang.jugement = static_cast<std::uint64_t>(jugement) & 3U;
    lignes_.push_back(rang);
    if (EstValide(jugement)) {
      ++comptes_.valides;
      if (jugement == Jugement::Douteuse) ++comptes_.douteuses;
    } else if (jugement == Jugement::Commentaire) {
      ++comptes_.commentaires;
    } else if (++comptes_.refusees == 1) {
      comptes_.premiereRefusee = lignes_.size();
    }
  }
}

std::string Programme::Texte(std::size_t i) const { return DeTexte8(Ligne(i)); }

ProgrammeLu LitProgramme(const std::string& chemin) {
  ProgrammeLu lu;
  std::error_code erreur;
  const auto taille = std::filesystem::file_size(chemin, erreur);
  if (!erreur && taille > TailleMaxiProgramme) {
    lu.refus = base::TexteErreur(EFBIG);
    return lu;
  }
  std::string octets;
  if (const int numero = base::LitFichier(chemin, octets)) {
    lu.refus = base::TexteErreur(numero);
    return lu;
  }
  lu.programme = Programme(std::move(octets));
  return lu;
}

}  // namespace ovelin
