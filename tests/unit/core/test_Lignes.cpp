#include "core/Lignes.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

std::vector<std::string> Decoupe(std::string_view texte) {
  std::vector<std::string> lignes;
  std::string_view ligne;
  while (LigneSuivante(texte, ligne)) lignes.emplace_back(ligne);
  return lignes;
}

TEST(LigneSuivante, TakesEveryKindOfLineEnd) {
  const std::vector<std::string> trois = {"a", "", "b"};
  EXPECT_EQ(Decoupe("a\r\n\r\nb\r\n"), trois);
  EXPECT_EQ(Decoupe("a\n\nb\n"), trois);
  EXPECT_EQ(Decoupe("a\r\rb\r"), trois);
  EXPECT_EQ(Decoupe("a\r\n\nb"), trois);
}

TEST(LigneSuivante, GivesNothingForAnEmptyText) { EXPECT_TRUE(Decoupe("").empty()); }

TEST(FinDeLigne, IsThatOfTheFirstLine) {
  EXPECT_EQ(FinDeLigne("a\nb\r\n"), "\n");
  EXPECT_EQ(FinDeLigne("a\r\nb\n"), "\r\n");
  EXPECT_EQ(FinDeLigne("a\rb"), "\r");
  EXPECT_EQ(FinDeLigne("a"), "\r\n");
}

TEST(PlaceLigne, ReplacesTheLineOfTheKey) {
  std::string t = "$$A=1\r\n$$B=2\r\n$$C=3\r\n";
  PlaceLigne(t, "B", "22");
  EXPECT_EQ(t, "$$A=1\r\n$$B=22\r\n$$C=3\r\n");
}

TEST(PlaceLigne, AddsANewKeyAtTheEnd) {
  std::string t = "$$A=1\r\n0              0\r\n";
  PlaceLigne(t, "B", "2");
  EXPECT_EQ(t, "$$A=1\r\n0              0\r\n$$B=2\r\n");
}

TEST(OteLigne, TakesTheFirstLineOfTheKeyAndNoOther) {
  std::string t = "note $$A=0\r\n$$A1=7\r\n$$A=1\r\n$$B=2\r\n$$A=3\r\n";
  OteLigne(t, "A");
  EXPECT_EQ(t, "note $$A=0\r\n$$A1=7\r\n$$B=2\r\n$$A=3\r\n");
}

TEST(OteLigne, TakesALastLineWithoutALineEndAndLeavesATextWithoutTheKey) {
  std::string t = "$$A=1\n$$B=2";
  OteLigne(t, "C");
  EXPECT_EQ(t, "$$A=1\n$$B=2");
  OteLigne(t, "B");
  EXPECT_EQ(t, "$$A=1\n");
}

TEST(PlaceLigne, StartsAnEmptyFile) {
  std::string t;
  PlaceLigne(t, "A", "1");
  EXPECT_EQ(t, "$$A=1\r\n");
}

TEST(PlaceLigne, ReplacesTheFirstLineThatHoldsTheKeyAnywhereAndNoFurtherOne) {
  std::string t = "note $$A=0 here\r\n$$A=1\r\n";
  PlaceLigne(t, "A", "5");
  EXPECT_EQ(t, "$$A=5\r\n$$A=1\r\n");
}

TEST(PlaceLigne, DoesNotTakeALongerKeyForAShorterOne) {
  std::string t = "$$CB_SAV_10=1\r\n";
  PlaceLigne(t, "CB_SAV_1", "0");
  EXPECT_EQ(t, "$$CB_SAV_10=1\r\n$$CB_SAV_1=0\r\n");
}

TEST(PlaceLigne, KeepsALastLineWithoutALineEnd) {
  std::string t = "$$A=1\r\nlast";
  PlaceLigne(t, "B", "2");
  EXPECT_EQ(t, "$$A=1\r\nlast\r\n$$B=2\r\n");
}

TEST(PlaceLigne, LeavesAFileWithLineFeedsAloneInOnePiece) {
  std::string t = "$$A=1\n$$B=2\n10             20\n";
  PlaceLigne(t, "A", "9");
  EXPECT_EQ(t, "$$A=9\n$$B=2\n10             20\n");
  PlaceLigne(t, "C", "3");
  EXPECT_EQ(t, "$$A=9\n$$B=2\n10             20\n$$C=3\n");
}

TEST(IndexeReglages, FindsTheFirstLineOfEachKey) {
  const auto index = IndexeReglages("$$A= 1 \r\nx\r\n$$B=2=3\n$$A=9\r\n$$C");
  EXPECT_EQ(index.size(), 2U);
  EXPECT_EQ(index.at("A"), "1");
  EXPECT_EQ(index.at("B"), "2=3");
}

TEST(IndexeReglages, WantsTheMarkAtTheStartOfTheLine) {
  EXPECT_TRUE(IndexeReglages(" $$A=1\r\nx$$B=2\r\n").empty());
  EXPECT_EQ(IndexeReglages("$$$A=1\r\n").count("$A"), 1U);
}

TEST(IndexeReglages, GoesOnBehindALineWithoutAnEqualSign) {
  const auto index = IndexeReglages("$$Fichier absent\r\n$$Fichier=x\r\n");
  EXPECT_EQ(index.at("Fichier"), "x");
}

}  // namespace
