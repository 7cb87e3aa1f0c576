// The list of the steps of undo beside the picture, by mouse and keys.
#include <QLabel>
#include <QListView>
#include <QPushButton>

#include "core/DocumentCourant.h"
#include "core/RunCourant.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/ui/PanneauHistorique.h"

namespace {

using namespace ovelin;

class ListeDesPas : public essai::Principale {
 protected:
  void Ouvre() {
    Charge(Exemple("plaque.dxf"));
    Commande("mnu_Historique");
    C<ImagePB1>("PB1")->MetEnPage();  // it is narrower now, and leaves a step of the view for that
    essai::Evenements();
  }
  void Deplace() {
    QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Right, Qt::ShiftModifier);
    essai::Evenements();
  }
  QListView* Liste() { return C<QListView>("List_Historique"); }
  QVariant Ligne(int rang, int role = Qt::DisplayRole) { return Liste()->model()->index(rang, 0).data(role); }
  int Nombre() { return Liste()->model()->rowCount(); }
  void Clique(int rang) {
    const QModelIndex ligne = Liste()->model()->index(rang, 0);
    Liste()->scrollTo(ligne);
    QTest::mouseClick(Liste()->viewport(), Qt::LeftButton, {}, Liste()->visualRect(ligne).center());
    essai::Evenements();
  }
};

TEST_F(ListeDesPas, ComesAndGoesByItsCommand) {
  Charge(Exemple("plaque.dxf"));
  EXPECT_FALSE(C<PanneauHistorique>("Frame_Historique")->isVisible());
  EXPECT_EQ(Menu("mnu_Historique")->shortcut(), QKeySequence("Ctrl+H"));
  Commande("mnu_Historique");
  EXPECT_TRUE(C<PanneauHistorique>("Frame_Historique")->isVisible());
  Commande("mnu_Historique");
  EXPECT_FALSE(C<PanneauHistorique>("Frame_Historique")->isVisible());
}

TEST_F(ListeDesPas, AClickGoesBackAndAnotherForwardAgain) {
  Ouvre();
  const int sequences = static_cast<int>(ListeCodes().size());
  const float x = TraceInitial[0].X;
  const int n = Nombre();  // the opening, and what the layout draws again
  EXPECT_EQ(Ligne(0), "Ouverture");
  Deplace();
  Deplace();
  ASSERT_EQ(Nombre(), n + 2);
  EXPECT_EQ(Ligne(n + 1), QStringLiteral("Déplacement, %1 séquences").arg(sequences));
  EXPECT_FLOAT_EQ(TraceInitial[0].X, x + 2);
  Clique(0);
  EXPECT_EQ(TraceInitial[0].X, x);
  EXPECT_TRUE(Menu("mnu_Redo")->isEnabled());
  EXPECT_FALSE(Menu("mnu_Undo")->isEnabled());
  ASSERT_EQ(Nombre(), n + 2) << "what was taken back is still there";
  EXPECT_TRUE(Ligne(0, Qt::FontRole).value<QFont>().bold());
  EXPECT_TRUE(Ligne(n + 1, Qt::FontRole).value<QFont>().italic());
  Clique(n + 1);
  EXPECT_FLOAT_EQ(TraceInitial[0].X, x + 2);
  EXPECT_FALSE(Menu("mnu_Redo")->isEnabled());
  EXPECT_TRUE(Ligne(n + 1, Qt::FontRole).value<QFont>().bold());
}

TEST_F(ListeDesPas, TheKeysGoThereToo) {
  Ouvre();
  const float x = TraceInitial[0].X;
  Deplace();
  Liste()->setFocus();
  QTest::keyClick(Liste(), Qt::Key_Up);
  EXPECT_FLOAT_EQ(TraceInitial[0].X, x + 1) << "only looked at";
  QTest::keyClick(Liste(), Qt::Key_Return);
  essai::Evenements();
  EXPECT_EQ(TraceInitial[0].X, x);
}

TEST_F(ListeDesPas, StepsOfTheViewAreGreyAndOneJumpLeavesThemOut) {
  Ouvre();
  const float x = TraceInitial[0].X;
  const int n = Nombre();
  EXPECT_FALSE(C<QPushButton>("CB_Reculer")->isEnabled());
  Deplace();
  Commande("mnu_ZoomPlus");
  Commande("mnu_ZoomPlus");
  ASSERT_EQ(Nombre(), n + 3);
  EXPECT_EQ(Ligne(n + 2), "Vue");
  EXPECT_TRUE(Ligne(n + 2, Qt::ForegroundRole).isValid());
  EXPECT_FALSE(Ligne(n, Qt::ForegroundRole).isValid());
  essai::Clique(*C<QPushButton>("CB_Reculer"));
  EXPECT_EQ(TraceInitial[0].X, x);
  EXPECT_FALSE(C<QPushButton>("CB_Reculer")->isEnabled());
  essai::Clique(*C<QPushButton>("CB_Avancer"));
  EXPECT_FLOAT_EQ(TraceInitial[0].X, x + 1);
  EXPECT_FALSE(C<QPushButton>("CB_Avancer")->isEnabled());
}

TEST_F(ListeDesPas, EachHasAPictureOfItsDrawing) {
  Ouvre();
  const auto image = [this](int rang) { return Ligne(rang, Qt::DecorationRole).value<QPixmap>().toImage(); };
  EXPECT_FALSE(image(0).isNull());
  const QImage claire = image(0);
  essai::ThemeSombreEssai(true);
  essai::Evenements();
  EXPECT_NE(image(0), claire) << "on dark paper";
}

TEST_F(ListeDesPas, WhileTheMachineWorksNothingIsTakenBack) {
  Ouvre();
  Deplace();
  const float x = TraceInitial[0].X;
  int bips = 0;
  Svc.Bip = [&bips] { ++bips; };
  OperationCarte = true;
  Clique(0);
  EXPECT_EQ(TraceInitial[0].X, x);
  EXPECT_EQ(bips, 1);
}

TEST_F(ListeDesPas, AnOpeningBeginsItAnew) {
  Ouvre();
  const int n = Nombre();
  Deplace();
  Deplace();
  ASSERT_EQ(Nombre(), n + 2);
  essai::Attend("F_Representation", "lib140", Reponse::Non);
  fenetre_->Depose(Exemple("equerre.dxf"));
  essai::Evenements();
  EXPECT_LE(Nombre(), n);
  EXPECT_EQ(Ligne(0), "Ouverture");
}

}  // namespace
