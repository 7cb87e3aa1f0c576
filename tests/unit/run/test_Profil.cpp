#include "run/Module_Profil.h"
#include "tests/unit/run/FluxEssai.h"

namespace {

using namespace ovelin;
using essai::Flux;

// Row 1 and moves on X of so many mm at so many mm/s; 0.005 mm a step.
void Pose(const std::vector<std::pair<double, float>>& lignes) {
  Plan = EtatPlan{};
  TableDecoupe.resize(2);
  for (const auto& [mm, v] : lignes) {
    Deplacement l;
    l.dX = static_cast<std::int32_t>(mm * 200);
    l.Vitesse = v;
    TableDecoupe.push_back(l);
  }
  NbDeplacements = static_cast<std::int32_t>(TableDecoupe.size()) - 1;
}

TEST(TempsDecoupe, IsZeroWithoutABoard) {
  Pose({{10, 5}});
  EXPECT_EQ(TempsDecoupe(), 0);
}

TEST(TempsDecoupe, RowsWithoutRampTakeTheirLengthOverTheirSpeed) {
  const Flux f(true, essai::TableDe(1, 5));
  Pose({{10, 5}, {-3, 6}, {0, 2}});
  EXPECT_NEAR(TempsDecoupe(), 2.5, 1e-6);
}

TEST(TempsDecoupe, RampCostsTime) {
  const Flux f(true, essai::TableDe(1, 5));
  Pose({{60, 12}});
  // Twice the start speed: from level 126 over 129 levels of 16,384 / 12,000,000 s, on each of which the tick is
  // slower.
  double manque = 0;
  for (int i = 126; i < 255; ++i) {
    const double plein = 10'000 * 16'384 / 12e6;
    manque += (plein - 16'384.0 / (2.0 * CalculTableFreq(1, 16'384)[static_cast<std::size_t>(i)].Periode)) / 10'000;
  }
  EXPECT_NEAR(TempsDecoupe(), 5 + 2 * manque, 1e-6);
}

TEST(TempsDecoupe, SpeedsThatNoAxisReachesAreWrittenBackIntoTheRows) {
  const Flux f(true, essai::TableDe(6, 5));
  Pose({{10, 1000}, {10, 4}});
  TempsDecoupe();
  EXPECT_FLOAT_EQ(TableDecoupe[2].Vitesse, 15);
  EXPECT_FLOAT_EQ(TableDecoupe[3].Vitesse, 4);
}

TEST(TempsDecoupe, OpensTheJobOfItsMode) {
  const Flux f(true, essai::TableDe(6, 5));
  Pose({{10, 4}});
  for (const int mode : {0, 1, 2}) {
    ModeEnvoiTable = static_cast<std::uint8_t>(mode);
    const std::int64_t avant = f.carte->Compteurs().echanges;
    TempsDecoupe();
    EXPECT_EQ(f.carte->Compteurs().echanges - avant, 2) << "no row is sent";
    EXPECT_EQ(CdeZENIK->Tampon[1], 'B');
    EXPECT_EQ(CdeZENIK->Tampon[2], mode == 0 ? 1 : 2);
    EXPECT_EQ(NbDeplacements, 2);
  }
}

TEST(TempsPrevu, NeedsNoBoardAndSendsNothing) {
  { const Flux f(true, essai::TableDe(6, 5)); }
  CdeZENIK->ChargeParametres();
  Pose({{10, 5}, {3, 6}});
  EXPECT_NEAR(TempsPrevu(), 2.5, 1e-6);
}

TEST(TempsPrevu, NothingPlannedTakesNoTime) {
  EXPECT_EQ(TempsPrevu(), 0);
  Pose({});
  EXPECT_EQ(TempsPrevu(), 0);
}

}  // namespace
