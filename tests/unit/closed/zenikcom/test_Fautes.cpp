#include "tests/unit/closed/zenikcom/Banc.h"

namespace {

using namespace essai;
using zenikcom::Faute;
using zenikcom::GenreFaute;
using zenikcom::LitFaute;

TEST(LitFaute, KnowsEachKindByItsName) {
  EXPECT_EQ(LitFaute("3:refused"), (Faute{3, GenreFaute::Refuse, 0}));
  EXPECT_EQ(LitFaute("1:before"), (Faute{1, GenreFaute::Avant, 0}));
  EXPECT_EQ(LitFaute("12:behind"), (Faute{12, GenreFaute::Apres, 0}));
  EXPECT_EQ(LitFaute("12:late"), (Faute{12, GenreFaute::Retard, 0}));
  EXPECT_EQ(LitFaute("12:garbage"), (Faute{12, GenreFaute::Bruit, 0}));
  EXPECT_EQ(LitFaute("40:unplugged"), (Faute{40, GenreFaute::Debranche, 0}));
  EXPECT_EQ(LitFaute("40:unplugged:1.5"), (Faute{40, GenreFaute::Debranche, 1.5}));
}

TEST(LitFaute, RefusesEverythingElse) {
  for (const char* texte : {"", ":", "3", "3:", "3:refuse", "x:late", "0:late", "-1:late", "3 :late", "3:late:1",
                            "3:unplugged:", "3:unplugged:x", "3:unplugged:-1", "3:unplugged:nan", "3:unplugged:1,5",
                            "99999999999999999999:late"}) {
    EXPECT_FALSE(LitFaute(texte)) << texte;
  }
}

// Exchanges 1 and 2 open the job; the third is the record that the fault hits.
struct Essai : Banc {
  explicit Essai(GenreFaute genre, double secondes = 0) {
    carte->Fautes({{3, genre, secondes}});
    Ouvre();
  }
  std::int64_t Acceptes() { return carte->Compteurs().acceptes; }
};

const Move Pas{.ticks = 10, .x = 1};

TEST(Faute, RefusedIsAnsweredAndNotTaken) {
  Essai b(GenreFaute::Refuse);
  const Reponse r = b.Envoie(Pas);
  EXPECT_EQ(b.resultat, zenikcom::Reussi);
  EXPECT_FALSE(r.Pris());
  EXPECT_EQ(r.Etat(), 2) << "the status in it is true";
  EXPECT_EQ(b.Acceptes(), 0);
  EXPECT_TRUE(b.Envoie(Pas).Pris());
}

TEST(Faute, RefusedDoesNotStopEither) {
  Essai b(GenreFaute::Refuse);
  EXPECT_EQ(b.Envoie('S', {0, 0}).t[2], 0);
  EXPECT_EQ(b.Etat().Etat(), 2);
}

TEST(Faute, BeforeTheBoardIsUnknownToIt) {
  Essai b(GenreFaute::Avant);
  const Reponse r = b.Envoie(Pas);
  EXPECT_NE(b.resultat, zenikcom::Reussi);
  EXPECT_EQ(r.t, Motion(Pas)) << "the buffer is as it was";
  EXPECT_EQ(b.Acceptes(), 0);
}

TEST(Faute, BehindTheBoardIsDoneAndTheReplyLost) {
  Essai b(GenreFaute::Apres);
  const Reponse r = b.Envoie(Pas);
  EXPECT_NE(b.resultat, zenikcom::Reussi);
  EXPECT_EQ(r.t, Motion(Pas));
  EXPECT_EQ(b.Acceptes(), 1);
  EXPECT_EQ(b.heure, 0);
}

TEST(Faute, LateIsGivenUpAfterFiftyMilliseconds) {
  Essai b(GenreFaute::Retard);
  b.Envoie(Pas);
  EXPECT_NE(b.resultat, zenikcom::Reussi);
  EXPECT_EQ(b.Acceptes(), 1);
  EXPECT_EQ(b.heure, 50 * Ms);
}

TEST(Faute, GarbageIsDoneAndAnsweredWithAnything) {
  Essai b(GenreFaute::Bruit);
  const Reponse r = b.Envoie(Pas);
  EXPECT_EQ(b.resultat, zenikcom::Reussi);
  EXPECT_EQ(b.Acceptes(), 1);
  EXPECT_NE(r.t, Motion(Pas));
  EXPECT_NE(b.Etat().t, r.t);
  Essai c(GenreFaute::Bruit);
  EXPECT_EQ(c.Envoie(Pas).t, r.t) << "the same every time";
}

TEST(Faute, UnpluggedLastsAsLongAsItSays) {
  Essai b(GenreFaute::Debranche, 1.5);
  b.Envoie(Pas);
  EXPECT_NE(b.resultat, zenikcom::Reussi);
  EXPECT_NE(b.liaison->EstConnectee(), 1);
  b.heure = 1'499 * Ms;
  b.Envoie(Pas);
  EXPECT_NE(b.resultat, zenikcom::Reussi);
  b.heure = 1'500 * Ms;
  EXPECT_EQ(b.liaison->EstConnectee(), 1);
  EXPECT_TRUE(b.Envoie(Pas).Pris());
  EXPECT_EQ(b.Acceptes(), 1);
}

TEST(Faute, UnpluggedForGoodUntilSomebodyPlugsItIn) {
  Essai b(GenreFaute::Debranche);
  b.Envoie(Pas);
  b.heure = 1000 * Seconde;
  EXPECT_NE(b.liaison->EstConnectee(), 1);
  b.carte->Debranche(false);
  EXPECT_EQ(b.liaison->EstConnectee(), 1);
  EXPECT_TRUE(b.Envoie(Pas).Pris());
}

TEST(Faute, UnpluggedTheBoardRunsWhatItHas) {
  Banc b;
  b.carte->Fautes({{6, GenreFaute::Debranche, 1}});
  b.Ouvre();
  b.Envoie(Move{.ticks = 100, .x = 100});
  b.Envoie(Move{.ticks = 100, .x = 100});
  b.Part();
  b.Etat();
  b.heure = Seconde;
  const Reponse r = b.Etat();
  EXPECT_EQ(b.resultat, zenikcom::Reussi);
  EXPECT_EQ(r.Numero(), 2);
  EXPECT_TRUE(r.EnCours());
  EXPECT_EQ(b.carte->Lieu()[0], 200);
}

TEST(Faute, WithoutAClockTheWaitPassesByAsking) {
  Banc b({.rapide = true});
  b.carte->Fautes({{1, GenreFaute::Debranche, 0.5}});
  b.Etat();
  EXPECT_NE(b.resultat, zenikcom::Reussi);
  int demandes = 0;
  while (b.liaison->EstConnectee() != 1 && demandes < 100) ++demandes;
  EXPECT_LE(demandes, 10) << "50 ms each";
  EXPECT_GT(demandes, 5);
}

TEST(Faute, ExchangesAreCountedFromOneAndFailedOnesToo) {
  Banc b;
  b.carte->Fautes({{2, GenreFaute::Avant, 0}, {3, GenreFaute::Avant, 0}});
  b.Etat();
  EXPECT_EQ(b.resultat, zenikcom::Reussi);
  b.Etat();
  EXPECT_NE(b.resultat, zenikcom::Reussi);
  b.Etat();
  EXPECT_NE(b.resultat, zenikcom::Reussi);
  b.Etat();
  EXPECT_EQ(b.resultat, zenikcom::Reussi);
  EXPECT_EQ(b.carte->Compteurs().echanges, 4);
}

TEST(Debranche, PulledByHandNothingComesThrough) {
  Banc b;
  b.carte->Debranche(true);
  EXPECT_NE(b.liaison->EstConnectee(), 1);
  b.Etat();
  EXPECT_NE(b.resultat, zenikcom::Reussi);
  b.carte->Debranche(false);
  EXPECT_EQ(b.liaison->EstConnectee(), 1);
}

}  // namespace
