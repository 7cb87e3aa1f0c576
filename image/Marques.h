// Marks on top of a picture, added behind what the scene holds.
#pragma once

#include "core/Types.h"
#include "image/Scene.h"
#include "image/Vue.h"

namespace ovelin {

// A cross at a drawing point (mm).
void TraceCroix(const EtatVue& vue, const TailleImage& taille, const PointTrace& point, Scene& scene);

// The last position shown of the tool, mm; -999: none since the reset.
struct MemoireOutil {
  static constexpr float Aucune = -999;
  float X = Aucune, Y = Aucune;
  bool operator==(const MemoireOutil&) const = default;
};
// The mark of the tool at (x, y), mm: a circle, and a line from the position before unless there was none.
void MarqueOutil(const EtatVue& vue, const TailleImage& taille, const MesureTexte& police,
                 const MemoireOutil& precedente, float x, float y, Scene& scene);
// A position has come from the board. False when it is the last one: nothing is done. Otherwise `scene` is replaced
// by the mark and the memory takes the position.
bool Dessin_Position_Outil(const EtatVue& vue, const TailleImage& taille, const MesureTexte& police,
                           MemoireOutil& memoire, float x, float y, Scene& scene);

}  // namespace ovelin
