// Small DXF files for the tests, written as "code=value" words ("~" stands for a blank), and measures of paths.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/dxf/Dxf.h"

namespace essai {

using Groupes = std::vector<std::pair<int, std::string>>;

Groupes DeMots(const std::string& mots);
// As a text file with the given line end.
std::string EnTexte(const Groupes& groupes, const std::string& finDeLigne = "\n");
// As a binary file, with codes of two bytes (since R13) or of one.
std::string EnBinaire(const Groupes& groupes, bool codeLarge = true);

// A section of entities around the words, and the end of the file.
std::string Section(const std::string& entites);
std::string Texte(const std::string& mots);
// HEADER with variables and an ENTITIES section.
std::string AvecEntete(const std::string& variables, const std::string& entites);
// BLOCKS and an ENTITIES section.
std::string AvecBlocs(const std::string& blocs, const std::string& entites);
// TABLES with layers and an ENTITIES section.
std::string AvecCalques(const std::string& calques, const std::string& entites);

pathwerk::lecture::Lecture Lit(std::string_view data, double fleche = 0.01);
// Reads a file of the entities alone and expects no refusal.
pathwerk::lecture::Lecture LitEntites(const std::string& entites, double fleche = 0.01);
// How many of a kind were left out.
long Ignores(const pathwerk::lecture::Lecture& l, const std::string& genre);

struct Boite {
  double xmin, ymin, xmax, ymax;
};
Boite BoiteDe(const std::vector<pathwerk::Vec2>& points);
double Aire(const std::vector<pathwerk::Vec2>& points);  // signed, counter-clockwise above 0
double Longueur(const pathwerk::lecture::Trait& trait);  // closing segment included
// Greatest distance of points of the path's chords (nine on each) from where `ecart` says 0.
template <class F>
double EcartMax(const pathwerk::lecture::Trait& trait, F ecart) {
  const auto& p = trait.points;
  const std::size_t n = trait.nature == pathwerk::lecture::Nature::Ferme ? p.size() : p.size() - 1;
  double max = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const pathwerk::Vec2 a = p[i];
    const pathwerk::Vec2 b = p[(i + 1) % p.size()];
    for (int k = 0; k <= 8; ++k) {
      const double t = k / 8.0;
      const double e = ecart(pathwerk::Vec2{a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t});
      max = e > max ? e : max;
    }
  }
  return max;
}
// Distance of a point from the path.
double Distance(pathwerk::Vec2 p, const pathwerk::lecture::Trait& trait);

void AttendPoint(pathwerk::Vec2 p, double x, double y, double tolerance = 1e-9);
void AttendBoite(const pathwerk::lecture::Lecture& l, double xmin, double ymin, double xmax, double ymax,
                 double tolerance);

}  // namespace essai
