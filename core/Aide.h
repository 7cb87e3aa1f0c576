// Help: the manual that comes with the program, and the project's web site.
#pragma once

#include <string>
#include <string_view>

namespace ovelin {

inline constexpr const char* FichierAide = "OVELIN V4.pdf";

// Where the manual lies: in the program's folder, else in the installation; in the folder of the language ("en") in
// either, else beside it, where the French one is. "" where there is none.
std::string TrouveAide(const std::string& langue);
// Opens the manual by the desktop. A box tells why it can't.
void mnu_Help();
// The address of a page of the project's site ("/Aide/HELP.htm"): key `AdresseMaj` of the settings file, which is
// empty as delivered, then "".
std::string AdresseSite(std::string_view page);

}  // namespace ovelin
