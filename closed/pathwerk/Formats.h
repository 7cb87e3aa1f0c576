// The formats of drawings, one row each: a new reader is its room and a row here.
#pragma once

#include <string>
#include <string_view>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk {

struct LigneFormat {
  FormatConnu connu;
  // Its file, by what it begins with; null for what no reader reads.
  bool (*flaire)(std::string_view data);
  void (*lit)(std::string_view data, const OptionsLecture& options, lecture::Lecture& lecture);
  bool texte;  // read as text: without a byte order mark, narrowed from 16-bit units
};

// The row with a reader for that file: by the upper-case extension; when that names no format, by what the file
// begins with. Null when neither does.
const LigneFormat* TrouveFormat(const std::string& extension, std::string_view data);

}  // namespace pathwerk
