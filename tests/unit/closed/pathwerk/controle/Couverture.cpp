#include "tests/unit/closed/pathwerk/controle/Couverture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace controle {

namespace {

struct Seg {
  P a, b;
};

P EnP(const pathwerk::PointTrace& p) { return {static_cast<double>(p.X), static_cast<double>(p.Y)}; }

std::vector<Seg> Segments(const Trace& t) {
  std::vector<Seg> s;
  for (std::size_t i = 0; i + 1 < t.size(); ++i) {
    if (t[i].Seq == t[i + 1].Seq) s.push_back({EnP(t[i]), EnP(t[i + 1])});
  }
  return s;
}

double AuSegment(P p, const Seg& s) {
  const double dx = s.b.x - s.a.x, dy = s.b.y - s.a.y;
  const double l2 = dx * dx + dy * dy;
  const double t = l2 > 0 ? std::clamp(((p.x - s.a.x) * dx + (p.y - s.a.y) * dy) / l2, 0.0, 1.0) : 0.0;
  return std::hypot(s.a.x + t * dx - p.x, s.a.y + t * dy - p.y);
}

double Cote(const Seg& s, P p) { return (s.b.x - s.a.x) * (p.y - s.a.y) - (s.b.y - s.a.y) * (p.x - s.a.x); }

double Entre(const Seg& s, const Seg& t) {
  if (Cote(s, t.a) * Cote(s, t.b) < 0 && Cote(t, s.a) * Cote(t, s.b) < 0) return 0;
  return std::min({AuSegment(t.a, s), AuSegment(t.b, s), AuSegment(s.a, t), AuSegment(s.b, t)});
}

// Cells of the plane, one byte each, looked at in their middle.
class Grille {
 public:
  Grille(const Boite& b, double pas)
      : pas_(pas),
        x0_(b.x0 - pas),
        y0_(b.y0 - pas),
        nx_(static_cast<long>((b.x1 - b.x0) / pas) + 4),
        ny_(static_cast<long>((b.y1 - b.y0) / pas) + 4) {}

  [[nodiscard]] std::size_t Taille() const { return static_cast<std::size_t>(nx_ * ny_); }
  [[nodiscard]] std::size_t I(long x, long y) const { return static_cast<std::size_t>(y * nx_ + x); }
  [[nodiscard]] P Milieu(std::size_t i) const {
    const long k = static_cast<long>(i);
    return {X(k % nx_), Y(k / nx_)};
  }

  // Cells inside: an odd number of crossings to their left.
  [[nodiscard]] std::vector<std::uint8_t> Dedans(const std::vector<Seg>& contour) const {
    std::vector<std::vector<double>> rangees(static_cast<std::size_t>(ny_));
    for (const Seg& s : contour) {
      const double bas = std::min(s.a.y, s.b.y), haut = std::max(s.a.y, s.b.y);
      for (long y = std::max(0L, Rang(bas)); y < ny_ && Y(y) <= haut; ++y) {
        const double py = Y(y);
        if ((s.a.y <= py) == (s.b.y <= py)) continue;
        rangees[static_cast<std::size_t>(y)].push_back(s.a.x + (py - s.a.y) / (s.b.y - s.a.y) * (s.b.x - s.a.x));
      }
    }
    std::vector<std::uint8_t> d(Taille(), 0);
    for (long y = 0; y < ny_; ++y) {
      std::vector<double>& xs = rangees[static_cast<std::size_t>(y)];
      std::sort(xs.begin(), xs.end());
      for (std::size_t k = 0; k + 1 < xs.size(); k += 2) Remplit(d, y, xs[k], xs[k + 1]);
    }
    return d;
  }

  // Cells not farther than `rayon` from the segments: row by row, as a capsule is convex.
  [[nodiscard]] std::vector<std::uint8_t> PresDe(const std::vector<Seg>& segments, double rayon) const {
    std::vector<std::uint8_t> d(Taille(), 0);
    for (const Seg& s : segments) {
      const long fin = std::min(ny_ - 1, Rang(std::max(s.a.y, s.b.y) + rayon) + 1);
      for (long y = std::max(0L, Rang(std::min(s.a.y, s.b.y) - rayon)); y <= fin; ++y) {
        double g = 1e300, h = -1e300;
        Section(s, rayon, Y(y), g, h);
        if (g <= h) Remplit(d, y, g, h);
      }
    }
    return d;
  }

  // Cells whose middle lies within `rayon` of the middle of a given one: exact distance transform, first along the
  // columns, then along the rows by the lower envelope of parabolas.
  [[nodiscard]] std::vector<std::uint8_t> Autour(const std::vector<std::uint8_t>& cellules, double rayon) const {
    constexpr double Loin = 1e12;
    std::vector<double> colonne(Taille(), Loin);
    for (long x = 0; x < nx_; ++x) {
      for (const bool monte : {true, false}) {
        double ecart = 1e6;
        for (long k = 0; k < ny_; ++k) {
          const std::size_t i = I(x, monte ? k : ny_ - 1 - k);
          ecart = cellules[i] != 0 ? 0 : ecart + 1;
          colonne[i] = std::min(colonne[i], ecart * ecart);
        }
      }
    }
    std::vector<std::uint8_t> d(Taille(), 0);
    const double limite = (rayon / pas_) * (rayon / pas_);
    std::vector<long> sommet(static_cast<std::size_t>(nx_));
    std::vector<double> borne(static_cast<std::size_t>(nx_) + 1);
    for (long y = 0; y < ny_; ++y) {
      std::size_t n = 0;
      const auto f = [&](long x) { return colonne[I(x, y)]; };
      for (long x = 0; x < nx_; ++x) {
        double croise = -1e300;
        while (n > 0) {
          const long v = sommet[n - 1];
          croise = (f(x) + static_cast<double>(x * x) - f(v) - static_cast<double>(v * v)) /
                   static_cast<double>(2 * (x - v));
          if (croise > borne[n - 1]) break;
          --n;
          croise = -1e300;
        }
        sommet[n] = x;
        borne[n] = croise;
        ++n;
      }
      std::size_t k = 0;
      for (long x = 0; x < nx_; ++x) {
        while (k + 1 < n && borne[k + 1] < static_cast<double>(x)) ++k;
        const auto e = static_cast<double>(x - sommet[k]);
        d[I(x, y)] = e * e + f(sommet[k]) <= limite;
      }
    }
    return d;
  }

 private:
  [[nodiscard]] double X(long x) const { return x0_ + pas_ * static_cast<double>(x); }
  [[nodiscard]] double Y(long y) const { return y0_ + pas_ * static_cast<double>(y); }
  [[nodiscard]] long Rang(double y) const { return static_cast<long>(std::floor((y - y0_) / pas_)); }
  void Remplit(std::vector<std::uint8_t>& d, long y, double g, double h) const {
    const long de = std::max(0L, static_cast<long>(std::ceil((g - x0_) / pas_)));
    const long a = std::min(nx_ - 1, static_cast<long>(std::floor((h - x0_) / pas_)));
    if (de <= a) std::fill(d.begin() + y * nx_ + de, d.begin() + y * nx_ + a + 1, std::uint8_t{1});
  }
  // The stretch of a row inside of the capsule: of its two discs and of the band between them.
  static void Section(const Seg& s, double r, double y, double& g, double& h) {
    for (const P p : {s.a, s.b}) {
      const double e = y - p.y;
      if (std::abs(e) > r) continue;
      const double w = std::sqrt(r * r - e * e);
      g = std::min(g, p.x - w);
      h = std::max(h, p.x + w);
    }
    const double dx = s.b.x - s.a.x, dy = s.b.y - s.a.y;
    const double l2 = dx * dx + dy * dy;
    if (l2 == 0) return;
    // 0 <= dx (x - ax) + dy (y - ay) <= l2 and |dx (y - ay) - dy (x - ax)| <= r l
    double bas = -1e300, haut = 1e300;
    const double vy = y - s.a.y;
    const auto borne = [&](double c, double u, double v) {  // u <= c (x - ax) <= v
      if (c == 0) {
        if (u > 0 || v < 0) haut = -1e300;
        return;
      }
      bas = std::max(bas, std::min(u / c, v / c));
      haut = std::min(haut, std::max(u / c, v / c));
    };
    borne(dx, -dy * vy, l2 - dy * vy);
    borne(dy, dx * vy - r * std::sqrt(l2), dx * vy + r * std::sqrt(l2));
    if (bas > haut) return;
    g = std::min(g, s.a.x + bas);
    h = std::max(h, s.a.x + haut);
  }

  double pas_, x0_, y0_;
  long nx_, ny_;
};

// Segments by the square of the plane that they pass, the squares so wide that neighbours hold all within a radius.
class Casier {
 public:
  Casier(const std::vector<Seg>& segments, double rayon) : segments_(segments), cote_(2 * rayon) {
    for (std::size_t i = 0; i < segments.size(); ++i) {
      const Seg& s = segments[i];
      const double l = std::hypot(s.b.x - s.a.x, s.b.y - s.a.y);
      const long n = static_cast<long>(l / rayon) + 1;
      std::int64_t avant = 0;
      for (long k = 0; k <= n; ++k) {
        const double t = static_cast<double>(k) / static_cast<double>(n);
        const std::int64_t c = Cle(Case(s.a.x + t * (s.b.x - s.a.x)), Case(s.a.y + t * (s.b.y - s.a.y)));
        if (k == 0 || c != avant) cases_[c].push_back(i);
        avant = c;
      }
    }
  }
  // Distance to the nearest segment, as far as that is less than the radius.
  [[nodiscard]] double Distance(const Seg& s, double rayon) const {
    const double l = std::hypot(s.b.x - s.a.x, s.b.y - s.a.y);
    const long n = static_cast<long>(l / rayon) + 1;
    double d = rayon;
    for (long k = 0; k < n; ++k) {
      const double t = static_cast<double>(k) / static_cast<double>(n);
      const double u = static_cast<double>(k + 1) / static_cast<double>(n);
      const Seg part{{s.a.x + t * (s.b.x - s.a.x), s.a.y + t * (s.b.y - s.a.y)},
                     {s.a.x + u * (s.b.x - s.a.x), s.a.y + u * (s.b.y - s.a.y)}};
      const long x = Case((part.a.x + part.b.x) / 2), y = Case((part.a.y + part.b.y) / 2);
      for (long v = y - 1; v <= y + 1; ++v) {
        for (long w = x - 1; w <= x + 1; ++w) {
          const auto it = cases_.find(Cle(w, v));
          if (it == cases_.end()) continue;
          for (const std::size_t i : it->second) d = std::min(d, Entre(segments_[i], part));
        }
      }
    }
    return d;
  }

 private:
  [[nodiscard]] long Case(double x) const { return static_cast<long>(std::floor(x / cote_)); }
  static std::int64_t Cle(long x, long y) { return (static_cast<std::int64_t>(x) << 32) ^ (y & 0xffffffffL); }

  const std::vector<Seg>& segments_;
  double cote_;
  std::unordered_map<std::int64_t, std::vector<std::size_t>> cases_;
};

bool Dedans(const std::vector<Seg>& contour, P p) {
  bool d = false;
  for (const Seg& s : contour) {
    if ((s.a.y <= p.y) == (s.b.y <= p.y)) continue;
    d ^= s.a.x + (p.y - s.a.y) / (s.b.y - s.a.y) * (s.b.x - s.a.x) < p.x;
  }
  return d;
}

}  // namespace

Couverture MesureCouverture(const Trace& contour, const Trace& chemin, double rayon) {
  return MesureCouverture(contour, {}, chemin, rayon);
}

Couverture MesureCouverture(const Trace& contour, const std::vector<Trace>& ilots, const Trace& chemin,
                            double rayon) {
  Couverture r;
  const std::vector<Seg> bord = Segments(contour);
  const std::vector<Seg> coupe = Segments(chemin);
  const Grille grille(BoiteDe(contour), rayon / 20);
  std::vector<std::uint8_t> dedans = grille.Dedans(bord);
  std::vector<Seg> murs = bord;
  for (const Trace& ilot : ilots) {
    const std::vector<Seg> sien = Segments(ilot);
    murs.insert(murs.end(), sien.begin(), sien.end());
    const std::vector<std::uint8_t> debout = grille.Dedans(sien);
    for (std::size_t i = 0; i < dedans.size(); ++i) dedans[i] = dedans[i] != 0 && debout[i] == 0;
  }
  const std::vector<std::uint8_t> mur = grille.PresDe(murs, rayon);
  std::vector<std::uint8_t> milieux(grille.Taille());
  for (std::size_t i = 0; i < milieux.size(); ++i) milieux[i] = dedans[i] != 0 && mur[i] == 0;
  const std::vector<std::uint8_t> atteint = grille.Autour(milieux, rayon);
  const std::vector<std::uint8_t> fait = grille.PresDe(coupe, rayon);
  for (std::size_t i = 0; i < fait.size(); ++i) {
    r.cellules += atteint[i];
    if (atteint[i] == 0 || fait[i] != 0) continue;
    double d = 1e9;
    for (const Seg& s : coupe) d = std::min(d, AuSegment(grille.Milieu(i), s));
    r.debout = std::max(r.debout, d - rayon);
    if (r.debout > rayon / 4) break;  // a whole spot: no need to measure each of its cells
  }
  const Casier casier(murs, rayon);
  for (const Seg& s : coupe) r.entaille = std::max(r.entaille, rayon - casier.Distance(s, rayon));
  // No move crosses the outline, so one place tells for all of a piece.
  for (std::size_t i = 0; i < chemin.size(); ++i) {
    if (i > 0 && chemin[i].Seq == chemin[i - 1].Seq) continue;
    const P p = EnP(chemin[i]);
    const auto sur = [p](const Trace& ilot) { return Dedans(Segments(ilot), p); };
    if (!Dedans(bord, p) || std::any_of(ilots.begin(), ilots.end(), sur)) r.entaille = 1e9;
  }
  if (r.entaille >= rayon) r.entaille = 1e9;
  return r;
}

}  // namespace controle
