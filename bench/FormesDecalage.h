// Outlines that try an offset engine, each hard in its own way. Millimetres; closed ones don't repeat their first
// point. `n` is the wanted number of points.
#pragma once

#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>

#include "closed/pathwerk/commun/Lieux.h"

namespace banc {

using pathwerk::Chemin;
using pathwerk::Vec2;

// Lobes on lobes, no noise beyond the spacing; the finer lobes are narrower than a 3 mm cutter.
inline Chemin Lisse(std::size_t n) {
  std::mt19937_64 g(1);
  std::uniform_real_distribution<double> u(-1, 1);
  Chemin c;
  for (std::size_t i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * (static_cast<double>(i) + 0.3 * u(g)) / static_cast<double>(n);
    const double q = 85 + 8 * std::sin(9 * t) + 2 * std::sin(41 * t);
    c.push_back({q * std::cos(t), q * std::sin(t)});
  }
  return c;
}

// The same lobes scanned badly: each point off by up to `bruit`.
inline Chemin Bruite(std::size_t n, double bruit) {
  std::mt19937_64 g(2);
  std::uniform_real_distribution<double> u(-1, 1);
  Chemin c;
  for (std::size_t i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * (static_cast<double>(i) + 0.3 * u(g)) / static_cast<double>(n);
    const double q = 85 + 8 * std::sin(9 * t) + bruit * u(g);
    c.push_back({q * std::cos(t), q * std::sin(t)});
  }
  return c;
}

inline Chemin Koch(std::size_t n) {
  Chemin p{{-100, -57.7}, {100, -57.7}, {0, 115.5}};
  while (4 * p.size() <= n + n / 8) {
    Chemin q;
    for (std::size_t i = 0; i < p.size(); ++i) {
      const Vec2 a = p[i];
      const Vec2 b = p[(i + 1) % p.size()];
      const Vec2 d{(b.x - a.x) / 3, (b.y - a.y) / 3};
      const double h = std::sqrt(3.0) / 2;
      const Vec2 m{d.x * 0.5 + d.y * h, d.y * 0.5 - d.x * h};
      q.push_back(a);
      q.push_back({a.x + d.x, a.y + d.y});
      q.push_back({a.x + d.x + m.x, a.y + d.y + m.y});
      q.push_back({a.x + 2 * d.x, a.y + 2 * d.y});
    }
    p.swap(q);
  }
  return p;
}

// Teeth of random height on a base of 200 mm.
inline Chemin Peigne(std::size_t n) {
  std::mt19937_64 g(3);
  std::uniform_real_distribution<double> u(-1, 1);
  const std::size_t dents = n / 4;
  const double pas = 200.0 / static_cast<double>(dents);
  Chemin c{{0, -20}, {200, -20}};
  for (std::size_t i = dents; i-- > 0;) {
    const double x = static_cast<double>(i) * pas;
    const double h = 80 + 20 * u(g);
    c.push_back({x + pas * 0.75, u(g)});
    c.push_back({x + pas * 0.75, h});
    c.push_back({x + pas * 0.25, h + 0.01 * u(g)});
    c.push_back({x + pas * 0.25, u(g)});
  }
  return c;
}

// A band 2 mm wide in 24 turns, 2 mm between them: exactly the way of a cutter of R = 1.
inline Chemin Spirale(std::size_t n) {
  Chemin c;
  const std::size_t h = n / 2;
  const auto ajoute = [&](std::size_t i, double o) {
    const double s = std::sqrt(static_cast<double>(i) / static_cast<double>(h - 1));
    const double t = 2 * std::numbers::pi * 24 * s;
    const double q = 4 + 4 * 24 * s + o;
    c.push_back({q * std::cos(t), q * std::sin(t)});
  };
  for (std::size_t i = 0; i < h; ++i) ajoute(i, 1);
  for (std::size_t i = h; i-- > 0;) ajoute(i, -1);
  return c;
}

// Ten times as far out as in.
inline Chemin Etoile(std::size_t n) {
  Chemin c;
  for (std::size_t i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n);
    const double q = 70 + 30 * std::cos(12 * t) + 0.4 * std::cos(500 * t);
    c.push_back({q * std::cos(t), q * std::sin(t)});
  }
  return c;
}

// Open: a wave on a wave.
inline Chemin Onde(std::size_t n) {
  std::mt19937_64 g(4);
  std::uniform_real_distribution<double> u(-1, 1);
  Chemin c;
  for (std::size_t i = 0; i < n; ++i) {
    const double x = 200.0 * static_cast<double>(i) / static_cast<double>(n - 1);
    const double y = 15 * std::sin(x / 6) + 3 * std::sin(x * 1.7) + 60.0 / static_cast<double>(n) * u(g);
    c.push_back({x, y});
  }
  return c;
}

// Open: 4 m of path wandering in a disc of 200 mm, crossing itself all over.
inline Chemin Marche(std::size_t n) {
  std::mt19937_64 g(5);
  std::uniform_real_distribution<double> u(-1, 1);
  Chemin c;
  double a = 0;
  Vec2 p{0, 0};
  const double pas = 4000.0 / static_cast<double>(n);
  for (std::size_t i = 0; i < n; ++i) {
    c.push_back(p);
    a += u(g) * 0.35 * std::sqrt(pas);
    if (std::hypot(p.x, p.y) > 100) a += std::sin(std::atan2(-p.y, -p.x) - a) > 0 ? 0.2 * pas : -0.2 * pas;
    p = {p.x + pas * std::cos(a), p.y + pas * std::sin(a)};
  }
  return c;
}

// Circle of 20 mm scanned far more densely than its noise of 0.05 mm both ways: hundreds of crossings a point.
inline Chemin Foule(std::size_t n) {
  std::mt19937_64 g(7);
  std::uniform_real_distribution<double> u(-0.05, 0.05);
  Chemin c;
  for (std::size_t i = 0; i < n; ++i) {
    const double t = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n);
    const double x = u(g);
    c.push_back({10 * std::cos(t) + x, 10 * std::sin(t) + u(g)});
  }
  return c;
}

}  // namespace banc
