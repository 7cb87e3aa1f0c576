#include "image/Palette.h"

#include <algorithm>
#include <cmath>

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
constexpr Encre Papier{nullptr, -2};  // whatever the theme has there
constexpr Encre DesSaignees{&Reglages::CouleurSaignee};
constexpr Encre DesEtroits{&Reglages::CouleurEtroit};
constexpr Encre DuHalo{&Reglages::CouleurHalo};
constexpr Encre DeLaCourse{&Reglages::CouleurCourse};
constexpr Encre DuDehors{&Reglages::CouleurHors};

// How the quiet picture differs.
struct Sobre {
  float opacite = 1;
  float largeur = 0;  // logical pixels; 0: as in the other column
  // To the paper, of what is left to be seen; the share rises until the line has it. 0: never asked for.
  double contraste = 0;
};

struct Ligne {
  Role role;
  Encre encre, fond;
  float largeur;  // logical pixels
  StyleTrait style;
  Sobre sobre = {};
};

constexpr double ContrastePale = 2.5;  // pale beside what is cut, and still a line that is found

// One row a role, in their order.
constexpr std::array<Ligne, NombreRoles> Table{{
    {Role::Etendue, Noir, Aucune, 1, StyleTrait::TiretPointPoint, {0.3F}},
    {Role::Dessin, DuDessin, Aucune, 1, StyleTrait::Plein},
    {Role::Selection, DeSelection, Aucune, 1.75F, StyleTrait::Plein, {1, 2}},
    {Role::Air, DuTrajet, Aucune, 1, StyleTrait::Pointille, {0.55F, 0, ContrastePale}},
    {Role::Trajet, DuTrajet, Aucune, 1, StyleTrait::Plein},
    {Role::TrajetNu, DuTrajet, Aucune, 1, StyleTrait::Pointille},
    {Role::Encoche, DesEncoches, Aucune, 1, StyleTrait::Pointille},
    {Role::Attache, DesEncoches, Aucune, 1, StyleTrait::Plein},
    {Role::Depart, DesDeparts, Aucune, 1, StyleTrait::Plein, {0.7F}},
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
    {Role::Feuille, DeLaCourse, Aucune, 1, StyleTrait::Plein, {0.05F}},
    {Role::BordFeuille, DeLaCourse, Aucune, 1, StyleTrait::Plein, {0.7F}},
    {Role::Grille, DeLaCourse, Aucune, 1, StyleTrait::Plein, {0.22F}},
    {Role::ZeroMachine, DeLaCourse, Papier, 1, StyleTrait::Plein},
    {Role::Saignee, DesSaignees, Aucune, 1, StyleTrait::Plein, {0.45F}},
    {Role::Poche, DesSaignees, Aucune, 1, StyleTrait::Plein, {0.45F}},
    {Role::TropEtroit, DesEtroits, Aucune, 1, StyleTrait::Plein, {1, 1.5F}},
    {Role::Hors, DuDehors, Aucune, 1, StyleTrait::Plein, {0.5F}},
    {Role::Halo, DuHalo, Aucune, 1, StyleTrait::Plein, {0.35F}},
    {Role::CadreSelection, DuHalo, Aucune, 1, StyleTrait::Pointille},
    {Role::Survol, DuHalo, Aucune, 1, StyleTrait::Plein, {0.22F}},
    {Role::Fantome, DuHalo, Aucune, 1, StyleTrait::Plein},
    {Role::Poignee, DuHalo, Papier, 1, StyleTrait::Plein},
    {Role::PointDessin, DuDessin, Papier, 1, StyleTrait::Plein},
    {Role::PointSelection, DeSelection, Papier, 1, StyleTrait::Plein},
    {Role::FondMesure, Papier, Aucune, 1, StyleTrait::Plein, {0.85F}},
    {Role::Rampe, DuTrajet, Aucune, 3, StyleTrait::Plein, {0.6F, 4}},
}};

constexpr bool DansLeurOrdre() {
  for (std::size_t i = 0; i < Table.size(); ++i) {
    if (Table[i].role != static_cast<Role>(i)) return false;
  }
  return true;
}
static_assert(DansLeurOrdre());

// `couleur` as this share of it looks on the paper.
std::int32_t Melee(std::int32_t couleur, float part, std::int32_t papier) {
  std::int32_t melee = 0;
  for (std::uint32_t bits = 0; bits < 24; bits += 8) {
    const auto octet = [bits](std::int32_t c) {
      return static_cast<float>((static_cast<std::uint32_t>(c) >> bits) & 255U);
    };
    const float valeur = octet(papier) + part * (octet(couleur) - octet(papier));
    melee += static_cast<std::int32_t>(std::lround(valeur)) << bits;
  }
  return melee;
}

// The same share lets less of a red line be seen on dark paper than on white.
float OpaciteVisible(const Sobre& sobre, std::int32_t couleur, std::int32_t papier) {
  float part = sobre.opacite;
  while (part < 1 && Contraste(Melee(couleur, part, papier), papier) < sobre.contraste) part += 0.05F;
  return std::min(part, 1.0F);
}

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

// A fixed fill stays as it is on any paper; a colour of the settings is lifted from it, farther for what is written
// than for what is drawn in it.
Palette ConstruitPalette(const Reglages& reglages, Theme theme) {
  Palette palette;
  palette.papier = PapierDe(theme);
  const auto enPapier = [](const Encre& encre) { return encre.reglage == nullptr && encre.fixe == Papier.fixe; };
  const auto teinte = [&](const Encre& encre) {
    if (enPapier(encre)) return palette.papier;
    return encre.reglage != nullptr ? reglages.*encre.reglage : encre.fixe;
  };
  for (std::size_t i = 0; i < Table.size(); ++i) {
    const Ligne& ligne = Table[i];
    Aspect& aspect = palette.aspects[i];
    const std::int32_t couleur = teinte(ligne.encre);
    aspect.couleur = enPapier(ligne.encre) ? couleur : CouleurLisible(couleur, palette.papier);
    aspect.fond = teinte(ligne.fond);
    if (ligne.fond.reglage != nullptr) aspect.fond = CouleurLisible(aspect.fond, palette.papier);
    const std::int32_t sous = aspect.fond == SansFond ? palette.papier : aspect.fond;
    aspect.couleurTexte = CouleurLisible(couleur, sous, ContrasteTexte);
    aspect.largeur = ligne.largeur;
    if (reglages.DessinSobre) {
      aspect.opacite = OpaciteVisible(ligne.sobre, aspect.couleur, palette.papier);
      if (ligne.sobre.largeur > 0) aspect.largeur = ligne.sobre.largeur;
    }
    aspect.style = ligne.style;
  }
  return palette;
}

float LargeurDe(const Primitive& ligne, const Palette& palette) {
  return ligne.mesure > 0 ? ligne.mesure / TwipsParPixel : palette[ligne.role].largeur;
}

}  // namespace ovelin
