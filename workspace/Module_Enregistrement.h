// The commands that save the project, with their dialog and their refusal.
#pragma once

namespace ovelin {

// To the path that the project has; a drawing that is none asks for one. False: cancelled, nothing to save, or
// refused, which has been told; the document then stands as before and stays modified.
bool mnu_Save();
// Always asks. ".OVL" is added to a name without it.
bool mnu_SaveAs();

}  // namespace ovelin
