// Which drawings the program takes, and by which way.
#include <set>

#include "closed/Pathwerk.h"
#include "tests/support/Support.h"
#include "workspace/Formats.h"

namespace {

using namespace ovelin;
using testing::ElementsAre;

TEST(Formats, TheStartOfTheWindowTakesFiveExtensions) {
  EXPECT_THAT(ExtensionsArgument(), ElementsAre("DXF", "PLT", "DAT", "DRL", "OVL"));
}

TEST(Formats, HelpListsThemAll) {
  EXPECT_EQ(EnListe(ExtensionsLues()), "DXF, PLT, PRN, HPGL, DAT, DRD, DRL, EPS, SVG, PDF or OVL");
}

TEST(Formats, TheOpenDialogOffersAllOfThem) {
  EXPECT_EQ(MotifDessins(), "*.DAT; *.PLT; *.PRN; *.HPGL; *.OVL; *.DXF; *.DRD; *.DRL; *.EPS; *.SVG; *.PDF");
}

TEST(Formats, WhatTheDialogOffersCanBeDroppedAndNothingElse) {
  for (const char* e : {"DAT", "PLT", "PRN", "HPGL", "OVL", "DXF", "DRD", "DRL", "EPS", "SVG", "PDF"})
    EXPECT_TRUE(SeDepose(e)) << e;
  for (const char* e : {"", "TXT", "dxf", "NC", "DX"}) EXPECT_FALSE(SeDepose(e)) << e;
}

TEST(Formats, AnExtensionBelongsToOneFormatAndAnArgumentToItsOwn) {
  std::set<std::string_view> extensions;
  std::set<int> rangs;
  for (const pathwerk::FormatConnu& f : pathwerk::Formats()) {
    for (const std::string_view e : f.Extensions) EXPECT_TRUE(extensions.insert(e).second) << e;
    EXPECT_TRUE(rangs.insert(f.Rang).second) << f.Nom;
    if (f.Argument.empty()) continue;
    EXPECT_NE(std::find(f.Extensions.begin(), f.Extensions.end(), f.Argument), f.Extensions.end()) << f.Nom;
  }
}

}  // namespace
