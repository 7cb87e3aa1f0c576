#include "machine/essais/Module_ParamMachine.h"

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/Module_Table.h"
#include "machine/essais/PendantEssai.h"

namespace ovelin {

namespace {
constexpr double PauseAttente = 0.01;  // s between two looks at the board
}

bool ChoisitTableFenetre(const std::string& chargee, const std::string& nom, ChampsTable& champs) {
  const SansProjet reglages;
  if (!ChangeTable(chargee, nom, champs)) return false;
  CdeZENIK->SuitTable();
  return true;
}

bool GereTableFenetre(GestionTable quoi, ChampsTable& champs) {
  if (quoi == GestionTable::Supprimer && MachineBouge()) {
    Message(Textes::TableEnService, Icone::Exclamation);
    return false;
  }
  const SansProjet reglages;
  if (!Cmd_Gestion(quoi, champs)) return false;
  champs = Chargt_Table(TableDefaut);
  CdeZENIK->SuitTable();
  return true;
}

void ArreteMouvement() {
  if (!CdeZENIK->IsAvailable()) return;
  StopDemande = Vrai;
  CdeZENIK->DemandeInformation();
  if (CdeZENIK->EnCours != Faux) CdeZENIK->StopResume(0, 0);
  while (CdeZENIK->EnCours != Faux && CdeZENIK->IsAvailable() && !FinProgramme) {
    Svc.LaisseEvenements(Evenements::Tous);
    Svc.Attend(PauseAttente);
    CdeZENIK->DemandeInformation();
  }
}

void FermeTableFenetre(const std::string& chargee, const ChampsTable& champs) {
  if (!chargee.empty() && !Sauve_Table(chargee, champs)) {
    MessageFichier(Textes::EcritureRefusee, "\n" + CheminIni() + " : " + Magasin.DerniereErreur, Icone::Critique,
                   CheminIni());
    Magasin.DerniereErreur.clear();  // told
  }
  ChargeGlobalesTable();
  if (CdeZENIK->IsAvailable()) CdeZENIK->TableVerif();
}

}  // namespace ovelin
