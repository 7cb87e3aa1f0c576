// The draft of a parallel gives what cutting every piece by all of the outline gives, and knows where it is no use.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "base/Vecteur.h"
#include "closed/pathwerk/decalage/ArcEbauche.h"
#include "closed/pathwerk/decalage/ArcRencontres.h"
#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using pathwerk::Vec2;
using pathwerk::decalage::ArcLibre;
using pathwerk::decalage::ArcsLibres;
using pathwerk::decalage::ArcSource;
using pathwerk::decalage::ArcsParEbauche;
using pathwerk::decalage::ArcsSiPeuDeRencontres;
using pathwerk::decalage::ChercheRencontres;

namespace {

constexpr double Bruit = 1e-10;  // mm
constexpr double Rayons[] = {0.05, 0.3, 0.7, 1.1, 3};

using Contours = std::vector<Chemin>;

// The draft against each piece cut by everything.
void DonneLeMeme(const Contours& contours) {
  const ArcSource source(contours);
  for (const double r : Rayons) {
    for (const double d : {r, -r}) {
      const std::vector<ArcLibre> attendus = ArcsLibres(source, d, Bruit);
      const std::vector<ArcLibre> libres = ArcsParEbauche(source, d, Bruit);
      ASSERT_EQ(libres.size(), attendus.size()) << "distance " << d;
      for (std::size_t k = 0; k < libres.size(); ++k) {
        ASSERT_EQ(libres[k].source, attendus[k].source) << "distance " << d << ", stretch " << k;
        ASSERT_EQ(libres[k].arc, attendus[k].arc) << "distance " << d << ", stretch " << k;
        ASSERT_LT(base::Norme(libres[k].a - attendus[k].a), 1e-7) << "distance " << d << ", stretch " << k;
        ASSERT_LT(base::Norme(libres[k].b - attendus[k].b), 1e-7) << "distance " << d << ", stretch " << k;
      }
    }
  }
}

// The parallels of all segments, in full.
std::vector<ArcLibre> Parallele(const ArcSource& source, double d) {
  std::vector<ArcLibre> libres;
  for (std::uint32_t i = 0; i < source.Taille(); ++i) {
    const Vec2 n = base::Gauche(base::Unite(source.B(i) - source.A(i))) * d;
    libres.push_back({source.A(i) + n, source.B(i) + n, i});
  }
  return libres;
}

}  // namespace

TEST(ArcEbauche, GivesOfStarsWhatCuttingByEverythingGives) {
  for (unsigned g = 0; g < 60; ++g) {
    SCOPED_TRACE(g);
    ASSERT_NO_FATAL_FAILURE(DonneLeMeme({EnChemin(Etoile(g))}));
  }
}

TEST(ArcEbauche, GivesOfCombsAndBandsWhatCuttingByEverythingGives) {
  for (unsigned g = 0; g < 12; ++g) {
    SCOPED_TRACE(g);
    ASSERT_NO_FATAL_FAILURE(DonneLeMeme({EnChemin(Peigne(9, 2.2, 8, g))}));
    ASSERT_NO_FATAL_FAILURE(DonneLeMeme({EnChemin(Spirale(3, 2.5 + 0.1 * g, 1.2, 160))}));
  }
}

TEST(ArcEbauche, GivesOfRoundAndOfNoisyOutlinesWhatCuttingByEverythingGives) {
  ASSERT_NO_FATAL_FAILURE(DonneLeMeme({EnChemin(Cercle(20, 400))}));
  ASSERT_NO_FATAL_FAILURE(DonneLeMeme({EnChemin(Koch(3, 40))}));
  for (unsigned g = 0; g < 8; ++g) {
    SCOPED_TRACE(g);
    ASSERT_NO_FATAL_FAILURE(DonneLeMeme({EnChemin(CercleBruite(g, 200, 0.02 * g))}));
  }
}

TEST(ArcEbauche, GivesOfRegionsWithHolesWhatCuttingByEverythingGives) {
  std::mt19937_64 g(5);
  for (int k = 0; k < 20; ++k) {
    SCOPED_TRACE(k);
    ASSERT_NO_FATAL_FAILURE(DonneLeMeme(Damier(g, 0.6, 1.7, k % 2 == 0).contours));
  }
}

TEST(ArcEbauche, GivesOfPathsThereAndBackWhatCuttingByEverythingGives) {
  ASSERT_NO_FATAL_FAILURE(DonneLeMeme({AllerRetour(Onde(300, 80, 6, 7))}));
  for (unsigned g = 0; g < 40; ++g) {
    SCOPED_TRACE(g);
    ASSERT_NO_FATAL_FAILURE(DonneLeMeme({AllerRetour(MarcheOuverte(g, 60))}));
  }
}

// Of such noise nearly every raw piece crosses those of hundreds of others.
TEST(ArcEbauche, OfAnOutlineWhoseParallelCrossesItselfAllOverIsNoUse) {
  const ArcSource foule({{EnChemin(CercleBruite(3, 3000, 0.3))}});
  EXPECT_FALSE(ArcsSiPeuDeRencontres(foule, 3, Bruit));
  const ArcSource cercle({{EnChemin(Cercle(20, 3000))}});
  EXPECT_TRUE(ArcsSiPeuDeRencontres(cercle, 3, Bruit));
}

TEST(ArcRencontres, ParallelsThatCrossNameEachOther) {
  // Counter-clockwise; the parallels of its sides, drawn in full, cross near all four corners.
  const Contours carre = {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}};
  const ArcSource source(carre);
  const auto r = ChercheRencontres(source, Parallele(source, 2), 2);
  ASSERT_TRUE(r);
  for (std::size_t k = 0; k < 4; ++k) {
    std::vector<std::uint32_t> autres(r->De(k).begin(), r->De(k).end());
    std::sort(autres.begin(), autres.end());
    std::vector<std::uint32_t> voisins = {static_cast<std::uint32_t>((k + 1) % 4),
                                          static_cast<std::uint32_t>((k + 3) % 4)};
    std::sort(voisins.begin(), voisins.end());
    EXPECT_EQ(autres, voisins) << "side " << k;
  }
}

TEST(ArcRencontres, ParallelsOutsideASquareKeepApart) {
  const Contours carre = {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}};
  const ArcSource source(carre);
  const auto r = ChercheRencontres(source, Parallele(source, -2), -2);
  ASSERT_TRUE(r);
  for (std::size_t k = 0; k < 4; ++k) EXPECT_TRUE(r->De(k).empty()) << "side " << k;
}

TEST(ArcRencontres, StretchesThatFollowEachOtherInACornerDoNotMeet) {
  const Contours carre = {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}};
  const ArcSource source(carre);
  // Cut short at the inner corners, and linked.
  std::vector<ArcLibre> libres = ArcsLibres(source, 2, Bruit);
  ASSERT_EQ(libres.size(), 4U);
  pathwerk::decalage::LieSuites(source, libres);
  const auto r = ChercheRencontres(source, libres, 2);
  ASSERT_TRUE(r);
  for (std::size_t k = 0; k < 4; ++k) EXPECT_TRUE(r->De(k).empty()) << "side " << k;
}

TEST(ArcRencontres, ArcAndParallelThatCrossAreFound) {
  // A spike into a bay: the arc around its tip (0, 3) reaches through the parallel of the floor, 4 mm above y = 0.
  const Contours baie = {{{-20, 0}, {20, 0}, {20, 10}, {1, 10}, {0, 3}, {-1, 10}, {-20, 10}}};
  const ArcSource source(baie);
  const std::vector<ArcLibre> libres = {
      {{-16, 4}, {16, 4}, 0},
      {{-4, 3},
       {4, 3},
       4,
       pathwerk::decalage::Naturel,
       pathwerk::decalage::Naturel,
       pathwerk::decalage::Naturel,
       true},
      {{-3, 30}, {3, 30}, 5},
  };
  const auto r = ChercheRencontres(source, libres, 4);
  ASSERT_TRUE(r);
  ASSERT_EQ(r->De(0).size(), 1U);
  EXPECT_EQ(r->De(0)[0], 1U);
  EXPECT_TRUE(r->De(2).empty());
}
