#include "tests/unit/closed/pathwerk/controle/Controle.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>
#include <random>
#include <set>

namespace controle {

namespace {

P operator+(P a, P b) { return {a.x + b.x, a.y + b.y}; }
P operator-(P a, P b) { return {a.x - b.x, a.y - b.y}; }
P operator*(P a, double s) { return {a.x * s, a.y * s}; }
double Dot(P a, P b) { return a.x * b.x + a.y * b.y; }
double Croix(P a, P b) { return a.x * b.y - a.y * b.x; }
double Long(P a) { return std::hypot(a.x, a.y); }
P EnP(const pathwerk::PointTrace& p) { return {static_cast<double>(p.X), static_cast<double>(p.Y)}; }

double AuSegment(P p, P a, P b) {
  const P d = b - a;
  const double l = Dot(d, d);
  const double t = l > 0 ? std::clamp(Dot(p - a, d) / l, 0.0, 1.0) : 0.0;
  return Long(a + d * t - p);
}

struct Seg {
  P a, b;
};

// Segments in a grid of square cells; the search widens ring by ring.
class Grille {
 public:
  explicit Grille(std::vector<Seg> s) : s_(std::move(s)) {
    if (s_.empty()) return;
    double x1 = -1e300, y1 = -1e300, somme = 0;
    for (const Seg& g : s_) {
      x0_ = std::min({x0_, g.a.x, g.b.x});
      y0_ = std::min({y0_, g.a.y, g.b.y});
      x1 = std::max({x1, g.a.x, g.b.x});
      y1 = std::max({y1, g.a.y, g.b.y});
      somme += Long(g.b - g.a);
    }
    const double w = std::max(x1 - x0_, y1 - y0_);
    pas_ = std::max({somme / static_cast<double>(s_.size()), w / 300, 1e-9});
    nx_ = static_cast<long>((x1 - x0_) / pas_) + 1;
    ny_ = static_cast<long>((y1 - y0_) / pas_) + 1;
    cases_.resize(static_cast<std::size_t>(nx_ * ny_));
    for (std::size_t i = 0; i < s_.size(); ++i) {
      const Seg& g = s_[i];
      const long xa = Cx(std::min(g.a.x, g.b.x)), xb = Cx(std::max(g.a.x, g.b.x));
      const long ya = Cy(std::min(g.a.y, g.b.y)), yb = Cy(std::max(g.a.y, g.b.y));
      for (long y = ya; y <= yb; ++y) {
        for (long x = xa; x <= xb; ++x) cases_[static_cast<std::size_t>(y * nx_ + x)].push_back(i);
      }
    }
  }
  [[nodiscard]] double Distance(P p) const {
    double d = std::numeric_limits<double>::infinity();
    if (s_.empty()) return d;
    const long cx = Cx(p.x), cy = Cy(p.y);
    for (long r = 0; r <= std::max(nx_, ny_); ++r) {
      // Ring r is at least r - 1 cells away from the place in the grid nearest to p, and so from p.
      if (d <= static_cast<double>(r - 1) * pas_) break;
      for (long y = std::max(0L, cy - r); y <= std::min(ny_ - 1, cy + r); ++y) {
        const bool bord = y == cy - r || y == cy + r;
        for (long x = std::max(0L, cx - r); x <= std::min(nx_ - 1, cx + r); ++x) {
          if (!bord && x != cx - r && x != cx + r) continue;
          for (const std::size_t i : cases_[static_cast<std::size_t>(y * nx_ + x)]) {
            d = std::min(d, AuSegment(p, s_[i].a, s_[i].b));
          }
        }
      }
    }
    return d;
  }

 private:
  [[nodiscard]] long Cx(double x) const { return std::clamp(static_cast<long>((x - x0_) / pas_), 0L, nx_ - 1); }
  [[nodiscard]] long Cy(double y) const { return std::clamp(static_cast<long>((y - y0_) / pas_), 0L, ny_ - 1); }
  std::vector<Seg> s_;
  double x0_ = 1e300, y0_ = 1e300, pas_ = 1;
  long nx_ = 1, ny_ = 1;
  std::vector<std::vector<std::size_t>> cases_;
};

std::vector<Seg> Segments(const Trace& t) {
  std::vector<Seg> s;
  for (std::size_t i = 0; i + 1 < t.size(); ++i) {
    if (t[i].Seq == t[i + 1].Seq) s.push_back({EnP(t[i]), EnP(t[i + 1])});
  }
  return s;
}

Forme SansRepetes(const Trace& t) {
  Forme f;
  for (const auto& r : t) {
    const P p = EnP(r);
    if (f.empty() || Long(p - f.back()) > 0) f.push_back(p);
  }
  return f;
}

constexpr double Pli = 0.003;  // mm: legs of a turn right back that part by less lie on each other

struct Arc {
  P centre;
  double a0, balayage;
};

// Parallel segments and outer arcs of the path on the wanted side: everything that the true curve is made of.
struct Brut {
  std::vector<Seg> segments;
  std::vector<Arc> arcs;
  // Around tips whose legs part by less than the tolerance tells: on the inner side such an arc may be there or
  // not.
  std::vector<Arc> permis;
  double rayon = 0;

  [[nodiscard]] double Distance(P p) const {
    double d = std::numeric_limits<double>::infinity();
    for (const Seg& s : segments) d = std::min(d, AuSegment(p, s.a, s.b));
    for (const auto* liste : {&arcs, &permis}) {
      for (const Arc& a : *liste) d = std::min(d, AArc(a, p));
    }
    return d;
  }
  [[nodiscard]] double AArc(const Arc& a, P p) const {
    const P v = p - a.centre;
    double w = std::remainder(std::atan2(v.y, v.x) - a.a0, 2 * std::numbers::pi);
    if (a.balayage < 0) w = -w;
    if (w < 0) w += 2 * std::numbers::pi;
    if (w <= std::abs(a.balayage)) return std::abs(Long(v) - rayon);
    double d = std::numeric_limits<double>::infinity();
    for (const double e : {a.a0, a.a0 + a.balayage}) {
      d = std::min(d, Long(a.centre + P{std::cos(e), std::sin(e)} * rayon - p));
    }
    return d;
  }
};

Brut BrutDe(const Trace& source, double decal) {
  Forme f = SansRepetes(source);
  const bool ferme = EstFermee(source) && source.size() > 2;
  if (ferme) f.pop_back();
  Brut b;
  b.rayon = std::abs(decal);
  const std::size_t n = f.size();
  for (std::size_t i = 0; i + (ferme ? 0 : 1) < n; ++i) {
    const P a = f[i], c = f[(i + 1) % n];
    const P u = (c - a) * (1 / Long(c - a));
    const P o{-u.y * decal, u.x * decal};
    b.segments.push_back({a + o, c + o});
    if (!ferme && i + 2 >= n) break;
    const P e = f[(i + 2) % n];
    const P v = (e - c) * (1 / Long(e - c));
    double tour = std::atan2(Croix(u, v), Dot(u, v));
    if (std::abs(std::abs(tour) - std::numbers::pi) < 1e-9) tour = decal > 0 ? -std::numbers::pi : std::numbers::pi;
    if (tour * decal < 0) {
      b.arcs.push_back({c, std::atan2(o.y, o.x), tour});
    } else if (std::min(Long(c - a), Long(e - c)) * (std::numbers::pi - std::abs(tour)) < Pli) {
      b.permis.push_back({c, std::atan2(o.y, o.x), decal > 0 ? -std::numbers::pi : std::numbers::pi});
    }
  }
  return b;
}

}  // namespace

Trace EnTrace(const Forme& forme, bool ferme) {
  Trace t;
  for (const P p : forme) {
    t.push_back({static_cast<float>(p.x), static_cast<float>(p.y), pathwerk::CodePD, pathwerk::Code2(" A")});
  }
  if (ferme && !t.empty()) t.push_back(t.front());
  return t;
}

std::vector<Trace> Pieces(const Trace& trace) {
  std::vector<Trace> r;
  for (const auto& p : trace) {
    if (r.empty() || r.back().back().Seq != p.Seq) r.emplace_back();
    r.back().push_back(p);
  }
  return r;
}

bool EstFermee(const Trace& t) { return t.size() > 1 && pathwerk::MemePlace(t.front(), t.back()); }

double Aire(const Trace& t) {
  double s = 0;
  for (std::size_t i = 0; i + 1 < t.size(); ++i) s += Croix(EnP(t[i]) - EnP(t[0]), EnP(t[i + 1]) - EnP(t[0]));
  return s / 2;
}

double Longueur(const Trace& t) {
  double s = 0;
  for (const Seg& g : Segments(t)) s += Long(g.b - g.a);
  return s;
}

Boite BoiteDe(const Trace& t) {
  Boite b{1e300, 1e300, -1e300, -1e300};
  for (const auto& r : t) {
    const P p = EnP(r);
    b = {std::min(b.x0, p.x), std::min(b.y0, p.y), std::max(b.x1, p.x), std::max(b.y1, p.y)};
  }
  return b;
}

double Distance(const Trace& ligne, P p) {
  double d = std::numeric_limits<double>::infinity();
  for (const auto& r : ligne) d = std::min(d, Long(EnP(r) - p));
  for (const Seg& s : Segments(ligne)) d = std::min(d, AuSegment(p, s.a, s.b));
  return d;
}

std::string Texte(const Trace& t) {
  std::string s = "Trace{";
  char ligne[96];
  for (std::size_t i = 0; i < t.size() && i < 400; ++i) {
    std::snprintf(ligne, sizeof ligne, "{%.9gF, %.9gF, Code2(\"%s\"), Code2(\" A\")}, ",
                  static_cast<double>(t[i].X), static_cast<double>(t[i].Y), t[i].Cde.Texte().c_str());
    s += ligne;
  }
  return s + (t.size() > 400 ? "..." : "") + "}";
}

double Ecarts::Pire() const { return std::max({tropPres, tropLoin, manque}); }

Ecarts Mesure(const Trace& source, const Trace& resultat, double decal, std::size_t max) {
  const double r = std::abs(decal);
  const Grille proche(Segments(source));
  const std::vector<Seg> sortie = Segments(resultat);
  const Brut brut = BrutDe(source, decal);
  Ecarts e;
  const std::size_t saut = std::max<std::size_t>(1, sortie.size() * 3 / max);
  for (std::size_t i = 0; i < sortie.size(); i += saut) {
    for (const double t : {0.0, 0.3, 0.5, 0.77}) {
      const P p = sortie[i].a + (sortie[i].b - sortie[i].a) * t;
      e.tropPres = std::max(e.tropPres, r - proche.Distance(p));
      e.tropLoin = std::max(e.tropLoin, brut.Distance(p));
    }
  }
  const Grille obtenu(sortie);
  const std::size_t pas = std::max<std::size_t>(1, brut.segments.size() * 6 / max);
  const auto essaie = [&](P p) {
    if (proche.Distance(p) >= r - 1e-7) e.manque = std::max(e.manque, std::min(obtenu.Distance(p), 1e9));
  };
  for (std::size_t i = 0; i < brut.segments.size(); i += pas) {
    const Seg& s = brut.segments[i];
    // Beside the very ends: where two legs part at a tip, the parallel of one touches the true curve in one point.
    const double bord = std::min(0.1, 0.01 / Long(s.b - s.a));
    for (const double t : {bord, 0.17, 0.4, 0.5, 0.81, 1 - bord}) essaie(s.a + (s.b - s.a) * t);
  }
  for (std::size_t i = 0; i < brut.arcs.size(); i += pas) {
    const Arc& a = brut.arcs[i];
    for (const double t : {0.1, 0.35, 0.5, 0.8}) {
      const double w = a.a0 + a.balayage * t;
      essaie(a.centre + P{std::cos(w), std::sin(w)} * r);
    }
  }
  return e;
}

std::pair<int, Trace> Decale(const Trace& source, double decal, int recouvrement, float tolerance) {
  Trace t = source;
  const int r = pathwerk::DecalSequence(t, tolerance, static_cast<float>(decal), recouvrement);
  if (r == 0) t.clear();
  return {r, t};
}

Forme Carre(double x0, double y0, double cote) {
  return {{x0, y0}, {x0 + cote, y0}, {x0 + cote, y0 + cote}, {x0, y0 + cote}};
}

Forme Cercle(double rayon, int n, P centre) {
  Forme f;
  for (int i = 0; i < n; ++i) {
    const double a = 2 * std::numbers::pi * i / n;
    f.push_back(centre + P{std::cos(a), std::sin(a)} * rayon);
  }
  return f;
}

Forme Retourne(Forme f) {
  std::reverse(f.begin(), f.end());
  return f;
}

Forme Etoile(unsigned graine) {
  std::mt19937 g(graine);
  std::uniform_real_distribution<double> u(-1, 1);
  const int n = 5 + static_cast<int>((u(g) + 1) * 100);
  const double amplitude = 4 * (u(g) + 1);
  Forme f;
  for (int i = 0; i < n; ++i) {
    const double a = 2 * std::numbers::pi * i / n;
    f.push_back(P{std::cos(a), std::sin(a)} * (20 + amplitude * u(g)));
  }
  return f;
}

Forme CercleBruite(unsigned graine, int n, double amplitude) {
  std::mt19937 g(graine);
  std::uniform_real_distribution<double> u(-1, 1);
  Forme f;
  for (int i = 0; i < n; ++i) {
    const double a = 2 * std::numbers::pi * (i + 0.3 * u(g)) / n;
    f.push_back(P{std::cos(a), std::sin(a)} * (85 + 8 * std::sin(9 * a) + amplitude * u(g)));
  }
  return f;
}

Forme Peigne(int dents, double pas, double creux, unsigned graine) {
  std::mt19937 g(graine);
  std::uniform_real_distribution<double> u(0.7, 1);
  Forme f{{0, -10}, {dents * pas, -10}};
  for (int i = dents; i-- > 0;) {
    const double x = i * pas;
    const double h = creux * u(g);
    f.insert(f.end(), {{x + pas * 0.8, 0}, {x + pas * 0.75, h}, {x + pas * 0.3, h}, {x + pas * 0.25, 0}});
  }
  f.push_back({0, 0});
  return f;
}

Forme Koch(int niveau, double cote) {
  Forme p{{0, 0}, {cote / 2, cote * std::sqrt(3.0) / 2}, {cote, 0}};  // clockwise
  for (int l = 0; l < niveau; ++l) {
    Forme q;
    for (std::size_t i = 0; i < p.size(); ++i) {
      const P a = p[i];
      const P d = (p[(i + 1) % p.size()] - a) * (1 / 3.0);
      const P m{d.x * 0.5 - d.y * std::sqrt(3.0) / 2, d.x * std::sqrt(3.0) / 2 + d.y * 0.5};
      q.insert(q.end(), {a, a + d, a + d + m, a + d * 2});
    }
    p = q;
  }
  return p;
}

Forme Spirale(double tours, double pas, double largeur, int n) {
  Forme f;
  const auto ajoute = [&](double s, double o) {
    const double a = 2 * std::numbers::pi * tours * s;
    f.push_back(P{std::cos(a), std::sin(a)} * (4 + pas * tours * s + o));
  };
  const int moitie = n / 2;
  for (int i = 0; i < moitie; ++i) ajoute(std::sqrt(i / (moitie - 1.0)), largeur / 2);
  for (int i = moitie; i-- > 0;) ajoute(std::sqrt(i / (moitie - 1.0)), -largeur / 2);
  return f;
}

Forme Polyomino(unsigned graine) {
  std::mt19937 g(graine);
  constexpr int w = 9;
  std::set<std::pair<int, int>> cases{{w / 2, w / 2}};
  // Grows at the edges; a cell that would close a ring around an empty one still leaves one outer contour to trace.
  for (int i = 0; i < 30; ++i) {
    auto it = cases.begin();
    std::advance(it, static_cast<long>(g() % cases.size()));
    const int d = static_cast<int>(g() % 4);
    cases.insert({it->first + (d == 0) - (d == 1), it->second + (d == 2) - (d == 3)});
  }
  const auto plein = [&](int x, int y) { return cases.contains({x, y}); };
  // Walk the outer border with the cells on the left.
  int x = cases.begin()->first, y = cases.begin()->second;  // lower left corner of the leftmost cell
  for (const auto& c : cases) {
    if (c.first == x) y = std::min(y, c.second);
  }
  const int x0 = x, y0 = y;
  int dx = 1, dy = 0;
  Forme f;
  do {
    f.push_back({static_cast<double>(x), static_cast<double>(y)});
    x += dx;
    y += dy;
    // Cells ahead, to the left and to the right of the heading.
    const auto devant = [&](int cote) {
      const int px = dx + (cote > 0 ? -dy : dy), py = dy + (cote > 0 ? dx : -dx);
      return plein(x + (px - 1) / 2, y + (py - 1) / 2);
    };
    const bool gauche = devant(1), droite = devant(-1);
    if (!gauche) {  // turn left
      const int t = dx;
      dx = -dy;
      dy = t;
    } else if (droite) {  // turn right
      const int t = dx;
      dx = dy;
      dy = -t;
    }
  } while (x != x0 || y != y0 || (dx == 0 && dy == 0));
  return f;
}

Forme Onde(int n, double longueur, double hauteur, double periodes) {
  Forme f;
  for (int i = 0; i < n; ++i) {
    const double s = i / (n - 1.0);
    f.push_back({longueur * s, hauteur * std::sin(2 * std::numbers::pi * periodes * s)});
  }
  return f;
}

Forme SpiraleOuverte(double tours, double pas, int n) {
  Forme f;
  for (int i = 0; i < n; ++i) {
    const double s = std::sqrt(i / (n - 1.0));
    f.push_back(P{std::cos(2 * std::numbers::pi * tours * s), std::sin(2 * std::numbers::pi * tours * s)} *
                (2 + pas * tours * s));
  }
  return f;
}

Forme MarcheOuverte(unsigned graine, int n) {
  std::mt19937 g(graine);
  std::uniform_real_distribution<double> u(-1, 1);
  Forme f;
  P p{0, 0};
  double a = 0;
  for (int i = 0; i < n; ++i) {
    f.push_back(p);
    a += u(g) * 0.9;
    p = p + P{std::cos(a), std::sin(a)};
  }
  return f;
}

}  // namespace controle
