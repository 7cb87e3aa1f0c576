#include "image/Vue.h"

#include <algorithm>
#include <cmath>

namespace ovelin {

namespace {

constexpr double AisanceAjuste = 1.2;  // a fitted drawing leaves more than the margin

// Room of a side inside the margins, twips.
float Place(float cote, float marge) { return std::max(cote - 2 * marge, TwipsParPixel); }

}  // namespace

PointTrace VersEcran(const EtatVue& vue, float hauteur, const PointTrace& dessin) {
  PointTrace p = dessin;
  p.X = (dessin.X - vue.OrigineDessinX) * vue.Zoom + vue.OrigineEcranX;
  p.Y = hauteur - ((dessin.Y - vue.OrigineDessinY) * vue.Zoom + vue.OrigineEcranY);
  return p;
}

PointTrace VersDessin(const EtatVue& vue, float hauteur, const PointTrace& ecran) {
  PointTrace p = ecran;
  p.X = (ecran.X - vue.OrigineEcranX) / vue.Zoom + vue.OrigineDessinX;
  p.Y = (hauteur - ecran.Y - vue.OrigineEcranY) / vue.Zoom + vue.OrigineDessinY;
  return p;
}

float BorneZoom(double zoom) {
  if (std::isnan(zoom)) return 1;
  return static_cast<float>(std::clamp<double>(zoom, ZoomMin, ZoomMax));
}

float ZoomRectangle(float largeur, float hauteur, const TailleImage& taille, float marge) {
  const float placeX = Place(taille.largeur, marge);
  const float placeY = Place(taille.hauteur, marge);
  if (largeur == 0) return hauteur == 0 ? 0 : placeY / hauteur;
  if (hauteur == 0) return placeX / largeur;
  return std::min(placeX / largeur, placeY / hauteur);
}

float ZoomAjuste(float xmin, float xmax, float ymin, float ymax, const TailleImage& taille, float marge) {
  if (xmax == xmin && ymax == ymin) return 1;
  return BorneZoom(ZoomRectangle(xmax - xmin, ymax - ymin, taille, marge) / AisanceAjuste);
}

EtatVue ZoomeAuPoint(const EtatVue& vue, float hauteur, float x, float y, float facteur) {
  EtatVue nouvelle = vue;
  nouvelle.Zoom = BorneZoom(double{vue.Zoom} * facteur);
  const PointTrace sous = VersDessin(vue, hauteur, {x, y, CodePD, {}});
  nouvelle.OrigineDessinX = sous.X - (x - vue.OrigineEcranX) / nouvelle.Zoom;
  nouvelle.OrigineDessinY = sous.Y - (hauteur - y - vue.OrigineEcranY) / nouvelle.Zoom;
  return nouvelle;
}

EtatVue DeplaceVue(const EtatVue& vue, float dx, float dy) {
  EtatVue nouvelle = vue;
  nouvelle.OrigineEcranX += dx;
  nouvelle.OrigineEcranY -= dy;
  return nouvelle;
}

EtatVue ZoomeSurRectangle(const EtatVue& vue, const TailleImage& taille, float x0, float y0, float x1, float y1) {
  if (x0 == x1 && y0 == y1) return vue;
  const PointTrace a = VersDessin(vue, taille.hauteur, {x0, y0, CodePD, {}});
  const PointTrace b = VersDessin(vue, taille.hauteur, {x1, y1, CodePD, {}});
  const float zoom = ZoomRectangle(std::abs(b.X - a.X), std::abs(b.Y - a.Y), taille, vue.MargeVue);
  // Two corners that differ on the screen can be one place in 32 bits of the drawing: as near as it gets.
  if (zoom == 0) return vue;
  EtatVue nouvelle = vue;
  nouvelle.OrigineDessinX = (a.X + b.X) / 2;
  nouvelle.OrigineDessinY = (a.Y + b.Y) / 2;
  nouvelle.Zoom = BorneZoom(zoom);
  // A view that was panned would show the rectangle beside the picture's middle.
  nouvelle.OrigineEcranX = taille.largeur / 2;
  nouvelle.OrigineEcranY = taille.hauteur / 2;
  return nouvelle;
}

}  // namespace ovelin
