#include "closed/pathwerk/lecture/excellon/Mots.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "closed/pathwerk/lecture/Lignes.h"

namespace pathwerk::lecture::excellon {

namespace {

char Majuscule(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

bool Contient(std::string_view texte, std::string_view morceau) { return texte.find(morceau) != texte.npos; }

}  // namespace

bool DecoupeMots(std::string_view ligne, Mots& mots) {
  mots.nb = 0;
  std::size_t i = 0;
  while (i < ligne.size()) {
    if (EstBlanc(ligne[i])) {
      ++i;
      continue;
    }
    const char lettre = Majuscule(ligne[i]);
    if (lettre < 'A' || lettre > 'Z' || mots.nb == Mots::kMax) return false;
    const std::size_t debut = ++i;
    while (i < ligne.size() && (EstChiffre(ligne[i]) || ligne[i] == '.' || ligne[i] == '+' || ligne[i] == '-')) ++i;
    mots.mots[mots.nb++] = {lettre, ligne.substr(debut, i - debut)};
  }
  return mots.nb > 0;
}

void FormatExcellon::Unites(bool enPouces) {
  pouces = enPouces;
  unitesDites = true;
  if (!formatDit) {
    entiers = pouces ? 2 : 3;
    decimales = pouces ? 4 : 3;
  }
}

void FormatExcellon::Chiffres(int avant, int apres) {
  if (avant < 0 || apres < 0 || avant > 9 || apres > 9 || avant + apres == 0) return;
  entiers = avant;
  decimales = apres;
  formatDit = true;
}

std::optional<double> FormatExcellon::Coordonnee(std::string_view texte) const {
  if (texte.size() > 40) return std::nullopt;
  const auto v = LitReel(texte);
  if (!v) return std::nullopt;
  if (texte.find('.') != texte.npos) return *v * Echelle();
  if (gardeTete) {
    // What is left out stands on the right: the first digits are the whole ones.
    const auto chiffres = static_cast<int>(std::count_if(texte.begin(), texte.end(), EstChiffre));
    return *v * std::pow(10.0, entiers - chiffres) * Echelle();
  }
  return *v / std::pow(10.0, decimales) * Echelle();
}

bool LitUnites(std::string_view ligne, FormatExcellon& format) {
  const bool pouces = ligne.starts_with("INCH");
  if (!pouces && !ligne.starts_with("METRIC")) return false;
  format.Unites(pouces);
  while (!ligne.empty()) {
    const std::size_t fin = ligne.find(',');
    const std::string_view champ = SansBlancs(ligne.substr(0, fin));
    const std::size_t point = champ.find('.');
    if (champ == "TZ") {
      format.gardeTete = false;
    } else if (champ == "LZ") {
      format.gardeTete = true;
    } else if (point != champ.npos && champ.find_first_not_of("0.") == champ.npos) {
      format.Chiffres(static_cast<int>(point), static_cast<int>(champ.size() - point - 1));
    }
    if (fin == ligne.npos) break;
    ligne.remove_prefix(fin + 1);
  }
  return true;
}

void LitCommentaireFormat(std::string_view ligne, FormatExcellon& format) {
  std::string t(ligne.substr(0, 200));
  for (char& c : t) c = Majuscule(c);
  const std::size_t egal = t.find("FORMAT=");
  if (egal == std::string::npos) return;
  std::string_view reste = std::string_view(t).substr(egal + 7);
  if (!reste.empty() && reste[0] == '{') reste.remove_prefix(1);
  const std::size_t deux = reste.find(':');
  if (deux != reste.npos) format.Chiffres(EntierDebut(reste.substr(0, deux)), EntierDebut(reste.substr(deux + 1)));
  if (Contient(reste, "SUPPRESS TRAILING")) format.gardeTete = true;
  if (Contient(reste, "SUPPRESS LEADING")) format.gardeTete = false;
}

int EntierDebut(std::string_view texte) {
  texte = SansBlancs(texte);
  int v = -1;
  for (const char c : texte) {
    if (!EstChiffre(c)) break;
    v = std::min((v < 0 ? 0 : v) * 10 + (c - '0'), 1000000);
  }
  return v;
}

}  // namespace pathwerk::lecture::excellon
