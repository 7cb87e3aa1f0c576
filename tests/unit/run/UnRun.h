// Whole runs on the virtual board. The clock is the test's: waiting lets it go on, and the board runs by it to the
// tick.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/Nombres.h"
#include "core/RunCourant.h"
#include "run/Module_Decoupe.h"
#include "run/Module_Lancement.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {

using zenikcom::Axes3;
using zenikcom::CarteVirtuelle;

// A square of 10 mm and an open line, 1 mm deep in two passes: some 30 rows.
class UnRun : public testing::Test {
 protected:
  UnRun() {
    Branche();
    Svc.Horloge = [this] { return heure_; };
    Svc.Attend = [this](double s) { heure_ += s; };
    Svc.LaisseEvenements = [this](Evenements mode) {
      if (mode != Evenements::Tous) return;
      heure_ += pas_;  // whoever waits for the board by its events alone, too
      if (aChaqueTour_) aChaqueTour_();
    };
    EcritFichierEssai(
        "OVELIN.ini",
        "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_30=30\r\nTB_SAV_31=80\r\nCB_SAV_16=1\r\n"
        "TB_SAV_12=4\r\nTB_SAV_13=4\r\nTB_SAV_14=4\r\nTB_SAV_15=20\r\nTB_SAV_16=20\r\nTB_SAV_17=8\r\n");
    OublieCles();
    TableDefaut = "Essai";
    HautDeg = 3;
    ProfPasse = -0.5;
    ProfFraisage = -1;
    Vitesse_Mat_H = 3;
    Vitesse_Mat_V = 2;
    AjouteTrajet(" A", -1, {{2, 3}, {2, 13}, {12, 13}, {12, 3}, {2, 3}});
    AjouteTrajet(" B", -1, {{20, 3}, {26, 9}});
  }
  ~UnRun() override { CdeZENIK = std::make_unique<ClsCdeZENIK>(); }

  void Branche() {
    zenikcom::ConditionsCarte c;
    c.horloge = [this] { return static_cast<std::int64_t>(heure_ * 1e9); };
    c.attend = [this](std::int64_t ns) { heure_ += static_cast<double>(ns) * 1e-9; };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
  }
  [[nodiscard]] Axes3 Pas() const { return carte_->Compteurs().pas; }
  // What the class believes.
  static Axes3 Compte() { return {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ}; }
  bool Lance(std::uint8_t mode = EnvoiDirect) {
    std::string vitesse = TexteNombre(Vitesse_Mat_H);
    return LanceFraisage(vitesse, mode);
  }
  // Sum of the steps of the table in force, and its lowest place.
  static Axes3 Somme() {
    Axes3 s{};
    for (std::int32_t i = 1; i <= NbDeplacements; ++i) {
      s[0] += Ligne(i).dX;
      s[1] += Ligne(i).dY;
      s[2] += Ligne(i).dZ;
    }
    return s;
  }
  // Stops once the board has been running that long.
  void StoppeApres(double secondes, Drapeau rampe) {
    const double fin = heure_ + secondes;
    aChaqueTour_ = [this, fin, rampe] {
      if (heure_ < fin || !RunActif || StopDemande != Faux) return;
      StopDemande = Vrai;
      ArretRampe = rampe;
    };
  }

  double heure_ = 1000;
  double pas_ = 0.0005;  // s that a look at the events takes
  std::shared_ptr<CarteVirtuelle> carte_;
  std::function<void()> aChaqueTour_;
};

}  // namespace essai
