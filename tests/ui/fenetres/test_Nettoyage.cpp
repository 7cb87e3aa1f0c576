// The clean-up window, by mouse and keys.
#include <QLabel>
#include <QPushButton>

#include "core/Cles.h"
#include "core/ReglagesCourants.h"
#include "core/ui/ChampNombre.h"
#include "machine/Module_Table.h"
#include "tests/ui/support/SupportUi.h"
#include "workspace/ui/dialogues/F_Nettoyage.h"

namespace essai {
namespace {

using namespace ovelin;

void EcritTable(const char* cle, const char* valeur) { EcrireCleSection(SectionTable(TableDefaut), cle, valeur); }

// X 2 mm in 200 x 2 steps, Y 2 mm in 200 x 8 steps.
void MachineDeDeuxPas() {
  EcritTable("TB_SAV_0", "2");
  EcritTable("TB_SAV_1", "2");
  EcritTable("TB_SAV_3", "200");
  EcritTable("TB_SAV_4", "200");
  EcritTable("Combo_SAV_12", "1");
  EcritTable("Combo_SAV_13", "3");
}

TEST(F_Nettoyage, ShowsTheResolutionOfEachAxisAndOffersTheFiner) {
  MachineDeDeuxPas();
  F_Nettoyage f;
  Montre(f);
  EXPECT_EQ(Controle<QLabel>(f, "Lbl_Resolution_0")->text(), "0.005 mm");
  EXPECT_EQ(Controle<QLabel>(f, "Lbl_Resolution_1")->text(), "0.001 mm");  // 0.00125
  EXPECT_EQ(Controle<ChampNombre>(f, "TB_Resolution")->Texte(), "0.00125");
}

TEST(F_Nettoyage, ShowsTheUsersDecimalMark) {
  Svc.MarqueDecimale = ',';
  MachineDeDeuxPas();
  F_Nettoyage f;
  EXPECT_EQ(Controle<QLabel>(f, "Lbl_Resolution_0")->text(), "0,005 mm");
  EXPECT_EQ(Controle<ChampNombre>(f, "TB_Resolution")->Texte(), "0,00125");
}

TEST(F_Nettoyage, ForgetsTheChoiceBeforeWhenItLoads) {
  Regl.Resolution = 0.7F;
  const F_Nettoyage f;
  EXPECT_EQ(Regl.Resolution, 0.0F);
}

TEST(F_Nettoyage, TakesTheFieldWithOk) {
  F_Nettoyage f;
  Montre(f);
  Tape(*Controle<ChampNombre>(f, "TB_Resolution"), "0,25");
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(f.result(), QDialog::Accepted);
  EXPECT_EQ(Regl.Resolution, 0.25F);
}

TEST(F_Nettoyage, TakesTheFieldWithTheSecondEnter) {
  F_Nettoyage f;
  Montre(f);
  auto* champ = Controle<ChampNombre>(f, "TB_Resolution");
  Tape(*champ, "0.5", Sortie::Entree);
  EXPECT_TRUE(f.isVisible());
  QTest::keyClick(champ, Qt::Key_Return);
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(Regl.Resolution, 0.5F);
}

TEST(F_Nettoyage, LeavesNoChoiceWhenItIsCancelledOrClosed) {
  for (const bool echappe : {false, true}) {
    F_Nettoyage f;
    Montre(f);
    Tape(*Controle<ChampNombre>(f, "TB_Resolution"), "0.25");
    if (echappe) {
      QTest::keyClick(Controle<QPushButton>(f, "Btn_OK"), Qt::Key_Escape);
    } else {
      Clique(*Controle<QPushButton>(f, "Btn_Annuler"));
    }
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(f.result(), QDialog::Rejected);
    EXPECT_EQ(Regl.Resolution, 0.0F);
  }
}

TEST(F_Nettoyage, LetsZeroThroughWhichChoosesNothing) {
  F_Nettoyage f;
  Montre(f);
  Tape(*Controle<ChampNombre>(f, "TB_Resolution"), "0");
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(Regl.Resolution, 0.0F);
}

TEST(F_Nettoyage, RewritesTheFieldAsTheValueThatWillBeUsed) {
  F_Nettoyage f;
  Montre(f);
  auto* champ = Controle<ChampNombre>(f, "TB_Resolution");
  Tape(*champ, "00.2500000000000001");
  EXPECT_EQ(champ->Texte(), "0.25");
}

TEST(F_Nettoyage, RefusesWhatIsNoToleranceAtTheFieldAndStaysOpen) {
  for (const char* texte : {"", "-", "-1"}) {
    F_Nettoyage f;
    Montre(f);
    auto* champ = Controle<ChampNombre>(f, "TB_Resolution");
    Tape(*champ, texte);
    EXPECT_TRUE(champ->EstRefuse()) << texte;
    EXPECT_FALSE(champ->toolTip().isEmpty());
    Clique(*Controle<QPushButton>(f, "Btn_OK"));
    EXPECT_TRUE(f.isVisible()) << texte;
    EXPECT_EQ(Regl.Resolution, 0.0F);
    Tape(*champ, "0.1");
    EXPECT_FALSE(champ->EstRefuse());
    Clique(*Controle<QPushButton>(f, "Btn_OK"));
    EXPECT_EQ(Regl.Resolution, 0.1F);
  }
}

TEST(F_Nettoyage, LetsOnlyNumericKeysIn) {
  F_Nettoyage f;
  Montre(f);
  auto* champ = Controle<ChampNombre>(f, "TB_Resolution");
  Tape(*champ, "a0x.1z,2");
  EXPECT_EQ(champ->Texte(), "0.12");
}

}  // namespace
}  // namespace essai
