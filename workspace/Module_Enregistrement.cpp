#include "workspace/Module_Enregistrement.h"

#include <string>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Travail.h"

namespace ovelin {

namespace {

constexpr const char* Extension = ".OVL";

std::string DemandeChemin(const char* cle) {
  DialogueFichier dialogue;
  dialogue.enregistrer = true;
  dialogue.cle = cle;
  dialogue.titre = Traduire(Textes::TitreProjet);
  dialogue.filtre = Traduire(Textes::FiltreProjet);
  dialogue.motif = "*.OVL";
  if (!FichierCourant.empty()) dialogue.propose = NomSansExtension(FichierCourant) + Extension;
  return Svc.ChoisitFichier(dialogue);
}

bool Enregistre(const std::string& chemin) {
  if (chemin.empty()) return false;
  const std::string raison = EnregistreProjet(chemin);
  if (raison.empty()) {
    RetientTravail();
    return true;
  }
  MessageFichier(Textes::EcritureRefusee, "\n" + chemin + " : " + raison, Icone::Critique, chemin);
  return false;
}

std::string AvecExtension(const std::string& chemin) {
  const std::size_t debut = chemin.size() < 4 ? 0 : chemin.size() - 4;
  return chemin.empty() || Majuscules(chemin.substr(debut)) == Extension ? chemin : chemin + Extension;
}

}  // namespace

bool mnu_Save() {
  if (TraceInitial.empty()) return false;
  return Enregistre(ExtensionDe(FichierCourant) == "OVL" ? FichierCourant
                                                         : AvecExtension(DemandeChemin("mnu_Save")));
}

bool mnu_SaveAs() {
  if (TraceInitial.empty()) return false;
  return Enregistre(AvecExtension(DemandeChemin("mnu_SaveAs")));
}

}  // namespace ovelin
