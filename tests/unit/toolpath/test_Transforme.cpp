#include <cmath>
#include <limits>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Traduction.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"

using namespace ovelin;
using namespace essai;

namespace {

void DeuxCarres() {
  AjouteCarre(" A", 0, 0, 10);
  AjouteCarre(" B", 100, 50, 20);
}
void Travee(const char* x, const char* y) {
  EcrireCleSection("table_KR4400", "TB_SAV_18", x);
  EcrireCleSection("table_KR4400", "TB_SAV_19", y);
}
constexpr float Infini = std::numeric_limits<float>::infinity();

}  // namespace

TEST(TourneSelection, TurnsCounterClockwiseAboutTheCentre) {
  BiblioEssai biblio;
  DeuxCarres();
  Sequences[0].Selection = Faux;
  const auto avant = TraceInitial;
  EXPECT_TRUE(TourneSelection(Pi / 2, {100, 50, CodePD, {}}));
  EXPECT_EQ(std::vector<PointTrace>(TraceInitial.begin(), TraceInitial.begin() + 5),
            std::vector<PointTrace>(avant.begin(), avant.begin() + 5));
  // (100, 70) goes to (80, 50).
  EXPECT_NEAR(TraceInitial[6].X, 80, 1e-5);
  EXPECT_NEAR(TraceInitial[6].Y, 50, 1e-5);
  EXPECT_EQ(CodesTraces(), " B");
  EXPECT_EQ(biblio.appels.at(0).points.at(1), TraceInitial[6]);
}

TEST(TourneSelection, RefusesCoordinatesThatAreNoNumbers) {
  BiblioEssai biblio;
  DeuxCarres();
  const auto avant = TraceInitial;
  Attend("F_Representation", "lib113");
  EXPECT_FALSE(TourneSelection(std::nan(""), PointTrace{}));
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_TRUE(biblio.appels.empty());
}

TEST(EchelleSelection, ScalesAboutTheCentreAndLeavesTheTraces) {
  BiblioEssai biblio;
  DeuxCarres();
  Sequences[1].Selection = Faux;
  EXPECT_TRUE(EchelleSelection(2, 0.5F));
  float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  EncombrementSelection(x0, x1, y0, y1, 0);
  EXPECT_EQ(x0, -5);
  EXPECT_EQ(x1, 15);
  EXPECT_EQ(y0, 2.5F);
  EXPECT_EQ(y1, 7.5F);
  EXPECT_EQ(TraceInitial[5].X, 100);
  EXPECT_TRUE(biblio.appels.empty());
}

TEST(MiroirSelection, ExchangesLeftAndRightAndReverses) {
  AjouteSequence(" A", {{0, 0}, {10, 0}, {10, 4}});
  EXPECT_TRUE(MiroirSelection(AxeMiroir::X));
  EXPECT_EQ(Lieux(TraceInitial), (std::vector<std::pair<float, float>>{{0, 4}, {0, 0}, {10, 0}}));
}

TEST(MiroirSelection, ExchangesTopAndBottomAlongY) {
  AjouteSequence(" A", {{0, 0}, {10, 0}, {10, 4}});
  EXPECT_TRUE(MiroirSelection(AxeMiroir::Y));
  EXPECT_EQ(Lieux(TraceInitial), (std::vector<std::pair<float, float>>{{10, 0}, {10, 4}, {0, 4}}));
}

TEST(MiroirSelection, TwiceGivesBackThePointsInTheirOrder) {
  for (const AxeMiroir axe : {AxeMiroir::X, AxeMiroir::Y}) {
    Doc = Document{};
    AjouteSequence(" A", {{0.1F, 0.7F}, {10.3F, 0.2F}, {13.7F, 4.9F}, {2, 3}});
    AjouteSequence(" B", {{5, 5}, {6, 9}});
    const auto avant = TraceInitial;
    MiroirSelection(axe);
    EXPECT_NE(TraceInitial, avant);
    MiroirSelection(axe);
    for (std::size_t i = 0; i < avant.size(); ++i) {
      EXPECT_NEAR(TraceInitial[i].X, avant[i].X, 1e-5);
      EXPECT_NEAR(TraceInitial[i].Y, avant[i].Y, 1e-5);
      EXPECT_EQ(TraceInitial[i].Seq, avant[i].Seq);
    }
  }
}

TEST(Deplacement_Selection, MovesRecomputesAndMarks) {
  BiblioEssai biblio;
  DeuxCarres();
  Sequences[0].Selection = Faux;
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 0.1F));
  EXPECT_TRUE(Deplacement_Selection(Direction::Y, -0.1F));
  EXPECT_FLOAT_EQ(TraceInitial[5].X, 100.1F);
  EXPECT_FLOAT_EQ(TraceInitial[5].Y, 49.9F);
  EXPECT_EQ(TraceInitial[0].X, 0);
  EXPECT_EQ(CodesTraces(), " B");
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_FLOAT_EQ(Xmax, 120.1F);
  EXPECT_EQ(Xmin, 0);
}

TEST(Deplacement_Selection, OfZeroStillMarksTheDocument) {
  BiblioEssai biblio;
  DeuxCarres();
  const auto avant = TraceInitial;
  OrigineX = 3;
  EXPECT_TRUE(Deplacement_Selection(Direction::X, 0));
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(OrigineX, 0);
}

TEST(Deplacement_Selection, DirectionZeroIsThePlainRefresh) {
  BiblioEssai biblio;
  DeuxCarres();
  OrigineX = 3;
  int rafraichi = 0;
  Svc.Rafraichit = [&] { ++rafraichi; };
  EXPECT_TRUE(Deplacement_Selection(Direction::Aucune, 50));
  EXPECT_EQ(TraceInitial[0].X, 0);
  EXPECT_EQ(OrigineX, 3);
  EXPECT_EQ(rafraichi, 1);
  EXPECT_EQ(CodesTraces(), " A B");
}

TEST(Deplacement_Selection, RefusesAPlaceOutsideThePlane) {
  BiblioEssai biblio;
  DeuxCarres();
  const auto avant = TraceInitial;
  for (const float d : {1.1e7F, -Infini, std::nanf("")}) {
    Attend("F_Representation", "lib113");
    EXPECT_FALSE(Deplacement_Selection(Direction::Y, d));
  }
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Modifie, Faux);
}

TEST(Dimensionne_Selection, ScalesWithinTheTravel) {
  BiblioEssai biblio;
  AjouteCarre(" A", 5, 5, 100);
  EXPECT_TRUE(Dimensionne_Selection(2, 3, false));
  EXPECT_EQ(Xmax - Xmin, 200);
  EXPECT_EQ(Ymax - Ymin, 300);
  EXPECT_EQ(CodesTraces(), " A");
  EXPECT_EQ(Modifie, Vrai);
}

TEST(Dimensionne_Selection, UsesTheFirstRatioForBothAxesWhenTheyAreCoupled) {
  BiblioEssai biblio;
  AjouteCarre(" A", 5, 5, 100);
  EXPECT_TRUE(Dimensionne_Selection(2, 3, true));
  EXPECT_EQ(Ymax - Ymin, 200);
}

TEST(Dimensionne_Selection, RefusesARatioOfZero) {
  AjouteCarre(" A", 5, 5, 100);
  for (const auto& [x, y] : std::vector<std::pair<double, double>>{{0, 1}, {1, 0}, {std::nan(""), 1}, {1e-60, 1}}) {
    Attend("F_Dimension", "lib001");
    EXPECT_FALSE(Dimensionne_Selection(x, y, false));
    EXPECT_EQ(Boites().back().icone, Icone::Critique);
    EXPECT_EQ(Boites().back().titre, "OVELIN");
  }
  EXPECT_EQ(TraceInitial[2].X, 105);
  EXPECT_EQ(Modifie, Faux);
}

TEST(Dimensionne_Selection, AcceptsAResultThatIsExactlyTheLimit) {
  BiblioEssai biblio;
  AjouteCarre(" A", 5.1F, 5.1F, 100);
  EXPECT_TRUE(Dimensionne_Selection(6, 4, false));
  EXPECT_NEAR(Xmax - Xmin, 600, 1e-3);
}

TEST(Dimensionne_Selection, RefusesAResultBeyondTheTravelOnEitherAxis) {
  AjouteCarre(" A", 5, 5, 100);
  for (const auto& [x, y] : std::vector<std::pair<double, double>>{{6.001, 1}, {1, 4.001}, {-7, 1}, {1e300, 1}}) {
    Attend("F_Dimension", x == 1e300 ? "lib001" : "lib002");
    EXPECT_FALSE(Dimensionne_Selection(x, y, false));
    EXPECT_EQ(Boites().back().icone, Icone::Critique);
  }
  EXPECT_EQ(TraceInitial[2].X, 105);
}

TEST(Dimensionne_Selection, ReadsTheLimitsOfTheTableInForceEachTime) {
  BiblioEssai biblio;
  AjouteCarre(" A", 5, 5, 100);
  EXPECT_EQ(LimiteCourseX(), 600);
  EXPECT_EQ(LimiteCourseY(), 400);
  Travee("150", "120.5");
  EXPECT_EQ(LimiteCourseX(), 150);
  EXPECT_EQ(LimiteCourseY(), 120.5F);
  Attend("F_Dimension", "lib002");
  EXPECT_FALSE(Dimensionne_Selection(1.6, 1, false));
  EXPECT_TRUE(Dimensionne_Selection(1.5, 1.2, false));
  TableDefaut = "Autre";
  EXPECT_EQ(LimiteCourseX(), 600);
}

TEST(Recale, PutsTheCornerOfTheBoxAndKeepsRelativePositions) {
  BiblioEssai biblio;
  DeuxCarres();
  EXPECT_TRUE(Recale(7, -3));
  EXPECT_EQ(Xmin, 7);
  EXPECT_EQ(Ymin, -3);
  EXPECT_EQ(TraceInitial[5].X, 107);
  EXPECT_EQ(TraceInitial[5].Y, 47);
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_EQ(Modifie, Vrai);
}

TEST(Recale, TakesTheCornerOfTheSelectionAndMovesTheWholeDrawing) {
  BiblioEssai biblio;
  DeuxCarres();
  Sequences[0].Selection = Faux;
  EXPECT_TRUE(Recale(0, 0));
  EXPECT_EQ(TraceInitial[5].X, 0);
  EXPECT_EQ(TraceInitial[0].X, -100);
  EXPECT_EQ(Xmin, -100);
  EXPECT_EQ(Ymax, 20);
}

TEST(Recale, TakesTheDrawingWithoutASelection) {
  BiblioEssai biblio;
  DeuxCarres();
  DeselectionneTout();
  Xmin = 55;
  EXPECT_TRUE(Recale(1, 2));
  EXPECT_EQ(TraceInitial[0].X, 1);
  EXPECT_EQ(TraceInitial[0].Y, 2);
}

TEST(Recale, RefusesAPlaceOutsideThePlane) {
  DeuxCarres();
  Sequences[0].Selection = Faux;
  Attend("F_Representation", "lib113");
  EXPECT_FALSE(Recale(std::nan(""), 0));
  EXPECT_EQ(TraceInitial[5].X, 100);
  EXPECT_EQ(Xmin, 0);
}

TEST(PlaceOrigine, MakesTheMarkedPositionTheOrigin) {
  BiblioEssai biblio;
  DeuxCarres();
  OrigineX = 100;
  OrigineY = 50;
  EXPECT_TRUE(PlaceOrigine());
  EXPECT_EQ(TraceInitial[5].X, 0);
  EXPECT_EQ(TraceInitial[5].Y, 0);
  EXPECT_EQ(Xmin, -100);
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_EQ(Modifie, Vrai);
}

TEST(ChangePosition, MovesOnePointAndRecomputesItsPath) {
  BiblioEssai biblio;
  DeuxCarres();
  EXPECT_TRUE(ChangePosition(6, 90, 80));
  EXPECT_EQ(TraceInitial[6], (PointTrace{90, 80, CodePD, Code2(" B")}));
  EXPECT_EQ(CodesTraces(), " B");
  EXPECT_EQ(Ymax, 80);
  EXPECT_FALSE(ChangePosition(10, 0, 0));
  EXPECT_FALSE(ChangePosition(-1, 0, 0));
  Attend("F_Representation", "lib113");
  EXPECT_FALSE(ChangePosition(6, Infini, 0));
  EXPECT_EQ(TraceInitial[6].X, 90);
}

// Both ends of a closed path stand in one place and go together; the first square is closed by a copy of its start.
TEST(ChangePosition, KeepsAClosedPathClosed) {
  BiblioEssai biblio;
  DeuxCarres();
  for (const int bout : {5, 9}) {
    const float x = 90 + static_cast<float>(bout);
    EXPECT_TRUE(ChangePosition(bout, x, 80));
    EXPECT_EQ(TraceInitial[5], (PointTrace{x, 80, CodePD, Code2(" B")}));
    EXPECT_EQ(TraceInitial[9], (PointTrace{x, 80, CodePD, Code2(" B")}));
  }
  EXPECT_EQ(TraceInitial[4], TraceInitial[0]) << "the other path stays";
}

TEST(ChangePosition, MovesOneEndOfAnOpenPathAlone) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{0, 0}, {10, 0}, {10, 5}});
  EXPECT_TRUE(ChangePosition(2, 30, 40));
  EXPECT_EQ(TraceInitial[0].X, 0);
  EXPECT_EQ(TraceInitial[2].X, 30);
}

// By hand: about (0, 0), cos 30 = 0.8660254, sin 30 = 0.5.
TEST(TourneSelection, TurnsCounterClockwiseByAnOddAngle) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{10, 0}, {0, 4}, {-2, -6}});
  EXPECT_TRUE(TourneSelection(std::acos(-1.0) / 6, PointTrace{0, 0, CodePD, Code2()}));
  EXPECT_NEAR(TraceInitial[0].X, 8.660254, 1e-5);
  EXPECT_NEAR(TraceInitial[0].Y, 5, 1e-5);
  EXPECT_NEAR(TraceInitial[1].X, -2, 1e-5);
  EXPECT_NEAR(TraceInitial[1].Y, 3.4641016, 1e-5);
  EXPECT_NEAR(TraceInitial[2].X, -1.7320508 + 3, 1e-5);
  EXPECT_NEAR(TraceInitial[2].Y, -1 - 5.1961524, 1e-5);
}

// About (3, 4): (8, 4) lies 5 to the right of it; 36.8699 degrees have cosine 0.8 and sine 0.6.
TEST(TourneSelection, TurnsAboutItsCentre) {
  BiblioEssai biblio;
  AjouteSequence(" A", {{8, 4}, {3, 9}});
  EXPECT_TRUE(TourneSelection(-std::asin(0.6), PointTrace{3, 4, CodePD, Code2()}));
  EXPECT_NEAR(TraceInitial[0].X, 7, 1e-5);
  EXPECT_NEAR(TraceInitial[0].Y, 1, 1e-5);
  EXPECT_NEAR(TraceInitial[1].X, 6, 1e-5);
  EXPECT_NEAR(TraceInitial[1].Y, 8, 1e-5);
}

TEST(SupprimePoints, AsksUnlessToldNotTo) {
  BiblioEssai biblio;
  DeuxCarres();
  Attend("F_Representation", "lib101", Reponse::Non);
  EXPECT_FALSE(SupprimePoints({1}));
  EXPECT_EQ(NbPoints, 10);
  Attend("F_Representation", "lib101", Reponse::Oui);
  EXPECT_TRUE(SupprimePoints({1, 2}));
  EXPECT_EQ(NbPoints, 8);
  EXPECT_EQ(AbscissesDessin(), (std::vector<float>{0, 10, 0, 100, 100, 120, 120, 100}));
  Regl.ConfirmSuppr = false;
  EXPECT_TRUE(SupprimePoints({1}));
  EXPECT_EQ(NbPoints, 7);
}

TEST(SupprimePoints, RecomputesOnePathOrAll) {
  BiblioEssai biblio;
  DeuxCarres();
  Regl.ConfirmSuppr = false;
  SupprimePoints({6, 7});
  EXPECT_EQ(CodesTraces(), " B");
  SupprimePoints({1, 6});
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_EQ(Modifie, Vrai);
}

TEST(EchelleSelection, RefusesAPlaceOutsideThePlane) {
  BiblioEssai biblio;
  DeuxCarres();
  const auto avant = TraceInitial;
  Attend("F_Representation", "lib113");
  EXPECT_FALSE(EchelleSelection(1, 1e6F));
  EXPECT_EQ(TraceInitial, avant);
  // The last place of the plane is one: the box is 120 wide about X = 60.
  EXPECT_TRUE(EchelleSelection(1e5F, 1));
  EXPECT_EQ(TraceInitial[0].X, 60 - 60e5F);
}

TEST(MiroirSelection, RefusesAPlaceOutsideThePlaneAndReversesNothing) {
  BiblioEssai biblio;
  DeuxCarres();
  TraceInitial[2].Y = 1.5e7F;
  const auto avant = TraceInitial;
  Attend("F_Representation", "lib113");
  EXPECT_FALSE(MiroirSelection(AxeMiroir::Y));
  EXPECT_EQ(TraceInitial, avant);
}

TEST(PlaceOrigine, ASecondCallMovesNothing) {
  BiblioEssai biblio;
  DeuxCarres();
  OrigineX = 2;
  OrigineY = 3;
  ASSERT_TRUE(PlaceOrigine());
  const auto avant = TraceInitial;
  ASSERT_TRUE(PlaceOrigine());
  EXPECT_TRUE(TraceInitial == avant);
}

TEST(PlaceOrigine, RefusesAPlaceOutsideThePlane) {
  BiblioEssai biblio;
  DeuxCarres();
  OrigineY = -1e7F;
  const auto avant = TraceInitial;
  Attend("F_Representation", "lib113");
  EXPECT_FALSE(PlaceOrigine());
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Modifie, Faux);
}

TEST(SupprimePoints, TellsWhatItDoes) {
  BiblioEssai biblio;
  DeuxCarres();
  Regl.ConfirmSuppr = false;
  SupprimePoints({1});
  std::string textes;
  for (const auto& [panneau, montre] : Panneaux()) {
    EXPECT_EQ(panneau, 5);
    textes += montre + "|";
  }
  const auto texte = [](const char* cle) { return Traduire("F_Representation", cle); };
  EXPECT_EQ(textes, texte("lib101") + "||" + texte("lib004") + "|" + texte("lib002") + "|");
}

TEST(SupprimePoints, LeavesNoTraceOfAPathThatHasNoPointsLeft) {
  BiblioEssai biblio;
  DeuxCarres();
  Regl.ConfirmSuppr = false;
  RecalculDecalages();
  SupprimePoints({0, 1, 2, 3, 4});
  EXPECT_EQ(CodesDessin(), " B");
  EXPECT_EQ(CodesTraces(), " B");
}

TEST(ChangePosition, KeepsTheTracesBehindAPathThatFails) {
  BiblioEssai biblio;
  DeuxCarres();
  RecalculDecalages();
  biblio.echecs = {Code2(" A")};
  EXPECT_TRUE(ChangePosition(1, 1, 1));
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_TRUE(TraceDecale.at(0).Points.empty());
  EXPECT_EQ(TraceDecale.at(1).Points.size(), 5U);
}

TEST(TourneSelection, KeepsTheTracesBehindAPathThatFails) {
  BiblioEssai biblio;
  DeuxCarres();
  RecalculDecalages();
  Sequences[1].Selection = Faux;
  biblio.echecs = {Code2(" A")};
  EXPECT_TRUE(TourneSelection(0.1, CentreSelection()));
  EXPECT_EQ(CodesTraces(), " A B");
  EXPECT_EQ(TraceDecale.at(1).Points.size(), 5U);
}

TEST(ChangePosition, ComputesOnePathAloneWhereNoneFails) {
  BiblioEssai biblio;
  DeuxCarres();
  RecalculDecalages();
  biblio.appels.clear();
  EXPECT_TRUE(ChangePosition(1, 1, 1));
  EXPECT_EQ(biblio.appels.size(), 1U);
}

TEST(SupprimePoints, IgnoresPointsThatAreNotThere) {
  DeuxCarres();
  EXPECT_FALSE(SupprimePoints({-1, 10}));
  EXPECT_EQ(NbPoints, 10);
  EXPECT_EQ(Modifie, Faux);
}
