// Lettering.
#pragma once

#include <cstdint>
#include <string>

namespace ovelin {

// Adds the outlines of a line of UTF-8 text as new, selected paths: base line at Y = 0, 20 mm an em. `espace` in
// thousandths of an em, `style` as for pathwerk::Texte. False: the message has been shown, the document is
// unchanged. A text without outlines adds nothing and is no error.
bool GenereTexte(const std::string& texte, const std::string& police, std::int32_t espace, std::int32_t style);

}  // namespace ovelin
