#include "app/cli/CommandesDialectes.h"

#include <cstdio>

#include "core/Texte8.h"
#include "core/Textes.h"
#include "run/Module_Dialecte.h"

namespace ovelin::cli {

namespace {

int EchecDialecte(const Contexte& contexte, const DialecteOffert& offert) {
  return Echec(contexte, TexteFaute(offert.refus->faute).Cle(), TexteRefus(offert), offert.fichier,
               offert.refus->ligne);
}

}  // namespace

int ListeDialectes(Contexte& contexte) {
  Json liste = Json::array();
  for (const DialecteOffert& offert : DialectesOfferts()) {
    if (offert.refus) {
      std::fprintf(stderr, "%s\n", TexteRefus(offert).c_str());
      continue;
    }
    const Dialecte& d = offert.dialecte;
    if (!contexte.json) std::printf("%s\t%s\t.%s\n", d.nom.c_str(), d.titre.c_str(), d.extension.c_str());
    Json objet{{"name", d.nom}, {"title", d.titre}, {"extension", d.extension}, {"arcs", d.arcs}};
    if (!offert.fichier.empty()) objet["file"] = offert.fichier;
    liste.push_back(objet);
  }
  return contexte.json ? Resultat(contexte, Json{{"dialects", liste}}) : Fait;
}

int MontreDialecte(Contexte& contexte, const std::string& nom) {
  const auto offert = TrouveDialecte(nom);
  if (!offert) return Echec(contexte, Textes::DialecteInconnu, " " + nom);
  if (offert->refus) return EchecDialecte(contexte, *offert);
  const std::string texte = EcritDialecte(offert->dialecte);
  if (contexte.json) return Resultat(contexte, Json{{"name", offert->dialecte.nom}, {"text", DeTexte8(texte)}});
  std::fwrite(texte.data(), 1, texte.size(), stdout);
  return Fait;
}

}  // namespace ovelin::cli
