// The picture and the trees of the main window on the platform without a screen: Dessin, panning with snapshots,
// filling a tree. Snapshots are not counted in Dessin; they are in panning.
//   build/bench/bin/bench_window
#include <QApplication>
#include <QMouseEvent>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "bench/Formes.h"
#include "bench/Horloge.h"
#include "bench/SansEcran.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/ui/ServicesQt.h"
#include "workspace/Module_Annulation.h"
#include "workspace/ui/ArbreDocument.h"
#include "workspace/ui/ImagePB1.h"

namespace {

using namespace ovelin;

constexpr int Largeur = 1600;
constexpr int Hauteur = 1000;
constexpr int Tours = 15;

// ms of this thread's processor time: what the rest of the computer does is not counted.
double Maintenant() { return banc::Horloge(CLOCK_THREAD_CPUTIME_ID); }

// The tool path has the points of the drawing, half a millimetre aside.
void Charge(int contours, int points) {
  Doc = Document{};
  Sequences.clear();
  std::vector<std::vector<PointTrace>> traces;
  if (contours == 1) {
    traces.push_back(banc::Contour(points));
  } else {
    traces = banc::Contours(contours, points);
  }
  for (const auto& contour : traces) {
    TraceInitial.insert(TraceInitial.end(), contour.begin(), contour.end());
    Sequences.push_back({contour[0].Seq, Faux, -3, Vrai, 1, Faux});
    SequenceDecalee trace{contour[0].Seq, contour};
    for (PointTrace& p : trace.Points) p.X += 0.5F;
    TraceDecale.push_back(std::move(trace));
  }
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  Xmin = Xmax = TraceInitial[0].X;
  Ymin = Ymax = TraceInitial[0].Y;
  for (const PointTrace& p : TraceInitial) {
    Xmin = std::min(Xmin, p.X), Xmax = std::max(Xmax, p.X);
    Ymin = std::min(Ymin, p.Y), Ymax = std::max(Ymax, p.Y);
  }
}

struct Duree {
  double median, pire;
};

template <class F>
Duree Mesure(const F& quoi) {
  quoi();
  std::vector<double> durees;
  for (int i = 0; i < Tours; ++i) {
    const double debut = Maintenant();
    quoi();
    durees.push_back(Maintenant() - debut);
  }
  std::sort(durees.begin(), durees.end());
  return {durees[durees.size() / 2], durees.back()};
}

void Dessine(ImagePB1& image, const char* nom, int contours, int points, float agrandi = 1) {
  Charge(contours, points);
  mnu_Zoom1(image.Taille());
  Zoom *= agrandi;
  const Duree d = Mesure([&image] { image.Dessin(); });
  std::printf("Dessin   %-34s %8d points  median %7.1f ms  worst %7.1f ms\n", nom, NbPoints, d.median, d.pire);
}

void Souris(QWidget& image, QEvent::Type type, int x, int y, Qt::MouseButton bouton, Qt::MouseButtons tenus) {
  QApplication::postEvent(&image, new QMouseEvent(type, QPointF(x, y), image.mapToGlobal(QPointF(x, y)), bouton,
                                                  tenus, Qt::NoModifier));
}

void Promene(ImagePB1& image, int contours, int points) {
  Charge(contours, points);
  DossierTemp = (std::filesystem::temp_directory_path() / "ovelin-bench-temp").string();
  std::filesystem::create_directories(DossierTemp);
  EffaceTousInstantanes();
  mnu_Zoom1(image.Taille());
  image.Dessin();
  constexpr int Mouvements = 200;
  Souris(image, QEvent::MouseButtonPress, 800, 500, Qt::RightButton, Qt::RightButton);
  QApplication::processEvents();
  const double debut = Maintenant();
  for (int i = 1; i <= Mouvements; ++i) {
    Souris(image, QEvent::MouseMove, 800 + i % 100, 500 + i % 60, Qt::NoButton, Qt::RightButton);
    QApplication::processEvents();
    QApplication::processEvents();
  }
  const double duree = Maintenant() - debut;
  Souris(image, QEvent::MouseButtonRelease, 800, 500, Qt::RightButton, Qt::NoButton);
  QApplication::processEvents();
  std::printf("Panning  %d contours of %d points with snapshots (%d taken): %.0f frames/s\n", contours, points,
              NumeroInstantane(), 1000.0 * Mouvements / duree);
  EffaceTousInstantanes();
  std::filesystem::remove_all(DossierTemp);
  DossierTemp.clear();
}

void Arbres(int contours, int points) {
  Charge(contours, points);
  for (const auto sorte : {SorteArbre::Initial, SorteArbre::Decale}) {
    ArbreDocument arbre(sorte);
    arbre.resize(340, 500);
    arbre.show();
    QApplication::processEvents();
    for (SequenceInfo& s : Sequences) s.Selection = Faux;
    const auto montre = [&arbre] { arbre.viewport()->repaint(); };
    const Duree rempli = Mesure([&] { arbre.Remplit(), montre(); });
    Sequences[Sequences.size() / 2].Selection = Vrai;
    const Duree suivi = Mesure([&] { arbre.SuitSelection(), montre(); });
    for (SequenceInfo& s : Sequences) s.Selection = Vrai;
    const Duree tout = Mesure([&] { arbre.SuitSelection(), montre(); });
    std::printf("Tree     %s %5d x %-7d filled %6.1f ms  selection of one %6.1f ms  of all %6.1f ms\n",
                sorte == SorteArbre::Initial ? "TreeView1" : "TreeView2", contours, points, rempli.median,
                suivi.median, tout.median);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application = banc::SansEcran(argc, argv);
  InstalleServicesQt();
  ImagePB1 image;
  image.resize(Largeur, Hauteur);
  image.show();
  QApplication::processEvents();
  Dessine(image, "100 contours of 1,000", 100, 1000);
  Dessine(image, "1,000 contours of 1,000", 1000, 1000);
  Dessine(image, "one contour", 1, 1'000'000);
  Dessine(image, "1,000 contours, 20 times nearer", 1000, 1000, 20);
  Dessine(image, "8,000 contours of 125", 8000, 125);
  image.NumSequence(true);
  image.NumPoint(true);
  Dessine(image, "8,000 of 125, numbers and marks", 8000, 125);
  image.NumSequence(false);
  image.NumPoint(false);
  Promene(image, 100, 1000);
  Promene(image, 1000, 1000);
  Arbres(8000, 60);
  Arbres(1000, 1000);
  Arbres(1, 1'000'000);
  return 0;
}
