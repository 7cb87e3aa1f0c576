// The layers that the paths of a drawing lie on, each once, and the colours that have a number instead of a value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "closed/Pathwerk.h"

namespace pathwerk::lecture {

inline constexpr std::size_t NomCalqueMax = 1020;  // bytes that are kept of a name, more than can be shown

// A path names its layer by a number of 16 bits, which costs it nothing beside its nature. What a table of that
// size can't hold has no layer; no drawing has room for as many paths.
class TableCalques {
 public:
  // Its place; 0 for one that says nothing, and for one more than there is room for.
  std::uint16_t Place(Calque::Genre genre, std::string_view nom, std::optional<std::uint32_t> couleur);
  // By their places; the first says nothing.
  [[nodiscard]] const std::vector<Calque>& Tous() const { return calques_; }
  std::vector<Calque> Prend() { return std::move(calques_); }

 private:
  std::vector<Calque> calques_ = std::vector<Calque>(1);
  std::unordered_map<std::string, std::uint16_t> places_;
  std::uint16_t derniere_ = 0;  // most paths lie on the layer of the one before them
};

// Of a number of the palette that CAD programs share, 1 to 255. Nothing for 7, which is black on white and white on
// black, and for what is none.
std::optional<std::uint32_t> CouleurDePalette(int numero);

}  // namespace pathwerk::lecture
