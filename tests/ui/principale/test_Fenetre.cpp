// The main window by itself: load, menus, opening, closing.
#include <QCloseEvent>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <filesystem>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"
#include "workspace/FinCycle.h"
#include "workspace/Module_Recents.h"
#include "workspace/Module_Reprise.h"

namespace {

using namespace ovelin;
using essai::Principale;

class FormLoad : public Principale {};
class OuvertureDeLaFenetre : public Principale {
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
  FenetreExiste = [](const std::string& nom) {
    return nom != "F_Exporter" && nom != "F_Vinyl" && nom != "F_About";
  };
  Charge();
  EXPECT_NE(fenetre_->findChild<QAction*>("mnu_Texte"), nullptr);
  for (const char* nom : {"mnu_Exporter", "mnu_Vinyl", "mnu_APropos"}) {
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

TEST_F(OuvertureDeLaFenetre, TheDialogsAnswerIsOpened) {
  Charge();
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
  Commande("mnu_Ouvrir");
  EXPECT_EQ(NomDe(FichierCourant), "plaque.dxf");
  EXPECT_GT(Sequences.size(), 1U);
  EXPECT_EQ(Recents.chemins.front(), FichierCourant);
  EXPECT_NE(fenetre_->findChild<QAction*>("mnu_MRU_1"), nullptr);
}

TEST_F(OuvertureDeLaFenetre, NothingIsThereToUndoBehindIt) {
  Charge();
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
  Commande("mnu_Ouvrir");
  EXPECT_FALSE(Menu("mnu_Undo")->isEnabled());
  EXPECT_TRUE(Bouton("mnu_Undo")->isVisible());
  EXPECT_EQ(ListeFichiers(DossierTemp, "OVL").size(), 1U);
}

// The window has just been shown and is laid out, and painted, while the size dialog is open.
TEST_F(OuvertureDeLaFenetre, TheDrawingIsNotShownBeforeItIsReady) {
  QImage pendant;
  Svc.Dimensionne = [&](DemandeDimension&) {
    C<QTimer>("Timer_Cadre")->stop();  // another size of the window would be another step
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

TEST_F(OuvertureDeLaFenetre, ACancelledDialogChangesNothing) {
  Charge(Exemple("plaque.dxf"));
  const Document avant = Doc;
  essai::AttendFichier("mnu_Ouvrir", "");
  Commande("mnu_Ouvrir");
  EXPECT_TRUE(Doc.TraceInitial == avant.TraceInitial);
  EXPECT_TRUE(Menu("mnu_Fraisage")->isEnabled());
}

TEST_F(OuvertureDeLaFenetre, ADroppedDrawingIsOpened) {
  Charge();
  QMimeData donnees;
  donnees.setUrls({QUrl::fromLocalFile(QString::fromStdString(Exemple("enseigne.plt")))});
  EXPECT_TRUE(Depose(donnees));
  EXPECT_EQ(NomDe(FichierCourant), "enseigne.plt");
}

TEST_F(OuvertureDeLaFenetre, ADroppedProgramOpensTheWorkshopAndLeavesTheDrawing) {
  Charge(Exemple("plaque.dxf"));
  const Document avant = Doc;
  const std::string programme = essai::EcritFichierEssai("essai.NC", "G01 X1\n");
  QMimeData donnees;
  donnees.setUrls({QUrl::fromLocalFile(QString::fromStdString(programme))});
  EXPECT_TRUE(Depose(donnees));
  EXPECT_EQ(ouvertes_, std::vector<std::string>{"F_Gcode"});
  EXPECT_EQ(FichierAMontrer, programme);
  EXPECT_TRUE(Doc.TraceInitial == avant.TraceInitial);
  FichierAMontrer.clear();
}

TEST_F(OuvertureDeLaFenetre, AnythingElseThatIsDroppedIsLeftAlone) {
  Charge();
  QMimeData donnees;
  donnees.setUrls({QUrl::fromLocalFile("/etc/passwd")});
  EXPECT_FALSE(Depose(donnees));
  EXPECT_EQ(FichierCourant, "");
}

TEST_F(OuvertureDeLaFenetre, EditedWorkAsksBeforeAnotherDrawingTakesItsPlace) {
  Charge(Exemple("plaque.dxf"));
  Deplacement_Selection(Direction::X, 2);
  const std::vector<PointTrace> travail = TraceInitial;
  const std::string autre = Exemple("equerre.dxf");
  essai::AttendFichier("mnu_Ouvrir", autre);
  essai::Attend("F_Representation", "lib140", Reponse::Annuler);
  Commande("mnu_Ouvrir");
  EXPECT_EQ(TraceInitial, travail);
  EXPECT_EQ(NomDe(FichierCourant), "plaque.dxf");
  essai::AttendFichier("mnu_Ouvrir", autre);
  essai::Attend("F_Representation", "lib140", Reponse::Non);
  Commande("mnu_Ouvrir");
  EXPECT_EQ(NomDe(FichierCourant), "equerre.dxf");
}

TEST_F(OuvertureDeLaFenetre, SavingFirstSavesTheWorkThatIsReplaced) {
  const std::string projet = Exemple("plaque-poches.OVL");
  Charge(projet);
  Deplacement_Selection(Direction::X, 2);
  const float x = TraceInitial[0].X;
  essai::Attend("F_Representation", "lib140", Reponse::Oui);
  Commande("mnu_MRU_1");  // the same project: what was just saved is read
  EXPECT_EQ(FichierCourant, projet);
  EXPECT_EQ(TraceInitial[0].X, x);
}

TEST_F(OuvertureDeLaFenetre, ARefusedFileLeavesTheOpenJobWithItsUndo) {
  Charge(Exemple("plaque.dxf"));
  Deplacement_Selection(Direction::X, 2);
  const Document avant = Doc;
  const auto instantanes = ListeFichiers(DossierTemp, "OVL");
  const std::string mauvais = essai::EcritFichierEssai("lettre.dxf", "Bonjour\r\n");
  const std::string vide = essai::EcritFichierEssai("vide.OVL", "$$RayonFraise=9\r\n");
  for (const std::string& chemin : {mauvais, vide}) {
    essai::AttendFichier("mnu_Ouvrir", chemin);
    essai::Attend("F_Representation", "lib140", Reponse::Non);
    essai::Attend(chemin == vide ? "erreurs" : "F_Representation", chemin == vide ? "100" : "lib115");
    Commande("mnu_Ouvrir");
    EXPECT_EQ(TraceInitial, avant.TraceInitial);
    EXPECT_EQ(Sequences, avant.Sequences);
    EXPECT_EQ(TraceDecale, avant.TraceDecale);
    EXPECT_EQ(NbPoints, avant.NbPoints);
    EXPECT_EQ(Modifie, avant.Modifie);
    EXPECT_EQ(NomDe(FichierCourant), "plaque.dxf");
    EXPECT_EQ(ListeFichiers(DossierTemp, "OVL"), instantanes);
    EXPECT_TRUE(Menu("mnu_Save")->isEnabled());
    EXPECT_EQ(LireCleIni("Fichier", ""), chemin);
    EXPECT_EQ(Recents.chemins.front(), chemin);
  }
}

TEST_F(OuvertureDeLaFenetre, AnEntryThatIsGoneIsGreyWhenTheMenuOpens) {
  Charge();
  for (const char* nom : {"plaque.dxf", "equerre.dxf"}) {
    essai::AttendFichier("mnu_Ouvrir", Exemple(nom));
    Commande("mnu_Ouvrir");
  }
  std::filesystem::remove(essai::Dossier() + "/plaque.dxf");
  Q_EMIT C<QMenu>("mnu_Fichier")->aboutToShow();
  EXPECT_TRUE(Menu("mnu_MRU_1")->isEnabled());
  EXPECT_FALSE(Menu("mnu_MRU_2")->isEnabled());
}

TEST_F(OuvertureDeLaFenetre, ARecentFileThatVanishedIsToldAndLeavesTheList) {
  Charge(Exemple("plaque.dxf"));
  const std::string chemin = FichierCourant;
  std::filesystem::remove(chemin);
  essai::Attend("F_Representation", "lib340");
  Commande("mnu_MRU_1");
  EXPECT_TRUE(Recents.chemins.empty());
  EXPECT_EQ(fenetre_->findChild<QAction*>("mnu_MRU_1"), nullptr);
  EXPECT_GT(NbPoints, 2);
}

TEST_F(OuvertureDeLaFenetre, ARecentFileIsOpenedAndComesFirst) {
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

TEST_F(Fermeture, EditedWorkAsksAndGoingBackKeepsTheWindow) {
  Charge(Exemple("equerre.dxf"));
  Deplacement_Selection(Direction::X, 2);
  essai::Attend("F_Representation", "lib140", Reponse::Annuler);
  fenetre_->close();
  EXPECT_TRUE(fenetre_->isVisible());
  EXPECT_EQ(essai::Boites().back().boutons, Boutons::OuiNonAnnuler);
}

TEST_F(Fermeture, ADrawingOrAProjectThatWasOnlyOpenedAsksNothing) {
  for (const char* nom : {"equerre.dxf", "plaque-poches.OVL"}) {
    Charge(Exemple(nom));
    EXPECT_EQ(Modifie, Vrai);
    fenetre_->close();
    EXPECT_FALSE(fenetre_->isVisible()) << nom;
  }
}

TEST_F(Fermeture, AChosenMaterialAloneAsksAndDiscardTellsWhatStaysInTheProject) {
  const std::string projet = Exemple("plaque-poches.OVL");
  Charge(projet);
  auto* combo = C<QComboBox>("CB_BD");
  essai::Attend("F_Representation", "lib106", Reponse::Oui);
  combo->setCurrentIndex(4);
  Q_EMIT combo->activated(4);
  essai::Attend("F_Representation", "lib140", Reponse::Non);
  essai::Attend("F_Representation", "lib141");
  fenetre_->close();
  EXPECT_FALSE(fenetre_->isVisible());
  const std::string texte = essai::Boites().back().texte;
  EXPECT_NE(texte.find("plaque-poches.OVL"), std::string::npos);
  EXPECT_NE(texte.find("ProfFraisage"), std::string::npos) << texte;
  EXPECT_NE(essai::LitFichierEssai(projet).find("$$ProfFraisage=-4.5"), std::string::npos);
}

TEST_F(Fermeture, AnEmptiedDrawingIsNotSavedOverItsProjectWithoutAWord) {
  const std::string projet = Exemple("plaque-poches.OVL");
  Charge(projet);
  const std::string avant = essai::LitFichierEssai(projet);
  Commande("mnu_Tout");
  SupprimeSelection();
  Svc.Rafraichit();
  essai::Attend("F_Representation", "lib142", Reponse::Non);
  Commande("mnu_Save");
  EXPECT_EQ(essai::LitFichierEssai(projet), avant);
  essai::Attend("F_Representation", "lib140", Reponse::Oui);
  essai::Attend("F_Representation", "lib142", Reponse::Non);
  fenetre_->close();
  EXPECT_TRUE(fenetre_->isVisible());
  essai::Attend("F_Representation", "lib140", Reponse::Non);
  fenetre_->close();
  // The place of the window goes into the project at the end; its paths stay.
  EXPECT_TRUE(essai::LitFichierEssai(projet).starts_with(avant));
}

TEST_F(Fermeture, WithoutAQuestionTheSettingsAreWrittenAndEditedWorkStays) {
  const std::string projet = Exemple("plaque-poches.OVL");
  Charge(projet);
  const std::string avant = essai::LitFichierEssai(projet);
  RayonFraise = 2.25;
  Deplacement_Selection(Direction::X, 2);
  fenetre_->TermineSansQuestion();
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "2.25");
  EXPECT_EQ(essai::LitFichierEssai(projet), avant);
  EXPECT_FALSE(ListeFichiers(DossierTemp, "OVL").empty());
}

TEST_F(Fermeture, WithoutAQuestionNothingStaysOfWorkThatIsUnchanged) {
  Charge(Exemple("plaque.dxf"));
  fenetre_->TermineSansQuestion();
  EXPECT_TRUE(ListeFichiers(DossierTemp, "OVL").empty());
}

TEST_F(Fermeture, TheEndOfTheSessionAsksOnceUntilSomethingIsDrawnAnew) {
  Charge(Exemple("plaque.dxf"));
  Deplacement_Selection(Direction::X, 2);
  essai::Attend("F_Representation", "lib140", Reponse::Annuler);
  EXPECT_FALSE(fenetre_->PeutFinir());
  essai::Attend("F_Representation", "lib140", Reponse::Non);
  EXPECT_TRUE(fenetre_->PeutFinir());
  EXPECT_TRUE(fenetre_->PeutFinir());
  Deplacement_Selection(Direction::X, 2);
  essai::Attend("F_Representation", "lib140", Reponse::Annuler);
  fenetre_->close();
  EXPECT_TRUE(fenetre_->isVisible());
  essai::Attend("F_Representation", "lib140", Reponse::Non);
  EXPECT_TRUE(fenetre_->PeutFinir());
  fenetre_->close();
  EXPECT_FALSE(fenetre_->isVisible());
}

TEST_F(Fermeture, NoEndsWithoutSavingAndNothingIsWrittenIntoTheDrawing) {
  const std::string chemin = Exemple("equerre.dxf");
  Charge(chemin);
  const std::string avant = essai::LitFichierEssai(chemin);
  Deplacement_Selection(Direction::X, 2);
  essai::Attend("F_Representation", "lib140", Reponse::Non);
  fenetre_->close();
  EXPECT_FALSE(fenetre_->isVisible());
  EXPECT_EQ(essai::LitFichierEssai(chemin), avant);
}

TEST_F(Fermeture, YesSavesAndEnds) {
  Charge(Exemple("plaque.dxf"));
  const std::string projet = essai::Dossier() + "/plaque.OVL";
  Deplacement_Selection(Direction::X, 2);
  essai::Attend("F_Representation", "lib140", Reponse::Oui);
  essai::AttendFichier("mnu_Save", projet);
  fenetre_->close();
  EXPECT_FALSE(fenetre_->isVisible());
  EXPECT_TRUE(FichierExiste(projet));
}

TEST_F(Fermeture, ASaveThatIsCancelledKeepsTheWindow) {
  Charge(Exemple("plaque.dxf"));
  Deplacement_Selection(Direction::X, 2);
  essai::Attend("F_Representation", "lib140", Reponse::Oui);
  essai::AttendFichier("mnu_Save", "");
  fenetre_->close();
  EXPECT_TRUE(fenetre_->isVisible());
}

TEST_F(Fermeture, PlaceAndMaterialAreKeptAndSnapshotsAreGone) {
  Charge(Exemple("plaque.dxf"));
  EXPECT_FALSE(ListeFichiers(DossierTemp, "OVL").empty());
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
  essai::Attend("F_Representation", "lib140", Reponse::Oui);
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
  essai::Attend("F_Representation", "lib143", Reponse::Non);
  Commande("mnu_Defaut");
  EXPECT_TRUE(fenetre_->isVisible());
  essai::Attend("F_Representation", "lib143", Reponse::Oui);
  essai::Attend("F_Representation", "lib205", Reponse::Oui);
  Commande("mnu_Defaut");
  EXPECT_FALSE(fenetre_->isVisible());
  EXPECT_FALSE(FichierExiste(CheminIni()));
  EXPECT_TRUE(FichierExiste(DossierProgramme + "/OVELIN.inisav"));
}

TEST_F(FormLoad, RecoveredWorkIsOfferedWhenTheWindowStandsAndComesBack) {
  DossierReprises = essai::Dossier() + "/reprises";
  std::filesystem::create_directories(DossierReprises);
  const std::string projet = Exemple("plaque-poches.OVL");
  const std::string garde = DossierReprises + "/1.OVL.reprise";
  std::filesystem::copy_file(projet, garde);
  essai::EcritFichierEssai("reprises/1.OVL.dessin", "/autrefois/plaque.dxf");
  reponses_["F_Reprise"] = [] {
    RepriseChoisie = ListeReprises().at(0);
    return true;
  };
  Charge(Exemple("equerre.dxf"));
  EXPECT_EQ(ouvertes_, std::vector<std::string>{"F_Reprise"});
  EXPECT_EQ(FichierCourant, "/autrefois/plaque.dxf");
  EXPECT_EQ(fenetre_->windowTitle(), QStringLiteral("OVELIN <-> plaque.dxf *"));
  EXPECT_GT(NbPoints, 2);
  EXPECT_EQ(C<QLineEdit>("TB_RayonFraise")->text(), "0.75") << "the recovered project's";
  EXPECT_TRUE(C<ImagePB1>("PB1")->hasFocus());
  essai::Evenements();
  EXPECT_TRUE(ListeReprises().empty()) << "behind the first complete drawing";
  essai::Attend("F_Representation", "lib140", Reponse::Non);
  fenetre_->close();
}

TEST_F(FormLoad, NothingIsOfferedWhereNothingWaits) {
  DossierReprises = essai::Dossier() + "/reprises";
  Charge();
  EXPECT_TRUE(ouvertes_.empty());
}

}  // namespace
