#include "gcode/Camera.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/Indices.h"
#include "core/Nombres.h"

namespace ovelin {

namespace {

constexpr double QuartDeTour = Pi / 2;
constexpr double FacteurDistance = 1.2;
constexpr double PlancherZoom = 0.001;
constexpr double Marge = 0.06;  // of the picture, each side, in a view along an axis
// Half the height of the picture over its distance. A program that begins at the origin reaches from the middle of
// the picture to 1 / 0.6 of the distance; a tenth more leaves it a margin.
constexpr double DemiOuverture = 1.1 / 0.6;

double Etendue(double mini, double maxi) { return std::max(0.0, maxi - mini); }

std::int32_t Recul(float depl, int pixels, double etendue) {
  return etendue > 0 ? Arrondi32(double{depl} * pixels / etendue) : 0;
}

float Decalage(std::int32_t depart, std::int32_t place, int pixels, double etendue) {
  return EnFloat((depart - place) * etendue / std::max(1, pixels));
}

}  // namespace

void Appuie(Camera& camera, const BornesProgramme& b, std::int32_t x, std::int32_t y, int largeur, int hauteur) {
  camera.SourisX = x + Recul(camera.DeplX, largeur, Etendue(b.Xmin, b.Xmax));
  camera.SourisY = y + Recul(camera.DeplY, hauteur, Etendue(b.Ymin, b.Ymax));
  camera.SourisZoom = y;
}

void Glisse(Camera& camera, const BornesProgramme& b, BoutonSouris bouton, std::int32_t x, std::int32_t y,
            int largeur, int hauteur) {
  switch (bouton) {
    case BoutonSouris::Gauche:
      camera.RotationY += static_cast<double>(camera.SourisX - x) / std::max(1, largeur);
      camera.RotationX += static_cast<double>(camera.SourisY - y) / std::max(1, hauteur);
      camera.SourisX = x;
      camera.SourisY = y;
      return;
    case BoutonSouris::Deux:
    case BoutonSouris::Milieu:
      camera.ZoomVue *=
          std::max(static_cast<double>(y), PlancherZoom) / std::max(1.0, static_cast<double>(camera.SourisZoom));
      camera.ZoomVue = std::max(camera.ZoomVue, PlancherZoom);
      camera.SourisZoom = y;
      return;
    case BoutonSouris::Droit:
      camera.DeplX = Decalage(camera.SourisX, x, largeur, Etendue(b.Xmin, b.Xmax));
      camera.DeplY = Decalage(camera.SourisY, y, hauteur, Etendue(b.Ymin, b.Ymax));
      return;
    case BoutonSouris::Aucun:
      return;
  }
}

std::string TexteDeplacement(const Camera& camera) {
  return "DeplX= " + TexteNombre(camera.DeplX) + "    DeplY= " + TexteNombre(camera.DeplY);
}

double Distance(const Camera& camera, const BornesProgramme& b) {
  return std::max((b.Ymin + b.Ymax) / 2, (b.Xmin + b.Xmax) / 2) * camera.ZoomVue * FacteurDistance;
}

Projection Projection::Espace(const Camera& camera, const BornesProgramme& bornes, int largeur, int hauteur) {
  Projection p;
  const double ax = -camera.RotationX * QuartDeTour;
  const double ay = -camera.RotationY * QuartDeTour;
  const double cx = std::cos(ax), sx = std::sin(ax);
  const double cy = std::cos(ay), sy = std::sin(ay);
  // The tool's axis points at the eye: in the camera's frame, whose third axis leads away from the eye, its sign is
  // turned. First about X, then about Y.
  const double premier[3][3] = {{1, 0, 0}, {0, cx, sx}, {0, sx, -cx}};
  for (int j = 0; j < 3; ++j) {
    p.m_[0][j] = cy * premier[0][j] + sy * premier[2][j];
    p.m_[1][j] = premier[1][j];
    p.m_[2][j] = -sy * premier[0][j] + cy * premier[2][j];
  }
  p.m_[0][3] = -double{camera.DeplX};
  p.m_[1][3] = -double{camera.DeplY};
  p.m_[2][3] = Distance(camera, bornes);
  p.perspective_ = true;
  p.echelle_ = std::min(largeur, hauteur) / 2.0 / DemiOuverture;
  p.cx_ = largeur / 2.0;
  p.cy_ = hauteur / 2.0;
  return p;
}

Projection Projection::Axe(VueProgramme vue, const Camera& camera, const BornesProgramme& b, int largeur,
                           int hauteur) {
  Projection p;
  // Which program axis goes to the right, upward, and away from the eye.
  struct Axes {
    int droite, haut, fond;
    double signe;
  };
  const Axes axes = vue == VueProgramme::Face   ? Axes{0, 2, 1, 1}
                    : vue == VueProgramme::Cote ? Axes{1, 2, 0, -1}
                                                : Axes{0, 1, 2, -1};
  const std::array<double, 3> mini{b.Xmin, b.Ymin, b.Zmin};
  const std::array<double, 3> maxi{b.Xmax, b.Ymax, b.Zmax};
  const auto milieu = [&](int axe) {
    const auto i = base::Indice(axe);
    return (mini[i] + maxi[i]) / 2;
  };
  const auto etendue = [&](int axe) {
    const auto i = base::Indice(axe);
    return Etendue(mini[i], maxi[i]);
  };
  p.m_[0][axes.droite] = 1;
  p.m_[1][axes.haut] = 1;
  p.m_[2][axes.fond] = axes.signe;
  p.m_[0][3] = -milieu(axes.droite) - camera.DeplX;
  p.m_[1][3] = -milieu(axes.haut) - camera.DeplY;
  const double utile = 1 - 2 * Marge;
  const double l = etendue(axes.droite), h = etendue(axes.haut);
  const double parLargeur = l > 0 ? largeur * utile / l : 0;
  const double parHauteur = h > 0 ? hauteur * utile / h : 0;
  p.echelle_ = parLargeur > 0 && parHauteur > 0 ? std::min(parLargeur, parHauteur) : parLargeur + parHauteur;
  if (!(p.echelle_ > 0) || !std::isfinite(p.echelle_)) p.echelle_ = 1;
  p.echelle_ /= std::max(camera.ZoomVue, PlancherZoom);
  p.cx_ = largeur / 2.0;
  p.cy_ = hauteur / 2.0;
  return p;
}

bool Projection::Segment(const PlaceVue& a, const PlaceVue& b, PointVue& pa, PointVue& pb) const {
  PlaceVue p = a, q = b;
  if (perspective_) {
    if (p.z < ProfondeurMini && q.z < ProfondeurMini) return false;
    const auto coupe = [](const PlaceVue& dehors, const PlaceVue& dedans) {
      const double t = (ProfondeurMini - dehors.z) / (dedans.z - dehors.z);
      return PlaceVue{dehors.x + t * (dedans.x - dehors.x), dehors.y + t * (dedans.y - dehors.y), ProfondeurMini};
    };
    if (p.z < ProfondeurMini) p = coupe(p, q);
    if (q.z < ProfondeurMini) q = coupe(q, p);
  }
  pa = Pixels(p);
  pb = Pixels(q);
  return true;
}

std::optional<PointVue> Projection::Point(const Lieu& lieu) const {
  const PlaceVue place = Transforme(lieu.X, lieu.Y, lieu.Z);
  if (perspective_ && place.z < ProfondeurMini) return std::nullopt;
  return Pixels(place);
}

Projection ProjectionDe(VueProgramme vue, const Camera& camera, const BornesProgramme& bornes, int largeur,
                        int hauteur) {
  return vue == VueProgramme::Espace ? Projection::Espace(camera, bornes, largeur, hauteur)
                                     : Projection::Axe(vue, camera, bornes, largeur, hauteur);
}

}  // namespace ovelin
