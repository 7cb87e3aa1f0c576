// What a path has beyond its record of 24 bytes, whose columns every program of this kind reads: the layer that it
// comes from, and whether it is an island.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/Types.h"

namespace ovelin {

struct Complement {
  bool Ilot = false;                     // inside a pocket: the pocket goes around it
  std::string Calque;                    // name of its layer, UTF-8 as NomDeCalque gives it; "" for none
  std::optional<std::uint32_t> Couleur;  // of its stroke in the drawing, 0xRRGGBB
  bool operator==(const Complement&) const = default;
};

inline constexpr std::size_t CalqueMax = 255;  // bytes of a layer's name
// The name of a layer as the document holds it: valid UTF-8 (other bytes count as Windows-1252), without control
// characters and without blanks around, at most CalqueMax bytes.
std::string NomDeCalque(std::string_view octets);

// By code. Paths with nothing to tell, nearly all of them, have no entry, so that two tables that tell the same are
// equal. An entry goes when its path goes: a code that is given again starts without.
class TableComplements {
 public:
  // That of a path without entry is all default.
  [[nodiscard]] const Complement& De(Code2 code) const;
  void Pose(Code2 code, Complement complement);
  void Oublie(Code2 code) { complements_.erase(code); }
  template <class Condition>  // of a code
  void OublieSi(Condition condition) {
    std::erase_if(complements_, [&](const auto& entree) { return condition(entree.first); });
  }
  void OublieTout() { complements_.clear(); }
  [[nodiscard]] bool Vide() const { return complements_.empty(); }
  // Entries as pairs of code and complement, in the order of the codes.
  [[nodiscard]] auto begin() const { return complements_.begin(); }
  [[nodiscard]] auto end() const { return complements_.end(); }
  bool operator==(const TableComplements&) const = default;

 private:
  // A tree, not a sorted array: a drawing fills it in the order of its cuts, not of its codes.
  std::map<Code2, Complement> complements_;
};

// The lines of a project that hold it, behind those of the path's record; none where all is default.
//
//   $$SeICC1           an island: code in columns 6-7
//   $$SeCCCrrggbbname  its layer: six digits of base 16 or blanks in columns 8-13, the name from column 14, with
//                      "%" and two such digits for what would be taken for a setting or a line's end
void ComposeComplement(std::string& texte, Code2 code, const Complement& complement);

// What a line says, without what it leaves open.
struct LigneComplement {
  Code2 code;
  bool ilot = false;   // it is the one of the island ...
  std::string calque;  // ... or that of the layer: its name
  std::optional<std::uint32_t> couleur;
  bool entiere = true;  // false: the name was too long, and is cut
};
// Whether a line of a project is one of these; one with "=" behind the code is a setting.
bool EstLigneComplement(std::string_view ligne);
// Nothing for a damaged one.
std::optional<LigneComplement> LitLigneComplement(std::string_view ligne);

}  // namespace ovelin
