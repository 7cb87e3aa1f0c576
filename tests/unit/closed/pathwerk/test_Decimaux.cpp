#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <random>
#include <string>
#include <string_view>

#include "closed/pathwerk/lecture/Decimaux.h"

using pathwerk::lecture::LitDecimal;

namespace {

// How many characters of the text are a number, and which; 0 for what is left to the general road.
std::size_t Lit(std::string_view texte, double& valeur) {
  const char* const fin = LitDecimal(texte.data(), texte.data() + texte.size(), valeur);
  return fin == nullptr ? 0 : static_cast<std::size_t>(fin - texte.data());
}

}  // namespace

TEST(LitDecimal, Plain_numbers_are_read_up_to_what_stands_behind_them) {
  double v = 0;
  EXPECT_EQ(Lit("12", v), 2U);
  EXPECT_EQ(v, 12);
  EXPECT_EQ(Lit("-3.25,7", v), 5U);
  EXPECT_EQ(v, -3.25);
  EXPECT_EQ(Lit(".5;", v), 2U);
  EXPECT_EQ(v, 0.5);
  EXPECT_EQ(Lit("1.5.5", v), 3U);
  EXPECT_EQ(v, 1.5);
  EXPECT_EQ(Lit("-0 ", v), 2U);
  EXPECT_TRUE(std::signbit(v));
}

TEST(LitDecimal, What_is_no_plain_number_is_left_alone) {
  for (const std::string_view texte : {"", "-", ".", "-.", "+1", "x", "5.", "1e5", "2.5E-3", "1234567890123456789",
                                       "9007199254740993", "0.1234567890123456789"}) {
    double v = 7;
    EXPECT_EQ(Lit(texte, v), 0U) << texte;
    EXPECT_EQ(v, 7) << texte;
  }
}

TEST(LitDecimal, It_gives_the_bits_that_the_library_gives) {
  std::mt19937 hasard(3);
  int lus = 0;
  for (int k = 0; k < 200'000; ++k) {
    std::string texte = hasard() % 2 == 0 ? "-" : "";
    const std::size_t entiers = hasard() % 9;
    const std::size_t decimales = hasard() % 10;
    for (std::size_t i = 0; i < entiers; ++i) texte += static_cast<char>('0' + hasard() % 10);
    if (decimales > 0) texte += '.';
    for (std::size_t i = 0; i < decimales; ++i) texte += static_cast<char>('0' + hasard() % 10);
    double v = 0;
    if (Lit(texte, v) == 0) continue;
    double attendu = 0;
    const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), attendu);
    ASSERT_EQ(static_cast<std::size_t>(fin - texte.data()), texte.size()) << texte;
    ASSERT_EQ(v, attendu) << texte;
    ASSERT_EQ(std::signbit(v), std::signbit(attendu)) << texte;
    ++lus;
  }
  EXPECT_GT(lus, 150'000);
}
