// The other figure of a number, beside its field: diameter of a radius, mm/min of a speed.
#include <QVBoxLayout>
#include <QWidget>

#include "core/Services.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Theme.h"
#include "tests/ui/support/SupportUi.h"

namespace {

using namespace ovelin;
using S = SorteEquivalent;

TEST(TexteEquivalent, IsTwiceARadiusAndSixtyTimesASpeed) {
  EXPECT_EQ(TexteEquivalent(S::Diametre, "3"), "Ø 6.0");
  EXPECT_EQ(TexteEquivalent(S::Diametre, "1.5875"), "Ø 3.175");
  EXPECT_EQ(TexteEquivalent(S::ParMinute, "10"), "600 mm/min");
  EXPECT_EQ(TexteEquivalent(S::ParMinute, "0.33"), "19.8 mm/min");
  EXPECT_EQ(TexteEquivalent(S::ParMinute, "0"), "0 mm/min");
}

TEST(TexteEquivalent, HasTheUsersMarkAndReadsBoth) {
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(TexteEquivalent(S::ParMinute, "0,33"), "19,8 mm/min");
  EXPECT_EQ(TexteEquivalent(S::Diametre, "1.25"), "Ø 2,5");
}

TEST(TexteEquivalent, PassesOverAUnit) { EXPECT_EQ(TexteEquivalent(S::ParMinute, "12.5 mm/s"), "750 mm/min"); }

TEST(TexteEquivalent, IsEmptyForWhatIsNoNumberOrBelowZero) {
  for (const char* texte : {"", "-", "-3", "mm/s", "1.2.3"})
    EXPECT_EQ(TexteEquivalent(S::Diametre, texte), "") << texte;
}

struct Fenetre : QWidget {
  ChampNombre* champ = Champ("TB_Vitesse", "mm/s", "Vitesse");
  Fenetre() {
    (new QVBoxLayout(this))->addWidget(AvecEquivalent(champ, S::ParMinute));
    essai::Montre(*this);
  }
  [[nodiscard]] QLabel* Dit() { return essai::Controle<QLabel>(*this, "Lbl_Eq_Vitesse"); }
};

TEST(Equivalent, FollowsEachKeyAndTheValuesOfTheProgram) {
  Fenetre f;
  EXPECT_EQ(f.Dit()->text(), "");
  f.champ->setFocus();
  QTest::keyClicks(f.champ, "1");
  EXPECT_EQ(f.Dit()->text(), "60 mm/min");
  QTest::keyClicks(f.champ, "2");
  EXPECT_EQ(f.Dit()->text(), "720 mm/min");
  f.champ->Montre("5");
  EXPECT_EQ(f.Dit()->text(), "300 mm/min");
}

TEST(Equivalent, StandsBesideItsFieldAndMovesNothingWhenItChanges) {
  Fenetre f;
  const QRect avant = f.champ->geometry();
  EXPECT_GE(f.Dit()->x(), avant.right());
  f.champ->Montre("12");
  essai::Evenements();
  EXPECT_EQ(f.champ->geometry(), avant);
}

// 4.5 to 1, at most 1 more: grey, and legible.
TEST(Equivalent, IsGreyOnLightAndOnDark) {
  for (const bool sombre : {false, true}) {
    essai::ThemeSombreEssai(sombre);
    Fenetre f;
    const QColor encre = f.Dit()->palette().color(QPalette::WindowText);
    const QColor fond = f.palette().color(QPalette::Window);
    EXPECT_EQ(encre.hslSaturation(), 0);
    const double contraste = Contraste(DeCouleur(encre), DeCouleur(fond));
    EXPECT_GE(contraste, 4.5) << sombre;
    EXPECT_LT(contraste, 5.5) << sombre;
  }
}

TEST(Equivalent, FollowsAnotherThemeWhileItIsShown) {
  Fenetre f;
  essai::ThemeSombreEssai(true);
  essai::Evenements();
  const QColor encre = f.Dit()->palette().color(QPalette::WindowText);
  EXPECT_GE(Contraste(DeCouleur(encre), DeCouleur(f.palette().color(QPalette::Window))), 4.5);
}

}  // namespace
