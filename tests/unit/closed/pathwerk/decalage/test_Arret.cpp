// An offset whose end is wished while it computes: it leaves soon, wherever it is, and gives nothing.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include "base/Arret.h"
#include "tests/unit/closed/pathwerk/controle/Controle.h"

using namespace controle;

namespace {

constexpr long Jamais = std::numeric_limits<long>::max();

// Told at a certain look, from 0 on; counts all of them.
class ArretAuRegard : public base::Arret {
 public:
  explicit ArretAuRegard(long dit) : dit_(dit) {}
  [[nodiscard]] bool Demandee() const override { return regards_++ >= dit_; }
  [[nodiscard]] long Regards() const { return regards_; }

 private:
  long dit_;
  mutable long regards_ = 0;
};

struct Issue {
  int nombre = 0;
  Trace trace;
  long regards = 0;
};
Issue Sous(long dit, const Trace& source, double distance, int recouvrement) {
  const ArretAuRegard arret(dit);
  const base::SousArret sous(&arret);
  auto [nombre, trace] = Decale(source, distance, recouvrement);
  return {nombre, std::move(trace), arret.Regards()};
}

// Without a wish the result is that of a thread that nobody ends; with one, at whichever look it is told, there is
// none, and few more looks.
void SEndetPartout(const Trace& source, double distance, int recouvrement) {
  const auto [nombre, trace] = Decale(source, distance, recouvrement);
  const Issue libre = Sous(Jamais, source, distance, recouvrement);
  ASSERT_GT(nombre, 0);
  EXPECT_EQ(libre.nombre, nombre);
  EXPECT_TRUE(libre.trace == trace);
  ASSERT_GT(libre.regards, 4);
  const long pas = libre.regards / 100 + 1;
  for (long dit = 0; dit < libre.regards; dit += pas) {
    const Issue finie = Sous(dit, source, distance, recouvrement);
    EXPECT_EQ(finie.nombre, 0) << "told at look " << dit << " of " << libre.regards;
    EXPECT_LE(finie.regards - dit, 64) << "told at look " << dit << " of " << libre.regards;
  }
}

}  // namespace

TEST(Arret, EndsAnOutlineWhereverItIsTold) { SEndetPartout(EnTrace(CercleBruite(3, 4000, 0.05), true), 1.5, 100); }

TEST(Arret, EndsAPathThatCrossesItselfWhereverItIsTold) {
  Forme huit;
  for (int i = 0; i < 3000; ++i) {
    const double a = 2 * std::numbers::pi * i / 3000;
    huit.push_back({40 * std::sin(a), 25 * std::sin(2 * a)});
  }
  SEndetPartout(EnTrace(huit, true), 1.5, 100);
}

TEST(Arret, EndsAnOpenPathWhereverItIsTold) {
  Forme vague;
  for (int i = 0; i < 4000; ++i) vague.push_back({i * 0.05, 3 * std::sin(i * 0.02)});
  SEndetPartout(EnTrace(vague, false), 1.5, 100);
}

// So many points lie on each other that a few of them are looked for that bury the rest.
TEST(Arret, EndsAScanFarDenserThanItsNoiseWhereverItIsTold) {
  std::mt19937_64 g(13);
  std::uniform_real_distribution<double> u(-0.05, 0.05);
  Forme ligne;
  for (int i = 0; i < 2600; ++i) ligne.push_back({0.0004 * i + u(g), u(g)});
  SEndetPartout(EnTrace(ligne, false), 1, 100);
}

TEST(Arret, EndsAPocketWhereverItIsTold) { SEndetPartout(EnTrace(CercleBruite(3, 900, 0.3), true), 1.5, 40); }

// A step of more than the radius leaves spots, which are searched and hung on the rings.
TEST(Arret, EndsAPocketThatLeavesSpotsWhereverItIsTold) {
  SEndetPartout(EnTrace(CercleBruite(3, 600, 0.5), true), 1.5, 10);
}

TEST(Arret, LeavesAThreadThatWorksUnderNoneAlone) {
  ArretAuRegard arret(0);
  { const base::SousArret sous(&arret); }
  EXPECT_FALSE(base::ArretDemande());
  EXPECT_EQ(arret.Regards(), 0);
}
