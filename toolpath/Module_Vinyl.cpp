#include "toolpath/Module_Vinyl.h"

#include <cstddef>

#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/PasseTraces.h"
#include "toolpath/chemins/NoyauOrdre.h"
#include "toolpath/traces/Prolongement.h"

namespace ovelin {

namespace {

// Is `a` a better start than `b` for this arrow? Equal ones are not: the first found stays.
bool Meilleur(int fleche, const PointTrace& a, const PointTrace& b) {
  switch (fleche) {
    case 0:
      return a.Y > b.Y || (a.Y == b.Y && a.X < b.X);
    case 1:
      return a.Y > b.Y || (a.Y == b.Y && a.X > b.X);
    case 2:
      return a.Y < b.Y || (a.Y == b.Y && a.X > b.X);
    case 3:
      return a.Y < b.Y || (a.Y == b.Y && a.X < b.X);
    case 4:
      return a.Y > b.Y;
    case 5:
      return a.X > b.X;
    case 6:
      return a.Y < b.Y;
    default:
      return a.X < b.X;
  }
}

}  // namespace

bool ChoixDepart(int index) {
  if (index < 0 || index > 7) return true;
  PasseTraces passe;
  std::vector<Code2> tournees;
  for (const Etendue& e : EtenduesSequences()) {
    std::size_t choisi = e.premier;
    for (std::size_t i = e.premier + 1; i < e.Fin(); ++i) {
      if (Meilleur(index, TraceInitial[i], TraceInitial[choisi])) choisi = i;
    }
    if (TourneDepart(TraceInitial, e, choisi)) tournees.push_back(e.code);
  }
  if (!tournees.empty()) Statut(Textes::CalculTrajet);
  const IssuePasse issue = passe.Suit(tournees);
  if (issue == IssuePasse::Abandonnee) EffaceStatut();
  if (issue != IssuePasse::EnVigueur) return PasseTraces::Faite(issue);
  Statut(Textes::Termine);
  Modifie = Vrai;
  Svc.Rafraichit();
  return true;
}

bool RegleProlongement(bool actif) {
  PasseTraces passe;
  Prolongement = EnDrapeau(actif);
  const IssuePasse issue = passe.SuitTout();
  if (issue == IssuePasse::EnVigueur) Svc.Rafraichit();
  return PasseTraces::Faite(issue);
}

void ProlongeTrace(Code2 code) {
  for (SequenceDecalee& d : TraceDecale) {
    if (d.Seq == code) ProlongePoints(d.Points);
  }
}

}  // namespace ovelin
