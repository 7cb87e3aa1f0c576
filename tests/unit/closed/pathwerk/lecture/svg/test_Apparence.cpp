// What is seen, and how: paint, visibility, opacity.
#include "closed/pathwerk/lecture/svg/Apparence.h"
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

namespace pathwerk::lecture::svg {
namespace {

using namespace mesures;

std::string Avec(const std::string& attributs) { return "<rect " + attributs + R"( width="5" height="5"/>)"; }

TEST(Apparence, WhatIsNotSeenIsLeftOutAndCounted) {
  for (const char* a :
       {R"(display="none")", R"(visibility="hidden")", R"(visibility="collapse")", R"(fill="none")",
        R"(fill="transparent")", R"(fill="#ff000000")", R"(fill='rgba(1,2,3,0)')", R"(opacity="0")",
        R"(fill-opacity="0")", R"(style="fill:none")", R"(style="fill : none ; stroke:none")",
        R"(fill="none" stroke="red" stroke-width="0")", R"(fill="none" stroke="red" stroke-opacity="0")"}) {
    const Lecture l = Lit(Page(Avec(a)));
    EXPECT_TRUE(l.traits.empty()) << a;
    EXPECT_EQ(Ignores(l, "INVISIBLE"), 1) << a;
  }
}

TEST(Apparence, WhatIsSeenIsDrawn) {
  for (const char* a : {"", R"(fill="none" stroke="black")", R"(fill='url(#g)')", R"(opacity="0.1")",
                        R"(style="display:inline")", R"(fill='rgba(1,2,3,0.5)')", R"(fill="white")"}) {
    EXPECT_EQ(Traits(Avec(a)).size(), 1U) << a;
  }
}

TEST(Apparence, AGroupHandsOnItsPaintAndItsVisibility) {
  EXPECT_TRUE(Traits("<g fill=\"none\">" + Avec("") + "</g>").empty());
  EXPECT_EQ(Traits("<g fill=\"none\">" + Avec(R"(fill="red")") + "</g>").size(), 1U);
  EXPECT_TRUE(Traits("<g visibility=\"hidden\">" + Avec("") + "</g>").empty());
  EXPECT_EQ(Traits("<g visibility=\"hidden\">" + Avec(R"(visibility="visible")") + "</g>").size(), 1U);
  EXPECT_EQ(Traits("<g fill=\"none\">" + Avec(R"(fill="red")") + Avec(R"(fill="inherit")") + "</g>").size(), 1U);
}

TEST(Apparence, InAGroupThatIsNotThereNothingIs) {
  const std::string corps = "<g display=\"none\">" + Avec(R"(display="inline")") + "<circle r=\"3\"/><g/></g>";
  EXPECT_TRUE(Traits(corps).empty());
  EXPECT_EQ(Ignores(corps, "INVISIBLE"), 2);
}

TEST(Apparence, AHiddenLayerIsCountedAsOne) {
  const std::string corps = "<g inkscape:groupmode=\"layer\" inkscape:label=\"aide\" style=\"display:none\">" +
                            Avec("") + "</g>" + Avec("");
  EXPECT_EQ(Traits(corps).size(), 1U);
  EXPECT_EQ(Ignores(corps, "LAYER"), 1);
  EXPECT_EQ(Ignores(corps, "INVISIBLE"), 0);
}

TEST(Apparence, ClippedMaskedAndFilteredPartsComeInWholeAndAreTold) {
  const std::string corps = Avec("clip-path='url(#c)'") + Avec("style='mask:url(#m)' y='9'") +
                            Avec("filter='url(#f)' y='18'") + Avec("clip-path='none' y='27'");
  EXPECT_EQ(Traits(corps).size(), 4U);
  for (const char* genre : {"clip-path", "mask", "filter"}) EXPECT_EQ(Ignores(corps, genre), 1) << genre;
}

TEST(Dits, AnImportantWordStays) {
  Dits d;
  d.PoseListe("fill:red !important; display: none");
  d.PoseListe("fill:none; display:inline");
  EXPECT_EQ(d.De(Propriete::Fill), "red");
  EXPECT_EQ(d.De(Propriete::Display), "inline");
}

}  // namespace
}  // namespace pathwerk::lecture::svg
