#include "workspace/Module_Demarrage.h"

#include "core/Cles.h"
#include "core/Fichiers.h"
#include "core/Projet.h"
#include "core/Reglages.h"
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
  DossierProgramme = options.config.empty() ? TrouveDossierProgramme(options.dossierExecutable) : options.config;
  DossiersProduit.insert(DossiersProduit.begin(), options.dossierExecutable + "/../share/ovelin");
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
