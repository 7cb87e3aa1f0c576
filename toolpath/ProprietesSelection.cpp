// Side, pocket, milling and depth of the selected paths.
#include "toolpath/ProprietesSelection.h"

#include "core/DocumentCourant.h"
#include "core/Gestes.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

// The traces of the selected paths that take part in the run.
void RecalculeSelection() {
  Statut(Textes::CalculTrajetOutil);
  RefaitDecalages(CodesSelectionnes(true));
  EffaceStatut();
  Modifie = Vrai;
  Svc.Rafraichit();
}

bool ProfondeursDifferentes() {
  const SequenceInfo* premiere = nullptr;
  for (const SequenceInfo& s : Sequences) {
    if (s.Selection == Faux) continue;
    if (premiere == nullptr) premiere = &s;
    if (s.Profondeur != premiere->Profondeur) return true;
  }
  return false;
}

}  // namespace

void DecaleSelection(std::int16_t decalage) {
  const IndexCodes index = IndexDocument();
  for (SequenceInfo& s : Sequences) {
    if (s.Selection == Faux) continue;
    if (s.Decalage != decalage && (s.Decalage == CoteInverse || decalage == CoteInverse)) {
      InverseEtendue(index.PremierPoint(s.Code));
    }
    s.Decalage = decalage;
  }
  RecalculeSelection();
}

void PocheSelection(bool poche) {
  for (SequenceInfo& s : Sequences) {
    if (s.Selection != Faux) s.Poche = EnDrapeau(poche);
  }
  RecalculeSelection();
}

void FraiserSelection(bool fraiser) {
  for (SequenceInfo& s : Sequences) {
    if (s.Selection != Faux) s.Fraiser = EnDrapeau(fraiser);
  }
  RecalculeSelection();
}

bool ProfondeurSelection(double profondeur) {
  if (ProfondeursDifferentes() &&
      Message(Textes::ProfondeursInegales, Icone::Question, Boutons::OuiNon) != Reponse::Oui) {
    return false;
  }
  if (!(profondeur < 0)) {
    Message(Textes::ProfondeurNonNegative, Icone::Exclamation);
    return false;
  }
  for (SequenceInfo& s : Sequences) {
    if (s.Selection != Faux) s.Profondeur = profondeur;
  }
  Modifie = Vrai;
  Svc.Rafraichit();
  return true;
}

}  // namespace ovelin
