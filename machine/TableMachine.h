// What a machine can do, as plain values.
#pragma once

#include <cstdint>

namespace ovelin {

// Values of a table that other folders read.
struct TableMachine {
  std::int16_t BrocheAuto = 1;    // 1: a run switches the spindle
  std::int16_t ClavierZENIK = 1;  // the board's keypad is used
  // What the boxes "Inversion sens" say, at once. Nothing turns an axis by them: a record's direction is that of
  // its steps, and the board inverts an axis by the signal of its direction output.
  std::int16_t InverseX = 1, InverseY = 0, InverseZ = 0;
  float CourseX = 1000, CourseY = 500, CourseZ = 200;              // travel, mm
  std::int32_t PasTourX = 48, PasTourY = 48, PasTourZ = 48;        // steps per turn, division included
  double TransmissionX = 1, TransmissionY = 1, TransmissionZ = 1;  // mm per turn
  float VitesseMaxX = 5, VitesseMaxY = 5, VitesseMaxZ = 5;         // mm/s with ramp
  bool operator==(const TableMachine&) const = default;
};

}  // namespace ovelin
