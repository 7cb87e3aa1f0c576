// Motion records on their way: accepted, refused, stored, logged, lost.
#include <filesystem>

#include "tests/unit/controller/CarteScript.h"

namespace {

using namespace ovelin;
using essai::CarteScript;

TEST(CommandeDATA, SendsTheRecordInModeOne) {
  CarteScript b;
  b.Ouvre();
  EXPECT_TRUE(b.Ligne(1000, -2, 3));
  ASSERT_EQ(b.s.envois.size(), 1U);
  EXPECT_EQ(b.s.envois[0].mode, 1);
  const auto& t = b.s.envois[0].octets;
  EXPECT_EQ(t[1], 68);
  EXPECT_EQ(t[2], 1 + 4);
  EXPECT_EQ(t[7] | t[8] << 8, 2000);
  EXPECT_EQ(t[11], 4);
  EXPECT_EQ(t[15], 6);
}

TEST(CommandeDATA, GivesTicksAndDurationBack) {
  CarteScript b;
  b.Ouvre();
  b.Ligne();
  EXPECT_EQ(b.cde->NbTicks, 10'000);
  EXPECT_FLOAT_EQ(b.t, 1);
}

TEST(CommandeDATA, LowersTheSpeedInTheCallersVariable) {
  CarteScript b;
  b.Ouvre();
  float v = 80, t = 0;
  b.cde->CommandeDATA(1000, 0, 0, v, t, false);
  EXPECT_FLOAT_EQ(v, 50);
}

TEST(CommandeDATA, RefusedRecordCountsForNothing) {
  CarteScript b;
  b.Ouvre();
  b.dit.pris = false;
  EXPECT_FALSE(b.Ligne());
  EXPECT_EQ(NbBlocsTotal, 0);
  EXPECT_EQ(b.cde->TempsBuffer, 0);
  EXPECT_EQ(NbDeplacements, 0);
  EXPECT_EQ(b.cde->TravailIncertain, Faux) << "a full buffer is no fault";
}

TEST(CommandeDATA, RefusedRecordReportsTrueWhenTheBoardHasStopped) {
  CarteScript b;
  b.Ouvre();
  b.dit.pris = false;
  b.dit.octet7 = 2;
  EXPECT_TRUE(b.Ligne());
  EXPECT_EQ(NbBlocsTotal, 0);
}

TEST(CommandeDATA, SimulationSendsNothingAndCountsNothing) {
  CarteScript b;
  b.Ouvre();
  float v = 80, t = 0;
  EXPECT_FALSE(b.cde->CommandeDATA(100, 0, 0, v, t, true));
  EXPECT_TRUE(b.s.envois.empty());
  EXPECT_EQ(NbBlocsTotal, 0);
  EXPECT_FLOAT_EQ(v, 50);
  EXPECT_GT(t, 0);
}

TEST(CommandeDATA, MoveOfNothingAsksForTheStatusAndStillCounts) {
  CarteScript b;
  b.Ouvre();
  float v = 10, t = 2.5F;
  EXPECT_TRUE(b.cde->CommandeDATA(0, 0, 0, v, t, false));
  EXPECT_EQ(b.Lettres(), "I");
  EXPECT_EQ(t, 2.5F);
  EXPECT_EQ(b.cde->TempsBuffer, 2.5);
  EXPECT_EQ(NbBlocsTotal, 1);
  EXPECT_EQ(NbDeplacements, 0) << "the board has no record of it";
}

TEST(CommandeDATA, SimulatedMoveOfNothingTakesNoTime) {
  CarteScript b;
  float v = 10, t = 2.5F;
  EXPECT_FALSE(b.cde->CommandeDATA(0, 0, 0, v, t, true));
  EXPECT_EQ(t, 0);
  EXPECT_TRUE(b.s.envois.empty());
}

TEST(CommandeDATA, SeventhRecordTellsTheBoardToGo) {
  CarteScript b;
  b.Ouvre();
  for (int i = 0; i < 6; ++i) b.Ligne();
  EXPECT_EQ(b.Lettres(), "DDDDDD");
  b.Ligne();
  EXPECT_EQ(b.Lettres(), "DDDDDDDB128 ");
  b.Ligne();
  EXPECT_EQ(b.Lettres(), "DDDDDDDB128 D");
}

TEST(CommandeDATA, GoThatFailsIsRepeatedAndTheRecordIsNot) {
  CarteScript b;
  b.Ouvre();
  for (int i = 0; i < 6; ++i) b.Ligne();
  int echecs = 3;
  const auto repond = b.s.reponse;
  b.s.reponse = [&](zenikcom::TamponOctets& t) {
    repond(t);
    b.s.resultat = t[1] == 'B' && echecs-- > 0 ? zenikcom::LectureEchouee : zenikcom::Reussi;
  };
  EXPECT_TRUE(b.Ligne());
  EXPECT_EQ(b.Lettres(), "DDDDDDDB128 B128 B128 B128 ");
  EXPECT_EQ(b.evenements, 3);
  EXPECT_EQ(b.cde->TravailIncertain, Faux);
}

TEST(CommandeDATA, BufferTimeIsTheSumOfTheLastSevenWhateverHasRun) {
  CarteScript b;
  b.Ouvre();
  for (int i = 1; i <= 9; ++i) b.Ligne(100 * i);  // 0.1 s each more than the one before
  EXPECT_NEAR(b.cde->TempsBuffer, 0.3 + 0.4 + 0.5 + 0.6 + 0.7 + 0.8 + 0.9, 1e-6);
  b.Ouvre();
  EXPECT_EQ(b.cde->TempsBuffer, 0);
  b.Ligne(1000);  // takes the first place of seven: 0.8 s of the job before
  EXPECT_NEAR(b.cde->TempsBuffer, 0.3 + 0.4 + 0.5 + 0.6 + 0.7 + 0.9 + 1, 1e-6);
}

TEST(CommandeDATA, WithoutFollowingTheReplyIsNotReadAsAStatus) {
  CarteScript b;
  b.Ouvre();
  SansSuivi = Vrai;
  b.dit.octet8 = 4;
  b.Ligne();
  EXPECT_EQ(b.cde->Origine, Faux);
  SansSuivi = Faux;
  b.Ligne();
  EXPECT_EQ(b.cde->Origine, Vrai);
}

TEST(CommandeDATA, SpeedThatIsNoneIsToldOnceAJob) {
  CarteScript b;
  b.Ouvre();
  float t = 0;
  essai::Attend("F_Fraisage", "lib041");
  for (int i = 0; i < 3; ++i) {
    float v = 0;
    EXPECT_TRUE(b.cde->CommandeDATA(10, 0, 0, v, t, false));
    EXPECT_FLOAT_EQ(v, 0.001F);
  }
  EXPECT_EQ(essai::Boites().size(), 1U);
}

TEST(CommandeDATAmm, TakesTheNearestWholeSteps) {
  CarteScript b;
  b.Ouvre();
  float v = 10, t = 0;
  EXPECT_TRUE(b.cde->CommandeDATAmm(10.004F, -0.016F, 0.125F, v, t));
  const auto& o = b.s.envois.back().octets;
  EXPECT_EQ(o[7] | o[8] << 8, 2000);
  EXPECT_EQ(o[11], 4);   // 1.6 steps
  EXPECT_EQ(o[15], 24);  // 12.5 steps, to the even one
  EXPECT_EQ(o[2] & 7, 5);
}

// --- lost exchanges ---------------------------------------------------------------------------------------------

TEST(CommandeDATA, RecordWhoseExchangeFailedIsNeverSentAgain) {
  CarteScript b;
  b.Ouvre();
  b.Ligne();
  b.s.resultat = zenikcom::LectureEchouee;
  EXPECT_FALSE(b.Ligne());
  EXPECT_EQ(b.cde->TravailIncertain, Vrai);
  b.s.resultat = zenikcom::Reussi;
  b.s.envois.clear();
  EXPECT_FALSE(b.Ligne());
  EXPECT_FALSE(b.cde->CommandeDATAend());
  EXPECT_TRUE(b.s.envois.empty());
  EXPECT_EQ(NbBlocsTotal, 1);
}

TEST(CommandeDATA, NextJobIsCertainAgain) {
  CarteScript b;
  b.Ouvre();
  b.s.resultat = zenikcom::LectureEchouee;
  b.Ligne();
  b.s.resultat = zenikcom::Reussi;
  b.Ouvre();
  EXPECT_EQ(b.cde->TravailIncertain, Faux);
  EXPECT_TRUE(b.Ligne());
}

TEST(CommandeDATA, ReplyThatCannotBeTrueIsAFailedExchange) {
  const auto perd = [](const std::function<void(CarteScript&)>& faux) {
    CarteScript b;
    b.Ouvre();
    for (int i = 0; i < 3; ++i) b.Ligne();
    b.dit = {.compte = 2, .octet7 = 1, .octet12 = 0, .reste = 400};
    b.Ligne();
    EXPECT_EQ(b.cde->TravailIncertain, Faux);
    faux(b);
    EXPECT_FALSE(b.Ligne());
    EXPECT_EQ(b.cde->NbBlocsTraites, 2) << "the status stays";
    return b.cde->TravailIncertain != Faux;
  };
  EXPECT_TRUE(perd([](CarteScript& b) { b.dit.compte = 1; })) << "below the last";
  EXPECT_TRUE(perd([](CarteScript& b) { b.dit.compte = 6; })) << "beyond the records";
  EXPECT_TRUE(perd([](CarteScript& b) { b.dit.reste = 10'000; })) << "more ticks than the record has";
  EXPECT_TRUE(perd([](CarteScript& b) { b.dit.reste = -2; }));
}

TEST(CommandeDATA, RecordThatStartsAtOnceMayCountItself) {
  CarteScript b;
  b.Ouvre();
  b.dit = {.compte = 1, .octet7 = 1, .octet12 = 0, .reste = 9'999};
  EXPECT_TRUE(b.Ligne());
  EXPECT_EQ(b.cde->TravailIncertain, Faux);
  EXPECT_EQ(b.cde->NbBlocsTraites, 1);
  EXPECT_EQ(b.cde->PasX, 0);
}

// --- end of the job ---------------------------------------------------------------------------------------------

TEST(CommandeDATAend, SendsTheEndRecordInModeZero) {
  CarteScript b;
  b.Ouvre();
  b.cde->Tampon.fill(77);
  EXPECT_TRUE(b.cde->CommandeDATAend());
  const auto& e = b.s.envois[0];
  EXPECT_EQ(e.mode, 0);
  EXPECT_EQ(e.octets[1], 68);
  EXPECT_EQ(e.octets[2], 128);
  for (std::size_t i = 3; i <= 32; ++i) EXPECT_EQ(e.octets[i], 0) << i;
  EXPECT_EQ(e.octets[33], 77);
}

TEST(CommandeDATAend, JobOfFewerThanSevenRecordsStartsAsWell) {
  CarteScript b;
  b.Ouvre();
  b.Ligne();
  EXPECT_TRUE(b.cde->CommandeDATAend());
  EXPECT_EQ(b.Lettres(), "DDB128 ");
}

TEST(CommandeDATAend, LongerJobIsUnderWayAlready) {
  CarteScript b;
  b.Ouvre();
  for (int i = 0; i < 7; ++i) b.Ligne();
  b.s.envois.clear();
  EXPECT_TRUE(b.cde->CommandeDATAend());
  EXPECT_EQ(b.Lettres(), "D");
}

TEST(CommandeDATAend, RefusedEndTellsNobodyToGo) {
  CarteScript b;
  b.Ouvre();
  b.dit = {.pris = false, .octet7 = 1, .octet12 = 0};
  EXPECT_FALSE(b.cde->CommandeDATAend());
  EXPECT_EQ(b.Lettres(), "D");
  EXPECT_EQ(b.cde->EnCours, Vrai);
}

// --- stored jobs and the log ------------------------------------------------------------------------------------

TEST(CommandeDATA, StoredRecordsHave25And31Bytes) {
  CarteScript b;
  b.Ouvre();
  for (const std::uint8_t mode : {std::uint8_t{1}, std::uint8_t{2}}) {
    ModeEnvoiTable = mode;
    ListeFlash.assign(1, 0);
    EXPECT_TRUE(b.Ligne());
    EXPECT_EQ(ListeFlash.size(), 1U + 25);
    float v = 20, t = 0;
    EXPECT_TRUE(b.cde->CommandeDATA(20'000, 0, 0, v, t, false));
    EXPECT_EQ(ListeFlash.size(), 1U + 25 + 31);
    EXPECT_EQ(ListeFlash[0], 7);
    EXPECT_EQ(ListeFlash[1] | ListeFlash[2] << 8, 10'000);
    EXPECT_EQ(ListeFlash[25], 7 + 32);
    EXPECT_EQ(ListeFlash[25 + 25], 126) << "the level of the ramp";
  }
  EXPECT_TRUE(b.s.envois.empty());
  EXPECT_EQ(NbBlocsTotal, 0);
  EXPECT_EQ(b.cde->TempsBuffer, 0);
}

TEST(CommandeDATA, StoredRowTooShortToClimbKeepsItsValues) {
  CarteScript b;
  ModeEnvoiTable = 1;
  ListeFlash.assign(1, 0);
  float v = 20, t = 0;
  b.cde->CommandeDATA(1, 0, 0, v, t, false);
  ASSERT_EQ(ListeFlash.size(), 32U);
  EXPECT_EQ(ListeFlash[1], 5);
  EXPECT_EQ(ListeFlash[30], 255) << "the tick at which the way down begins is negative";
}

TEST(CommandeDATA, InDebugModeARecordGoesToTheLogAlone) {
  CarteScript b;
  b.Ouvre();
  const auto avant = std::filesystem::current_path();
  std::filesystem::current_path(essai::Dossier());
  Regl.DebugZENIK = true;
  std::string texte = "00 44 07 10 27 00 00 D0 07 ";
  for (std::size_t i = 9; i < 37; ++i) texte += "00 ";
  b.cde->Tampon.fill(0);
  essai::AttendTexte(texte);
  EXPECT_TRUE(b.Ligne());
  EXPECT_EQ(essai::LitFichierEssai("debug.txt"), texte + "\n");
  EXPECT_TRUE(b.s.envois.empty());
  EXPECT_EQ(NbBlocsTotal, 0);
  std::filesystem::current_path(avant);
}

// --- tables of moves without a plan -----------------------------------------------------------------------------

TEST(CommandeDATA, MovesWithoutAPlanGetATableOfTheirOwn) {
  CarteScript b;
  b.cde->FixePosition(5, 0, 0);
  b.Ouvre();
  b.Ligne(1000, 0, 0);
  b.Ligne(0, -50, 7);
  ASSERT_EQ(NbDeplacements, 2);
  ASSERT_EQ(TableDecoupe.size(), 3U);
  EXPECT_EQ(TableDecoupe[1].dX, 1000);
  EXPECT_EQ(TableDecoupe[1].Ticks, 10'000);
  EXPECT_FLOAT_EQ(TableDecoupe[1].X, 15);
  EXPECT_FLOAT_EQ(TableDecoupe[2].X, 15);
  EXPECT_FLOAT_EQ(TableDecoupe[2].Y, -0.5F);
  EXPECT_FLOAT_EQ(TableDecoupe[2].Z, 0.07F);
  b.Ouvre();
  EXPECT_EQ(NbDeplacements, 2) << "what was planned stays until something else moves";
  b.Ligne(30, 0, 0);
  EXPECT_EQ(NbDeplacements, 1);
}

TEST(CommandeDATA, InARunTheTableIsTheCallersAndGetsItsTicks) {
  CarteScript b;
  TableDecoupe.resize(3);
  NbDeplacements = 2;
  TableDecoupe[1].dX = TableDecoupe[2].dX = 1000;
  RunActif = true;
  b.Ouvre();
  b.Ligne();
  EXPECT_EQ(NbDeplacements, 2);
  EXPECT_EQ(TableDecoupe[1].Ticks, 10'000);
  EXPECT_EQ(TableDecoupe[2].Ticks, 0);
}

TEST(CommandeDATA, TakesTheMultiplierThatWritingATableHasPutInForce) {
  CarteScript b;
  essai::PoseTable("Combo_SAV_11=5\r\n");
  b.cde->TableEcrire("Essai", 0);
  float v = 10, t = 0;
  b.cde->CommandeDATA(1000, 0, 0, v, t, true);
  EXPECT_EQ(b.cde->NbTicks, 60'000);
}

TEST(Calc_FDEC, IsTheLevelOfTheFastestAxis) {
  CarteScript b;
  EXPECT_EQ(b.cde->Calc_FDEC(), 49);  // five times the start speed
  essai::PoseTable("TB_SAV_12=10\r\nTB_SAV_15=50\r\nTB_SAV_13=5\r\nTB_SAV_16=50\r\nCombo_SAV_11=0\r\n");
  b.cde->ChargeParametres();
  EXPECT_EQ(b.cde->Calc_FDEC(), 23);
  EXPECT_TRUE(b.s.envois.empty());
}

}  // namespace
