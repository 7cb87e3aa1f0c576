#include "core/ValeursCles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Lignes.h"
#include "core/MagasinFichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Texte8.h"
#include "core/Traduction.h"
#include "core/Types.h"

namespace ovelin {

namespace {

constexpr double LongueurMax = 1e6;  // mm and mm/s, far beyond any machine
constexpr double Entier16 = std::numeric_limits<std::int16_t>::max();
constexpr double Entier32 = std::numeric_limits<std::int32_t>::max();

struct Nombre {
  std::string_view cle;
  double min, max;
};

// Keys of the section of the program that hold a number, with what the value can take.
constexpr Nombre Nombres[] = {
    {"Vitesse_Mat_H", -LongueurMax, LongueurMax},
    {"Vitesse_Mat_V", -LongueurMax, LongueurMax},
    {"HautDeg", -LongueurMax, LongueurMax},
    {"ProfFraisage", -LongueurMax, LongueurMax},
    {"ProfPasse", -LongueurMax, LongueurMax},
    {"MiniEncoche", -LongueurMax, LongueurMax},
    {"ModeZENIK", -Entier16, Entier16},
    {"CouleurNumero", -Entier32, Entier32},
    {"CouleurSequence", -Entier32, Entier32},
    {"CouleurInitial", -Entier32, Entier32},
    {"Couleurselectionne", -Entier32, Entier32},
    {"CouleurDecalage", -Entier32, Entier32},
    {"CouleurEncoche", -Entier32, Entier32},
    {"CouleurDeselectionne", -Entier32, Entier32},
    {"PCPoche", -Entier16, Entier16},
    {"TimerInterval", -Entier32, Entier32},
    {"gMaxMRU", -Entier32, Entier32},
    {"DecalageOutil", -Entier16, 3},  // what is below 1 counts as 1
    {"RayonFraise", 0, LongueurMax},
    {"LargeurEncoche", -LongueurMax, LongueurMax},
    {"ToleranceSoudure", -LongueurMax, LongueurMax},
};

constexpr std::array<std::string_view, 9> Textes{"Language",   "TableDefaut", "MatDefaut",
                                                 "DebugZENIK", "DebugAccel",  "AdresseMaj",
                                                 "Fichier",    "CarteZENIK",  "ConfirmSuppr"};
constexpr std::array<std::string_view, 7> Placements{"_LEFT", "_TOP", "_WIDTH",  "_HEIGHT",
                                                     "_MAX",  "_BD",  "_PANNEAU"};

// Fields of a machine table: the numbers that a family counts.
struct Plage {
  std::string_view famille;
  int premier, dernier;
};
constexpr Plage Champs[] = {
    {"TB_SAV_", 0, 32},    {"TB_SAV_", 188888, 188888}, {"CB_SAV_", 0, 3},     {"CB_SAV_", 12, 17},
    {"CB_SAV_", 101, 110}, {"COMBO_SAV_", 0, 14},       {"OPTION_SAV_", 0, 1}, {"SLD_SAV_", 0, 0},
};

bool MemeCle(std::string_view a, std::string_view b) { return Majuscules(a) == Majuscules(b); }

// The number behind `racine`; nothing when there is none.
std::optional<int> Rang(std::string_view nom, std::string_view racine) {
  if (!nom.starts_with(racine)) return std::nullopt;
  const std::string_view chiffres = nom.substr(racine.size());
  const bool bons = !chiffres.empty() && chiffres.size() <= 9 &&
                    std::all_of(chiffres.begin(), chiffres.end(), [](char c) { return c >= '0' && c <= '9'; });
  return bons ? std::optional(std::stoi(std::string(chiffres))) : std::nullopt;
}

std::optional<FauteCle> JugeNombre(std::string_view valeur, double min, double max) {
  const auto v = LitNombre(valeur);
  if (!v) return FauteCle::Illisible;
  return *v < min || *v > max ? std::optional(FauteCle::Limites) : std::nullopt;
}

// Name, radius, tool, depth, depth of a pass, two speeds, width and height of the notches, parted by tabs.
std::optional<FauteCle> JugeFiche(std::string_view valeur) {
  constexpr std::size_t nombreChamps = 9;
  std::size_t rang = 0;
  for (std::string_view reste = valeur;; ++rang) {
    const std::size_t fin = reste.find('\t');
    const bool texte = rang == 0 || rang == 2;
    if (!texte && JugeNombre(reste.substr(0, fin), -LongueurMax, LongueurMax)) return FauteCle::Illisible;
    if (fin == std::string_view::npos) break;
    reste = reste.substr(fin + 1);
  }
  return rang + 1 == nombreChamps ? std::nullopt : std::optional(FauteCle::Illisible);
}

bool EstChamp(std::string_view nom) {
  return std::any_of(std::begin(Champs), std::end(Champs), [nom](const Plage& p) {
    const auto rang = Rang(nom, p.famille);
    return rang && *rang >= p.premier && *rang <= p.dernier;
  });
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
  return !Rogne(FichierProjet).empty() && !DossierDe(FichierCourant).empty() && cle != "gMaxMRU" &&
         cle != "ToleranceSoudure" && magasin::CleProjet(FichierCourant, EnTexte8(cle)).has_value();
}

bool Surchargee(std::string_view cle) {
  return std::any_of(Magasin.Surcharge.begin(), Magasin.Surcharge.end(),
                     [cle](const auto& paire) { return MemeCle(paire.first, cle); });
}

void AjouteIni(std::vector<ValeurIllisible>& liste, std::string_view section, std::string_view cle,
               const std::string& valeur) {
  liste.push_back({CheminIni(), magasin::Ini(CheminIni()).LigneDe(section, cle), std::string(cle), valeur});
}

void JugeReglage(std::vector<ValeurIllisible>& liste, const Nombre& n) {
  if (Surchargee(n.cle)) return;  // judged where it was given
  constexpr std::string_view absente("\0", 1);
  const std::string valeur = LireCle(n.cle, absente);
  if (valeur == absente || !JugeNombre(valeur, n.min, n.max)) return;
  if (!DuProjet(n.cle)) return AjouteIni(liste, "OVELIN", n.cle, valeur);
  const auto contenu = LitFichierEntier(FichierCourant);
  liste.push_back({FichierCourant, LigneProjet(contenu.value_or(""), EnTexte8(n.cle)), std::string(n.cle), valeur});
}

}  // namespace

std::optional<FauteCle> JugeCle(std::string_view cle, std::string_view valeur) {
  const std::string nom = Majuscules(cle);
  for (const Nombre& n : Nombres) {
    if (MemeCle(n.cle, nom)) return JugeNombre(valeur, n.min, n.max);
  }
  if (EstChamp(nom)) return JugeNombre(valeur, -Entier32, Entier32);
  if (const auto rang = Rang(nom, "DB")) return *rang > 0 ? JugeFiche(valeur) : std::optional(FauteCle::Inconnue);
  if (const auto rang = Rang(nom, "MRUFILES"); rang && *rang > 0) return std::nullopt;
  for (const std::string_view texte : Textes) {
    if (MemeCle(texte, nom)) return std::nullopt;
  }
  if (nom.starts_with("F_")) {
    for (const std::string_view suffixe : Placements) {
      if (nom.ends_with(suffixe)) return JugeNombre(valeur, -Entier32, Entier32);
    }
  }
  if (MemeCle(nom, "OptionLPT")) return JugeNombre(valeur, -Entier16, Entier16);
  return FauteCle::Inconnue;
}

std::string TexteValeur(const ValeurIllisible& v) {
  std::string texte = v.fichier;
  if (v.ligne > 0) texte += ":" + std::to_string(v.ligne);
  return texte + ": " + v.cle + "=" + v.valeur;
}

void AvertitValeurs(const std::vector<ValeurIllisible>& valeurs) {
  if (valeurs.empty()) return;
  Boite boite;
  boite.section = "erreurs";
  boite.cle = "Valeur";
  boite.texte = Traduire(boite.section, boite.cle);
  for (const ValeurIllisible& v : valeurs) boite.texte += "\n" + TexteValeur(v);
  boite.titre = NomProgramme;
  boite.icone = Icone::Exclamation;
  boite.fichier = valeurs.front().fichier;
  boite.ligne = valeurs.front().ligne;
  Svc.Montre(boite);
}

std::vector<ValeurIllisible> ReglagesIllisibles() {
  std::vector<ValeurIllisible> liste;
  for (const Nombre& n : Nombres) JugeReglage(liste, n);
  const std::string section = "table_" + TableDefaut;
  for (const auto& [cle, valeur] : magasin::Ini(CheminIni()).Lignes(section)) {
    // A field that was left empty takes its default, as a key that isn't there.
    if (!EstChamp(Majuscules(cle)) || Rogne(valeur).empty() || Surchargee(cle)) continue;
    if (JugeNombre(valeur, -Entier32, Entier32)) AjouteIni(liste, section, cle, valeur);
  }
  return liste;
}

}  // namespace ovelin
