// The records of the sequence table: properties by code, and the selection.
#include "toolpath/FichesSequence.h"

#include "core/DocumentCourant.h"
#include "core/Gestes.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

SequenceInfo* Fiche(Code2 code) {
  for (SequenceInfo& s : Sequences) {
    if (s.Code == code) return &s;
  }
  return nullptr;
}

bool Recopie(const SequenceInfo* s, ProprietesSequence& p) {
  p = s == nullptr ? ProprietesSequence{} : ProprietesDe(*s);
  return s != nullptr;
}

}  // namespace

bool LitSequence(Code2 code, ProprietesSequence& p) { return Recopie(Fiche(code), p); }

bool LitSequence(const IndexCodes& index, Code2 code, ProprietesSequence& p) {
  const auto i = index.Fiche(code);
  return Recopie(i ? &Sequences[*i] : nullptr, p);
}

double LitProfondeur(Code2 code) {
  const SequenceInfo* s = Fiche(code);
  return s == nullptr ? 0.0 : s->Profondeur;
}

Drapeau LitFraiser(Code2 code) {
  const SequenceInfo* s = Fiche(code);
  return s == nullptr ? Vrai : s->Fraiser;
}

Drapeau EstSelectionnee(Code2 code) {
  const SequenceInfo* s = Fiche(code);
  return s == nullptr ? Faux : s->Selection;
}

// 1 in a flag and 0 in a number tell that the selected paths differ.
void SelectionCommune(ProprietesSequence& p) {
  bool premiere = true;
  for (const SequenceInfo& s : Sequences) {
    if (s.Selection == Faux) continue;
    if (premiere) {
      p = ProprietesDe(s);
      premiere = false;
      continue;
    }
    if (s.Poche != p.Poche) p.Poche = Mixte;
    if (s.Fraiser != p.Fraiser) p.Fraiser = Mixte;
    if (s.Profondeur != p.Profondeur) p.Profondeur = 0;
    if (s.Decalage != p.Decalage) p.Decalage = CoteMelange;
  }
}

Drapeau IlotCommun() {
  bool oui = false;
  bool non = false;
  for (const SequenceInfo& s : Sequences) {
    if (s.Selection == Faux) continue;
    (Complements.De(s.Code).Ilot ? oui : non) = true;
  }
  return oui && non ? Mixte : EnDrapeau(oui);
}

void EcritSequence(Code2 code, const ProprietesSequence& p) {
  SequenceInfo* s = Fiche(code);
  if (s == nullptr) {
    // The single blank record of an empty table is filled; a new record lies at the upper bound.
    if (Sequences.empty() || Sequences.front().Code != Code2{}) Sequences.emplace_back();
    s = &Sequences.back();
    s->Code = code;
  }
  s->Poche = p.Poche;
  s->Fraiser = p.Fraiser;
  s->Profondeur = p.Profondeur;
  s->Decalage = p.Decalage;
}

void ProfondeurPourTous() {
  for (SequenceInfo& s : Sequences) s.Profondeur = ProfFraisage;
}

std::vector<Code2> CodesSelectionnes(bool aFraiserSeules) {
  std::vector<Code2> codes;
  for (const SequenceInfo& s : Sequences) {
    if (s.Selection != Faux && (!aFraiserSeules || s.Fraiser != Faux)) codes.push_back(s.Code);
  }
  return codes;
}

void SelectionneTout() {
  for (SequenceInfo& s : Sequences) s.Selection = Vrai;
}

void InverseSelection() {
  for (SequenceInfo& s : Sequences) s.Selection = static_cast<Drapeau>(~s.Selection);
}

void DeselectionneTout() {
  for (SequenceInfo& s : Sequences) s.Selection = Faux;
}

void BasculeSelection(Code2 code) {
  if (SequenceInfo* s = Fiche(code)) s->Selection = static_cast<Drapeau>(~s->Selection);
}

std::int32_t NbSelectionnees(Code2& dernier) {
  std::int32_t n = 0;
  for (const SequenceInfo& s : Sequences) {
    if (s.Selection == Faux) continue;
    ++n;
    dernier = s.Code;
  }
  return n;
}

std::int32_t NbAFraiser(Code2& dernier) {
  std::int32_t n = 0;
  for (const SequenceInfo& s : Sequences) {
    if (s.Fraiser == Faux) continue;
    ++n;
    dernier = s.Code;
  }
  return n;
}

void SelectionPrecedente() {
  if (Sequences.empty()) return;
  if (Sequences.front().Selection != Faux) {
    Svc.Bip();
    return;
  }
  for (std::size_t i = 1; i < Sequences.size(); ++i) {
    if (Sequences[i].Selection == Faux) continue;
    Sequences[i - 1].Selection = Sequences[i].Selection;
    Sequences[i].Selection = Faux;
  }
}

void SelectionSuivante() {
  if (Sequences.empty()) return;
  if (Sequences.back().Selection != Faux) {
    Svc.Bip();
    return;
  }
  for (std::size_t i = Sequences.size() - 1; i-- > 0;) {
    if (Sequences[i].Selection == Faux) continue;
    Sequences[i + 1].Selection = Sequences[i].Selection;
    Sequences[i].Selection = Faux;
  }
}

}  // namespace ovelin
