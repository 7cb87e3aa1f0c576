#include "image/Apercu.h"

#include <algorithm>
#include <cmath>

#include "base/Indices.h"
#include "core/Nombres.h"
#include "image/Traceur.h"

namespace ovelin {

namespace {

constexpr std::size_t PointsAuPlus = 1000;
constexpr float MargeApercu = 180;  // twips, less in a small picture

}  // namespace

std::vector<PointTrace> PointsApercu(const std::vector<PointTrace>& points) {
  if (points.size() <= PointsAuPlus) return points;
  const auto pas = base::Indice(Arrondi32(static_cast<double>(points.size()) / static_cast<double>(PointsAuPlus)));
  std::vector<PointTrace> choisis;
  choisis.reserve(points.size() / pas + 2);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const bool debut = i == 0 || points[i - 1].Seq != points[i].Seq;
    const bool fin = i + 1 == points.size() || points[i + 1].Seq != points[i].Seq;
    if (i % pas == 0 || debut || fin) choisis.push_back(points[i]);
  }
  return choisis;
}

void ConstruitApercu(const std::vector<PointTrace>& points, double rapportX, double rapportY,
                     const TailleImage& taille, Scene& scene) {
  scene.Vide();
  if (points.empty()) return;
  std::vector<PointTrace> mis = points;
  float xmin = 0;
  float xmax = 0;
  float ymin = 0;
  float ymax = 0;
  for (std::size_t i = 0; i < mis.size(); ++i) {
    PointTrace& p = mis[i];
    p.X = EnFloat(p.X * rapportX);
    p.Y = EnFloat(p.Y * rapportY);
    xmin = i == 0 ? p.X : std::min(xmin, p.X);
    xmax = i == 0 ? p.X : std::max(xmax, p.X);
    ymin = i == 0 ? p.Y : std::min(ymin, p.Y);
    ymax = i == 0 ? p.Y : std::max(ymax, p.Y);
  }
  EtatVue vue;
  vue.MargeVue = std::min(MargeApercu, std::min(taille.largeur, taille.hauteur) / 10);
  vue.OrigineDessinX = xmin / 2 + xmax / 2;
  vue.OrigineDessinY = ymin / 2 + ymax / 2;
  vue.OrigineEcranX = taille.largeur / 2;
  vue.OrigineEcranY = taille.hauteur / 2;
  vue.Zoom = BorneZoom(ZoomRectangle(xmax - xmin, ymax - ymin, taille, vue.MargeVue));
  Traceur traceur(scene, vue, taille, TwipsParPixel);
  for (std::size_t i = 0; i < mis.size();) {
    std::size_t fin = i + 1;
    while (fin < mis.size() && mis[fin].Seq == mis[i].Seq) ++fin;
    traceur.Commence(Role::Dessin, 0);
    traceur.Suit(mis.data() + i, mis.data() + fin);
    traceur.Finit();
    i = fin;
  }
}

}  // namespace ovelin
