// Commands that speak to a board. Each takes its parsed options and returns the exit status.
#pragma once

#include <string>
#include <vector>

#include "app/cli/Contexte.h"

namespace ovelin::cli {

// Devices and rule open no board.
int EtatCarte(Contexte& contexte);
int ListeAppareils(Contexte& contexte);
int RegleUdev(Contexte& contexte);
int TablesDeCarte(Contexte& contexte);
int VerifieTableDeCarte(Contexte& contexte);
int EcritTableDeCarte(Contexte& contexte, int numero);
int DefautDeCarte(Contexte& contexte, int numero);
// Runs what stands in the flash memory of the virtual board, and tells where its machine has come to.
int ParcoursDeCarte(Contexte& contexte);
struct PlageFlash {
  int bloc = 0, adresse = 0, taille = 32;
};
// Into `sortie`, or as text where it is "".
int LitFlash(Contexte& contexte, const PlageFlash& plage, const std::string& sortie);
int EcritFlash(Contexte& contexte, const std::string& fichier);
// A letter and the bytes behind it.
int EchangeCarte(Contexte& contexte, const std::vector<std::string>& octets);

}  // namespace ovelin::cli
