// Random work in the window of manual control, repeatable by its seed.
#include <cstdlib>
#include <random>

#include "core/ui/ChampNombre.h"
#include "tests/ui/fenetres/BancPilMan.h"

namespace essai {
namespace {

using SingePilMan = BancPilMan;

// Random keys, presses and events of the machine: counters and machine agree whatever happens.
TEST_F(SingePilMan, RandomActionsLeaveMachineAndCountersInAgreement) {
  const auto entier = [](const char* nom, unsigned long sinon) {
    const char* valeur = std::getenv(nom);
    return valeur != nullptr ? std::strtoul(valeur, nullptr, 10) : sinon;
  };
  std::mt19937 hasard(static_cast<std::uint32_t>(entier("OVELIN_MONKEY_SEED", 20261122)));
  const auto un = [&](int n) { return static_cast<int>(hasard() % static_cast<unsigned>(n)); };
  const auto actions = static_cast<int>(entier("OVELIN_MONKEY_ACTIONS", 400));
  Svc.Montre = [&](const BoiteMessage& boite) {
    EXPECT_FALSE(boite.texte.empty()) << boite.cle;
    return boite.boutons == Boutons::OuiNon ? Reponse::Non : Reponse::Ok;
  };
  static constexpr int Cles[]{Qt::Key_Left,     Qt::Key_Right,  Qt::Key_Up,      Qt::Key_Down,  Qt::Key_Home,
                              Qt::Key_End,      Qt::Key_PageUp, Qt::Key_F1,      Qt::Key_F5,    Qt::Key_F6,
                              Qt::Key_F7,       Qt::Key_F8,     Qt::Key_V,       Qt::Key_Plus,  Qt::Key_Minus,
                              Qt::Key_Asterisk, Qt::Key_Escape, Qt::Key_Tab,     Qt::Key_Space, Qt::Key_Return,
                              Qt::Key_7,        Qt::Key_3,      Qt::Key_PageDown};
  const auto foyer = [&]() -> QWidget* {
    QWidget* w = QApplication::focusWidget();
    return w != nullptr && w->window() == f_.get() ? w : f_.get();
  };
  Axes3 zero{};  // machine's steps at the counters' zero
  std::function<void()> agit;
  int dedans = 0;
  aChaqueTour_ = [&] {
    if (PilMan.JogActif && dedans == 0 && un(200) == 0) {
      ++dedans;
      agit();
      --dedans;
    }
    if (PilMan.JogActif && un(3000) == 0) ArreteAussitot();
    if (RunActif && un(20000) == 0) {
      carte_->Debranche(true);
      CdeZENIK->IsAvailable();
      carte_->Debranche(false);
    }
  };
  agit = [&] {
    const auto avec =
        un(4) == 0 ? Qt::KeyboardModifiers(Qt::ShiftModifier) : Qt::KeyboardModifiers(Qt::KeypadModifier);
    switch (un(8)) {
      case 0:
      case 1:
      case 2:
        QTest::keyClick(foyer(), Qt::Key(Cles[un(static_cast<int>(std::size(Cles)))]), avec);
        break;
      case 3: {
        const QPoint p(un(Image()->width()), un(Image()->height()));
        QTest::mousePress(Image(), Qt::LeftButton, {}, p);
        QTest::mouseRelease(Image(), Qt::LeftButton, {}, p);
        break;
      }
      case 4: {
        std::vector<QAbstractButton*> boutons;
        for (auto* b : f_->findChildren<QAbstractButton*>()) {
          if (b->isVisible() && b->isEnabled()) boutons.push_back(b);
        }
        if (!boutons.empty()) Clique(*boutons[static_cast<std::size_t>(un(static_cast<int>(boutons.size())))]);
        break;
      }
      case 5:
        carte_->Appuie(static_cast<std::uint8_t>(un(3) == 0 ? un(256) & 0xF3 : 0));
        if (dedans == 0) {
          Timer("TimerPosition")->start(0);
          essai::Evenements();
          carte_->Appuie(0);
        }
        break;
      case 6:
        if (auto* champ = qobject_cast<QLineEdit*>(foyer())) champ->setText(QString::number(un(40) - 20));
        if (auto* liste = qobject_cast<QListWidget*>(foyer())) {
          liste->item(un(3))->setCheckState(un(2) == 0 ? Qt::Checked : Qt::Unchecked);
        }
        break;
      default:
        if (un(10) == 0) {
          f_->close();
          f_->Form_Load();
          f_->show();
          f_->activateWindow();
        }
        heure_ += 0.01 * un(50);
    }
  };
  Ouvre();
  for (int i = 0; i < actions && !HasFailure(); ++i) {
    agit();
    ASSERT_FALSE(PilMan.JogActif || RunActif || OperationCarte) << i;
    if (CdeZENIK->TravailIncertain == Faux) {
      const Axes3 ici = Lieu();
      const Axes3 compte{CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ};
      for (std::size_t a = 0; a < 3; ++a) {
        if (compte[a] == 0) zero[a] = ici[a];  // an origin may have been set
        EXPECT_EQ(ici[a] - zero[a], compte[a]) << "axis " << a << " after action " << i;
      }
    }
  }
}

}  // namespace
}  // namespace essai
