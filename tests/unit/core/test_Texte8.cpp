#include "core/Texte8.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

TEST(EnTexte8, WritesTheSystemsSet) {
  EXPECT_EQ(EnTexte8("Dépron 3 mm"), "D\xE9pron 3 mm");
  EXPECT_EQ(EnTexte8("5 €, œuvre, Ÿ"), "5 \x80, \x9Cuvre, \x9F");
  EXPECT_EQ(EnTexte8("ascii"), "ascii");
}

TEST(DeTexte8, ReadsTheSystemsSet) {
  EXPECT_EQ(DeTexte8("D\xE9pron 3 mm"), "Dépron 3 mm");
  EXPECT_EQ(DeTexte8("\x80\x9C\x9F"), "€œŸ");
}

TEST(EnTexte8, WritesAValueThatTheSetCannotHoldAsUtf8) {
  EXPECT_EQ(EnTexte8("Фреза é"), "Фреза é");
  EXPECT_EQ(DeTexte8(EnTexte8("Фреза é")), "Фреза é");
  EXPECT_EQ(DeTexte8(EnTexte8("木 😀")), "木 😀");
}

TEST(DeTexte8, ReadsValidUtf8AsSuch) { EXPECT_EQ(DeTexte8("D\xC3\xA9pron"), "Dépron"); }

TEST(EnTexte8, ProtectsATextWhoseBytesWouldPassForUtf8) {
  // In the 8-bit set these two letters are the bytes C3 A9, which would be read as one letter.
  EXPECT_EQ(DeTexte8(EnTexte8("Ã©")), "Ã©");
  EXPECT_EQ(EnTexte8("Ã©"), "Ã©");
}

TEST(DeTexte8, GivesEveryByteBack) {
  for (int i = 1; i < 256; ++i) {
    // Behind a letter that is no lead byte of anything, so that no byte pair passes for UTF-8.
    const std::string octets = std::string("\xE9") + static_cast<char>(i) + "x";
    EXPECT_EQ(EnTexte8(DeTexte8(octets)), octets) << i;
  }
}

TEST(DeTexte8, TakesBrokenUtf8AsBytes) {
  EXPECT_EQ(DeTexte8("\xC3"), "Ã");                   // cut short
  EXPECT_EQ(DeTexte8("\xC0\xAF"), "À¯");              // overlong
  EXPECT_EQ(DeTexte8("\xED\xA0\x80"), "í\xC2\xA0€");  // half of a surrogate pair; A0 is the no-break space
  EXPECT_EQ(DeTexte8("\xF5\x80\x80\x80"), "õ€€€");    // beyond the last code point
}

TEST(EnTexte8, LeavesBytesThatAreNoTextAsTheyStand) { EXPECT_EQ(EnTexte8("a\xFF\xFE"), "a\xFF\xFE"); }

TEST(Coupe8, CutsByBytesButNeverInsideACharacter) {
  EXPECT_EQ(Coupe8("abcdef", 4), "abcd");
  EXPECT_EQ(Coupe8("abc", 4), "abc");
  EXPECT_EQ(Coupe8("\xE9\xE9\xE9", 2), "\xE9\xE9");  // the 8-bit set
  EXPECT_EQ(Coupe8("ab木c", 4), "ab");
}

TEST(EnWindows1252, OfATextThatTheSetHoldsHasOneByteACharacter) {
  EXPECT_EQ(EnWindows1252("Fraise"), "Fraise");
  EXPECT_EQ(EnWindows1252("\u00E9\u20AC\u0153"), "\xE9\x80\x9C");
  // Two characters whose bytes happen to be UTF-8 stay two.
  EXPECT_EQ(EnWindows1252("\u00C3\u00A9"), "\xC3\xA9");
}

TEST(EnWindows1252, OfACharacterThatTheSetLacksIsNothing) {
  EXPECT_EQ(EnWindows1252("Fra\u0456se"), std::nullopt);
  EXPECT_EQ(EnWindows1252("\xFF"), std::nullopt) << "no UTF-8 at all";
}

TEST(DeWindows1252, GivesEachByteItsCharacter) {
  EXPECT_EQ(DeWindows1252("\xE9\x80"), "\u00E9\u20AC");
  EXPECT_EQ(DeWindows1252("\xC3\xA9"), "\u00C3\u00A9");
}

}  // namespace
