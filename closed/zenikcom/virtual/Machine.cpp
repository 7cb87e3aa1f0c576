#include "closed/zenikcom/virtual/Machine.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace zenikcom {

namespace {
constexpr std::size_t PointsMaxi = 4'000'000;
}

bool SuiviAxe::Front(const ModeleAxe& modele, double t, double tick, int sens) {
  const double libre = modele.vitesseLibre;
  double mini = 0, maxi = libre;  // the first edge of all says nothing yet about the rate
  if (!arrete_) {
    const double duree = std::max(t - dernier_, 0.0);
    const double changement = std::max(modele.rampe, 0.0) * duree;
    double atteintMini = mini_ - changement, atteintMaxi = maxi_ + changement;
    // Within the free speed an axis takes any rate at any moment, so who reaches that band has all of it.
    if (atteintMini <= libre && atteintMaxi >= -libre) {
      atteintMini = std::min(atteintMini, -libre - changement);
      atteintMaxi = std::max(atteintMaxi, libre + changement);
    }
    const double lent = 1 / (duree + tick);
    const double vite = duree > tick ? 1 / (duree - tick) : std::numeric_limits<double>::infinity();
    mini = std::max(atteintMini, sens > 0 ? lent : -vite);
    maxi = std::min(atteintMaxi, sens > 0 ? vite : -lent);
    if (mini > maxi) return false;
  } else if (sens < 0) {
    mini = -libre;
    maxi = 0;
  }
  arrete_ = false;
  dernier_ = t;
  mini_ = mini;
  maxi_ = maxi;
  return true;
}

void Machine::Modele(const ModeleMachine& modele) {
  modele_ = modele;
  for (std::size_t axe = 0; axe < 3; ++axe) {
    modele_[axe].jeu = std::max<std::int64_t>(modele_[axe].jeu, 0);
    reste_[axe] = std::min(reste_[axe], modele_[axe].jeu);
  }
  suivi_ = {};
}

void Machine::Bouge(std::size_t axe, int sens, std::int64_t fronts) {
  if (fronts <= 0) return;
  // What was not yet taken up on one side need not be taken up on the other.
  if (sens_[axe] == -sens) reste_[axe] = modele_[axe].jeu - reste_[axe];
  sens_[axe] = sens;
  const std::int64_t pris = std::min(fronts, reste_[axe]);
  reste_[axe] -= pris;
  lieu_[axe] += sens * (fronts - pris);
}

void Machine::Avance(std::size_t axe, int sens, std::int64_t fronts) {
  pas_[axe] += sens * fronts;
  Bouge(axe, sens, fronts);
}

void Machine::Front(std::size_t axe, int sens, double t, double tick) {
  pas_[axe] += sens;
  if (suivi_[axe].Front(modele_[axe], t, tick, sens)) {
    Bouge(axe, sens, 1);
  } else {
    ++perdus_[axe];
  }
}

void Machine::Perd(std::size_t axe, int sens, std::int64_t fronts) {
  pas_[axe] += sens * fronts;
  perdus_[axe] += fronts;
}

void Machine::Place(const Axes3& lieu) {
  lieu_ = lieu;
  parcours_.assign(1, lieu);
}

void Machine::Jalon() {
  if (parcours_.back() == lieu_) return;
  if (parcours_.size() >= PointsMaxi) {
    for (std::size_t i = 0; 2 * i < parcours_.size(); ++i) parcours_[i] = parcours_[2 * i];
    parcours_.resize((parcours_.size() + 1) / 2);
  }
  parcours_.push_back(lieu_);
}

std::vector<Axes3> Machine::Parcours() const {
  std::vector<Axes3> points = parcours_;
  if (points.back() != lieu_) points.push_back(lieu_);
  return points;
}

}  // namespace zenikcom
