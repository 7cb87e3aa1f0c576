// Copies of paths with their records.
#include <cmath>
#include <set>

#include "tests/support/Support.h"
#include "toolpath/Module_Transforme.h"
#include "toolpath/chemins/Etendues.h"
#include "toolpath/chemins/NoyauCopie.h"

namespace {

using namespace ovelin;

PointTrace P(float x, float y, const char* code, Code2 cde = CodePD) { return {x, y, cde, Code2(code)}; }

// " A", selected, 2 mm deep with a mark; " B", a pocket, not selected; " C", selected.
Document Trois() {
  Document d;
  d.TraceInitial = {P(0, 0, " A"), P(5, 0, " A", CodePC), P(10, 0, " A"), P(0, 5, " B"),
                    P(1, 5, " B"), P(20, 20, " C"),       P(30, 20, " C")};
  d.NbPoints = 7;
  d.Sequences = {{Code2(" A"), Faux, -2, Vrai, 2, Vrai},
                 {Code2(" B"), Vrai, -3, Vrai, 1, Faux},
                 {Code2(" C"), Faux, -4, Faux, 3, Vrai}};
  return d;
}

constexpr double Loin = 1e7;

TEST(CopieDe, TakesTheSelectedPathsWithTheirRecords) {
  const Document d = Trois();
  const Copie c = CopieDe(d);
  ASSERT_EQ(c.points.size(), 5U);
  EXPECT_EQ(c.points[1].Cde, CodePC);
  ASSERT_EQ(c.fiches.size(), 2U);
  EXPECT_EQ(c.fiches[1].Profondeur, -4);
  const BoiteCopie b = BoiteDe(c);
  EXPECT_EQ(b.xmin, 0);
  EXPECT_EQ(b.xmax, 30);
  EXPECT_EQ(b.ymax, 20);
}

TEST(AjouteCopies, StandBehindTheDrawingUnderCodesOfTheirOwnAndAreTheSelection) {
  Document d = Trois();
  ASSERT_EQ(AjouteCopies(d, CopieDe(d), PosesDe(Reseau{2, 1, 100, 7}), Loin), IssueCopie::Faite);
  ASSERT_EQ(d.NbPoints, 12);
  ASSERT_EQ(d.TraceInitial.size(), 12U);
  EXPECT_EQ(d.TraceInitial[7], (PointTrace{100, 0, CodePD, Code2(" D")}));
  EXPECT_EQ(d.TraceInitial[8].Cde, CodePC);
  EXPECT_EQ(d.TraceInitial[11], (PointTrace{130, 20, CodePD, Code2(" E")}));
  ASSERT_EQ(d.Sequences.size(), 5U);
  EXPECT_EQ(d.Sequences[3], (SequenceInfo{Code2(" D"), Faux, -2, Vrai, 2, Vrai}));
  EXPECT_EQ(d.Sequences[4], (SequenceInfo{Code2(" E"), Faux, -4, Faux, 3, Vrai}));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(d.Sequences[i].Selection, Faux);
}

TEST(AjouteCopies, AThousandHaveAThousandCodes) {
  Document d = Trois();
  ASSERT_EQ(AjouteCopies(d, CopieDe(d), PosesDe(Reseau{25, 20, 40, 40}), Loin), IssueCopie::Faite);
  std::set<std::uint32_t> codes;
  for (const SequenceInfo& s : d.Sequences) codes.insert(s.Code.Cle());
  EXPECT_EQ(codes.size(), 3U + 2U * 499U);
  EXPECT_EQ(EtenduesDe(d.TraceInitial).size(), codes.size());
}

TEST(AjouteCopies, IsRefusedAsAWholeWhereCodesRunOut) {
  Document d = Trois();
  const Document avant = d;
  EXPECT_EQ(AjouteCopies(d, CopieDe(d), PosesDe(Reseau{5000, 1, 1, 0}), Loin), IssueCopie::TropDeSequences);
  EXPECT_EQ(d, avant);
}

TEST(AjouteCopies, IsRefusedAsAWholeBeyondAllBounds) {
  Document d = Trois();
  const Document avant = d;
  EXPECT_EQ(AjouteCopies(d, CopieDe(d), PosesDe(Reseau{3, 1, 6e6, 0}), Loin), IssueCopie::HorsLimites);
  EXPECT_EQ(d, avant);
}

TEST(AjouteCopies, IntoAnEmptyDrawingLeaveNoBlankRecord) {
  Document vide;
  const Document d = Trois();
  ASSERT_EQ(AjouteCopies(vide, CopieDe(d), PosesDe(Reseau{2, 1, 0, 0}), Loin), IssueCopie::Faite);
  ASSERT_EQ(vide.Sequences.size(), 2U);
  EXPECT_EQ(vide.Sequences[0].Profondeur, -2);
}

TEST(PosesDe, RowsAndColumnsHaveOnePoseForEachBesideTheOriginal) {
  const auto poses = PosesDe(Reseau{3, 2, 10, -20});
  ASSERT_EQ(poses.size(), 5U);
  const LieuCopie dernier = poses.back()({1, 1, CodePD, {}});
  EXPECT_EQ(dernier.x, 21);
  EXPECT_EQ(dernier.y, -19);
  EXPECT_TRUE(PosesDe(Reseau{1, 1, 5, 5}).empty());
}

TEST(PosesDe, ACircleTurnsAroundItsPoint) {
  const double quart = std::acos(0.0);
  const auto poses = PosesDe(ReseauTournant{4, quart, 10, 10});
  ASSERT_EQ(poses.size(), 3U);
  const LieuCopie haut = poses[0]({15, 10, CodePD, {}});  // a quarter counter-clockwise
  EXPECT_NEAR(haut.x, 10, 1e-9);
  EXPECT_NEAR(haut.y, 15, 1e-9);
  const LieuCopie bas = poses[2]({15, 10, CodePD, {}});
  EXPECT_NEAR(bas.y, 5, 1e-9);
}

TEST(AjouteCopies, HaveTheLayerOfWhatTheyAreACopyOf) {
  Document d = Trois();
  const Complement gravure{true, "Gravure", 0x00FF00};
  d.Complements.Pose(Code2(" C"), gravure);
  d.Complements.Pose(Code2(" B"), {false, "Bord", std::nullopt});
  ASSERT_EQ(AjouteCopies(d, CopieDe(d), PosesDe(Reseau{3, 1, 100, 7}), Loin), IssueCopie::Faite);
  for (const char* code : {" C", " E", " G"}) EXPECT_EQ(d.Complements.De(Code2(code)), gravure) << code;
  for (const char* code : {" A", " D", " F"}) EXPECT_EQ(d.Complements.De(Code2(code)), Complement{}) << code;
}

TEST(AjouteCopies, IntoAnEmptyDrawingBringTheirLayersAndNoOthers) {
  Document source = Trois();
  source.Complements.Pose(Code2(" C"), {false, "Gravure", std::nullopt});
  Document d;
  d.Complements.Pose(Code2(" A"), {true, "", std::nullopt});
  ASSERT_EQ(AjouteCopies(d, CopieDe(source), PosesDe(Reseau{2, 1, 0, 0}), Loin), IssueCopie::Faite);
  EXPECT_EQ(d.Complements.De(Code2(" A")), Complement{});
  EXPECT_EQ(d.Complements.De(Code2(" B")).Calque, "Gravure");
}

TEST(AjouteCopies, ThatAreRefusedLeaveTheLayers) {
  Document d = Trois();
  d.Complements.Pose(Code2(" C"), {false, "Gravure", std::nullopt});
  const Document avant = d;
  ASSERT_EQ(AjouteCopies(d, CopieDe(d), PosesDe(Reseau{2, 1, 2e7, 0}), Loin), IssueCopie::HorsLimites);
  EXPECT_EQ(d, avant);
}

}  // namespace
