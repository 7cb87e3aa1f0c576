// FRAME1_OUTIL: each field of the tool has its own order of test and storing.
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/ui/panneau/Banc.h"

namespace {

using namespace ovelin;
using essai::Clique;
using essai::Sortie;
using essai::Tape;

constexpr const char* Champs[] = {"TB_RayonFraise", "TB_LargeurEncoche", "TB_MiniEncoche",
                                  "TB_HautDeg",     "TB_PCPoche",        "TB_ProfPasse"};

class Outil : public essai::Banc<PageFraisage> {
 protected:
  void Pret() {
    DeuxCarres();
    page_->RemplitOutil();
    Ouvre();
  }
  // What stands in the settings file.
  static Reglages Ecrits() {
    const Reglages avant = Regl;
    Regl = Reglages{};
    LitReglagesDocument();
    const Reglages lus = Regl;
    Regl = avant;
    return lus;
  }
};

TEST_F(Outil, ShowsTheValuesInForce) {
  Svc.MarqueDecimale = ',';
  RayonFraise = 1.5;
  LargeurEncoche = 4;
  MiniEncoche = 0.25;
  HautDeg = 12.5F;
  PCPoche = 20;
  ProfPasse = -0.8;
  Pret();
  EXPECT_EQ(Texte("TB_RayonFraise"), "1,5");
  EXPECT_EQ(Texte("TB_LargeurEncoche"), "4");
  EXPECT_EQ(Texte("TB_MiniEncoche"), "0,25");
  EXPECT_EQ(Texte("TB_HautDeg"), "12,5");
  EXPECT_EQ(Texte("TB_PCPoche"), "20");
  EXPECT_EQ(Texte("TB_ProfPasse"), "-0,8");
}

TEST_F(Outil, FieldsStayBlankWhereTheLoadEndedEarly) {
  Pret();
  page_->VideOutil();
  for (const char* nom : Champs) EXPECT_EQ(Texte(nom), "") << nom;
  for (const char* nom : Champs) {
    C(nom)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(C(nom), Qt::Key_Tab);
  }
  EXPECT_EQ(Regl.RayonFraise, 3);
  EXPECT_EQ(rafraichis_, 0);
}

TEST_F(Outil, GoingThroughTheFieldsComputesNothing) {
  Pret();
  C("TB_RayonFraise")->setFocus(Qt::TabFocusReason);
  for (int i = 0; i < 6; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(rafraichis_, 0);
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Outil, TextThatIsNoNumberIsRefusedByEveryField) {
  Pret();
  const Reglages avant = Regl;
  for (const char* nom : Champs) {
    Tape(*C(nom), "-");
    EXPECT_TRUE(Refuse(nom)) << nom;
    EXPECT_EQ(C(nom)->toolTip().toStdString(), "Ce n'est pas un nombre.") << nom;
    C<ChampNombre>(nom)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(C(nom), Qt::Key_Escape);
    page_->RemplitOutil();
  }
  EXPECT_EQ(Regl.RayonFraise, avant.RayonFraise);
  EXPECT_EQ(Regl.LargeurEncoche, avant.LargeurEncoche);
  EXPECT_EQ(Regl.PCPoche, avant.PCPoche);
  EXPECT_EQ(rafraichis_, 0);
}

// --- TB_RayonFraise

TEST_F(Outil, RadiusRecomputesAllPathsInTheUsersMark) {
  Svc.MarqueDecimale = ',';
  Pret();
  const auto trajet = TraceDecale;
  Tape(*C("TB_RayonFraise"), "1.25");
  EXPECT_EQ(RayonFraise, 1.25);
  EXPECT_EQ(Texte("TB_RayonFraise"), "1,25");
  EXPECT_NE(TraceDecale[0], trajet[0]);
  EXPECT_NE(TraceDecale[1], trajet[1]);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(rafraichis_, 1);
}

TEST_F(Outil, RadiusOfZeroIsTaken) {
  Pret();
  Tape(*C("TB_RayonFraise"), "0", Sortie::Entree);
  EXPECT_EQ(RayonFraise, 0);
  EXPECT_EQ(rafraichis_, 1);
  EXPECT_FALSE(Refuse("TB_RayonFraise"));
}

TEST_F(Outil, NegativeRadiusIsStoredRefusedAndNothingComputed) {
  Pret();
  const auto trajet = TraceDecale;
  essai::AttendTexte("< 0 !");
  Tape(*C("TB_RayonFraise"), "-2");
  EXPECT_EQ(RayonFraise, -2);
  EXPECT_EQ(TraceDecale, trajet);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_TRUE(Refuse("TB_RayonFraise"));
  EXPECT_EQ(Texte("TB_RayonFraise"), "-2");
  // left again as it is: said once
  C("TB_RayonFraise")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("TB_RayonFraise"), Qt::Key_Tab);
  Tape(*C("TB_RayonFraise"), "2");
  EXPECT_EQ(RayonFraise, 2);
  EXPECT_FALSE(Refuse("TB_RayonFraise"));
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(Outil, EnterRunsTheRuleOfAnUnchangedField) {
  Pret();
  C("TB_RayonFraise")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("TB_RayonFraise"), Qt::Key_Return);
  EXPECT_EQ(rafraichis_, 1);
}

// --- TB_LargeurEncoche

TEST_F(Outil, WidthOfNotchesIsStoredWrittenAndRecomputed) {
  Pret();
  Tape(*C("TB_LargeurEncoche"), "7.5");
  EXPECT_EQ(LargeurEncoche, 7.5);
  EXPECT_EQ(Ecrits().LargeurEncoche, 7.5);
  EXPECT_EQ(rafraichis_, 1);
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(Outil, WidthOfZeroIsRefusedAndKeepsTheKeyboardUntilItIsMended) {
  Pret();
  for (const char* texte : {"0", "-", "0.0"}) {
    Tape(*C("TB_LargeurEncoche"), texte);
    EXPECT_TRUE(C("TB_LargeurEncoche")->hasFocus()) << texte;
    essai::Capture(*fenetre_, "PageFraisage-refus");
    EXPECT_TRUE(Refuse("TB_LargeurEncoche")) << texte;
    EXPECT_EQ(LargeurEncoche, 5) << texte;
    // unchanged, it still can't be left
    QTest::keyClick(C("TB_LargeurEncoche"), Qt::Key_Tab);
    EXPECT_TRUE(C("TB_LargeurEncoche")->hasFocus()) << texte;
  }
  EXPECT_EQ(rafraichis_, 0);
  EXPECT_EQ(Modifie, Faux);
  Tape(*C("TB_LargeurEncoche"), "2");
  EXPECT_FALSE(C("TB_LargeurEncoche")->hasFocus());
  EXPECT_FALSE(Refuse("TB_LargeurEncoche"));
  EXPECT_EQ(LargeurEncoche, 2);
}

TEST_F(Outil, WidthOfZeroKeepsTheKeyboardWhenAnotherControlIsPressed) {
  Pret();
  QWidget* champ = C("TB_LargeurEncoche");
  champ->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(champ, "0");
  Clique(*C("TB_PCPoche"));
  EXPECT_TRUE(champ->hasFocus());
  EXPECT_TRUE(Refuse("TB_LargeurEncoche"));
}

TEST_F(Outil, EscapeFreesARefusedWidth) {
  Pret();
  QWidget* champ = C("TB_LargeurEncoche");
  Tape(*champ, "0");
  QTest::keyClick(champ, Qt::Key_Escape);
  EXPECT_EQ(Texte("TB_LargeurEncoche"), "5");
  EXPECT_FALSE(Refuse("TB_LargeurEncoche"));
  QTest::keyClick(champ, Qt::Key_Tab);
  EXPECT_FALSE(champ->hasFocus());
  EXPECT_EQ(rafraichis_, 0);
}

TEST_F(Outil, RefusedWidthDoesNotHoldAPageThatIsHidden) {
  Pret();
  Tape(*C("TB_LargeurEncoche"), "0");
  page_->hide();
  essai::Evenements();
  EXPECT_EQ(LargeurEncoche, 5);
  page_->show();
  essai::Evenements();
  EXPECT_TRUE(Refuse("TB_LargeurEncoche"));
  Tape(*C("TB_LargeurEncoche"), "4");
  EXPECT_EQ(LargeurEncoche, 4);
}

TEST_F(Outil, NegativeWidthIsNotZeroAndIsTaken) {
  Pret();
  Tape(*C("TB_LargeurEncoche"), "-1");
  EXPECT_EQ(LargeurEncoche, -1);
  EXPECT_FALSE(Refuse("TB_LargeurEncoche"));
}

TEST_F(Outil, WidthTakesTheKeyboardWhereTheAttachmentToolNeedsIt) {
  Pret();
  page_->FocusLargeurEncoche();
  EXPECT_TRUE(C("TB_LargeurEncoche")->hasFocus());
  EXPECT_EQ(C<QLineEdit>("TB_LargeurEncoche")->selectedText(), "5");
}

// --- TB_MiniEncoche

TEST_F(Outil, MinimumHeightIsWrittenAndNothingRecomputed) {
  Pret();
  const auto trajet = TraceDecale;
  Tape(*C("TB_MiniEncoche"), "0.5");
  EXPECT_EQ(MiniEncoche, 0.5);
  EXPECT_EQ(Ecrits().MiniEncoche, 0.5);
  EXPECT_EQ(TraceDecale, trajet);
  EXPECT_EQ(rafraichis_, 0);
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(Outil, NegativeMinimumHeightIsStoredFirstAndNotWritten) {
  Pret();
  Tape(*C("TB_MiniEncoche"), "0.5");
  Modifie = Faux;
  essai::AttendTexte("< 0 !");
  Tape(*C("TB_MiniEncoche"), "-1");
  EXPECT_EQ(MiniEncoche, -1);
  EXPECT_EQ(Ecrits().MiniEncoche, 0.5);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_TRUE(Refuse("TB_MiniEncoche"));
}

// --- TB_HautDeg

TEST_F(Outil, NegativeClearanceIsRefusedAtTheField) {
  Pret();
  HautDeg = 10;
  page_->RemplitOutil();
  Tape(*C("TB_HautDeg"), "-4");
  EXPECT_EQ(HautDeg, 10);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_TRUE(Refuse("TB_HautDeg"));
}

TEST_F(Outil, NegativeClearanceInForceIsRefusedAtEachLeavingAndStays) {
  Pret();
  HautDeg = -4;
  page_->RemplitOutil();
  C("TB_HautDeg")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("TB_HautDeg"), Qt::Key_Tab);
  EXPECT_EQ(HautDeg, -4);
  EXPECT_TRUE(Refuse("TB_HautDeg"));
}

TEST_F(Outil, NegativeClearanceInForceGivesWayToAGoodEntry) {
  Pret();
  HautDeg = -4;
  page_->RemplitOutil();
  Tape(*C("TB_HautDeg"), "8");
  EXPECT_EQ(HautDeg, 8);
  EXPECT_EQ(Ecrits().HautDeg, 8);
  EXPECT_FALSE(Refuse("TB_HautDeg"));
}

TEST_F(Outil, ClearanceIsWritten) {
  Pret();
  Tape(*C("TB_HautDeg"), "6,5");
  EXPECT_EQ(HautDeg, 6.5F);
  EXPECT_EQ(Ecrits().HautDeg, 6.5F);
  EXPECT_EQ(rafraichis_, 0);
}

// --- TB_PCPoche

TEST_F(Outil, OverlapIsAnIntegerAndRecomputesAllPaths) {
  Pret();
  Tape(*C("TB_PCPoche"), "30,7");
  EXPECT_EQ(PCPoche, 31);
  EXPECT_EQ(Texte("TB_PCPoche"), "31");
  EXPECT_EQ(Ecrits().PCPoche, 31);
  EXPECT_EQ(rafraichis_, 1);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_FALSE(C("Lbl_AvisPoche")->isVisible());
}

TEST_F(Outil, OverlapThatIsNoneIsTakenWithAWarningAtTheField) {
  Pret();
  std::vector<QString> avis;
  for (const auto& [texte, valeur] : {std::pair{"100", 100}, std::pair{"101", 101}, std::pair{"-1", -1}}) {
    Tape(*C("TB_PCPoche"), texte);
    EXPECT_EQ(PCPoche, valeur);
    EXPECT_FALSE(Refuse("TB_PCPoche"));
    EXPECT_TRUE(C("Lbl_AvisPoche")->isVisible()) << texte;
    EXPECT_EQ(essai::TextesCoupesEnTexte(*fenetre_), "") << texte;
    essai::Capture(*fenetre_, std::string("PageFraisage-avis") + texte);
    avis.push_back(C<QLabel>("Lbl_AvisPoche")->text());
  }
  EXPECT_NE(avis[0], avis[1]);
  EXPECT_NE(avis[1], avis[2]);
  for (const char* texte : {"0", "99"}) {
    Tape(*C("TB_PCPoche"), texte);
    EXPECT_FALSE(C("Lbl_AvisPoche")->isVisible()) << texte;
  }
}

TEST_F(Outil, OverlapFromTheSettingsWarnsAsWell) {
  PCPoche = 100;
  Pret();
  EXPECT_TRUE(C("Lbl_AvisPoche")->isVisible());
  page_->VideOutil();
  EXPECT_FALSE(C("Lbl_AvisPoche")->isVisible());
}

// --- TB_ProfPasse

TEST_F(Outil, DepthOfAPassIsWritten) {
  Pret();
  Tape(*C("TB_ProfPasse"), "-2.5");
  EXPECT_EQ(ProfPasse, -2.5);
  EXPECT_EQ(Ecrits().ProfPasse, -2.5);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(rafraichis_, 0);
}

TEST_F(Outil, RefusedDepthOfAPassStaysInForceUntilItIsMended) {
  Pret();
  Tape(*C("TB_ProfPasse"), "-2");
  Modifie = Faux;
  for (const char* texte : {"0", "3"}) {
    essai::Attend("F_Representation", "lib361");
    Tape(*C("TB_ProfPasse"), texte);
    EXPECT_EQ(ProfPasse, std::stod(texte));
    EXPECT_EQ(Ecrits().ProfPasse, -2);
    EXPECT_EQ(Modifie, Faux);
    EXPECT_TRUE(Refuse("TB_ProfPasse"));
    EXPECT_EQ(Texte("TB_ProfPasse"), texte);
  }
  // The box doesn't come back at a mere passage.
  C("TB_ProfPasse")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("TB_ProfPasse"), Qt::Key_Tab);
  Tape(*C("TB_ProfPasse"), "-1");
  EXPECT_EQ(ProfPasse, -1);
  EXPECT_FALSE(Refuse("TB_ProfPasse"));
}

// The box of a refusal takes the keyboard from the field: that is no second leaving.
TEST_F(Outil, BoxThatTakesTheKeyboardDoesNotComeTwice) {
  Pret();
  int boites = 0;
  Svc.Montre = [&](const BoiteMessage&) {
    ++boites;
    QWidget boiteQt;
    essai::Montre(boiteQt);
    boiteQt.hide();
    fenetre_->activateWindow();
    essai::Evenements();
    return Reponse::Ok;
  };
  for (const Sortie sortie : {Sortie::Entree, Sortie::Tab}) {
    boites = 0;
    Tape(*C("TB_ProfPasse"), sortie == Sortie::Tab ? "1" : "2", sortie);
    EXPECT_EQ(boites, 1);
    boites = 0;
    Tape(*C("TB_MiniEncoche"), sortie == Sortie::Tab ? "-1" : "-2", sortie);
    EXPECT_EQ(boites, 1);
  }
}

}  // namespace
