// Which paths are islands of a pocket.
#include <gtest/gtest.h>

#include <span>
#include <vector>

#include "tests/unit/closed/pathwerk/controle/Controle.h"

using namespace controle;
using Places = std::vector<std::size_t>;

namespace {

// Closed paths against the square from (0, 0) to (40, 40).
Places Dans(const std::vector<Forme>& formes, const Forme& contour = Carre(0, 0, 40)) {
  std::vector<Trace> traces;
  for (const Forme& f : formes) traces.push_back(EnTrace(f, true));
  const std::vector<std::span<const pathwerk::PointTrace>> chemins(traces.begin(), traces.end());
  return pathwerk::IlotsDans(EnTrace(contour, true), chemins);
}

}  // namespace

TEST(IlotsDans, AreThoseInsideAndThoseAcrossTheOutline) {
  EXPECT_EQ(Dans({Carre(5, 5, 10), Carre(50, 5, 10), Retourne(Carre(20, 20, 3)), Carre(35, 35, 10)}),
            (Places{0, 2, 3}));
  EXPECT_EQ(Dans({{{-5, 18}, {45, 18}, {45, 22}, {-5, 22}}}), Places{0}) << "a bar, no corner of which is inside";
  EXPECT_EQ(Dans({Carre(5, 5, 10)}, Retourne(Carre(0, 0, 40))), Places{0});
}

TEST(IlotsDans, OneAroundAllOfThePocketIsNone) {
  EXPECT_EQ(Dans({Carre(-5, -5, 50)}), Places{});
  EXPECT_EQ(Dans({Carre(0, 0, 50)}), Places{}) << "along two sides";
  EXPECT_EQ(Dans({{{0, -5}, {50, -5}, {50, 45}, {0, 45}}}), Places{}) << "along one";
}

TEST(IlotsDans, OneThatIsTheOutlineIsOne) {
  EXPECT_EQ(Dans({Carre(0, 0, 40), Retourne(Carre(0, 0, 40))}), (Places{0, 1}));
}

TEST(IlotsDans, ASideInCommonTellsNothing) {
  EXPECT_EQ(Dans({Carre(40, 5, 10), Carre(30, 5, 10), Carre(40, 40, 10), {{0, 0}, {40, 0}, {20, 9}}}),
            (Places{1, 3}));
}

TEST(IlotsDans, WhatHasNoInsideIsNone) {
  const Trace ouvert = EnTrace({{5, 5}, {15, 5}, {15, 15}}, false);
  const Trace trou(2, ouvert[0]);
  const std::vector<std::span<const pathwerk::PointTrace>> chemins{ouvert, trou, {}};
  EXPECT_EQ(pathwerk::IlotsDans(EnTrace(Carre(0, 0, 40), true), chemins), Places{});
  EXPECT_EQ(pathwerk::IlotsDans(ouvert, std::vector<std::span<const pathwerk::PointTrace>>{ouvert}), Places{});
  EXPECT_EQ(pathwerk::IlotsDans({}, chemins), Places{});
}
