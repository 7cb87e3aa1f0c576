// Pockets as the program asks for them: time, pieces (each begins with a lift), length against area / step.
#include <cmath>
#include <cstdio>
#include <ctime>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "FormesDecalage.h"
#include "closed/Pathwerk.h"

using namespace pathwerk;
using banc::Chemin;

namespace {

using Trace = std::vector<PointTrace>;

Trace EnTrace(const Chemin& c) {
  Trace t;
  for (const Vec2 p : c) t.push_back({static_cast<float>(p.x), static_cast<float>(p.y), CodePD, Code2(" A")});
  t.push_back(t.front());
  return t;
}

double Pas(const PointTrace& a, const PointTrace& b) {
  return std::hypot(static_cast<double>(b.X) - static_cast<double>(a.X),
                    static_cast<double>(b.Y) - static_cast<double>(a.Y));
}

double Aire(const Trace& t) {
  double s = 0;
  for (std::size_t i = 0; i + 1 < t.size(); ++i) {
    s += static_cast<double>(t[i].X) * static_cast<double>(t[i + 1].Y) -
         static_cast<double>(t[i + 1].X) * static_cast<double>(t[i].Y);
  }
  return std::abs(s) / 2;
}

// All contours at once, in milliseconds of processor time; each goes around the islands.
void Mesure(const std::string& nom, const std::vector<Trace>& contours, double rayon, int recouvrement,
            const Trace& ilots = {}, double aireDesIlots = 0) {
  double aire = -aireDesIlots;
  double coupe = 0;
  double leve = 0;
  std::size_t points = 0;
  std::size_t pieces = 0;
  std::clock_t temps = 0;
  for (const Trace& c : contours) {
    aire += Aire(c);
    Trace t = c;
    const std::clock_t debut = std::clock();
    const auto r = DecalSequenceIlots(t, 0.01F, static_cast<float>(rayon), recouvrement, ilots);
    temps += std::clock() - debut;
    if (r == 0) continue;
    points += t.size();
    ++pieces;
    for (std::size_t i = 1; i < t.size(); ++i) {
      const bool suite = t[i].Seq == t[i - 1].Seq;
      pieces += suite ? 0 : 1;
      (suite ? coupe : leve) += Pas(t[i - 1], t[i]);
    }
  }
  const double pas = 2 * rayon * (100 - recouvrement) / 100;
  std::printf(
      "%-22s R %-4g %2d %% | %9.1f ms  %7zu points  %6zu pieces  %10.0f mm cut = %.3f area/step  %8.0f mm over\n",
      nom.c_str(), rayon, recouvrement, static_cast<double>(temps) * 1e3 / CLOCKS_PER_SEC, points, pieces, coupe,
      coupe * pas / aire, leve);
  std::fflush(stdout);
}

std::vector<Trace> Lettres(const char* texte) {
  std::vector<Trace> contours;
  for (const std::string& police : ListePolices()) {
    Trace t;
    if (Texte(t, texte, police, 0, 0) <= 0) break;
    for (std::size_t i = 0; i < t.size(); ++i) {
      if (i == 0 || !(t[i].Seq == t[i - 1].Seq)) contours.emplace_back();
      contours.back().push_back(t[i]);
    }
    if (!contours.empty()) break;
  }
  return contours;
}

Chemin Cercle(double rayon, int n) {
  Chemin c;
  for (int i = 0; i < n; ++i) {
    const double a = 2 * std::numbers::pi * i / n;
    c.push_back({rayon * std::cos(a), rayon * std::sin(a)});
  }
  return c;
}

// A scan of a circle of 80 mm, each point off by up to 0.05 mm.
Chemin CercleBruite(int n) {
  std::mt19937_64 g(7);
  std::uniform_real_distribution<double> u(-0.05, 0.05);
  Chemin c = Cercle(40, n);
  for (Vec2& p : c) p = p * (1 + u(g) / 40);
  return c;
}

// Squares of 10 mm in rows and columns, `pas` mm from corner to corner; `paires`: with one over each of them, 4 mm
// beside it either way.
Trace Carres(int cote, double pas, bool paires) {
  Trace t;
  std::size_t rang = 0;
  for (int k = 0; k < cote * cote; ++k) {
    for (const double d : {0.0, 4.0}) {
      if (d > 0 && !paires) continue;
      const double x = 15 + d + pas * (k % cote);
      const double y = 15 + d + pas * (k / cote);
      for (PointTrace p : EnTrace({{x, y}, {x + 10, y}, {x + 10, y + 10}, {x, y + 10}})) {
        p.Seq = CodeDeRang(rang);
        t.push_back(p);
      }
      ++rang;
    }
  }
  return t;
}

Trace Decalee(const Chemin& c, double x, double y) {
  Chemin d;
  for (const Vec2 p : c) d.push_back(p + Vec2{x, y});
  return EnTrace(d);
}

}  // namespace

int main() {
  const std::vector<Trace> carre{EnTrace({{0, 0}, {200, 0}, {200, 200}, {0, 200}})};
  const std::vector<Trace> disque{EnTrace(Cercle(100, 720))};
  const std::vector<Trace> etoile{EnTrace(banc::Etoile(10000))};
  const std::vector<Trace> peigne{EnTrace(banc::Peigne(200))};
  const std::vector<Trace> bruit{EnTrace(banc::Bruite(20000, 0.02))};
  const std::vector<Trace> lettres = Lettres("The quick brown fox & @ 0123456789");
  for (const int recouvrement : {0, 10, 40, 60, 75, 90}) Mesure("square of 200 mm", carre, 0.5, recouvrement);
  for (const int recouvrement : {0, 40, 90}) Mesure("disc of 200 mm", disque, 0.5, recouvrement);
  for (const int recouvrement : {0, 40, 60}) Mesure("star of 10,000 points", etoile, 0.5, recouvrement);
  for (const int recouvrement : {0, 40}) Mesure("comb", peigne, 0.5, recouvrement);
  for (const int recouvrement : {0, 40}) Mesure("noise, 20,000 points", bruit, 0.5, recouvrement);
  for (const int recouvrement : {0, 40, 75}) Mesure("text", lettres, 0.1, recouvrement);
  for (const int n : {1000, 2000, 5000, 10000, 20000, 50000, 100000, 200000, 500000}) {
    Mesure("noisy circle, " + std::to_string(n), {EnTrace(CercleBruite(n))}, 1.5, 40);
  }
  for (const int recouvrement : {0, 40}) {
    Mesure("square, no island", carre, 1.5, recouvrement);
    Mesure("square, 1 island", carre, 1.5, recouvrement, Carres(1, 0, false), 100);
    Mesure("square, 25 islands", carre, 1.5, recouvrement, Carres(5, 35, false), 2500);
    Mesure("square, 25 pairs", carre, 1.5, recouvrement, Carres(5, 35, true), 25 * 164);
    Mesure("square, 100 islands", carre, 1.5, recouvrement, Carres(10, 17, false), 10000);
  }
  const std::vector<Trace> scan{EnTrace(CercleBruite(50000))};
  Mesure("noisy circle, 50000", scan, 1.5, 40);
  Mesure("  one inside", scan, 1.5, 40, EnTrace(Cercle(10, 2000)), 314.16);
  Mesure("  one across", scan, 1.5, 40, Decalee(Cercle(10, 2000), 35, 0), 250);
  return 0;
}
