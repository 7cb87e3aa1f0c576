// How roles look: colours of the settings, widths, dashes, on light and dark paper.
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "image/Palette.h"
#include "image/Vue.h"

namespace {

using namespace ovelin;

// Dark enough to stay as they are on white.
Reglages SixCouleurs() {
  Reglages r;
  r.CouleurNumero = Couleur(1, 0, 0);
  r.CouleurSequence = Couleur(2, 0, 0);
  r.CouleurInitial = Couleur(3, 0, 0);
  r.Couleurselectionne = Couleur(4, 0, 0);
  r.CouleurDecalage = Couleur(5, 0, 0);
  r.CouleurEncoche = Couleur(6, 0, 0);
  return r;
}

TEST(Palette, EachRoleHasTheColourOfItsSetting) {
  const Palette p = ConstruitPalette(SixCouleurs(), Theme::Clair);
  const std::pair<Role, int> rouges[] = {
      {Role::Dessin, 3},        {Role::Selection, 4},       {Role::Air, 5},     {Role::Trajet, 5},
      {Role::TrajetNu, 5},      {Role::Encoche, 6},         {Role::Attache, 6}, {Role::Depart, 1},
      {Role::Numero, 2},        {Role::NumeroSelection, 2}, {Role::Axes, 3},    {Role::LegendeDessin, 3},
      {Role::LegendeTrajet, 5}, {Role::Croix, 3},           {Role::Outil, 2},   {Role::Rampe, 5}};
  for (const auto& [role, rouge] : rouges) EXPECT_EQ(p[role].couleur, Couleur(rouge, 0, 0)) << rouge;
  EXPECT_EQ(p[Role::Etendue].couleur, Couleur(0, 0, 0));
}

TEST(Palette, DiscsOfNumbersAreWhiteOrInTheColourOfTheSelection) {
  const Palette p = ConstruitPalette(SixCouleurs(), Theme::Clair);
  EXPECT_EQ(p[Role::Numero].fond, Couleur(255, 255, 255));
  EXPECT_EQ(p[Role::NumeroSelection].fond, Couleur(4, 0, 0));
  EXPECT_EQ(p[Role::Outil].fond, SansFond);
  EXPECT_EQ(ConstruitPalette(SixCouleurs(), Theme::Sombre)[Role::Numero].fond, Couleur(255, 255, 255));
}

TEST(Palette, DashesFollowTheRole) {
  const Palette p = ConstruitPalette(Reglages{.DessinSobre = false}, Theme::Clair);
  EXPECT_EQ(static_cast<int>(p[Role::Etendue].style), 4);  // dash dot dot
  for (const Role role : {Role::Air, Role::TrajetNu, Role::Encoche}) EXPECT_EQ(static_cast<int>(p[role].style), 2);
  for (const Role role : {Role::Dessin, Role::Selection, Role::Trajet, Role::Axes, Role::Croix}) {
    EXPECT_EQ(static_cast<int>(p[role].style), 0);
  }
  EXPECT_TRUE(MotifDe(StyleTrait::Plein).empty());
  EXPECT_EQ(MotifDe(StyleTrait::Pointille).size(), 2U);
  EXPECT_EQ(MotifDe(StyleTrait::TiretPointPoint).size(), 6U);  // a dash, two dots, and what lies between
}

TEST(Palette, TheSelectionIsWiderAlsoInTheColourOfTheOthers) {
  Reglages r;
  r.Couleurselectionne = r.CouleurInitial;
  const Palette p = ConstruitPalette(r, Theme::Clair);
  EXPECT_EQ(p[Role::Selection].couleur, p[Role::Dessin].couleur);
  EXPECT_GT(p[Role::Selection].largeur, p[Role::Dessin].largeur);
}

// Graphics at 3 to 1 from the paper, texts at 4.5 to 1 from what lies under them.
void JugePalette(const Palette& p) {
  for (std::size_t i = 0; i < NombreRoles; ++i) {
    const Aspect& aspect = p.aspects[i];
    if (static_cast<Role>(i) == Role::FondMesure) {
      EXPECT_EQ(aspect.couleur, p.papier) << "the paper itself";
      continue;
    }
    EXPECT_GE(Contraste(aspect.couleur, p.papier), 3) << i;
    const std::int32_t sous = aspect.fond == SansFond ? p.papier : aspect.fond;
    EXPECT_GE(Contraste(aspect.couleurTexte, sous), 4.5) << i;
  }
}

TEST(Palette, EveryColourCanBeToldFromLightAndFromDarkPaper) {
  for (const Theme theme : {Theme::Clair, Theme::Sombre}) {
    for (const std::int32_t couleur : {Couleur(0, 0, 0), Couleur(255, 255, 255), Couleur(255, 255, 0),
                                       Couleur(0, 0, 90), Couleur(128, 128, 128), Couleur(255, 0, 0)}) {
      Reglages r;
      r.CouleurNumero = r.CouleurSequence = r.CouleurInitial = couleur;
      r.Couleurselectionne = r.CouleurDecalage = r.CouleurEncoche = couleur;
      r.CouleurRapide = r.CouleurCoupe = r.CouleurPlongee = r.CouleurSaignee = couleur;
      r.CouleurEtroit = r.CouleurHalo = r.CouleurCourse = r.CouleurHors = couleur;
      JugePalette(ConstruitPalette(r, theme));
    }
  }
}

TEST(Palette, TheDeliveredColoursCanBeToldAndReadOnLightAndOnDarkPaper) {
  for (const bool sobre : {false, true}) {
    for (const Theme theme : {Theme::Clair, Theme::Sombre}) {
      JugePalette(ConstruitPalette(Reglages{.DessinSobre = sobre}, theme));
    }
  }
}

TEST(LargeurDe, IsThatOfTheRoleUnlessTheLineHasItsOwn) {
  const Palette p = ConstruitPalette(Reglages{.DessinSobre = false}, Theme::Clair);
  Primitive ligne;
  ligne.role = Role::Selection;
  EXPECT_EQ(LargeurDe(ligne, p), 1.75F);
  ligne.mesure = 6 * TwipsParPixel;
  EXPECT_EQ(LargeurDe(ligne, p), 6);
}

}  // namespace
