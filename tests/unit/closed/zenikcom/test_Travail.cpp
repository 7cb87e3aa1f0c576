// The job over the wire: what a status says at each moment.
#include "tests/unit/closed/zenikcom/Banc.h"

namespace {

using namespace essai;
using zenikcom::Axes3;

TEST(Statut, ABoardAtRestSaysTwo) {
  Banc b;
  const Reponse r = b.Etat();
  EXPECT_EQ(r.Etat(), 2);
  EXPECT_FALSE(r.EnCours());
  EXPECT_FALSE(r.Arret());
  EXPECT_EQ(r.Numero(), 0);
  EXPECT_EQ(r.Reste(), 0);
  EXPECT_EQ(r.t[1], 'I');
}

TEST(Statut, WhileItFillsItIsAtRest) {
  Banc b;
  b.Ouvre();
  const Reponse r = b.Envoie(Move{.ticks = 100, .x = 10});
  EXPECT_TRUE(r.Pris());
  EXPECT_EQ(r.Etat(), 2);
  b.heure += 10 * Seconde;
  EXPECT_EQ(b.Etat().Numero(), 0) << "nothing runs before the go";
  EXPECT_EQ(b.carte->Lieu(), Axes3{});
}

TEST(Travail, TenThousandTicksAtMultiplierOneAreOneSecond) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .y = 1000});
  b.Part();
  b.heure = Seconde - 1;
  EXPECT_EQ(b.Etat().Reste(), 0) << "the last tick is to come";
  b.heure = Seconde;
  EXPECT_EQ(b.Etat().Reste(), -1);
  EXPECT_EQ(b.carte->Lieu(), (Axes3{0, 1000, 0}));
}

TEST(Travail, TicksLeftAreOneLessThanThoseToCome) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 100, .x = 7});
  b.Part();
  EXPECT_EQ(b.Etat().Reste(), 99);
  for (const int k : {1, 2, 50, 99}) {
    b.heure = k * Tick;
    EXPECT_EQ(b.Etat().Reste(), 99 - k);
    b.heure += Tick - 1;
    EXPECT_EQ(b.Etat().Reste(), 99 - k) << "until the next tick";
  }
}

TEST(Travail, StepsAreTheNearestWholeNumberHalvesToEven) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 5, .y = -5, .z = 20});
  b.Part();
  const std::array<std::int64_t, 11> x{0, 0, 1, 2, 2, 2, 3, 4, 4, 4, 5};
  for (int k = 0; k <= 10; ++k) {
    b.heure = k * Tick;
    const std::int64_t pas = x[static_cast<std::size_t>(k)];
    EXPECT_EQ(b.carte->Lieu(), (Axes3{pas, -pas, 2 * k})) << k;
  }
}

TEST(Travail, TheNumberRisesWhenARecordStarts) {
  Banc b;
  b.Ouvre();
  for (int i = 0; i < 3; ++i) b.Envoie(Move{.ticks = 10, .x = 1});
  b.Part();
  EXPECT_EQ(b.Etat().Numero(), 1);
  b.heure = 10 * Tick - 1;
  EXPECT_EQ(b.Etat().Numero(), 1);
  b.heure = 10 * Tick;
  EXPECT_EQ(b.Etat().Numero(), 2);
  EXPECT_EQ(b.Etat().Reste(), 9);
  b.heure = 25 * Tick;
  EXPECT_EQ(b.Etat().Numero(), 3);
  EXPECT_EQ(b.Etat().Etat(), 0);
}

TEST(Travail, WaitsForRecordsWithoutEnding) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 4});
  b.Part();
  b.heure = Seconde;
  Reponse r = b.Etat();
  EXPECT_TRUE(r.EnCours());
  EXPECT_EQ(r.Etat(), 0);
  EXPECT_EQ(r.Numero(), 1);
  EXPECT_EQ(r.Reste(), -1);
  r = b.Envoie(Move{.ticks = 10, .x = 4});
  EXPECT_TRUE(r.Pris());
  EXPECT_EQ(r.Numero(), 2) << "it begins at once";
  EXPECT_EQ(r.Reste(), 9);
}

TEST(Travail, CountsTheTicksForWhichItHadNoRecord) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 4});
  b.Part();
  b.heure = 30 * Tick;
  b.Envoie(Move{.ticks = 10, .x = 4});  // 20 ticks of hunger
  b.heure = 45 * Tick;
  EXPECT_EQ(b.carte->Compteurs().ticksFamine, 25) << "five more, and counting";
  b.Fin();
  b.heure = Seconde;
  const auto c = b.carte->Compteurs();
  EXPECT_EQ(c.ticksFamine, 25);
  EXPECT_EQ(c.remplissageMini, 0);
  EXPECT_EQ(c.ticks, 20);
  EXPECT_DOUBLE_EQ(c.secondes, 0.0045) << "from the go to the end record";
}

TEST(Travail, TheLeastFillCountsTheRecordThatRuns) {
  Banc b;
  b.Ouvre();
  for (int i = 0; i < 5; ++i) b.Envoie(Move{.ticks = 10, .x = 1});
  b.Part();
  EXPECT_EQ(b.carte->Compteurs().remplissageMini, 5);
  b.heure = 21 * Tick;  // the third runs, two are behind it
  EXPECT_EQ(b.carte->Compteurs().remplissageMini, 3);
  b.Envoie(Move{.ticks = 10, .x = 1});
  b.Fin();
  b.heure = Seconde;
  EXPECT_EQ(b.carte->Compteurs().remplissageMini, 3) << "behind the end record nothing can be missing";
  EXPECT_EQ(b.carte->Compteurs().ticksFamine, 0);
}

TEST(Travail, EndsBehindTheEndRecord) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 4});
  Reponse r = b.Fin();
  EXPECT_TRUE(r.Pris());
  EXPECT_FALSE(r.EnCours());
  b.Part();
  b.heure = 10 * Tick - 1;
  r = b.Etat();
  EXPECT_TRUE(r.EnCours());
  EXPECT_EQ(r.Etat(), 0);
  b.heure = 10 * Tick;
  r = b.Etat();
  EXPECT_FALSE(r.EnCours());
  EXPECT_EQ(r.Etat(), 128);
  EXPECT_EQ(r.Numero(), 1);
  EXPECT_EQ(r.Reste(), -1);
  EXPECT_FALSE(r.Arret());
}

TEST(Travail, AnEndRecordWhileItWaitsEndsItAtOnce) {
  Banc b;
  b.Ouvre();
  b.Part();
  EXPECT_TRUE(b.Etat().EnCours()) << "the go without a record";
  EXPECT_EQ(b.Fin().Etat(), 128);
  EXPECT_FALSE(b.Etat().EnCours());
}

TEST(Travail, NothingIsTakenBehindTheEndRecord) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 4});
  b.Fin();
  EXPECT_FALSE(b.Envoie(Move{.ticks = 10, .x = 4}).Pris());
  EXPECT_FALSE(b.Fin().Pris());
  b.Part();
  b.heure = Seconde;
  EXPECT_FALSE(b.Envoie(Move{.ticks = 10, .x = 4}).Pris());
  EXPECT_EQ(b.carte->Lieu(), (Axes3{4, 0, 0}));
}

TEST(Travail, TakesNoRecordWithoutAnOpenJob) {
  Banc b;
  EXPECT_FALSE(b.Envoie(Move{.ticks = 10, .x = 4}).Pris());
  b.Envoie('B', {0});
  EXPECT_FALSE(b.Envoie(Move{.ticks = 10, .x = 4}).Pris());
  b.Envoie('B', {1});
  EXPECT_TRUE(b.Envoie(Move{.ticks = 10, .x = 4}).Pris());
}

TEST(Travail, AFullBufferRefusesUntilARecordHasRun) {
  Banc b({.capacite = 3});
  b.Ouvre();
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(b.Envoie(Move{.ticks = 10, .x = 1}).Pris());
  EXPECT_FALSE(b.Envoie(Move{.ticks = 10, .x = 1}).Pris());
  EXPECT_FALSE(b.Fin().Pris());
  b.Part();
  EXPECT_FALSE(b.Envoie(Move{.ticks = 10, .x = 1}).Pris()) << "the one that runs is held";
  b.heure = 10 * Tick;
  EXPECT_TRUE(b.Envoie(Move{.ticks = 10, .x = 1}).Pris());
  EXPECT_EQ(b.carte->Compteurs().acceptes, 4);
  b.heure = 20 * Tick;
  EXPECT_TRUE(b.Fin().Pris());
}

TEST(Travail, TheGoHoldsUntilTheBufferIsCleared) {
  Banc b;
  b.Part();
  b.Envoie('B', {1});
  EXPECT_EQ(b.Envoie(Move{.ticks = 10, .x = 4}).Numero(), 1) << "it starts at once";
  b.Envoie('B', {0});
  EXPECT_FALSE(b.Etat().EnCours());
  b.Envoie('B', {1});
  EXPECT_EQ(b.Envoie(Move{.ticks = 10, .x = 4}).Numero(), 0);
}

TEST(Travail, ClearingForgetsEverything) {
  Banc b;
  b.Ouvre();
  for (int i = 0; i < 3; ++i) b.Envoie(Move{.ticks = 10, .x = 10});
  b.Part();
  b.heure = 15 * Tick;
  b.Envoie('B', {0});
  const Reponse r = b.Etat();
  EXPECT_EQ(r.Etat(), 2);
  EXPECT_EQ(r.Numero(), 0);
  EXPECT_EQ(r.Reste(), 0);
  EXPECT_FALSE(r.Arret());
  b.Envoie('B', {1});
  b.Part();
  b.Fin();
  b.heure += Seconde;
  EXPECT_EQ(b.carte->Lieu(), (Axes3{15, 0, 0})) << "what was buffered never runs";
}

TEST(Travail, ARecordThatIsNoneIsRefusedAndCounted) {
  Banc b;
  b.Ouvre();
  EXPECT_FALSE(b.Envoie(Move{.ticks = 0, .x = 4}).Pris());
  EXPECT_FALSE(b.Envoie(Move{.ticks = -5, .x = 4}).Pris());
  TamponOctets t = Motion({.ticks = 5});
  Pose32(t, 11, -2);
  EXPECT_FALSE(b.Envoie(t).Pris());
  EXPECT_EQ(b.carte->Compteurs().malFormes, 3);
  EXPECT_EQ(b.carte->Compteurs().acceptes, 0);
}

TEST(Travail, TheNumberHasThreeBytes) {
  Banc b({.rapide = true});
  b.Ouvre();
  b.Part();
  TamponOctets motion = Motion({.ticks = 1, .x = 1});
  std::int32_t mode = 1;
  for (int i = 0; i < 70'000; ++i) {
    TamponOctets t = motion;
    b.liaison->Envoie(t, mode);
  }
  while (b.Etat().Numero() < 70'000 && b.carte->Compteurs().remplissage > 0) {
  }
  const Reponse r = b.Etat();
  EXPECT_EQ(r.t[4], 70'000 & 255);
  EXPECT_EQ(r.t[5], 70'000 >> 8 & 255);
  EXPECT_EQ(r.t[6], 1);
}

TEST(Travail, OnlyTheDefaultTableSaysHowFast) {
  Banc b;
  b.Table(1, "Rapide", 2, 5);
  b.Table(2, "Lente", 1, 5);
  b.Envoie('T', {1, 1});
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 100});
  b.Part();
  b.heure = Seconde / 2;
  EXPECT_EQ(b.Etat().Reste(), -1);
}

// The records below are too short to climb: all ticks are of level 126. Its rate at multiplier 1 is
// 129 x 6,000,000 / 16,711,425 and 126 x 10,000 / 255 together, 4987.49 Hz; the period 1203 counts of 6 MHz.
TEST(Travail, AnEmptySlotIsMultiplierOneAndSlopeFive) {
  for (const char* nom : {"", "        ", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}) {
    Banc b;
    b.Table(0, nom, 200, 9);
    b.Ouvre();
    b.Envoie(Move{.ticks = 10, .x = 10, .depart = 126, .descente = -100});
    b.Part();
    b.heure = 10 * 1203 * 1000 / 6 - 100;
    EXPECT_EQ(b.Etat().Reste(), 0);
    b.heure += 100;
    EXPECT_EQ(b.Etat().Reste(), -1);
  }
}

TEST(Travail, ARampedRecordRunsAtTheRateOfItsLevels) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10, .x = 10, .depart = 126, .descente = -100});
  b.Part();
  const std::int64_t periode = 1203 * 1000 / 6;  // ns, see above
  for (int k = 1; k <= 10; ++k) {
    b.heure = k * periode - 100;
    EXPECT_EQ(b.Etat().Reste(), 10 - k) << k;
    b.heure = k * periode;
    EXPECT_EQ(b.Etat().Reste(), 9 - k) << k;
  }
}

TEST(Travail, ATableWrittenMeanwhileCountsFromTheNextGo) {
  Banc b;
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 100});
  b.Part();
  b.Table(0, "Rapide", 2, 5);
  b.heure = Seconde - Tick;
  EXPECT_EQ(b.Etat().Reste(), 0);
}

TEST(Travail, TheJournalTellsWhatEachRecordTook) {
  Banc b({.journal = true});
  b.Ouvre();
  b.Envoie(Move{.ticks = 100, .x = 1});
  b.Envoie(Move{.ticks = 10, .x = 10, .depart = 126, .descente = -100});
  b.Fin();
  b.Part();
  b.heure = Seconde;
  b.Etat();
  const auto& joues = b.carte->Joues();
  ASSERT_EQ(joues.size(), 2U);
  EXPECT_DOUBLE_EQ(joues[0].secondes, 0.01);
  EXPECT_FALSE(joues[0].rampe);
  EXPECT_NEAR(joues[1].secondes, 10 * 1203 / 6e6, 1e-9);
  EXPECT_EQ(joues[1].depart, 126);
  EXPECT_EQ(joues[1].sommet, 255);
}

TEST(Rapide, ARefusalNeverComesAndTheOrderStays) {
  Banc b({.rapide = true, .capacite = 2});
  b.Ouvre();
  b.Part();
  for (int i = 0; i < 50; ++i) ASSERT_TRUE(b.Envoie(Move{.ticks = 1000, .x = 1, .y = i % 2 == 0 ? 1 : -1}).Pris());
  EXPECT_TRUE(b.Fin().Pris());
  int questions = 0;
  while (b.Etat().EnCours()) ++questions;
  EXPECT_LE(questions, 3) << "each question lets one record run";
  EXPECT_EQ(b.carte->Lieu(), (Axes3{50, 0, 0}));
  EXPECT_DOUBLE_EQ(b.carte->Compteurs().secondes, 5) << "50 times a tenth of a second";
  EXPECT_EQ(b.carte->Compteurs().ticksFamine, 0);
}

TEST(Rapide, SwitchedOffTheBoardGoesOnFromWhereItIs) {
  Banc b({.rapide = false});
  b.carte->Rapide(true);
  b.Ouvre();
  b.Envoie(Move{.ticks = 10'000, .x = 100});
  b.Envoie(Move{.ticks = 10'000, .x = 100});
  b.Part();
  EXPECT_EQ(b.Etat().Numero(), 2) << "the question let the first one run";
  b.carte->Rapide(false);
  b.heure += Seconde / 2;
  EXPECT_EQ(b.Etat().Reste(), 4999);
}

TEST(Travail, AClockThatGoesBackStandsStill) {
  Banc b;
  b.heure = Seconde;
  b.Ouvre();
  b.Envoie(Move{.ticks = 100, .x = 100});
  b.Part();
  b.heure += 50 * Tick;
  EXPECT_EQ(b.Etat().Reste(), 49);
  b.heure = 0;
  EXPECT_EQ(b.Etat().Reste(), 49);
}

}  // namespace
