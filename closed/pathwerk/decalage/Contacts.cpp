#include "closed/pathwerk/decalage/Contacts.h"

#include <algorithm>
#include <cmath>

#include "base/Indices.h"

namespace pathwerk::decalage {

namespace {

// Leaves near one of them: more make a crowd, of which all is taken to touch.
constexpr std::size_t FeuillesMax = 64;

}  // namespace

Contacts::Contacts(const Chemin& chemin)
    : chemin_(chemin),
      arbre_(chemin.size() - 1,
             [&chemin](std::size_t i, base::Boite<double>& b) {
               b.Etend(chemin[i].x, chemin[i].y);
               b.Etend(chemin[i + 1].x, chemin[i + 1].y);
             }),
      cherche_(arbre_.Noeuds() - arbre_.Feuilles(), 0),
      sommets_(chemin.size(), 0),
      segments_(chemin.size() - 1, 0) {}

bool Contacts::Sommet(std::size_t i) {
  Cherche(arbre_.FeuilleDe(std::min(i, segments_.size() - 1)));
  return sommets_[i] != 0;
}

bool Contacts::DuSegment(std::size_t s) {
  Cherche(arbre_.FeuilleDe(s));
  return segments_[s] != 0 || sommets_[s] != 0 || Sommet(s + 1);
}

bool Contacts::Touche(std::size_t segment, std::size_t sommet) const {
  if (sommet == segment || sommet == segment + 1) return false;
  const Vec2 a = chemin_[segment];
  const Vec2 b = chemin_[segment + 1];
  const Vec2 p = chemin_[sommet];
  if (p.x < std::min(a.x, b.x) - Portee || p.x > std::max(a.x, b.x) + Portee || p.y < std::min(a.y, b.y) - Portee ||
      p.y > std::max(a.y, b.y) + Portee) {
    return false;
  }
  return LieuSurSegment({a, b}, p).distance2 <= Portee * Portee;
}

bool Contacts::Compare(std::size_t feuille, std::size_t autre) {
  const std::size_t n = segments_.size();
  bool tous = true;
  const auto note = [&tous](std::uint8_t& marque, auto touche) {
    if (marque == 0) marque = touche() ? 1 : 0;
    tous = tous && marque != 0;
  };
  for (std::size_t i = arbre_.Debut(feuille), fin = arbre_.Fin(feuille); i < fin; ++i) {
    for (std::size_t j = arbre_.Debut(autre), finAutre = arbre_.Fin(autre); j < finAutre; ++j) {
      note(sommets_[i], [&] { return Touche(j, i); });
      note(segments_[i], [&] { return Touche(i, j); });
      // The end of the path belongs to its last segment.
      if (i + 1 == n) note(sommets_[n], [&] { return Touche(j, n); });
      if (j + 1 == n) note(segments_[i], [&] { return Touche(i, n); });
    }
  }
  return tous;
}

void Contacts::TouchePartout(std::size_t feuille) {
  const std::size_t debut = arbre_.Debut(feuille);
  const std::size_t fin = arbre_.Fin(feuille);
  std::fill(base::Iterateur(segments_, debut), base::Iterateur(segments_, fin), 1);
  std::fill(base::Iterateur(sommets_, debut), base::Iterateur(sommets_, fin), 1);
  if (fin == segments_.size()) sommets_.back() = 1;
}

void Contacts::Cherche(std::size_t feuille) {
  std::uint8_t& fait = cherche_[feuille - arbre_.Feuilles()];
  if (fait != 0) return;
  fait = 1;
  base::Boite<double> b = arbre_.De(feuille);
  b = {b.x0 - Portee, b.y0 - Portee, b.x1 + Portee, b.y1 + Portee};
  const Vec2 m{(b.x0 + b.x1) / 2, (b.y0 + b.y1) / 2};
  std::size_t vues = 0;
  arbre_.Parcourt([&](std::size_t k) { return b.Rencontre(arbre_.De(k)); },
                  [&](std::size_t k) {
                    return base::Distance2(arbre_.De(2 * k), m) < base::Distance2(arbre_.De(2 * k + 1), m);
                  },
                  [&](std::size_t autre) {
                    if (++vues <= FeuillesMax) return !Compare(feuille, autre);
                    TouchePartout(feuille);
                    return false;
                  });
}

}  // namespace pathwerk::decalage
