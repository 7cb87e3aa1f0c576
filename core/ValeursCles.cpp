#include "core/ValeursCles.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/ChampsMachine.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Lignes.h"
#include "core/MagasinFichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Texte8.h"
#include "core/Textes.h"
#include "core/Types.h"

namespace ovelin {

namespace {

constexpr double LongueurMax = 1e6;  // mm and mm/s, far beyond any machine
constexpr double Max16 = std::numeric_limits<std::int16_t>::max();
constexpr double Max32 = std::numeric_limits<std::int32_t>::max();

// What a key of the settings can take: a number of a range, any text, or nothing but with a number behind the key.
enum class Sorte { Nombre, Mot, Numerotee };
struct Genre {
  Sorte sorte;
  double min = 0, max = 0;
};
constexpr Genre Longueur{Sorte::Nombre, -LongueurMax, LongueurMax};
constexpr Genre Positive{Sorte::Nombre, 0, LongueurMax};
constexpr Genre Angle{Sorte::Nombre, 0, AngleRampeMax};
constexpr Genre Entier16{Sorte::Nombre, -Max16, Max16};
constexpr Genre Entier32{Sorte::Nombre, -Max32, Max32};
constexpr Genre Cote{Sorte::Nombre, -Max16, 3};  // what is below 1 counts as 1
constexpr Genre Mot{Sorte::Mot};
constexpr Genre Numerotee{Sorte::Numerotee};

struct CleConnue {
  std::string_view nom;
  Genre genre;
};
#define REGLAGE(cle, membre, groupe, genre) CLE(cle, genre)
#define CLE(cle, genre) {#cle, genre},
#define SUFFIXE(nom, texte)
constexpr CleConnue Connues[] = {
#include "core/Reglages.def"
};
#undef SUFFIXE
#undef CLE
#define CLE(cle, genre)
#define SUFFIXE(nom, texte) texte,
constexpr std::string_view Placements[] = {
#include "core/Reglages.def"
};
#undef SUFFIXE
#undef CLE
#undef REGLAGE

bool MemeCle(std::string_view a, std::string_view b) { return Majuscules(a) == Majuscules(b); }

// The number behind `racine`; nothing when there is none.
std::optional<int> Rang(std::string_view nom, std::string_view racine) {
  if (!nom.starts_with(racine)) return std::nullopt;
  const std::string_view chiffres = nom.substr(racine.size());
  const bool bons = !chiffres.empty() && chiffres.size() <= 9 &&
                    std::all_of(chiffres.begin(), chiffres.end(), [](char c) { return c >= '0' && c <= '9'; });
  return bons ? std::optional(std::stoi(std::string(chiffres))) : std::nullopt;
}

std::optional<FauteCle> JugeNombre(std::string_view valeur, const Genre& genre) {
  const auto v = NombreDuTexte(valeur);
  if (!v) return FauteCle::Illisible;
  return *v < genre.min || *v > genre.max ? std::optional(FauteCle::Limites) : std::nullopt;
}

// Name, radius, tool, depth, depth of a pass, two speeds, width and height of the notches, parted by tabs. A row of
// the file may have fields that were left empty; one that is given has all.
std::optional<FauteCle> JugeFiche(std::string_view valeur, bool entiere) {
  constexpr std::size_t nombreChamps = 9;
  std::size_t rang = 0;
  for (std::string_view reste = valeur;; ++rang) {
    const std::size_t fin = reste.find('\t');
    const std::string_view champ = reste.substr(0, fin);
    const bool juge = rang != 0 && rang != 2 && rang < nombreChamps && (entiere || !Rogne(champ).empty());
    if (juge && JugeNombre(champ, Longueur)) return FauteCle::Illisible;
    if (fin == std::string_view::npos) break;
    reste = reste.substr(fin + 1);
  }
  return !entiere || rang + 1 == nombreChamps ? std::nullopt : std::optional(FauteCle::Illisible);
}

// Whether this is the key of a field of a machine table; `nom` in capitals.
bool EstChamp(std::string_view nom) {
  for (std::size_t i = 0; i < NomsFamilles.size(); ++i) {
    const auto rang = Rang(nom, Majuscules(NomsFamilles[i]) + "_");
    if (rang && ChercheChamp(static_cast<FamilleChamp>(i), *rang) != nullptr) return true;
  }
  return false;
}

// Line of a key in a project: the first that begins with "$$", the key and "=".
long LigneProjet(std::string_view contenu, std::string_view cle8) {
  const std::string debut = "$$" + std::string(cle8) + "=";
  std::string_view ligne;
  for (long numero = 1; LigneSuivante(contenu, ligne); ++numero) {
    if (ligne.starts_with(debut)) return numero;
  }
  return 0;
}

bool DuProjet(std::string_view cle) {
  return !Rogne(FichierProjet).empty() && !DossierDe(FichierCourant).empty() && cle != cles::gMaxMRU &&
         cle != cles::ToleranceSoudure && magasin::CleProjet(FichierCourant, EnTexte8(cle)).has_value();
}

bool Surchargee(std::string_view cle) {
  return std::any_of(Magasin.Surcharge.begin(), Magasin.Surcharge.end(),
                     [cle](const auto& paire) { return MemeCle(paire.first, cle); });
}

void AjouteIni(std::vector<ValeurIllisible>& liste, std::string_view section, std::string_view cle,
               const std::string& valeur) {
  liste.push_back({CheminIni(), magasin::Ini(CheminIni()).LigneDe(section, cle), std::string(cle), valeur});
}

void JugeReglage(std::vector<ValeurIllisible>& liste, const CleConnue& c) {
  if (c.genre.sorte != Sorte::Nombre || Surchargee(c.nom)) return;  // the latter is judged where it was given
  constexpr std::string_view absente("\0", 1);
  const std::string valeur = LireCle(c.nom, absente);
  if (valeur == absente || !JugeNombre(valeur, c.genre)) return;
  if (!DuProjet(c.nom)) return AjouteIni(liste, NomProgramme, c.nom, valeur);
  const auto contenu = LitFichierEntier(FichierCourant);
  liste.push_back({FichierCourant, LigneProjet(contenu.value_or(""), EnTexte8(c.nom)), std::string(c.nom), valeur});
}

// A key of the section of the program without a number behind it; nothing when there is none of that name.
const CleConnue* Connue(std::string_view nom) {
  const auto* it = std::find_if(std::begin(Connues), std::end(Connues), [nom](const CleConnue& c) {
    return c.genre.sorte != Sorte::Numerotee && MemeCle(c.nom, nom);
  });
  return it != std::end(Connues) ? it : nullptr;
}

}  // namespace

std::optional<FauteCle> JugeCle(std::string_view cle, std::string_view valeur) {
  const std::string nom = Majuscules(cle);
  if (const CleConnue* connue = Connue(nom)) {
    return connue->genre.sorte == Sorte::Nombre ? JugeNombre(valeur, connue->genre) : std::nullopt;
  }
  if (EstChamp(nom)) return JugeNombre(valeur, Entier32);
  if (const auto rang = Rang(nom, cles::DB))
    return *rang > 0 ? JugeFiche(valeur, true) : std::optional(FauteCle::Inconnue);
  if (const auto rang = Rang(nom, Majuscules(cles::MRUFiles)); rang && *rang > 0) return std::nullopt;
  if (nom.starts_with("F_")) {
    for (const std::string_view suffixe : Placements) {
      if (nom.ends_with(Majuscules(suffixe))) return JugeNombre(valeur, Entier32);
    }
  }
  if (MemeCle(nom, CleOptionLPT)) return JugeNombre(valeur, Entier16);
  return FauteCle::Inconnue;
}

std::string TexteValeur(const ValeurIllisible& v) {
  std::string texte = v.fichier;
  if (v.ligne > 0) texte += ":" + std::to_string(v.ligne);
  return texte + ": " + v.cle + "=" + v.valeur;
}

void AvertitValeurs(const std::vector<ValeurIllisible>& valeurs) {
  if (valeurs.empty()) return;
  BoiteMessage boite = BoiteDe(Textes::ValeurRefusee, Icone::Exclamation);
  for (const ValeurIllisible& v : valeurs) boite.texte += "\n" + TexteValeur(v);
  boite.fichier = valeurs.front().fichier;
  boite.ligne = valeurs.front().ligne;
  Svc.Montre(boite);
}

std::optional<ValeurIllisible> FicheIllisible(int rang) {
  const SansProjet reglages;
  const std::string cle = cles::DB + std::to_string(rang);
  const std::string valeur = LireCle(cle, "");
  if (Surchargee(cle) || !JugeFiche(valeur, false)) return std::nullopt;
  std::vector<ValeurIllisible> liste;
  AjouteIni(liste, NomProgramme, cle, valeur);
  return liste.front();
}

std::vector<ValeurIllisible> ReglagesIllisibles() {
  std::vector<ValeurIllisible> liste;
  for (const CleConnue& c : Connues) JugeReglage(liste, c);
  const std::string section = SectionTable(TableDefaut);
  for (const auto& [cle, valeur] : magasin::Ini(CheminIni()).Lignes(section)) {
    // A field that was left empty takes its default, as a key that isn't there.
    if (!EstChamp(Majuscules(cle)) || Rogne(valeur).empty() || Surchargee(cle)) continue;
    if (JugeNombre(valeur, Entier32)) AjouteIni(liste, section, cle, valeur);
  }
  return liste;
}

}  // namespace ovelin
