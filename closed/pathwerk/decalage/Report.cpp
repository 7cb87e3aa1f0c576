// A place s of the source comes out on the offset in the first of these ways that there is:
//
//   1. Its image, at the distance R along the normal (in a corner: along the bisector), on an edge that runs beside
//      that very place. Of an outer corner it is the middle of the arc, or what is left nearest to it.
//   2. Its image on an edge that runs beside another place: a path walked twice has one offset.
//   3. The image is gone, the place lies in a stretch that the cutter can't follow. Walking along the source both
//      ways, the first place that the cutter does reach; mostly both ways lead to the same:
//
//        source   a ----------.  .---------- b          the stretch between a' and b' (a narrow bay, an inner
//                             |  |                      corner) is passed over in one point of the offset, and
//                             |s |                      every place s of it is answered by that point
//                              --
//        offset    ----------a'b'-----------
//
//      Where the offset falls apart, a' and b' lie on different pieces and the nearer along the source counts. The
//      nearest place as the crow flies may belong to the other side of a thin wall, and is not asked for.
//
// Edges that don't know their source, which only the engine of last resort leaves behind, are searched for what is
// nearest to the images.
#include "closed/pathwerk/decalage/Report.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "base/Indices.h"
#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::decalage {

namespace {

constexpr double Inf = std::numeric_limits<double>::infinity();

Segment AreteDe(const Piece& piece, std::size_t k) { return base::Arete(piece.points, k); }

std::size_t NbAretes(const Piece& piece) { return base::NbAretes(piece.points, piece.ferme); }

// Does the piece run along the source the way that goes?
bool Avance(const Piece& piece) {
  double somme = 0;
  for (const Origine& o : piece.origines) somme += o.Connue() ? double{o.a - o.de} : 0;
  return somme >= 0;
}

bool SaitDOuElleVient(const Piece& piece) { return piece.origines.size() >= NbAretes(piece); }

// The place nearest to the image on either side, its own first, if it is as near to the source as anything (all of
// a rounded corner is), else the nearest place.
template <class Proche>
Lieu Repond(const PointSuivi& r, double distance, double tolerance, Proche proche) {
  Lieu meilleur = proche(r.lieu);
  const double limite = std::sqrt(meilleur.distance2) + tolerance;
  double ecart = Inf;
  for (const double cote : {1.0, -1.0}) {
    const Lieu l = proche(r.lieu + r.normale * (cote * distance));
    if (l.distance2 < ecart && Norme(l.point - r.lieu) <= limite) {
      ecart = l.distance2;
      meilleur = l;
    }
  }
  return meilleur;
}

// An image that lies on the pieces, wherever they come from.
template <class Proche>
std::optional<Lieu> SurImage(const PointSuivi& r, double distance, double tolerance, Proche proche) {
  for (const double cote : {1.0, -1.0}) {
    const Lieu l = proche(r.lieu + r.normale * (cote * distance));
    if (l.distance2 < tolerance * tolerance) return l;
  }
  return std::nullopt;
}

Lieu ProcheSur(const Piece& piece, Vec2 p, double limite2 = Inf) {
  return base::LieuProche(
      NbAretes(piece), [&](std::size_t i) { return AreteDe(piece, i); }, p, limite2);
}

// All edges of the pieces that take marks, in a search tree built when it is first asked.
class Foret {
 public:
  explicit Foret(std::span<const Piece> pieces) : pieces_(pieces) {}

  [[nodiscard]] Lieu PlusProche(Vec2 p) {
    if (!arbre_) Construit();
    return arbre_->PlusProche(p);
  }
  [[nodiscard]] LieuDePiece EnPiece(const Lieu& l) const {
    const auto it = std::upper_bound(debut_.begin(), debut_.end(), l.segment) - 1;
    return {base::Indice(it - debut_.begin()), l.segment - *it, l.t, l.point};
  }

 private:
  void Construit() {
    std::vector<Segment> segments;
    for (const Piece& p : pieces_) {
      debut_.push_back(segments.size());
      if (!p.marques) continue;
      for (std::size_t i = 0, n = NbAretes(p); i < n; ++i) segments.push_back(AreteDe(p, i));
    }
    arbre_.emplace(std::move(segments));
  }
  std::span<const Piece> pieces_;
  std::vector<std::size_t> debut_;  // first segment of each piece
  std::optional<ArbreSegments> arbre_;
};

}  // namespace

Report::Report(const Source& source, double distance, double tolerance)
    : source_(source), distance_(distance), tolerance_(tolerance), longueur_(base::Abscisses(source.chemin)) {}

// Along the source, mm.
double Report::Place(const Origine& o, float part) const {
  const double a = longueur_[o.segment];
  return a + (longueur_[o.segment + 1] - a) * part;
}

// Way along the source between two places, mm.
double Report::Ecart(double a, double b) const {
  const double e = std::abs(a - b);
  return source_.ferme ? std::min(e, longueur_.back() - e) : e;
}

// Does all of a segment surely lie farther from the start than `seuil` mm along the source?
bool Report::Loin(std::uint32_t segment, double seuil) const {
  return longueur_[segment] > seuil && longueur_[segment + 1] < longueur_.back() - seuil;
}

// Squared distance of an edge to the nearer image, and the place there.
double Report::AuxImages(const PointSuivi& r, const Piece& piece, std::size_t arete, LieuDePiece& lieu) const {
  double meilleur = Inf;
  for (const double cote : {1.0, -1.0}) {
    const Lieu l = LieuSurSegment(AreteDe(piece, arete), r.lieu + r.normale * (cote * distance_));
    if (l.distance2 >= meilleur) continue;
    meilleur = l.distance2;
    lieu = {lieu.piece, arete, l.t, l.point};
  }
  return meilleur;
}

// Where the piece leaves the place `s` of the source, which the edge reaches: around a corner many edges run beside
// one place. `suivante`: going on along the piece, else going back.
LieuDePiece Report::Bout(const Piece& piece, std::size_t arete, double s, bool suivante) const {
  const std::size_t n = NbAretes(piece);
  std::size_t k = arete;
  for (std::size_t pas = 1; pas < n; ++pas) {
    if (!piece.ferme && k == (suivante ? n - 1 : 0)) break;
    const std::size_t voisine = suivante ? base::Suivant(k, n) : base::Precedent(k, n);
    const Origine& o = piece.origines[voisine];
    if (!o.Connue() || o.de != o.a || Ecart(Place(o, o.de), s) > 0) break;
    k = voisine;
  }
  const Segment bout = AreteDe(piece, k);
  return {0, k, suivante ? 1.0 : 0.0, suivante ? bout.b : bout.a};
}

LieuDePiece Report::Depart(const Piece& piece) const {
  const PointSuivi& depart = source_.depart;
  const auto proche = [&piece](Vec2 p) { return ProcheSur(piece, p); };
  const auto enPiece = [](const Lieu& l) { return LieuDePiece{0, l.segment, l.t, l.point}; };
  if (!SaitDOuElleVient(piece)) return enPiece(Repond(depart, distance_, tolerance_, proche));
  const double seuil = tolerance_ / 10;
  // The start lies at 0 along the source. Edges beside it come first; most pieces have one, and no more is asked
  // then.
  LieuDePiece image;
  double meilleureImage = Inf;
  for (std::size_t k = 0, n = NbAretes(piece); k < n; ++k) {
    const Origine& o = piece.origines[k];
    if (!o.Connue() || Loin(o.segment, seuil)) continue;
    if (std::min(Ecart(Place(o, o.de), 0), Ecart(Place(o, o.a), 0)) > seuil) continue;
    LieuDePiece l;
    const double d = AuxImages(depart, piece, k, l);
    if (d < meilleureImage) {
      meilleureImage = d;
      image = l;
    }
  }
  if (meilleureImage < Inf) return image;
  const auto toutPres = [&](Vec2 p) { return ProcheSur(piece, p, tolerance_ * tolerance_); };
  if (const auto l = SurImage(depart, distance_, tolerance_, toutPres)) return enPiece(*l);
  std::size_t voisine = 0;
  double lieuVoisin = 0;
  double meilleurEcart = Inf;
  for (std::size_t k = 0, n = NbAretes(piece); k < n; ++k) {
    const Origine& o = piece.origines[k];
    if (!o.Connue()) continue;
    const double de = Ecart(Place(o, o.de), 0);
    const double a = Ecart(Place(o, o.a), 0);
    if (std::min(de, a) >= meilleurEcart) continue;
    meilleurEcart = std::min(de, a);
    voisine = k;
    lieuVoisin = Place(o, de <= a ? o.de : o.a);
  }
  if (meilleurEcart == Inf) return enPiece(Repond(depart, distance_, tolerance_, proche));
  // Met on the way on from the start, or on the way back.
  const bool devant = lieuVoisin <= longueur_.back() / 2;
  return Bout(piece, voisine, lieuVoisin, devant != Avance(piece));
}

// Stretch of the source beside one edge, mm along the source.
struct Report::Etendue {
  double de;
  double a;
  std::uint32_t piece;
  std::uint32_t arete;
};

// Edges by where they lie along the source.
class Report::Index {
 public:
  Index(const Report& report, std::span<const Piece> pieces) : report_(report), pieces_(pieces) {
    for (std::size_t p = 0; p < pieces.size(); ++p) {
      if (!pieces[p].marques) continue;
      for (std::size_t k = 0, n = NbAretes(pieces[p]); k < n; ++k) {
        const Origine& o = pieces[p].origines[k];
        if (!o.Connue()) continue;
        const double de = report.Place(o, o.de);
        const double a = report.Place(o, o.a);
        etendues_.push_back({std::min(de, a), std::max(de, a), Numero32(p), Numero32(k)});
      }
    }
    std::sort(etendues_.begin(), etendues_.end(), [](const Etendue& x, const Etendue& y) {
      return x.de != y.de ? x.de < y.de : x.piece != y.piece ? x.piece < y.piece : x.arete < y.arete;
    });
    // Of all up to each one, that which reaches farthest.
    loin_.reserve(etendues_.size());
    for (std::uint32_t i = 0; i < etendues_.size(); ++i) {
      loin_.push_back(i == 0 || etendues_[i].a >= etendues_[loin_.back()].a ? i : loin_.back());
    }
    // Which way each piece runs along the source.
    for (const Piece& p : pieces) avance_.push_back(Avance(p));
  }
  [[nodiscard]] bool Vide() const { return etendues_.empty(); }

  // The image of the mark on edges that run beside its place.
  [[nodiscard]] std::optional<LieuDePiece> Image(const PointSuivi& r) const {
    std::optional<LieuDePiece> lieu;
    double meilleur = Inf;
    const double seuil = report_.tolerance_ / 10;
    ParTours(r, [&](double s) {
      for (std::size_t i = Apres(s + seuil); i > 0 && etendues_[loin_[i - 1]].a >= s - seuil; --i) {
        const Etendue& e = etendues_[i - 1];
        if (e.a < s - seuil) continue;
        LieuDePiece l;
        l.piece = e.piece;
        const double d = report_.AuxImages(r, pieces_[e.piece], e.arete, l);
        if (d < meilleur) {
          meilleur = d;
          lieu = l;
        }
      }
    });
    return lieu;
  }
  // The nearest place along the source.
  [[nodiscard]] LieuDePiece LeLong(const PointSuivi& r) const {
    LieuDePiece lieu;
    double meilleur = Inf;
    ParTours(r, [&](double s) {
      const std::size_t i = Apres(s);
      if (i > 0) {
        const Etendue& e = etendues_[loin_[i - 1]];
        if (s - e.a < meilleur) {
          meilleur = s - e.a;
          lieu = Bout(e, e.a, true);
        }
      }
      if (i < etendues_.size() && etendues_[i].de - s < meilleur) {
        meilleur = etendues_[i].de - s;
        lieu = Bout(etendues_[i], etendues_[i].de, false);
      }
    });
    return lieu;
  }

 private:
  // The mark's place along the source, and once around either way.
  template <class F>
  void ParTours(const PointSuivi& r, F f) const {
    const double s = report_.longueur_[r.rang];
    const double tour = report_.longueur_.back();
    f(s);
    if (!report_.source_.ferme) return;
    f(s + tour);
    f(s - tour);
  }
  // First one that begins behind `s`.
  [[nodiscard]] std::size_t Apres(double s) const {
    const auto it = std::upper_bound(etendues_.begin(), etendues_.end(), s,
                                     [](double v, const Etendue& e) { return v < e.de; });
    return base::Indice(it - etendues_.begin());
  }
  [[nodiscard]] LieuDePiece Bout(const Etendue& e, double s, bool derriere) const {
    LieuDePiece l = report_.Bout(pieces_[e.piece], e.arete, s, derriere == (avance_[e.piece] != 0));
    l.piece = e.piece;
    return l;
  }

  const Report& report_;
  std::span<const Piece> pieces_;
  std::vector<Etendue> etendues_;
  std::vector<std::uint32_t> loin_;
  std::vector<char> avance_;
};

std::vector<LieuDePiece> Report::Marques(std::span<const Piece> pieces) const {
  std::vector<LieuDePiece> lieux;
  const auto prend = [](const Piece& p) { return p.marques && NbAretes(p) > 0; };
  if (source_.suivis.empty() || std::none_of(pieces.begin(), pieces.end(), prend)) return lieux;
  const bool connus =
      std::all_of(pieces.begin(), pieces.end(), [&](const Piece& p) { return !prend(p) || SaitDOuElleVient(p); });
  std::optional<Index> index;
  if (connus) index.emplace(*this, pieces);
  Foret foret(pieces);
  const auto proche = [&foret](Vec2 p) { return foret.PlusProche(p); };
  for (const PointSuivi& marque : source_.suivis) {
    if (!index || index->Vide()) {
      const Lieu l = Repond(marque, distance_, tolerance_, proche);
      lieux.push_back(foret.EnPiece(l));
    } else if (const auto image = index->Image(marque)) {
      lieux.push_back(*image);
    } else if (const auto l = SurImage(marque, distance_, tolerance_, proche)) {
      lieux.push_back(foret.EnPiece(*l));
    } else {
      lieux.push_back(index->LeLong(marque));
    }
  }
  return lieux;
}

}  // namespace pathwerk::decalage
