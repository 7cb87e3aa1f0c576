#include "controller/Mouvement.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "base/Indices.h"
#include "controller/ParametresZENIK.h"
#include "core/Nombres.h"

namespace ovelin {

namespace {

constexpr double TicksMaxi = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t FrontsMaxi = std::numeric_limits<std::int32_t>::max() - 1;
constexpr double HorlogePalier = 12'000'000, HorlogePeriode = 6'000'000;  // Hz

float VitesseValable(float v) {
  const auto mini = static_cast<float>(VitesseMini);
  const auto maxi = static_cast<float>(VitesseMaxi);
  return v >= mini ? std::min(v, maxi) : mini;  // what is no number is slow
}

void Pose32(zenikcom::TamponOctets& t, std::size_t i, std::int32_t valeur) {
  for (std::size_t n = 0; n < 4; ++n) {
    t[i + n] = static_cast<std::uint8_t>(static_cast<std::uint32_t>(valeur) >> 8 * n & 0xFFU);
  }
}

}  // namespace

CalculMouvement::CalculMouvement(int multiplicateur, std::int32_t tempsPalier)
    : multiplicateur_(multiplicateur),
      tempsPalier_(tempsPalier),
      table_(CalculTableFreq(multiplicateur, tempsPalier)) {}

int CalculMouvement::PalierDe(double rapport) const {
  const double cherchee = std::ceil(rapport * 600 / multiplicateur_);
  const auto i = std::partition_point(table_.begin(), table_.end(),
                                      [cherchee](const NiveauFreq& n) { return n.Periode > cherchee; });
  return std::max(static_cast<int>(i - table_.begin()) - 1, 0);
}

const CalculMouvement::Sommes& CalculMouvement::SommesDe(int depart) {
  std::int16_t& rang = rang_[base::Indice(depart)];
  if (rang == 0) {
    Sommes& sommes = sommes_.emplace_back();
    for (auto i = base::Indice(depart) + 1; i < sommes.size(); ++i) {
      sommes[i] = sommes[i - 1] + table_[i - 1].Duree;
    }
    rang = static_cast<std::int16_t>(sommes_.size());
  }
  return sommes_[base::Indice(rang) - 1];
}

// Up from N as high as both ways fit into the ticks, and down again. Where not even one level fits, the top is the
// full rate and the plateau negative; the board runs such a row on its first level.
void CalculMouvement::Rampe(Mouvement& m, double rapport) {
  m.rampe = true;
  m.N = PalierDe(rapport);
  const Sommes& sommes = SommesDe(m.N);
  const double ticks = m.Ticks;
  const auto depart = sommes.begin() + m.N + 1;
  const auto trop = std::partition_point(depart, sommes.end(), [ticks](double s) { return ticks - s - s >= 0; });
  m.P = trop == depart ? PalierPlein : static_cast<int>(trop - sommes.begin()) - 1;
  const double somme = sommes[base::Indice(m.P)];
  const double pente = (m.P - m.N) * static_cast<double>(tempsPalier_) / HorlogePalier;
  const double plat = (ticks - somme - somme) * table_[base::Indice(m.P)].Periode / HorlogePeriode;
  m.Descente = Arrondi32(ticks - somme);
  m.T = pente + pente + plat;
}

Mouvement CalculMouvement::Calcule(const LimitesAxes& axes, const std::array<std::int32_t, 3>& pas, float v) {
  Mouvement m;
  m.pas = pas;
  m.V = VitesseValable(v);
  m.vitesseTenue = m.V != v;
  std::array<double, 3> longueurs{};
  for (std::size_t i = 0; i < 3; ++i) {
    longueurs[i] = std::fabs(static_cast<double>(pas[i])) * std::fabs(axes.MmParPas[i]);
  }
  const double l =
      std::sqrt(longueurs[0] * longueurs[0] + longueurs[1] * longueurs[1] + longueurs[2] * longueurs[2]);
  double r = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    r = std::max(r, m.V * longueurs[i] / l / axes.VitesseMax[i]);
  }
  if (r > 1) m.V = static_cast<float>(m.V / r);
  const auto vitesse = double{m.V};
  const double temps = l / vitesse;
  m.Ticks = static_cast<std::int32_t>(std::min(TicksMaxi, std::ceil(temps * multiplicateur_ * 10'000)));
  // The speed along the path stands in each quotient, not that of the axis: on a diagonal the ramp begins lower.
  double rapport = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    if (pas[i] != 0) rapport = std::max(rapport, vitesse / axes.VitesseDepart[i]);
  }
  m.T = temps;
  if (rapport > 1) Rampe(m, rapport);
  return m;
}

void ComposeRecord(const Mouvement& m, zenikcom::TamponOctets& tampon) {
  std::fill(tampon.begin(), tampon.begin() + 33, std::uint8_t{0});
  tampon[1] = 'D';
  tampon[2] = m.rampe ? DrapeauRampe : std::uint8_t{0};
  for (std::size_t i = 0; i < 3; ++i) {
    if (m.pas[i] >= 0) tampon[2] = static_cast<std::uint8_t>(tampon[2] | 1U << i);
    const std::int64_t fronts = 2 * std::abs(std::int64_t{m.pas[i]});
    Pose32(tampon, 7 + 4 * i, static_cast<std::int32_t>(std::min(fronts, FrontsMaxi)));
  }
  Pose32(tampon, 3, m.Ticks);
  if (!m.rampe) return;
  tampon[27] = tampon[28] = static_cast<std::uint8_t>(m.N);
  Pose32(tampon, 29, m.Descente);
}

}  // namespace ovelin
