// A long section of entities cut into stretches, so that several threads can draw it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "closed/pathwerk/lecture/dxf/Groupes.h"

namespace pathwerk::lecture::dxf {

// How a section is cut.
struct Decoupe {
  std::size_t octets = 0;  // of a stretch, about; 0: no section is cut
  unsigned fils = 1;       // that look for the cuts
};

// A run of whole entities. Where it begins is where nobody has read yet: a line "0" with the name of an entity
// below it. That this is a group and no value is as good as certain, and known once the stretch before it has been
// drawn and has ended there, line for line.
struct Tranche {
  LecteurGroupes::Reprise debut;
  LecteurGroupes::Reprise suite;  // behind the group 0 that follows the stretch
};

struct SectionCoupee {
  std::vector<Tranche> tranches;  // without a gap, from the section's beginning to its end
  LecteurGroupes::Reprise fin;    // before the "ENDSEC" that ends it
};

// The section of entities that begins at `debut`, or nothing: it is too short to be cut, has no end, or its lines
// end with CR alone. Reads no group; `data` is the text that `debut` is a place of.
std::optional<SectionCoupee> CoupeSection(std::string_view data, LecteurGroupes::Reprise debut,
                                          const Decoupe& decoupe);

// Line ends in a text that begins with a line, as `LecteurGroupes` counts them: CR, LF, CR LF and CR CR LF.
long CompteFins(std::string_view texte);

}  // namespace pathwerk::lecture::dxf
