// What the fields and buttons of the panel do with their texts: displacement, sizes, angle, position, depth. Texts
// come and go as they stand in the fields, with either decimal mark in and the user's out.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/Document.h"
#include "core/Gestes.h"
#include "workspace/Module_Dimension.h"

namespace ovelin {

// What a field shows behind an entry. `fait`: it was taken over.
struct ChampEntre {
  bool fait = false;
  std::string texte;
};

// --- FRAME1_DEPLACEMENT: TB_X (direction 1) and TB_Y (direction 3), mm

// One decimal; more of them only for a value that has them, so that the field never shows another displacement
// than the one that was made.
std::string TexteDeplacement(double mm);
// The arrow buttons and the scroll bars: `pas` mm on top of the text in the field. A refused move leaves the text.
ChampEntre AjouteDeplacement(Direction direction, const std::string& texte, double pas);
// The field is left: what the text differs from the one on entry is the move. A difference of 0 is a move as well.
ChampEntre EntreDeplacement(Direction direction, const std::string& entree, const std::string& texte);

// --- FRAME1_GEOMETRIE

// Turns the selection about its centre: index 0 by the angle (degrees), 1 by its negative. False for what is no
// number, or a refused turn.
bool CB_Rotation(int index, const std::string& angle);
bool CB_Miroir(int index);  // 0: left and right exchanged, 1: top and bottom

// --- FRAME1_DIMENSIONS

// The size fields of a panel that has been filled: sizes and ratios as their texts say.
ChampsDimension TaillesPanneau(const std::array<std::string, 2>& TB_Initial, bool proportions);
// A size as the fields beside it show theirs: as short as it goes, to the micrometre.
std::string TexteResultat(double mm);
// CB_OK_Dimension with the ratios of the fields.
bool CB_OK_Dimension(const ChampsDimension& champs);

// --- points and placing

// The marked position becomes (0, 0); the machine's position is shifted by the same amounts, so that the tool stays
// where it is relative to the drawing.
bool CB_Origine();
// The drawing's corner (that of the selection) to this position. False for what is no number.
bool CB_OKRecalage(const std::string& x, const std::string& y);
// The machine to that point: up to HautDeg and straight there. Returns when it has ended. False: no such point, no
// board (told), or it works (beep).
bool CB_Goto(std::int32_t index);
// A point at a new place. False for what is no number, or a refused place.
bool CB_PositionOK(std::int32_t index, const std::string& x, const std::string& y);

// --- depth

// The depth as TB_Profondeur shows it: pattern "0.00"; what is no number stays as it is.
std::string TexteProfondeur(const std::string& texte);
// The field is left: the depth for all of the selection. False: no number, answered No, or not negative; the text
// remembered on entry is due then.
bool EntreProfondeur(const std::string& texte);

}  // namespace ovelin
