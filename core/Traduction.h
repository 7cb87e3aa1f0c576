// Texts for the user, by section and key, from "OVELINxx.trad".
#pragma once

#include <string>
#include <string_view>
#include <vector>

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

// A missing key gives the key itself.
std::string Traduire(CleTexte texte);
// The same for keys that are made at run time: the controls of a window. An empty key gives "___".
std::string Traduire(std::string_view section, std::string_view cle);

// Language that the system suggests, from its locale name ("fr_FR.UTF-8", "fr_CA", "de", "C"): French of France and
// Belgium "fr", "de_DE", "es_ES", "ca_ES", "it_IT" theirs, a language of these without a country too; every other
// "en". "pt" is never suggested.
std::string LangueDuSysteme(std::string_view locale);
// Name of the user's locale for messages.
std::string LocaleSysteme();
struct LangueConnue {
  const char* code;
  const char* nom;
};
const std::vector<LangueConnue>& Langues();
// The file of the current language is read again at the next text.
void OublieTraductions();

}  // namespace ovelin
