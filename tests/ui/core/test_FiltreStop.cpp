// The one stop of a run: its button, and Escape in any window, before whatever else sees them.
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <QVBoxLayout>

#include "core/RunCourant.h"
#include "core/ui/FiltreStop.h"
#include "tests/ui/core/BancServices.h"

namespace {

using namespace ovelin;

class Arrets : public essai::BancServices {
 protected:
  Arrets() {
    (new QVBoxLayout(&fenetre_))->addWidget(bouton_ = new BoutonStop);
    filtre_ = std::make_unique<FiltreStop>(*bouton_);
    essai::Montre(fenetre_, 300, 100);
    RunActif = OperationCarte = true;
    ArretRampe = Vrai;
  }
  // The second button, over the first: a window of the modal one, there once the loop of that one runs.
  static BoutonStop* Dessus(QWidget* modale) {
    EXPECT_TRUE(QTest::qWaitFor([modale] { return modale->findChild<BoutonStop*>() != nullptr; }));
    return modale->findChild<BoutonStop*>();
  }

  QWidget fenetre_;
  BoutonStop* bouton_ = nullptr;
  std::unique_ptr<FiltreStop> filtre_;
};

TEST_F(Arrets, APressOnTheButtonStopsAsTheRunWantsIt) {
  QTest::mousePress(bouton_, Qt::LeftButton);
  EXPECT_EQ(StopDemande, Vrai) << "on the press, before it is let go";
  EXPECT_EQ(ArretRampe, Vrai);
  QTest::mouseRelease(bouton_, Qt::LeftButton);
}

TEST_F(Arrets, EscapeInAnyWindowStopsAtOnceAndClosesNone) {
  QDialog autre;
  essai::Montre(autre, 200, 80);
  QTest::keyClick(&autre, Qt::Key_Escape);
  EXPECT_EQ(StopDemande, Vrai);
  EXPECT_EQ(ArretRampe, Faux);
  EXPECT_TRUE(autre.isVisible());
}

TEST_F(Arrets, WithoutARunEscapeClosesAWindowAndStopsNothing) {
  RunActif = OperationCarte = false;
  QDialog autre;
  essai::Montre(autre, 200, 80);
  QTest::keyClick(&autre, Qt::Key_Escape);
  EXPECT_EQ(StopDemande, Faux);
  EXPECT_FALSE(autre.isVisible());
}

TEST_F(Arrets, OtherKeysGoWhereTheyBelong) {
  QLineEdit champ;
  essai::Montre(champ, 200, 30);
  QTest::keyClick(&champ, Qt::Key_A);
  EXPECT_EQ(champ.text(), "a");
  EXPECT_EQ(StopDemande, Faux);
}

TEST_F(Arrets, EscapeInABoxStopsFirstAndClosesTheBox) {
  Drapeau alaFermeture = Faux;
  Quand<QMessageBox>([&](QMessageBox& box) {
    QObject::connect(&box, &QDialog::finished, &box, [&] { alaFermeture = StopDemande; });
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  EXPECT_EQ(Svc.Montre(essai::UneBoite(Boutons::OuiNon)), Reponse::Non);
  EXPECT_EQ(alaFermeture, Vrai) << "the machine comes before the box";
}

TEST_F(Arrets, ABoxDoesNotTakeTheButtonAway) {
  Quand<QMessageBox>([this](QMessageBox& box) {
    BoutonStop* dessus = Dessus(&box);
    if (dessus == nullptr) {
      ADD_FAILURE() << "no button over the box";
    } else {
      EXPECT_TRUE(dessus->isVisible());
      EXPECT_EQ(dessus->geometry(), QRect(bouton_->mapToGlobal(QPoint(0, 0)), bouton_->size()));
      QTest::mousePress(dessus->windowHandle(), Qt::LeftButton, {}, dessus->rect().center());
      EXPECT_EQ(StopDemande, Vrai);
      EXPECT_EQ(ArretRampe, Vrai);
      EXPECT_TRUE(box.isVisible());
    }
    box.close();
  });
  Svc.Montre(essai::UneBoite(Boutons::OuiNon));
}

TEST_F(Arrets, ABoxOutsideARunHasNoButton) {
  bouton_->hide();
  Quand<QMessageBox>([](QMessageBox& box) {
    essai::Evenements();
    EXPECT_EQ(box.findChild<BoutonStop*>(), nullptr);
    box.close();
  });
  Svc.Montre(essai::UneBoite(Boutons::Ok));
}

TEST_F(Arrets, APassThatHoldsInputBackLetsAStopThroughAndNothingElse) {
  QLineEdit champ;
  essai::Montre(champ, 200, 30);
  for (const bool bouton : {false, true}) {
    StopDemande = Faux;
    QTimer::singleShot(0, [&] {
      QTest::keyClick(&champ, Qt::Key_A);
      if (bouton) {
        QTest::mousePress(bouton_, Qt::LeftButton);
      } else {
        QTest::keyClick(&champ, Qt::Key_Escape);
      }
    });
    Svc.LaisseEvenements(Evenements::Affichage);
    EXPECT_EQ(StopDemande, Vrai) << bouton;
    EXPECT_EQ(champ.text(), "");
  }
}

}  // namespace
