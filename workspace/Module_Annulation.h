// Undo. There is no log of commands: each complete drawing of the picture leaves a project file in `DossierTemp`,
// "00001.OVL" and on; the highest is the present state, and undo reads back the last but one.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Fichiers.h"
#include "core/Reprises.h"
#include "core/Types.h"
#include "workspace/Changement.h"

namespace ovelin {

// The number has 16 bits: behind this one no snapshot is taken any more, and undo goes on with what is there.
inline constexpr int DernierInstantane = 32767;

struct ResultatInstantane {
  int numero = 0;        // of the snapshot taken; 0: none was
  bool lie = false;      // a second name of the file before, whose content is the same
  bool bouton = false;   // mnu_Undo is enabled
  ErreurSysteme erreur;  // why none was taken, when the disk refused; nobody is told
};
// At the end of every complete Dessin. Where nothing has changed since the snapshot before, the new one is a hard
// link to it. None without `DossierTemp`.
ResultatInstantane PrendInstantane();

// Recovered work waits on the disk until this process has a snapshot of it: taken away at once where there is one,
// else behind the next. Kept for good where the drawing is left before.
void OteApresInstantane(const Reprise& reprise);

// What an undo needs of the window.
struct CrochetsAnnulation {
  std::function<void(bool visible)> MontreBouton;  // the toolbar button mnu_Undo
  std::function<void()> RemplitArbres;             // both trees
  std::function<void()> DeuxiemeDrapeauOutil;      // the second flag of the tool display is set
  std::function<void()> Dessin;                    // ends with PrendInstantane
};
struct ResultatAnnulation {
  bool fait = false;    // false: there was no state to go back to, or the user has taken it back on the way
  bool lu = false;      // the snapshot has been read; otherwise the document is as it was, the reason was shown
  bool bouton = false;  // mnu_Undo is enabled afterwards
};
// One step back. `FichierCourant` is as before afterwards, `FichierProjet` is "Chargt" until the next opening or
// saving: keys are looked up in the user's file, and what is written goes to the settings file alone.
ResultatAnnulation mnu_Undo(const CrochetsAnnulation& crochets);

// One step forward again: what mnu_Undo has taken back stays in `DossierTemp` under other names than "*.OVL", until
// something else is changed. `bouton` is that of mnu_Undo.
ResultatAnnulation mnu_Redo(const CrochetsAnnulation& crochets);
// Steps that mnu_Redo can take.
int PasARefaire();

// A state that undo or redo can lead to, by what has led to it.
struct PasHistorique {
  Changement changement;
  // Its points for a small picture, thinned; shared by states of one drawing. Null for states long ago.
  std::shared_ptr<const std::vector<PointTrace>> apercu;
};
// From the first state on; the number of a state is its place from 1. What mnu_Redo can take lies behind the
// present.
struct Historique {
  std::vector<PasHistorique> pas;
  int present = 0;  // number of the state in force; 0: none
};
Historique HistoriqueCourant();
// To the state of that number, back or forward, as so many steps of mnu_Undo or mnu_Redo at once. `fait` is false
// for the present one and for a number that there is none of.
ResultatAnnulation VaAuPas(int numero, const CrochetsAnnulation& crochets);
// Where a jump leads that leaves out the steps of view and selection alone: in front of the last change, or to the
// next one that was taken back. 0: there is none.
int PasAvantChangement(const Historique& historique);
int PasApresChangement(const Historique& historique);

// Number of the last snapshot listed, 0 when there is none.
int NumeroInstantane();
// Path of a snapshot: five digits and ".OVL".
std::string CheminInstantane(int numero);
// Every "*.OVL" in `DossierTemp`, hidden and write-protected ones included: at the start, at each opening and at
// the end.
void EffaceTousInstantanes();

}  // namespace ovelin
