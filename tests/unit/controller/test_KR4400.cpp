#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/Support.h"
#include "tests/unit/controller/CarteEssai.h"
#include "tests/unit/controller/LiaisonScenario.h"

namespace {

using namespace ovelin;
using essai::CarteEssai;
using essai::LiaisonScenario;
using essai::Scenario;

constexpr std::int32_t Donnees = 8448, Configuration = 8192;

std::unique_ptr<zenikcom::Liaison> Lie(Scenario& s) { return std::make_unique<LiaisonScenario>(s); }

// Every request that went out, as the letter and bytes 2 to 5.
std::vector<std::string> Dits(const Scenario& s) {
  std::vector<std::string> dits;
  for (const essai::Envoi& e : s.envois) {
    std::string dit(1, static_cast<char>(e.octets[1]));
    for (std::size_t i = 2; i <= 5; ++i) dit += " " + std::to_string(e.octets[i]);
    dits.push_back(dit);
  }
  return dits;
}

TEST(KR4400_LVP, ClearsTheBufferAndSaysZeroToEnter) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  cde.Tampon.fill(9);
  EXPECT_TRUE(cde.KR4400_LVP(true));
  cde.Tampon.fill(9);
  EXPECT_TRUE(cde.KR4400_LVP(false));
  for (std::size_t n = 0; n < 2; ++n) {
    const auto& t = s.envois.at(n).octets;
    EXPECT_EQ(t[1], 89);
    EXPECT_EQ(t[2], n);
    for (std::size_t i = 3; i < t.size(); ++i) EXPECT_EQ(t[i], 0) << i;
  }
}

TEST(KR4400_Version, ABoardWithoutAChipOnItsLinesIsNone) {
  EXPECT_EQ(CarteEssai({.pic = false}).cde->KR4400_Version(), "____");
}

TEST(KR4400_Version, ABoardThatDoesNotAnswerIsNone) {
  const CarteEssai c;
  c.carte->Debranche(true);
  EXPECT_EQ(c.cde->KR4400_Version(), "____");
}

// Answers the device word to the reading command.
std::string VersionDe(int mot) {
  Scenario s;
  s.reponse = [mot](zenikcom::TamponOctets& t) {
    if (t[2] != 2) return;
    t[2] = static_cast<std::uint8_t>(mot / 256);
    t[3] = static_cast<std::uint8_t>(mot % 256);
  };
  return ClsCdeZENIK(Lie(s)).KR4400_Version();
}

TEST(KR4400_Version, NamesAllModelsOfTheFamily) {
  const std::vector<std::pair<int, std::string>> modeles{
      {104, "PIC 16F870"},  {105, "PIC 16F871"},  {71, "PIC 16F872"},  {75, "PIC 16F873"},
      {73, "PIC 16F874"},   {79, "PIC 16F876"},   {77, "PIC 16F877"},  {114, "PIC 16F873A"},
      {115, "PIC 16F874A"}, {112, "PIC 16F876A"}, {113, "PIC 16F877A"}};
  for (const auto& [identite, nom] : modeles) {
    EXPECT_EQ(VersionDe(identite * 32 + 5), nom + " Rev 5");
    EXPECT_EQ(VersionDe(identite * 32), nom + " Rev 0");
    EXPECT_EQ(VersionDe(identite * 32 + 31), nom + " Rev 31");
  }
}

TEST(KR4400_Version, AWordThatIsNoDeviceIsNone) {
  for (const int mot : {0, 0x3FFF, 103 * 32, 106 * 32}) EXPECT_EQ(VersionDe(mot), "____") << mot;
}

TEST(KR4400_Version, ReadsTheWordSixStepsAboveTheConfiguration) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  cde.KR4400_Version();
  const auto dits = Dits(s);
  ASSERT_EQ(dits.size(), 11U);
  EXPECT_EQ(dits[0], "Y 1 0 0 0");
  EXPECT_EQ(dits[1], "Y 0 0 0 0");
  EXPECT_EQ(dits[2], "Y 4 0 0 0");
  for (std::size_t i = 3; i < 9; ++i) EXPECT_EQ(dits[i].substr(0, 5), "Y 3 6");
  EXPECT_EQ(dits[9].substr(0, 5), "Y 2 4");
  EXPECT_EQ(dits[10], "Y 1 0 0 0");
}

TEST(KR4400_Version, KnowsTheChipOfTheVirtualBoard) {
  EXPECT_EQ(CarteEssai().cde->KR4400_Version(), "PIC 16F877A Rev 5");
}

TEST(KR4400_Erase, IsTheBulkSequenceOfTheFamily) {
  for (const bool donnees : {false, true}) {
    Scenario s;
    ClsCdeZENIK cde(Lie(s));
    EXPECT_TRUE(donnees ? cde.KR4400_Erase_Data() : cde.KR4400_Erase_Program());
    const auto dits = Dits(s);
    ASSERT_EQ(dits.size(), 6U);
    EXPECT_EQ(dits[0], donnees ? "Y 4 3 63 255" : "Y 4 2 63 255");
    const char* const commandes[] = {"Y 3 1 ", "Y 3 7 ", "Y 3 8 ", "Y 3 1 ", "Y 3 7 "};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(dits[i + 1].substr(0, 6), commandes[i]);
  }
}

TEST(KR4400_Send_Data, AWordOfTheProgramStandsAtItsAddress) {
  const CarteEssai c;
  c.cde->KR4400_LVP(true);
  EXPECT_TRUE(c.cde->KR4400_Send_Data(3, 0x1234));
  EXPECT_TRUE(c.cde->KR4400_Send_Data(4, 0x0567));
  EXPECT_EQ(c.cde->KR4400_Read_Data(3), 0x1234) << "behind the counter: the mode is entered anew";
  EXPECT_EQ(c.cde->KR4400_Read_Data(4), 0x0567);
  EXPECT_EQ(c.cde->KR4400_Read_Data(5), 0x3FFF);
}

TEST(KR4400_Send_Data, AnEarlierAddressIsReachedFromTheBeginning) {
  const CarteEssai c;
  c.cde->KR4400_LVP(true);
  EXPECT_TRUE(c.cde->KR4400_Send_Data(20, 1));
  EXPECT_TRUE(c.cde->KR4400_Send_Data(2, 2));
  EXPECT_EQ(c.cde->KR4400_Read_Data(2), 2);
}

TEST(KR4400_Send_Data, ACellOfTheDataMemoryIsReadBackAtTheAddressThatWasAskedFor) {
  const CarteEssai c;
  EXPECT_TRUE(c.cde->KR4400_Send_Data(Donnees + 7, 65));
  EXPECT_TRUE(c.cde->KR4400_Send_Data(Donnees + 8, 66));
  EXPECT_EQ(c.cde->KR4400_Read_Data(Donnees + 7), 65);
  EXPECT_EQ(c.cde->KR4400_Read_Data(Donnees + 8), 66);
  EXPECT_EQ(c.cde->KR4400_Read_Data(7), 0x3FFF) << "the program memory at 7 is another one";
}

TEST(KR4400_Send_Data, SkipsWhatAnErasedCellHolds) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  EXPECT_TRUE(cde.KR4400_Send_Data(Donnees, 255));
  EXPECT_TRUE(s.envois.empty());
}

TEST(KR4400_Send_Data, EntersTheModeAnewForTheFirstCellAlone) {
  Scenario s;
  s.reponse = [](zenikcom::TamponOctets& t) {
    if (t[2] == 2) t[2] = 0, t[3] = 7;
  };
  ClsCdeZENIK cde(Lie(s));
  EXPECT_TRUE(cde.KR4400_Send_Data(Donnees, 7));
  const auto premiers = Dits(s);
  EXPECT_EQ(premiers.at(0), "Y 1 0 0 0");
  EXPECT_EQ(premiers.at(1), "Y 0 0 0 0");
  EXPECT_EQ(premiers.at(2), "Y 4 3 0 7");
  EXPECT_EQ(premiers.at(3).substr(0, 6), "Y 3 24");
  EXPECT_EQ(premiers.at(4).substr(0, 5), "Y 2 5");
  EXPECT_EQ(premiers.at(5).substr(0, 5), "Y 3 6");
  s.envois.clear();
  EXPECT_TRUE(cde.KR4400_Send_Data(Donnees + 1, 7));
  EXPECT_EQ(Dits(s).at(0), "Y 4 3 0 7");
}

TEST(KR4400_Send_Data, ADifferenceIsFalseAndTheCounterStays) {
  const CarteEssai c;
  c.cde->KR4400_LVP(true);
  ASSERT_TRUE(c.cde->KR4400_Send_Data(0, 0));
  EXPECT_FALSE(c.cde->KR4400_Send_Data(0, 1)) << "burning alone can only clear bits";
  EXPECT_EQ(c.cde->KR4400_Read_Data(0), 0);
}

TEST(KR4400_Send_Data, OfFourteenBitsNoMoreComesBack) {
  const CarteEssai c;
  c.cde->KR4400_LVP(true);
  EXPECT_FALSE(c.cde->KR4400_Send_Data(0, 0xFFFF));
}

TEST(KR4400_Send_Data, AnAddressThatIsNoneIsFalse) {
  const CarteEssai c;
  EXPECT_FALSE(c.cde->KR4400_Send_Data(-1, 0));
  EXPECT_FALSE(c.cde->KR4400_Send_Data(Donnees + 256, 0));
  EXPECT_EQ(c.carte->Compteurs().echanges, 0);
}

TEST(KR4400_Send_Data, AStepThatWasLostIsNoPlaceToWriteTo) {
  const CarteEssai c;
  c.cde->KR4400_LVP(true);
  c.Fausse(zenikcom::GenreFaute::Avant, 3);
  EXPECT_FALSE(c.cde->KR4400_Send_Data(5, 0x0AAA));
  EXPECT_TRUE(c.cde->KR4400_Send_Data(6, 0x0BBB)) << "the counter is found again from the beginning";
  for (std::int32_t adresse = 0; adresse < 8; ++adresse) {
    EXPECT_EQ(c.cde->KR4400_Read_Data(adresse), adresse == 6 ? 0x0BBB : 0x3FFF) << adresse;
  }
}

TEST(KR4400_CW, IsTheWordOfTheConfiguration) {
  const CarteEssai c;
  EXPECT_TRUE(c.cde->KR4400_Send_CW(0x2F4A));
  EXPECT_EQ(c.cde->KR4400_Read_CW(), 0x2F4A);
  EXPECT_EQ(c.cde->KR4400_Read_Data(Configuration + 7), 0x2F4A);
  EXPECT_EQ(c.cde->KR4400_Read_Data(Configuration + 6), 113 * 32 + 5) << "the device word";
  EXPECT_TRUE(c.cde->KR4400_Send_Data(1, 5)) << "and back into the program";
  EXPECT_EQ(c.cde->KR4400_Read_Data(1), 5);
}

TEST(KR4400_Erase, LeavesOnesInTheMemoryThatWasMeant) {
  const CarteEssai c;
  c.cde->KR4400_LVP(true);
  ASSERT_TRUE(c.cde->KR4400_Send_Data(2, 2));
  ASSERT_TRUE(c.cde->KR4400_Send_Data(Donnees + 2, 3));
  EXPECT_TRUE(c.cde->KR4400_Erase_Data());
  EXPECT_EQ(c.cde->KR4400_Read_Data(Donnees + 2), 255);
  EXPECT_EQ(c.cde->KR4400_Read_Data(2), 2);
  EXPECT_TRUE(c.cde->KR4400_Erase_Program());
  EXPECT_EQ(c.cde->KR4400_Read_Data(2), 0x3FFF);
}

TEST(KR4400_Read_Data, OfABoardThatIsGoneIsErased) {
  const CarteEssai c;
  c.carte->Debranche(true);
  EXPECT_EQ(c.cde->KR4400_Read_Data(8191), 0x3FFF);
  EXPECT_EQ(c.cde->KR4400_Read_Data(Donnees + 255), 255);
}

}  // namespace
