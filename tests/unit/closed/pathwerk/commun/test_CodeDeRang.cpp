#include <set>

#include "tests/unit/closed/pathwerk/Aide.h"

using pathwerk::Code2;
using pathwerk::CodeAucun;
using pathwerk::CodeDeRang;
using pathwerk::NbCodes;

TEST(CodeDeRang, CountsAsTheDocumentDoes) {
  EXPECT_EQ(CodeDeRang(0).Texte(), " A");
  EXPECT_EQ(CodeDeRang(25).Texte(), " Z");
  EXPECT_EQ(CodeDeRang(26).Texte(), " a");
  EXPECT_EQ(CodeDeRang(51).Texte(), " z");
  EXPECT_EQ(CodeDeRang(52).Texte(), "AA");
  EXPECT_EQ(CodeDeRang(53).Texte(), "AB");
  EXPECT_EQ(CodeDeRang(52 + 51).Texte(), "Az");
  EXPECT_EQ(CodeDeRang(52 + 52).Texte(), "BA");
  EXPECT_EQ(CodeDeRang(52 + 26 * 52).Texte(), "aA");
  EXPECT_EQ(CodeDeRang(52 * 53 - 1).Texte(), "zz");
}

TEST(CodeDeRang, EightThousandAllDifferent) {
  EXPECT_GE(NbCodes(), 8000U);
  std::set<std::string> vus;
  for (std::size_t i = 0; i < NbCodes(); ++i) vus.insert(CodeDeRang(i).Texte());
  EXPECT_EQ(vus.size(), NbCodes());
}

TEST(CodeDeRang, NoneIsBlankOrHoldsASignThatAProjectFileUses) {
  for (std::size_t i = 0; i < NbCodes(); ++i) {
    const std::string t = CodeDeRang(i).Texte();
    EXPECT_NE(t, "  ");
    EXPECT_NE(t[1], ' ') << i;
    EXPECT_EQ(t.find_first_of("-$=,"), std::string::npos) << t;
    for (const char c : t) EXPECT_TRUE(c >= ' ' && c <= '~') << i;
  }
}

TEST(CodeDeRang, PastTheLastThereIsNone) {
  EXPECT_NE(CodeDeRang(NbCodes() - 1), CodeAucun);
  EXPECT_EQ(CodeDeRang(NbCodes()), CodeAucun);
  EXPECT_EQ(CodeDeRang(static_cast<std::size_t>(-1)), CodeAucun);
}
