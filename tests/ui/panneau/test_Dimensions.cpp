// FRAME1_DIMENSIONS: size, ratio and result of the selection.
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "tests/ui/panneau/Banc.h"

namespace {

using namespace ovelin;
using essai::Clique;
using essai::Sortie;
using essai::Tape;

class Dimensions : public essai::Banc<PageSequences> {
 protected:
  // A selected rectangle 40 x 25 beside a square that is not selected; travel 600 x 400.
  void Rectangle() {
    essai::AjouteCarre(" A", -50, -50, 10);
    essai::AjouteSequence(" B", {{0, 0}, {0, 25}, {40, 25}, {40, 0}, {0, 0}});
    Sequences[0].Selection = Faux;
    RecalculDecalages();
    EcrireCleSection("table_KR4400", "TB_SAV_18", "600");
    EcrireCleSection("table_KR4400", "TB_SAV_19", "400");
  }
};

TEST_F(Dimensions, ShowThePresentSizeWhichCanNotBeTyped) {
  Rectangle();
  Ouvre();
  EXPECT_EQ(Texte("TB_Initial_0"), "40");
  EXPECT_EQ(Texte("TB_Initial_1"), "25");
  EXPECT_EQ(Texte("TB_Rapport_0"), "1");
  EXPECT_EQ(Texte("TB_Rapport_1"), "1");
  EXPECT_EQ(Texte("TB_Resultat_0"), "");
  EXPECT_EQ(Texte("TB_Resultat_1"), "");
  Tape(*C("TB_Initial_0"), "99");
  EXPECT_EQ(Texte("TB_Initial_0"), "40");
}

TEST_F(Dimensions, RatioGivesTheResult) {
  Rectangle();
  Ouvre();
  Tape(*C("TB_Rapport_0"), "2,5");
  EXPECT_EQ(Texte("TB_Resultat_0"), "100");
  EXPECT_EQ(Texte("TB_Rapport_1"), "1");
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Dimensions, ResultGivesTheRatio) {
  Rectangle();
  Svc.MarqueDecimale = ',';
  Ouvre();
  Tape(*C("TB_Resultat_1"), "12.5", Sortie::Entree);
  EXPECT_EQ(Texte("TB_Rapport_1"), "0,5");
  EXPECT_EQ(Texte("TB_Resultat_1"), "12,5");
  EXPECT_EQ(Texte("TB_Rapport_0"), "1");
}

TEST_F(Dimensions, ProportionsGiveTheOtherAxisTheSameRatio) {
  Rectangle();
  Ouvre();
  Clique(*C("CB_Prop"));
  Tape(*C("TB_Rapport_1"), "2");
  EXPECT_EQ(Texte("TB_Rapport_0"), "2");
  EXPECT_EQ(Texte("TB_Resultat_0"), "80");
  EXPECT_EQ(Texte("TB_Resultat_1"), "50");
  Tape(*C("TB_Resultat_0"), "20");
  EXPECT_EQ(Texte("TB_Rapport_1"), "0.5");
  EXPECT_EQ(Texte("TB_Resultat_1"), "12.5");
}

TEST_F(Dimensions, CheckedLaterYTakesTheRatioOfX) {
  Rectangle();
  Ouvre();
  Tape(*C("TB_Rapport_0"), "3");
  Clique(*C("CB_Prop"));
  EXPECT_EQ(Texte("TB_Rapport_1"), "3");
  EXPECT_EQ(Texte("TB_Resultat_1"), "75");
}

TEST_F(Dimensions, OkScalesTheSelectionAboutItsCentre) {
  Rectangle();
  Ouvre();
  Tape(*C("TB_Rapport_0"), "2");
  Tape(*C("TB_Resultat_1"), "50");
  const auto trajet = TraceDecale;
  Clique(*C("CB_OK_Dimension"));
  EXPECT_NEAR(TraceInitial[5].X, -20, 1e-4);
  EXPECT_NEAR(TraceInitial[5].Y, -12.5, 1e-4);
  EXPECT_NEAR(TraceInitial[7].X, 60, 1e-4);
  EXPECT_NEAR(TraceInitial[7].Y, 37.5, 1e-4);
  EXPECT_EQ(TraceInitial[0].X, -50);
  EXPECT_NE(TraceDecale, trajet);
  EXPECT_EQ(Texte("TB_Initial_0"), "80");
  EXPECT_EQ(Texte("TB_Initial_1"), "50");
  EXPECT_EQ(Texte("TB_Rapport_0"), "1");
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(Dimensions, OkTakesAnEntryThatHasNotBeenLeft) {
  Rectangle();
  Ouvre();
  C("TB_Rapport_0")->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(C("TB_Rapport_0"), "2");
  Clique(*C("CB_OK_Dimension"));
  EXPECT_EQ(Texte("TB_Initial_0"), "80");
}

TEST_F(Dimensions, OkWithProportionsScalesBothAxesAlike) {
  Rectangle();
  Ouvre();
  Clique(*C("CB_Prop"));
  Tape(*C("TB_Rapport_0"), "2");
  Clique(*C("CB_OK_Dimension"));
  EXPECT_EQ(Texte("TB_Initial_0"), "80");
  EXPECT_EQ(Texte("TB_Initial_1"), "50");
  EXPECT_TRUE(Coche("CB_Prop"));
}

TEST_F(Dimensions, RatioOfZeroIsRefused) {
  Rectangle();
  Ouvre();
  const auto points = TraceInitial;
  for (const char* nom : {"TB_Rapport_0", "TB_Rapport_1"}) {
    Tape(*C(nom), "0");
    essai::Attend("F_Dimension", "lib001");
    Clique(*C("CB_OK_Dimension"));
    EXPECT_EQ(essai::Boites().back().icone, Icone::Critique);
    EXPECT_EQ(essai::Boites().back().titre, "OVELIN");
    EXPECT_EQ(TraceInitial, points);
    Tape(*C(nom), "1");
  }
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Dimensions, ResultEqualToTheTravelIsAccepted) {
  Rectangle();
  Ouvre();
  Tape(*C("TB_Resultat_0"), "600");
  Tape(*C("TB_Resultat_1"), "400");
  Clique(*C("CB_OK_Dimension"));
  EXPECT_EQ(Texte("TB_Initial_0"), "600");
  EXPECT_EQ(Texte("TB_Initial_1"), "400");
}

// 600 / 40.07 has no end: the ratio in the field is shorter than the one in force.
TEST_F(Dimensions, ResultEqualToTheTravelIsAcceptedForAnAwkwardSize) {
  Rectangle();
  for (std::size_t i = 5; i < 10; ++i) {
    if (TraceInitial[i].X > 0) TraceInitial[i].X = 40.07F;
  }
  Ouvre();
  ASSERT_EQ(Texte("TB_Initial_0"), "40.07");
  Tape(*C("TB_Resultat_0"), "600");
  C("TB_Rapport_0")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("TB_Rapport_0"), Qt::Key_Return);
  EXPECT_EQ(Texte("TB_Resultat_0"), "600");
  Clique(*C("CB_OK_Dimension"));
  EXPECT_EQ(Texte("TB_Initial_0"), "600");
}

TEST_F(Dimensions, ResultBeyondTheTravelIsRefused) {
  Rectangle();
  Ouvre();
  const auto points = TraceInitial;
  for (const auto& [nom, texte] : {std::pair{"TB_Resultat_0", "600.01"}, std::pair{"TB_Resultat_1", "400.01"},
                                   std::pair{"TB_Rapport_0", "16"}}) {
    Tape(*C(nom), texte);
    essai::Attend("F_Dimension", "lib002");
    Clique(*C("CB_OK_Dimension"));
    EXPECT_EQ(TraceInitial, points);
    Tape(*C("TB_Rapport_0"), "1");
    Tape(*C("TB_Rapport_1"), "1");
  }
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Dimensions, SizeOfZeroHasNoOtherResult) {
  essai::AjouteSequence(" A", {{0, 0}, {40, 0}});
  RecalculDecalages();
  Ouvre();
  Tape(*C("TB_Resultat_1"), "10");
  EXPECT_TRUE(Refuse("TB_Resultat_1"));
  EXPECT_EQ(Texte("TB_Rapport_1"), "1");
}

TEST_F(Dimensions, TextThatIsNoNumberHoldsTheOkBack) {
  Rectangle();
  Ouvre();
  const auto points = TraceInitial;
  Tape(*C("TB_Rapport_0"), "2");
  Tape(*C("TB_Rapport_1"), "-");
  EXPECT_TRUE(Refuse("TB_Rapport_1"));
  Clique(*C("CB_OK_Dimension"));
  EXPECT_EQ(TraceInitial, points);
  EXPECT_TRUE(C("TB_Rapport_1")->hasFocus());
}

}  // namespace
