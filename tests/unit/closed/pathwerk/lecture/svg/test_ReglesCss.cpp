// Style sheets: which rule wins, and what of it is seen.
#include "closed/pathwerk/lecture/svg/ReglesCss.h"
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

namespace pathwerk::lecture::svg {
namespace {

using namespace mesures;

// How many of the shapes are seen.
std::size_t Vus(const std::string& feuille, const std::string& corps) {
  return Traits("<style>" + feuille + "</style>" + corps).size();
}

const std::string Rect = R"(<rect id="r" class="a b" width="5" height="5"/>)";

TEST(ReglesCss, SelectorsByTypeClassAndIdentity) {
  for (const char* s : {"rect", ".a", "#r", "*", "rect.a", ".a.b", "rect#r.b", "circle, .b", "/* c */ .a"}) {
    EXPECT_EQ(Vus(std::string(s) + "{display:none}", Rect), 0U) << s;
  }
  for (const char* s : {"circle", ".c", "#s", ".a.c", "circle.a", "rect#s"}) {
    EXPECT_EQ(Vus(std::string(s) + "{display:none}", Rect), 1U) << s;
  }
}

TEST(ReglesCss, SelectorsByNesting) {
  const std::string corps = R"(<g class="x"><g><rect class="y" width="5" height="5"/></g></g>)";
  for (const char* s : {".x .y", "g rect", ".x g > .y", "g>g>rect", "svg .y"}) {
    EXPECT_EQ(Vus(std::string(s) + "{display:none}", corps), 0U) << s;
  }
  for (const char* s : {".x > .y", ".y .x", "rect g"}) {
    EXPECT_EQ(Vus(std::string(s) + "{display:none}", corps), 1U) << s;
  }
}

TEST(ReglesCss, AnIdentityBeatsAClassAndAClassAType) {
  EXPECT_EQ(Vus("#r{display:inline}.a{display:none}", Rect), 1U);
  EXPECT_EQ(Vus(".a{display:inline}rect{display:none}", Rect), 1U);
  EXPECT_EQ(Vus("rect{display:inline}.a{display:none}", Rect), 0U);
}

TEST(ReglesCss, AmongEqualsTheLaterOneWins) {
  EXPECT_EQ(Vus(".a{display:none}.b{display:inline}", Rect), 1U);
  EXPECT_EQ(Vus(".b{display:inline}.a{display:none}", Rect), 0U);
}

TEST(ReglesCss, AttributesGiveWayToSheetsAndSheetsToTheStyleOfTheElement) {
  EXPECT_EQ(Vus("rect{display:inline}", R"(<rect display="none" width="5" height="5"/>)"), 1U);
  EXPECT_EQ(Vus("rect{display:none}", R"(<rect style="display:inline" width="5" height="5"/>)"), 1U);
  EXPECT_EQ(Vus("rect{display:none !important}", R"(<rect style="display:inline" width="5" height="5"/>)"), 0U);
}

TEST(ReglesCss, WhatIsForPrintersIsNotForTheDrawing) {
  EXPECT_EQ(Vus("@media print{rect{display:none}}", Rect), 1U);
  EXPECT_EQ(Vus("@media screen{rect{display:none}}", Rect), 0U);
  EXPECT_EQ(Vus("@font-face{font-family:x}rect{display:none}", Rect), 0U);
}

TEST(ReglesCss, OtherSheetsAreNotFetchedAndUnknownSelectorsAreCounted) {
  const Lecture l =
      Lit(Page("<style>@import url(http://x/y.css);rect:hover{display:none}a[b]{fill:none}</style>" + Rect));
  EXPECT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(Ignores(l, "CSS"), 3);
}

TEST(ReglesCss, ASheetInACdataSectionIsRead) {
  EXPECT_EQ(Vus("<![CDATA[ <!-- rect{display:none} --> ]]>", Rect), 0U);
}

TEST(ReglesCss, ASheetThatBreaksOffEndsThere) {
  EXPECT_EQ(Vus("rect{display:none", Rect), 0U);
  EXPECT_EQ(Vus("rect", Rect), 1U);
  EXPECT_EQ(Vus("}{}}{", Rect), 1U);
}

}  // namespace
}  // namespace pathwerk::lecture::svg
