// The keys of manual control by their codes, and where each of them moves the machine. Values in, values out.
#pragma once

#include <array>

namespace ovelin {

// Codes of the keys, those of a virtual keyboard; the numeric pad's are told from the others.
namespace touche {
inline constexpr int Majuscule = 16, Controle = 17, Echap = 27;
inline constexpr int PageHaut = 33, PageBas = 34, Fin = 35, Debut = 36;
inline constexpr int Gauche = 37, Haut = 38, Droite = 39, Bas = 40;
inline constexpr int V = 86;
inline constexpr int Pave0 = 96;  // numeric 0; 1 to 9 follow
inline constexpr int Multiplie = 106, Plus = 107, Moins = 109;
inline constexpr int F1 = 112, F5 = 116, F6 = 117, F7 = 118, F8 = 119;
constexpr int Pave(int chiffre) { return Pave0 + chiffre; }
}  // namespace touche

// Direction of a key: -1, 0, 1 for X, Y, Z.
using SensJog = std::array<int, 3>;

// Nothing (0, 0, 0) for a key that moves nothing. Home and End are diagonals as the 7 and the 1 of the numeric pad
// are; Z never goes with another axis.
SensJog SensDe(int code);
// A key that this window knows at all; the others belong to whatever has the keyboard.
bool EstTouchePilMan(int code);

}  // namespace ovelin
