// Words of a line and the judgement of it.
#include "gcode/Mots.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;

Jugement Juge(const std::string& ligne) {
  std::vector<Mot> mots;
  return JugeLigne(ligne, mots);
}

double Nombre(const std::string& texte) {
  double v = -1;
  return NombreEnTete(texte, v) ? v : std::nan("");
}

TEST(NombreEnTete, TakesWhatStandsInFrontAndCountsNoBlanks) {
  EXPECT_EQ(Nombre("12.5"), 12.5);
  EXPECT_EQ(Nombre(" - 3 . 2 5 "), -3.25);
  EXPECT_EQ(Nombre("+7"), 7);
  EXPECT_EQ(Nombre(".5"), 0.5);
  EXPECT_EQ(Nombre("5."), 5);
  EXPECT_EQ(Nombre("12 (move)"), 12);
  EXPECT_EQ(Nombre("1.2.3"), 1.2);
  EXPECT_EQ(Nombre("\t4\tmm"), 4);
}

TEST(NombreEnTete, ReadsAnExponentOnlyWhereDigitsFollow) {
  EXPECT_EQ(Nombre("1e2"), 100);
  EXPECT_EQ(Nombre("1d-2"), 0.01);
  EXPECT_EQ(Nombre("5 end"), 5);
  EXPECT_EQ(Nombre("5e"), 5);
}

TEST(NombreEnTete, IsNoneWithoutADigitOrWithoutAFiniteValue) {
  for (const char* texte : {"", " ", "-", ".", "-.", "abc", "(1)", "1e999"}) {
    EXPECT_TRUE(std::isnan(Nombre(texte))) << texte;
  }
  EXPECT_TRUE(std::isnan(Nombre(std::string(1000, '9'))));
}

TEST(DecoupeLigne, GivesWordsWithTheirLetterAndBlanks) {
  std::vector<std::string> mots;
  Drapeau valide = Faux;
  DecoupeLigne("G01  X12.000 Y3.500", mots, valide);
  EXPECT_EQ(mots, (std::vector<std::string>{"G01  ", "X12.000 ", "Y3.500"}));
  EXPECT_EQ(valide, Vrai);
}

TEST(DecoupeLigne, GivesNoWordsOfALineThatBeginsOtherwise) {
  std::vector<std::string> mots{"old"};
  Drapeau valide = Vrai;
  DecoupeLigne("x10", mots, valide);
  EXPECT_TRUE(mots.empty());
  EXPECT_EQ(valide, Faux);
}

TEST(DecoupeLigne, PassesWhatTheWriterWrites) {
  for (const char* ligne :
       {"F600.00000", "G01  X12.000 Y3.500", "G00  Z5.000", "G01 ", "G71", "G90", "M03", "M05", "M02"}) {
    EXPECT_EQ(Juge(ligne), Jugement::Valide) << ligne;
  }
  EXPECT_EQ(Juge("(Marche broche)"), Jugement::Commentaire);
}

TEST(DecoupeLigne, KnowsTheNumbersOfGAndM) {
  for (int n = 0; n < 130; ++n) {
    const bool g = n <= 1 || n == 4 || n == 20 || n == 21 || n == 70 || n == 71 || (n >= 90 && n <= 92);
    const bool m = n == 2 || n == 3 || n == 5 || n == 6 || n == 7 || n == 9 || n == 30;
    EXPECT_EQ(Juge("G" + std::to_string(n)), g ? Jugement::Valide : Jugement::Refusee) << n;
    EXPECT_EQ(Juge("M" + std::to_string(n)), m ? Jugement::Valide : Jugement::Refusee) << n;
  }
}

TEST(DecoupeLigne, RefusesArcsAndTheirLetters) {
  for (const char* ligne : {"G2 X10 Y0 R5", "G02 X1", "G03 X1", "X1 I2", "X1 J2", "X1 R2", "E1", "G01 X1 K2"}) {
    EXPECT_EQ(Juge(ligne), Jugement::Refusee) << ligne;
  }
}

TEST(DecoupeLigne, RefusesWhatDoesNotBeginWithACapital) {
  for (const char* ligne : {"", " G01", "x10", "g01 X1", "%", "/G01", "1"}) {
    EXPECT_EQ(Juge(ligne), Jugement::Refusee) << ligne;
  }
  EXPECT_EQ(Juge("; note"), Jugement::Commentaire);
}

TEST(DecoupeLigne, AsksForANumberWhereAMoveOrAWaitDependsOnIt) {
  for (const char* ligne : {"X", "G01 Y", "Z-", "F", "P.", "G", "M", "X1e999"}) {
    EXPECT_EQ(Juge(ligne), Jugement::Refusee) << ligne;
  }
  for (const char* ligne : {"S", "T", "N", "N S T", "S12abc"}) EXPECT_EQ(Juge(ligne), Jugement::Valide) << ligne;
}

TEST(DecoupeLigne, RefusesACommentWhoseCapitalIsNoWordOfItsOwn) {
  EXPECT_EQ(Juge("G1 Z5 ; Move up"), Jugement::Refusee);
  EXPECT_EQ(Juge("G1 Z5 ; up"), Jugement::Valide);
}

TEST(DecoupeLigne, RoundsNumbersHalvesToEvenAndDoubtsThem) {
  EXPECT_EQ(Juge("G91.1"), Jugement::Douteuse);
  EXPECT_EQ(Juge("G0.5"), Jugement::Douteuse);  // 0
  EXPECT_EQ(Juge("G1.5"), Jugement::Refusee);   // 2
  EXPECT_EQ(Juge("M2.5"), Jugement::Douteuse);  // 2
  EXPECT_EQ(Juge("M3.5"), Jugement::Refusee);   // 4
  EXPECT_EQ(Juge("G01.0 X1"), Jugement::Valide);
  EXPECT_EQ(Juge("G91.1 X1 E5"), Jugement::Refusee);
}

TEST(DecoupeLigne, RefusesTheControlCharacterThatSeparatedWordsOnce) {
  EXPECT_EQ(Juge("G01\aX5"), Jugement::Refusee);
  EXPECT_EQ(Juge("X1\a"), Jugement::Refusee);
}

TEST(DecoupeLigne, TakesALineOfAMegabyteAndNulBytes) {
  std::string ligne;
  while (ligne.size() < 1'000'000) ligne += "X1.5";
  std::vector<Mot> mots;
  EXPECT_EQ(JugeLigne(ligne, mots), Jugement::Valide);
  EXPECT_EQ(mots.size(), 250'000U);
  EXPECT_EQ(Juge(std::string("X1\0Y2", 5)), Jugement::Valide);
}

}  // namespace
}  // namespace essai
