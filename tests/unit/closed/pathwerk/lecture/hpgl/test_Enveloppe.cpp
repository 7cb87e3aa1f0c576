// Labels, escape sequences, printer and job languages, what is no plot at all.
#include "tests/unit/closed/pathwerk/lecture/hpgl/Mesures.h"

namespace pathwerk::lecture::hpgl {
namespace {

using namespace mesures;

constexpr std::string_view PlotTrait = "PU0,0;PD40,0;PU;";

// Exactly the one line of PlotTrait is read.
void AttendLeTrait(const Lecture& l) {
  ASSERT_EQ(l.rapport.Numero, Erreur::Aucune);
  ASSERT_EQ(l.traits.size(), 1U);
  AttendUnites(l.traits[0], {{0, 0}, {40, 0}});
}

TEST(LireHpgl, LabelsAreLeftOutAndCounted) {
  const Lecture l = Lit("IN;LBPU0,0;PD99,99;\003PU0,0;PD40,0;PU;LBend\003;BLx\003;PB;");
  AttendLeTrait(l);
  EXPECT_EQ(Ignores(l, "LB"), 2);
  EXPECT_EQ(Ignores(l, "PB"), 1);
}

TEST(LireHpgl, TheLabelTerminatorCanBeChanged) {
  for (const char* const dt : {"DT#;", "DT#", "DT#,1;", "DT#,0;", "dt#;"}) {
    const Lecture l = Lit(std::string("IN;") + dt + "LBPD9,9;\003#" + std::string(PlotTrait) + "LBa#");
    SCOPED_TRACE(dt);
    AttendLeTrait(l);
    EXPECT_EQ(Ignores(l, "LB"), 2);
  }
}

TEST(LireHpgl, TheLabelTerminatorMayBeALetterOrASign) {
  AttendLeTrait(Lit("DTP;LBxyzP" + std::string(PlotTrait)));
  AttendLeTrait(Lit("DT,;LBxyz," + std::string(PlotTrait)));
}

TEST(LireHpgl, DTWithoutACharacterBringsTheDefaultBack) {
  AttendLeTrait(Lit("DT#;DT;LBa#b\003" + std::string(PlotTrait)));
  AttendLeTrait(Lit("DT#;DT\nLBa#b\003" + std::string(PlotTrait)));
}

TEST(LireHpgl, AFileThatEndsInsideALabelIsTruncated) {
  const Lecture l = Lit(std::string(PlotTrait) + "LBno end");
  AttendLeTrait(l);
  EXPECT_TRUE(l.rapport.Tronque);
  EXPECT_FALSE(Lit(std::string(PlotTrait) + "LBend\003").rapport.Tronque);
}

TEST(LireHpgl, SymbolModeTakesTheNextCharacterWhateverItIs) {
  AttendLeTrait(Lit("SMP;" + std::string(PlotTrait)));
  AttendLeTrait(Lit("SM*" + std::string(PlotTrait)));
}

TEST(LireHpgl, QuotedCommentsAndTitlesAreNoInstructions) {
  AttendLeTrait(Lit("CO\"PU;PD99,99\";" + std::string(PlotTrait)));
  AttendLeTrait(Lit("BP1,\"PD7,7\",2,1;" + std::string(PlotTrait)));
  AttendLeTrait(Lit("IN;MGPD99,99;" + std::string(PlotTrait)));
  AttendLeTrait(Lit("IN;WDPD99,99\003" + std::string(PlotTrait)));
}

TEST(LireHpgl, ACommentWithoutQuotesEndsAtItsTerminator) {
  AttendLeTrait(Lit("CO Drawn by PD99,99 and PU5,5, \"PA\" too;" + std::string(PlotTrait)));
  AttendLeTrait(Lit("CO two words, PD9,9;" + std::string(PlotTrait)));
  AttendLeTrait(Lit("CO \"no end; IN;" + std::string(PlotTrait)));
  AttendLeTrait(Lit("CO\"a;b\"IN;" + std::string(PlotTrait)));
}

TEST(LireHpgl, DeviceControlIsSkippedWithAndWithoutNumbers) {
  AttendLeTrait(Lit("\033.Y\033.(\033.I81;;17:\033.N;19:\033.@;0:\033.BIN;" + std::string(PlotTrait) + "\033.Z"));
}

TEST(LireHpgl, PlotsInsideAPrinterLanguageAreFound) {
  AttendLeTrait(
      Lit("\033E\033&l1O\033%0A some text PD99,99 \033%1BIN;" + std::string(PlotTrait) + "\033%0A PD5,5 "));
}

TEST(LireHpgl, RasterDataIsSkippedByItsCountAndCounted) {
  const Lecture l =
      Lit("\033%0A\033*t300R\033*r1A\033*b6WPD9,9;\033*b2m3W\033%1\033*rB\033%0B" + std::string(PlotTrait));
  AttendLeTrait(l);
  EXPECT_EQ(Ignores(l, "RASTER"), 2);
}

TEST(LireHpgl, JobLanguageAroundThePlotIsSkipped) {
  AttendLeTrait(Lit("\033%-12345X@PJL JOB NAME=\"PD9,9\"\r\n@PJL ENTER LANGUAGE = HPGL2\r\nIN;" +
                    std::string(PlotTrait) + "\033%-12345X@PJL EOJ\r\n"));
  AttendLeTrait(Lit("@PJL SET X=1\nIN;" + std::string(PlotTrait)));
  AttendLeTrait(Lit("\033%-12345X@PJL ENTER LANGUAGE=PCL\r\nSome PD5,5 text\033%0B" + std::string(PlotTrait)));
}

TEST(LireHpgl, APrinterResetEndsTheSheet) {
  const Lecture l = Lit("\033E\033%0BIN;" + std::string(PlotTrait) + "\033E\033%0BIN;PU0,0;PD7,7;PU;");
  AttendLeTrait(l);
  EXPECT_EQ(Ignores(l, "PG"), 1);
}

TEST(LireHpgl, NothingAndTextAndBinaryAreNoPlots) {
  EXPECT_EQ(Lit("").rapport.Numero, Erreur::Hpgl);
  EXPECT_EQ(Lit(";;; 1 2 3\n").rapport.Numero, Erreur::Hpgl);
  EXPECT_EQ(Lit("The quick brown fox jumps over the lazy dog.").rapport.Numero, Erreur::Hpgl);
  EXPECT_EQ(Lit("0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n1.0\n0\nEOF\n").rapport.Numero, Erreur::Hpgl);
  EXPECT_EQ(Lit("G21\nG0 X1 Y2\nM30\n").rapport.Numero, Erreur::Hpgl);
  std::string octets;
  for (int i = 0; i < 2000; ++i) octets += static_cast<char>((i * 7919) >> 3);
  EXPECT_EQ(Lit(octets).rapport.Numero, Erreur::Hpgl);
}

TEST(LireHpgl, TheRefusalNamesTheLineAndTheText) {
  const Lecture l = Lit("\n\nHello world, this is no plot\n");
  EXPECT_EQ(l.rapport.Numero, Erreur::Hpgl);
  EXPECT_EQ(l.rapport.Ligne, 3);
  EXPECT_EQ(l.rapport.Detail.substr(0, 5), "Hello");
  EXPECT_TRUE(l.traits.empty());
}

TEST(LireHpgl, APlotThatDrawsNothingIsStillAPlot) {
  const Lecture l = Lit("IN;SP1;PU;");
  EXPECT_EQ(l.rapport.Numero, Erreur::Aucune);
  EXPECT_TRUE(l.traits.empty());
}

TEST(LireHpgl, PlacesTooFarOrNotFiniteAreRefusedWithTheirLine) {
  for (const char* const loin :
       {"PD1e12,0;", "PD1e999,0;", "PD0,-99999999999999;", "CI1e999;", "CI1e12;", "EA1e12,5;"}) {
    const Lecture l = Lit(std::string("IN;\nPU0,0;\n") + loin);
    EXPECT_EQ(l.rapport.Numero, Erreur::Coordonnee) << loin;
    EXPECT_EQ(l.rapport.Ligne, 3) << loin;
    EXPECT_TRUE(l.traits.empty());
  }
}

TEST(LireHpgl, TheRefusalOfAPlaceNamesTheNumberOfTheFile) {
  EXPECT_EQ(Lit("IN;PU0,0;PD10,20,30,4.5e13,7,8;").rapport.Detail, "PD 4.5e13 (0.75 1.125e+12 mm)");
  EXPECT_EQ(Lit("IN;PU0,0;CI1e999;").rapport.Detail, "CI 1e999");
  // A hundred steps of 1e8 units: no number by itself is too large.
  std::string pas = "IN;PR;\nPD";
  for (int i = 0; i < 100; ++i) pas += "100000000,0,";
  EXPECT_EQ(Lit(pas + "0,0;").rapport.Detail, "PD100000000,0,100000000, (12500000 0 mm)");
}

TEST(LireHpgl, NumbersTooSmallForADoubleAreZero) {
  AttendLeTrait(Lit("PU1e-999,0." + std::string(400, '0') + "1;PD40,0;PU;"));
}

TEST(LireHpgl, AFewBytesThatAskForMillionsOfPointsAreRefused) {
  std::string bombe = "IN;\n";
  for (int i = 0; i < 2000; ++i) bombe += "CI400000;";
  const Lecture l = Lit(bombe);
  EXPECT_EQ(l.rapport.Numero, Erreur::Memoire);
  EXPECT_EQ(l.rapport.Ligne, 2);
  EXPECT_TRUE(l.traits.empty());
}

TEST(LireHpgl, ALargePolygonEdgedAgainAndAgainOutsideTheWindowIsRefused) {
  std::string bombe = "PU9,9;PM0;PD";
  for (int i = 0; i < 50000; ++i) bombe += i % 2 == 0 ? "9,99," : "99,9,";
  bombe += "9,9;PM2;";
  for (int i = 0; i < 10000; ++i) bombe += "IW0,0,1,1;EP;";
  EXPECT_EQ(Lit(bombe).rapport.Numero, Erreur::Memoire);
}

TEST(LireHpgl, ALargePlainPlotIsNoBomb) {
  // One segment in ten bytes, the densest that plain instructions can be.
  std::string texte = "IN;";
  for (int i = 0; i < 300000; ++i) texte += "PU1 1PD2 2";
  EXPECT_EQ(Lit(texte).traits.size(), 300000U);
}

TEST(LireHpgl, RasterPlanesAndCountsThatAreMissingAreSkippedRightly) {
  AttendLeTrait(Lit("\033%0A\033*b6VPD9,9;\033%0B" + std::string(PlotTrait)));
  AttendLeTrait(Lit("\033%0A\033*bW\033%0B" + std::string(PlotTrait)));
  AttendLeTrait(Lit("\033%0A\033&p7XPD9,9; \033%0B" + std::string(PlotTrait)));
  AttendLeTrait(Lit(std::string(PlotTrait) + "\033*b999W"));
}

TEST(LireHpgl, AQuotedCommentMayHaveBlanksInFront) {
  AttendLeTrait(Lit("CO  \"a;b\"IN;" + std::string(PlotTrait)));
}

TEST(LireHpgl, TheRefusalNamesTheFirstLetterThatStandsAlone) {
  EXPECT_EQ(Lit("\n\nQ 1 2\nR 3 4\nS 5 6\n").rapport.Ligne, 3);
}

}  // namespace
}  // namespace pathwerk::lecture::hpgl
