// The fill of a closed path: rings, their order and sense, and that nothing stays standing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "Controle.h"

using namespace controle;
using pathwerk::CodePC;
using pathwerk::PointTrace;

namespace {

// Squares of the plane, to see what a cutter covers: an independent and plain model of the cut.
class Damier {
 public:
  Damier(const Trace& contour, double rayon) : contour_(contour), r_(rayon), pas_(rayon / 20) {
    const Boite b = BoiteDe(contour);
    x0_ = b.x0 - pas_;
    y0_ = b.y0 - pas_;
    nx_ = static_cast<long>((b.x1 - x0_) / pas_) + 3;
    ny_ = static_cast<long>((b.y1 - y0_) / pas_) + 3;
  }
  // Cells whose middle lies inside the outline (even-odd over its segments).
  [[nodiscard]] std::vector<char> Dedans() const {
    std::vector<char> d(Taille(), 0);
    for (long y = 0; y < ny_; ++y) {
      std::vector<double> xs;
      const double py = Y(y);
      for (std::size_t i = 0; i + 1 < contour_.size(); ++i) {
        const auto ay = static_cast<double>(contour_[i].Y), by = static_cast<double>(contour_[i + 1].Y);
        const auto ax = static_cast<double>(contour_[i].X), bx = static_cast<double>(contour_[i + 1].X);
        if ((ay <= py) != (by <= py)) xs.push_back(ax + (py - ay) / (by - ay) * (bx - ax));
      }
      std::sort(xs.begin(), xs.end());
      for (long x = 0; x < nx_; ++x) {
        const auto n = std::lower_bound(xs.begin(), xs.end(), X(x)) - xs.begin();
        d[I(x, y)] = n % 2 != 0;
      }
    }
    return d;
  }
  // Cells nearer than `rayon` to the lines.
  [[nodiscard]] std::vector<char> PresDe(const Trace& lignes, double rayon) const {
    std::vector<char> d(Taille(), 0);
    for (std::size_t i = 0; i + 1 < lignes.size(); ++i) {
      if (lignes[i].Seq == lignes[i + 1].Seq) Peint(d, lignes[i], lignes[i + 1], rayon);
    }
    return d;
  }
  // Cells that a disc of the radius reaches when its middle goes over the given cells.
  [[nodiscard]] std::vector<char> Dilate(const std::vector<char>& milieux, double rayon) const {
    std::vector<char> d(Taille(), 0);
    const long k = static_cast<long>(rayon / pas_);
    for (long y = 0; y < ny_; ++y) {
      for (long x = 0; x < nx_; ++x) {
        if (milieux[I(x, y)] == 0) continue;
        // Inner cells only repeat what their neighbours on the border paint.
        const bool bord = x == 0 || y == 0 || x + 1 == nx_ || y + 1 == ny_ || milieux[I(x - 1, y)] == 0 ||
                          milieux[I(x + 1, y)] == 0 || milieux[I(x, y - 1)] == 0 || milieux[I(x, y + 1)] == 0;
        d[I(x, y)] = 1;
        if (!bord) continue;
        for (long v = std::max(0L, y - k); v <= std::min(ny_ - 1, y + k); ++v) {
          const double w =
              std::sqrt(std::max(0.0, rayon * rayon / (pas_ * pas_) - static_cast<double>((v - y) * (v - y))));
          const long h = static_cast<long>(w);
          for (long u = std::max(0L, x - h); u <= std::min(nx_ - 1, x + h); ++u) d[I(u, v)] = 1;
        }
      }
    }
    return d;
  }
  // Cells that the cutter could reach without crossing the outline and that the fill leaves standing.
  [[nodiscard]] long Reste(const Trace& remplissage) const {
    const std::vector<char> dedans = Dedans();
    const std::vector<char> mur = PresDe(contour_, r_);
    std::vector<char> milieux(Taille());
    for (std::size_t i = 0; i < milieux.size(); ++i) milieux[i] = dedans[i] != 0 && mur[i] == 0;
    const std::vector<char> atteint = Dilate(milieux, r_);
    const std::vector<char> coupe = PresDe(remplissage, r_ + 0.012);
    long n = 0;
    for (std::size_t i = 0; i < coupe.size(); ++i) n += atteint[i] != 0 && coupe[i] == 0;
    return n;
  }
  // Cells outside of the outline that the fill cuts.
  [[nodiscard]] long Entame(const Trace& remplissage) const {
    const std::vector<char> dedans = Dedans();
    const std::vector<char> coupe = PresDe(remplissage, r_ - 0.012);
    long n = 0;
    for (std::size_t i = 0; i < coupe.size(); ++i) n += dedans[i] == 0 && coupe[i] != 0;
    return n;
  }

 private:
  [[nodiscard]] std::size_t Taille() const { return static_cast<std::size_t>(nx_ * ny_); }
  [[nodiscard]] std::size_t I(long x, long y) const { return static_cast<std::size_t>(y * nx_ + x); }
  [[nodiscard]] double X(long x) const { return x0_ + pas_ * static_cast<double>(x); }
  [[nodiscard]] double Y(long y) const { return y0_ + pas_ * static_cast<double>(y); }
  void Peint(std::vector<char>& d, const PointTrace& a, const PointTrace& b, double rayon) const {
    const auto ax = static_cast<double>(a.X), ay = static_cast<double>(a.Y);
    const double dx = static_cast<double>(b.X) - ax, dy = static_cast<double>(b.Y) - ay;
    const double l2 = dx * dx + dy * dy;
    const auto colonne = [&](double v) { return static_cast<long>((v - x0_) / pas_); };
    const auto rang = [&](double v) { return static_cast<long>((v - y0_) / pas_); };
    for (long y = std::max(0L, rang(std::min(ay, ay + dy) - rayon));
         y <= std::min(ny_ - 1, rang(std::max(ay, ay + dy) + rayon) + 1); ++y) {
      for (long x = std::max(0L, colonne(std::min(ax, ax + dx) - rayon));
           x <= std::min(nx_ - 1, colonne(std::max(ax, ax + dx) + rayon) + 1); ++x) {
        const double px = X(x) - ax, py = Y(y) - ay;
        const double t = l2 > 0 ? std::clamp((px * dx + py * dy) / l2, 0.0, 1.0) : 0;
        const double ex = px - t * dx, ey = py - t * dy;
        if (ex * ex + ey * ey < rayon * rayon) d[I(x, y)] = 1;
      }
    }
  }

  const Trace& contour_;
  double r_, pas_;
  double x0_ = 0, y0_ = 0;
  long nx_ = 0, ny_ = 0;
};

void RienNeReste(const Forme& forme, double rayon) {
  const Trace s = EnTrace(forme, true);
  const Damier damier(s, rayon);
  for (const int recouvrement : {-5, 0, 10, 30, 49, 50, 75}) {
    for (const double signe : {1.0, -1.0}) {
      const auto [r, t] = Decale(s, signe * rayon, recouvrement);
      ASSERT_GT(r, 0);
      EXPECT_EQ(damier.Reste(t), 0) << "overlap " << recouvrement << "\n" << Texte(s);
      EXPECT_EQ(damier.Entame(t), 0) << "overlap " << recouvrement << "\n" << Texte(s);
      if (recouvrement % 10 != 0) break;  // the other side is the same fill run backwards
    }
  }
}

}  // namespace

TEST(Poche, LeavesNothingStandingInASquare) { RienNeReste(Carre(0, 0, 40), 1.5); }

TEST(Poche, LeavesNothingStandingInAStar) {
  Forme f;
  for (int i = 0; i < 10; ++i) {
    const double a = 0.6283185307179586 * i;
    const double r = i % 2 == 0 ? 30 : 12;
    f.push_back({r * std::cos(a), r * std::sin(a)});
  }
  RienNeReste(f, 1.5);
}

TEST(Poche, LeavesNothingStandingInALetter) {
  RienNeReste({{0, 0}, {8, 0}, {8, 18}, {20, 18}, {20, 26}, {8, 26}, {8, 40}, {26, 40}, {26, 48}, {0, 48}}, 1);
}

TEST(Poche, LeavesNothingStandingInAComb) { RienNeReste(Peigne(5, 9, 25, 4), 1.2); }

TEST(Poche, LeavesNothingStandingInAThinWedge) { RienNeReste({{0, 0}, {80, -4}, {80, 4}}, 1); }

TEST(Poche, LeavesNothingStandingInACircleAndARandomOutline) {
  RienNeReste(Cercle(21, 80), 2);
  RienNeReste(Etoile(7), 1);
}

TEST(Poche, RingsOfASquareLieAtTheStepFromTheInsideOutwards) {
  const Trace s = EnTrace(Carre(0, 0, 40), true);
  const auto [r, t] = Decale(s, 2, 60);  // step 1.6
  ASSERT_GT(r, 0);
  const std::vector<Trace> p = Pieces(t);
  ASSERT_EQ(p.size(), 12U) << "depths 2, 3.6 ... 19.6";
  for (std::size_t i = 0; i < p.size(); ++i) {
    const double profondeur = 2 + 1.6 * static_cast<double>(p.size() - 1 - i);
    EXPECT_TRUE(EstFermee(p[i]));
    EXPECT_NEAR(BoiteDe(p[i]).x0, profondeur, 0.01);
    EXPECT_NEAR(BoiteDe(p[i]).y1, 40 - profondeur, 0.01);
  }
}

TEST(Poche, EveryRingKeepsItsDepthHoweverFarInside) {
  // Rings that came one from the other would add up their errors.
  const Trace s = EnTrace(CercleBruite(3, 400, 0.5), true);
  const auto [r, t] = Decale(s, 1.5, 50);
  ASSERT_GT(r, 0);
  for (const Trace& p : Pieces(t)) {
    const double d0 = Distance(s, {static_cast<double>(p[0].X), static_cast<double>(p[0].Y)});
    const double k = std::round((d0 - 1.5) / 1.5);
    for (std::size_t i = 0; i < p.size(); i += 7) {
      const double d = Distance(s, {static_cast<double>(p[i].X), static_cast<double>(p[i].Y)});
      ASSERT_NEAR(d, 1.5 + 1.5 * k, 0.01);
    }
  }
}

TEST(Poche, FillsTheInsideWhicheverTheSideAndTheDirection) {
  for (const Forme& f : {Carre(0, 0, 20), Retourne(Carre(0, 0, 20))}) {
    for (const double r : {2.0, -2.0}) {
      const auto [n, t] = Decale(EnTrace(f, true), r, 40);
      ASSERT_GT(n, 0);
      const Boite b = BoiteDe(t);
      EXPECT_NEAR(b.x0, 2, 0.01);
      EXPECT_NEAR(b.x1, 18, 0.01);
    }
  }
}

TEST(Poche, PositiveKeepsTheOutlineOnTheRightNegativeOnTheLeft) {
  for (const Forme& f : {Carre(0, 0, 20), Retourne(Carre(0, 0, 20))}) {
    for (const Trace& p : Pieces(Decale(EnTrace(f, true), 2, 60).second)) EXPECT_GT(Aire(p), 0);
    for (const Trace& p : Pieces(Decale(EnTrace(f, true), -2, 60).second)) EXPECT_LT(Aire(p), 0);
  }
}

TEST(Poche, DisconnectedPartsGiveOnePieceEach) {
  const Forme haltere{{0, 0},   {20, 0},  {20, 9},  {40, 9},  {40, 0},  {60, 0},
                      {60, 20}, {40, 20}, {40, 11}, {20, 11}, {20, 20}, {0, 20}};
  const auto [r, t] = Decale(EnTrace(haltere, true), 3, 50);  // depths 3, 6, 9 twice
  ASSERT_GT(r, 0);
  EXPECT_EQ(Pieces(t).size(), 6U);
}

TEST(Poche, BothLoopsOfAFigureOfEightAreFilled) {
  const auto [r, t] = Decale(EnTrace({{-10, -20}, {10, -20}, {-10, 20}, {10, 20}}, true), 1, 50);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(BoiteDe(t).y0, -19, 0.01);
  EXPECT_NEAR(BoiteDe(t).y1, 19, 0.01);
  for (const Trace& p : Pieces(t)) EXPECT_GT(Aire(p), 0);
}

TEST(Poche, OverlapBelowZeroCountsAsZero) {
  const Trace s = EnTrace(Carre(0, 0, 40), true);
  EXPECT_EQ(Decale(s, 2, -30).second, Decale(s, 2, 0).second);
  EXPECT_EQ(Decale(s, 2, -2000000000).second, Decale(s, 2, 0).second);
}

TEST(Poche, OverlapAboveAHundredIsOneRing) {
  const Trace s = EnTrace(Retourne(Carre(0, 0, 40)), true);
  for (const int recouvrement : {101, 2000000000}) {
    const auto [r, t] = Decale(s, 2, recouvrement);
    ASSERT_GT(r, 0);
    EXPECT_EQ(Pieces(t).size(), 1U);
    EXPECT_NEAR(BoiteDe(t).x0, 2, 0.01);
  }
}

TEST(Poche, OverlapOfAHundredIsThePlainOffsetOnItsOwnSide) {
  const auto [r, t] = Decale(EnTrace(Retourne(Carre(0, 0, 40)), true), 2, 100);
  ASSERT_GT(r, 0);
  EXPECT_NEAR(BoiteDe(t).x0, -2, 0.01);
}

TEST(Poche, HighestOverlapOnABigShapeStaysBounded) {
  const auto [r, t] = Decale(EnTrace(CercleBruite(1, 300, 1), true), 0.5, 99);
  ASSERT_GT(r, 0);
  EXPECT_LE(Pieces(t).size(), 20000U);
}

TEST(Poche, HairThinCutterOnABigShapeStaysBounded) {
  const auto [r, t] = Decale(EnTrace(Carre(0, 0, 2000), true), 1e-4, 99);
  ASSERT_GT(r, 0);
  EXPECT_LE(Pieces(t).size(), 20001U);
}

TEST(Poche, CutterThatDoesNotFitGivesZero) { EXPECT_EQ(Decale(EnTrace(Carre(0, 0, 4), true), 2.1, 40).first, 0); }

TEST(Poche, MarksStandOnTheOutermostRingAlone) {
  Trace s = EnTrace({{0, 0}, {15, 0}, {40, 0}, {40, 40}, {0, 40}}, true);
  s[1].Cde = CodePC;
  for (const int recouvrement : {0, 60}) {
    const auto [r, t] = Decale(s, 2, recouvrement);
    ASSERT_GT(r, 0);
    const std::vector<Trace> p = Pieces(t);
    for (std::size_t i = 0; i < p.size(); ++i) {
      const auto n = std::count_if(p[i].begin(), p[i].end(), [](const PointTrace& q) { return q.Cde == CodePC; });
      EXPECT_EQ(n, i + 1 == p.size() ? 1 : 0);
    }
  }
}
