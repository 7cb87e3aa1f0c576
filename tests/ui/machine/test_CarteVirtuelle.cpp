// The panel of the virtual board.
#include <QCheckBox>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <string>

#include "controller/ui/F_CarteVirtuelle.h"
#include "controller/ui/ImageParcours.h"
#include "core/ui/ChampNombre.h"
#include "tests/ui/machine/BancMachine.h"

namespace essai {
namespace {

class PanneauCarte : public BancMachine {
 protected:
  void Ouvre(int page = 0) {
    fenetre_.Form_Load();
    Montre(fenetre_);
    Controle<QTabWidget>(fenetre_, "SSTab1")->setCurrentIndex(page);
    essai::Evenements();
  }
  std::string Texte(const char* nom) { return Controle<QLabel>(fenetre_, nom)->text().toStdString(); }
  void Va(int dx, int dy, int dz) {
    CdeZENIK->EnvoiUSB();
    float v = 2, t = 0;
    CdeZENIK->CommandeDATA(dx, dy, dz, v, t, false);
    CdeZENIK->CommandeDATAend();
    do {
      CdeZENIK->DemandeInformation();
    } while (CdeZENIK->EnCours != Faux);
  }
  void Etat() { CdeZENIK->DemandeInformation(); }

  F_CarteVirtuelle fenetre_;
};

TEST_F(PanneauCarte, ShowsTheTruePlaceBesideTheCounters) {
  zenikcom::ModeleMachine modele{};
  modele[0].jeu = 4;
  carte_->Modele(modele);
  Va(100, 0, 0);
  Va(-50, 20, 0);
  Ouvre();
  EXPECT_EQ(Texte("Lbl_Compteurs_0"), "50");
  EXPECT_EQ(Texte("Lbl_Lieu_0"), "54");
  EXPECT_EQ(Texte("Lbl_Compteurs_1"), "20");
  EXPECT_EQ(Texte("Lbl_Lieu_1"), "20");
  EXPECT_TRUE(Controle<QLabel>(fenetre_, "Lbl_Lieu_0")->font().bold()) << "where they differ";
  EXPECT_FALSE(Controle<QLabel>(fenetre_, "Lbl_Lieu_1")->font().bold());
  EXPECT_EQ(Texte("Lbl_Etat"), "1, 1");
}

TEST_F(PanneauCarte, FollowsTheMachine) {
  Ouvre();
  EXPECT_EQ(Texte("Lbl_Lieu_2"), "0");
  Va(0, 0, 30);
  fenetre_.Form_Load();
  EXPECT_EQ(Texte("Lbl_Lieu_2"), "30");
  EXPECT_TRUE(fenetre_.findChild<QTimer*>()->isActive());
  EXPECT_LE(fenetre_.findChild<QTimer*>()->interval(), 50) << "twenty times a second";
  fenetre_.close();
  EXPECT_FALSE(fenetre_.findChild<QTimer*>()->isActive());
}

TEST_F(PanneauCarte, DrawsThePathAndBeginsItAnew) {
  Va(100, 0, 0);
  Va(0, 100, 0);
  Ouvre();
  auto* image = Controle<ImageParcours>(fenetre_, "PB_Parcours");
  EXPECT_GE(image->NombrePoints(), 3);
  const QImage avant = image->grab().toImage();
  Clique(*Controle<QPushButton>(fenetre_, "Btn_Neuf"));
  EXPECT_EQ(carte_->Parcours().size(), 1U);
  EXPECT_EQ(carte_->Lieu(), (zenikcom::Axes3{100, 100, 0}));
  EXPECT_NE(image->grab().toImage(), avant);
}

TEST_F(PanneauCarte, ExportsThePath) {
  Va(100, 0, 0);
  Ouvre();
  const std::string csv = Dossier() + "/chemin.csv";
  AttendFichier("Btn_Exporter", csv);
  Clique(*Controle<QPushButton>(fenetre_, "Btn_Exporter"));
  EXPECT_EQ(LitFichierEssai(csv),
            "X,Y,Z,PasX,PasY,PasZ\n0.0000,0.0000,0.0000,0,0,0\n1.0000,0.0000,0.0000,100,0,0\n");
  AttendFichier("Btn_Exporter", Dossier() + "/chemin.txt");
  Attend("F_CarteVirtuelle", "lib005");
  Clique(*Controle<QPushButton>(fenetre_, "Btn_Exporter"));
  AttendFichier("Btn_Exporter", Dossier() + "/absent/chemin.svg");
  Attend("F_Representation", "lib125");
  Clique(*Controle<QPushButton>(fenetre_, "Btn_Exporter"));
  AttendFichier("Btn_Exporter", "");
  Clique(*Controle<QPushButton>(fenetre_, "Btn_Exporter"));
}

TEST_F(PanneauCarte, AKeyIsDownAsLongAsItsButton) {
  Ouvre(1);
  const std::pair<const char*, Drapeau ClsCdeZENIK::*> touches[]{
      {"Btn_Touche_0", &ClsCdeZENIK::ToucheHautZ},  {"Btn_Touche_1", &ClsCdeZENIK::ToucheBasZ},
      {"Btn_Touche_2", &ClsCdeZENIK::ToucheGauche}, {"Btn_Touche_3", &ClsCdeZENIK::ToucheBas},
      {"Btn_Touche_4", &ClsCdeZENIK::ToucheHaut},   {"Btn_Touche_5", &ClsCdeZENIK::ToucheDroite}};
  for (const auto& [nom, membre] : touches) {
    auto* bouton = Controle<QPushButton>(fenetre_, nom);
    QTest::mousePress(bouton, Qt::LeftButton);
    EXPECT_TRUE(CdeZENIK->Touche()) << nom;
    CdeZENIK->DemandeInformation();
    EXPECT_NE((*CdeZENIK).*membre, Faux) << nom;
    QTest::mouseRelease(bouton, Qt::LeftButton);
    EXPECT_FALSE(CdeZENIK->Touche()) << nom;
  }
}

TEST_F(PanneauCarte, SwitchesAndInputsReachTheProgram) {
  Ouvre(1);
  Controle<QCheckBox>(fenetre_, "CB_FinDeCourse")->setChecked(true);
  Controle<QSlider>(fenetre_, "Sld_Analog_0")->setValue(255);
  Controle<QSlider>(fenetre_, "Sld_Analog_1")->setValue(51);
  Etat();
  EXPECT_NE(CdeZENIK->FinDeCourse, Faux);
  EXPECT_EQ(CdeZENIK->Analog1, 100);
  EXPECT_EQ(CdeZENIK->Analog2, 20);
  EXPECT_EQ(CdeZENIK->Origine, Faux);
  Controle<QCheckBox>(fenetre_, "CB_FinDeCourse")->setChecked(false);
  Controle<QCheckBox>(fenetre_, "CB_Origine")->setChecked(true);
  Etat();
  EXPECT_EQ(CdeZENIK->FinDeCourse, Faux);
  EXPECT_NE(CdeZENIK->Origine, Faux);
  Controle<QCheckBox>(fenetre_, "CB_Debranche")->setChecked(true);
  EXPECT_FALSE(CdeZENIK->IsAvailable());
  Controle<QCheckBox>(fenetre_, "CB_Debranche")->setChecked(false);
  EXPECT_TRUE(CdeZENIK->IsAvailable());
}

TEST_F(PanneauCarte, ShowsOutputsAndDisplay) {
  CdeZENIK->MotorOnOff(true);
  CdeZENIK->CommandePWM(1, 200);
  CdeZENIK->DisplayEnable(true);
  std::string texte = "Bonjour";
  CdeZENIK->DisplaySend(texte, 1, 0);
  Ouvre(1);
  EXPECT_EQ(Texte("Lbl_Moteur_Valeur"), "oui");
  EXPECT_EQ(Texte("Lbl_Aux_Valeur"), "non");
  EXPECT_EQ(Texte("Lbl_Broche_Valeur"), "oui");
  EXPECT_EQ(Texte("Lbl_Pwm_Valeur"), "200");
  const zenikcom::EcranCarte ecran = carte_->Ecran();
  EXPECT_EQ(Texte("Lbl_Ecran_0"), ecran.lignes[0]);
  EXPECT_EQ(Texte("Lbl_Ecran_1"), ecran.lignes[1]);
  EXPECT_NE((Texte("Lbl_Ecran_0") + Texte("Lbl_Ecran_1")).find("Bonjour"), std::string::npos);
  EXPECT_TRUE(Controle<QLabel>(fenetre_, "Lbl_Ecran_0")->isEnabled());
}

TEST_F(PanneauCarte, TheModelIsThatOfTheMachine) {
  Ouvre(2);
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Libre_0"), "400");
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Rampe_1"), "2000");
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Jeu_2"), "6");
  EXPECT_EQ(carte_->Modele()[0].vitesseLibre, 400);
  EXPECT_EQ(carte_->Modele()[1].rampe, 2000);
  EXPECT_EQ(carte_->Modele()[2].jeu, 6);
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Jeu_2"), "-1");
  EXPECT_TRUE(Controle<ChampNombre>(fenetre_, "TB_Jeu_2")->EstRefuse());
  EXPECT_EQ(carte_->Modele()[2].jeu, 6);
  fenetre_.close();
  fenetre_.Form_Load();
  EXPECT_EQ(Controle<QLineEdit>(fenetre_, "TB_Jeu_2")->text(), "6") << "as the board has it";
}

TEST_F(PanneauCarte, AFaultComesInItsTurn) {
  Ouvre(2);
  Controle<QComboBox>(fenetre_, "Combo_Faute")->setCurrentIndex(1);  // lost on the way there
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Apres"), "2");
  Clique(*Controle<QPushButton>(fenetre_, "Btn_Faute"));
  EXPECT_EQ(Texte("Lbl_Fautes"), "2 : perdu à l'aller");
  EXPECT_NE(CdeZENIK->DemandeVersion(), "");
  std::int32_t mode = 0;
  CdeZENIK->Tampon[1] = 'V';
  EXPECT_FALSE(CdeZENIK->EnvoiCommande(mode)) << "the second exchange";
  CdeZENIK->Tampon[1] = 'V';
  EXPECT_TRUE(CdeZENIK->EnvoiCommande(mode));
}

TEST_F(PanneauCarte, FaultsCanBeClearedAndRefused) {
  Ouvre(2);
  Clique(*Controle<QPushButton>(fenetre_, "Btn_Faute"));
  Clique(*Controle<QPushButton>(fenetre_, "Btn_SansFaute"));
  EXPECT_EQ(Texte("Lbl_Fautes"), "");
  std::int32_t mode = 0;
  CdeZENIK->Tampon[1] = 'V';
  EXPECT_TRUE(CdeZENIK->EnvoiCommande(mode));
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Apres"), "0");
  Clique(*Controle<QPushButton>(fenetre_, "Btn_Faute"));
  EXPECT_TRUE(Controle<ChampNombre>(fenetre_, "TB_Apres")->EstRefuse());
  EXPECT_EQ(Texte("Lbl_Fautes"), "");
}

TEST_F(PanneauCarte, OfARealBoardSaysThatThereIsNone) {
  LaCarte = {GenreCarte::Usb, nullptr, ""};
  Ouvre();
  EXPECT_TRUE(Controle<QLabel>(fenetre_, "Lbl_Absente")->isVisible());
  EXPECT_FALSE(Controle<QTabWidget>(fenetre_, "SSTab1")->isEnabled());
}

}  // namespace
}  // namespace essai
