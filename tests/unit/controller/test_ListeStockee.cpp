#include <vector>

#include "controller/ListeStockee.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

std::vector<std::uint8_t> Liste(std::size_t sansRampe, std::size_t avecRampe, bool finie) {
  std::vector<std::uint8_t> octets;
  for (std::size_t i = 0; i < sansRampe + avecRampe; ++i) {
    const bool rampe = i >= sansRampe;
    octets.push_back(rampe ? 39 : 7);
    octets.insert(octets.end(), rampe ? 30 : 24, 200);
  }
  if (finie) octets.push_back(128);
  return octets;
}

TEST(LitListe, CountsRecordsOfBothKinds) {
  const BilanListe b = LitListe(Liste(3, 2, true));
  EXPECT_EQ(b.records, 5U);
  EXPECT_TRUE(b.finie);
  EXPECT_EQ(b.tiennent, 5U);
}

TEST(LitListe, OfAnErasedMemoryIsAnEmptyJob) {
  const BilanListe b = LitListe(std::vector<std::uint8_t>(64, 255));
  EXPECT_EQ(b.records, 0U);
  EXPECT_TRUE(b.finie);
}

TEST(LitListe, WithoutAnEndMarkIsNotFinished) {
  EXPECT_FALSE(LitListe(Liste(3, 0, false)).finie);
  std::vector<std::uint8_t> coupee = Liste(3, 0, false);
  coupee.pop_back();
  EXPECT_EQ(LitListe(coupee).records, 2U) << "a record that is cut is none";
  EXPECT_FALSE(LitListe({}).finie);
}

TEST(LitListe, TellsHowManyFit) {
  // 2,621 records of 25 bytes are 65,525, with the end mark 65,526; one more would be 65,551.
  const BilanListe b = LitListe(Liste(3000, 0, true));
  EXPECT_EQ(b.records, 3000U);
  EXPECT_EQ(b.tiennent, 2621U);
  // 2,114 of 31 bytes are 65,534: the end mark just fits.
  EXPECT_EQ(LitListe(Liste(0, 2200, true)).tiennent, 2114U);
}

}  // namespace
