// Where an open path touches itself, against the definition by brute force.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "closed/pathwerk/decalage/Contacts.h"
#include "tests/unit/closed/pathwerk/controle/ControleRegion.h"

using namespace controle;
using pathwerk::Vec2;
using pathwerk::decalage::Contacts;

namespace {

double AuSegment(Vec2 a, Vec2 b, Vec2 p) { return Distance({{a, b}}, p); }

// Does vertex i lie on a segment that isn't one of its own two?
bool ToucheDApresLaDefinition(const Chemin& c, std::size_t i) {
  for (std::size_t s = 0; s + 1 < c.size(); ++s) {
    if (s != i && s + 1 != i && AuSegment(c[s], c[s + 1], c[i]) <= 0.01) return true;
  }
  return false;
}
bool SegmentToucheDApresLaDefinition(const Chemin& c, std::size_t s) {
  for (std::size_t i = 0; i < c.size(); ++i) {
    if (i != s && i != s + 1 && AuSegment(c[s], c[s + 1], c[i]) <= 0.01) return true;
  }
  return ToucheDApresLaDefinition(c, s) || ToucheDApresLaDefinition(c, s + 1);
}

std::vector<std::size_t> VusDe(Contacts& contacts, Vec2 a, Vec2 b, double rayon) {
  std::vector<std::size_t> r;
  contacts.Voisins({a, b}, rayon, [&r](std::size_t i) { r.push_back(i); });
  return r;
}

}  // namespace

TEST(Contacts, EndOnAnotherStretchTouchesItAndTheOthersDoNot) {
  const Chemin c{{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 0.009}};
  Contacts contacts(c);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(contacts.Sommet(i), i == 4) << i;
  for (std::size_t s = 0; s < 4; ++s) EXPECT_EQ(contacts.DuSegment(s), s == 0 || s == 3) << s;
}

TEST(Contacts, EndFartherThanTheirReachTouchesNothing) {
  const Chemin c{{0, 0}, {10, 0}, {10, 5}, {5, 5}, {5, 0.011}};
  Contacts contacts(c);
  EXPECT_FALSE(contacts.Sommet(4));
  EXPECT_FALSE(contacts.DuSegment(0));
}

TEST(Contacts, CrossingFarFromAllCornersIsNone) {
  const Chemin c{{0, 0}, {10, 10}, {10, 0}, {0, 10}};
  Contacts contacts(c);
  for (std::size_t s = 0; s < 3; ++s) EXPECT_FALSE(contacts.DuSegment(s)) << s;
}

TEST(Contacts, AreThoseOfTheDefinitionOnRandomPathsInWhateverOrderTheyAreAskedFor) {
  std::mt19937_64 g(5);
  for (int k = 0; k < 60; ++k) {
    const Chemin c = EnChemin(k % 2 != 0 ? MarcheSurGrille(g, 4 + k) : MarcheOuverte(static_cast<unsigned>(k), 90));
    if (c.size() < 3) continue;
    Contacts contacts(c);
    for (std::size_t q = 0; q < 3 * c.size(); ++q) {
      const std::size_t i = g() % c.size();
      ASSERT_EQ(contacts.Sommet(i), ToucheDApresLaDefinition(c, i)) << k << " vertex " << i;
      if (i + 1 == c.size()) continue;
      const bool touche = SegmentToucheDApresLaDefinition(c, i);
      ASSERT_GE(contacts.Peut(i), touche) << k << " segment " << i;
      ASSERT_EQ(contacts.DuSegment(i), touche) << k << " segment " << i;
    }
  }
}

TEST(Contacts, InACrowdAnyMayBeAndThoseThatAreAskedForAreFoundOut) {
  // Chords across a disc, each of which passes all others, none near a corner of another.
  Chemin c;
  for (int i = 0; i < 900; ++i) {
    const double a = 3.14159 * 0.618034 * i;
    c.push_back({(i % 2 != 0 ? 500 : -500) * std::cos(a), (i % 2 != 0 ? 500 : -500) * std::sin(a)});
  }
  Contacts contacts(c);
  EXPECT_TRUE(contacts.Peut(450));
  EXPECT_FALSE(contacts.Sommet(450));
  EXPECT_FALSE(contacts.DuSegment(450));
  EXPECT_TRUE(contacts.Peut(452)) << "whatever is known of its neighbours";
}

TEST(Contacts, BesideAnEdgeAreThoseAtItsRadiusAndNoneFarBehindItsEnds) {
  // The path comes down on itself in (3, 0) and in (8, 0).
  const Chemin c{{0, 0}, {10, 0}, {10, 4}, {8, 4}, {8, 0}, {8, 4}, {3, 4}, {3, 0}};
  Contacts contacts(c);
  const std::vector<std::size_t> vus = VusDe(contacts, {0, -2}, {10, -2}, 2);
  // Both corners in (8, 4) lie on each other's segments, but not 2 mm from the edge.
  EXPECT_EQ(vus, (std::vector<std::size_t>{4, 7}));
  EXPECT_TRUE(contacts.Sommet(3));
  EXPECT_TRUE(VusDe(contacts, {0, -2}, {10, -2}, 1).empty());
  EXPECT_TRUE(VusDe(contacts, {20, -2}, {30, -2}, 2).empty());
}
