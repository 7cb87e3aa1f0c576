// The measuring pass: bounds, lengths, vertices, what stands in the way of a run.
#include <cmath>

#include "gcode/Mesure.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;

constexpr CouleursMouvement Couleurs{1, 2, 3, 4};

MesureProgramme Mesure(const std::string& texte) { return MesureDe(Programme(texte), Couleurs, true); }

TEST(AnalyseProgramme, GrowsTheBoundsWithEachTarget) {
  const MesureProgramme m = Mesure("F60\nG01 X10 Y-5 Z2\nX-3\nZ-7\n");
  EXPECT_EQ(m.bornes, (BornesProgramme{-3, 10, -5, -5, -7, 2}));
}

TEST(AnalyseProgramme, ProgramsWithoutAMoveHaveNoBounds) {
  const MesureProgramme m = Mesure("(nothing)\nG71\nM03\n");
  EXPECT_EQ(m.bornes, BornesProgramme{});
  EXPECT_EQ(m.mouvements, 0U);
  EXPECT_TRUE(m.CadreVertex.empty());
}

TEST(AnalyseProgramme, SkipsLinesThatAreNotValid) {
  const MesureProgramme m = Mesure("F60\nX1\nG02 X50 Y50 R9\n(X99)\nx77\nX2\n");
  EXPECT_EQ(m.bornes.Xmax, 2);
  EXPECT_EQ(m.mouvements, 2U);
}

TEST(AnalyseProgramme, SumsLengthAndTimeAtTheProgrammedSpeed) {
  // 30 mm at 10 mm/s, 40 mm rapid, 50 mm at 5 mm/s
  const MesureProgramme m = Mesure("F600\nG01 X30\nG00 Y40\nG01 F300\nX0 Y0\n");
  EXPECT_DOUBLE_EQ(m.longueur, 120);
  EXPECT_DOUBLE_EQ(m.longueurRapide, 40);
  EXPECT_DOUBLE_EQ(m.secondes, 13);
}

TEST(AnalyseProgramme, FindsMovesWithoutASpeed) {
  const MesureProgramme m = Mesure("G00 X1\nG01\nX2\nX3\nF60\nX4\n");
  EXPECT_EQ(m.sansVitesse, 2U) << "the rapid move, and the one of no length, need none";
  EXPECT_EQ(m.ligneSansVitesse, 3U);
  EXPECT_EQ(Mesure("F60\nX1\nF0\nX2\n").ligneSansVitesse, 4U);
  EXPECT_EQ(Mesure("F60\nX1\nF-5\nX2\n").ligneSansVitesse, 4U);
}

TEST(AnalyseProgramme, TheStripBeginsAtTheOriginAndTellsKindsApart) {
  const MesureProgramme m = Mesure("F60\nG00 X1\nG01 Z-2\nX3\nX3\nZ0\n");
  ASSERT_EQ(m.TraceVertex.size(), 5U) << "a move of no length makes no vertex";
  EXPECT_EQ(m.TraceVertex[0].X, 0);
  const std::uint32_t genres[] = {0, 1, 3, 2, 3};  // start, rapid, plunge, cut, plunge
  const std::uint32_t couleurs[] = {1, 1, 3, 2, 3};
  const std::uint32_t lignes[] = {0, 2, 3, 4, 6};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(m.TraceVertex[i].Speculaire, genres[i]) << i;
    EXPECT_EQ(m.TraceVertex[i].Couleur, couleurs[i]) << i;
    EXPECT_EQ(m.TraceVertex[i].Reserve, lignes[i]) << i;
  }
  EXPECT_EQ(m.TraceVertex[4].X, 3);
  EXPECT_EQ(m.TraceVertex[4].Z, 0);
}

TEST(AnalyseProgramme, TheBoxHasTwelveEdgesOnTheBounds) {
  const MesureProgramme m = Mesure("F60\nX-1 Y-2 Z-3\nX1 Y2 Z3\n");
  ASSERT_EQ(m.CadreVertex.size(), 24U);
  double somme = 0;
  for (std::size_t i = 0; i < 24; i += 2) {
    const Vertex& a = m.CadreVertex[i];
    const Vertex& b = m.CadreVertex[i + 1];
    somme += static_cast<double>(std::abs(b.X - a.X) + std::abs(b.Y - a.Y) + std::abs(b.Z - a.Z));
    EXPECT_EQ(std::abs(a.X), 1);
    EXPECT_EQ(std::abs(a.Y), 2);
    EXPECT_EQ(std::abs(b.Z), 3);
    EXPECT_EQ(a.Couleur, 4U);
  }
  EXPECT_DOUBLE_EQ(somme, 4 * (2 + 4 + 6));
}

TEST(AnalyseProgramme, AFlatProgramHasABoxWithoutDepth) {
  EXPECT_EQ(Mesure("F60\nX1 Y1\nX0\n").CadreVertex.size(), 24U);
}

TEST(AnalyseProgramme, MakesNoVerticesWhenNobodyLooks) {
  const MesureProgramme m = MesureDe(Programme("F60\nX1\nX2\n"), Couleurs, false);
  EXPECT_TRUE(m.TraceVertex.empty());
  EXPECT_TRUE(m.CadreVertex.empty());
  EXPECT_EQ(m.bornes.Xmax, 2);
}

TEST(RGBtoDXCOLOR, ScalesEachChannelToItsMask) {
  EXPECT_EQ(RGBtoDXCOLOR(255, 128, 0), 0x00FF8000U);
  const MasquesCouleur cinqSixCinq{0xF800, 0x07E0, 0x001F};
  EXPECT_EQ(RGBtoDXCOLOR(255, 255, 255, cinqSixCinq), 0xFFFFU);
  // 128 / 255 of 63488, 2016 and 31: 31868.6, 1011.95, 15.56
  EXPECT_EQ(RGBtoDXCOLOR(128, 128, 128, cinqSixCinq), (31869U & 0xF800U) | (1012U & 0x07E0U) | 16U);
  EXPECT_EQ(RGBtoDXCOLOR(-5, 300, 0), 0x0000FF00U);
}

TEST(MakeVector, HoldsItsThreeNumbers) { EXPECT_EQ(MakeVector(1, 2, 3), (Vector3{1, 2, 3})); }

}  // namespace
}  // namespace essai
