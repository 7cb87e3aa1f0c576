// The tables on the board: the check that the one in force stands there and is its default, and the writer.
#include <algorithm>
#include <utility>

#include "base/Texte.h"
#include "controller/BlocsTable.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Texte8.h"
#include "core/Textes.h"

namespace ovelin {

namespace {

constexpr std::string_view VersionMini = "ZENIK v0.32";
constexpr std::size_t LongueurVersion = 10;  // a shorter text is no version
constexpr int NbTablesCarte = 4, TableHorsChoix = 3;

// Sub-commands of T.
constexpr std::uint8_t LitDefaut = 0, EcritDefaut = 1;
constexpr std::uint8_t LitBloc1 = 3, EcritBloc1 = 4, LitBloc2 = 5, EcritBloc2 = 6, LitBloc3 = 7, EcritBloc3 = 8;

std::string SansBlancs(std::string_view texte) {
  const std::size_t debut = texte.find_first_not_of(' ');
  if (debut == std::string_view::npos) return "";
  return std::string(texte.substr(debut, texte.find_last_not_of(' ') - debut + 1));
}

// A slot that has never been written, or that somebody has cleared.
bool SansNom(std::string_view octets) {
  return std::all_of(octets.begin(), octets.end(), [](char c) { return c == ' ' || base::Octet(c) == 255; });
}

// False: the box has told why the board can't be used.
bool AccepteVersion(const std::string& version) {
  BoiteMessage boite;
  if (version.size() < LongueurVersion) {
    boite.texte = "ZENIK not connected !";
    Svc.Montre(boite);
    return true;
  }
  if (version >= VersionMini) return true;
  boite = BoiteDe(Textes::CarteAncienne, Icone::Critique);
  boite.texte += " '" + std::string(VersionMini) + "' !";
  Svc.Montre(boite);
  return false;
}

// The parameters of a table as its writer reads them: two keys have another value than for the check where they are
// missing.
ParametresZENIK LitPourEcrire(const std::string& nom) {
  const std::string section = SectionTable(nom);
  return LitParametres([&section](const LectureChamp& champ) {
           const std::string cle = champ.champ.Cle();
           double defaut = champ.Nombre();
           for (const LectureChamp& ecrit : {ChampsMachine::TimeOutEcrit, ChampsMachine::VitesseMaxPCEcrite}) {
             if (ecrit.champ.Cle() == cle) defaut = ecrit.Nombre();
           }
           return LireNombreSection(section, cle, defaut);
         })
      .parametres;
}

}  // namespace

std::string ClsCdeZENIK::TexteDe(std::size_t premier, std::size_t dernier) const {
  std::string texte;
  for (std::size_t i = premier; i <= dernier && Tampon[i] != 0; ++i) texte += static_cast<char>(Tampon[i]);
  return texte;
}

bool ClsCdeZENIK::OrdreTable(std::uint8_t commande, std::uint8_t table) {
  const bool fait = Ordre('T', {commande, table});
  echangePerdu_ = echangePerdu_ || !fait;
  return fait;
}

std::string ClsCdeZENIK::NomSurCarte(std::uint8_t table) {
  OrdreTable(LitBloc1, table);
  return TexteDe(DebutBloc, DebutBloc + LongueurNomCarte - 1);
}

std::string ClsCdeZENIK::TableLectureNom(std::uint8_t table) { return DeWindows1252(NomSurCarte(table)); }

std::int16_t ClsCdeZENIK::TableRecherche(const std::string& nom) {
  const auto octets = EnWindows1252(nom);
  if (!octets) return -1;
  const std::string cherche = SansBlancs(*octets);
  for (std::uint8_t n = 0; n < NbTablesCarte; ++n) {
    if (SansBlancs(NomSurCarte(n)) == cherche && !echangePerdu_) return n;
  }
  return -1;
}

void ClsCdeZENIK::TableDefautEcrire(std::uint8_t table) { OrdreTable(EcritDefaut, table); }

std::uint8_t ClsCdeZENIK::TableDefautLire() {
  const bool lu = Ordre('T', {LitDefaut});
  echangePerdu_ = echangePerdu_ || !lu;
  return Tampon[3];
}

bool ClsCdeZENIK::TableCompare(std::uint8_t table) {
  const auto bloc = [this] { return std::span(Tampon).subspan<DebutBloc, 33>(); };
  ecarts_.clear();
  if (!OrdreTable(LitBloc1, table)) return false;
  ecarts_ = EcartsPremierBloc(bloc(), parametres_, Regl.Langue);
  if (!ecarts_.empty() || !OrdreTable(LitBloc2, table)) return false;
  ecarts_ = EcartsDeuxiemeBloc(bloc(), parametres_);
  if (!ecarts_.empty()) return false;
  OrdreTable(LitBloc3, table);  // its answer says nothing
  return true;
}

void ClsCdeZENIK::EcritBloc(std::uint8_t commande, std::uint8_t table, const std::array<std::uint8_t, 33>& bloc) {
  std::copy(bloc.begin(), bloc.end(), Tampon.begin() + DebutBloc);
  OrdreTable(commande, table);
}

void ClsCdeZENIK::TableEcrire(const std::string& nom, std::uint8_t table) {
  const auto octets = EnWindows1252(nom);
  if (!octets) return RefuseNom(nom);
  const ParametresZENIK p = AvecAxes(LitPourEcrire(nom), parametres_);
  DitDebords(nom, p);
  if (parametres_.Multiplicateur != p.Multiplicateur) {
    parametres_.Multiplicateur = p.Multiplicateur;
    parametres_.TableFreq = CalculTableFreq(p.Multiplicateur, parametres_.TempsPalier);
  }
  EcritBloc(EcritBloc1, table, PremierBloc(p, *octets, Regl.Langue));
  EcritBloc(EcritBloc2, table, DeuxiemeBloc(p));
  EcritBloc(EcritBloc3, table, {});
}

void ClsCdeZENIK::RefuseNom(const std::string& nom) {
  BoiteMessage boite = BoiteDe(Textes::NomTableHorsJeu, Icone::Critique);
  boite.texte += " " + nom;
  Svc.Montre(boite);
}

// Before the writing: the motor would run at another speed than the table says.
void ClsCdeZENIK::DitDebords(const std::string& nom, const ParametresZENIK& p) {
  std::string texte;
  for (const std::string& debord : Debords(p)) texte += "\n" + debord;
  if (texte.empty() || !debordsDits_.insert(nom + texte).second) return;
  BoiteMessage boite = BoiteDe(Textes::TableDeborde, Icone::Exclamation);
  boite.texte += " " + nom + texte;
  Svc.Montre(boite);
}

// Asked once for the same differences: what the writer writes for a missing key never is what the check expects.
bool ClsCdeZENIK::VeutEcrire(std::uint8_t table) {
  std::string question = TableDefaut + "\n" + std::to_string(table);
  for (const EcartTable& e : ecarts_) {
    question += "\n" + std::to_string(e.octet) + ":" + std::to_string(e.carte) + "/" + std::to_string(e.programme);
  }
  const auto connue = reponsesTables_.find(question);
  if (connue != reponsesTables_.end()) return connue->second;
  const bool oui = Message(Textes::TableDifferente, Icone::Question, Boutons::OuiNon, TableDefaut) == Reponse::Oui;
  reponsesTables_[question] = oui;
  return oui;
}

void ClsCdeZENIK::AccordeTable(std::uint8_t table) {
  if (TableDefautLire() != table && !echangePerdu_) TableDefautEcrire(table);
  if (echangePerdu_ || TableCompare(table) || echangePerdu_) return;
  if (VeutEcrire(table)) TableEcrire(TableDefaut, table);
}

// The fourth slot is never filled. Where it comes to the window the board's default is the fourth, whatever the
// user has picked: the next check finds the table in its real place and corrects that.
void ClsCdeZENIK::PlaceTable() {
  std::uint8_t n = 0;
  while (n < TableHorsChoix) {
    const bool libre = SansNom(NomSurCarte(n));
    if (echangePerdu_) return;
    if (libre) break;
    ++n;
  }
  if (n < TableHorsChoix) {
    TableEcrire(TableDefaut, n);
  } else {
    NomSurCarte(n);
    Svc.OuvreFenetre("F_ChangtTable");
  }
  TableDefautEcrire(n);
}

bool ClsCdeZENIK::TableVerif() {
  if (!IsAvailable() || !AccepteVersion(DemandeVersion())) return false;
  ChargeParametres();
  if (!EnWindows1252(TableDefaut)) {
    RefuseNom(TableDefaut);
    return false;
  }
  echangePerdu_ = false;
  const std::int16_t n = TableRecherche(TableDefaut);
  if (echangePerdu_) return false;
  if (n >= 0) {
    AccordeTable(static_cast<std::uint8_t>(n));
  } else {
    PlaceTable();
  }
  return !echangePerdu_;
}

void ClsCdeZENIK::SuitTable() {
  ChargeParametres();
  if (!IsAvailable()) return;
  echangePerdu_ = false;
  const std::int16_t n = TableRecherche(TableDefaut);
  if (n >= 0) TableDefautEcrire(static_cast<std::uint8_t>(n));
}

void ClsCdeZENIK::Reprend(const ClsCdeZENIK& avant) {
  tenuesDites_ = avant.tenuesDites_;
  debordsDits_ = avant.debordsDits_;
  reponsesTables_ = avant.reponsesTables_;
}

std::string ClsCdeZENIK::DemandeVersion() {
  Ordre('V', {});
  return TexteDe(2, Tampon.size() - 1);
}

}  // namespace ovelin
