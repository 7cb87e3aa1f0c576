#include "closed/pathwerk/decalage/Contacts.h"

#include <algorithm>
#include <cmath>

#include "base/Indices.h"

namespace pathwerk::decalage {

namespace {

// Leaves near one of them: more make a crowd.
constexpr std::size_t FeuillesMax = 64;

// What is known of a leaf.
constexpr std::uint8_t Foule = 1;
constexpr std::uint8_t Tout = 2;

}  // namespace

Contacts::Contacts(const Chemin& chemin)
    : chemin_(chemin),
      arbre_(chemin.size() - 1,
             [&chemin](std::size_t i, base::Boite<double>& b) {
               b.Etend(chemin[i].x, chemin[i].y);
               b.Etend(chemin[i + 1].x, chemin[i + 1].y);
             }),
      su_(arbre_.Noeuds() - arbre_.Feuilles(), 0),
      sommets_(chemin.size(), 0),
      segments_(chemin.size() - 1, 0) {}

bool Contacts::Sommet(std::size_t i) {
  return Trouve(arbre_.FeuilleDe(std::min(i, segments_.size() - 1)), sommets_[i]);
}

bool Contacts::Peut(std::size_t s) {
  const std::size_t feuille = arbre_.FeuilleDe(s);
  const std::size_t apres = arbre_.FeuilleDe(std::min(s + 1, segments_.size() - 1));
  if (Su(feuille) == 0) Cherche(feuille, FeuillesMax, nullptr);
  if (Su(apres) == 0) Cherche(apres, FeuillesMax, nullptr);
  return Su(feuille) == Foule || Su(apres) == Foule || segments_[s] != 0 || sommets_[s] != 0 ||
         sommets_[s + 1] != 0;
}

bool Contacts::DuSegment(std::size_t s) {
  if (segments_[s] != 0 || sommets_[s] != 0 || sommets_[s + 1] != 0) return true;
  return Trouve(arbre_.FeuilleDe(s), segments_[s]) || Sommet(s) || Sommet(s + 1);
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

bool Contacts::Trouve(std::size_t feuille, const std::uint8_t& marque) {
  if (marque == 0 && Su(feuille) != Tout) Cherche(feuille, arbre_.Noeuds(), &marque);
  return marque != 0;
}

void Contacts::Cherche(std::size_t feuille, std::size_t max, const std::uint8_t* marque) {
  base::Boite<double> b = arbre_.De(feuille);
  b = {b.x0 - Portee, b.y0 - Portee, b.x1 + Portee, b.y1 + Portee};
  const Vec2 m{(b.x0 + b.x1) / 2, (b.y0 + b.y1) / 2};
  std::size_t vues = 0;
  bool foule = false;
  bool assez = false;
  arbre_.Parcourt([&](std::size_t k) { return b.Rencontre(arbre_.De(k)); },
                  [&](std::size_t k) {
                    return base::Distance2(arbre_.De(2 * k), m) < base::Distance2(arbre_.De(2 * k + 1), m);
                  },
                  [&](std::size_t autre) {
                    foule = ++vues > max;
                    if (foule) return false;
                    const bool tous = Compare(feuille, autre);
                    assez = !tous && marque != nullptr && *marque != 0;
                    return !tous && !assez;
                  });
  if (!assez) su_[feuille - arbre_.Feuilles()] = foule ? Foule : Tout;
}

}  // namespace pathwerk::decalage
