#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>

#include "core/ChampsMachine.h"

namespace {

using namespace ovelin;

template <class T>
concept AUneCourseW = requires {
  T::CourseW;
};
template <class T>
concept AUneCourseX = requires {
  T::CourseX;
};

// A field has a row or does not compile: no other control can be made into one.
static_assert(AUneCourseX<ChampsMachine> && !AUneCourseW<ChampsMachine>);
static_assert(!std::is_default_constructible_v<ChampMachine>);
static_assert(!std::is_constructible_v<ChampMachine, FamilleChamp, int, bool, const char*, JumeauChamp, const char*,
                                       const char*>);
static_assert(!std::is_constructible_v<LectureChamp, const char*, const char*>);

TEST(ChampsMachine, HaveTheKeysOfTheirControls) {
  EXPECT_EQ(ChampsMachine::CourseX.Cle(), "TB_SAV_18");
  EXPECT_EQ(ChampsMachine::CourseZ.Cle(), "TB_SAV_188888");
  EXPECT_EQ(ChampsMachine::Sortie10.Cle(), "Combo_SAV_10");
  EXPECT_EQ(ChampsMachine::InverseSortie1.Cle(), "CB_SAV_101");
  EXPECT_EQ(ChampsMachine::ZeroSurTable.Cle(), "Option_SAV_1");
  EXPECT_EQ(ChampsMachine::PenteAccel.Cle(), "Sld_SAV_0");
}

TEST(ChampsMachine, NoTwoHaveOneKey) {
  std::set<std::string> cles;
  for (const ChampMachine& champ : ChampsMachine::Tous) EXPECT_TRUE(cles.insert(champ.Cle()).second) << champ.Cle();
  EXPECT_EQ(cles.size(), 72U);
}

TEST(ChampsMachine, TwinsNameEachOther) {
  int jumeaux = 0;
  for (const ChampMachine& champ : ChampsMachine::Tous) {
    if (champ.jumeau.sorte == SorteJumeau::Aucun) continue;
    ++jumeaux;
    const ChampMachine* autre = ChercheChamp(champ.famille, champ.jumeau.index);
    ASSERT_NE(autre, nullptr) << champ.Cle();
    EXPECT_EQ(autre->jumeau.index, champ.index);
    EXPECT_NE(autre->jumeau.sorte, champ.jumeau.sorte);
  }
  EXPECT_EQ(jumeaux, 6);
}

TEST(ChercheChamp, FindsAFieldByItsControl) {
  const ChampMachine* champ = ChercheChamp(FamilleChamp::TB_SAV, 15);
  ASSERT_NE(champ, nullptr);
  EXPECT_EQ(champ->Cle(), "TB_SAV_15");
  EXPECT_EQ(ChercheChamp(FamilleChamp::TB_SAV, 33), nullptr);
  EXPECT_EQ(ChercheChamp(FamilleChamp::Sld_SAV, 1), nullptr);
}

}  // namespace
