// The window of lettering, by mouse and keys, with the fonts of this machine.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ui/ChampNombre.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/ui/ApercuTexte.h"
#include "toolpath/ui/F_Texte.h"

namespace essai {
namespace {

using namespace ovelin;

void Choisit(F_Texte& f, const char* police) {
  auto* liste = Controle<QListWidget>(f, "List1");
  const auto trouvees = liste->findItems(QString::fromUtf8(police), Qt::MatchExactly);
  ASSERT_EQ(trouvees.size(), 1) << police;
  liste->setCurrentItem(trouvees[0]);
}

TEST(F_Texte, ListsTheFontsOfTheSystem) {
  F_Texte f;
  Montre(f);
  const auto* liste = Controle<QListWidget>(f, "List1");
  EXPECT_FALSE(liste->findItems("DejaVu Sans", Qt::MatchExactly).isEmpty());
  EXPECT_TRUE(Controle<QLabel>(f, "StatusBar1")->text().startsWith(QString::number(liste->count()) + " "));
  EXPECT_TRUE(liste->currentItem() != nullptr) << "the first where none was saved";
  EXPECT_FALSE(Controle<QWidget>(f, "ProgressBar1")->isVisible());
}

// In a new drawing of 20 mm letters: "I" of this font is 1493 of 2048 units high and begins 201 from its left edge.
TEST(F_Texte, MakesADrawingOfTheTextWithItsMargin) {
  F_Texte f;
  Montre(f);
  Choisit(f, "DejaVu Sans");
  Controle<QLineEdit>(f, "TB_Texte")->setText("I");
  Clique(*Controle<QPushButton>(f, "CB_Generer"));
  EXPECT_FALSE(f.isVisible());
  ASSERT_EQ(Sequences.size(), 1U);
  EXPECT_NEAR(Ymin, 5, 1e-4);
  EXPECT_NEAR(Xmin, 5, 1e-4);
  EXPECT_NEAR(Ymax - Ymin, 20.0 * 1493 / 2048, 0.01);
}

TEST(F_Texte, TakesTheHeightInMillimetres) {
  F_Texte f;
  Montre(f);
  Choisit(f, "DejaVu Sans");
  Controle<QLineEdit>(f, "TB_Texte")->setText("I");
  Tape(*Controle<ChampNombre>(f, "TB_Hauteur"), "50");
  Clique(*Controle<QPushButton>(f, "CB_Generer"));
  EXPECT_NEAR(Ymax - Ymin, 50.0 * 1493 / 2048, 0.01);
}

TEST(F_Texte, RefusesAHeightThatIsNone) {
  F_Texte f;
  Montre(f);
  for (const char* hauteur : {"0", "-5", "1001", ""}) {
    Tape(*Controle<ChampNombre>(f, "TB_Hauteur"), hauteur);
    Clique(*Controle<QPushButton>(f, "CB_Generer"));
    EXPECT_TRUE(f.isVisible()) << hauteur;
    EXPECT_TRUE(Controle<ChampNombre>(f, "TB_Hauteur")->EstRefuse()) << hauteur;
  }
  EXPECT_TRUE(Sequences.empty() || TraceInitial.empty());
}

TEST(F_Texte, PreviewFollowsEachKeyTheFontAndTheStyle) {
  F_Texte f;
  Montre(f);
  Choisit(f, "DejaVu Sans");
  auto* texte = Controle<QLineEdit>(f, "TB_Texte");
  texte->clear();
  const auto largeur = [&] { return Controle<ApercuTexte>(f, "PB1")->Chemin().boundingRect().width(); };
  EXPECT_EQ(largeur(), 0);
  QTest::keyClicks(texte, "M");
  const double un = largeur();
  EXPECT_GT(un, 5);
  QTest::keyClicks(texte, "M");
  const double deux = largeur();
  EXPECT_GT(deux, 1.9 * un);
  Controle<QSlider>(f, "HScroll1")->setValue(1000);
  EXPECT_NEAR(largeur(), deux + 20, 0.1);  // an em between the two
  Controle<QSlider>(f, "HScroll1")->setValue(0);
  Controle<QCheckBox>(f, "CB_Flag_1")->click();
  EXPECT_GT(largeur(), deux) << "bold";
}

TEST(F_Texte, RemembersWhatWasSetInTheSettingsFile) {
  {
    F_Texte f;
    Montre(f);
    Choisit(f, "DejaVu Sans Mono");
    Controle<QLineEdit>(f, "TB_Texte")->setText("Été");
    Controle<QSlider>(f, "HScroll1")->setValue(40);
    Controle<QCheckBox>(f, "CB_Flag_0")->click();
    Clique(*Controle<QPushButton>(f, "CB_Generer"));
  }
  EXPECT_EQ(LireCleIni("F_Texte_Texte", ""), "Été");
  EXPECT_EQ(LireCleIni("F_Texte_Police", ""), "DejaVu Sans Mono");
  EXPECT_EQ(LireCleIni("F_Texte_InterCaractere", ""), "40");
  EXPECT_EQ(LireCleIni("F_Texte_Italique", ""), "Vrai");
  EXPECT_EQ(LireCleIni("F_Texte_Gras", ""), "Faux");
  F_Texte f;
  Montre(f);
  EXPECT_EQ(Controle<QLineEdit>(f, "TB_Texte")->text(), "Été");
  EXPECT_EQ(Controle<QListWidget>(f, "List1")->currentItem()->text(), "DejaVu Sans Mono");
  EXPECT_EQ(Controle<QSlider>(f, "HScroll1")->value(), 40);
  EXPECT_TRUE(Controle<QCheckBox>(f, "CB_Flag_0")->isChecked());
}

// In twips, fifteen a pixel.
TEST(F_Texte, ComesBackWhereItWasLeft) {
  {
    F_Texte f;
    Montre(f);
    f.move(60, 40);
  }
  EXPECT_EQ(LireCleIni("F_Texte_Left", ""), "900");
  EXPECT_EQ(LireCleIni("F_Texte_Top", ""), "600");
  F_Texte f;
  Montre(f);
  EXPECT_EQ(f.pos(), QPoint(60, 40));
}

TEST(F_Texte, CancelKeepsTheStyleAndLeavesTextAndDrawing) {
  {
    F_Texte f;
    Montre(f);
    Controle<QLineEdit>(f, "TB_Texte")->setText("Rien");
    Controle<QCheckBox>(f, "CB_Flag_1")->click();
    Clique(*Controle<QPushButton>(f, "CB_Cancel"));
    EXPECT_FALSE(f.isVisible());
  }
  EXPECT_EQ(LireCleIni("F_Texte_Gras", ""), "Vrai");
  EXPECT_EQ(LireCleIni("F_Texte_Texte", "jamais"), "jamais");
  EXPECT_EQ(Modifie, Faux);
}

TEST(F_Texte, ComesIntoADrawingAtTheMarkedPosition) {
  AjouteCarre(" A", 0, 0, 10);
  NbPoints = 5;
  OrigineX = 30;
  OrigineY = 40;
  F_Texte f;
  Montre(f);
  Choisit(f, "DejaVu Sans");
  Controle<QLineEdit>(f, "TB_Texte")->setText("I");
  Clique(*Controle<QPushButton>(f, "CB_Generer"));
  ASSERT_EQ(Sequences.size(), 2U);
  // "I" stands on its base line and begins 201 of 2048 units from the left edge of its cell, in letters of 20 mm.
  EXPECT_NEAR(Ymax, 40 + 20.0 * 1493 / 2048, 0.01);
  EXPECT_NEAR(TraceInitial[5].X, 30 + 20.0 * 201 / 2048, 2.5) << "one of its two sides";
}

TEST(F_Texte, TellsOfAFontThatHasGone) {
  EcrireCle("F_Texte_Police", "Police disparue");
  F_Texte f;
  Montre(f);
  EXPECT_TRUE(Controle<QLabel>(f, "StatusBar1")->text().endsWith(" Police disparue"));
  EXPECT_TRUE(Controle<QListWidget>(f, "List1")->currentItem() != nullptr);
}

TEST(F_Texte, TellsOfATextWithoutOutlinesAndLeavesTheDrawingWhole) {
  AjouteCarre(" A", 0, 0, 10);
  const auto avant = TraceInitial;
  F_Texte f;
  Montre(f);
  Choisit(f, "DejaVu Sans");
  Controle<QLineEdit>(f, "TB_Texte")->setText("   ");
  EXPECT_TRUE(Controle<QLabel>(f, "StatusBar1")->text().contains("contour")) << "French stands in";
  Clique(*Controle<QPushButton>(f, "CB_Generer"));
  EXPECT_EQ(TraceInitial, avant);
}

// Ten thousand characters: the preview shows the beginning, the drawing gets all of them or a reason.
TEST(F_Texte, TakesTenThousandCharacters) {
  F_Texte f;
  Montre(f);
  Choisit(f, "DejaVu Sans");
  Controle<QLineEdit>(f, "TB_Texte")->setText(QString(10000, QLatin1Char('I')));
  EXPECT_LT(Controle<ApercuTexte>(f, "PB1")->Chemin().boundingRect().width(), 201 * 20.0);
  Attend("F_Representation", "lib112");
  Clique(*Controle<QPushButton>(f, "CB_Generer"));
  EXPECT_TRUE(f.isVisible());
  EXPECT_TRUE(TraceInitial.empty() || Sequences.empty());
}

// The letters of a script that runs to the left come out in its order: the first letter is the one at the right.
TEST(F_Texte, LaysOutAScriptFromRightToLeft) {
  F_Texte f;
  Montre(f);
  Choisit(f, "DejaVu Sans");
  const auto boite = [&](const char* texte) {
    Controle<QLineEdit>(f, "TB_Texte")->setText(QString::fromUtf8(texte));
    return Controle<ApercuTexte>(f, "PB1")->Chemin();
  };
  const QPainterPath yod = boite("י");
  const QPainterPath mot = boite("שי");  // shin, then yod
  ASSERT_GT(yod.boundingRect().width(), 0);
  EXPECT_GT(mot.boundingRect().width(), 2 * yod.boundingRect().width());
  // yod, the narrow letter that comes second, lies at the left: nothing of it is below its upper half.
  QRectF gauche = mot.boundingRect();
  gauche.setWidth(yod.boundingRect().width() / 2);
  gauche.setHeight(mot.boundingRect().height() / 4);
  EXPECT_FALSE(mot.intersects(gauche));
}

}  // namespace
}  // namespace essai
