#include "app/cli/CarteAppel.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "base/Indices.h"
#include "closed/CarteVirtuelle.h"
#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/ClesReglages.h"
#include "core/Fichiers.h"
#include "core/Textes.h"

namespace ovelin::cli {

namespace {

// A file that was meant for something else would be set aside as a damaged one.
bool FichierEtranger(const std::string& chemin) {
  static constexpr std::string_view Marque = "ZENIKV1\n";
  if (!FichierExiste(chemin)) return false;
  char debut[Marque.size()] = {};
  std::ifstream f(chemin, std::ios::binary);
  f.read(debut, sizeof debut);
  const auto lus = base::Indice(f.gcount());
  return std::string_view(debut, lus) != Marque.substr(0, lus);
}

std::string CleEtValeur() { return std::string(" ") + cles::CarteZENIK + "=" + LitReglageCarte().carte; }

}  // namespace

CarteAppel::~CarteAppel() { FermeCarte(); }

int CarteAppel::JugeFichiers(std::initializer_list<std::string> entrees) const {
  for (const std::string& sortie : {contexte_.fil, contexte_.fichierCarte}) {
    if (sortie.empty()) continue;
    if (const int etat = VerifieSortie(contexte_, sortie, "", entrees)) return etat;
  }
  const std::string& fichier = contexte_.fichierCarte;
  if (fichier.empty()) return Fait;
  const bool meme = !contexte_.fil.empty() && CheminComplet(contexte_.fil) == CheminComplet(fichier);
  if (meme || MemeFichier(contexte_.fil, fichier)) {
    return Echec(contexte_, Textes::SortieEstEntree, " " + fichier, fichier);
  }
  if (FichierEtranger(fichier)) return Echec(contexte_, Textes::FichierSansCarte, " " + fichier, fichier);
  return Fait;
}

int CarteAppel::JugeCarte() const {
  const bool dOptions = !contexte_.fichierCarte.empty() || !contexte_.fautes.empty() || contexte_.rapide;
  if (dOptions && LaCarte.genre != GenreCarte::Virtuelle) {
    const char* option = !contexte_.fichierCarte.empty() ? "--board-file"
                         : !contexte_.fautes.empty()     ? "--fault"
                                                         : "--fast";
    return Echec(contexte_, Textes::OptionVirtuelle, std::string(" ") + option + CleEtValeur());
  }
  if (!CdeZENIK->IsAvailable()) return Echec(contexte_, Textes::PasDeCarte, CleEtValeur());
  return Fait;
}

int CarteAppel::Ouvre(std::initializer_list<std::string> entrees) {
  if (const int etat = JugeFichiers(entrees)) return etat;
  MoyensCarte moyens = MoyensOrdinaires();
  if (!contexte_.fichierCarte.empty()) moyens.fichier = CheminComplet(contexte_.fichierCarte);
  moyens.rapide = contexte_.rapide;
  for (const std::string& faute : contexte_.fautes) {
    if (const auto lue = zenikcom::LitFaute(faute)) moyens.fautes.push_back(*lue);
  }
  if (!contexte_.fil.empty()) {
    const std::string raison = journal_.Ouvre(contexte_.fil);
    if (!raison.empty()) {
      return Echec(contexte_, Textes::EcritureRefusee, "\n" + contexte_.fil + ": " + raison, contexte_.fil);
    }
    moyens.enveloppe = [this](std::unique_ptr<zenikcom::Liaison> l) { return journal_.Enveloppe(std::move(l)); };
  }
  for (const RefusCarte& refus : InstalleCarte(moyens)) {
    // What was damaged is kept, and the board begins anew: that is told, and the call goes on.
    if (refus.texte == Textes::CarteFichierEndommage) {
      std::fprintf(stderr, "%s\n", TexteRefus(refus).c_str());
    } else {
      return Echec(contexte_, refus.texte.Cle(), TexteRefus(refus));
    }
  }
  return JugeCarte();
}

int CarteAppel::Ferme(int etat) {
  const auto refus = RefusFichierCarte();
  FermeCarte();
  const std::string raison = journal_.Ferme();
  if (etat != Fait) return etat;
  if (refus) return Echec(contexte_, refus->texte.Cle(), TexteRefus(*refus));
  if (raison.empty()) return Fait;
  return Echec(contexte_, Textes::EcritureRefusee, "\n" + contexte_.fil + ": " + raison, contexte_.fil);
}

}  // namespace ovelin::cli
