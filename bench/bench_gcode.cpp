// A G-code program of 10,000 to 1,000,000 lines: loaded and judged, measured, its first picture, a turn of it.
//   build/bench/bin/bench_gcode
#include <time.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <cstdio>
#include <string>

#include "core/ReglagesCourants.h"
#include "gcode/SceneProgramme.h"
#include "image/ui/PeintScene.h"

namespace {

using namespace ovelin;

constexpr int Largeur = 900;
constexpr int Hauteur = 700;
constexpr int Tours = 10;

double Maintenant() {  // ms of this thread's processor time
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) * 1e-6;
}

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

void Mesure1(int lignes) {
  std::string octets = Programme1(lignes);
  double debut = Maintenant();
  const Programme programme(std::move(octets));
  const double juge = Maintenant() - debut;
  debut = Maintenant();
  const MesureProgramme mesure = MesureDe(programme, {}, true);
  const double mesuree = Maintenant() - debut;
  const Palette couleurs = ConstruitPalette(Regl, Theme::Clair);
  QImage image(Largeur, Hauteur, QImage::Format_RGB32);
  Scene scene;
  OptionsProgramme options;
  options.largeur = Largeur;
  options.hauteur = Hauteur;
  const auto peint = [&](VueProgramme vue, const Camera& camera) {
    ConstruitSceneProgramme(mesure, ProjectionDe(vue, camera, mesure.bornes, Largeur, Hauteur), options, scene);
    image.fill(Qt::white);
    QPainter peintre(&image);
    PeintScene(peintre, scene, couleurs);
  };
  debut = Maintenant();
  peint(VueProgramme::Dessus, {});
  const double premiere = Maintenant() - debut;
  options.segmentsMaxi = 150'000;
  debut = Maintenant();
  for (int i = 0; i < Tours; ++i) {
    Camera camera;
    camera.RotationX = 0.05 * i;
    camera.RotationY = 0.03 * i;
    peint(VueProgramme::Espace, camera);
  }
  const double tour = (Maintenant() - debut) / Tours;
  std::printf(
      "%8d lines: judged %7.1f ms, measured %7.1f ms, first picture %6.1f ms, turning %6.1f ms (%.0f a second)\n",
      lignes, juge, mesuree, premiere, tour, 1000 / tour);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  for (const int lignes : {10'000, 100'000, 1'000'000}) Mesure1(lignes);
}
