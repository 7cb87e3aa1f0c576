// A scene into the bytes of a picture file, by the same roles and measures as in a window.
#pragma once

#include <string>

#include "image/Palette.h"
#include "image/Scene.h"
#include "image/Vue.h"

namespace ovelin {

// `taille` in twips; a unit of the file is a pixel of 15 twips, and a picture has whole ones. "" when the picture
// can't be made (no memory, a side beyond what the format holds).
std::string PeintSvg(const Scene& scene, const Palette& palette, const TailleImage& taille);
std::string PeintPng(const Scene& scene, const Palette& palette, const TailleImage& taille);

// Sizes of texts in these files, for OptionsScene::mesureTexte.
MesureTexte MesureFichier();

}  // namespace ovelin
