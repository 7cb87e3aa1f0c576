// What a format reader fills in, and what the assembly turns into PointTrace records.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "closed/Pathwerk.h"

namespace pathwerk {

struct Vec2 {
  double x = 0;
  double y = 0;
  constexpr bool operator==(const Vec2&) const = default;
};

enum class Nature : unsigned char {
  Ouvert,   // may be joined with others at its ends
  Ferme,    // a contour; the closing point need not be given twice
  Percage,  // a hole: one point
};

// One path as a format draws it, curves already flattened, in mm.
struct Trait {
  std::vector<Vec2> points;
  Nature nature = Nature::Ouvert;
};

// A reader's result. `traits` are in the file's order.
struct Lecture {
  std::vector<Trait> traits;
  // This system's own files: paths come back in their order, direction and start, nothing is joined or dropped.
  bool ordreImpose = false;
  // Ends may be joined across traits (loose segments). Formats whose paths are complete in themselves clear it.
  bool souder = true;
  RapportLecture rapport;

  void Refuse(Erreur numero, long ligne, std::string_view detail) {
    rapport.Numero = numero;
    rapport.Ligne = ligne;
    rapport.Detail = std::string(detail.substr(0, 80));
  }
  void Ignore(std::string_view genre, long nombre = 1) { rapport.Ignores[std::string(genre)] += nombre; }
  [[nodiscard]] bool Refuse() const { return rapport.Numero != Erreur::Aucune; }
};

// The format readers. `data` is the whole file. They never throw, end on every input, and leave the reason of a
// refusal in `lecture.rapport`.
void LireDxf(std::string_view data, const OptionsLecture& options, Lecture& lecture);
void LireHpgl(std::string_view data, const OptionsLecture& options, Lecture& lecture);
void LireDat(std::string_view data, const OptionsLecture& options, Lecture& lecture);
void LireExcellon(std::string_view data, const OptionsLecture& options, Lecture& lecture);
void LireEps(std::string_view data, const OptionsLecture& options, Lecture& lecture);

// Joins loose ends, drops exact duplicates, turns and orders contours by their nesting, gives codes.
// Returns the number of points or a negative `Erreur` (also left in `lecture.rapport`).
std::int32_t Assemble(Lecture& lecture, const OptionsLecture& options, std::vector<PointTrace>& points);

// Chords of a circular arc: appends the points behind the start, the end point included. `fleche` is the greatest
// distance between chord and arc, mm. `balayage` in radians, positive counter-clockwise.
void AjouteArc(std::vector<Vec2>& points, Vec2 centre, double rayon, double angleDebut, double balayage,
               double fleche);
// Chords of a cubic Bezier curve from the last point of `points` (its start).
void AjouteBezier(std::vector<Vec2>& points, Vec2 p1, Vec2 p2, Vec2 p3, double fleche);

}  // namespace pathwerk
