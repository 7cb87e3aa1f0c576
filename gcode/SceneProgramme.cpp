#include "gcode/SceneProgramme.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/Indices.h"
#include "base/SansCopie.h"
#include "core/Nombres.h"
#include "image/Vue.h"

namespace ovelin {

namespace {

constexpr double Debord = 40;    // pixels around the picture that still count as in it
constexpr float RayonOutil = 4;  // logical pixels

Role RoleDe(GenreMouvement genre) {
  switch (genre) {
    case GenreMouvement::Depart:
    case GenreMouvement::Rapide:
      return Role::Rapide;
    case GenreMouvement::Plongee:
      return Role::Plongee;
    case GenreMouvement::Coupe:
      break;
  }
  return Role::Coupe;
}

PointEcran Ecran(const PointVue& p) { return {EnFloat(p.x * TwipsParPixel), EnFloat(p.y * TwipsParPixel)}; }

// The part of a segment inside the picture (Liang and Barsky 1984); false when nothing is.
class Cadre {
 public:
  Cadre(int largeur, int hauteur) : x1_(largeur + Debord), y1_(hauteur + Debord) {}

  bool Coupe(PointVue& a, PointVue& b) const {
    // A program may lead further than a picture's numbers reach.
    if (!std::isfinite(a.x) || !std::isfinite(a.y) || !std::isfinite(b.x) || !std::isfinite(b.y)) return false;
    double t0 = 0, t1 = 1;
    const double dx = b.x - a.x, dy = b.y - a.y;
    if (!Bord(-dx, a.x + Debord, t0, t1) || !Bord(dx, x1_ - a.x, t0, t1) || !Bord(-dy, a.y + Debord, t0, t1) ||
        !Bord(dy, y1_ - a.y, t0, t1)) {
      return false;
    }
    const PointVue debut = a;
    if (t1 < 1) b = {debut.x + t1 * dx, debut.y + t1 * dy};
    if (t0 > 0) a = {debut.x + t0 * dx, debut.y + t0 * dy};
    return true;
  }

 private:
  static bool Bord(double p, double q, double& t0, double& t1) {
    if (p == 0) return q >= 0;
    const double t = q / p;
    if (p < 0) {
      t0 = std::max(t0, t);
    } else {
      t1 = std::min(t1, t);
    }
    return t0 <= t1;
  }
  double x1_, y1_;
};

// Which pixels have been drawn to, by the ends of the segments.
class Occupe {
 public:
  Occupe(int largeur, int hauteur)
      : largeur_(std::max(1, largeur)),
        hauteur_(std::max(1, hauteur)),
        faits_(base::Indice(largeur_) * base::Indice(hauteur_), false) {}

  // Whether this pixel was marked; it is afterwards. Outside the picture nothing is to be seen.
  bool Marque(const PointVue& p) {
    if (!(p.x >= 0 && p.y >= 0 && p.x < largeur_ && p.y < hauteur_)) return true;
    const std::size_t i = static_cast<std::size_t>(p.y) * base::Indice(largeur_) + static_cast<std::size_t>(p.x);
    const bool deja = faits_[i];
    faits_[i] = true;
    return deja;
  }

 private:
  int largeur_, hauteur_;
  std::vector<bool> faits_;
};

// Lays segments one behind the other, as one line where the last ends where the next begins.
class Trait : base::SansCopie {
 public:
  explicit Trait(Scene& scene) : scene_(scene) {}
  ~Trait() { Finit(); }

  void Segment(Role role, const PointVue& a, const PointVue& b) {
    const PointEcran debut = Ecran(a);
    if (points_.empty() || role != role_ || !(points_.back() == debut)) {
      Finit();
      role_ = role;
      points_.push_back(debut);
    }
    points_.push_back(Ecran(b));
  }
  void Finit() {
    if (points_.size() > 1) {
      Primitive ligne;
      ligne.genre = Genre::Ligne;
      ligne.role = role_;
      scene_.Ajoute(ligne, points_);
    }
    points_.clear();
  }

 private:
  Scene& scene_;
  Role role_ = Role::Coupe;
  std::vector<PointEcran> points_;
};

bool Proches(const PointVue& a, const PointVue& b) { return std::abs(a.x - b.x) < 1 && std::abs(a.y - b.y) < 1; }

class Dessinateur {
 public:
  Dessinateur(const Projection& projection, const OptionsProgramme& options, Scene& scene)
      : projection_(projection),
        options_(options),
        cadre_(options.largeur, options.hauteur),
        occupe_(options.largeur, options.hauteur),
        trait_(scene) {}

  void Bande(const std::vector<Vertex>& strip) {
    if (strip.size() < 2) return;
    std::size_t debut = 0;  // the vertex where the drawn line stands
    for (std::size_t i = 1; i < strip.size(); ++i) {
      PointVue a, b;
      if (!projection_.Segment(strip[debut], strip[i], a, b)) {
        debut = i;
        continue;
      }
      const bool dernier = i + 1 == strip.size() || strip[i + 1].Speculaire != strip[i].Speculaire;
      if (!dernier && Proches(a, b)) continue;
      const auto genre = static_cast<GenreMouvement>(strip[i].Speculaire);
      debut = i;
      if (genre == GenreMouvement::Rapide && !options_.rapides) continue;
      Pose(RoleDe(genre), a, b);
    }
  }

  void Lignes(const std::vector<Vertex>& lignes) {
    for (std::size_t i = 0; i + 1 < lignes.size(); i += 2) {
      PointVue a, b;
      if (projection_.Segment(lignes[i], lignes[i + 1], a, b) && cadre_.Coupe(a, b)) {
        trait_.Segment(Role::Boite, a, b);
      }
    }
  }

 private:
  void Pose(Role role, PointVue a, PointVue b) {
    if (!cadre_.Coupe(a, b)) return;
    if (options_.segmentsMaxi > 0) {
      const bool vu = occupe_.Marque(b);
      const bool court = std::abs(a.x - b.x) < 2 && std::abs(a.y - b.y) < 2;
      if (nombre_ >= options_.segmentsMaxi || (vu && court && nombre_ >= options_.segmentsMaxi / 2)) return;
    }
    ++nombre_;
    trait_.Segment(role, a, b);
  }

  const Projection& projection_;
  const OptionsProgramme& options_;
  Cadre cadre_;
  Occupe occupe_;
  Trait trait_;
  std::size_t nombre_ = 0;
};

}  // namespace

void ConstruitSceneProgramme(const MesureProgramme& mesure, const Projection& projection,
                             const OptionsProgramme& options, Scene& scene) {
  scene.Vide();
  {
    Dessinateur dessinateur(projection, options, scene);
    dessinateur.Lignes(mesure.CadreVertex);
    dessinateur.Bande(mesure.TraceVertex);
  }
  if (!options.outil) return;
  const auto place = projection.Point(*options.outil);
  if (place && std::isfinite(place->x) && std::isfinite(place->y)) {
    scene.AjouteDisque(Role::Outil, Ecran(*place), RayonOutil * static_cast<float>(TwipsParPixel));
  }
}

std::size_t NombreSegments(const Scene& scene) {
  std::size_t nombre = 0;
  for (const Primitive& p : scene.Primitives) {
    if (p.genre == Genre::Ligne && p.nombre > 0) nombre += p.nombre - 1;
  }
  return nombre;
}

}  // namespace ovelin
