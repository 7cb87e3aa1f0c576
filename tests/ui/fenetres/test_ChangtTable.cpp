// The window that asks which table of a full board makes room, by mouse and keys.
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <optional>

#include "app/ovelin/Composition.h"
#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "controller/ui/F_ChangtTable.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "tests/ui/support/SupportUi.h"
#include "tests/unit/controller/TableEssai.h"

namespace essai {
namespace {

using namespace ovelin;

// A board whose slots 0 to 2 are taken, and a table in the settings that it has not.
class FChangtTable : public testing::Test {
 protected:
  FChangtTable() {
    zenikcom::ConditionsCarte conditions;
    conditions.rapide = true;
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(conditions));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
    PoseTable("Essai", "TB_SAV_30=5\r\nTB_SAV_31=5\r\n");
    CdeZENIK->ChargeParametres();
    const char* noms[] = {"Bois", "A&B", "Laiton"};
    for (std::uint8_t n = 0; n < 3; ++n) CdeZENIK->TableEcrire(noms[n], n);
  }

  ~FChangtTable() override { CdeZENIK = std::make_unique<ClsCdeZENIK>(); }

  static std::vector<std::string> Legendes(QWidget& fenetre) {
    std::vector<std::string> legendes;
    for (const char* nom : {"CB_Table_0", "CB_Table_1", "CB_Table_2"}) {
      legendes.push_back(Controle<QPushButton>(fenetre, nom)->text().toStdString());
    }
    return legendes;
  }
  // The check of the table, with the real window behind the service; `geste` is what the user does in it.
  static std::string Verifie(const std::function<void(QDialog&)>& geste) {
    const Services script = Svc;
    InstalleFenetres();
    std::string vue;
    QTimer minuterie;
    QObject::connect(&minuterie, &QTimer::timeout, &minuterie, [&] {
      auto* devant = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (devant == nullptr) return;
      minuterie.stop();
      vue = devant->objectName().toStdString();
      geste(*devant);
    });
    minuterie.start(0);
    EXPECT_TRUE(CdeZENIK->TableVerif());
    Svc = script;
    return vue;
  }

  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
};

TEST_F(FChangtTable, ShowsTheNamesThatTheBoardHasAnAmpersandAsOne) {
  F_ChangtTable f;
  f.Form_Load();
  EXPECT_THAT(Legendes(f), testing::ElementsAre("Bois", "A&&B", "Laiton"));
}

TEST_F(FChangtTable, APressWritesTheTableInForceThereAndTheWindowStays) {
  F_ChangtTable f;
  f.Form_Load();
  Montre(f);
  Clique(*Controle<QPushButton>(f, "CB_Table_1"));
  EXPECT_TRUE(f.isVisible());
  EXPECT_THAT(Legendes(f), testing::ElementsAre("Bois", "Essai", "Laiton"));
  EXPECT_EQ(CdeZENIK->TableRecherche("Essai"), 1);
  EXPECT_EQ(CdeZENIK->TableLectureNom(0), "Bois    ");
  EXPECT_EQ(CdeZENIK->TableLectureNom(2), "Laiton  ");
}

TEST_F(FChangtTable, CutsNoNameOffNarrowLightOrDark) {
  TableDefaut = "Une table au nom bien plus long que la carte ne le tient";
  for (const char* langue : {"fr", "en"}) {
    ChoisitLangue(langue);
    for (const bool sombre : {false, true}) {
      ThemeSombreEssai(sombre);
      F_ChangtTable f;
      f.Form_Load();
      Montre(f);
      const std::string nom = std::string("F_ChangtTable-noms-") + langue + (sombre ? "-sombre" : "");
      Capture(f, nom);
      Clique(*Controle<QPushButton>(f, "CB_Table_1"));
      f.resize(f.minimumSizeHint());
      Evenements();
      EXPECT_EQ(TextesCoupesEnTexte(f), "") << nom;
      Capture(f, nom + "-long");
    }
  }
}

TEST_F(FChangtTable, EachPressWritesSeveralSlotsInTurnOrOneTwice) {
  F_ChangtTable f;
  f.Form_Load();
  Montre(f);
  const auto avant = carte_->Compteurs().echanges;
  for (const char* nom : {"CB_Table_2", "CB_Table_2", "CB_Table_0"}) Clique(*Controle<QPushButton>(f, nom));
  EXPECT_EQ(carte_->Compteurs().echanges - avant, 9);  // three blocks each
  EXPECT_THAT(Legendes(f), testing::ElementsAre("Essai", "A&&B", "Essai"));
  EXPECT_EQ(f.Choix(), 0);
}

TEST_F(FChangtTable, ClosingWithoutAPressLeavesTheBoardAsItWas) {
  F_ChangtTable f;
  f.Form_Load();
  Montre(f);
  const auto avant = carte_->Compteurs().echanges;
  Clique(*Controle<QPushButton>(f, "Btn_Fermer"));
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(f.result(), QDialog::Rejected);
  EXPECT_EQ(carte_->Compteurs().echanges, avant);
}

TEST_F(FChangtTable, EnterClosesAndOverwritesNothing) {
  F_ChangtTable f;
  f.Form_Load();
  Montre(f);
  const auto avant = carte_->Compteurs().echanges;
  QTest::keyClick(&f, Qt::Key_Return);
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(carte_->Compteurs().echanges, avant);
}

TEST_F(FChangtTable, AKeyOfItsLabelPressesAButton) {
  F_ChangtTable f;
  f.Form_Load();
  Montre(f);
  QTest::keyClick(&f, Qt::Key_2, Qt::AltModifier);
  EXPECT_EQ(QApplication::focusWidget(), Controle<QPushButton>(f, "CB_Table_2"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(CdeZENIK->TableRecherche("Essai"), 2);
}

TEST_F(FChangtTable, WhateverClosesItAfterAPressTellsTheSlot) {
  for (const bool croix : {false, true}) {
    F_ChangtTable f;
    f.Form_Load();
    Montre(f);
    Clique(*Controle<QPushButton>(f, "CB_Table_2"));
    if (croix) {
      f.close();
    } else {
      QTest::keyClick(&f, Qt::Key_Escape);
    }
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(f.result(), QDialog::Accepted);
    EXPECT_EQ(f.Choix(), 2);
  }
}

TEST_F(FChangtTable, TheCheckOfAFullBoardOpensItAndMarksTheFourthSlot) {
  const std::string vue = Verifie([](QDialog& f) {
    Clique(*Controle<QPushButton>(f, "CB_Table_1"));
    Clique(*Controle<QPushButton>(f, "Btn_Fermer"));
  });
  EXPECT_EQ(vue, "F_ChangtTable");
  EXPECT_EQ(CdeZENIK->TableDefautLire(), 3);
  EXPECT_EQ(CdeZENIK->TableRecherche("Essai"), 1);
  EXPECT_EQ(Verifie([](QDialog&) {}), "") << "found in its place, without the window";
  EXPECT_EQ(CdeZENIK->TableDefautLire(), 1);
}

TEST_F(FChangtTable, ClosedWithoutAPressTheCheckIsTrueAllTheSame) {
  EXPECT_EQ(Verifie([](QDialog& f) { f.close(); }), "F_ChangtTable");
  EXPECT_EQ(CdeZENIK->TableDefautLire(), 3);
  EXPECT_EQ(CdeZENIK->TableRecherche("Essai"), -1);
}

TEST_F(FChangtTable, TheServiceTellsWhichSlotWasChosen) {
  const Services script = Svc;
  InstalleFenetres();
  std::optional<int> choisi;
  QTimer::singleShot(0, [] {
    QWidget& f = *QApplication::activeModalWidget();
    Clique(*Controle<QPushButton>(f, "CB_Table_2"));
    f.close();
  });
  choisi = Svc.OuvreFenetre("F_ChangtTable");
  EXPECT_EQ(choisi, 2);
  QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
  EXPECT_EQ(Svc.OuvreFenetre("F_ChangtTable"), std::nullopt);
  Svc = script;
}

}  // namespace
}  // namespace essai
