#include "closed/pathwerk/decalage/Contacts.h"

#include <algorithm>
#include <cmath>

#include "base/Indices.h"

namespace pathwerk::decalage {

namespace {

// Leaves near one of them: more make a crowd.
constexpr std::size_t FeuillesMax = 64;

// The directions, of eight, in which a step goes on by more than the reach of a touch: of two steps or more along
// one of them the ends are farther apart than that from all that lies before and behind.
std::uint8_t Avance(Vec2 d) {
  constexpr double Diagonale = Contacts::Portee * 1.4143;
  const double v[4] = {d.x, d.y, d.x + d.y, d.x - d.y};
  unsigned bits = 0;
  for (unsigned i = 0; i < 4; ++i) {
    const double seuil = i < 2 ? Contacts::Portee : Diagonale;
    if (v[i] > seuil) bits |= 1U << (2 * i);
    if (v[i] < -seuil) bits |= 2U << (2 * i);
  }
  return static_cast<std::uint8_t>(bits);
}

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
      avance_(arbre_.Noeuds() - arbre_.Feuilles(), 0xFF),
      su_(arbre_.Noeuds() - arbre_.Feuilles(), 0),
      sommets_(chemin.size(), 0),
      segments_(chemin.size() - 1, 0) {
  for (std::size_t i = 0; i + 1 < chemin.size(); ++i) {
    std::uint8_t& a = avance_[arbre_.FeuilleDe(i) - arbre_.Feuilles()];
    a = static_cast<std::uint8_t>(a & Avance(chemin[i + 1] - chemin[i]));
  }
}

bool Contacts::VontEnsemble(std::size_t feuille, std::size_t autre) const {
  if (feuille > autre + 1 || autre > feuille + 1) return false;
  return (avance_[feuille - arbre_.Feuilles()] & avance_[autre - arbre_.Feuilles()]) != 0;
}

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
                    if (VontEnsemble(feuille, autre)) return true;
                    const bool tous = Compare(feuille, autre);
                    assez = !tous && marque != nullptr && *marque != 0;
                    return !tous && !assez;
                  });
  if (!assez) su_[feuille - arbre_.Feuilles()] = foule ? Foule : Tout;
}

}  // namespace pathwerk::decalage
