#include "image/ImageDocument.h"

#include <algorithm>
#include <cmath>

#include "core/Nombres.h"
#include "image/PeintFichier.h"

namespace ovelin {

namespace {

// Pixels.
constexpr double LargeurMax = 1600;
constexpr double HauteurMax = 1200;
constexpr double Bord = 50;
constexpr float PiedEchelle = 14 * TwipsParPixel;  // from the bottom of the picture
constexpr float CranEchelle = 4 * TwipsParPixel;
constexpr float EcartTexte = 6 * TwipsParPixel;
// A drawing in lines is looked at closely: what a third of a pixel can show is kept.
constexpr float PixelSvg = TwipsParPixel / 3;

constexpr double EtendueMin = 1e-6;  // mm

// The longest of 1, 2, 5 times a power of ten that is not above `place`.
double LongueurRonde(double place) {
  const double base = std::pow(10.0, std::floor(std::log10(std::max(place, EtendueMin))));
  for (const double facteur : {5.0, 2.0}) {
    if (base * facteur <= place) return base * facteur;
  }
  return base;
}

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
  const double zoom = cadre.vue.Zoom;
  const double mm = LongueurRonde(double{cadre.taille.largeur} / 4 / zoom);
  const float gauche = Twips(Bord);
  const float droite = gauche + static_cast<float>(mm * zoom);
  const float bas = cadre.taille.hauteur - PiedEchelle;
  const PointEcran barre[] = {
      {gauche, bas - CranEchelle}, {gauche, bas}, {droite, bas}, {droite, bas - CranEchelle}};
  Primitive p;
  p.role = Role::Echelle;
  scene.Ajoute(p, barre);
  scene.AjouteTexte(Role::Echelle, {droite + EcartTexte, bas - 2 * CranEchelle}, Ancre::HautGauche,
                    TexteNombre(mm) + " mm");
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
