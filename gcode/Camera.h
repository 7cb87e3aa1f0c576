// How the preview looks at a program: the camera in space, and the views along the axes. Values in, values out.
#pragma once

#include <cstdint>
#include <optional>

#include "gcode/Mesure.h"

namespace ovelin {

enum class VueProgramme : std::uint8_t { Dessus, Face, Cote, Espace };

// State of the camera in space. Angles are quarter turns: -RotationX * pi / 2 about the X axis.
struct Camera {
  double RotationX = 0, RotationY = 0;
  double ZoomVue = 1.0;        // factor of the distance, above 0
  float DeplX = 0, DeplY = 0;  // shift of the picture, mm
  // Place of the pointer at its last move; for the shift the place from which the shift counts. Pixels.
  std::int32_t SourisX = 0, SourisY = 0, SourisZoom = 0;
};

enum class BoutonSouris : std::int16_t { Aucun = 0, Gauche = 1, Droit = 2, Deux = 3, Milieu = 4 };

// A press at (x, y) in a picture of `largeur` x `hauteur` pixels. The shift there is already is taken into the
// place from which it counts, so that a second drag goes on from the first.
void Appuie(Camera& camera, const BornesProgramme& bornes, std::int32_t x, std::int32_t y, int largeur,
            int hauteur);
// A move with a button held: 1 turns, 3 and 4 zoom, 2 shifts.
void Glisse(Camera& camera, const BornesProgramme& bornes, BoutonSouris bouton, std::int32_t x, std::int32_t y,
            int largeur, int hauteur);
// "DeplX= 12,5    DeplY= -3", the caption while the picture is shifted.
std::string TexteDeplacement(const Camera& camera);

// How far the eye stands from the origin: the larger centre of the bounds, times the zoom, times 1.2. It is 0 or
// below for a program around the origin or beyond it, which is kept.
double Distance(const Camera& camera, const BornesProgramme& bornes);

struct PointVue {
  double x = 0, y = 0;  // pixels, y downward
};
// A place as the camera sees it, mm: to the right, up, and away from the eye.
struct PlaceVue {
  double x = 0, y = 0, z = 0;
};

// From the program's millimetres to pixels of a picture; made once a frame.
class Projection {
 public:
  // The camera in space: rotation about X and about Y, the shift, then the eye at (0, 0, -distance) that looks at
  // the origin with Y upward. The machine's Z is towards the eye.
  static Projection Espace(const Camera& camera, const BornesProgramme& bornes, int largeur, int hauteur);
  // Along an axis: the bounds fitted into the picture with a margin, then zoomed about its middle by 1 / ZoomVue,
  // and shifted by DeplX and DeplY millimetres.
  static Projection Axe(VueProgramme vue, const Camera& camera, const BornesProgramme& bornes, int largeur,
                        int hauteur);

  [[nodiscard]] PlaceVue Place(const Vertex& v) const { return Transforme(v.X, v.Y, v.Z); }
  // Whether the place is in front of the eye; only then it has pixels.
  [[nodiscard]] bool Devant(const PlaceVue& place) const { return !perspective_ || place.z >= ProfondeurMini; }
  [[nodiscard]] PointVue Pixels(const PlaceVue& place) const {
    const double e = perspective_ ? echelle_ / place.z : echelle_;
    return {cx_ + place.x * e, cy_ - place.y * e};
  }
  // The part of the segment in front of the eye as pixels; false where nothing of it is.
  [[nodiscard]] bool Segment(const PlaceVue& a, const PlaceVue& b, PointVue& pa, PointVue& pb) const;
  [[nodiscard]] bool Segment(const Vertex& a, const Vertex& b, PointVue& pa, PointVue& pb) const {
    return Segment(Place(a), Place(b), pa, pb);
  }
  [[nodiscard]] std::optional<PointVue> Point(const Lieu& lieu) const;

 private:
  [[nodiscard]] PlaceVue Transforme(double x, double y, double z) const {
    const auto rangee = [&](int i) { return m_[i][0] * x + m_[i][1] * y + m_[i][2] * z + m_[i][3]; };
    return {rangee(0), rangee(1), rangee(2)};
  }

  static constexpr double ProfondeurMini = 1e-3;  // mm in front of the eye

  double m_[3][4]{};  // rows: right, up, depth; the last column is the shift
  bool perspective_ = false;
  double echelle_ = 1;  // pixels a millimetre, or pixels at depth 1
  double cx_ = 0, cy_ = 0;
};

Projection ProjectionDe(VueProgramme vue, const Camera& camera, const BornesProgramme& bornes, int largeur,
                        int hauteur);

}  // namespace ovelin
