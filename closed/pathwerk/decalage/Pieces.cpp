#include "closed/pathwerk/decalage/Pieces.h"

#include <algorithm>
#include <cmath>

#include "base/Boite.h"
#include "base/Indices.h"
#include "closed/pathwerk/chemin/Simplifie.h"
#include "closed/pathwerk/decalage/Report.h"

namespace pathwerk::decalage {

namespace {

constexpr double LimiteCoordonnee = 1e8;  // mm

// Marks are the points that say something: everything but "PD" and blank.
bool EstMarque(const PointTrace& p) { return p.Cde != CodePD && p.Cde != Code2{}; }

// The box of all places, and which of them are marks. None: there is no place, or a coordinate is not finite or too
// great. In floats, of which nothing is lost: a million points pass in the time of reading them.
std::optional<base::Boite<float>> Parcourt(const std::vector<PointTrace>& points,
                                           std::vector<std::size_t>& marques) {
  base::Boite<float> b;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const PointTrace& p = points[i];
    if (std::isunordered(p.X, p.Y)) return std::nullopt;
    b.Etend(p.X, p.Y);
    if (EstMarque(p)) marques.push_back(i);
  }
  const auto limite = static_cast<float>(LimiteCoordonnee);
  const bool dedans = b.x0 >= -limite && b.x1 <= limite && b.y0 >= -limite && b.y1 <= limite;
  if (points.empty() || !dedans) return std::nullopt;
  return b;
}

// What thinning has to leave: the marks, and of an open path the segments at both ends, since the offset ends
// across them and a greater radius shows the least turn.
std::vector<std::size_t> Gardes(const std::vector<PointTrace>& points, const std::vector<std::size_t>& marques,
                                bool ferme) {
  std::vector<std::size_t> r = marques;
  if (ferme) return r;
  const auto ailleurs = [](const PointTrace& bout) {
    return [&bout](const PointTrace& p) { return !MemePlace(p, bout); };
  };
  r.push_back(base::Indice(std::find_if(points.begin(), points.end(), ailleurs(points.front())) - points.begin()));
  r.push_back(base::Indice(points.rend() - std::find_if(points.rbegin(), points.rend(), ailleurs(points.back()))) -
              1);
  std::sort(r.begin(), r.end());
  return r;
}

// How far the points that thinning left out lie from what it left, mm. The tolerance where it took nearly all of
// that: then the rest need not be looked at.
double EcartDe(const std::vector<PointTrace>& points, const std::vector<std::size_t>& reste, double tolerance) {
  const auto place = [&points](std::size_t i) { return Vec2{double{points[i].X}, double{points[i].Y}}; };
  double pire2 = 0;
  const double assez2 = 0.8 * tolerance * tolerance;
  for (std::size_t k = 0; k + 1 < reste.size(); ++k) {
    for (std::size_t i = reste[k] + 1; i < reste[k + 1]; ++i) {
      pire2 = std::max(pire2, LieuSurSegment({place(reste[k]), place(reste[k + 1])}, place(i)).distance2);
    }
    if (pire2 > assez2) return tolerance;
  }
  return std::sqrt(pire2);
}

// Mean left normal of the distinct neighbours of a point; a turn right back gives the direction onward.
Vec2 NormaleEn(const Chemin& c, bool ferme, std::size_t i) {
  const std::size_t n = c.size();
  if (n < 2) return {};
  const bool avant = ferme || i > 0;
  const bool apres = ferme || i + 1 < n;
  const Vec2 u = avant ? Unite(c[i] - c[base::Precedent(i, n)]) : Vec2{};
  const Vec2 v = apres ? Unite(c[base::Suivant(i, n)] - c[i]) : Vec2{};
  const Vec2 m = Unite(u + v);
  return m == Vec2{} ? u : Gauche(m);
}

// Begins a closed piece at a place of it.
void Tourne(Piece& piece, const LieuDePiece& l, double tolerance) {
  Chemin& c = piece.points;
  Origines& o = piece.origines;
  const std::size_t n = c.size();
  const std::size_t apres = base::Suivant(l.arete, n);
  std::size_t premier = apres;
  bool nouveau = false;
  if (Norme(l.point - c[l.arete]) <= tolerance / 10) {
    premier = l.arete;
  } else if (Norme(l.point - c[apres]) > tolerance / 10) {
    nouveau = true;
  }
  std::rotate(c.begin(), base::Iterateur(c, premier), c.end());
  if (nouveau) c.insert(c.begin(), l.point);
  if (o.size() != n) return;
  std::rotate(o.begin(), base::Iterateur(o, premier), o.end());
  if (!nouveau) return;
  Origine reste = o.back();
  reste.de = o.back().a = o.back().En(l.t);
  o.insert(o.begin(), reste);
}

struct Insertion {
  LieuDePiece lieu;
  Code2 cde;
};

// The marks in the order in which the pieces pass them.
std::vector<Insertion> PlaceMarques(const std::vector<Piece>& pieces, const Source& source, const Report& report) {
  const std::vector<LieuDePiece> lieux = report.Marques(pieces);
  std::vector<Insertion> r;
  for (std::size_t i = 0; i < lieux.size(); ++i) r.push_back({lieux[i], source.suivis[i].cde});
  std::stable_sort(r.begin(), r.end(), [](const Insertion& x, const Insertion& y) {
    const LieuDePiece& a = x.lieu;
    const LieuDePiece& b = y.lieu;
    if (a.piece != b.piece) return a.piece < b.piece;
    return a.arete != b.arete ? a.arete < b.arete : a.t < b.t;
  });
  return r;
}

// Records of one piece, in floats.
class Ecrivain {
 public:
  Ecrivain(Vec2 centre, Code2 seq, std::size_t points) : centre_(centre), seq_(seq) { points_.reserve(points); }

  void Point(Vec2 p, Code2 cde) {
    const Vec2 q = p + centre_;
    PointTrace r{static_cast<float>(q.x), static_cast<float>(q.y), cde, seq_};
    if (!points_.empty() && MemePlace(r, points_.back())) {
      if (cde == CodePD) return;
      if (points_.back().Cde == CodePD) {  // the mark lies on a vertex
        points_.back().Cde = cde;
        return;
      }
    }
    points_.push_back(r);
  }
  // The record that holds the last place, to which Ferme comes back.
  [[nodiscard]] std::size_t Dernier() const { return points_.size() - 1; }
  void Ferme(std::size_t debut) {
    const PointTrace premier{points_[debut].X, points_[debut].Y, CodePD, seq_};
    if (points_.size() > debut + 1 && MemePlace(points_.back(), premier) && points_.back().Cde == CodePD) return;
    points_.push_back(premier);
  }
  [[nodiscard]] bool Etendu() const {
    return std::any_of(points_.begin(), points_.end(),
                       [this](const PointTrace& p) { return !MemePlace(p, points_.front()); });
  }
  [[nodiscard]] std::vector<PointTrace>& Points() { return points_; }

 private:
  Vec2 centre_;
  Code2 seq_;
  std::vector<PointTrace> points_;
};

Code2 CodeDePiece(std::size_t rang) {
  const auto n = static_cast<unsigned>(rang % 99 + 1);
  return {static_cast<char16_t>(u'0' + n / 10), static_cast<char16_t>(u'0' + n % 10)};
}

}  // namespace

std::optional<Source> PrepareSource(const std::vector<PointTrace>& points, double tolerance) {
  Source s;
  const std::size_t n = points.size();
  std::vector<std::size_t> marques;
  const std::optional<base::Boite<float>> boite = Parcourt(points, marques);
  if (!boite) return std::nullopt;
  const base::Boite<double> b{boite->x0, boite->y0, boite->x1, boite->y1};
  if (b.x0 == b.x1 && b.y0 == b.y1) return std::nullopt;
  s.centre = {(b.x0 + b.x1) / 2, (b.y0 + b.y1) / 2};
  s.ferme = n > 2 && MemePlace(points.front(), points.back());

  const std::vector<std::size_t> reste =
      chemin::Simplifie(points, s.centre, Gardes(points, marques, s.ferme), tolerance);
  s.ecart = EcartDe(points, reste, tolerance);
  s.chemin.reserve(reste.size());
  std::size_t m = 0;  // the next mark
  for (const std::size_t i : reste) {
    const Vec2 p = Vec2{double{points[i].X}, double{points[i].Y}} - s.centre;
    if (s.chemin.empty() || !(p == s.chemin.back())) s.chemin.push_back(p);
    if (m == marques.size() || marques[m] != i) continue;
    ++m;
    // Of the two records of a seam that are both marked, one counts.
    const bool couture = s.ferme && i + 1 == n && EstMarque(points[0]);
    if (!couture) s.suivis.push_back({s.chemin.size() - 1, {}, {}, points[i].Cde});
  }
  if (s.ferme) s.chemin.pop_back();
  for (PointSuivi& suivi : s.suivis) {
    suivi.rang %= s.chemin.size();
    suivi.lieu = s.chemin[suivi.rang];
    suivi.normale = NormaleEn(s.chemin, s.ferme, suivi.rang);
  }
  s.depart = {0, s.chemin[0], NormaleEn(s.chemin, s.ferme, 0), CodePD};
  return s;
}

void Commence(Piece& piece, const Report& report, double tolerance) {
  if (piece.points.size() > 1) Tourne(piece, report.Depart(piece), tolerance);
}

std::vector<PointTrace> EcritPieces(std::vector<Piece> pieces, const Source& source, double distance,
                                    double tolerance) {
  const Report report(source, distance, tolerance);
  for (Piece& p : pieces) {
    if (p.ferme && p.avant.empty()) Commence(p, report, tolerance);
  }
  const std::vector<Insertion> marques = PlaceMarques(pieces, source, report);
  std::vector<PointTrace> r;
  std::size_t rang = 0;
  std::size_t m = 0;
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    const Chemin& c = pieces[k].points;
    Ecrivain e(source.centre, CodeDePiece(rang), pieces[k].avant.size() + c.size() + 1);
    for (const Vec2 p : pieces[k].avant) e.Point(p, CodePD);
    std::size_t debut = 0;
    for (std::size_t i = 0; i < c.size(); ++i) {
      e.Point(c[i], CodePD);
      if (i == 0) debut = e.Dernier();
      for (; m < marques.size() && marques[m].lieu.piece == k && marques[m].lieu.arete == i; ++m) {
        e.Point(marques[m].lieu.point, marques[m].cde);
      }
    }
    if (pieces[k].ferme && !c.empty()) e.Ferme(debut);
    if (!e.Etendu()) continue;
    if (r.empty()) {
      r.swap(e.Points());
    } else {
      r.insert(r.end(), e.Points().begin(), e.Points().end());
    }
    ++rang;
  }
  return r;
}

}  // namespace pathwerk::decalage
