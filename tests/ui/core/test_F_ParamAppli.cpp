// The settings window: what is changed holds at once, OK writes, Cancel takes back.
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>

#include "core/Cles.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/F_ParamAppli.h"
#include "core/ui/Fenetres.h"
#include "core/ui/Fleches.h"
#include "core/ui/LanguesPresentes.h"
#include "core/ui/PageChoixCarte.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;
using essai::Clique;
using essai::Controle;
using testing::ElementsAre;
using testing::IsEmpty;

class ParamAppli : public testing::Test {
 protected:
  void SetUp() override { ChoisitCouleur = nullptr; }
  void TearDown() override { ChoisitCouleur = nullptr; }

  // Built on the settings of the moment, at the given tab.
  F_ParamAppli& Ouvre(int onglet = 0) {
    fenetre_ = std::make_unique<F_ParamAppli>();
    Controle<QTabWidget>(*fenetre_, "SSTab1")->setCurrentIndex(onglet);
    essai::Montre(*fenetre_);
    return *fenetre_;
  }
  void Appuie(const char* nom) { Clique(*Controle<QPushButton>(*fenetre_, nom)); }
  void ChoisitLangueParClic(const QString& nom) {
    auto* liste = Controle<QListWidget>(*fenetre_, "LB_Langues");
    const auto lignes = liste->findItems(nom, Qt::MatchExactly);
    ASSERT_EQ(lignes.size(), 1);
    QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, liste->visualItemRect(lignes[0]).center());
    essai::Evenements();
  }
  static QColor Echantillon(F_ParamAppli& f, const char* nom) {
    return Controle<QLabel>(f, nom)->palette().color(QPalette::Window);
  }

  std::unique_ptr<F_ParamAppli> fenetre_;
};

// ---- options

TEST_F(ParamAppli, ShowsTheSettingsInForce) {
  Regl.ConfirmSuppr = false;
  Regl.TimerInterval = 400;
  Regl.gMaxMRU = 7;
  auto& f = Ouvre();
  EXPECT_TRUE(f.isModal());
  EXPECT_FALSE(Controle<QCheckBox>(f, "CB_Confirm_Suppr")->isChecked());
  EXPECT_EQ(Controle<QSlider>(f, "HScroll_TimerInterval")->value(), 400);
  EXPECT_EQ(Controle<QLabel>(f, "LB_TimerInterval")->text(), "400 ms");
  EXPECT_EQ(Controle<ChampNombre>(f, "TB_MRU")->Texte(), "7");
  EXPECT_EQ(Controle<Fleches>(f, "VScroll_MRU")->value(), 7);
}

TEST_F(ParamAppli, ConfirmationOfDeletionsHoldsAtOnce) {
  auto& f = Ouvre();
  auto* coche = Controle<QCheckBox>(f, "CB_Confirm_Suppr");
  QTest::mouseClick(coche, Qt::LeftButton, {}, QPoint(8, coche->height() / 2));
  EXPECT_FALSE(Regl.ConfirmSuppr);
  QTest::mouseClick(coche, Qt::LeftButton, {}, QPoint(8, coche->height() / 2));
  EXPECT_TRUE(Regl.ConfirmSuppr);
}

TEST_F(ParamAppli, RepeatIntervalFollowsTheBarAtOnce) {
  auto& f = Ouvre();
  auto* barre = Controle<QSlider>(f, "HScroll_TimerInterval");
  barre->setFocus();
  QTest::keyClick(barre, Qt::Key_Right);
  EXPECT_EQ(Regl.TimerInterval, 280);
  EXPECT_EQ(Controle<QLabel>(f, "LB_TimerInterval")->text(), "280 ms");
  QTest::keyClick(barre, Qt::Key_End);
  EXPECT_EQ(Regl.TimerInterval, barre->maximum());
}

TEST_F(ParamAppli, AStoredIntervalBelowTheBarsLowerEndBecomesThatEnd) {
  Regl.TimerInterval = 3;
  auto& f = Ouvre();
  auto* barre = Controle<QSlider>(f, "HScroll_TimerInterval");
  EXPECT_EQ(barre->value(), barre->minimum());
  EXPECT_EQ(Regl.TimerInterval, barre->minimum());
}

TEST_F(ParamAppli, AStoredIntervalAboveTheBarsUpperEndIsKept) {
  Regl.TimerInterval = 5000;
  auto& f = Ouvre();
  EXPECT_EQ(Controle<QSlider>(f, "HScroll_TimerInterval")->value(), 5000);
  EXPECT_EQ(Regl.TimerInterval, 5000);
}

TEST_F(ParamAppli, LengthOfTheRecentListTakesDigitsAndMinusAlone) {
  auto& f = Ouvre();
  auto* champ = Controle<ChampNombre>(f, "TB_MRU");
  champ->setFocus();
  champ->selectAll();
  QTest::keyClicks(champ, "-a1.,2");
  EXPECT_EQ(champ->Texte(), "-12");
}

TEST_F(ParamAppli, LengthOfTheRecentListIsAppliedWhenTheFieldIsLeft) {
  auto& f = Ouvre();
  auto* champ = Controle<ChampNombre>(f, "TB_MRU");
  champ->setFocus();
  champ->selectAll();
  QTest::keyClicks(champ, "9");
  EXPECT_EQ(Regl.gMaxMRU, 4);
  QTest::keyClick(champ, Qt::Key_Tab);
  EXPECT_EQ(Regl.gMaxMRU, 9);
  EXPECT_EQ(Controle<Fleches>(f, "VScroll_MRU")->value(), 9);
}

TEST_F(ParamAppli, AnEnterInTheFieldAppliesItAndDoesNotCloseTheWindow) {
  auto& f = Ouvre();
  essai::Tape(*Controle<ChampNombre>(f, "TB_MRU"), "9", essai::Sortie::Entree);
  EXPECT_EQ(Regl.gMaxMRU, 9);
  EXPECT_TRUE(f.isVisible());
}

TEST_F(ParamAppli, ALengthThatIsNoneIsRefusedAtTheField) {
  auto& f = Ouvre();
  auto* champ = Controle<ChampNombre>(f, "TB_MRU");
  for (const char* texte : {"-3", "51", "-", ""}) {
    essai::Tape(*champ, texte);
    EXPECT_TRUE(champ->EstRefuse()) << texte;
    EXPECT_EQ(champ->Texte(), "4") << texte;
    EXPECT_EQ(Regl.gMaxMRU, 4) << texte;
  }
  essai::Tape(*champ, "0");
  EXPECT_FALSE(champ->EstRefuse());
  EXPECT_EQ(Regl.gMaxMRU, 0);
}

TEST_F(ParamAppli, AnEntryRefusedOnTheWayToOkKeepsTheWindowOnce) {
  auto& f = Ouvre();
  auto* champ = Controle<ChampNombre>(f, "TB_MRU");
  champ->setFocus();
  champ->selectAll();
  QTest::keyClicks(champ, "99");
  auto* ok = Controle<QPushButton>(f, "Btn_OK");
  ok->setFocus(Qt::MouseFocusReason);  // what a press does before the click
  Clique(*ok);
  EXPECT_TRUE(f.isVisible());
  EXPECT_TRUE(champ->hasFocus());
  Clique(*ok);
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(Regl.gMaxMRU, 4);
}

TEST_F(ParamAppli, ArrowsStepTheLengthOfTheRecentListWithinItsEnds) {
  auto& f = Ouvre();
  auto* fleches = Controle<Fleches>(f, "VScroll_MRU");
  const QPoint haut(fleches->width() / 2, 3);
  const QPoint bas(fleches->width() / 2, fleches->height() - 3);
  QTest::mouseClick(fleches, Qt::LeftButton, {}, haut);
  EXPECT_EQ(Regl.gMaxMRU, 5);
  EXPECT_EQ(Controle<ChampNombre>(f, "TB_MRU")->Texte(), "5");
  for (int i = 0; i < 7; ++i) QTest::mouseClick(fleches, Qt::LeftButton, {}, bas);
  EXPECT_EQ(Regl.gMaxMRU, 0);
  fleches->setFocus();
  QTest::keyClick(fleches, Qt::Key_Up);
  EXPECT_EQ(Regl.gMaxMRU, 1);
}

// ---- OK and Cancel

TEST_F(ParamAppli, OkWritesTheOptionsAndCloses) {
  auto& f = Ouvre();
  essai::Tape(*Controle<ChampNombre>(f, "TB_MRU"), "9");
  Controle<QCheckBox>(f, "CB_Confirm_Suppr")->setChecked(false);
  Controle<QSlider>(f, "HScroll_TimerInterval")->setValue(500);
  Appuie("Btn_OK");
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(f.result(), QDialog::Accepted);
  OublieCles();
  EXPECT_EQ(LireCle("gMaxMRU", ""), "9");
  EXPECT_EQ(LireCle("ConfirmSuppr", ""), "Faux");
  EXPECT_EQ(LireCle("TimerInterval", ""), "500");
  EXPECT_EQ(LireCle("CouleurNumero", "none"), "none");
}

TEST_F(ParamAppli, OkWritesColoursThatHaveChanged) {
  ChoisitCouleur = [](QWidget*, int) { return 255; };
  Ouvre(1);
  Appuie("Btn_Couleur_2");
  Appuie("Btn_OK");
  OublieCles();
  EXPECT_EQ(LireCle("CouleurInitial", ""), "255");
}

TEST_F(ParamAppli, CancelRevertsToTheValuesHeldAtOpening) {
  ChoisitCouleur = [](QWidget*, int) { return 77; };
  Regl.TimerInterval = 3;
  Regl.Langue = "fr";
  auto& f = Ouvre();
  essai::Tape(*Controle<ChampNombre>(f, "TB_MRU"), "9");
  Controle<QCheckBox>(f, "CB_Confirm_Suppr")->setChecked(false);
  Controle<QTabWidget>(f, "SSTab1")->setCurrentIndex(1);
  for (int i = 0; i < 6; ++i) Appuie(("Btn_Couleur_" + std::to_string(i)).c_str());
  const Reglages neuf;
  EXPECT_EQ(Regl.CouleurEncoche, 77);
  Appuie("Btn_Annuler");
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(f.result(), QDialog::Rejected);
  EXPECT_TRUE(Regl.ConfirmSuppr);
  EXPECT_EQ(Regl.TimerInterval, 3);
  EXPECT_EQ(Regl.gMaxMRU, 4);
  EXPECT_EQ(Regl.CouleurNumero, neuf.CouleurNumero);
  EXPECT_EQ(Regl.CouleurSequence, neuf.CouleurSequence);
  EXPECT_EQ(Regl.CouleurInitial, neuf.CouleurInitial);
  EXPECT_EQ(Regl.Couleurselectionne, neuf.Couleurselectionne);
  EXPECT_EQ(Regl.CouleurDecalage, neuf.CouleurDecalage);
  EXPECT_EQ(Regl.CouleurEncoche, neuf.CouleurEncoche);
  EXPECT_FALSE(FichierExiste(CheminIni()));
}

TEST_F(ParamAppli, EscapeAndTheCrossCancel) {
  auto& f = Ouvre();
  Controle<QCheckBox>(f, "CB_Confirm_Suppr")->setChecked(false);
  QTest::keyClick(&f, Qt::Key_Escape);
  EXPECT_FALSE(f.isVisible());
  EXPECT_TRUE(Regl.ConfirmSuppr);
  auto& encore = Ouvre();
  Controle<QCheckBox>(encore, "CB_Confirm_Suppr")->setChecked(false);
  encore.close();
  EXPECT_TRUE(Regl.ConfirmSuppr);
}

// ---- colours

TEST_F(ParamAppli, EachButtonSetsItsColourAtOnceAndItsSampleTakesIt) {
  int demandee = -2;
  int reponse = 0;
  ChoisitCouleur = [&](QWidget*, int couleur) {
    demandee = couleur;
    return reponse;
  };
  Regl.CouleurNumero = 1;
  Regl.CouleurSequence = 2;
  Regl.CouleurInitial = 3;
  Regl.Couleurselectionne = 4;
  Regl.CouleurDecalage = 5;
  Regl.CouleurEncoche = 6;
  auto& f = Ouvre(1);
  const std::int32_t* valeurs[] = {&Regl.CouleurNumero,      &Regl.CouleurSequence, &Regl.CouleurInitial,
                                   &Regl.Couleurselectionne, &Regl.CouleurDecalage, &Regl.CouleurEncoche};
  for (int i = 0; i < 6; ++i) {
    reponse = Couleur(10 * i, 20, 200);
    Appuie(("Btn_Couleur_" + std::to_string(i)).c_str());
    EXPECT_EQ(demandee, i + 1);
    EXPECT_EQ(*valeurs[i], reponse);
    EXPECT_EQ(Echantillon(f, ("LB_Couleur_" + std::to_string(i)).c_str()), QColor(10 * i, 20, 200));
  }
}

TEST_F(ParamAppli, AColourThatIsNotChosenStays) {
  ChoisitCouleur = [](QWidget*, int) { return -1; };
  int dit = 0;
  Svc.Rafraichit = [&] { ++dit; };
  Ouvre(1);
  Appuie("Btn_Couleur_1");
  EXPECT_EQ(Regl.CouleurSequence, Couleur(0, 0, 255));
  EXPECT_EQ(dit, 0);
}

TEST_F(ParamAppli, ThePictureFollowsEveryColour) {
  ChoisitCouleur = [](QWidget*, int) { return 9; };
  std::vector<std::int32_t> vues;
  Svc.Rafraichit = [&] { vues.push_back(Regl.CouleurDecalage); };
  Ouvre(1);
  Appuie("Btn_Couleur_4");
  Appuie("Btn_Valeurs_Defaut");
  Appuie("Btn_Annuler");
  EXPECT_THAT(vues, ElementsAre(9, Couleur(0, 255, 0), Couleur(255, 0, 0)));
}

TEST_F(ParamAppli, TheOtherWindowsKeepTheirLanguageUntilThisOneCloses) {
  ChoisitCouleur = [](QWidget*, int) { return 9; };
  Regl.Langue = "fr";
  std::string langue;
  Svc.Rafraichit = [&] { langue = Regl.Langue; };
  Ouvre(2);
  ChoisitLangueParClic("Deutsch");
  ASSERT_EQ(Regl.Langue, "de");
  Controle<QTabWidget>(*fenetre_, "SSTab1")->setCurrentIndex(1);
  essai::Evenements();
  Appuie("Btn_Couleur_4");
  EXPECT_EQ(langue, "fr");
  EXPECT_EQ(Regl.Langue, "de");
}

TEST_F(ParamAppli, DefaultColoursGoThroughTheKeyStoreUnderTheirOwnKeys) {
  Regl.CouleurNumero = 5;
  Regl.CouleurInitial = 6;
  EcritCouleurs();
  auto& f = Ouvre(1);
  Appuie("Btn_Valeurs_Defaut");
  EXPECT_EQ(Regl.CouleurNumero, 0);
  EXPECT_EQ(Regl.CouleurSequence, Couleur(0, 0, 255));
  EXPECT_EQ(Regl.CouleurInitial, 6) << "not among those that are restored";
  EXPECT_EQ(Regl.Couleurselectionne, Couleur(255, 0, 0));
  EXPECT_EQ(Regl.CouleurDecalage, Couleur(0, 255, 0));
  EXPECT_EQ(Regl.CouleurEncoche, Couleur(100, 0, 100));
  EXPECT_EQ(Echantillon(f, "LB_Couleur_4"), QColor(0, 255, 0));
  OublieCles();
  EXPECT_EQ(LireCle("CouleurDeselectionne", ""), "100");
}

TEST_F(ParamAppli, CancelTakesTheDefaultColoursBackOutOfTheFile) {
  Regl.CouleurDecalage = 4321;
  EcritCouleurs();
  Ouvre(1);
  Appuie("Btn_Valeurs_Defaut");
  Appuie("Btn_Annuler");
  EXPECT_EQ(Regl.CouleurDecalage, 4321);
  OublieCles();
  LitCouleurs();
  EXPECT_EQ(Regl.CouleurDecalage, 4321);
  EXPECT_EQ(Regl.Couleurselectionne, Couleur(100, 0, 0));
}

TEST_F(ParamAppli, LabelsStandAsTheyAreCalledWithoutATranslation) {
  DossiersProduit.clear();
  auto& f = Ouvre(1);
  EXPECT_EQ(Controle<QLabel>(f, "Label_Couleur_0")->text(), "N° des points");
  EXPECT_EQ(Controle<QLabel>(f, "Label_Couleur_2")->text(), "Tracé initial");
  EXPECT_EQ(Controle<QLabel>(f, "Label_Couleur_4")->text(), "Trajet de l'outil");
  EXPECT_EQ(Controle<QLabel>(f, "Label_Couleur_5")->text(), "Point d'attache");
  EXPECT_EQ(f.windowTitle(), "Paramètres de l'application");
}

// ---- languages

TEST_F(ParamAppli, ListsEachLanguageThatHasAFileByItsName) {
  const std::string produit = essai::Dossier() + "/produit";
  ASSERT_TRUE(QDir().mkpath(QString::fromStdString(produit)));
  DossiersProduit = {produit};
  essai::EcritFichierEssai("OVELINpt.trad", "[F_ParamAppli]\n");
  essai::EcritFichierEssai("OVELINzz.trad", "[F_ParamAppli]\n");
  essai::EcritFichierEssai("OVELIN12.trad", "[F_ParamAppli]\n");
  essai::EcritFichierEssai("OVELINdeu.trad", "[F_ParamAppli]\n");
  essai::EcritFichierEssai("OVELINes.trad.bak", "[F_ParamAppli]\n");
  essai::EcritFichierEssai("produit/OVELINfr.trad", "[F_ParamAppli]\n");
  essai::EcritFichierEssai("produit/OVELINpt.trad", "[F_ParamAppli]\n");
  Regl.Langue = "pt";
  auto& f = Ouvre(2);
  auto* liste = Controle<QListWidget>(f, "LB_Langues");
  std::vector<std::string> noms;
  for (int i = 0; i < liste->count(); ++i) noms.push_back(liste->item(i)->text().toStdString());
  EXPECT_THAT(noms, ElementsAre("Français", "Portugues", "zz"));
  EXPECT_EQ(liste->currentRow(), 1);
}

TEST_F(ParamAppli, AClickOnALanguageStoresWritesAndTranslatesThisWindowAtOnce) {
  DossiersProduit.clear();
  essai::EcritFichierEssai("OVELINfr.trad", "[x]\na=b\n");
  essai::EcritFichierEssai("OVELINde.trad",
                           "[F_ParamAppli]\n0=Einstellungen\nBtn_Annuler=Abbrechen\nSSTab1_2=Sprache\n"
                           "Btn_OKtt=Speichert\nLabel_Couleur_0=Punktnummern\n");
  Regl.Langue = "fr";
  auto& f = Ouvre(2);
  ChoisitLangueParClic("Deutsch");
  EXPECT_EQ(Regl.Langue, "de");
  OublieCles();
  EXPECT_EQ(LireCle("Language", ""), "de");
  EXPECT_EQ(f.windowTitle(), "Einstellungen");
  EXPECT_EQ(Controle<QPushButton>(f, "Btn_Annuler")->text(), "Abbrechen");
  EXPECT_EQ(Controle<QTabWidget>(f, "SSTab1")->tabText(2), "Sprache");
  EXPECT_EQ(Controle<QPushButton>(f, "Btn_OK")->toolTip(), "Speichert");
  EXPECT_EQ(Controle<QPushButton>(f, "Btn_Couleur_0")->accessibleName(), "Punktnummern : Choisir...");
  ChoisitLangueParClic("Français");
  EXPECT_EQ(Controle<QPushButton>(f, "Btn_Annuler")->text(), "Annuler");
  EXPECT_EQ(f.windowTitle(), "Paramètres de l'application");
}

TEST_F(ParamAppli, CancelBringsTheLanguageBack) {
  Regl.Langue = "fr";
  Ouvre(2);
  ChoisitLangueParClic("English");
  EXPECT_EQ(LireCle("Language", ""), "en");
  Appuie("Btn_Annuler");
  EXPECT_EQ(Regl.Langue, "fr");
  EXPECT_EQ(LireCle("Language", ""), "fr");
}

TEST_F(ParamAppli, OkKeepsTheLanguage) {
  Regl.Langue = "fr";
  Ouvre(2);
  ChoisitLangueParClic("English");
  Appuie("Btn_OK");
  EXPECT_EQ(Regl.Langue, "en");
  EXPECT_EQ(LireCle("Language", ""), "en");
}

// ---- the look

TEST_F(ParamAppli, EveryTextFindsItsRoomInEveryLanguage) {
  for (const std::string& langue : essai::LanguesDuProduit()) {
    for (const bool sombre : {false, true}) {
      essai::ChoisitLangue(langue);
      essai::ThemeSombreEssai(sombre);
      auto& f = Ouvre();
      EXPECT_THAT(essai::TextesCoupes(f), IsEmpty()) << langue;
      for (int i = 0; i < 3; ++i) {
        Controle<QTabWidget>(f, "SSTab1")->setCurrentIndex(i);
        essai::Evenements();
        essai::Capture(f, "F_ParamAppli_" + langue + (sombre ? "_sombre_" : "_clair_") + std::to_string(i));
      }
      f.hide();
    }
  }
}

TEST_F(ParamAppli, EveryTextIsThereInEveryLanguage) {
  for (const std::string& langue : essai::LanguesDuProduit()) {
    essai::ChoisitLangue(langue);
    EXPECT_THAT(essai::SansTraduction(Ouvre()), IsEmpty()) << langue;
    fenetre_->hide();
  }
}

TEST_F(ParamAppli, EveryControlHasANameForThoseWhoHearItAndATip) {
  EXPECT_THAT(essai::SansNom(Ouvre()), IsEmpty());
}

TEST_F(ParamAppli, TheTabKeyFollowsTheEye) {
  auto& f = Ouvre();
  Controle<QCheckBox>(f, "CB_Confirm_Suppr")->setFocus();
  std::vector<std::string> noms;
  for (int i = 0; i < 5; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    noms.push_back(QApplication::focusWidget()->objectName().toStdString());
  }
  EXPECT_THAT(noms, ElementsAre("HScroll_TimerInterval", "TB_MRU", "VScroll_MRU", "Btn_OK", "Btn_Annuler"));
}

// ---- the board

class ChoixCarte : public ParamAppli {
 protected:
  void SetUp() override {
    ParamAppli::SetUp();
    AppareilsPresents = [] {
      return std::vector<AppareilPresent>{{"1A2B:3C4D", "Kolvane ZENIK"}, {"0001:0002", "souris"}};
    };
    CarteReglee = [this] { ++changee_; };
  }
  void TearDown() override {
    AppareilsPresents = nullptr;
    CarteReglee = nullptr;
    ParamAppli::TearDown();
  }
  int changee_ = 0;
};

TEST_F(ChoixCarte, ShowsTheChoiceOfTheSettings) {
  EcrireCle("CarteZENIK", "Virtuelle");
  EXPECT_EQ(Controle<QComboBox>(Ouvre(3), "Combo_Carte")->currentIndex(), 2) << "in any letter case";
  EcrireCle("CarteZENIK", "/opt/zenik.so");
  auto& f = Ouvre(3);
  EXPECT_EQ(Controle<QComboBox>(f, "Combo_Carte")->currentIndex(), 4);
  EXPECT_EQ(Controle<QLineEdit>(f, "TB_Bibliotheque")->text(), "/opt/zenik.so");
}

TEST_F(ChoixCarte, AsDeliveredIsAutomatic) {
  EXPECT_EQ(Controle<QComboBox>(Ouvre(3), "Combo_Carte")->currentIndex(), 0);
}

TEST_F(ChoixCarte, ADeviceThatWasFoundIsTakenByAClick) {
  auto& f = Ouvre(3);
  auto* liste = Controle<QListWidget>(f, "LB_Appareils");
  ASSERT_EQ(liste->count(), 2);
  EXPECT_EQ(liste->item(0)->text(), "1A2B:3C4D Kolvane ZENIK");
  QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, liste->visualItemRect(liste->item(0)).center());
  EXPECT_EQ(Controle<QLineEdit>(f, "TB_Usb")->text(), "1A2B:3C4D");
  Appuie("Btn_OK");
  EXPECT_EQ(LireCleIni("CarteZENIK_USB", ""), "1A2B:3C4D");
  EXPECT_EQ(changee_, 1);
}

TEST_F(ChoixCarte, OkWritesTheSettingsAloneAndSaysItOnce) {
  Controle<QComboBox>(Ouvre(3), "Combo_Carte")->setCurrentIndex(3);
  EXPECT_EQ(LireCleIni("CarteZENIK", "auto"), "auto") << "not before";
  Appuie("Btn_OK");
  EXPECT_EQ(LireCleIni("CarteZENIK", ""), "aucune");
  EXPECT_EQ(changee_, 1);
  Ouvre(3);
  Appuie("Btn_OK");
  EXPECT_EQ(changee_, 1) << "nothing has changed";
}

TEST_F(ChoixCarte, CancelLeavesTheBoard) {
  Controle<QComboBox>(Ouvre(3), "Combo_Carte")->setCurrentIndex(2);
  Appuie("Btn_Annuler");
  EXPECT_EQ(LireCleIni("CarteZENIK", "auto"), "auto");
  EXPECT_EQ(changee_, 0);
}

TEST_F(ChoixCarte, ALibraryNeedsItsFullPathAndABoardItsIdentity) {
  auto& f = Ouvre(3);
  auto* choix = Controle<QComboBox>(f, "Combo_Carte");
  choix->setCurrentIndex(4);
  Controle<QLineEdit>(f, "TB_Bibliotheque")->setText("zenik.so");
  Appuie("Btn_OK");
  EXPECT_TRUE(f.isVisible());
  choix->setCurrentIndex(1);
  Appuie("Btn_OK");
  EXPECT_TRUE(f.isVisible()) << "no identity";
  Controle<QLineEdit>(f, "TB_Usb")->setText("12:34");
  Appuie("Btn_OK");
  EXPECT_TRUE(f.isVisible());
  EXPECT_EQ(essai::Bips(), 3);
  choix->setCurrentIndex(4);
  essai::AttendFichier("Btn_Parcourir", "/opt/zenik.so");
  Appuie("Btn_Parcourir");
  Appuie("Btn_OK");
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(LireCleIni("CarteZENIK", ""), "/opt/zenik.so");
}

TEST_F(ChoixCarte, WhatTheChoiceDoesNotLookAtCantBeEntered) {
  auto& f = Ouvre(3);
  auto* choix = Controle<QComboBox>(f, "Combo_Carte");
  const auto libres = [&] {
    return std::pair(Controle<QLineEdit>(f, "TB_Usb")->isEnabled(),
                     Controle<QLineEdit>(f, "TB_Bibliotheque")->isEnabled());
  };
  EXPECT_EQ(libres(), std::pair(true, false));
  choix->setCurrentIndex(2);
  EXPECT_EQ(libres(), std::pair(false, false));
  choix->setCurrentIndex(4);
  EXPECT_EQ(libres(), std::pair(false, true));
}

}  // namespace
