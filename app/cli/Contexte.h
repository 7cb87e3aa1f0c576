// What one call of the command line carries: common options, the boxes shown, and how results leave the program.
#pragma once

#include <initializer_list>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Services.h"
#include "core/Traduction.h"
#include "workspace/Module_Ouverture.h"

namespace ovelin::cli {

using Json = nlohmann::ordered_json;

inline constexpr int Fait = 0;
inline constexpr int Refuse = 1;
inline constexpr int Usage = 2;
inline constexpr int FinParSignal = 130;

struct Contexte {
  // common options
  std::string config, langue, decimale, table, materiau;
  std::string unite;  // of a drawing in SVG that has none: "mm", "cm", "in", "pt", "px"
  int page = 1;       // of a PDF
  bool json = false;
  bool informe = false;  // the call writes no job and no file: what can't be read is told, and the call goes on
  std::vector<std::string> reglages;  // KEY=VALUE
  std::vector<std::string> reponses;  // KEY=yes|no|ok|cancel, F_ChangtTable=0|1|2|cancel

  // of the calls that open a board
  std::string fil, fichierCarte;
  std::vector<std::string> fautes;   // N:KIND
  std::string parcours;              // OUT.svg, OUT.csv
  std::vector<std::string> modeles;  // AXIS:FREE:RAMP:PLAY
  std::vector<std::string> gestes;   // N:WHAT
  bool rapide = false;

  std::map<std::string, Reponse> reponsesParCle;
  std::map<std::string, std::optional<int>> choixParFenetre;
  BoiteMessage derniere;  // last box that told of a refusal
};

// Services of a terminal: boxes to standard error, questions from --answer, a bar for what takes over a second.
void InstalleServices(Contexte& contexte);

// A refusal of this call: its text to standard error, {"error":{...}} to standard output with --json. Returns 1.
int Echec(const Contexte& contexte, std::string_view cle, const std::string& texte, const std::string& fichier = "",
          long ligne = 0);
// The same by the key of a text: the text, then `suite`.
int Echec(const Contexte& contexte, CleTexte texte, const std::string& suite, const std::string& fichier = "");
// The same with the last box shown.
int EchecBoite(const Contexte& contexte);

// Result of a call: the JSON object with --json, otherwise one "name: value" a line. Returns 0.
int Resultat(const Contexte& contexte, const Json& objet);

// Starts the program below the windows with the common options. 0, or 1 when the options are refused.
int Demarre(Contexte& contexte);
// Opens a drawing as the window does, with ratio 1, and applies --material. 0 or 1.
int OuvreDessin(Contexte& contexte, const std::string& chemin, ContenuLu* contenu = nullptr);
// A key and the value that it is to take: refused when there is no such key, or when it can't hold that value.
// `lieu`: the file or the option that they stand in. 0 or 1.
int RefuseValeur(const Contexte& contexte, const std::string& cle, const std::string& valeur,
                 const std::string& lieu);
// Looks at an output before anything is read: refused when it is one of the inputs, through links too, or when its
// extension is not `extension` in either case ("" for any). A device or a pipe has none. 0 or 1.
int VerifieSortie(const Contexte& contexte, const std::string& sortie, std::string_view extension,
                  std::initializer_list<std::string> entrees);
// Writes a result file whole; 0 or 1.
int EcritResultat(const Contexte& contexte, const std::string& chemin, std::string_view octets);

// Behind the text of a name that the settings file doesn't hold: the name, and the file that was looked at.
std::string DansReglages(const std::string& nom);
// Number of a row of the material database by its name (either case); 0 when there is none.
int RangMateriau(const std::string& nom);

}  // namespace ovelin::cli
