// Every window as it looks: in every language nothing is cut off, small and large, light and dark; everything
// that can be reached is named, explained, and reached in the order in which it is read.
#include <QAbstractButton>
#include <QTableWidget>
#include <memory>

#include "app/ovelin/Composition.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Document.h"
#include "core/Fichiers.h"
#include "core/Reglages.h"
#include "database/Module_BD.h"
#include "database/ui/F_BD.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "run/ui/F_Fraisage.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"

namespace essai {
namespace {

using namespace ovelin;

void Dessin() {
  VitesseMaxX = VitesseMaxY = VitesseMaxZ = 20;
  AjouteSequence(" A", {{10, 10}, {120, 10}, {150, 60}, {120, 110}, {10, 110}, {10, 10}});
  AjouteCarre(" B", 40, 40, 40, 2);
  EncombrementGeneral();
  RecalculDecalages();
}

class Apparence : public testing::TestWithParam<LigneFenetre> {
 protected:
  void SetUp() override {
    Dessin();
    EcritFichesDefaut();
  }
  static std::unique_ptr<QDialog> Faite() { return FaitFenetre(GetParam(), nullptr); }
};
INSTANTIATE_TEST_SUITE_P(Fenetres, Apparence, testing::ValuesIn(TableFenetres().begin(), TableFenetres().end()),
                         [](const auto& ligne) { return ligne.param.nom; });

TEST_P(Apparence, CutsNoTextOffInAnyLanguageSmallOrLargeLightOrDark) {
  for (const std::string& langue : LanguesDuProduit()) {
    ChoisitLangue(langue);
    for (const bool sombre : {false, true}) {
      ThemeSombreEssai(sombre);
      const auto f = Faite();
      const std::string nom = std::string(GetParam().nom) + "-" + langue + (sombre ? "-sombre" : "");
      Montre(*f);
      EXPECT_EQ(TextesCoupesEnTexte(*f), "") << nom;
      Capture(*f, nom);
      f->resize(f->minimumSizeHint().expandedTo(f->minimumSize()));
      Evenements();
      EXPECT_EQ(TextesCoupesEnTexte(*f), "") << nom << " small";
      Capture(*f, nom + "-petit");
      f->resize(1100, 800);
      Evenements();
      EXPECT_EQ(TextesCoupesEnTexte(*f), "") << nom << " large";
      Capture(*f, nom + "-grand");
      f->close();
    }
  }
}

TEST_P(Apparence, NamesAndExplainsWhateverCanBeReached) {
  const auto f = Faite();
  EXPECT_EQ(f->objectName(), GetParam().nom);
  EXPECT_FALSE(f->windowTitle().isEmpty());
  EXPECT_THAT(SansNom(*f), testing::IsEmpty());
}

TEST_P(Apparence, HasEveryTextInEveryLanguage) {
  for (const std::string& langue : LanguesDuProduit()) {
    ChoisitLangue(langue);
    EXPECT_THAT(SansTraduction(*Faite()), testing::IsEmpty()) << GetParam().nom << " " << langue;
  }
}

TEST(ApparenceFraisage, KeepsItsSizeWhenTheResultIsTold) {
  Dessin();
  F_Fraisage f;
  Montre(f);
  const QSize avant = f.size();
  AttendFichier("Btn_Gener_GCODE", Dossier() + "/piece-avec-un-nom-plutot-long.nc");
  Clique(*Controle<QAbstractButton>(f, "Btn_Gener_GCODE"));
  Capture(f, "F_Fraisage-ecrit");
  EXPECT_EQ(f.size(), avant);
  EXPECT_EQ(TextesCoupesEnTexte(f), "");
  Tape(*Controle<QLineEdit>(f, "TB_Vit_Mat_H"), "0");
  Capture(f, "F_Fraisage-refus");
  f.close();
}

TEST(ApparenceBD, ShowsTheEditorInItsCellAndTheCellThatWasRefused) {
  EcritFichesDefaut();
  F_BD f;
  Montre(f);
  auto* grille = Controle<QTableWidget>(f, "MSFlexGrid1");
  grille->setCurrentCell(1, 5);
  QTest::keyClick(grille, Qt::Key_Delete);
  Attend("F_BD", "lib001");
  Clique(*Controle<QAbstractButton>(f, "Btn_OK"));
  const QImage image = grille->viewport()->grab(grille->visualItemRect(grille->item(1, 5))).toImage();
  const QColor cadre = image.pixelColor(1, image.height() / 2);
  EXPECT_GT(cadre.red(), cadre.green() + 60);
  QTest::mouseClick(grille->viewport(), Qt::LeftButton, {}, grille->visualItemRect(grille->item(3, 0)).center());
  Evenements();
  Capture(f, "F_BD-saisie");
  Attend("F_BD", "lib024", Reponse::Non);
  f.close();
}

// The keys go through the controls from the top to the bottom, and within a row from the left to the right; a
// window of two columns has its left one first.
TEST_P(Apparence, TabGoesAsTheEyeDoes) {
  const auto f = Faite();
  Montre(*f);
  std::vector<const QWidget*> ordre;
  for (QWidget* w = f->nextInFocusChain(); w != f.get(); w = w->nextInFocusChain()) {
    if ((w->focusPolicy() & Qt::TabFocus) == 0 || !w->isVisible() || w->objectName().isEmpty()) continue;
    if (w->objectName().startsWith("qt_")) continue;
    ordre.push_back(w);
  }
  ASSERT_GE(ordre.size(), 3U);
  for (std::size_t i = 1; i < ordre.size(); ++i) {
    const QRect avant(ordre[i - 1]->mapTo(f.get(), QPoint(0, 0)), ordre[i - 1]->size());
    const QRect apres(ordre[i]->mapTo(f.get(), QPoint(0, 0)), ordre[i]->size());
    const bool memeRangee = avant.top() <= apres.bottom() && apres.top() <= avant.bottom();
    const bool autreColonne = apres.left() >= avant.right();
    EXPECT_TRUE(memeRangee ? avant.left() < apres.left() : avant.top() <= apres.top() || autreColonne)
        << ordre[i - 1]->objectName().toStdString() << " before " << ordre[i]->objectName().toStdString();
  }
  f->close();
}

}  // namespace
}  // namespace essai
