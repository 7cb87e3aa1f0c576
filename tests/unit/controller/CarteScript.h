// A board that takes everything and says what a test wants it to say; the clock of the services belongs to the
// test.
#pragma once

#include <string>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "machine/TableCourante.h"
#include "tests/support/Support.h"
#include "tests/unit/controller/LiaisonScenario.h"

namespace essai {

using namespace ovelin;

inline void PoseTable(const std::string& cles) {
  OublieCles();
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\n" + cles);
  TableDefaut = "Essai";
}

// What the board says in a reply.
struct Dit {
  bool pris = true;
  std::int32_t compte = 0;
  std::uint8_t octet7 = 0, octet8 = 0, touches = 0, octet12 = 2;
  std::int32_t reste = 0;
  std::uint8_t analog1 = 0, analog2 = 0;
};

// 0.01 mm a step, start speeds 10, highest speeds 50 mm/s, multiplier 1, slope 5.
class CarteScript {
 public:
  CarteScript() {
    PoseTable(
        "TB_SAV_0=2\r\nTB_SAV_1=2\r\nTB_SAV_2=2\r\nTB_SAV_3=200\r\nTB_SAV_4=200\r\nTB_SAV_5=200\r\n"
        "Combo_SAV_12=0\r\nCombo_SAV_13=0\r\nCombo_SAV_14=0\r\nTB_SAV_12=10\r\nTB_SAV_13=10\r\nTB_SAV_14=10\r\n"
        "TB_SAV_15=50\r\nTB_SAV_16=50\r\nTB_SAV_17=50\r\nCombo_SAV_11=0\r\nSld_SAV_0=5\r\n");
    VitesseMaxX = VitesseMaxY = VitesseMaxZ = 50;
    Svc.Horloge = [this] { return heure; };
    Svc.Attend = [this](double secondes) { heure += secondes; };
    Svc.LaisseEvenements = [this](Evenements) { ++evenements; };
    s.reponse = [this](zenikcom::TamponOctets& octets) { Repond(octets); };
    cde = std::make_unique<ClsCdeZENIK>(std::make_unique<LiaisonScenario>(s));
    cde->ChargeParametres();
  }

  // A job of nothing yet, with what was sent for it forgotten.
  void Ouvre() {
    cde->EnvoiUSB();
    s.envois.clear();
  }
  // A row of 10 mm without ramp: 1,000 steps, 10,000 ticks, 1 s.
  bool Ligne(std::int32_t dX = 1000, std::int32_t dY = 0, std::int32_t dZ = 0) {
    v = 10;
    return cde->CommandeDATA(dX, dY, dZ, v, t, false);
  }
  void Demande() { cde->DemandeInformation(); }
  // Letters of what was sent, with byte 2 of each "B".
  [[nodiscard]] std::string Lettres() const {
    std::string l;
    for (const Envoi& e : s.envois) {
      l += static_cast<char>(e.octets[1]);
      if (e.octets[1] == 'B') l += std::to_string(e.octets[2]) + " ";
    }
    return l;
  }

  Scenario s;
  Dit dit;
  double heure = 100;
  int evenements = 0;
  float v = 10, t = 0;
  std::unique_ptr<ClsCdeZENIK> cde;

 private:
  void Repond(zenikcom::TamponOctets& o) const {
    if (s.resultat != zenikcom::Reussi || (o[1] != 'D' && o[1] != 'I')) return;
    o[2] = o[1] == 'D' && dit.pris ? 1 : 0;
    o[3] = 0;
    for (std::size_t i = 0; i < 3; ++i) o[4 + i] = static_cast<std::uint8_t>(dit.compte >> 8 * i & 255);
    o[7] = dit.octet7;
    o[8] = dit.octet8;
    o[9] = dit.analog1;
    o[10] = dit.analog2;
    o[11] = dit.touches;
    o[12] = dit.octet12;
    for (std::size_t i = 0; i < 4; ++i) {
      o[13 + i] = static_cast<std::uint8_t>(static_cast<std::uint32_t>(dit.reste) >> 8 * i & 255U);
    }
  }
};

}  // namespace essai
