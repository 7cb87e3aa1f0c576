#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "core/Nombres.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

TEST(TexteNombre, GivesTheShortestTextThatReadsBack) {
  EXPECT_EQ(TexteNombre(3.0), "3");
  EXPECT_EQ(TexteNombre(-0.1), "-0.1");
  EXPECT_EQ(TexteNombre(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(TexteNombre(1e-7), "0.0000001");
  EXPECT_EQ(TexteNombre(123456789012345.0), "123456789012345");
}

TEST(TexteNombre, WritesAFloatAsAFloat) {
  EXPECT_EQ(TexteNombre(0.1F), "0.1");
  EXPECT_EQ(TexteNombre(16777216.0F), "16777216");
  EXPECT_EQ(TexteNombre(-2.5F), "-2.5");
}

TEST(TexteNombre, UsesAnExponentOnlyBeyondTheUsualMagnitudes) {
  EXPECT_EQ(TexteNombre(1e15), "1E+15");
  EXPECT_EQ(TexteNombre(5e-8), "5E-08");
  EXPECT_EQ(TexteNombre(999999999999999.0), "999999999999999");
}

TEST(TexteNombre, WritesWhatIsNoNumberAsZero) {
  EXPECT_EQ(TexteNombre(std::numeric_limits<double>::quiet_NaN()), "0");
  EXPECT_EQ(TexteNombre(std::numeric_limits<float>::infinity()), "0");
  EXPECT_EQ(TexteNombre(-0.0), "0");
}

TEST(TexteNombre, UsesTheUsersMark) {
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(TexteNombre(3.5), "3,5");
  EXPECT_EQ(TexteNombre(3.5F), "3,5");
  EXPECT_EQ(TexteNombre(1.5e20), "1,5E+20");
  EXPECT_EQ(TexteNombre(12L), "12");
}

TEST(TexteNombre, WritesIntegers) {
  EXPECT_EQ(TexteNombre(-32768L), "-32768");
  EXPECT_EQ(TexteNombre(16711680L), "16711680");
}

TEST(TexteNombreLimite, ChangesTheNotationWhereAFloatWouldBeCut) {
  EXPECT_EQ(TexteNombreLimite(-0.0000012345678F, 15), "-1.2345678E-06");
  EXPECT_EQ(TexteNombreLimite(-123.45678F, 15), "-123.45678");
  EXPECT_EQ(TexteNombreLimite(-1.17549435e-38F, 15), "-1.1754944E-38");
}

TEST(TexteNombreLimite, AnyFloatFitsFifteenColumnsAndReadsBackTheSame) {
  std::mt19937 alea(7);
  for (int i = 0; i < 200000; ++i) {
    const float v = std::bit_cast<float>(static_cast<std::uint32_t>(alea()));
    if (!std::isfinite(v)) continue;
    const std::string texte = TexteNombreLimite(v, 15);
    ASSERT_LE(texte.size(), 15U) << texte;
    ASSERT_EQ(std::strtof(texte.c_str(), nullptr), v) << texte;
  }
}

TEST(TexteNombreLimite, DropsDigitsOfADoubleButNeverItsMagnitude) {
  EXPECT_EQ(TexteNombreLimite(-0.30000000000000004, 20), "-0.30000000000000004");
  for (const double v : {-1.2345678901234567e-9, -1.2345678901234567e-5, -1.2345678901234567e200, 0.1 / 3 * 1e-6}) {
    const std::string texte = TexteNombreLimite(v, 20);
    EXPECT_LE(texte.size(), 20U) << texte;
    EXPECT_NEAR(std::strtod(texte.c_str(), nullptr) / v, 1, 1e-9) << texte;
  }
}

struct Motif {
  double v;
  const char* motif;
  const char* texte;
};

TEST(Formate, FollowsThePattern) {
  const Motif cas[] = {
      {7, "00", "07"},
      {7, "000", "007"},
      {12, "00000", "00012"},
      {123456, "00000", "123456"},
      {0.5, "0", "1"},
      {2, "0.0", "2.0"},
      {1.234, "0.00", "1.23"},
      {-1.2345, "0.000", "-1.235"},
      {0.5, "#0.0", "0.5"},
      {0, "####", ""},
      {0.4, "####", ""},
      {42, "####", "42"},
      {0.35, "###0.00", "0.35"},
      {1234.5, "###0.00", "1234.50"},
      {0.25, "####0.0", "0.3"},
      {2, "#0.0000", "2.0000"},
      {0.5, "#.0", ".5"},
      {1.5, "0.##", "1.5"},
      {12345678.9, "#0.0", "12345678.9"},
  };
  for (const Motif& c : cas) EXPECT_EQ(Formate(c.v, c.motif), c.texte) << c.v << " " << c.motif;
}

TEST(Formate, RoundsHalvesAwayFromZeroOnTheDecimalValue) {
  EXPECT_EQ(Formate(2.675, "0.00"), "2.68");  // the double lies below 2.675
  EXPECT_EQ(Formate(1.005, "0.00"), "1.01");
  EXPECT_EQ(Formate(-0.125, "0.00"), "-0.13");
  EXPECT_EQ(Formate(2.5, "0"), "3");
  EXPECT_EQ(Formate(-2.5, "0"), "-3");
  EXPECT_EQ(Formate(0.05, "0.0"), "0.1");
  EXPECT_EQ(Formate(0.0499, "0.0"), "0.0");
  EXPECT_EQ(Formate(0.004, "0.0"), "0.0");
}

TEST(Formate, CarriesThroughNines) {
  EXPECT_EQ(Formate(9.996, "0.00"), "10.00");
  EXPECT_EQ(Formate(999.5, "000"), "1000");
  EXPECT_EQ(Formate(0.96, "0.0"), "1.0");
}

TEST(Formate, GivesNoSignToAZero) {
  EXPECT_EQ(Formate(-0.001, "0.00"), "0.00");
  EXPECT_EQ(Formate(-0.4, "####"), "");
}

TEST(Formate, UsesTheUsersMark) {
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(Formate(0.35, "###0.00"), "0,35");
}

TEST(Formate, GivesZeroForWhatIsNoNumber) {
  EXPECT_EQ(Formate(std::numeric_limits<double>::quiet_NaN(), "0.00"), "0");
  EXPECT_EQ(Formate(-std::numeric_limits<double>::infinity(), "0.00"), "0");
}

TEST(Formate, WritesHugeAndTinyNumbersInFull) {
  EXPECT_EQ(Formate(1e20, "0.0"), "100000000000000000000.0");
  EXPECT_EQ(Formate(1e-300, "0.000"), "0.000");
  EXPECT_EQ(Formate(std::numeric_limits<double>::max(), "0").size(), 309U);
}

TEST(NombreDuTexte, TakesBothMarks) {
  EXPECT_EQ(NombreDuTexte("3.5"), 3.5);
  EXPECT_EQ(NombreDuTexte("3,5"), 3.5);
  EXPECT_EQ(NombreDuTexte("-,5"), -0.5);
  EXPECT_EQ(NombreDuTexte("+5."), 5.0);
  EXPECT_EQ(NombreDuTexte(" 1.5E-3\t"), 0.0015);
}

TEST(NombreDuTexte, RefusesThousandsMarksAndAnythingElse) {
  for (const char* texte : {"", " ", "1.234,5", "1 234", "1,2,3", "abc", "12abc", "-", ".", ",", "1e", "1e+", "nan",
                            "inf", "0x10", "--1", "1.5.", "&H10", "1'000"}) {
    EXPECT_FALSE(NombreDuTexte(texte)) << texte;
    EXPECT_FALSE(EstNumerique(texte)) << texte;
  }
}

TEST(NombreDuTexte, RefusesWhatIsTooLargeAndTakesWhatIsTooSmallAsZero) {
  EXPECT_FALSE(NombreDuTexte("1e999"));
  EXPECT_FALSE(NombreDuTexte("-1e99999999999999999999"));
  EXPECT_FALSE(NombreDuTexte(std::string(400, '9')));
  EXPECT_EQ(NombreDuTexte("1e-999"), 0.0);
  EXPECT_EQ(NombreDuTexte("1e-99999999999999999999"), 0.0);
  EXPECT_EQ(NombreDuTexte("0." + std::string(400, '0') + "1"), 0.0);
}

TEST(NombreDuTexte, ReadsBackWhatTexteNombreWrites) {
  std::mt19937_64 alea(3);
  for (const char marque : {'.', ','}) {
    Svc.MarqueDecimale = marque;
    for (int i = 0; i < 20000; ++i) {
      const auto v = std::bit_cast<double>(alea());
      if (!std::isfinite(v)) continue;
      ASSERT_EQ(NombreDuTexte(TexteNombre(v)), v);
    }
  }
}

TEST(ValeurDebut, TakesTheLeadingNumber) {
  EXPECT_EQ(ValeurDebut("12abc"), 12);
  EXPECT_EQ(ValeurDebut("abc"), 0);
  EXPECT_EQ(ValeurDebut(" -3.5e2x"), -350);
  EXPECT_EQ(ValeurDebut("+7"), 7);
  EXPECT_EQ(ValeurDebut("1e"), 1);
  EXPECT_EQ(ValeurDebut("1e+x"), 1);
  EXPECT_EQ(ValeurDebut("2.5.6"), 2.5);
  EXPECT_EQ(ValeurDebut(".5"), 0.5);
  EXPECT_EQ(ValeurDebut("3,5"), 3);  // the point alone is its mark
  EXPECT_EQ(ValeurDebut(""), 0);
  EXPECT_EQ(ValeurDebut("-"), 0);
  EXPECT_EQ(ValeurDebut("inf"), 0);
  EXPECT_EQ(ValeurDebut("nan"), 0);
}

TEST(ValeurDebut, GivesZeroBeyondTheRange) {
  EXPECT_EQ(ValeurDebut("1e400"), 0);
  EXPECT_EQ(ValeurDebutFloat("1e39"), 0);
  EXPECT_EQ(ValeurDebutFloat("1e-60"), 0);
}

TEST(ValeurDebutFloat, GivesTheNearestFloat) {
  // Through a double this text would land on the midpoint of two floats and round the wrong way.
  EXPECT_EQ(ValeurDebutFloat("1.00000005960464478"), std::strtof("1.00000005960464478", nullptr));
  EXPECT_NE(ValeurDebutFloat("1.00000005960464478"), static_cast<float>(1.00000005960464478));
}

TEST(Arrondi, RoundsHalvesToEven) {
  EXPECT_EQ(Arrondi32(0.5), 0);
  EXPECT_EQ(Arrondi32(1.5), 2);
  EXPECT_EQ(Arrondi32(2.5), 2);
  EXPECT_EQ(Arrondi32(-0.5), 0);
  EXPECT_EQ(Arrondi32(-1.5), -2);
  EXPECT_EQ(Arrondi32(-2.6), -3);
  EXPECT_EQ(Arrondi16(3.49), 3);
}

TEST(Arrondi, ClipsToTheRangeOfTheType) {
  EXPECT_EQ(Arrondi16(1e9), 32767);
  EXPECT_EQ(Arrondi16(-1e9), -32768);
  EXPECT_EQ(Arrondi32(1e300), 2147483647);
  EXPECT_EQ(Arrondi32(-std::numeric_limits<double>::infinity()), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(Arrondi32(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(EnFloat, ClipsToTheRangeOfAFloat) {
  EXPECT_EQ(EnFloat(1e300), std::numeric_limits<float>::max());
  EXPECT_EQ(EnFloat(-1e300), std::numeric_limits<float>::lowest());
  EXPECT_EQ(EnFloat(std::numeric_limits<double>::quiet_NaN()), 0.0F);
  EXPECT_EQ(EnFloat(0.1), 0.1F);
}

TEST(Majuscules, RaisesTheLettersOfTheSystemsSet) {
  EXPECT_EQ(Majuscules("Fichier.ovl"), "FICHIER.OVL");
  EXPECT_EQ(Majuscules("éàçüñþ"), "ÉÀÇÜÑÞ");
  EXPECT_EQ(Majuscules("œšžÿ"), "ŒŠŽŸ");
  EXPECT_EQ(Majuscules("÷×ß€я"), "÷×ß€я");  // no pair in the set
}

TEST(Rogne, TakesBlanksOffBothEnds) {
  EXPECT_EQ(Rogne("  a b\t "), "a b");
  EXPECT_EQ(Rogne(" \t"), "");
  EXPECT_EQ(Rogne(""), "");
}

}  // namespace
