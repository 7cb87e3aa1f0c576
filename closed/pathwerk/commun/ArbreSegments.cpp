#include "closed/pathwerk/commun/ArbreSegments.h"

#include <algorithm>
#include <bit>

#include "base/Arret.h"

namespace pathwerk {

namespace {

// Nodes near the root, at each of which a wish to end is looked for: what lies below one takes a few milliseconds.
constexpr std::size_t NoeudsHauts = 4096;
constexpr std::size_t Peu = 8;  // segments

// Senses that occur in a run of segments, two bits for each of four axes (x, y, and the two diagonals): "some
// segment doesn't go up" and "some segment doesn't go down". A run that goes strictly one way along an axis can't
// meet itself, however long it is.
constexpr std::uint8_t Sens(Vec2 d) {
  const double v[4] = {d.x, d.y, d.x + d.y, d.x - d.y};
  unsigned bits = 0;
  for (unsigned i = 0; i < 4; ++i) {
    if (!(v[i] > 0)) bits |= 1U << (2 * i);
    if (!(v[i] < 0)) bits |= 2U << (2 * i);
  }
  return static_cast<std::uint8_t>(bits);
}

constexpr bool Monotone(unsigned bits) {
  for (unsigned i = 0; i < 4; ++i) {
    if (((bits >> (2 * i)) & 3U) != 3U) return true;
  }
  return false;
}

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

namespace {

// Do the segments i < j of n, s and r, meet anywhere but in the vertex that neighbours share?
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

}  // namespace

bool ArbreSegments::CroiseDans(std::size_t k, const std::vector<std::uint8_t>& sens) const {
  if (k < NoeudsHauts && base::ArretDemande()) return true;
  if (Monotone(sens[k])) return false;
  if (arbre_.EstFeuille(k)) {
    const std::size_t fin = arbre_.Fin(k);
    for (std::size_t i = arbre_.Debut(k); i < fin; ++i) {
      for (std::size_t j = i + 1; j < fin; ++j) {
        if (SeTouchent(segments_[i], segments_[j], i, j, segments_.size())) return true;
      }
    }
    return false;
  }
  return CroiseDans(2 * k, sens) || CroiseDans(2 * k + 1, sens) || CroiseEntre(2 * k, 2 * k + 1, sens);
}

bool ArbreSegments::CroiseEntre(std::size_t g, std::size_t d, const std::vector<std::uint8_t>& sens) const {
  if (!arbre_.De(g).Rencontre(arbre_.De(d))) return false;
  if (g < NoeudsHauts && base::ArretDemande()) return true;
  // Two runs joined end to end that go one way together. The far ends may join too, but only in a closed path,
  // and that can't go one way.
  if (arbre_.Fin(g) == arbre_.Debut(d) && Monotone(static_cast<unsigned>(sens[g] | sens[d]))) return false;
  if (arbre_.Debut(g) == 0 && arbre_.Fin(d) == segments_.size() &&
      Monotone(static_cast<unsigned>(sens[g] | sens[d]))) {
    return false;
  }
  const bool feuilleG = arbre_.EstFeuille(g);
  const bool feuilleD = arbre_.EstFeuille(d);
  if (feuilleG && feuilleD) {
    for (std::size_t i = arbre_.Debut(g), finG = arbre_.Fin(g); i < finG; ++i) {
      for (std::size_t j = arbre_.Debut(d), finD = arbre_.Fin(d); j < finD; ++j) {
        if (SeTouchent(segments_[i], segments_[j], i, j, segments_.size())) return true;
      }
    }
    return false;
  }
  // The greater box is halved; leaves stay whole.
  if (feuilleD || std::bit_width(g) < std::bit_width(d)) {
    return CroiseEntre(2 * g, d, sens) || CroiseEntre(2 * g + 1, d, sens);
  }
  return CroiseEntre(g, 2 * d, sens) || CroiseEntre(g, 2 * d + 1, sens);
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
  std::vector<std::uint8_t> sens(arbre_.Noeuds(), 0);
  for (std::size_t i = 0; i < segments_.size(); ++i) {
    sens[arbre_.FeuilleDe(i)] |= Sens(segments_[i].b - segments_[i].a);
  }
  for (std::size_t k = arbre_.Feuilles() - 1; k >= 1; --k) {
    sens[k] = static_cast<std::uint8_t>(sens[2 * k] | sens[2 * k + 1]);
  }
  return CroiseDans(1, sens);
}

}  // namespace pathwerk
