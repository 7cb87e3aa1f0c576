#include <algorithm>

#include "closed/pathwerk/lecture/excellon/Excellon.h"
#include "tests/unit/closed/pathwerk/Aide.h"

using namespace aide;
using pathwerk::Erreur;

namespace {

Assemblage Drl(const std::string& texte, bool entete = true) {
  Lecture l;
  pathwerk::lecture::excellon::LireExcellon(entete ? "M48\n" + texte + "M30\n" : texte, {}, l);
  return aide::Assemble(std::move(l));
}
// First points of all paths: the centres of the holes.
std::vector<Vec2> Trous(const std::string& texte, bool entete = true) {
  std::vector<Vec2> t;
  const auto a = Drl(texte, entete);
  EXPECT_EQ(a.rapport.Numero, Erreur::Aucune) << texte;
  for (const auto& s : a.sequences) {
    EXPECT_EQ(s.size(), 2U);
    EXPECT_EQ(s.front(), s.back());
    t.push_back(s.front());
  }
  return t;
}
using Points = std::vector<Vec2>;
constexpr double Lu(float v) { return static_cast<double>(v); }

}  // namespace

TEST(LireExcellon, UnitsAndDefaultFormats) {
  EXPECT_EQ(Trous("METRIC\n%\nT1\nX012500Y003000\n"), (Points{{12.5, 3}}));                // 3.3
  EXPECT_EQ(Trous("INCH\n%\nT1\nX+010000Y-005000\n"), (Points{{Lu(25.4F), Lu(-12.7F)}}));  // 2.4
  EXPECT_EQ(Trous("%\nM72\nT1\nX10000Y5000\n"), (Points{{Lu(25.4F), Lu(12.7F)}}));
  EXPECT_EQ(Trous("M71\n%\nT1\nX12500Y3000\n"), (Points{{12.5, 3}}));
  EXPECT_EQ(Trous("%\nT1\nX10000Y5000\n"), (Points{{Lu(25.4F), Lu(12.7F)}}));  // nothing said: inch
  EXPECT_EQ(Trous("METRIC,TZ\n%\nM71\nT1\nX1Y2\n"), (Points{{Lu(0.001F), Lu(0.002F)}}));
}

TEST(LireExcellon, ZerosThatAreKeptLeadOrTrail) {
  // TZ: trailing zeros are there. LZ: leading zeros are there, so the first digits are the whole ones.
  EXPECT_EQ(Trous("METRIC,TZ\n%\nX1500Y20\n"), (Points{{1.5, Lu(0.02F)}}));
  EXPECT_EQ(Trous("METRIC,LZ\n%\nX0015Y02\n"), (Points{{1.5, 20}}));
  EXPECT_EQ(Trous("METRIC,LZ\n%\nX-0015Y+02\n"), (Points{{-1.5, 20}}));
  EXPECT_EQ(Trous("INCH,LZ\n%\nX01Y0025\n"), (Points{{Lu(25.4F), Lu(6.35F)}}));
}

TEST(LireExcellon, FormatsThatAreStated) {
  EXPECT_EQ(Trous("METRIC,0000.00\n%\nX+004398Y+003842\n"), (Points{{Lu(43.98F), Lu(38.42F)}}));
  EXPECT_EQ(Trous("METRIC,TZ,000.000\n%\nX25679Y9449\n"), (Points{{Lu(25.679F), Lu(9.449F)}}));
  EXPECT_EQ(Trous(";FILE_FORMAT=2:2\nINCH,TZ\n%\nX+1000Y+0000\n"), (Points{{254, 0}}));
  EXPECT_EQ(Trous("INCH,TZ\n;FILE_FORMAT=2:2\n%\nX+1000Y+0000\n"), (Points{{254, 0}}));
  EXPECT_EQ(Trous("; FORMAT={3:2/ absolute / metric / suppress trailing zeros}\nMETRIC\n%\nX0015Y002\n"),
            (Points{{1.5, 2}}));
  EXPECT_EQ(Trous("; FORMAT={-:-/ absolute / inch / decimal}\nINCH\n%\nX1.0Y0.5\n"),
            (Points{{Lu(25.4F), Lu(12.7F)}}));
}

TEST(LireExcellon, ADecimalPointSettlesIt) {
  EXPECT_EQ(Trous("METRIC,LZ\n%\nX1.5Y-20.25\nX.5\n"), (Points{{1.5, -20.25}, {0.5, -20.25}}));
  EXPECT_EQ(Trous("INCH\n%\nX1.Y2.\n"), (Points{{Lu(25.4F), Lu(50.8F)}}));
}

TEST(LireExcellon, CoordinatesAreModal) {
  EXPECT_EQ(Trous("METRIC\n%\nT1\nX1000Y2000\nX3000\nT2\nY4000\n"), (Points{{1, 2}, {3, 2}, {3, 4}}));
}

TEST(LireExcellon, AbsoluteAndIncremental) {
  EXPECT_EQ(Trous("METRIC\n%\nX1000Y1000\nG91\nX500\nY-250\nG90\nX0Y0\n"),
            (Points{{1, 1}, {1.5, 1}, {1.5, 0.75}, {0, 0}}));
  EXPECT_EQ(Trous("METRIC\nICI,ON\n%\nX1000\nX1000\n"), (Points{{1, 0}, {2, 0}}));
  EXPECT_EQ(Trous("METRIC\nICI,OFF\n%\nX1000\nX2000\n"), (Points{{1, 0}, {2, 0}}));
}

TEST(LireExcellon, ZeroSetIsNoHoleAndMovesWhatFollows) {
  EXPECT_EQ(Trous("METRIC\n%\nG93X0Y0\nX1000Y1000\n"), (Points{{1, 1}}));
  EXPECT_EQ(Trous("METRIC\n%\nG93X10000Y-5000\nX1000Y1000\n"), (Points{{11, -4}}));
  EXPECT_EQ(Trous("METRIC\n%\nG92X10000\nX1000Y1000\n"), (Points{{11, 1}}));
  EXPECT_EQ(Trous("METRIC\n%\nG92Y10000\nX1000Y1000\n"), (Points{{1, 11}}));
}

TEST(LireExcellon, RepeatsStepFromTheLastHole) {
  EXPECT_EQ(Trous("METRIC\n%\nX1000Y1000\nR03X500Y-100\nX0\n"),
            (Points{{1, 1}, {1.5, Lu(0.9F)}, {2, Lu(0.8F)}, {2.5, Lu(0.7F)}, {0, Lu(0.7F)}}));
  EXPECT_EQ(Trous("METRIC\n%\nX0Y0\nR2Y1000\n"), (Points{{0, 0}, {0, 1}, {0, 2}}));
}

TEST(LireExcellon, PatternsAreRepeatedStepByStep) {
  EXPECT_EQ(Trous("METRIC\n%\nX9000Y9000\nM25\nX0Y0\nX1000\nM01\nM02X10000\nM02Y10000\nM08\nX5000Y5000\n"),
            (Points{{9, 9}, {0, 0}, {1, 0}, {10, 0}, {11, 0}, {10, 10}, {11, 10}, {5, 5}}));
}

TEST(LireExcellon, SlotsAreOpenPaths) {
  const auto a = Drl("METRIC\n%\nT1\nX1000Y2000G85X5000Y2000\nG85X9000\nX1000Y1000G85X1000Y1000\n");
  ASSERT_EQ(a.sequences.size(), 3U);
  EXPECT_EQ(a.sequences[0], (Points{{1, 2}, {5, 2}}));
  EXPECT_EQ(a.sequences[1], (Points{{5, 2}, {9, 2}}));  // not joined: each plunge is its own
  EXPECT_EQ(a.sequences[2], (Points{{1, 1}, {1, 1}}));
}

TEST(LireExcellon, RoutesRunFromToolDownToToolUp) {
  const auto a = Drl(
      "METRIC,TZ\n%\nT1\nG00X1000Y1000\nM15\nG01Y3000\nX4000\nM16\nG00X0Y0\nM15\nG01X500\nM17\nG05\nX7000Y7000\n");
  ASSERT_EQ(a.sequences.size(), 3U);
  EXPECT_EQ(a.sequences[0], (Points{{1, 1}, {1, 3}, {4, 3}}));
  EXPECT_EQ(a.sequences[1], (Points{{0, 0}, {0.5, 0}}));
  EXPECT_EQ(a.sequences[2], (Points{{7, 7}, {7, 7}}));
}

TEST(LireExcellon, MovesWithTheToolUpCutNothing) {
  const auto a = Drl("METRIC\n%\nG00X1000Y1000\nG01X2000\nM15\nX3000\nM16\nX9000\n");
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.sequences[0], (Points{{2, 1}, {3, 1}}));
}

TEST(LireExcellon, AFileThatNeverLowersTheToolCutsWithEveryFeed) {
  const auto a = Drl("METRIC\n%\nG00X1000Y1000\nG01X2000\nG00X5000Y5000\nG01Y6000\n");
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0], (Points{{1, 1}, {2, 1}}));
}

TEST(LireExcellon, ARouteThatComesBackIsClosed) {
  const auto a = Drl("METRIC\n%\nG00X0Y0\nM15\nG01X5000\nY5000\nX0\nY0\nM16\n");
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_TRUE(EstFerme(a.sequences[0]));
  EXPECT_EQ(Aire(a.sequences[0]), -25);
}

TEST(LireExcellon, ArcsByRadiusAreTheLesserOneOnTheRightSide) {
  for (const int g : {2, 3}) {
    const auto a = Drl("METRIC\n%\nG00X0Y0\nM15\nG0" + std::to_string(g) + "X10000Y10000A10000\nM16\n");
    ASSERT_EQ(a.sequences.size(), 1U);
    const auto& s = a.sequences[0];
    EXPECT_EQ(s.front(), (Vec2{0, 0}));
    EXPECT_EQ(s.back(), (Vec2{10, 10}));
    // Clockwise from (0,0) to (10,10) turns about (10,0), counter-clockwise about (0,10).
    const Vec2 c = g == 2 ? Vec2{10, 0} : Vec2{0, 10};
    for (const Vec2 p : s) EXPECT_NEAR(std::hypot(p.x - c.x, p.y - c.y), 10, 1e-5);
    EXPECT_GT(s.size(), 10U);
    EXPECT_LT(s.size(), 60U);
  }
}

TEST(LireExcellon, ArcsByCentreWithAndWithoutSigns) {
  // Centre (5, 0) seen from (10, 0) is I-5; old writers leave the sign out.
  for (const char* ij : {"I-5000J0", "I5000J0", "I-5000"}) {
    const auto a = Drl(std::string("METRIC\n%\nG00X10000Y0\nM15\nG03X0Y0") + ij + "\nM16\n");
    ASSERT_EQ(a.sequences.size(), 1U) << ij;
    double haut = 0;
    for (const Vec2 p : a.sequences[0]) {
      EXPECT_NEAR(std::hypot(p.x - 5, p.y), 5, 1e-5) << ij;
      haut = std::max(haut, p.y);
    }
    EXPECT_NEAR(haut, 5, 0.02) << ij;
  }
}

TEST(LireExcellon, AnArcBackToItsStartIsAFullCircle) {
  const auto a = Drl("METRIC\n%\nG00X10000Y0\nM15\nG02X10000Y0I-5000J0\nM16\n");
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_TRUE(EstFerme(a.sequences[0]));
  EXPECT_NEAR(Aire(a.sequences[0]), -std::numbers::pi * 25, 0.3);
}

TEST(LireExcellon, ARadiusTooSmallIsHalfTheChord) {
  const auto a = Drl("METRIC\n%\nG00X0Y0\nM15\nG02X10000Y0A3000\nM16\n");
  double haut = 0;
  for (const Vec2 p : a.sequences.at(0)) haut = std::max(haut, p.y);
  EXPECT_NEAR(haut, 5, 0.02);
}

TEST(LireExcellon, CannedCircles) {
  const auto a = Drl("METRIC\n%\nG32X5000Y5000A2000\nX20000Y5000G84X6000\n");
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_NEAR(Aire(a.sequences[0]), -std::numbers::pi * 4, 0.1);
  EXPECT_NEAR(Aire(a.sequences[1]), -std::numbers::pi * 9, 0.15);
}

TEST(LireExcellon, ToolTablesCommentsAndFeedsAreNoHoles) {
  EXPECT_EQ(
      Trous("; X1Y1\nVER,1\nFMAT,2\nATC,ON\nMETRIC\nT01C0.8F200S65\nT02C1.0\n%\nT01\nF200\nX1000Y1000F100\nT00\n"),
      (Points{{1, 1}}));
}

TEST(LireExcellon, HeaderEndsAtPercentM95OrTheFirstCoordinate) {
  EXPECT_EQ(Trous("METRIC\nT1C1\nM95\nX1000Y1000\n"), (Points{{1, 1}}));
  EXPECT_EQ(Trous("METRIC\nT1C1\nX1000Y1000\n"), (Points{{1, 1}}));
  EXPECT_EQ(Trous("METRIC\nT1C1\nG90\nX1000Y1000\n"), (Points{{1, 1}}));
}

TEST(LireExcellon, AFileWithoutHeaderIsReadWhenItsLinesAre) {
  EXPECT_EQ(Trous("%\nT1\nX10000Y10000\nM30\n", false), (Points{{Lu(25.4F), Lu(25.4F)}}));
}

TEST(LireExcellon, WhatIsBehindTheEndIsNotRead) {
  EXPECT_EQ(Trous("M48\nMETRIC\n%\nX1000Y1000\nM30\nX2000Y2000\n", false), (Points{{1, 1}}));
  EXPECT_EQ(Trous("M48\nMETRIC\n%\nX1000Y1000\nM00\nX2000Y2000\n", false), (Points{{1, 1}}));
}

TEST(LireExcellon, AFileThatEndsInTheMiddleSaysSoAndKeepsWhatWasWhole) {
  const auto a = Drl("M48\nMETRIC\n%\nX1000Y1000\nG00X0Y0\nM15\nG01X1000\nG01X200", false);
  EXPECT_TRUE(a.rapport.Tronque);
  EXPECT_EQ(a.sequences.size(), 2U);
  EXPECT_FALSE(Drl("METRIC\n%\nX1000Y1000\n").rapport.Tronque);
}

TEST(LireExcellon, UnknownCommandsAreCounted) {
  const auto a = Drl("METRIC\n%\nX1000Y1000\nG77X1\nM97,TEXT\nM50\nwhat is this\n");
  EXPECT_EQ(a.n, 2);
  EXPECT_EQ(a.Ignores("G77"), 1);
  EXPECT_EQ(a.Ignores("M97"), 1);
  EXPECT_EQ(a.Ignores("M50"), 1);
  EXPECT_EQ(a.Ignores("ROW"), 1);
}

TEST(LireExcellon, AHitGivenTwiceIsDrilledOnce) {
  const auto a = Drl("METRIC\n%\nX1000Y1000\nX1000Y1000\n");
  EXPECT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.Ignores("DUPLICATE"), 1);
}

TEST(LireExcellon, OtherTextIsRefusedWithItsLine) {
  for (const char* t : {"", "hello\n", "1 2\n3 4\n", "%FSLAX24Y24*%\nX1Y1D03*\n", "SOME TEXT\nT1\nMORE TEXT\n"}) {
    Lecture l;
    pathwerk::lecture::excellon::LireExcellon(t, {}, l);
    EXPECT_EQ(l.rapport.Numero, Erreur::Excellon) << t;
  }
  Lecture l;
  pathwerk::lecture::excellon::LireExcellon("\nhello\n", {}, l);
  EXPECT_EQ(l.rapport.Ligne, 2);
  EXPECT_EQ(l.rapport.Detail, "hello");
  l = {};
  pathwerk::lecture::excellon::LireExcellon(std::string_view("M48\n\0", 5), {}, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::Excellon);
  EXPECT_EQ(l.rapport.Ligne, 2);
}

TEST(LireExcellon, CoordinatesTooLargeAreRefusedWithTheirLine) {
  Lecture l;
  pathwerk::lecture::excellon::LireExcellon("M48\nMETRIC\n%\nX1.0\nX10000001.0\n", {}, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::Coordonnee);
  EXPECT_EQ(l.rapport.Ligne, 5);
  l = {};
  pathwerk::lecture::excellon::LireExcellon("M48\nMETRIC\n%\nX1.0\nR9999X9000000.0\n", {}, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::Coordonnee);
}

TEST(LireExcellon, AFewBytesDoNotTakeAllMemory) {
  std::string t = "M48\nMETRIC\n%\nX1Y1\n";
  for (int k = 0; k < 4; ++k) t += "R1000000X1\n";
  Lecture l;
  pathwerk::lecture::excellon::LireExcellon(t, {}, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::Memoire);
}

TEST(LireExcellon, TheUnitMayStandWithItsZerosBehindM71AndM72) {
  EXPECT_EQ(Trous("M71,TZ\n%\nX12500Y3000\n"), (Points{{12.5, 3}}));
  EXPECT_EQ(Trous("M71,LZ\n%\nX0125Y03\n"), (Points{{12.5, 30}}));
  EXPECT_EQ(Trous("M72, LZ\n%\nX01Y005\n"), (Points{{Lu(25.4F), Lu(12.7F)}}));
  EXPECT_EQ(Trous("M71,000.000\n%\nX1500Y20\n"), (Points{{1.5, Lu(0.02F)}}));
  EXPECT_EQ(Trous("; FORMAT={3:3/ absolute / metric / suppress leading zeros}\n%\nX1500Y20\n"),
            (Points{{1.5, Lu(0.02F)}}));
}

TEST(LireExcellon, EveryHeaderWordIsKnownOrCounted) {
  const auto connus =
      Drl("VER,1\nFMAT,2\nATC,ON\nOM48\nR,T\nBLKD,ON\nZC\nSBK,ON\nT01C0.8F200S65\nICI,OFF\nMETRIC,TZ\n%\nX1000\n");
  EXPECT_EQ(connus.n, 2);
  EXPECT_TRUE(connus.rapport.Ignores.empty()) << connus.rapport.Ignores.begin()->first;
  const auto autres = Drl("METRIC,TZ,SMALL\nBOARD,7\nTOOLS,3\nBOARD,8\nTx\n%\nX1000\n");
  EXPECT_EQ(autres.n, 2);
  EXPECT_EQ(autres.Ignores("SMALL"), 1);
  EXPECT_EQ(autres.Ignores("BOARD"), 2);
  EXPECT_EQ(autres.Ignores("TOOLS"), 1);
  EXPECT_EQ(autres.Ignores("Tx"), 1);
}

TEST(LireExcellon, AToolThatGoesSomewhereAndACodeOfTheBodyEndTheHeader) {
  EXPECT_EQ(Trous("METRIC,TZ\nT1C0.8X1000Y2000\n"), (Points{{1, 2}}));
  EXPECT_EQ(Trous("METRIC,TZ\nM15\nT1\nX1000Y2000\n"), (Points{{1, 2}}));
}

namespace {
using pathwerk::Avis;
using pathwerk::AvisLecture;
std::vector<AvisLecture> Suppose(const std::string& texte) { return Drl(texte).rapport.Suppose; }
}  // namespace

TEST(LireExcellon, WithoutAUnitItSaysThatInchesAreTaken) {
  EXPECT_EQ(Suppose("T1C0.8\n%\nX1.0Y2.0\n"), (std::vector<AvisLecture>{{Avis::SansUnites, ""}}));
  EXPECT_TRUE(Suppose("INCH\n%\nX1.0Y2.0\n").empty());
  EXPECT_TRUE(Suppose("%\nM71\nX1.0Y2.0\n").empty());
}

TEST(LireExcellon, FormatAndZerosThatAreGuessedAreSaid) {
  const auto suppose = [](const char* ligne) { return std::vector<AvisLecture>{{Avis::FormatDevine, ligne}}; };
  EXPECT_EQ(Suppose("METRIC\n%\nX1000Y2000\n"), suppose("METRIC,TZ,000.000"));
  EXPECT_EQ(Suppose("INCH,LZ\n%\nX01Y02\n"), suppose("INCH,LZ,00.0000"));
  EXPECT_EQ(Suppose("METRIC,000.00\n%\nX1000Y2000\n"), suppose("METRIC,TZ,000.00"));
  EXPECT_TRUE(Suppose("METRIC,000.00\n%\nX01000Y-02000\n").empty()) << "all digits are there";
  EXPECT_TRUE(Suppose("METRIC,TZ,000.000\n%\nX1000Y2000\n").empty());
  EXPECT_TRUE(Suppose("METRIC\n%\nX1.0Y2.0\n").empty());
  EXPECT_EQ(Suppose("%\nX1000Y2000\n").size(), 2U);
}

TEST(LireExcellon, BothWordsOfASlotCutIt) {
  for (const char* const mot : {"G85", "G87"}) {
    const auto a = Drl(std::string("METRIC\n%\nT1\nX1000Y2000") + mot + "X5000Y2000\n");
    ASSERT_EQ(a.sequences.size(), 1U) << mot;
    EXPECT_EQ(a.sequences[0], (Points{{1, 2}, {5, 2}})) << mot;
  }
}

TEST(LireExcellon, ExtentsThatContradictTheResultAreTold) {
  // A board of 100 x 80 mm, read as metric, as inches, and with one digit less behind the point.
  const std::string trous = "%\nX010000Y010000\nX090000Y070000\n";
  const std::string etendue = ";EXTENTS X0.000 Y0.000 X100.000 Y80.000 MM\n";
  EXPECT_TRUE(Suppose(etendue + "METRIC,TZ,000.000\n" + trous).empty());
  EXPECT_EQ(Suppose(etendue + "INCH,TZ,00.0000\n" + trous),
            (std::vector<AvisLecture>{{Avis::Etendue, ";EXTENTS X0.000 Y0.000 X100.000 Y80.000 MM"}}));
  EXPECT_EQ(Suppose(etendue + "METRIC,TZ,0000.00\n" + trous).size(), 1U);
  EXPECT_EQ(Suppose(etendue + "METRIC,TZ,0.00000\n" + trous).size(), 1U) << "far too small";
  for (const char* const ligne :
       {";EXTENTS 100.0 80.0", "; Extents: 0.0 100.0 0.0 80.0", ";EXTENTS 0 0 100000 80000",
        ";EXTENTS X10.0 Y20.0 X110.0 Y100.0", ";EXTENTS 10.0 110.0 20.0 100.0", ";EXTENTS -50.0 -40.0 50.0 40.0",
        ";EXTENTS 0 0 3.94 3.15 INCH", ";EXTENTS unknown", ";EXTENTS 1.0 2.0 3.0"}) {
    EXPECT_TRUE(Suppose(std::string(ligne) + "\nMETRIC,TZ,000.000\n" + trous).empty()) << ligne;
  }
  EXPECT_EQ(Suppose(";EXTENTS 70.0 80.0\nMETRIC,TZ,000.000\n" + trous).size(), 1U);
  EXPECT_EQ(Suppose(";EXTENTS 0.0 0.0 100.0 50.0\nMETRIC,TZ,000.000\n" + trous).size(), 1U);
}

TEST(LireExcellon, AWholeFileWithoutM30IsNotCutOff) {
  EXPECT_FALSE(Drl("M48\nMETRIC,TZ\n%\nT1\nX1000Y1000\n", false).rapport.Tronque);
  EXPECT_FALSE(Drl("M48\nMETRIC,TZ\n%\nT1\nX1000Y1000\r", false).rapport.Tronque);
  EXPECT_FALSE(Drl("%\nT1\nX10000Y10000\n", false).rapport.Tronque);
  EXPECT_TRUE(Drl("M48\nMETRIC,TZ\n%\nT1\nX1000Y10", false).rapport.Tronque) << "in a line";
  EXPECT_TRUE(Drl("M48\nMETRIC,TZ\nT1C0.8\n", false).rapport.Tronque) << "in the header";
  EXPECT_TRUE(Drl("M48\nMETRIC\n%\nG00X0Y0\nM15\nG01X1000\n", false).rapport.Tronque) << "router down";
  EXPECT_FALSE(Drl("M48\nMETRIC\n%\nG00X0Y0\nM15\nG01X1000\nM16\n", false).rapport.Tronque);
}

TEST(LireExcellon, CoordinatesThatGrowTooLargeAreRefusedWithLineAndValue) {
  const auto pas = Drl("M48\nMETRIC\n%\nX9000000.0\nG91\nX9000000.0\nM30\n", false);
  EXPECT_EQ(pas.rapport.Numero, Erreur::Coordonnee);
  EXPECT_EQ(pas.rapport.Ligne, 6);
  EXPECT_EQ(pas.rapport.Detail, "18000000 0 mm");
  const auto motif = Drl("M48\nMETRIC\n%\nM25\nX9000000.0\nM01\nM02X9000000.0Y1.0\nM30\n", false);
  EXPECT_EQ(motif.rapport.Ligne, 7);
  EXPECT_EQ(motif.rapport.Detail, "18000000 1 mm");
  const auto repete = Drl("M48\nMETRIC\n%\nX1.0\nR3X9000000.0\nM30\n", false);
  EXPECT_EQ(repete.rapport.Ligne, 5);
  EXPECT_EQ(repete.rapport.Detail, "18000001 0 mm");
  const auto rainure = Drl("M48\nMETRIC\n%\nX9000000.0\nG91\nG85X9000000.0\nM30\n", false);
  EXPECT_EQ(rainure.rapport.Ligne, 6);
  const auto route = Drl("M48\nMETRIC\n%\nG00X9000000.0Y0\nM15\nG91\nG01X9000000.0\nM16\nM30\n", false);
  EXPECT_EQ(route.rapport.Ligne, 7);
  EXPECT_EQ(Drl("M48\nMETRIC\n%\nX10000001.0\nM30\n", false).rapport.Detail, "X10000001.0");
}

// A quarter and more about (3, -2) mm from every quadrant, both ways. The centre stands in I and J with its signs,
// or in A as the radius; the ends are rounded to 0.001 mm by the file.
TEST(LireExcellon, ArcsRunRightInAllQuadrants) {
  const Vec2 c{3, -2};
  const double r = 5;
  const auto micron = [](double v) { return std::to_string(std::lround(v * 1000)); };
  for (const double debut : {20.0, 110.0, 200.0, 290.0}) {
    for (const double tour : {130.0, -130.0, 50.0, -50.0}) {
      const auto place = [&](double degres) {
        const double a = degres * std::numbers::pi / 180;
        return Vec2{c.x + r * std::cos(a), c.y + r * std::sin(a)};
      };
      const Vec2 p = place(debut);
      const Vec2 q = place(debut + tour);
      const std::string va = std::string("METRIC,TZ,000.000\n%\nG00X") + micron(p.x) + "Y" + micron(p.y) +
                             "\nM15\n" + (tour > 0 ? "G03X" : "G02X") + micron(q.x) + "Y" + micron(q.y);
      for (const std::string& mots : {"I" + micron(c.x - p.x) + "J" + micron(c.y - p.y), "A" + micron(r)}) {
        const auto a = Drl(va + mots + "\nM16\n");
        ASSERT_EQ(a.sequences.size(), 1U) << va << mots;
        const auto& s = a.sequences[0];
        double longueur = 0;
        for (std::size_t k = 0; k < s.size(); ++k) {
          EXPECT_NEAR(std::hypot(s[k].x - c.x, s[k].y - c.y), r, 0.004) << va << mots;
          if (k > 0) longueur += std::hypot(s[k].x - s[k - 1].x, s[k].y - s[k - 1].y);
        }
        EXPECT_NEAR(longueur, r * std::fabs(tour) * std::numbers::pi / 180, 0.03) << va << mots;
        EXPECT_NEAR(s.back().x, q.x, 0.001);
        EXPECT_NEAR(s.back().y, q.y, 0.001);
      }
    }
  }
}

TEST(LireExcellon, CodesAreNamedWithTwoDigitsAndAnEmptyFileByItsFirstLine) {
  const auto a = Drl("METRIC\n%\nG4X1\nX1.0Y1.0\n");
  EXPECT_EQ(a.Ignores("G04"), 1);
  EXPECT_EQ(Drl("", false).rapport.Ligne, 1);
}

namespace {

// The tool of each path, as the layer that it lies on; "-" without one.
std::vector<std::string> Outils(const std::string& texte) {
  Lecture l;
  pathwerk::lecture::excellon::LireExcellon("M48\n" + texte + "M30\n", {}, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune) << texte;
  std::vector<std::string> outils;
  for (const Trait& t : l.traits) {
    const pathwerk::Calque& calque = l.calques.Tous().at(t.calque);
    outils.push_back(t.calque == 0 ? "-" : calque.Nom);
    EXPECT_TRUE(t.calque == 0 || calque.Sorte == pathwerk::Calque::Genre::Outil);
  }
  return outils;
}
using Noms = std::vector<std::string>;

}  // namespace

TEST(LireExcellon, APathLiesOnTheLayerOfItsTool) {
  EXPECT_EQ(Outils("METRIC\nT1C0.8\nT02F200S65C1.25\n%\nT1\nX1.0Y1.0\nX2.0Y1.0\nT2\nX3.0Y1.0\nT1\nX4.0Y1.0\n"),
            (Noms{"1 (0.8 mm)", "1 (0.8 mm)", "2 (1.25 mm)", "1 (0.8 mm)"}));
}

TEST(LireExcellon, ADiameterIsInTheUnitOfTheFile) {
  EXPECT_EQ(Outils("INCH\nT1C0.0394\n%\nT1\nX1.0Y1.0\n"), (Noms{"1 (1.001 mm)"})) << "1.00076";
}

TEST(LireExcellon, AToolWithoutADiameterThatCanBeReadHasItsNumberAlone) {
  EXPECT_EQ(
      Outils("METRIC\nT1\nT2C0800\nT3C-1.0\nT4C1e9.\n%\nX0.0Y0.0\nT1\nX1.0Y1.0\nT2\nX2.0Y1.0\nT3\nX3.0Y1.0\n"),
      (Noms{"-", "1", "2", "3"}));
  EXPECT_EQ(Outils("METRIC\n%\nT7C0.5\nX1.0Y1.0\n"), (Noms{"7 (0.5 mm)"})) << "told where it is chosen";
}

TEST(LireExcellon, ARouteAndItsRepetitionLieOnTheLayerOfTheToolThatDrewThem) {
  EXPECT_EQ(Outils("METRIC\nT1C1.0\nT2C2.0\n%\nT1\nG00X0.0Y0.0\nM15\nG01X5.0Y0.0\nT2\nG05\nX9.0Y9.0\n"),
            (Noms{"1 (1 mm)", "2 (2 mm)"}));
  EXPECT_EQ(Outils("METRIC\nT1C1.0\n%\nT1\nM25\nX1.0Y1.0\nM01\nM02X5.0Y0.0\nM08\n"),
            (Noms{"1 (1 mm)", "1 (1 mm)"}));
}
