// From primitives to the pixels of a file: places, sizes, widths, dashes, fills.
#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>

#include "image/PeintFichier.h"

namespace {

using namespace ovelin;

constexpr TailleImage Image{100 * TwipsParPixel, 80 * TwipsParPixel};

// A PNG in memory, as its pixels.
class Pixels {
 public:
  explicit Pixels(const std::string& octets) : octets_(octets) {
    surface_.reset(cairo_image_surface_create_from_png_stream(Donne, this));
    cairo_surface_flush(surface_.get());
  }
  [[nodiscard]] int Largeur() const { return cairo_image_surface_get_width(surface_.get()); }
  [[nodiscard]] int Hauteur() const { return cairo_image_surface_get_height(surface_.get()); }
  // 0xRRGGBB
  [[nodiscard]] unsigned En(int x, int y) const {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel,
                cairo_image_surface_get_data(surface_.get()) +
                    static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface_.get()) +
                    std::ptrdiff_t{4} * x,
                4);
    return pixel & 0xFFFFFFU;
  }
  // What is missing to white in green, in whole pixels, over a rectangle.
  [[nodiscard]] double Encre(int x0, int y0, int x1, int y1) const {
    double encre = 0;
    for (int y = y0; y < y1; ++y) {
      for (int x = x0; x < x1; ++x) encre += 255.0 - ((En(x, y) >> 8U) & 255U);
    }
    return encre / 255;
  }

 private:
  struct Rend {
    void operator()(cairo_surface_t* s) const { cairo_surface_destroy(s); }
  };
  static cairo_status_t Donne(void* lui, unsigned char* ou, unsigned int nombre) {
    auto& p = *static_cast<Pixels*>(lui);
    if (p.place_ + nombre > p.octets_.size()) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(ou, p.octets_.data() + p.place_, nombre);
    p.place_ += nombre;
    return CAIRO_STATUS_SUCCESS;
  }
  std::string octets_;
  std::size_t place_ = 0;
  std::unique_ptr<cairo_surface_t, Rend> surface_;
};

// In pixels.
PointEcran P(float x, float y) { return {x * TwipsParPixel, y * TwipsParPixel}; }

void Ajoute(Scene& scene, Genre genre, Role role, float pixels, const std::vector<PointEcran>& places) {
  Primitive p;
  p.genre = genre;
  p.role = role;
  p.mesure = pixels * TwipsParPixel;
  scene.Ajoute(p, places);
}

// The roles in their delivered colours: drawing black, tool path red, notches dark blue.
Palette Couleurs() { return ConstruitPalette(Reglages{.DessinSobre = false}, Theme::Clair); }

Pixels Peint(const Scene& scene, const Palette& palette = Couleurs()) {
  return Pixels(PeintPng(scene, palette, Image));
}

TEST(PeintPng, HasTheSizeInPixelsAndThePaperOfTheTheme) {
  const Pixels clair = Peint(Scene{});
  EXPECT_EQ(clair.Largeur(), 100);
  EXPECT_EQ(clair.Hauteur(), 80);
  EXPECT_EQ(clair.En(0, 0), 0xFFFFFFU);
  EXPECT_EQ(clair.En(99, 79), 0xFFFFFFU);
  EXPECT_EQ(Peint(Scene{}, ConstruitPalette(Reglages{.DessinSobre = false}, Theme::Sombre)).En(50, 40),
            0x242629U);  // 36, 38, 41
}

TEST(PeintPng, LinesHaveTheWidthOfTheirRoleOrTheirOwn) {
  Scene scene;
  scene.AjouteSegment(Role::Dessin, P(20.5F, 5), P(20.5F, 75));
  scene.AjouteSegment(Role::Selection, P(50.5F, 5), P(50.5F, 75));
  Ajoute(scene, Genre::Ligne, Role::Trajet, 12, {P(80, 20), P(80, 60)});
  const Pixels image = Peint(scene);
  EXPECT_NEAR(image.Encre(10, 40, 30, 41), 1, 0.02);
  EXPECT_NEAR(image.Encre(40, 40, 60, 41), 1.75, 0.02);
  EXPECT_NEAR(image.Encre(65, 40, 95, 41), 12, 0.02);
  EXPECT_EQ(image.En(80, 40), 0xFF0000U);
  EXPECT_EQ(image.En(20, 40), 0x000000U);
  // Round ends: half a disc of 6 pixels beyond each end.
  EXPECT_NEAR(image.Encre(65, 5, 95, 20), std::acos(-1.0) * 36 / 2, 1);
}

TEST(PeintPng, EachGenreMarksItsPlaceInItsSize) {
  Scene scene;
  Ajoute(scene, Genre::Points, Role::Dessin, 6, {P(20, 20), P(20, 40)});
  Ajoute(scene, Genre::Carres, Role::Dessin, 9, {P(50, 20)});
  Ajoute(scene, Genre::Fleches, Role::Dessin, 0, {P(70, 15), P(80, 20), P(70, 25)});
  const Pixels image = Peint(scene);
  EXPECT_NEAR(image.Encre(10, 10, 30, 30), std::acos(-1.0) * 9, 1);
  EXPECT_NEAR(image.Encre(10, 30, 30, 50), std::acos(-1.0) * 9, 1);
  EXPECT_NEAR(image.Encre(40, 10, 60, 30), 81, 1);
  EXPECT_NEAR(image.Encre(65, 10, 85, 30), 50, 1);
}

TEST(PeintPng, TrianglesAndDotsThatOverlapStayFilled) {
  Scene scene;
  Ajoute(scene, Genre::Points, Role::Dessin, 10, {P(30, 30), P(32, 30)});
  Ajoute(scene, Genre::Fleches, Role::Dessin, 0,
         {P(60, 20), P(80, 30), P(60, 40), P(62, 20), P(82, 30), P(62, 40)});
  const Pixels image = Peint(scene);
  EXPECT_EQ(image.En(31, 30), 0x000000U);
  EXPECT_EQ(image.En(65, 30), 0x000000U);
}

TEST(PeintPng, AnAreaIsFilledButForItsHole) {
  Scene scene;
  // A square of 60 pixels, a way in, a square of 20 in it, the same way back.
  scene.AjouteAire(Role::Dessin,
                   std::vector<PointEcran>{P(20, 10), P(80, 10), P(80, 70), P(20, 70), P(20, 10), P(40, 30),
                                           P(40, 50), P(60, 50), P(60, 30), P(40, 30), P(20, 10)});
  const Pixels image = Peint(scene);
  EXPECT_NEAR(image.Encre(0, 0, 100, 80), 60 * 60 - 20 * 20, 10);
  EXPECT_EQ(image.En(50, 40), 0xFFFFFFU);
}

TEST(PeintPng, DashesLeavePaperBetweenThem) {
  const auto encre = [](Role role) {
    Scene scene;
    scene.AjouteSegment(role, P(5, 40.5F), P(95, 40.5F));
    return Peint(scene).Encre(0, 35, 100, 46);
  };
  EXPECT_NEAR(encre(Role::Trajet), 91, 1);  // square ends
  // Dots of 1.5 with square ends are 2.5 of 4 long, dash dot dot 9 + 2 + 2 of 19.
  EXPECT_NEAR(encre(Role::Air), 90 * 2.5 / 4, 4);
  EXPECT_NEAR(encre(Role::Etendue), 90 * 13.0 / 19, 6);
}

TEST(PeintPng, ADiscIsFilledOverWhatLiesUnderItWhenItsRoleHasAFill) {
  Scene scene;
  scene.AjouteSegment(Role::Trajet, P(0, 40), P(100, 40));
  scene.AjouteDisque(Role::Numero, P(30, 40), 15 * TwipsParPixel);
  scene.AjouteDisque(Role::Outil, P(70, 40), 15 * TwipsParPixel);
  const Pixels image = Peint(scene);
  EXPECT_EQ(image.En(30, 40), 0xFFFFFFU);
  EXPECT_NE(image.En(70, 40), 0xFFFFFFU);
  EXPECT_EQ(image.En(70, 30), 0xFFFFFFU);
  EXPECT_GT(image.Encre(28, 23, 32, 28), 2) << "the edge";
}

TEST(PeintPng, ATextStandsAroundItsPlaceOrBelowIt) {
  for (const Ancre ancre : {Ancre::Centre, Ancre::HautGauche}) {
    Scene scene;
    scene.AjouteTexte(Role::Dessin, P(50, 40), ancre, "8");
    const Pixels image = Peint(scene);
    double encre = 0;
    double mx = 0;
    double my = 0;
    for (int y = 0; y < 80; ++y) {
      for (int x = 0; x < 100; ++x) {
        const double e = image.Encre(x, y, x + 1, y + 1);
        encre += e, mx += e * (x + 0.5), my += e * (y + 0.5);
      }
    }
    ASSERT_GT(encre, 5);
    const bool centre = ancre == Ancre::Centre;
    EXPECT_NEAR(mx / encre, centre ? 50 : 54, 3);
    EXPECT_NEAR(my / encre, centre ? 40 : 47, 3);
  }
}

TEST(PeintPng, APictureThatIsTooLargeGivesNothing) {
  EXPECT_EQ(PeintPng(Scene{}, Couleurs(), {100'000 * TwipsParPixel, 10 * TwipsParPixel}), "");
}

TEST(PeintSvg, HoldsThePaperTheLinesAndTheSize) {
  Scene scene;
  scene.AjouteSegment(Role::Trajet, P(20, 5), P(20, 75));
  const std::string svg = PeintSvg(scene, Couleurs(), Image);
  EXPECT_NE(svg.find("<svg"), std::string::npos);
  EXPECT_NE(svg.find("viewBox=\"0 0 100 80\""), std::string::npos);
  EXPECT_NE(svg.find("M 20 5 L 20 75"), std::string::npos);
  EXPECT_NE(svg.find("</svg>"), std::string::npos);
}

TEST(MesureFichier, ALongerTextIsWiderAndNotHigher) {
  const MesureTexte mesure = MesureFichier();
  EXPECT_NEAR(mesure("888").largeur, 3 * mesure("8").largeur, 1);
  EXPECT_EQ(mesure("888").hauteur, mesure("8").hauteur);
  EXPECT_GT(mesure("8").hauteur, 10 * TwipsParPixel);
  EXPECT_LT(mesure("8").hauteur, 20 * TwipsParPixel);
}

// Two bands that cross, and one that lies over them with half of their opacity.
Scene Croix() {
  Scene scene;
  Ajoute(scene, Genre::Ligne, Role::Saignee, 10, {P(10, 40), P(90, 40)});
  Ajoute(scene, Genre::Ligne, Role::Saignee, 10, {P(50, 10), P(50, 70)});
  Ajoute(scene, Genre::Ligne, Role::Saignee, 10, {P(75, 10), P(75, 70)});
  scene.Primitives.back().force = 128;
  return scene;
}

Palette Sobre() {
  Palette p = ConstruitPalette(Reglages{}, Theme::Clair);
  Aspect& a = p.aspects[static_cast<std::size_t>(Role::Saignee)];
  a.couleur = Couleur(0, 0, 255);
  a.opacite = 0.5F;
  return p;
}

int Rouge(unsigned pixel) { return static_cast<int>(pixel >> 16U); }

TEST(PeintPng, StrokesOfOneSurfaceGetNoDarkerWhereTheyMeetAndTheLaterOneCounts) {
  const Pixels image = Peint(Croix(), Sobre());
  EXPECT_NEAR(Rouge(image.En(25, 40)), 128, 2);
  EXPECT_NEAR(Rouge(image.En(50, 40)), 128, 2) << "where two cross";
  EXPECT_NEAR(Rouge(image.En(75, 20)), 191, 2);
  EXPECT_NEAR(Rouge(image.En(75, 40)), 191, 2) << "the fainter one replaces the other";
  EXPECT_EQ(image.En(5, 5), 0xFFFFFFU);
}

TEST(PeintPng, WhatLiesUnderASurfaceIsSeenThroughIt) {
  Scene scene;
  Ajoute(scene, Genre::Carres, Role::Dessin, 20, {P(50, 40)});
  Ajoute(scene, Genre::Ligne, Role::Saignee, 10, {P(10, 40), P(90, 40)});
  const Pixels image = Peint(scene, Sobre());
  EXPECT_NEAR(static_cast<int>(image.En(50, 40) & 255U), 128, 2);
  EXPECT_NEAR(Rouge(image.En(50, 40)), 0, 2);
}

TEST(PeintSvg, SaysTheOpacityOfASurface) {
  const std::string svg = PeintSvg(Croix(), Sobre(), Image);
  EXPECT_NE(svg.find("opacity"), std::string::npos);
  EXPECT_EQ(svg.find("<image"), std::string::npos) << "lines, no picture of points";
}

}  // namespace
