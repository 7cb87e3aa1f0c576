// The view of the drawing in the picture of the main window, and the procedures of its buttons, its wheel and its
// layout. The transform and the arithmetic stand in image/Vue.h.
#pragma once

#include <string_view>

#include "core/Document.h"
#include "core/Gestes.h"
#include "image/Vue.h"

namespace ovelin {

extern EtatVue Vue;

inline constinit auto& Zoom = Vue.Zoom;
inline constinit auto& OrigineDessinX = Vue.OrigineDessinX;
inline constinit auto& OrigineDessinY = Vue.OrigineDessinY;
inline constinit auto& OrigineEcranX = Vue.OrigineEcranX;
inline constinit auto& OrigineEcranY = Vue.OrigineEcranY;
inline constinit auto& MargeVue = Vue.MargeVue;

// --- procedures on `Vue` and the document's bounds ------------------------------------------------------------
// True: Dessin is due.

// Layout of the window (Form_Resize): the centre of the picture becomes OrigineEcran, a loaded drawing is fitted
// anew and keeps the user's zoom relative to the fit. A drawing without any extent shows DessinSansEtendue and
// gives false, its scale unchanged. A window that is dragged calls this when the size has settled.
bool MetEnPageVue(const TailleImage& taille);

// Fit and centre, then the layout above. A drawing without extent thus gets scale 1 and the message.
bool mnu_Zoom1(const TailleImage& taille);
bool mnu_ZoomPlus();
bool mnu_ZoomMoins();
// An item of the combo, "+", "-" or " ", and its arrows. One step up and one down cancel.
bool Combo_Zoom(std::string_view choix);
bool Combo_ZoomFleche(PasZoom pas);
// Wheel: `crans` steps at the screen point (x, y), positive enlarges; parts of a step count in proportion.
bool MoletteVue(const TailleImage& taille, float x, float y, double crans);

}  // namespace ovelin
