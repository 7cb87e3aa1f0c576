#include "core/FichierIni.h"

#include <array>
#include <tuple>

#include "core/Lignes.h"
#include "core/Nombres.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

// Capitals of Windows-1252, byte by byte: letters with accents have their pair 32 places further on, but for the
// multiplication and division signs and the few letters of the block 80 to 9F.
constexpr std::array<unsigned char, 256> TableCapitales() {
  std::array<unsigned char, 256> t{};
  for (unsigned i = 0; i < 256; ++i) {
    const bool minuscule = (i >= 'a' && i <= 'z') || (i >= 0xE0 && i <= 0xFE && i != 0xF7);
    t[i] = static_cast<unsigned char>(minuscule ? i - 32 : i);
  }
  t[0x9A] = 0x8A;
  t[0x9C] = 0x8C;
  t[0x9E] = 0x8E;
  t[0xFF] = 0x9F;
  return t;
}
constexpr std::array<unsigned char, 256> Capitale = TableCapitales();

bool MemeNom(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (Capitale[static_cast<unsigned char>(a[i])] != Capitale[static_cast<unsigned char>(b[i])]) return false;
  }
  return true;
}

std::string_view SansBlancs(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

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
std::string EnLigne(std::string_view utf8) {
  std::string s = EnTexte8(utf8);
  for (char& c : s) {
    if (c == '\r' || c == '\n') c = ' ';
  }
  return s;
}

}  // namespace

FichierIni::FichierIni(std::string_view octets) : finLigne_(FinDeLigne(octets)) {
  if (octets.substr(0, 3) == "\xEF\xBB\xBF") octets.remove_prefix(3);  // mark of an editor that writes UTF-8
  std::string_view ligne;
  while (LigneSuivante(octets, ligne)) lignes_.push_back({std::string(ligne)});
}

// Lines of a section, behind its header up to the next one. {0, 0} when it isn't there: no section can begin
// behind a header at line 0 and end there.
std::pair<std::size_t, std::size_t> FichierIni::Etendue(std::string_view section) const {
  const std::string nom = EnLigne(section);
  for (std::size_t i = 0; i < lignes_.size(); ++i) {
    const auto enTete = EnTete(lignes_[i].texte);
    if (!enTete || !MemeNom(*enTete, SansBlancs(nom))) continue;
    std::size_t fin = i + 1;
    while (fin < lignes_.size() && !EnTete(lignes_[fin].texte)) ++fin;
    return {i + 1, fin};
  }
  return {0, 0};
}

std::optional<std::string> FichierIni::Lit(std::string_view section, std::string_view cle) const {
  const std::string nom = EnLigne(cle);
  const auto [debut, fin] = Etendue(section);
  for (std::size_t i = debut; i < fin; ++i) {
    const auto paire = EnCle(lignes_[i].texte);
    if (paire && MemeNom(paire->cle, SansBlancs(nom))) return DeTexte8(paire->valeur);
  }
  return std::nullopt;
}

void FichierIni::Ecrit(std::string_view section, std::string_view cle, std::string_view valeur) {
  const std::string nom = EnLigne(cle);
  auto [debut, fin] = Etendue(section);
  if (debut == 0) {
    lignes_.push_back({"[" + EnLigne(section) + "]"});
    debut = fin = lignes_.size();
  }
  for (std::size_t i = debut; i < fin; ++i) {
    const auto paire = EnCle(lignes_[i].texte);
    if (!paire || !MemeNom(paire->cle, SansBlancs(nom))) continue;
    if (DeTexte8(paire->valeur) == valeur) return;  // its line stays as it stands, blanks around the "=" included
    lignes_[i].texte = std::string(paire->cle) + "=" + EnLigne(valeur);
    return;
  }
  // In front of the empty lines that part this section from the next.
  while (fin > debut && SansBlancs(lignes_[fin - 1].texte).empty()) --fin;
  lignes_.insert(lignes_.begin() + static_cast<std::ptrdiff_t>(fin),
                 {std::string(SansBlancs(nom)) + "=" + EnLigne(valeur)});
}

void FichierIni::Supprime(std::string_view section, std::string_view cle) {
  const std::string nom = EnLigne(cle);
  const auto [debut, fin] = Etendue(section);
  for (std::size_t i = fin; i > debut; --i) {  // every one: a second line of that key would come to light
    const auto paire = EnCle(lignes_[i - 1].texte);
    if (paire && MemeNom(paire->cle, SansBlancs(nom)))
      lignes_.erase(lignes_.begin() + static_cast<std::ptrdiff_t>(i - 1));
  }
}

void FichierIni::SupprimeSection(std::string_view section) {
  for (auto [debut, fin] = Etendue(section); debut != 0; std::tie(debut, fin) = Etendue(section)) {
    lignes_.erase(lignes_.begin() + static_cast<std::ptrdiff_t>(debut - 1),
                  lignes_.begin() + static_cast<std::ptrdiff_t>(fin));
  }
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
  for (const Ligne& l : lignes_) s.append(l.texte).append(finLigne_);
  return s;
}

}  // namespace ovelin
