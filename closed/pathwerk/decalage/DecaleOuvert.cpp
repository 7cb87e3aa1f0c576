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
// An edge knows which segment it runs beside, and whether that one was walked there or back. Where the path lies on
// itself, or beside itself by less than the tolerance tells, the edge may belong to either way; it stays if any
// segment as near as that has it on the wanted side. A turn right back, to that same measure, is rounded on both
// sides, so the curve goes along the way out, around the tip and along the way back. Such an edge is judged by its
// middle and both ends; it is cut first where the path begins or ends to lie on itself.
#include "closed/pathwerk/decalage/DecaleOuvert.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "base/Arret.h"
#include "base/Indices.h"
#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/decalage/Contacts.h"
#include "closed/pathwerk/decalage/Moteur.h"
#include "closed/pathwerk/decalage/Origine.h"

namespace pathwerk::decalage {

namespace {

// Does somebody wish the end? Looked at once in a thousand steps.
bool Regarde(std::size_t pas) { return pas % 1024 == 1023 && base::ArretDemande(); }

constexpr double Mini = 1e-4;  // mm: shorter pieces are none

// A chain of edges that doesn't come back to its first point.
bool EstOuverte(const Chemin& boucle, const Origines& origines) { return origines.size() + 1 == boucle.size(); }

class Juge {
 public:
  // `egal`: distances that differ by less are equal, mm.
  Juge(const Chemin& chemin, bool gauche, double egal, Contacts& contacts)
      : chemin_(chemin), gauche_(gauche), egal_(egal), arbre_(SegmentsDe(chemin, false)), contacts_(contacts) {
    const std::size_t n = chemin.size();
    double l = 0;
    for (; premiers_ + 1 < n && l <= Contacts::Portee; ++premiers_) {
      l += Norme(chemin[premiers_ + 1] - chemin[premiers_]);
    }
    l = 0;
    for (; derniers_ + 1 < n && l <= Contacts::Portee; ++derniers_) {
      l += Norme(chemin[n - 1 - derniers_] - chemin[n - 2 - derniers_]);
    }
  }

  // Does an edge of that origin, on the path there and back, run beside the way there?
  [[nodiscard]] bool Aller(const Origine& o) const {
    const double rang = o.segment + (double{o.de} + o.a) / 2;
    return o.Connue() && rang > 0 && rang < static_cast<double>(chemin_.size() - 1);
  }
  // May it belong to either way, because the path lies on itself there?
  [[nodiscard]] bool Ambigue(const Origine& o) const {
    if (!o.Connue()) return true;
    if (Aller(o)) return false;
    const std::size_t dernier = chemin_.size() - 2;
    const std::size_t s = o.segment <= dernier ? o.segment : 2 * dernier + 1 - o.segment;
    // An edge around a vertex has a segment on either side of it.
    const std::size_t autre = o.de == o.a && s < dernier ? s + 1 : s;
    return contacts_.DuSegment(s) || contacts_.DuSegment(autre);
  }

  // The loop or open chain with a point beside each contact that an edge passes at `rayon`, where that may change
  // the side. `origines` of its edges, or empty.
  [[nodiscard]] Chemin CoupeAuxContacts(const Chemin& boucle, double rayon, Origines& origines) const {
    Chemin r;
    Origines o;
    const bool connues = !origines.empty();
    const bool ouverte = EstOuverte(boucle, origines);
    for (std::size_t i = 0, n = boucle.size(); i < n; ++i) {
      if (Regarde(i)) break;
      const Segment arete{boucle[i], boucle[base::Suivant(i, n)]};
      r.push_back(arete.a);
      if (ouverte && i + 1 == n) break;
      if (connues) {
        o.push_back(origines[i]);
        if (!Ambigue(origines[i])) continue;
      }
      std::vector<std::pair<double, Vec2>> pieds;
      contacts_.Voisins(arete, rayon, [&](std::size_t contact) {
        const Lieu pied = LieuSurSegment(arete, chemin_[contact]);
        const double ecart = std::abs(std::sqrt(pied.distance2) - rayon);
        if (pied.t > 0 && pied.t < 1 && ecart <= Contacts::Portee) pieds.emplace_back(pied.t, pied.point);
      });
      std::sort(pieds.begin(), pieds.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
      for (const auto& [t, pied] : pieds) {
        if (Norme(pied - r.back()) <= Mini / 100) continue;
        r.push_back(pied);
        if (!connues) continue;
        o.back().a = origines[i].En(t);
        o.push_back(origines[i]);
        o.back().de = origines[i].En(t);
      }
    }
    origines = std::move(o);
    return r;
  }

  // The middle, and places beside the ends, where the side may change.
  // `o`: the stretch that has the edge on the wanted side.
  [[nodiscard]] bool BonCote(Vec2 a, Vec2 b, Origine& o) const {
    const Lieu l = VuDe((a + b) * 0.5);
    if (l.distance2 == Jamais || VuDe(a + (b - a) * 0.01).distance2 == Jamais ||
        VuDe(b + (a - b) * 0.01).distance2 == Jamais) {
      return false;
    }
    const Segment& s = arbre_.Segments()[l.segment];
    o = {Numero32(l.segment), static_cast<float>(LieuSurSegment(s, a).t),
         static_cast<float>(LieuSurSegment(s, b).t)};
    return true;
  }
  // How far along the path the place nearest to `p` lies: segment and share of it.
  [[nodiscard]] double Rang(Vec2 p) const {
    const Lieu l = arbre_.PlusProche(p);
    return static_cast<double>(l.segment) + l.t;
  }

 private:
  static constexpr double Jamais = std::numeric_limits<double>::infinity();

  // The nearest place that sees `p` on the wanted side, of all that are as near as any; at Jamais if none does.
  [[nodiscard]] Lieu VuDe(Vec2 p) const {
    const double d = std::sqrt(arbre_.PlusProche(p).distance2) + egal_;
    Lieu bon;
    arbre_.Voisins(p, d * d, [&](const Lieu& l) {
      if (l.distance2 < bon.distance2 && VuDuBonCote(p, l)) bon = l;
    });
    return bon;
  }
  [[nodiscard]] bool VuDuBonCote(Vec2 p, const Lieu& l) const {
    if (AuDelaDUnBout(p, l)) return false;
    const std::size_t dernier = chemin_.size() - 2;
    const Segment& s = arbre_.Segments()[l.segment];
    const Vec2 u = Unite(s.b - s.a);
    Vec2 direction = u;
    if (l.t == 0) {
      if (l.segment == 0) {
        if (Scalaire(p - s.a, u) < -1e-9) return false;  // round the first end
      } else {
        direction = Direction(chemin_[l.segment - 1], s.a, s.b);
      }
    } else if (l.t == 1) {
      if (l.segment == dernier) {
        if (Scalaire(p - s.b, u) > 1e-9) return false;  // round the last end
      } else {
        direction = Direction(s.a, s.b, chemin_[l.segment + 2]);
      }
    }
    if (direction == Vec2{}) return true;  // the tip of a spike is on both sides
    const double cote = Vectoriel(direction, p - l.point);
    return gauche_ ? cote > 0 : cote < 0;
  }

  // Is `p` seen from an end, or from a place that isn't told apart from it, and beyond it? The first and the last
  // segment tell, however short they are.
  [[nodiscard]] bool AuDelaDUnBout(Vec2 p, const Lieu& l) const {
    const std::size_t n = chemin_.size();
    const auto pres = [&l](Vec2 bout) { return Norme(l.point - bout) <= Contacts::Portee; };
    if (l.segment < premiers_ && pres(chemin_[0])) {
      return Scalaire(p - chemin_[0], Unite(chemin_[1] - chemin_[0])) < -1e-9;
    }
    if (l.segment + derniers_ >= n - 1 && pres(chemin_[n - 1])) {
      return Scalaire(p - chemin_[n - 1], Unite(chemin_[n - 1] - chemin_[n - 2])) > 1e-9;
    }
    return false;
  }

  // Mean direction in the corner b; none where the path turns right back.
  [[nodiscard]] Vec2 Direction(Vec2 a, Vec2 b, Vec2 c) const {
    const Vec2 d = Unite(b - a) + Unite(c - b);
    return Norme(d) * std::min(Norme(b - a), Norme(c - b)) <= egal_ ? Vec2{} : d;
  }

  const Chemin& chemin_;
  bool gauche_;
  double egal_;
  ArbreSegments arbre_;
  Contacts& contacts_;
  std::size_t premiers_ = 0;  // segments that begin within a touch of the start, along the path
  std::size_t derniers_ = 0;  // those that end so near to the end
};

// The path there and back, which knows which way each segment is walked.
Region AllerRetour(const Chemin& chemin) {
  Region region{{chemin}, 0, {{}}};
  Origines& o = region.origines[0];
  const auto n = Numero32(chemin.size());
  for (std::uint32_t i = 0; i + 1 < n; ++i) o.push_back({i, 0, 1});
  for (std::uint32_t i = n - 1; i-- > 0;) {
    o.push_back({i, 1, 0});
    if (i > 0) region.contours[0].push_back(chemin[i]);
  }
  return region;
}

// Edges of one loop or open chain that belong to the wanted side; the one that would close a chain doesn't.
// `origines` on the path there and back; empty: all are judged. An edge that either way may claim comes to belong
// to the way that has it on the wanted side.
std::vector<char> AretesBonnes(const Chemin& boucle, Origines& origines, const Juge& juge) {
  const std::size_t n = boucle.size();
  std::vector<char> bon(n);
  const bool connues = !origines.empty();
  const std::size_t aretes = EstOuverte(boucle, origines) ? n - 1 : n;
  for (std::size_t i = 0; i < aretes; ++i) {
    if (Regarde(i)) break;
    if (connues) {
      bon[i] = juge.Aller(origines[i]);
      if (bon[i] != 0 || !juge.Ambigue(origines[i])) continue;
    }
    Origine autre;
    bon[i] = juge.BonCote(boucle[i], boucle[base::Suivant(i, n)], autre);
    if (connues && bon[i] != 0 && origines[i].Connue()) origines[i] = autre;
  }
  // The chord over a gap goes with what it joins.
  for (std::size_t i = 0; connues && i < aretes; ++i) {
    if (!origines[i].Connue()) bon[i] = bon[base::Precedent(i, n)] != 0 && bon[base::Suivant(i, n)] != 0;
  }
  return bon;
}

// Runs of good edges of one loop, as pieces.
void Decoupe(const Chemin& boucle, const Origines& origines, const std::vector<char>& bon,
             std::vector<Piece>& pieces) {
  const std::size_t n = boucle.size();
  const auto rompu = std::find(bon.begin(), bon.end(), 0);
  if (rompu == bon.end()) {
    pieces.push_back({boucle, true, true, origines});
    return;
  }
  const bool connues = !origines.empty();
  const auto s = base::Indice(rompu - bon.begin());
  Piece courante{{}, false, true};
  const auto vide = [&] {
    double longueur = 0;
    const Chemin& c = courante.points;
    for (std::size_t i = 0; i + 1 < c.size(); ++i) longueur += Norme(c[i + 1] - c[i]);
    if (longueur > Mini) pieces.push_back(std::move(courante));
    courante = {{}, false, true};
  };
  for (std::size_t j = 1; j <= n; ++j) {
    const std::size_t i = (s + j) % n;
    if (bon[i] == 0) {
      vide();
      continue;
    }
    if (courante.points.empty()) courante.points.push_back(boucle[i]);
    courante.points.push_back(boucle[base::Suivant(i, n)]);
    if (connues) courante.origines.push_back(origines[i]);
  }
}

}  // namespace

std::vector<Piece> DecaleOuvert(const Source& source, double distance, double tolerance) {
  Region region = AllerRetour(source.chemin);
  region.ecart = source.ecart;
  std::vector<Chemin> boucles;
  std::vector<Origines> origines;
  Contacts contacts(source.chemin);
  if (!DecaleAllerRetour(region, distance, tolerance, contacts, boucles, origines)) return {};
  // Both ways of a path that lies on itself have been thinned, each by itself.
  const Juge juge(source.chemin, distance > 0, tolerance / 4, contacts);
  std::vector<Piece> pieces;
  for (std::size_t k = 0; k < boucles.size(); ++k) {
    const Chemin b = juge.CoupeAuxContacts(boucles[k], std::abs(distance), origines[k]);
    const std::vector<char> bon = AretesBonnes(b, origines[k], juge);
    if (base::ArretDemande()) return {};
    Decoupe(b, origines[k], bon, pieces);
  }

  std::vector<std::pair<double, std::size_t>> ordre;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const Origines& o = pieces[i].origines;
    const bool aller = !o.empty() && o[0].Connue() && o[0].segment + 1 < source.chemin.size();
    ordre.emplace_back(aller ? o[0].segment + double{o[0].de} : juge.Rang(pieces[i].points.front()), i);
  }
  std::sort(ordre.begin(), ordre.end());
  std::vector<Piece> ranges;
  for (const auto& [rang, i] : ordre) {
    pieces[i].origines = Remonte(region, std::move(pieces[i].origines));
    ranges.push_back(std::move(pieces[i]));
  }
  return ranges;
}

}  // namespace pathwerk::decalage
