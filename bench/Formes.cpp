#include "bench/Formes.h"

#include <sys/resource.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <random>
#include <utility>

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

long EcritDessinCAO(const std::string& chemin, std::size_t octets) {
  std::ofstream fichier(chemin, std::ios::binary);
  std::string t;
  const auto groupe = [&t](int code, const std::string& valeur) {
    char tete[16];
    std::snprintf(tete, sizeof tete, "%3d\r\n", code);
    t += tete + valeur + "\r\n";
  };
  const auto place = [&groupe](int code, double x, double y) {
    char chiffres[40];
    for (const double v : {x, y}) {
      std::snprintf(chiffres, sizeof chiffres, "%.16g", v);
      groupe(code, chiffres);
      code += 10;
    }
  };
  const auto entite = [&groupe](const char* nom, const char* sorte, long numero, long calque) {
    groupe(0, nom);
    groupe(5, std::to_string(numero));
    groupe(330, "1F");
    groupe(100, "AcDbEntity");
    groupe(8, "Layer" + std::to_string(calque));
    groupe(100, sorte);
  };
  constexpr std::pair<int, const char*> Entete[] = {{0, "SECTION"}, {2, "HEADER"},  {9, "$INSUNITS"}, {70, "4"},
                                                    {0, "ENDSEC"},  {0, "SECTION"}, {2, "ENTITIES"}};
  for (const auto& [code, valeur] : Entete) groupe(code, valeur);
  long points = 0;
  long numero = 256;
  std::size_t ecrits = 0;
  for (long k = 0; ecrits + t.size() < octets; ++k) {
    const auto lieu = [k](int i, int n) {
      const double a = 2 * std::numbers::pi * (i % n) / n;
      const double r = 10 * (1 + 0.1 * std::sin(5 * a));
      const double x = 15 + 25 * static_cast<double>(k % 30);
      const double y = 15 + 25 * static_cast<double>(k / 30);
      return pathwerk::Vec2{x + r * std::cos(a), y + r * std::sin(a)};
    };
    const int n = k % 2 == 0 ? 400 : 1000;
    if (k % 2 != 0) {
      entite("LWPOLYLINE", "AcDbPolyline", ++numero, k % 3);
      groupe(90, std::to_string(n));
      groupe(70, "1");
    }
    for (int i = 0; i < n; ++i) {
      const pathwerk::Vec2 a = lieu(i, n);
      const pathwerk::Vec2 b = lieu(i + 1, n);
      if (k % 2 == 0) entite("LINE", "AcDbLine", ++numero, k % 3);
      place(10, a.x, a.y);
      if (k % 2 != 0) continue;
      groupe(30, "0.0");
      place(11, b.x, b.y);
      groupe(31, "0.0");
    }
    points += k % 2 == 0 ? 2 * n : n;
    ecrits += t.size();
    fichier << t;
    t.clear();
  }
  groupe(0, "ENDSEC");
  groupe(0, "EOF");
  fichier << t;
  return points;
}

double MemoireMo() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

}  // namespace banc
