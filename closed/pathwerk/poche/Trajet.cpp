// A ring is milled in one round from its start. What hangs on it is milled on the way: the cutter goes straight to
// the inner ring's start, mills all that hangs there, and comes back to where it left. What is attached at the
// start itself is so done before the round begins, and a chain of such rings comes out from the inside outwards.
// Apart from the moves between rings nothing is walked twice. The first innermost ring is where the piece begins.
//
// The outermost ring is the wall that stays, so its round is not interrupted. If several things hang on it, they
// are milled one after the other in front of it. The way between two of them follows the outermost ring, pulled
// straight wherever that keeps off the outline:
//
//      +---------------+      +---------------+
//      | .-----------. |______| .-----------. |
//      | |  .------. |  ______  | .------.  | |
//      | |  '------' *--------->* '------'  | |       * starts of both inner trees
//      | '-----------'  ______  '-----------' |
//      |               |      |               |
//      +---------------+      +---------------+
#include "closed/pathwerk/poche/Trajet.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Arret.h"

namespace pathwerk::poche {

namespace {

class Trajet {
 public:
  explicit Trajet(const std::vector<Anneau>& anneaux) : anneaux_(anneaux) {}

  // Room for all rings at once.
  void Reserve() {
    std::size_t points = 0;
    for (const Anneau& a : anneaux_) points += a.points.size() + 2 * a.passages.size() + 1;
    chemin_.reserve(points);
  }
  // A ring and all that hangs on it, from its start back to it. Moves before the first cut are left out.
  void Fraise(std::size_t racine) {
    std::vector<Tour> pile{{racine, 0, 0}};
    chemin_.push_back(anneaux_[racine].points[0]);
    while (!pile.empty()) {
      Tour& tour = pile.back();
      const Anneau& a = anneaux_[tour.anneau];
      const std::size_t n = a.points.size();
      if (tour.passage < a.passages.size() && a.passages[tour.passage].arete == tour.arete) {
        const Passage& passage = a.passages[tour.passage];
        if (!tour.dehors) {
          Avance(passage.lieu);
          const Chemin& enfant = anneaux_[passage.enfant].points;
          if (enfant.size() == 1) Commence(enfant[0]);
          chemin_.push_back(enfant[0]);
          tour.dehors = true;
          pile.push_back({passage.enfant, 0, 0});
        } else {
          chemin_.push_back(passage.lieu);
          tour.dehors = false;
          ++tour.passage;
        }
      } else if (tour.arete < n) {
        ++tour.arete;
        Avance(a.points[tour.arete < n ? tour.arete : 0]);
      } else {
        pile.pop_back();
      }
    }
  }
  void Va(Vec2 p) { chemin_.push_back(p); }
  [[nodiscard]] Chemin& Points() { return chemin_; }

 private:
  struct Tour {
    std::size_t anneau;
    std::size_t arete;
    std::size_t passage;
    bool dehors = false;
  };
  // Along a ring.
  void Avance(Vec2 p) {
    if (p == chemin_.back()) return;
    Commence(chemin_.back());
    chemin_.push_back(p);
  }
  // The first cut is here.
  void Commence(Vec2 ici) {
    if (!commence_) chemin_.assign(1, ici);
    commence_ = true;
  }

  const std::vector<Anneau>& anneaux_;
  Chemin chemin_;
  bool commence_ = false;
};

// Something that hangs on the outermost ring.
struct Etape {
  std::size_t anneau;
  Lieu lieu;  // where the move to it leaves the ring
};

class Racine {
 public:
  Racine(ArbreAnneaux& arbre, std::size_t racine, const Acces& acces)
      : arbre_(arbre),
        racine_(arbre.Anneaux()[racine]),
        acces_(acces),
        longueur_(base::Abscisses(racine_.points)) {}

  // All that is milled before the ring's own round.
  Chemin Avant() {
    if (racine_.enfants.empty()) return {};
    const ArbreAnneaux::Cherche cherche(racine_, racine_.enfants.size() > 1);
    std::vector<Etape> etapes = Etapes(cherche);
    PlaceEtapes(etapes, cherche);
    Trajet trajet(arbre_.Anneaux());
    if (arbre_.Racines().size() == 1) trajet.Reserve();
    for (std::size_t i = 0; i < etapes.size(); ++i) {
      arbre_.PlaceDescendance(etapes[i].anneau);
      trajet.Fraise(etapes[i].anneau);
      const bool dernier = i + 1 == etapes.size();
      const Lieu debut{0, 0, 0, racine_.points[0]};
      for (const Vec2 p :
           Route(etapes[i], dernier ? debut : etapes[i + 1].lieu, dernier ? debut.point : Depart(etapes[i + 1]))) {
        trajet.Va(p);
      }
    }
    return std::move(trajet.Points());
  }

 private:
  [[nodiscard]] Vec2 Depart(const Etape& e) const { return arbre_.Anneaux()[e.anneau].points[0]; }
  [[nodiscard]] double Place(const Lieu& l) const {
    return longueur_[l.segment] + l.t * (longueur_[l.segment + 1] - longueur_[l.segment]);
  }

  // What hangs on the ring, in the order along it and in the direction that is shorter to its start.
  std::vector<Etape> Etapes(const ArbreAnneaux::Cherche& cherche) {
    std::vector<Etape> etapes;
    for (const std::size_t e : racine_.enfants) {
      if (base::ArretDemande()) break;
      const Anneau& enfant = arbre_.Anneaux()[e];
      const auto lien = arbre_.LienVers(cherche, enfant, {0, 0, 0, enfant.points[0]});
      if (lien) {
        etapes.push_back({e, lien->arrivee});
      } else {
        arbre_.Orphelins().push_back(e);
      }
    }
    std::stable_sort(etapes.begin(), etapes.end(),
                     [this](const Etape& a, const Etape& b) { return Place(a.lieu) < Place(b.lieu); });
    if (!etapes.empty() && Place(etapes.back().lieu) < longueur_.back() - Place(etapes.front().lieu)) {
      std::reverse(etapes.begin(), etapes.end());
    }
    return etapes;
  }

  // Starts near to where the cutter comes from, or goes to.
  void PlaceEtapes(std::vector<Etape>& etapes, const ArbreAnneaux::Cherche& cherche) {
    Vec2 autre = etapes.size() > 1 ? etapes[1].lieu.point : racine_.points[0];
    for (Etape& e : etapes) {
      Anneau& a = arbre_.Anneaux()[e.anneau];
      if (!a.fixe) {
        // The first try was free, so one of the ring's places is.
        const auto lien = arbre_.LienVers(cherche, a, ProcheSurBoucle(a.points, autre));
        if (lien) {
          e.lieu = lien->arrivee;
          CommenceBoucle(a.points, lien->depart);
        }
      }
      autre = a.points[0];
    }
  }

  // From the start of one thing to the start of the next (not included), over the ring and pulled straight.
  Chemin Route(const Etape& e, const Lieu& vers, Vec2 but) const {
    const Vec2 depart = Depart(e);
    if (acces_.Libre(depart, but)) return {};
    Chemin route{depart};
    LeLong(e.lieu, vers, route);
    if (!(route.back() == but)) route.push_back(but);
    return Tend(route);
  }

  // Along the ring the shorter way.
  void LeLong(const Lieu& de, const Lieu& a, Chemin& route) const {
    const Chemin& c = racine_.points;
    const std::size_t n = c.size();
    const double tour = longueur_.back();
    double avance = Place(a) - Place(de);
    if (avance < 0) avance += tour;
    route.push_back(de.point);
    if (avance <= tour / 2) {
      const bool sur = de.segment == a.segment && a.t >= de.t;
      for (std::size_t i = de.segment; !sur;) {
        i = base::Suivant(i, n);
        route.push_back(c[i]);
        if (i == a.segment) break;
      }
    } else {
      const bool sur = de.segment == a.segment && a.t <= de.t;
      for (std::size_t i = de.segment; !sur;) {
        route.push_back(c[i]);
        i = base::Precedent(i, n);
        if (i == a.segment) break;
      }
    }
    route.push_back(a.point);
  }

  // What is left between the ends of a free path when every stretch is as long and straight as doubling steps find
  // it.
  Chemin Tend(const Chemin& route) const {
    Chemin r;
    const std::size_t fin = route.size() - 1;
    for (std::size_t i = 0; i < fin && !base::ArretDemande();) {
      std::size_t saut = 1;
      std::size_t j = i + 1;
      while (j + saut <= fin && acces_.Libre(route[i], route[j + saut])) {
        j += saut;
        saut *= 2;
      }
      for (; saut > 0; saut /= 2) {
        if (j + saut <= fin && acces_.Libre(route[i], route[j + saut])) j += saut;
      }
      i = j;
      if (i < fin) r.push_back(route[i]);
    }
    return r;
  }

  ArbreAnneaux& arbre_;
  const Anneau& racine_;
  const Acces& acces_;
  std::vector<double> longueur_;  // along the ring to each point, and all of it behind the last
};

}  // namespace

std::vector<Piece> Trajets(ArbreAnneaux& arbre, const Acces& acces, const Report& report, double tolerance) {
  std::vector<Piece> finies;
  for (const std::size_t k : arbre.Racines()) {
    if (base::ArretDemande()) return {};
    Anneau& a = arbre.Anneaux()[k];
    Piece piece;
    piece.points = a.points;
    piece.origines = std::move(a.origines);
    Commence(piece, report, tolerance);
    a.points = piece.points;
    piece.avant = Racine(arbre, k, acces).Avant();
    finies.push_back(std::move(piece));
  }
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < arbre.Orphelins().size() && !base::ArretDemande(); ++i) {
    const std::size_t k = arbre.Orphelins()[i];
    arbre.PlaceDescendance(k);
    Trajet trajet(arbre.Anneaux());
    trajet.Fraise(k);
    Piece piece;
    piece.points = std::move(trajet.Points());
    piece.ferme = false;
    piece.marques = false;
    pieces.push_back(std::move(piece));
  }
  for (Piece& p : finies) pieces.push_back(std::move(p));
  return pieces;
}

}  // namespace pathwerk::poche
