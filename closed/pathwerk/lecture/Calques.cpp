#include "closed/pathwerk/lecture/Calques.h"

#include <array>
#include <limits>

#include "base/Indices.h"

namespace pathwerk::lecture {

namespace {

constexpr std::uint32_t Rvb(int r, int v, int b) {
  return static_cast<std::uint32_t>(r) << 16 | static_cast<std::uint32_t>(v) << 8 | static_cast<std::uint32_t>(b);
}

}  // namespace

std::uint16_t TableCalques::Place(Calque::Genre genre, std::string_view nom, std::optional<std::uint32_t> couleur) {
  nom = nom.substr(0, NomCalqueMax);
  if (nom.empty() && !couleur) return 0;
  const Calque& dernier = calques_[derniere_];
  if (derniere_ != 0 && dernier.Nom == nom && dernier.Couleur == couleur && dernier.Sorte == genre)
    return derniere_;
  std::string cle = std::to_string(static_cast<int>(genre)) + (couleur ? std::to_string(*couleur) : "");
  cle.append(1, '\0').append(nom);
  const auto connu = places_.find(cle);
  if (connu != places_.end()) return derniere_ = connu->second;
  if (calques_.size() > std::numeric_limits<std::uint16_t>::max()) return 0;
  derniere_ = static_cast<std::uint16_t>(calques_.size());
  calques_.push_back({genre, std::string(nom), couleur});
  places_.emplace(std::move(cle), derniere_);
  return derniere_;
}

// 10 to 249: 24 hues of 15 degrees in tens, in each five values from light to dark, by turns full and half
// saturated.
std::optional<std::uint32_t> CouleurDePalette(int numero) {
  constexpr std::array<std::uint32_t, 10> Premieres{0,        0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                                    0x0000FF, 0xFF00FF, 0,        0x808080, 0xC0C0C0};
  constexpr std::array<double, 5> Valeurs{1, 0.65, 0.5, 0.3, 0.15};
  if (numero < 1 || numero > 255 || numero == 7) return std::nullopt;
  if (numero < 10) return Premieres[base::Indice(numero)];
  if (numero >= 250) {
    const int gris = static_cast<int>(51 + (numero - 250) * 40.8);
    return Rvb(gris, gris, gris);
  }
  const double haut = 255 * Valeurs[base::Indice(numero % 10 / 2)];
  const double bas = numero % 2 == 0 ? 0 : haut / 2;
  const int quart = (numero - 10) / 10;  // of a sixth of the circle
  const double part = quart % 4 / 4.0;
  const int montant = static_cast<int>(bas + (haut - bas) * part);
  const int descendant = static_cast<int>(bas + (haut - bas) * (1 - part));
  const int h = static_cast<int>(haut);
  const int b = static_cast<int>(bas);
  switch (quart / 4) {
    case 0:
      return Rvb(h, montant, b);
    case 1:
      return Rvb(descendant, h, b);
    case 2:
      return Rvb(b, h, montant);
    case 3:
      return Rvb(b, descendant, h);
    case 4:
      return Rvb(montant, b, h);
    default:
      return Rvb(h, b, descendant);
  }
}

}  // namespace pathwerk::lecture
