// Lettering.
#pragma once

#include <cstdint>
#include <string>

#include "closed/Pathwerk.h"

namespace ovelin {

// Adds the outlines of a line of UTF-8 text as new, selected paths: base line at Y = 0, 20 mm an em. `espace` in
// thousandths of an em, `style` as for pathwerk::Texte. False: the message has been shown, or the user has taken
// the text back while its traces were computed; the document is unchanged. A text without outlines adds nothing and
// is no error.
bool GenereTexte(const std::string& texte, const std::string& police, std::int32_t espace, std::int32_t style);

// How large a text becomes and where it lies.
struct PoseTexte {
  double hauteur = pathwerk::HauteurTexte;  // mm an em, above 0
  // True: a text that begins a drawing lies `MargeTexte` from both axes, its lowest point, which may be a
  // descender, included; one that joins a drawing begins its base line at the marked position, where there is one.
  // False: the base line begins at (0, 0).
  bool cadre = false;
};
inline constexpr double MargeTexte = 5.0;  // mm
bool GenereTexte(const std::string& texte, const std::string& police, std::int32_t espace, std::int32_t style,
                 const PoseTexte& pose);

}  // namespace ovelin
