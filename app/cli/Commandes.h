// The commands of ovelin-cli. Each takes its parsed options and returns the exit status.
#pragma once

#include <string>
#include <vector>

#include "app/cli/Contexte.h"

namespace ovelin::cli {

int Info(Contexte& contexte, const std::string& dessin);
int GCode(Contexte& contexte, const std::string& dessin, const std::string& sortie);
int Enregistre(Contexte& contexte, const std::string& dessin, const std::string& sortie);
int Edite(Contexte& contexte, const std::string& dessin, const std::string& operations, const std::string& sortie);
// `source`: "initial", "outil", or "" for the format's own choice (pictures show both, files the drawing).
int Exporte(Contexte& contexte, const std::string& dessin, const std::string& sortie, const std::string& source);
int Trace(Contexte& contexte, const std::string& dessin, const std::string& sortie);
// `position` "X,Y,Z" in mm or ""; `lignes` a CSV file or "".
int Planifie(Contexte& contexte, const std::string& dessin, const std::string& position, const std::string& lignes);

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

// Work that programs left which died: listed, or number `n` of the list written as a project, which then waits no
// more.
int ListeReprises(Contexte& contexte);
int OuvreReprise(Contexte& contexte, int n, const std::string& sortie);

}  // namespace ovelin::cli
