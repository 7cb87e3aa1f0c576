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

// A G-code file, judged and measured.
int Verifie(Contexte& contexte, const std::string& fichier);

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

// The board. Devices and rule open none.
int EtatCarte(Contexte& contexte);
int ListeAppareils(Contexte& contexte);
int RegleUdev(Contexte& contexte);
int TablesDeCarte(Contexte& contexte);
int VerifieTableDeCarte(Contexte& contexte);
int EcritTableDeCarte(Contexte& contexte, int numero);
int DefautDeCarte(Contexte& contexte, int numero);
struct PlageFlash {
  int bloc = 0, adresse = 0, taille = 32;
};
// Into `sortie`, or as text where it is "".
int LitFlash(Contexte& contexte, const PlageFlash& plage, const std::string& sortie);
int EcritFlash(Contexte& contexte, const std::string& fichier);
// A letter and the bytes behind it.
int EchangeCarte(Contexte& contexte, const std::vector<std::string>& octets);

}  // namespace ovelin::cli
