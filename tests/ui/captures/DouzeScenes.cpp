#include "tests/ui/captures/DouzeScenes.h"

#include <QAction>
#include <QTabBar>
#include <cmath>
#include <utility>

#include "app/ovelin/Composition.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "machine/TableCourante.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"
#include "workspace/Module_Vue.h"
#include "workspace/ui/F_Representation.h"

namespace captures {

namespace {

using namespace ovelin;

const QSize Petite(1024, 700);
constexpr double Tour = 6.283185307179586;

std::string Groupe(int code, const std::string& valeur) { return std::to_string(code) + "\r\n" + valeur + "\r\n"; }

void AjouteFermee(std::string& dxf, const std::vector<std::pair<double, double>>& xy) {
  dxf += Groupe(0, "LWPOLYLINE") + Groupe(8, "0") + Groupe(90, std::to_string(xy.size())) + Groupe(70, "1");
  for (const auto& [x, y] : xy) dxf += Groupe(10, std::to_string(x)) + Groupe(20, std::to_string(y));
}

std::vector<std::pair<double, double>> Rond(double x, double y, double r, int n) {
  std::vector<std::pair<double, double>> xy;
  for (int i = 0; i < n; ++i) xy.emplace_back(x + r * std::cos(Tour * i / n), y + r * std::sin(Tour * i / n));
  return xy;
}

std::vector<std::pair<double, double>> Rectangle(double x, double y, double l, double h) {
  return {{x, y}, {x + l, y}, {x + l, y + h}, {x, y + h}};
}

// A plate of 260 x 180 with a window, two holes and a slot that is narrower than the tool: 28 points. Behind that
// rows of small holes, and in the end a gear of all that is missing.
std::string Dxf(int points) {
  std::string dxf = Groupe(0, "SECTION") + Groupe(2, "ENTITIES");
  AjouteFermee(dxf, Rectangle(0, 0, 260, 180));
  AjouteFermee(dxf, Rectangle(30, 30, 70, 50));
  AjouteFermee(dxf, Rond(160, 60, 20, 8));
  AjouteFermee(dxf, Rond(220, 60, 12, 8));
  AjouteFermee(dxf, Rectangle(30, 150, 90, 2));
  int reste = points - 28;
  for (int i = 0; i < 40 && reste >= 24; ++i, reste -= 24) {
    const int rang = i / 11;
    AjouteFermee(dxf, Rond(20 + 22 * (i % 11), 98 + 12 * rang, 4, 24));
  }
  if (reste >= 24) {
    std::vector<std::pair<double, double>> roue;
    for (int i = 0; i < reste; ++i) {
      const double r = 16 + 1.5 * std::sin(Tour * 40 * i / reste);
      roue.emplace_back(200 + r * std::cos(Tour * i / reste), 158 + r * std::sin(Tour * i / reste));
    }
    AjouteFermee(dxf, roue);
  }
  return dxf + Groupe(0, "ENDSEC") + Groupe(0, "EOF");
}

void Ouvre(QWidget& fenetre, int points) {
  const std::string chemin = DossierTemp + "/plaque-" + std::to_string(points) + ".dxf";
  EcritFichierEntier(chemin, Dxf(points));
  static_cast<F_Representation&>(fenetre).Depose(chemin);
  essai::Evenements();
}

void Montre(QWidget& fenetre) {
  RecalculDecalages();
  Svc.Rafraichit();
  essai::Evenements();
  essai::Controle<QTabBar>(fenetre, "Option1")->setCurrentIndex(1);
}

QPoint Place(QWidget& fenetre, float x, float y) {
  const auto* image = essai::Controle<ImagePB1>(fenetre, "PB1");
  const PointTrace p = VersEcran(Vue, image->Taille().hauteur, {x, y, CodePD, {}});
  return {static_cast<int>(p.X / TwipsParPixel), static_cast<int>(p.Y / TwipsParPixel)};
}

using Geste = std::function<void(QWidget&)>;

void Choisit(const std::function<bool(std::size_t)>& lesquelles) {
  for (std::size_t i = 0; i < Sequences.size(); ++i) Sequences[i].Selection = EnDrapeau(lesquelles(i));
}
void Premieres(QWidget& f) {
  Choisit([](std::size_t i) { return i < 2; });
  Montre(f);
}
void Poche(QWidget& f) {
  for (std::size_t i = 0; i < Sequences.size(); ++i) Sequences[i].Poche = EnDrapeau(i < 3);
  Montre(f);
}
void Encoches(QWidget& f) {
  LargeurEncoche = 8;
  MiniEncoche = 1;
  for (const Etendue& e : EtenduesSequences()) {
    if (e.nombre > 4) TraceInitial[e.premier + 2].Cde = CodePC;
  }
  Montre(f);
}
void Etroits(QWidget& f) {
  RayonFraise = 4.5;
  Montre(f);
}
void Dehors(QWidget& f) {
  for (PointTrace& p : TraceInitial) p.X -= 60;
  Montre(f);
}
void Profondes(QWidget& f) {
  for (std::size_t i = 0; i < Sequences.size(); ++i)
    Sequences[i].Profondeur = -1.0 - static_cast<double>(i % 5) * 3;
  Montre(f);
}
void Tire(QWidget& f) {
  Choisit([](std::size_t i) { return i == 0; });
  Montre(f);
  auto* image = essai::Controle<QWidget>(f, "PB1");
  const PointTrace& p = TraceInitial.front();
  const QPoint de = Place(f, p.X, p.Y);
  QTest::mousePress(image, Qt::LeftButton, {}, de);
  for (int i = 1; i <= 5; ++i) QTest::mouseMove(image, de + QPoint(16 * i, -8 * i));
}
void Historique(QWidget& f) {
  Choisit([](std::size_t i) { return i == 0; });
  Montre(f);
  auto* image = essai::Controle<QWidget>(f, "PB1");
  for (int i = 0; i < 3; ++i) QTest::keyClick(image, Qt::Key_Right, Qt::ShiftModifier);
  essai::Controle<QAction>(f, "mnu_Dupliquer")->trigger();
  essai::Evenements();
  essai::Controle<QAction>(f, "mnu_Historique")->trigger();
}

std::unique_ptr<QWidget> Principale() {
  auto fenetre = std::make_unique<F_Representation>();
  fenetre->Form_Load("");
  essai::Controle<QTimer>(*fenetre, "Timer_Cadre")->stop();
  return fenetre;
}

// A window over a drawing that nobody shows.
std::function<std::unique_ptr<QWidget>()> Fenetre(const char* nom, int points, const std::function<void()>& avant) {
  return [nom, points, avant] {
    {
      const auto principale = Principale();
      Ouvre(*principale, points);
    }
    avant();
    return FaitFenetre(*ChercheFenetre(TableFenetres(), nom), nullptr);
  };
}

std::vector<Scene> ScenesSobres(int points) {
  const std::string suite = "-" + std::to_string(points);
  std::vector<Scene> scenes{{"douze-01-vide", "", true, Principale, {}, {Petite}}};
  const std::pair<const char*, Geste> gestes[] = {
      {"02-dessin", Montre},   {"03-selection", Premieres}, {"04-poche", Poche},         {"05-encoches", Encoches},
      {"06-etroits", Etroits}, {"07-dehors", Dehors},       {"08-profondes", Profondes}, {"09-tire", Tire}};
  for (const auto& [nom, geste] : gestes) {
    const auto prepare = [geste = geste, points](QWidget& f) {
      Ouvre(f, points);
      geste(f);
    };
    scenes.push_back({"douze-" + std::string(nom) + suite, "", true, Principale, prepare, {Petite}});
  }
  scenes.push_back({"douze-10-repete" + suite,
                    "",
                    false,
                    Fenetre("F_Repeter", points, [] { Choisit([](std::size_t i) { return i < 2; }); }),
                    {},
                    {{}}});
  const auto pas = [points](QWidget& f) {
    Ouvre(f, points);
    Historique(f);
  };
  scenes.push_back({"douze-11-historique" + suite, "", true, Principale, pas, {Petite}});
  scenes.push_back({"douze-12-avis" + suite,
                    "",
                    false,
                    Fenetre("F_Fraisage", points,
                            [] {
                              for (PointTrace& p : TraceInitial) p.X -= 60;
                              TraceInitial[2].Cde = CodePC;
                              LargeurEncoche = 5000;
                              HautDeg = 10;
                              CourseZ = 12;
                              RayonFraise = 60;
                              Vitesse_Mat_H = 500;
                              RecalculDecalages();
                            }),
                    {},
                    {{}}});
  return scenes;
}

}  // namespace

std::vector<Scene> DouzeScenes(int points) {
  std::vector<Scene> scenes;
  for (Scene& scene : ScenesSobres(points)) {
    Scene lignes = scene;
    lignes.nom += "-lignes";
    lignes.prepare = [prepare = scene.prepare](QWidget& f) {
      if (prepare) prepare(f);
      if (auto* sobre = f.findChild<QAction*>(QStringLiteral("mnu_Sobre"))) sobre->trigger();
    };
    scenes.push_back(std::move(scene));
    scenes.push_back(std::move(lignes));
  }
  return scenes;
}

}  // namespace captures
