#include "run/LigneDialecte.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Indices.h"
#include "base/Texte.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

constexpr std::array<double, 7> Puissances{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
constexpr long NumeroMaxi = 99'999;  // more digits of a line number not every control takes

// Letters of the languages that the program speaks, UTF-8, and what is left of them.
constexpr std::pair<std::string_view, std::string_view> Lettres[]{
    {"à", "a"}, {"á", "a"},  {"â", "a"}, {"ã", "a"}, {"ä", "ae"}, {"ç", "c"},  {"è", "e"},  {"é", "e"},  {"ê", "e"},
    {"ë", "e"}, {"ì", "i"},  {"í", "i"}, {"î", "i"}, {"ï", "i"},  {"ñ", "n"},  {"ò", "o"},  {"ó", "o"},  {"ô", "o"},
    {"õ", "o"}, {"ö", "oe"}, {"ù", "u"}, {"ú", "u"}, {"û", "u"},  {"ü", "ue"}, {"ß", "ss"}, {"œ", "oe"}, {"·", "."},
    {"À", "A"}, {"Á", "A"},  {"Â", "A"}, {"Ã", "A"}, {"Ä", "Ae"}, {"Ç", "C"},  {"È", "E"},  {"É", "E"},  {"Ê", "E"},
    {"Ë", "E"}, {"Ì", "I"},  {"Í", "I"}, {"Î", "I"}, {"Ï", "I"},  {"Ñ", "N"},  {"Ò", "O"},  {"Ó", "O"},  {"Ô", "O"},
    {"Õ", "O"}, {"Ö", "Oe"}, {"Ù", "U"}, {"Ú", "U"}, {"Û", "U"},  {"Ü", "Ue"}, {"Œ", "Oe"}, {"’", "'"}};

constexpr std::string_view Marques = " .,:+-=/_'[]";

bool EstTranquille(char c) {
  return base::EstLettre(c) || base::EstChiffre(c) || Marques.find(c) != std::string_view::npos;
}

std::string Nombre(double v, int decimales) {
  std::array<char, TailleNombreNC> tampon;
  std::string texte(tampon.data(), EcritNombreNC(tampon.data(), v, decimales));
  if (decimales == 0) return texte;
  texte.erase(texte.find_last_not_of('0') + 1);
  if (texte.back() == '.') texte.pop_back();
  return texte;
}

void Remplace(std::string& texte, std::string_view quoi, const std::string& par) {
  for (std::size_t p = texte.find(quoi); p != std::string::npos; p = texte.find(quoi, p + par.size())) {
    texte.replace(p, quoi.size(), par);
  }
}

}  // namespace

std::string EnAscii(std::string_view utf8) {
  std::string texte;
  while (!utf8.empty()) {
    std::size_t longueur = 1;
    while (longueur < utf8.size() && (base::Octet(utf8[longueur]) & 0xC0U) == 0x80U) ++longueur;
    const std::string_view lettre = utf8.substr(0, longueur);
    utf8.remove_prefix(longueur);
    const auto* connue = std::ranges::find(Lettres, lettre, &std::pair<std::string_view, std::string_view>::first);
    if (connue != std::end(Lettres)) {
      texte += connue->second;
    } else {
      texte += longueur == 1 && EstTranquille(lettre[0]) ? lettre[0] : '-';
    }
  }
  return texte;
}

std::string MotBroche(std::string_view modele, double tours) {
  constexpr std::string_view Place = "{S}";
  std::string texte(modele);
  if (tours > 0) {
    Remplace(texte, Place, Nombre(tours, 0));
    return texte;
  }
  for (std::size_t p = texte.find(Place); p != std::string::npos; p = texte.find(Place)) {
    const std::size_t blanc = texte.rfind(' ', p);
    const std::size_t debut = blanc == std::string::npos ? 0 : blanc;
    texte.erase(debut, p + Place.size() - debut);
  }
  return std::string(base::SansBlancs(texte));
}

std::string MotAttente(std::string_view modele, double secondes) {
  if (!(secondes > 0)) return "";
  std::string texte(modele);
  Remplace(texte, "{s}", Nombre(secondes, 3));
  Remplace(texte, "{ms}", Nombre(secondes * 1000, 0));
  return texte;
}

LigneDialecte::LigneDialecte(std::string& texte, EtatNC& etat, const Dialecte& dialecte, double x, double y)
    : texte_(texte),
      etat_(etat),
      d_(dialecte),
      departX_(x),
      departY_(y),
      echelle_(Puissances[base::Indice(dialecte.decimales)]),
      echelleAvance_(Puissances[base::Indice(dialecte.decimalesAvance)]) {
  ligne_.reserve(256);
}

LigneDialecte::Unites LigneDialecte::EnUnites(double v) const { return std::llround(v * echelle_); }

void LigneDialecte::Marque(std::string_view ligne) {
  texte_.append(ligne);
  texte_ += '\n';
  ++etat_.lignes;
  if (d_.longueur > 0 && base::Compte(ligne.size()) > d_.longueur) ++tropLongues_;
}

void LigneDialecte::Mot(std::string_view ligne) {
  if (ligne.empty()) return;
  if (d_.numeros == 0) return Marque(ligne);
  numero_ += d_.numeros;
  if (numero_ > NumeroMaxi) numero_ = d_.numeros;
  Marque("N" + std::to_string(numero_) + " " + std::string(ligne));
}

void LigneDialecte::Commentaire(std::string_view utf8) {
  if (d_.commentaires == FormeCommentaire::Aucun) return;
  const bool parentheses = d_.commentaires == FormeCommentaire::Parentheses;
  std::string texte(base::SansBlancs(utf8));
  for (char& c : texte) {
    if (c == '(') c = '[';
    if (c == ')') c = ']';
    if (base::Octet(c) < 32 || c == 127) c = ' ';
  }
  texte = d_.jeu == JeuCommentaire::Ascii ? EnAscii(texte) : EnTexte8(texte);
  const std::size_t place = d_.longueur > 0 ? base::Indice(d_.longueur) - 2 : texte.size();
  for (std::string_view reste = texte; !reste.empty();) {
    std::size_t n = std::min(place, reste.size());
    if (n < reste.size()) {
      const std::size_t blanc = reste.rfind(' ', n);
      if (blanc != std::string_view::npos && blanc > 0) n = blanc;
    }
    const std::string morceau(base::SansBlancs(reste.substr(0, n)));
    Marque(parentheses ? "(" + morceau + ")" : "; " + morceau);
    reste = base::SansBlancs(reste.substr(n));
  }
}

// F where it changes, in the line that is being made or before it. A feed is never written as 0, which would stop
// the machine for good.
bool LigneDialecte::Avance(float vitesse) {
  const auto avance = static_cast<double>(vitesse * 60.0F);  // in the width of a row
  const Unites f = std::max<Unites>(1, std::llround(avance * echelleAvance_));
  return std::exchange(avance_, f) != f;
}

void LigneDialecte::Debute(int mouvement) {
  ligne_.clear();
  if (!d_.repete && mouvement == mouvement_) return;
  mouvement_ = mouvement;
  ligne_ += 'G';
  if (d_.motsLongs) ligne_ += '0';
  ligne_ += static_cast<char>('0' + mouvement);
}

void LigneDialecte::Ajoute(char lettre, double v, int decimales) {
  std::array<char, TailleNombreNC> tampon;
  if (!ligne_.empty()) ligne_ += ' ';
  ligne_ += lettre;
  ligne_.append(tampon.data(), EcritNombreNC(tampon.data(), v, decimales));
}

void LigneDialecte::Place(double x, double y) {
  x_ = EnUnites(x);
  y_ = EnUnites(y);
  Ajoute('X', x, d_.decimales);
  Ajoute('Y', y, d_.decimales);
}

void LigneDialecte::Finit() { Mot(ligne_); }

void LigneDialecte::Rang(const Deplacement& ligne) {
  const auto x = static_cast<double>(ligne.X), y = static_cast<double>(ligne.Y), z = static_cast<double>(ligne.Z);
  const int mouvement = ligne.Z > 0 ? 0 : 1;  // the height alone decides, as in the program's own files
  const Unites ux = EnUnites(x), uy = EnUnites(y), uz = EnUnites(z);
  const bool depart = !x_ && ux == EnUnites(departX_) && uy == EnUnites(departY_);
  if (depart && mouvement == 1) {
    Debute(0);
    Place(departX_, departY_);
    Finit();
  }
  const bool plan = !depart && (x_ != ux || y_ != uy);
  etat_.Va(x, y, z, static_cast<double>(ligne.Vitesse));
  if (!plan && z_ == uz) return;
  const bool avance = mouvement == 1 && Avance(ligne.Vitesse);
  if (avance && d_.avanceSeule) {
    ligne_.clear();
    Ajoute('F', static_cast<double>(avance_) / echelleAvance_, d_.decimalesAvance);
    Finit();
  }
  Debute(mouvement);
  if (plan && !x_) {
    Place(x, y);
  } else if (plan) {
    if (std::exchange(x_, ux) != ux) Ajoute('X', x, d_.decimales);
    if (std::exchange(y_, uy) != uy) Ajoute('Y', y, d_.decimales);
  }
  if (std::exchange(z_, uz) != uz) Ajoute('Z', z, d_.decimales);
  if (avance && !d_.avanceSeule) Ajoute('F', static_cast<double>(avance_) / echelleAvance_, d_.decimalesAvance);
  Finit();
}

void LigneDialecte::Arc(const ArcNC& arc, const Deplacement& ligne) {
  const bool avance = Avance(ligne.Vitesse);
  if (avance && d_.avanceSeule) {
    ligne_.clear();
    Ajoute('F', static_cast<double>(avance_) / echelleAvance_, d_.decimalesAvance);
    Finit();
  }
  Debute(arc.horaire ? 2 : 3);
  Place(static_cast<double>(ligne.X), static_cast<double>(ligne.Y));
  Ajoute('I', arc.i, d_.decimales);
  Ajoute('J', arc.j, d_.decimales);
  if (avance && !d_.avanceSeule) Ajoute('F', static_cast<double>(avance_) / echelleAvance_, d_.decimalesAvance);
  Finit();
}

}  // namespace ovelin
