// What the start asks, what it refuses, and what it loads.
#include "machine/TableCourante.h"
#include "run/AvisPlan.h"
#include "tests/unit/run/UnRun.h"

namespace essai {
namespace {

TEST_F(UnRun, EssaiFlashNeedsAMemoryOnTheBoard) {
  zenikcom::ConditionsCarte c;
  c.rapide = true;
  c.flash = false;
  carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
  CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
  Attend("erreurs", "96");
  EXPECT_FALSE(EssaiFlash());
  EXPECT_EQ(ModeEnvoiTable, 0);
}

TEST_F(UnRun, IsRefusedWithoutABoardADepthOrASpeed) {
  ProfPasse = 0;
  Attend("erreurs", "95");
  EXPECT_FALSE(Lance());
  ProfPasse = -0.5;
  Attend("F_Fraisage", "lib021");
  std::string nulle = "0";
  EXPECT_FALSE(LanceFraisage(nulle, EnvoiDirect));
  ProfFraisage = 1;
  Attend("F_Fraisage", "lib011_2");
  EXPECT_FALSE(Lance());
  ProfFraisage = -1;
  ProfPasse = 1;
  Attend("F_Fraisage", "lib011_3");
  EXPECT_FALSE(Lance());
  ProfPasse = -0.5;
  carte_->Debranche(true);
  Attend("erreurs", "91");
  EXPECT_FALSE(Lance());
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
  TraceDecale.clear();
  EXPECT_FALSE(Lance()) << "nothing to mill, and nothing is said";
}

TEST_F(UnRun, ASpeedBeyondTheAxesIsAskedForAndLowered) {
  Vitesse_Mat_H = 35;  // the diagonal of B allows 20 * sqrt 2 = 28.28, the sides of A 20
  Attend("F_Fraisage", "lib005", Reponse::Annuler);
  std::string vitesse = "35";
  EXPECT_FALSE(LanceFraisage(vitesse, EnvoiDirect));
  EXPECT_EQ(vitesse, "35");
  EXPECT_EQ(Boites().back().icone, Icone::Critique);
  EXPECT_EQ(Boites().back().boutons, Boutons::OkAnnuler);
  EXPECT_EQ(Boites().back().texte,
            Traduire("F_Fraisage", "lib005") + " (20.00). \n" + Traduire("F_Fraisage", "lib006"));
  Attend("F_Fraisage", "lib005", Reponse::Ok);
  std::vector<float> coupes;
  Vue_Decoupe.Accepte = [&](std::int32_t ligne, float& v) {
    if (Ligne(ligne).Z < 0 && Ligne(ligne).dZ == 0) coupes.push_back(v);
  };
  EXPECT_TRUE(LanceFraisage(vitesse, EnvoiDirect));
  ASSERT_FALSE(coupes.empty());
  for (const float v : coupes) EXPECT_NEAR(static_cast<double>(v), 20, 1e-3) << "the plan is one of that speed";
  EXPECT_EQ(vitesse, "20.00");
  EXPECT_EQ(Vitesse_Mat_H, 20);
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(UnRun, ASpeedThatNeedsRampsIsAskedFor) {
  Attend("F_Fraisage", "lib007", Reponse::Annuler);
  std::string vitesse = "12";
  EXPECT_FALSE(LanceFraisage(vitesse, EnvoiDirect));
  EXPECT_EQ(Boites().back().icone, Icone::Question);
  EXPECT_EQ(Boites().back().boutons, Boutons::OkAnnuler);
  const auto texte = [](const char* cle) { return Traduire("F_Fraisage", cle); };
  EXPECT_EQ(Boites().back().texte,
            texte("lib007") + " 4.00 " + texte("lib008") + "\n" + texte("lib009") + " 20.00 " + texte("lib010"));
  Attend("F_Fraisage", "lib007", Reponse::Ok);
  EXPECT_TRUE(LanceFraisage(vitesse, EnvoiDirect));
  EXPECT_EQ(Pas(), (Axes3{0, 0, 0}));
}

TEST_F(UnRun, ASpeedThatIsEqualButForArithmeticAsksNothing) {
  std::string vitesse = "4.0000001";  // the speed without a ramp is 4
  EXPECT_TRUE(LanceFraisage(vitesse, EnvoiDirect));
  vitesse = "20.0000001";  // and 20 with ramps: that question alone
  Attend("F_Fraisage", "lib007");
  EXPECT_TRUE(LanceFraisage(vitesse, EnvoiDirect));
}

TEST_F(UnRun, ARefusedPlanIsNoRun) {
  HautDeg = -1;
  Attend("F_Fraisage", std::string(VerifieHautDeg()->cle.Cle()));
  EXPECT_FALSE(Lance());
  EXPECT_EQ(carte_->Compteurs().acceptes, 0);
  EXPECT_TRUE(TableReprise.empty());
}

// The table as it stands in the file, the spindle's key among it.
TEST_F(UnRun, TheMachineTableIsLoadedWholeAtTheStart) {
  BrocheAuto = 0;
  VitesseMaxX = 1;
  bool broche = false;
  aChaqueTour_ = [&] { broche = broche || carte_->Sorties().broche; };
  ASSERT_TRUE(Lance());
  EXPECT_TRUE(broche);
  EXPECT_EQ(BrocheAuto, 1);
  EXPECT_EQ(VitesseMaxX, 20);
}

}  // namespace
}  // namespace essai
