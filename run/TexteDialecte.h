// A dialect of G-code as the text of a user's file: read with its refusals, and written so that it reads back.
//
//   # what the file says differs from the row that it stands on
//   base = grbl
//   titre = Fraiseuse du garage
//   broche = M3 S{S}
//   debut = G17
//   debut = G90
//
// One "key = value" a line, in the set of the program's other files; empty lines and those that begin with "#" or
// ";" are passed over. A key that takes several lines (debut, outil, fin) is repeated, and the first replaces what
// the base has; an empty value is none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "run/Dialecte.h"

namespace ovelin {

enum class FauteDialecte : std::uint8_t {
  Nom,        // the file's name: that of a row of the program, or other signs than letters, digits, "-" and "_"
  Illisible,  // the system's reason
  Taille,     // longer than any such file
  Forme,      // no "key = value"
  Cle,        // no such key
  Double,     // a key for the second time that takes one value
  Base,       // not the first key, no row of the program, or its own spelling
  Valeur,     // what the key can't take
  Longueur,   // a line of it is longer than its own limit
};
struct RefusDialecte {
  FauteDialecte faute = FauteDialecte::Forme;
  long ligne = 0;     // from 1; 0: the file as a whole
  std::string texte;  // the line, or the name, UTF-8
  bool operator==(const RefusDialecte&) const = default;
};
struct DialecteLu {
  Dialecte dialecte;
  std::optional<RefusDialecte> refus;  // the dialect is then of no use
};

inline constexpr std::size_t TailleDialecte = 65'536;  // bytes

// `nom`: of the file, without extension. Without "base" the file stands on the plain row "iso".
DialecteLu LitDialecte(std::string_view octets, std::string_view nom);
// All keys with their values; what it gives, LitDialecte takes, but for the program's own spelling.
std::string EcritDialecte(const Dialecte& dialecte);
// The keys that a file may hold beside "base", in the order in which they are written.
std::vector<std::string_view> ClesDialecte();

}  // namespace ovelin
