// The tool path: one path of the drawing into its offset trace, all traces, the notches on them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Document.h"
#include "toolpath/Encoches.h"

namespace ovelin {

// Computes and stores the trace of one path; -1 does nothing.
void CalculDecalage(Code2 code);
// The same for several, with the outcome of calling them one after the other, at a cost that grows with the points
// of those paths alone.
void CalculDecalages(const std::vector<Code2>& codes);
// What a command calls that has changed one path, or some: the above, and all traces anew where one of those paths
// failed or has no points left to be offset. A failure alone takes the traces behind it along, and a path without
// points keeps its old one: the job would miss paths that nobody touched, or mill what is no longer there.
void RefaitDecalage(Code2 code);
void RefaitDecalages(const std::vector<Code2>& codes);
// All traces. True when TraceInitial was not empty and the walk ended normally.
bool RecalculDecalages();

// Radius of a notch around its mark: LargeurEncoche / 2 + RayonFraise, mm.
double RayonEncoche();
// Opens a notch of that radius at each "PC" of a trace, in place.
void PoseEncoches(std::vector<PointTrace>& points);
// Drag knife: lengthens the closed traces of a path (Prolongement).
void ProlongeTrace(Code2 code);

// A click of the attachment tool at (x, y), mm. False when refused (with a beep where one is due).
bool AjouteAttache(float x, float y);
bool EnleveAttache(float x, float y);

// What follows a change of a property of the selection.
void DecaleSelection(std::int16_t decalage);  // Option_Decal: to or from 3 reverses the points
void PocheSelection(bool poche);              // CB_Poche
void FraiserSelection(bool fraiser);          // CB_Fraiser
// A depth for the selection (TB_Profondeur). False: refused (ProfondeurNonNegative) or answered No
// (ProfondeursInegales).
bool ProfondeurSelection(double profondeur);

// The rules of the tool fields. False: the entry is refused; the value may stand stored all the same, as each rule
// says. Texts take both decimal marks.
bool EntreRayonFraise(const std::string& texte);
bool EntreLargeurEncoche(const std::string& texte);
bool EntreMiniEncoche(const std::string& texte);
bool EntreHautDeg(const std::string& texte);
bool EntrePCPoche(const std::string& texte);
bool EntreProfPasse(const std::string& texte);

}  // namespace ovelin
