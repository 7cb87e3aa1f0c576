// A machine on the virtual board, as fast as it can or by the test's own clock.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "tests/support/Support.h"

namespace essai {

using namespace ovelin;

class BancEssai : public testing::Test {
 protected:
  BancEssai() {
    Svc.Horloge = [this] { return heure_; };
    Svc.Attend = [this](double s) { heure_ += s; };
    Svc.LaisseEvenements = [this](Evenements) {
      heure_ += 0.0005;
      if (aChaqueTour_) aChaqueTour_();
    };
    PoseTable("");
    Branche(true);
  }
  ~BancEssai() override { CdeZENIK = std::make_unique<ClsCdeZENIK>(); }

  // A hundred steps a millimetre without division; the keys that the board's writer and its check read alike.
  static void PoseTable(const std::string& lignes) {
    OublieCles();
    EcritFichierEssai(
        "OVELIN.ini",
        "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_30=30\r\nTB_SAV_31=80\r\nTB_SAV_3=100\r\n"
        "TB_SAV_4=100\r\nTB_SAV_5=100\r\nCombo_SAV_12=0\r\nCombo_SAV_13=0\r\nCombo_SAV_14=0\r\n"
        "TB_SAV_12=4\r\nTB_SAV_13=4\r\nTB_SAV_14=4\r\nTB_SAV_15=60\r\nTB_SAV_16=60\r\nTB_SAV_17=60\r\n" +
            lignes);
    TableDefaut = "Essai";
    ChargeGlobalesTable();
  }
  // A key of the table in force, from the next board on.
  static void Regle(const std::string& cle, const std::string& valeur) {
    EcrireCleSection("table_Essai", cle, valeur);
    ChargeGlobalesTable();
  }
  void Branche(bool rapide) {
    zenikcom::ConditionsCarte c;
    c.rapide = rapide;
    c.horloge = [this] { return static_cast<std::int64_t>(heure_ * 1e9); };
    c.attend = [this](std::int64_t ns) { heure_ += static_cast<double>(ns) * 1e-9; };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
    CdeZENIK->TableVerif();
  }
  static zenikcom::Axes3 Compte() { return {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ}; }
  void Modele(std::size_t axe, zenikcom::ModeleAxe modele) const {
    zenikcom::ModeleMachine m{};
    m[axe] = modele;
    carte_->Modele(m);
  }

  double heure_ = 0;  // s; it passes when somebody waits
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  std::function<void()> aChaqueTour_;  // whenever events run
};

}  // namespace essai
