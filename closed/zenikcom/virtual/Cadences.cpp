#include "closed/zenikcom/virtual/Cadences.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Indices.h"

namespace zenikcom {

namespace {

constexpr std::uint64_t Fraction = 0xFFFFFFFFU;

TicksQ32 Entiers(std::int64_t ticks) { return static_cast<TicksQ32>(ticks) << 32U; }

// `base` and what ticks of `duree` units add to it in `t` units, at most `limite` whole ticks.
TicksQ32 Ajoute(TicksQ32 base, std::int64_t t, std::int64_t duree, std::int64_t limite) {
  const std::int64_t entiers = t / duree;
  if (static_cast<std::int64_t>(base >> 32U) + entiers >= limite) return Entiers(limite);
  const TicksQ32 fraction = (static_cast<TicksQ32>(t % duree) << 32U) / static_cast<TicksQ32>(duree);
  return std::min(base + Entiers(entiers) + fraction, Entiers(limite));
}

// The other way: units until `tick` is done. Rounded upward, so that Ajoute finds it done at that unit.
std::int64_t Attente(TicksQ32 base, std::int64_t tick, std::int64_t duree) {
  if (Entiers(tick) <= base) return 0;
  const TicksQ32 reste = Entiers(tick) - base;
  const auto unites = static_cast<TicksQ32>(duree);
  const TicksQ32 partie = ((reste & Fraction) * unites + Fraction) >> 32U;
  return static_cast<std::int64_t>((reste >> 32U) * unites + partie);
}

}  // namespace

Cadences::Cadences(int multiplicateur, int pente)
    : multiplicateur_(std::clamp(multiplicateur, 1, 255)),
      palier_((std::int64_t{1} << (9 + std::clamp(pente, 1, 9))) * multiplicateur_) {
  const auto plein = static_cast<double>(multiplicateur_ * 10'000);
  for (int i = 0; i < NbNiveaux; ++i) {
    // Linear in frequency, from the rate whose period just fills 16 bits to the full rate.
    const double frequence = (255 - i) * 6'000'000.0 / 16'711'425 + plein / 255 * i;
    const auto indice = base::Indice(i);
    periode_[indice] = static_cast<std::int64_t>(std::nearbyint(6'000'000 / frequence));
    const auto tick = static_cast<TicksQ32>(Tick(i));
    somme_[indice + 1] = somme_[indice] + (Entiers(palier_) + tick / 2) / tick;
  }
}

Descente::Descente(const Cadences& cadences, TicksQ32 base, int haut, int bas)
    : cadences_(&cadences), base_(base), haut_(std::max(haut, 0)), bas_(std::clamp(bas, 0, haut_)) {}

// Ticks done when that many levels lie behind.
TicksQ32 Descente::Base(int marches) const {
  return base_ + cadences_->Somme(haut_ + 1) - cadences_->Somme(haut_ + 1 - marches);
}

int Descente::Niveau(std::int64_t t) const {
  return haut_ - static_cast<int>(std::min<std::int64_t>(t / cadences_->Palier(), haut_ - bas_));
}

std::int64_t Descente::JusquAuFond() const { return (haut_ - bas_) * cadences_->Palier(); }

TicksQ32 Descente::Ticks(std::int64_t t, std::int64_t limite) const {
  const int niveau = Niveau(t);
  const int marches = haut_ - niveau;
  return Ajoute(Base(marches), t - marches * cadences_->Palier(), cadences_->Tick(niveau), limite);
}

std::int64_t Descente::Temps(std::int64_t tick) const {
  int moins = 0,
      plus = haut_ - bas_;  // the tick lies behind `moins` levels or more, and not behind more than `plus`
  while (moins < plus) {
    const int milieu = (moins + plus) / 2;
    if (Base(milieu + 1) < Entiers(tick)) {
      moins = milieu + 1;
    } else {
      plus = milieu;
    }
  }
  // A level may miss its last tick by the rounding of its sum: the tick is done when the level is over.
  const std::int64_t attente = Attente(Base(moins), tick, cadences_->Tick(haut_ - moins));
  const bool derniere = moins == haut_ - bas_;
  return moins * cadences_->Palier() + (derniere ? attente : std::min(attente, cadences_->Palier()));
}

Allure::Allure(const Cadences& cadences, const Record& record)
    : cadences_(&cadences), ticks_(record.ticks), rampe_(record.rampe), depart_(record.depart) {
  if (!rampe_) return;
  sommet_ = CherchSommet(record);
  tickDescente_ = std::clamp<std::int64_t>(record.descente, 0, ticks_);
  debutDescente_ = TempsMontee(tickDescente_);
  // The tick is a whole one, so the way down may begin a hair before the top is reached: it takes the level below
  // the top all the same, or the ticks of that level would be left over for the slowest one.
  const int haut = std::min(sommet_ - 1, NiveauMontee(debutDescente_));
  descente_ = Descente(cadences, Entiers(tickDescente_), haut, record.fond);
}

// The highest level from which both ways still fit into the ticks; none: 255.
int Allure::CherchSommet(const Record& record) const {
  const Cadences& c = *cadences_;
  const auto tient = [&](int niveau) {
    const TicksQ32 monte = niveau > record.depart ? c.Somme(niveau) - c.Somme(record.depart) : 0;
    const TicksQ32 descend = niveau > record.fond ? c.Somme(niveau) - c.Somme(record.fond) : 0;
    return Entiers(ticks_) >= monte + descend;
  };
  int moins = 0, plus = NiveauPlein;  // level 0 always fits
  while (moins < plus) {
    const int milieu = (moins + plus + 1) / 2;
    if (tient(milieu)) {
      moins = milieu;
    } else {
      plus = milieu - 1;
    }
  }
  return moins > std::max(record.depart, record.fond) ? moins : NiveauPlein;
}

int Allure::NiveauMontee(std::int64_t t) const {
  return depart_ + static_cast<int>(std::min<std::int64_t>(t / cadences_->Palier(), sommet_ - depart_));
}

TicksQ32 Allure::Montee(std::int64_t t) const {
  const int niveau = NiveauMontee(t);
  const TicksQ32 base = cadences_->Somme(niveau) - cadences_->Somme(depart_);
  return Ajoute(base, t - (niveau - depart_) * cadences_->Palier(), cadences_->Tick(niveau), ticks_);
}

std::int64_t Allure::TempsMontee(std::int64_t tick) const {
  const TicksQ32 depart = cadences_->Somme(depart_);
  int moins = depart_, plus = sommet_;
  while (moins < plus) {
    const int milieu = (moins + plus) / 2;
    if (cadences_->Somme(milieu + 1) - depart < Entiers(tick)) {
      moins = milieu + 1;
    } else {
      plus = milieu;
    }
  }
  const std::int64_t attente = Attente(cadences_->Somme(moins) - depart, tick, cadences_->Tick(moins));
  return (moins - depart_) * cadences_->Palier() +
         (moins == sommet_ ? attente : std::min(attente, cadences_->Palier()));
}

TicksQ32 Allure::Ticks(std::int64_t t) const {
  if (!rampe_) return Ajoute(0, t, Cadences::TickPlein, ticks_);
  if (t < debutDescente_) return std::min(Montee(t), Entiers(tickDescente_));
  return descente_.Ticks(t - debutDescente_, ticks_);
}

std::int64_t Allure::Temps(std::int64_t tick) const {
  if (!rampe_) return tick * Cadences::TickPlein;
  if (tick <= tickDescente_) return TempsMontee(tick);
  return debutDescente_ + descente_.Temps(tick);
}

int Allure::Niveau(std::int64_t t) const {
  if (!rampe_) return NiveauPlein;
  return t < debutDescente_ ? NiveauMontee(t) : descente_.Niveau(t - debutDescente_);
}

std::int64_t Allure::DureeTick(std::int64_t t) const {
  return rampe_ ? cadences_->Tick(Niveau(t)) : Cadences::TickPlein;
}

}  // namespace zenikcom
