// Project files open with the program: a MIME type and an entry of the desktop's menu for the user.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "workspace/Module_Cycle.h"

namespace ovelin {

// The Exec line of a desktop entry: the program in double quotes, with what the entry's two layers of escapes want,
// and the place of the file.
std::string LigneExec(const std::string& programme);
// The whole entry, and the MIME package.
std::string TexteBureau(const Association& a, const std::string& programme);
std::string TexteMime(const Association& a);

struct LieuAssociation {
  std::string donnees;    // the user's data folder ($XDG_DATA_HOME), no separator at the end
  std::string programme;  // full path
  std::string icone;      // picture (SVG), "" for none
  // Starts a tool that brings the desktop's lists up to date and doesn't wait for it.
  std::function<void(const std::string& outil, const std::string& dossier)> lance;
};
// Writes what differs from what is there, and has the lists of the changed folders brought up to date. A refusal of
// the disk is not told: the program works without. A program that has moved finds its old path in the entry and
// writes the new one.
void InscritAssociation(const Association& a, const LieuAssociation& lieu);

// The user's data folder, this program, its icon, the tools of the system where they are.
LieuAssociation LieuDuBureau(const Association& a);

}  // namespace ovelin
