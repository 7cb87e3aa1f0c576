#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Texte.h"

namespace {

std::vector<std::string> Toutes(std::string_view texte) {
  std::vector<std::string> lignes;
  std::string_view ligne;
  while (base::LigneSuivante(texte, ligne)) lignes.emplace_back(ligne);
  return lignes;
}

using Textes = std::vector<std::string>;

TEST(Lignes, EndWithCrLfLfOrCr) {
  EXPECT_EQ(Toutes("a\r\nb\nc\rd"), (Textes{"a", "b", "c", "d"}));
  EXPECT_EQ(Toutes("\r\n\r\r\n\n"), (Textes{"", "", "", ""}));
  EXPECT_EQ(Toutes("a\n\rb"), (Textes{"a", "", "b"}));
}

TEST(Lignes, NothingStandsBehindTheLastEnd) {
  EXPECT_EQ(Toutes(""), Textes{});
  EXPECT_EQ(Toutes("a\n"), Textes{"a"});
  EXPECT_EQ(Toutes("a\r"), Textes{"a"});
}

TEST(Lignes, EndsAreFoundWhereverTheyLieInALongText) {
  for (const std::size_t longueur : {254U, 255U, 256U, 257U, 511U, 512U, 513U, 5000U}) {
    const std::string longue(longueur, 'x');
    for (const char* fin : {"\n", "\r", "\r\n"}) {
      EXPECT_EQ(Toutes(longue + fin + "b" + fin), (Textes{longue, "b"})) << longueur;
    }
    EXPECT_EQ(Toutes(longue + "\rb\nc"), (Textes{longue, "b", "c"})) << longueur;
  }
}

TEST(Lignes, AreCountedFromOne) {
  base::Lignes lignes("a\n\nb");
  std::string_view ligne;
  EXPECT_EQ(lignes.Numero(), 0);
  while (lignes.Suivante(ligne)) {
  }
  EXPECT_EQ(lignes.Numero(), 3);
  EXPECT_EQ(ligne, "b");
}

TEST(SansBlancs, TakesBlanksAndTabulatorsOffBothEndsAlone) {
  EXPECT_EQ(base::SansBlancs(" \t a b\t "), "a b");
  EXPECT_EQ(base::SansBlancs(" \t "), "");
  EXPECT_EQ(base::SansBlancs("\v a\r"), "\v a\r");
  EXPECT_EQ(base::SansBlancs("00a0", [](char c) { return c == '0'; }), "a");
}

TEST(Caracteres, DigitsAndLettersAreThoseOfAscii) {
  int chiffres = 0;
  int lettres = 0;
  for (int c = 0; c < 256; ++c) {
    chiffres += base::EstChiffre(static_cast<char>(c)) ? 1 : 0;
    lettres += base::EstLettre(static_cast<char>(c)) ? 1 : 0;
  }
  EXPECT_EQ(chiffres, 10);
  EXPECT_EQ(lettres, 52);
  EXPECT_TRUE(base::EstChiffre('0') && base::EstChiffre('9'));
  EXPECT_TRUE(base::EstLettre('a') && base::EstLettre('Z') && !base::EstLettre('@') && !base::EstLettre('['));
}

}  // namespace
