#include "gcode/Mots.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <span>

#include "base/Texte.h"
#include "core/Nombres.h"

namespace ovelin {

namespace {

constexpr char Separateur = '\a';  // stood in front of every letter once; a line that holds one has an empty word

constexpr bool Majuscule(char c) { return c >= 'A' && c <= 'Z'; }

constexpr std::array<std::int32_t, 10> NumerosG{0, 1, 4, 20, 21, 70, 71, 90, 91, 92};
constexpr std::array<std::int32_t, 7> NumerosM{2, 3, 5, 6, 7, 9, 30};

bool Connu(std::span<const std::int32_t> numeros, std::int32_t n) {
  return std::find(numeros.begin(), numeros.end(), n) != numeros.end();
}

Jugement JugeMot(const Mot& mot) {
  switch (mot.lettre) {
    case 'N':
    case 'S':
    case 'T':
      return Jugement::Valide;
    case 'F':
    case 'P':
    case 'X':
    case 'Y':
    case 'Z':
      return mot.chiffre ? Jugement::Valide : Jugement::Refusee;
    case 'G':
    case 'M': {
      if (!mot.chiffre) return Jugement::Refusee;
      const std::int32_t n = NumeroMot(mot);
      const bool connu = mot.lettre == 'G' ? Connu(NumerosG, n) : Connu(NumerosM, n);
      if (!connu) return Jugement::Refusee;
      return mot.nombre == n ? Jugement::Valide : Jugement::Douteuse;
    }
    default:
      return Jugement::Refusee;
  }
}

// The characters of a number without its blanks, at most as many as any finite number needs; the digits beyond
// change nothing that a double holds.
class Chiffres {
 public:
  bool Prend(char c) {
    if (n_ == tampon_.size()) return false;
    tampon_[n_++] = c;
    return true;
  }
  void Rend(std::size_t n) { n_ = n; }
  [[nodiscard]] std::size_t Taille() const { return n_; }
  [[nodiscard]] bool Valeur(double& v) const {
    const auto fin = std::from_chars(tampon_.data(), tampon_.data() + n_, v);
    return fin.ec == std::errc{} && std::isfinite(v);
  }

 private:
  std::array<char, 400> tampon_;
  std::size_t n_ = 0;
};

}  // namespace

bool NombreEnTete(std::string_view texte, double& nombre) {
  nombre = 0;
  std::size_t i = 0;
  const auto suivant = [&] {  // the next character that is no blank, 0 behind the last
    while (i < texte.size() && base::EstBlanc(texte[i])) ++i;
    return i < texte.size() ? texte[i] : '\0';
  };
  Chiffres chiffres;
  bool negatif = false;
  if (suivant() == '-' || suivant() == '+') negatif = texte[i++] == '-';
  bool unChiffre = false;
  bool point = false;
  for (char c = suivant(); base::EstChiffre(c) || (c == '.' && !point); c = suivant()) {
    if (!chiffres.Prend(c)) return false;
    unChiffre = unChiffre || c != '.';
    point = point || c == '.';
    ++i;
  }
  if (!unChiffre) return false;
  const std::size_t mantisse = chiffres.Taille();
  if (suivant() == 'e' || suivant() == 'd') {
    ++i;
    bool exposant = chiffres.Prend('e');
    if (suivant() == '-' || suivant() == '+') {
      if (texte[i] == '-') exposant = exposant && chiffres.Prend('-');
      ++i;
    }
    bool chiffre = false;
    for (char c = suivant(); base::EstChiffre(c); c = suivant()) {
      exposant = exposant && chiffres.Prend(c);
      chiffre = true;
      ++i;
    }
    if (!exposant) return false;
    if (!chiffre) chiffres.Rend(mantisse);  // a word that begins with this letter, no exponent
  }
  if (!chiffres.Valeur(nombre)) {
    nombre = 0;
    return false;
  }
  if (negatif) nombre = -nombre;
  return true;
}

std::int32_t NumeroMot(const Mot& mot) { return Arrondi32(mot.nombre); }

Jugement JugeLigne(std::string_view ligne, std::vector<Mot>& mots) {
  mots.clear();
  if (ligne.empty() || !Majuscule(ligne.front())) {
    const bool commentaire = !ligne.empty() && (ligne.front() == ';' || ligne.front() == '(');
    return commentaire ? Jugement::Commentaire : Jugement::Refusee;
  }
  Jugement jugement = Jugement::Valide;
  for (std::size_t debut = 0; debut < ligne.size();) {
    std::size_t fin = debut + 1;
    while (fin < ligne.size() && !Majuscule(ligne[fin])) ++fin;
    Mot mot;
    mot.lettre = ligne[debut];
    mot.texte = ligne.substr(debut, fin - debut);
    mot.chiffre = NombreEnTete(mot.texte.substr(1), mot.nombre);
    const Jugement duMot = mot.texte.find(Separateur) == std::string_view::npos ? JugeMot(mot) : Jugement::Refusee;
    jugement = std::max(jugement, duMot);
    mots.push_back(mot);
    debut = fin;
  }
  return jugement;
}

void DecoupeLigne(const std::string& Ligne, std::vector<std::string>& Mots, Drapeau& Valide) {
  std::vector<Mot> mots;
  Valide = EstValide(JugeLigne(Ligne, mots)) ? Vrai : Faux;
  Mots.clear();
  for (const Mot& mot : mots) Mots.emplace_back(mot.texte);
}

}  // namespace ovelin
