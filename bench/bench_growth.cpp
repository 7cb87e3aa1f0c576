// How the cost of each step grows, from 1,000 to 10,000,000 points: seconds (of the processor, where a run is
// long enough), from column to column the exponent of the growth, and the memory that the step takes above what it
// is given and gives back, bytes a point. Contours of 1,000 points, at most 5,000 of them; each size in a process
// of its own. The last rows are steps in pages that the run before has used: what grows in them is the work itself,
// and what the caches don't hold.
//   build/bench/bin/bench_growth [--cores N] [MOST_POINTS]      (1 core and 1,000,000 points without them;
//   10,000,000 take 1.2 GB)
#include <malloc.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "bench/Enfant.h"
#include "bench/Formes.h"
#include "bench/OptionCoeurs.h"
#include "closed/pathwerk/assemblage/Assemblage.h"
#include "core/Coeurs.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/PlanCourant.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "image/SceneDocument.h"
#include "machine/TableCourante.h"
#include "run/Module_Planificateur.h"
#include "run/NoyauNC.h"
#include "run/NoyauPlan.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/NettoieChemin.h"
#include "toolpath/chemins/Etendues.h"
#include "workspace/Module_Vue.h"

namespace {

using namespace ovelin;

constexpr std::array Etapes{"reading",       "of that assembly", "clean-up",       "offset",       "plan",
                            "writing",       "picture",          "snapshot",       "project read", "pocket",
                            "kept: reading", "kept: assembly",   "kept: snapshot", "kept: project"};

struct Colonne {
  std::array<double, Etapes.size()> secondes{};
  std::array<double, Etapes.size()> octets{};  // a point
  double memoire = 0;                          // greatest of the process, MB
};

std::string Chemin(const char* nom) {
  const auto dossier = std::filesystem::temp_directory_path() / "ovelin-bench";
  std::filesystem::create_directories(dossier);
  return (dossier / nom).string();
}

int Contours(long points) { return static_cast<int>(std::clamp(points / 1000, 1L, 5000L)); }

void Charge(long points) {
  Doc = Document{};
  Sequences.clear();
  const int contours = Contours(points);
  for (const auto& contour : banc::Contours(contours, static_cast<int>(points / contours))) {
    TraceInitial.insert(TraceInitial.end(), contour.begin(), contour.end());
    Sequences.push_back({contour[0].Seq, Faux, -3, Vrai, 1, Vrai});
  }
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  MesureDocument(Doc);
  RayonFraise = 1.5;
  Table.VitesseMaxX = Table.VitesseMaxY = Table.VitesseMaxZ = 15;
}

pathwerk::lecture::Lecture Lue(long points) {
  pathwerk::lecture::Lecture lecture;
  const int contours = Contours(points);
  for (const auto& contour : banc::Contours(contours, static_cast<int>(points / contours))) {
    pathwerk::lecture::Trait trait;
    trait.nature = pathwerk::lecture::Nature::Ferme;
    for (const PointTrace& p : contour) trait.points.push_back({double{p.X}, double{p.Y}});
    trait.points.pop_back();
    lecture.traits.push_back(std::move(trait));
  }
  return lecture;
}

class Banc {
 public:
  explicit Banc(long points) : points_(points) {}

  Colonne Mesure() {
    Svc = ServicesMuets();
    pathwerk::OptionsLecture options;
    options.Fils = NombreCoeurs;
    const std::string dessin = Chemin("growth.dxf");
    const int contours = Contours(points_);
    std::ofstream(dessin, std::ios::binary) << banc::DessinDxf(contours, static_cast<int>(points_ / contours));
    pathwerk::Importation lue;
    Etape([&] { lue = {}; }, [&] { lue = pathwerk::ImporteFichier(dessin, options); });
    lue = {};
    pathwerk::lecture::Lecture lecture;
    std::vector<PointTrace> points;
    const auto prepare = [&] { points = {}, lecture = Lue(points_); };
    Etape(prepare, [&] { pathwerk::assemblage::Assemble(lecture, options, points); });
    points = {};
    Charge(points_);
    Etape([&] { points = {}; }, [&] { points = NettoiePoints(TraceInitial, 0.005F); });
    points = {};
    DuDocument();
    colonne_.memoire = plus_;
    GardePages();
    Etape([&] { lue = {}; }, [&] { lue = pathwerk::ImporteFichier(dessin, options); });
    lue = {};
    Etape(prepare, [&] { pathwerk::assemblage::Assemble(lecture, options, points); });
    points = {};
    Charge(points_);
    EtapeInstantane();
    EtapeProjet();
    return colonne_;
  }

 private:
  void DuDocument() {
    Etape([] { TraceDecale.clear(); }, [] { RecalculDecalages(); });
    Etape([] { Plan = EtatPlan{}; }, [] { Tableau_Decoupe(); });
    Etape([] {},
          [] {
            EcritureNC resultat;
            EcritFichierEntier(Chemin("growth.nc"), ComposeNC(LignesDe(Plan), CadreNC{}, resultat),
                               Garantie::Processus);
          });
    Plan = EtatPlan{};
    constexpr TailleImage image{1600 * TwipsParPixel, 1000 * TwipsParPixel};
    mnu_Zoom1(image);
    Scene scene;
    Etape([&] { scene = Scene{}; }, [&] { ConstruitScene(Doc, Vue, image, OptionsScene{}, scene); });
    scene = Scene{};
    DossierProgramme = std::filesystem::path(Chemin("")).parent_path().string();
    EtapeInstantane();
    TraceDecale.clear();
    EtapeProjet();
    PCPoche = 40;
    for (SequenceInfo& s : Sequences) s.Poche = Vrai, s.Decalage = 3;
    Etape([] { TraceDecale.clear(); }, [] { RecalculDecalages(); });
  }

  void EtapeInstantane() {
    FichierProjet = FichierCourant = Chemin("growth.OVL");
    Instantane = Vrai;
    Etape([] { std::filesystem::remove(FichierCourant); }, [] { EcrireProjet(FichierCourant); });
    Instantane = Faux;
  }
  void EtapeProjet() {
    Etape([] { TraceInitial = {}; }, [] { LireProjet(FichierCourant); });
  }

  // From here on nothing goes back to the system, and all comes from what was taken before.
  void GardePages() {
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, -1);
    garde_ = true;
  }

  // The clock of the processor ticks some 250 times a second: it is asked about many runs together. A run that is
  // shorter than a slice of time is told by the least that it took.
  void Etape(const std::function<void()>& avant, const std::function<void()>& f) {
    constexpr double Assez = 0.3;  // s
    constexpr double TempsMax = 3;
    constexpr int FoisMax = 300;
    double moindre = std::numeric_limits<double>::infinity();
    double somme = 0;
    double processeur = 0;
    int fois = 0;
    const auto mesure = [&] {
      const double depart = banc::Secondes();
      const auto debut = std::chrono::steady_clock::now();
      f();
      const double duree = std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count();
      processeur += banc::Secondes() - depart;
      somme += duree;
      moindre = std::min(moindre, duree);
      ++fois;
    };
    avant();
    if (garde_) {
      f();
      avant();
      mesure();
    } else {
      colonne_.octets[etape_] = banc::MemoireDe(mesure) / static_cast<double>(points_);
    }
    plus_ = std::max(plus_, banc::Memoire("VmHWM") / 1e6);
    while (processeur < Assez && somme < TempsMax && fois < FoisMax) {
      avant();
      mesure();
    }
    const bool compte = processeur > Assez / 6;
    colonne_.secondes[etape_++] = compte ? std::min(moindre, processeur / fois) : moindre;
  }

  long points_;
  double plus_ = 0;
  bool garde_ = false;
  std::size_t etape_ = 0;
  Colonne colonne_;
};

}  // namespace

int main(int argc, char** argv) {
  banc::PrendCoeurs(argc, argv);
  const long plus = argc > 1 ? std::atol(argv[1]) : 1'000'000;
  std::vector<Colonne> colonnes;
  std::printf("%-18s", "step");
  for (long points = 1000; points <= plus; points *= 10) {
    const auto mesure = [points] { return Banc(points).Mesure(); };
    const auto colonne = banc::DansUnEnfant<Colonne>(mesure, 600);
    if (!colonne) return 1;
    colonnes.push_back(*colonne);
    std::printf(" %9ld   exp  B/pt", points);
    std::fflush(stdout);
  }
  std::printf("\n");
  for (std::size_t e = 0; e < Etapes.size(); ++e) {
    std::printf("%-18s", Etapes[e]);
    for (std::size_t c = 0; c < colonnes.size(); ++c) {
      const double s = colonnes[c].secondes[e];
      std::printf(" %9.5f", s);
      const double avant = c > 0 ? colonnes[c - 1].secondes[e] : 0;
      if (avant > 0) {
        std::printf(" %5.2f", std::log10(s / avant));
      } else {
        std::printf(" %5s", "");
      }
      std::printf(" %5.0f", colonnes[c].octets[e]);
    }
    std::printf("\n");
  }
  std::printf("%-18s", "peak, MB");
  for (const Colonne& c : colonnes) std::printf(" %9.0f %11s", c.memoire, "");
  std::printf("\n");
  return 0;
}
