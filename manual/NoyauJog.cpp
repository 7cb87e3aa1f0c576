#include "manual/NoyauJog.h"

#include <algorithm>
#include <cmath>

#include "core/Nombres.h"

namespace ovelin {

namespace {

constexpr double Lenteur = 20, Hate = 2;
constexpr double DureeDouce = 2;  // s of each part of a gentle start

double Longueur(const std::array<double, 3>& mm) { return std::hypot(mm[0], mm[1], mm[2]); }

// Part `de` to `a` of the way, mm along it, divided where a record would not hold it.
void Ajoute(Jog& jog, const std::array<double, 3>& chemin, double de, double a, double vitesse, double duree) {
  const double longueur = Longueur(chemin);
  if (a <= de) return;
  const int parts = std::max(1, static_cast<int>(std::ceil((a - de) / vitesse / duree)));
  SegmentJog segment;
  segment.vitesse = vitesse;
  for (std::size_t i = 0; i < 3; ++i) segment.mm[i] = chemin[i] / longueur * (a - de) / parts;
  jog.segments.insert(jog.segments.end(), static_cast<std::size_t>(parts), segment);
}

}  // namespace

std::array<double, 3> DistancesDe(std::int16_t pas, const std::array<double, 3>& valeurs) {
  if (pas == PasValeurs) return valeurs;
  constexpr std::array<double, 5> Distances{0, DistanceContinue, 10, 1, 0.1};
  const double d = Distances[static_cast<std::size_t>(std::clamp(pas, PasContinu, PasDernier))];
  return {d, d, d};
}

double VitesseModifiee(double vitesse, bool lent, bool rapide) {
  if (rapide) return vitesse * Hate;
  return lent ? vitesse / Lenteur : vitesse;
}

Jog CalculeJog(const ParametresJog& p) {
  std::array<double, 3> chemin{};
  for (std::size_t i = 0; i < 3; ++i) chemin[i] = p.sens[i] * p.distances[i];
  if (p.inverseY) chemin[1] = -chemin[1];
  Jog jog;
  const double longueur = Longueur(chemin);
  if (!(longueur > 0)) return jog;
  jog.vitesse = VitesseModifiee(p.vitesse, p.lent, p.rapide);
  for (std::size_t i = 0; i < 3; ++i) {
    if (chemin[i] != 0) jog.vitesse = std::min(jog.vitesse, p.maxi[i]);
  }
  if (!(jog.vitesse > 0)) return jog;
  double fait = 0;
  if (p.doux) {
    for (const double part : {20.0, 5.0}) {
      const double jusque = std::min(longueur, fait + DureeDouce * jog.vitesse / part);
      Ajoute(jog, chemin, fait, jusque, jog.vitesse / part, p.dureeRecord);
      fait = jusque;
    }
  }
  Ajoute(jog, chemin, fait, longueur, jog.vitesse, p.dureeRecord);
  return jog;
}

std::string TexteVitesseJog(double vitesse) { return Formate(vitesse, "0.0##") + " mm/s"; }

std::string TextePosition(double mm) { return Formate(mm, std::fabs(mm) < 10 ? "0.00" : "0.0"); }

std::string TexteMode(std::int16_t pas, const std::array<double, 3>& valeurs) {
  if (pas == PasContinu) return "...";
  if (pas != PasValeurs) return " = " + TexteNombre(DistancesDe(pas, valeurs)[0]) + " mm";
  const auto axe = [](const char* nom, double v) { return nom + TexteNombre(EnFloat(v)) + " mm"; };
  return axe("X=", valeurs[0]) + axe(" Y=", valeurs[1]) + axe(" Z=", valeurs[2]);
}

}  // namespace ovelin
