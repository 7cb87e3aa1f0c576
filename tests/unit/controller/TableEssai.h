// A machine table in the settings of the test.
#pragma once

#include <string>

#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "machine/Module_Table.h"
#include "tests/support/Support.h"

namespace essai {

// The table of that name is the one in force and has these lines.
inline void PoseTable(const std::string& nom, const std::string& lignes = "") {
  ovelin::OublieCles();
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nTableDefaut=" + nom + "\r\n[table_" + nom + "]\r\n" + lignes);
  ovelin::TableDefaut = nom;
  ovelin::ChargeGlobalesTable();
}

}  // namespace essai
