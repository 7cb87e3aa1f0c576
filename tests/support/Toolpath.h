// A second interpreter of other people: gcode-toolpath of cncjs, on node. It takes any word, tells lines and arcs
// as it understands them, and knows no feed.
#pragma once

#include <string>

#include "tests/support/Rs274.h"

namespace essai {

// Is it there (dev/install-packages all)? A test that needs it skips itself without:
//   if (!ToolpathPresent()) GTEST_SKIP() << ToolpathAbsent;
bool ToolpathPresent();
inline constexpr const char* ToolpathAbsent =
    "gcode-toolpath (npm) is not installed: the second independent check is left out";

ResultatRs274 LanceToolpath(const std::string& fichier);

}  // namespace essai
