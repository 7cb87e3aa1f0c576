// The traces of a pass on several cores: the same as on one, to the byte.
#include <cmath>
#include <mutex>
#include <set>
#include <thread>

#include "core/Coeurs.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "toolpath/CalculDecalage.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/NettoieChemin.h"
#include "toolpath/traces/Bibliotheque.h"

using namespace ovelin;
using namespace essai;

namespace {

// Twenty closed paths with 24 waves each; pockets, a hole, one on the line, one too narrow for the tool among them.
void DessineVagues(int pointsParChemin) {
  RayonFraise = 1.5;
  PCPoche = 40;
  LargeurEncoche = 3;
  for (int k = 0; k < 20; ++k) {
    std::vector<std::pair<float, float>> xy;
    const double rayon = k == 7 ? 1.2 : 12;
    const int colonne = k % 5, rang = k / 5;
    for (int i = 0; i <= pointsParChemin; ++i) {
      const double a = 2 * M_PI * (i % pointsParChemin) / pointsParChemin;
      const double r = rayon + 0.3 * std::sin(24 * a + k);
      xy.emplace_back(static_cast<float>(40 * colonne + r * std::cos(a)),
                      static_cast<float>(40 * rang + r * std::sin(a)));
    }
    AjouteSequence(std::string(" ") + static_cast<char>('A' + k), xy);
    Sequences.back().Decalage = static_cast<std::int16_t>(k == 3 ? 2 : k % 2 == 0 ? 1 : 3);
    Sequences.back().Poche = EnDrapeau(k % 4 == 1);
  }
  TraceInitial[static_cast<std::size_t>(pointsParChemin) / 3].Cde = CodePC;
  AjouteSequence(" Z", {{1, 1}, {1, 1}});
}

std::vector<SequenceDecalee> Traces(unsigned coeurs) {
  NombreCoeurs = coeurs;
  EXPECT_TRUE(RecalculDecalages());
  return TraceDecale;
}

}  // namespace

TEST(PlusieursCoeurs, GiveTheTracesOfOne) {
  DessineVagues(900);
  const auto seul = Traces(1);
  ASSERT_GE(seul.size(), 21U);
  for (const unsigned coeurs : {2U, 7U}) EXPECT_EQ(Traces(coeurs), seul) << coeurs;
}

TEST(PlusieursCoeurs, AFailedPathTakesTheSameAlong) {
  DessineVagues(900);
  Biblio.DecalSequence = [](Bibliotheque::Points& points, float, float, std::int32_t) {
    const bool refuse = points.front().Seq == Code2(" E");
    for (PointTrace& p : points) p.Seq = Code2("01");
    return refuse ? 0 : static_cast<std::int32_t>(points.size());
  };
  const std::vector<Code2> codes{Code2(" B"), Code2(" E"), Code2(" A"), Code2(" E")};
  Traces(1);
  const auto avant = TraceDecale;
  CalculDecalages(codes);
  const auto seul = TraceDecale;
  EXPECT_LT(seul.size(), avant.size());
  TraceDecale = avant;
  NombreCoeurs = 7;
  CalculDecalages(codes);
  EXPECT_EQ(TraceDecale, seul);
}

TEST(PlusieursCoeurs, AreUsedWhereThereIsWorkForThem) {
  std::mutex verrou;
  std::set<std::thread::id> fils;
  Biblio.DecalSequence = [&](Bibliotheque::Points& points, float, float, std::int32_t) {
    const std::lock_guard<std::mutex> tient(verrou);
    fils.insert(std::this_thread::get_id());
    return static_cast<std::int32_t>(points.size());
  };
  DessineVagues(900);
  Traces(3);
  EXPECT_FALSE(fils.contains(std::this_thread::get_id()));
  fils.clear();
  Traces(1);
  EXPECT_EQ(fils, std::set<std::thread::id>{std::this_thread::get_id()});
}

TEST(PlusieursCoeurs, AreLeftAloneForAFewPoints) {
  std::set<std::thread::id> fils;
  Biblio.DecalSequence = [&](Bibliotheque::Points& points, float, float, std::int32_t) {
    fils.insert(std::this_thread::get_id());
    return static_cast<std::int32_t>(points.size());
  };
  DessineVagues(12);
  Traces(3);
  EXPECT_EQ(fils, std::set<std::thread::id>{std::this_thread::get_id()});
}

// The window is alive while a path is waited for, and the progress goes on by paths in their order.
TEST(PlusieursCoeurs, TheWindowIsAliveAndTheProgressCountsEveryPath) {
  DessineVagues(900);
  int attentes = 0;
  long pas = 0;
  Svc.EnFond = [&](const std::function<void()>& noyau) {
    ++attentes;
    std::thread(noyau).join();
  };
  Svc.AvancementPlus = [&] { ++pas; };
  const auto seul = Traces(1);
  attentes = 0;
  pas = 0;
  EXPECT_EQ(Traces(2), seul);
  EXPECT_GT(attentes, 0);
  EXPECT_EQ(pas, 21);
}

TEST(PlusieursCoeurs, GiveTheCleanedPointsOfOne) {
  DessineVagues(900);
  AjouteSequence(" Y", {{0, 0}});
  const auto seul = NettoiePoints(TraceInitial, 0.05F);
  EXPECT_LT(seul.size(), TraceInitial.size() / 2);
  EXPECT_GT(seul.size(), 1000U);
  for (const unsigned coeurs : {2U, 7U}) {
    NombreCoeurs = coeurs;
    EXPECT_EQ(NettoiePoints(TraceInitial, 0.05F), seul) << coeurs;
  }
}
