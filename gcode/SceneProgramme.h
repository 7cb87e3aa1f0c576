// The picture of a program: its strip and its box as primitives with roles, for the one painter of windows.
#pragma once

#include <cstddef>
#include <optional>

#include "gcode/Camera.h"
#include "image/Scene.h"

namespace ovelin {

struct OptionsProgramme {
  int largeur = 0, hauteur = 0;  // logical pixels
  // At most so many segments, the box among them, for a picture that moves: stretches become chords within a pixel
  // of them, and where these are still too many, those go that lie where something is drawn already. 0: all.
  std::size_t segmentsMaxi = 0;
  std::optional<Lieu> outil;  // where the tool is shown
  bool rapides = true;        // rapid moves are shown
};

// Stretches that end within a pixel of where the drawn line stands are joined, so no drawn line lies further than
// a pixel from its true place. What lies outside the picture is left out.
void ConstruitSceneProgramme(const MesureProgramme& mesure, const Projection& projection,
                             const OptionsProgramme& options, Scene& scene);

// Segments of a scene, to be held against a limit.
std::size_t NombreSegments(const Scene& scene);

}  // namespace ovelin
