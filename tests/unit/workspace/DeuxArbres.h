// Both trees of the document in force, filled.
#pragma once

#include <array>

#include "workspace/Module_Arbres.h"

namespace essai {

inline std::array<ovelin::Arbre, 2> DeuxArbres() {
  std::array<ovelin::Arbre, 2> arbres;
  ovelin::Remplissage_Trace_Initial(arbres[0]);
  ovelin::Remplissage_Trace_Decale(arbres[1]);
  return arbres;
}

}  // namespace essai
