// The trees of the main window: lines, colours, clicks, keys, and a document that changes under them.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QContextMenuEvent>
#include <QScrollBar>
#include <memory>

#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "tests/ui/image/Atelier.h"
#include "workspace/ui/ArbreDocument.h"

namespace {

using namespace ovelin;
using essai::DeuxCarres;

struct Arbre1 {
  ArbreDocument arbre;
  std::vector<ResultatClic> clics;
  std::vector<QPoint> menus;

  explicit Arbre1(SorteArbre sorte = SorteArbre::Initial, int hauteur = 500) : arbre(sorte) {
    QObject::connect(&arbre, &ArbreDocument::Clic, [this](const ResultatClic& r) { clics.push_back(r); });
    QObject::connect(&arbre, &ArbreDocument::MenuContexte, [this](const QPoint& p) { menus.push_back(p); });
    essai::Montre(arbre, 300, hauteur);
    arbre.Remplit();
    essai::Evenements();
  }
  [[nodiscard]] QModelIndex Racine() const { return arbre.model()->index(0, 0); }
  [[nodiscard]] QModelIndex Groupe(int g) const { return arbre.model()->index(g, 0, Racine()); }
  [[nodiscard]] QModelIndex Point(int g, int r) const { return arbre.model()->index(r, 0, Groupe(g)); }
  void Clique(const QModelIndex& index, Qt::KeyboardModifiers touches = Qt::NoModifier,
              Qt::MouseButton bouton = Qt::LeftButton) {
    arbre.scrollTo(index);
    QTest::mouseClick(arbre.viewport(), bouton, touches, arbre.visualRect(index).center());
    essai::Evenements();
  }
  [[nodiscard]] bool Gras(const QModelIndex& index) const {
    return arbre.model()->data(index, Qt::FontRole).value<QFont>().bold();
  }
  [[nodiscard]] QColor Couleur(const QModelIndex& index) const {
    return arbre.model()->data(index, Qt::ForegroundRole).value<QColor>();
  }
};

// The delivered red of the tool path, a shade darker: as a text it is read on white, 4.5 to 1.
bool EstRougeSombre(const QColor& c) { return c.green() == 0 && c.blue() == 0 && c.red() > 220 && c.red() < 250; }

bool Choisie(const char* code) { return EstSelectionnee(Code2(code)) != Faux; }

TEST(Remplit, MakesARootAGroupForEachPathAndItsPoints) {
  DeuxCarres();
  const Arbre1 a;
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
  const Arbre1 a;
  const QModelIndex nom = a.Groupe(0).siblingAtColumn(1);
  EXPECT_TRUE(nom.data().toString().contains(QStringLiteral("40.0 x 40.0")));
  EXPECT_EQ(nom.data(Qt::ToolTipRole), nom.data());
  EXPECT_FALSE(a.Groupe(0).data(Qt::ToolTipRole).isValid()) << "the tree's own tip stands there";
}

TEST(Remplit, AColourOfItsLayerStandsBesideTheWordsOfAPath) {
  DeuxCarres();
  Complements.Pose(Sequences[0].Code, {false, "Coupe", 0x12AB34});
  Complements.Pose(Sequences[1].Code, {false, "Bord", std::nullopt});
  const Arbre1 a;
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
  const Arbre1 a;
  EXPECT_FALSE(a.arbre.model()->data(a.Groupe(0).siblingAtColumn(1), Qt::DecorationRole).isValid());
  EXPECT_FALSE(a.arbre.model()->data(a.Groupe(0).siblingAtColumn(1)).toString().contains(QStringLiteral(", 0,")));
  EXPECT_FALSE(a.arbre.model()->data(a.Groupe(0).siblingAtColumn(1)).toString().endsWith(QStringLiteral(", 0")));
}

TEST(Remplit, TheTreeOfTheToolPathHasItsOwnHeadlinesAndColour) {
  DeuxCarres();
  const Arbre1 a(SorteArbre::Decale);
  ASSERT_EQ(a.arbre.model()->rowCount(a.Racine()), 2);
  EXPECT_TRUE(a.arbre.model()->data(a.Groupe(0)).toString().startsWith(QStringLiteral("-1/2:")));
  EXPECT_TRUE(EstRougeSombre(a.Couleur(a.Groupe(0))));
  TraceDecale.clear();
  Arbre1 b(SorteArbre::Decale);
  EXPECT_EQ(b.arbre.model()->rowCount(b.Racine()), 0) << "the root alone";
}

TEST(Remplit, ASecondColumnSaysWhatAPathIs) {
  Regl.Langue = "en";
  DeuxCarres();
  Arbre1 a;
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
  Arbre1 a;
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
  const Arbre1 a;
  EXPECT_EQ(a.Couleur(a.Point(0, 1)), QColor(Qt::black));
  EXPECT_EQ(a.Couleur(a.Point(0, 2)), QColor(0, 0, 200));
}

TEST(Remplit, ColoursCanBeReadOnADarkTheme) {
  DeuxCarres();
  Arbre1 a;
  EXPECT_EQ(a.Couleur(a.Groupe(0)), QColor(Qt::black));
  essai::ThemeSombreEssai(true);
  essai::Evenements();
  EXPECT_GT(a.Couleur(a.Groupe(0)).lightness(), 150);
}

TEST(Remplit, APathThatIsNotMilledIsGreyButLegible) {
  DeuxCarres();
  Sequences[0].Fraiser = Faux;
  const Arbre1 a(SorteArbre::Decale);
  const QColor gris = a.Couleur(a.Groupe(0));
  EXPECT_EQ(gris.hslSaturation(), 0);
  EXPECT_LT(gris.lightness(), 160) << "240 of 255 could not be told from white";
  EXPECT_GT(gris.lightness(), 90) << "a grey, not the black of what is milled";
  EXPECT_TRUE(EstRougeSombre(a.Couleur(a.Groupe(1))));
}

TEST(Remplit, APathThatIsNotMilledIsNoWhiteOnADarkTheme) {
  DeuxCarres();
  Sequences[0].Fraiser = Faux;
  const Arbre1 a(SorteArbre::Decale);
  essai::ThemeSombreEssai(true);
  essai::Evenements();
  const QColor gris = a.Couleur(a.Groupe(0));
  EXPECT_EQ(gris.hslSaturation(), 0);
  EXPECT_GT(gris.lightness(), 110);
  EXPECT_LT(gris.lightness(), 170);
}

TEST(Remplit, TheRootHasAnOpenAndAClosedImage) {
  DeuxCarres();
  Arbre1 a;
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
  Arbre1 a(SorteArbre::Initial, 200);
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
  Arbre1 a;
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
  Arbre1 a;
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
  Arbre1 a(SorteArbre::Initial, 200);
  BasculeSelection(Code2(std::string("A") + static_cast<char>('0' + 50)));
  a.arbre.SuitSelection();
  essai::Evenements();
  const QRect vue = a.arbre.viewport()->rect();
  EXPECT_TRUE(vue.contains(a.arbre.visualRect(a.Groupe(50)))) << "headline";
  EXPECT_TRUE(vue.contains(a.arbre.visualRect(a.Point(50, 0)))) << "first point";
}

TEST(SuitSelection, TheTreeOfTheToolPathFollowsToo) {
  DeuxCarres();
  Arbre1 a(SorteArbre::Decale);
  BasculeSelection(Code2("AA"));
  a.arbre.SuitSelection();
  EXPECT_TRUE(a.arbre.isExpanded(a.Groupe(0)));
  EXPECT_FALSE(a.arbre.isExpanded(a.Groupe(1)));
}

// --- clicks and keys -------------------------------------------------------------------------------------------

TEST(ClicArbre, OnAPathSelectsItAlone) {
  DeuxCarres();
  BasculeSelection(Code2("AA"));
  Arbre1 a;
  a.Clique(a.Groupe(1));
  EXPECT_FALSE(Choisie("AA"));
  EXPECT_TRUE(Choisie("AB"));
  ASSERT_EQ(a.clics.size(), 1U);
  EXPECT_TRUE(a.clics[0].initSeq);
  EXPECT_FALSE(a.clics[0].croix);
}

TEST(ClicArbre, OnAPointBringsItIntoFocus) {
  DeuxCarres();
  Arbre1 a;
  a.arbre.expandAll();
  a.Clique(a.Point(1, 1));
  ASSERT_EQ(a.clics.size(), 1U);
  ASSERT_TRUE(a.clics[0].croix);
  EXPECT_EQ(a.clics[0].croix->X, 60);
  EXPECT_EQ(a.clics[0].TB_X, "60.000");
  EXPECT_EQ(a.clics[0].TB_Y, "40.000");
  EXPECT_EQ(PointCourantX, 60);
  EXPECT_EQ(PointCourantY, 40);
  EXPECT_EQ(SeqCourante, Code2("AB"));
  EXPECT_EQ(a.arbre.PointsChoisis(), std::vector<std::int32_t>{6});
}

TEST(ClicArbre, OnTheRootDoesNothing) {
  DeuxCarres();
  Arbre1 a;
  a.Clique(a.Racine());
  EXPECT_TRUE(a.clics.empty());
}

TEST(ClicArbre, ShiftAndControlChooseSeveralPoints) {
  DeuxCarres();
  Arbre1 a;
  a.arbre.expandAll();
  a.Clique(a.Point(0, 1));
  a.Clique(a.Point(0, 3), Qt::ShiftModifier);
  EXPECT_EQ(a.arbre.PointsChoisis(), (std::vector<std::int32_t>{1, 2, 3}));
  a.Clique(a.Point(1, 0), Qt::ControlModifier);
  EXPECT_EQ(a.arbre.PointsChoisis(), (std::vector<std::int32_t>{1, 2, 3, 5}));
  a.Clique(a.Point(0, 2), Qt::ControlModifier);
  EXPECT_EQ(a.arbre.PointsChoisis(), (std::vector<std::int32_t>{1, 3, 5}));
}

TEST(ClicArbre, PointsOfTheToolPathAreNoPointsOfTheDrawing) {
  DeuxCarres();
  Arbre1 a(SorteArbre::Decale);
  a.arbre.expandAll();
  a.Clique(a.Point(0, 1));
  ASSERT_EQ(a.clics.size(), 1U);
  EXPECT_EQ(a.clics[0].croix->Seq, Code2("AA"));
  EXPECT_TRUE(a.arbre.PointsChoisis().empty());
}

TEST(ClicArbre, CannotBeEditedAndADoubleClickClosesNothing) {
  DeuxCarres();
  Arbre1 a;
  QObject::connect(&a.arbre, &ArbreDocument::Clic, [&a](const ResultatClic&) { a.arbre.SuitSelection(); });
  a.Clique(a.Groupe(0));
  QTest::mouseDClick(a.arbre.viewport(), Qt::LeftButton, {}, a.arbre.visualRect(a.Groupe(0)).center());
  essai::Evenements();
  EXPECT_TRUE(a.arbre.isExpanded(a.Groupe(0)));
  EXPECT_EQ(a.arbre.editTriggers(), QAbstractItemView::NoEditTriggers);
  EXPECT_FALSE(a.arbre.model()->flags(a.Groupe(0)).testFlag(Qt::ItemIsEditable));
}

TEST(TouchesArbre, SelectLikeAClick) {
  DeuxCarres();
  Arbre1 a;
  QObject::connect(&a.arbre, &ArbreDocument::Clic, [&a](const ResultatClic& r) {
    if (r.initSeq) a.arbre.SuitSelection();
  });
  a.arbre.setFocus();
  a.arbre.setCurrentIndex(a.Racine());
  EXPECT_TRUE(a.clics.empty());
  QTest::keyClick(&a.arbre, Qt::Key_Down);
  EXPECT_TRUE(Choisie("AA"));
  QTest::keyClick(&a.arbre, Qt::Key_Down);
  ASSERT_EQ(a.clics.size(), 2U);
  ASSERT_TRUE(a.clics[1].croix) << "into the points of the opened path";
  EXPECT_EQ(a.clics[1].croix->X, 0);
  QTest::keyClick(&a.arbre, Qt::Key_End);
  EXPECT_TRUE(Choisie("AB"));
  EXPECT_FALSE(Choisie("AA"));
}

TEST(MenuArbre, SelectsTheLineBelowThePointerFirst) {
  DeuxCarres();
  Arbre1 a;
  const auto demande = [&a](const QModelIndex& index) {
    const QPoint place = a.arbre.visualRect(index).center();
    QTest::mousePress(a.arbre.viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent e(QContextMenuEvent::Mouse, place, a.arbre.viewport()->mapToGlobal(place));
    QApplication::sendEvent(a.arbre.viewport(), &e);
    QTest::mouseRelease(a.arbre.viewport(), Qt::RightButton, {}, place);
  };
  demande(a.Groupe(1));
  EXPECT_TRUE(Choisie("AB"));
  EXPECT_EQ(a.clics.size(), 1U);
  ASSERT_EQ(a.menus.size(), 1U);
  BasculeSelection(Code2("AA"));
  a.arbre.SuitSelection();
  demande(a.Groupe(1));
  EXPECT_TRUE(Choisie("AA") && Choisie("AB")) << "the menu acts on all selected ones";
  EXPECT_EQ(a.menus.size(), 2U);
}

TEST(MenuArbre, ComesWithItsKey) {
  DeuxCarres();
  Arbre1 a;
  QContextMenuEvent e(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
  QApplication::sendEvent(a.arbre.viewport(), &e);
  EXPECT_EQ(a.menus.size(), 1U);
  EXPECT_TRUE(a.clics.empty());
}

// --- a document that changes -----------------------------------------------------------------------------------

TEST(ArbrePerime, LinesOfADocumentThatHasGoneAreBlankAndClicksOnThemHarmless) {
  DeuxCarres();
  Arbre1 a;
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

TEST(ArbreParesseux, PointLinesAreReadWhenTheyAreLookedAt) {
  DeuxCarres();
  const Arbre1 a;
  TraceInitial[1].X = 12.5F;
  EXPECT_EQ(a.arbre.model()->data(a.Point(0, 1)).toString(), QStringLiteral("12.500 | 40.000"));
}

// A path along X, a point each millimetre, selected; the tool runs on it.
void LongueLigne(int points) {
  for (int i = 0; i < points; ++i) TraceInitial.push_back({static_cast<float>(i), 0, CodePD, Code2("AA")});
  NbPoints = points;
  Sequences = {{Code2("AA"), Faux, -3, Vrai, 1, Vrai}};
  TraceDecale = {{Code2("AA"), TraceInitial}};
}

TEST(ArbreParesseux, AMillionPointsAreTwoHundredLinesAndAFold) {
  for (const auto sorte : {SorteArbre::Initial, SorteArbre::Decale}) {
    Doc = Document{};
    LongueLigne(1'000'000);
    Arbre1 a(sorte);
    a.arbre.SuitSelection();
    ASSERT_EQ(a.arbre.model()->rowCount(a.Groupe(0)), 201);
    EXPECT_EQ(a.arbre.model()->data(a.Point(0, 199)).toString(), QStringLiteral("199.000 | 0.000"));
    const QModelIndex pli = a.Point(0, 200);
    EXPECT_EQ(a.arbre.model()->rowCount(pli), 0) << "nobody has opened it";
    EXPECT_TRUE(a.arbre.model()->hasChildren(pli));
    EXPECT_FALSE(a.arbre.isExpanded(pli));
    EXPECT_TRUE(a.arbre.model()->data(pli).toString().startsWith(QStringLiteral("+ 999800 ")));
    EXPECT_TRUE(a.arbre.uniformRowHeights());
  }
}

TEST(ArbreParesseux, TwoHundredPointsNeedNoFold) {
  LongueLigne(200);
  const Arbre1 a;
  EXPECT_EQ(a.arbre.model()->rowCount(a.Groupe(0)), 200);
  EXPECT_EQ(a.arbre.model()->rowCount(a.Point(0, 199)), 0);
  EXPECT_FALSE(a.arbre.model()->hasChildren(a.Point(0, 199)));
}

struct ArbreLong : Arbre1 {
  explicit ArbreLong(SorteArbre sorte = SorteArbre::Initial) : Arbre1((LongueLigne(250), sorte)) {
    arbre.SuitSelection();
    arbre.setFocus();
  }
  [[nodiscard]] QModelIndex Pli() const { return Point(0, 200); }
  [[nodiscard]] QModelIndex Dedans(int rang) const { return arbre.model()->index(rang, 0, Pli()); }
};

TEST(PliArbre, AClickOpensItWithAllOtherPointsAndAnotherClosesIt) {
  for (const auto sorte : {SorteArbre::Initial, SorteArbre::Decale}) {
    Doc = Document{};
    ArbreLong a(sorte);
    a.Clique(a.Pli());
    EXPECT_TRUE(a.arbre.isExpanded(a.Pli()));
    ASSERT_EQ(a.arbre.model()->rowCount(a.Pli()), 50);
    EXPECT_EQ(a.arbre.model()->data(a.Dedans(0)).toString(), QStringLiteral("200.000 | 0.000"));
    EXPECT_EQ(a.arbre.model()->data(a.Dedans(49)).toString(), QStringLiteral("249.000 | 0.000"));
    EXPECT_TRUE(a.clics.empty()) << "nothing was chosen";
    a.Clique(a.Pli());
    EXPECT_FALSE(a.arbre.isExpanded(a.Pli()));
  }
}

TEST(PliArbre, TheKeysOpenItAndGoIntoIt) {
  ArbreLong a;
  a.arbre.setCurrentIndex(a.Point(0, 199));
  QTest::keyClick(&a.arbre, Qt::Key_Down);
  EXPECT_EQ(a.arbre.currentIndex(), a.Pli());
  EXPECT_TRUE(a.clics.empty());
  QTest::keyClick(&a.arbre, Qt::Key_Right);
  EXPECT_TRUE(a.arbre.isExpanded(a.Pli()));
  QTest::keyClick(&a.arbre, Qt::Key_Down);
  ASSERT_EQ(a.clics.size(), 1U);
  ASSERT_TRUE(a.clics[0].croix);
  EXPECT_EQ(a.clics[0].croix->X, 200);
  EXPECT_EQ(a.arbre.PointsChoisis(), std::vector<std::int32_t>{200});
}

TEST(PliArbre, PointsAreChosenOverItsEdgeAndItIsNoneOfThem) {
  ArbreLong a;
  a.Clique(a.Pli());
  a.Clique(a.Point(0, 198));
  a.Clique(a.Dedans(1), Qt::ShiftModifier);
  EXPECT_EQ(a.arbre.PointsChoisis(), (std::vector<std::int32_t>{198, 199, 200, 201}));
  a.Clique(a.Pli(), Qt::ControlModifier);
  EXPECT_EQ(a.arbre.PointsChoisis().size(), 4U);
}

TEST(PliArbre, StaysOpenWithItsChosenPointOverAChange) {
  ArbreLong a;
  a.Clique(a.Pli());
  a.Clique(a.Dedans(7));
  TraceInitial[207].Y = 3;
  a.arbre.Remplit();
  EXPECT_TRUE(a.arbre.isExpanded(a.Pli()));
  EXPECT_EQ(a.arbre.PointsChoisis(), std::vector<std::int32_t>{207});
  EXPECT_EQ(a.arbre.model()->data(a.Dedans(7)).toString(), QStringLiteral("207.000 | 3.000"));
  a.arbre.SuitSelection();
  EXPECT_TRUE(a.arbre.isExpanded(a.Pli()));
  DeselectionneTout();
  a.arbre.SuitSelection();
  EXPECT_FALSE(a.arbre.isExpanded(a.Pli())) << "its path is closed";
}

TEST(PliArbre, KeepsToTheRulesOfAModel) {
  ArbreLong a;
  QAbstractItemModelTester juge(a.arbre.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
  juge.setUseFetchMore(false);  // it would open folds itself, also while a reset is being told
  a.arbre.expandAll();
  essai::Evenements();
  EXPECT_EQ(a.arbre.model()->rowCount(a.Pli()), 50);
  EXPECT_EQ(a.Dedans(3).parent(), a.Pli());
  TraceInitial[230].Y = 40;
  a.arbre.RefaitTitres(Code2("AA"));
  a.arbre.Remplit();
  EXPECT_EQ(a.arbre.model()->rowCount(a.Groupe(0)), 201);
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
