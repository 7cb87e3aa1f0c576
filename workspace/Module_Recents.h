// The recent files: up to `gMaxMRU` paths, the newest first, as the menu array `mnu_MRU` shows them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "workspace/Module_Ouverture.h"

namespace ovelin {

// Entry 1 of the menu is element 0; index 0 of the menu is its hidden separator.
struct ListeRecents {
  std::vector<std::string> chemins;
};
extern ListeRecents Recents;

// At load, from the keys "MRUFiles1" and on; a path with "\\" is read with "/".
void RemplitRecents();
void AjouteRecent(const std::string& chemin);  // first; a path that is there moves; what is too much is dropped
void OteRecent(const std::string& chemin);
// To the settings file alone, with the keys behind the list deleted. A path that would not come back as it is (too
// long for a value, "&&" in it) is left out.
void SauveRecents();
// The file of an entry, from 1, is there.
bool RecentPresent(std::size_t index);
// Texts of the menu entries from 1: the number in front of the path.
std::vector<std::string> TextesRecents();

// An entry of the menu, by its index from 1. What no longer exists leaves the list, and FichierDisparu tells so.
Ouverture mnu_MRU(std::size_t index, const OptionsOuverture& options = {}, ContenuLu* contenu = nullptr);
// The same where the caller opens the file, which is there.
Ouverture mnu_MRU(std::size_t index, const std::function<Ouverture(const std::string& chemin)>& ouvre);

}  // namespace ovelin
