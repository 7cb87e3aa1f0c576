// Files as such: what is no SVG, what is cut off, what tries to reach out.
#include "closed/pathwerk/lecture/FormatDeDessin.h"
#include "closed/pathwerk/lecture/svg/Svg.h"
#include "tests/unit/closed/pathwerk/lecture/svg/Mesures.h"

namespace pathwerk::lecture::svg {
namespace {

using namespace mesures;

const std::string Tete = "<svg width=\"9mm\" height=\"9mm\">\n";
const std::string Rect = "<rect width=\"5\" height=\"5\"/>\n";

TEST(LireSvg, WhatIsNoSvgIsRefused) {
  for (const char* t : {"", "hello", "<html><body/></html>", "0\nSECTION\n", "\x1F\x8B\x08 packed"}) {
    EXPECT_EQ(Lit(t).rapport.Numero, Erreur::Svg) << t;
  }
}

TEST(LireSvg, AFaultInTheMiddleIsRefusedWithItsLine) {
  const Lecture l = Lit(Tete + Rect + "<rect width=5/>\n" + Rect + "</svg>");
  EXPECT_EQ(l.rapport.Numero, Erreur::Svg);
  EXPECT_EQ(l.rapport.Ligne, 3);
}

TEST(LireSvg, OfAFileThatIsCutOffTheWholePartsAreKept) {
  for (const char* fin : {"", "<rect width=\"5\" hei", "<g>", "<path d=\"M0 0h5v", "<!-- no"}) {
    const Lecture l = Lit(Tete + Rect + fin);
    EXPECT_EQ(l.rapport.Numero, Erreur::Aucune) << fin;
    EXPECT_TRUE(l.rapport.Tronque) << fin;
    EXPECT_EQ(l.traits.size(), 1U) << fin;
  }
  EXPECT_FALSE(Lit(Tete + Rect + "</svg>").rapport.Tronque);
}

TEST(LireSvg, EntitiesOfTheFileStayAsTheyAreWritten) {
  const Lecture l = Lit("<!DOCTYPE svg [<!ENTITY a \"M0 0h5v5z\"><!ENTITY f SYSTEM \"file:///etc/passwd\">]>\n" +
                        Tete + "<path d=\"&a;\"/><text>&f;</text>" + Rect + "</svg>");
  EXPECT_EQ(l.traits.size(), 1U);
}

TEST(LireSvg, SixteenBitTextIsRead) {
  std::string large = "\xFF\xFE";
  for (const char c : Tete + Rect + "</svg>") large += std::string(1, c) + '\0';
  EXPECT_EQ(Lit(large).traits.size(), 1U);
}

TEST(LireSvg, AnyByteMayBeMissing) {
  const std::string tout =
      Tete + "<style>.a{fill:none}</style><g transform=\"rotate(3)\"><path class=\"a\" d=\"M1 1a2 2 0 013 3z\"/>" +
      Rect + "</g></svg>";
  for (std::size_t i = 0; i <= tout.size(); ++i) {
    const Lecture coupe = Lit(tout.substr(0, i));
    EXPECT_EQ(coupe.rapport.Format, "SVG");
    Lit(tout.substr(0, i) + tout.substr(std::min(i + 1, tout.size())));
  }
}

TEST(EstSvg, KnowsItsRootBehindWhatMayStandBeforeIt) {
  for (const char* t : {"<svg>", "<svg width=\"1\">", "\n <?xml version=\"1.0\"?>\n<!-- a <b> svg -->\n<svg\n>",
                        "<s:svg xmlns:s=\"x\">", "\xEF\xBB\xBF<svg/>",
                        "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"x\"><svg>", "\x1F\x8B\x08"}) {
    EXPECT_TRUE(EstSvg(t)) << t;
  }
  for (const char* t : {"", "svg", "<html><p>svg</p>", "<svgz>", "<!-- svg -->", "0\nSECTION", "IN;PU svg"}) {
    EXPECT_FALSE(EstSvg(t)) << t;
  }
}

}  // namespace
}  // namespace pathwerk::lecture::svg
