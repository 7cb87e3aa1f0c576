// Names of the keys of section "[OVELIN]" (core/Reglages.def).
#pragma once

namespace ovelin::cles {

#define REGLAGE(cle, membre, groupe) CLE(cle)
#define CLE(cle) inline constexpr const char* cle = #cle;
#define SUFFIXE(nom, texte)
#include "core/Reglages.def"
#undef SUFFIXE
#undef CLE
#undef REGLAGE

// Behind the name of a window.
namespace suffixe {
#define REGLAGE(cle, membre, groupe)
#define CLE(cle)
#define SUFFIXE(nom, texte) inline constexpr const char* nom = texte;
#include "core/Reglages.def"
#undef SUFFIXE
#undef CLE
#undef REGLAGE
}  // namespace suffixe

}  // namespace ovelin::cles
