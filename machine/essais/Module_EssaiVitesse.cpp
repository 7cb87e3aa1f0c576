#include "machine/essais/Module_EssaiVitesse.h"

#include <algorithm>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/essais/Fenetre.h"
#include "machine/essais/PendantEssai.h"
#include "run/Module_Decoupe.h"
#include "run/Module_Planificateur.h"

namespace ovelin {

VueEssai Vue_Essai;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Vue_Essai = VueEssai{}; });

constexpr std::array<const char*, 3> SuffixesAxes{cles::suffixe::AxeX, cles::suffixe::AxeY, cles::suffixe::AxeZ};

std::string Cle(const char* suffixe) { return std::string(FenetreParametres) + suffixe; }

// There, and back again on the same axes: every pass ends where it has begun.
void PlanifiePasse(const ReglageEssai& r, double v) {
  const auto [x, y, z] = r.axes;
  InitDecoupe();
  for (const double distance : {r.distance, -r.distance}) {
    if (x || y) AjoutDeplacementRelatif(EnFloat(x ? distance : 0), EnFloat(y ? distance : 0), Faux, EnFloat(v));
    if (z) AjoutDeplacementZ(EnFloat(distance), Faux, EnFloat(v));
  }
}

// What is left of V where an axis of the table can't follow.
double VitesseTenue() {
  double tenue = 0;
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
    const Deplacement& d = TableDecoupe[static_cast<std::size_t>(i)];
    float t = 0;
    float v = d.Vitesse;
    CdeZENIK->CommandeDATA(d.dX, d.dY, d.dZ, v, t, true);
    tenue = std::max(tenue, static_cast<double>(v));
  }
  return tenue;
}

// False: the test ends.
bool Passe(const ReglageEssai& reglage, double v) {
  PlanifiePasse(reglage, v);
  if (Vue_Essai.Passe) Vue_Essai.Passe(v, VitesseTenue());
  float vRef = EnFloat(v);
  LanceDecoupe(vRef, FenetreParametres);
  OperationCarte = true;  // between two passes, too
  CdeZENIK->DemandeInformation();
  Svc.MontrePosition(CdeZENIK->PosX, CdeZENIK->PosY, CdeZENIK->PosZ);
  if (StopDemande != Faux) return false;
  if (!CdeZENIK->IsAvailable()) {
    Message(Textes::EssaiLiaison, Icone::Critique);
    return false;
  }
  if (Vue_Essai.Passee) Vue_Essai.Passee(v);
  return true;
}

IssueEssai Execute(const ReglageEssai& reglage, bool pauses) {
  const std::int64_t passes = NombrePasses(reglage);
  for (std::int64_t i = 0; i < passes; ++i) {
    if (!Passe(reglage, VitessePasse(reglage, i))) return IssueEssai::Arretee;
    if (!pauses || i + 1 == passes) continue;
    if (Message(Textes::EssaiPause, Icone::Question, Boutons::OuiNon) != Reponse::Oui) return IssueEssai::Arretee;
    if (StopDemande != Faux || FinProgramme) return IssueEssai::Arretee;
  }
  return IssueEssai::Terminee;
}

}  // namespace

IssueEssai Cmd_GO(const ReglageEssai& reglage, bool pauses) {
  if (MachineBouge()) {
    Svc.Bip();
    return IssueEssai::Refusee;
  }
  if (!CdeZENIK->IsAvailable()) {
    Message(Textes::EssaiSansCarte, Icone::Critique);
    return IssueEssai::Refusee;
  }
  IssueEssai issue = IssueEssai::Refusee;
  {
    const PendantEssai pendant;
    if (!CdeZENIK->TableVerif()) return issue;
    StopDemande = Faux;
    CdeZENIK->DemandeInformation();
    if (Vue_Essai.EnCours) Vue_Essai.EnCours(true);
    issue = Execute(reglage, pauses);
  }
  if (Vue_Essai.EnCours) Vue_Essai.EnCours(false);
  return issue;
}

void Cmd_Stop() {
  StopDemande = Vrai;
  CdeZENIK->StopResume(0, 0);
  CdeZENIK->DemandeInformation();
}

ChampsEssai LitChampsEssai() {
  const auto lit = [](const char* suffixe) {
    std::string texte = LireCleIni(Cle(suffixe), "");
    const auto valeur = NombreDuTexte(texte);
    return valeur ? TexteNombre(*valeur) : texte;
  };
  ChampsEssai champs{lit(cles::suffixe::VitesseDepart),
                     lit(cles::suffixe::VitesseArrivee),
                     lit(cles::suffixe::Increment),
                     lit(cles::suffixe::Distance),
                     {}};
  for (std::size_t i = 0; i < champs.axes.size(); ++i)
    champs.axes[i] = LireCleIni(Cle(SuffixesAxes[i]), "0") == "1";
  return champs;
}

// Numbers with a point, whatever the user's mark.
void EcritChampsEssai(const ChampsEssai& champs) {
  const SansProjet reglages;
  const LotCles lot;
  const auto ecrit = [](const char* suffixe, std::string texte) {
    std::replace(texte.begin(), texte.end(), ',', '.');
    EcrireCle(Cle(suffixe), texte);
  };
  ecrit(cles::suffixe::VitesseDepart, champs.VitDep);
  ecrit(cles::suffixe::VitesseArrivee, champs.VitArr);
  ecrit(cles::suffixe::Increment, champs.Incr);
  ecrit(cles::suffixe::Distance, champs.Depl);
  for (std::size_t i = 0; i < champs.axes.size(); ++i) ecrit(SuffixesAxes[i], champs.axes[i] ? "1" : "0");
}

}  // namespace ovelin
