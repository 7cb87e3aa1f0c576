// Drawings for the tests of reading, assembly and writing.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numbers>
#include <string>
#include <string_view>
#include <vector>

#include "closed/Pathwerk.h"
#include "closed/pathwerk/assemblage/Assemblage.h"
#include "closed/pathwerk/lecture/Lecture.h"

namespace aide {

using pathwerk::PointTrace;
using pathwerk::Vec2;
using pathwerk::lecture::Lecture;
using pathwerk::lecture::Nature;
using pathwerk::lecture::Trait;

// A folder of this test alone, gone at its end.
class Dossier {
 public:
  Dossier() {
    static std::atomic<int> numero{0};
    chemin_ = std::filesystem::temp_directory_path() /
              ("pathwerk_io_" + std::to_string(::getpid()) + "_" + std::to_string(numero++));
    std::filesystem::create_directories(chemin_);
  }
  ~Dossier() {
    std::error_code e;
    std::filesystem::remove_all(chemin_, e);
  }
  Dossier(const Dossier&) = delete;
  Dossier& operator=(const Dossier&) = delete;
  [[nodiscard]] std::string operator/(const std::string& nom) const { return (chemin_ / nom).string(); }
  std::string Ecrit(const std::string& nom, std::string_view octets) const {
    const std::string chemin = *this / nom;
    std::ofstream(chemin, std::ios::binary) << octets;
    return chemin;
  }
  [[nodiscard]] std::size_t NombreDeFichiers() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(chemin_), std::filesystem::directory_iterator()));
  }

 private:
  std::filesystem::path chemin_;
};

inline std::string Octets(const std::string& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

inline std::string SansBlancsFinaux(std::string t) {
  t.erase(t.find_last_not_of(' ') + 1);
  return t;
}

// The points of each sequence, as a change of `Seq` parts them.
inline std::vector<std::vector<Vec2>> Sequences(const std::vector<PointTrace>& points) {
  std::vector<std::vector<Vec2>> s;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0 || points[i].Seq != points[i - 1].Seq) s.emplace_back();
    s.back().push_back({static_cast<double>(points[i].X), static_cast<double>(points[i].Y)});
  }
  return s;
}

struct Assemblage {
  std::int32_t n = 0;
  std::vector<PointTrace> points;
  std::vector<std::vector<Vec2>> sequences;
  pathwerk::RapportLecture rapport;
  [[nodiscard]] long Ignores(const std::string& genre) const {
    const auto it = rapport.Ignores.find(genre);
    return it == rapport.Ignores.end() ? 0 : it->second;
  }
};

inline Assemblage Assemble(Lecture lecture, double soudure = 0.01) {
  Assemblage a;
  pathwerk::OptionsLecture options;
  options.ToleranceSoudure = soudure;
  a.n = pathwerk::assemblage::Assemble(lecture, options, a.points);
  a.sequences = Sequences(a.points);
  a.rapport = lecture.rapport;
  return a;
}

inline Assemblage Assemble(std::vector<Trait> traits, double soudure = 0.01) {
  Lecture lecture;
  lecture.traits = std::move(traits);
  return Assemble(std::move(lecture), soudure);
}

inline Trait Ouvert(std::vector<Vec2> points) { return {std::move(points), Nature::Ouvert}; }
inline Trait Ferme(std::vector<Vec2> points) { return {std::move(points), Nature::Ferme}; }
inline Trait Percage(Vec2 p) { return {{p}, Nature::Percage}; }

// Counter-clockwise from its lower left corner.
inline Trait Carre(double x, double y, double cote) {
  return Ferme({{x, y}, {x + cote, y}, {x + cote, y + cote}, {x, y + cote}});
}
inline Trait Cercle(Vec2 c, double r, int n) {
  Trait t{{}, Nature::Ferme};
  for (int i = 0; i < n; ++i) {
    const double a = 2 * std::numbers::pi * i / n;
    t.points.push_back({c.x + r * std::cos(a), c.y + r * std::sin(a)});
  }
  return t;
}
inline std::vector<Trait> EnSegments(const Trait& contour) {
  std::vector<Trait> s;
  for (std::size_t i = 0; i < contour.points.size(); ++i) {
    s.push_back(Ouvert({contour.points[i], contour.points[(i + 1) % contour.points.size()]}));
  }
  return s;
}

// Area, positive counter-clockwise.
inline double Aire(const std::vector<Vec2>& p) {
  double a = 0;
  for (std::size_t i = 1; i < p.size(); ++i) a += p[i - 1].x * p[i].y - p[i].x * p[i - 1].y;
  return a / 2;
}
inline bool EstFerme(const std::vector<Vec2>& p) { return p.size() > 2 && p.front() == p.back(); }

struct Fichier {
  std::int32_t n = 0;
  std::vector<PointTrace> points;
  float xmin = -1, xmax = -2, ymin = -3, ymax = -4;
  std::string message = std::string(pathwerk::LongueurMessage, ' ');
};
// Into fixed places, as LireFichier fills them.
inline Fichier LisEnPlace(const std::string& chemin) {
  Fichier f;
  f.n = pathwerk::LireFichier(f.points, chemin, f.xmin, f.xmax, f.ymin, f.ymax, f.message);
  return f;
}
inline pathwerk::Importation Lis(const std::string& chemin) { return pathwerk::ImporteFichier(chemin); }

}  // namespace aide

namespace base {
inline void PrintTo(Vec2 p, std::ostream* os) { *os << '(' << p.x << ' ' << p.y << ')'; }
}  // namespace base
