// Stopping, at once and by the ramp: at rest, in a record, between records, behind the end.
#include "tests/unit/closed/zenikcom/Banc.h"

namespace {

using namespace essai;
using zenikcom::Axes3;

TEST(Stop, AtRestAnswersTwoAndStaysStopped) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 4});
  const Reponse r = b.Envoie('S', {0, 0});
  EXPECT_EQ(r.t[2], 2);
  EXPECT_EQ(r.NumeroStop(), 0);
  EXPECT_EQ(r.ResteStop(), 0);
  EXPECT_EQ(b.Etat().Etat(), 66);
  EXPECT_TRUE(b.Etat().Arret());
  b.Part();
  b.heure = Seconde;
  EXPECT_EQ(b.carte->Lieu(), Axes3{}) << "what is buffered never runs";
  EXPECT_FALSE(b.Etat().EnCours());
  b.Envoie('B', {0});
  EXPECT_EQ(b.Etat().Etat(), 2);
  EXPECT_FALSE(b.Etat().Arret());
}

TEST(Stop, AtOnceHoldsAtTheTickThatIsDone) {
  Banc b;
  b.Ouvre();
  for (int i = 0; i < 3; ++i) b.Envoie(Move{.ticks = 100, .x = 100, .y = -50});
  b.Part();
  b.heure = 142 * Tick + 7;
  const Reponse r = b.Envoie('S', {0, 0});
  EXPECT_EQ(r.t[2], 2);
  EXPECT_EQ(r.NumeroStop(), 2);
  EXPECT_EQ(r.ResteStop(), 100 - 1 - 42);
  b.heure += Seconde;
  EXPECT_EQ(b.carte->Lieu(), (Axes3{142, -71, 0}));
  const Reponse etat = b.Etat();
  EXPECT_EQ(etat.Etat(), 66);
  EXPECT_EQ(etat.Numero(), 2);
  EXPECT_EQ(etat.Reste(), 57);
  EXPECT_FALSE(etat.EnCours());
  EXPECT_FALSE(b.Envoie(Move{.ticks = 10, .x = 4}).Pris());
}

TEST(Stop, NeverHoldsOnAnExactHalfOfAStep) {
  Banc b;
  b.Ouvre();
  // X stands on a half at every odd tick, Y at 2 and 6 of 8, Z at 4 of 8: from tick 1 on the first is 8.
  b.Envoie(Move{.ticks = 16, .x = 8, .y = 4, .z = 2});
  b.Part();
  b.heure = Tick;
  const Reponse r = b.Envoie('S', {0, 0});
  EXPECT_EQ(r.ResteStop(), 16 - 1 - 8);
  EXPECT_EQ(b.carte->Lieu(), (Axes3{4, 2, 1}));
}

TEST(Stop, HoldsAtTheEndOfTheRecordWhereEveryTickIsAHalf) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 2, .x = 1});
  b.Envoie(Move{.ticks = 2, .x = 1});
  b.Part();
  b.heure = Tick;
  const Reponse r = b.Envoie('S', {0, 0});
  EXPECT_EQ(r.NumeroStop(), 1);
  EXPECT_EQ(r.ResteStop(), -1);
  EXPECT_EQ(b.carte->Lieu(), (Axes3{1, 0, 0}));
}

TEST(Stop, WhileItWaitsForRecordsTheLastOneIsTold) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 4});
  b.Part();
  b.heure = Seconde;
  const Reponse r = b.Envoie('S', {0, 0});
  EXPECT_EQ(r.t[2], 2);
  EXPECT_EQ(r.NumeroStop(), 1);
  EXPECT_EQ(r.ResteStop(), -1);
  EXPECT_EQ(b.Etat().Etat(), 66);
}

TEST(Stop, BehindTheEndAnswers130) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 4});
  b.Fin();
  b.Part();
  b.heure = Seconde;
  for (const int mode : {0, 1, 3}) {
    const Reponse r = b.Envoie('S', {mode, 0});
    EXPECT_EQ(r.t[2], 130) << mode;
    EXPECT_EQ(r.NumeroStop(), 1);
    EXPECT_EQ(b.Etat().Etat(), 128) << "it has ended and stays so";
  }
}

TEST(Stop, TheQuestionAloneStopsNothing) {
  Banc b;
  EXPECT_EQ(b.Envoie('S', {3}).t[2], 2) << "at rest";
  b.Ouvre();
  b.Envoie(Move{.ticks = 100, .x = 4});
  b.Part();
  EXPECT_EQ(b.Envoie('S', {3}).t[2], 0);
  EXPECT_EQ(b.Etat().Etat(), 0);
  b.heure = 50 * Tick;
  const Reponse r = b.Envoie('S', {3});
  EXPECT_EQ(r.NumeroStop(), 1);
  EXPECT_EQ(r.ResteStop(), 49);
  EXPECT_TRUE(b.Etat().EnCours());
}

// At multiplier 1 the periods of levels 254 and 253 are 602 and 605 counts of 6 MHz; a level lasts 16,384 counts of
// 12 MHz: 13.608 ticks of level 254, 13.540 of 253.
TEST(StopRampe, GoesDownLevelByLevelAndHolds) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 10'000});
  b.Part();
  b.heure = 100 * Tick;
  Reponse r = b.Envoie('S', {1, 252});
  EXPECT_EQ(r.t[2], 0) << "still moving";
  EXPECT_TRUE(b.Etat().EnCours());
  EXPECT_EQ(b.Etat().Etat(), 0);
  EXPECT_FALSE(b.Envoie(Move{.ticks = 10, .x = 4}).Pris());
  // Two levels, 2.7307 ms and 27.148 ticks.
  b.heure = 100 * Tick + 2 * 16'384 * 1000 / 12 - 1;
  EXPECT_EQ(b.Envoie('S', {3}).t[2], 0);
  b.heure += 2;
  r = b.Envoie('S', {3});
  EXPECT_EQ(r.t[2], 2);
  EXPECT_EQ(r.NumeroStop(), 1);
  EXPECT_EQ(r.ResteStop(), 10'000 - 1 - 127);
  EXPECT_EQ(b.carte->Lieu(), (Axes3{127, 0, 0}));
  EXPECT_EQ(b.Etat().Etat(), 66);
}

TEST(StopRampe, RunsSlowerWhileItGoesDown) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 10'000});
  b.Part();
  b.heure = 100 * Tick;
  b.Envoie('S', {1, 0});
  // The first tick of level 254 lasts 602 / 6 us, not 100.
  b.heure += 602 * 1000 / 6;
  EXPECT_EQ(b.carte->Lieu()[0], 100);
  b.heure += 1;
  EXPECT_EQ(b.carte->Lieu()[0], 101);
}

TEST(StopRampe, AtOrBelowTheLevelItHoldsAtOnce) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 10'000});
  b.Part();
  b.heure = 100 * Tick;
  EXPECT_EQ(b.Envoie('S', {1, 255}).t[2], 2);
  EXPECT_EQ(b.carte->Lieu()[0], 100);
}

TEST(StopRampe, TheEndOfTheRecordEndsItToo) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 110, .x = 110});
  b.Envoie(Move{.ticks = 110, .x = 110});
  b.Part();
  b.heure = 100 * Tick;
  b.Envoie('S', {1, 0});
  b.heure += 10 * 602 * 1000 / 6 + 10;
  const Reponse r = b.Envoie('S', {3});
  EXPECT_EQ(r.t[2], 2);
  EXPECT_EQ(r.NumeroStop(), 1) << "the next record never begins";
  EXPECT_EQ(r.ResteStop(), -1);
  EXPECT_EQ(b.carte->Lieu()[0], 110);
}

TEST(StopRampe, NeverHoldsOnAnExactHalfEither) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 5000});
  b.Part();
  b.heure = 100 * Tick;
  b.Envoie('S', {1, 252});  // 127 ticks would be a half
  b.heure += Seconde;
  EXPECT_EQ(b.Envoie('S', {3}).ResteStop(), 10'000 - 1 - 128);
  EXPECT_EQ(b.carte->Lieu()[0], 64);
}

TEST(StopRampe, AnImmediateStopEndsTheBraking) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 10'000});
  b.Part();
  b.heure = 100 * Tick;
  b.Envoie('S', {1, 0});
  b.heure += 150 * Us;
  const Reponse r = b.Envoie('S', {0, 0});
  EXPECT_EQ(r.t[2], 2);
  EXPECT_EQ(b.carte->Lieu()[0], 101);
}

TEST(StopRampe, FromTheMiddleOfAClimbGoesDownFromThere) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 100'000, .x = 100'000, .depart = 100, .descente = 98'000});
  b.Part();
  b.heure = 16'384 * 1000 / 12 * 10 + 500 * Us;  // on level 110
  b.Envoie('S', {1, 108});
  // One more level, 109, and it holds: 1.365 ms later.
  b.heure += 16'384 * 1000 / 12 - 100;
  EXPECT_EQ(b.Envoie('S', {3}).t[2], 0);
  b.heure += 200;
  EXPECT_EQ(b.Envoie('S', {3}).t[2], 2);
}

TEST(StopRampe, AsFastAsItCanOneQuestionIsEnough) {
  Banc b({.rapide = true});
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 10'000});
  b.Part();
  b.Envoie('S', {1, 252});
  EXPECT_EQ(b.Envoie('S', {3}).t[2], 2);
  EXPECT_EQ(b.carte->Lieu()[0], 27);
}

TEST(FinDeCourse, PressingTheSwitchStopsAMovementAtOnce) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 100, .x = 100});
  b.Part();
  b.heure = 42 * Tick;
  b.carte->FinDeCourse(true);
  b.heure += Seconde;
  const Reponse r = b.Etat();
  EXPECT_EQ(r.Etat(), 66);
  EXPECT_EQ(r.Reste(), 57);
  EXPECT_EQ(r.t[8], 2);
  EXPECT_EQ(b.carte->Lieu()[0], 42);
}

TEST(FinDeCourse, ASwitchThatIsHeldLetsTheNextJobLeaveIt) {
  Banc b;
  b.carte->FinDeCourse(true);
  EXPECT_EQ(b.Etat().Etat(), 2) << "nothing moved: nothing was stopped";
  b.Ouvre();
  b.Envoie(Move{.ticks = 100, .x = 100});
  b.Part();
  b.carte->FinDeCourse(true);
  b.heure = Seconde;
  EXPECT_EQ(b.carte->Lieu()[0], 100);
  b.carte->FinDeCourse(false);
  EXPECT_EQ(b.Etat().t[8], 0);
}

}  // namespace
