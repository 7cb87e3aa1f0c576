// Page "Fraisage": properties of the selection.
#include "core/DocumentCourant.h"
#include "core/Reglages.h"
#include "core/ReglagesCourants.h"
#include "tests/ui/panneau/Banc.h"

namespace {

using namespace ovelin;
using essai::Clique;
using essai::Sortie;
using essai::Tape;

class Fraisage : public essai::Banc<PageFraisage> {
 protected:
  // The tool path of the second square runs inside it, a radius off its sides.
  static bool Dedans() {
    for (const SequenceDecalee& s : TraceDecale) {
      if (s.Seq != Code2(" B")) continue;
      for (const PointTrace& p : s.Points) {
        if (p.X < 22.9F || p.X > 47.1F || p.Y < 7.9F || p.Y > 32.1F) return false;
      }
    }
    return true;
  }
  void TousChoisis() {
    for (SequenceInfo& s : Sequences) s.Selection = Vrai;
  }
};

TEST_F(Fraisage, PropertiesWaitForASelection) {
  DeuxCarres();
  Sequences[1].Selection = Faux;
  Ouvre();
  for (const char* nom :
       {"CB_Fraiser", "CB_Poche", "TB_Profondeur", "Option_Decal_1", "Option_Decal_3", "CB_AutreCote"}) {
    EXPECT_FALSE(Actif(nom)) << nom;
  }
  EXPECT_TRUE(Actif("TB_RayonFraise"));
  Sequences[1].Selection = Vrai;
  Remplit();
  for (const char* nom :
       {"CB_Fraiser", "CB_Poche", "CB_Ilot", "TB_Profondeur", "Option_Decal_1", "Option_Decal_3", "CB_AutreCote"}) {
    EXPECT_TRUE(Actif(nom)) << nom;
  }
}

TEST_F(Fraisage, FillingRunsNoCommand) {
  DeuxCarres();
  Ouvre();
  const Document avant = Doc;
  for (const Drapeau drapeau : {Vrai, Faux, Vrai}) {
    Sequences[1].Poche = Sequences[1].Fraiser = drapeau;
    Sequences[1].Decalage = drapeau == Vrai ? std::int16_t{3} : std::int16_t{2};
    Remplit();
    EXPECT_EQ(Coche("CB_Poche"), drapeau == Vrai);
    EXPECT_EQ(Coche("CB_Fraiser"), drapeau == Vrai);
    EXPECT_EQ(Coche("Option_Decal_3"), drapeau == Vrai);
    EXPECT_EQ(Coche("Option_Decal_2"), drapeau != Vrai);
  }
  EXPECT_EQ(rafraichis_, 0);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_EQ(TraceDecale, avant.TraceDecale);
}

TEST_F(Fraisage, MixedPocketsShowUncheckedAndOneClickSetsAll) {
  DeuxCarres();
  TousChoisis();
  Sequences[0].Poche = Vrai;
  Ouvre();
  EXPECT_FALSE(Coche("CB_Poche"));
  EXPECT_FALSE(Dedans());
  Clique(*C("CB_Poche"));
  EXPECT_EQ(Sequences[0].Poche, Vrai);
  EXPECT_EQ(Sequences[1].Poche, Vrai);
  EXPECT_TRUE(Coche("CB_Poche"));
  EXPECT_TRUE(Dedans());
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(rafraichis_, 1);
  Clique(*C("CB_Poche"));
  EXPECT_EQ(Sequences[0].Poche, Faux);
  EXPECT_EQ(Sequences[1].Poche, Faux);
  EXPECT_EQ(rafraichis_, 2);
}

TEST_F(Fraisage, MixedIslandsShowUncheckedAndOneClickMarksAll) {
  DeuxCarres();
  TousChoisis();
  Complements.Pose(Sequences[0].Code, {true, "", std::nullopt});
  Ouvre();
  EXPECT_FALSE(Coche("CB_Ilot"));
  EXPECT_EQ(C<QLabel>("Lbl_Melange")->text().toStdString(), "Différent selon la séquence : Îlot");
  Clique(*C("CB_Ilot"));
  for (const SequenceInfo& s : Sequences) EXPECT_TRUE(Complements.De(s.Code).Ilot) << s.Code.Texte();
  EXPECT_TRUE(Coche("CB_Ilot"));
  EXPECT_FALSE(C("Lbl_Melange")->isVisible());
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(rafraichis_, 1);
  Clique(*C("CB_Ilot"));
  EXPECT_TRUE(Complements.Vide());
}

TEST_F(Fraisage, MixedMillingShowsCheckedAndOneClickClearsAll) {
  DeuxCarres();
  TousChoisis();
  Sequences[0].Fraiser = Faux;
  Ouvre();
  EXPECT_TRUE(Coche("CB_Fraiser"));
  Clique(*C("CB_Fraiser"));
  EXPECT_EQ(Sequences[0].Fraiser, Faux);
  EXPECT_EQ(Sequences[1].Fraiser, Faux);
  EXPECT_EQ(rafraichis_, 1);
  QTest::keyClick(C("CB_Fraiser"), Qt::Key_Space);
  EXPECT_EQ(Sequences[0].Fraiser, Vrai);
  EXPECT_EQ(Sequences[1].Fraiser, Vrai);
  EXPECT_EQ(rafraichis_, 2);
}

TEST_F(Fraisage, WhatDiffersInTheSelectionIsTold) {
  DeuxCarres();
  Ouvre();
  EXPECT_FALSE(C("Lbl_Melange")->isVisible());
  TousChoisis();
  Remplit();
  EXPECT_FALSE(C("Lbl_Melange")->isVisible());
  Sequences[0].Fraiser = Faux;
  Remplit();
  EXPECT_TRUE(C("Lbl_Melange")->isVisible());
  EXPECT_EQ(C<QLabel>("Lbl_Melange")->text().toStdString(), "Différent selon la séquence : Fraiser");
  Sequences[0].Poche = Vrai;
  Sequences[0].Decalage = 2;
  Complements.Pose(Sequences[0].Code, {true, "", std::nullopt});
  for (const std::string& langue : essai::LanguesDuProduit()) {
    essai::ChoisitLangue(langue);
    Ouvre(300, 440);
    EXPECT_TRUE(C("Lbl_Melange")->isVisible());
    EXPECT_EQ(C<QLabel>("Lbl_Melange")->text().count(','), 3);
    EXPECT_EQ(essai::TextesCoupesEnTexte(*fenetre_), "") << langue;
  }
  Clique(*C("CB_Poche"));
  Clique(*C("CB_Fraiser"));
  Clique(*C("CB_Ilot"));
  Clique(*C("Option_Decal_1"));
  EXPECT_FALSE(C("Lbl_Melange")->isVisible());
}

TEST_F(Fraisage, PocketIsSetOnAnOpenPathAsWell) {
  DeuxCarres();
  essai::AjouteSequence(" C", {{100, 0}, {120, 0}, {120, 20}});
  TousChoisis();
  RecalculDecalages();
  Ouvre();
  Clique(*C("CB_Poche"));
  for (const SequenceInfo& s : Sequences) EXPECT_EQ(s.Poche, Vrai) << s.Code.Texte();
}

TEST_F(Fraisage, NotSelectedPathsKeepTheirProperties) {
  DeuxCarres();
  Ouvre();
  const SequenceInfo avant = Sequences[0];
  Clique(*C("CB_Poche"));
  Clique(*C("CB_Fraiser"));
  Clique(*C("Option_Decal_2"));
  Tape(*C("TB_Profondeur"), "-1");
  EXPECT_EQ(Sequences[0], avant);
}

// --- Option_Decal

TEST_F(Fraisage, SideOnTheLineLeavesTheOrderOfThePoints) {
  DeuxCarres();
  Ouvre();
  const auto points = TraceInitial;
  Clique(*C("Option_Decal_2"));
  EXPECT_EQ(Sequences[1].Decalage, 2);
  EXPECT_EQ(TraceInitial, points);
  EXPECT_EQ(TraceDecale.back().Points.size(), 5U);  // the path's own points
  EXPECT_TRUE(Coche("Option_Decal_2"));
  EXPECT_EQ(rafraichis_, 1);
}

TEST_F(Fraisage, ThirdSideTurnsThePointsRoundAndBack) {
  DeuxCarres();
  Ouvre();
  const auto points = TraceInitial;
  Clique(*C("Option_Decal_3"));
  EXPECT_EQ(Sequences[1].Decalage, 3);
  EXPECT_EQ(TraceInitial[6], points[8]);
  EXPECT_EQ(TraceInitial[0], points[0]);
  Clique(*C("Option_Decal_1"));
  EXPECT_EQ(TraceInitial, points);
  EXPECT_EQ(Sequences[1].Decalage, 1);
}

TEST_F(Fraisage, DifferentSidesShowTheFirstAndAClickOnItSetsAll) {
  DeuxCarres();
  TousChoisis();
  Sequences[0].Decalage = 2;
  Ouvre();
  EXPECT_TRUE(Coche("Option_Decal_1"));
  Clique(*C("Option_Decal_1"));
  EXPECT_EQ(Sequences[0].Decalage, 1);
  EXPECT_EQ(Sequences[1].Decalage, 1);
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(Fraisage, ClickOnTheSideThatAllHaveChangesNothing) {
  DeuxCarres();
  Ouvre();
  Clique(*C("Option_Decal_1"));
  EXPECT_EQ(rafraichis_, 0);
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Fraisage, SidesCanBeChosenWithTheKeys) {
  DeuxCarres();
  Ouvre();
  C("Option_Decal_1")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("Option_Decal_1"), Qt::Key_Right);
  essai::Evenements();
  EXPECT_TRUE(Coche("Option_Decal_2"));
  EXPECT_EQ(Sequences[1].Decalage, 2);
}

TEST_F(Fraisage, TheOtherSideTurnsTheSenseOfTheSelectedPaths) {
  DeuxCarres();
  Ouvre();
  const auto points = TraceInitial;
  const auto trace = TraceDecale;
  Clique(*C("CB_AutreCote"));
  EXPECT_EQ(TraceInitial[6], points[8]) << "turned round";
  EXPECT_EQ(TraceInitial[0], points[0]) << "not selected";
  EXPECT_EQ(Sequences[1].Decalage, 1) << "still to the left of the path";
  EXPECT_NE(TraceDecale.back(), trace.back());
  Clique(*C("CB_AutreCote"));
  EXPECT_EQ(TraceInitial, points);
}

TEST_F(Fraisage, EachSideHasItsWord) {
  DeuxCarres();
  Ouvre();
  EXPECT_EQ(C<QToolButton>("Option_Decal_1")->text(), "Gauche");
  EXPECT_EQ(C<QToolButton>("Option_Decal_2")->text(), "Sur trait");
  EXPECT_EQ(C<QToolButton>("Option_Decal_3")->text(), "Rebours");
}

TEST_F(Fraisage, TheDiameterStandsBesideTheRadius) {
  DeuxCarres();
  page_->RemplitOutil();
  Ouvre();
  Tape(*C("TB_RayonFraise"), "1.5");
  EXPECT_EQ(C<QLabel>("Lbl_Diametre")->text(), QStringLiteral("Ø 3.0"));
}

TEST_F(Fraisage, TheDiameterFollowsTheTyping) {
  DeuxCarres();
  page_->RemplitOutil();
  Ouvre();
  C("TB_RayonFraise")->setFocus();
  C<QLineEdit>("TB_RayonFraise")->selectAll();
  QTest::keyClicks(C("TB_RayonFraise"), "4");
  EXPECT_EQ(C<QLabel>("Lbl_Diametre")->text(), QStringLiteral("Ø 8.0"));
  QTest::keyClick(C("TB_RayonFraise"), Qt::Key_Backspace);
  EXPECT_EQ(C<QLabel>("Lbl_Diametre")->text(), "");
}

TEST_F(Fraisage, TheSectionShowsTheBridgeAsAPartOfTheDepth) {
  Regl.ProfFraisage = -4;
  DeuxCarres();
  page_->RemplitOutil();
  Ouvre();
  Tape(*C("TB_LargeurEncoche"), "5");
  Tape(*C("TB_MiniEncoche"), "1");
  EXPECT_DOUBLE_EQ(C<CoupeEncoche>("Img_Encoche")->Part(), 0.25);
  Tape(*C("TB_MiniEncoche"), "9");
  EXPECT_DOUBLE_EQ(C<CoupeEncoche>("Img_Encoche")->Part(), 1) << "no higher than the cut is deep";
  Tape(*C("TB_MiniEncoche"), "0");
  EXPECT_DOUBLE_EQ(C<CoupeEncoche>("Img_Encoche")->Part(), 0);
}

TEST_F(Fraisage, TheFieldsOfANotchStandAtTheirMeasuresInTheSection) {
  page_->RemplitOutil();
  Ouvre();
  const auto* coupe = C<CoupeEncoche>("Img_Encoche");
  const QRect largeur = C("TB_LargeurEncoche")->geometry();
  const QRect hauteur = C("TB_MiniEncoche")->geometry();
  ASSERT_EQ(C("TB_LargeurEncoche")->parentWidget(), coupe);
  ASSERT_EQ(C("TB_MiniEncoche")->parentWidget(), coupe);
  // The drawing between them has ink from the one to the other: in the middle of the upper field, where the arrow
  // of the width hangs, and under the arrow of the height.
  const QImage image = page_->grab().toImage();
  const QPoint coin = coupe->mapTo(page_, QPoint());
  const auto couleur = [&](int x, int y) {
    return image.pixelColor((coin + QPoint(x, y)) * image.devicePixelRatio());
  };
  const QColor fond = couleur(coupe->width() - 1, largeur.bottom() + 2);
  const auto encre = [&](int x, int y) { return couleur(x, y) != fond; };
  EXPECT_TRUE(encre(largeur.center().x(), largeur.bottom() + 4));
  bool sousPont = false;
  for (int x = hauteur.left(); x <= hauteur.right(); ++x) sousPont = sousPont || encre(x, hauteur.top() - 2);
  EXPECT_TRUE(sousPont);
  EXPECT_FALSE(encre(hauteur.left() / 2, hauteur.top() - 2)) << "nothing beside it";
}

TEST_F(Fraisage, SidesHaveTheirOwnTips) {
  essai::EcritFichierEssai("OVELINen.trad", "[F_Representation]\r\ntt42=Left\r\ntt43=On\r\ntt44=Back\r\n");
  essai::ChoisitLangue("en");
  DeuxCarres();
  Ouvre();
  EXPECT_EQ(C("Option_Decal_1")->toolTip(), "Left");
  EXPECT_EQ(C("Option_Decal_2")->toolTip(), "On");
  EXPECT_EQ(C("Option_Decal_3")->toolTip(), "Back");
}

// --- TB_Profondeur

TEST_F(Fraisage, DepthHasTwoDecimals) {
  DeuxCarres();
  Svc.MarqueDecimale = ',';
  Sequences[1].Profondeur = -4.5;
  Ouvre();
  EXPECT_EQ(Texte("TB_Profondeur"), "-4,50");
}

TEST_F(Fraisage, DepthOfHalfAMillimetreIsTakenForAllOfTheSelection) {
  DeuxCarres();
  TousChoisis();
  Ouvre();
  Tape(*C("TB_Profondeur"), "-,5");
  EXPECT_EQ(Sequences[0].Profondeur, -0.5);
  EXPECT_EQ(Sequences[1].Profondeur, -0.5);
  EXPECT_EQ(Texte("TB_Profondeur"), "-0.50");
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(Fraisage, DepthIsTakenByTheEnterKeyOnce) {
  DeuxCarres();
  Ouvre();
  Tape(*C("TB_Profondeur"), "-7", Sortie::Entree);
  EXPECT_EQ(Sequences[1].Profondeur, -7);
  EXPECT_EQ(Texte("TB_Profondeur"), "-7.00");
  EXPECT_EQ(rafraichis_, 1);
  QTest::keyClick(C("TB_Profondeur"), Qt::Key_Tab);
  EXPECT_EQ(rafraichis_, 1);
}

TEST_F(Fraisage, DepthOfZeroIsRefusedAndNothingChanges) {
  DeuxCarres();
  Ouvre();
  for (const char* texte : {"0", "0.00"}) {
    essai::Attend("F_Representation", "lib361");
    Tape(*C("TB_Profondeur"), texte);
    EXPECT_EQ(Sequences[1].Profondeur, -3) << texte;
    EXPECT_EQ(Modifie, Faux);
    EXPECT_TRUE(Refuse("TB_Profondeur"));
    EXPECT_EQ(Texte("TB_Profondeur"), "-3.00");
  }
}

TEST_F(Fraisage, DepthWithoutItsSignIsOneDownward) {
  DeuxCarres();
  Ouvre();
  Tape(*C("TB_Profondeur"), "7");
  EXPECT_EQ(Sequences[1].Profondeur, -7);
  EXPECT_EQ(Texte("TB_Profondeur"), "-7.00");
}

TEST_F(Fraisage, DepthThatIsNoNumberIsRefusedAtTheField) {
  DeuxCarres();
  Ouvre();
  for (const char* texte : {"-", "", "--3", "3-"}) {
    Tape(*C("TB_Profondeur"), texte);
    EXPECT_EQ(Sequences[1].Profondeur, -3) << texte;
    EXPECT_TRUE(Refuse("TB_Profondeur")) << texte;
    EXPECT_EQ(Texte("TB_Profondeur"), "-3.00") << texte;
  }
}

TEST_F(Fraisage, DifferentDepthsAskAndNoBringsTheTextBack) {
  DeuxCarres();
  TousChoisis();
  Sequences[0].Profondeur = -1;
  Ouvre();
  EXPECT_EQ(Texte("TB_Profondeur"), "");
  essai::Attend("F_Representation", "lib106", Reponse::Non);
  Tape(*C("TB_Profondeur"), "-5");
  EXPECT_EQ(Sequences[0].Profondeur, -1);
  EXPECT_EQ(Sequences[1].Profondeur, -3);
  EXPECT_EQ(Texte("TB_Profondeur"), "");
  EXPECT_FALSE(Refuse("TB_Profondeur"));
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Fraisage, DifferentDepthsAskAndYesGivesAllTheNewOne) {
  DeuxCarres();
  TousChoisis();
  Sequences[0].Profondeur = -1;
  Ouvre();
  essai::Attend("F_Representation", "lib106", Reponse::Oui);
  Tape(*C("TB_Profondeur"), "-5");
  EXPECT_EQ(Sequences[0].Profondeur, -5);
  EXPECT_EQ(Sequences[1].Profondeur, -5);
  EXPECT_EQ(Texte("TB_Profondeur"), "-5.00");
}

TEST_F(Fraisage, DifferentDepthsAreAskedAboutBeforeTheNewOneIsLookedAt) {
  DeuxCarres();
  TousChoisis();
  Sequences[0].Profondeur = -1;
  Ouvre();
  essai::Attend("F_Representation", "lib106", Reponse::Oui);
  essai::Attend("F_Representation", "lib361");
  Tape(*C("TB_Profondeur"), "0");
  EXPECT_EQ(Sequences[0].Profondeur, -1);
}

TEST_F(Fraisage, GoingThroughTheFieldAsksNothing) {
  DeuxCarres();
  TousChoisis();
  Sequences[0].Profondeur = -1;
  Ouvre();
  C("TB_Profondeur")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("TB_Profondeur"), Qt::Key_Tab);
  essai::Evenements();
  EXPECT_FALSE(C("TB_Profondeur")->hasFocus());
  EXPECT_EQ(rafraichis_, 0);
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Fraisage, EscapeBringsTheTextBack) {
  DeuxCarres();
  Ouvre();
  QWidget* champ = C("TB_Profondeur");
  champ->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(champ, "-9");
  QTest::keyClick(champ, Qt::Key_Escape);
  EXPECT_EQ(Texte("TB_Profondeur"), "-3.00");
  QTest::keyClick(champ, Qt::Key_Tab);
  EXPECT_EQ(Sequences[1].Profondeur, -3);
}

// The box of the question takes the keyboard from the field: that is no second leaving.
TEST_F(Fraisage, BoxThatTakesTheKeyboardDoesNotAskAgain) {
  DeuxCarres();
  TousChoisis();
  Sequences[0].Profondeur = -1;
  Ouvre();
  int boites = 0;
  Svc.Montre = [&](const BoiteMessage& boite) {
    EXPECT_EQ(boite.cle, "lib106");
    ++boites;
    QWidget boiteQt;
    essai::Montre(boiteQt);
    EXPECT_FALSE(C("TB_Profondeur")->hasFocus());
    boiteQt.hide();
    fenetre_->activateWindow();
    essai::Evenements();
    return Reponse::Oui;
  };
  Tape(*C("TB_Profondeur"), "-5", Sortie::Entree);
  EXPECT_EQ(boites, 1);
  EXPECT_EQ(Sequences[0].Profondeur, -5);
  Sequences[0].Profondeur = -1;
  Remplit();
  Tape(*C("TB_Profondeur"), "-6", Sortie::Tab);
  EXPECT_EQ(boites, 2);
  EXPECT_EQ(Sequences[0].Profondeur, -6);
}

// A press on a check box takes the entry over before the box is toggled.
TEST_F(Fraisage, EntryIsTakenOverByAPressOnAnotherControl) {
  DeuxCarres();
  Ouvre();
  C("TB_Profondeur")->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(C("TB_Profondeur"), "-8");
  Clique(*C("CB_Poche"));
  EXPECT_EQ(Sequences[1].Profondeur, -8);
  EXPECT_EQ(Sequences[1].Poche, Vrai);
}

// 2.456 shows as -2.46; confirmed as it stands it is still 2.456.
TEST_F(Fraisage, EnterInTheUntouchedDepthKeepsTheUnroundedOne) {
  DeuxCarres();
  Sequences[1].Profondeur = -2.456;
  Ouvre();
  ASSERT_EQ(Texte("TB_Profondeur"), "-2.46");
  C("TB_Profondeur")->setFocus(Qt::TabFocusReason);
  QTest::keyClick(C("TB_Profondeur"), Qt::Key_Return);
  EXPECT_EQ(Sequences[1].Profondeur, -2.456);
  Tape(*C("TB_Profondeur"), "-2.5");
  EXPECT_EQ(Sequences[1].Profondeur, -2.5);
}

}  // namespace
