// The view of a drawing in a picture as a value: five numbers, the transform both ways, fitting, zooming, panning.
//
// Screen units are twips, 15 to a logical pixel; screen y runs downward, drawing Y upward (mm). All results are
// 32-bit floats.
#pragma once

#include "core/Types.h"

namespace ovelin {

inline constexpr float TwipsParPixel = 15;
constexpr float Twips(double pixels) { return static_cast<float>(pixels) * TwipsParPixel; }

// Inner size of the picture, twips.
struct TailleImage {
  float largeur = 0, hauteur = 0;
  bool operator==(const TailleImage&) const = default;
};

struct EtatVue {
  float Zoom = 1;                                // twips per mm
  float OrigineDessinX = 0, OrigineDessinY = 0;  // the drawing point (mm) ...
  float OrigineEcranX = 0, OrigineEcranY = 0;    // ... that stands at this screen point; Y counts from below
  float MargeVue = 180;                          // twips around a fitted drawing
  float DernierAjuste = 0;                       // `Zoom` of the last fit; 0: none yet
  bool operator==(const EtatVue&) const = default;
};

// A point of the drawing on the screen, and back; `Cde` and `Seq` go along. `hauteur` is the picture's, twips.
PointTrace VersEcran(const EtatVue& vue, float hauteur, const PointTrace& dessin);
PointTrace VersDessin(const EtatVue& vue, float hauteur, const PointTrace& ecran);

// Limits of `Zoom`: so wide that nobody meets them, so narrow that every drawing stays within 32 bits on the
// screen. What is no number gives 1.
inline constexpr float ZoomMin = 1e-9F;
inline constexpr float ZoomMax = 1e12F;
float BorneZoom(double zoom);

// The scale at which a rectangle of the drawing (mm) fills the picture within the margin. The tighter side decides;
// a side without extent leaves it to the other; without any extent the scale is 0. A picture with no room inside
// its margins counts as one pixel.
float ZoomRectangle(float largeur, float hauteur, const TailleImage& taille, float marge);
// The scale of a fitted drawing: that of its bounds, divided by 1.2; 1 without extent.
float ZoomAjuste(float xmin, float xmax, float ymin, float ymax, const TailleImage& taille, float marge);

// Scale times `facteur`, the drawing point under the screen point (x, y) stays there. Only Zoom and OrigineDessin
// change, so that a later layout keeps what is seen.
EtatVue ZoomeAuPoint(const EtatVue& vue, float hauteur, float x, float y, float facteur);
// The picture follows a movement of (dx, dy) on the screen.
EtatVue DeplaceVue(const EtatVue& vue, float dx, float dy);
// The screen rectangle with these two opposite corners fills the picture and is centred in it. Unchanged for two
// equal corners.
EtatVue ZoomeSurRectangle(const EtatVue& vue, const TailleImage& taille, float x0, float y0, float x1, float y1);

}  // namespace ovelin
