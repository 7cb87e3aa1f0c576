#include "core/FichierIni.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using testing::ElementsAre;
using testing::Pair;

TEST(FichierIni, ReadsWithoutRegardToCaseAndBlanks) {
  const FichierIni ini("; note\r\n[ Ovelin ]\r\n  F_Max = -1 \r\n[autre]\r\nF_Max=3\r\n");
  EXPECT_EQ(ini.Lit("OVELIN", "f_max"), "-1");
  EXPECT_EQ(ini.Lit("AUTRE", "F_MAX"), "3");
  EXPECT_EQ(ini.Lit("OVELIN", "rien"), std::nullopt);
  EXPECT_EQ(ini.Lit("rien", "F_Max"), std::nullopt);
}

TEST(FichierIni, TellsAnEmptyValueFromAMissingOne) {
  const FichierIni ini("[A]\nvide=\n");
  EXPECT_EQ(ini.Lit("A", "vide"), "");
}

TEST(FichierIni, TakesTheFirstOfTwoKeysAndOfTwoSections) {
  const FichierIni ini("[A]\nk=1\nk=2\n[A]\nk=3\nl=4\n");
  EXPECT_EQ(ini.Lit("A", "k"), "1");
  EXPECT_EQ(ini.Lit("A", "l"), std::nullopt);
}

TEST(FichierIni, DoesNotFindAKeyInAComment) { EXPECT_EQ(FichierIni("[A]\n;k=1\n").Lit("A", "k"), std::nullopt); }

TEST(FichierIni, ReplacesAKeyWhereItStands) {
  FichierIni ini("[A]\r\nun=1\r\n; note\r\nDeux=2\r\ntrois=3\r\n");
  ini.Ecrit("a", "DEUX", "22");
  EXPECT_EQ(ini.Octets(), "[A]\r\nun=1\r\n; note\r\nDeux=22\r\ntrois=3\r\n");
}

TEST(FichierIni, AddsANewKeyAtTheEndOfItsSection) {
  FichierIni ini("[A]\r\nun=1\r\n\r\n[B]\r\nx=1\r\n");
  ini.Ecrit("A", "deux", "2");
  EXPECT_EQ(ini.Octets(), "[A]\r\nun=1\r\ndeux=2\r\n\r\n[B]\r\nx=1\r\n");
}

TEST(FichierIni, AddsAKeyToAnEmptySectionInFrontOfTheNext) {
  FichierIni ini("[A]\r\n[B]\r\n");
  ini.Ecrit("A", "k", "1");
  EXPECT_EQ(ini.Octets(), "[A]\r\nk=1\r\n[B]\r\n");
}

TEST(FichierIni, AddsASectionBehindTheLast) {
  FichierIni ini("[A]\r\nun=1");
  ini.Ecrit("B", "x", "1");
  EXPECT_EQ(ini.Octets(), "[A]\r\nun=1\r\n[B]\r\nx=1\r\n");
}

TEST(FichierIni, LeavesALineWhoseValueIsTheSame) {
  FichierIni ini("[A]\r\nun = 1\r\n");
  ini.Ecrit("A", "un", "1");
  EXPECT_EQ(ini.Octets(), "[A]\r\nun = 1\r\n");
}

TEST(FichierIni, KeepsTheLineEndsOfTheFile) {
  FichierIni ini("[A]\nun=1\n");
  ini.Ecrit("A", "deux", "2");
  EXPECT_EQ(ini.Octets(), "[A]\nun=1\ndeux=2\n");
}

TEST(FichierIni, KeepsTheEndOfEachLineAndOfTheLast) {
  const std::string melange = "[A]\nun=1\r\n; note\rdeux=2\n\ntrois=3";
  EXPECT_EQ(FichierIni(melange).Octets(), melange);
  FichierIni ini(melange);
  ini.Ecrit("A", "quatre", "4");
  EXPECT_EQ(ini.Octets(), melange + "\nquatre=4\n");
}

TEST(FichierIni, HoldsTheSystemsSetAndFindsNamesInEither) {
  FichierIni ini;
  ini.Ecrit("table_Dépron", "Clé", "Été");
  EXPECT_EQ(ini.Octets(), "[table_D\xE9pron]\r\nCl\xE9=\xC9t\xE9\r\n");
  EXPECT_EQ(ini.Lit("TABLE_DÉPRON", "clÉ"), "Été");
  const FichierIni utf8("[table_Dépron]\r\nClé=Été\r\n");
  EXPECT_EQ(utf8.Lit("table_dÉpron", "clé"), "Été");
}

TEST(FichierIni, IgnoresTheMarkOfAnEditorThatWritesUtf8) {
  EXPECT_EQ(FichierIni("\xEF\xBB\xBF[A]\nk=é\n").Lit("A", "k"), "é");
}

TEST(FichierIni, KeepsAValueWithALineEndOnOneLine) {
  FichierIni ini;
  ini.Ecrit("A", "k", "x\r\n[B]\r\ny=1");
  EXPECT_THAT(ini.Sections(), ElementsAre("A"));
  EXPECT_EQ(ini.Lit("B", "y"), std::nullopt);
}

TEST(FichierIni, DeletesEveryLineOfAKey) {
  FichierIni ini("[A]\nk=1\nl=2\nK=3\n[B]\nk=4\n");
  ini.Supprime("A", "k");
  EXPECT_EQ(ini.Octets(), "[A]\nl=2\n[B]\nk=4\n");
  ini.Supprime("absente", "k");
  ini.Supprime("A", "absente");
  EXPECT_EQ(ini.Octets(), "[A]\nl=2\n[B]\nk=4\n");
}

TEST(FichierIni, DeletesASectionWithItsLines) {
  FichierIni ini("; tete\n[A]\nk=1\n[B]\nk=2\n[a]\nk=3\n");
  ini.SupprimeSection("A");
  EXPECT_EQ(ini.Octets(), "; tete\n[B]\nk=2\n");
  ini.SupprimeSection("absente");
  EXPECT_EQ(ini.Octets(), "; tete\n[B]\nk=2\n");
}

TEST(FichierIni, ListsSectionsAndLinesInTheirOrder) {
  const FichierIni ini("[B]\ny = 2\n; note\n;k=1\nsans egal\nx=1\n[A]\n");
  EXPECT_THAT(ini.Sections(), ElementsAre("B", "A"));
  EXPECT_THAT(ini.Lignes("b"), ElementsAre(Pair("y", "2"), Pair("x", "1")));
  EXPECT_TRUE(ini.Lignes("absente").empty());
}

TEST(FichierIni, TakesTheFirstEqualSignAsTheMark) { EXPECT_EQ(FichierIni("[A]\nk=a=b\n").Lit("A", "k"), "a=b"); }

TEST(FichierIni, TakesAHeaderWithoutItsClosingBracket) { EXPECT_EQ(FichierIni("[A\nk=1\n").Lit("A", "k"), "1"); }

}  // namespace
