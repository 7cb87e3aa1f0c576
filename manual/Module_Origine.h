// Zero here, back to zero, to a point of the drawing.
#pragma once

namespace ovelin {

struct AxesChoisis {
  bool X = false, Y = false, Z = false;
};

// `Btn_OKOrigine`: the present place is zero on these axes. Only the counters of the program change; nothing moves,
// the board is not told. While it moves there is no present place: a beep.
void FixeOrigine(const AxesChoisis& axes);

// `Btn_OKR_Origine`: up to HautDeg, straight to zero on the chosen axes of the plane, and down: to zero with Z,
// otherwise to the height that it came from. At the speed of the jog, or at that of the table. Returns when it has
// ended. False: no board, or it is not free.
bool RetourOrigine(const AxesChoisis& axes, bool vitesseTable);

// `CB_Goto`: up to HautDeg and straight to that point, mm, at the speed of the jog. Returns when it has ended.
// False: no board (told), or it is not free (beep).
bool VaAuPoint(double x, double y);

}  // namespace ovelin
