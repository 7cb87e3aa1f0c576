#include "core/MagasinFichiers.h"

#include <cerrno>
#include <chrono>
#include <map>
#include <new>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/Cles.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/Lignes.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Verrou.h"

namespace ovelin::magasin {

namespace {

// File times advance in steps of some milliseconds: a file written a moment ago may be written once more, to the
// same length, without a trace in its times. What was read so soon is read again the next time.
bool TropRecente(const Empreinte& e) {
  using namespace std::chrono;
  const auto temps = seconds(e.contenu.tv_sec) + nanoseconds(e.contenu.tv_nsec);
  const auto maintenant = system_clock::now().time_since_epoch();
  const auto age = duration_cast<nanoseconds>(maintenant) - temps;
  return e.existe && age < milliseconds(100) && age > -seconds(2);
}

struct IniTenu {
  Empreinte empreinte;
  bool sure = false;     // the print tells every later change
  long lot = 0;          // batch in which it was read: one reading a batch
  ErreurSysteme raison;  // why it can't be read though it is there
  FichierIni ini;
  std::vector<Changement> changements;  // writes of the batch, which `ini` holds already
};

struct ProjetTenu {
  std::string chemin;
  Empreinte empreinte;
  bool sure = false;
  long lot = 0;
  Reglages index;
};

// A line of a project to be placed; without a value, to be taken out.
struct LigneProjet {
  std::string cle8;
  std::optional<std::string> valeur8;

  void Applique(std::string& contenu) const {
    if (valeur8) {
      PlaceLigne(contenu, cle8, *valeur8);
    } else {
      OteLigne(contenu, cle8);
    }
  }
};

struct Tenu {
  std::map<std::string, IniTenu> inis;
  ProjetTenu projet;
  // Lines that wait for the end of the batch, by file, in the order of their writing.
  std::map<std::string, std::vector<LigneProjet>> attente;
  int profondeurLot = 0;
  long numeroLot = 0;  // of the batch that stands, from 1
  std::string cheminRedirige;
  std::string* texteRedirige = nullptr;
};
Tenu T;
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { T = Tenu{}; });

void Echec(const ErreurSysteme& erreur) {
  if (Magasin.DerniereErreur.empty()) Magasin.DerniereErreur = erreur;
}

// A settings file has some kilobytes; one of this size is none, and reading it would take the program's memory.
constexpr off_t TailleIniMax = 8'000'000;  // bytes

ErreurSysteme LitIni(const std::string& chemin, const Empreinte& e, FichierIni& ini) {
  ini = FichierIni{};
  if (!e.existe) return "";
  if (e.taille > TailleIniMax) return std::generic_category().message(EFBIG);
  ErreurSysteme raison;
  if (const auto octets = LitFichierEntier(chemin, &raison)) ini = FichierIni(*octets);
  return raison;
}

bool LuDansCeLot(long lot) { return T.profondeurLot > 0 && lot == T.numeroLot; }

IniTenu& Charge(const std::string& chemin) {
  IniTenu& tenu = T.inis[chemin];
  if (!tenu.changements.empty() || LuDansCeLot(tenu.lot)) return tenu;
  const Empreinte e = Releve(chemin);
  if (tenu.sure && e == tenu.empreinte) return tenu;
  tenu = IniTenu{};
  tenu.empreinte = e;
  tenu.raison = LitIni(chemin, e, tenu.ini);
  tenu.sure = !TropRecente(e) && Releve(chemin) == e;
  tenu.lot = T.profondeurLot > 0 ? T.numeroLot : 0;
  return tenu;
}

void ChargeProjet(const std::string& chemin) {
  ProjetTenu& p = T.projet;
  if (p.chemin == chemin && LuDansCeLot(p.lot)) return;
  const Empreinte e = Releve(chemin);
  if (p.sure && p.chemin == chemin && p.empreinte == e) return;
  Reglages reglages;
  if (e.existe) {
    if (const auto octets = LitFichierEntier(chemin)) reglages = IndexeReglages(*octets);
  }
  PoseProjet(chemin, e, std::move(reglages));
}

// The writes of a batch onto the file as it stands now: another process may have written it since it was read here.
// Nobody else writes between that reading and the new file's name.
ErreurSysteme EcritChangements(const std::string& chemin, const std::vector<Changement>& changements) {
  Verrou verrou;
  if (ErreurSysteme tenu = verrou.Prend(chemin, Magasin.AttenteVerrou); !tenu.empty()) return tenu;
  FichierIni ini;
  if (ErreurSysteme raison = LitIni(chemin, Releve(chemin), ini); !raison.empty()) return raison;
  for (const Changement& change : changements) change(ini);
  return EcritFichierEntier(chemin, ini.Octets());
}

void EcritInis() {
  for (auto i = T.inis.begin(); i != T.inis.end();) {
    if (i->second.changements.empty()) {
      ++i;
      continue;
    }
    const ErreurSysteme erreur = EcritChangements(i->first, i->second.changements);
    if (!erreur.empty()) Echec(erreur);
    i = T.inis.erase(i);  // what stands on disk counts from now on
  }
}

// The lines placed in a project, which may be a large file for the sake of a short line.
ErreurSysteme PlaceLignes(const std::string& chemin, const std::vector<LigneProjet>& lignes) {
  try {
    std::string contenu;
    if (Releve(chemin).existe) {
      ErreurSysteme raison;
      auto octets = LitFichierEntier(chemin, &raison);
      if (!octets) return raison;
      contenu = std::move(*octets);
    }
    for (const LigneProjet& ligne : lignes) ligne.Applique(contenu);
    return EcritFichierEntier(chemin, contenu);
  } catch (const std::bad_alloc&) {
    return std::generic_category().message(ENOMEM);
  }
}

void EcritAttente() {
  constexpr off_t seuilFond = 1'000'000;  // bytes from which a file is worth a thread
  const auto attente = std::exchange(T.attente, {});
  for (const auto& fichier : attente) {
    const auto& chemin = fichier.first;  // no structured binding: clang 14 lets no lambda capture one
    const auto& lignes = fichier.second;
    ErreurSysteme erreur;
    TravailleSi(Releve(chemin).taille >= seuilFond, [&] { erreur = PlaceLignes(chemin, lignes); });
    if (!erreur.empty()) Echec(erreur);
    OublieProjet(chemin);
  }
}

void Change(const std::string& chemin, LigneProjet&& ligne) {
  if (T.texteRedirige != nullptr && chemin == T.cheminRedirige) {
    ligne.Applique(*T.texteRedirige);
    return;
  }
  // A drawing of another format that was opened from the command line stands as the project too: never into it.
  if (ExtensionDe(chemin) != "OVL" || LectureSeule(chemin)) return;
  DebutLot();
  T.attente[chemin].push_back(std::move(ligne));
  FinLot();
}

}  // namespace

const FichierIni& Ini(const std::string& chemin) { return Charge(chemin).ini; }

ErreurSysteme RaisonIni(const std::string& chemin) { return Charge(chemin).raison; }

void ModifieIni(const std::string& chemin, const Changement& change) {
  DebutLot();
  IniTenu& tenu = Charge(chemin);
  if (tenu.raison.empty()) {
    change(tenu.ini);
    tenu.changements.push_back(change);
  } else {
    Echec(tenu.raison);
  }
  FinLot();
}

std::optional<std::string> CleProjet(const std::string& chemin, std::string_view cle8) {
  if (const auto lignes = T.attente.find(chemin); lignes != T.attente.end()) {
    for (auto i = lignes->second.rbegin(); i != lignes->second.rend(); ++i) {
      if (i->cle8 != cle8) continue;
      return i->valeur8 ? std::optional(Rogne(*i->valeur8)) : std::nullopt;  // as it will be read from the file
    }
  }
  ChargeProjet(chemin);
  const auto trouve = T.projet.index.find(std::string(cle8));
  return trouve == T.projet.index.end() ? std::nullopt : std::optional(trouve->second);
}

void PlaceCleProjet(const std::string& chemin, std::string_view cle8, std::string_view valeur8) {
  std::string valeur(valeur8);
  for (char& c : valeur) {
    if (c == '\r' || c == '\n') c = ' ';  // one line, whatever the value holds
  }
  Change(chemin, {std::string(cle8), std::move(valeur)});
}

void OteCleProjet(const std::string& chemin, std::string_view cle8) {
  Change(chemin, {std::string(cle8), std::nullopt});
}

void PoseProjet(const std::string& chemin, const Empreinte& avant, Reglages&& reglages) {
  const bool sure = !TropRecente(avant) && Releve(chemin) == avant;
  T.projet = {chemin, avant, sure, T.profondeurLot > 0 ? T.numeroLot : 0, std::move(reglages)};
}

void DebutLot() {
  if (T.profondeurLot++ == 0) ++T.numeroLot;
}

void FinLot() {
  if (T.profondeurLot > 0 && --T.profondeurLot > 0) return;
  EcritInis();
  EcritAttente();
}

void OublieProjet(const std::string& chemin) {
  if (T.projet.chemin == chemin) T.projet = ProjetTenu{};
}

void Oublie() {
  T.inis.clear();
  T.projet = ProjetTenu{};
  T.attente.clear();
}

Redirection::Redirection(std::string chemin, std::string& texte) {
  T.attente.erase(chemin);
  T.cheminRedirige = std::move(chemin);
  T.texteRedirige = &texte;
}

Redirection::~Redirection() {
  T.texteRedirige = nullptr;
  T.cheminRedirige.clear();
}

}  // namespace ovelin::magasin
