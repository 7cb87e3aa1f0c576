// A text composed in pieces on several threads.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/ComposeEnMorceaux.h"

namespace base {
namespace {

class Compose : public testing::TestWithParam<unsigned> {};

void Chiffres(std::string& texte, Plage p) {
  for (std::size_t i = p.debut; i < p.fin; ++i) texte += static_cast<char>('0' + i % 10);
}

TEST_P(Compose, PutsThePiecesInTheirOrderBehindWhatStandsThere) {
  std::string texte = "x";
  ComposeEnMorceaux(texte, GetParam(), 23, 5, Chiffres);
  EXPECT_EQ(texte, "x01234567890123456789012");
}

TEST_P(Compose, TellsOfEachPieceInItsOrder) {
  std::string texte;
  std::vector<std::size_t> bornes;
  std::vector<std::size_t> longueurs;
  ComposeEnMorceaux(texte, GetParam(), 12, 5, Chiffres, [&](Plage p) {
    bornes.push_back(p.debut);
    bornes.push_back(p.fin);
    longueurs.push_back(texte.size());
  });
  EXPECT_EQ(bornes, (std::vector<std::size_t>{0, 5, 5, 10, 10, 12}));
  EXPECT_EQ(longueurs, (std::vector<std::size_t>{5, 10, 12}));
}

TEST_P(Compose, OfNothingIsNothing) {
  std::string texte;
  ComposeEnMorceaux(texte, GetParam(), 0, 5, [](std::string&, Plage) { FAIL(); });
  EXPECT_EQ(texte, "");
}

INSTANTIATE_TEST_SUITE_P(ComposeEnMorceaux, Compose, testing::Values(0U, 1U, 2U, 7U),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace base
