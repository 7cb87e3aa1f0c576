#include "image/SceneDocument.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "base/Indices.h"
#include "core/Nombres.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "image/PlacesPrises.h"
#include "image/SceneFeuille.h"
#include "image/SceneRampe.h"
#include "image/SceneSaignee.h"
#include "image/SceneSelection.h"
#include "image/Traceur.h"

namespace ovelin {

namespace {

// Sizes on the screen, twips.
constexpr float Percage = 75;         // dot of a hole in the drawing ...
constexpr float PercageOutil = 45;    // ... and of the tool in it
constexpr float FlecheLongue = 120;   // start of a path, axes
constexpr float FlecheAir = 90;       // move in the air
constexpr float AirSansFleche = 60;   // a shorter move has none
constexpr float LettreAuPlus = 150;   // from the end of an axis to its letter
constexpr float AxeSansDessin = 300;  // length of an axis of a drawing without extent
// The same in the quiet picture.
constexpr float AirAvecFleche = 600;  // a shorter move has none
constexpr float FlecheCourte = 30;    // a start's arrow that would be shorter is left out
constexpr float PartDuTrace = 0.35F;  // of its path's extent: a start's arrow at most
constexpr float EcartNumero = 75;     // from a start to its number's disc
constexpr float PlaceDePoint = 0.9F;  // of a mark's side: its radius with the room around it
constexpr float PartAttache = 0.6F;   // of a mark's side
constexpr float RayonPoint = 0.45F;   // of a mark's side
constexpr float CoinEchelle = 225;    // from the corner of the picture to its bar
constexpr float PartEchelle = 0.2F;   // of the picture's width

// Kinds of dots and marks that may stand for each other in one pixel.
enum Sorte : unsigned {
  SorteInitial,
  SorteSelectionnee,
  SorteOutil,
  SorteOutilPointille,
  SorteEncoche,
  SorteAir,
  SorteMarque,
  SorteMarqueSelectionnee,
  SorteAttache,
  SorteDepart,
  SortePercage,
  SortePercageSelectionne,
  SortePercageOutil,
  SorteCadre,
  SorteRampe,
};

// A path of the drawing as one run of points.
struct Course {
  std::size_t premier = 0, nombre = 0;
  bool selectionnee = false;
  float xmin = 0, xmax = 0, ymin = 0, ymax = 0;
};

// One run over the document for one picture.
class Peintre {
 public:
  Peintre(const Document& document, const EtatVue& vue, const TailleImage& taille, const OptionsScene& options,
          Scene& scene)
      : doc_(document),
        vue_(vue),
        taille_(taille),
        options_(options),
        scene_(scene),
        traceur_(scene, vue, taille, options.pixel),
        zoom_(vue.Zoom),
        cote_(CoteMarque(taille)),
        points_(cote_) {}

  void Dessine() {
    Releve();
    if (courses_.empty()) return;
    if (options_.sobre) Dessous();
    if (options_.dessin) {
      Etendue();
      for (const Course& c : courses_) Initial(c);
    }
    if (options_.trajet) Outil();
    if (options_.dessin) {
      Attaches();
      for (const Course& c : courses_) Depart(c);
      if (options_.sequence) options_.sobre ? NumerosSobres() : Numeros();
    }
    Axes();
    if (options_.sobre) Dessus();
    if (options_.legende) Legende();
  }

 private:
  void Releve();
  void Dessous();
  void Dessus();
  void PointsVides(const Course& course, const PointTrace* debut, const PointTrace* fin);
  void NumerosSobres();
  void Etendue();
  void Initial(const Course& course);
  void Outil();
  void Air(const PointTrace& de, const PointTrace& a);
  void Passes(const std::vector<PointTrace>& points);
  void Attaches();
  void Depart(const Course& course);
  void Numeros();
  void Axe(float x, float y, const char* lettre);
  void Axes();
  void Legende();
  void Trou(Role role, const PointTrace& p, float diametre, Sorte sorte);
  [[nodiscard]] const SequenceInfo* Fiche(Code2 code) const {
    const auto it = fiches_.find(code.Cle());
    return it == fiches_.end() ? nullptr : it->second;
  }

  const Document& doc_;
  const EtatVue& vue_;
  TailleImage taille_;
  const OptionsScene& options_;
  Scene& scene_;
  Traceur traceur_;
  float zoom_, cote_;
  PlacesPrises points_;  // of hollow marks
  std::unordered_map<std::uint32_t, const SequenceInfo*> fiches_;
  std::vector<Course> courses_;
  std::vector<std::size_t> attaches_;
  float xmin_ = 0, xmax_ = 0, ymin_ = 0, ymax_ = 0;
};

// The runs, the bounds and the attachment points, in one walk. After a refused project NbPoints may be larger than
// the array.
void Peintre::Releve() {
  fiches_.reserve(doc_.Sequences.size());
  for (const SequenceInfo& s : doc_.Sequences) fiches_.try_emplace(s.Code.Cle(), &s);
  const auto& points = doc_.TraceInitial;
  const std::size_t n = doc_.NbPoints > 0 ? std::min(points.size(), base::Indice(doc_.NbPoints)) : 0;
  for (std::size_t i = 0; i < n;) {
    const PointTrace& p = points[i];
    const SequenceInfo* fiche = Fiche(p.Seq);
    Course c{i, 0, fiche != nullptr && fiche->Selection != Faux, p.X, p.X, p.Y, p.Y};
    for (; i < n && points[i].Seq == p.Seq; ++i) {
      c.xmin = std::min(c.xmin, points[i].X);
      c.xmax = std::max(c.xmax, points[i].X);
      c.ymin = std::min(c.ymin, points[i].Y);
      c.ymax = std::max(c.ymax, points[i].Y);
      if (points[i].Cde == CodePC) attaches_.push_back(i);
    }
    c.nombre = i - c.premier;
    xmin_ = courses_.empty() ? c.xmin : std::min(xmin_, c.xmin);
    xmax_ = courses_.empty() ? c.xmax : std::max(xmax_, c.xmax);
    ymin_ = courses_.empty() ? c.ymin : std::min(ymin_, c.ymin);
    ymax_ = courses_.empty() ? c.ymax : std::max(ymax_, c.ymax);
    courses_.push_back(c);
  }
}

// Of the quiet picture: what lies under its lines ...
void Peintre::Dessous() {
  AjouteFeuille(vue_, taille_, options_, scene_);
  if (options_.trajet) AjouteSaignees(doc_, vue_, taille_, options_, scene_);
  if (options_.dessin) AjouteHalo(doc_, vue_, taille_, options_, scene_);
}

// ... and what lies over them.
void Peintre::Dessus() {
  if (options_.trajet && options_.outil.rayon > 0) AjouteTropEtroits(doc_, vue_, taille_, options_, scene_);
  AjouteHors(doc_, vue_, taille_, options_, scene_);
  if (options_.dessin) AjouteCadre(doc_, vue_, taille_, options_, scene_);
  if (!options_.echelle) return;
  AjouteEchelle(vue_, {CoinEchelle, taille_.hauteur - CoinEchelle}, taille_.largeur * PartEchelle, scene_);
}

// Hollow marks where there is room for one; of a selected path always.
void Peintre::PointsVides(const Course& course, const PointTrace* debut, const PointTrace* fin) {
  Primitive marque;
  marque.genre = Genre::Disque;
  marque.role = course.selectionnee ? Role::PointSelection : Role::PointDessin;
  marque.mesure = cote_ * RayonPoint;
  for (const PointTrace* p = debut; p != fin; ++p) {
    const PointEcran place = traceur_.Place(p->X, p->Y);
    if (!traceur_.Montre(place, cote_ / 2, course.selectionnee ? SorteMarqueSelectionnee : SorteMarque)) continue;
    const bool libre = points_.Prend(place, cote_ * PlaceDePoint);
    if (libre || course.selectionnee) traceur_.AjouteMarque(marque, {&place, 1});
  }
}

void Peintre::Etendue() {
  const PointTrace coins[] = {{xmin_, ymin_, CodePD, {}},
                              {xmax_, ymin_, CodePD, {}},
                              {xmax_, ymax_, CodePD, {}},
                              {xmin_, ymax_, CodePD, {}},
                              {xmin_, ymin_, CodePD, {}}};
  traceur_.Commence(Role::Etendue, SorteCadre);
  traceur_.Suit(std::begin(coins), std::end(coins));
  traceur_.Finit();
}

// A hole is two points in one place: a dot that can be seen at any scale.
void Peintre::Trou(Role role, const PointTrace& p, float diametre, Sorte sorte) {
  const PointEcran place = traceur_.Place(p.X, p.Y);
  if (!traceur_.Montre(place, diametre, sorte)) return;
  Primitive point;
  point.genre = Genre::Points;
  point.role = role;
  point.mesure = diametre;
  traceur_.AjouteMarque(point, {&place, 1});
}

void Peintre::Initial(const Course& course) {
  const PointTrace* debut = doc_.TraceInitial.data() + course.premier;
  const PointTrace* fin = debut + course.nombre;
  const bool choisie = course.selectionnee;
  const Role role = choisie ? Role::Selection : Role::Dessin;
  if (course.nombre == 2 && pathwerk::MemePlace(debut[0], debut[1])) {
    Trou(role, *debut, Percage, choisie ? SortePercageSelectionne : SortePercage);
  } else {
    traceur_.Commence(role, choisie ? SorteSelectionnee : SorteInitial);
    traceur_.Suit(debut, fin);
    traceur_.Finit();
  }
  if (!options_.numPoint) return;
  if (options_.sobre) return PointsVides(course, debut, fin);
  Primitive marque;
  marque.genre = Genre::Carres;
  marque.role = role;
  marque.mesure = cote_;
  for (const PointTrace* p = debut; p != fin; ++p) {
    const PointEcran place = traceur_.Place(p->X, p->Y);
    if (traceur_.Montre(place, cote_ / 2, choisie ? SorteMarqueSelectionnee : SorteMarque)) {
      traceur_.AjouteMarque(marque, {&place, 1});
    }
  }
}

void Peintre::Outil() {
  const auto milled = [](const SequenceInfo& s) { return s.Fraiser != Faux; };
  if (std::none_of(doc_.Sequences.begin(), doc_.Sequences.end(), milled)) return;
  PointTrace bout{0, 0, CodePD, {}};  // a job starts at the origin
  for (const SequenceDecalee& trace : doc_.TraceDecale) {
    if (trace.Points.empty()) continue;
    const SequenceInfo* fiche = Fiche(trace.Seq);
    if (fiche != nullptr && fiche->Fraiser == Faux) continue;
    Air(bout, trace.Points.front());
    if (trace.Points.size() == 2 && pathwerk::MemePlace(trace.Points[0], trace.Points[1])) {
      Trou(Role::Trajet, trace.Points[0], PercageOutil, SortePercageOutil);
    } else {
      if (fiche != nullptr) AjouteRampe(trace.Points, fiche->Profondeur, options_.descente, SorteRampe, traceur_);
      Passes(trace.Points);
    }
    bout = trace.Points.back();
  }
}

// The move in the air, dotted, with an arrow at its middle. Within a pixel it is covered by the paths at its ends.
void Peintre::Air(const PointTrace& de, const PointTrace& a) {
  const PointEcran e = traceur_.Place(de.X, de.Y);
  const PointEcran f = traceur_.Place(a.X, a.Y);
  const float dx = f.X - e.X;
  const float dy = f.Y - e.Y;
  const float longueur = std::hypot(dx, dy);
  if (!(longueur >= options_.pixel)) return;
  traceur_.Commence(Role::Air, SorteAir);
  traceur_.Suit(de);
  traceur_.Suit(a);
  traceur_.Finit();
  if (longueur < (options_.sobre ? AirAvecFleche : AirSansFleche)) return;
  const float fleche = std::min(FlecheAir, longueur / 2);
  const float ux = dx / longueur;
  const float uy = dy / longueur;
  const PointEcran pointe{e.X + dx / 2 + ux * fleche / 2, e.Y + dy / 2 + uy * fleche / 2};
  if (!traceur_.Visible(pointe, FlecheAir)) return;
  PointEcran coins[3];
  Fleche(pointe, ux, uy, fleche, coins);
  Primitive p;
  p.genre = Genre::Fleches;
  p.role = Role::Air;
  traceur_.AjouteMarque(p, coins);
}

// The lines of one trace. Each stretch takes its role from the point where it starts:
//
//     PD ---- PE .... PC .... PE .... PD ----      a notch
//     PD ---- PC .... PD ----                      a mark too near to an end for a notch
//     PD ---- PU .... PD ----                      a stroke in the margin, and the contour behind it
void Peintre::Passes(const std::vector<PointTrace>& points) {
  bool dansEncoche = false;
  const auto roleDe = [&dansEncoche](Code2 cde) {
    if (cde == CodePU) return Role::Air;  // the blade is lifted out of the margin
    if (cde == CodePE) {
      dansEncoche = true;
    } else if (cde != CodePC) {
      dansEncoche = false;
      return Role::Trajet;
    }
    return dansEncoche ? Role::Encoche : Role::TrajetNu;
  };
  const auto sorteDe = [](Role role) {
    if (role == Role::Air) return SorteAir;
    return role == Role::Trajet ? SorteOutil : role == Role::Encoche ? SorteEncoche : SorteOutilPointille;
  };
  const std::size_t n = points.size();
  std::size_t debut = 0;
  Role role = roleDe(points[0].Cde);
  while (debut == 0 || debut + 1 < n) {
    std::size_t fin = debut + 1;  // first point whose stretch differs, or the last point
    Role suivant = role;
    while (fin + 1 < n && (suivant = roleDe(points[fin].Cde)) == role) ++fin;
    traceur_.Commence(role, sorteDe(role));
    traceur_.Suit(points.data() + debut, points.data() + std::min(fin + 1, n));
    traceur_.Finit();
    debut = fin;
    role = suivant;
  }
}

void Peintre::Attaches() {
  Primitive marque;
  marque.genre = Genre::Carres;
  marque.role = Role::Attache;
  marque.mesure = options_.sobre ? cote_ * PartAttache : cote_;
  for (const std::size_t i : attaches_) {
    const PointEcran place = traceur_.Place(doc_.TraceInitial[i].X, doc_.TraceInitial[i].Y);
    if (traceur_.Montre(place, cote_ / 2, SorteAttache)) traceur_.AjouteMarque(marque, {&place, 1});
  }
}

// The arrow stands on the start and points along the first stretch that has a length; the direction is taken from
// the drawing, a stretch may be shorter than a pixel.
void Peintre::Depart(const Course& course) {
  const PointTrace* p = doc_.TraceInitial.data() + course.premier;
  const PointTrace* fin = p + course.nombre;
  const PointTrace* q = p + 1;
  while (q != fin && pathwerk::MemePlace(*p, *q)) ++q;
  if (q == fin) return;
  const double dx = double{q->X} - p->X;
  const double dy = double{q->Y} - p->Y;
  const double longueur = std::hypot(dx, dy);
  const PointEcran place = traceur_.Place(p->X, p->Y);
  float longue = FlecheLongue;
  if (options_.sobre) {
    const float etendue = std::max(course.xmax - course.xmin, course.ymax - course.ymin) * zoom_;
    longue = std::min(longue, etendue * PartDuTrace);
    if (!(longue >= FlecheCourte)) return;
  }
  if (!std::isfinite(longueur) || !traceur_.Montre(place, longue, SorteDepart)) return;
  const auto ux = static_cast<float>(dx / longueur);
  const auto uy = static_cast<float>(-dy / longueur);
  PointEcran coins[3];
  Fleche({place.X + ux * longue, place.Y + uy * longue}, ux, uy, longue, coins);
  Primitive fleche;
  fleche.genre = Genre::Fleches;
  fleche.role = Role::Depart;
  traceur_.AjouteMarque(fleche, coins);
}

// A disc that a later one of at least its size covers in the same pixel is left out.
void Peintre::Numeros() {
  struct Numero {
    std::string texte;
    PointEcran place;
    float rayon = 0;
    bool selectionnee = false;
    bool cache = false;
  };
  const TailleTexte large = Mesure(options_.mesureTexte, "0000000");
  const float loin = std::max(large.largeur, large.hauteur);
  std::vector<Numero> numeros;
  for (std::size_t i = 0; i < courses_.size(); ++i) {
    const PointTrace& p = doc_.TraceInitial[courses_[i].premier];
    Numero n;
    n.place = traceur_.Place(p.X, p.Y);
    if (!traceur_.Visible(n.place, loin)) continue;
    n.texte = Formate(static_cast<double>(i + 1), "####");
    const TailleTexte mesure = Mesure(options_.mesureTexte, n.texte);
    n.rayon = std::max(mesure.largeur, mesure.hauteur) / 1.6F;
    n.selectionnee = courses_[i].selectionnee;
    if (traceur_.Visible(n.place, n.rayon)) numeros.push_back(std::move(n));
  }
  std::unordered_map<std::uint64_t, float> rayons;
  for (auto n = numeros.rbegin(); n != numeros.rend(); ++n) {
    const auto cle = [&](float v) {
      return std::uint64_t{static_cast<std::uint32_t>(Arrondi32(v / options_.pixel))};
    };
    float& rayon = rayons[cle(n->place.X) << 32U | cle(n->place.Y)];
    n->cache = rayon >= n->rayon;
    rayon = std::max(rayon, n->rayon);
  }
  for (const Numero& n : numeros) {
    if (n.cache) continue;
    const Role role = n.selectionnee ? Role::NumeroSelection : Role::Numero;
    scene_.AjouteDisque(role, n.place, n.rayon);
    scene_.AjouteTexte(role, n.place, Ancre::Centre, n.texte);
  }
}

// Beside the start, up and to the right of it, where no other number is; those of the selection come first.
void Peintre::NumerosSobres() {
  const TailleTexte large = Mesure(options_.mesureTexte, "0000000");
  const float loin = std::max(large.largeur, large.hauteur);
  PlacesPrises prises(loin);
  for (const bool choisies : {true, false}) {
    const Role role = choisies ? Role::NumeroSelection : Role::Numero;
    for (std::size_t i = 0; i < courses_.size(); ++i) {
      if (courses_[i].selectionnee != choisies) continue;
      const PointTrace& p = doc_.TraceInitial[courses_[i].premier];
      PointEcran place = traceur_.Place(p.X, p.Y);
      if (!traceur_.Visible(place, loin)) continue;
      const std::string texte = Formate(static_cast<double>(i + 1), "####");
      const TailleTexte mesure = Mesure(options_.mesureTexte, texte);
      const float rayon = std::max(mesure.largeur, mesure.hauteur) / 1.6F;
      const float ecart = (rayon + EcartNumero) * std::sqrt(0.5F);
      place = {place.X + ecart, place.Y - ecart};
      if (!traceur_.Visible(place, rayon) || !prises.Prend(place, rayon)) continue;
      scene_.AjouteDisque(role, place, rayon);
      scene_.AjouteTexte(role, place, Ancre::Centre, texte);
    }
  }
}

// From a quarter of its length behind the origin to its end, with an arrow; the letter a quarter farther, but near.
void Peintre::Axe(float x, float y, const char* lettre) {
  const float quart = 0.25F;
  traceur_.Commence(Role::Axes, SorteCadre);
  traceur_.Suit({-x * quart, -y * quart, CodePD, {}});
  traceur_.Suit({x, y, CodePD, {}});
  traceur_.Finit();
  const PointEcran bout = traceur_.Place(x, y);
  if (!traceur_.Visible(bout, FlecheLongue + LettreAuPlus)) return;
  const float ux = x > 0 ? 1.0F : 0.0F;
  const float uy = y > 0 ? -1.0F : 0.0F;
  PointEcran coins[3];
  Fleche(bout, ux, uy, FlecheLongue, coins);
  Primitive fleche;
  fleche.genre = Genre::Fleches;
  fleche.role = Role::Axes;
  traceur_.AjouteMarque(fleche, coins);
  const float ecart = std::clamp((x + y) * zoom_ * quart, FlecheLongue, LettreAuPlus);
  scene_.AjouteTexte(Role::Axes, {bout.X + ux * ecart, bout.Y + uy * ecart}, Ancre::Centre, lettre);
}

void Peintre::Axes() {
  float longueur = (xmax_ - xmin_) / 10;
  if (!(longueur > 0)) longueur = (ymax_ - ymin_) / 10;
  if (!(longueur > 0)) longueur = AxeSansDessin / zoom_;
  Axe(longueur, 0, "X");
  Axe(0, longueur, "Y");
}

void Peintre::Legende() {
  const float hauteur = Mesure(options_.mesureTexte, options_.legendeDessin).hauteur;
  const float coin = hauteur / 10;
  float haut = coin;
  const auto ligne = [&](Role role, const std::string& texte) {
    scene_.AjouteTexte(role, {coin, haut}, Ancre::HautGauche, texte);
    haut += hauteur;
  };
  if (options_.dessin) ligne(Role::LegendeDessin, options_.legendeDessin);
  if (options_.trajet) ligne(Role::LegendeTrajet, options_.legendeDecalage);
}

}  // namespace

OptionsScene OptionsCourantes(bool numPoint, bool sequence) {
  OptionsScene o;
  o.numPoint = numPoint;
  o.sequence = sequence;
  o.legendeDessin = Traduire(Textes::LegendeDessin);
  o.legendeDecalage = Traduire(Textes::LegendeTrajet);
  return o;
}

float CoteMarque(const TailleImage& taille) {
  const float aire = std::max(taille.largeur * taille.hauteur, 0.0F);
  return static_cast<float>(Arrondi32(std::sqrt(double{aire}) / 75));
}

void ConstruitScene(const Document& document, const EtatVue& vue, const TailleImage& taille,
                    const OptionsScene& options, Scene& scene) {
  scene.Vide();
  Peintre(document, vue, taille, options, scene).Dessine();
}

}  // namespace ovelin
