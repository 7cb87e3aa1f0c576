// recover: what dead processes left.
#include "app/cli/CommandesReprise.h"

#include <cstdio>
#include <ctime>

#include "base/Indices.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Reprises.h"
#include "core/Textes.h"
#include "core/Traduction.h"

namespace ovelin::cli {

namespace {

std::string Moment(std::int64_t secondes) {
  const auto t = static_cast<std::time_t>(secondes);
  std::tm local{};
  char texte[32] = "";
  if (localtime_r(&t, &local) != nullptr) std::strftime(texte, sizeof texte, "%Y-%m-%d %H:%M:%S", &local);
  return texte;
}

}  // namespace

int ListeReprises(Contexte& contexte) {
  RecueilleReprises();
  const std::vector<Reprise> reprises = ovelin::ListeReprises();
  Json liste = Json::array();
  for (std::size_t i = 0; i < reprises.size(); ++i) {
    const Reprise& r = reprises[i];
    liste.push_back(Json{{"n", i + 1}, {"drawing", r.dessin}, {"time", Moment(r.heure)}});
    if (!contexte.json) std::printf("%zu: %s %s\n", i + 1, Moment(r.heure).c_str(), r.dessin.c_str());
  }
  return contexte.json ? Resultat(contexte, Json{{"recovered", liste}}) : Fait;
}

int OuvreReprise(Contexte& contexte, int n, const std::string& sortie) {
  if (ExtensionDe(sortie) != "OVL") return Echec(contexte, Textes::ExportExtension, "", sortie);
  RecueilleReprises();
  const std::vector<Reprise> reprises = ovelin::ListeReprises();
  if (n < 1 || base::Indice(n) > reprises.size()) {
    return Echec(contexte, Textes::RepriseInconnue, " " + std::to_string(n));
  }
  const Reprise& reprise = reprises[base::Indice(n) - 1];
  std::string raison;
  const auto octets = LitFichierEntier(reprise.fichier, &raison);
  if (!octets) {
    return Echec(contexte, Textes::LectureRefusee, "\n" + reprise.fichier + ": " + raison, reprise.fichier);
  }
  if (const int etat = EcritResultat(contexte, sortie, *octets)) return etat;
  OteReprise(reprise);
  return Resultat(contexte, Json{{"file", sortie}, {"drawing", reprise.dessin}});
}

}  // namespace ovelin::cli
