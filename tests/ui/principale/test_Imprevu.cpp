// What comes at the wrong moment: a quit, a drop, a new size, want of memory.
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <new>
#include <stdexcept>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "workspace/Module_Cycle.h"

namespace {

using namespace ovelin;
using essai::Principale;

class Imprevu : public Principale {
 protected:
  void Retaille(int largeur, int hauteur) {
    fenetre_->resize(largeur, hauteur);
    essai::Evenements();
    C<ImagePB1>("PB1")->MetEnPage();
    essai::Evenements();
  }
};

TEST_F(Imprevu, AMaximisedWindowComesBackWithTheSizeItHadLast) {
  Charge();
  Retaille(1100, 720);
  fenetre_->setWindowState(Qt::WindowMaximized);
  essai::Evenements();
  C<ImagePB1>("PB1")->MetEnPage();
  ASSERT_TRUE(fenetre_->isMaximized());
  fenetre_->close();
  EXPECT_EQ(LireCleIni("F_Representation_Width", ""), "16500");
  EXPECT_EQ(LireCleIni("F_Representation_Height", ""), "10800");
  EXPECT_EQ(LireCleIni("F_Representation_Max", ""), "-1");
}

TEST_F(Imprevu, ANewSizeOfTheWindowDoesNotWriteTheOpenProjectAnew) {
  const std::string projet = Exemple("plaque-poches.OVL");
  Charge(projet);
  const std::string avant = essai::LitFichierEssai(projet);
  Retaille(1040, 700);
  EXPECT_EQ(LireCleIni("F_Representation_Width", ""), "15600");
  EXPECT_EQ(essai::LitFichierEssai(projet), avant);
  EXPECT_EQ(FichierProjet, projet);
}

TEST_F(Imprevu, AQuitDuringAnOpeningComesWhenTheDrawingStands) {
  Charge();
  Svc.Dimensionne = [this](DemandeDimension&) {
    fenetre_->close();
    essai::Evenements();
    EXPECT_TRUE(fenetre_->isVisible());
  };
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
  Menu("mnu_Ouvrir")->trigger();
  EXPECT_GT(TraceDecale.size(), 1U);
  EXPECT_TRUE(fenetre_->isVisible());
  essai::Evenements();
  EXPECT_FALSE(fenetre_->isVisible());
}

TEST_F(Imprevu, AQuitDuringTheLoadComesWhenItIsDone) {
  Svc.Dimensionne = [this](DemandeDimension&) { fenetre_->close(); };
  const std::string chemin = Exemple("plaque.dxf");
  fenetre_ = std::make_unique<F_Representation>();
  fenetre_->DossierDocuments.clear();
  fenetre_->Form_Load(chemin);
  EXPECT_TRUE(fenetre_->isVisible());
  essai::Evenements();
  EXPECT_FALSE(fenetre_->isVisible());
}

TEST_F(Imprevu, AnUndoOutOfAnEmptyDrawingTakesTheInvitationAway) {
  Charge(Exemple("plaque.dxf"));
  const std::size_t points = TraceInitial.size();
  Commande("mnu_Tout");
  essai::Attend("F_Representation", "SupprimerTout", Reponse::Oui);
  Commande("mnu_Supprimer");
  ASSERT_TRUE(C<QLabel>("Lbl_Vide")->isVisible());
  Commande("mnu_Undo");
  EXPECT_EQ(TraceInitial.size(), points);
  EXPECT_FALSE(C<QLabel>("Lbl_Vide")->isVisible());
}

TEST_F(Imprevu, AnUndoThatArrivesDuringAPassComesAfterIt) {
  Charge(Exemple("plaque.dxf"));
  const auto debut = TraceInitial;
  Commande("mnu_Tout");
  C<ImagePB1>("PB1")->setFocus();
  QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Right);
  essai::Evenements();
  const auto deplace = TraceInitial;
  ASSERT_FALSE(deplace == debut);
  {
    const Passe passe;
    Menu("mnu_Undo")->trigger();
    essai::Evenements();
    EXPECT_TRUE(TraceInitial == deplace);
  }
  essai::Evenements();
  EXPECT_TRUE(TraceInitial == debut);
}

TEST_F(Imprevu, ADrawingDroppedBeforeAPassIsOpenedBehindIt) {
  Charge();
  QMimeData donnees;
  donnees.setUrls({QUrl::fromLocalFile(QString::fromStdString(Exemple("plaque.dxf")))});
  QDragEnterEvent entree(QPoint(50, 50), Qt::CopyAction, &donnees, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(fenetre_.get(), &entree);
  QDropEvent depot(QPointF(50, 50), Qt::CopyAction, &donnees, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(fenetre_.get(), &depot);
  {
    const Passe passe;
    essai::Evenements();
    EXPECT_EQ(FichierCourant, "");
  }
  essai::Evenements();
  EXPECT_EQ(NomDe(FichierCourant), "plaque.dxf");
}

TEST_F(Imprevu, AnOpeningThatRunsOutOfMemoryLeavesAWindowThatGoesOnWithTheDrawingOfBefore) {
  Charge(Exemple("equerre.dxf"));
  const std::string avant = FichierCourant;
  const auto points = TraceInitial;
  const std::size_t pas = ListeFichiers(DossierTemp, "OVL").size();
  ASSERT_GT(pas, 0U);
  Svc.Dimensionne = [](DemandeDimension&) { throw std::bad_alloc(); };
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
  EXPECT_THROW(Menu("mnu_Ouvrir")->trigger(), std::bad_alloc);
  EXPECT_FALSE(Cycle.OuvertureDehors);
  EXPECT_EQ(FichierCourant, avant);
  EXPECT_TRUE(TraceInitial == points);
  EXPECT_TRUE(Menu("mnu_Save")->isEnabled());
  C<ImagePB1>("PB1")->Dessin();
  EXPECT_EQ(ListeFichiers(DossierTemp, "OVL").size(), pas + 1) << "the picture waits for nothing";
}

TEST_F(Imprevu, AnEntryOfTheRecentListOutlivesTheChangeOfTheListThatItMakes) {
  Charge();
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
  Commande("mnu_Ouvrir");
  bool encore = false;
  QObject::connect(Menu("mnu_MRU_1"), &QAction::triggered, [&] { encore = true; });
  Commande("mnu_MRU_1");
  EXPECT_TRUE(encore);
  EXPECT_EQ(fenetre_->findChildren<QAction*>("mnu_MRU_1").size(), 1);
}

}  // namespace
