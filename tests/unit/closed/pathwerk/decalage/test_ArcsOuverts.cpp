// Open paths laid one way: all of the wanted side comes out, and of the other what is in question.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "base/Vecteur.h"
#include "closed/pathwerk/decalage/ArcsOuverts.h"
#include "closed/pathwerk/decalage/MoteurArcs.h"
#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using pathwerk::Vec2;
using pathwerk::decalage::Contacts;
using pathwerk::decalage::DecaleOuvertArcs;
using pathwerk::decalage::DecaleRegionArcs;
using pathwerk::decalage::Origines;

namespace {

constexpr double Tolerance = 0.0088;

struct Bord {
  std::vector<Chemin> chaines;
  std::vector<Origines> origines;
  // Of the edges beside the segments [debut, fin) of the path there and back, caps around single points left out.
  [[nodiscard]] double Longueur(std::size_t debut, std::size_t fin) const {
    double l = 0;
    for (std::size_t k = 0; k < chaines.size(); ++k) {
      for (std::size_t i = 0; i < origines[k].size(); ++i) {
        const auto& o = origines[k][i];
        if (!o.Connue() || o.segment < debut || o.segment >= fin || (o.segment == debut && o.de == 0 && o.a == 0)) {
          continue;
        }
        l += base::Norme(chaines[k][(i + 1) % chaines[k].size()] - chaines[k][i]);
      }
    }
    return l;
  }
};

Bord UneVoie(const Chemin& chemin, const Region& region, double d) {
  Bord b;
  Contacts contacts(chemin);
  EXPECT_TRUE(DecaleOuvertArcs(region, d, Tolerance, contacts, b.chaines, b.origines));
  return b;
}
Bord DeuxVoies(const Region& region, double d) {
  Bord b;
  EXPECT_TRUE(DecaleRegionArcs(region, d, Tolerance, b.chaines, &b.origines));
  return b;
}

}  // namespace

TEST(ArcsOuverts, PathThatKeepsClearOfItselfComesOutOnOneSideInOneOpenChain) {
  const Forme f = Onde(400, 100, 8, 9);
  const Chemin c = EnChemin(f);
  const Region region{{AllerRetour(f)}, 0};
  const Bord b = UneVoie(c, region, 1);
  ASSERT_EQ(b.chaines.size(), 1U);
  EXPECT_EQ(b.origines[0].size() + 1, b.chaines[0].size());
  const std::size_t n = c.size() - 1;
  // Beside the way back no more than a raw piece or two at either end.
  EXPECT_LT(b.Longueur(n, 2 * n), 10);
  EXPECT_GT(b.Longueur(0, n), 100);
}

TEST(ArcsOuverts, GiveOfTheWayThereAllThatBothWaysGive) {
  for (unsigned g = 0; g < 60; ++g) {
    const Forme f = MarcheOuverte(g, 70);
    const Chemin c = EnChemin(f);
    const Region region{{AllerRetour(f)}, 0};
    for (const double d : {0.3, -0.7, 1.5}) {
      const std::size_t n = c.size() - 1;
      const double attendu = DeuxVoies(region, d).Longueur(0, n);
      EXPECT_NEAR(UneVoie(c, region, d).Longueur(0, n), attendu, 1e-6 * (1 + attendu)) << g << " at " << d;
    }
  }
}

TEST(ArcsOuverts, WayBackIsLaidWhereThePathLiesOnItself) {
  // 20 mm out and 15 back: the right of the way out is the left of the way back.
  const Forme f{{0, 0}, {20, 0}, {5, 0}};
  const Bord b = UneVoie(EnChemin(f), {{AllerRetour(f)}, 0}, 2);
  // All around: twice 20 mm and a circle, closed.
  ASSERT_EQ(b.chaines.size(), 1U);
  EXPECT_EQ(b.origines[0].size(), b.chaines[0].size());
  EXPECT_NEAR(pathwerk::Perimetre(b.chaines[0]), 40 + 4 * 3.14159, 0.05);
}
