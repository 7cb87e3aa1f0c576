// Windows by name, out of a table: one or several of them, holding their owner back or beside it.
#include <QLabel>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>
#include <array>

#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;

// A window that tells what happens to it.
class F_Sonde : public QDialog {
 public:
  explicit F_Sonde(QWidget* proprietaire) : QDialog(proprietaire) {
    auto* titre = new QLabel("Titre");
    titre->setObjectName("Label1");
    (new QVBoxLayout(this))->addWidget(titre);
    PrepareFenetre(*this, "F_Sonde");
    ++Construites;
    Derniere = this;
  }
  ~F_Sonde() override { ++Detruites; }

  static inline int Construites = 0, Detruites = 0;
  static inline QPointer<QDialog> Derniere;
};

class F_Chargee : public F_Sonde {
 public:
  using F_Sonde::F_Sonde;
  void Form_Load() {
    ++Chargements;
    VisibleAuChargement = isVisible();
  }
  static inline int Chargements = 0;
  static inline bool VisibleAuChargement = false;
};

// A window in which one of several things is chosen.
class F_Choisie : public F_Sonde {
 public:
  using F_Sonde::F_Sonde;
  [[nodiscard]] int Choix() const { return 2; }
};

constexpr std::array Table{
    LigneDe<F_Choisie>("F_Choisie", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Sonde>("F_Modale", Exemplaires::Plusieurs, Tenue::Modale),
    LigneDe<F_Chargee>("F_Chargee", Exemplaires::Un, Tenue::Modale),
    LigneDe<F_Chargee>("F_Libre", Exemplaires::Un, Tenue::Libre),
    LigneDe<F_Sonde>("F_Feuille", Exemplaires::Plusieurs, Tenue::Libre),
};

class FenetresEssai : public testing::Test {
 protected:
  FenetresEssai() {
    F_Sonde::Construites = F_Sonde::Detruites = F_Chargee::Chargements = 0;
    F_Chargee::VisibleAuChargement = false;
    InstalleTable(Table);
    essai::Montre(principale_);
  }
  ~FenetresEssai() override {
    OuvreFenetre = nullptr;
    FenetreExiste = nullptr;
  }
  // Does that inside the next modal window.
  template <class Fait>
  static void Dedans(Fait fait) {
    QTimer::singleShot(0, qApp, [fait] { fait(qobject_cast<QDialog*>(QApplication::activeModalWidget())); });
  }
  QWidget principale_;
};

TEST_F(FenetresEssai, AProcedureGetsWhatTheUserHasChosenInAWindow) {
  Dedans([](QDialog* f) { f->accept(); });
  EXPECT_EQ(Svc.OuvreFenetre("F_Choisie"), 2);
  Dedans([](QDialog* f) { f->accept(); });
  EXPECT_EQ(Svc.OuvreFenetre("F_Modale"), 0) << "a window without a choice";
}

TEST_F(FenetresEssai, AProcedureGetsNothingFromAWindowLeftWithoutOkOrThatStaysOrThatThereIsNot) {
  Dedans([](QDialog* f) { f->reject(); });
  EXPECT_EQ(Svc.OuvreFenetre("F_Choisie"), std::nullopt);
  EXPECT_EQ(Svc.OuvreFenetre("F_Libre"), std::nullopt);
  EXPECT_EQ(Svc.OuvreFenetre("F_Martienne"), std::nullopt);
  F_Sonde::Derniere->close();
}

TEST_F(FenetresEssai, AWindowOpenedByAProcedureIsTheOneThatACommandOpens) {
  EXPECT_EQ(Svc.OuvreFenetre("F_Libre"), std::nullopt);
  EXPECT_EQ(OuvreFenetre("F_Libre", &principale_), IssueFenetre::Ouverte);
  EXPECT_EQ(F_Sonde::Construites, 1);
}

TEST_F(FenetresEssai, AnUnknownNameOpensNothing) {
  EXPECT_FALSE(FenetreExiste("F_Martienne"));
  EXPECT_EQ(OuvreFenetre("F_Martienne", &principale_), IssueFenetre::Absente);
  EXPECT_EQ(F_Sonde::Construites, 0);
}

TEST_F(FenetresEssai, AModalWindowSaysHowItWasClosedAndIsGone) {
  Dedans([](QDialog* f) { f->accept(); });
  EXPECT_EQ(OuvreFenetre("F_Modale", &principale_), IssueFenetre::Acceptee);
  Dedans([](QDialog* f) { f->reject(); });
  EXPECT_EQ(OuvreFenetre("F_Modale", &principale_), IssueFenetre::Annulee);
  EXPECT_EQ(F_Sonde::Construites, 2);
  EXPECT_EQ(F_Sonde::Detruites, 2);
}

TEST_F(FenetresEssai, TheLoadRunsBehindTheConstructorAndBeforeTheShowing) {
  Dedans([](QDialog* f) { f->reject(); });
  OuvreFenetre("F_Chargee", &principale_);
  EXPECT_EQ(F_Chargee::Chargements, 1);
  EXPECT_FALSE(F_Chargee::VisibleAuChargement);
}

TEST_F(FenetresEssai, ASingleModalWindowIsNotOpenedOverItself) {
  IssueFenetre dedans = IssueFenetre::Absente;
  Dedans([&](QDialog* f) {
    dedans = OuvreFenetre("F_Chargee", f);
    f->accept();
  });
  EXPECT_EQ(OuvreFenetre("F_Chargee", &principale_), IssueFenetre::Acceptee);
  EXPECT_EQ(dedans, IssueFenetre::Ouverte);
  EXPECT_EQ(F_Sonde::Construites, 1);
  EXPECT_EQ(F_Chargee::Chargements, 1);
}

TEST_F(FenetresEssai, AFreeWindowStaysOpenBesideItsOwner) {
  EXPECT_EQ(OuvreFenetre("F_Libre", &principale_), IssueFenetre::Ouverte);
  ASSERT_NE(F_Sonde::Derniere, nullptr);
  EXPECT_TRUE(F_Sonde::Derniere->isVisible());
  EXPECT_EQ(F_Sonde::Derniere->parentWidget(), &principale_);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(FenetresEssai, ASingleFreeWindowOpenedTwiceComesToTheFront) {
  OuvreFenetre("F_Libre", &principale_);
  F_Sonde::Derniere->showMinimized();
  essai::Montre(principale_);
  ASSERT_EQ(QApplication::activeWindow(), &principale_);
  EXPECT_EQ(OuvreFenetre("F_Libre", &principale_), IssueFenetre::Ouverte);
  essai::Evenements();
  EXPECT_EQ(F_Sonde::Construites, 1);
  EXPECT_EQ(F_Chargee::Chargements, 1);
  EXPECT_FALSE(F_Sonde::Derniere->isMinimized());
  EXPECT_EQ(QApplication::activeWindow(), F_Sonde::Derniere);
}

TEST_F(FenetresEssai, WhatASingleFreeWindowHasBegunOutlivesItsClosing) {
  OuvreFenetre("F_Libre", &principale_);
  F_Sonde::Derniere->close();
  essai::Evenements();
  ASSERT_EQ(F_Sonde::Detruites, 0);
  EXPECT_FALSE(F_Sonde::Derniere->isVisible());
  OuvreFenetre("F_Libre", &principale_);
  EXPECT_EQ(F_Sonde::Construites, 1);
  EXPECT_TRUE(F_Sonde::Derniere->isVisible());
  EXPECT_EQ(F_Chargee::Chargements, 2);
}

TEST_F(FenetresEssai, AKeptWindowComesBackInTheLanguageOfThen) {
  essai::EcritFichierEssai("OVELINen.trad", "[F_Sonde]\nLabel1=Title\n");
  OuvreFenetre("F_Libre", &principale_);
  F_Sonde::Derniere->close();
  essai::ChoisitLangue("en");
  OuvreFenetre("F_Libre", &principale_);
  EXPECT_EQ(essai::Controle<QLabel>(*F_Sonde::Derniere, "Label1")->text(), "Title");
}

TEST_F(FenetresEssai, AKeptWindowGoesWithItsOwnerAndIsMadeAnewForTheNext) {
  {
    QWidget autre;
    OuvreFenetre("F_Libre", &autre);
  }
  EXPECT_EQ(F_Sonde::Detruites, 1);
  EXPECT_EQ(OuvreFenetre("F_Libre", &principale_), IssueFenetre::Ouverte);
  EXPECT_EQ(F_Sonde::Construites, 2);
}

TEST_F(FenetresEssai, FreeWindowsOfAKindWithSeveralStandBesideEachOtherAndGoWhenClosed) {
  OuvreFenetre("F_Feuille", &principale_);
  const QPointer<QDialog> premiere = F_Sonde::Derniere;
  OuvreFenetre("F_Feuille", &principale_);
  EXPECT_EQ(F_Sonde::Construites, 2);
  ASSERT_TRUE(premiere->isVisible());
  premiere->close();
  essai::Evenements();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(premiere, nullptr);
  EXPECT_EQ(F_Sonde::Detruites, 1);
}

}  // namespace
