#include "image/SceneFeuille.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/Segment.h"
#include "core/Nombres.h"
#include "image/Traceur.h"

namespace ovelin {

namespace {

constexpr float EcartMin = 8 * TwipsParPixel;     // of two lines of the grid, where the finer ones begin ...
constexpr float EcartPlein = 60 * TwipsParPixel;  // ... and where they are as strong as the others
constexpr float RayonZero = 6 * TwipsParPixel;
constexpr int PasQuart = 6;  // chords in a quarter of the mark
constexpr float LargeurHors = 5 * TwipsParPixel;
constexpr float CranEchelle = 4 * TwipsParPixel;
constexpr float EcartTexte = 6 * TwipsParPixel;
constexpr double EtendueMin = 1e-6;  // mm
constexpr double Rive = 1e-3;        // mm beyond the travel that count as on its edge

// The longest of 1, 2, 5 times a power of ten that is not above `place`.
double LongueurRonde(double place) {
  const double base = std::pow(10.0, std::floor(std::log10(std::max(place, EtendueMin))));
  for (const double facteur : {5.0, 2.0}) {
    if (base * facteur <= place) return base * facteur;
  }
  return base;
}

// A rectangle on the screen, cut to a little more than the picture.
struct Cadre {
  float x0, x1, y0, y1;
};

Cadre CadreFeuille(const Traceur& traceur, const TailleImage& taille, const CourseMachine& course) {
  constexpr float Marge = 20 * TwipsParPixel;
  Cadre c{-Marge, taille.largeur + Marge, -Marge, taille.hauteur + Marge};
  if (course.Vide()) return c;
  const PointEcran zero = traceur.Place(0, 0);
  const PointEcran bout = traceur.Place(course.x, course.y);
  c.x0 = std::clamp(zero.X, c.x0, c.x1);
  c.x1 = std::clamp(bout.X, c.x0, c.x1);
  c.y1 = std::clamp(zero.Y, c.y0, c.y1);
  c.y0 = std::clamp(bout.Y, c.y0, c.y1);
  return c;
}

// Lines each `pas` mm within the frame, `force` strong.
void Lignes(const EtatVue& vue, const Traceur& traceur, const Cadre& c, double pas, std::uint8_t force,
            Scene& scene) {
  Primitive modele;
  modele.role = Role::Grille;
  modele.force = force;
  const double ecart = pas * vue.Zoom;
  const PointEcran zero = traceur.Place(0, 0);
  for (double k = std::ceil((c.x0 - zero.X) / ecart); zero.X + k * ecart <= c.x1; ++k) {
    const auto x = static_cast<float>(zero.X + k * ecart);
    const PointEcran bouts[] = {{x, c.y0}, {x, c.y1}};
    scene.Ajoute(modele, bouts);
  }
  for (double k = std::ceil((c.y0 - zero.Y) / ecart); zero.Y + k * ecart <= c.y1; ++k) {
    const auto y = static_cast<float>(zero.Y + k * ecart);
    const PointEcran bouts[] = {{c.x0, y}, {c.x1, y}};
    scene.Ajoute(modele, bouts);
  }
}

// Each power of ten mm whose lines have room.
void Grille(const EtatVue& vue, const Traceur& traceur, const Cadre& cadre, Scene& scene) {
  const double premier = std::pow(10.0, std::ceil(std::log10(EcartMin / double{vue.Zoom})));
  if (!std::isfinite(premier)) return;
  constexpr int Etages = 3;
  double pas = premier;
  for (int i = 0; i < Etages; ++i, pas *= 10) {
    const double part = std::clamp((pas * vue.Zoom - EcartMin) / double{EcartPlein - EcartMin}, 0.08, 1.0);
    Lignes(vue, traceur, cadre, pas, static_cast<std::uint8_t>(255 * part), scene);
  }
}

// A disc, two opposite quarters of it filled.
void Zero(const Traceur& traceur, Scene& scene) {
  const PointEcran centre = traceur.Place(0, 0);
  if (!traceur.Visible(centre, RayonZero)) return;
  scene.AjouteDisque(Role::ZeroMachine, centre, RayonZero);
  for (const double depart : {0.0, Pi}) {
    std::vector<PointEcran> quart{centre};
    for (int i = 0; i <= PasQuart; ++i) {
      const double a = depart + Pi / 2 * i / PasQuart;
      quart.push_back({centre.X + static_cast<float>(RayonZero * std::cos(a)),
                       centre.Y + static_cast<float>(RayonZero * std::sin(a))});
    }
    scene.AjouteAire(Role::ZeroMachine, quart);
  }
}

// Calls `quoi` with each line that counts as a cut: from its first point to behind its last.
template <class F>
void PourChaqueCoupe(const Document& document, const F& quoi) {
  bool trace = false;
  std::unordered_map<std::uint32_t, bool> fraisees;
  for (const SequenceInfo& s : document.Sequences) fraisees.try_emplace(s.Code.Cle(), s.Fraiser != Faux);
  for (const SequenceDecalee& t : document.TraceDecale) {
    if (t.Points.empty()) continue;
    const auto it = fraisees.find(t.Seq.Cle());
    if (it != fraisees.end() && !it->second) continue;
    trace = true;
    quoi(t.Points.data(), t.Points.data() + t.Points.size());
  }
  if (trace) return;
  const auto& points = document.TraceInitial;
  for (std::size_t i = 0; i < points.size();) {
    std::size_t fin = i + 1;
    while (fin < points.size() && points[fin].Seq == points[i].Seq) ++fin;
    quoi(points.data() + i, points.data() + fin);
    i = fin;
  }
}

// By how much one line leaves the travel: that of its box, whose sides are found without a look at the travel.
Depassement DepassementDuTrait(const PointTrace* p, const PointTrace* fin, const CourseMachine& course) {
  constexpr float Infini = std::numeric_limits<float>::infinity();
  float xmin = Infini;
  float xmax = -Infini;
  float ymin = Infini;
  float ymax = -Infini;
  for (; p != fin; ++p) {
    xmin = p->X < xmin ? p->X : xmin;
    xmax = p->X > xmax ? p->X : xmax;
    ymin = p->Y < ymin ? p->Y : ymin;
    ymax = p->Y > ymax ? p->Y : ymax;
  }
  const auto plus = [](double v) { return v > Rive ? v : 0.0; };
  return {plus(-double{xmin}), plus(double{xmax} - course.x), plus(-double{ymin}), plus(double{ymax} - course.y)};
}

}  // namespace

Depassement DepassementDe(const Document& document, const CourseMachine& course) {
  Depassement d;
  if (course.Vide()) return d;
  PourChaqueCoupe(document, [&](const PointTrace* p, const PointTrace* fin) {
    const Depassement t = DepassementDuTrait(p, fin, course);
    d.gauche = std::max(d.gauche, t.gauche);
    d.droite = std::max(d.droite, t.droite);
    d.bas = std::max(d.bas, t.bas);
    d.haut = std::max(d.haut, t.haut);
  });
  return d;
}

void AjouteFeuille(const EtatVue& vue, const TailleImage& taille, const OptionsScene& options, Scene& scene) {
  Traceur traceur(scene, vue, taille, options.pixel);
  const Cadre c = CadreFeuille(traceur, taille, options.course);
  if (!options.course.Vide()) {
    const PointEcran coins[] = {{c.x0, c.y0}, {c.x1, c.y0}, {c.x1, c.y1}, {c.x0, c.y1}};
    scene.AjouteAire(Role::Feuille, coins);
  }
  Grille(vue, traceur, c, scene);
  if (!options.course.Vide()) {
    const float x = options.course.x;
    const float y = options.course.y;
    const PointTrace bord[] = {
        {0, 0, CodePD, {}}, {x, 0, CodePD, {}}, {x, y, CodePD, {}}, {0, y, CodePD, {}}, {0, 0, CodePD, {}}};
    traceur.Commence(Role::BordFeuille, 0);
    traceur.Suit(std::begin(bord), std::end(bord));
    traceur.Finit();
  }
  Zero(traceur, scene);
}

void AjouteHors(const Document& document, const EtatVue& vue, const TailleImage& taille,
                const OptionsScene& options, Scene& scene) {
  const CourseMachine& course = options.course;
  if (course.Vide()) return;
  Traceur traceur(scene, vue, taille, std::max(options.pixel, LargeurHors / 4), LargeurHors);
  bool ouverte = false;
  const auto commence = [&](const PointTrace& p) {
    if (!std::exchange(ouverte, true)) {
      traceur.Commence(Role::Hors, 0, LargeurHors, Primitive{}.force);
      traceur.Suit(p);
    }
  };
  const auto finit = [&] {
    if (std::exchange(ouverte, false)) traceur.Finit();
  };
  const auto entre = [](const PointTrace& a, const PointTrace& b, double t) {
    return PointTrace{EnFloat(a.X + t * (double{b.X} - a.X)), EnFloat(a.Y + t * (double{b.Y} - a.Y)), CodePD, {}};
  };
  const base::Boite<double> dedans{-Rive, -Rive, course.x + Rive, course.y + Rive};
  PourChaqueCoupe(document, [&](const PointTrace* p, const PointTrace* fin) {
    if (DepassementDuTrait(p, fin, course).Vide()) return;
    for (const PointTrace* q = p + 1; q < fin; ++p, ++q) {
      const auto part = base::PartDans({{p->X, p->Y}, {q->X, q->Y}}, dedans);
      if (!part) {
        commence(*p);
        traceur.Suit(*q);
        continue;
      }
      if (part->t0 > 0) {
        commence(*p);
        traceur.Suit(entre(*p, *q, part->t0));
      }
      finit();
      if (part->t1 < 1) {
        commence(entre(*p, *q, part->t1));
        traceur.Suit(*q);
      }
    }
    finit();
  });
}

void AjouteEchelle(const EtatVue& vue, const PointEcran& gauche, float place, Scene& scene) {
  const double zoom = vue.Zoom;
  const double mm = LongueurRonde(place / zoom);
  const float droite = gauche.X + static_cast<float>(mm * zoom);
  const float bas = gauche.Y;
  const PointEcran barre[] = {
      {gauche.X, bas - CranEchelle}, {gauche.X, bas}, {droite, bas}, {droite, bas - CranEchelle}};
  Primitive p;
  p.role = Role::Echelle;
  scene.Ajoute(p, barre);
  scene.AjouteTexte(Role::Echelle, {droite + EcartTexte, bas - 2 * CranEchelle}, Ancre::HautGauche,
                    TexteNombre(mm) + " mm");
}

}  // namespace ovelin
