// Names of the keys of section "[OVELIN]" (core/Reglages.def).
#pragma once

namespace ovelin::cles {

#define REGLAGE(cle, membre, groupe, genre) CLE(cle, genre)
#define CLE(cle, genre) inline constexpr const char* cle = #cle;
#define SUFFIXE(nom, texte)
#include "core/Reglages.def"
#undef SUFFIXE
#undef CLE
#undef REGLAGE

// Behind the name of a window.
namespace suffixe {
#define REGLAGE(cle, membre, groupe, genre)
#define CLE(cle, genre)
#define SUFFIXE(nom, texte) inline constexpr const char* nom = texte;
#include "core/Reglages.def"
#undef SUFFIXE
#undef CLE
#undef REGLAGE
}  // namespace suffixe

}  // namespace ovelin::cles
