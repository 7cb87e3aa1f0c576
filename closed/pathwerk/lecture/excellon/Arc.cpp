// Arcs of routes.
#include "closed/pathwerk/lecture/excellon/Arc.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "closed/pathwerk/commun/Courbes.h"

namespace pathwerk::lecture::excellon {

namespace {

// Old writers give I and J without sign: the signs under which the end lies on the circle are taken, those that
// stand there first.
Vec2 CentreIJ(Vec2 debut, Vec2 fin, double i, double j) {
  Vec2 centre;
  double erreur = -1;
  for (const Vec2 signe : {Vec2{1, 1}, Vec2{-1, 1}, Vec2{1, -1}, Vec2{-1, -1}}) {
    const Vec2 c{debut.x + signe.x * i, debut.y + signe.y * j};
    const double e = std::fabs(std::hypot(c.x - fin.x, c.y - fin.y) - std::hypot(i, j));
    if (erreur < 0 || e < erreur - 0.005) {
      erreur = e;
      centre = c;
    }
  }
  return centre;
}

// The centre of the lesser arc lies to the left of the chord for a counter-clockwise one. A radius too small to
// reach is taken as half the chord.
Vec2 CentreRayon(Vec2 debut, Vec2 fin, double a, double sens) {
  const double dx = fin.x - debut.x;
  const double dy = fin.y - debut.y;
  const double corde = std::hypot(dx, dy);
  const double r = std::max(std::fabs(a), corde / 2);
  const double h = std::sqrt(std::max(0.0, r * r - corde * corde / 4)) * sens;
  return {(debut.x + fin.x) / 2 - dy / corde * h, (debut.y + fin.y) / 2 + dx / corde * h};
}

}  // namespace

void AjouteArcRoute(std::vector<Vec2>& route, Vec2 fin, bool horaire, const MotsArc& mots, double fleche) {
  const Vec2 debut = route.back();
  const double sens = horaire ? -1 : 1;
  Vec2 centre;
  if (mots.i || mots.j) {
    centre = CentreIJ(debut, fin, mots.i.value_or(0), mots.j.value_or(0));
  } else if (mots.a && debut != fin) {
    centre = CentreRayon(debut, fin, *mots.a, sens);
  } else {
    if (debut != fin) route.push_back(fin);
    return;
  }
  const double rayon = std::hypot(debut.x - centre.x, debut.y - centre.y);
  const double angle = std::atan2(debut.y - centre.y, debut.x - centre.x);
  double balayage = std::atan2(fin.y - centre.y, fin.x - centre.x) - angle;
  while (balayage * sens <= 1e-12) balayage += sens * 2 * std::numbers::pi;
  AjouteArc(route, centre, rayon, angle, balayage, fleche);
  route.back() = fin;  // to the last digit
}

}  // namespace pathwerk::lecture::excellon
