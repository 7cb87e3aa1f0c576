// The list of materials of the main window: filled, applied, followed by what it sets.
#include <QAbstractItemView>
#include <QComboBox>
#include <QToolButton>
#include <memory>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Traduction.h"
#include "database/Module_BD.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "workspace/Module_Annulation.h"

namespace {

using namespace ovelin;
using essai::Clique;

class Materiaux : public essai::Principale {
 protected:
  void Plaque() { Charge(Exemple("plaque.dxf")); }
  // Pressed on the tool bar with the mouse.
  void Presse(const char* nom) { Clique(*C<QToolButton>(nom)); }
};

TEST_F(Materiaux, TheListOfMaterialsIsFilledAnewBehindItsWindow) {
  Charge();
  reponses_["F_BD"] = [] {
    auto fiches = LitFiches();
    fiches.push_back({{"PVC 5 mm", "1", "2 lèvres", "-5", "-2", "4", "2", "3", "2"}});
    EcritFiches(fiches);
    return true;
  };
  Presse("mnu_BD");
  auto* combo = C<QComboBox>("CB_BD");
  ASSERT_EQ(combo->count(), 7);
  EXPECT_EQ(combo->itemText(6), "PVC 5 mm");
  EXPECT_EQ(combo->currentIndex(), 0);
}

TEST_F(Materiaux, TheListStandsAtItsFirstEntryBehindItsWindowAndItsTipNamesTheMaterialInForce) {
  Plaque();
  auto* combo = C<QComboBox>("CB_BD");
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_End);
  essai::Evenements();
  ASSERT_EQ(MateriauCourant, "Alu 2 mm");
  EXPECT_THAT(combo->toolTip().toStdString(), testing::EndsWith("Alu 2 mm"));
  reponses_["F_BD"] = [] { return true; };
  Presse("mnu_BD");
  EXPECT_EQ(combo->currentIndex(), 0);
  EXPECT_THAT(combo->toolTip().toStdString(), testing::EndsWith("Alu 2 mm"));
}

TEST_F(Materiaux, TheTipOfTheListNamesTheMaterialInForceFromTheStart) {
  Charge();
  EXPECT_THAT(C<QComboBox>("CB_BD")->toolTip().toStdString(),
              testing::EndsWith(Traduire("F_Representation", "50")));
}

TEST_F(Materiaux, ARecordThatGotAnotherNameIsNamedByIt) {
  Plaque();
  auto* combo = C<QComboBox>("CB_BD");
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_End);
  essai::Evenements();
  reponses_["F_BD"] = [] {
    auto fiches = LitFiches();
    fiches.back().champs[0] = "Laiton 2 mm";
    EcritFiches(fiches);
    return true;
  };
  Presse("mnu_BD");
  EXPECT_EQ(MateriauCourant, "Laiton 2 mm");
  EXPECT_THAT(combo->toolTip().toStdString(), testing::EndsWith("Laiton 2 mm"));
}

TEST_F(Materiaux, ARecordThatCanNotBeReadIsToldWithItsPlace) {
  Plaque();
  auto fiches = LitFiches();
  fiches.back().champs[1] = "0,8x";
  EcritFiches(fiches);
  auto* combo = C<QComboBox>("CB_BD");
  combo->setFocus();
  essai::Attend("erreurs", "Valeur");
  QTest::keyClick(combo, Qt::Key_End);
  essai::Evenements();
  const std::string texte = essai::Boites().back().texte;
  EXPECT_THAT(texte, testing::HasSubstr(CheminIni() + ":"));
  EXPECT_THAT(texte, testing::HasSubstr("DB5=Alu 2 mm\t0,8x"));
}

// Two paths of other depths, one of them 0: answered No, the depths stay, and the field of the one that is selected
// shows the depth that the next path would get.
TEST_F(Materiaux, ThePanelFollowsAMaterialWhoseDepthIsNotTaken) {
  Plaque();
  for (SequenceInfo& s : Sequences) s.Profondeur = s.Code == Code2(" D") ? 0 : -3;
  CliqueLigne("TreeView1", 3);
  ASSERT_EQ(Selectionnes(), std::vector<std::string>{" D"});
  ASSERT_EQ(C<QLineEdit>("TB_Profondeur")->text(), "-3.00");
  auto* combo = C<QComboBox>("CB_BD");
  combo->setFocus();
  essai::Attend("F_Representation", "lib106", Reponse::Non);
  QTest::keyClick(combo, Qt::Key_End);
  essai::Evenements();
  EXPECT_EQ(C<QLineEdit>("TB_Profondeur")->text(), "-2.50");
}

TEST_F(Materiaux, TheMaterialOfAnOpenedProjectIsTheOneThatTheListShows) {
  Plaque();
  auto* combo = C<QComboBox>("CB_BD");
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_End);
  essai::Evenements();
  const std::string projet = essai::Dossier() + "/alu.OVL";
  essai::AttendFichier("mnu_Save", projet);
  Presse("mnu_Save");
  fenetre_.reset();
  {
    const SansProjet reglages;
    EcrireCle("RayonFraise", "3");
  }
  Charge();
  combo = C<QComboBox>("CB_BD");
  essai::AttendFichier("mnu_Ouvrir", projet);
  Presse("mnu_Ouvrir");
  EXPECT_EQ(combo->currentText(), "Alu 2 mm");
  EXPECT_THAT(combo->toolTip().toStdString(), testing::EndsWith("Alu 2 mm"));
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque-poches.OVL"));
  Presse("mnu_Ouvrir");
  EXPECT_THAT(combo->toolTip().toStdString(), testing::EndsWith(Traduire("F_Representation", "50")));
  EXPECT_EQ(combo->currentIndex(), 0) << "its values are those of no preset";
  EXPECT_EQ(MateriauCourant, "");
}

TEST_F(Materiaux, AnUndoTakesTheMaterialBackInTheListToo) {
  Plaque();
  auto* combo = C<QComboBox>("CB_BD");
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_End);
  essai::Evenements();
  ASSERT_EQ(combo->currentText(), "Alu 2 mm");
  Presse("mnu_Undo");
  EXPECT_NE(RayonFraise, 0.8);
  EXPECT_EQ(combo->currentIndex(), 0);
  EXPECT_EQ(MateriauCourant, "");
}

TEST_F(Materiaux, TheWheelOverAClosedListChangesNothing) {
  Plaque();
  auto* combo = C<QComboBox>("CB_BD");
  const auto fiches = Sequences;
  QWheelEvent roue(QPointF(5, 5), combo->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(combo, &roue);
  essai::Evenements();
  EXPECT_EQ(combo->currentIndex(), 0);
  EXPECT_EQ(RayonFraise, Reglages{}.RayonFraise);
  EXPECT_TRUE(Sequences == fiches);
}

}  // namespace
