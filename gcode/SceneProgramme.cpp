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

// Which cells of the picture, squares of some pixels, have been drawn to.
class Occupe {
 public:
  Occupe(const OptionsProgramme& options, int cellule)
      : cellule_(cellule),
        colonnes_(cellule > 0 ? options.largeur / cellule + 1 : 0),
        rangees_(cellule > 0 ? options.hauteur / cellule + 1 : 0),
        faits_(base::Indice(colonnes_) * base::Indice(rangees_), false) {}

  // Whether the segment comes into a cell where nothing has been drawn; all of its cells are drawn to afterwards.
  bool Nouveau(const PointVue& a, const PointVue& b) {
    if (cellule_ == 0) return true;
    const double dx = (b.x - a.x) / cellule_, dy = (b.y - a.y) / cellule_;
    const int n = static_cast<int>(std::ceil(std::max(std::abs(dx), std::abs(dy)))) + 1;
    bool nouveau = false;
    for (int k = 0; k <= n; ++k) {
      const double t = static_cast<double>(k) / n;
      const double x = a.x / cellule_ + t * dx, y = a.y / cellule_ + t * dy;
      if (!(x >= 0 && y >= 0 && x < colonnes_ && y < rangees_)) continue;
      const std::size_t i = static_cast<std::size_t>(y) * base::Indice(colonnes_) + static_cast<std::size_t>(x);
      nouveau = nouveau || !faits_[i];
      faits_[i] = true;
    }
    return nouveau;
  }

 private:
  int cellule_, colonnes_, rangees_;
  std::vector<bool> faits_;
};

// Whether a stretch may go on as one chord: all that it passes over lies within a tolerance of the chord from its
// start (the sleeve of Zhao and Saalfeld 1997). The directions that are left form a cone between two of them, which
// narrows with each place.
class Fuseau {
 public:
  void Commence(const PointVue& depart) {
    depart_ = depart;
    ouvert_ = false;
    loin_ = 0;
  }
  // Takes the place in when the chord to it may stand for all before; false: the chord has to end before it.
  bool Prend(const PointVue& p) {
    const double x = p.x - depart_.x, y = p.y - depart_.y;
    const double carre = x * x + y * y;
    if (carre < loin_ && std::sqrt(carre) + Tolerance < std::sqrt(loin_)) return false;  // the way has turned back
    loin_ = std::max(loin_, carre);
    const double tangente = carre - Tolerance * Tolerance;
    if (tangente <= 0) return true;
    if (ouvert_ && (Croix(droite_, {x, y}) < 0 || Croix({x, y}, gauche_) < 0)) return false;
    // The tangents to the circle of the tolerance about the place; how long they are matters to nothing.
    const double c = std::sqrt(tangente), s = Tolerance;
    const PointVue droite{x * c + y * s, y * c - x * s}, gauche{x * c - y * s, y * c + x * s};
    if (!ouvert_ || Croix(droite_, droite) > 0) droite_ = droite;
    if (!ouvert_ || Croix(gauche, gauche_) > 0) gauche_ = gauche;
    ouvert_ = true;
    return true;
  }

 private:
  // Pixels across the chord, and as much past its end: a pixel together.
  static constexpr double Tolerance = 0.6;
  static double Croix(const PointVue& a, const PointVue& b) { return a.x * b.y - a.y * b.x; }

  PointVue depart_, droite_, gauche_;
  bool ouvert_ = false;
  double loin_ = 0;  // of the furthest place, squared
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

// One pass over a program. With a limit stretches are taken together as chords; with cells, those go that lie where
// something is drawn already.
class Dessinateur {
 public:
  Dessinateur(const Projection& projection, const OptionsProgramme& options, int cellule, Scene& scene)
      : projection_(projection),
        options_(options),
        cadre_(options.largeur, options.hauteur),
        occupe_(options, cellule),
        trait_(scene) {}

  // False: more segments than there may be.
  bool Tout(const MesureProgramme& mesure) {
    Lignes(mesure.CadreVertex);
    return options_.segmentsMaxi > 0 ? Cordes(mesure.TraceVertex) : Bande(mesure.TraceVertex);
  }

 private:
  void Lignes(const std::vector<Vertex>& lignes) {
    for (std::size_t i = 0; i + 1 < lignes.size(); i += 2) {
      PointVue a, b;
      if (!projection_.Segment(lignes[i], lignes[i + 1], a, b) || !cadre_.Coupe(a, b)) continue;
      ++nombre_;
      trait_.Segment(Role::Boite, a, b);
    }
  }

  bool Bande(const std::vector<Vertex>& strip) {
    if (strip.empty()) return true;
    PlaceVue debut = projection_.Place(strip.front());  // where the drawn line stands
    for (std::size_t i = 1; i < strip.size(); ++i) {
      const PlaceVue ici = projection_.Place(strip[i]);
      PointVue a, b;
      if (projection_.Segment(debut, ici, a, b)) {
        if (!DernierDuGenre(strip, i) && Proches(a, b)) continue;
        Pose(strip[i], a, b);
      }
      debut = ici;
    }
    return true;
  }

  bool Cordes(const std::vector<Vertex>& strip) {
    if (strip.empty()) return true;
    Fuseau fuseau;
    PlaceVue avant = projection_.Place(strip.front());
    PointVue debut, fin;   // of the chord
    bool ouverte = false;  // there is one
    for (std::size_t i = 1; i < strip.size(); ++i) {
      const PlaceVue ici = projection_.Place(strip[i]);
      PointVue a = fin, b;
      bool vue = true;
      if (ouverte && projection_.Devant(avant) && projection_.Devant(ici)) {
        b = projection_.Pixels(ici);
      } else {
        vue = projection_.Segment(avant, ici, a, b);
      }
      // What the eye's plane has cut does not begin where the chord ends.
      if (ouverte && (!vue || a.x != fin.x || a.y != fin.y || !fuseau.Prend(b))) {
        if (!Pose(strip[i - 1], debut, fin)) return false;
        ouverte = false;
      }
      if (vue) {
        if (!ouverte) {
          debut = a;
          fuseau.Commence(a);
          fuseau.Prend(b);
        }
        fin = b;
        ouverte = true;
        if (DernierDuGenre(strip, i)) {
          if (!Pose(strip[i], debut, fin)) return false;
          ouverte = false;
        }
      }
      avant = ici;
    }
    return true;
  }

  static bool DernierDuGenre(const std::vector<Vertex>& strip, std::size_t i) {
    return i + 1 == strip.size() || strip[i + 1].Speculaire != strip[i].Speculaire;
  }

  // False: this one is one too many.
  bool Pose(const Vertex& v, PointVue a, PointVue b) {
    const auto genre = static_cast<GenreMouvement>(v.Speculaire);
    if (genre == GenreMouvement::Rapide && !options_.rapides) return true;
    if (!cadre_.Coupe(a, b) || !occupe_.Nouveau(a, b)) return true;
    if (options_.segmentsMaxi > 0 && nombre_ >= options_.segmentsMaxi) return false;
    ++nombre_;
    trait_.Segment(RoleDe(genre), a, b);
    return true;
  }

  const Projection& projection_;
  const OptionsProgramme& options_;
  Cadre cadre_;
  Occupe occupe_;
  Trait trait_;
  std::size_t nombre_ = 0;
};

// Each segment of a pass with cells comes into a new one: with cells large enough there are no more than allowed.
void DessineSous(const MesureProgramme& mesure, const Projection& projection, const OptionsProgramme& options,
                 Scene& scene) {
  constexpr int CelluleMaxi = 1024;
  for (int cellule = 0; cellule <= CelluleMaxi; cellule = std::max(2, 2 * cellule)) {
    scene.Vide();
    if (Dessinateur(projection, options, cellule, scene).Tout(mesure)) return;
  }
}

}  // namespace

void ConstruitSceneProgramme(const MesureProgramme& mesure, const Projection& projection,
                             const OptionsProgramme& options, Scene& scene) {
  DessineSous(mesure, projection, options, scene);
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
