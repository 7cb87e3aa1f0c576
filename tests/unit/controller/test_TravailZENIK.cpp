// The job on the board: begun, told to go, stopped; and how long something is tried.
#include <cmath>

#include "tests/unit/controller/CarteScript.h"

namespace {

using namespace ovelin;
using essai::CarteScript;

TEST(EnvoiUSB, ClearsTheBufferAndOpensAStream) {
  CarteScript b;
  EXPECT_TRUE(b.cde->EnvoiUSB());
  EXPECT_EQ(b.Lettres(), "B0 B1 ");
  EXPECT_EQ(b.s.envois[0].mode, 0);
}

TEST(EnvoiFLASH, NamesBlockAndSizeHighByteFirst) {
  CarteScript b;
  EXPECT_TRUE(b.cde->EnvoiFLASH(3, 0x1234));
  EXPECT_EQ(b.Lettres(), "B0 B2 ");
  EXPECT_EQ(b.s.envois[1].octets[3], 3);
  EXPECT_EQ(b.s.envois[1].octets[4], 0x12);
  EXPECT_EQ(b.s.envois[1].octets[5], 0x34);
}

TEST(EnvoiUSB, CountersBeginAnewWhereTheMachineStands) {
  for (const bool flash : {false, true}) {
    CarteScript b;
    b.Ouvre();
    b.Ligne();
    b.dit = {.compte = 1, .octet7 = 1, .octet12 = 0, .reste = 4'999};
    b.Demande();
    EXPECT_EQ(b.cde->PasX, 500);
    EXPECT_EQ(b.cde->PasDebutX, 0);
    EXPECT_TRUE(flash ? b.cde->EnvoiFLASH(0, 0) : b.cde->EnvoiUSB());
    EXPECT_EQ(b.cde->PasDebutX, 500);
    EXPECT_EQ(NbBlocsTotal, 0);
    EXPECT_EQ(IndexSuivi, 0);
    EXPECT_EQ(b.cde->TempsBuffer, 0);
    EXPECT_EQ(b.cde->NbBlocsTraites, 0);
  }
}

TEST(EnvoiUSB, ComputesTheResolutionsAnew) {
  CarteScript b;
  b.cde->FixePosition(12.34, 0, 0);
  b.cde->FixeResolutions(1, 1, 1);
  b.cde->EnvoiUSB();
  EXPECT_DOUBLE_EQ(b.cde->MmParPasX(), 0.01);
  EXPECT_EQ(b.cde->PasX, 1234);
  EXPECT_EQ(b.cde->PasDebutX, 1234);
  EXPECT_EQ(b.cde->PosX, 12.34);
}

TEST(EnvoiUSB, ThatFailedMeansThatNoJobIsOpen) {
  for (const int rang : {1, 2}) {
    for (const bool flash : {false, true}) {
      CarteScript b;
      int n = 0;
      b.s.reponse = [&](zenikcom::TamponOctets&) {
        b.s.resultat = ++n == rang ? zenikcom::EcritureEchouee : zenikcom::Reussi;
      };
      EXPECT_FALSE(flash ? b.cde->EnvoiFLASH(0, 0) : b.cde->EnvoiUSB());
      EXPECT_EQ(n, rang) << "nothing is sent behind it";
      EXPECT_EQ(b.cde->TravailIncertain, Vrai);
      b.s.envois.clear();
      EXPECT_FALSE(b.Ligne());
      EXPECT_TRUE(b.s.envois.empty());
    }
  }
}

TEST(EnvoiTampon, IsSentOnceMoreWhereTheBoardDidNotTakeIt) {
  CarteScript b;
  int n = 0;
  b.s.reponse = [&](zenikcom::TamponOctets& t) {
    if (++n == 2) t[2] = 0;
  };
  EXPECT_TRUE(b.cde->EnvoiUSB());
  EXPECT_EQ(b.Lettres(), "B0 B1 B1 ");
}

TEST(ResetBuffer, ClosesTheJob) {
  CarteScript b;
  b.Ouvre();
  b.Ligne();
  EXPECT_TRUE(b.cde->ResetBuffer());
  EXPECT_EQ(b.Lettres(), "DB0 ");
  b.dit = {.compte = 900, .octet8 = 4, .octet12 = 0};
  b.Demande();
  EXPECT_EQ(b.cde->Origine, Vrai) << "what the board counts now is nobody's";
  b.s.resultat = zenikcom::LectureEchouee;
  EXPECT_FALSE(b.cde->ResetBuffer());
}

TEST(GoBuffer, IsSentOnceWhateverComesBack) {
  CarteScript b;
  b.Ouvre();
  EXPECT_TRUE(b.cde->GoBuffer());
  EXPECT_EQ(b.Lettres(), "B128 ");
  b.s.resultat = zenikcom::LectureEchouee;
  EXPECT_FALSE(b.cde->GoBuffer());
  EXPECT_EQ(b.Lettres(), "B128 B128 ");
}

// --- stop -------------------------------------------------------------------------------------------------------

// Answers "S" with these: byte 2 of each reply in turn; record 2, 4,999 ticks left. "I" says the same, stopped.
void RepondStop(CarteScript& b, std::vector<int> octets2) {
  b.dit = {.compte = 2, .octet7 = 2, .octet12 = 66, .reste = 4'999};
  const auto repond = b.s.reponse;
  b.s.reponse = [octets2, repond, n = std::size_t{0}](zenikcom::TamponOctets& t) mutable {
    repond(t);
    if (t[1] != 'S') return;
    t[2] = static_cast<std::uint8_t>(octets2[std::min(n++, octets2.size() - 1)]);
    t[3] = 2;
    t[4] = t[5] = 0;
    t[6] = 4'999 & 255;
    t[7] = 4'999 >> 8;
    t[8] = t[9] = 0;
  };
}

void OuvreDeux(CarteScript& b) {
  b.Ouvre();
  b.Ligne();
  b.Ligne(0, 1000, 0);
  b.cde->GoBuffer();
  b.s.envois.clear();
}

TEST(GoBuffer, BehindItTheBoardIsHeldToMoveUntilItSaysOtherwise) {
  CarteScript b;
  b.cde->EnvoiFLASH(0, 0);
  b.cde->GoBuffer();
  b.s.resultat = zenikcom::LectureEchouee;
  b.cde->DemandeInformation();
  EXPECT_EQ(b.cde->EnCours, Vrai);
  b.s.resultat = zenikcom::Reussi;
  b.dit = {.octet7 = 0, .octet12 = 128, .reste = -1};
  b.cde->DemandeInformation();
  EXPECT_EQ(b.cde->EnCours, Faux);
}

TEST(RepeteGo, IsSentUntilItIsAnswered) {
  CarteScript b;
  b.Ouvre();
  int echecs = 3;
  b.s.reponse = [&](zenikcom::TamponOctets&) {
    b.s.resultat = echecs-- > 0 ? zenikcom::LectureEchouee : zenikcom::Reussi;
  };
  EXPECT_TRUE(b.cde->RepeteGo());
  EXPECT_EQ(b.Lettres(), "B128 B128 B128 B128 ");
  EXPECT_EQ(b.cde->TravailIncertain, Faux);
}

TEST(RepeteGo, WithoutALinkNobodyKnowsWhetherTheBoardRuns) {
  CarteScript b;
  b.Ouvre();
  b.s.resultat = zenikcom::Absente;
  b.s.connectee = 0;
  const double debut = b.heure;
  EXPECT_FALSE(b.cde->RepeteGo());
  EXPECT_EQ(b.cde->TravailIncertain, Vrai);
  EXPECT_LT(b.heure - debut, 2.1);
}

TEST(StopResume, ReadsOtherBytesThanTheStatus) {
  CarteScript b;
  OuvreDeux(b);
  RepondStop(b, {2});
  b.cde->StopResume(0, 0);
  EXPECT_EQ(b.Lettres(), "SI");
  EXPECT_EQ(b.s.envois[0].octets[2], 0);
  EXPECT_EQ(b.s.envois[0].octets[3], 0);
  EXPECT_EQ(b.cde->NbBlocsTraites, 2);
  EXPECT_EQ(b.cde->TicksRestants, 4'999);
  EXPECT_EQ(b.cde->EnCours, Faux);
  EXPECT_EQ(StopDemande, Vrai);
  EXPECT_EQ(b.cde->PasX, 1000);
  EXPECT_EQ(b.cde->PasY, 500);
}

TEST(StopResume, JobThatHadEndedAsksForNoStop) {
  CarteScript b;
  OuvreDeux(b);
  RepondStop(b, {130});
  b.dit = {.compte = 2, .octet12 = 128, .reste = -1};
  b.cde->StopResume(0, 0);
  EXPECT_EQ(StopDemande, Faux);
  EXPECT_EQ(b.cde->EnCours, Faux);
  EXPECT_EQ(b.cde->PasY, 1000);
}

TEST(StopResume, RampedStopAsksUntilTheBoardStands) {
  CarteScript b;
  OuvreDeux(b);
  RepondStop(b, {0, 0, 0, 2});
  b.cde->StopResume(1, 49);
  EXPECT_EQ(b.Lettres(), "SSSSI");
  EXPECT_EQ(b.s.envois[0].octets[2], 1);
  EXPECT_EQ(b.s.envois[0].octets[3], 49);
  for (std::size_t i = 1; i <= 3; ++i) EXPECT_EQ(b.s.envois[i].octets[2], 3);
  EXPECT_EQ(b.evenements, 3);
  EXPECT_EQ(b.cde->EnCours, Faux);
  EXPECT_EQ(StopDemande, Vrai);
}

TEST(StopResume, ABoardThatNeverStandsIsWaitedForUntilTheProgramCloses) {
  CarteScript b;
  OuvreDeux(b);
  RepondStop(b, {0});
  Svc.LaisseEvenements = [&b](Evenements) { FinProgramme = ++b.evenements == 50; };
  b.cde->StopResume(1, 49);
  EXPECT_EQ(b.evenements, 50);
}

TEST(StopResume, IsTriedUntilItSucceeds) {
  CarteScript b;
  OuvreDeux(b);
  RepondStop(b, {2});
  const auto repond = b.s.reponse;
  int echecs = 4;
  b.s.reponse = [&](zenikcom::TamponOctets& t) {
    b.s.resultat = t[1] == 'S' && echecs-- > 0 ? zenikcom::LectureEchouee : zenikcom::Reussi;
    if (b.s.resultat == zenikcom::Reussi) repond(t);
  };
  b.cde->StopResume(0, 0);
  EXPECT_EQ(b.Lettres(), "SSSSSI");
}

TEST(StopResume, BoardThatDidNotTakeItIsToldAgain) {
  CarteScript b;
  OuvreDeux(b);
  RepondStop(b, {2});
  const auto repond = b.s.reponse;
  int n = 0;
  b.s.reponse = [&](zenikcom::TamponOctets& t) {
    if (t[1] == 'S' && n++ == 0) {
      t[2] = 0;  // answered, not taken: the rest comes back as it went
    } else {
      repond(t);
    }
  };
  b.cde->StopResume(1, 49);
  EXPECT_EQ(b.Lettres(), "SSI");
  EXPECT_EQ(b.s.envois[1].octets[2], 1);
  EXPECT_EQ(b.cde->EnCours, Faux);
}

TEST(StopResume, WithoutARecordNothingIsAsked) {
  CarteScript b;
  b.s.reponse = [](zenikcom::TamponOctets& t) {
    t.fill(0);
    t[2] = 2;
  };
  b.cde->StopResume(0, 0);
  EXPECT_EQ(b.Lettres(), "S");
}

TEST(StopResume, EventsBetweenMaySendAnotherCommand) {
  CarteScript b;
  OuvreDeux(b);
  RepondStop(b, {0, 2});
  Svc.LaisseEvenements = [&](Evenements mode) {
    EXPECT_EQ(mode, Evenements::Tous);
    b.cde->MotorOnOff(true);
  };
  b.cde->StopResume(1, 49);
  EXPECT_EQ(b.Lettres(), "SMSI");
  EXPECT_EQ(b.s.envois[2].octets[2], 3);
}

// --- links that are gone ----------------------------------------------------------------------------------------

TEST(EnvoiSansFin, EndsTwoSecondsAfterTheLinkIsGone) {
  CarteScript b;
  OuvreDeux(b);
  b.s.resultat = zenikcom::Absente;
  b.s.connectee = 0;
  const double debut = b.heure;
  b.cde->StopResume(1, 0);
  EXPECT_NEAR(b.heure - debut, 2, 0.1);
  EXPECT_EQ(b.cde->EnCours, Faux);
  EXPECT_EQ(b.cde->TravailIncertain, Vrai);
  std::string texte = "a";
  b.cde->DisplaySend(texte, 0, 0);
  EXPECT_TRUE(b.cde->CommandePWM(1, 255));
  EXPECT_NEAR(b.heure - debut, 2, 0.1) << "who comes later waits no more";
}

TEST(EnvoiSansFin, LinkThatIsThereIsTriedOn) {
  CarteScript b;
  double debut = b.heure;
  b.s.resultat = zenikcom::LectureEchouee;
  Svc.LaisseEvenements = [&](Evenements) {
    if (b.heure - debut > 30) b.s.resultat = zenikcom::Reussi;
  };
  b.cde->CommandePWM(1, 255);
  EXPECT_GT(b.heure - debut, 30);
}

TEST(EnvoiSansFin, LinkThatComesBackInTimeIsWaitedForAnew) {
  CarteScript b;
  const double debut = b.heure;
  b.s.resultat = zenikcom::Absente;
  Svc.LaisseEvenements = [&](Evenements) {
    // There for a moment after each second and a half.
    b.s.connectee = std::fmod(b.heure - debut, 1.5) > 1.4 ? 1 : 0;
    if (b.heure - debut > 10) b.s.resultat = zenikcom::Reussi;
  };
  b.cde->CommandePWM(1, 255);
  EXPECT_GT(b.heure - debut, 10);
}

TEST(EnvoiSansFin, EndsWhenTheProgramCloses) {
  CarteScript b;
  b.s.resultat = zenikcom::LectureEchouee;
  Svc.LaisseEvenements = [&](Evenements) { FinProgramme = ++b.evenements == 3; };
  b.cde->CommandePWM(1, 255);
  EXPECT_EQ(b.s.envois.size(), 4U);
}

TEST(SuitLiaison, WaitForTheEndOfAJobEndsWithTheLink) {
  CarteScript b;
  OuvreDeux(b);
  b.dit = {.compte = 1, .octet7 = 1, .octet12 = 0, .reste = 9'000};
  b.Demande();
  b.s.resultat = zenikcom::Absente;
  b.s.connectee = 0;
  const double debut = b.heure;
  while (b.cde->EnCours != Faux && b.heure - debut < 60) {
    b.heure += 0.1;
    b.Demande();
  }
  EXPECT_NEAR(b.heure - debut, 2.1, 0.15);
  EXPECT_EQ(StopDemande, Vrai);
}

TEST(SuitLiaison, GoThatNeverArrivesMakesTheJobUncertain) {
  CarteScript b;
  b.Ouvre();
  for (int i = 0; i < 6; ++i) b.Ligne();
  const auto repond = b.s.reponse;
  b.s.reponse = [&](zenikcom::TamponOctets& t) {
    repond(t);
    if (t[1] != 'B') return;
    b.s.resultat = zenikcom::Absente;
    b.s.connectee = 0;
  };
  b.Ligne();
  EXPECT_EQ(b.cde->TravailIncertain, Vrai);
}

}  // namespace
