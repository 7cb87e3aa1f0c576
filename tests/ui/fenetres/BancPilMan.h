// The window of manual control on a virtual board under the test's clock.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <cmath>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/ui/Pointeur.h"
#include "machine/Module_Table.h"
#include "manual/Module_PilMan.h"
#include "manual/Touches.h"
#include "manual/ui/F_PilMan.h"
#include "manual/ui/ImageClavier.h"
#include "tests/support/MachineJog.h"
#include "tests/ui/support/SupportUi.h"

namespace essai {

using namespace ovelin;
using zenikcom::Axes3;

// 100, 50 and 200 steps a mm.
inline constexpr const char* TableEssai =
    "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_0=2\r\nTB_SAV_1=4\r\nTB_SAV_2=1\r\nTB_SAV_3=200\r\n"
    "TB_SAV_4=200\r\nTB_SAV_5=200\r\nCombo_SAV_12=0\r\nCombo_SAV_13=0\r\nCombo_SAV_14=0\r\nTB_SAV_12=4\r\n"
    "TB_SAV_13=4\r\nTB_SAV_14=4\r\nTB_SAV_15=20\r\nTB_SAV_16=16\r\nTB_SAV_17=8\r\nTB_SAV_30=30\r\nTB_SAV_31=80\r\n";

class BancPilMan : public testing::Test {
 protected:
  BancPilMan() : bouge_(BougePointeur) {
    EcritFichierEssai("OVELIN.ini", TableEssai);
    OublieCles();
    TableDefaut = "Essai";
    ChargeGlobalesTable();
    Svc.Horloge = [this] { return heure_; };
    Svc.Attend = [this](double s) { heure_ += s; };
    Svc.LaisseEvenements = [this](ovelin::Evenements) {
      heure_ += 0.0005;
      if (aChaqueTour_) aChaqueTour_();
    };
    BougePointeur = [this](int dx, int dy) { sauts_.emplace_back(dx, dy); };
    zenikcom::ConditionsCarte c;
    c.horloge = [this] { return std::llround(heure_ * 1e9); };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(
        std::make_unique<GuetStop>(zenikcom::LiaisonVirtuelle(carte_), [this] { stop_ = heure_; }));
    CdeZENIK->ChargeParametres();
    f_ = std::make_unique<F_PilMan>();
  }
  ~BancPilMan() override {
    f_.reset();
    BougePointeur = bouge_;
    CdeZENIK = std::make_unique<ClsCdeZENIK>();
  }

  void Ouvre() {
    f_->Form_Load();
    Montre(*f_);
    ASSERT_TRUE(f_->isActiveWindow());
  }
  [[nodiscard]] Axes3 Lieu() const { return carte_->Lieu(); }
  QLabel* L(const char* nom) { return Controle<QLabel>(*f_, nom); }
  QPushButton* B(const char* nom) { return Controle<QPushButton>(*f_, nom); }
  ImageClavier* Image() { return Controle<ImageClavier>(*f_, "Img_Clavier"); }
  QTimer* Timer(const char* nom) {
    auto* timer = f_->findChild<QTimer*>(nom);
    if (timer == nullptr) qFatal("no timer %s", nom);
    return timer;
  }
  void Touche(int cle, Qt::KeyboardModifiers avec = {}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(cle), avec);
  }
  QWidget* Page() { return Controle<QStackedWidget>(*f_, "Pages")->currentWidget(); }
  // Does `quoi` once, that long after the machine has begun to move.
  void Apres(double secondes, std::function<void()> quoi) {
    aChaqueTour_ = [this, secondes, quoi = std::move(quoi), depart = -1.0, fait = false]() mutable {
      if (depart < 0 && PilMan.JogActif && carte_->Compteurs().ticks > 0) depart = heure_;
      if (fait || depart < 0 || heure_ - depart < secondes) return;
      fait = true;
      instant_ = heure_;
      quoi();
    };
  }
  // A continuous jog at 20 mm/s, ended a second later by `quoi`: the board gets the stop within a tenth of a
  // second, runs out by its ramp and no longer, and the machine loses no step.
  void AttendArretPar(const std::function<void()>& quoi) {
    Ouvre();
    Touche(Qt::Key_F5);
    AttendArretDe([] { QTest::keyPress(QApplication::focusWidget(), Qt::Key_Right); }, quoi);
  }
  void AttendArretDe(const std::function<void()>& jogue, const std::function<void()>& quoi) {
    carte_->Modele(MachineJog());
    PilMan.Vitesse = 20;
    Apres(1, quoi);
    jogue();
    AttendArrete();
  }
  void AttendArrete() {
    ASSERT_GT(instant_, 0) << "nothing has happened";
    EXPECT_GE(stop_, instant_);
    EXPECT_LE(stop_ - instant_, 0.1);
    EXPECT_LT(heure_ - stop_, DureeRampe + Regard);
    EXPECT_GT(heure_ - stop_, DureeRampe * 0.9) << "not by the ramp";
    EXPECT_EQ(Lieu()[0], CdeZENIK->PasX);
    EXPECT_EQ(carte_->Compteurs().pasPerdus, (Axes3{0, 0, 0}));
    EXPECT_FALSE(PilMan.JogActif);
  }
  // A timer has run off.
  void Sonne(const char* nom) {
    QTimerEvent e(Timer(nom)->timerId());
    QApplication::sendEvent(Timer(nom), &e);
  }

  double heure_ = 1000, instant_ = 0, stop_ = 0;  // s; the event, the stop that the board got
  std::vector<std::pair<int, int>> sauts_;
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  std::function<void()> aChaqueTour_;
  std::unique_ptr<F_PilMan> f_;

 private:
  std::function<void(int, int)> bouge_;
};

}  // namespace essai
