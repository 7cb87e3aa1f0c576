// Page "Points": the points chosen in the tree of the drawing, and the marked position.
#include <QAbstractItemModel>
#include <QListView>
#include <cmath>
#include <memory>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/ui/Fenetres.h"
#include "tests/ui/panneau/Banc.h"

namespace {

using namespace ovelin;
using essai::Clique;
using essai::Sortie;
using essai::Tape;
using testing::ElementsAre;

class Points : public essai::Banc<PagePoints> {
 protected:
  void SetUp() override {
    Banc::SetUp();
    CdeZENIK = std::make_unique<ClsCdeZENIK>();
    page_->PointsChoisis = [this] { return choisis_; };
    FenetreExiste = nullptr;
    OuvreFenetre = nullptr;
  }
  void TearDown() override {
    FenetreExiste = nullptr;
    OuvreFenetre = nullptr;
    Banc::TearDown();
  }
  void Choisit(std::vector<std::int32_t> points) {
    choisis_ = std::move(points);
    Remplit();
    essai::Evenements();
  }
  std::vector<std::string> Lignes() {
    const QAbstractItemModel* modele = C<QListView>("List_Position")->model();
    std::vector<std::string> lignes;
    for (int i = 0; i < modele->rowCount(); ++i)
      lignes.push_back(modele->index(i, 0).data().toString().toStdString());
    return lignes;
  }
  void ChoisitLigne(int rang) {
    auto* liste = C<QListView>("List_Position");
    const QRect place = liste->visualRect(liste->model()->index(rang, 0));
    QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, place.center());
    essai::Evenements();
  }
  std::vector<std::int32_t> choisis_;
};

TEST_F(Points, ListTheChosenOnesWithTheirMark) {
  DeuxCarres();
  Svc.MarqueDecimale = ',';
  TraceInitial[6].Cde = CodePC;
  TraceInitial[6].X = 20.5F;
  Ouvre();
  Choisit({0, 6});
  EXPECT_THAT(Lignes(), ElementsAre("0,000 | 0,000", "20,500 | 35,000   PC"));
  EXPECT_FALSE(C("Lbl_ListePoints")->isVisible());
}

TEST_F(Points, ButtonsWaitForAChosenPoint) {
  DeuxCarres();
  Ouvre();
  for (const char* nom : {"CB_Depart", "CB_Position", "CB_Supprimer_Point"}) EXPECT_FALSE(Actif(nom)) << nom;
  EXPECT_TRUE(C("Lbl_ListePoints")->isVisible());
  Choisit({3});
  for (const char* nom : {"CB_Depart", "CB_Position", "CB_Supprimer_Point"}) EXPECT_TRUE(Actif(nom)) << nom;
}

TEST_F(Points, OfAnIndexBeyondTheDrawingNothingIsDone) {
  DeuxCarres();
  Ouvre();
  Choisit({3});
  choisis_ = {500};
  Remplit();
  EXPECT_THAT(Lignes(), ElementsAre(""));
  EXPECT_FALSE(Actif("CB_Depart"));
  EXPECT_FALSE(Actif("CB_Supprimer_Point"));
}

TEST_F(Points, ClickOnATreesPointMakesItTheCurrentOne) {
  DeuxCarres();
  Ouvre();
  Choisit({5, 6, 7});
  ResultatClic clic;
  clic.fait = true;
  clic.croix = TraceInitial[6];
  page_->MontrePoint(clic);
  EXPECT_EQ(C<QListView>("List_Position")->currentIndex().row(), 1);
  Clique(*C("CB_Position"));
  EXPECT_EQ(Texte("TB_PositionX"), "20");
  EXPECT_EQ(Texte("TB_PositionY"), "35");
}

TEST_F(Points, ClickThatChangesTheChoiceIsFollowedAtOnce) {
  DeuxCarres();
  Ouvre();
  choisis_ = {2};
  ResultatClic clic;
  clic.croix = TraceInitial[2];
  page_->MontrePoint(clic);
  EXPECT_THAT(Lignes(), ElementsAre("10.000 | 10.000"));
  EXPECT_TRUE(Actif("CB_Depart"));
}

// --- CB_Depart

TEST_F(Points, StartOfAClosedPathMovesToTheChosenPoint) {
  DeuxCarres();
  Ouvre();
  Choisit({7});
  Clique(*C("CB_Depart"));
  EXPECT_EQ(TraceInitial[5], (PointTrace{50, 35, CodePD, Code2(" B")}));
  EXPECT_EQ(TraceInitial[9], TraceInitial[5]);
  EXPECT_EQ(TraceInitial[0].X, 0);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_GT(rafraichis_, 0);
}

TEST_F(Points, StartIsThatOfTheLineChosenInTheList) {
  DeuxCarres();
  Ouvre();
  Choisit({6, 7, 8});
  ChoisitLigne(2);
  Clique(*C("CB_Depart"));
  EXPECT_EQ(TraceInitial[5], (PointTrace{50, 5, CodePD, Code2(" B")}));
}

TEST_F(Points, StartThatIsTheFirstPointAlreadyChangesNothing) {
  DeuxCarres();
  Ouvre();
  Choisit({5});
  const Document avant = Doc;
  Clique(*C("CB_Depart"));
  EXPECT_EQ(TraceInitial, avant.TraceInitial);
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Points, StartOfAnOpenPathIsRefusedWithABoxAndABeep) {
  essai::AjouteSequence(" A", {{0, 0}, {10, 0}, {10, 10}});
  RecalculDecalages();
  Ouvre();
  Choisit({1});
  const Document avant = Doc;
  essai::Attend("F_Representation", "lib370");
  Clique(*C("CB_Depart"));
  EXPECT_EQ(essai::Bips(), 1);
  EXPECT_EQ(TraceInitial, avant.TraceInitial);
  EXPECT_EQ(Modifie, Faux);
}

// --- CB_Supprimer_Point

TEST_F(Points, DeletionAsksAndNoLeavesThem) {
  DeuxCarres();
  Ouvre();
  Choisit({6, 7});
  essai::Attend("F_Representation", "lib101", Reponse::Non);
  Clique(*C("CB_Supprimer_Point"));
  EXPECT_EQ(TraceInitial.size(), 10U);
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Points, DeletionTakesAllChosenPointsOut) {
  DeuxCarres();
  Ouvre();
  Choisit({6, 7});
  essai::Attend("F_Representation", "lib101", Reponse::Oui);
  Clique(*C("CB_Supprimer_Point"));
  ASSERT_EQ(TraceInitial.size(), 8U);
  EXPECT_EQ(NbPoints, 8);
  EXPECT_EQ(TraceInitial[5].X, 20);
  EXPECT_EQ(TraceInitial[6].X, 50);
  EXPECT_EQ(TraceInitial[6].Y, 5);
  EXPECT_EQ(Modifie, Vrai);
  std::vector<std::string> statuts;
  for (const auto& [panneau, texte] : essai::Panneaux()) {
    if (panneau == 5 && !texte.empty()) statuts.push_back(texte);
  }
  ASSERT_GE(statuts.size(), 3U);
  EXPECT_EQ(statuts.back(), "Terminé");
}

TEST_F(Points, DeletionDoesNotAskWhereTheUserDoesNotWantIt) {
  DeuxCarres();
  Regl.ConfirmSuppr = false;
  Ouvre();
  Choisit({6});
  Clique(*C("CB_Supprimer_Point"));
  EXPECT_EQ(TraceInitial.size(), 9U);
}

// --- CB_Position

TEST_F(Points, PositionPanelOpensForTheCurrentPointAndPlacesIt) {
  DeuxCarres();
  Svc.MarqueDecimale = ',';
  Ouvre();
  Choisit({6, 7});
  EXPECT_FALSE(C("Frame_Position")->isVisible());
  ChoisitLigne(1);
  Clique(*C("CB_Position"));
  EXPECT_TRUE(C("Frame_Position")->isVisible());
  essai::Capture(*fenetre_, "PagePoints-position");
  EXPECT_EQ(Texte("TB_PositionX"), "50");
  EXPECT_EQ(Texte("TB_PositionY"), "35");
  Tape(*C("TB_PositionX"), "52.5");
  Tape(*C("TB_PositionY"), "-1,25");
  const auto trajet = TraceDecale;
  Clique(*C("CB_PositionOK"));
  EXPECT_FLOAT_EQ(TraceInitial[7].X, 52.5F);
  EXPECT_FLOAT_EQ(TraceInitial[7].Y, -1.25F);
  EXPECT_NE(TraceDecale, trajet);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_FALSE(C("Frame_Position")->isVisible());
  EXPECT_FALSE(Coche("CB_Position"));
}

TEST_F(Points, PositionPanelClosesBySecondPressAndWhenNoPointIsLeft) {
  DeuxCarres();
  Ouvre();
  Choisit({6});
  Clique(*C("CB_Position"));
  Clique(*C("CB_Position"));
  EXPECT_FALSE(C("Frame_Position")->isVisible());
  Clique(*C("CB_Position"));
  Choisit({});
  EXPECT_FALSE(C("Frame_Position")->isVisible());
  EXPECT_FALSE(Coche("CB_Position"));
}

TEST_F(Points, PositionThatIsNoNumberIsRefusedAtItsField) {
  DeuxCarres();
  Ouvre();
  Choisit({6});
  Clique(*C("CB_Position"));
  Tape(*C("TB_PositionY"), "-");
  Clique(*C("CB_PositionOK"));
  EXPECT_TRUE(Refuse("TB_PositionY"));
  EXPECT_FALSE(Refuse("TB_PositionX"));
  EXPECT_TRUE(C("TB_PositionY")->hasFocus());
  EXPECT_EQ(TraceInitial[6].Y, 35);
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Points, PositionBeyondTheDrawingsPlaneIsRefused) {
  DeuxCarres();
  Ouvre();
  Choisit({6});
  Clique(*C("CB_Position"));
  Tape(*C("TB_PositionX"), "20000000");
  essai::Attend("F_Representation", "lib113");
  Clique(*C("CB_PositionOK"));
  EXPECT_EQ(TraceInitial[6].X, 20);
  EXPECT_TRUE(C("Frame_Position")->isVisible());
}

// --- CB_Origine, CB_Goto

TEST_F(Points, MarkedPositionIsShownAndBecomesTheOrigin) {
  DeuxCarres();
  OrigineX = 20.25F;
  OrigineY = -5;
  CdeZENIK->FixeResolutions(0.01, 0.01, 0.01);
  CdeZENIK->FixePosition(100, 50, -2);
  Ouvre();
  EXPECT_EQ(C<QLabel>("Lbl_Marquee")->text().toStdString(), "X  20.250 mm\nY  -5.000 mm");
  Clique(*C("CB_Origine"));
  EXPECT_FLOAT_EQ(TraceInitial[0].X, -20.25F);
  EXPECT_FLOAT_EQ(TraceInitial[0].Y, 5);
  EXPECT_FLOAT_EQ(TraceInitial[7].X, 29.75F);
  EXPECT_FLOAT_EQ(Xmin, -20.25F);
  // The machine stays where it is relative to the drawing.
  EXPECT_NEAR(CdeZENIK->PosX, 79.75, 1e-9);
  EXPECT_NEAR(CdeZENIK->PosY, 55, 1e-9);
  EXPECT_NEAR(CdeZENIK->PosZ, -2, 1e-9);
  EXPECT_EQ(CdeZENIK->PasX, 7975);
  EXPECT_EQ(CdeZENIK->PasY, 5500);
  EXPECT_EQ(Modifie, Vrai);
}

TEST_F(Points, LargePlacesFindTheirRoomInASmallPanel) {
  essai::ChoisitLangue("de");
  DeuxCarres();
  for (PointTrace& p : TraceInitial) {
    p.X -= 1234.567F;
    p.Y -= 1234.567F;
  }
  OrigineX = OrigineY = -1234.567F;
  Ouvre(300, 440);
  Choisit({6, 7});
  Clique(*C("CB_Position"));
  EXPECT_LE(page_->minimumSizeHint().width(), 300);
  EXPECT_LE(page_->minimumSizeHint().height(), 440);
  EXPECT_EQ(essai::TextesCoupesEnTexte(*fenetre_), "");
  essai::Capture(*fenetre_, "PagePoints-grand");
}

TEST_F(Points, OriginBeyondTheDrawingsPlaneLeavesTheMachine) {
  DeuxCarres();
  OrigineX = 9.9e6F;
  TraceInitial[0].X = -9e6F;
  CdeZENIK->FixePosition(100, 50, 0);
  Ouvre();
  essai::Attend("F_Representation", "lib113");
  Clique(*C("CB_Origine"));
  EXPECT_EQ(CdeZENIK->PosX, 100);
  EXPECT_EQ(Modifie, Faux);
}

TEST_F(Points, OriginWaitsForADrawing) {
  Ouvre();
  EXPECT_FALSE(Actif("CB_Origine"));
  DeuxCarres();
  Remplit();
  EXPECT_TRUE(Actif("CB_Origine"));
}

TEST_F(Points, GoToIsOnlyThereWithItsWindowAndDrivesToThePointOverClearance) {
  DeuxCarres();
  Ouvre();
  Choisit({6});
  EXPECT_FALSE(C("CB_Goto")->isVisible());
  FenetreExiste = [](const std::string& nom) { return nom == "F_PilMan"; };
  std::string ouverte;
  OuvreFenetre = [&](const std::string& nom, QWidget*) {
    ouverte = nom;
    return IssueFenetre::Ouverte;
  };
  Remplit();
  essai::Evenements();
  ASSERT_TRUE(C("CB_Goto")->isVisible());
  EcrireCleSection("table_" + TableDefaut, "TB_SAV_30", "5");
  EcrireCleSection("table_" + TableDefaut, "TB_SAV_31", "5");
  zenikcom::ConditionsCarte conditions;
  conditions.rapide = true;
  const auto carte = zenikcom::CreeCarteVirtuelle(std::move(conditions));
  CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte));
  CdeZENIK->ChargeParametres();
  HautDeg = 4;
  Clique(*C("CB_Goto"));
  EXPECT_EQ(ouverte, "F_PilMan");
  const double parMm = 1 / CdeZENIK->MmParPasX();
  EXPECT_EQ(carte->Lieu()[0], std::llround(static_cast<double>(TraceInitial[6].X) * parMm));
  EXPECT_EQ(carte->Lieu()[1], std::llround(static_cast<double>(TraceInitial[6].Y) * parMm));
  EXPECT_EQ(carte->Lieu()[2], std::llround(4 * parMm));
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
}

TEST_F(Points, PositionIsTakenByTheEnterKey) {
  DeuxCarres();
  Ouvre();
  Choisit({6});
  Clique(*C("CB_Position"));
  Tape(*C("TB_PositionX"), "44", Sortie::Entree);
  EXPECT_EQ(TraceInitial[6].X, 44);
  EXPECT_FALSE(C("Frame_Position")->isVisible());
}

TEST_F(Points, PositionIsNotTakenByLeavingItsField) {
  DeuxCarres();
  Ouvre();
  Choisit({6});
  const float avant = TraceInitial[6].X;
  Clique(*C("CB_Position"));
  Tape(*C("TB_PositionX"), "44");
  EXPECT_EQ(TraceInitial[6].X, avant);
}

}  // namespace
