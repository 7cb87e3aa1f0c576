// Texts for the user, by section and key, from "OVELINxx.trad".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/CleTexte.h"

namespace ovelin {

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
