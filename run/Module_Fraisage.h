// The milling window's own procedures: speeds, figures of the plan, the file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/Traduction.h"
#include "run/AvisPlan.h"
#include "run/FiguresPlan.h"
#include "run/Module_GCode.h"
#include "run/Module_Planificateur.h"

namespace ovelin {

// The job planned anew for the window.
struct ResumePlan {
  std::optional<RefusPlan> refus;  // why there is no plan; the figures are then all 0
  std::vector<AvisPlan> avis;      // entries that are surely wrong
  bool vide = false;               // there is no tool path
  FiguresPlan figures;
  std::int32_t sequences = 0;       // paths that are milled
  std::vector<Code2> sansTrajet;    // paths that should be, but where the tool finds no room
  bool horsCourse = false;          // the tool cuts at X or Y below 0 or beyond the travel of the table in force
  std::int64_t passes = 0;          // of the path that takes the most
  double VSansRampe = 0, VMax = 0;  // mm/s; 1e10 without a move in the plane
  std::optional<double> prevu;      // s that the board foresees, where it was asked
};
// `prevoit`: the board foresees the time too, behind a comparison of its table; that opens a job on it.
ResumePlan PlanifiePourFenetre(bool prevoit = false);
// Nothing outside a run plans or opens a job while the machine works, or while a lost board is to be asked for the
// place of its job.
bool PlanPermis();
// What the plan depends on, as a number: another one means that the plan on show no longer holds.
std::uint64_t EmpreintePlan();

// Option_Mode, remembered with the settings of the material: 0 to 2.
void ChoisitMode(int mode);
int ModeChoisi();

// Load of the window: a depth of pass of 0 becomes 1 mm.
void ChargeFraisage();

// A material speed is entered, mm/s: kept and written with the settings. The reason when it can't be one, then
// nothing changes: VitesseNonNombre, or VitesseNonPositive for 0 or less or beyond measure.
std::optional<CleTexte> EntreVit_Mat_H(const std::string& texte);
std::optional<CleTexte> EntreVit_Mat_V(const std::string& texte);
// CB_VitMat, `index` 1 to 4: the text of the horizontal speed lowered or raised by 1 or 0.1, between 0.1 and the
// slower of the two axes, in the format "0.0".
std::string PasVit_Mat_H(const std::string& texte, int index);

// Btn_Gener_GCODE: speeds as they stand in the fields, a name after the drawing's where none was used yet, the
// writer. False: refused or cancelled; the speeds are then those of before.
bool GenereGCode(const std::string& vitesseH, const std::string& vitesseV, EcritureNC& resultat);

// The window closes: both speeds are written, and the place of its corner on the screen (pixels; kept in twips with
// the user's settings, never in a project).
void FermeFraisage(int gauche, int haut);
std::optional<std::pair<int, int>> LitPlaceFraisage();

std::string TexteDuree(double secondes);  // "1 h 02 min 05 s"

}  // namespace ovelin
