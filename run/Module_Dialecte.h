// Which dialects of G-code there are, the user's files among them, and which one is in force.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/CleTexte.h"
#include "run/Dialecte.h"
#include "run/TexteDialecte.h"

namespace ovelin {

// Extension of the user's files, which lie beside the settings file.
inline constexpr const char* ExtensionDialecte = "dialecte";

struct DialecteOffert {
  Dialecte dialecte;
  std::string fichier;  // "" for a row of the program
  std::optional<RefusDialecte> refus;
};

// The rows of the program, the own one first, then the user's files by name, those that are refused among them.
std::vector<DialecteOffert> DialectesOfferts();
// The one of that name, in either case.
std::optional<DialecteOffert> TrouveDialecte(std::string_view nom);

// Why a file is refused: its text, and "file:line: what stands there" behind it.
CleTexte TexteFaute(FauteDialecte faute);
std::string TexteRefus(const DialecteOffert& offert);

// The dialect of the setting. Nothing where there is none of that name, or its file is refused: told.
std::optional<Dialecte> DialecteEnVigueur();
// The user's choice: into the settings, and the file name used last takes its extension.
void ChoisitDialecte(const std::string& nom);
// Speed of the spindle (turns a minute) and the seconds that it takes as typed; refused where they are no numbers
// of 0 or more.
std::optional<CleTexte> EntreVitesseBroche(const std::string& texte);
std::optional<CleTexte> EntreAttenteBroche(const std::string& texte);

}  // namespace ovelin
