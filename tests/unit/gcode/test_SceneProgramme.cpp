// The picture of a program: kinds by role, what a pixel can't show, the limit of segments.
#include <cmath>
#include <random>

#include "core/Nombres.h"
#include "gcode/SceneProgramme.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;

MesureProgramme Mesure(const std::string& texte) { return MesureDe(Programme(texte), {}, true); }

OptionsProgramme Taille(std::size_t segmentsMaxi = 0) {
  OptionsProgramme options;
  options.largeur = 400;
  options.hauteur = 300;
  options.segmentsMaxi = segmentsMaxi;
  return options;
}

Scene Image(const MesureProgramme& m, const OptionsProgramme& options = Taille(),
            VueProgramme vue = VueProgramme::Dessus, const Camera& camera = {}) {
  Scene scene;
  ConstruitSceneProgramme(m, ProjectionDe(vue, camera, m.bornes, options.largeur, options.hauteur), options, scene);
  return scene;
}

std::size_t Segments(const Scene& scene, Role role) {
  std::size_t n = 0;
  for (const Primitive& p : scene.Primitives) {
    if (p.role == role) n += p.nombre - 1;
  }
  return n;
}

TEST(SceneProgramme, TellsRapidsCutsPlungesAndTheBoxApart) {
  const Scene s = Image(Mesure("F60\nG00 X100\nG01 Y80\nX0 Y0\n"));
  EXPECT_EQ(Segments(s, Role::Rapide), 1U);
  EXPECT_EQ(Segments(s, Role::Coupe), 2U);
  EXPECT_EQ(Segments(s, Role::Boite), 12U);
  const Scene face = Image(Mesure("F60\nG00 X100\nG01 Z-50\nX0\n"), Taille(), VueProgramme::Face);
  EXPECT_EQ(Segments(face, Role::Plongee), 1U);
}

TEST(SceneProgramme, RapidMovesCanBeLeftOut) {
  OptionsProgramme options = Taille();
  options.rapides = false;
  EXPECT_EQ(Segments(Image(Mesure("F60\nG00 X100\nG01 Y80\nG00 X0 Y0\n"), options), Role::Rapide), 0U);
}

TEST(SceneProgramme, ShowsTheToolWhereItIs) {
  OptionsProgramme options = Taille();
  options.outil = Lieu{50, 40, 0};
  const Scene s = Image(Mesure("F60\nX0\nX100\nY80\n"), options);
  const Primitive& outil = s.Primitives.back();
  EXPECT_EQ(outil.role, Role::Outil);
  EXPECT_NEAR(s.PointsDe(outil)[0].X, 200 * 15, 1);
  EXPECT_NEAR(s.PointsDe(outil)[0].Y, 150 * 15, 1);
}

// A circle of radius 50 about (50, 50) in small chords.
std::string Cercle(int n) {
  std::string texte = "F60\nG00 X100 Y50\nG01\n";
  for (int i = 1; i <= n; ++i) {
    const double a = 2 * Pi * i / n;
    texte += "X" + std::to_string(50 + 50 * std::cos(a)) + " Y" + std::to_string(50 + 50 * std::sin(a)) + "\n";
  }
  return texte;
}

TEST(SceneProgramme, JoinsWhatAPixelCannotShowAndStaysWithinAPixel) {
  const Scene s = Image(Mesure(Cercle(100'000)));
  EXPECT_LT(NombreSegments(s), 2000U);
  EXPECT_GT(NombreSegments(s), 200U);
  const double rayon = 50 * (300 * 0.88 / 100);  // pixels
  for (const Primitive& p : s.Primitives) {
    if (p.role != Role::Coupe) continue;
    for (const PointEcran& q : s.PointsDe(p)) {
      const double r = std::hypot(static_cast<double>(q.X) / 15 - 200, static_cast<double>(q.Y) / 15 - 150);
      EXPECT_LT(std::abs(r - rayon), 1.0);
    }
  }
}

TEST(SceneProgramme, HoldsTheLimitWhileItTurns) {
  std::mt19937 hasard(7);
  std::uniform_real_distribution<double> place(0, 100);
  std::string texte = "F60\n";
  for (int i = 0; i < 20'000; ++i) {
    texte += "X" + std::to_string(place(hasard)) + " Y" + std::to_string(place(hasard)) + "\n";
  }
  const MesureProgramme m = Mesure(texte);
  EXPECT_GT(NombreSegments(Image(m)), 19'000U);
  EXPECT_LE(NombreSegments(Image(m, Taille(5000))), 5000U);
  EXPECT_GT(NombreSegments(Image(m, Taille(5000))), 500U);
}

// Whether each pixel that one picture draws to lies within `ecart` of one that the other draws to.
using Pixels = std::vector<bool>;
constexpr std::size_t PixelsLarge = 400, PixelsHaut = 300;
std::size_t Pixel(int x, int y) { return static_cast<std::size_t>(y) * PixelsLarge + static_cast<std::size_t>(x); }
Pixels Noircit(const Scene& s) {
  Pixels pixels(PixelsLarge * PixelsHaut, false);
  for (const Primitive& p : s.Primitives) {
    const auto points = s.PointsDe(p);
    for (std::size_t i = 1; i < points.size(); ++i) {
      const double longueur = std::hypot(static_cast<double>(points[i].X - points[i - 1].X),
                                         static_cast<double>(points[i].Y - points[i - 1].Y)) /
                              15;
      const double pas = 1 / (1 + 8 * longueur);
      for (double t = 0; t <= 1; t += pas) {
        const double x =
            (static_cast<double>(points[i - 1].X) * (1 - t) + static_cast<double>(points[i].X) * t) / 15;
        const double y =
            (static_cast<double>(points[i - 1].Y) * (1 - t) + static_cast<double>(points[i].Y) * t) / 15;
        if (x >= 0 && y >= 0 && x < 400 && y < 300) {
          pixels[Pixel(static_cast<int>(x), static_cast<int>(y))] = true;
        }
      }
    }
  }
  return pixels;
}
std::size_t Etrangers(const Pixels& de, const Pixels& a, int ecart) {
  std::size_t n = 0;
  // Not along the edge: what lies beside it may lie outside.
  for (int y = 2; y < 298; ++y) {
    for (int x = 2; x < 398; ++x) {
      if (!de[Pixel(x, y)]) continue;
      bool pres = false;
      for (int v = std::max(0, y - ecart); v <= std::min(299, y + ecart); ++v) {
        for (int u = std::max(0, x - ecart); u <= std::min(399, x + ecart); ++u) {
          pres = pres || a[Pixel(u, v)];
        }
      }
      if (!pres) ++n;
    }
  }
  return n;
}

// A wave of many short moves, the tool up and down on its way, seen at an angle.
TEST(SceneProgramme, WhileItTurnsNoLineIsFurtherThanAPixelFromItsPlace) {
  std::string texte = "F60\nG01\n";
  for (int i = 0; i <= 40'000; ++i) {
    const double t = i * 0.0025;
    texte += "X" + std::to_string(t) + " Y" + std::to_string(40 + 30 * std::sin(t * 1.3) * std::cos(t * 0.2)) +
             (i % 4000 == 0     ? " Z5"
              : i % 4000 == 100 ? " Z-1"
                                : "") +
             "\n";
  }
  const MesureProgramme m = Mesure(texte);
  Camera camera;
  camera.RotationX = 0.3;
  camera.RotationY = -0.2;
  const Projection projection = ProjectionDe(VueProgramme::Espace, camera, m.bornes, 400, 300);
  Scene tout;  // each stretch by itself
  for (std::size_t i = 1; i < m.TraceVertex.size(); ++i) {
    PointVue a, b;
    ASSERT_TRUE(projection.Segment(m.TraceVertex[i - 1], m.TraceVertex[i], a, b));
    tout.AjouteSegment(Role::Coupe, {EnFloat(a.x * 15), EnFloat(a.y * 15)}, {EnFloat(b.x * 15), EnFloat(b.y * 15)});
  }
  const Scene tourne = Image(m, Taille(150'000), VueProgramme::Espace, camera);
  EXPECT_LT(NombreSegments(tourne), NombreSegments(tout) / 4);
  Scene sansBoite;
  for (const Primitive& p : tourne.Primitives) {
    if (p.role != Role::Boite) sansBoite.Ajoute(p, tourne.PointsDe(p));
  }
  const Pixels a = Noircit(tout), b = Noircit(sansBoite);
  EXPECT_EQ(Etrangers(a, b, 1), 0U);
  EXPECT_EQ(Etrangers(b, a, 1), 0U);
}

// More lines than there may be, all over the picture and on one another.
TEST(SceneProgramme, BeyondTheLimitTheOutlineStays) {
  std::string texte = "F60\n";
  for (int i = 0; i < 30'000; ++i) {
    const double a = i * 2.4;  // the golden angle, nearly: neighbours lie far apart
    texte += "X" + std::to_string(50 + 49 * std::cos(a)) + " Y" + std::to_string(50 + 49 * std::sin(a)) + "\n";
  }
  const MesureProgramme m = Mesure(texte);
  const Scene peu = Image(m, Taille(6000));
  EXPECT_LE(NombreSegments(peu), 6000U);
  const Pixels a = Noircit(Image(m)), b = Noircit(peu);
  EXPECT_EQ(Etrangers(b, a, 1), 0U);
  EXPECT_EQ(Etrangers(a, b, 2), 0U) << "cells of four pixels";
}

TEST(SceneProgramme, LeavesOutWhatLiesOutsideThePicture) {
  Camera pres;
  pres.ZoomVue = 0.001;
  const Scene s = Image(Mesure("F60\nX100\nY100\nX0\nY0\n"), Taille(), VueProgramme::Dessus, pres);
  EXPECT_EQ(NombreSegments(s), 0U) << "the middle of a square is empty";
}

TEST(SceneProgramme, PlacesBeyondAllNumbersAreLeftOut) {
  const Scene s = Image(Mesure("F60\nG20\nX1e308\nX-1e308 Y1e308\nX0\n"));
  for (const PointEcran& p : s.Points) {
    EXPECT_TRUE(std::isfinite(p.X));
    EXPECT_TRUE(std::isfinite(p.Y));
  }
}

TEST(SceneProgramme, AnEmptyProgramIsAnEmptyPicture) {
  EXPECT_TRUE(Image(Mesure("(nothing)\n")).Primitives.empty());
}

}  // namespace
}  // namespace essai
