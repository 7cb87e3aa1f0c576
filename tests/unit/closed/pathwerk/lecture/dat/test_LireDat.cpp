#include "closed/pathwerk/lecture/dat/Dat.h"
#include "tests/unit/closed/pathwerk/Aide.h"

using namespace aide;
using pathwerk::Erreur;

namespace {

Assemblage Dat(std::string_view texte) {
  Lecture l;
  pathwerk::lecture::dat::LireDat(texte, {}, l);
  return Assemble(std::move(l));
}
using Points = std::vector<Vec2>;

}  // namespace

TEST(LireDat, RowsOfTwoNumbersAreOnePath) {
  const auto a = Dat("0 0\n10 0\n10 5\n");
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.sequences[0], (Points{{0, 0}, {10, 0}, {10, 5}}));
  EXPECT_EQ(a.rapport.Format, "DAT");
}

TEST(LireDat, SeparatorsAndDecimalMarks) {
  const Points attendu{{0.5, 1.25}, {2, -3}};
  for (const char* t :
       {"0.5 1.25\n2 -3\n", "0.5\t1.25\n2\t-3\n", "0.5,1.25\n2,-3\n", "0.5;1.25\n2;-3\n", "0,5 1,25\n2 -3\n",
        "0,5;1,25\n2;-3\n", "0,5\t1,25\n2\t-3\n", "0,5,1,25\n2, -3\n", "0.5, 1.25\n2 ,-3\n", "0,5 ; 1,25\n2 ; -3\n",
        "  +.5   1.25  \n\t2.\t-3\t\n", "0.5,1.25,\n2,-3,\n"}) {
    const auto a = Dat(t);
    ASSERT_EQ(a.sequences.size(), 1U) << t;
    EXPECT_EQ(a.sequences[0], attendu) << t;
  }
}

TEST(LireDat, LineEndsOfAllSystems) {
  for (const char* t : {"1 2\r\n3 4\r\n", "1 2\r3 4\r", "1 2\n3 4"}) {
    EXPECT_EQ(Dat(t).sequences.at(0), (Points{{1, 2}, {3, 4}})) << t;
  }
}

TEST(LireDat, ThirdColumnsAreLeftOut) {
  EXPECT_EQ(Dat("1 2 99\n3 4 -1\n").sequences.at(0), (Points{{1, 2}, {3, 4}}));
  EXPECT_EQ(Dat("1,2,99\n3,4,-1\n").sequences.at(0), (Points{{1, 2}, {3, 4}}));
  EXPECT_EQ(Dat("1 2\n3 4 nose\n").sequences.at(0), (Points{{1, 2}, {3, 4}}));
}

TEST(LireDat, TextBehindTheDataIsNoPointEvenWhenItBeginsWithNumbers) {
  const auto a = Dat("NACA\n1 0\n.5 .1\n0 0\n.5 -.1\n1 0\n12 33 are the counts of the surfaces\n");
  EXPECT_EQ(a.n, 5);
  EXPECT_EQ(a.Ignores("ROW"), 1);
  EXPECT_EQ(Dat("1 2\n3 4\n\n5 6 draft\n").n, 2);
  EXPECT_EQ(Dat("1 2\n3 4\nRemarks\n5 6 draft\n").n, 2);
}

TEST(LireDat, PointsMayCarryNames) {
  EXPECT_EQ(Dat("0 0 A\n1 0 B\n1 1 C\n").n, 2) << "the first line counts as a title";
  EXPECT_EQ(Dat("Title\n0 0 A\n1 0 B\n\n5 5 C\n7 5 D\n").n, 4);
  EXPECT_EQ(Dat("Title\n0 0 A\n1 0 B\n2 0 two words\n").n, 2);
}

TEST(LireDat, ATableOfMoreThanThreeColumnsIsTold) {
  using pathwerk::Avis;
  using pathwerk::AvisLecture;
  EXPECT_EQ(Dat("1 2 3 4 5\n3 4 5 6 7\n").rapport.Suppose, (std::vector<AvisLecture>{{Avis::Colonnes, "5"}}));
  EXPECT_TRUE(Dat("1 2 3\n3 4 5\n").rapport.Suppose.empty());
  EXPECT_TRUE(Dat("A\n-2 3 -2.5 3.5\n1 0\n0 0\n1 0.1\n").rapport.Suppose.empty()) << "one domain row";
}

TEST(LireDat, FortranExponents) {
  EXPECT_EQ(Dat("0.5D+01 .25d1\n1.0E-01 +2E0\n").sequences.at(0),
            (Points{{5, 2.5}, {static_cast<double>(0.1F), 2}}));
}

TEST(LireDat, TitlesAreNoPoints) {
  EXPECT_EQ(Dat("NACA 2412\n0 0\n1 1\n").n, 2);
  EXPECT_EQ(Dat("30 40 Special\n0 0\n1 1\n").n, 2);
  EXPECT_EQ(Dat("61\n0 0\n1 1\n").n, 2);  // the number of points
  EXPECT_EQ(Dat("0 0\n1 1\nhttp://x.y/1 2\n").n, 2);
  EXPECT_EQ(Dat("Title\n61\n0 0\n1 1\n").Ignores("ROW"), 0);
}

TEST(LireDat, TypingDamageIsSkippedCountedAndDoesNotCutThePath) {
  const auto a = Dat("NACA\n1.0 ......\n1.0 (0.0013)\n0.9 0.1\n0.0 ......\n0 0\n12\n0.9 -0.1\n");
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.n, 3);
  EXPECT_EQ(a.Ignores("ROW"), 4);
}

TEST(LireDat, SeligWithEqualTailPointsIsClosedAsItStands) {
  const auto a = Dat("A\n1 0\n.5 .1\n0 0\n.5 -.1\n1 0\n");
  EXPECT_EQ(a.n, 5);
  EXPECT_TRUE(EstFerme(a.sequences.at(0)));
}

TEST(LireDat, AnAirfoilWithAThickTailIsAContourAsWell) {
  const auto a = Dat("A\n1 .02\n.5 .1\n0 0\n.5 -.1\n1 -.02\n");
  EXPECT_EQ(a.n, 6);
  EXPECT_TRUE(EstFerme(a.sequences.at(0)));
  EXPECT_LT(Aire(a.sequences[0]), 0) << "clockwise, so that the default side lies outside the part";
}

TEST(LireDat, AThickTailIsAtMostATenthOfTheChord) {
  EXPECT_TRUE(EstFerme(Dat("A\n1 .05\n.5 .1\n0 0\n.5 -.1\n1 -.049\n").sequences.at(0)));
  EXPECT_FALSE(EstFerme(Dat("A\n1 .05\n.5 .1\n0 0\n.5 -.1\n1 -.052\n").sequences.at(0)));
}

TEST(LireDat, OtherOpenPathsStayOpen) {
  // Ends near each other but not at the tail, a way that goes back and forth, a polyline of four points.
  EXPECT_FALSE(EstFerme(Dat("0 .02\n.5 .1\n1 0\n.5 -.1\n0 -.02\n").sequences.at(0)));
  EXPECT_FALSE(EstFerme(Dat("1 .02\n.2 .1\n.8 .2\n0 0\n.5 -.1\n1 -.02\n").sequences.at(0)));
  EXPECT_FALSE(EstFerme(Dat("1 .02\n.5 .1\n0 0\n1 -.02\n").sequences.at(0)));
}

TEST(LireDat, LednicerSurfacesBecomeOneContourFromTailToTail) {
  const Points attendu{{1, 0}, {0.5, 0.25}, {0, 0}, {0.5, -0.125}, {1, 0}};
  for (const char* t : {"E\n 3. 3.\n\n0 0\n.5 .25\n1 0\n\n0 0\n.5 -.125\n1 0\n",
                        "E\n3 3\n0 0\n.5 .25\n1 0\n0 0\n.5 -.125\n1 0\n"}) {
    auto a = Dat(t);
    ASSERT_EQ(a.sequences.size(), 1U) << t;
    ASSERT_EQ(a.n, 5) << t;
    if (Aire(a.sequences[0]) < 0) std::reverse(a.sequences[0].begin(), a.sequences[0].end());
    auto p = attendu;
    if (Aire(p) < 0) std::reverse(p.begin(), p.end());
    EXPECT_EQ(a.sequences[0], p) << t;
  }
}

TEST(LireDat, LednicerCountsInTheWrongOrderAreSetRightByTheBlankLine) {
  const auto a = Dat("E\n2 3\n\n0 0\n.5 .25\n1 .25\n\n0 0\n1 -.25\n");
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.sequences[0], (Points{{1, 0.25}, {0.5, 0.25}, {0, 0}, {1, -0.25}}));
}

TEST(LireDat, TwoSurfacesFromOneNoseWithoutCountsAreOneContour) {
  const auto a = Dat("Upper\n0 0\n.5 .25\n1 .25\nLower\n0 0\n.5 -.25\n1 -.25\n");
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.sequences[0], (Points{{1, 0.25}, {0.5, 0.25}, {0, 0}, {0.5, -0.25}, {1, -0.25}}));
}

TEST(LireDat, ARowLikeACountIsAPointWhenTheNumbersDoNotAgree) {
  EXPECT_EQ(Dat("100 50\n0 0\n10 10\n20 5\n30 0\n").n, 5);
}

TEST(LireDat, DomainOfAnMsesFileIsNoPointAndItsElementsArePaths) {
  const auto a = Dat("NC\n-2.0 3.0 -2.5 3.5\n1 0\n.5 .1\n0 0\n 999. 999.\n2 0\n3 0\n3 1\n");
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0], (Points{{1, 0}, {0.5, static_cast<double>(0.1F)}, {0, 0}}));
  EXPECT_EQ(a.sequences[1], (Points{{2, 0}, {3, 0}, {3, 1}}));
}

TEST(LireDat, BlankLinesAndTextPartPaths) {
  EXPECT_EQ(Dat("0 0\n1 0\n\n5 5\n6 6\n").sequences.size(), 2U);
  EXPECT_EQ(Dat("0 0\n1 0\nslat\n5 5\n6 6\n").sequences.size(), 2U);
  EXPECT_EQ(Dat("0 0\n1 0\n# two\n5 5\n6 6\n").sequences.size(), 2U);
}

TEST(LireDat, WhatGoesOnWhereItEndedIsOnePath) {
  const auto a = Dat("0 0\n1 0\n\n1 0\n2 2\n");
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.n, 3);
}

TEST(LireDat, ABlankLineBehindEveryRowPartsNothing) {
  const auto a = Dat("0 0\n\n1 0\n\n1 1\n\n");
  ASSERT_EQ(a.sequences.size(), 1U);
  EXPECT_EQ(a.n, 3);
}

TEST(LireDat, APointGivenTwiceIsAHole) {
  const auto a = Dat("1 2\n1 2\n\n5 6\n5 6\n\n1 2\n1 2\n");
  ASSERT_EQ(a.sequences.size(), 2U);
  EXPECT_EQ(a.sequences[0], (Points{{1, 2}, {1, 2}}));
  EXPECT_EQ(a.Ignores("DUPLICATE"), 1);
}

TEST(LireDat, OwnFilesKeepOrderDirectionAndEqualPoints) {
  const auto a =
      Dat("#OVELIN aile - X=200 - Y=24\r\n#1\r\n0.0 0.0\r\n10.0 0.0\r\n10.0 10.0\r\n0.0 0.0\r\n#2\r\n"
          "2.0 1.0\r\n2.0 1.0\r\n#3\r\n2.0 1.0\r\n2.0 1.0\r\n#4\r\n999.0 999.0\r\n5.0 5.0\r\n");
  ASSERT_EQ(a.sequences.size(), 4U);
  EXPECT_GT(Aire(a.sequences[0]), 0);  // counter-clockwise although outermost
  EXPECT_EQ(a.sequences[1], a.sequences[2]);
  EXPECT_EQ(a.sequences[3][0], (Vec2{999, 999}));
}

TEST(LireDat, NoRowAtAllIsRefusedWithTheFirstLine) {
  for (const char* t : {"", "\n\n", "hello\nworld\n", "1\n2\n3\n", "1 x\n"}) {
    Lecture l;
    pathwerk::lecture::dat::LireDat(t, {}, l);
    EXPECT_EQ(l.rapport.Numero, Erreur::Dat) << t;
  }
  Lecture l;
  pathwerk::lecture::dat::LireDat("hello world\n", {}, l);
  EXPECT_EQ(l.rapport.Detail, "hello world");
  EXPECT_EQ(l.rapport.Ligne, 1);
}

TEST(LireDat, BinaryContentIsRefused) {
  Lecture l;
  pathwerk::lecture::dat::LireDat(std::string_view("1 2\n3 4\n\0\1\2", 11), {}, l);
  EXPECT_EQ(l.rapport.Numero, Erreur::Dat);
  EXPECT_EQ(l.rapport.Ligne, 3);
}

TEST(LireDat, CoordinatesThatAreNoneAreRefusedWithTheirLine) {
  for (const char* t :
       {"A\n0 0\n1e400 5\n", "A\n0 0\n2e7 5\n", "A\n0 0\nNaN 5\n", "A\n0 0\n5 -inf\n", "A\n0 0\n1 -1.1e7\n"}) {
    Lecture l;
    pathwerk::lecture::dat::LireDat(t, {}, l);
    EXPECT_EQ(l.rapport.Numero, Erreur::Coordonnee) << t;
    EXPECT_EQ(l.rapport.Ligne, 3) << t;
  }
  EXPECT_EQ(Dat("0 0\n1e-400 5\n").sequences.at(0)[1], (Vec2{0, 5}));  // too small is zero
}
