// FRAME1_DEPLACEMENT: fields, arrows and scroll bars move the selection.
#include <QScrollBar>
#include <QWheelEvent>
#include <new>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/ui/panneau/Banc.h"

namespace {

using namespace ovelin;
using essai::Clique;
using essai::Sortie;
using essai::Tape;

class Deplacement : public essai::Banc<PageSequences> {
 protected:
  // First corner of the selected square.
  static float X() { return TraceInitial[5].X; }
  static float Y() { return TraceInitial[5].Y; }
};

TEST_F(Deplacement, ArrowsMoveByATenthAndAddUpInTheFields) {
  DeuxCarres();
  Ouvre();
  Clique(*C("CB_Bas"));
  EXPECT_EQ(Texte("TB_Y"), "-0.1");
  EXPECT_NEAR(Y(), 4.9, 1e-5);
  Clique(*C("CB_Haut"));
  Clique(*C("CB_Haut"));
  Clique(*C("CB_Haut"));
  EXPECT_EQ(Texte("TB_Y"), "0.2");
  EXPECT_NEAR(Y(), 5.2, 1e-5);
  Clique(*C("CB_Gauche"));
  Clique(*C("CB_Gauche"));
  EXPECT_EQ(Texte("TB_X"), "-0.2");
  EXPECT_NEAR(X(), 19.8, 1e-5);
  Clique(*C("CB_Droite"));
  EXPECT_EQ(Texte("TB_X"), "-0.1");
  EXPECT_EQ(TraceInitial[0].X, 0);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(rafraichis_, 7);
}

TEST_F(Deplacement, TracesFollow) {
  DeuxCarres();
  Ouvre();
  const float avant = TraceDecale.back().Points.front().X;
  Tape(*C("TB_X"), "50");
  EXPECT_NEAR(TraceDecale.back().Points.front().X, avant + 50, 1e-3);
}

TEST_F(Deplacement, FieldMovesByTheDifferenceFromItsTextOnEntry) {
  DeuxCarres();
  Svc.MarqueDecimale = ',';
  Ouvre();
  Tape(*C("TB_X"), "12.5");
  EXPECT_EQ(Texte("TB_X"), "12,5");
  EXPECT_NEAR(X(), 32.5, 1e-4);
  Tape(*C("TB_X"), "10", Sortie::Entree);
  EXPECT_EQ(Texte("TB_X"), "10,0");
  EXPECT_NEAR(X(), 30, 1e-4);
  Tape(*C("TB_Y"), "-3");
  EXPECT_NEAR(Y(), 2, 1e-4);
  EXPECT_EQ(Texte("TB_Y"), "-3,0");
}

TEST_F(Deplacement, FieldShowsAFinerEntryAsItWasMade) {
  DeuxCarres();
  Ouvre();
  Tape(*C("TB_X"), "0.25");
  EXPECT_EQ(Texte("TB_X"), "0.25");
  EXPECT_NEAR(X(), 20.25, 1e-5);
  Tape(*C("TB_X"), "0");
  EXPECT_NEAR(X(), 20, 1e-5);
}

TEST_F(Deplacement, EnterAndLeavingAreOneMove) {
  DeuxCarres();
  Ouvre();
  Tape(*C("TB_X"), "5", Sortie::Entree);
  QTest::keyClick(C("TB_X"), Qt::Key_Tab);
  EXPECT_NEAR(X(), 25, 1e-4);
  EXPECT_EQ(rafraichis_, 1);
}

TEST_F(Deplacement, MoveOfZeroMarksTheProject) {
  DeuxCarres();
  Ouvre();
  Tape(*C("TB_X"), "0");  // "0.0" on entry
  EXPECT_NEAR(X(), 20, 1e-6);
  EXPECT_EQ(Modifie, Vrai);
  Modifie = Faux;
  C("TB_Y")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("TB_Y"), Qt::Key_Return);
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(Deplacement, GoingThroughTheFieldsMovesNothing) {
  DeuxCarres();
  Ouvre();
  C("TB_X")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("TB_X"), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(rafraichis_, 0);
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Deplacement, TextThatIsNoNumberIsRefusedAtTheField) {
  DeuxCarres();
  Ouvre();
  Tape(*C("TB_X"), "-");
  EXPECT_TRUE(Refuse("TB_X"));
  EXPECT_EQ(X(), 20);
  EXPECT_EQ(Modifie, Faux);
  Tape(*C("TB_X"), "1");
  EXPECT_FALSE(Refuse("TB_X"));
  EXPECT_NEAR(X(), 21, 1e-5);
}

TEST_F(Deplacement, MoveBeyondThePlaneIsRefusedAndTheTextComesBack) {
  DeuxCarres();
  Ouvre();
  essai::Attend("F_Representation", "lib113");
  Tape(*C("TB_X"), "99999999");
  EXPECT_EQ(X(), 20);
  EXPECT_EQ(Texte("TB_X"), "0.0");
}

TEST_F(Deplacement, AnotherSelectionBeginsAtZero) {
  DeuxCarres();
  Ouvre();
  Tape(*C("TB_X"), "5");
  C<QScrollBar>("HScroll_Sequence")->setFocus();
  QTest::keyClick(C("HScroll_Sequence"), Qt::Key_Right);
  EXPECT_EQ(Texte("TB_X"), "5.1");
  Clique(*C("CB_InverseSelection"));
  EXPECT_EQ(Texte("TB_X"), "0.0");
  EXPECT_EQ(C<QScrollBar>("HScroll_Sequence")->value(), 0);
  EXPECT_NEAR(X(), 25.1, 1e-4);
}

TEST_F(Deplacement, FieldsFollowTheSelectionAgainAfterAMoveThatFailed) {
  DeuxCarres();
  Ouvre();
  Clique(*C("CB_Droite"));
  const auto avant = Svc.Rafraichit;
  Svc.Rafraichit = [] { throw std::bad_alloc(); };
  EXPECT_THROW(Clique(*C("CB_Droite")), std::bad_alloc);
  Svc.Rafraichit = avant;
  Clique(*C("CB_InverseSelection"));
  EXPECT_EQ(Texte("TB_X"), "0.0");
}

TEST_F(Deplacement, FieldsShowAClickedPointAndMoveFromThere) {
  DeuxCarres();
  Ouvre();
  ResultatClic clic;
  clic.croix = TraceInitial[6];
  clic.TB_X = "20";
  clic.TB_Y = "35";
  page_->MontrePoint(clic);
  EXPECT_EQ(Texte("TB_X"), "20");
  EXPECT_EQ(Texte("TB_Y"), "35");
  EXPECT_EQ(rafraichis_, 0);
  Tape(*C("TB_Y"), "40");
  EXPECT_NEAR(TraceInitial[6].Y, 40, 1e-4);
}

// --- scroll bars

TEST_F(Deplacement, ScrollBarsMoveByATenthOfTheirDifference) {
  DeuxCarres();
  Ouvre();
  auto* h = C<QScrollBar>("HScroll_Sequence");
  h->setFocus();
  QTest::keyClick(h, Qt::Key_Right);
  EXPECT_EQ(Texte("TB_X"), "0.1");
  EXPECT_NEAR(X(), 20.1, 1e-4);
  QTest::keyClick(h, Qt::Key_PageUp);
  EXPECT_NEAR(X(), 20 + 0.1 * h->value(), 1e-4);
  const int v = h->value();
  QTest::keyClick(h, Qt::Key_Left);
  EXPECT_EQ(h->value(), v - 1);
  EXPECT_NEAR(X(), 20 + 0.1 * h->value(), 1e-4);
  EXPECT_EQ(rafraichis_, 3);
}

TEST_F(Deplacement, VerticalBarMovesUpWhereItGoesUp) {
  DeuxCarres();
  Ouvre();
  auto* v = C<QScrollBar>("VScroll_Sequence");
  v->setFocus();
  QTest::keyClick(v, Qt::Key_Up);
  EXPECT_EQ(Texte("TB_Y"), "0.1");
  EXPECT_NEAR(Y(), 5.1, 1e-4);
  // a press into the trough above the slider
  QTest::mouseClick(v, Qt::LeftButton, {}, QPoint(v->width() / 2, v->height() / 4 + 4));
  EXPECT_GT(Y(), 5.1F);
  EXPECT_NEAR(Y(), 5 - 0.1 * v->value(), 1e-4);
}

TEST_F(Deplacement, FilledPanelDoesNotMoveThroughItsBars) {
  DeuxCarres();
  Ouvre();
  auto* h = C<QScrollBar>("HScroll_Sequence");
  h->setFocus();
  QTest::keyClick(h, Qt::Key_Right);
  const float x = X();
  Sequences[0].Selection = Vrai;
  page_->Remplit(InitSeq());
  EXPECT_EQ(h->value(), 0);
  EXPECT_EQ(X(), x);
  EXPECT_EQ(rafraichis_, 1);
}

TEST_F(Deplacement, WheelMovesOnlyWhereTheBarHasTheKeyboard) {
  DeuxCarres();
  Ouvre();
  auto* h = C<QScrollBar>("HScroll_Sequence");
  const auto roule = [&] {
    const QPointF place = h->rect().center();
    QWheelEvent e(place, h->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                  false);
    QApplication::sendEvent(h, &e);
    essai::Evenements();
  };
  roule();
  EXPECT_EQ(X(), 20);
  EXPECT_EQ(rafraichis_, 0);
  h->setFocus();
  roule();
  EXPECT_NE(X(), 20);
}

TEST_F(Deplacement, PlacingBringsTheBarsBackToTheirMiddle) {
  DeuxCarres();
  Ouvre();
  auto* h = C<QScrollBar>("HScroll_Sequence");
  h->setFocus();
  QTest::keyClick(h, Qt::Key_Right);
  Tape(*C("TB_X"), "0");
  ASSERT_EQ(h->value(), 1);
  Tape(*C("TB_DecalageX"), "0");
  Tape(*C("TB_DecalageY"), "0");
  Clique(*C("CB_OKRecalage"));
  EXPECT_EQ(h->value(), 0);
  EXPECT_EQ(Texte("TB_X"), "0.0");
}

TEST_F(Deplacement, RefusedScrollGoesBackToWhereItWas) {
  DeuxCarres();
  for (std::size_t i = 5; i < 10; ++i) TraceInitial[i].X = 1e7F;
  Ouvre();
  auto* h = C<QScrollBar>("HScroll_Sequence");
  h->setFocus();
  essai::Attend("F_Representation", "lib113");
  QTest::keyClick(h, Qt::Key_PageUp);
  EXPECT_EQ(X(), 1e7F);
  EXPECT_EQ(Texte("TB_X"), "0.0");
  EXPECT_EQ(h->value(), 0);
}

TEST_F(Deplacement, ArrowsAtTheEndsOfTheBarsMoveTheirWay) {
  DeuxCarres();
  Ouvre();
  const auto presse = [](QScrollBar* barre, const QPoint& place) {
    QTest::mouseClick(barre, Qt::LeftButton, {}, place);
    essai::Evenements();
  };
  auto* v = C<QScrollBar>("VScroll_Sequence");
  presse(v, QPoint(v->width() / 2, 4));
  EXPECT_NEAR(Y(), 5.1, 1e-4);
  presse(v, QPoint(v->width() / 2, v->height() - 4));
  EXPECT_NEAR(Y(), 5, 1e-4);
  auto* h = C<QScrollBar>("HScroll_Sequence");
  presse(h, QPoint(h->width() - 4, h->height() / 2));
  EXPECT_NEAR(X(), 20.1, 1e-4);
  presse(h, QPoint(4, h->height() / 2));
  EXPECT_NEAR(X(), 20, 1e-4);
}

TEST_F(Deplacement, HeldArrowsRepeatByTheSetting) {
  DeuxCarres();
  Regl.TimerInterval = 410;
  Ouvre();
  for (const char* fleche : {"CB_Haut", "CB_Bas", "CB_Gauche", "CB_Droite"}) {
    EXPECT_TRUE(C<QAbstractButton>(fleche)->autoRepeat());
    EXPECT_EQ(C<QAbstractButton>(fleche)->autoRepeatInterval(), 410) << fleche;
  }
  Regl.TimerInterval = 120;
  Remplit();
  EXPECT_EQ(C<QAbstractButton>("CB_Haut")->autoRepeatInterval(), 120);
}

}  // namespace
