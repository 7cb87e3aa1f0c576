#include "workspace/Module_Demarrage.h"

#include <filesystem>

#include "core/Cles.h"
#include "core/Fichiers.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"

namespace ovelin {

namespace {

// What the project reader does at its end with the folders above it.
void InstalleCrochets() {
  Crochets.ChargeTable = [] { ChargeGlobalesTable(); };
  Crochets.ChercheMateriau = [] { ChercheFiche(); };
}

}  // namespace

std::string DemarreProgramme(const OptionsDemarrage& options) {
  if (options.config.empty()) {
    DossierProgramme = TrouveDossierProgramme(options.dossierExecutable);
  } else {
    std::error_code erreur;
    std::filesystem::create_directories(options.config, erreur);  // a failure shows when the settings are written
    DossierProgramme = options.config;
    TrouveDossiersProduit(options.dossierExecutable);
  }
  Regl.Langue = options.langue.empty() ? LangueDuSysteme(options.locale) : options.langue;
  InstalleCrochets();

  std::string raison;
  if (!FichierExiste(CheminIni())) {
    const bool avant = Magasin.EcrireIni;
    Magasin.EcrireIni = true;
    if (EcritFichierDefaut()) {
      EcritFichesDefaut();
    } else {
      raison = Magasin.DerniereErreur.empty() ? CheminIni() : CheminIni() + ": " + Magasin.DerniereErreur;
    }
    Magasin.EcrireIni = avant;
  }
  LitReglagesDemarrage();
  Regl.Langue = options.langue.empty() ? LireCle("Language", LangueDuSysteme(options.locale)) : options.langue;
  if (!options.table.empty()) TableDefaut = options.table;

  LitCouleurs();
  LitOutil();
  LitOptions();
  ChargeGlobalesTable();
  LitMateriau();
  return raison;
}

}  // namespace ovelin
