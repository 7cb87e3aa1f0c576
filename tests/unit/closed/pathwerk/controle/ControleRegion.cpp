#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <set>

namespace controle {

using namespace pathwerk;
using namespace pathwerk::decalage;
using pathwerk::Vec2;

namespace {

double AuSegment(Vec2 p, Vec2 a, Vec2 b) {
  const Vec2 d = b - a;
  const double l2 = Scalaire(d, d);
  const double t = l2 > 0 ? std::clamp(Scalaire(p - a, d) / l2, 0.0, 1.0) : 0.0;
  return Norme(a + d * t - p);
}

Vec2 Tourne(Vec2 v, double a) {
  return {v.x * std::cos(a) - v.y * std::sin(a), v.x * std::sin(a) + v.y * std::cos(a)};
}

bool DuCote(const Region& region, double distance, Vec2 p) {
  if (region.signe == 0) return true;
  const int gauche = region.signe > 0 ? 1 : 0;
  const int t = Tours(region.contours, p);
  return distance > 0 ? t >= gauche : t < gauche;
}

// Places of all parallel segments and corner arcs that are far enough from everything.
template <class Essai>
void LieuxVrais(const Region& region, double distance, Essai essai) {
  std::size_t total = 0;
  for (const Chemin& c : region.contours) total += c.size();
  const std::size_t pas = total / 60 + 1;
  const double r = std::abs(distance);
  const auto juge = [&](Vec2 p) {
    if (Distance(region.contours, p) >= r - 1e-9 && DuCote(region, distance, p)) essai(p);
  };
  std::size_t rang = 0;
  for (const Chemin& c : region.contours) {
    const std::size_t n = c.size();
    for (std::size_t i = 0; i < n; ++i) {
      if (rang++ % pas != 0) continue;
      const Vec2 a = c[i], b = c[(i + 1) % n], d = c[(i + 2) % n];
      const Vec2 u = Unite(b - a), v = Unite(d - b);
      for (const double t : {0.0, 0.17, 0.5, 0.71, 1.0}) juge(a + (b - a) * t + Gauche(u) * distance);
      double w = std::atan2(Vectoriel(u, v), Scalaire(u, v));
      if (std::abs(std::abs(w) - std::numbers::pi) < 1e-9) w = distance > 0 ? -std::numbers::pi : std::numbers::pi;
      if (w * distance >= 0) continue;
      for (const double t : {0.1, 0.5, 0.8}) juge(b + Tourne(Gauche(u) * distance, w * t));
    }
  }
}

}  // namespace

Chemin EnChemin(const Forme& f) {
  Chemin c;
  for (const P p : f) c.push_back({p.x, p.y});
  return c;
}

int Tours(const std::vector<Chemin>& contours, Vec2 p) {
  int t = 0;
  for (const Chemin& c : contours) {
    for (std::size_t i = 0; i < c.size(); ++i) {
      const Vec2 a = c[i], b = c[(i + 1) % c.size()];
      const int sens = static_cast<int>(b.y > p.y) - static_cast<int>(a.y > p.y);
      if (sens != 0 && Vectoriel(b - a, p - a) * sens > 0) t += sens;
    }
  }
  return t;
}

double Distance(const std::vector<Chemin>& contours, Vec2 p) {
  double d = 1e300;
  for (const Chemin& c : contours) {
    for (std::size_t i = 0; i < c.size(); ++i) d = std::min(d, AuSegment(p, c[i], c[(i + 1) % c.size()]));
  }
  return d;
}

double AireDe(const std::vector<Chemin>& contours) {
  double a = 0;
  for (const Chemin& c : contours) a += pathwerk::Aire(c);
  return a;
}

EcartsRegion MesureRegion(const Region& region, const std::vector<Chemin>& boucles, double distance) {
  EcartsRegion e;
  const double r = std::abs(distance);
  std::size_t total = 0;
  for (const Chemin& c : boucles) total += c.size();
  const std::size_t pas = total / 150 + 1;
  std::size_t rang = 0;
  for (const Chemin& c : boucles) {
    for (std::size_t i = 0; i < c.size(); ++i) {
      if (rang++ % pas != 0) continue;
      for (const double t : {0.0, 0.21, 0.5, 0.83}) {
        const Vec2 p = c[i] + (c[(i + 1) % c.size()] - c[i]) * t;
        const double q = Distance(region.contours, p);
        e.tropPres = std::max(e.tropPres, r - q);
        e.tropLoin = std::max(e.tropLoin, q - r);
        if (q > 1e-4 && !DuCote(region, distance, p)) e.mauvaisCote = true;
      }
    }
  }
  LieuxVrais(region, distance,
             [&](Vec2 p) { e.manque = std::max(e.manque, boucles.empty() ? 1e9 : Distance(boucles, p)); });
  return e;
}

Chemin AllerRetour(const Forme& f) {
  Chemin c = EnChemin(f);
  for (std::size_t i = f.size() - 1; i-- > 1;) c.push_back(c[i]);
  return c;
}

Region Damier(std::mt19937_64& g, double part, double cote, bool coupe) {
  using Case = std::pair<int, int>;
  std::set<Case> pleines;
  const int w = 3 + static_cast<int>(g() % 7);
  for (int y = 0; y < w; ++y) {
    for (int x = 0; x < w; ++x) {
      if (std::uniform_real_distribution<double>(0, 1)(g) < part) pleines.insert({x, y});
    }
  }
  if (pleines.empty()) pleines.insert({0, 0});
  std::multimap<Case, Case> bords;  // from -> to, squares on the left
  for (const auto& [x, y] : pleines) {
    const auto vide = [&pleines, x = x, y = y](int dx, int dy) { return !pleines.contains({x + dx, y + dy}); };
    if (vide(0, -1)) bords.insert({{x, y}, {x + 1, y}});
    if (vide(1, 0)) bords.insert({{x + 1, y}, {x + 1, y + 1}});
    if (vide(0, 1)) bords.insert({{x + 1, y + 1}, {x, y + 1}});
    if (vide(-1, 0)) bords.insert({{x, y + 1}, {x, y}});
  }
  Region r{{}, 1};
  while (!bords.empty()) {
    const Case debut = bords.begin()->first;
    Case avant = debut, ici = bords.begin()->second;
    bords.erase(bords.begin());
    Chemin c{{debut.first * cote, debut.second * cote}};
    while (ici != debut) {
      c.push_back({ici.first * cote, ici.second * cote});
      auto [it, fin] = bords.equal_range(ici);
      auto choix = it;
      for (; it != fin; ++it) {
        const int tour = (ici.first - avant.first) * (it->second.second - ici.second) -
                         (ici.second - avant.second) * (it->second.first - ici.first);
        if (coupe ? tour > 0 : tour < 0) choix = it;
      }
      avant = ici;
      ici = choix->second;
      bords.erase(choix);
    }
    r.contours.push_back(std::move(c));
  }
  return r;
}

Forme MarcheSurGrille(std::mt19937_64& g, int n) {
  Forme f{{0, 0}};
  while (static_cast<int>(f.size()) < n) {
    const double s = static_cast<double>(1 + g() % 3) * (g() % 2 != 0 ? 1 : -1);
    const P p = f.back();
    f.push_back(g() % 2 != 0 ? P{p.x + s, p.y} : P{p.x, p.y + s});
  }
  return f;
}

Forme Croisee(std::mt19937_64& g, int n) {
  Forme f;
  P p{0, 0};
  while (static_cast<int>(f.size()) < n) {
    const P q{p.x + static_cast<double>(g() % 7) - 3, p.y + static_cast<double>(g() % 7) - 3};
    if (q.x == p.x && q.y == p.y) continue;
    f.push_back(q);
    p = q;
  }
  if (f.front().x == f.back().x && f.front().y == f.back().y) f.pop_back();
  return f;
}

}  // namespace controle
