// The selection in the hand, by mouse in the picture: its grips, the places and axes that hold it, its figures.
#include <gtest/gtest.h>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "image/Palette.h"
#include "tests/ui/image/Atelier.h"
#include "workspace/Module_Prise.h"

namespace {

using namespace ovelin;
using essai::Atelier;

// "AA" is selected. A pixel is a fifth of a millimetre or less: what a drag gives is as fine as that.
struct EnMain : Atelier {
  EnMain() : Atelier(true) {
    BasculeSelection(Code2("AA"));
    image.Dessin();
  }
  void Presse(const QPoint& place) { QTest::mousePress(&image, Qt::LeftButton, {}, place); }
  void Bouge(const QPoint& place, Qt::KeyboardModifiers touches = {}) {
    QMouseEvent e(QEvent::MouseMove, place, image.mapToGlobal(place), Qt::NoButton, Qt::LeftButton, touches);
    QApplication::sendEvent(&image, &e);
  }
  void Lache(const QPoint& place) {
    QTest::mouseRelease(&image, Qt::LeftButton, {}, place);
    essai::Evenements();
  }
  void Tire(const QPoint& de, const QPoint& vers, Qt::KeyboardModifiers touches = {}) {
    Presse(de);
    Bouge((de + vers) / 2, touches);
    Bouge(vers, touches);
    Lache(vers);
  }
  [[nodiscard]] Poignees Prises() const { return PoigneesDe(BoiteDe(Doc), image.Taille()); }
  static QPoint Pixel(const PointEcran& p) { return (QPointF(p.X, p.Y) / TwipsParPixel).toPoint(); }
  using Atelier::Pixel;
};

TEST(ImagePrise, ACornerScalesAboutTheMiddle) {
  essai::DeuxCarres();
  EnMain m;
  const QPoint milieu = m.Pixel(20, 20);
  const QPoint coin = EnMain::Pixel(m.Prises().coins[2]);
  m.Tire(coin, milieu + (coin - milieu) * 3 / 2);
  const BoiteSelection b = BoiteDe(Doc);
  EXPECT_NEAR(b.xmax - b.xmin, 60, 0.5);
  EXPECT_NEAR(b.ymax - b.ymin, 60, 0.5);
  EXPECT_NEAR((b.xmin + b.xmax) / 2, 20, 1e-3);
  EXPECT_NEAR((b.ymin + b.ymax) / 2, 20, 1e-3);
}

TEST(ImagePrise, TheGripAboveTheBoxTurnsByStepsWithShift) {
  essai::DeuxCarres();
  EnMain m;
  const QPoint milieu = m.Pixel(20, 20);
  const QPoint prise = EnMain::Pixel(m.Prises().tourne);
  const int loin = milieu.y() - prise.y();
  // A little less than an eighth of a turn to the right.
  m.Tire(prise, milieu + QPoint(loin, -loin - 4), Qt::ShiftModifier);
  const BoiteSelection b = BoiteDe(Doc);
  EXPECT_NEAR(b.xmax - b.xmin, 40 * std::sqrt(2.0), 1e-3) << "the diagonal of the square";
  EXPECT_NEAR((b.xmin + b.xmax) / 2, 20, 1e-3);
}

TEST(ImagePrise, ControlSnapsItsEdgeToThatOfAnotherPath) {
  essai::DeuxCarres();
  for (PointTrace& p : TraceInitial) p.X += p.Seq == Code2("AB") ? 3.7F : 0;
  EnMain m;
  const QPoint de = m.Pixel(0, 12);
  m.Tire(de, m.Pixel(23.7F, 12) - QPoint(5, 0), Qt::ControlModifier);
  EXPECT_NEAR(BoiteDe(Doc).xmax, 63.7, 1e-3);
}

TEST(ImagePrise, ControlSnapsItsMiddleToThatOfAnotherPath) {
  essai::DeuxCarres();
  for (PointTrace& p : TraceInitial) p.Y += p.Seq == Code2("AB") ? 13.3F : 0;
  EnMain m;
  const QPoint de = m.Pixel(0, 12);
  m.Tire(de, m.Pixel(0, 25.3F) + QPoint(0, 4), Qt::ControlModifier);
  EXPECT_NEAR((BoiteDe(Doc).ymin + BoiteDe(Doc).ymax) / 2, 33.3, 1e-3);
}

TEST(ImagePrise, ShiftKeepsTheAxis) {
  essai::DeuxCarres();
  EnMain m;
  const QPoint de = m.Pixel(0, 20);
  m.Tire(de, de + QPoint(12, 40), Qt::ShiftModifier);
  EXPECT_EQ(BoiteDe(Doc).xmin, 0);
  EXPECT_NEAR(BoiteDe(Doc).ymin, -40 / (Zoom / TwipsParPixel), 0.01);
}

TEST(ImagePrise, OfOneSelectedPathTakesAllOfThem) {
  essai::DeuxCarres();
  EnMain m;
  SelectionneTout();
  const QPoint de = m.Pixel(0, 20);
  m.Tire(de, de + QPoint(30, 0));
  EXPECT_EQ(m.Selectionnees(), 2);
  EXPECT_NEAR(BoiteDe(Doc).xmin, 30 / (Zoom / TwipsParPixel), 0.01);
  EXPECT_NEAR(BoiteDe(Doc).xmax - BoiteDe(Doc).xmin, 100, 0.01);
}

// Pixels of the figures' colour in a rectangle of the picture.
int Encre(const Atelier& a, const QRect& ou) {
  const QColor couleur = EnCouleur(ConstruitPalette(Regl, Theme::Clair)[Role::Fantome].couleurTexte);
  return essai::Compte(a.image.Image().copy(ou), couleur, 200);
}

TEST(ImagePrise, ItsFiguresStandAtThePointer) {
  essai::DeuxCarres();
  EnMain m;
  const QPoint de = m.Pixel(0, 20);
  m.Presse(de);
  const QPoint ici = de + QPoint(30, -20);
  m.Bouge(ici);
  ASSERT_TRUE(Prise.tire);
  // Right above it, far from the upper side of the square and from its middle.
  EXPECT_GT(Encre(m, QRect(ici + QPoint(15, -26), QSize(40, 13))), 30);
  const QPoint milieu = m.Pixel(20, 20) + QPoint(30, -20);
  EXPECT_EQ(Encre(m, QRect(milieu - QPoint(10, 10), QSize(40, 20))), 0);
  m.Lache(ici);
}

TEST(ImagePrise, ItsFiguresStayInThePicture) {
  essai::DeuxCarres();
  EnMain m;
  const QPoint de = m.Pixel(40, 20);
  m.Presse(de);
  const QPoint ici(m.image.width() - 6, 4);
  m.Bouge(ici);
  ASSERT_TRUE(Prise.tire);
  EXPECT_GT(Encre(m, QRect(ici + QPoint(-80, 14), QSize(66, 20))), 30) << "to the left of it and below";
  m.Lache(de);
}

// The first side of the square runs up from (0, 0): the tab at (0, 20) is its second point.
TEST(ImagePrise, ATabIsMovedAlongItsPath) {
  essai::DeuxCarres();
  LargeurEncoche = 2;
  TraceInitial.insert(TraceInitial.begin() + 1, PointTrace{0, 20, CodePC, Code2("AA")});
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  EnMain m;
  const QPoint de = m.Pixel(0, 20);
  m.Tire(de, m.Pixel(2, 29));
  EXPECT_EQ(TraceInitial[1].Cde, CodePC);
  EXPECT_EQ(TraceInitial[1].X, 0) << "on its path";
  EXPECT_NEAR(TraceInitial[1].Y, 29, 0.3);
  EXPECT_EQ(m.Selectionnees(), 1) << "the selection is that of before the press";
}

}  // namespace
