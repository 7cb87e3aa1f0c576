// What is connected to what: every button, list, switch and bar of the main window does its work.
#include <QAbstractItemView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTabBar>
#include <QToolButton>
#include <QTreeView>
#include <memory>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Traduction.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "tests/unit/controller/LiaisonScenario.h"
#include "toolpath/Module_Ordre.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Souris.h"
#include "workspace/Module_Vue.h"

namespace {

using namespace ovelin;
using essai::Clique;
using testing::ElementsAre;

class Cablage : public essai::Principale {
 protected:
  void Plaque() { Charge(Exemple("plaque.dxf")); }
  // Pressed on the tool bar with the mouse.
  void Presse(const char* nom) { Clique(*C<QToolButton>(nom)); }
  QImage Image() { return C<ImagePB1>("PB1")->Image(); }
  // A timer has run off.
  void Sonne(const char* minuterie) {
    QTimerEvent e(C<QTimer>(minuterie)->timerId());
    QApplication::sendEvent(C<QTimer>(minuterie), &e);
  }
  std::string Etiquette(const char* nom) { return C<QLabel>(nom)->text().toStdString(); }
};

// --- tool bar

TEST_F(Cablage, TheZoomButtonsStepAndFit) {
  Plaque();
  const float entier = Zoom;
  Presse("mnu_ZoomPlus");
  EXPECT_FLOAT_EQ(Zoom, entier * 1.1F);
  Presse("mnu_ZoomMoins");
  EXPECT_FLOAT_EQ(Zoom, entier * 1.1F * 0.9F);
  const QImage petite = Image();
  Presse("mnu_Zoom1");
  EXPECT_FLOAT_EQ(Zoom, entier);
  EXPECT_FALSE(Image() == petite) << "the picture follows";
}

TEST_F(Cablage, TheButtonsOfMarksAndNumbersSwitchThemOnAndOff) {
  Plaque();
  const QImage nue = Image();
  for (const char* nom : {"mnu_NumPoint", "mnu_Sequence"}) {
    Presse(nom);
    EXPECT_TRUE(Menu(nom)->isChecked()) << nom;
    EXPECT_TRUE(C<QToolButton>(nom)->isChecked()) << nom;
    EXPECT_FALSE(Image() == nue) << nom;
    Presse(nom);
    EXPECT_TRUE(Image() == nue) << nom;
  }
}

TEST_F(Cablage, TheButtonsOfTheToolsExcludeEachOther) {
  Plaque();
  Presse("mnu_Lever");
  EXPECT_TRUE(Souris.mnu_Lever);
  EXPECT_TRUE(C<QToolButton>("mnu_Lever")->isChecked());
  Presse("mnu_ZoomSelection");
  EXPECT_TRUE(Souris.mnu_ZoomSelection);
  EXPECT_FALSE(Souris.mnu_Lever);
  EXPECT_FALSE(C<QToolButton>("mnu_Lever")->isChecked());
}

TEST_F(Cablage, TheOptimiseButtonChoosesTheStartsAnew) {
  Plaque();
  const std::int32_t cadre = IndexSequence(Code2(" D"));
  const auto avant = TraceInitial;
  ASSERT_TRUE(ChangeDepart(cadre + 2));
  ASSERT_FALSE(TraceInitial == avant);
  Presse("mnu_Optimisation");
  EXPECT_EQ(TraceInitial[static_cast<std::size_t>(cadre)].X, avant[static_cast<std::size_t>(cadre)].X);
  EXPECT_EQ(TraceInitial[static_cast<std::size_t>(cadre)].Y, avant[static_cast<std::size_t>(cadre)].Y);
}

TEST_F(Cablage, TheUndoButtonGoesBack) {
  Plaque();
  const auto avant = TraceInitial;
  C<ImagePB1>("PB1")->setFocus();
  QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Right);
  essai::Evenements();
  ASSERT_FALSE(TraceInitial == avant);
  Presse("mnu_Undo");
  EXPECT_TRUE(TraceInitial == avant);
  for (int i = 0; i < 10 && Menu("mnu_Undo")->isEnabled(); ++i) Presse("mnu_Undo");
  EXPECT_FALSE(Menu("mnu_Undo")->isEnabled()) << "the beginning";
  EXPECT_TRUE(Bouton("mnu_Undo")->isVisible());
  EXPECT_TRUE(Cycle.AfficheOutil2);
}

TEST_F(Cablage, AnUndoHidesItsButtonUntilItIsDone) {
  Plaque();
  QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Right);
  essai::Evenements();
  int passes = 0;
  Svc.AvancementDebut = [&](const std::string&, long) {
    ++passes;
    EXPECT_FALSE(Bouton("mnu_Undo")->isVisible());
  };
  Presse("mnu_Undo");
  EXPECT_GT(passes, 0);
}

TEST_F(Cablage, AnUndoBringsThePathsBackIntoTheTrees) {
  Plaque();
  const auto lignes = [this](const char* arbre) {
    const auto* modele = C<QTreeView>(arbre)->model();
    return modele->rowCount(modele->index(0, 0));
  };
  const int avant = lignes("TreeView1");
  const int traces = lignes("TreeView2");
  CliqueLigne("TreeView1", 3);
  Commande("mnu_Supprimer");
  ASSERT_EQ(lignes("TreeView1"), avant - 1);
  ASSERT_EQ(lignes("TreeView2"), traces - 1);
  Presse("mnu_Undo");
  EXPECT_EQ(lignes("TreeView1"), avant);
  EXPECT_EQ(lignes("TreeView2"), traces);
}

TEST_F(Cablage, AnAttachmentPointIsOneStepOfUndo) {
  Plaque();
  Presse("mnu_Lever");
  const int pas = NumeroInstantane();
  CliqueDessin(60, 5);
  ASSERT_TRUE(
      std::any_of(TraceInitial.begin(), TraceInitial.end(), [](const PointTrace& p) { return p.Cde == CodePC; }));
  EXPECT_EQ(NumeroInstantane(), pas + 1);
  CliqueDessin(60, 5, Qt::ShiftModifier);
  EXPECT_EQ(NumeroInstantane(), pas + 2);
}

TEST_F(Cablage, TheFileButtonsOpenAndSave) {
  Plaque();
  const std::string un = essai::Dossier() + "/un.OVL";
  const std::string deux = essai::Dossier() + "/deux.OVL";
  essai::AttendFichier("mnu_Save", un);
  Presse("mnu_Save");
  EXPECT_TRUE(FichierExiste(un));
  essai::AttendFichier("mnu_SaveAs", deux);
  Presse("mnu_SaveAs");
  EXPECT_TRUE(FichierExiste(deux));
  EXPECT_EQ(fenetre_->windowTitle(), "OVELIN <-> deux.OVL");
  essai::AttendFichier("mnu_Ouvrir", Exemple("equerre.dxf"));
  Presse("mnu_Ouvrir");
  EXPECT_EQ(NomDe(FichierCourant), "equerre.dxf");
}

TEST_F(Cablage, TheButtonsOfWindowsOpenThem) {
  Plaque();
  for (const char* nom : {"mnu_Fraisage", "mnu_Nettoyage", "mnu_BD"}) Presse(nom);
  EXPECT_THAT(ouvertes_, ElementsAre("F_Fraisage", "F_Nettoyage", "F_BD"));
}

TEST_F(Cablage, TheZoomListStepsByItsArrowsItsItemsAndTheWheel) {
  Plaque();
  auto* combo = C<QComboBox>("Combo_Zoom");
  const float debut = Zoom;
  QTest::keyClick(combo, Qt::Key_Up);
  EXPECT_GT(Zoom, debut);
  QTest::keyClick(combo, Qt::Key_Down);
  EXPECT_FLOAT_EQ(Zoom, debut);
  for (const auto& [rang, plus] : {std::pair{0, true}, {2, false}}) {
    const float avant = Zoom;
    combo->showPopup();
    combo->view()->setCurrentIndex(combo->model()->index(rang, 0));
    QTest::keyClick(combo->view(), Qt::Key_Return);
    essai::Evenements();
    EXPECT_EQ(Zoom > avant, plus);
    EXPECT_NE(Zoom, avant);
    EXPECT_EQ(combo->currentText(), " ") << "the next choice is a change again";
  }
}

// --- commands without a button

TEST_F(Cablage, QuitClosesTheWindow) {
  Charge();
  Commande("mnu_Quitter");
  EXPECT_FALSE(fenetre_->isVisible());
}

TEST_F(Cablage, SelectionCommandsActOnTheDrawing) {
  Plaque();
  CliqueLigne("TreeView1", 1);
  Commande("mnu_InverseSelection");
  EXPECT_EQ(Selectionnes().size(), Sequences.size() - 1);
  Commande("mnu_Tout");
  EXPECT_EQ(Selectionnes().size(), Sequences.size());
}

TEST_F(Cablage, ALayerIsChosenFromOneOfItsPaths) {
  Plaque();
  ASSERT_GT(Sequences.size(), 3U);
  for (const SequenceInfo& s : Sequences) Complements.Pose(s.Code, {false, "Coupe", std::nullopt});
  Complements.Pose(Sequences[0].Code, {false, "Bord", std::nullopt});
  Complements.Pose(Sequences[2].Code, {false, "Bord", std::nullopt});
  CliqueLigne("TreeView1", 0);
  ASSERT_EQ(Selectionnes().size(), 1U);
  Commande("mnu_Calque");
  EXPECT_EQ(CodesSelectionnes(), (std::vector<Code2>{Sequences[0].Code, Sequences[2].Code}));
}

TEST_F(Cablage, ThePanelIsShutAndOpenedAgain) {
  Plaque();
  auto* separateur = C<QSplitter>("Separateur");
  ASSERT_TRUE(Menu("mnu_Panneau")->isChecked());
  Commande("mnu_Panneau");
  EXPECT_EQ(separateur->sizes().value(1), 0);
  Commande("mnu_Panneau");
  EXPECT_GT(separateur->sizes().value(1), 200);
}

TEST_F(Cablage, AHandleThatIsDraggedShutTakesTheTickAway) {
  Plaque();
  auto* separateur = C<QSplitter>("Separateur");
  QSplitterHandle* poignee = separateur->handle(1);
  const QPoint milieu = poignee->rect().center();
  QTest::mousePress(poignee, Qt::LeftButton, {}, milieu);
  QTest::mouseMove(poignee, milieu + QPoint(separateur->width(), 0));
  QTest::mouseRelease(poignee, Qt::LeftButton, {}, milieu + QPoint(separateur->width(), 0));
  essai::Evenements();
  ASSERT_EQ(separateur->sizes().value(1), 0);
  EXPECT_FALSE(Menu("mnu_Panneau")->isChecked());
}

// --- side panel

TEST_F(Cablage, OneOfTheTwoTreesIsShown) {
  Plaque();
  auto* choix = C<QTabBar>("Option_DI");
  for (const int rang : {1, 0}) {
    QTest::mouseClick(choix, Qt::LeftButton, {}, choix->tabRect(rang).center());
    EXPECT_EQ(C<QTreeView>("TreeView1")->isVisible(), rang == 0);
    EXPECT_EQ(C<QTreeView>("TreeView2")->isVisible(), rang == 1);
  }
}

TEST_F(Cablage, ThePageOfTheChoiceIsShown) {
  Plaque();
  auto* choix = C<QTabBar>("Option1");
  const std::vector<const char*> pages{"FRAME_ListePoints", "FRAME_Fraisage", "FRAME_Sequences"};
  for (int rang = 0; rang < 3; ++rang) {
    QTest::mouseClick(choix, Qt::LeftButton, {}, choix->tabRect(rang).center());
    for (int page = 0; page < 3; ++page) {
      EXPECT_EQ(C<QWidget>(pages[static_cast<std::size_t>(page)])->isVisible(), page == rang) << page;
    }
  }
}

TEST_F(Cablage, APathOfATreeIsSelectedShownAndDrawn) {
  Plaque();
  const QImage avant = Image();
  CliqueLigne("TreeView1", 3);
  EXPECT_EQ(Selectionnes(), std::vector<std::string>{" D"});
  EXPECT_EQ(Etiquette("SB1_1"), "D");
  EXPECT_EQ(C<QLineEdit>("TB_Profondeur")->text(), "-3.00");
  EXPECT_FALSE(Image() == avant);
  C<QTabBar>("Option_DI")->setCurrentIndex(1);
  CliqueLigne("TreeView2", 0);
  EXPECT_EQ(Selectionnes().size(), 1U);
  EXPECT_NE(Selectionnes(), std::vector<std::string>{" D"});
}

TEST_F(Cablage, APointOfATreeIsMarkedAndItsPlaceShown) {
  Plaque();
  CliqueLigne("TreeView1", 3);
  const QImage avant = Image();
  const PointTrace p = TraceInitial[static_cast<std::size_t>(IndexSequence(Code2(" D"))) + 1];
  CliqueLigne("TreeView1", 3, 1);
  EXPECT_EQ(PointCourantX, p.X);
  EXPECT_EQ(PointCourantY, p.Y);
  EXPECT_FLOAT_EQ(C<QLineEdit>("TB_X")->text().toFloat(), std::round(p.X * 1000) / 1000);
  EXPECT_FALSE(Image() == avant) << "the cross";
}

TEST_F(Cablage, ATreeHasTheMenuOfThePicture) {
  Plaque();
  auto* arbre = C<QTreeView>("TreeView1");
  QContextMenuEvent demande(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
  QApplication::sendEvent(arbre, &demande);
  essai::Evenements();
  auto* menu = C<QMenu>("mnu_Contexte");
  EXPECT_TRUE(menu->isVisible());
  menu->close();
}

// --- board

TEST_F(Cablage, TheBoardIsPolledInAPeriodOfItsOwn) {
  Regl.TimerInterval = 400;
  Charge();
  EXPECT_TRUE(C<QTimer>("Timer_Interro")->isActive());
  EXPECT_EQ(C<QTimer>("Timer_Interro")->interval(), 1000);
  fenetre_.reset();
  EcrireCle("PeriodeInterro", "2500");
  Charge();
  EXPECT_EQ(C<QTimer>("Timer_Interro")->interval(), 2500);
}

TEST_F(Cablage, ThePollOfTheBoardRestsWhileAWindowHasTheMachine) {
  Charge();
  Svc.Timer_Interro(false);
  EXPECT_FALSE(C<QTimer>("Timer_Interro")->isActive());
  Svc.Timer_Interro(true);
  EXPECT_TRUE(C<QTimer>("Timer_Interro")->isActive());
}

TEST_F(Cablage, ABoardThatIsPluggedInIsNamedAtTheNextPoll) {
  essai::Scenario carte;
  carte.connectee = 0;
  CdeZENIK = std::make_unique<ClsCdeZENIK>(std::make_unique<essai::LiaisonScenario>(carte));
  Charge();
  const std::string sans = Traduire("F_Representation", "Carte_aucune");
  EXPECT_EQ(Etiquette("SB1_9"), sans);
  carte.connectee = 1;
  EXPECT_EQ(Etiquette("SB1_9"), sans) << "not asked yet";
  Sonne("Timer_Interro");
  EXPECT_NE(Etiquette("SB1_9"), sans);
  carte.connectee = 0;
  Sonne("Timer_Interro");
  EXPECT_EQ(Etiquette("SB1_9"), sans);
  fenetre_.reset();
  CdeZENIK.reset();
}

// --- keyboard

TEST_F(Cablage, ThePictureHasTheKeyboardFirst) {
  Plaque();
  auto* image = C<ImagePB1>("PB1");
  EXPECT_TRUE(image->hasFocus()) << "start";
  C<QLineEdit>("TB_RayonFraise")->setFocus();
  essai::AttendFichier("mnu_Ouvrir", Exemple("equerre.dxf"));
  Commande("mnu_Ouvrir");
  EXPECT_TRUE(image->hasFocus()) << "opening";
  auto* combo = C<QComboBox>("CB_BD");
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_End);
  essai::Evenements();
  EXPECT_TRUE(image->hasFocus()) << "material";
}

TEST_F(Cablage, DeleteTakesTheChosenPointAndElseThePath) {
  Plaque();
  CliqueLigne("TreeView1", 3);
  const std::int32_t avant = NbPoints;
  const auto sequences = Sequences.size();
  CliqueLigne("TreeView1", 3, 1);
  essai::Attend("F_Representation", "lib101", Reponse::Oui);
  Commande("mnu_Supprimer");
  EXPECT_EQ(NbPoints, avant - 1);
  EXPECT_EQ(Sequences.size(), sequences);
  CliqueLigne("TreeView1", 3);
  Commande("mnu_Supprimer");
  EXPECT_EQ(Sequences.size(), sequences - 1);
}

TEST_F(Cablage, DeleteAsksBeforeEveryPathGoes) {
  Plaque();
  Commande("mnu_Tout");
  essai::Attend("F_Representation", "SupprimerTout", Reponse::Non);
  Commande("mnu_Supprimer");
  EXPECT_GT(NbPoints, 2);
}

// --- languages

TEST_F(Cablage, ANewLanguageIsInAllPartsOfTheWindowAtOnce) {
  Plaque();
  reponses_["F_ParamAppli"] = [] {
    essai::ChoisitLangue("de");
    return true;
  };
  Commande("mnu_ParamAppli");
  EXPECT_EQ(Menu("mnu_Ouvrir")->text().toStdString(), Traduire("F_Representation", "mnu_Ouvrir"));
  EXPECT_NE(Menu("mnu_Ouvrir")->text(), "&Ouvrir...");
  auto* arbre = C<QTreeView>("TreeView1");
  EXPECT_EQ(arbre->model()->index(0, 0).data().toString().toStdString(), Traduire("F_Representation", "lib403"));
  EXPECT_EQ(arbre->toolTip().toStdString(), Traduire("F_Representation", "TreeView1tt"));
  EXPECT_EQ(arbre->accessibleName().toStdString(), Traduire("F_Representation", "TreeView1tt"));
  EXPECT_EQ(C<QTabBar>("Option1")->tabText(2).toStdString(), Traduire("F_Representation", "Option1_2"));
  EXPECT_EQ(C<QTabBar>("Option1")->accessibleName().toStdString(), Traduire("F_Representation", "Option1"));
  EXPECT_EQ(C<ImagePB1>("PB1")->accessibleName().toStdString(), Traduire("F_Representation", "PB1nom"));
  EXPECT_EQ(C<QComboBox>("CB_BD")->itemText(0).toStdString(), Traduire("F_Representation", "50"));
  EXPECT_THAT(C<QComboBox>("CB_BD")->toolTip().toStdString(),
              testing::EndsWith(" " + Traduire("F_Representation", "50")));
  EXPECT_EQ(Etiquette("SB1_9"), Traduire("F_Representation", "Carte_aucune"));
  EXPECT_EQ(Bouton("mnu_Save")->toolTip().toStdString(), Traduire("F_Representation", "TB1_mnu_Save"));
  EXPECT_EQ(Etiquette("Label_Couleur_Dessin"), Traduire("F_Representation", "lib350"));
  EXPECT_EQ(fenetre_->windowTitle(), "OVELIN <-> plaque.dxf");
}

TEST_F(Cablage, OtherOpenWindowsTakeTheNewLanguageWithIt) {
  Plaque();
  QDialog autre;
  autre.setObjectName("F_Fraisage");
  auto* bouton = new QToolButton(&autre);
  bouton->setObjectName("Btn_Fermer");
  autre.show();
  reponses_["F_ParamAppli"] = [] {
    essai::ChoisitLangue("de");
    return true;
  };
  Commande("mnu_ParamAppli");
  EXPECT_EQ(bouton->text().toStdString(), Traduire("F_Fraisage", "Btn_Fermer"));
}

TEST_F(Cablage, TheStopButtonIsThereWhileSomethingRuns) {
  Charge(Exemple("equerre.dxf"));
  auto* stop = C<QPushButton>("Btn_Stop");
  EXPECT_FALSE(stop->isVisible());
  Svc.MontreStop(true);
  EXPECT_TRUE(stop->isVisible());
  QTest::mousePress(stop, Qt::LeftButton);
  EXPECT_EQ(StopDemande, Vrai);
  Svc.MontreStop(false);
  EXPECT_FALSE(stop->isVisible());
}

TEST_F(Cablage, APlaceOfTheToolReachesThePicture) {
  Charge(Exemple("equerre.dxf"));
  Svc.MarquePosition(12, 34);
  EXPECT_TRUE(QTest::qWaitFor([] { return Cycle.Outil == MemoireOutil{12, 34}; }));
}

TEST_F(Cablage, TheLineOfARunIsInThePictureUntilTheRunIsOver) {
  Charge(Exemple("equerre.dxf"));
  auto* image = C<ImagePB1>("PB1");
  const QImage sans = image->grab().toImage();
  Svc.LigneRun(0, 0, 60, 40);
  EXPECT_FALSE(image->grab().toImage() == sans);
  Svc.EffaceLigneRun();
  essai::Evenements();
  EXPECT_TRUE(image->grab().toImage() == sans);
}

}  // namespace
