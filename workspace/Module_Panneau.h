// The panel `Frame_Sequence`: common properties of the selection, and the buttons that work on the selection.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/Document.h"
#include "core/Gestes.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Arbres.h"

namespace ovelin {

// The fields as texts and states. Numbers with the user's decimal mark.
struct ChampsPanneau {
  std::string TB_X, TB_Y;                 // displacement since the last reset, mm
  std::array<std::string, 2> TB_Initial;  // width and height of the selection, mm
  std::array<std::string, 2> TB_Rapport;
  std::array<std::string, 2> TB_Resultat;
  bool CB_Poche = false;
  bool CB_Fraiser = false;
  bool CB_Ilot = false;
  std::string TB_Profondeur;               // mm; blank where the depths differ
  std::int16_t Option_Decal = CoteDirect;  // the side shown, 1 to 3
  std::int32_t selectionnees = 0;          // paths selected
  ProprietesSequence communes;             // of the selection; 1 in a flag, 0 in a number: they differ
  Drapeau ilots = Faux;                    // the same of the islands
  bool operator==(const ChampsPanneau&) const = default;
};

// The panel from the document. The two trees follow the selection where they are given.
ChampsPanneau InitSeq(Arbre* initial = nullptr, Arbre* decale = nullptr);

// Each works on the selection and has the lists and the picture follow.
void CB_Tout();
void CB_InverseSelection();
// All paths of the layers that the selected ones lie on; a beep without one.
void SelectionneCalques();
void CB_Supprimer();
// The same behind a question where every path of the drawing is selected, as after an opening. False: No.
bool DemandeSupprimer();  // does nothing without a selection

}  // namespace ovelin
