// A virtual board as fast as it can, and a table that agrees with it, for programs that are run.
#pragma once

#include <array>
#include <cmath>
#include <memory>
#include <string>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "gcode/Module_FraisageGcode.h"
#include "gcode/Module_Gcode.h"
#include "machine/TableCourante.h"
#include "tests/support/Support.h"

namespace essai {

using namespace ovelin;

// Lines of `n` moves of a millimetre each along X.
inline std::string Moves(int n, int premier = 1) {
  std::string texte;
  for (int i = premier; i < premier + n; ++i) texte += "X" + std::to_string(i) + "\n";
  return texte;
}

class FraisageGcode : public testing::Test {
 protected:
  FraisageGcode() {
    // Without these two keys the board's table never agrees with that of the settings, and a question comes.
    EcrireCleSection("table_" + TableDefaut, "TB_SAV_30", "5");
    EcrireCleSection("table_" + TableDefaut, "TB_SAV_31", "5");
    Svc.Horloge = [this] { return temps_; };
    Svc.Attend = [this](double s) { temps_ += s; };
    Branche();
    CdeZENIK->ChargeParametres();
  }
  ~FraisageGcode() override { CdeZENIK = std::make_unique<ClsCdeZENIK>(); }

  void Branche() {
    zenikcom::ConditionsCarte conditions;
    conditions.rapide = true;
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(conditions));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
  }
  IssueGcode Lance(const std::string& texte) {
    programme_ = Programme(texte);
    mesure_ = MesureDe(programme_, {}, false);
    return LanceGcode(programme_, mesure_);
  }
  // Where the machine stands, mm.
  [[nodiscard]] std::array<double, 3> Place() const {
    const zenikcom::Axes3 pas = carte_->Lieu();
    return {static_cast<double>(pas[0]) * CdeZENIK->MmParPasX(),
            static_cast<double>(pas[1]) * CdeZENIK->MmParPasY(),
            static_cast<double>(pas[2]) * CdeZENIK->MmParPasZ()};
  }
  void AttendPlace(double x, double y, double z) const {
    const auto p = Place();
    EXPECT_NEAR(p[0], x, CdeZENIK->MmParPasX() / 2 + 1e-9);
    EXPECT_NEAR(p[1], y, CdeZENIK->MmParPasY() / 2 + 1e-9);
    EXPECT_NEAR(p[2], z, CdeZENIK->MmParPasZ() / 2 + 1e-9);
  }

  double temps_ = 0;  // s; it passes when somebody waits
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  Programme programme_;
  MesureProgramme mesure_;
};

}  // namespace essai
