// The hand in the main window: Escape, copies, forward again, the warning beside the picture.
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QWheelEvent>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Copie.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"
#include "toolpath/chemins/TexteCopie.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Image.h"
#include "workspace/Module_Prise.h"
#include "workspace/Module_Souris.h"
#include "workspace/Module_Vue.h"
#include "workspace/ui/AlerteCourse.h"

namespace {

using namespace ovelin;

using ParLaMain = essai::Principale;

TEST_F(ParLaMain, EscapeLaysTheToolDownAndThenDeselects) {
  Charge(Exemple("plaque.dxf"));
  auto* image = C<ImagePB1>("PB1");
  Commande("mnu_Lever");
  EXPECT_TRUE(Souris.mnu_Lever);
  QTest::keyClick(image, Qt::Key_Escape);
  EXPECT_FALSE(Souris.mnu_Lever);
  EXPECT_FALSE(Menu("mnu_Lever")->isChecked());
  EXPECT_FALSE(Selectionnes().empty());
  QTest::keyClick(image, Qt::Key_Escape);
  EXPECT_TRUE(Selectionnes().empty());
}

TEST_F(ParLaMain, EscapeTakesADragBack) {
  Charge(Exemple("plaque.dxf"));
  auto* image = C<ImagePB1>("PB1");
  const auto avant = TraceInitial;
  const int pas = NumeroInstantane();
  const QPoint depart = PlaceDessin(TraceInitial[0].X, TraceInitial[0].Y);
  QTest::mousePress(image, Qt::LeftButton, {}, depart);
  QTest::mouseMove(image, depart + QPoint(30, 0));
  QTest::mouseMove(image, depart + QPoint(40, 20));
  essai::Evenements();
  ASSERT_TRUE(Prise.tire);
  QTest::keyClick(image, Qt::Key_Escape);
  EXPECT_FALSE(Prise.tire);
  QTest::mouseRelease(image, Qt::LeftButton, {}, depart + QPoint(40, 20));
  essai::Evenements();
  EXPECT_EQ(TraceInitial, avant);
  const Historique h = HistoriqueCourant();
  for (std::size_t i = static_cast<std::size_t>(pas); i < h.pas.size(); ++i)
    EXPECT_TRUE(h.pas[i].changement.Muet());
  EXPECT_FALSE(Selectionnes().empty()) << "the drag went, not the selection";
}

TEST_F(ParLaMain, CopyAndPasteByKeysIntoTheNextDrawing) {
  Charge(Exemple("plaque.dxf"));
  const std::size_t copies = ListeCodes().size();
  Commande("mnu_Copier");
  Doc.Modifie = Faux;
  fenetre_->Depose(Exemple("equerre.dxf"));
  essai::Evenements();
  const std::size_t avant = ListeCodes().size();
  Commande("mnu_Coller");
  EXPECT_EQ(ListeCodes().size(), avant + copies);
  EXPECT_EQ(Selectionnes().size(), copies);
  Commande("mnu_Coller");
  EXPECT_EQ(ListeCodes().size(), avant + 2 * copies);
}

// What another program has put there, and nothing has been copied here.
TEST_F(ParLaMain, PathsThatAnotherProgramHasCopiedArePasted) {
  Charge(Exemple("plaque.dxf"));
  const std::size_t avant = ListeCodes().size();
  Copie copie;
  copie.points = essai::Trace("ZZ", {{0, 0}, {0, 7}, {9, 7}, {9, 0}, {0, 0}});
  copie.fiches.resize(1);
  copie.fiches[0].Code = Code2("ZZ");
  copie.fiches[0].Profondeur = -2.5;
  copie.fiches[0].Fraiser = Vrai;
  copie.fiches[0].Decalage = 2;
  auto* donnees = new QMimeData;
  donnees->setData("application/x-ovelin-sequences", QByteArray::fromStdString(TexteDeCopie(copie)));
  QApplication::clipboard()->setMimeData(donnees);
  Commande("mnu_Coller");
  ASSERT_EQ(ListeCodes().size(), avant + 1);
  EXPECT_EQ(Sequences.back().Profondeur, -2.5);
  EXPECT_EQ(Sequences.back().Decalage, 2);
  EXPECT_EQ(TraceInitial.back().X, 10) << "a step beside the original";
  // A copy made here comes before what is still there, and goes to other programs.
  Commande("mnu_Tout");
  Commande("mnu_Copier");
  const QByteArray texte = QApplication::clipboard()->mimeData()->data("application/x-ovelin-sequences");
  EXPECT_EQ(CopieDuTexte(texte.toStdString(), -3), PressePapiers);
}

TEST_F(ParLaMain, WhatIsNoPathInTheClipboardIsNotPasted) {
  Charge(Exemple("plaque.dxf"));
  const std::size_t avant = ListeCodes().size();
  auto* donnees = new QMimeData;
  donnees->setData("application/x-ovelin-sequences", QByteArray("nothing\x01 of that kind"));
  QApplication::clipboard()->setMimeData(donnees);
  Commande("mnu_Coller");
  EXPECT_EQ(ListeCodes().size(), avant);
  EXPECT_EQ(essai::Bips(), 1);
}

TEST_F(ParLaMain, ADuplicateIsTakenBackAndComesAgain) {
  Charge(Exemple("plaque.dxf"));
  const std::size_t avant = ListeCodes().size();
  EXPECT_FALSE(Menu("mnu_Redo")->isEnabled());
  Commande("mnu_Dupliquer");
  EXPECT_EQ(ListeCodes().size(), 2 * avant);
  Commande("mnu_Undo");
  EXPECT_EQ(ListeCodes().size(), avant);
  ASSERT_TRUE(Menu("mnu_Redo")->isEnabled());
  Commande("mnu_Redo");
  EXPECT_EQ(ListeCodes().size(), 2 * avant);
  EXPECT_FALSE(Menu("mnu_Redo")->isEnabled());
}

TEST_F(ParLaMain, TheWarningSaysWhatLeavesTheTravelAndItsButtonMendsIt) {
  Charge(Exemple("plaque.dxf"));
  const auto* alerte = C<AlerteCourse>("Frame_HorsCourse");
  EXPECT_FALSE(alerte->isVisible());
  ASSERT_TRUE(Recale(-50, 20));
  essai::Evenements();
  EXPECT_TRUE(alerte->isVisible());
  EXPECT_EQ(C<QLabel>("Lbl_HorsCourse")->text().toStdString(), TexteDepassement(DepassementCourant()));
  essai::Clique(*C<QPushButton>("CB_PlaceCoin"));
  EXPECT_FALSE(alerte->isVisible());
  EXPECT_TRUE(DepassementCourant().Vide());
}

TEST_F(ParLaMain, TheWarningLeavesTheTwoLinesThatNameTheColoursFree) {
  Charge(Exemple("plaque.dxf"));
  ASSERT_TRUE(Recale(-50, 20));
  for (const int largeur : {1024, 1600}) {
    fenetre_->resize(largeur, 700);
    essai::Evenements();
    const QRect alerte = C<AlerteCourse>("Frame_HorsCourse")->geometry();
    for (const char* ligne : {"Label_Couleur_Dessin", "Label_Couleur_Decalage"}) {
      EXPECT_FALSE(alerte.intersects(C<QLabel>(ligne)->geometry())) << ligne << ", " << largeur;
    }
  }
}

TEST_F(ParLaMain, TheTwoButtonsOfThePictureSwitchIt) {
  Charge(Exemple("plaque.dxf"));
  EXPECT_TRUE(Menu("mnu_Sobre")->isChecked());
  EXPECT_TRUE(Menu("mnu_Saignee")->isChecked());
  const QImage avec = C<ImagePB1>("PB1")->Image();
  Commande("mnu_Saignee");
  EXPECT_FALSE(Regl.DessinSaignee);
  const QImage sans = C<ImagePB1>("PB1")->Image();
  EXPECT_NE(avec, sans);
  Commande("mnu_Saignee");
  EXPECT_EQ(C<ImagePB1>("PB1")->Image(), avec);
  Commande("mnu_Sobre");
  EXPECT_FALSE(Regl.DessinSobre);
  EXPECT_FALSE(Menu("mnu_Saignee")->isEnabled());
  EXPECT_NE(C<ImagePB1>("PB1")->Image(), sans);
}

TEST_F(ParLaMain, TheStatusSpeaksAndTheStarStandsBehindTheCaption) {
  Charge(Exemple("plaque.dxf"));
  EXPECT_FALSE(fenetre_->windowTitle().endsWith("*"));
  EXPECT_TRUE(C<QLabel>("SB1_11")->text().startsWith("plaque.dxf "));
  const QString avant = C<QLabel>("SB1_11")->text();
  QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Right);
  essai::Evenements();
  EXPECT_EQ(fenetre_->windowTitle(), "OVELIN <-> plaque.dxf *");
  EXPECT_TRUE(C<QLabel>("SB1_11")->text().startsWith("plaque.dxf*"));
  QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Escape);
  EXPECT_EQ(C<QLabel>("SB1_11")->text(), "plaque.dxf*");
}

TEST_F(ParLaMain, AfterAnUndoTheStatusNamesTheDrawingAndNoSnapshot) {
  Charge(Exemple("plaque.dxf"));
  QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Right);
  essai::Evenements();
  Commande("mnu_Undo");
  EXPECT_TRUE(C<QLabel>("SB1_11")->text().startsWith("plaque.dxf*"));
}

// 1024 pixels wide, the words of a file with a selection have room: the panels beside them are empty, or short.
TEST_F(ParLaMain, TheStatusSpeaksWholeSentencesInASmallWindow) {
  Charge(Exemple("plaque.dxf"));
  fenetre_->resize(1024, 700);
  essai::Evenements();
  const auto* parole = C<QLabel>("SB1_11");
  EXPECT_TRUE(parole->toolTip().contains(QStringLiteral("profondeur -"))) << parole->toolTip().toStdString();
  EXPECT_EQ(parole->text(), parole->toolTip());
}

// The wheel keeps the place under the pointer, so the same drag can begin there again in the new view.
TEST_F(ParLaMain, TheWheelDuringADragMakesTheOutlineAnew) {
  Charge(Exemple("plaque.dxf"));
  auto* image = C<ImagePB1>("PB1");
  const QPoint depart = PlaceDessin(TraceInitial[0].X, TraceInitial[0].Y);
  const auto tire = [&] {
    QTest::mouseMove(image, depart + QPoint(30, 0));
    QTest::mouseMove(image, depart + QPoint(40, 0));
    essai::Evenements();
  };
  QTest::mousePress(image, Qt::LeftButton, {}, depart);
  tire();
  ASSERT_TRUE(Prise.tire);
  const QImage avant = image->Image();  // the outline of the first view is made
  ASSERT_FALSE(avant.isNull());
  const EtatVue vue = Vue;
  QWheelEvent roue(depart, image->mapToGlobal(depart), {}, {0, 120}, Qt::LeftButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(image, &roue);
  tire();
  ASSERT_NE(Vue, vue);
  const QImage suivie = image->Image();
  QTest::keyClick(image, Qt::Key_Escape);
  QTest::mouseRelease(image, Qt::LeftButton, {}, depart);
  essai::Evenements();
  QTest::mousePress(image, Qt::LeftButton, {}, depart);
  tire();
  ASSERT_TRUE(Prise.tire);
  EXPECT_EQ(image->Image(), suivie);
  QTest::keyClick(image, Qt::Key_Escape);
  QTest::mouseRelease(image, Qt::LeftButton, {}, depart);
}

}  // namespace
