#include "workspace/Module_Panneau.h"

#include <cmath>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/PasseTraces.h"

namespace ovelin {

namespace {

// To the hundredth, as short as it goes: "40", "12.5". The limits of a new size are held against this value.
std::string Taille(float debut, float fin) {
  const double mm = double{fin} - debut;
  return TexteNombre(std::nearbyint(mm * 100) / 100);
}

}  // namespace

// A mixed flag is held as 1. `CB_Poche` is checked for -1 alone, so that mixed pockets show unchecked, and so is
// `CB_Ilot`; `CB_Fraiser` for -1 or 1, so that a mixed milling shows checked. The difference is wanted: an
// unchecked pocket cuts less, an unchecked milling would look as if nothing were cut.
ChampsPanneau InitSeq(Arbre* initial, Arbre* decale) {
  ChampsPanneau c;
  c.TB_X = c.TB_Y = "0";
  float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  EncombrementSelection(x0, x1, y0, y1, 0);
  c.TB_Initial = {Taille(x0, x1), Taille(y0, y1)};
  c.TB_Rapport = {"1", "1"};

  Code2 focus;
  c.selectionnees = NbSelectionnees(focus);
  SelectionCommune(c.communes);
  c.CB_Poche = c.communes.Poche == Vrai;
  c.CB_Fraiser = c.communes.Fraiser == Vrai || c.communes.Fraiser == Mixte;
  c.ilots = IlotCommun();
  c.CB_Ilot = c.ilots == Vrai;
  if (c.communes.Profondeur != 0) {
    c.TB_Profondeur = TexteNombre(c.communes.Profondeur);
  } else if (c.selectionnees == 1) {
    c.TB_Profondeur = TexteNombre(Regl.ProfFraisage);
  }
  const bool cote = c.communes.Decalage >= CoteDirect && c.communes.Decalage <= CoteInverse;
  c.Option_Decal = cote ? c.communes.Decalage : std::int16_t{CoteDirect};

  if (initial != nullptr) MarqueSelection(*initial);
  if (decale != nullptr) MarqueSelection(*decale);
  return c;
}

void CB_Tout() {
  SelectionneTout();
  Svc.Rafraichit();
}

void CB_InverseSelection() {
  InverseSelection();
  Svc.Rafraichit();
}

void SelectionneCalques() {
  if (!EtendSelectionAuxCalques(Doc)) return Svc.Bip();
  Svc.Rafraichit();
}

bool DemandeSupprimer() {
  Code2 dernier;
  const auto choisies = base::Indice(NbSelectionnees(dernier));
  const bool toutes = choisies > 0 && choisies == Sequences.size() && Sequences[0].Code != Code2{};
  if (toutes && Message(Textes::SupprimerTout, Icone::Question, Boutons::OuiNon) != Reponse::Oui) {
    return false;
  }
  CB_Supprimer();
  return true;
}

void CB_Supprimer() {
  Code2 dernier;
  if (NbSelectionnees(dernier) == 0) return;
  PasseTraces passe;
  const SuiteRetrait suite = OteSelection();
  if (passe.Suit(suite.lies, suite.partis) != IssuePasse::EnVigueur) return;
  // A path in focus that is gone would be looked for in vain.
  if (IndexSequence(SeqCourante) < 0) SeqCourante = CodeAucun;
  Modifie = Vrai;
  Svc.Rafraichit();
}

}  // namespace ovelin
