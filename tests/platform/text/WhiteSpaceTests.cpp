#include <string>

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include "TessaryPlatform/text/WhiteSpace.h"

namespace tessary {
namespace {

TEST(WhiteSpace, IsUnicodesPropertyOfThatNameForEveryScalar) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar)
    ASSERT_EQ(isWhiteSpace(scalar), u_isUWhiteSpace(static_cast<UChar32>(scalar))) << static_cast<unsigned>(scalar);
}

TEST(WhiteSpace, WithinALineIsTheTabAndTheSpaceSeparators) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    const bool isSeparator = u_charType(static_cast<UChar32>(scalar)) == U_SPACE_SEPARATOR;
    ASSERT_EQ(isInlineSpace(scalar), isSeparator || scalar == U'\t') << static_cast<unsigned>(scalar);
  }
}

TEST(WhiteSpace, NewlinesAreTheWhiteSpaceThatIsNotWithinALine) {
  const std::u32string newlines = U"\n\v\f\r\u0085\u2028\u2029";
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    ASSERT_EQ(isNewline(scalar), newlines.contains(scalar)) << static_cast<unsigned>(scalar);
    ASSERT_EQ(isNewline(scalar) || isInlineSpace(scalar), isWhiteSpace(scalar)) << static_cast<unsigned>(scalar);
    ASSERT_FALSE(isNewline(scalar) && isInlineSpace(scalar)) << static_cast<unsigned>(scalar);
  }
}

TEST(WhiteSpace, OfACharacterIsDecidedByItsFirstScalar) {
  EXPECT_TRUE(isWhiteSpaceCharacter("\r\n"));
  EXPECT_TRUE(isNewlineCharacter("\r\n"));
  EXPECT_TRUE(isWhiteSpaceCharacter(" \u0301"));
  EXPECT_FALSE(isNewlineCharacter(" \u0301"));
  EXPECT_FALSE(isWhiteSpaceCharacter("a"));
  EXPECT_FALSE(isWhiteSpaceCharacter("\u200B"));
  EXPECT_FALSE(isWhiteSpaceCharacter("\xFF"));
}

TEST(WhiteSpace, IsTrimmedAtTheEndsOnly) {
  EXPECT_EQ(trimmed(" \t\u3000a b\u2003\n", isInlineSpace), "a b\u2003\n");
  EXPECT_EQ(trimmed(" \t\u3000a b\u2003\n", isWhiteSpace), "a b");
  EXPECT_EQ(trimmed("\r\n\u2028 a \u0085", isNewline), " a ");
  EXPECT_EQ(trimmedStart("  a  ", isInlineSpace), "a  ");
  EXPECT_EQ(trimmedEnd("  a  ", isInlineSpace), "  a");
  EXPECT_EQ(trimmed("", isWhiteSpace), "");
  EXPECT_EQ(trimmed(" \n ", isWhiteSpace), "");
  EXPECT_EQ(trimmed("[] x ]", [](char32_t scalar) { return scalar == U'[' || scalar == U']' || scalar == U' '; }), "x");
}

TEST(WhiteSpace, IsTrimmedScalarByScalarAndLeavesMalformedBytes) {
  EXPECT_EQ(trimmed(" \u0301a", isWhiteSpace), "\u0301a") << "the accent that the blank carried stays";
  EXPECT_EQ(trimmed(" \xE2\x80 ", isWhiteSpace), "\xE2\x80");
  EXPECT_EQ(trimmed("a\x80\xA8 ", isWhiteSpace), "a\x80\xA8") << "the tail of U+2028 alone is none";
}

}  // namespace
}  // namespace tessary
