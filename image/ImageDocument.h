// The picture of a document as a file: its frame, the scene in it, a bar of a round length.
#pragma once

#include <cstdint>
#include <string>

#include "core/Document.h"
#include "image/Palette.h"
#include "image/SceneDocument.h"

namespace ovelin {

enum class FormatImage : std::uint8_t { Svg, Png };

// A picture and the view in it.
struct CadreImage {
  TailleImage taille;
  EtatVue vue;
};
// All that the options show and the machine's origin, within 1600 x 1200 pixels, 50 of them free all around.
CadreImage CadreDocument(const Document& document, const OptionsScene& options);

// A bar of 1, 2 or 5 times a power of ten mm below the drawing, at most a quarter of the picture long, added behind
// what the scene holds.
void AjouteEchelle(const CadreImage& cadre, Scene& scene);

// The bytes of the file; "" when it can't be made. Texts are measured here, whatever the options say.
std::string ImageDocument(const Document& document, OptionsScene options, const Palette& palette,
                          FormatImage format);

}  // namespace ovelin
