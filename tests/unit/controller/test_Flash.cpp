#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

#include "tests/support/Support.h"
#include "tests/unit/controller/CarteEssai.h"
#include "tests/unit/controller/LiaisonScenario.h"

namespace {

using namespace ovelin;
using essai::CarteEssai;
using essai::Envoi;
using essai::LiaisonScenario;
using essai::Scenario;
using zenikcom::GenreFaute;

using Page = std::array<std::uint8_t, 32>;

std::unique_ptr<zenikcom::Liaison> Lie(Scenario& s) { return std::make_unique<LiaisonScenario>(s); }

// A board that confirms every page.
void Confirme(Scenario& s) {
  s.reponse = [](zenikcom::TamponOctets& t) {
    if (t[1] == 'W') t[2] = 255;
  };
}

std::vector<Envoi> Envois(const Scenario& s, char lettre) {
  std::vector<Envoi> envois;
  for (const Envoi& e : s.envois) {
    if (e.octets[1] == static_cast<std::uint8_t>(lettre)) envois.push_back(e);
  }
  return envois;
}

// 1, 2, 3 ... 250, 1 ...: no byte is 255.
std::vector<std::uint8_t> Suite(std::size_t taille) {
  std::vector<std::uint8_t> octets(taille);
  for (std::size_t i = 0; i < taille; ++i) octets[i] = static_cast<std::uint8_t>(i % 250 + 1);
  return octets;
}

Page Lue(ClsCdeZENIK& cde, std::uint8_t bloc, std::uint16_t adresse) {
  Page page{};
  EXPECT_TRUE(cde.Flash_Read(bloc, adresse, page));
  return page;
}

TEST(FlashModel, JoinsFourBytesOfTwoDigitsAndMore) {
  Scenario s;
  s.reponse = [](zenikcom::TamponOctets& t) { t[2] = 255, t[3] = 7, t[4] = 0, t[5] = 10; };
  ClsCdeZENIK cde(Lie(s));
  EXPECT_EQ(cde.FlashModel(), "255070010");
  ASSERT_EQ(s.envois.size(), 1U);
  EXPECT_EQ(s.envois[0].octets[1], 70);
  EXPECT_EQ(s.envois[0].mode, 0);
}

TEST(FlashModel, ReadsWhatTheBufferHoldsBehindAFailedExchange) {
  Scenario s;
  s.resultat = -5;
  ClsCdeZENIK cde(Lie(s));
  cde.Tampon[2] = 12;
  EXPECT_EQ(cde.FlashModel(), "12000000");
}

TEST(Flash_Model, IsTrueWithAChipAlone) {
  EXPECT_TRUE(CarteEssai().cde->Flash_Model());
  EXPECT_FALSE(CarteEssai({.flash = false}).cde->Flash_Model());
}

TEST(Flash_Model, IsFalseForABoardThatIsGone) {
  const CarteEssai c;
  c.carte->Debranche(true);
  EXPECT_FALSE(c.cde->Flash_Model());
}

TEST(Flash_Erase, IsFalseAndSendsAnyBlock) {
  Scenario s;
  s.reponse = [](zenikcom::TamponOctets& t) { t[2] = 1; };
  ClsCdeZENIK cde(Lie(s));
  for (const std::uint8_t bloc : {std::uint8_t{0}, std::uint8_t{31}, std::uint8_t{32}, std::uint8_t{255}}) {
    EXPECT_FALSE(cde.Flash_Erase(bloc));
    EXPECT_EQ(s.envois.back().octets[1], 69);
    EXPECT_EQ(s.envois.back().octets[2], bloc);
  }
}

TEST(Flash_Write, SendsTheAddressHighByteFirstAndThePageBehindIt) {
  Scenario s;
  Confirme(s);
  ClsCdeZENIK cde(Lie(s));
  const auto octets = Suite(32);
  EXPECT_TRUE(cde.Flash_Write(7, 0x1234, octets));
  const auto& t = s.envois.at(0).octets;
  EXPECT_EQ(t[1], 87);
  EXPECT_EQ(t[2], 7);
  EXPECT_EQ(t[3], 0x12);
  EXPECT_EQ(t[4], 0x34);
  EXPECT_TRUE(std::equal(octets.begin(), octets.end(), t.begin() + 5));
  EXPECT_EQ(s.envois.size(), 1U);
}

TEST(Flash_Write, TakesThirtyTwoBytesOfMore) {
  Scenario s;
  Confirme(s);
  ClsCdeZENIK cde(Lie(s));
  EXPECT_TRUE(cde.Flash_Write(0, 0, Suite(40)));
  EXPECT_EQ(s.envois.at(0).octets[36], 32);
}

TEST(Flash_Write, IsTrueForTheConfirmationAlone) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  for (const int octet : {0, 1, 254, 255}) {
    s.reponse = [octet](zenikcom::TamponOctets& t) { t[2] = static_cast<std::uint8_t>(octet); };
    EXPECT_EQ(cde.Flash_Write(0, 0, Suite(32)), octet == 255) << octet;
  }
  s.resultat = -4;
  EXPECT_FALSE(cde.Flash_Write(0, 0, Suite(32))) << "a reply that never came confirms nothing";
}

TEST(Flash_Read, GivesBackWhatWasWritten) {
  const CarteEssai c;
  c.cde->Flash_Erase(3);
  const auto octets = Suite(32);
  ASSERT_TRUE(c.cde->Flash_Write(3, 64, octets));
  const Page page = Lue(*c.cde, 3, 64);
  EXPECT_TRUE(std::equal(page.begin(), page.end(), octets.begin()));
  EXPECT_EQ(Lue(*c.cde, 3, 96)[0], 255);
}

TEST(Flash_Read, TellsThatTheExchangeFailed) {
  const CarteEssai c;
  c.carte->Debranche(true);
  Page page{};
  EXPECT_FALSE(c.cde->Flash_Read(0, 0, page));
}

TEST(Flash_Tab, OfThirtyThreeBytesWritesTwoPages) {
  Scenario s;
  Confirme(s);
  ClsCdeZENIK cde(Lie(s));
  cde.Flash_Tab(Suite(33));
  EXPECT_EQ(cde.PagesNonConfirmees, 0);
  ASSERT_EQ(Envois(s, 'E').size(), 1U);
  const auto pages = Envois(s, 'W');
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(pages[0].octets[36], 32);
  EXPECT_EQ(pages[1].octets[4], 32);
  EXPECT_EQ(pages[1].octets[5], 33);
  for (std::size_t i = 6; i < 37; ++i) EXPECT_EQ(pages[1].octets[i], 255) << i;
}

TEST(Flash_Tab, OfWholePagesWritesALastOneOf255) {
  Scenario s;
  Confirme(s);
  ClsCdeZENIK cde(Lie(s));
  cde.Flash_Tab(Suite(64));
  const auto pages = Envois(s, 'W');
  ASSERT_EQ(pages.size(), 3U);
  EXPECT_EQ(pages[1].octets[36], 64);
  EXPECT_EQ(pages[2].octets[4], 64);
  for (std::size_t i = 5; i < 37; ++i) EXPECT_EQ(pages[2].octets[i], 255) << i;
}

TEST(Flash_Tab, ABlockTakesOnePageMoreThanItHolds) {
  Scenario s;
  Confirme(s);
  ClsCdeZENIK cde(Lie(s));
  cde.Flash_Tab(Suite(std::size_t{2049} * 32));
  const auto pages = Envois(s, 'W');
  ASSERT_EQ(pages.size(), 2050U);
  EXPECT_EQ(pages[2047].octets[3], 0xFF);  // page 2,048, the last that the block holds: address 65,504
  EXPECT_EQ(pages[2047].octets[4], 0xE0);
  for (const std::size_t octet : {2U, 3U, 4U}) {
    EXPECT_EQ(pages[2048].octets[octet], 0) << "page 2,049 still goes to block 0, whose address comes round";
  }
  EXPECT_EQ(pages[2049].octets[2], 1) << "page 2,050 begins the next block";
  EXPECT_EQ(pages[2049].octets[3], 0);
  EXPECT_EQ(pages[2049].octets[4], 0);
  const auto effaces = Envois(s, 'E');
  ASSERT_EQ(effaces.size(), 2U);
  EXPECT_EQ(effaces[1].octets[2], 1);
  EXPECT_EQ(s.envois[s.envois.size() - 2].octets[1], 'E') << "a block is erased before its first page";
}

TEST(Flash_Tab, StandsInTheBoardAsItWasGiven) {
  const CarteEssai c;
  const auto octets = Suite(1000);
  c.cde->Flash_Tab(Suite(5000));  // an older and longer list
  c.cde->Flash_Tab(octets);
  EXPECT_EQ(c.cde->PagesNonConfirmees, 0);
  for (std::size_t i = 0; i < 1024; i += 32) {
    const Page page = Lue(*c.cde, 0, static_cast<std::uint16_t>(i));
    for (std::size_t k = 0; k < 32; ++k) EXPECT_EQ(page[k], i + k < 1000 ? octets[i + k] : 255) << i + k;
  }
  EXPECT_EQ(Lue(*c.cde, 0, 1024)[0], 255);
}

TEST(Flash_Tab, CountsThePagesThatWereNotConfirmed) {
  const CarteEssai c;
  c.Fausse(GenreFaute::Apres, 3);  // the erasing, then the second page
  c.cde->Flash_Tab(Suite(100));
  EXPECT_EQ(c.cde->PagesNonConfirmees, 1);
  c.cde->Flash_Tab(Suite(100));
  EXPECT_EQ(c.cde->PagesNonConfirmees, 0) << "the count is that of the last writing";
}

TEST(Flash_Tab, ConfirmsNothingWithoutAChip) {
  const CarteEssai c({.flash = false});
  c.cde->Flash_Tab(Suite(100));
  EXPECT_EQ(c.cde->PagesNonConfirmees, 4);
}

TEST(Flash_Tab, EndsWhenTheBoardIsGone) {
  const CarteEssai c;
  c.Fausse(GenreFaute::Debranche, 4);
  c.cde->Flash_Tab(Suite(3200));
  EXPECT_EQ(c.cde->PagesNonConfirmees, 99) << "of 101 pages two stand there";
  EXPECT_EQ(c.carte->Compteurs().echanges, 4);
}

TEST(Flash_Tab, LetsEventsRunBetweenThePagesAndSendsThemWholeAllTheSame) {
  const CarteEssai c;
  int tours = 0;
  Svc.LaisseEvenements = [&](Evenements genre) {
    EXPECT_EQ(genre, Evenements::Tous);
    ++tours;
    c.cde->Tampon.fill(77);  // a timer's command in between
  };
  const auto octets = Suite(96);
  c.cde->Flash_Tab(octets);
  EXPECT_EQ(tours, 3);
  EXPECT_EQ(c.cde->PagesNonConfirmees, 0);
  EXPECT_EQ(Lue(*c.cde, 0, 64)[31], octets[95]);
  EXPECT_EQ(Lue(*c.cde, 0, 96)[0], 255);
}

}  // namespace
