#include "toolpath/chemins/Calques.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_map>
#include <unordered_set>

#include "base/Texte.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

namespace {

constexpr std::size_t LettresMax = 40;

// The paths of a document, each once: the record of an emptied drawing is none.
std::vector<Code2> Chemins(const Document& document) {
  std::vector<Code2> codes;
  std::unordered_set<std::uint32_t> vus;
  for (const Code2 code : CodesDe(PointsComptes(document))) {
    if (code != Code2{} && code != CodeAucun && vus.insert(code.Cle()).second) codes.push_back(code);
  }
  return codes;
}

// What one layer has in common.
std::string Clef(const Complement& c, PartageCalques partage) {
  if (partage == PartageCalques::Noms) return c.Calque;
  if (partage == PartageCalques::Couleurs && c.Couleur) return TexteCouleur(*c.Couleur);
  return "";
}

// Of a character of UTF-8, from its first byte on.
std::size_t LongueurCaractere(std::string_view texte) {
  std::size_t n = 1;
  while (n < texte.size() && (base::Octet(texte[n]) & 0xC0) == 0x80) ++n;
  return n;
}

// Marks of direction and separators of lines, which nobody sees and which move what stands behind them.
bool EstInvisible(std::string_view caractere) {
  constexpr std::array<std::string_view, 15> Invisibles{
      "\xD8\x9C",      // U+061C
      "\xE2\x80\x8B",  // U+200B, no width
      "\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAA",
      "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD", "\xE2\x80\xAE", "\xE2\x81\xA6",
      "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9"};
  if (caractere.size() == 1) return base::Octet(caractere[0]) < 0x20 || base::Octet(caractere[0]) >= 0x7F;
  return std::find(Invisibles.begin(), Invisibles.end(), caractere) != Invisibles.end();
}

}  // namespace

PartageCalques PartageDe(const Document& document) {
  if (document.Complements.Vide()) return PartageCalques::Aucun;
  const std::vector<Code2> codes = Chemins(document);
  bool couleurs = false;
  for (const Code2 code : codes) {
    const Complement& premier = document.Complements.De(codes.front());
    const Complement& c = document.Complements.De(code);
    if (c.Calque != premier.Calque) return PartageCalques::Noms;
    couleurs = couleurs || c.Couleur != premier.Couleur;
  }
  return couleurs ? PartageCalques::Couleurs : PartageCalques::Aucun;
}

std::vector<CalqueDessin> CalquesDe(const Document& document) {
  std::vector<CalqueDessin> calques;
  const PartageCalques partage = PartageDe(document);
  if (partage == PartageCalques::Aucun) return calques;
  std::unordered_map<std::string, std::size_t> places;
  for (const Code2 code : Chemins(document)) {
    const Complement& c = document.Complements.De(code);
    const auto [place, neuf] = places.try_emplace(Clef(c, partage), calques.size());
    if (neuf) calques.push_back({c.Calque, c.Couleur, {}});
    CalqueDessin& calque = calques[place->second];
    if (calque.couleur != c.Couleur) calque.couleur.reset();
    calque.codes.push_back(code);
  }
  return calques;
}

bool EtendSelectionAuxCalques(Document& document) {
  const PartageCalques partage = PartageDe(document);
  std::unordered_set<std::string> choisis;
  for (const SequenceInfo& s : document.Sequences) {
    if (s.Selection != Faux) choisis.insert(Clef(document.Complements.De(s.Code), partage));
  }
  for (SequenceInfo& s : document.Sequences) {
    s.Selection = EnDrapeau(choisis.contains(Clef(document.Complements.De(s.Code), partage)));
  }
  return !choisis.empty();
}

std::string NomAffiche(std::string_view nom) {
  std::string affiche;
  std::size_t lettres = 0;
  while (!nom.empty()) {
    const std::string_view caractere = nom.substr(0, LongueurCaractere(nom));
    nom.remove_prefix(caractere.size());
    if (EstInvisible(caractere)) continue;
    if (lettres++ == LettresMax) return affiche + "\xE2\x80\xA6";
    affiche += caractere;
  }
  return affiche;
}

std::string TexteCouleur(std::uint32_t couleur) {
  constexpr std::string_view Chiffres = "0123456789ABCDEF";
  std::string texte = "#";
  for (int bit = 20; bit >= 0; bit -= 4) texte += Chiffres[couleur >> bit & 0xF];
  return texte;
}

std::string TexteCalque(const Complement& complement, PartageCalques partage) {
  if (partage == PartageCalques::Noms) return NomAffiche(complement.Calque);
  return Clef(complement, partage);
}

}  // namespace ovelin
