// Whether the window stays alive under a large drawing: the longest time between two rounds of events while a
// drawing of 1,000,000 points is opened, re-offset, cleaned, saved and opened again as a project. Runs in the main
// window without a screen. Wanted: no gap above 100 ms.
//   build/bench/bin/bench_alive [POINTS_PER_CONTOUR CONTOURS [NOISE_MM]] [--where MS]
//   build/bench/bin/bench_alive --arrows [POINTS_PER_CONTOUR CONTOURS]
//   build/bench/bin/bench_alive --turn [POINTS_PER_CONTOUR CONTOURS]
//   build/bench/bin/bench_alive --open [POINTS_PER_CONTOUR CONTOURS]
// With --where the place behind each gap longer than that is told, as addresses for addr2line. --arrows: ten
// presses of an arrow key on 784,000 points, the time until the picture shows the first and until the
// tool path of all is there; without a pass that may be ended, as it was before there was one, and with it. --turn:
// the same of a rotation, and of the undo of it; one after the other, each from where the one before has left.
// --open: the same of an opening of that drawing in a window where it is open already.
#include <execinfo.h>
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QBasicTimer>
#include <QKeyEvent>
#include <QTimer>
#include <QTimerEvent>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "bench/Formes.h"
#include "bench/SansEcran.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/ServicesPasse.h"
#include "core/ui/ServicesQt.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Nettoyage.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Travail.h"
#include "workspace/ui/F_Representation.h"

namespace {

using namespace ovelin;
using Horloge = std::chrono::steady_clock;

// A timer that is always due: it fires once in every round of events.
class Pouls : public QObject {
 public:
  explicit Pouls(double montre) : montre_(montre), dernier_(Horloge::now()) {
    battement_.start(0, Qt::PreciseTimer, this);
  }

  void Debute() {
    dernier_ = Horloge::now();
    QCoreApplication::processEvents();
    plusLong_ = plusTravaille_ = 0;
    rondes_ = 0;
    debut_ = dernier_ = Horloge::now();
    travail_ = Travail();
  }
  void Finit(const char* phase) {
    QCoreApplication::processEvents();
    Note();
    std::printf("%-28s %8.0f ms in all, %6ld rounds, longest gap %6.1f ms, of work %6.1f ms%s\n", phase,
                Ecart(debut_), rondes_, plusLong_, plusTravaille_, plusLong_ > 100 ? "  <-- too long" : "");
    std::fflush(stdout);
    pire = std::max(pire, plusLong_);
  }
  double pire = 0;

 protected:
  void timerEvent(QTimerEvent*) override {
    Note();
    ++rondes_;
  }

 private:
  static double Ecart(Horloge::time_point depuis) {
    return std::chrono::duration<double, std::milli>(Horloge::now() - depuis).count();
  }
  // Processor time of this thread, ms: what a gap takes where nothing else runs on the machine.
  static double Travail() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) * 1e-6;
  }
  void Note() {
    const double ecart = Ecart(dernier_);
    if (montre_ > 0 && ecart > montre_) {
      std::fprintf(stderr, "--- %.1f ms before\n", ecart);
      void* pile[40];
      backtrace_symbols_fd(pile, backtrace(pile, 40), STDERR_FILENO);
    }
    plusLong_ = std::max(plusLong_, ecart);
    const double travail = Travail();
    plusTravaille_ = std::max(plusTravaille_, travail - travail_);
    travail_ = travail;
    dernier_ = Horloge::now();
  }

  QBasicTimer battement_;
  double montre_;
  double plusLong_ = 0, plusTravaille_ = 0, travail_ = 0;  // ms
  long rondes_ = 0;
  Horloge::time_point dernier_, debut_;
};

// One closed contour with 200 deep lobes, some 80 m long, each point off by up to `bruit` mm.
std::string ContourBruite(int points, double bruit) {
  std::mt19937 hasard(7);
  std::uniform_real_distribution<double> ecart(-bruit, bruit);
  std::string texte =
      "0\n"
      "SECTION\n2\nENTITIES\n0\nLWPOLYLINE\n8\n0\n70\n1\n90\n" +
      std::to_string(points) + "\n";
  char ligne[80];
  for (int i = 0; i < points; ++i) {
    const double a = 2 * M_PI * i / points;
    const double r = 300 + 100 * std::sin(200 * a);
    std::snprintf(ligne, sizeof ligne, "10\n%.4f\n20\n%.4f\n", 400 + r * std::cos(a) + ecart(hasard),
                  400 - r * std::sin(a) + ecart(hasard));
    texte += ligne;
  }
  return texte + "0\nENDSEC\n0\nEOF\n";
}

// What a window needs around it: a folder of its own with settings, and services that ask nobody.
struct Lieu {
  std::filesystem::path dossier =
      std::filesystem::temp_directory_path() / ("ovelin-alive-" + std::to_string(getpid()));
  Lieu() {
    std::filesystem::create_directories(dossier);
    DossierProgramme = dossier.string();
    std::ofstream(dossier / "OVELIN.ini") << "[OVELIN]\r\nRayonFraise=1.5\r\n";
    PrepareDossierTemp();
    InstalleServicesQt();
    Svc.Montre = [](const BoiteMessage& b) {
      std::printf("box: %s\n", b.texte.c_str());
      return Reponse::Ok;
    };
  }
  ~Lieu() {
    OteDossierTemp();
    std::error_code erreur;
    std::filesystem::remove_all(dossier, erreur);
  }
  Lieu(const Lieu&) = delete;
  Lieu& operator=(const Lieu&) = delete;
};

// When the picture was painted first since the last look.
class Peinture : public QObject {
 public:
  explicit Peinture(QObject& image) { image.installEventFilter(this); }
  void Remet() { peinte_ = false; }
  [[nodiscard]] Horloge::time_point Quand() const { return quand_; }

 protected:
  bool eventFilter(QObject* /*objet*/, QEvent* e) override {
    if (e->type() == QEvent::Paint && !std::exchange(peinte_, true)) quand_ = Horloge::now();
    return false;
  }

 private:
  bool peinte_ = true;
  Horloge::time_point quand_;
};

void PresseFleche(QWidget& image) {
  QKeyEvent appui(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
  QCoreApplication::sendEvent(&image, &appui);
}

// Ten presses 30 ms apart, as a key that is held repeats; one that finds the program busy comes when it can.
void Appuie(QWidget& image, Peinture& peinture, const char* nom) {
  constexpr int Nombre = 10;
  constexpr std::chrono::milliseconds Cadence(30);
  QCoreApplication::processEvents();
  const auto ms = [](auto duree) { return std::chrono::duration<double, std::milli>(duree).count(); };
  const int pas = NumeroInstantane();
  int faites = 0;
  peinture.Remet();
  const auto debut = Horloge::now();
  // Each press has a timer of its own: one that is at work doesn't fire again inside itself. Where nothing may be
  // ended a press waits for the pass, as it does in the queue of the window system.
  std::function<void()> presse = [&] {
    if (PasseEnCours() && !SvcPasse.Jusque) return QTimer::singleShot(1, &image, presse);
    ++faites;
    PresseFleche(image);
  };
  for (int i = 0; i < Nombre; ++i) QTimer::singleShot(i * Cadence, &image, presse);
  while (faites < Nombre || PasseEnCours()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  const auto fin = Horloge::now();
  std::printf(
      "%-28s %8.0f ms until the tool path of all stands, drawing painted after %6.0f ms, %d steps of undo\n", nom,
      ms(fin - debut), ms(peinture.Quand() - debut), NumeroInstantane() - pas);
  std::fflush(stdout);
}

// A command from its call until it returns, with the time until the picture shows what it does.
void Commande(Peinture& peinture, const char* nom, const std::function<void()>& commande) {
  QCoreApplication::processEvents();
  const int pas = NumeroInstantane();
  const auto ms = [](auto duree) { return std::chrono::duration<double, std::milli>(duree).count(); };
  peinture.Remet();
  const auto debut = Horloge::now();
  commande();
  const auto fin = Horloge::now();
  QCoreApplication::processEvents();
  std::printf("%-36s %8.0f ms until its tool path stands, drawing painted after %6.0f ms, %+d steps of undo\n", nom,
              ms(fin - debut), ms(peinture.Quand() - debut), NumeroInstantane() - pas);
  std::fflush(stdout);
}

// Escape in the middle of a command's pass: from the key until the window is free.
void Echappe(QWidget& image, const char* nom, const std::function<void()>& commande) {
  Horloge::time_point echap;
  QTimer clavier;
  clavier.setSingleShot(true);
  QObject::connect(&clavier, &QTimer::timeout, [&] {
    echap = Horloge::now();
    QKeyEvent appui(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&image, &appui);
  });
  clavier.start(50);
  commande();
  std::printf("%-36s %8.0f ms until the state of before stands\n", nom,
              std::chrono::duration<double, std::milli>(Horloge::now() - echap).count());
}

void MesureTour(F_Representation& fenetre, QWidget& image, Peinture& peinture) {
  auto* tourne = fenetre.findChild<QToolButton*>(QStringLiteral("CB_Rotation_0"));
  auto* annule = fenetre.findChild<QAction*>(QStringLiteral("mnu_Undo"));
  const auto rotation = [tourne] { tourne->click(); };
  const auto annulation = [annule] { annule->trigger(); };
  const auto passe = std::exchange(SvcPasse.Jusque, nullptr);
  Commande(peinture, "rotation, in the window", rotation);
  Commande(peinture, "undo of it, in the window", annulation);
  SvcPasse.Jusque = passe;
  Commande(peinture, "rotation, that may be ended", rotation);
  Echappe(image, "Escape from another one", rotation);
  Commande(peinture, "undo, that may be taken back", annulation);
}

// When the picture was painted first since the drawing that is being opened was put into it; and Escape then, where
// that is wanted.
class MesureOuverture {
 public:
  MesureOuverture(QWidget& image, Peinture& peinture)
      : image_(image), peinture_(peinture), sansTrajet_(SvcPasse.MontreSansTrajet), ouvert_(Svc.DessinOuvert) {
    SvcPasse.MontreSansTrajet = [this] {
      if (!std::exchange(montree_, true)) peinture_.Remet();
      sansTrajet_();
    };
    Svc.DessinOuvert = [this](bool ouvert) {
      if (ouvert && !std::exchange(montree_, true)) peinture_.Remet();
      ouvert_(ouvert);
    };
    QObject::connect(&clavier_, &QTimer::timeout, [this] { Presse(); });
  }
  ~MesureOuverture() {
    SvcPasse.MontreSansTrajet = sansTrajet_;
    Svc.DessinOuvert = ouvert_;
  }
  MesureOuverture(const MesureOuverture&) = delete;
  MesureOuverture& operator=(const MesureOuverture&) = delete;

  void Mesure(const char* nom, const std::function<void()>& commande) {
    montree_ = false;
    const auto debut = Horloge::now();
    commande();
    const auto fin = Horloge::now();
    QCoreApplication::processEvents();
    std::printf("%-36s %8.0f ms until its tool path stands, drawing painted after %6.0f ms\n", nom, Ms(fin - debut),
                Ms(peinture_.Quand() - debut));
    std::fflush(stdout);
  }
  void Echappe(const char* nom, const std::function<void()>& commande) {
    montree_ = false;
    clavier_.start(20);
    commande();
    std::printf("%-36s %8.0f ms until the state of before stands\n", nom, Ms(Horloge::now() - echap_));
  }

 private:
  static double Ms(Horloge::duration duree) { return std::chrono::duration<double, std::milli>(duree).count(); }
  void Presse() {
    if (!montree_) return;
    clavier_.stop();
    echap_ = Horloge::now();
    QKeyEvent appui(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&image_, &appui);
  }

  QWidget& image_;
  Peinture& peinture_;
  std::function<void()> sansTrajet_;
  std::function<void(bool)> ouvert_;
  QTimer clavier_;
  bool montree_ = false;
  Horloge::time_point echap_;
};

void MesureOuvertures(F_Representation& fenetre, QWidget& image, Peinture& peinture, const std::string& dessin) {
  Svc.ChoisitFichier = [&](const DialogueFichier&) { return dessin; };
  auto* ouvrir = fenetre.findChild<QAction*>(QStringLiteral("mnu_Ouvrir"));
  const auto ouvre = [ouvrir] { ouvrir->trigger(); };
  MesureOuverture mesure(image, peinture);
  const auto passe = std::exchange(SvcPasse.Jusque, nullptr);
  mesure.Mesure("opening, in the window", ouvre);
  SvcPasse.Jusque = passe;
  mesure.Mesure("opening, that may be ended", ouvre);
  const int pas = NumeroInstantane();
  mesure.Echappe("Escape from another one", ouvre);
  std::printf("%-36s %8d steps of undo before, %d behind it\n", "", pas, NumeroInstantane());
}

void MesureFleches(QWidget& image, Peinture& peinture) {
  const auto passe = std::exchange(SvcPasse.Jusque, nullptr);
  Appuie(image, peinture, "ten passes");
  SvcPasse.Jusque = passe;
  Appuie(image, peinture, "a pass that may be ended");
  Echappe(image, "Escape", [&image] { PresseFleche(image); });
}

// A large drawing in the window, all of it selected.
enum class Mesures { Fleches, Tour, Ouvertures };
void MesurePasses(int points, int contours, Mesures mesures) {
  const Lieu lieu;
  const std::string dessin = (lieu.dossier / "grand.dxf").string();
  std::ofstream(dessin, std::ios::binary)
      << (contours == 1 ? ContourBruite(points, 0.01) : banc::DessinDxf(contours, points));
  F_Representation fenetre;
  Svc.Dimensionne = [](DemandeDimension&) {};
  fenetre.DossierDocuments.clear();
  fenetre.resize(1280, 800);
  fenetre.Form_Load(dessin);
  static constexpr std::array<const char*, 3> Noms{"arrows", "turn", "open"};
  std::printf("--- %s: %d points in %d contours\n", Noms[static_cast<std::size_t>(mesures)], NbPoints, contours);
  SelectionneTout();
  auto* image = fenetre.findChild<ImagePB1*>(QStringLiteral("PB1"));
  QCoreApplication::processEvents();
  image->MetEnPage();
  Peinture peinture(*image);
  switch (mesures) {
    case Mesures::Fleches:
      MesureFleches(*image, peinture);
      break;
    case Mesures::Tour:
      MesureTour(fenetre, *image, peinture);
      break;
    case Mesures::Ouvertures:
      MesureOuvertures(fenetre, *image, peinture, dessin);
      break;
  }
  Modifie = Faux;
  RetientTravail();
  fenetre.close();
}

void Mesure(int points, int contours, double montre) {
  const Lieu lieu;
  const std::string dessin = (lieu.dossier / "grand.dxf").string();
  const std::string projet = (lieu.dossier / "grand.OVL").string();
  std::ofstream(dessin, std::ios::binary)
      << (contours == 1 ? ContourBruite(points, 0.01) : banc::DessinDxf(contours, points));
  F_Representation fenetre;
  Svc.Dimensionne = [](DemandeDimension&) {};
  fenetre.DossierDocuments.clear();
  fenetre.resize(1280, 800);
  fenetre.Form_Load("");
  std::printf("--- %d x %d points\n", contours, points);
  std::fflush(stdout);
  Pouls pouls(montre);
  const auto phase = [&pouls](const char* nom, const std::function<void()>& quoi) {
    pouls.Debute();
    quoi();
    pouls.Finit(nom);
  };
  phase("open the drawing", [&] {
    Svc.ChoisitFichier = [&](const DialogueFichier&) { return dessin; };
    OptionsOuverture options;
    options.dehors = false;
    mnu_Ouvrir("", options);
  });
  std::printf("%28s %d points, %zu records of the trace\n", "", NbPoints, TraceDecale.size());
  phase("offset with another radius", [] {
    RayonFraise = 2.0;
    RecalculDecalages();
  });
  phase("clean", [] { mnu_Nettoyage_Click(0.0005F); });
  phase("save the project", [&] { EnregistreProjet(projet); });
  phase("open the project", [&] { mnu_Ouvrir(projet, OptionsOuverture{}); });
  std::printf("%28s worst: %.1f ms\n", "", pouls.pire);
  Modifie = Faux;
  FichierProjet.clear();
  fenetre.close();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application = banc::SansEcran(argc, argv);
  double montre = 0;
  std::optional<Mesures> mesures;
  std::vector<double> nombres;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--where") == 0 && i + 1 < argc) {
      montre = std::atof(argv[++i]);
    } else if (std::strcmp(argv[i], "--arrows") == 0) {
      mesures = Mesures::Fleches;
    } else if (std::strcmp(argv[i], "--turn") == 0) {
      mesures = Mesures::Tour;
    } else if (std::strcmp(argv[i], "--open") == 0) {
      mesures = Mesures::Ouvertures;
    } else {
      nombres.push_back(std::atof(argv[i]));
    }
  }
  if (mesures) {
    const bool donnes = nombres.size() >= 2;
    MesurePasses(donnes ? static_cast<int>(nombres[0]) : 1000000, donnes ? static_cast<int>(nombres[1]) : 1,
                 *mesures);
    return 0;
  }
  if (nombres.size() >= 2) {
    Mesure(static_cast<int>(nombres[0]), static_cast<int>(nombres[1]), montre);
    return 0;
  }
  Mesure(1000, 1000, montre);
  Mesure(1000000, 1, montre);
  return 0;
}
