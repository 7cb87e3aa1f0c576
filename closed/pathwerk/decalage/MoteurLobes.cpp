// A closed path cut at its crossings.
//
// At every crossing the two strands change partners, so that each goes on along the other without crossing it (the
// circles of H. Seifert, "Ueber das Geschlecht von Knoten", Mathematische Annalen 110, 1935):
//
//        a   b          a   b
//         \ /            \ /
//          X      ->     ) (       a comes in and leaves where b would have
//         / \            / \ .
//
// What comes out are closed loops that touch but never cross, whatever the order of the crossings; all along a loop
// the winding number of the path is the same on its left, and one less on its right. Loops with 1 on the left bound
// what the path runs around counter-clockwise, loops with 0 what it runs around clockwise, all others lie inside.
//
// Touching corners, edges that lie on each other and points on lines leave nothing to decide: every vertex is moved
// by a few nanometres at random before the crossings are looked for, and what that makes cross for nothing comes
// out as slivers, which don't count. The loops keep the moved places, so that none crosses another even by a hair.
//
// A scan far denser than its noise crosses itself hundreds of times a point. Such a scribble stays in one piece,
// every strand of it a wall: the cutter keeps its distance from all of them, on the side that the winding number
// tells.
#include "closed/pathwerk/decalage/MoteurLobes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <exception>

#include "base/Arret.h"
#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/decalage/ArcSource.h"

namespace pathwerk::decalage {

namespace {

struct Croisement {
  std::uint32_t i, j;
  double ti, tj;
  Vec2 p;
};

// A stop on the way along the path: vertex, or passage over a crossing.
struct Etape {
  double t = 0;  // place on the segment
  std::uint32_t segment = 0;
  std::uint32_t croisement = 0;
  bool vertex = true;
};

constexpr std::size_t NoeudsHauts = 4096;  // near the root, where a wish to end is looked for
constexpr double Secousse = 4e-6;          // mm
constexpr double Meme = 2e-11;             // mm
constexpr int Essais = 3;
constexpr std::size_t CroisementsMin = 300000;  // so many any path may have, and four more a point

// Sign of the turn a -> b -> c; 2 where rounding leaves it open.
int Tour(Vec2 a, Vec2 b, Vec2 c) {
  const double g = (b.x - a.x) * (c.y - a.y);
  const double d = (b.y - a.y) * (c.x - a.x);
  const double erreur = 4e-16 * (std::abs(g) + std::abs(d));
  if (g - d > erreur) return 1;
  if (g - d < -erreur) return -1;
  return 2;
}

long double Produit(Vec2 a, Vec2 b) {
  return static_cast<long double>(a.x) * static_cast<long double>(b.y) -
         static_cast<long double>(a.y) * static_cast<long double>(b.x);
}

// All crossings of a path with itself, by a walk of the tree against itself.
class Chercheur {
 public:
  explicit Chercheur(const ArcSource& s) : s_(s), max_(4 * s.Taille() + CroisementsMin) {}
  // So many that the path is a scribble rather than an outline?
  [[nodiscard]] bool Trop() const { return trop_; }
  // False: a case that rounding can't tell, or too many.
  bool Cherche(std::vector<Croisement>& croisements) {
    Dans(1);
    croisements = std::move(trouves_);
    return net_;
  }

 private:
  void Dans(std::size_t k) {
    if (k < NoeudsHauts && base::ArretDemande()) {
      net_ = false;
      return;
    }
    if (!s_.Boites().EstFeuille(k)) {
      Dans(2 * k);
      Dans(2 * k + 1);
      Entre(2 * k, 2 * k + 1);
      return;
    }
    for (std::size_t i = s_.Boites().Debut(k), fin = s_.Boites().Fin(k); i < fin; ++i) {
      for (std::size_t j = i + 1; j < fin; ++j) Paire(i, j);
    }
  }
  void Entre(std::size_t g, std::size_t d) {
    const base::Boite<double>& a = s_.Boites().De(g);
    const base::Boite<double>& b = s_.Boites().De(d);
    if (!net_ || !a.Rencontre(b)) return;
    const bool feuilleG = s_.Boites().EstFeuille(g);
    const bool feuilleD = s_.Boites().EstFeuille(d);
    if (feuilleG && feuilleD) {
      for (std::size_t i = s_.Boites().Debut(g), finG = s_.Boites().Fin(g); i < finG; ++i) {
        for (std::size_t j = s_.Boites().Debut(d), finD = s_.Boites().Fin(d); j < finD; ++j) Paire(i, j);
      }
    } else if (feuilleD || (!feuilleG && a.x1 - a.x0 + a.y1 - a.y0 > b.x1 - b.x0 + b.y1 - b.y0)) {
      Entre(2 * g, d);
      Entre(2 * g + 1, d);
    } else {
      Entre(g, 2 * d);
      Entre(g, 2 * d + 1);
    }
  }
  void Paire(std::size_t i, std::size_t j) {
    if (s_.Suivant(i) == j || s_.Suivant(j) == i) return;
    const Vec2 a = s_.A(i), b = s_.B(i), c = s_.A(j), d = s_.B(j);
    if (std::max(a.x, b.x) < std::min(c.x, d.x) || std::max(c.x, d.x) < std::min(a.x, b.x) ||
        std::max(a.y, b.y) < std::min(c.y, d.y) || std::max(c.y, d.y) < std::min(a.y, b.y)) {
      return;
    }
    const int t1 = Tour(a, b, c), t2 = Tour(a, b, d), t3 = Tour(c, d, a), t4 = Tour(c, d, b);
    if (t1 == t2 && t1 != 2) return;
    if (t3 == t4 && t3 != 2) return;
    trop_ = trop_ || trouves_.size() >= max_;
    if (t1 == 2 || t2 == 2 || t3 == 2 || t4 == 2 || trop_) {
      net_ = false;
      return;
    }
    const Vec2 u = b - a;
    const Vec2 v = d - c;
    // Segments that nearly coincide cross in a place that must still be right beside others of its kind.
    const long double det = Produit(u, v);
    const auto part = [&](Vec2 w) { return std::clamp(static_cast<double>(Produit(c - a, w) / det), 0.0, 1.0); };
    const double ti = part(v);
    const double tj = part(u);
    trouves_.push_back({Numero32(i), Numero32(j), ti, tj, a + u * ti});
  }

  const ArcSource& s_;
  std::size_t max_;
  std::vector<Croisement> trouves_;
  bool net_ = true;
  bool trop_ = false;
};

// Vertices moved at random, the same way each time.
Chemin Secoue(const Chemin& c, double force, std::uint64_t graine) {
  Chemin r;
  r.reserve(c.size());
  std::uint64_t h = 0x9E3779B97F4A7C15ULL * (graine + 1);
  const auto part = [&h] {
    h ^= h << 13;
    h ^= h >> 7;
    h ^= h << 17;
    return static_cast<double>(h >> 11) / 4503599627370496.0 - 1;
  };
  for (const Vec2 p : c) {
    const double x = part();
    r.push_back({p.x + force * x, p.y + force * part()});
  }
  return r;
}

// Does an end of one segment lie on the other, but for the shaking?
bool EstContact(const ArcSource& s, const Croisement& k, double force) {
  const double l2 = 16 * force * force;
  return s.Distance2(k.i, s.A(k.j)) < l2 || s.Distance2(k.i, s.B(k.j)) < l2 || s.Distance2(k.j, s.A(k.i)) < l2 ||
         s.Distance2(k.j, s.B(k.i)) < l2;
}

class Decoupeur {
 public:
  Decoupeur(const ArcSource& secoue, const std::vector<Croisement>& croisements)
      : s_(secoue), croisements_(croisements) {}

  // Loops wider than `largeur` that bound the lobes of either sense; `tous`: all others were slivers. False: the
  // crossings are in an order that no path has.
  bool Lobes(double largeur, Region& plus, Region& moins, bool& tous) {
    Etapes();
    tous = true;
    std::uint32_t boucle = 0;
    std::vector<std::uint32_t> vu(etapes_.size(), 0);
    for (std::size_t depart = 0; depart < etapes_.size(); ++depart) {
      if (vu[depart] != 0) continue;
      if (base::ArretDemande()) return false;
      ++boucle;
      Chemin c;
      Origines o;
      // The edge behind a stop that rises or falls most tells the winding number best.
      std::size_t raide = depart;
      double pente = -1;
      for (std::size_t e = depart; vu[e] == 0; e = Suite(e)) {
        vu[e] = boucle;
        const Vec2 p = Lieu(e);
        const double h = std::abs(Lieu(Suite(e)).y - Lieu(e).y);
        if (h > pente) {
          pente = h;
          raide = e;
        }
        if (c.empty() || Norme(p - c.back()) > Meme) {
          c.push_back(p);
          o.push_back(OrigineApres(e));
        } else {
          o.back() = OrigineApres(e);
        }
      }
      while (c.size() > 1 && Norme(c.front() - c.back()) <= Meme) {
        c.pop_back();
        o.pop_back();
      }
      if (c.size() < 3 || 2 * std::abs(Aire(c)) <= largeur * Perimetre(c)) continue;
      const int gauche = ToursAGauche(raide);
      if (gauche != 0 && gauche != 1) {
        tous = false;
        continue;
      }
      Region& lobe = gauche == 1 ? plus : moins;
      lobe.contours.push_back(std::move(c));
      lobe.origines.push_back(std::move(o));
    }
    // Both strands of a cut crossing belong to different loops, as one runs to the left of the other.
    for (std::size_t k = 0; k < croisements_.size(); ++k) {
      if (vu[autre_[2 * k]] == vu[autre_[2 * k + 1]]) return false;
    }
    return true;
  }

 private:
  void Etapes() {
    std::vector<Etape> passages;
    passages.reserve(2 * croisements_.size());
    for (std::uint32_t k = 0; k < croisements_.size(); ++k) {
      passages.push_back({croisements_[k].ti, croisements_[k].i, k, false});
      passages.push_back({croisements_[k].tj, croisements_[k].j, k, false});
    }
    std::sort(passages.begin(), passages.end(), [](const Etape& a, const Etape& b) {
      return a.segment != b.segment ? a.segment < b.segment : a.t != b.t ? a.t < b.t : a.croisement < b.croisement;
    });
    etapes_.reserve(s_.Taille() + passages.size());
    autre_.assign(2 * croisements_.size(), 0);
    std::vector<std::uint8_t> premier(croisements_.size(), 0);
    std::size_t q = 0;
    for (std::uint32_t i = 0; i < s_.Taille(); ++i) {
      etapes_.push_back({0, i, 0, true});
      for (; q < passages.size() && passages[q].segment == i; ++q) {
        const std::uint32_t k = passages[q].croisement;
        autre_[2 * k + premier[k]] = Numero32(etapes_.size());
        premier[k] = 1;
        etapes_.push_back(passages[q]);
      }
    }
  }
  // At a crossing the way goes on behind the other passage.
  [[nodiscard]] std::size_t Suite(std::size_t e) const {
    std::size_t s = e;
    if (!etapes_[e].vertex) {
      const std::size_t k = 2 * std::size_t{etapes_[e].croisement};
      s = autre_[k] == e ? autre_[k + 1] : autre_[k];
    }
    return base::Suivant(s, etapes_.size());
  }
  // The segment that a loop runs along behind the stop.
  [[nodiscard]] std::size_t SegmentApres(std::size_t e) const {
    const std::size_t s = Suite(e);
    return etapes_[s > 0 ? s - 1 : etapes_.size() - 1].segment;
  }
  // Of the edge behind the stop, which ends at the next stop of the same passage.
  [[nodiscard]] Origine OrigineApres(std::size_t e) const {
    const std::size_t s = Suite(e);
    const Etape& a = etapes_[s > 0 ? s - 1 : etapes_.size() - 1];
    const Etape& b = etapes_[s];
    return {a.segment, static_cast<float>(a.t), b.vertex ? 1.0F : static_cast<float>(b.t)};
  }
  [[nodiscard]] Vec2 Lieu(std::size_t e) const {
    return etapes_[e].vertex ? s_.A(etapes_[e].segment) : croisements_[etapes_[e].croisement].p;
  }
  [[nodiscard]] int ToursAGauche(std::size_t e) const {
    const Vec2 a = Lieu(e);
    const Vec2 b = Lieu(Suite(e));
    // The ray to the right leaves from the right side of a rising edge, from the left side of a falling one.
    return s_.Tours((a + b) * 0.5, SegmentApres(e)) + (b.y > a.y ? 1 : 0);
  }

  const ArcSource& s_;
  const std::vector<Croisement>& croisements_;
  std::vector<Etape> etapes_;
  std::vector<std::uint32_t> autre_;  // both passages of each crossing
};

}  // namespace

bool SepareLobesCoupes(const Chemin& chemin, double tolerance, std::vector<Region>& regions) {
  regions.clear();
  try {
    double etendue = 0;
    for (const Vec2 p : chemin) etendue = std::max({etendue, std::abs(p.x), std::abs(p.y)});
    const double force = std::max(Secousse, 1e-12 * etendue);
    for (int essai = 0; essai < Essais && !base::ArretDemande(); ++essai) {
      const Chemin secoue = Secoue(chemin, force, static_cast<std::uint64_t>(essai));
      const ArcSource source(std::span(&secoue, 1));
      std::vector<Croisement> croisements;
      Chercheur chercheur(source);
      if (!chercheur.Cherche(croisements)) {
        if (!chercheur.Trop()) continue;
        regions.push_back(RegionDe(chemin, Aire(chemin) >= 0 ? 1 : -1));
        regions.back().fouillis = true;
        return true;
      }
      Region plus{{}, 1};
      Region moins{{}, -1};
      bool tous = true;
      if (!Decoupeur(source, croisements).Lobes(tolerance / 2, plus, moins, tous)) continue;
      const bool unSens = plus.contours.empty() || moins.contours.empty();
      const bool contact = std::any_of(croisements.begin(), croisements.end(),
                                       [&](const Croisement& k) { return EstContact(source, k, force); });
      if (tous && plus.contours.empty() && moins.contours.empty()) {
        // Nothing but slivers: there and back, though not by the very same way. Each stretch counts on both sides.
        regions.push_back(RegionDe(chemin, 0, true));
        return true;
      }
      // A path that merely touches itself comes back whole, with the spikes and slits that cutting would lose.
      if (tous && unSens && contact) {
        regions.push_back(RegionDe(chemin, moins.contours.empty() ? 1 : -1));
        return true;
      }
      if (!plus.contours.empty()) regions.push_back(std::move(plus));
      if (!moins.contours.empty()) regions.push_back(std::move(moins));
      return true;
    }
  } catch (const std::exception&) {
  }
  regions.clear();
  return false;
}

}  // namespace pathwerk::decalage
