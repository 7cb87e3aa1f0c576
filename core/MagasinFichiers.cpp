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
  bool lisible = true;   // false: it is there and can't be read
  bool modifie = false;  // holds writes of the batch
  FichierIni ini;
};

struct ProjetTenu {
  std::string chemin;
  Empreinte empreinte;
  bool sure = false;
  long lot = 0;
  Reglages index;
};

struct Tenu {
  std::map<std::string, IniTenu> inis;
  ProjetTenu projet;
  // Lines that wait for the end of the batch, by file, in the order of their writing.
  std::map<std::string, std::vector<std::pair<std::string, std::string>>> attente;
  int profondeurLot = 0;
  long numeroLot = 0;  // of the batch that stands, from 1
  std::string cheminRedirige;
  std::string* texteRedirige = nullptr;
};
Tenu T;
[[maybe_unused]] const bool enregistree = EnregistreRemise([] { T = Tenu{}; });

void Echec(const ErreurSysteme& erreur) {
  if (Magasin.DerniereErreur.empty()) Magasin.DerniereErreur = erreur;
}

bool LuDansCeLot(long lot) { return T.profondeurLot > 0 && lot == T.numeroLot; }

IniTenu& Charge(const std::string& chemin) {
  IniTenu& tenu = T.inis[chemin];
  if (tenu.modifie || LuDansCeLot(tenu.lot)) return tenu;
  const Empreinte e = Releve(chemin);
  if (tenu.sure && e == tenu.empreinte) return tenu;
  tenu = IniTenu{};
  tenu.empreinte = e;
  if (e.existe) {
    ErreurSysteme raison;
    const auto octets = LitFichierEntier(chemin, &raison);
    tenu.lisible = octets.has_value();
    if (octets) tenu.ini = FichierIni(*octets);
  }
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

void EcritInis() {
  for (auto i = T.inis.begin(); i != T.inis.end();) {
    if (!i->second.modifie) {
      ++i;
      continue;
    }
    const ErreurSysteme erreur = EcritFichierEntier(i->first, i->second.ini.Octets());
    if (!erreur.empty()) Echec(erreur);
    i = T.inis.erase(i);  // what stands on disk counts from now on
  }
}

// The lines placed in a project, which may be a large file for the sake of a short line.
ErreurSysteme PlaceLignes(const std::string& chemin,
                          const std::vector<std::pair<std::string, std::string>>& lignes) {
  try {
    std::string contenu;
    if (Releve(chemin).existe) {
      ErreurSysteme raison;
      auto octets = LitFichierEntier(chemin, &raison);
      if (!octets) return raison;
      contenu = std::move(*octets);
    }
    for (const auto& [cle, valeur] : lignes) PlaceLigne(contenu, cle, valeur);
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

}  // namespace

const FichierIni& Ini(const std::string& chemin) { return Charge(chemin).ini; }

void ModifieIni(const std::string& chemin, const std::function<void(FichierIni&)>& change) {
  DebutLot();
  IniTenu& tenu = Charge(chemin);
  if (tenu.lisible) {
    change(tenu.ini);
    tenu.modifie = true;
  } else {
    ErreurSysteme raison;
    LitFichierEntier(chemin, &raison);
    Echec(raison);
  }
  FinLot();
}

std::optional<std::string> CleProjet(const std::string& chemin, std::string_view cle8) {
  if (const auto lignes = T.attente.find(chemin); lignes != T.attente.end()) {
    for (auto i = lignes->second.rbegin(); i != lignes->second.rend(); ++i) {
      if (i->first == cle8) return Rogne(i->second);  // as it will be read from the file
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
  if (T.texteRedirige != nullptr && chemin == T.cheminRedirige) {
    PlaceLigne(*T.texteRedirige, cle8, valeur);
    return;
  }
  // A drawing of another format that was opened from the command line stands as the project too: never into it.
  if (ExtensionDe(chemin) != "OVL" || LectureSeule(chemin)) return;
  DebutLot();
  T.attente[chemin].emplace_back(cle8, std::move(valeur));
  FinLot();
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
