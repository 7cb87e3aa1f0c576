// check: a G-code file judged line by line and measured, without a board. play: the same run on one.
#include "app/cli/CommandesGcode.h"

#include <cstdio>

#include "app/cli/CarteAppel.h"
#include "app/cli/Signaux.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Fichiers.h"
#include "core/Texte8.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "gcode/Mesure.h"
#include "gcode/Module_FraisageGcode.h"
#include "gcode/Module_Gcode.h"

namespace ovelin::cli {

namespace {

constexpr std::size_t LignesMontrees = 20;
constexpr std::size_t LongueurMontree = 80;

// The lines that are no comment and not plainly valid, on standard error: the first ones, then how many more.
void DitLignes(const std::string& fichier, const Programme& programme) {
  std::size_t vues = 0;
  for (std::size_t i = 0; i < programme.NombreLignes(); ++i) {
    const Jugement jugement = programme.JugementDe(i);
    if (jugement != Jugement::Refusee && jugement != Jugement::Douteuse) continue;
    if (++vues > LignesMontrees) continue;
    const CleTexte texte = jugement == Jugement::Refusee ? Textes::LigneRefusee : Textes::LigneDouteuse;
    std::fprintf(stderr, "%s:%zu: %s: %s\n", fichier.c_str(), i + 1, Traduire(texte).c_str(),
                 DeTexte8(Coupe8(programme.Ligne(i), LongueurMontree)).c_str());
  }
  if (vues > LignesMontrees) {
    std::fprintf(stderr, "%s: %zu %s\n", fichier.c_str(), vues - LignesMontrees,
                 Traduire(Textes::AutresLignes).c_str());
  }
}

Json NumerosDe(const Programme& programme, Jugement jugement) {
  Json numeros = Json::array();
  for (std::size_t i = 0; i < programme.NombreLignes(); ++i) {
    if (programme.JugementDe(i) == jugement) numeros.push_back(i + 1);
  }
  return numeros;
}

void DitHorsCourse(const std::string& fichier, const MesureProgramme& mesure) {
  const std::string texte = TexteHorsCourse(mesure);
  if (!texte.empty()) std::fprintf(stderr, "%s: %s\n", fichier.c_str(), texte.c_str());
}

int Joue(Contexte& contexte, const std::string& fichier, const Programme& programme, Json& objet) {
  const MesureProgramme mesure = MesureDe(programme, {}, false);
  std::uint32_t mouvements = 0;
  Vue_Gcode.Mouvement = [&](std::size_t, std::uint32_t numero) { mouvements = numero; };
  Vue_Gcode.Broche = [&](double pourcent) { objet["spindle_percent"] = pourcent; };
  DitHorsCourse(fichier, mesure);
  IssueGcode issue = IssueGcode::Refusee;
  {
    const EcouteSignaux signaux;
    issue = LanceGcode(programme, mesure);
  }
  Vue_Gcode = VueGcode{};
  if (issue == IssueGcode::Refusee) return EchecBoite(contexte);
  const ClsCdeZENIK& cde = *CdeZENIK;
  objet["state"] = issue == IssueGcode::Terminee ? "ended" : "stopped";
  objet["moves"] = mouvements;
  objet["planned"] = mesure.mouvements;
  objet["position"] = Json{{"x", cde.PosX}, {"y", cde.PosY}, {"z", cde.PosZ}};
  objet["steps"] = Json{{"x", cde.PasX}, {"y", cde.PasY}, {"z", cde.PasZ}};
  if (issue == IssueGcode::Terminee) return Fait;
  return EcouteSignaux::Venu() ? FinParSignal : Refuse;
}

}  // namespace

int JoueProgramme(Contexte& contexte, const std::string& fichier) {
  const ProgrammeLu lu = LitProgramme(fichier);
  if (!lu.refus.empty()) return Echec(contexte, Textes::LectureRefusee, "\n" + fichier + ": " + lu.refus, fichier);
  CarteAppel carte(contexte);
  if (const int etat = carte.Ouvre({fichier})) return etat;
  Json objet;
  const int etat = carte.Ferme(Joue(contexte, fichier, lu.programme, objet));
  if (!objet.is_null()) Resultat(contexte, objet);
  return etat;
}

int Verifie(Contexte& contexte, const std::string& fichier) {
  const ProgrammeLu lu = LitProgramme(fichier);
  if (!lu.refus.empty()) return Echec(contexte, Textes::LectureRefusee, "\n" + fichier + ": " + lu.refus, fichier);
  const ComptesProgramme& comptes = lu.programme.Comptes();
  const MesureProgramme mesure = MesureDe(lu.programme, {}, false);
  DitLignes(fichier, lu.programme);
  if (mesure.sansVitesse > 0) {
    std::fprintf(stderr, "%s:%zu: %s\n", fichier.c_str(), mesure.ligneSansVitesse,
                 TexteSansVitesse(mesure).c_str());
  }
  DitHorsCourse(fichier, mesure);
  const BornesProgramme& b = mesure.bornes;
  Json objet;
  objet["lines"] = lu.programme.NombreLignes();
  objet["valid"] = comptes.valides;
  objet["doubtful"] = comptes.douteuses;
  objet["comments"] = comptes.commentaires;
  objet["invalid"] = comptes.refusees;
  objet["moves"] = mesure.mouvements;
  objet["without_speed"] = mesure.sansVitesse;
  objet["length"] = mesure.longueur;
  objet["rapid_length"] = mesure.longueurRapide;
  objet["seconds"] = mesure.secondes;
  objet["bounds"] = Json{{"xmin", b.Xmin}, {"xmax", b.Xmax}, {"ymin", b.Ymin},
                         {"ymax", b.Ymax}, {"zmin", b.Zmin}, {"zmax", b.Zmax}};
  objet["beyond_travel"] = !TexteHorsCourse(mesure).empty();
  if (contexte.json) {
    objet["invalid_lines"] = NumerosDe(lu.programme, Jugement::Refusee);
    objet["doubtful_lines"] = NumerosDe(lu.programme, Jugement::Douteuse);
  }
  return Resultat(contexte, objet);
}

}  // namespace ovelin::cli
