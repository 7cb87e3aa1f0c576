#include "toolpath/traces/Encoches.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

#include "toolpath/chemins/Etendues.h"
#include "toolpath/traces/PieceEnBlocs.h"

namespace ovelin {

namespace {

constexpr double ToleranceSegment = 1e-6;  // mm, excess of the way over the candidate

bool SurSegment(const PointTrace& a, const PointTrace& p, const PointTrace& b) {
  return DistancePoints(a, p) + DistancePoints(p, b) - DistancePoints(a, b) < ToleranceSegment;
}

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

// The notches of one piece:
//
//     PD ----PE====PE==PC==PE=====PD---- PD      ==== inside the circle of radius t around the mark
//            entry                exit
//
// Only marks whose circle holds neither end of the piece are opened, so that every search ends inside it.
class Ouvreur {
 public:
  Ouvreur(std::span<const PointTrace> points, double t) : piece_(points), t_(t) {}

  void OuvreTout() {
    Place i = piece_.Premiere();
    while (!piece_.EstDerniere(i)) {
      const PointTrace& p = piece_.Point(i);
      const bool ouvre = p.Cde == CodePC && DistancePoints(p, piece_.Point(piece_.Premiere())) > t_ &&
                         DistancePoints(p, piece_.Point(piece_.Derniere())) > t_;
      if (ouvre) Ouvre(i);
      // Behind a notch the search goes on two places behind its mark: directly behind the exit when the notch holds
      // the mark alone.
      for (int pas = ouvre ? 2 : 1; pas > 0 && !piece_.EstDerniere(i); --pas) i = piece_.Suivante(i);
    }
  }
  std::size_t Rend(std::vector<PointTrace>& sortie) {
    piece_.Rend(sortie);
    return examines_;
  }

 private:
  using Place = PieceEnBlocs::Place;

  void Ouvre(Place& marque) {
    PointTrace croisement = Franchit<true>(marque);
    croisement.Cde = CodePD;
    piece_.Insere(piece_.Precedente(dehors_), croisement, marque);
    croisement = Franchit<false>(marque);
    croisement.Cde = CodePE;
    piece_.Insere(dehors_, croisement, marque);
  }

  // From the mark on, forward or backward, to the crossing; `dehors_` is the first point behind it. What lies
  // between is marked.
  template <bool Avant>
  PointTrace Franchit(Place place) {
    const PointTrace marque = piece_.Point(place);
    PointTrace p1;
    PointTrace p2;
    PointTrace croisement;
    while (true) {
      dehors_ = Voisine<Avant>(place);
      if (dehors_.bloc != place.bloc) dehors_ = PasseBlocs<Avant>(place, marque);
      ++examines_;
      const PointTrace& proche = piece_.Point(place);
      const PointTrace& loin = piece_.Point(dehors_);
      const int inter = Avant ? InterCercleSegment(proche, loin, marque, t_, p1, p2)
                              : InterCercleSegment(loin, proche, marque, t_, p1, p2);
      const bool bout = Avant ? piece_.EstDerniere(dehors_) : piece_.EstPremiere(dehors_);
      if (Traversee(proche, loin, marque, t_, bout, inter, p1, p2, croisement)) break;
      piece_.Rentre(dehors_);
      place = dehors_;
    }
    return {croisement.X, croisement.Y, CodePD, marque.Seq};
  }

  template <bool Avant>
  [[nodiscard]] Place Voisine(Place p) const {
    return Avant ? piece_.Suivante(p) : piece_.Precedente(p);
  }

  // Over all blocks that lie inside the circle by more than the rounding of 32 bits and the tolerance can move a
  // candidate: no segment in them can hold a crossing. `place` comes to the last point passed; the next one is the
  // result.
  template <bool Avant>
  Place PasseBlocs(Place& place, const PointTrace& marque) {
    constexpr double arrondi = 16.0 * std::numeric_limits<float>::epsilon();
    const double etendue = std::abs(double{marque.X}) + std::abs(double{marque.Y}) + 2 * t_;
    const double sur = t_ - 10 * ToleranceSegment - arrondi * etendue;
    Place suivante = Voisine<Avant>(place);
    // The ends of the piece lie outside, so there is always a block that is not passed.
    while (DistancePoints(piece_.Point(place), marque) < sur && piece_.Contenu(suivante.bloc, marque, sur)) {
      ++examines_;
      piece_.RentreBloc(suivante.bloc);
      place = piece_.Bout(suivante.bloc, Avant);
      suivante = Voisine<Avant>(place);
    }
    return suivante;
  }

  PieceEnBlocs piece_;
  double t_;
  Place dehors_;
  std::size_t examines_ = 0;
};

}  // namespace

int InterCercleSegment(const PointTrace& a, const PointTrace& b, const PointTrace& c, double r, PointTrace& p1,
                       PointTrace& p2) {
  const double dx = Ecart(a.X, b.X);
  const double dy = Ecart(a.Y, b.Y);
  const double longueur2 = dx * dx + dy * dy;
  if (!(longueur2 > 0)) return 0;
  const double cx = Ecart(a.X, c.X);
  const double cy = Ecart(a.Y, c.Y);
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

std::size_t OuvreEncoches(std::vector<PointTrace>& points, double t) {
  // Without a radius there is no bridge.
  if (!(t > 0)) return 0;
  const auto estMarque = [](const PointTrace& p) { return p.Cde == CodePC; };
  if (std::none_of(points.begin(), points.end(), estMarque)) return 0;
  std::vector<PointTrace> resultat;
  resultat.reserve(points.size() + 16);
  std::size_t examines = 0;
  for (auto debut = points.begin(); debut != points.end();) {
    const auto fin = std::find_if(debut, points.end(), [&](const PointTrace& p) { return p.Seq != debut->Seq; });
    if (std::none_of(debut, fin, estMarque)) {
      resultat.insert(resultat.end(), debut, fin);
    } else {
      Ouvreur ouvreur({debut, fin}, t);
      ouvreur.OuvreTout();
      examines += ouvreur.Rend(resultat);
    }
    debut = fin;
  }
  points.swap(resultat);
  return examines;
}

}  // namespace ovelin
