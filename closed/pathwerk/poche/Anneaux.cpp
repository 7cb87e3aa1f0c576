// Ring k lies at the distance l_k = R + k s from the outline, s = 2 R (100 - recouvrement) / 100. Each ring is
// computed from the outline, not from the ring before it, so errors don't add up.
//
// What rings leave standing: a place at the depth e, l_k < e < l_k+1, is e - l_k away from ring k at most (walk
// straight towards the outline). So with s <= R nothing is left. With a longer step places deeper than l_k + R that
// ring k+1 doesn't reach either stay uncut: spots in corners, and the middle behind the last ring:
//
//     +-----------------------
//     | .---------------------  ring k
//     | |  .------------------  depth l_k + R ("fond")
//     | |  |* spot
//     | |  |  .---------------  ring k+1
//
// They are cleared by milling those stretches of the fond that are out of reach of ring k+1. Take a spot's place p,
// out of reach R of ring k+1, and go straight towards the outline to p' on the fond, s - R <= R away. Is p' out of
// reach too, so that it is milled and clears p? Let q be the outline's place they go to. All of ring k+1 lies
// outside of the disc of the radius b = l_k + s around q, in which p lies. If p' were within t of a place of the
// ring, p would be within
//
//     sqrt(b / (l_k + R) * (t^2 - (s - R)^2))
//
// of it, and that is at most R for t^2 <= 2 R^3 / (R + s) + (s - R)^2, as l_k >= R. So stretches count as out of
// reach from that t on, which is R at most and never less than 0.974 R.
//
// A stretch so short that all of it is reached from one place on the way to it from ring k+1 needs no more than
// that way, out and back: the spot lies between the stretch and the ring.
#include "closed/pathwerk/poche/Anneaux.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <utility>

#include "base/Arret.h"
#include "base/Indices.h"

namespace pathwerk::poche {

using decalage::MemoireDeRegion;

namespace {

constexpr double TravailMax = 2.0e6;  // points times rings that a fill may cost before its step grows
constexpr double AnneauxMin = 200;    // ... but never below so many rings
constexpr double AnneauxMax = 2000;
constexpr double AnneauxLimite = 20000;  // rings of a cutter far too thin for its pocket

// Greatest depth that the region can have, from its box and its area. Islands that cross others have no area of
// their own, and only make it less.
double ProfondeurMax(const Region& region) {
  double x0 = 1e300, x1 = -1e300, y0 = 1e300, y1 = -1e300, aire = 0;
  for (const Chemin& c : std::span(region.contours).first(region.contours.size() - region.iles)) {
    aire += Aire(c);
    for (const Vec2 p : c) {
      x0 = std::min(x0, p.x);
      x1 = std::max(x1, p.x);
      y0 = std::min(y0, p.y);
      y1 = std::max(y1, p.y);
    }
  }
  return std::min({(x1 - x0) / 2, (y1 - y0) / 2, std::sqrt(std::abs(aire) / std::numbers::pi)});
}

// Distance between rings. Rings that would just touch come a hair nearer to each other, so that no ridge as high as
// their error stays between them. An overlap so high that the rings would take minutes gets a longer step, up to R,
// where the fill is still complete; beyond the last limit the step grows further.
double Pas(const Region& region, double rayon, int recouvrement, double tolerance) {
  const double part = (100 - std::clamp(recouvrement, 0, 100)) / 100.0;
  double points = 0;
  for (const Chemin& c : region.contours) points += static_cast<double>(c.size());
  const double profondeur = ProfondeurMax(region);
  const double anneaux = std::clamp(TravailMax / points, AnneauxMin, AnneauxMax);
  double pas = std::min(2 * rayon * part, std::max(rayon, 2 * (rayon - tolerance)));
  pas = std::max(pas, std::min(rayon, profondeur / anneaux));
  pas = std::max({pas, tolerance, profondeur / AnneauxLimite});
  return pas;
}

// Loops at `profondeur` inside the outline, in the sense of travel; none where they can't be computed.
std::optional<std::vector<Boucle>> BouclesA(const Region& region, double profondeur, double tolerance, bool horaire,
                                            bool origines, MemoireDeRegion& memoire) {
  std::vector<Chemin> b;
  std::vector<Origines> o;
  const double d = region.signe > 0 ? profondeur : -profondeur;
  if (!DecaleRegion(region, d, tolerance, b, origines ? &o : nullptr, memoire)) return std::nullopt;
  std::vector<Boucle> r;
  for (std::size_t k = 0; k < b.size(); ++k) {
    if (b[k].empty()) continue;
    Boucle boucle{std::move(b[k]), {}};
    if (origines) boucle.origines = Remonte(region, std::move(o[k]));
    if ((region.signe < 0) != horaire) Retourne(boucle.points, boucle.origines);
    r.push_back(std::move(boucle));
  }
  return r;
}

// A stretch of a path cut so fine that each edge is near or far as a whole.
struct Coupe {
  Vec2 a;
  bool sommet;  // a point of the path itself
  bool loin;    // from here to the next
};

class Trieur {
 public:
  Trieur(const ArbreSegments& atteint, double portee, double finesse)
      : atteint_(atteint), portee2_(portee * portee), finesse_(finesse) {}

  [[nodiscard]] std::vector<Coupe> Trie(const Chemin& boucle) const {
    std::vector<Coupe> r;
    const std::size_t n = boucle.size();
    Lieu ici = atteint_.PlusProche(boucle[0]);
    const Lieu premier = ici;
    for (std::size_t i = 0; i < n; ++i) {
      if (i % 256 == 255 && base::ArretDemande()) break;
      const Lieu la = i + 1 < n ? Trouve(boucle[i + 1], ici.segment) : premier;
      Divise(boucle[i], true, ici, boucle[base::Suivant(i, n)], la, r);
      ici = la;
    }
    return r;
  }

 private:
  // Near as a whole are edges whose ends are near to one and the same segment: the places near a segment are
  // convex.
  void Divise(Vec2 a, bool sommet, const Lieu& la, Vec2 b, const Lieu& lb, std::vector<Coupe>& r) const {
    const bool pa = la.distance2 <= portee2_;
    const bool pb = lb.distance2 <= portee2_;
    const bool court = Norme(b - a) <= finesse_;
    if ((pa && Pres(la.segment, b)) || (pb && Pres(lb.segment, a)) || (court && pa && pb)) {
      r.push_back({a, sommet, false});
    } else if (court || la.distance2 > Carre(std::sqrt(portee2_) + Norme(b - a))) {
      r.push_back({a, sommet, true});
    } else {
      const Vec2 m = (a + b) * 0.5;
      const Lieu lm = atteint_.PlusProche(m);
      Divise(a, sommet, la, m, lm, r);
      Divise(m, false, lm, b, lb, r);
    }
  }
  // A place within reach, if there is one: mostly on the segment of the last one or just behind it, as the path and
  // what it is held against run side by side. Else the nearest of all.
  [[nodiscard]] Lieu Trouve(Vec2 p, std::size_t dernier) const {
    const std::vector<Segment>& segments = atteint_.Segments();
    for (std::size_t k = dernier, fin = std::min(dernier + Regard, segments.size()); k < fin; ++k) {
      Lieu l = LieuSurSegment(segments[k], p);
      l.segment = k;
      if (l.distance2 <= portee2_) return l;
    }
    return atteint_.PlusProche(p);
  }
  [[nodiscard]] bool Pres(std::size_t segment, Vec2 p) const {
    return LieuSurSegment(atteint_.Segments()[segment], p).distance2 <= portee2_;
  }
  static double Carre(double x) { return x * x; }

  static constexpr std::size_t Regard = 3;
  const ArbreSegments& atteint_;
  double portee2_;
  double finesse_;
};

}  // namespace

double PorteeDuSuivant(double rayon, double pas) {
  const double u = pas / rayon;
  return rayon * std::min(1.0, std::sqrt(2 / (1 + u) + (u - 1) * (u - 1)));
}

std::vector<Reste> HorsDAtteinte(const Chemin& fond, const ArbreSegments& atteint, double portee, double tolerance,
                                 const Acces& acces) {
  std::vector<Reste> restes;
  if (fond.empty()) return restes;
  if (atteint.Segments().empty()) {
    restes.push_back({fond, true});
    return restes;
  }
  const std::vector<Coupe> coupes = Trieur(atteint, portee, tolerance / 4).Trie(fond);
  const std::size_t n = coupes.size();
  const auto pres = std::find_if(coupes.begin(), coupes.end(), [](const Coupe& c) { return !c.loin; });
  if (pres == coupes.end()) {
    restes.push_back({fond, true});
    return restes;
  }
  const auto debut = base::Indice(pres - coupes.begin());
  Chemin troncon;
  for (std::size_t k = 1; k <= n; ++k) {
    const Coupe& c = coupes[(debut + k) % n];
    if (c.loin) {
      if (c.sommet || troncon.empty()) troncon.push_back(c.a);
      continue;
    }
    if (troncon.empty()) continue;
    troncon.push_back(c.a);
    if (!acces.Libre(troncon.back(), troncon.front())) {
      for (std::size_t i = troncon.size() - 1; i-- > 1;) troncon.push_back(troncon[i]);
    }
    restes.push_back({std::move(troncon), false});
    troncon.clear();
  }
  return restes;
}

std::optional<Vec2> PlacePresDeTous(const Chemin& points, Vec2 de, Vec2 vers, double portee) {
  const Vec2 v = vers - de;
  const double l2 = Scalaire(v, v);
  if (!(l2 > 0)) return std::nullopt;
  double debut = 0;
  double fin = 1;
  for (const Vec2 p : points) {
    const double milieu = Scalaire(p - de, v) / l2;
    const Vec2 ecart = de + v * milieu - p;
    const double reste = portee * portee - Scalaire(ecart, ecart);
    if (reste < 0) return std::nullopt;
    const double demi = std::sqrt(reste / l2);
    debut = std::max(debut, milieu - demi);
    fin = std::min(fin, milieu + demi);
  }
  if (debut > fin) return std::nullopt;
  return de + v * debut;
}

namespace {

// What these rings leave too deep for them, where the next ones may not reach it. `suivant`: whether there are any;
// they were computed last. False: it could not be computed.
bool AjouteFond(const Region& region, const Remplissage& r, bool suivant, Niveau& niveau,
                MemoireDeRegion& memoire) {
  // A hair deeper, so that a band of twice the cutter's width, which the ring just clears, has none.
  const double fond = niveau.profondeur + r.rayon + r.tolerance / 4;
  const double signe = region.signe > 0 ? 1 : -1;
  if (suivant && DansLaPortee(region, memoire, signe * fond, signe * (niveau.profondeur + r.pas),
                              PorteeDuSuivant(r.rayon, r.pas), r.tolerance)) {
    return true;
  }
  auto boucles = BouclesA(region, fond, r.tolerance, r.horaire, false, memoire);
  if (!boucles) return false;
  for (Boucle& b : *boucles) niveau.fond.push_back(std::move(b.points));
  return true;
}

}  // namespace

std::optional<Remplissage> Anneaux(const Region& region, double distance, int recouvrement, double tolerance) {
  Remplissage r;
  r.rayon = std::abs(distance);
  r.tolerance = tolerance;
  r.pas = Pas(region, r.rayon, recouvrement, tolerance);
  r.horaire = distance < 0;
  // A step stretched beyond the cutter's width can't be made good.
  const bool restes = recouvrement <= 100 && r.pas > r.rayon && r.pas <= 2.001 * r.rayon;
  MemoireDeRegion memoire;
  for (std::size_t k = 0;; ++k) {
    if (base::ArretDemande()) return std::nullopt;
    Niveau niveau;
    niveau.profondeur = r.rayon + static_cast<double>(k) * r.pas;
    auto anneaux = BouclesA(region, niveau.profondeur, tolerance, r.horaire, k == 0, memoire);
    if (!anneaux) return std::nullopt;
    if (restes && k > 0 && !AjouteFond(region, r, !anneaux->empty(), r.niveaux.back(), memoire))
      return std::nullopt;
    if (anneaux->empty()) break;
    niveau.anneaux = std::move(*anneaux);
    r.niveaux.push_back(std::move(niveau));
    if (recouvrement > 100) break;
  }
  return r;
}

}  // namespace pathwerk::poche
