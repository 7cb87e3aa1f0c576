// Hands and eyes of the user of the virtual board, for its panel: what it shows, and what is typed into it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "closed/CarteVirtuelle.h"

namespace ovelin {

// What the panel shows. Steps.
struct VueCarte {
  zenikcom::Axes3 compteurs{};  // of the program
  zenikcom::Axes3 lieu{};       // where the machine stands
  zenikcom::Axes3 perdus{};
  std::int64_t acceptes = 0, commences = 0, echanges = 0;
  zenikcom::SortiesCarte sorties;
  zenikcom::EcranCarte ecran;
};
// Nothing when the program's board is no virtual one.
std::optional<VueCarte> RegardeCarte();

// The fields of the model as they are typed: free speed, ramp, play of an axis.
using ChampsModele = std::array<std::array<std::string, 3>, 3>;
ChampsModele TextesModele(const zenikcom::ModeleMachine& modele);
// Nothing when a field is no number, or one below 0.
std::optional<zenikcom::ModeleMachine> LitModele(const ChampsModele& champs);

// "X:400:0:5": axis, free speed and ramp in steps/s and steps/s^2, play in steps, with a point whatever the
// language; what stands behind the free speed may be left out. Nothing for any other text.
struct ModeleDAxe {
  std::size_t axe = 0;
  zenikcom::ModeleAxe modele;
};
std::optional<ModeleDAxe> LitModeleAxe(std::string_view texte);

// What a hand does at the board just before an exchange, counted from 1: a switch pressed or let go, the keypad.
enum class GenreGeste { FinDeCourse, Origine, Touches };
struct GesteCarte {
  std::int64_t echange = 0;
  GenreGeste genre = GenreGeste::FinDeCourse;
  std::uint8_t valeur = 0;  // a switch: 1 pressed, 0 let go; keys held down, 0 for none
};
// "12:limit", "12:limit=0", "40:origin", "3:keys=128" (as in byte 11 of a status); nothing for any other text.
std::optional<GesteCarte> LitGeste(std::string_view texte);
inline constexpr std::string_view NomsGestes = "limit, origin, keys=BYTE, with =0 let go";
void FaitGeste(zenikcom::CarteVirtuelle& carte, const GesteCarte& geste);

// A fault from its kind (as in NomsFautes), in how many exchanges it comes (1: the next) and, of a board that is
// unplugged, for how many seconds (0: for good). Nothing for fields that are no such numbers.
std::optional<zenikcom::Faute> LitFautePrevue(int genre, const std::string& apres, const std::string& duree,
                                              std::int64_t echanges);
// Those that are still to come, in order.
std::vector<zenikcom::Faute> FautesAVenir(std::vector<zenikcom::Faute> fautes, std::int64_t echanges);

}  // namespace ovelin
