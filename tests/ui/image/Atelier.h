// A small drawing in the picture, the pixels of it, and what the picture tells its window.
#pragma once

#include <QImage>
#include <QPointF>
#include <cmath>
#include <vector>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/ui/Theme.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Vue.h"
#include "workspace/ui/ImagePB1.h"

namespace essai {

// Squares of 40 mm, "AA" at (0, 0) and "AB" at (60, 0), not selected, with their tool path.
inline void DeuxCarres() {
  using namespace ovelin;
  AjouteCarre("AA", 0, 0, 40);
  AjouteCarre("AB", 60, 0, 40);
  RecalculDecalages();
  EncombrementGeneral();
  DeselectionneTout();
}

// The picture, shown and fitted at 600 x 400 pixels, and its signals. Elements, order and colours are those of the
// plain picture, unless a test wants the quiet one.
struct Atelier {
  ovelin::ImagePB1 image;
  std::vector<ovelin::SuiteSouris> suites;
  std::vector<bool> boutons;  // of undo, one for each snapshot
  int miseEnPage = 0;

  explicit Atelier(bool sobre = false) {
    using namespace ovelin;
    Regl.DessinSobre = sobre;
    QObject::connect(&image, &ImagePB1::Suite, [this](const SuiteSouris& s) { suites.push_back(s); });
    QObject::connect(&image, &ImagePB1::Instantane, [this](bool b) { boutons.push_back(b); });
    QObject::connect(&image, &ImagePB1::MisEnPage, [this] { ++miseEnPage; });
    if (!TraceInitial.empty()) mnu_Zoom1({600 * TwipsParPixel, 400 * TwipsParPixel});
    Montre(image, 600, 400);  // draws it, which leaves the first snapshot
    suites.clear();
    boutons.clear();
    miseEnPage = 0;
  }

  // Where a point of the drawing (mm) is seen, logical pixels.
  [[nodiscard]] QPointF Ou(float x, float y) const {
    const auto p = ovelin::VersEcran(ovelin::Vue, image.Taille().hauteur, {x, y, ovelin::CodePD, {}});
    return {static_cast<double>(p.X) / 15, static_cast<double>(p.Y) / 15};
  }
  [[nodiscard]] QPoint Pixel(float x, float y) const { return Ou(x, y).toPoint(); }
  // The colour nearest to `cherchee` within `rayon` pixels of a point of the drawing.
  [[nodiscard]] QColor Trouve(float x, float y, const QColor& cherchee, int rayon = 2) const;
  [[nodiscard]] int Selectionnees() const {
    ovelin::Code2 dernier;
    return static_cast<int>(ovelin::NbSelectionnees(dernier));
  }
};

inline int Ecart(const QColor& a, const QColor& b) {
  return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
}

inline QColor Atelier::Trouve(float x, float y, const QColor& cherchee, int rayon) const {
  const QImage vue = image.Image();
  const double echelle = vue.devicePixelRatio();
  const QPoint centre = (Ou(x, y) * echelle).toPoint();
  QColor proche;
  for (int dy = -rayon; dy <= rayon; ++dy) {
    for (int dx = -rayon; dx <= rayon; ++dx) {
      const QPoint p = centre + QPoint(dx, dy);
      if (!vue.rect().contains(p)) continue;
      const QColor c = vue.pixelColor(p);
      if (!proche.isValid() || Ecart(c, cherchee) < Ecart(proche, cherchee)) proche = c;
    }
  }
  return proche;
}

// Pixels of about that colour.
inline int Compte(const QImage& image, const QColor& couleur, int tolerance = 60) {
  int n = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) n += Ecart(image.pixelColor(x, y), couleur) <= tolerance ? 1 : 0;
  }
  return n;
}

}  // namespace essai
