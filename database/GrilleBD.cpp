#include "database/GrilleBD.h"

#include <algorithm>

#include "base/Indices.h"

namespace ovelin {

namespace {

std::string AvecVirgule(std::string texte) {
  std::replace(texte.begin(), texte.end(), '.', ',');
  return texte;
}

}  // namespace

GrilleBD::GrilleBD(const std::vector<FicheMateriau>& fiches) : lignes_(fiches) {
  for (FicheMateriau& fiche : lignes_) {
    for (std::size_t c = 0; c < Colonnes; ++c) {
      if (Numerique(c)) fiche.champs[c] = AvecVirgule(fiche.champs[c]);
    }
  }
  lignes_.emplace_back();
}

const std::string& GrilleBD::Cellule(std::size_t ligne, std::size_t colonne) const {
  return lignes_.at(ligne).champs.at(colonne);
}

void GrilleBD::Pose(std::size_t ligne, std::size_t colonne, const std::string& texte) {
  std::string propre = Numerique(colonne) ? AvecVirgule(texte) : texte;
  for (char& c : propre) {
    if (c == '\n' || c == '\r') c = ' ';  // a key has one line
  }
  lignes_.at(ligne).champs.at(colonne) = propre;
  if (!EstFiche(ligne) && !propre.empty()) lignes_.emplace_back();
}

bool GrilleBD::Insere(std::size_t ligne) {
  if (!EstFiche(ligne)) return false;
  lignes_.insert(base::Iterateur(lignes_, ligne), FicheMateriau{});
  return true;
}

bool GrilleBD::Supprime(std::size_t ligne) {
  if (!EstFiche(ligne)) return false;
  lignes_.erase(base::Iterateur(lignes_, ligne));
  return true;
}

std::vector<FicheMateriau> GrilleBD::Fiches() const { return {lignes_.begin(), lignes_.end() - 1}; }

std::pair<std::size_t, std::size_t> GrilleBD::Suivante(std::size_t ligne, std::size_t colonne) const {
  if (colonne + 1 < Colonnes) return {ligne, colonne + 1};
  if (ligne + 1 < Lignes()) return {ligne + 1, 0};
  return {ligne, colonne};
}

std::pair<std::size_t, std::size_t> GrilleBD::Precedente(std::size_t ligne, std::size_t colonne) const {
  if (colonne > 0) return {ligne, colonne - 1};
  if (ligne > 0) return {ligne - 1, Colonnes - 1};
  return {ligne, colonne};
}

}  // namespace ovelin
