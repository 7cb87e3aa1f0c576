// What stands when the main window is loaded, and what an opening from its lists leaves behind.
#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTabBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <QWheelEvent>
#include <cmath>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Souris.h"
#include "workspace/Module_Vue.h"

namespace {

using namespace ovelin;

class Chargement : public essai::Principale {};

TEST_F(Chargement, AWindowThatWasMaximisedIsSoAgain) {
  EcrireCle("F_Representation_Max", "-1");
  EXPECT_TRUE(Charge().isMaximized());
  fenetre_.reset();
  EcrireCle("F_Representation_Max", "0");
  EXPECT_FALSE(Charge().isMaximized());
}

TEST_F(Chargement, TheRecentFilesStandInTheMenuBeforeAnyOpening) {
  const std::string un = Exemple("plaque.dxf");
  const std::string deux = Exemple("equerre.dxf");
  EcrireCle("MRUFiles1", un);
  EcrireCle("MRUFiles2", deux);
  Charge();
  EXPECT_TRUE(Menu("mnu_MRU_1")->text().toStdString().ends_with(un));
  EXPECT_TRUE(Menu("mnu_MRU_2")->text().toStdString().ends_with(deux));
}

TEST_F(Chargement, ARecentFileLeavesTheKeyboardToThePictureAndItsValuesInTheFields) {
  Charge(Exemple("plaque.dxf"));
  const std::string projet = Exemple("equerre-attaches.OVL");
  Svc.FichierRecent(projet);
  C<QLineEdit>("TB_RayonFraise")->setFocus();
  ASSERT_NE(C<QLineEdit>("TB_RayonFraise")->text(), "0.8");
  Menu("mnu_MRU_1")->trigger();
  essai::Evenements();
  ASSERT_EQ(NomDe(FichierCourant), "equerre-attaches.OVL");
  EXPECT_TRUE(C<ImagePB1>("PB1")->hasFocus());
  EXPECT_EQ(C<QLineEdit>("TB_RayonFraise")->text(), "0.8");
}

TEST_F(Chargement, TheOneCommandThatStandsOutDoesSoFromTheStart) {
  Charge();
  EXPECT_TRUE(C<QToolBar>("TB1")->styleSheet().contains("palette(highlight)"));
}

TEST_F(Chargement, TheTreesHaveTheColoursOfTheSettings) {
  EcrireCle("CouleurDecalage", "32768");  // green 128
  LitCouleurs();
  Charge();
  const QColor outil = C<QTabBar>("Option_DI")->tabTextColor(1);
  EXPECT_GT(outil.green(), 2 * outil.red());
  EXPECT_GT(outil.green(), 2 * outil.blue());
}

TEST_F(Chargement, APathOfTheTreeShowsItsOwnValuesInThePanel) {
  Charge(Exemple("plaque.dxf"));
  ProprietesSequence p;
  ASSERT_TRUE(LitSequence(Code2(" D"), p));
  p.Profondeur = -5.25;
  p.Fraiser = Faux;
  EcritSequence(Code2(" D"), p);
  auto* arbre = C<QTreeView>("TreeView1");
  const QModelIndex ligne = arbre->model()->index(3, 0, arbre->model()->index(0, 0));
  arbre->scrollTo(ligne);
  QTest::mouseClick(arbre->viewport(), Qt::LeftButton, {}, arbre->visualRect(ligne).center());
  essai::Evenements();
  EXPECT_EQ(C<QLineEdit>("TB_Profondeur")->text(), "-5.25");
  EXPECT_FALSE(C<QAbstractButton>("CB_Fraiser")->isChecked());
}

TEST_F(Chargement, TheWheelOverTheZoomListStepsTheZoom) {
  Charge(Exemple("plaque.dxf"));
  auto* combo = C<QComboBox>("Combo_Zoom");
  const float debut = Zoom;
  const auto roule = [combo](int crans) {
    QWheelEvent roue(QPointF(5, 5), combo->mapToGlobal(QPointF(5, 5)), {}, {0, 120 * crans}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(combo, &roue);
    EXPECT_TRUE(roue.isAccepted());
  };
  roule(1);
  EXPECT_GT(Zoom, debut);
  roule(-1);
  EXPECT_FLOAT_EQ(Zoom, debut);
}

TEST_F(Chargement, AnOpeningReleasesTheTool) {
  Charge(Exemple("plaque.dxf"));
  Commande("mnu_Lever");
  ASSERT_TRUE(Souris.mnu_Lever);
  essai::AttendFichier("mnu_Ouvrir", Exemple("equerre.dxf"));
  Commande("mnu_Ouvrir");
  EXPECT_FALSE(Souris.mnu_Lever);
  EXPECT_FALSE(Menu("mnu_Lever")->isChecked());
}

TEST_F(Chargement, TheAttachmentToolWithoutAWidthAsksForOne) {
  Charge(Exemple("plaque.dxf"));
  LargeurEncoche = 0;
  C<QTabBar>("Option1")->setCurrentIndex(0);
  essai::Attend("F_Representation", "lib312");
  Commande("mnu_Lever");
  EXPECT_EQ(C<QTabBar>("Option1")->currentIndex(), 1);
  EXPECT_TRUE(C<QLineEdit>("TB_LargeurEncoche")->hasFocus());
  EXPECT_FALSE(Menu("mnu_Lever")->isChecked());
}

TEST_F(Chargement, AnAttachmentPointStandsInTheTreeAtOnce) {
  Charge(Exemple("plaque.dxf"));
  Commande("mnu_Lever");
  const std::int32_t premier = IndexSequence(Code2(" D"));
  const std::int32_t avant = NbPointsSequence(premier);
  PointTrace a, b;  // the longest side
  for (std::int32_t i = premier; i + 1 < premier + avant; ++i) {
    const PointTrace& p = TraceInitial[static_cast<std::size_t>(i)];
    const PointTrace& q = TraceInitial[static_cast<std::size_t>(i) + 1];
    if (std::hypot(q.X - p.X, q.Y - p.Y) > std::hypot(b.X - a.X, b.Y - a.Y)) a = p, b = q;
  }
  CliqueDessin((a.X + b.X) / 2, (a.Y + b.Y) / 2);
  ASSERT_EQ(NbPointsSequence(IndexSequence(Code2(" D"))), avant + 1);
  const auto* modele = C<QTreeView>("TreeView1")->model();
  EXPECT_EQ(modele->rowCount(modele->index(3, 0, modele->index(0, 0))), avant + 1);
}

TEST_F(Chargement, ThePlaceIsLookedAtOnceMoreWhenTheFrameIsKnown) {
  fenetre_ = std::make_unique<F_Representation>();
  fenetre_->DossierDocuments.clear();
  fenetre_->Form_Load("");
  auto* minuterie = C<QTimer>("Timer_Cadre");
  EXPECT_TRUE(minuterie->isActive());
  QTimerEvent e(minuterie->timerId());
  QApplication::sendEvent(minuterie, &e);
  EXPECT_FALSE(minuterie->isActive()) << "once";
}

TEST_F(Chargement, BoxesBelongToTheMainWindowWhereNoneIsInFront) {
  Charge();
  fenetre_->hide();
  QApplication::setActiveWindow(nullptr);
  essai::Evenements();
  EXPECT_EQ(Proprietaire(), fenetre_.get());
}

TEST_F(Chargement, TheToolFieldsHaveTheValuesOfADrawingOfTheCommandLine) {
  Charge(Exemple("equerre-attaches.OVL"));
  EXPECT_EQ(C<QLineEdit>("TB_RayonFraise")->text(), "0.8");
  EXPECT_TRUE(C<ImagePB1>("PB1")->hasFocus());
}

TEST_F(Chargement, AFileOfTheCommandLineThatCanNotBeReadLeavesTheInvitation) {
  essai::Attend("F_Representation", "lib109");
  Charge(essai::EcritFichierEssai("mauvais.dxf", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n"));
  EXPECT_TRUE(C<QLabel>("Lbl_Vide")->isVisible());
}

TEST_F(Chargement, TheManualWindowComesWithTheMainWindow) {
  manuelle_ = true;
  FenetreExiste = [](const std::string& nom) { return nom == "F_PilMan"; };
  Charge();
  EXPECT_EQ(ouvertes_, std::vector<std::string>{"F_PilMan"});
}

TEST_F(Chargement, AnotherThemeIsTakenAtOnce) {
  Regl.CouleurInitial = 0;
  Charge(Exemple("plaque.dxf"));
  const auto image = [this] { return Bouton("mnu_Fraisage")->icon().pixmap(24, 24).toImage(); };
  const QImage claire = image();
  ASSERT_EQ(C<QTabBar>("Option_DI")->tabTextColor(0), QColor(Qt::black));
  essai::ThemeSombreEssai(true);
  essai::Evenements();
  EXPECT_FALSE(image() == claire);
  EXPECT_GT(C<QTabBar>("Option_DI")->tabTextColor(0).lightness(), 100) << "to be read on the dark";
}

TEST_F(Chargement, ColoursOfTheSettingsWindowAreThoseOfTheTreesAtOnce) {
  Charge(Exemple("plaque.dxf"));
  reponses_["F_ParamAppli"] = [] {
    Regl.CouleurDecalage = 128 * 65536;  // blue
    return true;
  };
  Commande("mnu_ParamAppli");
  const QColor outil = C<QTabBar>("Option_DI")->tabTextColor(1);
  EXPECT_GT(outil.blue(), 2 * outil.red());
}

TEST_F(Chargement, ThePollOfTheBoardEndsWithTheWindow) {
  Charge();
  ASSERT_TRUE(C<QTimer>("Timer_Interro")->isActive());
  fenetre_->close();
  EXPECT_FALSE(C<QTimer>("Timer_Interro")->isActive());
}

// The answer to the end of the session stands; what is changed behind it without being drawn is asked about by the
// closing itself.
TEST_F(Chargement, AChangeBehindTheAnswerIsSavedByTheClosing) {
  Charge();
  const std::string projet = Exemple("plaque-poches.OVL");
  essai::AttendFichier("mnu_Ouvrir", projet);
  Commande("mnu_Ouvrir");
  ASSERT_TRUE(fenetre_->PeutFinir());
  TraceInitial[0].X += 1;
  Modifie = Vrai;
  essai::Attend("F_Representation", "lib004", Reponse::Annuler);
  fenetre_->close();
  EXPECT_TRUE(fenetre_->isVisible());
  const std::string avant = essai::LitFichierEssai(projet);
  essai::Attend("F_Representation", "lib004", Reponse::Oui);
  fenetre_->close();
  EXPECT_FALSE(fenetre_->isVisible());
  EXPECT_NE(essai::LitFichierEssai(projet), avant);
}

TEST_F(Chargement, ThePagesKeepTheHeightThatTheyNeedUntilTheUserMovesTheLine) {
  Charge(Exemple("plaque.dxf"));
  auto* panneau = C<QSplitter>("Panneau");
  const int pages = panneau->sizes().value(1);
  fenetre_->resize(1280, 900);
  essai::Evenements();
  EXPECT_EQ(panneau->sizes().value(1), pages);
  QSplitterHandle* poignee = panneau->handle(1);
  const QPoint milieu = poignee->rect().center();
  QTest::mousePress(poignee, Qt::LeftButton, {}, milieu);
  QTest::mouseMove(poignee, milieu - QPoint(0, 60));
  QTest::mouseRelease(poignee, Qt::LeftButton, {}, milieu - QPoint(0, 60));
  essai::Evenements();
  const int regles = panneau->sizes().value(1);
  ASSERT_GT(regles, pages + 30);
  fenetre_->resize(1280, 880);
  essai::Evenements();
  EXPECT_GT(panneau->sizes().value(1), pages + 10) << "the line stays where the user put it";
}

TEST_F(Chargement, ThePointsPageFollowsAClickInThePicture) {
  Charge(Exemple("plaque.dxf"));
  const QString avant = C<QLabel>("Lbl_Marquee")->text();
  CliqueDessin(60, 5);
  EXPECT_NE(C<QLabel>("Lbl_Marquee")->text(), avant);
}

}  // namespace
