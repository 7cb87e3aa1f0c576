// The whole road of a job, step by step, in one process: a DXF file read and oriented, offset, planned, written as
// G-code; seconds, share and greatest memory. Also 8,000 small circles, and outlines scanned badly, each point off
// by up to 0.02 mm.
//   build/bench/bin/bench_road [--cores N] [POINTS_PER_CONTOUR CONTOURS [NOISE_MM]]      (1 core without the
//   option)
//   build/bench/bin/bench_road [--cores N] --dxf-mb MB     reading of a file of that size as CAD programs write
//   them build/bench/bin/bench_road --process [PROGRAM]         ovelin-cli as a process: 1,000 contours of 1,000
//   points
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/Enfant.h"
#include "bench/Formes.h"
#include "bench/OptionCoeurs.h"
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

void Ligne(const char* nom, double duree, double processeur) {
  std::printf("%-22s %7.3f s  processor %7.3f s", nom, duree, processeur);
}

// The bytes of a file into memory, and nothing else.
void LitOctets(const std::string& chemin) {
  double moindre = 1e9;
  for (int k = 0; k < 5; ++k) {
    Chrono chrono;
    if (!LitFichierEntier(chemin)) return;
    moindre = std::min(moindre, chrono.Tour());
  }
  std::printf("its bytes alone        %7.3f s\n", moindre);
}

void LitDxf(double mo) {
  const std::string dessin = (std::filesystem::temp_directory_path() / "ovelin-bench" / "cad.dxf").string();
  std::filesystem::create_directories(std::filesystem::path(dessin).parent_path());
  const long points = banc::EcritDessinCAO(dessin, static_cast<std::size_t>(mo * 1e6));
  const auto octets = static_cast<double>(std::filesystem::file_size(dessin));
  struct Lue {
    double duree = 1e9, processeur = 1e9, memoire = 0;
  };
  const auto lit = [&] {
    Lue lue;
    for (int k = 0; k < 5; ++k) {
      pathwerk::OptionsLecture options;
      options.Fils = NombreCoeurs;
      const double memoire = banc::MemoireDe([&] {
        const double avant = banc::Secondes();
        Chrono chrono;
        const pathwerk::Importation importee = pathwerk::ImporteFichier(dessin, options);
        lue.duree = std::min(lue.duree, chrono.Tour());
        lue.processeur = std::min(lue.processeur, banc::Secondes() - avant);
      });
      lue.memoire = std::max(lue.memoire, memoire);
    }
    return lue;
  };
  const auto lue = banc::DansUnEnfant<Lue>(lit, 300);
  if (!lue) return;
  std::printf("%.0f MB, %ld points\n", octets / 1e6, points);
  LitOctets(dessin);
  Ligne("read to points", lue->duree, lue->processeur);
  std::printf("  memory %.0f MB, beside the file's bytes %.1f times its points\n", lue->memoire / 1e6,
              (lue->memoire - octets) / (static_cast<double>(points) * sizeof(PointTrace)));
}

double Secondes(const timeval& t) { return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6; }

void Processus(const std::string& programme) {
  const auto dossier = std::filesystem::temp_directory_path() / "ovelin-bench";
  std::filesystem::create_directories(dossier);
  const std::string dessin = (dossier / "road.dxf").string();
  const std::string travail = (dossier / "road.nc").string();
  const std::string reglages = (dossier / "config").string();
  std::filesystem::create_directories(reglages);
  std::ofstream(dessin, std::ios::binary) << banc::DessinDxf(1000, 1000);
  LitOctets(dessin);
  double duree = 1e9;
  double processeur = 1e9;
  long memoire = 0;
  for (int k = 0; k < 15; ++k) {
    std::filesystem::remove(travail);
    Chrono chrono;
    const pid_t enfant = fork();
    if (enfant == 0) {
      const int rien = open("/dev/null", O_WRONLY | O_CLOEXEC);
      dup2(rien, STDOUT_FILENO);
      dup2(rien, STDERR_FILENO);
      execl(programme.c_str(), programme.c_str(), "gcode", dessin.c_str(), "-o", travail.c_str(), "--config",
            reglages.c_str(), static_cast<char*>(nullptr));
      _exit(127);
    }
    int etat = 0;
    rusage usage{};
    if (enfant < 0 || wait4(enfant, &etat, 0, &usage) < 0 || !std::filesystem::exists(travail)) {
      std::printf("%s: no G-code\n", programme.c_str());
      return;
    }
    duree = std::min(duree, chrono.Tour());
    processeur = std::min(processeur, Secondes(usage.ru_utime) + Secondes(usage.ru_stime));
    memoire = std::max(memoire, usage.ru_maxrss);
  }
  Ligne("1,000,000 points", duree, processeur);
  std::printf("  peak %.0f MB\n", static_cast<double>(memoire) / 1024);
}

}  // namespace

int main(int argc, char** argv) {
  banc::PrendCoeurs(argc, argv);
  if (argc >= 2 && std::string_view(argv[1]) == "--process") {
    const auto voisin = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "ovelin-cli";
    Processus(argc >= 3 ? argv[2] : voisin.string());
    return 0;
  }
  if (argc >= 3 && std::string_view(argv[1]) == "--dxf-mb") {
    LitDxf(std::atof(argv[2]));
    return 0;
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
