// A virtual board under the test's own clock, with a table whose axes differ: 100, 50 and 200 steps a mm.
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "manual/Module_PilMan.h"
#include "manual/Module_PlaceMan.h"
#include "manual/Touches.h"
#include "tests/support/MachineJog.h"
#include "tests/support/Support.h"

namespace essai {

using namespace ovelin;
using zenikcom::Axes3;

class CarteMain : public testing::Test {
 protected:
  CarteMain() {
    Svc.Horloge = [this] { return heure_; };
    Svc.Attend = [this](double s) { heure_ += s; };
    Svc.LaisseEvenements = [this](Evenements mode) {
      if (mode != Evenements::Tous) return;
      heure_ += 0.0005;
      if (aChaqueTour_) aChaqueTour_();
    };
    TableDefaut = "Essai";
    EcritTable("");
    Branche();
    Svc.Pilotage = [](DemandePilotage demande) { SuitPilotage(demande); };
  }
  ~CarteMain() override { CdeZENIK = std::make_unique<ClsCdeZENIK>(); }

  // The machine's table, with `plus` behind its keys.
  static void EcritTable(const std::string& plus, const std::string& reglages = "") {
    EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=Essai\r\n" + reglages +
                                        "[table_Essai]\r\nTB_SAV_0=2\r\nTB_SAV_1=4\r\nTB_SAV_2=1\r\n"
                                        "TB_SAV_3=200\r\nTB_SAV_4=200\r\nTB_SAV_5=200\r\nCombo_SAV_12=0\r\n"
                                        "Combo_SAV_13=0\r\nCombo_SAV_14=0\r\nTB_SAV_12=4\r\nTB_SAV_13=4\r\n"
                                        "TB_SAV_14=4\r\nTB_SAV_15=20\r\nTB_SAV_16=16\r\nTB_SAV_17=8\r\n"
                                        "TB_SAV_30=30\r\nTB_SAV_31=80\r\nCB_SAV_16=1\r\n" +
                                        plus);
    OublieCles();
    ChargeGlobalesTable();
    if (CdeZENIK) CdeZENIK->ChargeParametres();
  }
  void Branche() {
    zenikcom::ConditionsCarte c;
    c.horloge = [this] { return std::llround(heure_ * 1e9); };
    c.attend = [this](std::int64_t ns) { heure_ += static_cast<double>(ns) * 1e-9; };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(std::make_unique<GuetStop>(zenikcom::LiaisonVirtuelle(carte_), [this] {
      stop_ = heure_;
      lieuStop_ = Lieu();
    }));
    CdeZENIK->ChargeParametres();
  }

  [[nodiscard]] Axes3 Lieu() const { return carte_->Lieu(); }
  static Axes3 Compte() { return {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ}; }
  static void Mode(int touche) {
    Form_KeyDown(touche, false, false);
    Form_KeyUp(touche);
  }
  static EffetTouche Appuie(int code, bool shift = false, bool ctrl = false) {
    return Form_KeyDown(code, shift, ctrl);
  }
  // Lets time go on as a timer of the window does.
  void Passe(double secondes) { heure_ += secondes; }
  // Does `quoi` once, that long after the machine has begun to move.
  void Apres(double secondes, std::function<void()> quoi) {
    aChaqueTour_ = [this, secondes, quoi = std::move(quoi), depart = -1.0, fait = false]() mutable {
      if (depart < 0 && carte_->Compteurs().ticks > 0) depart = heure_;
      if (fait || depart < 0 || heure_ - depart < secondes) return;
      fait = true;
      instant_ = heure_;
      quoi();
    };
  }

  double heure_ = 1000;  // s
  double instant_ = 0;   // s, when what `Apres` does was done
  double stop_ = 0;      // s, when the board got its last stop
  Axes3 lieuStop_{};     // where the machine was then
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  std::function<void()> aChaqueTour_;
};

}  // namespace essai
