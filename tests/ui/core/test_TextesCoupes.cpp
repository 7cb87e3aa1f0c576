// The check of windows itself: it must find what a user can't read.
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "tests/ui/support/SupportUi.h"

namespace {

using essai::TextesCoupes;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* Long = "A text of some length that asks for its room";

template <class T>
T* Nouveau(QWidget& parent, const char* nom, const QRect& place) {
  auto* w = new T(&parent);
  w->setObjectName(QLatin1String(nom));
  w->setGeometry(place);
  return w;
}

TEST(TextesCoupes, IsSilentWhereALayoutGivesEachControlItsRoom) {
  QDialog d;
  auto* boite = new QVBoxLayout(&d);
  boite->addWidget(new QLabel(Long));
  boite->addWidget(new QPushButton(Long));
  boite->addWidget(new QCheckBox(Long));
  auto* groupe = new QGroupBox(Long);
  auto* dedans = new QHBoxLayout(groupe);
  auto* combo = new QComboBox;
  combo->addItem(Long);
  dedans->addWidget(combo);
  boite->addWidget(groupe);
  auto* onglets = new QTabWidget;
  onglets->addTab(new QLabel(Long), "One");
  onglets->addTab(new QLabel(Long), "Two");
  boite->addWidget(onglets);
  auto* enroule = new QLabel(Long);
  enroule->setWordWrap(true);
  boite->addWidget(enroule);
  essai::Montre(d);
  EXPECT_THAT(TextesCoupes(d), IsEmpty());
}

TEST(TextesCoupes, FindsALabelThatIsTooNarrow) {
  QWidget w;
  auto* l = Nouveau<QLabel>(w, "Label1", {10, 10, 60, 20});
  l->setText(Long);
  essai::Montre(w, 400, 100);
  EXPECT_THAT(TextesCoupes(w), ElementsAre(HasSubstr("Label1")));
  l->setGeometry(10, 10, 380, 20);
  EXPECT_THAT(TextesCoupes(w), IsEmpty());
}

TEST(TextesCoupes, FindsALabelThatIsTooLow) {
  QWidget w;
  Nouveau<QLabel>(w, "Label1", {10, 10, 380, 6})->setText(Long);
  essai::Montre(w, 400, 100);
  EXPECT_THAT(TextesCoupes(w), ElementsAre(HasSubstr("high")));
}

TEST(TextesCoupes, FindsAWrappedLabelWhoseLinesOrWordsFindNoRoom) {
  QWidget w;
  auto* l = Nouveau<QLabel>(w, "Label1", {10, 10, 150, 20});
  l->setWordWrap(true);
  l->setText(Long);
  essai::Montre(w, 400, 200);
  EXPECT_THAT(TextesCoupes(w), ElementsAre(HasSubstr("high")));
  l->setText("Geschwindigkeitsbegrenzungen");
  l->setGeometry(10, 10, 50, 100);
  EXPECT_THAT(TextesCoupes(w), ElementsAre(HasSubstr("wide")));
}

TEST(TextesCoupes, FindsCutButtonsAndCheckBoxes) {
  QWidget w;
  Nouveau<QPushButton>(w, "Btn_OK", {10, 10, 70, 24})->setText(Long);
  Nouveau<QCheckBox>(w, "CB_Essai", {10, 50, 70, 24})->setText(Long);
  essai::Montre(w, 400, 100);
  EXPECT_THAT(TextesCoupes(w), ElementsAre(HasSubstr("Btn_OK"), HasSubstr("CB_Essai")));
}

TEST(TextesCoupes, FindsACutTitleOfAGroup) {
  QWidget w;
  Nouveau<QGroupBox>(w, "Frame1", {10, 10, 80, 60})->setTitle(Long);
  essai::Montre(w, 400, 100);
  EXPECT_THAT(TextesCoupes(w), ElementsAre(HasSubstr("Frame1")));
}

TEST(TextesCoupes, FindsCutTextInACombo) {
  QWidget w;
  auto* c = Nouveau<QComboBox>(w, "Combo_Essai", {10, 10, 80, 24});
  c->addItems({"short", Long});
  essai::Montre(w, 400, 100);
  EXPECT_THAT(TextesCoupes(w), IsEmpty());
  c->setCurrentIndex(1);
  EXPECT_THAT(TextesCoupes(w), ElementsAre(HasSubstr("Combo_Essai")));
}

TEST(TextesCoupes, LooksAtEveryItemOfAComboThatTheTranslationFills) {
  QWidget w;
  auto* c = Nouveau<QComboBox>(w, "Combo_Essai", {10, 10, 80, 24});
  c->addItems({"short", Long});
  c->setProperty("ovelin_origine_elements", QStringList{"a", "b"});
  essai::Montre(w, 400, 100);
  EXPECT_THAT(TextesCoupes(w), ElementsAre(HasSubstr("Combo_Essai")));
}

TEST(TextesCoupes, FindsTabsWithoutRoom) {
  QDialog d;
  auto* onglets = Nouveau<QTabWidget>(d, "SSTab1", {0, 0, 160, 80});
  for (int i = 0; i < 4; ++i) onglets->addTab(new QWidget, Long);
  essai::Montre(d, 400, 100);
  EXPECT_FALSE(TextesCoupes(d).empty());
}

TEST(TextesCoupes, LooksAtHiddenPagesAndComesBackToTheOneThatWasShown) {
  QDialog d;
  auto* boite = new QVBoxLayout(&d);
  auto* onglets = new QTabWidget;
  auto* cachee = new QWidget;
  Nouveau<QLabel>(*cachee, "Label_Cache", {0, 0, 30, 20})->setText(Long);
  onglets->addTab(new QWidget, "One");
  onglets->addTab(cachee, "Two");
  boite->addWidget(onglets);
  auto* pile = new QStackedWidget;
  auto* page = new QWidget;
  Nouveau<QLabel>(*page, "Label_Pile", {0, 0, 30, 20})->setText(Long);
  pile->addWidget(new QWidget);
  pile->addWidget(page);
  boite->addWidget(pile);
  essai::Montre(d, 500, 300);
  int changes = 0;
  QObject::connect(onglets, &QTabWidget::currentChanged, [&](int) { ++changes; });
  EXPECT_THAT(TextesCoupes(d), ElementsAre(HasSubstr("Label_Cache"), HasSubstr("Label_Pile")));
  EXPECT_EQ(onglets->currentIndex(), 0);
  EXPECT_EQ(pile->currentIndex(), 0);
  EXPECT_EQ(changes, 0);
}

TEST(TextesCoupes, FindsCutHeadersOfATree) {
  QDialog d;
  auto* boite = new QVBoxLayout(&d);
  auto* arbre = new QTreeWidget;
  arbre->setObjectName("TreeView1");
  arbre->setHeaderLabels({"X", Long});
  arbre->header()->setStretchLastSection(false);
  arbre->header()->resizeSection(1, 40);
  boite->addWidget(arbre);
  essai::Montre(d, 500, 300);
  EXPECT_THAT(TextesCoupes(d), ElementsAre(HasSubstr("TreeView1")));
  arbre->header()->resizeSection(1, 400);
  EXPECT_THAT(TextesCoupes(d), IsEmpty());
}

TEST(TextesCoupes, FindsAToolBarWithMoreThanItsRoom) {
  QMainWindow m;
  auto* barre = m.addToolBar("bar");
  barre->setObjectName("TB1");
  barre->setMovable(false);
  for (int i = 0; i < 20; ++i) barre->addAction("Button");
  essai::Montre(m, 200, 100);
  EXPECT_THAT(TextesCoupes(m), testing::Contains(HasSubstr("TB1")));
}

TEST(TextesCoupes, FindsControlsOverEachOtherAndBeyondTheirParent) {
  QWidget w;
  Nouveau<QLineEdit>(w, "TB_A", {10, 10, 100, 24});
  Nouveau<QLineEdit>(w, "TB_B", {80, 20, 100, 24});
  Nouveau<QLineEdit>(w, "TB_C", {350, 60, 100, 24});
  essai::Montre(w, 400, 100);
  EXPECT_THAT(TextesCoupes(w), ElementsAre("TB_A and TB_B lie over each other", HasSubstr("TB_C lies outside")));
}

TEST(TextesCoupes, LeavesOutHiddenControlsAndThoseThatSaySo) {
  QWidget w;
  Nouveau<QLabel>(w, "Label_Cache", {10, 10, 30, 20})->setText(Long);
  essai::Controle<QLabel>(w, "Label_Cache")->hide();
  auto* chemin = Nouveau<QLabel>(w, "Label_Chemin", {10, 40, 30, 20});
  chemin->setText(Long);
  chemin->setProperty("texteLibre", true);
  Nouveau<QLineEdit>(w, "TB_A", {10, 70, 100, 24});
  Nouveau<QLineEdit>(w, "TB_B", {80, 70, 100, 24})->setProperty("placeLibre", true);
  essai::Montre(w, 400, 100);
  EXPECT_THAT(TextesCoupes(w), IsEmpty());
}

}  // namespace
