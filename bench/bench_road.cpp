// The whole road of a job, step by step, in one process: a DXF file read and oriented, offset, planned, written as
// G-code; seconds, share and greatest memory. Also 8,000 small circles, and outlines scanned badly, each point off
// by up to 0.02 mm.
//   build/bench/bin/bench_road [--cores N] [POINTS_PER_CONTOUR CONTOURS [NOISE_MM]]      (1 core without the
//   option)
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/Formes.h"
#include "core/Coeurs.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "run/Module_GCode.h"
#include "run/Module_Planificateur.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"

namespace {

using namespace ovelin;

class Chrono {
 public:
  double Tour() {
    const auto maintenant = std::chrono::steady_clock::now();
    const double s = std::chrono::duration<double>(maintenant - debut_).count();
    debut_ = maintenant;
    return s;
  }

 private:
  std::chrono::steady_clock::time_point debut_ = std::chrono::steady_clock::now();
};

void Route(int contours, int points, double bruit = 0) {
  const auto dossier = std::filesystem::temp_directory_path() / "ovelin-bench";
  std::filesystem::create_directories(dossier);
  const std::string dessin = (dossier / "road.dxf").string();
  std::ofstream(dessin, std::ios::binary) << banc::DessinDxf(contours, points, bruit);

  Doc = Document{};
  RayonFraise = 1.5;
  Table.VitesseMaxX = Table.VitesseMaxY = Table.VitesseMaxZ = 15;
  Chrono chrono;
  std::string message(pathwerk::LongueurMessage, ' ');
  NbPoints = pathwerk::LireFichier(TraceInitial, dessin, Xmin, Xmax, Ymin, Ymax, message);
  Sequences.clear();
  Code2 dernier = CodeAucun;
  for (const PointTrace& p : TraceInitial) {
    if (p.Seq != dernier) Sequences.push_back({p.Seq, Faux, -3, Vrai, 1, Vrai});
    dernier = p.Seq;
  }
  const double lecture = chrono.Tour();
  RecalculDecalages();
  const double decalage = chrono.Tour();
  Tableau_Decoupe();
  const double plan = chrono.Tour();
  EcritureNC ecriture;
  EcritGCode((dossier / "road.nc").string(), ecriture);
  const double ecrit = chrono.Tour();
  // The writer plans again; its own share is what is left.
  const double total = lecture + decalage + ecrit;
  std::printf("%5d x %-7d %5s %8d points ", contours, points, bruit > 0 ? "noisy" : "", NbPoints);
  const std::pair<const char*, double> etapes[] = {
      {"read", lecture}, {"offset", decalage}, {"plan", plan}, {"write", ecrit - plan}};
  for (const auto& [nom, s] : etapes) std::printf(" %s %6.3f s %4.1f %% ", nom, s, 100 * s / total);
  std::printf(" total %6.3f s  %6.3f us/point  peak %5.0f MB  %ld lines\n", total,
              total * 1e6 / static_cast<double>(NbPoints), banc::MemoireMo(), ecriture.lignes);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc >= 3 && std::string_view(argv[1]) == "--cores") {
    NombreCoeurs = static_cast<unsigned>(std::atoi(argv[2]));
    argc -= 2;
    argv += 2;
  }
  if (argc >= 3) {
    Route(std::atoi(argv[2]), std::atoi(argv[1]), argc > 3 ? std::atof(argv[3]) : 0);
    return 0;
  }
  Route(1, 1000);
  Route(10, 1000);
  Route(100, 1000);
  Route(8000, 60);
  Route(1000, 1000);
  Route(1, 1000000);
  Route(10, 100000, 0.02);
  Route(1, 1000000, 0.02);
  return 0;
}
