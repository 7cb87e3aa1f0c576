// The whole road as values, from a file to the lines of its G-code. Route.cpp includes kernels alone.
#pragma once

#include <string>
#include <vector>

#include "core/Reglages.h"
#include "core/TableDecoupe.h"
#include "machine/TableMachine.h"
#include "workspace/NoyauOuverture.h"

namespace essai {

struct Route {
  ovelin::DessinLu lu;        // as it was read; its document has gone on
  ovelin::Document document;  // prepared and traced
  // Empty when the file is refused or the plan isn't good.
  std::vector<ovelin::Deplacement> lignes;  // of the plan, from the start on
  std::string nc;                           // in the program's own dialect
};
Route Parcourt(const std::string& chemin, const ovelin::Reglages& reglages, const ovelin::TableMachine& table);

}  // namespace essai
