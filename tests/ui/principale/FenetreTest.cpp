// The main window by itself: load, menus, opening, closing.
#include <QCloseEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QScreen>
#include <QUrl>
#include <filesystem>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "workspace/Module_Recents.h"

namespace {

using namespace ovelin;
using essai::Principale;

class FormLoad : public Principale {};
class Ouverture_ : public Principale {
 protected:
  // Dragged over the window and let go; whether it was taken.
  bool Depose(const QMimeData& donnees) {
    QDragEnterEvent entree(QPoint(50, 50), Qt::CopyAction, &donnees, Qt::LeftButton, Qt::NoModifier);
    entree.setAccepted(false);
    QApplication::sendEvent(fenetre_.get(), &entree);
    if (!entree.isAccepted()) return false;
    QDropEvent depot(QPointF(50, 50), Qt::CopyAction, &donnees, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(fenetre_.get(), &depot);
    essai::Evenements();
    return depot.isAccepted();
  }
};
class Fermeture : public Principale {};

TEST_F(FormLoad, WithoutADrawingOnlyOpeningAndSettingsAreOffered) {
  Charge();
  EXPECT_TRUE(Menu("mnu_Ouvrir")->isEnabled());
  for (const char* nom : {"mnu_Save", "mnu_SaveAs", "mnu_Fraisage", "mnu_Optimisation", "mnu_Nettoyage"}) {
    EXPECT_FALSE(Menu(nom)->isEnabled()) << nom;
  }
  EXPECT_TRUE(C<QLabel>("Lbl_Vide")->isVisible());
}

TEST_F(FormLoad, CommandsOfWindowsThatDontExistAreNotShown) {
  Charge();
  for (const char* nom : {"mnu_Exporter", "mnu_Vinyl", "mnu_ZENIK", "mnu_APropos", "mnu_PilMan"}) {
    EXPECT_EQ(fenetre_->findChild<QAction*>(nom), nullptr) << nom;
  }
}

TEST_F(FormLoad, TheMaterialComboHoldsTheNeutralEntryAndTheFivePresets) {
  Charge();
  auto* combo = C<QComboBox>("CB_BD");
  ASSERT_EQ(combo->count(), 6);
  EXPECT_EQ(combo->currentIndex(), 0);
  EXPECT_EQ(combo->itemText(4), "CTP 3 mm");
}

TEST_F(FormLoad, ToolFieldsShowTheValuesInForce) {
  RayonFraise = 1.25;
  Charge();
  EXPECT_EQ(C<QLineEdit>("TB_RayonFraise")->text(), "1.25");
}

TEST_F(FormLoad, AnUnknownExtensionLeavesTheToolFieldsBlank) {
  essai::AttendTexte("Extension fichier inconnue");
  Charge(essai::EcritFichierEssai("lettre.txt", "bonjour"));
  EXPECT_EQ(C<QLineEdit>("TB_RayonFraise")->text(), "");
}

TEST_F(FormLoad, ADrawingOfTheCommandLineIsOpenAndModified) {
  Charge("\"" + Exemple("equerre.dxf") + "\"");
  EXPECT_GT(NbPoints, 2);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(fenetre_->windowTitle(), "OVELIN <-> equerre.dxf");
  EXPECT_TRUE(Menu("mnu_Fraisage")->isEnabled());
  EXPECT_FALSE(C<QLabel>("Lbl_Vide")->isVisible());
}

TEST_F(FormLoad, TheWindowComesBackWhereItWas) {
  EcrireCle("F_Representation_Left", "300");
  EcrireCle("F_Representation_Top", "450");
  EcrireCle("F_Representation_Width", "11700");
  EcrireCle("F_Representation_Height", "9000");
  fenetre_ = std::make_unique<F_Representation>();
  fenetre_->Form_Load("");
  EXPECT_EQ(fenetre_->x(), 20);
  EXPECT_EQ(fenetre_->y(), 30);
  EXPECT_EQ(fenetre_->width(), 780);
  EXPECT_EQ(fenetre_->height(), 600);
}

TEST_F(Ouverture_, TheDialogsAnswerIsOpened) {
  Charge();
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
  Commande("mnu_Ouvrir");
  EXPECT_EQ(NomDe(FichierCourant), "plaque.dxf");
  EXPECT_GT(Sequences.size(), 1U);
  EXPECT_EQ(Recents.chemins.front(), FichierCourant);
  EXPECT_NE(fenetre_->findChild<QAction*>("mnu_MRU_1"), nullptr);
}

TEST_F(Ouverture_, NothingIsThereToUndoBehindIt) {
  Charge();
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
  Commande("mnu_Ouvrir");
  EXPECT_FALSE(Menu("mnu_Undo")->isEnabled());
  EXPECT_TRUE(Bouton("mnu_Undo")->isVisible());
  EXPECT_EQ(ListeFichiers(DossierTemp, "OVL").size(), 1U);
}

// The window has just been shown and is laid out, and painted, while the size dialog is open.
TEST_F(Ouverture_, TheDrawingIsNotShownBeforeItIsReady) {
  QImage pendant;
  Svc.Dimensionne = [&](DemandeDimension&) {
    essai::Evenements();
    C<ImagePB1>("PB1")->MetEnPage();
    pendant = C<ImagePB1>("PB1")->Image();
    EXPECT_FALSE(C<QLabel>("Lbl_Vide")->isVisible());
  };
  const std::string chemin = Exemple("plaque.dxf");
  fenetre_ = std::make_unique<F_Representation>();
  fenetre_->DossierDocuments.clear();
  fenetre_->Form_Load(chemin);
  C<ImagePB1>("PB1")->MetEnPage();
  essai::Evenements();
  EXPECT_FALSE(Menu("mnu_Undo")->isEnabled());
  EXPECT_EQ(ListeFichiers(DossierTemp, "OVL").size(), 1U);
  const QImage apres = C<ImagePB1>("PB1")->Image();
  ASSERT_FALSE(apres.isNull());
  EXPECT_FALSE(pendant == apres);
}

TEST_F(Ouverture_, ACancelledDialogChangesNothing) {
  Charge(Exemple("plaque.dxf"));
  const Document avant = Doc;
  essai::AttendFichier("mnu_Ouvrir", "");
  Commande("mnu_Ouvrir");
  EXPECT_TRUE(Doc.TraceInitial == avant.TraceInitial);
  EXPECT_TRUE(Menu("mnu_Fraisage")->isEnabled());
}

TEST_F(Ouverture_, ADroppedDrawingIsOpened) {
  Charge();
  QMimeData donnees;
  donnees.setUrls({QUrl::fromLocalFile(QString::fromStdString(Exemple("enseigne.plt")))});
  EXPECT_TRUE(Depose(donnees));
  EXPECT_EQ(NomDe(FichierCourant), "enseigne.plt");
}

TEST_F(Ouverture_, AnythingElseThatIsDroppedIsLeftAlone) {
  Charge();
  QMimeData donnees;
  donnees.setUrls({QUrl::fromLocalFile("/etc/passwd")});
  EXPECT_FALSE(Depose(donnees));
  EXPECT_EQ(FichierCourant, "");
}

TEST_F(Ouverture_, ARecentFileThatVanishedIsToldAndLeavesTheList) {
  Charge(Exemple("plaque.dxf"));
  const std::string chemin = FichierCourant;
  std::filesystem::remove(chemin);
  essai::Attend("F_Representation", "lib340");
  Commande("mnu_MRU_1");
  EXPECT_TRUE(Recents.chemins.empty());
  EXPECT_EQ(fenetre_->findChild<QAction*>("mnu_MRU_1"), nullptr);
  EXPECT_GT(NbPoints, 2);
}

TEST_F(Ouverture_, ARecentFileIsOpenedAndComesFirst) {
  Charge();
  for (const char* nom : {"plaque.dxf", "equerre.dxf"}) {
    essai::AttendFichier("mnu_Ouvrir", Exemple(nom));
    Commande("mnu_Ouvrir");
  }
  Commande("mnu_MRU_2");
  EXPECT_EQ(NomDe(FichierCourant), "plaque.dxf");
  EXPECT_TRUE(Menu("mnu_MRU_1")->text().endsWith("plaque.dxf"));
  EXPECT_TRUE(Menu("mnu_MRU_2")->text().endsWith("equerre.dxf"));
}

TEST_F(FormLoad, AWindowThatWasNeverPlacedHasRoomForEverything) {
  fenetre_ = std::make_unique<F_Representation>();
  const QRect ecran = fenetre_->screen()->availableGeometry();
  fenetre_->Form_Load("");
  EXPECT_EQ(fenetre_->width(), std::min(1280, ecran.width()));
  EXPECT_EQ(fenetre_->height(), std::min(800, ecran.height()));
}

TEST_F(FormLoad, AWindowBeyondTheScreenComesIntoItOnceItsFrameIsKnown) {
  Charge();
  const QRect ecran = fenetre_->screen()->availableGeometry();
  fenetre_->resize(ecran.size() + QSize(500, 500));
  C<QTimer>("Timer_Cadre")->start(0);
  essai::Evenements();
  EXPECT_LE(fenetre_->width(), std::max(ecran.width(), fenetre_->minimumWidth()));
  EXPECT_LE(fenetre_->height(), std::max(ecran.height(), fenetre_->minimumHeight()));
}

TEST_F(Fermeture, WithoutAProjectTheParametersAreWrittenAndNothingIsAsked) {
  Charge();
  RayonFraise = 2.5;
  fenetre_->close();
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "2.5");
  EXPECT_FALSE(fenetre_->isVisible());
}

TEST_F(Fermeture, AModifiedProjectAsksAndCancelKeepsTheWindow) {
  Charge(Exemple("equerre.dxf"));
  essai::Attend("F_Representation", "lib004", Reponse::Annuler);
  fenetre_->close();
  EXPECT_TRUE(fenetre_->isVisible());
}

TEST_F(Fermeture, NoEndsWithoutSavingAndNothingIsWrittenIntoTheDrawing) {
  const std::string chemin = Exemple("equerre.dxf");
  Charge(chemin);
  const std::string avant = essai::LitFichierEssai(chemin);
  essai::Attend("F_Representation", "lib004", Reponse::Non);
  fenetre_->close();
  EXPECT_FALSE(fenetre_->isVisible());
  EXPECT_EQ(essai::LitFichierEssai(chemin), avant);
}

TEST_F(Fermeture, YesSavesAndEnds) {
  Charge(Exemple("plaque.dxf"));
  const std::string projet = essai::Dossier() + "/plaque.OVL";
  essai::Attend("F_Representation", "lib004", Reponse::Oui);
  essai::AttendFichier("mnu_Save", projet);
  fenetre_->close();
  EXPECT_FALSE(fenetre_->isVisible());
  EXPECT_TRUE(FichierExiste(projet));
}

TEST_F(Fermeture, ASaveThatIsCancelledKeepsTheWindow) {
  Charge(Exemple("plaque.dxf"));
  essai::Attend("F_Representation", "lib004", Reponse::Oui);
  essai::AttendFichier("mnu_Save", "");
  fenetre_->close();
  EXPECT_TRUE(fenetre_->isVisible());
}

TEST_F(Fermeture, PlaceAndMaterialAreKeptAndSnapshotsAreGone) {
  Charge(Exemple("plaque.dxf"));
  EXPECT_FALSE(ListeFichiers(DossierTemp, "OVL").empty());
  essai::Attend("F_Representation", "lib004", Reponse::Non);
  fenetre_->resize(1000, 700);
  essai::Evenements();
  fenetre_->close();
  EXPECT_EQ(LireCleIni("F_Representation_Width", ""), "15000");
  EXPECT_EQ(LireCleIni("F_Representation_Height", ""), "10500");
  EXPECT_EQ(LireCleIni("F_Representation_Max", ""), "0");
  EXPECT_EQ(LireCleIni("F_Representation_BD", ""), "0");
  EXPECT_TRUE(ListeFichiers(DossierTemp, "OVL").empty());
}

TEST_F(Fermeture, AQuitThatArrivesDuringAPassComesAfterIt) {
  Charge();
  {
    const Passe passe;
    fenetre_->close();
    essai::Evenements();
    EXPECT_TRUE(fenetre_->isVisible());
  }
  essai::Evenements();
  EXPECT_FALSE(fenetre_->isVisible());
}

TEST_F(Fermeture, OtherWindowsAreClosedFirst) {
  Charge();
  QWidget autre;
  autre.show();
  essai::Evenements();
  fenetre_->close();
  EXPECT_FALSE(autre.isVisible());
}

TEST_F(Fermeture, AfterAnUndoTheProjectIsStillAskedForAndSavedToItsFile) {
  const std::string projet = Exemple("plaque-poches.OVL");
  Charge(projet);
  Commande("mnu_Tout");
  Commande("mnu_InverseSelection");
  Commande("mnu_Undo");
  ASSERT_EQ(FichierProjet, "Chargt");
  Modifie = Vrai;
  essai::Attend("F_Representation", "lib004", Reponse::Oui);
  fenetre_->close();
  EXPECT_FALSE(fenetre_->isVisible());
  EXPECT_EQ(FichierProjet, projet);
  EXPECT_FALSE(FichierExiste("Chargt"));
  EXPECT_FALSE(FichierExiste(essai::Dossier() + "/Chargt"));
}

TEST_F(Fermeture, TheWidthOfThePanelIsKeptWithTheSettingsAndNeverInTheProject) {
  const std::string projet = Exemple("plaque-poches.OVL");
  EcrireCle("F_Representation_Panneau", "400");
  Charge(projet);
  Modifie = Faux;
  auto* separateur = C<QSplitter>("Separateur");
  separateur->setSizes({separateur->width() - 340, 340});
  const int largeur = separateur->sizes().value(1);
  ASSERT_NE(largeur, 400);
  fenetre_->close();
  EXPECT_EQ(LireCleIni("F_Representation_Panneau", ""), std::to_string(largeur));
  EXPECT_EQ(essai::LitFichierEssai(projet).find("F_Representation_Panneau"), std::string::npos);
}

TEST_F(Fermeture, RestoringTheDefaultsQuitsAndMakesRoomForAFreshFile) {
  Charge();
  EcrireCle("RayonFraise", "7");
  essai::Attend("F_Representation", "lib205", Reponse::Oui);
  Commande("mnu_Defaut");
  EXPECT_FALSE(fenetre_->isVisible());
  EXPECT_FALSE(FichierExiste(CheminIni()));
  EXPECT_TRUE(FichierExiste(DossierProgramme + "/OVELIN.inisav"));
}

}  // namespace
