// The window of the drag knife, by mouse and keys.
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <cmath>
#include <sstream>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "machine/TableCourante.h"
#include "run/Module_GCode.h"
#include "tests/support/PasseEcrite.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/ui/F_Vinyl.h"

namespace essai {
namespace {

using namespace ovelin;

// A diamond: each side has one extreme point. The bisecting corners are those of the tie rules: greatest Y first.
void Losange() {
  RayonFraise = 0;
  AjouteSequence(" A", {{20, 20}, {10, 30}, {0, 20}, {10, 10}, {20, 20}});
  RecalculDecalages();
}
std::pair<float, float> Depart() { return {TraceInitial[0].X, TraceInitial[0].Y}; }
std::size_t PointsDuTrajet() { return TraceDecale.empty() ? 0 : TraceDecale[0].Points.size(); }

TEST(F_Vinyl, AnArrowMovesTheStartAndStaysPressedAlone) {
  Losange();
  F_Vinyl f;
  Montre(f);
  Clique(*Controle<QToolButton>(f, "CB_Fleche_4"));
  EXPECT_EQ(Depart(), (std::pair<float, float>{10, 30}));
  Clique(*Controle<QToolButton>(f, "CB_Fleche_7"));
  EXPECT_EQ(Depart(), (std::pair<float, float>{0, 20}));
  EXPECT_FALSE(Controle<QToolButton>(f, "CB_Fleche_4")->isChecked());
  EXPECT_TRUE(Controle<QToolButton>(f, "CB_Fleche_7")->isChecked());
  EXPECT_EQ(Modifie, Vrai);
}

TEST(F_Vinyl, EachArrowHasAPictureOfItsOwn) {
  F_Vinyl f;
  Montre(f);
  std::vector<QImage> images;
  for (int i = 0; i < 8; ++i) {
    const auto* fleche = Controle<QToolButton>(f, QStringLiteral("CB_Fleche_%1").arg(i).toUtf8().constData());
    ASSERT_FALSE(fleche->icon().isNull()) << i;
    images.push_back(fleche->icon().pixmap(32, 32).toImage());
    for (int k = 0; k < i; ++k) EXPECT_NE(images.back(), images[static_cast<std::size_t>(k)]) << i << " and " << k;
  }
}

// From the window to the file: with the strokes in the margin the blade is above the sheet on its way from there to
// the contour, without them it is down from the first point of the cut to its last.
TEST(F_Vinyl, TheFileOfTheKnifeLiftsBetweenTheMarginAndTheContour) {
  Losange();
  HautDeg = 5, ProfFraisage = -1, ProfPasse = -1, Vitesse_Mat_H = 3, Vitesse_Mat_V = 1;
  VitesseMaxX = VitesseMaxY = VitesseMaxZ = 20;
  Sequences[0].Profondeur = -1;
  F_Vinyl f;
  Montre(f);
  const auto descentes = [] {  // entries into the sheet, and the place of each
    const std::string chemin = Dossier() + "/couteau.nc";
    EcritureNC ecriture;
    EXPECT_TRUE(EcritGCode(chemin, ecriture));
    std::vector<std::string> lieux;
    std::string lieu;
    std::istringstream lignes(LitFichierEssai(chemin));
    for (std::string ligne; std::getline(lignes, ligne);) {
      if (const std::size_t x = ligne.find(" X"); x != std::string::npos && ligne[0] == 'G')
        lieu = ligne.substr(x + 1);
      if (ligne.find("Z-1.000") != std::string::npos) lieux.push_back(lieu.substr(0, lieu.find('\r')));
    }
    return lieux;
  };
  EXPECT_THAT(descentes(), testing::ElementsAre("X20.000 Y20.000"));
  Controle<QRadioButton>(f, "Option1_1")->click();
  EXPECT_THAT(descentes(), testing::ElementsAre("X20.000 Y-1.000", "X20.000 Y20.000"));
  Controle<QRadioButton>(f, "Option1_0")->click();
  EXPECT_THAT(descentes(), testing::ElementsAre("X20.000 Y20.000"));
}

// Each button lies where its corner or side is.
TEST(F_Vinyl, ArrowsLieAroundAsTheirCornersDo) {
  F_Vinyl f;
  Montre(f);
  const auto place = [&](const char* nom) { return Controle<QToolButton>(f, nom)->geometry().center(); };
  EXPECT_LT(place("CB_Fleche_0").x(), place("CB_Fleche_4").x());
  EXPECT_LT(place("CB_Fleche_4").x(), place("CB_Fleche_1").x());
  EXPECT_EQ(place("CB_Fleche_0").y(), place("CB_Fleche_1").y());
  EXPECT_LT(place("CB_Fleche_7").y(), place("CB_Fleche_3").y());
  EXPECT_LT(place("CB_Fleche_0").y(), place("CB_Fleche_7").y());
  EXPECT_EQ(place("CB_Fleche_3").y(), place("CB_Fleche_2").y());
  EXPECT_EQ(place("CB_Fleche_5").x(), place("CB_Fleche_2").x());
  EXPECT_EQ(place("CB_Fleche_6").x(), place("CB_Fleche_4").x());
}

TEST(F_Vinyl, StrokesInTheMarginHideTheArrowsAndLengthenTheCuts) {
  Losange();
  const std::size_t avant = PointsDuTrajet();
  F_Vinyl f;
  Montre(f);
  Controle<QRadioButton>(f, "Option1_1")->click();
  EXPECT_FALSE(Controle<QToolButton>(f, "CB_Fleche_0")->isVisible());
  EXPECT_TRUE(Controle<QCheckBox>(f, "CB_Prolongement")->isChecked());
  EXPECT_EQ(PointsDuTrajet(), avant + 3);
  Controle<QRadioButton>(f, "Option1_0")->click();
  EXPECT_TRUE(Controle<QToolButton>(f, "CB_Fleche_0")->isVisible());
  EXPECT_FALSE(Controle<QCheckBox>(f, "CB_Prolongement")->isChecked());
  EXPECT_EQ(PointsDuTrajet(), avant);
}

TEST(F_Vinyl, TheCheckBoxAloneLengthensAndKeepsTheArrows) {
  Losange();
  const std::size_t avant = PointsDuTrajet();
  F_Vinyl f;
  Montre(f);
  Controle<QCheckBox>(f, "CB_Prolongement")->click();
  EXPECT_EQ(PointsDuTrajet(), avant + 3);
  EXPECT_TRUE(Controle<QToolButton>(f, "CB_Fleche_0")->isVisible());
}

TEST(F_Vinyl, ComesBackAsItWasLeft) {
  Losange();
  {
    F_Vinyl f;
    Montre(f);
    Controle<QRadioButton>(f, "Option1_1")->click();
    Clique(*Controle<QPushButton>(f, "Btn_Fermer"));
    EXPECT_FALSE(f.isVisible());
  }
  F_Vinyl f;
  Montre(f);
  EXPECT_TRUE(Controle<QRadioButton>(f, "Option1_1")->isChecked());
  EXPECT_TRUE(Controle<QCheckBox>(f, "CB_Prolongement")->isChecked());
}

// An outline whose tool path is worth a pass, which Escape ends.
class VinylRepris : public testing::Test {
 protected:
  void SetUp() override {
    RayonFraise = 0;
    std::vector<std::pair<float, float>> xy;
    constexpr int n = 50000;
    for (int i = 0; i <= n; ++i) {
      const double a = 2 * M_PI * (i % n) / n;
      xy.emplace_back(static_cast<float>(50 + 40 * std::cos(a)), static_cast<float>(50 + 40 * std::sin(a)));
    }
    AjouteSequence(" A", xy);
    RecalculDecalages();
  }
  void Echappe() {
    passe_.Offre();
    passe_.script = {[] { return true; }};
  }
  PasseEcrite passe_;
};

TEST_F(VinylRepris, AnArrowThatIsTakenBackIsPressedNoMore) {
  F_Vinyl f;
  Montre(f);
  Controle<QToolButton>(f, "CB_Fleche_6")->click();
  const Document avant = Doc;
  Echappe();
  Controle<QToolButton>(f, "CB_Fleche_4")->click();
  EXPECT_EQ(passe_.repris, 1);
  EXPECT_TRUE(Doc == avant);
  EXPECT_FALSE(Controle<QToolButton>(f, "CB_Fleche_4")->isChecked());
  EXPECT_TRUE(Controle<QToolButton>(f, "CB_Fleche_6")->isChecked());
}

TEST_F(VinylRepris, AMarginThatIsTakenBackIsChosenNoMore) {
  F_Vinyl f;
  Montre(f);
  const Document avant = Doc;
  Echappe();
  Controle<QRadioButton>(f, "Option1_1")->click();
  EXPECT_EQ(passe_.repris, 1);
  EXPECT_TRUE(Doc == avant);
  EXPECT_TRUE(Controle<QRadioButton>(f, "Option1_0")->isChecked());
  EXPECT_FALSE(Controle<QCheckBox>(f, "CB_Prolongement")->isChecked());
  EXPECT_TRUE(Controle<QToolButton>(f, "CB_Fleche_0")->isVisible());
}

TEST_F(VinylRepris, ALengtheningThatIsTakenBackIsCheckedNoMore) {
  F_Vinyl f;
  Montre(f);
  Echappe();
  Controle<QCheckBox>(f, "CB_Prolongement")->click();
  EXPECT_EQ(passe_.repris, 1);
  EXPECT_EQ(Prolongement, Faux);
  EXPECT_FALSE(Controle<QCheckBox>(f, "CB_Prolongement")->isChecked());
  Controle<QCheckBox>(f, "CB_Prolongement")->click();
  EXPECT_EQ(Prolongement, Vrai);
  EXPECT_TRUE(Controle<QCheckBox>(f, "CB_Prolongement")->isChecked());
}

}  // namespace
}  // namespace essai
