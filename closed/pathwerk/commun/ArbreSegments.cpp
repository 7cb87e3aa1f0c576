#include "closed/pathwerk/commun/ArbreSegments.h"

#include <algorithm>

#include "closed/pathwerk/commun/Suites.h"

namespace pathwerk {

namespace {

constexpr std::size_t Peu = 8;  // segments

// Sign of the turn a -> b -> p, with everything too near to call counted as 0.
int Orientation(Vec2 a, Vec2 b, Vec2 p) {
  const Vec2 u = b - a;
  const Vec2 v = p - a;
  const double c = Vectoriel(u, v);
  const double bruit = 1e-14 * (std::abs(u.x) + std::abs(u.y)) * (std::abs(v.x) + std::abs(v.y)) + 1e-300;
  return c > bruit ? 1 : c < -bruit ? -1 : 0;
}

// Squared distance of two segments, mm2; 0 where they cross.
double Distance2EntreSegments(const Segment& s, const Segment& t) {
  const int o1 = Orientation(s.a, s.b, t.a), o2 = Orientation(s.a, s.b, t.b);
  const int o3 = Orientation(t.a, t.b, s.a), o4 = Orientation(t.a, t.b, s.b);
  if (o1 * o2 < 0 && o3 * o4 < 0) return 0;
  return std::min({LieuSurSegment(s, t.a).distance2, LieuSurSegment(s, t.b).distance2,
                   LieuSurSegment(t, s.a).distance2, LieuSurSegment(t, s.b).distance2});
}

}  // namespace

std::vector<Segment> SegmentsDe(const Chemin& chemin, bool ferme) {
  std::vector<Segment> s(base::NbAretes(chemin, ferme));
  for (std::size_t i = 0; i < s.size(); ++i) s[i] = base::Arete(chemin, i);
  return s;
}

ArbreSegments::ArbreSegments(std::vector<Segment> segments)
    : segments_(std::move(segments)), arbre_(segments_.size(), [this](std::size_t i, base::Boite<double>& b) {
        b.Etend(segments_[i].a.x, segments_[i].a.y);
        b.Etend(segments_[i].b.x, segments_[i].b.y);
      }) {}

Lieu ArbreSegments::PlusProche(Vec2 p) const {
  return PlusProche(p, std::numeric_limits<double>::infinity(), [](std::size_t) { return true; });
}

bool SeTouchent(const Segment& s, const Segment& r, std::size_t i, std::size_t j, std::size_t n) {
  const bool suivant = j == i + 1;
  const bool boucle = i == 0 && j + 1 == n;
  if (suivant || boucle) {
    if (n == 2) return true;  // there and back
    const Vec2 u = suivant ? s.b - s.a : r.b - r.a;
    const Vec2 v = suivant ? r.b - r.a : s.b - s.a;
    const Vec2 origine = suivant ? s.b : r.b;
    return Scalaire(u, v) < 0 && Orientation(origine, origine + u, origine + v) == 0;
  }
  if (std::max(s.a.x, s.b.x) < std::min(r.a.x, r.b.x) || std::max(r.a.x, r.b.x) < std::min(s.a.x, s.b.x) ||
      std::max(s.a.y, s.b.y) < std::min(r.a.y, r.b.y) || std::max(r.a.y, r.b.y) < std::min(s.a.y, s.b.y)) {
    return false;
  }
  return Orientation(s.a, s.b, r.a) * Orientation(s.a, s.b, r.b) <= 0 &&
         Orientation(r.a, r.b, s.a) * Orientation(r.a, r.b, s.b) <= 0;
}

void ArbreSegments::Marque(std::vector<std::uint8_t>& marques, std::size_t debut, std::size_t fin) const {
  marques.resize(arbre_.Noeuds(), 0);
  if (debut >= fin) return;
  for (std::size_t f = arbre_.FeuilleDe(debut), derniere = arbre_.FeuilleDe(fin - 1); f <= derniere; ++f) {
    for (std::size_t k = f; k >= 1 && marques[k] == 0; k /= 2) marques[k] = 1;
  }
}

bool ArbreSegments::PassePres(const Segment& s, double distance) const {
  const Vec2 n = Gauche(Unite(s.b - s.a));
  const double x0 = std::min(s.a.x, s.b.x) - distance, x1 = std::max(s.a.x, s.b.x) + distance;
  const double y0 = std::min(s.a.y, s.b.y) - distance, y1 = std::max(s.a.y, s.b.y) + distance;
  const base::Boite<double> autour{x0, y0, x1, y1};
  const auto entre = [&](std::size_t k) {
    const base::Boite<double>& b = arbre_.De(k);
    if (!b.Rencontre(autour)) return false;
    // The box, seen along the segment.
    const Vec2 milieu{(b.x0 + b.x1) / 2 - s.a.x, (b.y0 + b.y1) / 2 - s.a.y};
    const double demi = ((b.x1 - b.x0) * std::abs(n.x) + (b.y1 - b.y0) * std::abs(n.y)) / 2;
    return std::abs(Scalaire(n, milieu)) <= demi + distance;
  };
  return !arbre_.Parcourt(entre, ADroite, [&](std::size_t feuille) {
    for (std::size_t i = arbre_.Debut(feuille), fin = arbre_.Fin(feuille); i < fin; ++i) {
      if (Distance2EntreSegments(segments_[i], s) < distance * distance) return false;
    }
    return true;
  });
}

// Of a few segments all pairs are looked at sooner than a tree is built.
bool PeutSeCroiser(const Chemin& boucle) {
  const std::size_t n = boucle.size();
  if (n > Peu) return ArbreSegments(SegmentsDe(boucle, true)).PeutSeCroiser();
  if (n < 3) return n == 2;
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = i + 1; j < n; ++j) {
      if (SeTouchent(base::Arete(boucle, i), base::Arete(boucle, j), i, j, n)) return true;
    }
  }
  return false;
}

bool ArbreSegments::PeutSeCroiser() const {
  if (segments_.size() < 3) return !segments_.empty();
  const Suites suites(arbre_, true,
                      [this](std::size_t i, Pas& pas) { pas.Ajoute(segments_[i].b - segments_[i].a); });
  return !suites.Parcourt([this](std::size_t i, std::size_t j) {
    return !SeTouchent(segments_[i], segments_[j], i, j, segments_.size());
  });
}

}  // namespace pathwerk
