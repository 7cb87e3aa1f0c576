#include "image/Palette.h"

#include "image/Vue.h"

namespace ovelin {

namespace {

constexpr std::array<float, 2> Pointille{1.5F, 2.5F};
constexpr std::array<float, 6> TiretPointPoint{8, 3, 1, 3, 1, 3};

// A colour of the settings, or a fixed one.
struct Encre {
  std::int32_t Reglages::*reglage = nullptr;
  std::int32_t fixe = SansFond;
};
constexpr Encre Aucune{};
constexpr Encre Noir{nullptr, Couleur(0, 0, 0)};
constexpr Encre Blanc{nullptr, Couleur(255, 255, 255)};
constexpr Encre DuDessin{&Reglages::CouleurInitial};
constexpr Encre DeSelection{&Reglages::Couleurselectionne};
constexpr Encre DuTrajet{&Reglages::CouleurDecalage};
constexpr Encre DesEncoches{&Reglages::CouleurEncoche};
constexpr Encre DesDeparts{&Reglages::CouleurNumero};
constexpr Encre DesNumeros{&Reglages::CouleurSequence};
constexpr Encre DesRapides{&Reglages::CouleurRapide};
constexpr Encre DesCoupes{&Reglages::CouleurCoupe};
constexpr Encre DesPlongees{&Reglages::CouleurPlongee};
constexpr Encre Gris{nullptr, Couleur(128, 128, 128)};

struct Ligne {
  Role role;
  Encre encre, fond;
  float largeur;  // logical pixels
  StyleTrait style;
};

// One row a role, in their order.
constexpr std::array<Ligne, NombreRoles> Table{{
    {Role::Etendue, Noir, Aucune, 1, StyleTrait::TiretPointPoint},
    {Role::Dessin, DuDessin, Aucune, 1, StyleTrait::Plein},
    {Role::Selection, DeSelection, Aucune, 1.75F, StyleTrait::Plein},
    {Role::Air, DuTrajet, Aucune, 1, StyleTrait::Pointille},
    {Role::Trajet, DuTrajet, Aucune, 1, StyleTrait::Plein},
    {Role::TrajetNu, DuTrajet, Aucune, 1, StyleTrait::Pointille},
    {Role::Encoche, DesEncoches, Aucune, 1, StyleTrait::Pointille},
    {Role::Attache, DesEncoches, Aucune, 1, StyleTrait::Plein},
    {Role::Depart, DesDeparts, Aucune, 1, StyleTrait::Plein},
    {Role::Numero, DesNumeros, Blanc, 1, StyleTrait::Plein},
    {Role::NumeroSelection, DesNumeros, DeSelection, 1, StyleTrait::Plein},
    {Role::Axes, DuDessin, Aucune, 1, StyleTrait::Plein},
    {Role::LegendeDessin, DuDessin, Aucune, 1, StyleTrait::Plein},
    {Role::LegendeTrajet, DuTrajet, Aucune, 1, StyleTrait::Plein},
    {Role::Echelle, DuDessin, Aucune, 1, StyleTrait::Plein},
    {Role::Croix, DuDessin, Aucune, 1, StyleTrait::Plein},
    {Role::Outil, DesNumeros, Aucune, 1, StyleTrait::Plein},
    {Role::Rapide, DesRapides, Aucune, 1, StyleTrait::Pointille},
    {Role::Coupe, DesCoupes, Aucune, 1, StyleTrait::Plein},
    {Role::Plongee, DesPlongees, Aucune, 1, StyleTrait::Plein},
    {Role::Boite, Gris, Aucune, 1, StyleTrait::Plein},
}};

constexpr bool DansLeurOrdre() {
  for (std::size_t i = 0; i < Table.size(); ++i) {
    if (Table[i].role != static_cast<Role>(i)) return false;
  }
  return true;
}
static_assert(DansLeurOrdre());

}  // namespace

std::span<const float> MotifDe(StyleTrait style) {
  switch (style) {
    case StyleTrait::Pointille:
      return Pointille;
    case StyleTrait::TiretPointPoint:
      return TiretPointPoint;
    case StyleTrait::Plein:
      break;
  }
  return {};
}

// A fixed fill stays as it is on any paper; a colour of the settings is lifted from it.
Palette ConstruitPalette(const Reglages& reglages, Theme theme) {
  Palette palette;
  palette.papier = PapierDe(theme);
  const auto teinte = [&](const Encre& encre) {
    return encre.reglage != nullptr ? reglages.*encre.reglage : encre.fixe;
  };
  for (std::size_t i = 0; i < Table.size(); ++i) {
    const Ligne& ligne = Table[i];
    Aspect& aspect = palette.aspects[i];
    const std::int32_t couleur = teinte(ligne.encre);
    aspect.couleur = CouleurLisible(couleur, palette.papier);
    aspect.fond = teinte(ligne.fond);
    if (ligne.fond.reglage != nullptr) aspect.fond = CouleurLisible(aspect.fond, palette.papier);
    aspect.couleurTexte = CouleurLisible(couleur, aspect.fond == SansFond ? palette.papier : aspect.fond);
    aspect.largeur = ligne.largeur;
    aspect.style = ligne.style;
  }
  return palette;
}

float LargeurDe(const Primitive& ligne, const Palette& palette) {
  return ligne.mesure > 0 ? ligne.mesure / TwipsParPixel : palette[ligne.role].largeur;
}

}  // namespace ovelin
