// The quiet picture in the window: what is cut, the path under the pointer, the selection in the hand.
#include <gtest/gtest.h>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "image/Palette.h"
#include "tests/ui/image/Atelier.h"
#include "workspace/Module_Image.h"
#include "workspace/Module_Prise.h"
#include "workspace/Module_Souris.h"

namespace {

using namespace ovelin;
using essai::Atelier;
using essai::DeuxCarres;
using essai::Ecart;

void Bouge(QWidget& image, const QPoint& place, Qt::MouseButtons tenus,
           Qt::KeyboardModifiers touches = Qt::NoModifier) {
  QMouseEvent e(QEvent::MouseMove, place, image.mapToGlobal(place), Qt::NoButton, tenus, touches);
  QApplication::sendEvent(&image, &e);
}

// Off the lines: the tool runs 3 mm outside of the square, 3 mm to each side of its path.
constexpr float DansLaBande = -4.5F;

TEST(ImageSobre, ShowsWhatTheToolTakesAway) {
  DeuxCarres();
  Atelier a(true);
  const QColor papier(Qt::white);
  const QColor dedans = a.image.Image().pixelColor(a.Pixel(DansLaBande, 23));
  EXPECT_GT(Ecart(dedans, papier), 100);
  EXPECT_LT(Ecart(a.image.Image().pixelColor(a.Pixel(23, 23)), papier), 40) << "not inside of the part";
  BasculeSaignee();
  a.image.Dessin();
  EXPECT_LT(Ecart(a.image.Image().pixelColor(a.Pixel(DansLaBande, 23)), papier), 40);
}

TEST(ImageSobre, ThePathUnderThePointerLightensBeforeTheClickAndNotAfterThePointerHasLeft) {
  DeuxCarres();
  Atelier a(true);
  const QImage avant = a.image.Image();
  const QPoint bord = a.Pixel(0, 20) + QPoint(3, 0);
  Bouge(a.image, a.Pixel(2, 20), Qt::NoButton);
  QTest::qWait(0);
  auto* minuterie = a.image.findChild<QTimer*>("Timer_Survol");
  ASSERT_NE(minuterie, nullptr);
  QTimerEvent sonne(minuterie->timerId());
  QApplication::sendEvent(minuterie, &sonne);
  EXPECT_NE(a.image.Image().pixelColor(bord), avant.pixelColor(bord));
  EXPECT_EQ(a.Selectionnees(), 0);
  QEvent part(QEvent::Leave);
  QApplication::sendEvent(&a.image, &part);
  EXPECT_EQ(a.image.Image().pixelColor(bord), avant.pixelColor(bord));
}

TEST(ImageSobre, ADragWithTheMouseMovesThePath) {
  DeuxCarres();
  Atelier a(true);
  const QPoint de = a.Pixel(0, 20);
  const QPoint vers = de + QPoint(40, 0);
  QTest::mousePress(&a.image, Qt::LeftButton, Qt::NoModifier, de);
  Bouge(a.image, de + QPoint(20, 0), Qt::LeftButton);
  Bouge(a.image, vers, Qt::LeftButton);
  EXPECT_TRUE(Prise.tire);
  EXPECT_EQ(TraceInitial[0].X, 0);
  QTest::mouseRelease(&a.image, Qt::LeftButton, Qt::NoModifier, vers);
  essai::Evenements();
  EXPECT_NEAR(TraceInitial[0].X, 40 / (Zoom / 15), 0.01);
  EXPECT_EQ(TraceInitial[0].Y, 0);
}

TEST(ImageSobre, WhatIsDraggedIsSeenAtThePointerBeforeItIsDone) {
  DeuxCarres();
  Atelier a(true);
  const QPoint de = a.Pixel(0, 20);
  QTest::mousePress(&a.image, Qt::LeftButton, Qt::NoModifier, de);
  const QColor halo = EnCouleur(ConstruitPalette(Regl, Theme::Clair)[Role::Fantome].couleur);
  const QPoint loin = de + QPoint(0, -90);
  Bouge(a.image, loin, Qt::LeftButton);
  // The upper edge of the square, 90 pixels higher than it is drawn.
  const QPoint haut = a.Pixel(10, 40) + QPoint(0, -90);
  const QImage vue = a.image.Image();
  // A smooth line a pixel wide lies in two rows by halves; the paper is 400 away.
  bool vu = false;
  for (int dy = -2; dy <= 2; ++dy) vu = vu || Ecart(vue.pixelColor(haut + QPoint(0, dy)), halo) < 260;
  EXPECT_TRUE(vu);
  QTest::mouseRelease(&a.image, Qt::LeftButton, Qt::NoModifier, loin);
}

}  // namespace
