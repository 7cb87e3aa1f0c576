// The name of a text, as a value: kernels tell by it what a shell shows.
#pragma once

#include <string_view>

namespace ovelin {

// A text that the program asks for by name: its section and key in the translation files, and the French of a
// window, empty where there is none. Only the table of texts (core/Textes.h) makes one.
class CleTexte {
 public:
  [[nodiscard]] constexpr std::string_view Section() const { return section_; }
  [[nodiscard]] constexpr std::string_view Cle() const { return cle_; }
  [[nodiscard]] constexpr std::string_view Francais() const { return francais_; }
  friend constexpr bool operator==(const CleTexte&, const CleTexte&) = default;

 private:
  friend struct Textes;
  consteval CleTexte(std::string_view section, std::string_view cle, std::string_view francais)
      : section_(section), cle_(cle), francais_(francais) {}

  std::string_view section_, cle_, francais_;
};

}  // namespace ovelin
