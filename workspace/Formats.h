// Which drawings the program opens, out of the table of formats.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ovelin {

// The pattern of the open dialog: "*.DAT; *.PLT; ...".
std::string MotifDessins();
// A file of that upper-case extension can be dropped on the window.
bool SeDepose(std::string_view extension);
// A G-code file, which the workshop shows: NC, ISO, in upper case.
bool EstProgramme(std::string_view extension);
// Every extension, and those that a drawing named at the start of the window may have: fewer than the open dialog
// takes, on purpose. Both in the order in which help lists them.
std::vector<std::string_view> ExtensionsLues();
std::vector<std::string_view> ExtensionsArgument();
// "DXF, DAT or OVL".
std::string EnListe(const std::vector<std::string_view>& extensions);

}  // namespace ovelin
