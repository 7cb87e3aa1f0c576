// The services of the core as the windows fill them: boxes, dialogs, prompts, clock.
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include "core/Fichiers.h"
#include "core/Reglages.h"
#include "core/Textes.h"
#include "core/ui/TraduitFenetre.h"
#include "tests/ui/core/BancServices.h"

namespace {

using namespace ovelin;
using essai::UneBoite;

class ServicesQt : public essai::BancServices {};

// ---- boxes

TEST_F(ServicesQt, ABoxShowsTextTitleAndIconAsTheyAre) {
  const std::pair<Icone, QMessageBox::Icon> icones[] = {{Icone::Aucune, QMessageBox::NoIcon},
                                                        {Icone::Information, QMessageBox::Information},
                                                        {Icone::Question, QMessageBox::Question},
                                                        {Icone::Exclamation, QMessageBox::Warning},
                                                        {Icone::Critique, QMessageBox::Critical}};
  for (const auto& [icone, attendue] : icones) {
    Quand<QMessageBox>([attendue = attendue](QMessageBox& box) {
      EXPECT_EQ(box.text(), "Save <b>it</b>?");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle(), "Title");
      EXPECT_EQ(box.icon(), attendue);
      box.button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(Svc.Montre(UneBoite(Boutons::Ok, icone)), Reponse::Ok);
  }
}

TEST_F(ServicesQt, TheBeatOfARunGoesOnUnderABox) {
  const auto battent = [] {
    int n = 0;
    for (const QTimer* t : qApp->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly)) {
      n += t->isActive() && t->interval() == 5 && t->timerType() == Qt::PreciseTimer ? 1 : 0;
    }
    return n;
  };
  int pas = 0;
  Svc.Battement([&pas] { ++pas; });
  EXPECT_EQ(battent(), 1) << "every 5 ms";
  Quand<QMessageBox>([&](QMessageBox& box) {
    EXPECT_TRUE(QTest::qWaitFor([&pas] { return pas > 3; }));
    box.close();
  });
  Svc.Montre(UneBoite(Boutons::Ok));
  Svc.Battement({});
  EXPECT_EQ(battent(), 0);
}

TEST_F(ServicesQt, EachButtonGivesItsAnswer) {
  const std::tuple<Boutons, QMessageBox::StandardButton, Reponse> cas[] = {
      {Boutons::Ok, QMessageBox::Ok, Reponse::Ok},
      {Boutons::OkAnnuler, QMessageBox::Ok, Reponse::Ok},
      {Boutons::OkAnnuler, QMessageBox::Cancel, Reponse::Annuler},
      {Boutons::OuiNon, QMessageBox::Yes, Reponse::Oui},
      {Boutons::OuiNon, QMessageBox::No, Reponse::Non},
      {Boutons::OuiNonAnnuler, QMessageBox::Yes, Reponse::Oui},
      {Boutons::OuiNonAnnuler, QMessageBox::No, Reponse::Non},
      {Boutons::OuiNonAnnuler, QMessageBox::Cancel, Reponse::Annuler}};
  for (const auto& [boutons, bouton, reponse] : cas) {
    Quand<QMessageBox>([bouton = bouton](QMessageBox& box) { essai::Clique(*box.button(bouton)); });
    EXPECT_EQ(Svc.Montre(UneBoite(boutons)), reponse);
  }
}

TEST_F(ServicesQt, EnterTakesTheFirstButtonAndEscapeTheMostCareful) {
  const std::tuple<Boutons, Qt::Key, Reponse> cas[] = {{Boutons::Ok, Qt::Key_Return, Reponse::Ok},
                                                       {Boutons::Ok, Qt::Key_Escape, Reponse::Ok},
                                                       {Boutons::OkAnnuler, Qt::Key_Return, Reponse::Ok},
                                                       {Boutons::OkAnnuler, Qt::Key_Escape, Reponse::Annuler},
                                                       {Boutons::OuiNon, Qt::Key_Return, Reponse::Oui},
                                                       {Boutons::OuiNon, Qt::Key_Escape, Reponse::Non},
                                                       {Boutons::OuiNonAnnuler, Qt::Key_Return, Reponse::Oui},
                                                       {Boutons::OuiNonAnnuler, Qt::Key_Escape, Reponse::Annuler}};
  for (const auto& [boutons, touche, reponse] : cas) {
    Quand<QMessageBox>([touche = touche](QMessageBox& box) {
      QWidget* cible = box.focusWidget() != nullptr ? box.focusWidget() : &box;
      QTest::keyClick(cible, touche);
    });
    EXPECT_EQ(Svc.Montre(UneBoite(boutons)), reponse);
  }
}

TEST_F(ServicesQt, ButtonsAreTranslated) {
  essai::EcritFichierEssai("OVELINde.trad", "[Boites]\nBtn_Oui=Ja\nBtn_Non=Nein\nBtn_Annuler=Abbrechen\n");
  essai::ChoisitLangue("de");
  Quand<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Ja");
    EXPECT_EQ(box.button(QMessageBox::No)->text(), "Nein");
    EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), "Abbrechen");
    box.reject();
  });
  EXPECT_EQ(Svc.Montre(UneBoite(Boutons::OuiNonAnnuler)), Reponse::Annuler);
}

// A question that changes or loses something says on its buttons what each does.
TEST_F(ServicesQt, QuestionsHaveVerbsOnTheirButtons) {
  for (const std::string& langue : essai::LanguesDuProduit()) {
    essai::ChoisitLangue(langue);
    const QString oui = TexteQt(Textes::BoutonOui);
    const QString non = TexteQt(Textes::BoutonNon);
    for (const CleTexte texte :
         {Textes::EnregistreVide, Textes::DefautPuisFin, Textes::RemetDefauts, Textes::ProfondeursInegales,
          Textes::SupprimerTout, Textes::SupprimePoints, Textes::EnregistreModifie, Textes::TravailNonEnregistre,
          Textes::RemplaceFichier, Textes::ClavierTenu, Textes::NouvelleVersion, Textes::TableDifferente}) {
      const auto box = FaitBoite(BoiteDe(texte, Icone::Question, Boutons::OuiNon), nullptr);
      EXPECT_NE(box->button(QMessageBox::Yes)->text(), oui) << langue << " " << texte.Cle();
      EXPECT_NE(box->button(QMessageBox::No)->text(), non) << langue << " " << texte.Cle();
    }
  }
}

TEST_F(ServicesQt, ABoxBelongsToTheWindowInFront) {
  QWidget derriere;
  QWidget devant;
  essai::Montre(derriere);
  ChoisitProprietaire(&derriere);
  essai::Montre(devant);
  EXPECT_EQ(Proprietaire(), &devant);
  Quand<QMessageBox>([&](QMessageBox& box) {
    EXPECT_EQ(box.parentWidget(), &devant);
    EXPECT_EQ(Proprietaire(), &box);
    box.accept();
  });
  Svc.Montre(UneBoite(Boutons::Ok));
  devant.hide();
  QApplication::setActiveWindow(nullptr);
  EXPECT_EQ(Proprietaire(), &derriere);
}

TEST_F(ServicesQt, AnOwnerThatIsGoneIsNobody) {
  {
    QWidget fenetre;
    ChoisitProprietaire(&fenetre);
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(Proprietaire(), &fenetre);
  }
  EXPECT_EQ(Proprietaire(), nullptr);
}

// ---- files and texts

DialogueFichier Enregistre(const std::string& propose) {
  DialogueFichier d;
  d.enregistrer = true;
  d.cle = "Btn_Gener_GCODE";
  d.titre = "Write";
  d.filtre = "G-code";
  d.motif = "*.nc";
  d.propose = propose;
  return d;
}

TEST_F(ServicesQt, AFileToWriteGetsTheExtensionOfItsFilter) {
  Quand<QFileDialog>([](QFileDialog& d) {
    EXPECT_EQ(d.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(d.windowTitle(), "Write");
    EXPECT_TRUE(d.nameFilters().constFirst().startsWith("G-code (*.nc"));
    EXPECT_EQ(d.directory().absolutePath().toStdString(), essai::Dossier());
    d.findChild<QLineEdit*>("fileNameEdit")->setText("part");
    QTest::keyClick(d.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  });
  EXPECT_EQ(Svc.ChoisitFichier(Enregistre(essai::Dossier() + "/a.nc")), essai::Dossier() + "/part.nc");
}

TEST_F(ServicesQt, AFileThatIsThereIsReplacedOnlyAfterAYes) {
  essai::EcritFichierEssai("a.nc", "G0\n");
  int boites = 0;
  const std::function<void()> valide = [&] {
    auto* d = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(d, nullptr);
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_TRUE(box->text().contains("a.nc"));
      ++boites;
      if (boites == 1) QTimer::singleShot(0, valide);
      box->button(boites == 1 ? QMessageBox::No : QMessageBox::Yes)->click();
    });
    QTest::keyClick(d->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  };
  QTimer::singleShot(0, valide);
  EXPECT_EQ(Svc.ChoisitFichier(Enregistre(essai::Dossier() + "/a.nc")), essai::Dossier() + "/a.nc");
  EXPECT_EQ(boites, 2);
}

TEST_F(ServicesQt, AFileToOpenIsOneThatIsThereInEitherLetterCase) {
  const std::string chemin = essai::EcritFichierEssai("part.dxf", "0\nEOF\n");
  DialogueFichier d;
  d.cle = "mnu_Ouvrir";
  d.titre = "Open";
  d.filtre = "Drawings";
  d.motif = "*.DXF; *.DAT";
  d.propose = essai::Dossier() + "/";
  Quand<QFileDialog>([](QFileDialog& dialogue) {
    EXPECT_EQ(dialogue.acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialogue.nameFilters().constFirst(), "Drawings (*.DXF *.dxf *.DAT *.dat)");
    dialogue.findChild<QLineEdit*>("fileNameEdit")->setText("part.dxf");
    QTest::keyClick(dialogue.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  });
  EXPECT_EQ(Svc.ChoisitFichier(d), chemin);
}

TEST_F(ServicesQt, ACancelledDialogGivesNothing) {
  Quand<QFileDialog>([](QFileDialog& d) { d.reject(); });
  EXPECT_EQ(Svc.ChoisitFichier(Enregistre("a.nc")), "");
  Quand<QInputDialog>([](QInputDialog& d) { d.reject(); });
  EXPECT_EQ(Svc.Saisit(Textes::NomNouvelleTable, "Name", "old"), "");
}

TEST_F(ServicesQt, APromptOffersATextAndGivesWhatIsTyped) {
  Quand<QInputDialog>([](QInputDialog& d) {
    EXPECT_EQ(d.labelText(), "Name");
    EXPECT_EQ(d.textValue(), "old");
    auto* champ = d.findChild<QLineEdit*>();
    champ->selectAll();
    QTest::keyClicks(champ, "new");
    QTest::keyClick(champ, Qt::Key_Return);
  });
  EXPECT_EQ(Svc.Saisit(Textes::NomNouvelleTable, "Name", "old"), "new");
}

// ---- the rest

TEST_F(ServicesQt, TheClockGoesForwardAndNothingIsWaitedForNoTime) {
  const double avant = Svc.Horloge();
  Svc.Attend(0);
  Svc.Attend(-5);
  Svc.Attend(std::numeric_limits<double>::quiet_NaN());
  Svc.Attend(0.001);
  EXPECT_GT(Svc.Horloge(), avant);
  Svc.Bip();
  EXPECT_TRUE(Svc.MarqueDecimale == '.' || Svc.MarqueDecimale == ',');
}

TEST_F(ServicesQt, AColourIsChosenOrNot) {
  ASSERT_TRUE(ChoisitCouleur);
  QTimer::singleShot(0, [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept(); });
  EXPECT_EQ(ChoisitCouleur(nullptr, Couleur(10, 20, 30)), Couleur(10, 20, 30));
  QTimer::singleShot(0, [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject(); });
  EXPECT_EQ(ChoisitCouleur(nullptr, Couleur(10, 20, 30)), -1);
}

TEST_F(ServicesQt, WithoutAnEarlierFileTheOpenDialogStartsOnTheDesktop) {
  const QString bureau = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
  QDir().mkpath(bureau);
  DialogueFichier d;
  d.cle = "mnu_Ouvrir";
  d.motif = "*.DXF";
  Quand<QFileDialog>([&](QFileDialog& dialogue) {
    EXPECT_EQ(dialogue.directory().absolutePath(), QDir(bureau).absolutePath());
    dialogue.reject();
  });
  Svc.ChoisitFichier(d);
}

TEST_F(ServicesQt, WithoutADesktopTheOpenDialogStartsInTheHomeFolder) {
  const QByteArray avant = qgetenv("HOME");
  qputenv("HOME", QByteArray::fromStdString(essai::Dossier()));
  const QString bureau = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
  DialogueFichier d;
  d.cle = "mnu_Ouvrir";
  d.motif = "*.DXF";
  Quand<QFileDialog>([&](QFileDialog& dialogue) {
    EXPECT_EQ(dialogue.directory().absolutePath().toStdString(), essai::Dossier());
    dialogue.reject();
  });
  Svc.ChoisitFichier(d);
  qputenv("HOME", avant);
  EXPECT_FALSE(QFileInfo::exists(bureau)) << "the folder of a test has none";
}

TEST_F(ServicesQt, TheDesktopIsNotAskedForAFileThatIsNotThere) {
  EXPECT_EQ(Svc.OuvreParBureau(essai::Dossier() + "/absent.pdf"), IssueBureau::FichierAbsent);
  EXPECT_EQ(Svc.OuvreParBureau(essai::Dossier() + "/rien/absent.pdf"), IssueBureau::CheminAbsent);
}

// What the desktop has been asked for, and nothing opened.
class BureauEssai : public QObject {
  Q_OBJECT
 public:
  QList<QUrl> demandes;
 public Q_SLOTS:
  void Ouvre(const QUrl& url) { demandes << url; }
};

TEST_F(ServicesQt, FilesAndAddressesGoToTheDesktopAsWhatTheyAre) {
  BureauEssai bureau;
  QDesktopServices::setUrlHandler("file", &bureau, "Ouvre");
  QDesktopServices::setUrlHandler("https", &bureau, "Ouvre");
  const std::string aide = essai::EcritFichierEssai("l'aide 1.pdf", "x");
  EXPECT_EQ(Svc.OuvreParBureau(aide), IssueBureau::Ouvert);
  EXPECT_EQ(Svc.OuvreParBureau("https://example.org/aide"), IssueBureau::Ouvert);
  QDesktopServices::unsetUrlHandler("file");
  QDesktopServices::unsetUrlHandler("https");
  EXPECT_EQ(bureau.demandes,
            (QList<QUrl>{QUrl::fromLocalFile(QString::fromStdString(aide)), QUrl("https://example.org/aide")}));
}

}  // namespace

#include "test_ServicesQt.moc"

BoiteMessage LongueBoite() {
  BoiteMessage boite = UneBoite(Boutons::OuiNonAnnuler, Icone::Question);
  boite.texte = "Can't be read:\n/home/someone";
  for (int i = 0; i < 30; ++i) boite.texte += "/a-folder-of-drawings";
  boite.texte += "/drawing.dxf: 12";
  return boite;
}

TEST_F(ServicesQt, APathOfAnyLengthFindsItsRoomInABox) {
  const auto box = FaitBoite(LongueBoite(), nullptr);
  essai::Montre(*box);
  EXPECT_LT(box->width(), 800);
  EXPECT_EQ(essai::TextesCoupesEnTexte(*box), "");
  QString texte = box->text();
  EXPECT_EQ(texte.remove(QChar(0x200B)).toStdString(), LongueBoite().texte);
}

TEST_F(ServicesQt, ATextOfShortWordsIsShownAsItIs) {
  BoiteMessage boite = UneBoite(Boutons::Ok);
  boite.texte = "/tmp/a.dxf can't be read.\n\n/tmp/b.dxf neither\n";
  EXPECT_EQ(FaitBoite(boite, nullptr)->text().toStdString(), boite.texte);
}
