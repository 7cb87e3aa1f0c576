#include <string>

#include "core/Cadence.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

TEST(Travaille, RunsTheKernelDirectlyWhereNobodyOffersAThread) {
  int fois = 0;
  Travaille([&fois] { ++fois; });
  EXPECT_EQ(fois, 1);
}

TEST(TravailleSi, OffersOnlyLongWork) {
  std::string suite;
  Svc.EnFond = [&suite](const std::function<void()>& noyau) {
    suite += "(";
    noyau();
    suite += ")";
  };
  TravailleSi(true, [&suite] { suite += "l"; });
  TravailleSi(false, [&suite] { suite += "c"; });
  EXPECT_EQ(suite, "(l)c");
}

struct Horloge {
  double temps = 0;
  int rondes = 0;
  Horloge() {
    Svc.Horloge = [this] { return temps; };
    Svc.LaisseEvenements = [this](Evenements mode) {
      EXPECT_EQ(mode, Evenements::Affichage);
      ++rondes;
    };
  }
};

TEST(Respiration, LetsEventsRunByTheClock) {
  Horloge h;
  Respiration respiration;
  for (int i = 0; i < 100; ++i) {
    h.temps += 0.004;
    respiration.Laisse();
  }
  EXPECT_EQ(h.rondes, 25);  // every fourth item is past 15 ms
}

TEST(Cadence, LooksAtTheClockOnceInTwoThousandItems) {
  Horloge h;
  Cadence cadence;
  h.temps = 1;
  for (int i = 0; i < 2047; ++i) cadence.Bat();
  EXPECT_EQ(h.rondes, 0);
  cadence.Bat();
  EXPECT_EQ(h.rondes, 1);
  for (int i = 0; i < 10 * 2048; ++i) cadence.Bat();
  EXPECT_EQ(h.rondes, 1);  // no time has passed since
}

}  // namespace
