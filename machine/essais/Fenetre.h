// The name of the window of parameters: of its keys in the settings, and of the runs that it starts.
#pragma once

namespace ovelin {

inline constexpr const char* FenetreParametres = "F_ParamMachine";

}  // namespace ovelin
