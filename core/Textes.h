// The texts of the program by name (core/Textes.def), and those of the geometry library's refusals.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "closed/Pathwerk.h"
#include "core/CleTexte.h"

namespace ovelin {

// Textes::EcritureRefusee and so on. Nobody else makes a `CleTexte`, so a text without a row does not compile.
struct Textes {
#define TEXTE(nom, section, cle) TEXTE_FENETRE(nom, section, cle, "")
#define TEXTE_FENETRE(nom, section, cle, francais) static constexpr CleTexte nom{section, cle, francais};
#include "core/Textes.def"
#undef TEXTE_FENETRE

  struct Nomme {
    std::string_view nom;
    CleTexte texte;
  };
#define TEXTE_FENETRE(nom, section, cle, francais) Nomme{#nom, nom},
  static constexpr auto Tous = std::to_array<Nomme>({
#include "core/Textes.def"
  });
#undef TEXTE_FENETRE
#undef TEXTE
};

// A drawing of fewer than two points is refused by its opening under a number of its own, beside the library's.
inline constexpr std::int32_t ErreurTropPeuDePoints = -109;

// Why a drawing, a font or a writing is refused, by the library's number. Nothing for a number that it does not
// have.
std::optional<CleTexte> TexteErreur(std::int32_t numero);
// What its reader supposed about a drawing.
std::optional<CleTexte> TexteAvis(pathwerk::Avis avis);

}  // namespace ovelin
