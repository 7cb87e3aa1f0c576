// Large drawings, which several threads put together.
#include <array>

#include "tests/unit/closed/pathwerk/Aide.h"

using namespace aide;

namespace {

constexpr int Cotes = 90;  // squares of 1 mm, that many to a row and to a column

// Their sides as loose lines, each written in the way that its number says.
std::vector<Trait> CotesDeCarres() {
  std::vector<Trait> traits;
  for (int k = 0; k < Cotes * Cotes; ++k) {
    const Vec2 o{3.0 * (k % Cotes), 3.0 * (k / Cotes)};
    const std::array<Vec2, 4> coins{o, {o.x + 1, o.y}, {o.x + 1, o.y + 1}, {o.x, o.y + 1}};
    for (std::size_t i = 0; i < 4; ++i) {
      const Vec2 a = coins[i];
      const Vec2 b = coins[(i + 1) % 4];
      traits.push_back(k % 3 == 0 && i % 2 == 0 ? Ouvert({b, a}) : Ouvert({a, b}));
      traits.back().ligne = static_cast<std::uint32_t>(traits.size());
    }
  }
  return traits;
}

pathwerk::OptionsLecture AvecFils(unsigned fils) {
  pathwerk::OptionsLecture options;
  options.Fils = fils;
  return options;
}

}  // namespace

TEST(AssembleFils, LooseSidesOfManySquaresBecomeTheSquaresOnAnyNumberOfThreads) {
  for (const unsigned fils : {1U, 2U, 7U}) {
    Lecture lecture;
    lecture.traits = CotesDeCarres();
    std::vector<PointTrace> points;
    ASSERT_EQ(pathwerk::assemblage::Assemble(lecture, AvecFils(fils), points), 5 * Cotes * Cotes);
    const auto carres = Sequences(points);
    ASSERT_EQ(carres.size(), std::size_t{Cotes * Cotes});
    for (std::size_t k = 0; k < carres.size(); ++k) {
      const double x = 3.0 * static_cast<double>(k % Cotes);
      ASSERT_EQ(carres[k].size(), 5U) << k;
      EXPECT_EQ(carres[k].front(), carres[k].back()) << k;
      EXPECT_TRUE(carres[k][0].x == x || carres[k][0].x == x + 1) << k;
    }
  }
}

TEST(AssembleFils, ANearDoubleOfOneAmongManyIsFoundOnAnyNumberOfThreads) {
  for (const unsigned fils : {1U, 2U, 7U}) {
    Lecture lecture;
    lecture.traits = CotesDeCarres();
    lecture.traits.push_back(lecture.traits[20'000]);
    for (Vec2& p : lecture.traits.back().points) p.x += 0.004;
    lecture.traits.push_back(lecture.traits[7]);
    std::vector<PointTrace> points;
    EXPECT_EQ(pathwerk::assemblage::Assemble(lecture, AvecFils(fils), points), 5 * Cotes * Cotes);
    EXPECT_EQ(lecture.rapport.Ignores["DUPLICATE"], 2);
  }
}

TEST(AssembleFils, OfSeveralPlacesThatAreNoneTheFirstOfTheFileIsToldOnAnyNumberOfThreads) {
  for (const unsigned fils : {1U, 2U, 7U}) {
    Lecture lecture;
    lecture.traits = CotesDeCarres();
    for (const std::size_t i : {30'000U, 17'001U, 17'000U, 32'000U}) lecture.traits[i].points[1].y = 2e7;
    std::vector<PointTrace> points;
    EXPECT_EQ(pathwerk::assemblage::Assemble(lecture, AvecFils(fils), points),
              pathwerk::Numero(pathwerk::Erreur::Coordonnee));
    EXPECT_EQ(lecture.rapport.Ligne, 17'001);
    EXPECT_TRUE(points.empty());
  }
}
