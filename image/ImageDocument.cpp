#include "image/ImageDocument.h"

#include <algorithm>
#include <cmath>

#include "image/PeintFichier.h"
#include "image/SceneFeuille.h"

namespace ovelin {

namespace {

// Pixels.
constexpr double LargeurMax = 1600;
constexpr double HauteurMax = 1200;
constexpr double Bord = 50;
constexpr float PiedEchelle = 14 * TwipsParPixel;  // from the bottom of the picture
// A drawing in lines is looked at closely: what a third of a pixel can show is kept.
constexpr float PixelSvg = TwipsParPixel / 3;

constexpr double EtendueMin = 1e-6;  // mm

}  // namespace

CadreImage CadreDocument(const Document& document, const OptionsScene& options) {
  double x0 = 0;
  double x1 = 0;
  double y0 = 0;
  double y1 = 0;
  const auto etend = [&](const PointTrace& p) {
    if (!std::isfinite(p.X) || !std::isfinite(p.Y)) return;
    x0 = std::min(x0, double{p.X});
    x1 = std::max(x1, double{p.X});
    y0 = std::min(y0, double{p.Y});
    y1 = std::max(y1, double{p.Y});
  };
  if (options.dessin) std::for_each(document.TraceInitial.begin(), document.TraceInitial.end(), etend);
  if (options.trajet) {
    for (const SequenceDecalee& s : document.TraceDecale) std::for_each(s.Points.begin(), s.Points.end(), etend);
  }
  const double largeur = std::max(x1 - x0, EtendueMin);
  const double hauteur = std::max(y1 - y0, EtendueMin);
  const double zoom = std::min((LargeurMax - 2 * Bord) / largeur, (HauteurMax - 2 * Bord) / hauteur);
  const auto cote = [&](double mm) { return Twips(std::ceil(mm * zoom + 2 * Bord)); };
  CadreImage cadre;
  cadre.taille = {cote(largeur), cote(hauteur)};
  cadre.vue.Zoom = BorneZoom(zoom * TwipsParPixel);
  cadre.vue.OrigineDessinX = static_cast<float>(x0);
  cadre.vue.OrigineDessinY = static_cast<float>(y0);
  cadre.vue.OrigineEcranX = cadre.vue.OrigineEcranY = Twips(Bord);
  return cadre;
}

void AjouteEchelle(const CadreImage& cadre, Scene& scene) {
  AjouteEchelle(cadre.vue, {Twips(Bord), cadre.taille.hauteur - PiedEchelle}, cadre.taille.largeur / 4, scene);
}

std::string ImageDocument(const Document& document, OptionsScene options, const Palette& palette,
                          FormatImage format) {
  const bool traits = format == FormatImage::Svg;
  options.mesureTexte = MesureFichier();
  options.pixel = traits ? PixelSvg : TwipsParPixel;
  const CadreImage cadre = CadreDocument(document, options);
  Scene scene;
  ConstruitScene(document, cadre.vue, cadre.taille, options, scene);
  AjouteEchelle(cadre, scene);
  return traits ? PeintSvg(scene, palette, cadre.taille) : PeintPng(scene, palette, cadre.taille);
}

}  // namespace ovelin
