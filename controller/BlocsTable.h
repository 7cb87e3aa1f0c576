// The three blocks in which a machine's table stands on the board: what each byte says, what the check compares.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controller/ParametresZENIK.h"

namespace ovelin {

inline constexpr std::size_t DebutBloc = 4;         // of a block in the exchange
inline constexpr std::size_t LongueurNomCarte = 8;  // bytes of a name on the board
using BlocTable = std::array<std::uint8_t, 33>;     // bytes 4 to 36 of the exchange

// `nom` in the board's characters, of which the first eight go out; `langue` two letters.
BlocTable PremierBloc(const ParametresZENIK& p, std::string_view nom, std::string_view langue);
// The low 16 bits of each value.
BlocTable DeuxiemeBloc(const ParametresZENIK& p);

// A byte of the board that is another one than it should be, by its place in the exchange.
struct EcartTable {
  std::size_t octet = 0;
  std::uint8_t carte = 0, programme = 0;
  bool operator==(const EcartTable&) const = default;
};
// Outputs, rates, options and language; the name is no part of it. Byte 32 counts for an option of 0 or 1 alone,
// byte 33 for French and English alone.
std::vector<EcartTable> EcartsPremierBloc(std::span<const std::uint8_t, 33> carte, const ParametresZENIK& p,
                                          std::string_view langue);
std::vector<EcartTable> EcartsDeuxiemeBloc(std::span<const std::uint8_t, 33> carte, const ParametresZENIK& p);

// The values that 16 bits don't hold, one text each: "X: 70000 /mm".
std::vector<std::string> Debords(const ParametresZENIK& p);

// What a table that is being written takes from the parameters in force: steps and travel of the axes and the
// slope.
ParametresZENIK AvecAxes(ParametresZENIK ecrits, const ParametresZENIK& enVigueur);

}  // namespace ovelin
