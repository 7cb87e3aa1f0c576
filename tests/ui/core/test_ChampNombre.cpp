// The numeric field: what keys let through, when it says that it is left, how a refusal shows.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <memory>
#include <new>
#include <string_view>

#include "core/Nombres.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;
using testing::ElementsAre;
using testing::IsEmpty;

// ---- the filter

TEST(FiltreTouche, LetsDigitsMinusAndBackspaceThrough) {
  for (const char* touche : {"0", "9", "-", "\b"}) EXPECT_EQ(FiltreTouche(touche, "12", '.'), touche);
}

TEST(FiltreTouche, DropsEveryOtherKey) {
  for (const char* touche : {"a", "e", "E", "+", " ", "%", "/", "\t"}) {
    EXPECT_EQ(FiltreTouche(touche, "12", '.'), "") << touche;
  }
  EXPECT_EQ(FiltreTouche(QString(QChar(0x0661)), "", '.'), "") << "a digit of another script";
}

TEST(FiltreTouche, LetsThroughTheKeysOfTheSetAndNoOther) {
  for (char c = 1; c > 0 && c < 127; ++c) {
    const bool marque = c == '.' || c == ',';
    const bool passe = !FiltreTouche(QString(QLatin1Char(c)), "", marque ? c : '.').isEmpty();
    EXPECT_EQ(passe, TouchesNumeriques.find(c) != std::string_view::npos) << static_cast<int>(c);
  }
}

TEST(FiltreTouche, BothMarksBecomeTheUsers) {
  EXPECT_EQ(FiltreTouche(".", "12", ','), ",");
  EXPECT_EQ(FiltreTouche(",", "12", ','), ",");
  EXPECT_EQ(FiltreTouche(",", "12", '.'), ".");
  EXPECT_EQ(FiltreTouche(".", "12", '.'), ".");
}

TEST(FiltreTouche, DropsASecondMark) {
  EXPECT_EQ(FiltreTouche(".", "1,2", ','), "");
  EXPECT_EQ(FiltreTouche(",", "1.2", '.'), "");
  EXPECT_EQ(FiltreTouche("1.2,3", "", '.'), "1.23");
}

// ---- the field

class Champ : public testing::Test {
 protected:
  void SetUp() override {
    Svc.MarqueDecimale = ',';
    boite_ = new QVBoxLayout(&fenetre_);
    champ_ = new ChampNombre("TB_Essai", "mm");
    autre_ = new ChampNombre("TB_Autre");
    boite_->addWidget(champ_);
    boite_->addWidget(autre_);
    QObject::connect(champ_, &ChampNombre::Quitte, champ_, [this](bool change) { quittes_.push_back(change); });
  }
  void Ouvre() {
    essai::Montre(fenetre_, 300, 160);
    champ_->setFocus(Qt::TabFocusReason);
    champ_->selectAll();
    essai::Evenements();
  }
  void Frappe(const char* touches) { QTest::keyClicks(champ_, touches); }
  void Touche(Qt::Key touche, Qt::KeyboardModifiers m = {}) {
    QTest::keyClick(champ_, touche, m);
    essai::Evenements();
  }

  QDialog fenetre_;
  QVBoxLayout* boite_ = nullptr;
  ChampNombre* champ_ = nullptr;
  ChampNombre* autre_ = nullptr;
  std::vector<bool> quittes_;
};

TEST_F(Champ, TakesNumbersWithEitherMarkAndNothingElse) {
  Ouvre();
  Frappe("x1.2,3 mm");
  EXPECT_EQ(champ_->Texte(), "1,23");
}

TEST_F(Champ, AMarkInsideTheSelectionMayBeTypedAnew) {
  Ouvre();
  champ_->Montre("12,5");
  champ_->setSelection(1, 2);
  Frappe(".");
  EXPECT_EQ(champ_->Texte(), "1,5");
  champ_->setSelection(2, 1);
  Frappe(".");
  EXPECT_EQ(champ_->Texte(), "1,5") << "a second mark: the key is dropped, the selection stays";
}

TEST_F(Champ, BackspaceAndUndoWorkAsInEveryField) {
  Ouvre();
  Frappe("123");
  Touche(Qt::Key_Backspace);
  EXPECT_EQ(champ_->Texte(), "12");
  Touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(champ_->Texte(), "12");
}

TEST_F(Champ, WhatIsPastedPassesTheFilterToo) {
  Ouvre();
  QApplication::clipboard()->setText(" 12.5 mm\n");
  Touche(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(champ_->Texte(), "12,5");
  champ_->end(false);
  QApplication::clipboard()->setText(".75");
  Touche(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(champ_->Texte(), "12,575");
}

TEST_F(Champ, APastedNumberWithAnExponentKeepsItsValue) {
  Ouvre();
  QApplication::clipboard()->setText("1.5e3");
  Touche(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(champ_->Texte(), "1500");
}

TEST_F(Champ, WhatComesByTheMenuPassesTheFilterToo) {
  Ouvre();
  QApplication::clipboard()->setText("a1.2b");
  champ_->paste();
  EXPECT_EQ(champ_->Texte(), "1,2");
}

TEST_F(Champ, AFieldOfWholeNumbersTakesNoMark) {
  champ_->EntierSeul();
  Ouvre();
  Frappe("-1.2,3");
  EXPECT_EQ(champ_->Texte(), "-123");
  champ_->selectAll();
  QApplication::clipboard()->setText("4.5");
  champ_->paste();
  EXPECT_EQ(champ_->Texte(), "45");
}

TEST_F(Champ, KeepsRoomForItsUnit) {
  Ouvre();
  EXPECT_GE(champ_->textMargins().right(), champ_->fontMetrics().horizontalAdvance("mm"));
  EXPECT_EQ(autre_->textMargins().right(), 0);
  champ_->clear();
  EXPECT_NE(champ_->grab().toImage(), autre_->grab().toImage());
}

// ---- leaving

TEST_F(Champ, SaysOnceThatItIsLeft) {
  Ouvre();
  Frappe("5");
  EXPECT_THAT(quittes_, IsEmpty());
  Touche(Qt::Key_Tab);
  EXPECT_THAT(quittes_, ElementsAre(true));
}

TEST_F(Champ, LeavingWithoutAChangeSaysSo) {
  champ_->Montre("5");
  Ouvre();
  Frappe("5");
  Touche(Qt::Key_Tab);
  EXPECT_THAT(quittes_, ElementsAre(false));
}

TEST_F(Champ, AnEnterSaysItOnceAndTheLeavingAfterItIsNoChange) {
  Ouvre();
  Frappe("5");
  Touche(Qt::Key_Return);
  EXPECT_THAT(quittes_, ElementsAre(true));
  EXPECT_EQ(champ_->TexteEntree(), "5");
  Touche(Qt::Key_Tab);
  EXPECT_THAT(quittes_, ElementsAre(true, false));
}

TEST_F(Champ, AValueShownByTheProgramIsNoChange) {
  Ouvre();
  champ_->Montre("7");
  EXPECT_THAT(quittes_, IsEmpty());
  Touche(Qt::Key_Tab);
  EXPECT_THAT(quittes_, ElementsAre(false));
}

TEST_F(Champ, TheTextOnEntryComesBack) {
  champ_->Montre("3");
  Ouvre();
  std::string avant;
  QObject::connect(champ_, &ChampNombre::Quitte, champ_, [&](bool) {
    avant = champ_->TexteEntree();
    champ_->Restitue();
  });
  Frappe("99");
  Touche(Qt::Key_Tab);
  EXPECT_EQ(avant, "3");
  EXPECT_EQ(champ_->Texte(), "3");
}

TEST_F(Champ, EscapeTakesTheEntryBackAndTheNextOneClosesTheDialog) {
  champ_->Montre("3");
  Ouvre();
  Frappe("99");
  Touche(Qt::Key_Escape);
  EXPECT_EQ(champ_->Texte(), "3");
  EXPECT_TRUE(fenetre_.isVisible());
  EXPECT_THAT(quittes_, IsEmpty());
  Touche(Qt::Key_Escape);
  EXPECT_FALSE(fenetre_.isVisible());
}

TEST_F(Champ, AnEnterThatChangesSomethingDoesNotPressTheDefaultButton) {
  auto* ok = new QPushButton("OK");
  ok->setDefault(true);
  boite_->addWidget(ok);
  int clics = 0;
  QObject::connect(ok, &QPushButton::clicked, ok, [&] { ++clics; });
  Ouvre();
  Frappe("5");
  Touche(Qt::Key_Return);
  EXPECT_EQ(clics, 0);
  Touche(Qt::Key_Return);
  EXPECT_EQ(clics, 1);
}

TEST_F(Champ, ABoxOfTheHandlerDoesNotMakeItSayItAgain) {
  Ouvre();
  QObject::connect(champ_, &ChampNombre::Quitte, champ_, [&](bool change) {
    if (!change) return;
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    QMessageBox(QMessageBox::Information, "OVELIN", "refused", QMessageBox::Ok, &fenetre_).exec();
  });
  Frappe("5");
  Touche(Qt::Key_Return);
  EXPECT_THAT(quittes_, ElementsAre(true));
}

TEST_F(Champ, AnotherWindowInFrontTakesTheEntryOverWithoutANewEntryOnTheWayBack) {
  Ouvre();
  Frappe("5");
  QWidget devant;
  essai::Montre(devant);
  EXPECT_THAT(quittes_, ElementsAre(true));
  essai::Montre(fenetre_);
  devant.hide();
  Touche(Qt::Key_Tab);
  EXPECT_THAT(quittes_, ElementsAre(true, false));
}

TEST_F(Champ, AnotherWindowInFrontDuringAPassLeavesTheEntryToTheLeavingOfTheField) {
  Ouvre();
  Frappe("5");
  QWidget devant;
  {
    const Passe passe;
    essai::Montre(devant);
    EXPECT_THAT(quittes_, IsEmpty());
  }
  essai::Montre(fenetre_);
  devant.hide();
  Touche(Qt::Key_Tab);
  EXPECT_THAT(quittes_, ElementsAre(true));
}

TEST_F(Champ, SpeaksAgainAfterAHandlerThatFailed) {
  Ouvre();
  const auto echec = QObject::connect(champ_, &ChampNombre::Quitte, champ_, [] { throw std::bad_alloc(); });
  Frappe("5");
  EXPECT_THROW(Touche(Qt::Key_Return), std::bad_alloc);
  QObject::disconnect(echec);
  quittes_.clear();
  Touche(Qt::Key_Return);
  EXPECT_THAT(quittes_, ElementsAre(true)) << "the entry has not been taken over yet";
}

TEST_F(Champ, ItsOwnMenuIsNoLeaving) {
  Ouvre();
  Frappe("5");
  QContextMenuEvent e(QContextMenuEvent::Keyboard, QPoint(5, 5), champ_->mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(champ_, &e);
  const QPointer<QWidget> menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  EXPECT_THAT(quittes_, IsEmpty());
  menu->close();
}

TEST_F(Champ, GoesSilentlyWithItsWindow) {
  Ouvre();
  Frappe("5");
  fenetre_.hide();
  essai::Evenements();
  EXPECT_THAT(quittes_, IsEmpty());
}

TEST(ChampNombre, IsDestroyedSilentlyWithItsWindow) {
  int dits = 0;
  {
    QDialog fenetre;
    auto* champ = new ChampNombre("TB_Essai", "mm", &fenetre);
    QObject::connect(champ, &ChampNombre::Quitte, [&](bool) { ++dits; });
    essai::Montre(fenetre, 200, 100);
    champ->setFocus();
    QTest::keyClicks(champ, "5");
  }
  EXPECT_EQ(dits, 0);
}

// Buttons of a tool bar and shortcuts leave the keyboard where it is.
TEST(ChampNombre, SaysAChangeBeforeACommandThatDoesNotTakeTheKeyboard) {
  QMainWindow fenetre;
  auto* champ = new ChampNombre("TB_Essai", "mm");
  fenetre.setCentralWidget(champ);
  auto* barre = fenetre.addToolBar("TB1");
  QAction* commande = barre->addAction("run");
  commande->setShortcut(QKeySequence("Ctrl+R"));
  std::vector<std::string> ordre;
  QObject::connect(champ, &ChampNombre::Quitte, [&](bool change) { ordre.push_back(change ? "change" : "same"); });
  QObject::connect(commande, &QAction::triggered, [&] { ordre.push_back("command"); });
  essai::Montre(fenetre, 300, 100);
  champ->setFocus();
  QTest::keyClicks(champ, "5");
  essai::Clique(*barre->widgetForAction(commande));
  EXPECT_THAT(ordre, ElementsAre("change", "command"));
  EXPECT_TRUE(champ->hasFocus());
  ordre.clear();
  QTest::keyClicks(champ, "6");
  QTest::keyClick(champ, Qt::Key_R, Qt::ControlModifier);
  EXPECT_THAT(ordre, ElementsAre("change", "command"));
  ordre.clear();
  essai::Clique(*barre->widgetForAction(commande));
  EXPECT_THAT(ordre, ElementsAre("command"));
}

// ---- refusal

TEST_F(Champ, ARefusalShowsAtTheFieldUntilTheNextKey) {
  champ_->setToolTip("the radius");
  champ_->setAccessibleDescription("radius of the tool");
  Ouvre();
  champ_->Refuse("must be positive");
  EXPECT_TRUE(champ_->EstRefuse());
  EXPECT_EQ(champ_->toolTip(), "must be positive");
  EXPECT_EQ(champ_->accessibleDescription(), "must be positive");
  champ_->Refuse("must be a number");
  EXPECT_EQ(champ_->toolTip(), "must be a number");
  Frappe("1");
  EXPECT_FALSE(champ_->EstRefuse());
  EXPECT_EQ(champ_->toolTip(), "the radius");
  EXPECT_EQ(champ_->accessibleDescription(), "radius of the tool");
}

TEST_F(Champ, AcceptingEndsTheRefusal) {
  Ouvre();
  champ_->Refuse("no");
  champ_->Accepte();
  EXPECT_FALSE(champ_->EstRefuse());
  EXPECT_EQ(champ_->toolTip(), "");
  champ_->Accepte();
  EXPECT_FALSE(champ_->EstRefuse());
}

TEST_F(Champ, ARefusalByTheHandlerOfAnEnterStays) {
  champ_->Montre("3");
  Ouvre();
  QObject::connect(champ_, &ChampNombre::Quitte, champ_, [&](bool change) {
    if (change) champ_->Refuse("no");
    champ_->Restitue();
  });
  Frappe("7");
  Touche(Qt::Key_Return);
  EXPECT_TRUE(champ_->EstRefuse());
  EXPECT_EQ(champ_->Texte(), "3");
  EXPECT_THAT(quittes_, ElementsAre(true));
}

TEST_F(Champ, ARefusedFieldHasARedFrameInBothThemes) {
  for (const bool sombre : {false, true}) {
    essai::ThemeSombreEssai(sombre);
    Ouvre();
    champ_->Accepte();
    const auto rouge = [&] {
      const QColor c = champ_->grab().toImage().pixelColor(champ_->width() / 2, 1);
      return c.red() > c.green() + 60 && c.red() > c.blue() + 60;
    };
    EXPECT_FALSE(rouge());
    champ_->Refuse("no");
    EXPECT_TRUE(rouge());
  }
}

TEST_F(Champ, TheReasonStandsInABubbleInsideTheWindow) {
  Ouvre();
  for (ChampNombre* champ : {champ_, autre_}) {
    champ->Refuse("The radius of the tool must be positive and less than a hundred millimetres");
    auto* bulle = fenetre_.findChild<QLabel*>("qt_bulle");
    ASSERT_NE(bulle, nullptr);
    EXPECT_TRUE(bulle->isVisible());
    EXPECT_TRUE(bulle->text().startsWith("The radius"));
    EXPECT_TRUE(fenetre_.rect().contains(bulle->geometry()));
    EXPECT_FALSE(bulle->geometry().intersects(champ->geometry()));
    champ->Accepte();
    essai::Evenements();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(fenetre_.findChild<QLabel*>("qt_bulle"), nullptr);
  }
}

TEST_F(Champ, TheBubbleGoesWithAPressOrAKeyElsewhereAndTheFrameStays) {
  Ouvre();
  champ_->Refuse("no");
  essai::Clique(*autre_);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(fenetre_.findChild<QLabel*>("qt_bulle"), nullptr);
  EXPECT_TRUE(champ_->EstRefuse());
}

TEST_F(Champ, AFieldThatIsOnlyReadTakesNoKey) {
  champ_->Montre("3");
  champ_->setReadOnly(true);
  Ouvre();
  Frappe("99");
  EXPECT_EQ(champ_->Texte(), "3");
}

// ---- undo

TEST_F(Champ, UndoIsTheFieldsOwnUntilItsTextIsTakenOver) {
  QAction annule(&fenetre_);
  annule.setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
  fenetre_.addAction(&annule);
  int dessin = 0;
  QObject::connect(&annule, &QAction::triggered, [&] { ++dessin; });
  Ouvre();
  Frappe("12");
  Touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(dessin, 0);
  EXPECT_NE(champ_->Texte(), "12");
  champ_->selectAll();
  Frappe("7");
  Touche(Qt::Key_Return);
  Touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(dessin, 1);
  EXPECT_EQ(champ_->Texte(), "7");
}

TEST_F(Champ, AValueShownAnewEndsTheHistoryOfTheTyping) {
  Ouvre();
  Frappe("8");
  champ_->Montre("8");
  EXPECT_FALSE(champ_->isUndoAvailable());
  Frappe("5");
  EXPECT_TRUE(champ_->isUndoAvailable());
}

TEST_F(Champ, SaysAnEnterBehindTheEntry) {
  std::vector<std::size_t> derriere;  // leavings before each Enter
  QObject::connect(champ_, &ChampNombre::Entree, [&] { derriere.push_back(quittes_.size()); });
  Ouvre();
  Frappe("3");
  Touche(Qt::Key_Return);
  EXPECT_THAT(derriere, ElementsAre(1U));
  Touche(Qt::Key_Tab);
  EXPECT_THAT(derriere, ElementsAre(1U)) << "leaving is no Enter";
}

}  // namespace
