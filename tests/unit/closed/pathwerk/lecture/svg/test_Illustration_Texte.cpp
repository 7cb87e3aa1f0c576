// Texts. Letters are made here: each is a square of its height, and as wide as high.
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

namespace pathwerk::lecture::svg {
namespace {

using namespace mesures;

bool Carres(const StyleLettres& s, const std::string& texte, LigneLettres& ligne) {
  for (const char c : texte) {
    const double x = ligne.avance;
    if (c != ' ')
      ligne.contours.push_back({{x, 0}, {x, s.hauteur}, {x + s.hauteur, s.hauteur}, {x + s.hauteur, 0}});
    ligne.avance += s.hauteur;
  }
  return true;
}

std::vector<Trait> Lettres(const std::string& corps) { return Lit(Page(corps), {}, Carres).traits; }

TEST(Texte, StandsOnItsBaseLineFromItsPlaceOn) {
  AttendEtendue(Lettres(R"(<text x="10" y="50" font-size="5">ab</text>)"), 10, 50, 20, 55);
}

TEST(Texte, AnAnchorPutsItsMiddleOrItsEndThere) {
  AttendEtendue(Lettres(R"(<text x="50" y="50" font-size="5" text-anchor="middle">ab</text>)"), 45, 50, 55, 55);
  AttendEtendue(Lettres(R"(<text x="50" y="50" font-size="5" style="text-anchor:end">ab</text>)"), 40, 50, 50, 55);
}

TEST(Texte, BlanksAreOneUnlessTheyAreKept) {
  AttendEtendue(Lettres("<text x=\"10\" y=\"50\" font-size=\"5\">\n  a  \n b</text>"), 10, 50, 25, 55);
  AttendEtendue(Lettres(R"(<text x="10" y="50" font-size="5" xml:space="preserve">a  b</text>)"), 10, 50, 30, 55);
}

TEST(Texte, APartGoesOnWhereTheOneBeforeEnds) {
  const auto t = Lettres(R"(<text x="10" y="50" font-size="5">a<tspan font-size="10">b</tspan>c</text>)");
  ASSERT_EQ(t.size(), 3U);
  AttendEtendue({t[1]}, 15, 50, 25, 60);
  AttendEtendue({t[2]}, 25, 50, 30, 55);
}

TEST(Texte, APartWithAPlaceBeginsThere) {
  const auto t = Lettres(R"(<text x="10" y="50" font-size="5">a<tspan x="10" dy="20">b</tspan></text>)");
  ASSERT_EQ(t.size(), 2U);
  AttendEtendue({t[1]}, 10, 30, 15, 35);
}

TEST(Texte, TwoPartsAreAnchoredAsOne) {
  AttendEtendue(Lettres(R"(<text x="50" y="50" font-size="5" text-anchor="middle">a<tspan>b</tspan></text>)"), 45,
                50, 55, 55);
}

TEST(Texte, LettersMayHaveAPlaceEach) {
  const auto t = Lettres(R"(<text x="10 30 60" y="50" font-size="5">abcd</text>)");
  ASSERT_EQ(t.size(), 4U);
  AttendEtendue({t[0]}, 10, 50, 15, 55);
  AttendEtendue({t[1]}, 30, 50, 35, 55);
  AttendEtendue({t[2]}, 60, 50, 65, 55);
  AttendEtendue({t[3]}, 65, 50, 70, 55);
}

TEST(Texte, TransformsTurnAndScaleIt) {
  const auto traits = Lettres(R"(<text transform='translate(50,50) scale(2) rotate(90)' font-size="5">ab</text>)");
  AttendEtendue(traits, 50, 30, 60, 50);
}

TEST(Texte, SizeComesFromUnitsAndFromTheShortForm) {
  AttendEtendue(Lettres(R"(<text y="50" style="font:bold 10px Arial">a</text>)"), 0, 50, 10, 60);
  AttendEtendue(Lettres(R"(<g font-size="10"><text y="50" font-size="50%">a</text></g>)"), 0, 50, 5, 55);
}

TEST(Texte, UnseenTextsAreCounted) {
  EXPECT_EQ(Ignores(Lit(Page(R"(<text fill="none">a</text>)"), {}, Carres), "INVISIBLE"), 1);
  EXPECT_EQ(Lettres(R"(<text fill="none" stroke="black">a</text>)").size(), 1U);
}

TEST(Texte, WithoutFontsItIsLeftOutAndCounted) {
  EXPECT_EQ(Ignores(Lit(Page("<text>a</text><text>b</text>")), "text"), 2);
  const TraceLettres jamais = [](const StyleLettres&, const std::string&, LigneLettres&) { return false; };
  EXPECT_EQ(Ignores(Lit(Page("<text>a</text>"), {}, jamais), "text"), 1);
}

TEST(Texte, AnotherFontAndMissingLettersAreTold) {
  const TraceLettres autre = [](const StyleLettres& s, const std::string& texte, LigneLettres& ligne) {
    ligne.remplacee = s.familles;
    ligne.absentes = 2;
    return Carres(s, texte, ligne);
  };
  const Lecture l =
      Lit(Page(R"(<text font-family="Futura">a</text><text font-family="Futura">b</text>)"), {}, autre);
  EXPECT_EQ(l.rapport.Suppose, (std::vector<AvisLecture>{{Avis::PoliceRemplacee, "Futura"}}));
  EXPECT_EQ(Ignores(l, "glyph"), 4);
}

TEST(Texte, TextOnAPathIsLeftOutAndCounted) {
  const Lecture l = Lit(Page("<text><textPath href=\"#p\">abc</textPath></text>"), {}, Carres);
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "textPath"), 1);
}

// DejaVu Sans: an "I" stands 1493 of 2048 units high.
TEST(LettresDuSysteme, DrawTheFontThatIsInstalled) {
  const Lecture l =
      Lit(Page(R"(<text x="10" y="50" font-size="20" font-family="DejaVu Sans">I</text>)"), {}, LettresDuSysteme());
  ASSERT_EQ(l.traits.size(), 1U);
  EXPECT_NEAR(EtendueDe(l.traits).y0, 50, 0.01);
  EXPECT_NEAR(EtendueDe(l.traits).y1, 50 + 20 * 1493.0 / 2048, 0.01);
  EXPECT_TRUE(l.rapport.Suppose.empty());
}

TEST(LettresDuSysteme, AnotherFontServesForOneThatIsNotInstalled) {
  const Lecture l = Lit(Page(R"(<text y="50" font-family="No Such Family">I</text>)"), {}, LettresDuSysteme());
  EXPECT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(l.rapport.Suppose, (std::vector<AvisLecture>{{Avis::PoliceRemplacee, "No Such Family"}}));
}

}  // namespace
}  // namespace pathwerk::lecture::svg
