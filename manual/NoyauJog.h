// A move by hand as straight moves, and the texts that the window shows of it. Values in, values out: mm, mm/s, s.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "manual/Touches.h"

namespace ovelin {

// The modes of a jog (`Pas`).
inline constexpr std::int16_t PasValeurs = 0, PasContinu = 1, PasDernier = 4;
inline constexpr double DistanceContinue = 2000;  // mm: further than a machine reaches

// How far a key moves each axis in that mode; the typed distances in mode 0.
std::array<double, 3> DistancesDe(std::int16_t pas, const std::array<double, 3>& valeurs);

struct ParametresJog {
  SensJog sens{};
  std::array<double, 3> distances{};    // mm; a typed one may be negative
  double vitesse = 0;                   // mm/s, as it is set
  bool lent = false, rapide = false;    // the modifiers; the fast one wins
  bool inverseY = false;                // the machine is drawn the other way round
  std::array<double, 3> maxi{1, 1, 1};  // mm/s that each axis can do
  bool doux = false;                    // a gentle start, for the board's keypad
  double dureeRecord = 1e9;             // s that one motion record holds
};

struct SegmentJog {
  std::array<double, 3> mm{};
  double vitesse = 0;  // mm/s
};
struct Jog {
  std::vector<SegmentJog> segments;  // empty: nothing moves
  double vitesse = 0;                // mm/s, of the move itself
};
// A gentle start is a twentieth of the speed for two seconds, then a fifth for two seconds, both cut to the way
// that there is. A segment that would last longer than a record holds is divided.
Jog CalculeJog(const ParametresJog& p);

// The speed with its modifier, not yet that of any axis.
double VitesseModifiee(double vitesse, bool lent, bool rapide);

std::string TexteVitesseJog(double vitesse);  // "4.0 mm/s"
std::string TextePosition(double mm);         // two decimals below 10, one from 10 on
// What the status line says of a mode.
std::string TexteMode(std::int16_t pas, const std::array<double, 3>& valeurs);

}  // namespace ovelin
