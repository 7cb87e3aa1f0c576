#include "closed/pathwerk/lecture/svg/Valeurs.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <numbers>
#include <system_error>
#include <utility>

#include "base/Texte.h"
#include "closed/pathwerk/lecture/Decimaux.h"

namespace pathwerk::lecture::svg {

namespace {

using base::EstChiffre;
using base::EstLettre;

constexpr double Pouce = 96;  // user units

constexpr std::array Unites{std::pair{std::string_view("px"), UniteLongueur::Px},
                            std::pair{std::string_view("pt"), UniteLongueur::Pt},
                            std::pair{std::string_view("pc"), UniteLongueur::Pc},
                            std::pair{std::string_view("mm"), UniteLongueur::Mm},
                            std::pair{std::string_view("cm"), UniteLongueur::Cm},
                            std::pair{std::string_view("in"), UniteLongueur::In},
                            std::pair{std::string_view("q"), UniteLongueur::Q},
                            std::pair{std::string_view("em"), UniteLongueur::Em},
                            std::pair{std::string_view("ex"), UniteLongueur::Ex},
                            std::pair{std::string_view("rem"), UniteLongueur::Rem},
                            std::pair{std::string_view("%"), UniteLongueur::Pourcent}};

constexpr char Minuscule(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Where a number begins: a digit, or a point with a digit behind it.
bool CommenceNombre(std::string_view t) {
  return !t.empty() && (EstChiffre(t[0]) || (t[0] == '.' && t.size() > 1 && EstChiffre(t[1])));
}

// Quarter turns are exact, without the rest that pi leaves.
Matrice Rotation(double degres) {
  const double quarts = degres / 90;
  if (quarts == std::floor(quarts) && std::fabs(quarts) < 1e9) {
    constexpr std::array<double, 5> Sinus{0, 1, 0, -1, 0};
    const auto k = static_cast<std::size_t>(std::fmod(std::fmod(quarts, 4) + 4, 4));
    return {Sinus[k + 1], Sinus[k], -Sinus[k], Sinus[k + 1], 0, 0};
  }
  const double w = degres * (std::numbers::pi / 180);
  return {std::cos(w), std::sin(w), -std::sin(w), std::cos(w), 0, 0};
}

// One transform by its name; nothing when the count of its numbers is none that it takes.
std::optional<Matrice> UneTransformation(std::string_view nom, const std::vector<double>& n) {
  const auto pente = [](double degres) { return std::tan(degres * (std::numbers::pi / 180)); };
  if (nom == "matrix" && n.size() == 6) return Matrice{n[0], n[1], n[2], n[3], n[4], n[5]};
  if (nom == "translate" && (n.size() == 1 || n.size() == 2)) return Translation(n[0], n.size() == 2 ? n[1] : 0);
  if (nom == "scale" && (n.size() == 1 || n.size() == 2)) return Echelle(n[0], n[n.size() - 1]);
  if (nom == "rotate" && n.size() == 1) return Rotation(n[0]);
  if (nom == "rotate" && n.size() == 3) {
    return Translation(n[1], n[2]) * Rotation(n[0]) * Translation(-n[1], -n[2]);
  }
  if (nom == "skewX" && n.size() == 1) return Matrice{1, 0, pente(n[0]), 1, 0, 0};
  if (nom == "skewY" && n.size() == 1) return Matrice{1, pente(n[0]), 0, 1, 0, 0};
  return std::nullopt;
}

}  // namespace

bool LecteurValeurs::Suite() {
  while (!reste_.empty() && (EstBlancXml(reste_[0]) || reste_[0] == ',')) reste_.remove_prefix(1);
  return !reste_.empty();
}

bool LecteurValeurs::Nombre(double& v) {
  if (!Suite()) return false;
  const bool signe = reste_[0] == '-' || reste_[0] == '+';
  const std::string_view chiffres = reste_.substr(signe ? 1 : 0);
  if (!CommenceNombre(chiffres)) return false;
  double lu = 0;
  const char* const fin = chiffres.data() + chiffres.size();
  if (const char* const apres = LitDecimal(chiffres.data(), fin, lu)) {
    v = reste_[0] == '-' ? -lu : lu;
    reste_ = std::string_view(apres, static_cast<std::size_t>(fin - apres));
    return true;
  }
  const auto [apres, erreur] = std::from_chars(chiffres.data(), fin, lu);
  if (erreur == std::errc::result_out_of_range) {
    const std::string_view texte(chiffres.data(), static_cast<std::size_t>(apres - chiffres.data()));
    const std::size_t e = texte.find_first_of("eE");
    const bool petit = e != std::string_view::npos && e + 1 < texte.size() && texte[e + 1] == '-';
    lu = petit ? 0 : std::numeric_limits<double>::infinity();
  }
  v = reste_[0] == '-' ? -lu : lu;
  reste_ = std::string_view(apres, static_cast<std::size_t>(fin - apres));
  return true;
}

bool LecteurValeurs::Drapeau(double& v) {
  if (!Suite() || (reste_[0] != '0' && reste_[0] != '1')) return false;
  v = reste_[0] == '1' ? 1 : 0;
  reste_.remove_prefix(1);
  return true;
}

std::string_view LecteurValeurs::Mot() {
  const auto fin = std::find_if_not(reste_.begin(), reste_.end(), EstLettre);
  const std::string_view mot = reste_.substr(0, static_cast<std::size_t>(fin - reste_.begin()));
  reste_.remove_prefix(mot.size());
  return mot;
}

std::optional<Longueur> LitLongueur(std::string_view texte) {
  LecteurValeurs lecteur(base::SansBlancs(texte, EstBlancXml));
  Longueur l;
  if (!lecteur.Nombre(l.valeur)) return std::nullopt;
  const std::string_view nom = lecteur.Reste();
  if (nom.empty()) return l;
  for (const auto& [unite, valeur] : Unites) {
    const auto egales = [](char x, char y) { return Minuscule(x) == y; };
    if (!std::equal(nom.begin(), nom.end(), unite.begin(), unite.end(), egales)) continue;
    l.unite = valeur;
    return l;
  }
  return std::nullopt;
}

double EnPixels(const Longueur& l, double em, double tout) {
  switch (l.unite) {
    case UniteLongueur::Aucune:
    case UniteLongueur::Px:
      return l.valeur;
    case UniteLongueur::Pt:
      return l.valeur * Pouce / 72;
    case UniteLongueur::Pc:
      return l.valeur * Pouce / 6;
    case UniteLongueur::Mm:
      return l.valeur * Pouce / 25.4;
    case UniteLongueur::Cm:
      return l.valeur * Pouce / 2.54;
    case UniteLongueur::In:
      return l.valeur * Pouce;
    case UniteLongueur::Q:
      return l.valeur * Pouce / 101.6;
    case UniteLongueur::Em:
      return l.valeur * em;
    case UniteLongueur::Ex:
      return l.valeur * em / 2;
    case UniteLongueur::Rem:
      return l.valeur * 16;
    case UniteLongueur::Pourcent:
      return l.valeur * tout / 100;
  }
  return l.valeur;
}

std::vector<double> LitNombres(std::string_view texte, std::size_t max) {
  std::vector<double> nombres;
  LecteurValeurs lecteur(texte);
  double v = 0;
  while (nombres.size() < max && lecteur.Nombre(v)) nombres.push_back(v);
  return nombres;
}

std::optional<Matrice> LitTransformation(std::string_view texte) {
  Matrice m;
  LecteurValeurs lecteur(texte);
  while (lecteur.Suite()) {
    const std::string_view nom = lecteur.Mot();
    lecteur.Suite();
    if (nom == "none" && lecteur.Reste().empty()) return m;
    const std::size_t fin = lecteur.Reste().find(')');
    if (nom.empty() || !lecteur.Reste().starts_with('(') || fin == std::string_view::npos) return std::nullopt;
    const auto t = UneTransformation(nom, LitNombres(lecteur.Reste().substr(1, fin - 1), 7));
    if (!t) return std::nullopt;
    m = m * *t;
    lecteur.Avance(fin + 1);
  }
  return m;
}

}  // namespace pathwerk::lecture::svg
