// The lost-step test: an axis goes by single steps until a dial shows that its play is taken up.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace ovelin {

enum class IssuePas {
  Refusee,  // nothing was counted and nothing has moved; why was told, but for a field of the table that is empty
  Faite,    // the step is done
  Interrompue,  // stopped, or the link is gone (told): nobody knows whether the step was made
};

// Speed of the moves as the field keeps it: a number rounded to 2 decimals; as it is for a text that is none.
std::string VitessePasPerdus(const std::string& texte);

// One step of `axe` (0 X, 1 Y, 2 Z): `index` 0 one way, which sets the counter to 0, 1 the other way, which counts
// one more. The step is the travel per turn divided by the steps per turn; a step that the machine's table divides
// is that many steps of the board. All is checked before anything is counted. Returns when the axis stands;
// meanwhile TestEnCours is set.
IssuePas Cmd_Depl(int index, int axe, const std::string& vitesse, std::int32_t& compteur);
// CMD_Memoriser: the counter becomes the lost steps of that axis, in the table that the window of parameters shows.
void MemorisePasPerdus(int axe, std::int32_t compteur);
// Where the window stood when it was closed, pixels; nothing before its first closing.
std::optional<std::pair<int, int>> LitPlacePasPerdus();
void EcritPlacePasPerdus(int gauche, int haut);
// On closing: the state is asked for. True: nothing moves, the window may go.
bool PeutFermerPasPerdus();

}  // namespace ovelin
