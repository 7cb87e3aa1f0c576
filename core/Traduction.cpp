#include "core/Traduction.h"

#include <cstdlib>
#include <unordered_map>

#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/FichierIni.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

constexpr std::size_t LongueurTexte = 255;  // characters of a text as it is read

struct TextesLus {
  bool lus = false;
  std::string langue;
  std::unordered_map<std::string, std::string> parCle;  // section, line feed, key, all in capitals
};
TextesLus Cache;
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Cache = TextesLus{}; });

std::string CleCache(std::string_view section, std::string_view cle) {
  return Majuscules(section) + "\n" + Majuscules(cle);
}

// The language makes part of a file name: letters alone.
bool CodeLangue(std::string_view langue) {
  if (langue.size() != 2) return false;
  for (const char c : langue) {
    if (!((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'))) return false;
  }
  return true;
}

void LitTextes() {
  Cache = TextesLus{};
  Cache.lus = true;
  Cache.langue = Regl.Langue;
  if (!CodeLangue(Regl.Langue)) return;
  const std::string chemin = TrouveFichierProduit(std::string(NomProgramme) + Regl.Langue + ".trad");
  if (chemin.empty()) return;
  const auto contenu = LitFichierEntier(chemin);
  if (!contenu) return;
  const FichierIni ini(*contenu);
  for (const std::string& section : ini.Sections()) {
    for (const auto& [cle, valeur] : ini.Lignes(section)) {
      Cache.parCle.try_emplace(CleCache(section, cle), DeTexte8(Coupe8(EnTexte8(valeur), LongueurTexte)));
    }
  }
}

}  // namespace

std::string Traduire(CleTexte texte) { return Traduire(texte.Section(), texte.Cle()); }

std::string Traduire(std::string_view section, std::string_view cle) {
  if (cle.empty()) return "___";
  if (!Cache.lus || Cache.langue != Regl.Langue) LitTextes();
  const auto trouve = Cache.parCle.find(CleCache(section, cle));
  if (trouve == Cache.parCle.end() || trouve->second == "$$") return std::string(cle);
  return trouve->second;
}

void OublieTraductions() { Cache = TextesLus{}; }

// The names of the system stand for the identifiers of the table: French of France and of Belgium, German of
// Germany, Spanish of Spain, Catalan, Italian of Italy. A language without a country counts as its home country.
std::string LangueDuSysteme(std::string_view locale) {
  const std::string_view nom = locale.substr(0, locale.find_first_of(".@"));
  const std::string majuscules = Majuscules(nom);
  const std::string langue = majuscules.substr(0, 2);
  if (majuscules.size() != 2 && (majuscules.size() != 5 || (majuscules[2] != '_' && majuscules[2] != '-')))
    return "en";
  const std::string pays = majuscules.size() == 5 ? majuscules.substr(3) : "";
  struct Connue {
    const char* langue;
    const char* pays;
    const char* code;
  };
  static constexpr Connue connues[] = {{"FR", "FR", "fr"}, {"FR", "BE", "fr"}, {"DE", "DE", "de"},
                                       {"ES", "ES", "es"}, {"CA", "ES", "ca"}, {"IT", "IT", "it"}};
  for (const Connue& c : connues) {
    if (langue == c.langue && (pays.empty() || pays == c.pays)) return c.code;
  }
  return "en";
}

std::string LocaleSysteme() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (const char* valeur = std::getenv(variable); valeur != nullptr && valeur[0] != '\0') return valeur;
  }
  return "C";
}

const std::vector<LangueConnue>& Langues() {
  static const std::vector<LangueConnue> langues = {{"fr", "Français"}, {"en", "English"}, {"de", "Deutsch"},
                                                    {"es", "Espanol"},  {"ca", "Catalan"}, {"it", "Italiano"},
                                                    {"pt", "Portugues"}};
  return langues;
}

}  // namespace ovelin
