// Which layer a path lies on once its pieces are joined.
#include "tests/unit/closed/pathwerk/Aide.h"

namespace {

using namespace aide;
using Places = std::vector<std::uint16_t>;

Trait Sur(Trait trait, std::uint16_t calque) {
  trait.calque = calque;
  return trait;
}

Places Calques(std::vector<Trait> traits, bool ordreImpose = false) {
  Lecture lecture;
  lecture.traits = std::move(traits);
  lecture.ordreImpose = ordreImpose;
  std::vector<PointTrace> points;
  Places places{77};
  const auto n = pathwerk::assemblage::Assemble(lecture, {}, points, &places);
  EXPECT_EQ(n < 0 ? 0U : Sequences(points).size(), places.size());
  return places;
}

// Inner contours are cut first.
TEST(AssembleCalques, FollowTheirPathsIntoTheOrderOfCutting) {
  EXPECT_EQ(Calques({Sur(Carre(0, 0, 50), 1), Sur(Carre(10, 10, 5), 2), Sur(Percage({70, 0}), 3)}),
            (Places{2, 1, 3}));
}

TEST(AssembleCalques, AChainLiesOnTheLayerOfItsFirstPieceInTheFile) {
  EXPECT_EQ(Calques({Sur(Ouvert({{10, 0}, {20, 0}}), 4), Sur(Ouvert({{0, 0}, {10, 0}}), 5),
                     Sur(Ouvert({{20, 0}, {30, 5}}), 5)}),
            (Places{4}));
}

TEST(AssembleCalques, AContourOfLoosePiecesLiesOnTheLayerOfTheFirstOfThem) {
  EXPECT_EQ(Calques({Sur(Ouvert({{0, 0}, {10, 0}}), 2), Sur(Ouvert({{0, 0}, {0, 10}}), 3),
                     Sur(Ouvert({{10, 0}, {0, 10}}), 1)}),
            (Places{2}));
}

TEST(AssembleCalques, OfTwoThatLieOnEachOtherTheFirstOneStays) {
  EXPECT_EQ(Calques({Sur(Carre(0, 0, 50), 6), Sur(Carre(0, 0, 50), 7)}), (Places{6}));
}

TEST(AssembleCalques, OwnFilesKeepTheirs) {
  EXPECT_EQ(Calques({Sur(Carre(0, 0, 50), 1), Sur(Trait{}, 9), Sur(Carre(10, 10, 5), 2)}, true), (Places{1, 2}));
}

TEST(AssembleCalques, OfARefusedDrawingAreNone) {
  EXPECT_EQ(Calques({Sur(Ouvert({{0, 0}, {1e9, 0}}), 1)}), Places{});
}

}  // namespace
