// One-sided parallel curve of an open path.
//
// The path walked there and back is a closed one without area; its parallel curve is the border of everything
// nearer than R, half discs around both ends included. Of that border the stretches stay that see the path on the
// wanted side:
//
//      .------------------.        kept for a distance > 0 (left)
//     (  A ------------> B )       the caps around A and B go
//      '------------------'        seen from the right: goes
//
// Each edge is judged by its middle, because its ends may lie on the change from one side to the other. An edge
// that is as near to several segments counts if any of them has it on the wanted side.
#include <algorithm>
#include <cmath>
#include <utility>

#include "closed/pathwerk/ArbreSegments.h"
#include "closed/pathwerk/Decalages.h"
#include "closed/pathwerk/Moteur.h"

namespace pathwerk::geo {

namespace {

constexpr double kEgal = 1e-6;     // mm: distances that differ by less are equal
constexpr double kContact = 0.01;  // mm: a path that comes so near to itself touches itself

class Juge {
 public:
  Juge(const Chemin& chemin, bool gauche)
      : chemin_(chemin), gauche_(gauche), arbre_(SegmentsDe(chemin, false)), contacts_(Contacts()) {}

  // The loop with a point beside each contact that an edge passes at `rayon`.
  [[nodiscard]] Chemin CoupeAuxContacts(const Chemin& boucle, double rayon) const {
    if (contacts_.Segments().empty()) return boucle;
    Chemin r;
    for (std::size_t i = 0, n = boucle.size(); i < n; ++i) {
      const Segment arete{boucle[i], boucle[(i + 1) % n]};
      r.push_back(arete.a);
      std::vector<std::pair<double, Vec2>> pieds;
      const double portee = Norme(arete.b - arete.a) / 2 + rayon + kContact;
      contacts_.Voisins((arete.a + arete.b) * 0.5, portee * portee, [&](const Lieu& contact) {
        const Lieu pied = LieuSurSegment(arete, contact.point);
        const double ecart = std::abs(std::sqrt(pied.distance2) - rayon);
        if (pied.t > 0 && pied.t < 1 && ecart <= kContact) pieds.emplace_back(pied.t, pied.point);
      });
      std::sort(pieds.begin(), pieds.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
      for (const auto& [t, pied] : pieds) {
        if (Norme(pied - r.back()) > kEgal) r.push_back(pied);
      }
    }
    return r;
  }

  [[nodiscard]] bool BonCote(Vec2 p) const {
    const double d = std::sqrt(arbre_.PlusProche(p).distance2) + kEgal;
    bool bon = false;
    arbre_.Voisins(p, d * d, [&](const Lieu& l) { bon = bon || VuDuBonCote(p, l); });
    return bon;
  }
  // How far along the path the place nearest to `p` lies: segment and share of it.
  [[nodiscard]] double Rang(Vec2 p) const {
    const Lieu l = arbre_.PlusProche(p);
    return static_cast<double>(l.segment) + l.t;
  }

 private:
  [[nodiscard]] bool VuDuBonCote(Vec2 p, const Lieu& l) const {
    const std::size_t dernier = chemin_.size() - 2;
    const Segment& s = arbre_.Segments()[l.segment];
    const Vec2 u = Unite(s.b - s.a);
    Vec2 direction = u;
    if (l.t == 0) {
      if (l.segment == 0) {
        if (Scalaire(p - s.a, u) < -1e-9) return false;  // round the first end
      } else {
        direction = u + Unite(s.a - chemin_[l.segment - 1]);
      }
    } else if (l.t == 1) {
      if (l.segment == dernier) {
        if (Scalaire(p - s.b, u) > 1e-9) return false;  // round the last end
      } else {
        direction = u + Unite(chemin_[l.segment + 2] - s.b);
      }
    }
    if (Norme(direction) < 1e-9) return true;  // the tip of a spike is on both sides
    const double cote = Vectoriel(direction, p - l.point);
    return gauche_ ? cote > 0 : cote < 0;
  }

  // Points of the path that lie on a segment other than their own two, as segments without length.
  [[nodiscard]] ArbreSegments Contacts() const {
    std::vector<Segment> r;
    for (std::size_t i = 0; i < chemin_.size(); ++i) {
      bool touche = false;
      arbre_.Voisins(chemin_[i], kContact * kContact,
                     [&](const Lieu& l) { touche = touche || (l.segment != i && l.segment + 1 != i); });
      if (touche) r.push_back({chemin_[i], chemin_[i]});
    }
    return ArbreSegments(std::move(r));
  }

  const Chemin& chemin_;
  bool gauche_;
  ArbreSegments arbre_;
  ArbreSegments contacts_;
};

// Runs of good edges of one loop, as pieces.
void Decoupe(const Chemin& boucle, const Juge& juge, std::vector<Piece>& pieces) {
  const std::size_t n = boucle.size();
  std::vector<char> bon(n);
  for (std::size_t i = 0; i < n; ++i) bon[i] = juge.BonCote((boucle[i] + boucle[(i + 1) % n]) * 0.5);
  const auto rompu = std::find(bon.begin(), bon.end(), 0);
  if (rompu == bon.end()) {
    pieces.push_back({boucle, true, true});
    return;
  }
  const auto s = static_cast<std::size_t>(rompu - bon.begin());
  Chemin courant;
  const auto vide = [&] {
    double longueur = 0;
    for (std::size_t i = 0; i + 1 < courant.size(); ++i) longueur += Norme(courant[i + 1] - courant[i]);
    if (longueur > 100 * kEgal) pieces.push_back({courant, false, true});
    courant.clear();
  };
  for (std::size_t j = 1; j <= n; ++j) {
    const std::size_t i = (s + j) % n;
    if (bon[i] == 0) {
      vide();
      continue;
    }
    if (courant.empty()) courant.push_back(boucle[i]);
    courant.push_back(boucle[(i + 1) % n]);
  }
}

}  // namespace

std::vector<Piece> DecaleOuvert(const Source& source, double distance, double tolerance) {
  Region region;
  Chemin retour = source.chemin;
  for (std::size_t i = source.chemin.size() - 1; i-- > 1;) retour.push_back(source.chemin[i]);
  region.contours.push_back(std::move(retour));
  std::vector<Chemin> boucles;
  if (!DecaleRegion(region, distance, tolerance, boucles)) return {};
  const Juge juge(source.chemin, distance > 0);
  std::vector<Piece> pieces;
  for (const Chemin& b : boucles) Decoupe(juge.CoupeAuxContacts(b, std::abs(distance)), juge, pieces);

  std::vector<std::pair<double, std::size_t>> ordre;
  for (std::size_t i = 0; i < pieces.size(); ++i) ordre.emplace_back(juge.Rang(pieces[i].points.front()), i);
  std::sort(ordre.begin(), ordre.end());
  std::vector<Piece> ranges;
  for (const auto& [rang, i] : ordre) ranges.push_back(std::move(pieces[i]));
  return ranges;
}

}  // namespace pathwerk::geo
