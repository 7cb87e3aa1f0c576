// The hand in the picture: a drag of a thousand paths by mouse events in the real widget, the order of travel, and
// what a step of undo with its words and its small picture costs on a large drawing.
//   build/bench/bin/bench_hand [drag|travel|history]
#include <QApplication>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <random>
#include <string_view>
#include <vector>

#include "bench/Formes.h"
#include "bench/Horloge.h"
#include "bench/SansEcran.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/ui/ServicesQt.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Ordre.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Prise.h"
#include "workspace/ui/ImagePB1.h"
#include "workspace/ui/PanneauHistorique.h"

namespace {

using namespace ovelin;

constexpr int Largeur = 1600;
constexpr int Hauteur = 1000;

// ms of this process's processor time: what the rest of the computer does is not counted.
double Maintenant() { return banc::Horloge(CLOCK_PROCESS_CPUTIME_ID); }

double Duree(const std::function<void()>& quoi) {
  const double debut = Maintenant();
  quoi();
  return Maintenant() - debut;
}

// The tool path has the points of the drawing, half a millimetre aside. The first `choisies` paths are selected.
void Charge(int contours, int points, int choisies) {
  Doc = Document{};
  Sequences.clear();
  for (const auto& contour : banc::Contours(contours, points)) {
    TraceInitial.insert(TraceInitial.end(), contour.begin(), contour.end());
    const Drapeau choisie = Sequences.size() < static_cast<std::size_t>(choisies) ? Vrai : Faux;
    Sequences.push_back({contour[0].Seq, Faux, -3, Vrai, 1, choisie});
    SequenceDecalee trace{contour[0].Seq, contour};
    for (PointTrace& p : trace.Points) p.X += 0.5F;
    TraceDecale.push_back(std::move(trace));
  }
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  EncombrementGeneral();
}

void Souris(QWidget& image, QEvent::Type type, QPointF place, Qt::MouseButton bouton,
            Qt::KeyboardModifiers touches) {
  const Qt::MouseButtons tenus = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent e(type, place, image.mapToGlobal(place), bouton, tenus, touches);
  QApplication::sendEvent(&image, &e);
  QApplication::processEvents();
}

QPointF Pixel(const PointEcran& p) {
  return {static_cast<double>(p.X) / TwipsParPixel, static_cast<double>(p.Y) / TwipsParPixel};
}

enum class Geste { Deplace, Echelle, Tourne };

void Tire(ImagePB1& image, const char* nom, int contours, int points, int choisies, Geste geste,
          Qt::KeyboardModifiers touches = Qt::NoModifier) {
  Charge(contours, points, choisies);
  mnu_Zoom1(image.Taille());
  Zoom *= 0.8F;  // room for the grips around everything
  image.Dessin();
  const Poignees poignees = PoigneesDe(BoiteDe(Doc), image.Taille());
  QPointF depart = Pixel(geste == Geste::Tourne ? poignees.tourne : poignees.coins[2]);
  if (geste == Geste::Deplace) {
    const PointTrace p = VersEcran(Vue, image.Taille().hauteur, TraceInitial[0]);
    depart = Pixel({p.X, p.Y});
  }
  Souris(image, QEvent::MouseButtonPress, depart, Qt::LeftButton, Qt::NoModifier);
  const auto bouge = [&](int i) {
    const QPointF place = depart + QPointF(10 + 60 * std::sin(i * 0.1), 5 + 40 * std::cos(i * 0.1));
    Souris(image, QEvent::MouseMove, place, Qt::NoButton, touches);
  };
  const double premiere = Duree([&] { bouge(0); });
  constexpr int Mouvements = 100;
  std::vector<double> durees;
  for (int i = 1; i <= Mouvements; ++i) durees.push_back(Duree([&] { bouge(i); }));
  if (!Prise.tire) std::printf("no drag!\n");
  AbandonneTirage();
  Souris(image, QEvent::MouseButtonRelease, depart, Qt::LeftButton, Qt::NoModifier);
  std::sort(durees.begin(), durees.end());
  const double mediane = durees[durees.size() / 2];
  std::printf("Drag     %-42s first %6.1f ms  median %6.2f ms (%.0f a second)  worst %6.2f ms\n", nom, premiere,
              mediane, 1000 / mediane, durees.back());
}

void Tirages() {
  ImagePB1 image;
  image.resize(Largeur, Hauteur);
  image.show();
  QApplication::processEvents();
  Tire(image, "1,000 paths of 100 points", 1000, 100, 1000, Geste::Deplace);
  Tire(image, "the same, scaled at a corner", 1000, 100, 1000, Geste::Echelle);
  Tire(image, "the same, turned", 1000, 100, 1000, Geste::Tourne);
  Tire(image, "1,000 of 8,000 paths of 100, snapping", 8000, 100, 1000, Geste::Deplace, Qt::ControlModifier);
  Tire(image, "1,000 paths of 1,000 points", 1000, 1000, 1000, Geste::Deplace);
  Tire(image, "8,000 paths of 125 points", 8000, 125, 8000, Geste::Deplace);
}

// The contours in no order at all: the whole command, and what of it the tool path takes that is computed anew.
void Trajets() {
  Charge(8000, 20, 0);
  std::vector<Etendue> etendues = EtenduesSequences();
  std::shuffle(etendues.begin(), etendues.end(), std::mt19937(7));
  std::vector<PointTrace> points;
  for (const Etendue& e : etendues) {
    const auto run = PointsDe(TraceInitial, e);
    points.insert(points.end(), run.begin(), run.end());
  }
  TraceInitial = std::move(points);
  const double traces = Duree([] { RecalculDecalages(); });
  const double tout = Duree([] { OrdonneTrajets(); });
  std::printf("Travel   order of 8,000 paths %.0f ms, of which the tool path %.0f ms\n", tout, traces);
}

// Steps of undo: each moves the selection, takes its snapshot and shows the list.
void Etapes(int contours, int points, int choisies, int pas) {
  Charge(contours, points, choisies);
  DossierTemp = (std::filesystem::temp_directory_path() / "ovelin-bench-hand").string();
  std::filesystem::create_directories(DossierTemp);
  EffaceTousInstantanes();
  PrendInstantane();
  PanneauHistorique panneau(nullptr);
  panneau.resize(268, 700);
  panneau.show();
  QApplication::processEvents();
  const double avant = banc::MemoireMo();
  std::vector<double> instantanes;
  std::vector<double> listes;
  for (int i = 0; i < pas; ++i) {
    for (PointTrace& p : TraceInitial) p.X += 1;
    instantanes.push_back(Duree([] { PrendInstantane(); }));
    listes.push_back(Duree([&] {
      panneau.Suit();
      QApplication::processEvents();
    }));
  }
  std::sort(instantanes.begin(), instantanes.end());
  std::sort(listes.begin(), listes.end());
  std::printf(
      "History  %5d paths of %-7d step %7.1f ms  list %6.2f ms (worst %.2f)  %d steps, %.1f MB more at most\n",
      contours, points, instantanes[instantanes.size() / 2], listes[listes.size() / 2], listes.back(), pas,
      banc::MemoireMo() - avant);
  std::size_t apercus = 0;
  for (const PasHistorique& p : HistoriqueCourant().pas) apercus += p.apercu != nullptr ? p.apercu->size() : 0;
  std::printf("         small pictures: %zu points, %.1f MB\n", apercus,
              static_cast<double>(apercus * sizeof(PointTrace)) / 1e6);
  EffaceTousInstantanes();
  std::filesystem::remove_all(DossierTemp);
  DossierTemp.clear();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application = banc::SansEcran(argc, argv);
  InstalleServicesQt();
  const std::string_view quoi = argc > 1 ? argv[1] : "";
  if (quoi.empty() || quoi == "drag") Tirages();
  if (quoi.empty() || quoi == "travel") Trajets();
  if (quoi.empty() || quoi == "history") {
    Etapes(1000, 1000, 1000, 6);
    Etapes(1, 1'000'000, 1, 6);
    Etapes(8000, 20, 8000, 220);
  }
  return 0;
}
