// Procedures around the board that any window may call; each goes through the one board object.
#pragma once

namespace ovelin {

// mm
struct PointXYZ {
  double X = 0, Y = 0, Z = 0;
  bool operator==(const PointXYZ&) const = default;
};

// One straight move from `depart` to `arrivee` at `V` mm/s, which is lowered to what the axes can do; into the job
// that is open. Waits while Pause is set. True: accepted, or there is no way to go. False: the board's buffer is
// full, and the caller repeats it; or a stop came during the pause, or TravailIncertain is set: then never again.
bool DeplacePoint(const PointXYZ& depart, const PointXYZ& arrivee, float& V);

// Spindle and motors; nothing without a board.
void BrocheOn();
void BrocheOff();
void MoteurOn();
void MoteurOff();

}  // namespace ovelin
