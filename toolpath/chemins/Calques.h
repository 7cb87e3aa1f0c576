// The layers of a drawing, as its user tells them apart: by their names, or by the colours where all paths have one
// name, as in a drawing that puts all of them on one layer and marks the cuts red.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Document.h"

namespace ovelin {

enum class PartageCalques : std::uint8_t { Aucun, Noms, Couleurs };
// What the paths differ in; nothing of them is no difference.
PartageCalques PartageDe(const Document& document);

struct CalqueDessin {
  std::string nom;                       // "" where the paths have none
  std::optional<std::uint32_t> couleur;  // 0xRRGGBB, where all its paths have the same
  std::vector<Code2> codes;              // its paths in the order in which they are cut
};
// In the order of their first paths; none where nothing tells them apart.
std::vector<CalqueDessin> CalquesDe(const Document& document);

// All paths of the layers that the selected ones lie on become the selection. False without a selected one.
bool EtendSelectionAuxCalques(Document& document);

// A name as a line shows it: without the marks that turn the direction of what follows, and cut where it is long.
std::string NomAffiche(std::string_view nom);
// "#FF0000"
std::string TexteCouleur(std::uint32_t couleur);
// The layer of a path where there are several, "" where there is nothing to say: its name, or its colour.
std::string TexteCalque(const Complement& complement, PartageCalques partage);

}  // namespace ovelin
