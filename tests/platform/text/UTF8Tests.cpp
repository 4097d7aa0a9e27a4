#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

/// The example of The Unicode Standard, section 3.9, table 3-8, and its neighbours: each maximal subpart is one U+FFFD.
TEST(UTF8, ReadsEachMaximalIllFormedSubpartAsOneReplacementCharacter) {
  EXPECT_EQ(toScalars("\x61\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64"),
            U"\u0061\uFFFD\uFFFD\uFFFD\u0062\uFFFD\u0063\uFFFD\uFFFD\u0064");
  EXPECT_EQ(toScalars("\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41"), std::u32string(8, U'\uFFFD') + U"A");
  EXPECT_EQ(toScalars("\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41"), std::u32string(8, U'\uFFFD') + U"A");
  EXPECT_EQ(toScalars("\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42"),
            std::u32string(5, U'\uFFFD') + U"A" + std::u32string(2, U'\uFFFD') + U"B");
}

TEST(UTF8, WritesAndReadsEveryScalar) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    std::string text;
    appendScalar(text, scalar);
    const DecodedScalar decoded = decodeScalar(text, 0);
    ASSERT_EQ(decoded.scalar, scalar);
    ASSERT_EQ(decoded.byteCount, text.size());
    ASSERT_TRUE(decoded.isWellFormed);
    ASSERT_EQ(toUTF8(toUTF16(text)), text);
  }
}

TEST(UTF8, StepsBackToTheBoundariesThatReadingForwardsStopsAt) {
  // Every text of up to five bytes over one byte of each class that table 3-7 tells apart.
  const std::string classes = "\x41\x80\x90\xA0\xC2\xE0\xE1\xED\xF0\xF1\xF4\xFF";
  std::vector<std::string> texts = {""};
  for (std::size_t first = 0, length = 1; length <= 5; ++length) {
    const std::size_t last = texts.size();
    for (; first < last; ++first) {
      for (const char byte : classes)
        texts.push_back(texts[first] + byte);
    }
  }
  for (const std::string& text : texts) {
    std::size_t previous = 0;
    for (std::size_t position = 0; position < text.size(); previous = position) {
      position += decodeScalar(text, position).byteCount;
      ASSERT_EQ(previousScalarStart(text, position), previous) << testing::PrintToString(text) << " at " << position;
    }
  }
}

}  // namespace
}  // namespace tessary
