// The command line of the program with windows.
#include "app/ovelin/Options.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

OptionsProgramme Lit(const std::vector<std::string>& arguments) {
  return LitOptions(arguments, "/home/moi/pieces");
}

TEST(LitOptions, WithoutArgumentsOpensNothing) {
  const OptionsProgramme o = Lit({});
  EXPECT_EQ(o.dessin, "");
  EXPECT_EQ(o.config, "");
  EXPECT_EQ(o.refus, "");
  EXPECT_FALSE(o.aide || o.version);
}

TEST(LitOptions, MakesTheDrawingsPathAbsolute) {
  EXPECT_EQ(Lit({"aile.dxf"}).dessin, "/home/moi/pieces/aile.dxf");
  EXPECT_EQ(Lit({"../vieux/aile 2.dxf"}).dessin, "/home/moi/vieux/aile 2.dxf");
  EXPECT_EQ(Lit({"/tmp/aile.dxf"}).dessin, "/tmp/aile.dxf");
}

TEST(LitOptions, TakesAValueBehindABlankOrAnEqualSign) {
  EXPECT_EQ(Lit({"--config", "reglages"}).config, "/home/moi/pieces/reglages");
  EXPECT_EQ(Lit({"--config=/etc/ovelin"}).config, "/etc/ovelin");
  const OptionsProgramme o = Lit({"--lang", "de", "a.dxf"});
  EXPECT_EQ(o.langue, "de");
  EXPECT_EQ(o.dessin, "/home/moi/pieces/a.dxf");
}

TEST(LitOptions, KnowsHelpAndVersion) {
  EXPECT_TRUE(Lit({"--help"}).aide);
  EXPECT_TRUE(Lit({"-h"}).aide);
  EXPECT_TRUE(Lit({"--version"}).version);
  EXPECT_EQ(TexteVersion(), "4.10.0");
}

TEST(LitOptions, LetsOptionsOfTheToolkitPass) {
  const OptionsProgramme o = Lit({"-platform", "offscreen", "-style=Fusion", "-reverse", "a.dxf"});
  EXPECT_EQ(o.refus, "");
  EXPECT_EQ(o.plateforme, "offscreen");
  EXPECT_EQ(o.dessin, "/home/moi/pieces/a.dxf");
}

TEST(LitOptions, RefusesWhatItDoesNotKnow) {
  EXPECT_EQ(Lit({"--confg", "x"}).refus, "unknown option: --confg");
  EXPECT_EQ(Lit({"--lang", "xx"}).refus, "unknown language: xx");
  EXPECT_EQ(Lit({"a.dxf", "b.dxf"}).refus, "one drawing at a time: b.dxf");
  EXPECT_EQ(Lit({"--config"}).refus, "nothing behind --config");
  EXPECT_EQ(Lit({"--lang="}).refus, "nothing behind --lang=");
}

TEST(LitOptions, TakesEverythingBehindTwoDashesForADrawing) {
  EXPECT_EQ(Lit({"--", "--help"}).dessin, "/home/moi/pieces/--help");
  EXPECT_FALSE(Lit({"--", "--help"}).aide);
}

TEST(LitOptions, TakesAFileThatIsOpenedAsIfItWereDropped) {
  const OptionsProgramme o = Lit({"--open", "logo.eps"});
  EXPECT_EQ(o.depose, "/home/moi/pieces/logo.eps");
  EXPECT_EQ(o.dessin, "");
  EXPECT_EQ(Lit({"--open", "a.eps", "b.dxf"}).refus, "one drawing at a time: b.dxf");
  EXPECT_EQ(Lit({"b.dxf", "--open=a.eps"}).refus, "one drawing at a time: /home/moi/pieces/a.eps");
}

}  // namespace
