// The reader of replies: members, guards, keypad, position.
#include "tests/unit/controller/CarteScript.h"

namespace {

using namespace ovelin;
using essai::CarteScript;

// A job of three records of 1,000 steps and 10,000 ticks: X, Y, and X back.
void OuvreTrois(CarteScript& b) {
  b.Ouvre();
  b.Ligne(1000, 0, 0);
  b.Ligne(0, 1000, 0);
  b.Ligne(-1000, 0, 0);
  b.s.envois.clear();
}

TEST(DemandeInformation, SendsTheLetterAndZero) {
  CarteScript b;
  b.cde->Tampon.fill(9);
  b.Demande();
  ASSERT_EQ(b.s.envois.size(), 1U);
  EXPECT_EQ(b.s.envois[0].octets[1], 'I');
  EXPECT_EQ(b.s.envois[0].octets[2], 0);
  EXPECT_EQ(b.s.envois[0].octets[3], 9);
  EXPECT_EQ(b.s.envois[0].mode, 0);
}

TEST(DemandeInformation, EachBitHasItsMember) {
  const std::vector<std::pair<std::uint8_t, Drapeau ClsCdeZENIK::*>> sept{
      {1, &ClsCdeZENIK::EnCours},       {2, &ClsCdeZENIK::Arret},     {8, &ClsCdeZENIK::EtatBit3},
      {16, &ClsCdeZENIK::BrocheActive}, {32, &ClsCdeZENIK::EtatBit5}, {64, &ClsCdeZENIK::EtatBit6}};
  const std::vector<std::pair<std::uint8_t, Drapeau ClsCdeZENIK::*>> huit{{1, &ClsCdeZENIK::EtatB8Bit0},
                                                                          {2, &ClsCdeZENIK::FinDeCourse},
                                                                          {4, &ClsCdeZENIK::Origine},
                                                                          {32, &ClsCdeZENIK::EtatB8Bit5}};
  const std::vector<std::pair<std::uint8_t, Drapeau ClsCdeZENIK::*>> onze{
      {1, &ClsCdeZENIK::ToucheHautZ}, {2, &ClsCdeZENIK::ToucheBasZ},  {16, &ClsCdeZENIK::ToucheGauche},
      {32, &ClsCdeZENIK::ToucheBas},  {64, &ClsCdeZENIK::ToucheHaut}, {128, &ClsCdeZENIK::ToucheDroite}};
  CarteScript b;
  const auto somme = [&] {
    int n = 0;
    for (const auto* liste : {&sept, &huit, &onze}) {
      for (const auto& [bit, membre] : *liste) n += (*b.cde).*membre != Faux ? 1 : 0;
    }
    return n;
  };
  const auto essaie = [&](const auto& liste, std::uint8_t essai::Dit::*octet) {
    for (const auto& [bit, membre] : liste) {
      b.dit = {};
      b.dit.*octet = bit;
      b.Demande();
      EXPECT_EQ((*b.cde).*membre, Vrai) << int{bit};
      EXPECT_EQ(somme(), 1) << int{bit};
    }
  };
  essaie(sept, &essai::Dit::octet7);
  essaie(huit, &essai::Dit::octet8);
  essaie(onze, &essai::Dit::touches);
}

TEST(DemandeInformation, AnalogInputsAreScaledToPerCent) {
  CarteScript b;
  b.dit.analog1 = 255;
  b.dit.analog2 = 128;
  b.Demande();
  EXPECT_EQ(b.cde->Analog1, 100);
  EXPECT_EQ(b.cde->Analog2, 50);  // 50.2
  b.dit.analog1 = 14;
  b.Demande();
  EXPECT_EQ(b.cde->Analog1, 5);  // 5.49
}

TEST(DemandeInformation, BytesTwoAndThreeAreKept) {
  CarteScript b;
  b.s.reponse = [](zenikcom::TamponOctets& t) {
    t.fill(0);
    t[2] = 4;
    t[3] = 77;
  };
  b.Demande();
  EXPECT_EQ(b.cde->EtatOctet2, Vrai);
  EXPECT_EQ(b.cde->EtatOctet3, 77);
}

TEST(DemandeInformation, FailedReplyIsLeftAlone) {
  CarteScript b;
  b.dit.octet8 = 6;
  b.Demande();
  b.s.resultat = zenikcom::LectureEchouee;
  b.s.reponse = [](zenikcom::TamponOctets& t) { t.fill(0); };
  b.Demande();
  EXPECT_EQ(b.cde->FinDeCourse, Vrai);
}

TEST(DemandeInformation, ReplyThatCannotBeTrueIsLeftAlone) {
  CarteScript b;
  OuvreTrois(b);
  b.dit = {.compte = 2, .octet7 = 1, .octet12 = 0, .reste = 4'999};
  b.Demande();
  EXPECT_EQ(b.cde->PasY, 500);
  for (const auto& [compte, reste] : {std::pair{1, 0}, {4, 0}, {3, 10'000}, {3, -2}, {0, 0}}) {
    b.dit = {.compte = compte, .octet8 = 2, .octet12 = 0, .reste = reste};
    b.Demande();
    EXPECT_EQ(b.cde->NbBlocsTraites, 2) << compte;
    EXPECT_EQ(b.cde->FinDeCourse, Faux) << compte;
    EXPECT_EQ(b.cde->PasY, 500) << compte;
    EXPECT_EQ(b.cde->EnCours, Vrai) << compte;
  }
}

TEST(DemandeInformation, JobOfSomebodyElseCountsWhatItWants) {
  CarteScript b;
  b.dit = {.compte = 5'000, .octet7 = 1, .octet12 = 0, .reste = 70};
  b.Demande();
  EXPECT_EQ(b.cde->EnCours, Vrai);
  EXPECT_EQ(b.cde->NbBlocsTraites, 5'000);
  EXPECT_EQ(b.cde->PasX, 0) << "and its records are not known";
}

TEST(DemandeInformation, CountGoesOnAboveTwentyFourBits) {
  CarteScript b;
  TableDecoupe.resize(1);
  NbDeplacements = 40'000'000;  // a stored job of so many rows; the table itself is not needed
  b.cde->EnvoiFLASH(0, 0);
  for (const std::int32_t compte : {16'777'000, 33'554'000, 39'999'999}) {
    b.dit = {.compte = compte, .octet7 = 1, .octet12 = 0, .reste = 1};
    b.Demande();
    EXPECT_EQ(b.cde->NbBlocsTraites, compte);
  }
}

TEST(IsStepProcessed, IsTheMotionBitAndTakesNothingElse) {
  CarteScript b;
  b.dit = {.octet7 = 1, .octet8 = 2};
  EXPECT_TRUE(b.cde->IsStepProcessed());
  EXPECT_EQ(b.cde->FinDeCourse, Faux);
  EXPECT_EQ(b.Lettres(), "I");
  b.dit.octet7 = 254;
  EXPECT_FALSE(b.cde->IsStepProcessed());
}

TEST(Touche, IsAnyKeyOfTheKeypad) {
  CarteScript b;
  EXPECT_FALSE(b.cde->Touche());
  b.dit.touches = 64;
  EXPECT_TRUE(b.cde->Touche());
  b.s.resultat = zenikcom::Absente;
  EXPECT_FALSE(b.cde->Touche());
}

// --- keypad and stop --------------------------------------------------------------------------------------------

TEST(LectureEtat, LettingAKeyGoAsksForAStop) {
  CarteScript b;
  b.dit.touches = 16;
  b.Demande();
  b.Demande();
  EXPECT_EQ(StopDemande, Faux);
  b.dit.touches = 32;
  b.Demande();
  EXPECT_EQ(StopDemande, Vrai);
}

TEST(LectureEtat, WithoutTheKeypadNoKeyIsDownAndNoneIsLetGo) {
  CarteScript b;
  ClavierZENIK = 0;
  for (const int touches : {255, 0}) {
    b.dit.touches = static_cast<std::uint8_t>(touches);
    b.Demande();
    EXPECT_EQ(b.cde->ToucheHautZ, Faux);
    EXPECT_EQ(b.cde->ToucheDroite, Faux);
  }
  EXPECT_EQ(StopDemande, Faux);
}

void Court(CarteScript& b) {
  OuvreTrois(b);
  b.cde->GoBuffer();
  b.dit = {.compte = 1, .octet7 = 1, .octet12 = 0, .reste = 9'000};
  b.Demande();
}

TEST(LectureEtat, StopOnTheBoardStopsTheJobThatRuns) {
  CarteScript b;
  Court(b);
  EXPECT_EQ(StopDemande, Faux);
  b.dit = {.compte = 1, .octet7 = 2, .octet12 = 66, .reste = 8'000};
  b.Demande();
  EXPECT_EQ(StopDemande, Vrai);
  EXPECT_EQ(b.cde->Arret, Vrai);
}

TEST(LectureEtat, StopOfTheJobBeforeStopsNoNewOne) {
  CarteScript b;
  Court(b);
  b.dit = {.compte = 1, .octet7 = 2, .octet12 = 66, .reste = 8'000};
  b.Demande();
  StopDemande = Faux;  // the press of start; the board's buffer is not cleared yet
  b.Demande();
  EXPECT_EQ(StopDemande, Faux);
}

TEST(LectureEtat, StopIsNoNewsWithoutAJobOrWithoutTheKeypad) {
  CarteScript b;
  b.dit = {.octet7 = 2, .octet12 = 66};
  b.Demande();
  EXPECT_EQ(StopDemande, Faux);
  Court(b);
  ClavierZENIK = 0;
  b.dit = {.compte = 1, .octet7 = 2, .octet12 = 66, .reste = 8'000};
  b.Demande();
  EXPECT_EQ(StopDemande, Faux);
}

// --- position ---------------------------------------------------------------------------------------------------

TEST(LectureEtat, PositionIsTheShareOfTheRunningRecord) {
  CarteScript b;
  b.cde->FixePosition(1, 2, 3);
  OuvreTrois(b);
  b.dit = {.compte = 1, .octet7 = 1, .octet12 = 0, .reste = 7'499};  // a quarter of the first
  b.Demande();
  EXPECT_EQ(b.cde->PasX, 100 + 250);
  EXPECT_EQ(b.cde->PasY, 200);
  EXPECT_DOUBLE_EQ(b.cde->PosX, 3.5);
  b.dit.compte = 3;
  b.Demande();
  EXPECT_EQ(b.cde->PasX, 100 + 1000 - 250);
  EXPECT_EQ(b.cde->PasY, 200 + 1000);
  EXPECT_EQ(b.cde->PasZ, 300);
}

TEST(LectureEtat, NothingIsTrackedAtRest) {
  CarteScript b;
  OuvreTrois(b);
  for (const int octet : {2, 162}) {
    b.dit = {.compte = 2, .octet12 = static_cast<std::uint8_t>(octet), .reste = 0};
    b.Demande();
    EXPECT_EQ(b.cde->PasX, 0) << octet;
    EXPECT_EQ(IndexSuivi, 0) << octet;
  }
}

TEST(LectureEtat, RowsBeyondTheWidthOfAPositionEndAtIt) {
  CarteScript b;
  b.cde->FixePosition(20e6, -20e6, 0);  // 2,000,000,000 steps
  b.Ouvre();
  b.Ligne(1'000'000'000, -1'000'000'000);
  b.Ligne(1, 1);
  b.dit = {.compte = 2, .octet7 = 1, .octet12 = 0, .reste = 0};
  b.Demande();
  EXPECT_EQ(b.cde->PasDebutX, 2'147'483'647);
  EXPECT_EQ(b.cde->PasDebutY, -2'147'483'647 - 1);
}

TEST(LectureEtat, EndOfTheJobIsTakenOnce) {
  CarteScript b;
  OuvreTrois(b);
  b.dit = {.compte = 3, .octet12 = 128, .reste = -1};
  for (int i = 0; i < 3; ++i) {
    b.Demande();
    EXPECT_EQ(b.cde->PasX, 0);
    EXPECT_EQ(b.cde->PasY, 1000);
    EXPECT_EQ(b.cde->PasDebutX, 0);
    EXPECT_EQ(b.cde->PasDebutY, 1000);
  }
}

TEST(LectureEtat, EndCatchesUpToTheCountAndNotToTheTable) {
  CarteScript b;
  OuvreTrois(b);
  b.dit = {.compte = 2, .octet12 = 128, .reste = -1};
  b.Demande();
  EXPECT_EQ(b.cde->PasX, 1000);
  EXPECT_EQ(b.cde->PasY, 1000);
}

TEST(LectureEtat, JobOfWhichNothingRanLeavesThePosition) {
  CarteScript b;
  OuvreTrois(b);
  b.dit = {.compte = 0, .octet12 = 128, .reste = 0};
  b.Demande();
  EXPECT_EQ(b.cde->PasX, 0);
  EXPECT_EQ(b.cde->PasY, 0);
}

TEST(LectureEtat, RecordOfUnknownTicksHasDoneNothing) {
  CarteScript b;
  OuvreTrois(b);
  TableDecoupe[2].Ticks = 0;
  b.dit = {.compte = 2, .octet7 = 1, .octet12 = 0, .reste = 5};
  b.Demande();
  EXPECT_EQ(b.cde->PasX, 1000);
  EXPECT_EQ(b.cde->PasY, 0);
}

TEST(LectureEtat, AfterAStopThePositionStaysWhateverIsPlanned) {
  CarteScript b;
  Court(b);
  b.dit = {.compte = 1, .octet7 = 2, .octet12 = 66, .reste = 4'999};
  b.Demande();
  EXPECT_EQ(b.cde->PasX, 500);
  TableDecoupe[1] = Deplacement{};
  b.Demande();
  EXPECT_EQ(b.cde->PasX, 500);
  b.Ouvre();
  EXPECT_EQ(b.cde->PasDebutX, 500);
}

TEST(LectureEtat, PositionGivenByHandStaysUntilAStepIsMade) {
  CarteScript b;
  b.cde->FixePosition(1.2345, 0, 0);
  b.Ouvre();
  b.Demande();
  EXPECT_EQ(b.cde->PosX, 1.2345);
}

TEST(LectureEtat, PlanForAFileLeavesTheStepsOfARunningJob) {
  CarteScript b;
  OuvreTrois(b);
  b.dit = {.compte = 1, .octet7 = 1, .octet12 = 0, .reste = 4'999};
  b.Demande();
  b.cde->FixeResolutions(1, 1, 1);
  b.dit.compte = 2;
  b.Demande();
  EXPECT_EQ(b.cde->PasX, 1000);
  EXPECT_EQ(b.cde->PasY, 500);
  EXPECT_DOUBLE_EQ(b.cde->PosX, 10);
}

// However often the board is asked, and whatever the last place was: where the machine stands is shown.
TEST(LectureEtat, PlaceIsShownThirtyTimesASecondAndAlwaysAtRest) {
  CarteScript b;
  OuvreTrois(b);
  double heure = Svc.Horloge() + 1;  // s
  Svc.Horloge = [&heure] { return heure; };
  std::vector<double> x;
  Svc.MontrePosition = [&](double px, double, double) { x.push_back(px); };
  b.dit = {.compte = 1, .octet7 = 1, .octet12 = 0, .reste = 4'999};
  b.Demande();
  heure += 0.02;
  b.dit.reste = 3'999;
  b.Demande();
  EXPECT_EQ(x, std::vector<double>{5}) << "a fiftieth of a second is too soon";
  heure += 0.02;
  b.dit.reste = 2'499;
  b.Demande();
  EXPECT_EQ(x, (std::vector<double>{5, 7.5}));
  b.dit.octet7 = 0;
  b.dit.reste = 1'999;
  b.Demande();
  EXPECT_EQ(x, (std::vector<double>{5, 7.5, 8})) << "at rest at once";
}

}  // namespace
