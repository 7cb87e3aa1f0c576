// What a format reader fills in, and what the assembly turns into PointTrace records.
//
// Each reader is one procedure, LireXxx(data, options, lecture), in a room of its own. `data` is the whole file. It
// never throws, ends on every input, and leaves the reason of a refusal in `lecture.rapport`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/commun/Point.h"
#include "closed/pathwerk/lecture/Calques.h"

namespace pathwerk::lecture {

enum class Nature : unsigned char {
  Ouvert,   // may be joined with others at its ends
  Ferme,    // a contour; the closing point need not be given twice
  Percage,  // a hole: one point
};

// One path as a format draws it, curves already flattened, in mm.
struct Trait {
  std::vector<Vec2> points;
  Nature nature = Nature::Ouvert;
  std::uint16_t calque = 0;  // its place in `Lecture::calques`
  std::uint32_t ligne = 0;   // of the file, from 1; 0 when it has none or nobody knows
};
static_assert(sizeof(Trait) == sizeof(std::vector<Vec2>) + 8);  // a drawing has a million of them

// A reader's result. `traits` are in the file's order.
struct Lecture {
  std::vector<Trait> traits;
  TableCalques calques;
  // This system's own files: paths come back in their order, direction and start, nothing is joined or dropped.
  bool ordreImpose = false;
  // Lengths are millimetres; those of a coordinate file are whatever its writer had in mind.
  bool mesure = true;
  // Ends may be joined across traits (loose segments). Formats whose paths are complete in themselves clear it.
  bool souder = true;
  RapportLecture rapport;

  void Refuse(Erreur numero, long ligne, std::string_view detail) {
    rapport.Numero = numero;
    rapport.Ligne = ligne;
    rapport.Detail = std::string(detail.substr(0, 80));
  }
  // `ligne` of the file, 0 where nobody knows.
  void Ignore(std::string_view genre, long nombre = 1, long ligne = 0) {
    rapport.Ignores[std::string(genre)] += nombre;
    if (ligne > 0) rapport.PremieresLignes.try_emplace(std::string(genre), ligne);
  }
  [[nodiscard]] bool Refuse() const { return rapport.Numero != Erreur::Aucune; }
};

}  // namespace pathwerk::lecture
