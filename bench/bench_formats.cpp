// Reading of large drawings in the other formats: seconds, those of the processor, and the memory that it takes
// above what was held before.
//   build/bench/bin/bench_formats [--cores N] [MB [FORMAT]]      (1 core and 30 MB of each without them; EPS is
//   given a fifth, since another program draws it)
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <string>
#include <string_view>

#include "base/Point.h"
#include "bench/Enfant.h"
#include "bench/OptionCoeurs.h"
#include "closed/Pathwerk.h"

namespace {

using base::Vec2;

constexpr int PointsParContour = 1000;

// Point `i` of contour `k`, mm: lobed circles of 20 mm on a grid.
Vec2 Lieu(long k, int i) {
  const double a = 2 * std::numbers::pi * i / PointsParContour;
  const double r = 10 * (1 + 0.1 * std::sin(5 * a));
  return {15 + 25 * static_cast<double>(k % 40) + r * std::cos(a),
          15 + 25 * static_cast<double>(k / 40) + r * std::sin(a)};
}

template <class... Nombres>
void Imprime(std::string& t, const char* forme, Nombres... nombres) {
  char ligne[96];
  const int n = std::snprintf(ligne, sizeof ligne, forme, nombres...);
  t.append(ligne, static_cast<std::size_t>(n));
}

void Unites(std::string& t, const char* forme, Vec2 p) {
  constexpr double ParMm = 40;
  Imprime(t, forme, std::lround(p.x * ParMm), std::lround(p.y * ParMm));
}

// One list of places for each contour.
void PlumeEnListe(std::string& t, long k) {
  Unites(t, "PU%ld,%ld;PD", Lieu(k, 0));
  for (int i = 1; i <= PointsParContour; ++i) Unites(t, i > 1 ? ",%ld,%ld" : "%ld,%ld", Lieu(k, i));
  t += ";\n";
}

// One instruction for each place.
void PlumeParPlace(std::string& t, long k) {
  Unites(t, "PU%ld %ld;", Lieu(k, 0));
  for (int i = 1; i <= PointsParContour; ++i) Unites(t, "PD%ld %ld;", Lieu(k, i));
  t += "\n";
}

// Encoded steps.
void PlumeCodee(std::string& t, long k) {
  const auto code = [&t](long v) {
    unsigned long n = static_cast<unsigned long>(std::labs(v)) * 2 + (v < 0 ? 1 : 0);
    for (; n >= 64; n /= 64) t += static_cast<char>(63 + n % 64);
    t += static_cast<char>(191 + n);
  };
  Vec2 ici;
  for (int i = 0; i <= PointsParContour; ++i) {
    const Vec2 p{std::round(Lieu(k, i).x * 40), std::round(Lieu(k, i).y * 40)};
    t += i == 0 ? "PE<=" : "";
    code(std::lround(i == 0 ? p.x : p.x - ici.x));
    code(std::lround(i == 0 ? p.y : p.y - ici.y));
    ici = p;
  }
  t += ";\n";
}

void CheminDroit(std::string& t, long k) {
  t += "<path style=\"fill:none;stroke:#000000;stroke-width:0.1\" d=\"M ";
  for (int i = 0; i < PointsParContour; ++i) Imprime(t, "%.6g,%.6g ", Lieu(k, i).x, Lieu(k, i).y);
  t += "Z\"/>\n";
}

void CheminRelatif(std::string& t, long k) {
  t += "<path style=\"fill:none;stroke:#000000;stroke-width:0.1\" d=\"m";
  Vec2 ici;
  for (int i = 0; i < PointsParContour; ++i) {
    const Vec2 p = Lieu(k, i);
    Imprime(t, i == 1 ? "l%.3f %.3f" : "%.3f %.3f ", p.x - ici.x, p.y - ici.y);
    ici = p;
  }
  t += "z\"/>\n";
}

void CheminCourbe(std::string& t, long k) {
  t += "<path fill=\"none\" stroke=\"#000\" d=\"M";
  for (int i = 0; i < PointsParContour; ++i) {
    Imprime(t, i == 0 ? "%.4f,%.4f" : i % 3 == 1 ? "C%.4f,%.4f" : " %.4f,%.4f", Lieu(k, i).x, Lieu(k, i).y);
  }
  t += "Z\"/>\n";
}

void Polygone(std::string& t, long k) {
  t += "<polygon class=\"a\" points=\"";
  for (int i = 0; i < PointsParContour; ++i) Imprime(t, "%.6g,%.6g ", Lieu(k, i).x, Lieu(k, i).y);
  t += "\"/>\n";
}

void Route(std::string& t, long k) {
  const auto place = [&t, k](const char* forme, int i) {
    Imprime(t, forme, std::lround(Lieu(k, i).x * 1000), std::lround(Lieu(k, i).y * 1000));
  };
  place("G00X%06ldY%06ld\nM15\n", 0);
  for (int i = 1; i <= PointsParContour; ++i) place("G01X%06ldY%06ld\n", i);
  t += "M16\n";
}

void CheminPostScript(std::string& t, long k) {
  for (int i = 0; i < PointsParContour; ++i) {
    Imprime(t, i == 0 ? "newpath %.3f %.3f moveto\n" : "%.3f %.3f lineto\n", Lieu(k, i).x, Lieu(k, i).y);
  }
  t += "closepath stroke\n";
}

struct Forme {
  const char* nom;
  const char* extension;
  const char* tete;
  void (*contour)(std::string& t, long k);
  const char* queue;
  double part = 1;  // of the bytes that are asked for
};

constexpr const char* TeteSvg =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1000mm\" height=\"3000mm\" viewBox=\"0 0 1000 3000\">\n";

constexpr std::array Formes{
    Forme{"hpgl-list", "plt", "IN;SP1;\n", PlumeEnListe, "PU0,0;SP0;\n"},
    Forme{"hpgl-place", "plt", "IN;SP1;\n", PlumeParPlace, "PU0,0;SP0;\n"},
    Forme{"hpgl-encoded", "plt", "IN;SP1;\n", PlumeCodee, "PU0,0;SP0;\n", 0.25},
    Forme{"svg-lines", "svg", TeteSvg, CheminDroit, "</svg>\n"},
    Forme{"svg-steps", "svg", TeteSvg, CheminRelatif, "</svg>\n"},
    Forme{"svg-curves", "svg", TeteSvg, CheminCourbe, "</svg>\n"},
    Forme{"svg-points", "svg", TeteSvg, Polygone, "</svg>\n"},
    Forme{"excellon", "drl", "M48\nMETRIC,TZ,000.000\nT01C0.8\n%\nT01\n", Route, "M30\n"},
    Forme{"eps", "eps", "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 1000 3000\n", CheminPostScript,
          "showpage\n%%EOF\n", 0.2},
};

void Ecrit(const Forme& forme, const std::string& chemin, double octets) {
  std::ofstream fichier(chemin, std::ios::binary);
  std::string t = forme.tete;
  double ecrits = 0;
  for (long k = 0; ecrits + static_cast<double>(t.size()) < octets; ++k) {
    forme.contour(t, k);
    ecrits += static_cast<double>(t.size());
    fichier << t;
    t.clear();
  }
  fichier << t << forme.queue;
}

struct Lue {
  double duree = 1e9, processeur = 1e9, memoire = 0;
  long points = 0;
};

Lue Lit(const std::string& chemin) {
  pathwerk::OptionsLecture options;
  options.Fils = ovelin::NombreCoeurs;
  Lue lue;
  for (int k = 0; k < 5; ++k) {
    const double memoire = banc::MemoireDe([&] {
      const double avant = banc::Secondes();
      const auto debut = std::chrono::steady_clock::now();
      const pathwerk::Importation importee = pathwerk::ImporteFichier(chemin, options);
      lue.duree =
          std::min(lue.duree, std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count());
      lue.processeur = std::min(lue.processeur, banc::Secondes() - avant);
      lue.points = importee.Nombre;
    });
    lue.memoire = std::max(lue.memoire, memoire);
  }
  return lue;
}

}  // namespace

int main(int argc, char** argv) {
  banc::PrendCoeurs(argc, argv);
  const double mo = argc > 1 ? std::atof(argv[1]) : 30;
  const std::string_view seul = argc > 2 ? argv[2] : "";
  const auto dossier = std::filesystem::temp_directory_path() / "ovelin-bench";
  std::filesystem::create_directories(dossier);
  for (const Forme& forme : Formes) {
    if (!seul.empty() && seul != forme.nom) continue;
    const std::string chemin = (dossier / (std::string("format.") + forme.extension)).string();
    Ecrit(forme, chemin, mo * 1e6 * forme.part);
    const auto octets = static_cast<double>(std::filesystem::file_size(chemin));
    const auto lue = banc::DansUnEnfant<Lue>([&] { return Lit(chemin); }, 300);
    if (!lue) return 1;
    std::printf(
        "%-13s %4.0f MB %9ld points %7.3f s  processor %7.3f s  memory %4.0f MB, beside the bytes %4.1f times "
        "the points\n",
        forme.nom, octets / 1e6, lue->points, lue->duree, lue->processeur, lue->memoire / 1e6,
        (lue->memoire - octets) / (static_cast<double>(lue->points) * sizeof(pathwerk::PointTrace)));
  }
  return 0;
}
