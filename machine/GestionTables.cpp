// Copies, renames and deletes tables, and makes one current.

#include "machine/GestionTables.h"

#include <algorithm>

#include "base/Indices.h"
#include "base/Texte.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Texte8.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "machine/Module_Table.h"

namespace ovelin {

namespace {

constexpr std::string_view Prefixe = "table_";
constexpr const char* Proposition = "NewTable-";  // one character too long: it has to be edited
constexpr std::size_t LongueurMax = 8;            // the board holds no more of a name

std::size_t NombreCaracteres(std::string_view utf8) {
  return base::Indice(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (base::Octet(c) & 0xC0) != 0x80; }));
}

// Sections are found without regard to case, so names that differ by case alone name one table.
bool MemeTable(std::string_view a, std::string_view b) { return Majuscules(a) == Majuscules(b); }

bool TableExiste(std::string_view nom) {
  const auto tables = ListeTables();
  return std::any_of(tables.begin(), tables.end(), [&](const std::string& t) { return MemeTable(t, nom); });
}

// The question names the table; its key stays that of the text.
bool ConfirmeSuppression(const std::string& nom) {
  BoiteMessage boite = BoiteDe(Textes::SupprimeTable, Icone::Exclamation, Boutons::OkAnnuler);
  boite.texte += " " + nom + " ?";
  return Svc.Montre(boite) == Reponse::Ok;
}

// What the disk has refused is told with its reason. False, for the caller to hand on.
bool RefuseEcriture() {
  MessageFichier(Textes::EcritureRefusee, "\n" + CheminIni() + " : " + Magasin.DerniereErreur, Icone::Critique,
                 CheminIni());
  return false;
}

bool Supprime() {
  if (!ConfirmeSuppression(TableDefaut)) return false;
  Magasin.DerniereErreur.clear();
  SupprimerSection(SectionTable(TableDefaut), CheminIni());
  if (!Magasin.DerniereErreur.empty()) return RefuseEcriture();
  // The last table may go too: the list is empty then, and the values are the readers' defaults.
  const auto tables = ListeTables();
  if (tables.empty()) {
    ChargeGlobalesTable();
  } else {
    ChoisitTable(tables.front());
  }
  return true;
}

}  // namespace

std::vector<std::string> ListeTables() {
  std::vector<std::string> noms;
  for (const std::string& section : ListerSections(CheminIni())) {
    if (!MemeTable(section.substr(0, Prefixe.size()), Prefixe)) continue;
    noms.push_back(section.substr(Prefixe.size()));
  }
  return noms;
}

std::optional<CleTexte> RefusNomTable(std::string_view nom) {
  const bool interdit = std::any_of(
      nom.begin(), nom.end(), [](char c) { return c == '[' || c == ']' || base::Octet(c) < 0x20 || c == 0x7F; });
  if (interdit || NombreCaracteres(nom) > LongueurMax) return Textes::NomTableRefuse;
  if (!EnWindows1252(nom)) return Textes::NomTableHorsJeu;
  return std::nullopt;
}

std::string NomNouvelleTable() {
  const std::string invite = Traduire(Textes::NomNouvelleTable) + " " + TableDefaut;
  while (true) {
    std::string nom = Rogne(Svc.Saisit(Textes::NomNouvelleTable, invite, Proposition));
    const auto refus = RefusNomTable(nom);
    if (!refus) return nom;
    if (nom != Proposition) Message(*refus, Icone::Exclamation);
  }
}

void ChoisitTable(std::string_view nom) {
  TableDefaut = std::string(nom);
  ChargeGlobalesTable();
  EcrireCle(cles::TableDefaut, TableDefaut);
}

bool ChangeTable(std::string_view chargee, std::string_view nom, ChampsTable& champs) {
  if (!chargee.empty() && !Sauve_Table(chargee, champs)) return RefuseEcriture();
  champs = Chargt_Table(nom);
  ChoisitTable(nom);
  return true;
}

bool Cmd_Gestion(GestionTable index, const ChampsTable& champs) {
  return Cmd_Gestion(index, champs, index == GestionTable::Supprimer ? std::string() : NomNouvelleTable());
}

// Tables live as sections of the settings file, copies too: a file of its own beside it ("name.ini") would be read
// by nothing.
bool Cmd_Gestion(GestionTable index, const ChampsTable& champs, const std::string& nouveau) {
  if (index == GestionTable::Supprimer) return Supprime();
  const std::string nom = Rogne(nouveau);
  if (nom.empty() || MemeTable(nom, TableDefaut)) return false;
  if (const auto refus = RefusNomTable(nom)) {
    Message(*refus, Icone::Exclamation);
    return false;
  }
  if (TableExiste(nom)) {  // its values would be lost
    Message(Textes::TableExiste, Icone::Exclamation);
    return false;
  }
  if (!Sauve_Table(TableDefaut, champs)) return RefuseEcriture();
  Magasin.DerniereErreur.clear();
  const std::string avant = SectionTable(TableDefaut);
  const std::string apres = SectionTable(nom);
  if (index == GestionTable::Copier) {
    CopierSection(avant, apres, CheminIni());
  } else {
    DeplacerSection(avant, apres, CheminIni());
  }
  EcrireCleSection(apres, CleNomTable, nom);
  if (!Magasin.DerniereErreur.empty()) return RefuseEcriture();
  ChoisitTable(nom);
  return true;
}

}  // namespace ovelin
