// The encoded polyline of HP-GL/2 (PE), number by number.
#pragma once

#include <cstddef>
#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::hpgl {

struct HpglElement {
  enum class Genre { Point, Plume };
  Genre genre = Genre::Point;
  Vec2 valeur;          // Point: the pair, in current units; Plume: the pen in x
  bool leve = false;    // Point: reached with the pen up
  bool absolu = false;  // Point: a place, not a step
};

class HpglDecodeur {
 public:
  explicit HpglDecodeur(std::string_view texte) : texte_(texte) {}
  // The next pair or pen; false at the end. A number or a pair that is cut off is lost.
  bool Suivant(HpglElement& element);

 private:
  bool PrendNombre(double& valeur);

  std::string_view texte_;
  std::size_t pos_ = 0;
  bool septBits_ = false;
  int fraction_ = 0;  // binary digits behind the point
};

}  // namespace pathwerk::lecture::hpgl
