// Groups, references, and the bounds of what a file may ask for.
#include "closed/pathwerk/lecture/svg/Illustration.h"
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

namespace pathwerk::lecture::svg {
namespace {

using namespace mesures;

TEST(Illustration, TransformsOfGroupsActFromTheOutsideIn) {
  const auto traits =
      Traits("<g transform='translate(10,0)'><g transform='scale(2)'><rect x='1' width='5' height='5'/></g></g>");
  AttendEtendue(traits, 12, 90, 22, 100, 1e-9);
}

TEST(Illustration, ATransformThatCanNotBeReadDoesNotCount) {
  AttendEtendue(Traits(R"(<rect transform='spin(9)' width="5" height="5"/>)"), 0, 95, 5, 100, 1e-9);
}

TEST(Illustration, AReferenceDrawsItsElementAtItsPlace) {
  const std::string corps =
      R"(<defs><rect id="r" width="5" height="5"/></defs><use href="#r" x="10" y="20"/><use xlink:href="#r" x="50"/>)";
  const auto traits = Traits(corps);
  ASSERT_EQ(traits.size(), 2U);
  AttendEtendue({traits[0]}, 10, 75, 15, 80, 1e-9);
  AttendEtendue({traits[1]}, 50, 95, 55, 100, 1e-9);
}

TEST(Illustration, AReferenceHandsItsPaintToWhatHasNone) {
  const std::string defs = R"(<defs><rect id="r" width="5" height="5"/></defs>)";
  EXPECT_TRUE(Traits(defs + R"(<g fill="none"><use href="#r"/></g>)").empty());
}

// A symbol of 10 x 10 shown 40 wide: four times as large.
TEST(Illustration, ASymbolIsDrawnInTheSizeOfItsReference) {
  AttendEtendue(Traits(R"(<symbol id="s" viewBox="0 0 10 10"><rect width="10" height="10"/></symbol>
                          <use href="#s" x="5" y="5" width="40" height="40"/>)"),
                5, 55, 45, 95, 1e-9);
}

TEST(Illustration, WhatLiesElsewhereIsNeverFetched) {
  const Lecture l = Lit(Page(R"(<use href="other.svg#r"/><use href="#missing"/><image href="http://x/y.png"/>
                                <script>draw()</script><foreignObject><p>x</p></foreignObject>)"));
  EXPECT_TRUE(l.traits.empty());
  EXPECT_EQ(Ignores(l, "use"), 2);
  EXPECT_EQ(Ignores(l, "image"), 1);
  EXPECT_EQ(Ignores(l, "script"), 1);
  EXPECT_EQ(Ignores(l, "foreignObject"), 1);
}

TEST(Illustration, AnElementThatRefersToItselfIsLeftOut) {
  const std::string corps = R"(<g id="g"><rect width="5" height="5"/><use href="#g"/></g>)";
  EXPECT_EQ(Traits(corps).size(), 2U);  // once where it stands, once by the reference in it
  EXPECT_EQ(Ignores(corps, "use"), 1);
  EXPECT_TRUE(Traits(R"(<use id="u" href="#u"/>)").empty());
}

TEST(Illustration, DefinitionsAreNotDrawnWhereTheyStand) {
  for (const char* nom : {"defs", "symbol", "clipPath", "mask", "marker", "pattern"}) {
    EXPECT_TRUE(Traits("<" + std::string(nom) + "><rect width=\"5\" height=\"5\"/></" + nom + ">").empty()) << nom;
  }
}

TEST(Illustration, OfASwitchTheFirstThatAsksForNothingIsDrawn) {
  const auto traits = Traits(R"(<switch><foreignObject requiredExtensions="x"/><g><rect width="5" height="5"/></g>
                                <rect width="9" height="9"/></switch>)");
  ASSERT_EQ(traits.size(), 1U);
  AttendEtendue(traits, 0, 95, 5, 100, 1e-9);
}

TEST(Illustration, ElementsOfOtherVocabulariesAreNone) {
  const Lecture l = Lit(Page("<sodipodi:path d=\"M0 0h5\"/><rdf:rect width=\"5\" height=\"5\"/>"));
  EXPECT_TRUE(l.traits.empty());
  EXPECT_TRUE(l.rapport.Ignores.empty());
}

TEST(Illustration, ThePrefixOfTheOutermostElementIsThatOfTheOthers) {
  const Lecture l = Lit(
      R"(<s:svg width="9mm" height="9mm"><s:g><s:rect width="5" height="5"/></s:g><rect width="5" height="5"/></s:svg>)");
  EXPECT_EQ(l.traits.size(), 1U);
}

// Each of 30 groups shows the one before twice: a thousand million rectangles.
TEST(Illustration, ReferencesThatMultiplyEndInARefusal) {
  std::string corps = R"(<defs><rect id="g0" width="5" height="5"/>)";
  for (int i = 1; i <= 30; ++i) {
    const std::string avant = std::to_string(i - 1);
    corps +=
        "<g id=\"g" + std::to_string(i) + "\"><use href=\"#g" + avant + "\"/><use href=\"#g" + avant + "\"/></g>";
  }
  const Lecture l = Lit(Page(corps + "</defs><use href=\"#g30\"/>"));
  EXPECT_EQ(l.rapport.Numero, Erreur::Memoire);
  EXPECT_TRUE(l.traits.empty());
}

// The same with nothing in it, and hidden.
TEST(Illustration, ReferencesToNothingEndToo) {
  for (const char* fond : {"<g id=\"g0\"/>", "<g id=\"g0\" display=\"none\"><g/><g/></g>"}) {
    std::string corps = "<defs>" + std::string(fond);
    for (int i = 1; i <= 40; ++i) {
      const std::string avant = std::to_string(i - 1);
      corps +=
          "<g id=\"g" + std::to_string(i) + "\"><use href=\"#g" + avant + "\"/><use href=\"#g" + avant + "\"/></g>";
    }
    EXPECT_EQ(Lit(Page(corps + "</defs><use href=\"#g40\"/>")).rapport.Numero, Erreur::Memoire) << fond;
  }
}

TEST(Illustration, NestingIsBounded) {
  const auto niche = [](int n) {
    std::string s;
    for (int i = 0; i < n; ++i) s += "<g>";
    s += R"(<rect width="5" height="5"/>)";
    for (int i = 0; i < n; ++i) s += "</g>";
    return Page(s);
  };
  EXPECT_EQ(Lit(niche(150)).traits.size(), 1U);
  EXPECT_EQ(Lit(niche(100'000)).rapport.Numero, Erreur::Memoire);
}

TEST(Illustration, TheLineOfAPathIsThatOfItsElement) {
  const Lecture l = Lit("<svg width=\"9mm\" height=\"9mm\">\n\n<rect width=\"5\"\n height=\"5\"/>\n</svg>");
  ASSERT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(l.traits[0].ligne, 3U);
}

}  // namespace
}  // namespace pathwerk::lecture::svg
