// The mouse over the picture, with real events.
#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QToolTip>
#include <QWheelEvent>

#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "tests/ui/image/Atelier.h"
#include "workspace/Module_Souris.h"

namespace {

using namespace ovelin;
using essai::Atelier;
using essai::DeuxCarres;
using essai::Ecart;

bool Choisie(const char* code) { return EstSelectionnee(Code2(code)) != Faux; }

void Deplace(QWidget& image, const QPoint& place, Qt::MouseButtons tenus,
             Qt::KeyboardModifiers touches = Qt::NoModifier) {
  QMouseEvent e(QEvent::MouseMove, place, image.mapToGlobal(place), Qt::NoButton, tenus, touches);
  QApplication::sendEvent(&image, &e);
}

void Glisse(QWidget& image, Qt::MouseButton bouton, const QPoint& de, const QPoint& a,
            Qt::KeyboardModifiers touches = Qt::NoModifier) {
  QTest::mousePress(&image, bouton, touches, de);
  Deplace(image, (de + a) / 2, bouton, touches);
  Deplace(image, a, bouton, touches);
  QTest::mouseRelease(&image, bouton, touches, a);
  essai::Evenements();
}

void Tourne(QWidget& image, const QPoint& place, const QPoint& angle, const QPoint& pixels = {}) {
  QWheelEvent e(place, image.mapToGlobal(QPointF(place)), pixels, angle, Qt::NoButton, Qt::NoModifier,
                Qt::NoScrollPhase, false);
  QApplication::sendEvent(&image, &e);
}

int Redessine(const Atelier& a) {
  return static_cast<int>(
      std::count_if(a.suites.begin(), a.suites.end(), [](const SuiteSouris& s) { return s.redessine; }));
}

bool Demande(const Atelier& a, bool SuiteSouris::*quoi) {
  return std::any_of(a.suites.begin(), a.suites.end(), [quoi](const SuiteSouris& s) { return s.*quoi; });
}

// --- selection -------------------------------------------------------------------------------------------------

TEST(Clic, SelectsTheNearestPathAndRedrawsIt) {
  DeuxCarres();
  Atelier a;
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, a.Pixel(0, 20));
  EXPECT_TRUE(Choisie("AA"));
  EXPECT_FALSE(Choisie("AB"));
  EXPECT_TRUE(Demande(a, &SuiteSouris::initSeq));
  EXPECT_EQ(a.boutons.size(), 1U) << "one Dessin";
  EXPECT_LT(Ecart(a.Trouve(0, 25, QColor(100, 0, 0)), QColor(100, 0, 0)), 60);
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, a.Pixel(100, 20));
  EXPECT_FALSE(Choisie("AA"));
  EXPECT_TRUE(Choisie("AB"));
}

TEST(Clic, WithControlAddsAndTakesAway) {
  DeuxCarres();
  Atelier a;
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, a.Pixel(0, 20));
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::ControlModifier, a.Pixel(100, 20));
  EXPECT_TRUE(Choisie("AA") && Choisie("AB"));
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::ControlModifier, a.Pixel(0, 20));
  EXPECT_FALSE(Choisie("AA"));
  EXPECT_TRUE(Choisie("AB"));
}

TEST(Clic, TwiceInOnePlaceIsOnAndOff) {
  DeuxCarres();
  Atelier a;
  const QPoint la = a.Pixel(0, 20);
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, la);
  EXPECT_TRUE(Choisie("AA"));
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, la);
  EXPECT_FALSE(Choisie("AA"));
}

TEST(Clic, TheSecondPressOfADoubleClickIsOneMore) {
  DeuxCarres();
  Atelier a;
  const QPoint la = a.Pixel(0, 20);
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, la);
  QTest::mouseDClick(&a.image, Qt::LeftButton, Qt::NoModifier, la);
  QTest::mouseRelease(&a.image, Qt::LeftButton, Qt::NoModifier, la);
  EXPECT_FALSE(Choisie("AA"));
  EXPECT_EQ(Souris.glissement, Glissement::Aucun);
}

TEST(Clic, OnAnEmptyDocumentDoesNothing) {
  Atelier a;
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
  Glisse(a.image, Qt::RightButton, {100, 100}, {200, 150});
  Tourne(a.image, {100, 100}, {0, 120});
  essai::Evenements();
  EXPECT_EQ(Redessine(a), 0);
  EXPECT_EQ(Vue.Zoom, 1);
  EXPECT_TRUE(a.boutons.empty());
}

TEST(Clic, FarFromEveryPathStillSelectsTheNearest) {
  DeuxCarres();
  Atelier a;
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, QPoint(3, 200));
  EXPECT_TRUE(Choisie("AA"));
}

TEST(BandeSelection, WithShiftTakesWhatLiesWhollyInside) {
  DeuxCarres();
  Atelier a;
  const QPoint de = a.Pixel(-10, 50);
  const QPoint vers = a.Pixel(50, -10);
  QTest::mousePress(&a.image, Qt::LeftButton, Qt::ShiftModifier, de);
  Deplace(a.image, vers, Qt::LeftButton, Qt::ShiftModifier);
  essai::Evenements();
  const QColor bord = a.image.palette().color(QPalette::Highlight);
  const QImage pendant = a.image.Image();
  EXPECT_GT(essai::Compte(pendant, bord, 60), 100) << "the band is seen over the picture";
  EXPECT_EQ(a.image.cursor().shape(), Qt::CrossCursor);
  QTest::mouseRelease(&a.image, Qt::LeftButton, Qt::ShiftModifier, vers);
  EXPECT_TRUE(Choisie("AA"));
  EXPECT_FALSE(Choisie("AB"));
  EXPECT_EQ(essai::Compte(a.image.Image(), bord, 30), 0) << "and gone";
  EXPECT_EQ(a.image.cursor().shape(), Qt::ArrowCursor);
}

// --- zoom tool -------------------------------------------------------------------------------------------------

TEST(LoupeRectangle, ShowsTheRectangleAndSelectsWithItsPress) {
  DeuxCarres();
  Atelier a;
  mnu_ZoomSelection_Click();
  const float avant = Zoom;
  Glisse(a.image, Qt::LeftButton, a.Pixel(55, 45), a.Pixel(105, -5));
  EXPECT_TRUE(Choisie("AB")) << "a press with the zoom tool also selects";
  EXPECT_GT(Zoom, 1.2F * avant);
  EXPECT_NEAR(static_cast<double>(OrigineDessinX), 80, 0.5);
  EXPECT_NEAR(static_cast<double>(OrigineDessinY), 20, 0.5);
  EXPECT_FALSE(Souris.mnu_ZoomSelection) << "the button is released";
  EXPECT_TRUE(Demande(a, &SuiteSouris::outils));
  EXPECT_NEAR(a.Ou(80, 20).x(), 300, 3);
  EXPECT_NEAR(a.Ou(80, 20).y(), 200, 3);
}

TEST(LoupeRectangle, AClickWithoutAMovementChangesNothing) {
  DeuxCarres();
  Atelier a;
  mnu_ZoomSelection_Click();
  const EtatVue vue = Vue;
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, a.Pixel(20, 20));
  EXPECT_EQ(Vue, vue);
  EXPECT_FALSE(Souris.mnu_ZoomSelection);
}

// --- panning ---------------------------------------------------------------------------------------------------

TEST(Panorama, ButtonTwoMovesThePictureWithThePointer) {
  DeuxCarres();
  Atelier a;
  const QPointF avant = a.Ou(0, 0);
  QTest::mousePress(&a.image, Qt::RightButton, Qt::NoModifier, {100, 100});
  EXPECT_EQ(a.image.cursor().shape(), Qt::ClosedHandCursor);
  Deplace(a.image, {140, 130}, Qt::RightButton);
  essai::Evenements();
  EXPECT_NEAR(a.Ou(0, 0).x() - avant.x(), 40, 0.01);
  EXPECT_NEAR(a.Ou(0, 0).y() - avant.y(), 30, 0.01);
  EXPECT_EQ(a.boutons.size(), 1U) << "Dessin runs, so that the picture follows";
  EXPECT_LT(Ecart(a.Trouve(0, 20, Qt::black), Qt::black), 250);
  QTest::mouseRelease(&a.image, Qt::RightButton, Qt::NoModifier, {140, 130});
  EXPECT_EQ(a.image.cursor().shape(), Qt::ArrowCursor);
  EXPECT_EQ(a.Selectionnees(), 0);
}

TEST(Panorama, TheMiddleButtonDoesTheSame) {
  DeuxCarres();
  Atelier a;
  const QPointF avant = a.Ou(0, 0);
  Glisse(a.image, Qt::MiddleButton, {200, 100}, {150, 160});
  EXPECT_NEAR(a.Ou(0, 0).x() - avant.x(), -50, 0.01);
  EXPECT_NEAR(a.Ou(0, 0).y() - avant.y(), 60, 0.01);
  EXPECT_FALSE(Demande(a, &SuiteSouris::menu));
}

TEST(Panorama, MovementsThatWaitAreOneDessin) {
  DeuxCarres();
  Atelier a;
  QTest::mousePress(&a.image, Qt::RightButton, Qt::NoModifier, {100, 100});
  for (int i = 1; i <= 20; ++i) Deplace(a.image, {100 + i, 100}, Qt::RightButton);
  EXPECT_TRUE(a.boutons.empty());
  essai::Evenements();
  EXPECT_EQ(a.boutons.size(), 1U);
  for (int i = 1; i <= 20; ++i) Deplace(a.image, {120, 100 + i}, Qt::RightButton);
  QTest::mouseRelease(&a.image, Qt::RightButton, Qt::NoModifier, {120, 120});
  EXPECT_EQ(a.boutons.size(), 2U) << "the release does not leave a movement behind";
  essai::Evenements();
  EXPECT_EQ(a.boutons.size(), 2U);
}

TEST(MenuImage, ComesWithARightButtonThatStaysStill) {
  DeuxCarres();
  Atelier a;
  QTest::mouseClick(&a.image, Qt::RightButton, Qt::NoModifier, {100, 100});
  EXPECT_TRUE(Demande(a, &SuiteSouris::menu));
  a.suites.clear();
  Glisse(a.image, Qt::RightButton, {100, 100}, {160, 100});
  EXPECT_FALSE(Demande(a, &SuiteSouris::menu));
}

TEST(MenuImage, ComesWithItsKeyAndNotWithThePressOfTheButton) {
  DeuxCarres();
  Atelier a;
  QContextMenuEvent presse(QContextMenuEvent::Mouse, {100, 100}, a.image.mapToGlobal(QPoint(100, 100)));
  QApplication::sendEvent(&a.image, &presse);
  EXPECT_TRUE(a.suites.empty());
  QContextMenuEvent touche(QContextMenuEvent::Keyboard, {100, 100}, a.image.mapToGlobal(QPoint(100, 100)));
  QApplication::sendEvent(&a.image, &touche);
  EXPECT_TRUE(Demande(a, &SuiteSouris::menu));
}

// --- wheel -----------------------------------------------------------------------------------------------------

TEST(Molette, KeepsThePointUnderThePointer) {
  DeuxCarres();
  Atelier a;
  const QPoint coin = a.Pixel(100, 40);
  const QPointF exact = a.Ou(100, 40);
  const float avant = Zoom;
  Tourne(a.image, coin, {0, 240});
  essai::Evenements();
  EXPECT_NEAR(static_cast<double>(Zoom / avant), 1.21, 1e-4);
  // The pointer stands up to half a pixel beside the corner, which grows with the scale.
  EXPECT_NEAR(a.Ou(100, 40).x(), exact.x(), 0.5);
  EXPECT_NEAR(a.Ou(100, 40).y(), exact.y(), 0.5);
  EXPECT_EQ(a.boutons.size(), 1U);
  Tourne(a.image, coin, {0, -240});
  essai::Evenements();
  EXPECT_NEAR(static_cast<double>(Zoom / avant), 1, 1e-5);
}

TEST(Molette, PartsOfANotchAndTouchPadsCount) {
  DeuxCarres();
  Atelier a;
  const float avant = Zoom;
  for (int i = 0; i < 8; ++i) Tourne(a.image, {300, 200}, {0, 15});
  EXPECT_TRUE(a.boutons.empty()) << "many small turns are one redrawing";
  essai::Evenements();
  EXPECT_EQ(a.boutons.size(), 1U);
  EXPECT_NEAR(static_cast<double>(Zoom / avant), 1.1, 1e-4);
  Tourne(a.image, {300, 200}, {0, 0}, {0, 30});
  EXPECT_GT(Zoom, 1.11F * avant);
  const float apres = Zoom;
  Tourne(a.image, {300, 200}, {120, 0});
  EXPECT_EQ(Zoom, apres) << "sideways is no zoom";
}

// --- attachment tool -------------------------------------------------------------------------------------------

int Attaches() {
  return static_cast<int>(
      std::count_if(TraceInitial.begin(), TraceInitial.end(), [](const PointTrace& p) { return p.Cde == CodePC; }));
}

TEST(OutilAttache, AClickAddsAndWithShiftRemoves) {
  DeuxCarres();
  Atelier a;
  Svc.Rafraichit = [&a] { a.image.Dessin(); };
  mnu_Lever_Click();
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, a.Pixel(0, 20));
  EXPECT_EQ(Attaches(), 1);
  EXPECT_EQ(a.Selectionnees(), 0) << "no selection with this tool";
  EXPECT_LT(Ecart(a.Trouve(0, 20, QColor(0, 0, 100)), QColor(0, 0, 100)), 40) << "redrawn with its mark";
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::ShiftModifier, a.Pixel(0, 20));
  EXPECT_EQ(Attaches(), 0);
}

TEST(OutilAttache, ADoubleClickAddsOne) {
  DeuxCarres();
  Atelier a;
  mnu_Lever_Click();
  QTest::mouseClick(&a.image, Qt::LeftButton, Qt::NoModifier, a.Pixel(0, 20));
  QTest::mouseDClick(&a.image, Qt::LeftButton, Qt::NoModifier, a.Pixel(0, 20));
  EXPECT_EQ(Attaches(), 1);
}

TEST(OutilAttache, HasItsPointerAndItsBubble) {
  DeuxCarres();
  Atelier a;
  const auto bulle = [&a] {
    QToolTip::hideText();
    QHelpEvent e(QEvent::ToolTip, {100, 100}, a.image.mapToGlobal(QPoint(100, 100)));
    QApplication::sendEvent(&a.image, &e);
    return QToolTip::isVisible() ? QToolTip::text().toStdString() : std::string();
  };
  EXPECT_EQ(bulle(), "");
  mnu_Lever_Click();
  a.image.SuitOutils();
  EXPECT_EQ(a.image.cursor().shape(), Qt::BitmapCursor);
  EXPECT_EQ(bulle(), Traduire("F_Representation", "lib311"));
  mnu_Lever_Click();
  a.image.SuitOutils();
  EXPECT_EQ(a.image.cursor().shape(), Qt::ArrowCursor);
  QToolTip::hideText();
  essai::Evenements();
  for (QWidget* w : QApplication::topLevelWidgets()) {
    if (w != &a.image) w->hide();
  }
}

TEST(OutilAttache, ThePointerFollowsWhenItComesBackOverThePicture) {
  DeuxCarres();
  Atelier a;
  mnu_Lever_Click();
  QEnterEvent e({10, 10}, {10, 10}, {10, 10});
  QApplication::sendEvent(&a.image, &e);
  EXPECT_EQ(a.image.cursor().shape(), Qt::BitmapCursor);
}

// --- position --------------------------------------------------------------------------------------------------

TEST(Position, IsToldWithEachMovement) {
  DeuxCarres();
  Atelier a;
  Deplace(a.image, a.Pixel(0, 0), Qt::NoButton);
  ASSERT_EQ(a.suites.size(), 1U);
  EXPECT_TRUE(a.suites[0].positions);
  EXPECT_TRUE(a.suites[0].panneaux[0].starts_with("x : "));
  EXPECT_TRUE(a.suites[0].panneaux[0].ends_with(" mm"));
  EXPECT_TRUE(a.boutons.empty()) << "no Dessin during plain movements";
  QEvent sort(QEvent::Leave);
  QApplication::sendEvent(&a.image, &sort);
  EXPECT_EQ(a.suites.size(), 1U);
}

TEST(Position, IsEmptyWithoutADrawing) {
  Atelier a;
  Deplace(a.image, {50, 50}, Qt::NoButton);
  ASSERT_EQ(a.suites.size(), 1U);
  EXPECT_EQ(a.suites[0].panneaux, (std::array<std::string, 3>{}));
}

TEST(Image, KeysGoOnToTheWindow) {
  DeuxCarres();
  struct Fenetre : QWidget {
    int touches = 0;
    void keyPressEvent(QKeyEvent* e) override {
      ++touches;
      e->accept();
    }
  } fenetre;
  auto* image = new ImagePB1(&fenetre);
  essai::Montre(fenetre, 300, 200);
  image->setFocus(Qt::TabFocusReason);
  QTest::keyClick(image, Qt::Key_Left);
  EXPECT_EQ(fenetre.touches, 1);
}

}  // namespace
