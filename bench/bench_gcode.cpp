// A G-code program of 10,000 to 1,000,000 lines: loaded, judged and measured with the memory that it takes, its
// first picture, a turn of it, painted and by OpenGL where there is a screen, and its list scrolled to the end.
//   build/bench/bin/bench_gcode
//   LIBGL_ALWAYS_SOFTWARE=1 taskset -c 0 xvfb-run -a build/bench/bin/bench_gcode -platform xcb
#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/Horloge.h"
#include "bench/SansEcran.h"
#include "core/ReglagesCourants.h"
#include "gcode/SceneProgramme.h"
#include "gcode/ui/ModeleProgramme.h"
#include "gcode/ui/ToileGL.h"
#include "image/ui/PeintScene.h"

namespace {

using namespace ovelin;

constexpr int Largeur = 900;
constexpr int Hauteur = 700;
constexpr int Tours = 10;

// ms of this program's processor time, that of the drivers' threads with it
double Maintenant() { return banc::Horloge(CLOCK_PROCESS_CPUTIME_ID); }

// An engraving: many short cuts on a rosette, a plunge and a lift every 200 lines.
std::string Programme1(int lignes) {
  std::string texte = "G71\nF600\n";
  char tampon[64];
  for (int i = 0; i < lignes; ++i) {
    const double a = i * 0.001, r = 50 + 40 * std::sin(i * 0.00037);
    if (i % 200 == 0) {
      texte += "G00  Z5.000\n";
    } else if (i % 200 == 2) {
      texte += "G01  Z-1.000\n";
    } else {
      std::snprintf(tampon, sizeof tampon, "G01  X%.3f Y%.3f\n", 100 + r * std::cos(a), 100 + r * std::sin(a));
      texte += tampon;
    }
  }
  return texte;
}

// The most memory of this program so far, MB.
double MemoireMaxi() {
  std::ifstream etat("/proc/self/status");
  for (std::string ligne; std::getline(etat, ligne);) {
    if (ligne.starts_with("VmHWM:")) return std::stod(ligne.substr(6)) / 1024;
  }
  return 0;
}

class Images {
 public:
  explicit Images(const MesureProgramme& mesure) : mesure_(mesure) {
    options_.largeur = Largeur;
    options_.hauteur = Hauteur;
  }

  // ms of the first picture, and of one of many turns.
  double Premiere() {
    const double debut = Maintenant();
    Construit(VueProgramme::Dessus, {});
    Peint();
    return Maintenant() - debut;
  }
  template <class Dessine>
  double Tour(const Dessine& dessine) {
    options_.segmentsMaxi = 150'000;
    const double debut = Maintenant();
    for (int i = 0; i < Tours; ++i) {
      Camera camera;
      camera.RotationX = 0.05 * i;
      camera.RotationY = 0.03 * i;
      Construit(VueProgramme::Espace, camera);
      dessine();
    }
    return (Maintenant() - debut) / Tours;
  }
  void Peint() {
    image_.fill(Qt::white);
    QPainter peintre(&image_);
    PeintScene(peintre, scene_, couleurs_);
  }
  // The toolkit draws a frame and reads it back, which is more than a screen needs.
  double TourGL() {
    if (!ToileGL::Possible()) return 0;
    QWidget fenetre;
    ToileGL toile(&fenetre);
    toile.setGeometry(0, 0, Largeur, Hauteur);
    fenetre.resize(Largeur, Hauteur);
    fenetre.show();
    QApplication::processEvents();
    return Tour([&] {
      toile.Charge(scene_, couleurs_);
      toile.grabFramebuffer();
    });
  }
  [[nodiscard]] std::size_t Segments() const { return NombreSegments(scene_); }

 private:
  void Construit(VueProgramme vue, const Camera& camera) {
    ConstruitSceneProgramme(mesure_, ProjectionDe(vue, camera, mesure_.bornes, Largeur, Hauteur), options_, scene_);
  }

  const MesureProgramme& mesure_;
  const Palette couleurs_ = ConstruitPalette(Regl, Theme::Clair);
  QImage image_{Largeur, Hauteur, QImage::Format_RGB32};
  Scene scene_;
  OptionsProgramme options_;
};

// The list of the window, to its end and painted there.
double Defile(const Programme& programme) {
  ModeleProgramme modele;
  QTableView liste;
  liste.setModel(&modele);
  liste.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  liste.verticalHeader()->hide();
  liste.resize(400, Hauteur);
  modele.Montre(&programme);
  liste.show();
  QApplication::processEvents();
  const double debut = Maintenant();
  liste.verticalScrollBar()->setValue(liste.verticalScrollBar()->maximum());
  liste.grab();
  return Maintenant() - debut;
}

void Mesure1(int lignes) {
  const std::string fichier = std::filesystem::temp_directory_path() / "bench_gcode.nc";
  std::ofstream(fichier) << Programme1(lignes);
  const double avant = MemoireMaxi();
  double debut = Maintenant();
  const ProgrammeLu lu = LitProgramme(fichier);
  const double juge = Maintenant() - debut;
  debut = Maintenant();
  const MesureProgramme mesure = MesureDe(lu.programme, {}, true);
  const double mesuree = Maintenant() - debut;
  const double memoire = MemoireMaxi();
  std::filesystem::remove(fichier);
  Images images(mesure);
  const double premiere = images.Premiere();
  const double tour = images.Tour([&] { images.Peint(); });
  const std::size_t segments = images.Segments();
  const double tourGL = images.TourGL();
  std::printf(
      "%8d lines: loaded and judged %6.1f ms, measured %6.1f ms, %4.0f MB in all (%.0f before), first picture %.1f "
      "ms, "
      "%zu segments turning, painted %.1f ms (%.0f a second)",
      lignes, juge, mesuree, memoire, avant, premiere, segments, tour, 1000 / tour);
  if (tourGL > 0) std::printf(", by OpenGL %.1f ms (%.0f a second)", tourGL, 1000 / tourGL);
  std::printf(", list to its end %.1f ms\n", Defile(lu.programme));
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application = banc::SansEcran(argc, argv);
  // A number of lines measures that program alone, in a memory that held no other.
  const std::string seul = argc > 1 ? argv[argc - 1] : "";
  if (!seul.empty() && std::isdigit(static_cast<unsigned char>(seul[0])) != 0) {
    Mesure1(std::stoi(seul));
    return 0;
  }
  for (const int lignes : {10'000, 100'000, 1'000'000}) Mesure1(lignes);
}
