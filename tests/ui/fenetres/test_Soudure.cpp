// The window of the weld tolerance, by mouse and keys.
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/ui/ChampNombre.h"
#include "tests/ui/support/SupportUi.h"
#include "workspace/ui/dialogues/F_Soudure.h"

namespace essai {
namespace {

using namespace ovelin;

TEST(F_Soudure, ShowsTheToleranceInForceAndTheNearestPlace) {
  Regl.ToleranceSoudure = 0.28F;
  F_Soudure f;
  EXPECT_EQ(Controle<ChampNombre>(f, "TB_Tolerance")->Texte(), "0.28");
  EXPECT_EQ(Controle<QScrollBar>(f, "VScroll_Tolerance")->value(), 2);  // 0.3
}

TEST(F_Soudure, TheUnitStandsInTheLabelAlone) {
  F_Soudure f;
  EXPECT_TRUE(Controle<QLabel>(f, "Label1")->text().endsWith("(mm)"));
  EXPECT_EQ(Controle<ChampNombre>(f, "TB_Tolerance")->textMargins().right(), 0)
      << "no room for a unit in the field";
}

TEST(F_Soudure, KeepsAValueBeyondTheScale) {
  Regl.ToleranceSoudure = 2;
  F_Soudure f;
  EXPECT_EQ(Controle<ChampNombre>(f, "TB_Tolerance")->Texte(), "2");
  EXPECT_EQ(Controle<QScrollBar>(f, "VScroll_Tolerance")->value(), 0);
}

TEST(F_Soudure, ScaleRunsDownwardFromHalfAMillimetreInTenths) {
  F_Soudure f;
  Montre(f);
  auto* barre = Controle<QScrollBar>(f, "VScroll_Tolerance");
  const auto* champ = Controle<ChampNombre>(f, "TB_Tolerance");
  barre->setFocus();
  QTest::keyClick(barre, Qt::Key_Home);
  EXPECT_EQ(champ->Texte(), "0.5");
  std::vector<std::string> valeurs;
  for (int i = 0; i < 6; ++i) {
    QTest::keyClick(barre, Qt::Key_Down);
    valeurs.push_back(champ->Texte());
  }
  EXPECT_THAT(valeurs, testing::ElementsAre("0.4", "0.3", "0.2", "0.1", "0", "0"));
}

TEST(F_Soudure, BarFollowsTheFieldWithoutChangingIt) {
  F_Soudure f;
  Montre(f);
  auto* champ = Controle<ChampNombre>(f, "TB_Tolerance");
  Tape(*champ, "0,12");
  EXPECT_EQ(champ->Texte(), "0.12");
  EXPECT_EQ(Controle<QScrollBar>(f, "VScroll_Tolerance")->value(), 4);
}

TEST(F_Soudure, StoresTheFieldWithOkSoThatItLasts) {
  F_Soudure f;
  Montre(f);
  Tape(*Controle<ChampNombre>(f, "TB_Tolerance"), "0.35");
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(f.result(), QDialog::Accepted);
  EXPECT_EQ(Regl.ToleranceSoudure, 0.35F);
  OublieCles();
  Regl.ToleranceSoudure = 0.01F;
  LitOptions();
  EXPECT_EQ(Regl.ToleranceSoudure, 0.35F);
}

TEST(F_Soudure, StoresNothingWhenCancelled) {
  F_Soudure f;
  Montre(f);
  Tape(*Controle<ChampNombre>(f, "TB_Tolerance"), "0.35");
  Clique(*Controle<QPushButton>(f, "Btn_Annuler"));
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(Regl.ToleranceSoudure, 0.01F);
  EXPECT_EQ(LireCleIni("ToleranceSoudure", "rien"), "rien");
}

TEST(F_Soudure, RefusesWhatIsNoToleranceAtTheFieldAndStaysOpen) {
  for (const char* texte : {"", "-0.1", "--"}) {
    F_Soudure f;
    Montre(f);
    auto* champ = Controle<ChampNombre>(f, "TB_Tolerance");
    Tape(*champ, texte);
    EXPECT_TRUE(champ->EstRefuse()) << texte;
    Clique(*Controle<QPushButton>(f, "Btn_OK"));
    EXPECT_TRUE(f.isVisible()) << texte;
    EXPECT_EQ(Regl.ToleranceSoudure, 0.01F);
    auto* barre = Controle<QScrollBar>(f, "VScroll_Tolerance");
    barre->setFocus();
    QTest::keyClick(barre, Qt::Key_Home);
    EXPECT_FALSE(champ->EstRefuse()) << texte;
    f.close();
  }
}

}  // namespace
}  // namespace essai
