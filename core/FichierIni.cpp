#include "core/FichierIni.h"

#include <tuple>

#include "base/Indices.h"
#include "base/Texte.h"
#include "core/Lignes.h"
#include "core/Nombres.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

// Whether bytes of the file name what is asked for. `nom` is UTF-8 in capitals; the file may hold the name in
// either set, as the editor left it that touched it last.
bool MemeNom(std::string_view octets, std::string_view nom) {
  for (std::size_t i = 0; i < octets.size(); ++i) {
    const char c = octets[i];
    if (base::Octet(c) >= 0x80) return Majuscules(DeTexte8(octets)) == nom;
    if (i >= nom.size() || (c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c) != nom[i]) return false;
  }
  return octets.size() == nom.size();
}

using base::SansBlancs;

// Name of the section that a line opens.
std::optional<std::string_view> EnTete(std::string_view ligne) {
  const std::string_view s = SansBlancs(ligne);
  if (s.empty() || s.front() != '[') return std::nullopt;
  const std::size_t fin = s.rfind(']');
  return SansBlancs(s.substr(1, fin == std::string_view::npos ? fin : fin - 1));
}

struct CleValeur {
  std::string_view cle, valeur;
};
std::optional<CleValeur> EnCle(std::string_view ligne) {
  const std::string_view s = SansBlancs(ligne);
  if (s.empty() || s.front() == ';') return std::nullopt;
  const std::size_t egal = s.find('=');
  if (egal == std::string_view::npos) return std::nullopt;
  return CleValeur{SansBlancs(s.substr(0, egal)), SansBlancs(s.substr(egal + 1))};
}

// One line, whatever the text holds: a line end in a value would make another line of the rest.
std::string UneLigne(std::string_view texte) {
  std::string s(texte);
  for (char& c : s) {
    if (c == '\r' || c == '\n') c = ' ';
  }
  return s;
}
std::string EnLigne(std::string_view utf8) { return EnTexte8(UneLigne(utf8)); }
std::string NomCherche(std::string_view utf8) { return Majuscules(Rogne(UneLigne(utf8))); }

}  // namespace

FichierIni::FichierIni(std::string_view octets) : finLigne_(FinDeLigne(octets)) {
  while (octets.substr(0, 3) == "\xEF\xBB\xBF") octets.remove_prefix(3);  // mark of an editor that writes UTF-8
  std::string_view ligne;
  for (std::string_view reste = octets; LigneSuivante(reste, ligne); octets = reste) {
    const std::size_t fin = octets.size() - reste.size();
    lignes_.push_back({std::string(ligne), std::string(octets.substr(ligne.size(), fin - ligne.size()))});
  }
}

// Lines of a section, behind its header up to the next one. {0, 0} when it isn't there: no section can begin
// behind a header at line 0 and end there.
std::pair<std::size_t, std::size_t> FichierIni::Etendue(std::string_view section) const {
  const std::string nom = NomCherche(section);
  for (std::size_t i = 0; i < lignes_.size(); ++i) {
    const auto enTete = EnTete(lignes_[i].texte);
    if (!enTete || !MemeNom(*enTete, nom)) continue;
    std::size_t fin = i + 1;
    while (fin < lignes_.size() && !EnTete(lignes_[fin].texte)) ++fin;
    return {i + 1, fin};
  }
  return {0, 0};
}

std::optional<std::string> FichierIni::Lit(std::string_view section, std::string_view cle) const {
  const std::string nom = NomCherche(cle);
  const auto [debut, fin] = Etendue(section);
  for (std::size_t i = debut; i < fin; ++i) {
    const auto paire = EnCle(lignes_[i].texte);
    if (paire && MemeNom(paire->cle, nom)) return DeTexte8(paire->valeur);
  }
  return std::nullopt;
}

long FichierIni::LigneDe(std::string_view section, std::string_view cle) const {
  const std::string nom = NomCherche(cle);
  const auto [debut, fin] = Etendue(section);
  for (std::size_t i = debut; i < fin; ++i) {
    const auto paire = EnCle(lignes_[i].texte);
    if (paire && MemeNom(paire->cle, nom)) return base::Compte(i) + 1;
  }
  return 0;
}

void FichierIni::Ecrit(std::string_view section, std::string_view cle, std::string_view valeur) {
  const std::string nom = NomCherche(cle);
  auto [debut, fin] = Etendue(section);
  if (debut == 0) {
    lignes_.push_back({"[" + EnLigne(section) + "]", finLigne_});
    debut = fin = lignes_.size();
  }
  for (std::size_t i = debut; i < fin; ++i) {
    const auto paire = EnCle(lignes_[i].texte);
    if (!paire || !MemeNom(paire->cle, nom)) continue;
    if (DeTexte8(paire->valeur) == valeur) return;  // its line stays as it stands, blanks around the "=" included
    lignes_[i].texte = std::string(paire->cle) + "=" + EnLigne(valeur);
    return;
  }
  // In front of the empty lines that part this section from the next.
  while (fin > debut && SansBlancs(lignes_[fin - 1].texte).empty()) --fin;
  lignes_.insert(base::Iterateur(lignes_, fin), {Rogne(EnLigne(cle)) + "=" + EnLigne(valeur), finLigne_});
}

void FichierIni::Supprime(std::string_view section, std::string_view cle) {
  const std::string nom = NomCherche(cle);
  const auto [debut, fin] = Etendue(section);
  for (std::size_t i = fin; i > debut; --i) {  // every one: a second line of that key would come to light
    const auto paire = EnCle(lignes_[i - 1].texte);
    if (paire && MemeNom(paire->cle, nom)) lignes_.erase(base::Iterateur(lignes_, i - 1));
  }
}

void FichierIni::SupprimeSection(std::string_view section) {
  for (auto [debut, fin] = Etendue(section); debut != 0; std::tie(debut, fin) = Etendue(section)) {
    lignes_.erase(base::Iterateur(lignes_, debut - 1), base::Iterateur(lignes_, fin));
  }
}

FichierIni::CleTelle FichierIni::Releve(std::string_view section, std::string_view cle) const {
  CleTelle telle;
  telle.section = Etendue(section).first != 0;
  telle.sansFin = !lignes_.empty() && lignes_.back().fin.empty();
  if (const long n = LigneDe(section, cle); n > 0) telle.ligne = lignes_[base::Indice(n - 1)].texte;
  return telle;
}

void FichierIni::Remet(std::string_view section, std::string_view cle, const CleTelle& telle) {
  if (telle.ligne) {
    if (LigneDe(section, cle) == 0) Ecrit(section, cle, "");
    lignes_[base::Indice(LigneDe(section, cle) - 1)].texte = *telle.ligne;
  } else {
    Supprime(section, cle);
    const auto [debut, fin] = Etendue(section);
    if (!telle.section && debut == fin) SupprimeSection(section);
  }
  if (telle.sansFin && !lignes_.empty()) lignes_.back().fin.clear();
}

std::vector<std::string> FichierIni::Sections() const {
  std::vector<std::string> noms;
  for (const Ligne& l : lignes_) {
    if (const auto enTete = EnTete(l.texte)) noms.push_back(DeTexte8(*enTete));
  }
  return noms;
}

std::vector<std::pair<std::string, std::string>> FichierIni::Lignes(std::string_view section) const {
  std::vector<std::pair<std::string, std::string>> paires;
  const auto [debut, fin] = Etendue(section);
  for (std::size_t i = debut; i < fin; ++i) {
    if (const auto paire = EnCle(lignes_[i].texte)) {
      paires.emplace_back(DeTexte8(paire->cle), DeTexte8(paire->valeur));
    }
  }
  return paires;
}

std::string FichierIni::Octets() const {
  std::string s;
  for (std::size_t i = 0; i < lignes_.size(); ++i) {
    const Ligne& l = lignes_[i];
    const bool derniere = i + 1 == lignes_.size();
    s.append(l.texte).append(l.fin.empty() && !derniere ? finLigne_ : l.fin);
  }
  return s;
}

}  // namespace ovelin
