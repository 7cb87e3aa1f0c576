#include "controller/ChoixCarte.h"
#include "controller/OperateurCarte.h"
#include "tests/support/Support.h"
#include "tests/unit/controller/CarteEssai.h"

namespace essai {
namespace {

using namespace ovelin;
using zenikcom::Faute;
using zenikcom::GenreFaute;

TEST(RegardeCarte, ShowsTheBoardBesideTheCounters) {
  CarteEssai banc;
  LaCarte = {GenreCarte::Virtuelle, banc.carte, ""};
  CdeZENIK = std::move(banc.cde);
  zenikcom::ModeleMachine modele{};
  modele[1].jeu = 3;
  banc.carte->Modele(modele);
  CdeZENIK->MotorOnOff(true);
  CdeZENIK->EnvoiUSB();
  float v = 2, t = 0;
  for (const int dy : {10, -5}) CdeZENIK->CommandeDATA(0, dy, 0, v, t, false);
  CdeZENIK->CommandeDATAend();
  do {
    CdeZENIK->DemandeInformation();
  } while (CdeZENIK->EnCours != Faux);
  const auto vue = RegardeCarte();
  ASSERT_TRUE(vue.has_value());
  EXPECT_EQ(vue->compteurs, (zenikcom::Axes3{0, 5, 0}));
  EXPECT_EQ(vue->lieu, (zenikcom::Axes3{0, 8, 0})) << "three steps of play on the way back";
  EXPECT_EQ(vue->acceptes, 2);
  EXPECT_EQ(vue->commences, 2);
  EXPECT_TRUE(vue->sorties.moteur);
  CdeZENIK = std::make_unique<ClsCdeZENIK>();
}

TEST(RegardeCarte, ShowsNothingOfARealOne) { EXPECT_FALSE(RegardeCarte().has_value()); }

TEST(LitModele, ComesBackAsItWasShown) {
  zenikcom::ModeleMachine modele{};
  modele[0] = {400.5, 1000, 7};
  modele[2] = {0, 0, 12};
  const auto lu = LitModele(TextesModele(modele));
  ASSERT_TRUE(lu.has_value());
  for (std::size_t axe = 0; axe < 3; ++axe) {
    EXPECT_EQ((*lu)[axe].vitesseLibre, modele[axe].vitesseLibre);
    EXPECT_EQ((*lu)[axe].rampe, modele[axe].rampe);
    EXPECT_EQ((*lu)[axe].jeu, modele[axe].jeu);
  }
}

TEST(LitModele, RefusesWhatIsNoNumberOf0OrMore) {
  for (const char* faux : {"", "-1", "x", "1e12"}) {
    ChampsModele champs = TextesModele({});
    champs[1][2] = faux;
    EXPECT_FALSE(LitModele(champs).has_value()) << faux;
  }
}

TEST(LitModeleAxe, ReadsAnAxisWithItsThreeNumbers) {
  const auto lu = LitModeleAxe("y:400:1000.5:7");
  ASSERT_TRUE(lu.has_value());
  EXPECT_EQ(lu->axe, 1U);
  EXPECT_EQ(lu->modele.vitesseLibre, 400);
  EXPECT_EQ(lu->modele.rampe, 1000.5);
  EXPECT_EQ(lu->modele.jeu, 7);
  EXPECT_EQ(LitModeleAxe("Z:5")->modele.jeu, 0);
}

TEST(LitModeleAxe, RefusesAnythingElse) {
  for (const char* faux : {"", "X", "X:", "A:1", "XX:1", "X:-1", "X:1:2:3:4", "X:1:", "X1", "X:a"}) {
    EXPECT_FALSE(LitModeleAxe(faux).has_value()) << faux;
  }
}

TEST(LitFautePrevue, CountsFromTheExchangesDone) {
  EXPECT_EQ(LitFautePrevue(0, "1", "0", 41), (Faute{42, GenreFaute::Refuse, 0}));
  EXPECT_EQ(LitFautePrevue(5, "10", "1,5", 41), (Faute{51, GenreFaute::Debranche, 1.5}));
  for (const char* faux : {"0", "", "-3"}) EXPECT_FALSE(LitFautePrevue(0, faux, "0", 41).has_value()) << faux;
  EXPECT_FALSE(LitFautePrevue(0, "1", "-1", 41).has_value());
  EXPECT_FALSE(LitFautePrevue(6, "1", "0", 41).has_value());
}

TEST(FautesAVenir, ForgetsThoseThatHaveCome) {
  const std::vector<Faute> fautes{{9, GenreFaute::Bruit, 0}, {5, GenreFaute::Avant, 0}, {7, GenreFaute::Apres, 0}};
  EXPECT_EQ(FautesAVenir(fautes, 5), (std::vector<Faute>{{7, GenreFaute::Apres, 0}, {9, GenreFaute::Bruit, 0}}));
}

}  // namespace
}  // namespace essai
