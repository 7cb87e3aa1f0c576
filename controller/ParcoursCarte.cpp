#include "controller/ParcoursCarte.h"

#include <algorithm>
#include <cstdio>
#include <limits>

#include "core/Fichiers.h"
#include "core/Nombres.h"

namespace ovelin {

namespace {

using zenikcom::Axes3;
constexpr double Marge = 2;  // mm around the drawing

struct PointMm {
  double x = 0, y = 0, z = 0;
};

PointMm EnMm(const Axes3& p, const std::array<double, 3>& mmParPas) {
  return {static_cast<double>(p[0]) * mmParPas[0], static_cast<double>(p[1]) * mmParPas[1],
          static_cast<double>(p[2]) * mmParPas[2]};
}

// Four decimals, a point whatever the user's mark, no minus before a nought.
std::string Mm(double v) {
  char texte[64];
  std::snprintf(texte, sizeof texte, "%.4f", v);
  return std::string_view(texte) == "-0.0000" ? "0.0000" : texte;
}

struct Cadre {
  double x0 = std::numeric_limits<double>::max(), y0 = x0, x1 = -x0, y1 = -x0;
};

Cadre CadreDe(const std::vector<Axes3>& points, const std::array<double, 3>& mmParPas) {
  Cadre c;
  for (const Axes3& point : points) {
    const PointMm p = EnMm(point, mmParPas);
    c = {std::min(c.x0, p.x), std::min(c.y0, p.y), std::max(c.x1, p.x), std::max(c.y1, p.y)};
  }
  return points.empty() ? Cadre{0, 0, 0, 0} : c;
}

// The pieces of one height, each as long as it lasts.
void EcritTraits(std::string& svg, const std::vector<Axes3>& points, const std::array<double, 3>& mmParPas) {
  std::size_t i = 1;
  while (i < points.size()) {
    const bool dessous = EnMm(points[i], mmParPas).z < 0;
    svg += std::string("<polyline class=\"") + (dessous ? "coupe" : "rapide") + "\" points=\"";
    const auto pose = [&](const Axes3& point) {
      const PointMm p = EnMm(point, mmParPas);
      svg += Mm(p.x) + "," + Mm(-p.y) + " ";
    };
    pose(points[i - 1]);
    for (; i < points.size() && (EnMm(points[i], mmParPas).z < 0) == dessous; ++i) pose(points[i]);
    svg.back() = '"';
    svg += "/>\n";
  }
}

}  // namespace

std::string ParcoursCsv(const std::vector<Axes3>& points, const std::array<double, 3>& mmParPas) {
  std::string csv = "X,Y,Z,PasX,PasY,PasZ\n";
  for (const Axes3& point : points) {
    const PointMm p = EnMm(point, mmParPas);
    csv += Mm(p.x) + "," + Mm(p.y) + "," + Mm(p.z);
    for (const std::int64_t pas : point) csv += "," + std::to_string(pas);
    csv += "\n";
  }
  return csv;
}

std::string ParcoursSvg(const std::vector<Axes3>& points, const std::array<double, 3>& mmParPas) {
  const Cadre c = CadreDe(points, mmParPas);
  const double largeur = c.x1 - c.x0 + 2 * Marge, hauteur = c.y1 - c.y0 + 2 * Marge;
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + Mm(largeur) + "mm\" height=\"" +
                    Mm(hauteur) + "mm\" viewBox=\"" + Mm(c.x0 - Marge) + " " + Mm(-c.y1 - Marge) + " " +
                    Mm(largeur) + " " + Mm(hauteur) +
                    "\">\n<style>polyline{fill:none;stroke-width:0.2}.coupe{stroke:#1040c0}"
                    ".rapide{stroke:#a0a0a0;stroke-dasharray:1}</style>\n";
  EcritTraits(svg, points, mmParPas);
  return svg + "</svg>\n";
}

char GenreParcours(std::string_view chemin) {
  const std::string nom = Majuscules(chemin);
  if (nom.ends_with(".SVG")) return 's';
  return nom.ends_with(".CSV") ? 'c' : '\0';
}

std::string EcritParcours(const std::string& chemin, const std::vector<Axes3>& points,
                          const std::array<double, 3>& mmParPas) {
  const char genre = GenreParcours(chemin);
  if (genre == '\0') return ".svg, .csv";
  return EcritFichierEntier(chemin, genre == 's' ? ParcoursSvg(points, mmParPas) : ParcoursCsv(points, mmParPas));
}

}  // namespace ovelin
