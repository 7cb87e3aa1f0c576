// The trees of the main window: lines, colours, the selection, and a document that changes under them.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QScrollBar>

#include "core/DocumentCourant.h"
#include "core/Traduction.h"
#include "tests/ui/image/ArbreMontre.h"

namespace {

using namespace ovelin;
using essai::ArbreMontre;
using essai::DeuxCarres;

// The delivered red of the tool path, a shade darker: as a text it is read on white, 4.5 to 1.
bool EstRougeSombre(const QColor& c) { return c.green() == 0 && c.blue() == 0 && c.red() > 220 && c.red() < 250; }

bool Choisie(const char* code) { return EstSelectionnee(Code2(code)) != Faux; }

TEST(Remplit, MakesARootAGroupForEachPathAndItsPoints) {
  DeuxCarres();
  const ArbreMontre a;
  const auto* modele = a.arbre.model();
  EXPECT_EQ(modele->rowCount(), 1);
  EXPECT_EQ(modele->data(a.Racine()).toString().toStdString(), Traduire("F_Representation", "lib403"));
  EXPECT_TRUE(a.arbre.isExpanded(a.Racine()));
  ASSERT_EQ(modele->rowCount(a.Racine()), 2);
  EXPECT_EQ(modele->data(a.Groupe(0)).toString(), QStringLiteral("1:5pts 40.0x40.0"));
  ASSERT_EQ(modele->rowCount(a.Groupe(1)), 5);
  EXPECT_EQ(modele->data(a.Point(1, 1)).toString(), QStringLiteral("60.000 | 40.000"));
  EXPECT_EQ(modele->rowCount(a.Point(1, 1)), 0);
}

TEST(Remplit, TheWordsOfAPathAreItsTipForAWindowThatCutsThemShort) {
  DeuxCarres();
  const ArbreMontre a;
  const QModelIndex nom = a.Groupe(0).siblingAtColumn(1);
  EXPECT_TRUE(nom.data().toString().contains(QStringLiteral("40.0 x 40.0")));
  EXPECT_EQ(nom.data(Qt::ToolTipRole), nom.data());
  EXPECT_FALSE(a.Groupe(0).data(Qt::ToolTipRole).isValid()) << "the tree's own tip stands there";
}

TEST(Remplit, AColourOfItsLayerStandsBesideTheWordsOfAPath) {
  DeuxCarres();
  Complements.Pose(Sequences[0].Code, {false, "Coupe", 0x12AB34});
  Complements.Pose(Sequences[1].Code, {false, "Bord", std::nullopt});
  const ArbreMontre a;
  const auto* modele = a.arbre.model();
  const auto pastille = modele->data(a.Groupe(0).siblingAtColumn(1), Qt::DecorationRole).value<QPixmap>();
  ASSERT_FALSE(pastille.isNull());
  EXPECT_EQ(pastille.toImage().pixelColor(pastille.width() / 2, pastille.height() / 2), QColor(0x12, 0xAB, 0x34));
  EXPECT_NE(pastille.toImage().pixelColor(0, 0), QColor(0x12, 0xAB, 0x34)) << "an edge shows white on white";
  EXPECT_FALSE(modele->data(a.Groupe(1).siblingAtColumn(1), Qt::DecorationRole).isValid()) << "without a colour";
  EXPECT_TRUE(modele->data(a.Groupe(1).siblingAtColumn(1)).toString().endsWith(QStringLiteral(", Bord")));
}

TEST(Remplit, OfADrawingWithOneLayerShowsNoneOfIt) {
  DeuxCarres();
  for (const SequenceInfo& s : Sequences) Complements.Pose(s.Code, {false, "0", 0xFF0000});
  const ArbreMontre a;
  EXPECT_FALSE(a.arbre.model()->data(a.Groupe(0).siblingAtColumn(1), Qt::DecorationRole).isValid());
  EXPECT_FALSE(a.arbre.model()->data(a.Groupe(0).siblingAtColumn(1)).toString().contains(QStringLiteral(", 0,")));
  EXPECT_FALSE(a.arbre.model()->data(a.Groupe(0).siblingAtColumn(1)).toString().endsWith(QStringLiteral(", 0")));
}

TEST(Remplit, TheTreeOfTheToolPathHasItsOwnHeadlinesAndColour) {
  DeuxCarres();
  const ArbreMontre a(SorteArbre::Decale);
  ASSERT_EQ(a.arbre.model()->rowCount(a.Racine()), 2);
  EXPECT_TRUE(a.arbre.model()->data(a.Groupe(0)).toString().startsWith(QStringLiteral("-1/2:")));
  EXPECT_TRUE(EstRougeSombre(a.Couleur(a.Groupe(0))));
  TraceDecale.clear();
  ArbreMontre b(SorteArbre::Decale);
  EXPECT_EQ(b.arbre.model()->rowCount(b.Racine()), 0) << "the root alone";
}

TEST(Remplit, ASecondColumnSaysWhatAPathIs) {
  Regl.Langue = "en";
  DeuxCarres();
  ArbreMontre a;
  const auto* modele = a.arbre.model();
  const auto nom = [&](int g) { return modele->data(a.Groupe(g).siblingAtColumn(1)).toString(); };
  EXPECT_EQ(nom(0), QStringLiteral("Outline 40.0 x 40.0, -3.0"));
  EXPECT_FALSE(modele->data(a.Point(0, 0).siblingAtColumn(1)).isValid());
  Sequences[0].Poche = Vrai;
  EXPECT_EQ(nom(0), QStringLiteral("Outline 40.0 x 40.0, -3.0, pocket"));
  // A click on the words is one on their line.
  a.arbre.scrollTo(a.Groupe(1));
  QTest::mouseClick(a.arbre.viewport(), Qt::LeftButton, {},
                    a.arbre.visualRect(a.Groupe(1).siblingAtColumn(1)).center());
  essai::Evenements();
  EXPECT_TRUE(Choisie("AB"));
  EXPECT_FALSE(Choisie("AA"));
}

TEST(Remplit, KeepsToTheRulesOfAModel) {
  DeuxCarres();
  ArbreMontre a;
  const QAbstractItemModelTester juge(a.arbre.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
  a.arbre.Remplit();
  BasculeSelection(Code2("AB"));
  a.arbre.SuitSelection();
  a.arbre.expandAll();
  essai::Evenements();
  EXPECT_EQ(a.arbre.model()->rowCount(a.Racine()), 2);
}

TEST(Remplit, AnotherCommandThanTheOrdinaryOneIsBlue) {
  DeuxCarres();
  TraceInitial[2].Cde = CodePC;
  const ArbreMontre a;
  EXPECT_EQ(a.Couleur(a.Point(0, 1)), QColor(Qt::black));
  EXPECT_EQ(a.Couleur(a.Point(0, 2)), QColor(0, 0, 200));
}

TEST(Remplit, ColoursCanBeReadOnADarkTheme) {
  DeuxCarres();
  ArbreMontre a;
  EXPECT_EQ(a.Couleur(a.Groupe(0)), QColor(Qt::black));
  essai::ThemeSombreEssai(true);
  essai::Evenements();
  EXPECT_GT(a.Couleur(a.Groupe(0)).lightness(), 150);
}

TEST(Remplit, APathThatIsNotMilledIsGreyButLegible) {
  DeuxCarres();
  Sequences[0].Fraiser = Faux;
  const ArbreMontre a(SorteArbre::Decale);
  const QColor gris = a.Couleur(a.Groupe(0));
  EXPECT_EQ(gris.hslSaturation(), 0);
  EXPECT_LT(gris.lightness(), 160) << "240 of 255 could not be told from white";
  EXPECT_GT(gris.lightness(), 90) << "a grey, not the black of what is milled";
  EXPECT_TRUE(EstRougeSombre(a.Couleur(a.Groupe(1))));
}

TEST(Remplit, APathThatIsNotMilledIsNoWhiteOnADarkTheme) {
  DeuxCarres();
  Sequences[0].Fraiser = Faux;
  const ArbreMontre a(SorteArbre::Decale);
  essai::ThemeSombreEssai(true);
  essai::Evenements();
  const QColor gris = a.Couleur(a.Groupe(0));
  EXPECT_EQ(gris.hslSaturation(), 0);
  EXPECT_GT(gris.lightness(), 110);
  EXPECT_LT(gris.lightness(), 170);
}

TEST(Remplit, TheRootHasAnOpenAndAClosedImage) {
  DeuxCarres();
  ArbreMontre a;
  const auto image = [&a] {
    return a.arbre.model()->data(a.Racine(), Qt::DecorationRole).value<QIcon>().pixmap(16, 16).toImage();
  };
  const QImage ouverte = image();
  EXPECT_FALSE(ouverte.isNull());
  a.arbre.collapse(a.Racine());
  EXPECT_NE(image(), ouverte);
  a.arbre.expand(a.Racine());
  EXPECT_EQ(image(), ouverte);
}

TEST(Remplit, KeepsThePlaceInSightAndTheChosenPoints) {
  for (int i = 0; i < 60; ++i) {
    essai::AjouteCarre(std::string("A") + static_cast<char>('0' + i), static_cast<float>(50 * i), 0, 40);
  }
  DeselectionneTout();
  BasculeSelection(Code2(std::string("A") + static_cast<char>('0' + 40)));
  ArbreMontre a(SorteArbre::Initial, 200);
  a.arbre.SuitSelection();
  a.Clique(a.Point(40, 2));
  const int defile = a.arbre.verticalScrollBar()->value();
  EXPECT_GT(defile, 10);
  TraceInitial[40 * 5 + 2].X += 1;
  a.arbre.Remplit();
  EXPECT_EQ(a.arbre.verticalScrollBar()->value(), defile);
  EXPECT_EQ(a.arbre.PointsChoisis(), std::vector<std::int32_t>{40 * 5 + 2});
  EXPECT_EQ(a.arbre.currentIndex(), a.Point(40, 2));
}

TEST(Remplit, ChosenPointsOfAPathThatHasChangedAreForgotten) {
  DeuxCarres();
  ArbreMontre a;
  a.arbre.expandAll();
  a.Clique(a.Point(1, 2));
  TraceInitial.erase(TraceInitial.begin() + 6);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  a.arbre.Remplit();
  EXPECT_TRUE(a.arbre.PointsChoisis().empty());
}

// --- selection -------------------------------------------------------------------------------------------------

TEST(SuitSelection, ExpandsSelectedPathsWithTheirFirstPointBoldAndClosesTheOthers) {
  DeuxCarres();
  ArbreMontre a;
  a.arbre.expandAll();
  BasculeSelection(Code2("AB"));
  a.arbre.SuitSelection();
  EXPECT_FALSE(a.arbre.isExpanded(a.Groupe(0)));
  EXPECT_TRUE(a.arbre.isExpanded(a.Groupe(1)));
  EXPECT_TRUE(a.Gras(a.Point(1, 0)));
  EXPECT_FALSE(a.Gras(a.Point(1, 1)));
  EXPECT_FALSE(a.Gras(a.Point(0, 0)));
  EXPECT_TRUE(a.arbre.selectionModel()->isSelected(a.Groupe(1)));
  EXPECT_FALSE(a.arbre.selectionModel()->isSelected(a.Groupe(0)));
  EXPECT_TRUE(a.clics.empty()) << "nobody has clicked";
}

TEST(SuitSelection, BringsThePathAndItsFirstPointIntoSight) {
  for (int i = 0; i < 60; ++i) {
    essai::AjouteCarre(std::string("A") + static_cast<char>('0' + i), static_cast<float>(50 * i), 0, 40);
  }
  DeselectionneTout();
  ArbreMontre a(SorteArbre::Initial, 200);
  BasculeSelection(Code2(std::string("A") + static_cast<char>('0' + 50)));
  a.arbre.SuitSelection();
  essai::Evenements();
  const QRect vue = a.arbre.viewport()->rect();
  EXPECT_TRUE(vue.contains(a.arbre.visualRect(a.Groupe(50)))) << "headline";
  EXPECT_TRUE(vue.contains(a.arbre.visualRect(a.Point(50, 0)))) << "first point";
}

TEST(SuitSelection, TheTreeOfTheToolPathFollowsToo) {
  DeuxCarres();
  ArbreMontre a(SorteArbre::Decale);
  BasculeSelection(Code2("AA"));
  a.arbre.SuitSelection();
  EXPECT_TRUE(a.arbre.isExpanded(a.Groupe(0)));
  EXPECT_FALSE(a.arbre.isExpanded(a.Groupe(1)));
}

// --- a document that changes -----------------------------------------------------------------------------------

TEST(ArbrePerime, LinesOfADocumentThatHasGoneAreBlankAndClicksOnThemHarmless) {
  DeuxCarres();
  ArbreMontre a;
  a.arbre.expandAll();
  const QModelIndex point = a.Point(1, 3);
  a.Clique(point);
  a.clics.clear();
  TraceInitial.resize(3);
  NbPoints = 3;
  EXPECT_FALSE(a.arbre.model()->data(point).isValid());
  EXPECT_TRUE(a.arbre.PointsChoisis().empty());
  a.arbre.grab();
  QTest::mouseClick(a.arbre.viewport(), Qt::LeftButton, {}, a.arbre.visualRect(point).center());
  EXPECT_TRUE(a.clics.empty());
  Doc = Document{};
  a.arbre.grab();
  a.arbre.SuitSelection();
  EXPECT_EQ(a.arbre.model()->rowCount(a.Racine()), 2);
  a.arbre.Remplit();
  EXPECT_EQ(a.arbre.model()->rowCount(a.Racine()), 0);
}

TEST(ArbreAcces, HasItsNameAndATextForThoseWhoDoNotSeeIt) {
  for (const auto sorte : {SorteArbre::Initial, SorteArbre::Decale}) {
    const ArbreDocument arbre(sorte);
    EXPECT_EQ(arbre.objectName(),
              sorte == SorteArbre::Initial ? QStringLiteral("TreeView1") : QStringLiteral("TreeView2"));
    EXPECT_FALSE(arbre.accessibleName().isEmpty());
    EXPECT_FALSE(arbre.toolTip().isEmpty());
  }
}

}  // namespace
