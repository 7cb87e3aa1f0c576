// The level of detail: what is left out can't be seen. The whole line and the one of the scene are laid on the grid
// of pixels; the sets of pixels that they touch are compared.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <set>

#include "core/DocumentCourant.h"
#include "image/SceneDocument.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

constexpr TailleImage Image{3000, 1500};  // 200 x 100 pixels
constexpr EtatVue Face{15, 0, 0, 0, 0};   // a millimetre is a pixel

using Pixels = std::set<std::pair<int, int>>;

void Touche(Pixels& pixels, double x, double y, double pixel) {
  if (x < 0 || y < 0 || x >= Image.largeur || y >= Image.hauteur) return;
  pixels.insert({static_cast<int>(x / pixel), static_cast<int>(y / pixel)});
}

void Segment(Pixels& pixels, const PointEcran& a, const PointEcran& b, double pixel) {
  const double dx = static_cast<double>(b.X) - a.X;
  const double dy = static_cast<double>(b.Y) - a.Y;
  const int pas = static_cast<int>(std::ceil(std::hypot(dx, dy) / (pixel / 8))) + 1;
  for (int i = 0; i <= pas; ++i) {
    const double t = static_cast<double>(i) / pas;
    Touche(pixels, a.X + t * dx, a.Y + t * dy, pixel);
  }
}

Pixels DuDessin(const EtatVue& vue, double pixel) {
  Pixels pixels;
  for (std::size_t i = 0; i < TraceInitial.size(); ++i) {
    const PointTrace b = VersEcran(vue, Image.hauteur, TraceInitial[i]);
    const bool suite = i > 0 && TraceInitial[i].Seq == TraceInitial[i - 1].Seq;
    const PointTrace a = suite ? VersEcran(vue, Image.hauteur, TraceInitial[i - 1]) : b;
    Segment(pixels, {a.X, a.Y}, {b.X, b.Y}, pixel);
  }
  return pixels;
}

bool EstInitial(const Primitive& p) { return p.role == Role::Dessin || p.role == Role::Selection; }

Pixels DeLaScene(const Scene& scene, double pixel) {
  Pixels pixels;
  for (const Primitive& p : scene.Primitives) {
    if (!EstInitial(p)) continue;
    const auto points = scene.PointsDe(p);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const bool suite = p.genre == Genre::Ligne && i > 0;
      Segment(pixels, suite ? points[i - 1] : points[i], points[i], pixel);
    }
  }
  return pixels;
}

std::size_t PointsInitiaux(const Scene& scene) {
  std::size_t n = 0;
  for (const Primitive& p : scene.Primitives) n += EstInitial(p) ? p.nombre : 0;
  return n;
}

Scene Construit(const EtatVue& vue = Face, float pixel = TwipsParPixel) {
  OptionsScene o;
  o.pixel = pixel;
  Scene scene;
  ConstruitScene(Doc, vue, Image, o, scene);
  return scene;
}

void Charge(std::vector<PointTrace> points) {
  Doc = Document{};
  TraceInitial = std::move(points);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
}

PointTrace P(double x, double y) { return {static_cast<float>(x), static_cast<float>(y), CodePD, Code2(" A")}; }

// Each pixel of the one has a pixel of the other that is the same or touches it.
bool Voisins(const Pixels& a, const Pixels& b) {
  for (const auto& [x, y] : a) {
    bool proche = false;
    for (int i = -1; i <= 1; ++i) {
      for (int j = -1; j <= 1; ++j) proche = proche || b.contains({x + i, y + j});
    }
    if (!proche) return false;
  }
  return true;
}

TEST(Detail, ACurveOf100000PointsTouchesTheSamePixelsWithFewPoints) {
  std::vector<PointTrace> points;
  for (int i = 0; i <= 100000; ++i) {
    const double a = 2 * Pi * i / 100000;
    const double r = 40 * (1 + 0.1 * std::sin(5 * a));
    points.push_back(P(100 + r * std::cos(a), 50 + r * std::sin(a)));
  }
  Charge(std::move(points));
  const Scene scene = Construit();
  EXPECT_EQ(DeLaScene(scene, 15), DuDessin(Face, 15));
  EXPECT_LT(PointsInitiaux(scene), 1000U);  // about 300 pixels around, two points in each
}

TEST(Detail, EveryStretchFromPixelToPixelIsAnOriginalOne) {
  Charge({P(10.1, 10.5), P(10.4, 10.9), P(10.2, 10.1), P(10.8, 10.3), P(11.5, 10.5)});
  const Scene scene = Construit();
  const auto points = scene.PointsDe(scene.Primitives[1]);
  ASSERT_EQ(points.size(), 3U);
  EXPECT_EQ(points[0].X, 10.1F * 15);
  EXPECT_EQ(points[1].X, 10.8F * 15);
  EXPECT_EQ(points[2].X, 11.5F * 15);
}

TEST(Detail, TheLastPointWithinAPixelIsKept) {
  Charge({P(10.5, 10.5), P(20.2, 10.5), P(20.4, 10.5), P(20.9, 10.5)});
  const Scene scene = Construit();
  const auto points = scene.PointsDe(scene.Primitives[1]);
  ASSERT_EQ(points.size(), 3U);
  EXPECT_EQ(points[2].X, 20.9F * 15);
}

TEST(Detail, ALineThatTremblesAcrossTheBorderOfTwoPixelsCostsNothing) {
  std::vector<PointTrace> points;
  for (int i = 0; i < 10000; ++i) points.push_back(P(10 + (i % 2 == 0 ? -0.1 : 0.1), 10.2 + i * 0.00005));
  points.push_back(P(30.5, 10.5));
  Charge(std::move(points));
  const Scene scene = Construit();
  EXPECT_EQ(DeLaScene(scene, 15), DuDessin(Face, 15));
  EXPECT_LE(PointsInitiaux(scene), 6U);
}

TEST(Detail, RandomLinesWithinThePictureTouchTheSamePixels) {
  for (unsigned graine = 0; graine < 40; ++graine) {
    std::mt19937 hasard(graine);
    std::normal_distribution<double> ecart(0, 0.02 * std::pow(1.25, graine % 20));
    double x = 100;
    double y = 50;
    std::vector<PointTrace> points;
    for (int i = 0; i < 4000; ++i) {
      x = std::clamp(x + ecart(hasard), 0.01, 199.9);
      y = std::clamp(y + ecart(hasard), 0.01, 99.9);
      points.push_back(P(x, y));
      if (i % 700 == 699) points.back().Seq = Code2(" B");
    }
    Charge(std::move(points));
    const Scene scene = Construit();
    EXPECT_EQ(DeLaScene(scene, 15), DuDessin(Face, 15)) << graine;
    // A path of one point or a new path begins anew; nothing else adds points.
    EXPECT_LE(PointsInitiaux(scene), TraceInitial.size()) << graine;
  }
}

TEST(Detail, RandomLinesInAndOutOfThePictureLoseNothingThatShows) {
  for (unsigned graine = 0; graine < 40; ++graine) {
    std::mt19937 hasard(graine);
    std::normal_distribution<double> ecart(0, 2.0 + 10.0 * (graine % 8));
    double x = 100;
    double y = 50;
    std::vector<PointTrace> points;
    for (int i = 0; i < 1000; ++i) {
      x = std::clamp(x + ecart(hasard), -150.0, 350.0);
      y = std::clamp(y + ecart(hasard), -150.0, 250.0);
      points.push_back(P(x, y));
    }
    Charge(std::move(points));
    const Scene scene = Construit();
    const Pixels tout = DuDessin(Face, 15);
    const Pixels vu = DeLaScene(scene, 15);
    EXPECT_TRUE(Voisins(tout, vu)) << graine;  // a cut end is rounded anew
    EXPECT_TRUE(Voisins(vu, tout)) << graine;
    for (const Primitive& p : scene.Primitives) {
      if (!EstInitial(p)) continue;
      for (const PointEcran& q : scene.PointsDe(p)) {
        EXPECT_TRUE(q.X >= -60 && q.X <= 3060 && q.Y >= -60 && q.Y <= 1560) << graine;
      }
    }
  }
}

TEST(Detail, FinerPixelsOfTheDeviceKeepFinerDetail) {
  std::vector<PointTrace> points;
  for (int i = 0; i <= 20000; ++i) {
    const double a = 2 * Pi * i / 20000;
    points.push_back(P(100 + 40 * std::cos(a), 50 + 40 * std::sin(3 * a)));
  }
  Charge(std::move(points));
  const Scene fine = Construit(Face, 7.5F);
  EXPECT_EQ(DeLaScene(fine, 7.5), DuDessin(Face, 7.5));
  EXPECT_GT(PointsInitiaux(fine), PointsInitiaux(Construit()));
}

TEST(Detail, ALineRightAcrossThePictureIsCutAFewPixelsBeyondIt) {
  Charge({P(-1000, 50), P(1000, 50)});
  const Scene scene = Construit();
  const auto ligne = std::find_if(scene.Primitives.begin(), scene.Primitives.end(), EstInitial);
  ASSERT_NE(ligne, scene.Primitives.end());
  ASSERT_EQ(ligne->nombre, 2U);
  EXPECT_EQ(scene.PointsDe(*ligne)[0], (PointEcran{-60, 750}));
  EXPECT_EQ(scene.PointsDe(*ligne)[1], (PointEcran{3060, 750}));
}

TEST(Detail, ALineThatPassesACornerOutsideIsLeftOut) {
  Charge({P(-100, 50), P(50, 400)});
  EXPECT_EQ(PointsInitiaux(Construit()), 0U);
}

TEST(Detail, ADrawingOutsideThePictureCostsNothing) {
  std::vector<PointTrace> points;
  for (int i = 0; i < 5000; ++i) points.push_back(P(300 + i % 7, i % 100));
  Charge(std::move(points));
  EXPECT_EQ(PointsInitiaux(Construit()), 0U);
}

TEST(Detail, ALineThatComesBackIsDrawnInPieces) {
  Charge({P(50, 50), P(50, 300), P(80, 300), P(80, 50)});
  const Scene scene = Construit();
  std::size_t lignes = 0;
  for (const Primitive& p : scene.Primitives) lignes += EstInitial(p) ? 1U : 0U;
  EXPECT_EQ(lignes, 2U);
  EXPECT_EQ(PointsInitiaux(scene), 4U);
}

TEST(Detail, PointsThatAreNoNumberBreakTheLineAndNothingElse) {
  constexpr double Infini = std::numeric_limits<double>::infinity();
  constexpr double Rien = std::numeric_limits<double>::quiet_NaN();
  Charge({P(10, 10), P(20, 10), P(Rien, 10), P(40, 10), P(50, 10), P(Infini, 10), P(60, 10), P(70, 10)});
  EXPECT_EQ(PointsInitiaux(Construit()), 6U);
  Charge({P(Rien, Rien), P(40, 10), P(50, 10)});
  EXPECT_EQ(PointsInitiaux(Construit()), 2U);
}

TEST(Detail, TheGreatestScaleGivesNumbers) {
  Charge({P(-1e7, -1e7), P(1e7, 1e7), P(600, 400), P(600, 400.5)});
  for (const float zoom : {ZoomMin, ZoomMax}) {
    const Scene scene = Construit({zoom, 600, 400, 1500, 750});
    EXPECT_FALSE(scene.Points.empty());
    for (const PointEcran& p : scene.Points) EXPECT_TRUE(std::isfinite(p.X) && std::isfinite(p.Y));
  }
}

TEST(Detail, ManyPathsWithinOnePixelAreOneDot) {
  std::vector<PointTrace> points;
  for (int i = 0; i < 3000; ++i) {
    for (const auto& [x, y] : {std::pair{0.0, 0.0}, {0.1, 0.0}, {0.1, 0.1}, {0.0, 0.0}}) {
      points.push_back(P(10.3 + x, 10.3 + y));
      points.back().Seq = pathwerk::CodeDeRang(static_cast<std::size_t>(i));
    }
  }
  Charge(std::move(points));
  const Scene scene = Construit();
  EXPECT_EQ(PointsInitiaux(scene), 1U);
  EXPECT_EQ(scene.Primitives[1].genre, Genre::Points);
  EXPECT_EQ(scene.Primitives[1].mesure, TwipsParPixel);
  EXPECT_EQ(DeLaScene(scene, 15), DuDessin(Face, 15));
}

TEST(Detail, ADotOfAnotherColourIsADotOfItsOwn) {
  essai::AjouteSequence(" A", {{10.3F, 10.3F}, {10.4F, 10.4F}});
  essai::AjouteSequence(" B", {{10.3F, 10.3F}, {10.4F, 10.4F}});
  Sequences[0].Selection = Faux;
  EXPECT_EQ(PointsInitiaux(Construit()), 2U);
}

TEST(Detail, DotsSideBySideShareAPrimitive) {
  for (int i = 0; i < 50; ++i) {
    const auto x = static_cast<float>(10 + 2 * i);
    essai::AjouteSequence(i % 2 == 0 ? " A" : " B", {{x + 0.3F, 10.3F}, {x + 0.4F, 10.4F}});
  }
  const Scene scene = Construit();
  EXPECT_EQ(PointsInitiaux(scene), 50U);
  EXPECT_EQ(scene.Primitives[1].nombre, 50U);
}

TEST(Detail, HolesInOnePixelAreOneDotAndMarksOfPointsToo) {
  for (int i = 0; i < 50; ++i) essai::AjouteSequence(i % 2 == 0 ? " A" : " B", {{10.3F, 10.3F}, {10.3F, 10.3F}});
  OptionsScene o;
  o.numPoint = true;
  Scene scene;
  ConstruitScene(Doc, Face, Image, o, scene);
  EXPECT_EQ(PointsInitiaux(scene), 2U);  // a dot, a mark
}

TEST(Detail, AMarkWhoseMiddleLiesOutsideShowsWhenItsEdgeDoes) {
  // The mark of a picture of 30000 x 15000 twips is 283 wide: 15 twips past the edge of the grid it still shows.
  essai::AjouteSequence(" A", {{2005, 500}, {2005, 500.1F}});
  OptionsScene o;
  o.numPoint = true;
  Scene scene;
  ConstruitScene(Doc, {15, 0, 0, 0, 0}, {30000, 15000}, o, scene);
  std::size_t marques = 0;
  for (const Primitive& p : scene.Primitives) marques += p.genre == Genre::Carres ? p.nombre : 0;
  EXPECT_EQ(marques, 2U);
}

TEST(Detail, PointsOnTheVeryEdgeOfTheGridAreMergedToo) {
  // 204 mm are 3060 twips, four pixels past the picture.
  std::vector<PointTrace> points;
  for (int i = 0; i < 100; ++i) points.push_back(P(204, 50.1 + 0.001 * i));
  points.push_back(P(100, 50));
  Charge(std::move(points));
  EXPECT_LE(PointsInitiaux(Construit()), 3U);
}

TEST(Detail, AnUnreasonablePictureIsStandable) {
  essai::AjouteCarre(" A", 10, 10, 20);
  constexpr float Rien = std::numeric_limits<float>::quiet_NaN();
  for (const TailleImage& taille : {TailleImage{0, 0}, {-5, 40}, {1e30F, 1e30F}, {Rien, Rien}}) {
    for (const float pixel : {0.0F, 15.0F, -1.0F}) {
      OptionsScene o;
      o.pixel = pixel;
      o.numPoint = o.sequence = true;
      Scene scene;
      ConstruitScene(Doc, Face, taille, o, scene);
      for (const Primitive& p : scene.Primitives) {
        EXPECT_LE(p.premier + p.nombre, scene.Points.size());
      }
    }
  }
}

}  // namespace
