// Long paths are computed beside the window: by whom, and with what outcome.
#include <cmath>
#include <thread>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

// A thread for each kernel, as a window offers it; counts them.
int Fils = 0;
void OffreDesFils() {
  Fils = 0;
  Svc.EnFond = [](const std::function<void()>& noyau) {
    ++Fils;
    std::thread(noyau).join();
  };
}

// A wavy closed path of n + 1 points.
void AjouteVague(const std::string& code, int n) {
  std::vector<std::pair<float, float>> xy;
  for (int i = 0; i < n; ++i) {
    const double a = 2 * M_PI * i / n;
    const double r = 100 + std::sin(40 * a);
    xy.emplace_back(static_cast<float>(200 + r * std::cos(a)), static_cast<float>(200 - r * std::sin(a)));
  }
  xy.push_back(xy.front());
  AjouteSequence(code, xy);
}

}  // namespace

TEST(EnFond, TracesALongPathBesideTheWindowAndAShortOneDirectly) {
  AjouteVague(" A", 6000);
  AjouteVague(" B", 60);
  ASSERT_TRUE(RecalculDecalages());
  const auto direct = TraceDecale;
  OffreDesFils();
  ASSERT_TRUE(RecalculDecalages());
  EXPECT_EQ(Fils, 1);
  EXPECT_EQ(TraceDecale, direct);
}

TEST(EnFond, TracesAPocketBesideTheWindowWithFewerPoints) {
  AjouteVague(" A", 600);
  OffreDesFils();
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(Fils, 0);
  const std::size_t contour = TraceDecale.at(0).Points.size();
  Sequences[0].Poche = Vrai;
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(Fils, 1);
  EXPECT_GT(TraceDecale.at(0).Points.size(), 5 * contour);  // rings
}

TEST(EnFond, OpensTheNotchesOfALongPathWithTheSettingsOfItsStart) {
  AjouteVague(" A", 6000);
  TraceInitial[3000].Cde = CodePC;
  LargeurEncoche = 8;
  CalculDecalage(Code2(" A"));
  const auto direct = TraceDecale;
  EXPECT_TRUE(std::any_of(direct[0].Points.begin(), direct[0].Points.end(),
                          [](const PointTrace& p) { return p.Cde == CodePE; }));
  // The settings change while the kernel works; it has its own.
  Svc.EnFond = [](const std::function<void()>& noyau) {
    LargeurEncoche = 1;
    RayonFraise = 7;
    noyau();
  };
  CalculDecalage(Code2(" A"));
  EXPECT_EQ(TraceDecale, direct);
}

TEST(EnFond, CleansALongPathBesideTheWindow) {
  AjouteVague(" A", 25000);
  AjouteVague(" B", 300);
  const auto source = TraceInitial;
  NettoieTout(0.02F);
  const auto direct = TraceInitial;
  ASSERT_LT(direct.size(), source.size());
  TraceInitial = source;
  NbPoints = static_cast<std::int32_t>(source.size());
  OffreDesFils();
  NettoieTout(0.02F);
  EXPECT_EQ(Fils, 1);
  EXPECT_EQ(TraceInitial, direct);
}

TEST(EnFond, SmoothsALongPathBesideTheWindow) {
  AjouteVague(" A", 25000);
  OffreDesFils();
  EXPECT_TRUE(LisseSequence(Code2(" A")));
  EXPECT_EQ(Fils, 1);
}
