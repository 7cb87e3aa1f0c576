// Raw offset curve after X. Chen and S. McMains, "Polygon offsetting by computing winding numbers" (ASME DETC
// 2005): each segment moves sideways; outer corners get an arc, inner corners go through the corner point itself,
// so every segment sweeps its own strip and the strips only add up.
//
//   inner corner   o1 --.   .-- o2      through the corner V: strips overlap, counted twice, harmless
//                        \ /
//   ---------------------  V
//
// Two short cuts spare most of the crossings that a union would have to find. An inner corner whose strips overlap
// in a plain kite (both segments long enough) gives just the meeting point of the two parallels: the kite is then
// counted once instead of twice. An outer corner so blunt that its arc is flat within the tolerance gives one point
// on the bisector. A smooth contour so yields one point for each of its own, and no crossing at all.
//
// No strip is ever wider than the distance: all error lies on the side of the source. A strip too wide by e would
// draw the tip of a free wedge of the angle w back by e / sin(w / 2), without bound; one too narrow lets the
// border come nearer by e, and no place of the true border is farther from it than that.
//
// The lightened form leaves out runs of strips whose outer edge is buried under other strips. With C the places
// that the left-out strips cover and O those of the kept ones, the places wrongly called free are C - O. The border
// of C is made of outer edges, all more than `marge` deep in O; so C - O stays `marge` clear of them: it is
// cut off from what is truly free, and all of it but its corners, where strips end, is nearer to the source than
// R - marge.
#include "closed/pathwerk/decalage/ParalleleBrute.h"

#include <algorithm>
#include <numbers>

#include "closed/pathwerk/chemin/Simplifie.h"
#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::decalage {

namespace {

class Traceur {
 public:
  Traceur(const Chemin& chemin, double distance, double fleche)
      : chemin_(chemin), d_(distance), r_(std::abs(distance)), fleche_(fleche) {
    // Chord angle whose sagitta is `fleche`.
    pas_ = std::min(2 * std::acos(1 - std::min(fleche / r_, 1.0)), std::numbers::pi / 3);
  }

  Chemin Trace(Origines* origines) {
    const std::size_t n = chemin_.size();
    if (n < 2) return {};
    sortie_.reserve(2 * n);
    if (origines != nullptr) origines->reserve(2 * n);
    float entree = 1;  // of the first corner: share of the segment before it
    Cote avant = CoteDe(n - 1);
    for (std::size_t i = 0; i < n; ++i) {
      const Cote apres = CoteDe(i);
      const Coin c = CoinEntre(chemin_[i], avant, apres);
      avant = apres;
      const double recul = Emet(c);
      if (origines == nullptr) continue;
      const auto arrivee = static_cast<float>(1 - recul / c.la);
      (i == 0 ? entree : origines->back().a) = arrivee;
      // Around the corner, and on beside the segment behind it.
      const auto segment = Numero32(i);
      while (origines->size() + 1 < sortie_.size()) origines->push_back({segment, 0, 0});
      origines->push_back({segment, static_cast<float>(recul / c.lb), 1});
    }
    if (origines != nullptr) origines->back().a = entree;
    return std::move(sortie_);
  }

  Chemin TraceAllegee(double marge, const ArbreSegments& arbre) {
    const std::size_t n = chemin_.size();
    if (n < 2) return {};
    limite_ = r_ - marge;
    finesse_ = marge / 4;
    // Strip i belongs to the segment from point i, sector i to point i.
    std::vector<char> bande(n);
    std::vector<char> secteur(n);
    for (std::size_t i = 0; i < n; ++i) {
      const Vec2 a = chemin_[i];
      const Vec2 b = chemin_[base::Suivant(i, n)];
      const Vec2 o = Gauche(Unite(b - a)) * d_;
      bande[i] = !Enterre(a + o, b + o, arbre);
      secteur[i] = ArcLibre(CoinEn(i), arbre);
    }
    std::size_t debut = 0;
    while (debut < n && bande[debut] == 0 && secteur[debut] == 0) ++debut;
    if (debut == n) return {};
    for (std::size_t k = 0; k < n; ++k) {
      const std::size_t i = (debut + k) % n;
      const bool avant = bande[base::Precedent(i, n)] != 0;
      const bool apres = bande[i] != 0;
      const Coin c = CoinEn(i);
      if (!avant && !apres && secteur[i] == 0) {
        suivi_.push_back(c.v);
        continue;
      }
      if (!avant) {
        suivi_.push_back(c.v);
        EmetSuivi();
      }
      if (avant && apres) {
        Emet(c);
      } else {
        if (avant || secteur[i] != 0) sortie_.push_back(c.v + c.na * d_);
        if (secteur[i] != 0 && !c.interieur) Arc(c.v, c.na * d_, AngleDe(c));
        if (apres || secteur[i] != 0) sortie_.push_back(c.v + c.nb * d_);
      }
      if (!apres) suivi_.push_back(c.v);
    }
    EmetSuivi();
    return std::move(sortie_);
  }

 private:
  struct Coin {
    Vec2 v;
    double la;  // length of the segment before
    double lb;  // ... and behind
    Vec2 na;    // left normals of both
    Vec2 nb;
    double sinus;    // of the turn of the path, left positive
    double cosinus;  // ... -1 where the path turns right back
    bool interieur;  // the parallels meet before the corner
  };
  static constexpr double DemiTour = 1e-9;     // rad: a turn this near to half a turn goes right back
  static constexpr double Droit = 1e-12;       // rad: a turn less than this is none
  static constexpr double CosinusMin = -0.99;  // of an inner corner whose parallels meet

  // Left normal and length of segment i.
  struct Cote {
    Vec2 n;
    double l;
  };
  [[nodiscard]] Cote CoteDe(std::size_t i) const {
    const Vec2 w = chemin_[base::Suivant(i, chemin_.size())] - chemin_[i];
    const double l = Norme(w);
    return {Gauche(w) * (1 / l), l};
  }
  [[nodiscard]] Coin CoinEn(std::size_t i) const {
    return CoinEntre(chemin_[i], CoteDe(base::Precedent(i, chemin_.size())), CoteDe(i));
  }
  [[nodiscard]] Coin CoinEntre(Vec2 v, const Cote& avant, const Cote& apres) const {
    Coin c{v, avant.l, apres.l, avant.n, apres.n, Vectoriel(avant.n, apres.n), Scalaire(avant.n, apres.n), false};
    // A turn right back has no inner side: the curve goes around the tip.
    if (c.cosinus < 0 && std::abs(c.sinus) < DemiTour) {
      c.sinus = 0;
      c.cosinus = -1;
    }
    c.interieur = c.sinus * d_ > 0;
    return c;
  }
  // The turn, left positive.
  [[nodiscard]] double AngleDe(const Coin& c) const {
    if (c.cosinus == -1) return d_ > 0 ? -std::numbers::pi : std::numbers::pi;
    return std::atan2(c.sinus, c.cosinus);
  }
  static bool VaDroit(const Coin& c) { return c.cosinus > 0 && std::abs(c.sinus) < Droit; }

  // How much of both segments the parallels lose in the corner comes back, mm.
  double Emet(const Coin& c) {
    const double tangente = std::abs(c.sinus) / (1 + c.cosinus);  // of half the turn
    if (VaDroit(c)) {
      sortie_.push_back(c.v + c.nb * d_);
    } else if (c.interieur) {
      if (c.cosinus > CosinusMin && r_ * tangente <= 0.5 * std::min(c.la, c.lb)) {
        sortie_.push_back(c.v + (c.na + c.nb) * (d_ / (1 + c.cosinus)));
        return r_ * tangente;
      }
      sortie_.insert(sortie_.end(), {c.v + c.na * d_, c.v, c.v + c.nb * d_});
    } else if (c.cosinus > 0.5 && r_ * (1 - std::sqrt((1 + c.cosinus) / 2)) <= 0.5 * fleche_) {
      sortie_.push_back(c.v + Unite(c.na + c.nb) * d_);
    } else {
      sortie_.push_back(c.v + c.na * d_);
      Arc(c.v, c.na * d_, AngleDe(c));
      sortie_.push_back(c.v + c.nb * d_);
    }
    return 0;
  }

  static Vec2 Tourne(Vec2 v, double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {v.x * c - v.y * s, v.x * s + v.y * c};
  }

  // Points of the arc around `v` between its ends.
  void Arc(Vec2 v, Vec2 rayon, double angle) {
    const auto pas = static_cast<long>(std::ceil(std::abs(angle) / pas_ - 1e-9));
    for (long i = 1; i < pas; ++i) {
      sortie_.push_back(v + Tourne(rayon, angle * static_cast<double>(i) / static_cast<double>(pas)));
    }
  }

  // Is all of a -> b nearer to the source than the limit? A distance changes no faster than the place.
  [[nodiscard]] bool Enterre(Vec2 a, Vec2 b, const ArbreSegments& arbre) const {
    const double demi = Norme(b - a) / 2;
    const Vec2 m = (a + b) * 0.5;
    const double d = std::sqrt(arbre.PlusProche(m).distance2);
    if (d + demi < limite_) return true;
    if (d >= limite_ || demi < finesse_) return false;
    return Enterre(a, m, arbre) && Enterre(m, b, arbre);
  }

  [[nodiscard]] bool ArcLibre(const Coin& c, const ArbreSegments& arbre) const {
    if (c.interieur || VaDroit(c)) return false;
    const double angle = AngleDe(c);
    const auto pas = static_cast<long>(std::ceil(std::abs(angle) / 0.7));
    Vec2 a = c.na * d_;
    for (long i = 1; i <= pas; ++i) {
      const Vec2 b = Tourne(c.na * d_, angle * static_cast<double>(i) / static_cast<double>(pas));
      // Chord and arc are no farther apart than the chord's half length.
      const Vec2 m = c.v + (a + b) * 0.5;
      if (std::sqrt(arbre.PlusProche(m).distance2) + Norme(b - a) >= limite_ &&
          !ArcEnterre(c.v, c.na * d_, angle * static_cast<double>(i - 1) / static_cast<double>(pas),
                      angle * static_cast<double>(i) / static_cast<double>(pas), arbre)) {
        return true;
      }
      a = b;
    }
    return false;
  }

  [[nodiscard]] bool ArcEnterre(Vec2 v, Vec2 rayon, double a0, double a1, const ArbreSegments& arbre) const {
    const double demi = std::abs(a1 - a0) / 2 * r_;
    const double milieu = (a0 + a1) / 2;
    const double d = std::sqrt(arbre.PlusProche(v + Tourne(rayon, milieu)).distance2);
    if (d + demi < limite_) return true;
    if (d >= limite_ || demi < finesse_) return false;
    return ArcEnterre(v, rayon, a0, milieu, arbre) && ArcEnterre(v, rayon, milieu, a1, arbre);
  }

  // The stretch of the path that stands for left-out strips. It lies at the bottom of buried ground, so it may be
  // thinned coarsely.
  void EmetSuivi() {
    if (suivi_.empty()) return;
    const std::vector<std::uint8_t> garde(suivi_.size(), 0);
    for (const std::size_t i : chemin::Simplifie(suivi_, garde, r_ / 8)) sortie_.push_back(suivi_[i]);
    suivi_.clear();
  }

  const Chemin& chemin_;
  double d_;
  double r_;
  double fleche_;
  double pas_ = 0;
  double limite_ = 0;
  double finesse_ = 0;
  Chemin sortie_;
  Chemin suivi_;
};

}  // namespace

Chemin ParalleleBrute(const Chemin& chemin, double distance, double fleche, Origines* origines) {
  if (origines != nullptr) origines->clear();
  return Traceur(chemin, distance, fleche).Trace(origines);
}

Chemin ParalleleAllegee(const Chemin& chemin, double distance, double fleche, double marge,
                        const ArbreSegments& arbre) {
  return Traceur(chemin, distance, fleche).TraceAllegee(marge, arbre);
}

}  // namespace pathwerk::decalage
