// The main window while a long tool path is computed beside it: what is done at once, what waits, what Escape
// brings back. The kernel comes to its end when the test says so.
#include <QLabel>
#include <QLineEdit>
#include <QWindow>
#include <deque>
#include <functional>

#include "core/Coeurs.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/ServicesPasse.h"
#include "core/Textes.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/principale/PendantPasse.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Travail.h"

namespace {

using namespace ovelin;

using essai::PendantPasse;

TEST_F(PendantPasse, TenPressesOfAnArrowAreOnePassAndOneStepOfUndo) {
  GrandePoche();
  std::deque<std::function<void()>> neuf;
  for (int i = 0; i < 9; ++i) neuf.emplace_back([this] { Presse(Qt::Key_Right); });
  Pendant(std::move(neuf));
  Presse(Qt::Key_Right);
  float x = points_[0].X;
  for (int i = 0; i < 10; ++i) x += 0.1F;
  EXPECT_EQ(TraceInitial[0].X, x);
  EXPECT_EQ(finis_, 1);
  ASSERT_EQ(TraceDecale.size(), 1U);
  EXPECT_EQ(TraceDecale[0].Points[0].X, x + static_cast<float>(RayonFraise));
  EXPECT_EQ(NumeroInstantane(), pas_ + 1);
  EXPECT_EQ(Champ("TB_X"), "1.0");
  EXPECT_FALSE(PasseEnCours());
  essai::Evenements();
  EXPECT_EQ(NumeroInstantane(), pas_ + 1) << "and none comes behind";
  libre_ = true;
  Commande("mnu_Undo");
  EXPECT_TRUE(TraceInitial == points_);
}

// The library's own offsets, on a team of threads beside the window.
TEST_F(PendantPasse, SeveralPocketsOnSeveralThreadsComeToTheSameAndBack) {
  GrandePoche();
  for (const char* code : {" B", " C", " D"}) {
    essai::AjouteCarre(code, static_cast<float>(TraceInitial.size()), 0, 20);
    Sequences.back().Poche = Vrai;
  }
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  EncombrementGeneral();
  Biblio.DecalSequence = [this, calcule = BibliothequePathwerk().DecalSequence](Bibliotheque::Points& p, float t,
                                                                                float d, std::int32_t r) {
    auTravail_ = true;
    while (!libre_ && !base::ArretDemande()) std::this_thread::yield();
    return calcule(p, t, d, r);
  };
  libre_ = true;
  RecalculDecalages();
  Svc.Rafraichit();
  essai::Evenements();
  const Document avant = Doc;
  const auto passe = std::exchange(SvcPasse.Jusque, nullptr);
  Presse(Qt::Key_Right);
  Presse(Qt::Key_Right);
  const Document attendu = Doc;
  ASSERT_GE(attendu.TraceDecale.size(), 4U);
  SvcPasse.Jusque = passe;
  NombreCoeurs = 3;

  Doc = avant;
  libre_ = auTravail_ = false;
  Pendant({[this] { Presse(Qt::Key_Right); }});
  Presse(Qt::Key_Right);
  EXPECT_TRUE(TraceInitial == attendu.TraceInitial);
  EXPECT_TRUE(TraceDecale == attendu.TraceDecale);

  Doc = avant;
  libre_ = auTravail_ = false;
  Pendant({[this] { Presse(Qt::Key_Escape); }});
  Presse(Qt::Key_Right);
  EXPECT_TRUE(TraceInitial == avant.TraceInitial);
  EXPECT_TRUE(TraceDecale == avant.TraceDecale);
}

TEST_F(PendantPasse, ThePictureShowsTheDrawingAtOnceAndNoToolPath) {
  GrandePoche();
  const QImage avant = C<ImagePB1>("PB1")->Image();
  bool vu = false;
  Pendant({[] {},
           [&] {
             vu = true;
             EXPECT_NE(C<ImagePB1>("PB1")->Image(), avant);
             EXPECT_TRUE(TraceDecale.empty());
             EXPECT_TRUE(C<QLabel>("Label_Couleur_Dessin")->isVisible());
             EXPECT_FALSE(C<QLabel>("Label_Couleur_Decalage")->isVisible());
             EXPECT_EQ(C<QLabel>("SB1_2")->text().toStdString(), Traduire(Textes::CalculQuiSAnnule));
             EXPECT_EQ(NumeroInstantane(), pas_);
           }});
  Presse(Qt::Key_Right);
  EXPECT_TRUE(vu);
  EXPECT_TRUE(C<QLabel>("Label_Couleur_Decalage")->isVisible());
}

TEST_F(PendantPasse, EscapeBringsTheDrawingTheToolPathAndTheFieldsBack) {
  GrandePoche();
  const QImage avant = C<ImagePB1>("PB1")->Image();
  Pendant({[this] { Presse(Qt::Key_Right); }, [this] { Presse(Qt::Key_Up); }, [this] { Presse(Qt::Key_Escape); }});
  Presse(Qt::Key_Right);
  EXPECT_TRUE(TraceInitial == points_);
  EXPECT_TRUE(TraceDecale == traces_);
  EXPECT_EQ(finis_, 0);
  EXPECT_EQ(Champ("TB_X"), "0.0");
  EXPECT_EQ(Champ("TB_Y"), "0.0");
  EXPECT_EQ(C<ImagePB1>("PB1")->Image(), avant);
  EXPECT_EQ(NumeroInstantane(), pas_);
  EXPECT_FALSE(TravailChange());
}

TEST_F(PendantPasse, ARadiusThatIsTypedAgainIsTheOneInForce) {
  GrandePoche();
  auto* champ = C<QLineEdit>("TB_RayonFraise");
  Pendant({[&] { Retape(*champ, "4"); }, [&] { Retape(*champ, "5"); }});
  essai::Tape(*champ, "2", essai::Sortie::Entree);
  EXPECT_EQ(RayonFraise, 5);
  EXPECT_EQ(Champ("TB_RayonFraise"), "5");
  EXPECT_EQ(finis_, 1);
  EXPECT_EQ(TraceDecale[0].Points[0].X, points_[0].X + 5);
  EXPECT_EQ(NumeroInstantane(), pas_ + 1);
}

TEST_F(PendantPasse, ARadiusIsTypedBackToTheOneOfBefore) {
  GrandePoche();
  const std::string avant = Champ("TB_RayonFraise");
  auto* champ = C<QLineEdit>("TB_RayonFraise");
  Pendant({[&] { Retape(*champ, avant); }});
  essai::Tape(*champ, "2", essai::Sortie::Entree);
  EXPECT_EQ(Champ("TB_RayonFraise"), avant);
  EXPECT_TRUE(TraceDecale == traces_);
}

TEST_F(PendantPasse, WhatIsHalfTypedStaysInItsField) {
  GrandePoche();
  auto* champ = C<QLineEdit>("TB_RayonFraise");
  Pendant({[&] { QTest::keyClicks(champ, "4"); }});
  essai::Tape(*champ, "2", essai::Sortie::Entree);
  EXPECT_EQ(RayonFraise, 2);
  const std::string tape = Champ("TB_RayonFraise");
  EXPECT_NE(tape, "2");
  QTest::keyClick(champ, Qt::Key_Return);
  EXPECT_EQ(RayonFraise, std::stod(tape));
}

TEST_F(PendantPasse, EscapeBringsTheRadiusOfBeforeBack) {
  GrandePoche();
  const double rayon = RayonFraise;
  const std::string avant = Champ("TB_RayonFraise");
  auto* champ = C<QLineEdit>("TB_RayonFraise");
  Pendant({[&] { Retape(*champ, "4"); }, [&] { QTest::keyClick(champ, Qt::Key_Escape); }});
  essai::Tape(*champ, "2", essai::Sortie::Entree);
  EXPECT_EQ(RayonFraise, rayon);
  EXPECT_EQ(Champ("TB_RayonFraise"), avant);
  EXPECT_TRUE(TraceDecale == traces_);
}

TEST_F(PendantPasse, ACommandComesBehindItAndFindsTheToolPath) {
  GrandePoche();
  std::size_t traces = 0;
  reponses_["F_Fraisage"] = [&] {
    traces = TraceDecale.size();
    return false;
  };
  Pendant({[this] { Menu("mnu_Fraisage")->trigger(); }, [&] { EXPECT_TRUE(ouvertes_.empty()); }});
  Presse(Qt::Key_Right);
  EXPECT_TRUE(ouvertes_.empty());
  essai::Evenements();
  EXPECT_EQ(ouvertes_, std::vector<std::string>{"F_Fraisage"});
  EXPECT_EQ(traces, 1U);
}

TEST_F(PendantPasse, AClickIsHeldAndComesBehindIt) {
  GrandePoche();
  Pendant({[this] { PresseFenetre("Option_Decal_2"); }, [] { EXPECT_EQ(Sequences[0].Decalage, 1); },
           [this] { QTest::mouseMove(fenetre_->windowHandle(), QPoint(3, 3)); }});  // the hand goes on
  Presse(Qt::Key_Right);
  EXPECT_EQ(Sequences[0].Decalage, 1);
  EXPECT_EQ(finis_, 1);
  essai::Evenements();
  EXPECT_EQ(Sequences[0].Decalage, 2);
}

TEST_F(PendantPasse, AKeyOfACommandIsHeldAndComesBehindIt) {
  GrandePoche();
  Pendant({[this] { Presse(Qt::Key_Delete); }});
  Presse(Qt::Key_Right);
  EXPECT_EQ(TraceInitial.size(), points_.size());
  EXPECT_EQ(finis_, 1);
  essai::Attend("F_Representation", "SupprimerTout", Reponse::Oui);
  essai::Evenements();
  EXPECT_LT(TraceInitial.size(), 2U);
}

TEST_F(PendantPasse, AQuitComesBehindItWithItsQuestion) {
  GrandePoche();
  Pendant({[this] {
    fenetre_->close();
    EXPECT_TRUE(fenetre_->isVisible());
  }});
  Presse(Qt::Key_Right);
  EXPECT_TRUE(fenetre_->isVisible());
  EXPECT_EQ(TraceDecale.size(), 1U);
  essai::Attend("F_Representation", std::string(Textes::TravailNonEnregistre.Cle()), Reponse::Non);
  essai::Evenements();
  EXPECT_FALSE(fenetre_->isVisible());
}

}  // namespace
