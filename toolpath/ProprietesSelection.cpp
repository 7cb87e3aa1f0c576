// Side, pocket, milling and depth of the selected paths.
#include "toolpath/ProprietesSelection.h"

#include <unordered_set>
#include <utility>
#include <vector>

#include "core/DocumentCourant.h"
#include "core/Gestes.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/PasseTraces.h"
#include "toolpath/traces/Ilots.h"

namespace ovelin {

namespace {

std::vector<Code2> IlotsEtPoches() { return AIlots(Complements) ? CodesDesIlots(Doc) : std::vector<Code2>{}; }

// The traces of the selected paths that take part in the run, and of `aussi`.
void RecalculeSelection(PasseTraces& passe, const std::vector<Code2>& aussi = {}) {
  Statut(Textes::CalculTrajetOutil);
  std::vector<Code2> codes = CodesSelectionnes(true);
  std::unordered_set<std::uint32_t> connus;
  for (const Code2 code : codes) connus.insert(code.Cle());
  for (const Code2 code : aussi) {
    if (connus.insert(code.Cle()).second) codes.push_back(code);
  }
  const IssuePasse issue = passe.Suit(codes);
  EffaceStatut();
  if (issue != IssuePasse::EnVigueur) return;
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
  PasseTraces passe;
  const IndexCodes index = IndexDocument();
  for (SequenceInfo& s : Sequences) {
    if (s.Selection == Faux) continue;
    if (s.Decalage != decalage && (s.Decalage == CoteInverse || decalage == CoteInverse)) {
      InverseEtendue(index.PremierPoint(s.Code));
    }
    s.Decalage = decalage;
  }
  RecalculeSelection(passe);
}

void PocheSelection(bool poche) {
  PasseTraces passe;
  for (SequenceInfo& s : Sequences) {
    if (s.Selection != Faux) s.Poche = EnDrapeau(poche);
  }
  RecalculeSelection(passe, IlotsEtPoches());  // what was a pocket may have had islands
}

void IlotSelection(bool ilot) {
  PasseTraces passe;
  std::vector<Code2> touches = IlotsEtPoches();
  for (const Code2 code : CodesSelectionnes()) {
    Complement c = Complements.De(code);
    c.Ilot = ilot;
    Complements.Pose(code, std::move(c));
    touches.push_back(code);
  }
  for (const Code2 code : CodesDesIlots(Doc)) touches.push_back(code);
  RecalculeSelection(passe, touches);
}

void FraiserSelection(bool fraiser) {
  PasseTraces passe;
  for (SequenceInfo& s : Sequences) {
    if (s.Selection != Faux) s.Fraiser = EnDrapeau(fraiser);
  }
  RecalculeSelection(passe);
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

bool LimiteProfondeur(double fond) {
  if (!(fond < 0)) return false;
  bool change = false;
  for (SequenceInfo& s : Sequences) {
    if (s.Fraiser == Faux || s.Profondeur >= fond) continue;
    s.Profondeur = fond;
    change = true;
  }
  if (!change) return false;
  Modifie = Vrai;
  Svc.Rafraichit();
  return true;
}

}  // namespace ovelin
