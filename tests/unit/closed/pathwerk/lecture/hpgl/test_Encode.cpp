// The encoded polyline. The tests write it with an encoder of their own, after the definition of the format.
#include "closed/pathwerk/lecture/hpgl/Encode.h"
#include "tests/unit/closed/pathwerk/lecture/hpgl/Mesures.h"

namespace pathwerk::lecture::hpgl {
namespace {

using namespace mesures;

std::string Code64(long v) {
  unsigned long n = 2 * static_cast<unsigned long>(std::labs(v)) + (v < 0 ? 1 : 0);
  std::string s;
  for (; n >= 64; n /= 64) s += static_cast<char>(63 + n % 64);
  return s + static_cast<char>(191 + n);
}

std::string Code32(long v) {
  unsigned long n = 2 * static_cast<unsigned long>(std::labs(v)) + (v < 0 ? 1 : 0);
  std::string s;
  for (; n >= 32; n /= 32) s += static_cast<char>(63 + n % 32);
  return s + static_cast<char>(95 + n);
}

std::string Paire64(long x, long y) { return Code64(x) + Code64(y); }

TEST(LireHpgl, EncodedPairsAreStepsDrawnWithThePenDown) {
  const auto t = Traits("PU1000,1000;PE" + Paire64(100, 0) + Paire64(0, -3000) + Paire64(-100, 5) + ";PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{1000, 1000}, {1100, 1000}, {1100, -2000}, {1000, -1995}});
}

TEST(LireHpgl, EncodedFlagsLiftThePenAndGivePlaces) {
  const auto t = Traits("PE<=" + Paire64(50, 60) + Paire64(10, 0) + "=" + Paire64(0, 0) + "<" + Paire64(200, 200) +
                        Paire64(1, 1) + ";");
  ASSERT_EQ(t.size(), 2U);
  AttendUnites(t[0], {{50, 60}, {60, 60}, {0, 0}});
  AttendUnites(t[1], {{200, 200}, {201, 201}});
}

TEST(LireHpgl, SevenBitEncodingAndItsParityBit) {
  std::string donnees = "<=" + Code32(400) + Code32(-800) + Code32(16) + Code32(15);
  const auto t = Traits("PE7" + donnees + ";");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{400, -800}, {416, -785}});
  for (char& c : donnees) c = static_cast<char>(c | 0x80);
  const auto parite = Traits("PE7" + donnees + ";");
  AttendUnites(parite[0], {{400, -800}, {416, -785}});
}

// The figures are those of the programming manuals' own example: 10525 gives the bytes 89, 80, 115 in seven bits
// and 121, 71, 196 in eight. A plotter emulation places the end of this line at (22050, 4000) units.
TEST(LireHpgl, SevenBitsGiveTheFiguresOfTheManual) {
  const auto t = Traits("IN;SP1;PE7<=YPs_YPs_O]`?Yf;PU;SP0;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{10525, 0}, {21050, 0}, {22050, 4000}});
}

TEST(LireHpgl, EightBitsGiveTheFiguresOfTheManual) {
  const auto t = Traits("PE<=yG\xC4\xBF=\xBFyG\xC4;PU;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{10525, 0}, {0, 10525}});
}

// A plotter emulation draws this one 100 mm wide and 50 mm high, as a closed line of four sides.
TEST(LireHpgl, ARectangleInSevenBitsHasTheSizeThatAPlotterGivesIt) {
  const auto t = Traits("IN;SP1;PE7<=O]`O]`?Yf__?\\b@Yf__@\\b;PU;SP0;");
  ASSERT_EQ(t.size(), 1U);
  EXPECT_EQ(t[0].nature, Nature::Ferme);
  AttendUnites(t[0], {{1000, 1000}, {5000, 1000}, {5000, 3000}, {1000, 3000}});
}

TEST(LireHpgl, FractionBitsDivideWhatFollows) {
  // Three binary digits: eighths.
  const auto t =
      Traits("PE<=" + Paire64(0, 0) + ">" + Code64(3) + Paire64(8, 20) + ">" + Code64(0) + Paire64(1, 0) + ";");
  AttendUnites(t[0], {{0, 0}, {1, 2.5}, {2, 2.5}});
}

TEST(LireHpgl, EncodedPairsAreInUserUnits) {
  const auto t = Traits("IP0,0,1000,1000;SC0,10,0,10;PE<=" + Paire64(1, 1) + Paire64(2, 0) + ";");
  AttendUnites(t[0], {{100, 100}, {300, 100}});
}

TEST(LireHpgl, EncodedPenSelectionIsObeyed) {
  const Lecture l = Lit("SP1;PE<=" + Paire64(0, 0) + Paire64(9, 9) + ":" + Code64(0) + Paire64(5, 5) + ":" +
                        Code64(2) + Paire64(7, 7) + ";");
  EXPECT_EQ(l.traits.size(), 2U);
  EXPECT_EQ(Ignores(l, "SP0"), 1);
}

TEST(LireHpgl, ThePenStaysAsTheLastEncodedPairLeftIt) {
  EXPECT_EQ(Traits("PE<=" + Paire64(0, 0) + Paire64(9, 9) + ";PA20,20;PU;")[0].points.size(), 3U);
  EXPECT_TRUE(Traits("PD;PE<=" + Paire64(5, 5) + ";PA20,20;PU;").empty());
}

TEST(LireHpgl, TheModeOfMovesIsAsBeforeBehindAnEncodedLine) {
  const auto t = Traits("PR;PE<=" + Paire64(100, 100) + Paire64(1, 1) + ";PR10,0;PU;");
  AttendUnites(t[0], {{100, 100}, {101, 101}, {111, 101}});
}

TEST(LireHpgl, EncodedStepsOfNothingAreCountedNotDrilled) {
  const Lecture l = Lit("PE<=" + Paire64(50, 50) + Paire64(0, 0) + "<" + Paire64(50, 50) + Paire64(0, 0) +
                        Paire64(9, 0) + ";PU;");
  ASSERT_EQ(l.traits.size(), 1U);
  AttendUnites(l.traits[0], {{100, 100}, {109, 100}});
  EXPECT_EQ(Ignores(l, "DOT"), 1);
}

TEST(LireHpgl, EncodedCornersGoIntoThePolygon) {
  const auto t = Traits("PU10,10;PM0;PE" + Paire64(90, 0) + Paire64(0, 90) + Paire64(-90, -90) + ";PM2;FP;");
  ASSERT_EQ(t.size(), 1U);
  AttendUnites(t[0], {{10, 10}, {100, 10}, {100, 100}});
}

TEST(LireHpgl, AnEncodedLineCutOffByTheEndKeepsItsWholePairs) {
  const Lecture l = Lit("PE<=" + Paire64(0, 0) + Paire64(9, 9) + Code64(5000).substr(0, 1));
  EXPECT_TRUE(l.rapport.Tronque);
  ASSERT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(l.traits[0].points.size(), 2U);
}

TEST(HpglDecodeur, PassesOverBytesThatAreNoDigits) {
  const std::string texte = "\x01 \x80" + Code64(-7) + "\xFF\r\n" + Code64(31);
  HpglDecodeur d(texte);
  HpglElement e;
  ASSERT_TRUE(d.Suivant(e));
  EXPECT_EQ(e.valeur, (Vec2{-7, 31}));
  EXPECT_FALSE(e.leve);
  EXPECT_FALSE(e.absolu);
  EXPECT_FALSE(d.Suivant(e));
}

TEST(HpglDecodeur, ReadsTheLargestNumbersOfTheFormatExactly) {
  const std::string texte = Code64((1L << 30) - 1) + Code64(-(1L << 30));
  HpglDecodeur d(texte);
  HpglElement e;
  ASSERT_TRUE(d.Suivant(e));
  EXPECT_EQ(e.valeur, (Vec2{1073741823, -1073741824}));
}

}  // namespace
}  // namespace pathwerk::lecture::hpgl
