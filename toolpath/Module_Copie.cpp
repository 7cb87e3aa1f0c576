#include "toolpath/Module_Copie.h"

#include "core/BoiteRefus.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"
#include "toolpath/PasseTraces.h"

namespace ovelin {

Copie PressePapiers;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { PressePapiers = Copie{}; });

Pose Decalee(double dx, double dy) {
  return [dx, dy](const PointTrace& p) { return LieuCopie{p.X + dx, p.Y + dy}; };
}

bool Ajoute(const Copie& copie, const std::vector<Pose>& poses) {
  if (copie.Vide() || poses.empty()) return false;
  const bool neuf = SansChemin(Doc);
  PasseTraces passe;
  switch (AjouteCopies(Doc, copie, poses, CoordonneeMax)) {
    case IssueCopie::TropDeSequences:
      Svc.Montre(BoiteErreur(pathwerk::Numero(pathwerk::Erreur::TropDeSequences)));
      return false;
    case IssueCopie::HorsLimites:
      Message(Textes::CoordonneeHorsLimites, Icone::Critique);
      return false;
    case IssueCopie::Faite:
      break;
  }
  EncombrementGeneral();
  const IssuePasse issue = passe.SuitTout();
  if (issue != IssuePasse::EnVigueur) return PasseTraces::Faite(issue);
  Modifie = Vrai;
  if (neuf) Svc.DessinOuvert(true);
  Svc.Rafraichit();
  return true;
}

}  // namespace

bool CopieSelection() {
  Copie copie = CopieDe(Doc);
  if (copie.Vide()) return false;
  PressePapiers = std::move(copie);
  return true;
}

bool ColleCopie(double dx, double dy) { return Ajoute(PressePapiers, {Decalee(dx, dy)}); }

bool DupliqueSelection(double dx, double dy) { return Ajoute(CopieDe(Doc), {Decalee(dx, dy)}); }

bool RepeteSelection(const std::vector<Pose>& poses) { return Ajoute(CopieDe(Doc), poses); }

}  // namespace ovelin
