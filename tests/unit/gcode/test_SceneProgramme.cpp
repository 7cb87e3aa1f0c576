// The picture of a program: kinds by role, what a pixel can't show, the limit of segments.
#include <cmath>
#include <random>

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
  EXPECT_LE(NombreSegments(Image(m, Taille(5000))), 5000U + 12);
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
