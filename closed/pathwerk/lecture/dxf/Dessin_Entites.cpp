// The simple entities, polylines and curves.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/Indices.h"
#include "base/Vecteur.h"
#include "closed/pathwerk/lecture/dxf/Dessin.h"
#include "closed/pathwerk/lecture/dxf/SplinePoints.h"

namespace pathwerk::lecture::dxf {

namespace {

constexpr double TourEntier = 2 * std::numbers::pi;
constexpr double Radians(double degres) { return degres * (std::numbers::pi / 180); }

bool BoutsJoints(const std::vector<Vec2>& p) {
  const Vec2 a = p.front();
  const Vec2 b = p.back();
  return std::hypot(a.x - b.x, a.y - b.y) <= 1e-9 * (1 + std::hypot(a.x, a.y));
}

}  // namespace

void Dessinateur::Ligne(const Affine& m) {
  if (budget_.Points(2)) Pose({{m.Projette(e_.p[0]), m.Projette(e_.p[1])}, Nature::Ouvert});
}

void Dessinateur::Point(const Affine& m) {
  if (budget_.Points(1)) Pose({{m.Projette(e_.p[0])}, Nature::Percage});
}

void Dessinateur::Arc(const Affine& m) {
  const double r = std::fabs(e_.Reel(40, 0));
  const bool cercle = e_.genre == Genre::Cercle;
  const double debut = cercle ? 0 : Radians(e_.Reel(50, 0));
  Conique(e_.p[0], {r, 0, 0}, {0, r, 0}, debut, cercle ? TourEntier : BalayageArc(debut, Radians(e_.Reel(51, 0))),
          m);
}

// The centre and the long half axis stand in the world's frame; the short one lies square to it and to the
// extrusion.
void Dessinateur::Ellipse(const Affine& m) {
  const double n = Norme(e_.extrusion);
  const Vec3 normale = n > 0 && std::isfinite(n) ? e_.extrusion * (1 / n) : Vec3{0, 0, 1};
  const Vec3 u = e_.p[1];
  const Vec3 v = Vectoriel(normale, u) * e_.Reel(40, 1);
  const double debut = e_.Reel(41, 0);
  Conique(e_.p[0], u, v, debut, BalayageArc(debut, e_.Reel(42, TourEntier)), m);
}

void Dessinateur::Conique(Vec3 centre, Vec3 u, Vec3 v, double debut, double balayage, const Affine& m) {
  const ArcConique arc{m.PlanDirection(u), m.PlanDirection(v), debut, balayage};
  const auto place = [&](double t) { return m.Projette(centre + u * std::cos(t) + v * std::sin(t)); };
  Trait trait;
  const bool ferme = balayage == TourEntier;
  if (!budget_.Points(2)) return;
  trait.points.reserve(NombreCordes(arc, fleche_) + 1);
  trait.points.push_back(place(debut));
  if (!AjouteConique(trait.points, trait.points[0], arc, fleche_, budget_)) return;
  if (!ferme) trait.points.push_back(place(debut + balayage));
  trait.nature = ferme ? Nature::Ferme : Nature::Ouvert;
  Pose(std::move(trait));
}

// The points of a polyline, arcs as chords. A closed one doesn't repeat its first point.
bool Dessinateur::Lisse(Trait& trait, const std::vector<Sommet>& sommets, bool ferme, const Affine& m) {
  const std::size_t n = sommets.size();
  if (!budget_.Points(n)) return false;
  trait.points.reserve(n);
  trait.nature = ferme ? Nature::Ferme : Nature::Ouvert;
  for (std::size_t i = 0; i < n; ++i) {
    const Sommet& a = sommets[i];
    trait.points.push_back(m.Projette(a.p));
    if (a.bulge == 0 || (i + 1 == n && !ferme)) continue;
    const Sommet& b = sommets[base::Suivant(i, n)];
    if (a.p == b.p) continue;
    const ArcConique plat = ArcDeBulge({a.p.x, a.p.y}, {b.p.x, b.p.y}, a.bulge);
    const ArcConique arc{m.PlanDirection({plat.u.x, plat.u.y, 0}), m.PlanDirection({plat.v.x, plat.v.y, 0}),
                         plat.debut, plat.balayage};
    if (!AjouteConique(trait.points, trait.points.back(), arc, fleche_, budget_)) return false;
  }
  return true;
}

// Flags of POLYLINE (70): 1 closed, 4 smoothed, 8 in space, 16 a mesh, 64 faces. Those of LWPOLYLINE: 1 closed.
// In an own drawing two vertices at one place are a hole to drill.
void Dessinateur::Polyligne(const Affine& m) {
  const int drapeaux = e_.Entier(70);
  const bool legere = e_.genre == Genre::PolyligneLegere;
  if (!legere && (drapeaux & 64) != 0) return Ignore("POLYFACE");
  if (!legere && (drapeaux & 16) != 0) return Ignore("POLYMESH");
  const bool espace = !legere && (drapeaux & 8) != 0;
  const Affine plan = espace ? m : m * RepereObjet(e_.extrusion);
  if (!legere && e_.sommets.empty() && !e_.controle.empty()) return PolyligneLissee(plan);
  for (Sommet& s : e_.sommets) {
    if (espace) s.bulge = 0;
    if (!espace && (legere || e_.p[0].z != 0)) s.p.z = e_.p[0].z;
  }
  const std::vector<Sommet>& s = e_.sommets;
  Trait trait;
  if (sommaire_.propre && s.size() == 2 && s[0].p == s[1].p) {
    trait = {{plan.Projette(s[0].p)}, Nature::Percage};
    if (!budget_.Points(1)) return;
  } else if (!Lisse(trait, s, (drapeaux & 1) != 0, plan)) {
    return;
  }
  Pose(std::move(trait));
}

// A smoothed polyline of which only the frame was written: the curve is the B-spline of that frame, quadratic
// (75 = 5) or cubic (75 = 6).
void Dessinateur::PolyligneLissee(const Affine& m) {
  const bool fermee = (e_.Entier(70) & 1) != 0;
  Spline s;
  s.degre = e_.Entier(75) == 5 ? 2 : 3;
  s.controle = e_.controle;
  const auto p = base::Indice(s.degre);
  if (fermee && s.controle.size() >= p)
    s.controle.insert(s.controle.end(), e_.controle.begin(), e_.controle.begin() + s.degre);
  NoeudsParDefaut(s, fermee);
  TraceSpline(s, fermee, m);
}

// Flags of SPLINE (70): 1 closed, 2 periodic.
void Dessinateur::CourbeSpline(const Affine& m) {
  const bool fermee = (e_.Entier(70) & 3) != 0;
  Spline s;
  s.degre = e_.Entier(71) == 0 ? 3 : e_.Entier(71);
  std::swap(s.controle, e_.controle);
  std::swap(s.noeuds, e_.noeuds);
  std::swap(s.poids, e_.poids);
  const auto p = base::Indice(std::clamp(s.degre, 1, 100));
  if (s.controle.size() < p + 1 && e_.lissage.size() > 1) {
    return TraceSpline(SplineParPoints(e_.lissage, e_.p[2], e_.p[3], fermee), fermee, m);
  }
  if (std::ranges::all_of(s.poids, [](double w) { return w == 1; })) s.poids.clear();
  if (s.noeuds.size() == s.controle.size() + p - 1 && !s.noeuds.empty()) {
    // The outermost knot of each end has no influence and some writers leave it out.
    s.noeuds.insert(s.noeuds.begin(), s.noeuds.front());
    s.noeuds.push_back(s.noeuds.back());
  } else if (s.noeuds.empty()) {
    const bool boucle = fermee && s.controle.size() > p && s.controle.front() != s.controle.back();
    for (std::size_t i = 0; boucle && i < p; ++i) {
      s.controle.push_back(s.controle[i]);
      if (!s.poids.empty()) s.poids.push_back(s.poids[i]);
    }
    NoeudsParDefaut(s, boucle);
  }
  TraceSpline(s, fermee, m);
}

void Dessinateur::TraceSpline(const Spline& s, bool fermee, const Affine& m) {
  if (!Valide(s)) return Ignore(e_.nom);
  Trait trait;
  trait.points.reserve(s.controle.size() < (1U << 16) ? 0 : s.controle.size());
  if (!AjouteSpline(trait.points, s, m, fleche_, budget_)) return;
  if ((fermee || trait.points.size() > 3) && BoutsJoints(trait.points)) trait.nature = Nature::Ferme;
  if (trait.nature == Nature::Ferme) trait.points.pop_back();
  Pose(std::move(trait));
}

// The corners are written in the order of a Z: 1, 2 and below them 3, 4. A triangle repeats its third corner, or
// leaves the fourth out.
void Dessinateur::Solide(const Affine& m) {
  const Vec3 dernier = e_.Points(4) ? e_.p[3] : e_.p[2];
  Trait trait{{m.Projette(e_.p[0]), m.Projette(e_.p[1]), m.Projette(dernier)}, Nature::Ferme};
  if (dernier != e_.p[2]) trait.points.push_back(m.Projette(e_.p[2]));
  if (budget_.Points(trait.points.size())) Pose(std::move(trait));
}

// Corners in the order of the outline; bit i of 70 hides the edge behind corner i. With hidden edges the visible
// ones come as open paths.
void Dessinateur::Face(const Affine& m) {
  const bool quatre = e_.Points(4) && e_.p[3] != e_.p[2];
  const std::size_t n = quatre ? 4 : 3;
  unsigned caches = static_cast<unsigned>(e_.Entier(70)) & 15U;
  if (!quatre) caches = (caches & 3U) | ((caches & 8U) >> 1);  // the third edge has no length
  if (!budget_.Points(2 * n)) return;
  if (caches == 0) {
    Trait trait{{}, Nature::Ferme};
    for (std::size_t i = 0; i < n; ++i) trait.points.push_back(m.Projette(e_.p[i]));
    Pose(std::move(trait));
    return;
  }
  if (caches == (1U << n) - 1) return Ignore(e_.nom);
  // Begin behind a hidden edge, so that a run of visible ones isn't broken.
  std::size_t depart = 0;
  while ((caches >> depart & 1U) == 0) ++depart;
  Trait trait;
  for (std::size_t k = 1; k <= n; ++k) {
    const std::size_t i = (depart + k) % n;
    const bool cache = (caches >> i & 1U) != 0;
    if (trait.points.empty() && !cache) trait.points.push_back(m.Projette(e_.p[i]));
    if (!cache) trait.points.push_back(m.Projette(e_.p[base::Suivant(i, n)]));
    if (cache && !trait.points.empty()) {
      Pose(std::move(trait));
      trait = {};
    }
  }
}

}  // namespace pathwerk::lecture::dxf
