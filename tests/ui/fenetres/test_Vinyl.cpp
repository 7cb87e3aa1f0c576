// The window of the drag knife, by mouse and keys.
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/ui/F_Vinyl.h"

namespace essai {
namespace {

using namespace ovelin;

// A diamond: each side has one extreme point. The bisecting corners are those of the tie rules: greatest Y first.
void Losange() {
  RayonFraise = 0;
  AjouteSequence(" A", {{20, 20}, {10, 30}, {0, 20}, {10, 10}, {20, 20}});
  RecalculDecalages();
}
std::pair<float, float> Depart() { return {TraceInitial[0].X, TraceInitial[0].Y}; }
std::size_t PointsDuTrajet() { return TraceDecale.empty() ? 0 : TraceDecale[0].Points.size(); }

TEST(F_Vinyl, AnArrowMovesTheStartAndStaysPressedAlone) {
  Losange();
  F_Vinyl f;
  Montre(f);
  Clique(*Controle<QToolButton>(f, "CB_Fleche_4"));
  EXPECT_EQ(Depart(), (std::pair<float, float>{10, 30}));
  Clique(*Controle<QToolButton>(f, "CB_Fleche_7"));
  EXPECT_EQ(Depart(), (std::pair<float, float>{0, 20}));
  EXPECT_FALSE(Controle<QToolButton>(f, "CB_Fleche_4")->isChecked());
  EXPECT_TRUE(Controle<QToolButton>(f, "CB_Fleche_7")->isChecked());
  EXPECT_EQ(Modifie, Vrai);
}

// Each button lies where its corner or side is.
TEST(F_Vinyl, ArrowsLieAroundAsTheirCornersDo) {
  F_Vinyl f;
  Montre(f);
  const auto place = [&](const char* nom) { return Controle<QToolButton>(f, nom)->geometry().center(); };
  EXPECT_LT(place("CB_Fleche_0").x(), place("CB_Fleche_4").x());
  EXPECT_LT(place("CB_Fleche_4").x(), place("CB_Fleche_1").x());
  EXPECT_EQ(place("CB_Fleche_0").y(), place("CB_Fleche_1").y());
  EXPECT_LT(place("CB_Fleche_7").y(), place("CB_Fleche_3").y());
  EXPECT_LT(place("CB_Fleche_0").y(), place("CB_Fleche_7").y());
  EXPECT_EQ(place("CB_Fleche_3").y(), place("CB_Fleche_2").y());
  EXPECT_EQ(place("CB_Fleche_5").x(), place("CB_Fleche_2").x());
  EXPECT_EQ(place("CB_Fleche_6").x(), place("CB_Fleche_4").x());
}

TEST(F_Vinyl, StrokesInTheMarginHideTheArrowsAndLengthenTheCuts) {
  Losange();
  const std::size_t avant = PointsDuTrajet();
  F_Vinyl f;
  Montre(f);
  Controle<QRadioButton>(f, "Option1_1")->click();
  EXPECT_FALSE(Controle<QToolButton>(f, "CB_Fleche_0")->isVisible());
  EXPECT_TRUE(Controle<QCheckBox>(f, "CB_Prolongement")->isChecked());
  EXPECT_EQ(PointsDuTrajet(), avant + 3);
  Controle<QRadioButton>(f, "Option1_0")->click();
  EXPECT_TRUE(Controle<QToolButton>(f, "CB_Fleche_0")->isVisible());
  EXPECT_FALSE(Controle<QCheckBox>(f, "CB_Prolongement")->isChecked());
  EXPECT_EQ(PointsDuTrajet(), avant);
}

TEST(F_Vinyl, TheCheckBoxAloneLengthensAndKeepsTheArrows) {
  Losange();
  const std::size_t avant = PointsDuTrajet();
  F_Vinyl f;
  Montre(f);
  Controle<QCheckBox>(f, "CB_Prolongement")->click();
  EXPECT_EQ(PointsDuTrajet(), avant + 3);
  EXPECT_TRUE(Controle<QToolButton>(f, "CB_Fleche_0")->isVisible());
}

TEST(F_Vinyl, ComesBackAsItWasLeft) {
  Losange();
  {
    F_Vinyl f;
    Montre(f);
    Controle<QRadioButton>(f, "Option1_1")->click();
    Clique(*Controle<QPushButton>(f, "Btn_Fermer"));
    EXPECT_FALSE(f.isVisible());
  }
  F_Vinyl f;
  Montre(f);
  EXPECT_TRUE(Controle<QRadioButton>(f, "Option1_1")->isChecked());
  EXPECT_TRUE(Controle<QCheckBox>(f, "CB_Prolongement")->isChecked());
}

}  // namespace
}  // namespace essai
