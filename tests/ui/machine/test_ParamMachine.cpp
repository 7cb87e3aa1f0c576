// The window of the machine's parameters.
#include <QCheckBox>
#include <QListWidget>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <filesystem>

#include "core/ui/ChampNombre.h"
#include "machine/essais/TableOuverte.h"
#include "machine/essais/ui/F_ParamMachine.h"
#include "tests/ui/machine/BancMachine.h"

namespace essai {
namespace {

class ParamMachine : public BancMachine {
 protected:
  void Ouvre() {
    fenetre_.Form_Load();
    Montre(fenetre_);
  }
  void Page(int page) {
    Controle<QTabWidget>(fenetre_, "SSTab1")->setCurrentIndex(page);
    essai::Evenements();
  }
  QLineEdit& TB(int index) { return *Controle<QLineEdit>(fenetre_, ("TB_SAV_" + std::to_string(index)).c_str()); }
  QComboBox& Combo(int index) {
    return *Controle<QComboBox>(fenetre_, ("Combo_SAV_" + std::to_string(index)).c_str());
  }
  QCheckBox& CB(int index) { return *Controle<QCheckBox>(fenetre_, ("CB_SAV_" + std::to_string(index)).c_str()); }
  QPushButton& Btn(const char* nom) { return *Controle<QPushButton>(fenetre_, nom); }
  std::string Texte(int index) { return TB(index).text().toStdString(); }
  void Preset(const char* nom) {
    auto* liste = Controle<QListWidget>(fenetre_, "LB_Interf_Gener");
    QListWidgetItem* ligne = liste->findItems(QString::fromLatin1(nom), Qt::MatchExactly).at(0);
    liste->setCurrentItem(ligne);
    Q_EMIT liste->itemClicked(ligne);
  }
  void Essai(const char* depart, const char* arrivee, const char* increment, const char* distance) {
    Page(5);
    const char* textes[]{depart, arrivee, increment, distance};
    for (int i = 0; i < 4; ++i) {
      Tape(*Controle<QLineEdit>(fenetre_, ("TB_Param_" + std::to_string(i + 1)).c_str()), textes[i]);
    }
    Controle<QCheckBox>(fenetre_, "CB_Axe_0")->setChecked(true);
  }

  F_ParamMachine fenetre_;
};

TEST_F(ParamMachine, HasAControlForEveryFieldThatIsNotHidden) {
  for (const ChampMachine& champ : ChampsMachine::Tous) {
    if (!champ.visible) continue;
    EXPECT_NE(fenetre_.findChild<QWidget*>(QString::fromStdString(champ.Cle())), nullptr) << champ.Cle();
  }
}

// 4 and 20 mm/s in the table.
TEST_F(ParamMachine, SpeedsStandInMillimetresAMinuteToo) {
  Ouvre();
  Page(1);
  const auto dit = [this](const char* nom) { return Controle<QLabel>(fenetre_, nom)->text().toStdString(); };
  EXPECT_EQ(dit("Lbl_Eq_SAV_12"), "240 mm/min");
  EXPECT_EQ(dit("Lbl_Eq_SAV_15"), "1200 mm/min");
  Tape(TB(12), "5");
  EXPECT_EQ(dit("Lbl_Eq_SAV_12"), "300 mm/min");
  Essai("1", "20", "0.5", "10");
  EXPECT_EQ(dit("Lbl_Eq_Param_3"), "30 mm/min");
  EXPECT_EQ(fenetre_.findChild<QLabel*>("Lbl_Eq_Param_4"), nullptr) << "a distance";
}

TEST_F(ParamMachine, ShowsTheTableInForce) {
  Ouvre();
  EXPECT_EQ(Controle<QComboBox>(fenetre_, "Combo_Table")->currentText(), "Essai");
  EXPECT_EQ(Texte(3), "100");
  EXPECT_EQ(Texte(6), "3.6");
  EXPECT_EQ(Combo(12).currentIndex(), 0);
  EXPECT_EQ(Controle<QSlider>(fenetre_, "Sld_SAV_0")->value(), 5);
}

TEST_F(ParamMachine, OpenedAndClosedChangesNoValue) {
  const ChampsTable avant = Chargt_Table("Essai");
  Ouvre();
  EXPECT_TRUE(fenetre_.close());
  OublieCles();
  EXPECT_EQ(Chargt_Table("Essai"), avant);
}

TEST_F(ParamMachine, ListsHoldTheItemsThatTheirIndexMeans) {
  Ouvre();
  EXPECT_EQ(Combo(0).itemText(4), "4");
  EXPECT_EQ(Combo(11).count(), 10);
  EXPECT_EQ(Combo(11).itemText(0), "10 kHz");
  EXPECT_EQ(Combo(11).itemText(9), "100 kHz");
  EXPECT_EQ(Combo(12).count(), 8);
  EXPECT_EQ(Combo(12).itemText(0), "1");
  EXPECT_EQ(Combo(13).itemText(1), "1/2");
  EXPECT_EQ(Combo(14).itemText(7), "1/128");
  const QStringList signaux{"Dir X", "Step X", "Dir Y", "Step Y", "Dir Z", "Step Z", "aucun"};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(Combo(1).itemText(i), signaux[i]);
}

TEST_F(ParamMachine, AnIndexBeyondTheListIsKept) {
  EcrireCleSection("table_Essai", "Combo_SAV_0", "14");
  Ouvre();
  EXPECT_EQ(Combo(0).currentIndex(), 14);
  fenetre_.close();
  EXPECT_EQ(Cle("Essai", "Combo_SAV_0"), "14");
}

TEST_F(ParamMachine, StepsAndDegreesFollowEachOther) {
  Ouvre();
  Tape(TB(3), "400");
  EXPECT_EQ(Texte(6), "0.9");
  Tape(TB(7), "7.2");
  EXPECT_EQ(Texte(4), "50");
  EXPECT_EQ(Texte(7), "7.20") << "two decimals when it is left";
}

TEST_F(ParamMachine, ZeroLeavesTheTwin) {
  Ouvre();
  Tape(TB(3), "0");
  EXPECT_EQ(Texte(6), "3.6");
  Tape(TB(6), "0");
  EXPECT_EQ(Texte(3), "0");
}

TEST_F(ParamMachine, FieldsTakeTheFormatOfTheirRow) {
  Ouvre();
  Tape(TB(0), "1.5");
  EXPECT_EQ(Texte(0), "1.5000");
  Page(1);
  Tape(TB(12), "10");
  EXPECT_EQ(Texte(12), "10.0");
  Page(0);
  Tape(TB(9), "3.7");
  EXPECT_EQ(Texte(9), "4");
}

TEST_F(ParamMachine, SpeedsWithRampHoldWhileTheyAreTyped) {
  Ouvre();
  Page(1);
  TB(15).setFocus();
  TB(15).selectAll();
  QTest::keyClicks(&TB(15), "42");
  EXPECT_EQ(VitesseMaxX, 42) << "before the field is left";
}

TEST_F(ParamMachine, TheZTravelOfTheWindowIsNotThatOfTheGlobal) {
  Ouvre();
  const float avant = CourseZ;
  Page(2);
  Tape(TB(20), "77");
  fenetre_.close();
  EXPECT_EQ(CourseZ, avant);
  EXPECT_EQ(Cle("Essai", "TB_SAV_20"), "77.0");
}

TEST_F(ParamMachine, AnEmptyFieldIsLeftAlone) {
  Ouvre();
  Tape(TB(3), "");
  EXPECT_EQ(Texte(3), "");
  EXPECT_EQ(Texte(6), "3.6");
}

TEST_F(ParamMachine, NegativeAndHugeNumbersAreRefusedAndTheOneBeforeComesBack) {
  Ouvre();
  for (const char* faux : {"-5", "1000001", "99999999999999999999", "-"}) {
    Tape(TB(3), faux);
    EXPECT_EQ(Texte(3), "100") << faux;
    EXPECT_TRUE(static_cast<ChampNombre&>(TB(3)).EstRefuse()) << faux;
  }
  fenetre_.close();
  EXPECT_EQ(Cle("Essai", "TB_SAV_3"), "100");
}

TEST_F(ParamMachine, TheInversionOfAnAxisHoldsAtOnceAndTurnsNoMove) {
  Ouvre();
  ASSERT_EQ(InverseY, 0);
  for (const bool inverse : {true, false}) {
    CB(2).setChecked(inverse);
    EXPECT_EQ(InverseY, inverse ? 1 : 0);
    carte_->Place({0, 0, 0});
    float v = 1, t = 0;
    CdeZENIK->EnvoiUSB();
    CdeZENIK->CommandeDATAmm(0, 1, 0, v, t);
    CdeZENIK->CommandeDATAend();
    while (CdeZENIK->EnCours != Faux) CdeZENIK->DemandeInformation();
    EXPECT_EQ(carte_->Lieu(), (zenikcom::Axes3{0, 100, 0})) << "the signal of its output inverts it";
  }
}

TEST_F(ParamMachine, ThePictureFollowsTheSideFromWhichTheMachineIsSeen) {
  Ouvre();
  Page(2);
  auto* devant = Controle<QWidget>(fenetre_, "Img_Machine");
  auto* derriere = Controle<QWidget>(fenetre_, "Img_MachineInv");
  EXPECT_TRUE(devant->isVisible());
  EXPECT_FALSE(derriere->isVisible());
  CB(13).setChecked(true);
  EXPECT_FALSE(devant->isVisible());
  EXPECT_TRUE(derriere->isVisible());
  EXPECT_NE(devant->grab().toImage(), derriere->grab().toImage());
}

TEST_F(ParamMachine, TheSlopeIsShownInSecondsAndItsFieldMovesTheSlider) {
  Ouvre();
  Page(1);
  EXPECT_EQ(Controle<QLabel>(fenetre_, "Label_Accel")->text(), "La vitesse double en 0.35 seconde");
  const QImage avant = Controle<QWidget>(fenetre_, "PB_Accel")->grab().toImage();
  auto* pente = Controle<QLineEdit>(fenetre_, "TB_Pente");
  EXPECT_EQ(pente->text(), "5");
  Tape(*pente, "9");
  EXPECT_EQ(Controle<QSlider>(fenetre_, "Sld_SAV_0")->value(), 9);
  EXPECT_EQ(Controle<QLabel>(fenetre_, "Label_Accel")->text(), "La vitesse double en 5.60 seconde");
  EXPECT_NE(Controle<QWidget>(fenetre_, "PB_Accel")->grab().toImage(), avant);
  Tape(*pente, "12");
  EXPECT_EQ(Controle<QSlider>(fenetre_, "Sld_SAV_0")->value(), 1)
      << "the 1 was followed, 12 lies beyond the slider";
  EXPECT_EQ(pente->text(), "1");
  Controle<QSlider>(fenetre_, "Sld_SAV_0")->setValue(3);
  EXPECT_EQ(pente->text(), "3");
}

// From the first output on the Tab key visits each signal and its inversion, in the order of their numbers: down
// the left half, then down the right one.
TEST_F(ParamMachine, TheTabKeyGoesThroughTheOutputsByTheirNumbers) {
  Ouvre();
  Page(3);
  Combo(1).setFocus();
  std::vector<std::string> visites, attendu;
  for (int sortie = 1; sortie <= 10; ++sortie) {
    attendu.push_back("Combo_SAV_" + std::to_string(sortie));
    attendu.push_back("CB_SAV_" + std::to_string(100 + sortie));
  }
  for (std::size_t i = 0; i < attendu.size(); ++i) {
    visites.push_back(QApplication::focusWidget()->objectName().toStdString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(visites, attendu);
  EXPECT_LT(CB(105).mapTo(&fenetre_, QPoint()).x(), Combo(6).mapTo(&fenetre_, QPoint()).x()) << "two halves";
}

TEST_F(ParamMachine, APresetFillsTheOutputsAndClearsTheInversions) {
  Ouvre();
  Page(3);
  CB(104).setChecked(true);
  Preset("Step Four");
  const int attendu[]{1, 0, 3, 2, 6, 6, 5, 4, 6, 6};
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Combo(i + 1).currentIndex(), attendu[i]) << i;
  EXPECT_FALSE(CB(104).isChecked());
}

TEST_F(ParamMachine, Cnc3axLeavesTheInversions) {
  Ouvre();
  Page(3);
  CB(104).setChecked(true);
  Preset("CNC3AX");
  const int attendu[]{1, 0, 3, 2, 5, 4, 6, 6, 6, 6};
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Combo(i + 1).currentIndex(), attendu[i]) << i;
  EXPECT_TRUE(CB(104).isChecked());
}

TEST_F(ParamMachine, WithoutAnInterfaceThereIsNothingToInvert) {
  Ouvre();
  Page(3);
  EXPECT_TRUE(CB(101).isVisible());
  Combo(0).setCurrentIndex(0);
  EXPECT_FALSE(CB(101).isVisible());
  EXPECT_FALSE(Controle<QLabel>(fenetre_, "Lbl_OUT_7")->isVisible());
  EXPECT_TRUE(Combo(7).isVisible());
  Combo(0).setCurrentIndex(4);
  EXPECT_TRUE(CB(110).isVisible());
  fenetre_.close();
  EXPECT_EQ(Cle("Essai", "OptionLPT"), "10");
}

TEST_F(ParamMachine, AnotherTableSavesTheOneOnShow) {
  Ouvre();
  Page(2);
  Tape(TB(18), "700");
  auto* tables = Controle<QComboBox>(fenetre_, "Combo_Table");
  tables->setCurrentText("Autre");
  Q_EMIT tables->textActivated("Autre");
  EXPECT_EQ(Cle("Essai", "TB_SAV_18"), "700.0");
  EXPECT_EQ(TableDefaut, "Autre");
  EXPECT_EQ(Texte(18), "321");
}

TEST_F(ParamMachine, ANameOfEightCharactersIsTakenAndOneOfNineAskedForAgain) {
  Ouvre();
  AttendSaisie("lib007", "NewTable-");  // the proposal itself: refused without a word
  AttendSaisie("lib007", "neufcarac");
  Attend("F_ParamMachine", "lib006");
  AttendSaisie("lib007", "huitcara");
  Clique(Btn("Cmd_Gestion_1"));
  EXPECT_EQ(Boites().size(), 1U);
  EXPECT_EQ(TableDefaut, "huitcara");
  EXPECT_EQ(Controle<QComboBox>(fenetre_, "Combo_Table")->currentText(), "huitcara");
  EXPECT_EQ(Cle("huitcara", "TB_SAV_3"), "100");
  EXPECT_EQ(Cle("Essai", "TB_SAV_3"), "100");
}

TEST_F(ParamMachine, ARenamedTableKeepsItsValues) {
  Ouvre();
  AttendSaisie("lib007", "Nouveau");
  Clique(Btn("Cmd_Gestion_2"));
  EXPECT_EQ(Cle("Nouveau", "TB_SAV_3"), "100");
  EXPECT_EQ(Cle("Essai", "TB_SAV_3"), "");
  EXPECT_EQ(TableDefaut, "Nouveau");
}

TEST_F(ParamMachine, ACancelledNameChangesNothing) {
  Ouvre();
  AttendSaisie("lib007", "");
  Clique(Btn("Cmd_Gestion_1"));
  EXPECT_EQ(TableDefaut, "Essai");
}

TEST_F(ParamMachine, ADeletedTableGivesWayToTheFirst) {
  Ouvre();
  Attend("F_ParamMachine", "lib002", Reponse::Ok);
  Clique(Btn("Cmd_Gestion_3"));
  EXPECT_EQ(TableDefaut, "Autre");
  EXPECT_EQ(Texte(18), "321");
  Attend("F_ParamMachine", "lib002", Reponse::Ok);
  Clique(Btn("Cmd_Gestion_3"));
  EXPECT_EQ(Controle<QComboBox>(fenetre_, "Combo_Table")->count(), 0) << "the last one may go";
  EXPECT_TRUE(fenetre_.close());
}

TEST_F(ParamMachine, TheTableIsNotDeletedWhileSomethingMoves) {
  Ouvre();
  OperationCarte = true;
  Attend("F_ParamMachine", "lib001");
  Clique(Btn("Cmd_Gestion_3"));
  EXPECT_EQ(Cle("Essai", "TB_SAV_3"), "100");
  OperationCarte = false;
}

TEST_F(ParamMachine, TheIdleLookAtTheBoardRestsWhileItIsOpen) {
  Ouvre();
  EXPECT_EQ(Vu().interro, std::vector<bool>{false});
  fenetre_.close();
  EXPECT_EQ(Vu().interro, (std::vector<bool>{false, true}));
}

TEST_F(ParamMachine, ClosingSavesTellsTheBoardAndKeepsTheTest) {
  Ouvre();
  Page(1);
  Tape(TB(15), "33");
  Essai("2", "4", "1", "5");
  Attend("erreurs", "2", Reponse::Oui);
  EXPECT_TRUE(fenetre_.close());
  EXPECT_EQ(Cle("Essai", "TB_SAV_15"), "33.0");
  EXPECT_EQ(VitesseMaxX, 33);
  EXPECT_TRUE(CdeZENIK->TableVerif()) << "the board has it, no question";
  EXPECT_EQ(LireCleIni("F_ParamMachine_Depl", ""), "5");
}

// The field that has the keyboard counts when the window is closed by its cross.
TEST_F(ParamMachine, AnEntryUnderWayIsTakenOver) {
  Ouvre();
  TB(9).setFocus();
  TB(9).selectAll();
  QTest::keyClicks(&TB(9), "12");
  fenetre_.close();
  EXPECT_EQ(Cle("Essai", "TB_SAV_9"), "12");
}

TEST_F(ParamMachine, WhatIsNoNumberYetIsNotSaved) {
  Ouvre();
  TB(25).setText(".");  // as it stands while it is typed
  EXPECT_EQ(TexteTableOuverte(ChampsMachine::Reserve25), "600");
  fenetre_.close();
  EXPECT_EQ(Cle("Essai", "TB_SAV_25"), "600");
}

TEST_F(ParamMachine, ASettingsFileThatCantBeWrittenIsToldAndTheWindowGoes) {
  Ouvre();
  Page(2);
  Tape(TB(18), "888");
  const std::string ini = Dossier() + "/OVELIN.ini";
  std::filesystem::permissions(ini, std::filesystem::perms::owner_read);
  Attend("F_Representation", "lib125");
  EXPECT_TRUE(fenetre_.close());
  std::filesystem::permissions(ini, std::filesystem::perms::owner_all);
  EXPECT_FALSE(fenetre_.isVisible());
}

TEST_F(ParamMachine, AFullBoardAsksWhichTableMakesRoom) {
  for (std::uint8_t n = 0; n < 4; ++n) CdeZENIK->TableEcrire("Autre" + std::to_string(n), n);
  Ouvre();
  AttendFenetre("F_ChangtTable", 1);
  EXPECT_TRUE(fenetre_.close());
}

TEST_F(ParamMachine, UnpluggedWhileItCloses) {
  Branche(false);
  float v = 1, t = 0;
  CdeZENIK->EnvoiUSB();
  CdeZENIK->CommandeDATAmm(50, 0, 0, v, t);
  CdeZENIK->CommandeDATAend();
  heure_ += 1;
  Ouvre();
  carte_->Fautes({{carte_->Compteurs().echanges + 2, zenikcom::GenreFaute::Debranche, 0}});
  EXPECT_TRUE(fenetre_.close());
  EXPECT_LT(heure_, 10);
  EXPECT_EQ(Cle("Essai", "TB_SAV_3"), "100");
}

TEST_F(ParamMachine, GoNeedsADistanceAndAnAxis) {
  Ouvre();
  Essai("2", "4", "1", "0");
  EXPECT_FALSE(Btn("Cmd_GO").isEnabled());
  Tape(*Controle<QLineEdit>(fenetre_, "TB_Param_4"), "5");
  EXPECT_TRUE(Btn("Cmd_GO").isEnabled());
  Controle<QCheckBox>(fenetre_, "CB_Axe_0")->setChecked(false);
  EXPECT_FALSE(Btn("Cmd_GO").isEnabled());
  EXPECT_FALSE(Btn("Cmd_Stop").isEnabled());
}

TEST_F(ParamMachine, ATestThatLeadsNowhereIsRefusedAtItsField) {
  Ouvre();
  Essai("4", "2", "1", "5");
  Clique(Btn("Cmd_GO"));
  EXPECT_TRUE(Controle<ChampNombre>(fenetre_, "TB_Param_3")->EstRefuse());
  EXPECT_EQ(carte_->Compteurs().acceptes, 0);
}

TEST_F(ParamMachine, ATestRunsAndGivesItsButtonsBack) {
  Ouvre();
  Essai("2", "4", "1", "5");
  Clique(Btn("Cmd_GO"));
  EXPECT_EQ(carte_->Parcours().size(), 7U) << "three times there and back";
  EXPECT_EQ(Controle<QLabel>(fenetre_, "Label_Vitesse")->text(), "4.00 mm/s");
  EXPECT_TRUE(Btn("Cmd_GO").isEnabled());
  EXPECT_FALSE(Btn("Cmd_Stop").isEnabled());
}

TEST_F(ParamMachine, ASpeedThatTheTableCutsIsShownAsItIs) {
  Ouvre();
  Essai("30", "30", "1", "5");
  Clique(Btn("Cmd_GO"));
  EXPECT_EQ(Controle<QLabel>(fenetre_, "Label_Vitesse")->text(), "30.00 mm/s (max. 20.00)");
}

TEST_F(ParamMachine, InATestClosingBeepsAndStopEndsIt) {
  Branche(false);
  Ouvre();
  Essai("2", "4", "1", "5");
  bool vu = false;
  aChaqueTour_ = [&] {
    if (vu || carte_->Compteurs().commences == 0) return;
    vu = true;
    EXPECT_FALSE(Btn("Cmd_GO").isEnabled());
    EXPECT_FALSE(Controle<QComboBox>(fenetre_, "Combo_Table")->isEnabled());
    EXPECT_FALSE(fenetre_.close());
    EXPECT_TRUE(fenetre_.isVisible());
    EXPECT_EQ(Bips(), 1);
    Clique(Btn("Cmd_Stop"));
    EXPECT_FALSE(fenetre_.close()) << "stopped, but the test has not come to its end";
    EXPECT_EQ(Bips(), 2);
  };
  Clique(Btn("Cmd_GO"));
  EXPECT_TRUE(vu);
  EXPECT_NE(StopDemande, Faux);
  EXPECT_TRUE(Btn("Cmd_GO").isEnabled());
  EXPECT_TRUE(Controle<QComboBox>(fenetre_, "Combo_Table")->isEnabled());
  EXPECT_TRUE(fenetre_.close());
}

TEST_F(ParamMachine, UnpluggedInATestTellsItAndTheButtonsComeBack) {
  Branche(false);
  Ouvre();
  Essai("2", "4", "1", "5");
  aChaqueTour_ = [&] {
    if (carte_->Compteurs().commences > 0) carte_->Debranche(true);
  };
  Attend("F_Fraisage", "Run_liaison");
  Clique(Btn("Cmd_GO"));
  EXPECT_TRUE(Btn("Cmd_GO").isEnabled());
  EXPECT_TRUE(fenetre_.close());
}

TEST_F(ParamMachine, ItsToolsAreOpenedByName) {
  std::vector<std::string> ouvertes;
  OuvreFenetre = [&](const std::string& nom, QWidget* proprietaire) {
    EXPECT_EQ(proprietaire, &fenetre_);
    ouvertes.push_back(nom);
    return IssueFenetre::Ouverte;
  };
  FenetreExiste = [](const std::string&) { return true; };
  Ouvre();
  Page(5);
  for (const char* bouton : {"Cmd_TestPasPerdus", "Cmd_Test", "Cmd_Carte"}) Clique(Btn(bouton));
  EXPECT_EQ(ouvertes, (std::vector<std::string>{"F_PasPerdus", "F_Test", "F_CarteVirtuelle"}));
}

TEST_F(ParamMachine, TheToolsBesideItReadAndFillItsFields) {
  Ouvre();
  Tape(TB(9), "3");
  EXPECT_EQ(TexteTableOuverte(ChampsMachine::PasPerdusX), "3");
  PoseTableOuverte(ChampsMachine::PasPerdusX, "17");
  EXPECT_EQ(Texte(9), "17");
  fenetre_.close();
  EXPECT_EQ(Cle("Essai", "TB_SAV_9"), "17");
  EXPECT_FALSE(TableOuverte.Lit);
}

}  // namespace
}  // namespace essai
