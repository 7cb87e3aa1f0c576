#include "closed/pathwerk/lecture/svg/Cadrage.h"

#include <algorithm>
#include <cmath>

namespace pathwerk::lecture::svg {

namespace {

constexpr double Em = 16;  // the font's size where nobody has set one

// Where the view lies along an axis whose viewport is longer by `reste`: "Min", "Mid", "Max" behind the letter of
// the axis.
double Decalage(std::string_view proportions, std::string_view axe, double reste) {
  const std::size_t i = proportions.find(axe);
  if (i == std::string_view::npos) return reste / 2;
  const std::string_view mot = proportions.substr(i + 1, 3);
  if (mot == "Min") return 0;
  return mot == "Max" ? reste : reste / 2;
}

// A length of the outermost element. What is relative, negative or nonsense says nothing.
std::optional<double> Dite(std::string_view texte, bool& avecUnite) {
  const auto l = LitLongueur(texte);
  if (!l || l->unite == UniteLongueur::Pourcent || !(l->valeur > 0) || !std::isfinite(l->valeur))
    return std::nullopt;
  avecUnite = avecUnite || l->Absolue();
  return EnPixels(*l, Em, 0);
}

}  // namespace

std::optional<Rectangle> LitViewBox(std::string_view texte) {
  const auto n = LitNombres(texte, 5);
  if (n.size() != 4 || !(n[2] > 0 && n[3] > 0)) return std::nullopt;
  if (!std::all_of(n.begin(), n.end(), [](double v) { return std::isfinite(v); })) return std::nullopt;
  return Rectangle{n[0], n[1], n[2], n[3]};
}

Matrice CadreVue(const Rectangle& vue, double largeur, double hauteur, std::string_view proportions) {
  double ex = largeur / vue.largeur;
  double ey = hauteur / vue.hauteur;
  double dx = 0;
  double dy = 0;
  if (proportions.find("none") == std::string_view::npos) {
    const bool coupe = proportions.find("slice") != std::string_view::npos;
    ex = ey = coupe ? std::max(ex, ey) : std::min(ex, ey);
    dx = Decalage(proportions, "xM", largeur - vue.largeur * ex);
    dy = Decalage(proportions, "YM", hauteur - vue.hauteur * ey);
  }
  return Translation(dx, dy) * Echelle(ex, ey) * Translation(-vue.x, -vue.y);
}

TailleDessin TailleDe(std::string_view largeur, std::string_view hauteur, const std::optional<Rectangle>& vue) {
  TailleDessin taille;
  auto l = Dite(largeur, taille.dite);
  auto h = Dite(hauteur, taille.dite);
  // One side alone: the other follows from the view.
  if (vue && l && !h) h = *l * vue->hauteur / vue->largeur;
  if (vue && h && !l) l = *h * vue->largeur / vue->hauteur;
  if (vue && !l) l = vue->largeur;
  if (vue && !h) h = vue->hauteur;
  taille.largeur = l.value_or(0);
  taille.hauteur = h.value_or(0);
  return taille;
}

}  // namespace pathwerk::lecture::svg
