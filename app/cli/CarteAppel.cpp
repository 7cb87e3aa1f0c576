#include "app/cli/CarteAppel.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "app/cli/Gestes.h"
#include "base/Indices.h"
#include "closed/CarteVirtuelle.h"
#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "controller/OperateurCarte.h"
#include "controller/ParcoursCarte.h"
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
  const std::string& parcours = contexte_.parcours;
  if (!parcours.empty() && GenreParcours(parcours) == '\0') {
    return Echec(contexte_, Textes::ExtensionParcours, " " + parcours, parcours);
  }
  for (const std::string& sortie : {contexte_.fil, contexte_.fichierCarte, parcours}) {
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
  const char* option = !contexte_.fichierCarte.empty() ? "--board-file"
                       : !contexte_.fautes.empty()     ? "--fault"
                       : !contexte_.parcours.empty()   ? "--path"
                       : !contexte_.modeles.empty()    ? "--model"
                       : !contexte_.gestes.empty()     ? "--hand"
                       : contexte_.rapide              ? "--fast"
                                                       : nullptr;
  if (option != nullptr && LaCarte.genre != GenreCarte::Virtuelle) {
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
  }
  moyens.enveloppe = [this](std::unique_ptr<zenikcom::Liaison> l) {
    return journal_.Enveloppe(Gestes::Enveloppe(std::move(l), contexte_.gestes));
  };
  for (const RefusCarte& refus : InstalleCarte(moyens)) {
    // What was damaged is kept, and the board begins anew: that is told, and the call goes on.
    if (refus.texte == Textes::CarteFichierEndommage) {
      std::fprintf(stderr, "%s\n", TexteRefus(refus).c_str());
    } else {
      return Echec(contexte_, refus.texte.Cle(), TexteRefus(refus));
    }
  }
  const int etat = JugeCarte();
  if (etat == Fait) PoseModele();
  return etat;
}

void CarteAppel::PoseModele() const {
  if (!LaCarte.virtuelle || contexte_.modeles.empty()) return;
  zenikcom::ModeleMachine modele = LaCarte.virtuelle->Modele();
  for (const std::string& texte : contexte_.modeles) {
    if (const auto lu = LitModeleAxe(texte)) modele[lu->axe] = lu->modele;
  }
  LaCarte.virtuelle->Modele(modele);
}

std::string CarteAppel::EcritLeParcours() const {
  if (contexte_.parcours.empty() || !LaCarte.virtuelle) return "";
  return EcritParcours(contexte_.parcours, LaCarte.virtuelle->Parcours(),
                       {CdeZENIK->MmParPasX(), CdeZENIK->MmParPasY(), CdeZENIK->MmParPasZ()});
}

int CarteAppel::Ferme(int etat) {
  const auto refus = RefusFichierCarte();
  const std::string raisonParcours = EcritLeParcours();
  FermeCarte();
  const std::string raison = journal_.Ferme();
  if (etat != Fait) return etat;
  if (!raisonParcours.empty()) {
    return Echec(contexte_, Textes::EcritureRefusee, "\n" + contexte_.parcours + ": " + raisonParcours,
                 contexte_.parcours);
  }
  if (refus) return Echec(contexte_, refus->texte.Cle(), TexteRefus(*refus));
  if (raison.empty()) return Fait;
  return Echec(contexte_, Textes::EcritureRefusee, "\n" + contexte_.fil + ": " + raison, contexte_.fil);
}

}  // namespace ovelin::cli
