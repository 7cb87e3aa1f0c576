// The window of repeated copies, by mouse and keys.
#include <QPushButton>
#include <QRadioButton>
#include <cmath>

#include "core/DocumentCourant.h"
#include "core/ui/ChampNombre.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/ui/dialogues/ApercuDimension.h"
#include "workspace/ui/dialogues/F_Repeter.h"

namespace essai {
namespace {

using namespace ovelin;

void Carre() {
  AjouteCarre(" A", 10, 10, 20, 2);
  RecalculDecalages();
}

std::size_t Contours(F_Repeter& f) {
  std::size_t n = 0;
  for (const Primitive& p : Controle<ApercuDimension>(f, "PB1")->Dessine().Primitives) n += p.nombre > 1 ? 1 : 0;
  return n;
}

TEST(F_Repeter, SuggestsCopiesBesideTheOriginal) {
  Carre();
  F_Repeter f;
  Montre(f);
  EXPECT_EQ(Controle<ChampNombre>(f, "TB_PasX")->Texte(), "25");
  EXPECT_EQ(Contours(f), 2U);
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_EQ(f.result(), QDialog::Accepted);
  ASSERT_EQ(ListeCodes().size(), 2U);
  EXPECT_EQ(TraceInitial[5].X, 35);
}

TEST(F_Repeter, ThePreviewFollowsWhatIsTyped) {
  Carre();
  F_Repeter f;
  Montre(f);
  Tape(*Controle<ChampNombre>(f, "TB_Colonnes"), "3");
  Tape(*Controle<ChampNombre>(f, "TB_Rangees"), "2");
  EXPECT_EQ(Contours(f), 6U);
  Tape(*Controle<ChampNombre>(f, "TB_Rangees"), "");
  EXPECT_EQ(Contours(f), 1U) << "the original alone";
  EXPECT_EQ(ListeCodes().size(), 1U);
}

TEST(F_Repeter, AroundAPoint) {
  Carre();
  F_Repeter f;
  Montre(f);
  Tape(*Controle<ChampNombre>(f, "TB_Nombre"), "4");
  EXPECT_TRUE(Controle<QRadioButton>(f, "Option_Sorte_1")->isChecked());
  Tape(*Controle<ChampNombre>(f, "TB_Angle"), "90");
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  ASSERT_EQ(ListeCodes().size(), 4U);
  // (10, 10) a quarter around the origin.
  EXPECT_NEAR(TraceInitial[5].X, -10, 1e-4);
  EXPECT_NEAR(TraceInitial[5].Y, 10, 1e-4);
}

TEST(F_Repeter, RefusesWhatIsNoWholeNumberAndSaysSo) {
  Carre();
  F_Repeter f;
  Montre(f);
  for (const char* texte : {"0", "1.5", "1001", "x"}) {
    Tape(*Controle<ChampNombre>(f, "TB_Colonnes"), texte);
    Clique(*Controle<QPushButton>(f, "Btn_OK"));
    EXPECT_TRUE(f.isVisible()) << texte;
  }
  EXPECT_EQ(ListeCodes().size(), 1U);
}

TEST(F_Repeter, TellsThatTheListOfCodesIsFull) {
  Carre();
  Attend("F_Representation", "lib112");
  F_Repeter f;
  Montre(f);
  Tape(*Controle<ChampNombre>(f, "TB_Colonnes"), "1000");
  Tape(*Controle<ChampNombre>(f, "TB_Rangees"), "10");
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_TRUE(f.isVisible());
  EXPECT_EQ(ListeCodes().size(), 1U);
}

}  // namespace
}  // namespace essai
