// Commands that read and change the settings on purpose: key, tables, materials.
#include "app/cli/CommandesReglages.h"

#include <cstdio>

#include "base/Indices.h"
#include "base/SansCopie.h"
#include "core/Cles.h"
#include "core/Nombres.h"
#include "core/Reglages.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"

namespace ovelin::cli {

namespace {

// While one stands, the settings file may be written.
class EcritureReglages : base::SansCopie {
 public:
  EcritureReglages() {
    Magasin.EcrireIni = true;
    Magasin.DerniereErreur.clear();
  }
  ~EcritureReglages() { Magasin.EcrireIni = false; }
};

int BilanEcriture(Contexte& contexte, const Json& objet) {
  if (Magasin.DerniereErreur.empty()) return Resultat(contexte, objet);
  return Echec(contexte, Textes::EcritureRefusee, "\n" + CheminIni() + ": " + Magasin.DerniereErreur, CheminIni());
}

bool TableConnue(const std::string& nom) {
  for (const std::string& connue : ovelin::ListeTables()) {
    if (Majuscules(connue) == Majuscules(nom)) return true;
  }
  return false;
}

int TableInconnue(const Contexte& contexte, const std::string& nom) {
  return Echec(contexte, Textes::TableInconnue, DansReglages(nom), CheminIni());
}

constexpr const char* NomsChamps[] = {"name",   "radius", "tool",        "depth",       "pass",
                                      "feed_h", "feed_v", "notch_width", "notch_height"};

}  // namespace

int LitCle(Contexte& contexte, const std::string& cle) {
  constexpr const char* Absente = "$$";
  const std::string valeur = LireCle(cle, Absente);
  if (valeur == Absente) return Echec(contexte, Textes::CleAbsente, " " + cle, CheminIni());
  if (contexte.json) return Resultat(contexte, Json{{"key", cle}, {"value", valeur}});
  std::printf("%s\n", valeur.c_str());
  return Fait;
}

int PoseCle(Contexte& contexte, const std::string& cle, const std::string& valeur) {
  if (const int etat = RefuseValeur(contexte, cle, valeur, CheminIni())) return etat;
  const EcritureReglages ecriture;
  EcrireCle(cle, valeur);
  return BilanEcriture(contexte, Json{{"key", cle}, {"value", valeur}});
}

int EffaceCle(Contexte& contexte, const std::string& cle) {
  const EcritureReglages ecriture;
  SupprimerCle(cle);
  return BilanEcriture(contexte, Json{{"key", cle}});
}

int ListeTables(Contexte& contexte) {
  Json objet;
  objet["current"] = TableDefaut;
  objet["tables"] = ovelin::ListeTables();
  objet["interfaces"] = ListeInterfaces();
  return Resultat(contexte, objet);
}

int MontreTable(Contexte& contexte, const std::string& nom) {
  const std::string table = nom.empty() ? TableDefaut : nom;
  if (!TableConnue(table)) return TableInconnue(contexte, table);
  Json objet;
  for (const auto& [cle, valeur] : Chargt_Table(table)) objet[cle] = valeur;
  return Resultat(contexte, objet);
}

int UtiliseTable(Contexte& contexte, const std::string& nom) {
  if (!TableConnue(nom)) return TableInconnue(contexte, nom);
  const EcritureReglages ecriture;
  ChoisitTable(nom);
  return BilanEcriture(contexte, Json{{"current", TableDefaut}});
}

int GereTable(Contexte& contexte, int action, const std::string& nom, const std::string& nouveau) {
  if (!TableConnue(nom)) return TableInconnue(contexte, nom);
  const GestionTable geste = static_cast<GestionTable>(action);
  if (geste != GestionTable::Supprimer) {
    if (const auto refus = RefusNomTable(nouveau)) return Echec(contexte, *refus, " " + nouveau);
    if (TableConnue(nouveau)) {
      return Echec(contexte, Textes::TableDejaLa, " " + nouveau);
    }
  }
  const EcritureReglages ecriture;
  TableDefaut = nom;
  if (!Cmd_Gestion(geste, Chargt_Table(nom), nouveau)) return EchecBoite(contexte);
  Json objet;
  objet["current"] = TableDefaut;
  objet["tables"] = ovelin::ListeTables();
  return BilanEcriture(contexte, objet);
}

int InterfaceTable(Contexte& contexte, const std::string& nom, const std::string& interface) {
  if (!TableConnue(nom)) return TableInconnue(contexte, nom);
  ChampsTable champs = Chargt_Table(nom);
  if (!AppliqueInterface(interface, champs)) {
    return Echec(contexte, Textes::InterfaceInconnue, " " + interface);
  }
  const EcritureReglages ecriture;
  Sauve_Table(nom, champs);
  return BilanEcriture(contexte, Json{{"table", nom}, {"interface", interface}});
}

int ListeMateriaux(Contexte& contexte) {
  const auto fiches = LitFiches();
  if (!contexte.json) {
    for (const FicheMateriau& fiche : fiches) {
      std::string ligne;
      for (const std::string& champ : fiche.champs) ligne += (ligne.empty() ? "" : "\t") + champ;
      std::printf("%s\n", ligne.c_str());
    }
    return Fait;
  }
  Json liste = Json::array();
  for (const FicheMateriau& fiche : fiches) {
    Json objet;
    for (std::size_t i = 0; i < fiche.champs.size(); ++i) objet[NomsChamps[i]] = fiche.champs[i];
    liste.push_back(objet);
  }
  return Resultat(contexte, Json{{"materials", liste}});
}

int PoseMateriau(Contexte& contexte, const std::vector<std::string>& champs) {
  auto fiches = LitFiches();
  const int rang = RangMateriau(champs[0]);
  FicheMateriau fiche;
  if (rang > 0) {
    fiche = fiches[base::Indice(rang) - 1];
  } else {
    fiche.champs = {champs[0], "0", "", "0", "0", "1", "1", "1", "0"};
  }
  for (std::size_t i = 1; i < fiche.champs.size() && i < champs.size(); ++i) {
    if (!champs[i].empty()) fiche.champs[i] = champs[i];
  }
  if (rang > 0) {
    fiches[base::Indice(rang) - 1] = fiche;
  } else {
    fiches.push_back(fiche);
  }
  const auto [ligne, colonne] = VerifieFiches(fiches);
  if (ligne != 0) {
    const std::size_t champ = base::Indice(colonne) - 1;
    return Echec(contexte, Textes::FicheIncorrecte,
                 " " + fiches[base::Indice(ligne) - 1].champs[0] + ", " + NomsChamps[champ]);
  }
  const EcritureReglages ecriture;
  EcritFiches(fiches);
  return BilanEcriture(contexte, Json{{"materials", fiches.size()}});
}

int EffaceMateriau(Contexte& contexte, const std::string& nom) {
  auto fiches = LitFiches();
  const int rang = RangMateriau(nom);
  if (rang == 0) return Echec(contexte, Textes::MateriauInconnu, DansReglages(nom), CheminIni());
  fiches.erase(fiches.begin() + (rang - 1));
  const EcritureReglages ecriture;
  EcritFiches(fiches);
  return BilanEcriture(contexte, Json{{"materials", fiches.size()}});
}

}  // namespace ovelin::cli
