// The main window while a long tool path is computed beside it: what is done at once, what waits, what Escape
// brings back. The kernel comes to its end when the test says so.
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWindow>
#include <atomic>
#include <cmath>
#include <deque>
#include <functional>
#include <thread>

#include "base/Arret.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Bibliotheque.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Travail.h"

namespace {

using namespace ovelin;

class PendantPasse : public essai::Principale {
 protected:
  // A pocket whose tool path is worth a pass, in the window as if it had been opened.
  void GrandePoche() {
    Charge(Exemple("plaque.dxf"));
    std::vector<std::pair<float, float>> xy;
    constexpr int n = 3000;
    for (int i = 0; i <= n; ++i) {
      const double a = 2 * M_PI * (i % n) / n;
      xy.emplace_back(static_cast<float>(100 + 30 * std::cos(a)), static_cast<float>(80 + 30 * std::sin(a)));
    }
    TraceInitial.clear();
    Sequences.assign(1, {});
    essai::AjouteSequence(" A", xy);
    Sequences.back().Poche = Vrai;
    Sequences.back().Selection = Vrai;
    NbPoints = static_cast<std::int32_t>(TraceInitial.size());
    Biblio.DecalSequence = [this](Bibliotheque::Points& p, float, float d, std::int32_t) {
      auTravail_ = true;
      while (!libre_ && !base::ArretDemande()) std::this_thread::yield();
      auTravail_ = false;
      if (base::ArretDemande()) return 0;
      ++finis_;
      for (PointTrace& q : p) q.X += d;
      return 1;
    };
    libre_ = true;
    RecalculDecalages();
    Svc.Rafraichit();
    essai::Evenements();
    RetientTravail();
    libre_ = false;
    finis_ = 0;
    pas_ = NumeroInstantane();
    points_ = TraceInitial;
    traces_ = TraceDecale;
    C<ImagePB1>("PB1")->setFocus();
    essai::Evenements();
  }
  // One step in each round of events while it computes; behind the last one the kernel comes to its end.
  void Pendant(std::deque<std::function<void()>> suite) {
    suite_ = std::move(suite);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      if (!auTravail_ || dedans_) return;
      const QScopedValueRollback<bool> pendant(dedans_, true);
      if (suite_.empty()) {
        libre_ = true;
        timer_.stop();
        return;
      }
      const auto pas = std::move(suite_.front());
      suite_.pop_front();
      pas();
    });
    timer_.start(0);
  }
  void Presse(Qt::Key touche) { QTest::keyClick(C<ImagePB1>("PB1"), touche); }
  static void Retape(QLineEdit& champ, const std::string& texte) {
    QTest::keyClick(&champ, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&champ, QString::fromStdString(texte));
    QTest::keyClick(&champ, Qt::Key_Return);
  }
  // As from the screen: through the window.
  void PresseFenetre(const char* nom) {
    auto* controle = C<QWidget>(nom);
    ASSERT_TRUE(controle->isVisible());
    const QPointF ici = controle->mapTo(fenetre_.get(), controle->rect().center());
    const QPointF global = fenetre_->mapToGlobal(ici);
    QMouseEvent appui(QEvent::MouseButtonPress, ici, ici, global, Qt::LeftButton, Qt::LeftButton, {});
    QMouseEvent lache(QEvent::MouseButtonRelease, ici, ici, global, Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(fenetre_->windowHandle(), &appui);
    QCoreApplication::sendEvent(fenetre_->windowHandle(), &lache);
  }
  std::string Champ(const char* nom) { return C<QLineEdit>(nom)->text().toStdString(); }

  std::atomic<bool> libre_{false};
  std::atomic<bool> auTravail_{false};  // the kernel waits for a word
  std::atomic<int> finis_{0};
  QTimer timer_;
  bool dedans_ = false;
  std::deque<std::function<void()>> suite_;
  int pas_ = 0;
  std::vector<PointTrace> points_;
  std::vector<SequenceDecalee> traces_;
};

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
