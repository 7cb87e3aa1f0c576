// What the tests of a stop look through: the moment at which the board gets it, and a machine that loses steps.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"

namespace essai {

// A link that tells each stop before it reaches the board.
class GuetStop : public zenikcom::Liaison {
 public:
  GuetStop(std::unique_ptr<zenikcom::Liaison> vers, std::function<void()> aLArret)
      : vers_(std::move(vers)), aLArret_(std::move(aLArret)) {}
  std::int32_t EstConnectee() override { return vers_->EstConnectee(); }
  std::int32_t Envoie(zenikcom::TamponOctets& tampon, std::int32_t& mode) override {
    constexpr std::uint8_t Question = 3;
    if (tampon[1] == 'S' && tampon[2] != Question) aLArret_();
    return vers_->Envoie(tampon, mode);
  }
  void Ferme() override { vers_->Ferme(); }

 private:
  std::unique_ptr<zenikcom::Liaison> vers_;
  std::function<void()> aLArret_;
};

inline constexpr double Regard = 0.02;  // s between two looks at a board that stops
// A ramp from the highest to the start speed: the board's 255 levels are even steps of its rate, 16,384 counts of
// its 12 MHz each, and the stop goes down to the level where no axis needs a ramp, a fifth of the rate at 20 and 4
// mm/s.
inline constexpr double DureeRampe = 255 * (1 - 4.0 / 20) * 16'384 / 12e6;  // s

// A machine of 100, 50 and 200 steps a mm that can start at 4.4 mm/s and not much above: at 20 mm/s, where a step
// takes half a millisecond, its rate may change by 1 mm/s from one to the next. The ramp goes by whole periods of
// the board's rate, so by jumps.
inline zenikcom::ModeleMachine MachineJog() {
  return {zenikcom::ModeleAxe{.vitesseLibre = 440, .rampe = 200'000, .jeu = 0},
          zenikcom::ModeleAxe{.vitesseLibre = 220, .rampe = 100'000, .jeu = 0},
          zenikcom::ModeleAxe{.vitesseLibre = 880, .rampe = 400'000, .jeu = 0}};
}

}  // namespace essai
