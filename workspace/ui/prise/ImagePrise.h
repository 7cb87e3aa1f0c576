// What is seen of the selection in hand: the grips of its box, and its outline with the figures while it is
// dragged.
#pragma once

#include <QPainter>

#include "image/Palette.h"
#include "image/SceneDocument.h"

namespace ovelin {

// The outline is made once for a drag in one view and then moved, turned and scaled as it is: as quick with a
// thousand paths as with one.
class ImagePrise {
 public:
  // Over the picture. `options`: those of the picture.
  void Peint(QPainter& peintre, const TailleImage& taille, const OptionsScene& options, const Palette& couleurs);

 private:
  static void PeintAttache(QPainter& peintre, const TailleImage& taille, const Palette& couleurs);
  static void PeintTexte(QPainter& peintre, const TailleImage& taille, const Palette& couleurs);
  void PeintPoignees(QPainter& peintre, const TailleImage& taille, const Palette& couleurs) const;

  Scene contour_;
  bool fait_ = false;
  EtatVue vue_;  // that it was made in: the wheel changes it under a drag
};

}  // namespace ovelin
