#include "closed/zenikcom/virtual/Programmateur.h"

#include <algorithm>

namespace zenikcom {

namespace {

constexpr std::uint16_t Uns = 0x3FFF;
// 113: 16F877A in the upper bits, revision 5 in the low five.
constexpr std::uint16_t Identite = 113 * 32 + 5;
enum Code : std::uint8_t {
  ChargeConfiguration = 0,
  Effacement1 = 1,
  ChargeProgramme = 2,
  ChargeDonnees = 3,
  LitProgramme = 4,
  LitDonnees = 5,
  Increment = 6,
  Effacement2 = 7,
  GraveEtEfface = 8,
  Grave = 24,
};

}  // namespace

Programmateur::Programmateur() : programme_(DebutConfiguration, Uns) {
  configuration_.fill(Uns);
  configuration_[MotIdentite - DebutConfiguration] = Identite;
  donnees_.fill(255);
}

void Programmateur::Entre() {
  mode_ = true;
  compteur_ = 0;
  premierPas_ = effacement_ = false;
}

void Programmateur::Sort() { mode_ = false; }

std::uint16_t Programmateur::Programme() const {
  if (!EnConfiguration()) return programme_[compteur_];
  return compteur_ < FinConfiguration ? configuration_[compteur_ - DebutConfiguration] : Uns;
}

void Programmateur::Commande(std::uint8_t code) {
  if (!mode_) return;
  switch (code) {
    case Increment:
      // The counter only goes up, and comes round within the half in which it is.
      ++compteur_;
      if (compteur_ == DebutConfiguration) compteur_ = 0;
      if (compteur_ == 2 * DebutConfiguration) compteur_ = DebutConfiguration;
      break;
    case Effacement1:
      premierPas_ = true;
      break;
    case Effacement2:
      if (premierPas_) effacement_ = !effacement_;
      premierPas_ = false;
      break;
    case GraveEtEfface:
    case Grave:
      Graver(code == GraveEtEfface);
      break;
    default:
      break;
  }
}

// Between the two pairs of the erase sequence the whole memory goes, else one cell; without erasing only bits that
// are 1 can change.
void Programmateur::Graver(bool efface) {
  if (effacement_) {
    if (efface && chargeDonnees_) donnees_.fill(255);
    if (efface && !chargeDonnees_) std::fill(programme_.begin(), programme_.end(), Uns);
    return;
  }
  if (chargeDonnees_) {
    std::uint8_t& cellule = donnees_[compteur_ % donnees_.size()];
    cellule = static_cast<std::uint8_t>(efface ? charge_ : charge_ & cellule);
  } else if (!EnConfiguration()) {
    std::uint16_t& mot = programme_[compteur_];
    mot = efface ? charge_ : static_cast<std::uint16_t>(charge_ & mot);
  } else if (compteur_ < FinConfiguration && compteur_ != MotIdentite) {
    configuration_[compteur_ - DebutConfiguration] = charge_;
  }
}

void Programmateur::CommandeAvecMot(std::uint8_t code, std::uint16_t mot) {
  if (!mode_) return;
  if (code == ChargeConfiguration) compteur_ = DebutConfiguration;
  if (code != ChargeConfiguration && code != ChargeProgramme && code != ChargeDonnees) return;
  charge_ = mot & Uns;
  chargeDonnees_ = code == ChargeDonnees;
}

std::uint16_t Programmateur::CommandeLit(std::uint8_t code) const {
  if (!mode_) return Uns;
  if (code == LitProgramme) return Programme();
  if (code == LitDonnees) return donnees_[compteur_ % donnees_.size()];
  return Uns;
}

}  // namespace zenikcom
