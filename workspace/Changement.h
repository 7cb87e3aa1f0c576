// What lies between two states of the document, in words: the lines of the list of undo.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/Document.h"

namespace ovelin {

enum class SorteChangement : std::uint8_t {
  Affichage,  // nothing but the view ...
  Selection,  // ... or the selection has changed
  Ouverture,  // the first state of a drawing
  Ajout,      // of paths
  Suppression,
  Deplacement,
  Rotation,
  Miroir,
  Taille,
  Depart,   // other starts, or the other sense, on the same points
  Attache,  // points of a notch
  Forme,    // points in any other way
  Ordre,
  Cote,  // of the tool
  Poche,
  Profondeur,
  Fraiser,     // milled or left out
  Ilot,        // left standing in a pocket, or no longer
  Calque,      // name or colour of the layer
  Proprietes,  // several of these six
  Materiau,    // speeds, depths of the material
  Outil,
  Reglage,  // anything else that a project holds
};

struct Changement {
  SorteChangement sorte = SorteChangement::Reglage;
  std::int32_t sequences = 0;  // paths that it concerns; 0 where it concerns none
  bool operator==(const Changement&) const = default;
  // Neither drawing nor job differ.
  [[nodiscard]] bool Muet() const {
    return sorte == SorteChangement::Affichage || sorte == SorteChangement::Selection;
  }
};

struct EtatCompare {
  std::span<const PointTrace> points;
  std::span<const SequenceInfo> fiches;
  std::string_view reglages;                      // settings lines of its project: "$$key=value"
  const TableComplements* complements = nullptr;  // of its paths; none: all default
};

// Points go before records, records before settings: a side that turns the points round is told as the side. Moved,
// turned, mirrored and scaled are found by the one transform that fits all changed points within 0.001 mm and what
// 32 bits hold. Nothing differs: `Affichage`. Costs points plus paths, and sorts the points of the changed paths.
Changement ChangementEntre(const EtatCompare& avant, const EtatCompare& apres);

// "Déplacement : 3 séquences", in the language in force.
std::string TexteChangement(const Changement& changement);

}  // namespace ovelin
