// The camera in space and the views along the axes.
#include <cmath>

#include "gcode/Camera.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;

constexpr BornesProgramme Bornes{0, 100, 0, 50, -10, 5};

PointVue Place(const Projection& p, double x, double y, double z = 0) { return p.Point({x, y, z}).value(); }

TEST(Camera, TurnsByThePartOfThePictureThatThePointerMoves) {
  Camera c;
  Appuie(c, {}, 100, 100, 400, 200);
  Glisse(c, Bornes, BoutonSouris::Gauche, 0, 150, 400, 200);
  EXPECT_DOUBLE_EQ(c.RotationY, 0.25);
  EXPECT_DOUBLE_EQ(c.RotationX, -0.25);
  Glisse(c, Bornes, BoutonSouris::Gauche, 0, 150, 400, 200);
  EXPECT_DOUBLE_EQ(c.RotationY, 0.25) << "from the last place";
}

TEST(Camera, ZoomsByTheRatioOfThePlaces) {
  Camera c;
  Appuie(c, Bornes, 0, 100, 400, 200);
  Glisse(c, Bornes, BoutonSouris::Milieu, 0, 150, 400, 200);
  EXPECT_DOUBLE_EQ(c.ZoomVue, 1.5);
  Glisse(c, Bornes, BoutonSouris::Deux, 0, 75, 400, 200);
  EXPECT_DOUBLE_EQ(c.ZoomVue, 0.75);
}

TEST(Camera, TheZoomStaysAboveZeroAtTheEdgeOfThePicture) {
  Camera c;
  Appuie(c, Bornes, 0, 100, 400, 200);
  Glisse(c, Bornes, BoutonSouris::Milieu, 0, -20, 400, 200);
  EXPECT_DOUBLE_EQ(c.ZoomVue, 0.001) << "0.001 / 100, held at the floor";
  Camera bord;
  Appuie(bord, Bornes, 0, 0, 400, 200);
  Glisse(bord, Bornes, BoutonSouris::Milieu, 0, 10, 400, 200);
  EXPECT_DOUBLE_EQ(bord.ZoomVue, 10) << "the last place counts as 1 at least";
}

TEST(Camera, ShiftsFromThePlaceOfThePress) {
  Camera c;
  Appuie(c, Bornes, 100, 100, 400, 200);
  Glisse(c, Bornes, BoutonSouris::Droit, 60, 120, 400, 200);
  EXPECT_FLOAT_EQ(c.DeplX, 10);  // 40 * 100 / 400
  EXPECT_FLOAT_EQ(c.DeplY, -5);  // -20 * 50 / 200
}

TEST(Camera, ASecondDragGoesOnFromTheFirst) {
  Camera c;
  Appuie(c, Bornes, 100, 100, 400, 200);
  Glisse(c, Bornes, BoutonSouris::Droit, 60, 120, 400, 200);
  Appuie(c, Bornes, 300, 20, 400, 200);
  Glisse(c, Bornes, BoutonSouris::Droit, 300, 20, 400, 200);
  EXPECT_FLOAT_EQ(c.DeplX, 10) << "a press moves nothing";
  EXPECT_FLOAT_EQ(c.DeplY, -5);
}

TEST(Camera, AProgramOnOneAxisIsNotShiftedAcrossIt) {
  const BornesProgramme axe{0, 100, 7, 7, 0, 0};
  Camera c;
  Appuie(c, axe, 100, 100, 400, 200);
  Glisse(c, axe, BoutonSouris::Droit, 0, 0, 400, 200);
  EXPECT_FLOAT_EQ(c.DeplX, 25);
  EXPECT_EQ(c.DeplY, 0);
}

TEST(Camera, TellsTheShift) {
  Camera c;
  c.DeplX = 12.5F;
  c.DeplY = -3;
  Svc.MarqueDecimale = '.';
  EXPECT_EQ(TexteDeplacement(c), "DeplX= 12.5    DeplY= -3");
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(TexteDeplacement(c), "DeplX= 12,5    DeplY= -3");
}

TEST(Distance, IsTheLargerCentreTimesZoomAndMargin) {
  Camera c;
  EXPECT_DOUBLE_EQ(Distance(c, Bornes), 60);  // 50 * 1.2
  c.ZoomVue = 2;
  EXPECT_DOUBLE_EQ(Distance(c, Bornes), 120);
  EXPECT_DOUBLE_EQ(Distance(Camera{}, {0, 10, 0, 100, 0, 0}), 60);
}

TEST(Distance, IsZeroForAProgramAroundTheOrigin) { EXPECT_EQ(Distance(Camera{}, {-50, 50, -50, 50, 0, 0}), 0); }

TEST(Projection, InSpaceTheOriginIsTheMiddleAndTheProgramInView) {
  const Projection p = Projection::Espace(Camera{}, Bornes, 400, 400);
  EXPECT_NEAR(Place(p, 0, 0).x, 200, 1e-9);
  EXPECT_NEAR(Place(p, 0, 0).y, 200, 1e-9);
  const PointVue coin = Place(p, 100, 50);
  EXPECT_GT(coin.x, 300);
  EXPECT_LT(coin.x, 400);
  EXPECT_LT(coin.y, 200) << "Y goes up";
}

TEST(Projection, InSpaceWhatIsHigherIsNearer) {
  const Projection p = Projection::Espace(Camera{}, Bornes, 400, 400);
  EXPECT_GT(Place(p, 50, 0, 10).x, Place(p, 50, 0, 0).x);
}

TEST(Projection, AQuarterTurnAboutXShowsTheFront) {
  Camera c;
  c.RotationX = 1;
  const Projection p = Projection::Espace(c, Bornes, 400, 400);
  EXPECT_NEAR(Place(p, 30, 0, 4).x, Place(p, 30, 0, 0).x, 1e-9) << "height no longer leads to the eye";
  EXPECT_NE(Place(p, 30, 0, 4).y, Place(p, 30, 0, 0).y);
  EXPECT_NEAR(Place(p, 0, 20, 0).y, 200, 1e-9) << "Y leads to the eye, or away from it";
}

TEST(Projection, AQuarterTurnAboutYHidesX) {
  Camera c;
  c.RotationY = 1;
  const Projection p = Projection::Espace(c, Bornes, 400, 400);
  EXPECT_NEAR(Place(p, 20, 0, 0).x, 200, 1e-9);
  EXPECT_NE(Place(p, 0, 0, 5).x, 200);
}

TEST(Projection, TheShiftMovesThePictureBehindTheTurn) {
  Camera c;
  c.DeplX = 60;
  const Projection p = Projection::Espace(c, Bornes, 400, 400);
  EXPECT_LT(Place(p, 0, 0).x, 200);
  EXPECT_NEAR(Place(p, 60, 0).x, 200, 1e-9);
}

TEST(Projection, WhatIsBehindTheEyeIsNotSeen) {
  const Projection p = Projection::Espace(Camera{}, Bornes, 400, 400);  // the eye is 60 above the origin
  EXPECT_FALSE(p.Point({0, 0, 61}));
  PointVue a, b;
  Vertex devant, derriere;
  derriere.Z = 100;
  derriere.X = 10;
  EXPECT_FALSE(p.Segment(derriere, derriere, a, b));
  ASSERT_TRUE(p.Segment(devant, derriere, a, b));
  EXPECT_TRUE(std::isfinite(b.x) && std::isfinite(b.y));
  EXPECT_NEAR(a.x, 200, 1e-9);
}

TEST(Projection, FromAboveTheBoundsAreFittedWithAMargin) {
  const Projection p = Projection::Axe(VueProgramme::Dessus, Camera{}, Bornes, 400, 400);
  EXPECT_NEAR(Place(p, 0, 0).x, 24, 1e-9);  // 6 % of 400
  EXPECT_NEAR(Place(p, 100, 0).x, 376, 1e-9);
  EXPECT_NEAR(Place(p, 50, 25).y, 200, 1e-9);
  EXPECT_LT(Place(p, 0, 50).y, Place(p, 0, 0).y);
  EXPECT_NEAR(Place(p, 0, 0, -5).x, 24, 1e-9) << "depth does not show";
}

TEST(Projection, FrontAndSideShowHeightUpward) {
  const Projection face = Projection::Axe(VueProgramme::Face, Camera{}, Bornes, 400, 400);
  EXPECT_LT(Place(face, 0, 0, 5).y, Place(face, 0, 0, -10).y);
  EXPECT_EQ(Place(face, 10, 0).x, Place(face, 10, 50).x);
  const Projection cote = Projection::Axe(VueProgramme::Cote, Camera{}, Bornes, 400, 400);
  EXPECT_EQ(Place(cote, 0, 10).x, Place(cote, 100, 10).x);
  EXPECT_GT(Place(cote, 0, 50).x, Place(cote, 0, 0).x);
}

TEST(Projection, AProgramWithoutExtentIsStillSeen) {
  const Projection p = Projection::Axe(VueProgramme::Dessus, Camera{}, {3, 3, 4, 4, 0, 0}, 400, 300);
  EXPECT_NEAR(Place(p, 3, 4).x, 200, 1e-9);
  EXPECT_NEAR(Place(p, 3, 4).y, 150, 1e-9);
}

TEST(Projection, ALargerZoomShowsMore) {
  Camera c;
  c.ZoomVue = 2;
  const Projection p = Projection::Axe(VueProgramme::Dessus, c, Bornes, 400, 400);
  EXPECT_NEAR(Place(p, 0, 25).x, 200 - 176.0 / 2, 1e-9);
}

}  // namespace
}  // namespace essai
