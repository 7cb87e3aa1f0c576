#include "closed/pathwerk/lecture/excellon/Mots.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/Indices.h"
#include "closed/pathwerk/lecture/Lignes.h"

namespace pathwerk::lecture::excellon {

namespace {

char Majuscule(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

// Of ten, for as many digits as a format has behind the point.
constexpr std::array Puissances{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

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
    if (lettre < 'A' || lettre > 'Z' || mots.nb == Mots::MotsMax) return false;
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

std::optional<double> FormatExcellon::Coordonnee(std::string_view texte) {
  if (texte.size() > 40) return std::nullopt;
  const auto v = LitReel(texte);
  if (!v) return std::nullopt;
  if (texte.find('.') != texte.npos) return *v * Echelle();
  const auto chiffres = base::Compte(std::count_if(texte.begin(), texte.end(), EstChiffre));
  // With all digits there the zeros settle nothing.
  devine = devine || !formatDit || (!zerosDits && chiffres < entiers + decimales);
  if (gardeTete) {
    // What is left out stands on the right: the first digits are the whole ones.
    return *v * std::pow(10.0, entiers - chiffres) * Echelle();
  }
  return *v / Puissances[base::Indice(decimales)] * Echelle();
}

std::string FormatExcellon::Ligne() const {
  return std::string(pouces ? "INCH" : "METRIC") + (gardeTete ? ",LZ," : ",TZ,") +
         std::string(base::Indice(entiers), '0') + '.' + std::string(base::Indice(decimales), '0');
}

bool LitUnites(std::string_view ligne, FormatExcellon& format, std::vector<std::string>& inconnus) {
  constexpr std::string_view Separateurs = ", \t";
  const std::string_view tete = ligne.substr(0, ligne.find_first_of(Separateurs));
  const bool pouces = tete == "INCH" || tete == "M72";
  if (!pouces && tete != "METRIC" && tete != "M71") return false;
  format.Unites(pouces);
  ligne.remove_prefix(tete.size());
  while (!ligne.empty()) {
    ligne.remove_prefix(std::min(ligne.find_first_not_of(Separateurs), ligne.size()));
    const std::string_view champ = ligne.substr(0, ligne.find_first_of(Separateurs));
    ligne.remove_prefix(champ.size());
    const std::size_t point = champ.find('.');
    if (champ == "TZ" || champ == "LZ") {
      format.gardeTete = champ == "LZ";
      format.zerosDits = true;
    } else if (point != champ.npos && champ.find_first_not_of("0.") == champ.npos) {
      format.Chiffres(base::Compte(point), base::Compte(champ.size() - point - 1));
    } else if (!champ.empty()) {
      inconnus.emplace_back(champ.substr(0, 24));
    }
  }
  return true;
}

bool EntreeConnue(std::string_view ligne) {
  constexpr std::string_view Connues =
      " AFS ATC BLKD CCW CP DETECT DN DTMDIST EXDA FMAT FSB HPCK NCSL OM OSTOP OTCLMP PCKPARAM PF PLTMDIST R RC "
      "SBK SG "
      "SIXM TCST UP VER Z ZA ZC ZS ";
  std::string mot = " ";
  for (const char c : ligne.substr(0, 12)) {
    if (!(c >= 'A' && c <= 'Z')) break;
    mot += c;
  }
  if (mot.size() > 1 && Connues.find(mot + ' ') != Connues.npos) return true;
  // A tool: "T01C0.8F200S65".
  Mots mots;
  return ligne.starts_with('T') && DecoupeMots(ligne, mots) && EntierDebut(mots.mots[0].texte) >= 0;
}

bool EstEtendue(std::string_view ligne) {
  std::string t(ligne.substr(0, 40));
  for (char& c : t) c = Majuscule(c);
  const std::size_t mot = t.find_first_not_of("; \t");
  return mot != std::string::npos && std::string_view(t).substr(mot).starts_with("EXTENTS");
}

namespace {

// Does a size lie between a twentieth and all of another one, with some room for rounding?
bool Tient(Vec2 taille, Vec2 dans) {
  constexpr double Jeu = 0.02;  // mm
  const auto tient = [](double t, double d) { return t <= 1.01 * d + Jeu; };
  const double plusGrand = std::max(taille.x, taille.y);
  const double place = std::max(dans.x, dans.y);
  return tient(taille.x, dans.x) && tient(taille.y, dans.y) && (plusGrand == 0 || place <= 20 * plusGrand + Jeu);
}

}  // namespace

bool EtenduePossible(std::string_view ligne, const FormatExcellon& format, Vec2 taille) {
  std::string t(ligne.substr(0, 200));
  for (char& c : t) c = Majuscule(c);
  FormatExcellon f = format;
  const bool mm = Contient(t, "MM") || Contient(t, "METRIC");
  if (mm || Contient(t, "INCH")) f.pouces = !mm;
  std::array<std::vector<double>, 2> lectures;  // with the point where it stands, and as coordinates of the file
  const std::string_view reste(t);
  for (std::size_t i = t.find("EXTENTS") + 7; i < t.size();) {
    const std::size_t p = reste.find_first_of("+-.0123456789", i);
    if (p == reste.npos) break;
    i = std::min(reste.find_first_not_of(".0123456789", p + 1), reste.size());
    const std::string_view nombre = reste.substr(p, i - p);
    const auto v = LitReel(nombre);
    const auto c = f.Coordonnee(nombre);
    if (!v || !c) continue;
    lectures[0].push_back(*v * f.Echelle());
    lectures[1].push_back(*c);
  }
  const auto possible = [&](const std::vector<double>& n) {
    if (n.size() == 2) return Tient(taille, {n[0], n[1]});
    return Tient(taille, {std::fabs(n[2] - n[0]), std::fabs(n[3] - n[1])}) ||
           Tient(taille, {std::fabs(n[1] - n[0]), std::fabs(n[3] - n[2])});
  };
  const std::size_t nombre = lectures[0].size();
  if (nombre != 2 && nombre != 4) return true;  // says nothing that can be held against the drawing
  return possible(lectures[0]) || possible(lectures[1]);
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
  for (const bool tete : {true, false}) {
    if (!Contient(reste, tete ? "SUPPRESS TRAILING" : "SUPPRESS LEADING")) continue;
    format.gardeTete = tete;
    format.zerosDits = true;
  }
  const bool metrique = Contient(reste, "METRIC");
  if (!format.unitesDites && (metrique || Contient(reste, "INCH"))) format.Unites(!metrique);
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
