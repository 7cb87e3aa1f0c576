// Outputs, display, version, and the procedures that use them.
#include "controller/Module_ZENIK.h"
#include "tests/unit/controller/CarteScript.h"

namespace {

using namespace ovelin;
using essai::CarteScript;

TEST(CommandePWM, SendsChannelAndValueAndClearsWhatLiesBehind) {
  CarteScript b;
  b.cde->Tampon.fill(9);
  EXPECT_TRUE(b.cde->CommandePWM(1, 200));
  const auto& t = b.s.envois.at(0).octets;
  EXPECT_EQ(t[1], 'P');
  EXPECT_EQ(t[2], 1);
  EXPECT_EQ(t[3], 200);
  for (std::size_t i = 4; i <= 32; ++i) EXPECT_EQ(t[i], 0) << i;
  EXPECT_EQ(t[33], 9);
}

TEST(CommandePWM, IsTriedUntilItSucceeds) {
  CarteScript b;
  int echecs = 2;
  b.s.reponse = [&](zenikcom::TamponOctets&) {
    b.s.resultat = echecs-- > 0 ? zenikcom::LectureEchouee : zenikcom::Reussi;
  };
  EXPECT_TRUE(b.cde->CommandePWM(0, 1));
  EXPECT_EQ(b.Lettres(), "PPP");
}

TEST(ChauffeEcrire, SendsTheValueOnce) {
  CarteScript b;
  b.s.resultat = zenikcom::LectureEchouee;
  b.cde->ChauffeEcrire(77);
  ASSERT_EQ(b.s.envois.size(), 1U);
  EXPECT_EQ(b.s.envois[0].octets[2], 1);
  EXPECT_EQ(b.s.envois[0].octets[3], 77);
}

TEST(ChauffeEcrirePC, IsHeldInTheCallersVariable) {
  CarteScript b;
  for (const auto& [lu, tenu, octet] :
       {std::tuple{150, 100, 255}, {100, 100, 255}, {50, 50, 128}, {1, 1, 3}, {-5, 0, 0}}) {
    auto pourcent = static_cast<std::int16_t>(lu);
    b.cde->ChauffeEcrirePC(pourcent);
    EXPECT_EQ(pourcent, tenu);
    EXPECT_EQ(b.s.envois.back().octets[3], octet) << lu;  // 127.5 to the even one
  }
}

TEST(ChauffeLire, GivesFourCharactersAsTheyCome) {
  CarteScript b;
  b.s.reponse = [](zenikcom::TamponOctets& t) {
    EXPECT_EQ(t[2], 2);
    for (std::size_t i = 0; i < 4; ++i) t[2 + i] = static_cast<std::uint8_t>("0215"[i]);
  };
  EXPECT_EQ(b.cde->ChauffeLire(), "0215");
}

TEST(MotorOnOff, SendsOneOrZero) {
  CarteScript b;
  b.cde->MotorOnOff(true);
  b.cde->MotorOnOff(false);
  b.cde->IO1OnOff(true);
  b.cde->IO1OnOff(false);
  EXPECT_EQ(b.Lettres(), "MMGG");
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(b.s.envois[i].octets[2], i % 2 == 0 ? 1 : 0);
}

TEST(DemandeVersion, ReadsUpToTheFirstZero) {
  CarteScript b;
  b.s.reponse = [](zenikcom::TamponOctets& t) {
    const std::string texte = "ZENIK v0.32";
    t.fill('x');
    std::copy(texte.begin(), texte.end(), t.begin() + 2);
    t[2 + texte.size()] = 0;
  };
  EXPECT_EQ(b.cde->DemandeVersion(), "ZENIK v0.32");
  EXPECT_EQ(b.Lettres(), "V");
  b.s.reponse = [](zenikcom::TamponOctets& t) { t.fill('y'); };
  EXPECT_EQ(b.cde->DemandeVersion(), std::string(35, 'y')) << "a text without an end";
}

TEST(DisplaySend, SendsPlaceLengthAndCharacters) {
  CarteScript b;
  std::string texte = "Tête";
  b.cde->DisplaySend(texte, 1, 4);
  const auto& t = b.s.envois.at(0).octets;
  EXPECT_EQ(t[1], 'L');
  EXPECT_EQ(t[2], 1);
  EXPECT_EQ(t[3], 4);
  EXPECT_EQ(t[4], 4);
  EXPECT_EQ(t[5], 'T');
  EXPECT_EQ(t[6], 0xEA);  // one byte in Windows-1252
  EXPECT_EQ(texte, "Tête");
}

TEST(DisplaySend, CutsToTwentyCharactersInTheCallersVariable) {
  CarteScript b;
  std::string texte = "éabcdefghijklmnopqrstu";  // 22 characters
  b.cde->DisplaySend(texte, 0, 0);
  EXPECT_EQ(texte, "éabcdefghijklmnopqrs");
  EXPECT_EQ(b.s.envois[0].octets[4], 20);
  EXPECT_EQ(b.s.envois[0].octets[24], 's');
}

TEST(DisplaySend, NeverSendsMoreBytesThanTheDisplayHas) {
  CarteScript b;
  std::string texte;
  for (int i = 0; i < 20; ++i) texte += "漢";
  b.cde->DisplaySend(texte, 0, 0);
  EXPECT_EQ(b.s.envois[0].octets[4], 20);
}

TEST(DisplayEnable, ClearsBeforeItSwitchesOn) {
  CarteScript b;
  b.cde->DisplayEnable(true);
  b.cde->DisplayEnable(false);
  ASSERT_EQ(b.Lettres(), "LLL");
  EXPECT_EQ(b.s.envois[0].octets[2], 5);
  EXPECT_EQ(b.s.envois[1].octets[2], 3);
  EXPECT_EQ(b.s.envois[2].octets[2], 2);
}

// --- procedures -------------------------------------------------------------------------------------------------

// The board of a test as the one board of the program.
essai::Scenario& Installe(CarteScript& b) {
  CdeZENIK = std::move(b.cde);
  b.s.envois.clear();
  return b.s;
}

TEST(Broche, SwitchesWithFullValueWhereThereIsABoard) {
  CarteScript b;
  essai::Scenario& s = Installe(b);
  BrocheOn();
  BrocheOff();
  MoteurOn();
  MoteurOff();
  ASSERT_EQ(b.Lettres(), "PPMM");
  EXPECT_EQ(s.envois[0].octets[2], 1);
  EXPECT_EQ(s.envois[0].octets[3], 255);
  EXPECT_EQ(s.envois[1].octets[2], 0);
  EXPECT_EQ(s.envois[1].octets[3], 255);
  EXPECT_EQ(s.envois[2].octets[2], 1);
  EXPECT_EQ(s.envois[3].octets[2], 0);
  s.connectee = 0;
  BrocheOn();
  BrocheOff();
  MoteurOn();
  MoteurOff();
  EXPECT_EQ(s.envois.size(), 4U);
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
}

class Deplace : public testing::Test {
 protected:
  void SetUp() override {
    Installe(b);
    CdeZENIK->EnvoiUSB();
    b.s.envois.clear();
  }
  void TearDown() override { CdeZENIK = std::make_unique<ClsCdeZENIK>(); }
  [[nodiscard]] int Fronts(std::size_t i) const {
    const auto& t = b.s.envois.back().octets;
    return t[i] | t[i + 1] << 8;
  }
  CarteScript b;
};

TEST_F(Deplace, GoesTheWayBetweenTheTwoPoints) {
  float v = 10;
  EXPECT_TRUE(DeplacePoint({1, 2, 3}, {2, 2, 2.5}, v));
  EXPECT_EQ(b.Lettres(), "D");
  EXPECT_EQ(Fronts(7), 200);
  EXPECT_EQ(Fronts(11), 0);
  EXPECT_EQ(Fronts(15), 100);
  EXPECT_EQ(v, 10);
}

TEST_F(Deplace, DoesNothingWithoutAWay) {
  float v = 10;
  EXPECT_TRUE(DeplacePoint({1, 2, 3}, {1, 2, 3}, v));
  EXPECT_TRUE(b.s.envois.empty());
}

TEST_F(Deplace, LowersTheSpeedToTheAxes) {
  VitesseMaxX = 6;
  float v = 20;
  DeplacePoint({0, 0, 0}, {3, 4, 0}, v);  // X takes 12 of 20 mm/s, twice what it can
  EXPECT_FLOAT_EQ(v, 10);
}

TEST_F(Deplace, WaitsWhilePaused) {
  Pause = Vrai;
  Svc.LaisseEvenements = [&](Evenements) {
    EXPECT_TRUE(b.s.envois.empty());
    if (++b.evenements == 5) Pause = Faux;
  };
  float v = 10;
  EXPECT_TRUE(DeplacePoint({0, 0, 0}, {1, 0, 0}, v));
  EXPECT_EQ(b.evenements, 5);
  EXPECT_EQ(b.Lettres(), "D");
}

TEST_F(Deplace, StopDuringThePauseSendsNothing) {
  Pause = Vrai;
  Svc.LaisseEvenements = [](Evenements) { StopDemande = Vrai; };
  float v = 10;
  EXPECT_FALSE(DeplacePoint({0, 0, 0}, {1, 0, 0}, v));
  EXPECT_TRUE(b.s.envois.empty());
}

TEST_F(Deplace, FullBufferIsTheCallersToRepeat) {
  b.dit.pris = false;
  float v = 10;
  EXPECT_FALSE(DeplacePoint({0, 0, 0}, {1, 0, 0}, v));
  b.dit.pris = true;
  EXPECT_TRUE(DeplacePoint({0, 0, 0}, {1, 0, 0}, v));
  EXPECT_EQ(b.Lettres(), "DD");
}

}  // namespace
