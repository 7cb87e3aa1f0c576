// Commands over keys, tables and materials. Each takes its parsed options and returns the exit status.
#pragma once

#include <string>
#include <vector>

#include "app/cli/Contexte.h"

namespace ovelin::cli {

int LitCle(Contexte& contexte, const std::string& cle);
int PoseCle(Contexte& contexte, const std::string& cle, const std::string& valeur);
int EffaceCle(Contexte& contexte, const std::string& cle);

int ListeTables(Contexte& contexte);
int MontreTable(Contexte& contexte, const std::string& nom);
int UtiliseTable(Contexte& contexte, const std::string& nom);
int GereTable(Contexte& contexte, int action, const std::string& nom, const std::string& nouveau);
int InterfaceTable(Contexte& contexte, const std::string& nom, const std::string& interface);

// Fields of a material row in the order of the database; an empty text leaves the field as it is.
int ListeMateriaux(Contexte& contexte);
int PoseMateriau(Contexte& contexte, const std::vector<std::string>& champs);
int EffaceMateriau(Contexte& contexte, const std::string& nom);

}  // namespace ovelin::cli
