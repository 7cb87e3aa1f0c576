#include "workspace/NomChemin.h"

#include <algorithm>
#include <cmath>

#include "core/Gestes.h"
#include "core/Nombres.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

namespace {

constexpr std::size_t CordesMin = 8;
constexpr double EcartRelatif = 0.01, EcartMax = 0.02;  // mm, of a circle

struct Boite {
  double xmin = 0, xmax = 0, ymin = 0, ymax = 0;
};

Boite BoiteDe(std::span<const PointTrace> points) {
  Boite b{points[0].X, points[0].X, points[0].Y, points[0].Y};
  for (const PointTrace& p : points) {
    b.xmin = std::min(b.xmin, double{p.X});
    b.xmax = std::max(b.xmax, double{p.X});
    b.ymin = std::min(b.ymin, double{p.Y});
    b.ymax = std::max(b.ymax, double{p.Y});
  }
  return b;
}

bool EstCercle(std::span<const PointTrace> points, const Boite& b) {
  if (points.size() <= CordesMin) return false;
  const double x = (b.xmin + b.xmax) / 2;
  const double y = (b.ymin + b.ymax) / 2;
  const double rayon = (b.xmax - b.xmin) / 2;
  const double ecart = std::max(EcartMax, EcartRelatif * rayon);
  return std::ranges::all_of(
      points, [&](const PointTrace& p) { return std::fabs(std::hypot(p.X - x, p.Y - y) - rayon) <= ecart; });
}

// Twice the area by the rule of the trapezes, positive where the path turns counter-clockwise.
double Aire(std::span<const PointTrace> points) {
  double aire = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    aire += (double{points[i - 1].X} - points[0].X) * (double{points[i].Y} - points[0].Y) -
            (double{points[i].X} - points[0].X) * (double{points[i - 1].Y} - points[0].Y);
  }
  return aire;
}

double Longueur(std::span<const PointTrace> points) {
  double longueur = 0;
  for (std::size_t i = 1; i < points.size(); ++i) longueur += DistancePoints(points[i - 1], points[i]);
  return longueur;
}

std::string Mm(double v) { return Formate(v, "0.0"); }

std::string TexteForme(const FormeChemin& f) {
  switch (f.sorte) {
    case SorteChemin::Percage:
      return Traduire(Textes::CheminPercage);
    case SorteChemin::Trou:
      return Traduire(Textes::CheminTrou) + " " + Mm(f.a);
    case SorteChemin::Disque:
      return Traduire(Textes::CheminDisque) + " " + Mm(f.a);
    case SorteChemin::Decoupe:
      return Traduire(Textes::CheminDecoupe) + " " + Mm(f.a) + " x " + Mm(f.b);
    case SorteChemin::Contour:
      return Traduire(Textes::CheminContour) + " " + Mm(f.a) + " x " + Mm(f.b);
    case SorteChemin::Ligne:
      break;
  }
  return Traduire(Textes::CheminLigne) + " " + Mm(f.a);
}

}  // namespace

FormeChemin FormeDe(std::span<const PointTrace> points, std::int16_t cote) {
  if (points.empty()) return {};
  const Boite b = BoiteDe(points);
  if (b.xmax - b.xmin <= 0 && b.ymax - b.ymin <= 0) return {SorteChemin::Percage, 0, 0};
  if (!EstFermee(points)) return {SorteChemin::Ligne, Longueur(points), 0};
  const bool gauche = cote != CoteInverse;
  const bool dedans = (Aire(points) > 0) == gauche;
  if (EstCercle(points, b)) return {dedans ? SorteChemin::Trou : SorteChemin::Disque, b.xmax - b.xmin, 0};
  return {dedans ? SorteChemin::Decoupe : SorteChemin::Contour, b.xmax - b.xmin, b.ymax - b.ymin};
}

std::string NomChemin(std::span<const PointTrace> points, const SequenceInfo& fiche, std::string_view calque,
                      bool ilot) {
  std::string nom = TexteForme(FormeDe(points, fiche.Decalage)) + ", " + Formate(fiche.Profondeur, "0.0#");
  if (fiche.Poche != Faux) nom += ", " + Traduire(Textes::CheminPoche);
  if (ilot) nom += ", " + Traduire(Textes::CheminIlot);
  if (fiche.Fraiser == Faux) nom += ", " + Traduire(Textes::CheminNonFraise);
  if (!calque.empty()) nom.append(", ").append(calque);
  return nom;
}

}  // namespace ovelin
