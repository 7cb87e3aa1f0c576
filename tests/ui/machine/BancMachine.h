// The windows of the machine over a virtual board, by the test's own clock or as fast as it can.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <memory>
#include <string>

#include "closed/CarteVirtuelle.h"
#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/ui/Fenetres.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "tests/ui/support/SupportUi.h"

namespace essai {

using namespace ovelin;

class BancMachine : public testing::Test {
 protected:
  BancMachine() {
    Svc.Horloge = [this] { return heure_; };
    Svc.Attend = [this](double s) { heure_ += s; };
    Svc.LaisseEvenements = [this](ovelin::Evenements) {
      heure_ += 0.0005;
      if (aChaqueTour_) aChaqueTour_();
    };
    OublieCles();
    EcritFichierEssai(
        "OVELIN.ini",
        "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_30=30\r\nTB_SAV_31=80\r\nTB_SAV_3=100\r\n"
        "TB_SAV_4=100\r\nTB_SAV_5=100\r\nCombo_SAV_0=1\r\nCombo_SAV_12=0\r\nCombo_SAV_13=0\r\n"
        "Combo_SAV_14=0\r\nTB_SAV_12=4\r\nTB_SAV_13=4\r\nTB_SAV_14=4\r\nTB_SAV_15=20\r\nTB_SAV_16=20\r\n"
        "CB_SAV_16=1\r\nTB_SAV_17=20\r\n[table_Autre]\r\nTB_SAV_18=321\r\n");
    TableDefaut = "Essai";
    ChargeGlobalesTable();
    Branche(true);
  }
  ~BancMachine() override {
    CdeZENIK = std::make_unique<ClsCdeZENIK>();
    OuvreFenetre = nullptr;
    FenetreExiste = nullptr;
  }

  void Branche(bool rapide) {
    zenikcom::ConditionsCarte c;
    c.rapide = rapide;
    c.horloge = [this] { return static_cast<std::int64_t>(heure_ * 1e9); };
    c.attend = [this](std::int64_t ns) { heure_ += static_cast<double>(ns) * 1e-9; };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    LaCarte = {GenreCarte::Virtuelle, carte_, ""};
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
    CdeZENIK->TableVerif();
  }
  static std::string Cle(const std::string& table, const std::string& cle) {
    OublieCles();
    return LireCleSection("table_" + table, cle, "");
  }

  double heure_ = 0;  // s
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  std::function<void()> aChaqueTour_;  // whenever the procedures let events run
};

}  // namespace essai
