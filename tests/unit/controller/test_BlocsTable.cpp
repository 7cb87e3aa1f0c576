#include <algorithm>

#include "controller/BlocsTable.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

// By the place in the exchange.
std::uint8_t Octet(const BlocTable& bloc, std::size_t place) { return bloc.at(place - 4); }

TEST(PremierBloc, HasNameConstantsOutputsRatesAndOptions) {
  ParametresZENIK p;
  p.Affectation = {130, 131, 2, 3, 129, 65, 0, 192, 1, 64};
  p.Multiplicateur = 6;
  p.PenteAccel = 7;
  p.VitesseMaxPC = 50;
  p.TimeOutMoteur = 30;
  p.OptFinCourse = 1;
  p.OptOrientation = 1;
  p.OptMoteur = 1;
  const BlocTable bloc = PremierBloc(p, "Fraise", "en");
  const std::string nom(bloc.begin(), bloc.begin() + 8);
  EXPECT_EQ(nom, "Fraise  ");
  EXPECT_EQ(Octet(bloc, 12), 4);
  EXPECT_EQ(Octet(bloc, 13), 8);
  EXPECT_EQ(Octet(bloc, 14), 12);
  EXPECT_EQ(Octet(bloc, 15), 0);
  EXPECT_EQ(Octet(bloc, 16), 0);
  for (std::size_t i = 0; i < 10; ++i) EXPECT_EQ(Octet(bloc, 17 + i), p.Affectation[i]) << i;
  EXPECT_EQ(Octet(bloc, 27), 6);
  EXPECT_EQ(Octet(bloc, 28), 7);
  EXPECT_EQ(Octet(bloc, 29), 128);  // 127.5: halves to even
  EXPECT_EQ(Octet(bloc, 30), 30);
  EXPECT_EQ(Octet(bloc, 31), 7);
  EXPECT_EQ(Octet(bloc, 32), 1);
  EXPECT_EQ(Octet(bloc, 33), 1);
  for (std::size_t i = 34; i <= 36; ++i) EXPECT_EQ(Octet(bloc, i), 0);
}

TEST(PremierBloc, TakesEightBytesOfALongerName) {
  const BlocTable bloc = PremierBloc({}, "NeufLettr", "fr");
  EXPECT_EQ(std::string(bloc.begin(), bloc.begin() + 8), "NeufLett");
  EXPECT_EQ(Octet(bloc, 12), 4);
}

TEST(PremierBloc, EachOptionHasItsBit) {
  ParametresZENIK p;
  p.OptFinCourse = 1;
  EXPECT_EQ(Octet(PremierBloc(p, "", "fr"), 31), 1);
  p = {};
  p.OptOrientation = 1;
  EXPECT_EQ(Octet(PremierBloc(p, "", "fr"), 31), 2);
  p = {};
  p.OptMoteur = 1;
  EXPECT_EQ(Octet(PremierBloc(p, "", "fr"), 31), 4);
}

TEST(PremierBloc, AnySpindleOptionButZeroIsFour) {
  ParametresZENIK p;
  for (const int option : {0, 1, 2, 255}) {
    p.OptSens = static_cast<std::uint8_t>(option);
    EXPECT_EQ(Octet(PremierBloc(p, "", "fr"), 32), option == 0 ? 1 : 4);
  }
}

TEST(PremierBloc, LanguagesButEnglishAreZero) {
  for (const char* langue : {"fr", "de", "es", "ca", "it", "pt"}) {
    EXPECT_EQ(Octet(PremierBloc({}, "", langue), 33), 0) << langue;
  }
}

TEST(DeuxiemeBloc, HoldsTheLowSixteenBitsOfNineValues) {
  ParametresZENIK p;
  p.PasParMm = {400, 0x12345, 7};
  p.PasDepart = {2000, 258, 0};
  p.PasRampe = {65'535, 65'536, 65'537};
  const BlocTable bloc = DeuxiemeBloc(p);
  const auto mot = [&bloc](std::size_t i) { return Octet(bloc, i) + 256 * Octet(bloc, i + 1); };
  EXPECT_EQ(mot(4), 400);
  EXPECT_EQ(mot(6), 0x2345);
  EXPECT_EQ(mot(8), 7);
  EXPECT_EQ(mot(14), 2000);
  EXPECT_EQ(mot(16), 258);
  EXPECT_EQ(mot(18), 0);
  EXPECT_EQ(mot(24), 65'535);
  EXPECT_EQ(mot(26), 0);
  EXPECT_EQ(mot(28), 1);
  for (const std::size_t i : {10U, 12U, 20U, 22U, 30U, 32U, 34U}) EXPECT_EQ(mot(i), 0) << i;
  EXPECT_EQ(Octet(bloc, 36), 0);
}

TEST(Ecarts, OfABlockWithItselfAreNone) {
  ParametresZENIK p;
  p.Affectation.fill(131);
  EXPECT_TRUE(EcartsPremierBloc(PremierBloc(p, "Autre", "fr"), p, "fr").empty()) << "the name is not compared";
  EXPECT_TRUE(EcartsDeuxiemeBloc(DeuxiemeBloc(p), p).empty());
}

TEST(Ecarts, EachComparedByteCounts) {
  const ParametresZENIK p;
  for (std::size_t i = 4; i <= 36; ++i) {
    BlocTable premier = PremierBloc(p, "", "fr");
    BlocTable deuxieme = DeuxiemeBloc(p);
    premier.at(i - 4) ^= 0x40U;
    deuxieme.at(i - 4) ^= 0x40U;
    const bool duPremier = i >= 17 && i <= 33;
    const bool duDeuxieme = (i >= 4 && i <= 9) || (i >= 14 && i <= 19) || (i >= 24 && i <= 29);
    EXPECT_EQ(EcartsPremierBloc(premier, p, "fr").size(), duPremier ? 1U : 0U) << i;
    EXPECT_EQ(EcartsDeuxiemeBloc(deuxieme, p).size(), duDeuxieme ? 1U : 0U) << i;
  }
}

TEST(Ecarts, NameThePlaceAndBothBytes) {
  const ParametresZENIK p;
  BlocTable bloc = PremierBloc(p, "", "fr");
  bloc.at(30 - 4) = 5;
  EXPECT_EQ(EcartsPremierBloc(bloc, p, "fr"), (std::vector<EcartTable>{{30, 5, 0}}));
}

TEST(Ecarts, TheLanguageCountsForFrenchAndEnglishAlone) {
  const ParametresZENIK p;
  const BlocTable anglais = PremierBloc(p, "", "en");
  EXPECT_EQ(EcartsPremierBloc(anglais, p, "fr").size(), 1U);
  EXPECT_EQ(EcartsPremierBloc(PremierBloc(p, "", "fr"), p, "en").size(), 1U);
  EXPECT_TRUE(EcartsPremierBloc(anglais, p, "de").empty());
}

TEST(Ecarts, AnOptionOfTwoAcceptsAnyByte) {
  ParametresZENIK p;
  BlocTable bloc = PremierBloc(p, "", "fr");
  bloc.at(32 - 4) = 99;
  p.OptSens = 2;
  EXPECT_TRUE(EcartsPremierBloc(bloc, p, "fr").empty());
  p.OptSens = 1;
  EXPECT_EQ(EcartsPremierBloc(bloc, p, "fr").size(), 1U);
}

TEST(Ecarts, SixteenBitsCompareWithoutTheRest) {
  ParametresZENIK p;
  const BlocTable bloc = DeuxiemeBloc(p);
  p.PasParMm[1] += 65'536;
  EXPECT_TRUE(EcartsDeuxiemeBloc(bloc, p).empty());
}

TEST(Debords, NameTheAxisTheValueAndItsUnit) {
  ParametresZENIK p;
  EXPECT_TRUE(Debords(p).empty());
  p.PasParMm[0] = 65'535;
  EXPECT_TRUE(Debords(p).empty());
  p.PasParMm[0] = 65'536;
  p.PasRampe[2] = -1;
  EXPECT_EQ(Debords(p), (std::vector<std::string>{"X: 65536 /mm", "Z: -1 /s"}));
}

TEST(AvecAxes, TakesStepsTravelAndSlopeAndKeepsTheSpeeds) {
  ParametresZENIK enVigueur;
  enVigueur.Axes[0] = {.Transmission = 4, .PasParTour = 800};
  enVigueur.PenteAccel = 9;
  ParametresZENIK ecrits;
  ecrits.VitesseDepart = {6, 6, 6};
  ecrits.VitesseRampe = {15, 15, 15};
  ecrits.PenteAccel = 1;
  const ParametresZENIK p = AvecAxes(ecrits, enVigueur);
  EXPECT_EQ(p.PenteAccel, 9);
  EXPECT_EQ(p.PasParMm[0], 200);
  EXPECT_EQ(p.PasDepart[0], 1200);
  EXPECT_EQ(p.PasRampe[0], 3000);
  EXPECT_EQ(p.PasParMm[1], 400);
}

}  // namespace
