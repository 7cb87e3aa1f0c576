// The window without a drawing: where to drop one, recent files and examples as small pictures.
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <filesystem>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "workspace/ApercuFichier.h"
#include "workspace/Module_Recents.h"
#include "workspace/ui/Accueil.h"

namespace {

using namespace ovelin;

class SansDessin : public essai::Principale {
 protected:
  // The files of a row that are on show, by their whole paths.
  std::vector<std::string> Cartes(const char* rangee) {
    std::vector<std::string> chemins;
    for (int i = 0; i < 6; ++i) {
      const auto* carte = C<QToolButton>(("Carte_" + std::string(rangee) + "_" + std::to_string(i)).c_str());
      if (carte->isVisible()) chemins.push_back(carte->toolTip().toStdString());
    }
    return chemins;
  }
  QImage Image(const char* carte) { return C<QToolButton>(carte)->icon().pixmap(120, 84).toImage(); }
};

TEST_F(SansDessin, OffersToOpenAndShowsTheExamples) {
  Charge();
  EXPECT_TRUE(C<Accueil>("Frame_Accueil")->isVisible());
  EXPECT_EQ(C<Accueil>("Frame_Accueil")->geometry(), C<ImagePB1>("PB1")->rect());
  const auto exemples = Cartes("Exemples");
  ASSERT_FALSE(exemples.empty());
  EXPECT_EQ(NomDe(exemples.front()), "plaque.dxf");
}

TEST_F(SansDessin, TheButtonOpensByTheDialog) {
  Charge();
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
  essai::Clique(*C<QPushButton>("CB_OuvrirDessin"));
  EXPECT_EQ(NomDe(FichierCourant), "plaque.dxf");
  EXPECT_FALSE(C<Accueil>("Frame_Accueil")->isVisible());
}

TEST_F(SansDessin, AClickOnARecentFileOpensIt) {
  Charge();
  Svc.FichierRecent(Exemple("equerre.dxf"));
  Svc.FichierRecent(Exemple("plaque.dxf"));
  essai::Evenements();
  const auto recents = Cartes("Recents");
  ASSERT_EQ(recents.size(), 2U);
  EXPECT_EQ(NomDe(recents[0]), "plaque.dxf");
  essai::Clique(*C<QToolButton>("Carte_Recents_1"));
  EXPECT_EQ(NomDe(FichierCourant), "equerre.dxf");
  EXPECT_EQ(Recents.chemins.front(), FichierCourant);
}

TEST_F(SansDessin, TheKeyboardReachesAFileAndOpensIt) {
  Charge();
  Svc.FichierRecent(Exemple("equerre.dxf"));
  essai::Evenements();
  auto* carte = C<QToolButton>("Carte_Recents_0");
  EXPECT_NE(carte->focusPolicy() & Qt::TabFocus, 0);
  carte->setFocus();
  QTest::keyClick(carte, Qt::Key_Space);
  essai::Evenements();
  EXPECT_EQ(NomDe(FichierCourant), "equerre.dxf");
}

TEST_F(SansDessin, ARecentFileThatIsGoneIsNotShown) {
  Charge();
  const std::string parti = Exemple("equerre.dxf");
  Svc.FichierRecent(parti);
  std::filesystem::remove(parti);
  Svc.FichierRecent(Exemple("plaque.dxf"));
  essai::Evenements();
  EXPECT_EQ(Cartes("Recents").size(), 1U);
}

TEST_F(SansDessin, OneThatGoesWhileItIsShownIsToldByItsClick) {
  Charge();
  const std::string parti = Exemple("equerre.dxf");
  Svc.FichierRecent(parti);
  essai::Evenements();
  std::filesystem::remove(parti);
  essai::Attend("F_Representation", "lib340");
  essai::Clique(*C<QToolButton>("Carte_Recents_0"));
  EXPECT_TRUE(Cartes("Recents").empty());
}

TEST_F(SansDessin, AFileIsShownByItsDrawing) {
  Charge();
  Svc.FichierRecent(essai::EcritFichierEssai("vide.dxf", ""));
  Svc.FichierRecent(Exemple("plaque.dxf"));
  essai::Evenements();
  EXPECT_NE(Image("Carte_Recents_0"), Image("Carte_Recents_1")) << "a file without points is blank paper";
}

TEST_F(SansDessin, WhileTheMachineWorksNoneIsOpened) {
  Charge();
  Svc.FichierRecent(Exemple("plaque.dxf"));
  essai::Evenements();
  int bips = 0;
  Svc.Bip = [&bips] { ++bips; };
  OperationCarte = true;
  essai::Clique(*C<QToolButton>("Carte_Recents_0"));
  EXPECT_EQ(bips, 1);
  EXPECT_TRUE(TraceInitial.empty());
}

TEST_F(SansDessin, ASmallWindowShowsFewerFilesAndNoneBeyondItsEdge) {
  Charge();
  for (const char* nom : {"plaque.dxf", "equerre.dxf", "enseigne.plt", "percage.drl"}) {
    Svc.FichierRecent(Exemple(nom));
  }
  fenetre_->resize(760, 520);
  essai::Evenements();
  const auto* accueil = C<Accueil>("Frame_Accueil");
  EXPECT_LT(Cartes("Recents").size(), 4U);
  for (const QWidget* w : accueil->findChildren<QWidget*>()) {
    if (!w->isVisible()) continue;
    EXPECT_TRUE(accueil->rect().contains(QRect(w->mapTo(accueil, QPoint()), w->size())))
        << w->objectName().toStdString();
  }
}

TEST_F(SansDessin, ItsFilesKeepOffAWindowAtItsFoot) {
  Charge();
  Svc.FichierRecent(Exemple("plaque.dxf"));
  essai::Evenements();
  auto* accueil = C<Accueil>("Frame_Accueil");
  ASSERT_FALSE(Cartes("Exemples").empty());
  const int pied = accueil->height() / 2;
  accueil->LaisseLibre(pied);
  essai::Evenements();
  EXPECT_EQ(Cartes("Recents").size(), 1U);
  EXPECT_TRUE(Cartes("Exemples").empty());
  const auto* carte = C<QToolButton>("Carte_Recents_0");
  EXPECT_LE(carte->mapTo(accueil, QPoint(0, carte->height())).y(), accueil->height() - pied);
  accueil->LaisseLibre(0);
  EXPECT_FALSE(Cartes("Exemples").empty());
}

// As the window of moves by hand is where the screen has no room beside the main window.
TEST_F(SansDessin, AWindowOverItIsAskedToBeLow) {
  manuelle_ = true;
  FenetreExiste = [](const std::string& nom) { return nom == "F_PilMan"; };
  QWidget autre;
  autre.setObjectName("F_PilMan");
  autre.resize(470, 520);
  reponses_["F_PilMan"] = [&autre] {
    autre.show();
    return true;
  };
  Charge();
  EXPECT_EQ(essai::Vu().pilotage, std::vector{DemandePilotage::Plie});
}

TEST(PointsDuFichier, AreThoseOfTheDrawingAndNoneOfARefusedOrLargeOne) {
  const auto points = PointsDuFichier(essai::DossierExemples() + "/Carre.dxf", Regl);
  EXPECT_GE(points.size(), 5U);
  EXPECT_TRUE(PointsDuFichier(essai::EcritFichierEssai("vide.dxf", ""), Regl).empty());
  EXPECT_TRUE(PointsDuFichier(essai::Dossier() + "/absent.dxf", Regl).empty());
  const std::string carre = essai::LitFichierEssai(essai::DossierExemples() + "/Carre.dxf");
  const std::string long_ = "999\n" + std::string(1 << 20, 'x') + "\n" + carre;
  EXPECT_TRUE(PointsDuFichier(essai::EcritFichierEssai("long.dxf", long_), Regl).empty());
}

}  // namespace
