#include "bench/Formes.h"

#include <sys/resource.h>

#include <cmath>
#include <cstdio>
#include <numbers>
#include <random>

#include "closed/pathwerk/lecture/Lecture.h"

namespace banc {

namespace {

void Lobes(std::vector<pathwerk::PointTrace>& sortie, double cx, double cy, double rayon, int points,
           pathwerk::Code2 code) {
  sortie.reserve(static_cast<std::size_t>(points) + 1);
  for (int i = 0; i < points; ++i) {
    const double a = -2 * std::numbers::pi * i / points;
    const double r = rayon * (1 + 0.1 * std::sin(5 * a));
    sortie.push_back({static_cast<float>(cx + r * std::cos(a)), static_cast<float>(cy + r * std::sin(a)),
                      pathwerk::CodePD, code});
  }
  sortie.push_back(sortie.front());
}

}  // namespace

std::vector<std::vector<pathwerk::PointTrace>> Contours(int contours, int points) {
  std::vector<std::vector<pathwerk::PointTrace>> tous(static_cast<std::size_t>(contours));
  const int colonnes = static_cast<int>(std::ceil(std::sqrt(contours)));
  for (int k = 0; k < contours; ++k) {
    Lobes(tous[static_cast<std::size_t>(k)], 15 + 25.0 * (k % colonnes), 15 + 25.0 * (k / colonnes), 10, points,
          pathwerk::CodeDeRang(static_cast<std::size_t>(k)));
  }
  return tous;
}

std::vector<pathwerk::PointTrace> Contour(int points) {
  std::vector<pathwerk::PointTrace> un;
  Lobes(un, 100, 100, 100, points, pathwerk::CodeDeRang(0));
  return un;
}

std::string DessinDxf(int contours, int points, double bruit) {
  std::mt19937_64 hasard(1);
  std::uniform_real_distribution<double> ecart(-bruit, bruit);
  std::string texte = "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n4\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
  char ligne[96];
  for (const auto& contour : Contours(contours, points)) {
    pathwerk::Vec2 milieu;
    for (const auto& p : contour) {
      milieu.x += static_cast<double>(p.X) / static_cast<double>(contour.size());
      milieu.y += static_cast<double>(p.Y) / static_cast<double>(contour.size());
    }
    texte += "0\nLWPOLYLINE\n8\n0\n90\n" + std::to_string(contour.size() - 1) + "\n70\n1\n";
    for (std::size_t i = 0; i + 1 < contour.size(); ++i) {
      double x = static_cast<double>(contour[i].X);
      double y = static_cast<double>(contour[i].Y);
      if (bruit > 0) {
        const double r = 10 + ecart(hasard) / std::hypot(x - milieu.x, y - milieu.y);
        x = 10 * milieu.x + r * (x - milieu.x);
        y = 10 * milieu.y + r * (y - milieu.y);
      }
      const int n = std::snprintf(ligne, sizeof ligne, " 10\n%.9g\n 20\n%.9g\n", x, y);
      texte.append(ligne, static_cast<std::size_t>(n));
    }
  }
  return texte + "0\nENDSEC\n0\nEOF\n";
}

double MemoireMo() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

}  // namespace banc
