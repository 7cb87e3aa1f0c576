#include "controller/Module_ZENIK.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "machine/TableCourante.h"

namespace ovelin {

namespace {

constexpr double PausePas = 0.01;  // s between two looks at the flag

// Events run until the pause is over. False: a stop came, or the program is closing.
bool AttendPause() {
  while (Pause != Faux) {
    if (StopDemande != Faux || FinProgramme) return false;
    Svc.LaisseEvenements(Evenements::Tous);
    Svc.Attend(PausePas);
  }
  return true;
}

}  // namespace

bool DeplacePoint(const PointXYZ& depart, const PointXYZ& arrivee, float& V) {
  const std::array<float, 3> ecart{EnFloat(arrivee.X - depart.X), EnFloat(arrivee.Y - depart.Y),
                                   EnFloat(arrivee.Z - depart.Z)};
  const std::array<float, 3> maxi{VitesseMaxX, VitesseMaxY, VitesseMaxZ};
  const double longueur = std::hypot(double{ecart[0]}, double{ecart[1]}, double{ecart[2]});
  if (longueur == 0) return true;
  double r = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const double v = V * std::fabs(double{ecart[i]}) / longueur;
    r = std::max(r, v / std::max(double{maxi[i]}, VitesseMini));
  }
  if (r > 1) V = static_cast<float>(V / r);
  if (!AttendPause()) return false;
  float t = 0;
  return CdeZENIK->CommandeDATAmm(ecart[0], ecart[1], ecart[2], V, t);
}

void BrocheOn() {
  if (CdeZENIK->IsAvailable()) CdeZENIK->CommandePWM(1, 255);
}

void BrocheOff() {
  if (CdeZENIK->IsAvailable()) CdeZENIK->CommandePWM(0, 255);
}

void MoteurOn() {
  if (CdeZENIK->IsAvailable()) CdeZENIK->MotorOnOff(true);
}

void MoteurOff() {
  if (CdeZENIK->IsAvailable()) CdeZENIK->MotorOnOff(false);
}

}  // namespace ovelin
