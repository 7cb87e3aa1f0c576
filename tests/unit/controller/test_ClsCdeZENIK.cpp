#include <filesystem>
#include <limits>

#include "controller/ClsCdeZENIK.h"
#include "core/Etat.h"
#include "tests/support/Support.h"
#include "tests/unit/controller/LiaisonScenario.h"

namespace {

using namespace ovelin;
using essai::LiaisonScenario;
using essai::Scenario;

std::unique_ptr<zenikcom::Liaison> Lie(Scenario& s) { return std::make_unique<LiaisonScenario>(s); }

TEST(LiaisonAbsente, IsNotConnectedAndLeavesTheBufferAsItIs) {
  const auto liaison = zenikcom::LiaisonAbsente();
  zenikcom::TamponOctets tampon{};
  tampon[1] = 'D';
  tampon[36] = 7;
  const auto avant = tampon;
  std::int32_t mode = 1;
  EXPECT_NE(liaison->EstConnectee(), 1);
  EXPECT_NE(liaison->Envoie(tampon, mode), zenikcom::Reussi);
  EXPECT_EQ(tampon, avant);
  EXPECT_EQ(mode, 1);
}

TEST(IsAvailable, IsTrueForOneAlone) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  for (const std::int32_t reponse : {1, 0, -1, 2}) {
    s.connectee = reponse;
    EXPECT_EQ(cde.IsAvailable(), reponse == 1) << reponse;
  }
  EXPECT_TRUE(s.envois.empty()) << "asking whether the board is there sends nothing";
}

TEST(IsAvailable, IsFalseWithoutALink) {
  EXPECT_FALSE(ClsCdeZENIK().IsAvailable());
  EXPECT_FALSE(ClsCdeZENIK(nullptr).IsAvailable());
}

TEST(EnvoiCommande, LeavesTheReplyWhereTheRequestWas) {
  Scenario s;
  s.reponse = [](zenikcom::TamponOctets& t) { t[5] = 99; };
  ClsCdeZENIK cde(Lie(s));
  cde.Tampon[1] = 'I';
  cde.Tampon[5] = 3;
  std::int32_t mode = 0;
  EXPECT_TRUE(cde.EnvoiCommande(mode));
  ASSERT_EQ(s.envois.size(), 1U);
  EXPECT_EQ(s.envois[0].octets[1], 'I');
  EXPECT_EQ(s.envois[0].octets[5], 3);
  EXPECT_EQ(cde.Tampon[1], 'I');
  EXPECT_EQ(cde.Tampon[5], 99);
}

TEST(EnvoiCommande, HandsTheSendingModeOn) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  for (std::int32_t mode : {0, 1}) {
    cde.EnvoiCommande(mode);
    EXPECT_EQ(s.envois.back().mode, mode);
  }
}

TEST(EnvoiCommande, SendsByteZeroAsZeroWhateverAReplyLeftThere) {
  Scenario s;
  s.reponse = [](zenikcom::TamponOctets& t) { t[0] = 200; };
  ClsCdeZENIK cde(Lie(s));
  std::int32_t mode = 0;
  cde.EnvoiCommande(mode);
  EXPECT_EQ(cde.Tampon[0], 200);
  cde.EnvoiCommande(mode);
  EXPECT_EQ(s.envois.back().octets[0], 0);
}

TEST(EnvoiCommande, DoesNotClearStaleBytes) {
  Scenario s;
  s.reponse = [](zenikcom::TamponOctets& t) { t.fill(17); };
  ClsCdeZENIK cde(Lie(s));
  std::int32_t mode = 0;
  cde.EnvoiCommande(mode);
  cde.Tampon[1] = 'B';
  cde.EnvoiCommande(mode);
  EXPECT_EQ(s.envois.back().octets[1], 'B');
  EXPECT_EQ(s.envois.back().octets[36], 17);
}

TEST(EnvoiCommande, TellsThatTheTableIsTooSmall) {
  Scenario s;
  s.resultat = -102;
  ClsCdeZENIK cde(Lie(s));
  essai::AttendTexte("ZENIK : -102 - Table too small");
  std::int32_t mode = 0;
  EXPECT_FALSE(cde.EnvoiCommande(mode));
  ASSERT_EQ(essai::Boites().size(), 1U);
  EXPECT_EQ(essai::Boites()[0].cle, "");
  EXPECT_EQ(essai::Boites()[0].titre, "");
  EXPECT_EQ(essai::Boites()[0].boutons, Boutons::Ok);
}

TEST(EnvoiCommande, TellsThatTheTableCannotBeLocked) {
  Scenario s;
  s.resultat = -101;
  ClsCdeZENIK cde(Lie(s));
  essai::AttendTexte("ZENIK : -101 - Can't lock the table");
  std::int32_t mode = 0;
  EXPECT_FALSE(cde.EnvoiCommande(mode));
}

TEST(EnvoiCommande, OtherFailuresAreSilent) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  for (const std::int32_t resultat : {-5, 0, -1, 2, -100, -103}) {
    s.resultat = resultat;
    std::int32_t mode = 0;
    EXPECT_FALSE(cde.EnvoiCommande(mode)) << resultat;
  }
  EXPECT_TRUE(essai::Boites().empty());
}

TEST(EnvoiCommande, DoesNotTryAgain) {
  Scenario s;
  s.resultat = -5;
  ClsCdeZENIK cde(Lie(s));
  std::int32_t mode = 0;
  cde.EnvoiCommande(mode);
  EXPECT_EQ(s.envois.size(), 1U);
}

TEST(Reset, SendsTheGuardPatternWithModeZero) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  cde.Tampon.fill(9);
  cde.Reset();
  ASSERT_EQ(s.envois.size(), 1U);
  const auto& t = s.envois[0].octets;
  EXPECT_EQ(t[0], 0);
  EXPECT_EQ(t[1], 90);
  EXPECT_EQ(t[2], 85);
  EXPECT_EQ(t[3], 170);
  EXPECT_EQ(t[4], 0);
  EXPECT_EQ(t[5], 9) << "what lies behind isn't touched";
  EXPECT_EQ(s.envois[0].mode, 0);
}

TEST(Reset, ShowsNothingWhenItFails) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  for (const std::int32_t resultat : {-101, -102, -5}) {
    s.resultat = resultat;
    cde.Reset();
  }
  EXPECT_TRUE(essai::Boites().empty());
}

TEST(Reset, ShowsNothingWithoutABoard) {
  ClsCdeZENIK().Reset();
  EXPECT_TRUE(essai::Boites().empty());
}

// "debug.txt" goes into the current folder: each of these tests stands in its own.
class JournalDebug : public testing::Test {
 protected:
  void SetUp() override {
    avant_ = std::filesystem::current_path();
    std::filesystem::current_path(essai::Dossier());
  }
  void TearDown() override { std::filesystem::current_path(avant_); }

 private:
  std::filesystem::path avant_;
};

std::string LigneDebug(std::initializer_list<const char*> debut) {
  std::string ligne;
  std::size_t n = 0;
  for (const char* octet : debut) {
    ligne += std::string(octet) + " ";
    ++n;
  }
  for (; n < 37; ++n) ligne += "00 ";
  return ligne;
}

TEST_F(JournalDebug, WritesAllBytesInHexadecimalAndSendsNothing) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  cde.Tampon[1] = 'D';
  cde.Tampon[2] = 0xAB;
  cde.Tampon[3] = 5;
  const std::string ligne = LigneDebug({"00", "44", "AB", "05"});
  essai::AttendTexte(ligne);
  EXPECT_TRUE(cde.JournalDebug());
  EXPECT_EQ(cde.DebugTexte, ligne);
  EXPECT_EQ(ligne.size(), 37U * 3);
  EXPECT_EQ(essai::LitFichierEssai("debug.txt"), ligne + "\n");
  EXPECT_TRUE(s.envois.empty());
}

TEST_F(JournalDebug, AddsOneLineEachTime) {
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  essai::EcritFichierEssai("debug.txt", "before\n");
  for (const std::uint8_t octet : {std::uint8_t{1}, std::uint8_t{255}}) {
    cde.Tampon[0] = octet;
    essai::AttendTexte(LigneDebug({octet == 1 ? "01" : "FF"}));
    cde.JournalDebug();
  }
  EXPECT_EQ(essai::LitFichierEssai("debug.txt"),
            "before\n" + LigneDebug({"01"}) + "\n" + LigneDebug({"FF"}) + "\n");
}

TEST_F(JournalDebug, SucceedsEvenWhereNothingCanBeWrittenAndTellsItOnce) {
  std::filesystem::create_directory("debug.txt");
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  essai::AttendTexte(LigneDebug({}));
  essai::Attend("erreurs", "Debug");
  EXPECT_TRUE(cde.JournalDebug());
  EXPECT_NE(essai::Boites().back().texte.find("Is a directory"), std::string::npos) << "with the system's reason";
  essai::AttendTexte(LigneDebug({}));
  EXPECT_TRUE(cde.JournalDebug());
  std::filesystem::remove("debug.txt");
  essai::AttendTexte(LigneDebug({}));
  EXPECT_TRUE(cde.JournalDebug());
  EXPECT_EQ(essai::LitFichierEssai("debug.txt"), LigneDebug({}) + "\n");
}

TEST_F(JournalDebug, TellsAFullDisk) {
  std::filesystem::create_symlink("/dev/full", "debug.txt");
  Scenario s;
  ClsCdeZENIK cde(Lie(s));
  essai::AttendTexte(LigneDebug({}));
  essai::Attend("erreurs", "Debug");
  EXPECT_TRUE(cde.JournalDebug());
  EXPECT_NE(essai::Boites().back().texte.find("No space left"), std::string::npos);
}

TEST(ClsCdeZENIK, OpensNothingAndBeginsAtRest) {
  Scenario s;
  const ClsCdeZENIK cde(Lie(s));
  EXPECT_TRUE(s.envois.empty());
  EXPECT_EQ(cde.EnCours, Faux);
  EXPECT_EQ(cde.PosX, 0);
  EXPECT_EQ(cde.PasZ, 0);
}

TEST(ClsCdeZENIK, ClosesTheLinkAtItsEnd) {
  Scenario s;
  {
    const ClsCdeZENIK cde(Lie(s));
    EXPECT_EQ(s.fermetures, 0);
  }
  EXPECT_EQ(s.fermetures, 1);
  EXPECT_TRUE(s.envois.empty());
}

TEST(ClsCdeZENIK, GlobalObjectHasNoBoardUntilALinkIsInstalled) {
  ASSERT_NE(CdeZENIK, nullptr);
  EXPECT_FALSE(CdeZENIK->IsAvailable());
  Scenario s;
  CdeZENIK = std::make_unique<ClsCdeZENIK>(Lie(s));
  EXPECT_TRUE(CdeZENIK->IsAvailable());
  RemetTout();  // closes the old one and starts anew
  EXPECT_EQ(s.fermetures, 1);
  EXPECT_FALSE(CdeZENIK->IsAvailable());
}

TEST(FixeResolutions, LeavesThePositionAndCountsItsStepsAnew) {
  ClsCdeZENIK cde;
  cde.FixeResolutions(0.01, 0.02, 0.005);
  cde.FixePosition(12, -6, 3);
  EXPECT_EQ(cde.PasX, 1200);
  // A plan for a file counts in steps of 1 mm; the tool stands where it stood.
  cde.FixeResolutions(1, 1, 1);
  EXPECT_EQ(cde.PosX, 12);
  EXPECT_EQ(cde.PosY, -6);
  EXPECT_EQ(cde.PosZ, 3);
  EXPECT_EQ(cde.PasX, 12);
  cde.FixeResolutions(0.01, 0.02, 0.005);
  EXPECT_DOUBLE_EQ(cde.PosX, 12);
  EXPECT_DOUBLE_EQ(cde.PosY, -6);
  EXPECT_DOUBLE_EQ(cde.PosZ, 3);
  EXPECT_EQ(cde.PasX, 1200);
  EXPECT_EQ(cde.MmParPasX(), 0.01);
  EXPECT_EQ(cde.MmParPasY(), 0.02);
  EXPECT_EQ(cde.MmParPasZ(), 0.005);
}

TEST(FixeResolutions, KeepsWhatItHasForAResolutionThatIsNone) {
  ClsCdeZENIK cde;
  cde.FixeResolutions(0.01, 0.02, 0.005);
  cde.FixeResolutions(0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity());
  EXPECT_EQ(cde.MmParPasX(), 0.01);
  EXPECT_EQ(cde.MmParPasY(), 0.02);
  EXPECT_EQ(cde.MmParPasZ(), 0.005);
}

TEST(FixePosition, StandsAsGivenWithTheNearestWholeSteps) {
  ClsCdeZENIK cde;
  cde.FixeResolutions(0.01, 0.4, 1);
  cde.FixePosition(1.2345, 1, 0.5);
  EXPECT_EQ(cde.PasX, 123);
  EXPECT_EQ(cde.PosX, 1.2345);
  EXPECT_EQ(cde.PasY, 2);  // halves to even: 2.5 steps
  EXPECT_EQ(cde.PosY, 1);
  EXPECT_EQ(cde.PasZ, 0);
  EXPECT_EQ(cde.PasDebutX, 123);
  EXPECT_EQ(cde.PasDebutY, 2);
  EXPECT_EQ(cde.PasDebutZ, 0);
}

TEST(FixePosition, KeepsPartsOfAMillimetreWithoutABoard) {
  ClsCdeZENIK cde;  // a step is 1 mm until a table is known
  cde.FixePosition(1.4, -2.6, 3.7);
  EXPECT_EQ(cde.PosX, 1.4);
  EXPECT_EQ(cde.PosY, -2.6);
  EXPECT_EQ(cde.PosZ, 3.7);
  EXPECT_EQ(cde.PasX, 1);
  EXPECT_EQ(cde.PasY, -3);
  EXPECT_EQ(cde.PasZ, 4);
}

TEST(FixePosition, FarBeyondTheCountersStopsAtTheirEnd) {
  ClsCdeZENIK cde;
  cde.FixePosition(1e30, -1e30, std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(cde.PasX, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(cde.PasY, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(cde.PasZ, 0);
  EXPECT_EQ(cde.PosZ, 0);
}

}  // namespace
