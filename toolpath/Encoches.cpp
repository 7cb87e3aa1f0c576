#include "toolpath/Encoches.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <list>

#include "core/Reglages.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

constexpr double ToleranceSegment = 1e-6;  // mm, excess of the way over the candidate

bool SurSegment(const PointTrace& a, const PointTrace& p, const PointTrace& b) {
  return DistancePoints(a, p) + DistancePoints(p, b) - DistancePoints(a, b) < ToleranceSegment;
}

using Chaine = std::list<PointTrace>;
using Maillon = Chaine::iterator;

// Where the way from `dedans` to `dehors` leaves the circle around the mark. False while it stays inside.
//
// The two candidates of a segment are rounded to 32 bits. Far from the origin the rounding is larger than the
// tolerance of the test, and a crossing that lies at a vertex is then missed on both segments that meet there. The
// circle is convex, so a way that has come outside has crossed it: the nearer end of that segment stands in then.
bool Traversee(const PointTrace& dedans, const PointTrace& dehors, const PointTrace& marque, double t, bool dernier,
               int inter, const PointTrace& p1, const PointTrace& p2, PointTrace& croisement) {
  if (inter != 0) {
    croisement = DistancePoints(p2, dehors) < DistancePoints(p1, dehors) ? p2 : p1;
    return true;
  }
  const double loin = DistancePoints(dehors, marque);
  if (!(loin > t) && !dernier) return false;
  croisement = std::abs(DistancePoints(dedans, marque) - t) < std::abs(loin - t) ? dedans : dehors;
  return true;
}

// A mark that is swallowed by its neighbour's notch stays a mark.
void Rentre(PointTrace& p) {
  if (p.Cde != CodePC) p.Cde = CodePE;
}

// The notch of one mark:
//
//     PD ----PE====PE==PC==PE=====PD---- PD      ==== inside the circle of radius t around the mark
//            entry                exit
//
// Both ends of the piece lie outside the circle.
void OuvreUne(Chaine& piece, Maillon marque, double t) {
  PointTrace p1;
  PointTrace p2;
  PointTrace croisement;
  const Maillon fin = std::prev(piece.end());
  Maillon j = std::next(marque);
  for (;; ++j) {
    const PointTrace& avant = *std::prev(j);
    const int inter = InterCercleSegment(avant, *j, *marque, t, p1, p2);
    if (Traversee(avant, *j, *marque, t, j == fin, inter, p1, p2, croisement)) break;
    Rentre(*j);
  }
  piece.insert(j, {croisement.X, croisement.Y, CodePD, marque->Seq});

  Maillon k = std::prev(marque);
  for (;; --k) {
    const PointTrace& apres = *std::next(k);
    const int inter = InterCercleSegment(*k, apres, *marque, t, p1, p2);
    if (Traversee(apres, *k, *marque, t, k == piece.begin(), inter, p1, p2, croisement)) break;
    Rentre(*k);
  }
  piece.insert(std::next(k), {croisement.X, croisement.Y, CodePE, marque->Seq});
}

// A chain, so that an insertion costs the same on a long trace as on a short one.
void OuvrePiece(Chaine& piece, double t) {
  Maillon i = piece.begin();
  while (i != piece.end() && std::next(i) != piece.end()) {
    const bool ouvre =
        i->Cde == CodePC && DistancePoints(*i, piece.front()) > t && DistancePoints(*i, piece.back()) > t;
    if (!ouvre) {
      ++i;
      continue;
    }
    OuvreUne(piece, i, t);
    // The mark has moved on by one, and the search goes on two places behind it: directly behind the exit when
    // the notch holds the mark alone.
    for (int pas = 0; pas < 2 && i != piece.end(); ++pas) ++i;
  }
}

}  // namespace

int InterCercleSegment(const PointTrace& a, const PointTrace& b, const PointTrace& c, double r, PointTrace& p1,
                       PointTrace& p2) {
  const double dx = static_cast<double>(b.X) - a.X;
  const double dy = static_cast<double>(b.Y) - a.Y;
  const double longueur2 = dx * dx + dy * dy;
  if (!(longueur2 > 0)) return 0;
  const double cx = static_cast<double>(c.X) - a.X;
  const double cy = static_cast<double>(c.Y) - a.Y;
  // Parameter of the foot of the centre, and half the chord in the same parameter.
  const double pied = (cx * dx + cy * dy) / longueur2;
  const double travers = (cx * dy - cy * dx);
  const double corde2 = r * r - travers * travers / longueur2;
  if (!(corde2 >= 0)) return 0;
  const double demi = std::sqrt(corde2 / longueur2);
  const auto place = [&](double s) {
    return PointTrace{static_cast<float>(a.X + s * dx), static_cast<float>(a.Y + s * dy), CodePD, a.Seq};
  };
  p1 = place(pied - demi);
  p2 = place(pied + demi);
  return (SurSegment(a, p1, b) ? 1 : 0) + (SurSegment(a, p2, b) ? 2 : 0);
}

void OuvreEncoches(std::vector<PointTrace>& points, double t) {
  // Without a radius there is no bridge.
  if (!(t > 0)) return;
  const auto estMarque = [](const PointTrace& p) { return p.Cde == CodePC; };
  if (std::none_of(points.begin(), points.end(), estMarque)) return;
  std::vector<PointTrace> resultat;
  resultat.reserve(points.size() + 16);
  for (auto debut = points.begin(); debut != points.end();) {
    const auto fin = std::find_if(debut, points.end(), [&](const PointTrace& p) { return p.Seq != debut->Seq; });
    if (std::none_of(debut, fin, estMarque)) {
      resultat.insert(resultat.end(), debut, fin);
    } else {
      Chaine piece(debut, fin);
      OuvrePiece(piece, t);
      resultat.insert(resultat.end(), piece.begin(), piece.end());
    }
    debut = fin;
  }
  points.swap(resultat);
}

void PoseEncoches(std::vector<PointTrace>& points) { OuvreEncoches(points, LargeurEncoche / 2 + RayonFraise); }

}  // namespace ovelin
