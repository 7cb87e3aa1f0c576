#include "core/Aide.h"

#include <optional>
#include <vector>

#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"

namespace ovelin {

namespace {

std::optional<CleTexte> Raison(IssueBureau issue) {
  switch (issue) {
    case IssueBureau::Ouvert:
      break;
    case IssueBureau::FichierAbsent:
      return Textes::AideFichierAbsent;
    case IssueBureau::CheminAbsent:
      return Textes::AideCheminAbsent;
    case IssueBureau::SansDroit:
      return Textes::AideSansDroit;
    case IssueBureau::SansAssociation:
      return Textes::AideSansAssociation;
  }
  return std::nullopt;
}

}  // namespace

// Folder by folder, so that a manual that somebody has put beside the program is the one that opens.
std::string TrouveAide(const std::string& langue) {
  std::vector<std::string> dossiers{DossierProgramme};
  dossiers.insert(dossiers.end(), DossiersProduit.begin(), DossiersProduit.end());
  for (const std::string& dossier : dossiers) {
    for (const std::string& nom : {langue + "/" + FichierAide, std::string(FichierAide)}) {
      if (std::string chemin = DansDossier(dossier, nom); FichierExiste(chemin)) return chemin;
    }
  }
  return "";
}

void mnu_Help() {
  std::string chemin = TrouveAide(Regl.Langue);
  if (chemin.empty()) chemin = DossierProgramme + "/" + FichierAide;
  const auto raison = Raison(Svc.OuvreParBureau(chemin));
  if (!raison) return;
  BoiteMessage boite = BoiteDe(*raison, Icone::Exclamation);
  boite.texte = std::string(FichierAide) + " : " + boite.texte + " !";
  boite.fichier = chemin;
  Svc.Montre(boite);
}

std::string AdresseSite(std::string_view page) {
  std::string adresse = Rogne(LireCleIni(cles::AdresseMaj, ""));
  while (adresse.ends_with("/")) adresse.pop_back();
  return adresse.empty() ? "" : adresse + std::string(page);
}

}  // namespace ovelin
