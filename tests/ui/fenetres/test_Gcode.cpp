// The window of the G-code workshop.
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <cmath>
#include <functional>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/ui/Fenetres.h"
#include "gcode/ui/F_Gcode.h"
#include "gcode/ui/ImageProgramme.h"
#include "gcode/ui/ModeleProgramme.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Sequence.h"

namespace {

using namespace ovelin;
using namespace essai;

const std::string Carre = "(square)\nF600\nG00 Z5\nG00 X10 Y10\nG01 Z-1\nX50\nY40\nX10\nY10\nG00 Z5\n";

class FGcode : public testing::Test {
 protected:
  void Ouvre(const std::string& texte, const std::string& nom = "essai.nc") {
    Montre(fenetre_);
    fenetre_.Ouvre(EcritFichierEssai(nom, texte));
    essai::Evenements();
  }
  QAbstractItemModel& Modele() { return *Controle<QTableView>(fenetre_, "LV1")->model(); }
  QString Texte(int rangee, int colonne) { return Modele().index(rangee, colonne).data().toString(); }
  QString Etiquette(const char* nom) { return Controle<QLabel>(fenetre_, nom)->text(); }

  F_Gcode fenetre_;
};

TEST_F(FGcode, ListsTheLinesWithTheirNumbers) {
  Ouvre(Carre);
  ASSERT_EQ(Modele().rowCount(), 10);
  EXPECT_EQ(Texte(0, 0), "1");
  EXPECT_EQ(Texte(0, 1), "(square)");
  EXPECT_EQ(Texte(9, 0), "10");
  EXPECT_EQ(Texte(9, 2), "") << "moves are numbered by a run";
  EXPECT_EQ(fenetre_.windowTitle(), QStringLiteral("Atelier GCODE - essai.nc"));
}

TEST_F(FGcode, CommentsAreGreyAndRefusedLinesRedBothBold) {
  Attend("F_Gcode", "lib006");
  Ouvre("(note)\nG01 X1 F60\nG02 X1\nG91.1\n");
  const auto couleur = [&](int r) { return Modele().index(r, 1).data(Qt::ForegroundRole).value<QColor>(); };
  const auto gras = [&](int r) { return Modele().index(r, 1).data(Qt::FontRole).value<QFont>().bold(); };
  EXPECT_EQ(couleur(0), QColor(150, 150, 150));
  EXPECT_EQ(couleur(2), QColor(255, 0, 0));
  EXPECT_TRUE(gras(0));
  EXPECT_TRUE(gras(2));
  EXPECT_FALSE(Modele().index(1, 1).data(Qt::ForegroundRole).isValid());
  EXPECT_FALSE(Modele().index(1, 1).data(Qt::FontRole).isValid());
  EXPECT_TRUE(Modele().index(3, 1).data(Qt::ForegroundRole).isValid()) << "doubtful";
  EXPECT_FALSE(Modele().index(3, 1).data(Qt::FontRole).isValid());
}

TEST_F(FGcode, TellsTheFirstBadLineAndHowMany) {
  Attend("F_Gcode", "lib006");
  Ouvre("G01 X1 F60\n\nx10\n");
  EXPECT_NE(Boites().back().texte.find("\n2\n2: "), std::string::npos) << Boites().back().texte;
  EXPECT_EQ(Boites().back().ligne, 2);
}

TEST_F(FGcode, CountsTheKindsOfLines) {
  Attend("F_Gcode", "lib006");
  Ouvre("(note)\nG01 X1 F60\nG02 X1\nG91.1\n");
  EXPECT_EQ(Etiquette("Lbl_Comptes"),
            QStringLiteral("4 lignes, 2 valides, 1 douteuses, 1 commentaires, 1 refusées"));
}

TEST_F(FGcode, TheFilterLeavesBadLinesAlone) {
  Attend("F_Gcode", "lib006");
  Ouvre("(note)\nG01 X1 F60\nG02 X1\nx\n");
  Clique(*Controle<QCheckBox>(fenetre_, "CB_Refusees"));
  ASSERT_EQ(Modele().rowCount(), 2);
  EXPECT_EQ(Texte(0, 0), "3");
  EXPECT_EQ(Texte(1, 1), "x");
  Clique(*Controle<QCheckBox>(fenetre_, "CB_Refusees"));
  EXPECT_EQ(Modele().rowCount(), 4);
}

TEST_F(FGcode, ShowsTheUpperBounds) {
  Svc.MarqueDecimale = ',';
  Ouvre(Carre);
  EXPECT_EQ(Etiquette("Lbl_Bornes"), QStringLiteral("Xmax : 50,00    Ymax : 40,00    Zmax : 5,00"));
}

TEST_F(FGcode, WarnsOfMovesWithoutSpeedAndOfWhatLeavesTheTravel) {
  CourseX = 100;
  Ouvre("G01 X1\nX200\n");
  EXPECT_TRUE(Controle<QLabel>(fenetre_, "Lbl_Avis")->isVisible());
  EXPECT_TRUE(Etiquette("Lbl_Avis").contains("1: 2")) << Etiquette("Lbl_Avis").toStdString();
  EXPECT_TRUE(Etiquette("Lbl_Avis").contains("X 200.00 > 100.00") ||
              Etiquette("Lbl_Avis").contains("X 200,00 > 100,00"));
  fenetre_.Ouvre(EcritFichierEssai("bon.nc", Carre));
  EXPECT_FALSE(Controle<QLabel>(fenetre_, "Lbl_Avis")->isVisible());
}

TEST_F(FGcode, AFileThatCannotBeReadLeavesTheProgramBefore) {
  Ouvre(Carre);
  Attend("F_Representation", "lib110");
  fenetre_.Ouvre(Dossier() + "/absent.nc");
  EXPECT_EQ(Modele().rowCount(), 10);
  EXPECT_EQ(Boites().back().fichier, Dossier() + "/absent.nc");
}

TEST_F(FGcode, TheButtonAsksForAFileFromTheLastOneOn) {
  Montre(fenetre_);
  const std::string chemin = EcritFichierEssai("choisi.nc", Carre);
  AttendFichier("mnu_Ouvrir_Gcode", chemin);
  Clique(*Controle<QPushButton>(fenetre_, "mnu_Ouvrir"));
  EXPECT_EQ(Modele().rowCount(), 10);
  EXPECT_EQ(LireCleIni("Fichier", ""), chemin);
}

TEST_F(FGcode, ACancelledDialogChangesNothing) {
  Ouvre(Carre);
  const std::string avant = LireCleIni("Fichier", "");
  AttendFichier("mnu_Ouvrir_Gcode", "");
  Clique(*Controle<QPushButton>(fenetre_, "mnu_Ouvrir"));
  EXPECT_EQ(Modele().rowCount(), 10);
  EXPECT_EQ(LireCleIni("Fichier", ""), avant);
}

TEST_F(FGcode, ViewsAreChosenByTheirButtons) {
  Ouvre(Carre);
  auto* image = Controle<ImageProgramme>(fenetre_, "PB1");
  EXPECT_EQ(image->Vue(), VueProgramme::Dessus) << "the first picture is from above";
  const QImage dessus = image->grab().toImage();
  Clique(*Controle<QToolButton>(fenetre_, "Option_Vue_1"));
  EXPECT_EQ(image->Vue(), VueProgramme::Face);
  EXPECT_NE(image->grab().toImage(), dessus);
  Clique(*Controle<QToolButton>(fenetre_, "Option_Vue_3"));
  EXPECT_EQ(image->Vue(), VueProgramme::Espace);
}

TEST_F(FGcode, DraggingWithTheLeftButtonTurnsInSpace) {
  Ouvre(Carre);
  auto* image = Controle<ImageProgramme>(fenetre_, "PB1");
  QTest::mousePress(image, Qt::LeftButton, {}, {100, 100});
  QTest::mouseMove(image, {60, 100});
  QTest::mouseMove(image, {60 - image->width() / 10, 100});
  EXPECT_EQ(image->Vue(), VueProgramme::Espace);
  EXPECT_TRUE(Controle<QToolButton>(fenetre_, "Option_Vue_3")->isChecked());
  EXPECT_NEAR(image->EtatCamera().RotationY, 0.1, 0.01);
  QTest::mouseRelease(image, Qt::LeftButton);
}

TEST_F(FGcode, DraggingWithTheRightButtonShiftsAndTellsItInTheCaption) {
  Ouvre(Carre);
  auto* image = Controle<ImageProgramme>(fenetre_, "PB1");
  QTest::mousePress(image, Qt::RightButton, {}, {100, 100});
  QTest::mouseMove(image, {50, 100});
  EXPECT_TRUE(fenetre_.windowTitle().startsWith("DeplX= ")) << fenetre_.windowTitle().toStdString();
  EXPECT_NEAR(static_cast<double>(image->EtatCamera().DeplX), 50.0 * 50 / image->width(), 0.01);
  QTest::mouseRelease(image, Qt::RightButton, {}, {50, 100});
  EXPECT_EQ(fenetre_.windowTitle(), QStringLiteral("Atelier GCODE - essai.nc"));
  Clique(*Controle<QPushButton>(fenetre_, "Btn_Ajuster"));
  EXPECT_EQ(image->EtatCamera().DeplX, 0);
}

TEST_F(FGcode, RapidMovesCanBeHidden) {
  Ouvre("F600\nG00 X50\nG01 Y50\nG00 X0 Y0\n");
  auto* image = Controle<ImageProgramme>(fenetre_, "PB1");
  image->grab();
  const std::size_t avec = image->Segments();
  Clique(*Controle<QCheckBox>(fenetre_, "CB_Rapides"));
  image->grab();
  EXPECT_EQ(image->Segments(), avec - 2);
}

TEST_F(FGcode, ItsBoundsHoldWhileItIsInFrontAndTheDrawingsAfterwards) {
  AjouteCarre(" A", 100, 200, 30);
  EncombrementGeneral();
  ASSERT_EQ(Xmax, 130);
  Ouvre(Carre);
  ASSERT_TRUE(fenetre_.isActiveWindow());
  EXPECT_EQ(Xmax, 50);
  EXPECT_EQ(Ymax, 40);
  QWidget autre;
  Montre(autre);
  EXPECT_EQ(Xmax, 130);
  EXPECT_EQ(Ymax, 230);
  fenetre_.activateWindow();
  essai::Evenements();
  EXPECT_EQ(Xmax, 50);
  fenetre_.close();
  EXPECT_EQ(Xmax, 130);
}

TEST_F(FGcode, AnotherTableHoldsAtOnceAndGoesToTheSettingsAlone) {
  EcrireCleSection("table_AUTRE", "TB_SAV_18", "20");
  EcrireCleSection("table_AUTRE", "TB_SAV_19", "20");
  EcrireCleSection("table_AUTRE", "TB_SAV_20", "20");
  fenetre_.Form_Load();
  Ouvre(Carre);
  auto* tables = Controle<QComboBox>(fenetre_, "Combo_Table");
  const int rang = tables->findText("AUTRE");
  ASSERT_GE(rang, 0);
  tables->setCurrentIndex(rang);
  Q_EMIT tables->textActivated("AUTRE");
  EXPECT_EQ(TableDefaut, "AUTRE");
  EXPECT_EQ(LireCleIni("TableDefaut", ""), "AUTRE");
  EXPECT_EQ(CourseX, 20) << "its limits hold at once";
  EXPECT_TRUE(Etiquette("Lbl_Avis").contains("X 50") && Etiquette("Lbl_Avis").contains("Y 40"))
      << Etiquette("Lbl_Avis").toStdString();
}

TEST_F(FGcode, TheWindowShowsTheFileThatItWasOpenedFor) {
  FichierAMontrer = EcritFichierEssai("depose.nc", Carre);
  fenetre_.Form_Load();
  EXPECT_EQ(Modele().rowCount(), 10);
  EXPECT_EQ(FichierAMontrer, "");
  fenetre_.Form_Load();
  EXPECT_EQ(Modele().rowCount(), 10) << "and keeps it when it comes back";
}

// Without a screen there is no OpenGL, and the picture is painted.
TEST_F(FGcode, WithoutAScreenThePictureIsPainted) {
  Ouvre(Carre);
  EXPECT_EQ(fenetre_.findChild<QWidget*>("ToileGL"), nullptr);
  const QImage image = Controle<ImageProgramme>(fenetre_, "PB1")->grab().toImage();
  int traits = 0;  // pixels that are no paper
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) traits += image.pixel(x, y) == image.pixel(0, 0) ? 0 : 1;
  }
  EXPECT_GT(traits, 500);
}

// What moves is drawn coarsely, all of it once it has rested.
TEST_F(FGcode, AllIsDrawnAThirdOfASecondAfterItRests) {
  std::string texte = "F600\nG01\n";
  for (int i = 0; i < 20'000; ++i) {
    const double a = i * 0.001;
    texte +=
        "X" + std::to_string(50 + 2 * a * std::cos(a)) + " Y" + std::to_string(50 + 2 * a * std::sin(a)) + "\n";
  }
  Ouvre(texte);
  auto* image = Controle<ImageProgramme>(fenetre_, "PB1");
  Clique(*Controle<QToolButton>(fenetre_, "Option_Vue_3"));
  QTest::mousePress(image, Qt::LeftButton, {}, {100, 100});
  QTest::mouseMove(image, {101, 100});
  QTest::mouseMove(image, {100, 100});
  image->grab();
  const std::size_t tourne = image->Segments();
  QTest::mouseRelease(image, Qt::LeftButton, {}, {100, 100});
  auto* repos = image->findChild<QTimer*>("Timer_Repos");
  ASSERT_NE(repos, nullptr);
  EXPECT_TRUE(repos->isActive());
  EXPECT_EQ(repos->interval(), 300);
  QTimerEvent fin(repos->timerId());
  QCoreApplication::sendEvent(repos, &fin);
  image->grab();
  EXPECT_GT(image->Segments(), 2 * tourne);
}

// A virtual board as fast as it can, and a table that agrees with it.
class FGcodeRun : public FGcode {
 protected:
  FGcodeRun() {
    EcrireCleSection("table_" + TableDefaut, "TB_SAV_30", "5");
    EcrireCleSection("table_" + TableDefaut, "TB_SAV_31", "5");
    zenikcom::ConditionsCarte conditions;
    conditions.rapide = true;
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(conditions));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
    CdeZENIK->ChargeParametres();
    Svc.LaisseEvenements = [this](ovelin::Evenements) {
      if (pendant_) pendant_();
    };
    Svc.Attend = [](double) {};
  }
  ~FGcodeRun() override { CdeZENIK = std::make_unique<ClsCdeZENIK>(); }

  std::function<void()> pendant_;  // what the user does while the machine works
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
};

TEST_F(FGcodeRun, MillsAndNumbersTheMovesOfTheLines) {
  Ouvre(Carre);
  auto* fraise = Controle<QPushButton>(fenetre_, "mnu_Fraisage");
  QString pendant;
  pendant_ = [&] { pendant = fraise->text(); };
  Clique(*fraise);
  EXPECT_EQ(pendant, "...");
  EXPECT_NE(fraise->text(), "...");
  EXPECT_EQ(Texte(2, 2), "1");
  EXPECT_EQ(Texte(9, 2), "8");
  EXPECT_EQ(Texte(0, 2), "");
  EXPECT_FALSE(Controle<QPushButton>(fenetre_, "Btn_Reprise")->isVisible());
  EXPECT_EQ(carte_->Lieu()[2], std::llround(5 / CdeZENIK->MmParPasZ()));
}

TEST_F(FGcodeRun, AnotherTableThatTheBoardHasBecomesItsDefault) {
  fenetre_.Form_Load();
  CdeZENIK->TableEcrire("AUTRE", 1);
  CdeZENIK->TableDefautEcrire(0);
  Q_EMIT Controle<QComboBox>(fenetre_, "Combo_Table")->textActivated("AUTRE");
  EXPECT_EQ(CdeZENIK->TableDefautLire(), 1);
  Q_EMIT Controle<QComboBox>(fenetre_, "Combo_Table")->textActivated("INCONNUE");
  EXPECT_EQ(CdeZENIK->TableDefautLire(), 1) << "a search that finds nothing changes nothing";
}

TEST_F(FGcodeRun, TheLineUnderWayIsInViewAndTheToolInThePicture) {
  std::string texte = "F600\n";
  for (int i = 1; i <= 300; ++i) texte += "X" + std::to_string(i) + "\n";
  Ouvre(texte);
  auto* liste = Controle<QTableView>(fenetre_, "LV1");
  auto* image = Controle<ImageProgramme>(fenetre_, "PB1");
  const QImage avant = image->grab().toImage();
  const auto enVue = [&](int rangee) {
    return liste->viewport()->rect().intersects(liste->visualRect(Modele().index(rangee, 1)));
  };
  ASSERT_FALSE(enVue(300));
  Clique(*Controle<QPushButton>(fenetre_, "mnu_Fraisage"));
  EXPECT_TRUE(enVue(300));
  EXPECT_FALSE(enVue(1));
  EXPECT_NE(image->grab().toImage(), avant);
}

TEST_F(FGcodeRun, TheStopButtonStopsAndAResumeIsOffered) {
  Ouvre(Carre);
  auto* stop = Controle<QPushButton>(fenetre_, "Btn_Stop");
  EXPECT_FALSE(stop->isEnabled());
  pendant_ = [&] {
    if (stop->isEnabled()) Clique(*stop);
  };
  Clique(*Controle<QPushButton>(fenetre_, "mnu_Fraisage"));
  pendant_ = {};
  auto* reprise = Controle<QPushButton>(fenetre_, "Btn_Reprise");
  ASSERT_TRUE(reprise->isVisible());
  Attend("F_Gcode", "lib021", Reponse::Oui);
  Clique(*reprise);
  EXPECT_FALSE(reprise->isVisible());
  EXPECT_EQ(carte_->Lieu()[2], std::llround(5 / CdeZENIK->MmParPasZ()));
}

TEST_F(FGcodeRun, TheResumeButtonEndsTheToolChange) {
  Ouvre("F600\nX10\nM06\nX20\n");
  auto* reprise = Controle<QPushButton>(fenetre_, "Btn_Reprise");
  int fois = 0;
  pendant_ = [&] {
    if (!reprise->isVisible()) return;
    ++fois;
    Clique(*reprise);
  };
  Clique(*Controle<QPushButton>(fenetre_, "mnu_Fraisage"));
  EXPECT_EQ(fois, 1);
  EXPECT_EQ(carte_->Lieu()[0], std::llround(20 / CdeZENIK->MmParPasX()));
}

TEST_F(FGcodeRun, WithoutABoardTheRunDoesNotStart) {
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
  Ouvre(Carre);
  Attend("F_Gcode", "lib001");
  Clique(*Controle<QPushButton>(fenetre_, "mnu_Fraisage"));
  EXPECT_TRUE(Controle<QPushButton>(fenetre_, "mnu_Fraisage")->isEnabled());
}

}  // namespace
