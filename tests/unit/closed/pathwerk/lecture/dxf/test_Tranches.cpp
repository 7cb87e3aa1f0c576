// Where a section of entities is cut, and how lines are counted.
#include "closed/pathwerk/lecture/dxf/Tranches.h"
#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::lecture::dxf::CompteFins;
using pathwerk::lecture::dxf::CoupeSection;

namespace {

// 10 lines.
const std::string Trait = "0\nLINE\n10\n1\n20\n2\n11\n3\n21\n4\n";
constexpr std::size_t OctetsTrait = 27;

}  // namespace

TEST(CompteFins, CountsEachKindOfLineEndOnce) {
  EXPECT_EQ(CompteFins(""), 0);
  EXPECT_EQ(CompteFins("a"), 0);
  EXPECT_EQ(CompteFins("a\nb\r\nc\r\r\nd\re"), 4);
  EXPECT_EQ(CompteFins("\n\n"), 2);
  EXPECT_EQ(CompteFins("\r\r\r\n"), 2);  // an empty line before one that ends with CR CR LF
  EXPECT_EQ(CompteFins("\n\r"), 2);
}

TEST(CompteFins, CountsAlikeAtEveryPlaceOfALongText) {
  for (std::size_t avant = 0; avant < 300; ++avant) {
    const std::string debut(avant, 'x');
    EXPECT_EQ(CompteFins(debut + "\r\n" + std::string(300, 'y')), 1) << avant;
    EXPECT_EQ(CompteFins(debut + "\r\r\n" + std::string(300, 'y')), 1) << avant;
    EXPECT_EQ(CompteFins(debut + "\r" + std::string(300, 'y')), 1) << avant;
  }
  EXPECT_EQ(CompteFins(std::string(1000, '\n')), 1000);
}

TEST(CoupeSection, StretchesBeginWhereEntitiesDoAndLeaveNothingOut) {
  ASSERT_EQ(Trait.size(), OctetsTrait);
  std::string texte;
  for (int k = 0; k < 20; ++k) texte += Trait;
  const std::string fin = "  0\nENDSEC\n";
  const auto section = CoupeSection(texte + fin + "0\nEOF\n", {}, {40, 1});
  ASSERT_TRUE(section);
  EXPECT_EQ(section->fin.position, texte.size());
  EXPECT_EQ(section->fin.ligne, 200);
  ASSERT_GT(section->tranches.size(), 5U);
  for (std::size_t i = 0; i < section->tranches.size(); ++i) {
    const auto& t = section->tranches[i];
    EXPECT_EQ(t.debut.position % OctetsTrait, 0U);
    EXPECT_EQ(t.debut.ligne, static_cast<long>(t.debut.position / OctetsTrait * 10));
    const bool derniere = i + 1 == section->tranches.size();
    const auto suivant = derniere ? section->fin : section->tranches[i + 1].debut;
    const std::size_t octets = derniere ? fin.size() : std::string("0\nLINE\n").size();
    EXPECT_EQ(t.suite.position, suivant.position + octets);
    EXPECT_EQ(t.suite.ligne, suivant.ligne + 2);
  }
}

TEST(CoupeSection, LinesAreThoseOfTheFile) {
  std::string texte;
  for (int k = 0; k < 20; ++k) texte += Trait;
  const std::string avant = "0\nSECTION\n2\nENTITIES\n";
  const auto section = CoupeSection(avant + texte + "0\nENDSEC\n", {avant.size(), 4}, {40, 2});
  ASSERT_TRUE(section);
  EXPECT_EQ(section->tranches.front().debut.position, avant.size());
  EXPECT_EQ(section->tranches.front().debut.ligne, 4);
  EXPECT_EQ(section->fin.ligne, 204);
}

TEST(CoupeSection, AVertexIsNoPlaceForACut) {
  std::string texte = "0\nPOLYLINE\n66\n1\n";
  for (int k = 0; k < 50; ++k) texte += "0\nVERTEX\n10\n1\n20\n2\n";
  const auto section = CoupeSection(texte + "0\nSEQEND\n" + "0\nENDSEC\n", {}, {40, 1});
  ASSERT_TRUE(section);
  EXPECT_EQ(section->tranches.size(), 1U);
}

TEST(CoupeSection, NothingWithoutAnEndOrBelowTwoStretches) {
  std::string texte;
  for (int k = 0; k < 20; ++k) texte += Trait;
  EXPECT_FALSE(CoupeSection(texte, {}, {40, 1}));
  EXPECT_FALSE(CoupeSection(texte + "8\nENDSEC\n", {}, {40, 1}));
  EXPECT_FALSE(CoupeSection(texte + "0\nENDSEC\n", {}, {texte.size(), 1}));
  EXPECT_FALSE(CoupeSection(texte + "0\nENDSEC\n", {}, {0, 1}));
}
