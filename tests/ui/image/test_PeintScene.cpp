// From primitives to pixels: order, styles, colours, widths; smooth and quick lines alike.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <limits>

#include "core/Reglages.h"
#include "core/ui/Theme.h"
#include "image/Vue.h"
#include "image/ui/PeintScene.h"
#include "tests/ui/image/Atelier.h"

namespace {

using namespace ovelin;
using essai::Compte;
using essai::Ecart;

// What the tests draw with: red, blue, green; dots and dashes in blue.
constexpr Role Rouge = Role::Dessin;
constexpr Role Bleu = Role::Trajet;
constexpr Role Vert = Role::Depart;
constexpr Role RougeLarge = Role::Selection;
constexpr Role BleuPointille = Role::Air;
constexpr Role BleuTirets = Role::Etendue;

Palette Couleurs() {
  Palette p = ConstruitPalette(Reglages{.DessinSobre = false}, Theme::Clair);
  const auto teint = [&p](Role role, std::int32_t couleur) {
    Aspect& aspect = p.aspects[static_cast<std::size_t>(role)];
    aspect.couleur = aspect.couleurTexte = couleur;
  };
  for (const Role role : {Rouge, RougeLarge}) teint(role, Couleur(255, 0, 0));
  for (const Role role : {Bleu, BleuPointille, BleuTirets}) teint(role, Couleur(0, 0, 255));
  teint(Vert, Couleur(0, 110, 0));
  return p;
}

// Places in logical pixels.
Scene& Ajoute(Scene& scene, Primitive p, const std::vector<std::pair<float, float>>& places) {
  p.premier = static_cast<std::uint32_t>(scene.Points.size());
  p.nombre = static_cast<std::uint32_t>(places.size());
  for (const auto& [x, y] : places) scene.Points.push_back({x * TwipsParPixel, y * TwipsParPixel});
  scene.Primitives.push_back(p);
  return scene;
}

Primitive Trait(Role role) {
  Primitive p;
  p.role = role;
  return p;
}

Primitive Marque(Genre genre, Role role, float pixels) {
  Primitive p;
  p.genre = genre;
  p.role = role;
  p.mesure = pixels * TwipsParPixel;
  return p;
}

QImage Peint(const Scene& scene, double echelle = 1, const Palette& palette = Couleurs()) {
  QImage image(QSize(100, 100) * echelle, QImage::Format_RGB32);
  image.setDevicePixelRatio(echelle);
  image.fill(EnCouleur(palette.papier));
  QPainter p(&image);
  PeintScene(p, scene, palette);
  return image;
}

// So many points beside the picture that lines are no longer smooth.
void Alourdit(Scene& scene) {
  std::vector<std::pair<float, float>> dehors;
  for (int i = 0; i < 50'000; ++i) dehors.emplace_back(-50.0F - static_cast<float>(i % 2), -50.0F);
  Ajoute(scene, Trait(Rouge), dehors);
}

TEST(PeintScene, WhatComesLaterInTheListLiesOnTop) {
  for (const bool lourde : {false, true}) {
    Scene scene;
    if (lourde) Alourdit(scene);
    Ajoute(scene, Marque(Genre::Carres, Rouge, 20), {{30, 30}});
    Ajoute(scene, Trait(Bleu), {{30, 10}, {30, 90}});
    Ajoute(scene, Marque(Genre::Disque, Vert, 6), {{30, 70}});
    Palette palette = Couleurs();
    palette.aspects[static_cast<std::size_t>(Vert)].fond = Couleur(0, 110, 0);
    const QImage image = Peint(scene, 1, palette);
    EXPECT_LT(Ecart(image.pixelColor(24, 30), QColor(255, 0, 0)), 60);
    EXPECT_GT(image.pixelColor(30, 30).blue() + image.pixelColor(29, 30).blue(), 200) << "the line over the square";
    EXPECT_LT(Ecart(image.pixelColor(30, 70), QColor(0, 110, 0)), 60) << "the disc over the line";
  }
}

TEST(PeintScene, EachGenreMarksItsPlaceInItsSize) {
  Scene scene;
  Ajoute(scene, Marque(Genre::Points, Rouge, 6), {{20, 20}});
  Ajoute(scene, Marque(Genre::Carres, Bleu, 9), {{50, 20}});
  Ajoute(scene, Marque(Genre::Fleches, Vert, 0), {{70, 15}, {80, 20}, {70, 25}});
  const QImage image = Peint(scene);
  EXPECT_EQ(Compte(image, QColor(0, 0, 255), 10), 81);
  EXPECT_NEAR(Compte(image, QColor(255, 0, 0), 150), 28, 6);
  EXPECT_NEAR(Compte(image, QColor(0, 110, 0), 150), 45, 8);
  EXPECT_LT(Ecart(image.pixelColor(20, 20), QColor(255, 0, 0)), 30);
  EXPECT_LT(Ecart(image.pixelColor(73, 20), QColor(0, 110, 0)), 30);
}

TEST(PeintScene, ADottedLineLeavesPaperBetweenItsDotsAndADashedOneLess) {
  for (const bool lourde : {false, true}) {
    const auto compte = [&](Role role) {
      Scene scene;
      if (lourde) Alourdit(scene);
      Ajoute(scene, Trait(role), {{5.5F, 50.5F}, {95.5F, 50.5F}});
      return Compte(Peint(scene), QColor(0, 0, 255), 300);
    };
    EXPECT_GE(compte(Bleu), 89) << lourde;
    EXPECT_GT(compte(BleuPointille), 20) << lourde;
    EXPECT_LT(compte(BleuPointille), 60) << lourde;
    EXPECT_GT(compte(BleuTirets), compte(BleuPointille)) << lourde;
    EXPECT_LT(compte(BleuTirets), 80) << lourde;
  }
}

TEST(PeintScene, DashesGoOnFromOneStretchToTheNext) {
  Scene une;
  Scene plusieurs;
  Alourdit(une);
  Alourdit(plusieurs);
  Ajoute(une, Trait(BleuPointille), {{5, 50.5F}, {95, 50.5F}});
  std::vector<std::pair<float, float>> points;
  for (int i = 0; i <= 45; ++i) points.emplace_back(5.0F + 2 * static_cast<float>(i), 50.5F);
  Ajoute(plusieurs, Trait(BleuPointille), points);
  EXPECT_NEAR(Compte(Peint(une), QColor(0, 0, 255)), Compte(Peint(plusieurs), QColor(0, 0, 255)), 25);
  EXPECT_LT(Compte(Peint(plusieurs), QColor(0, 0, 255)), 70) << "a line of short stretches is dotted too";
}

TEST(PeintScene, QuickLinesLieWhereSmoothOnesDo) {
  const std::vector<std::pair<float, float>> zigzag{{10, 10}, {80, 20},    {30, 90},
                                                    {31, 12}, {90, 88.5F}, {10, 88.5F}};
  for (const double echelle : {1.0, 2.0}) {
    Scene legere;
    Ajoute(legere, Trait(Bleu), zigzag);
    Scene lourde;
    Alourdit(lourde);
    Ajoute(lourde, Trait(Bleu), zigzag);
    const QImage a = Peint(legere, echelle);
    const QImage b = Peint(lourde, echelle);
    const auto encre = [](const QImage& image, int x, int y) {
      int meilleure = 0;
      for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
          if (image.rect().contains(x + dx, y + dy)) {
            meilleure = std::max(meilleure, 255 - image.pixelColor(x + dx, y + dy).red());
          }
        }
      }
      return meilleure;
    };
    for (int y = 0; y < a.height(); ++y) {
      for (int x = 0; x < a.width(); ++x) {
        const std::string ou = std::to_string(x) + " " + std::to_string(y);
        EXPECT_TRUE(a.pixelColor(x, y).red() >= 100 || encre(b, x, y) > 200) << ou;
        EXPECT_TRUE(b.pixelColor(x, y).red() >= 100 || encre(a, x, y) > 60) << ou;
      }
    }
  }
}

TEST(PeintScene, LinesHaveOneLogicalPixelOnEveryScreen) {
  for (const double echelle : {1.0, 2.0, 3.0}) {
    Scene scene;
    Alourdit(scene);
    Ajoute(scene, Trait(Bleu), {{50.2F, 10.2F}, {50.2F, 90.2F}});
    const QImage image = Peint(scene, echelle);
    int large = 0;
    for (int x = 0; x < image.width(); ++x) large += image.pixelColor(x, image.height() / 2).red() < 100 ? 1 : 0;
    EXPECT_EQ(large, static_cast<int>(echelle));
  }
}

// Ink of the line that stands upright at x = `place`, in widths of a line of one pixel.
double Largeur(const QImage& image, int place) {
  int encre = 0;
  for (int x = place - 15; x < place + 15; ++x) encre += 255 - image.pixelColor(x, 50).green();
  return encre / 255.0;
}

TEST(PeintScene, LinesOfTheSelectionAreWiderAlsoInTheColourOfTheOthers) {
  for (const bool lourde : {false, true}) {
    Scene scene;
    if (lourde) Alourdit(scene);
    Ajoute(scene, Trait(Rouge), {{20.5F, 10}, {20.5F, 90}});
    Ajoute(scene, Trait(RougeLarge), {{60.5F, 10}, {60.5F, 90}});
    const QImage image = Peint(scene);
    EXPECT_NEAR(Largeur(image, 20), 1, 0.15) << lourde;
    EXPECT_NEAR(Largeur(image, 60), lourde ? 2 : 1.75, 0.15) << lourde;
  }
}

TEST(PeintScene, ALineMayHaveAWidthOfItsOwnWithRoundEnds) {
  for (const bool lourde : {false, true}) {
    Scene scene;
    if (lourde) Alourdit(scene);
    Primitive large = Trait(Bleu);
    large.mesure = 12 * TwipsParPixel;
    Ajoute(scene, large, {{50.5F, 40}, {50.5F, 60}});
    for (const double echelle : {1.0, 2.0}) {
      const QImage image = Peint(scene, echelle).scaled(100, 100);
      EXPECT_NEAR(Largeur(image, 50), 12, 1) << lourde;
      EXPECT_LT(Ecart(image.pixelColor(50, 36), QColor(0, 0, 255)), 60) << "six pixels beyond the end";
      EXPECT_GT(image.pixelColor(55, 36).red(), 150) << "round";
      EXPECT_EQ(image.pixelColor(50, 32), QColor(Qt::white));
    }
  }
}

TEST(PeintScene, AnAreaIsFilledButForItsHole) {
  Scene scene;
  // A square of 60 pixels, a way in, a square of 20 in it, the same way back.
  Ajoute(scene, Marque(Genre::Aire, Bleu, 0),
         {{20, 20},
          {80, 20},
          {80, 80},
          {20, 80},
          {20, 20},
          {40, 40},
          {40, 60},
          {60, 60},
          {60, 40},
          {40, 40},
          {20, 20}});
  EXPECT_NEAR(Compte(Peint(scene), QColor(0, 0, 255), 60), 60 * 60 - 20 * 20, 60);
  EXPECT_EQ(Peint(scene).pixelColor(50, 50), QColor(Qt::white));
}

TEST(PeintScene, LinesFarBeyondTheEdgeAreHarmless) {
  Scene scene;
  Alourdit(scene);
  Ajoute(scene, Trait(BleuPointille), {{-500, 50}, {600, 50}});
  Ajoute(scene, Trait(Bleu), {{50, -500}, {50, 600}});
  Ajoute(scene, Trait(Bleu), {{-500, -500}, {-400, 900}});
  const float infini = std::numeric_limits<float>::infinity();
  Ajoute(scene, Trait(Bleu), {{20, 20}, {1e30F, 20}, {infini, infini}, {-1e30F, 3}});
  Ajoute(scene, Trait(BleuPointille), {{std::numeric_limits<float>::quiet_NaN(), 20}, {1e9F, 20}});
  const QImage image = Peint(scene);
  EXPECT_LT(image.pixelColor(50, 5).red(), 100);
  EXPECT_LT(image.pixelColor(50, 95).red(), 100);
  EXPECT_LT(Compte(image, QColor(0, 0, 255)), 200);
}

TEST(PeintScene, ATextStandsAroundItsPlaceOrBelowIt) {
  Scene scene;
  scene.Textes.emplace_back("8");
  Primitive texte = Marque(Genre::Texte, Rouge, 0);
  Ajoute(scene, texte, {{50, 50}});
  const auto etendue = [](const QImage& image) {
    QRect r;
    for (int y = 0; y < 100; ++y) {
      for (int x = 0; x < 100; ++x) {
        if (image.pixelColor(x, y) != QColor(Qt::white)) r = r.united(QRect(x, y, 1, 1));
      }
    }
    return r;
  };
  const QRect centre = etendue(Peint(scene));
  EXPECT_NEAR(centre.center().x(), 50, 2);
  EXPECT_NEAR(centre.center().y(), 50, 3);
  scene.Primitives[0].ancre = Ancre::HautGauche;
  const QRect dessous = etendue(Peint(scene));
  EXPECT_GE(dessous.left(), 50);
  EXPECT_GE(dessous.top(), 50);
}

TEST(PeintScene, ANumberIsTakenFromTheGroundOfItsDisc) {
  Reglages reglages{.DessinSobre = false};
  reglages.CouleurSequence = Couleur(0, 0, 255);
  reglages.Couleurselectionne = Couleur(0, 0, 200);  // the number would be blue on blue
  Scene scene;
  scene.AjouteDisque(Role::NumeroSelection, {50 * TwipsParPixel, 50 * TwipsParPixel}, 20 * TwipsParPixel);
  scene.AjouteTexte(Role::NumeroSelection, {50 * TwipsParPixel, 50 * TwipsParPixel}, Ancre::Centre, "8");
  const QImage image = Peint(scene, 1, ConstruitPalette(reglages, Theme::Clair));
  int lisibles = 0;
  for (int y = 40; y < 60; ++y) {
    for (int x = 40; x < 60; ++x) lisibles += image.pixelColor(x, y).red() > 60 ? 1 : 0;
  }
  EXPECT_GT(lisibles, 4);
}

TEST(PeutLisser, FewLinesAreSmoothManyAreNot) {
  Scene scene;
  Ajoute(scene, Trait(Bleu), {{0, 0}, {90, 90}});
  EXPECT_TRUE(PeutLisser(scene, Couleurs(), 1));
  EXPECT_TRUE(PeutLisser(scene, Couleurs(), 2));
  Alourdit(scene);
  EXPECT_FALSE(PeutLisser(scene, Couleurs(), 1));
}

TEST(PeutLisser, DotsOfLongDottedLinesCount) {
  Scene scene;
  for (int i = 0; i < 300; ++i) Ajoute(scene, Trait(BleuPointille), {{0, 0}, {2000, 1000}});
  EXPECT_FALSE(PeutLisser(scene, Couleurs(), 1));
  for (Primitive& p : scene.Primitives) p.role = Bleu;
  EXPECT_TRUE(PeutLisser(scene, Couleurs(), 1));
}

TEST(PeutLisser, WideLinesCountForMore) {
  Scene scene;
  std::vector<std::pair<float, float>> points;
  for (int i = 0; i < 20'000; ++i) points.emplace_back(static_cast<float>(i % 97), static_cast<float>(i % 89));
  Ajoute(scene, Trait(Rouge), points);
  EXPECT_TRUE(PeutLisser(scene, Couleurs(), 1));
  EXPECT_FALSE(PeutLisser(scene, Couleurs(), 2));
  for (Primitive& p : scene.Primitives) p.role = RougeLarge;
  EXPECT_FALSE(PeutLisser(scene, Couleurs(), 1));
}

TEST(MesureDe, TellsTheFontInTwips) {
  const QFont police = QApplication::font();
  const QFontMetricsF mesure(police);
  const TailleTexte taille = MesureDe(police)("1234");
  EXPECT_NEAR(static_cast<double>(taille.largeur), mesure.horizontalAdvance(QStringLiteral("1234")) * 15, 1);
  EXPECT_NEAR(static_cast<double>(taille.hauteur), mesure.height() * 15, 1);
}

// Bands of half opacity that cross, and a fainter one over them; with so many points that they are made of bits or
// with few.
Scene Croix(bool nombreux) {
  Scene scene;
  const auto bande = [&](std::uint8_t force, float x0, float y0, float x1, float y1) {
    Primitive p = Marque(Genre::Ligne, Role::Saignee, 10);
    p.force = force;
    std::vector<std::pair<float, float>> places;
    const int n = nombreux ? 3000 : 1;
    for (int i = 0; i <= n; ++i) {
      const float t = static_cast<float>(i) / static_cast<float>(n);
      places.emplace_back(x0 + t * (x1 - x0), y0 + t * (y1 - y0));
    }
    Ajoute(scene, p, places);
  };
  bande(255, 10, 40, 90, 40);
  bande(255, 50, 10, 50, 70);
  bande(128, 75, 10, 75, 70);
  return scene;
}

Palette Sobre() {
  Palette p = ConstruitPalette(Reglages{}, Theme::Clair);
  Aspect& a = p.aspects[static_cast<std::size_t>(Role::Saignee)];
  a.couleur = Couleur(0, 0, 255);
  a.opacite = 0.5F;
  return p;
}

TEST(PeintScene, StrokesOfOneSurfaceGetNoDarkerWhereTheyMeetAndTheLaterOneCounts) {
  for (const bool nombreux : {false, true}) {
    for (const int echelle : {1, 2}) {
      const QImage image = Peint(Croix(nombreux), echelle, Sobre());
      const auto rouge = [&](int x, int y) { return image.pixelColor(x * echelle, y * echelle).red(); };
      EXPECT_NEAR(rouge(25, 40), 128, 3) << nombreux;
      EXPECT_NEAR(rouge(50, 40), 128, 3) << nombreux;
      EXPECT_NEAR(rouge(75, 20), 191, 3) << nombreux;
      EXPECT_NEAR(rouge(75, 40), 191, 3) << nombreux;
      EXPECT_EQ(rouge(25, 60), 255);
    }
  }
}

TEST(PeintScene, ASurfaceOfManyStrokesHasTheWidthOfOneOfFew) {
  const auto encre = [](bool nombreux) {
    const QImage image = Peint(Croix(nombreux), 1, Sobre());
    double somme = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) somme += 255 - image.pixelColor(x, y).red();
    }
    return somme;
  };
  EXPECT_NEAR(encre(true) / encre(false), 1, 0.15);  // whole pixels: 11 for 10
}

TEST(PeintScene, AnEndOfABandIsRoundAlsoWhereItIsMadeOfBits) {
  const QImage image = Peint(Croix(true), 1, Sobre());
  EXPECT_LT(image.pixelColor(6, 40).red(), 255);  // 4 pixels before the end
  EXPECT_EQ(image.pixelColor(6, 36).red(), 255);  // and outside of the half disc
}

TEST(PeintScene, ADottedLineOfARoleThatIsSeenThroughIsPale) {
  Scene lourde;
  Alourdit(lourde);
  Ajoute(lourde, Trait(Bleu), {{10, 50}, {90, 50}});
  Palette palette = Couleurs();
  palette.aspects[static_cast<std::size_t>(Bleu)].opacite = 0.25F;
  EXPECT_NEAR(Peint(lourde, 1, palette).pixelColor(50, 50).red(), 191, 4);
}

}  // namespace
