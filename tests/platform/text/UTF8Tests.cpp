#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unicode/unistr.h>

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

/// One byte of each class that table 3-7 tells apart, and runs of ASCII longer than the words that are skipped whole.
std::string randomBytes(std::mt19937& random) {
  const std::string classes = "\x41\x7F\x80\x90\xA0\xBF\xC1\xC2\xE0\xE1\xED\xEF\xF0\xF1\xF4\xF5\xFF";
  std::string text;
  for (std::size_t pieces = random() % 12; pieces > 0; --pieces) {
    if (random() % 4 == 0) {
      text.append(random() % 20, 'a');
    } else {
      text.push_back(classes[random() % classes.size()]);
    }
  }
  return text;
}

std::string repairedByICU(std::string_view text) {
  std::string repaired;
  icu::UnicodeString::fromUTF8(icu::StringPiece(text)).toUTF8String(repaired);
  return repaired;
}

TEST(UTF8, AgreesWithICUOnRandomBytesOnEveryRoad) {
  std::mt19937 random(2024);
  for (int round = 0; round < 20'000; ++round) {
    const std::string text = randomBytes(random);
    // An exactly sized copy on the heap, so that a sanitizer sees one byte too far.
    const std::vector<char> bytes(text.begin(), text.end());
    const std::string_view exact(bytes.data(), bytes.size());
    const std::string expected = repairedByICU(text);
    SCOPED_TRACE(testing::PrintToString(text));
    ASSERT_EQ(repairedUTF8(exact), expected);
    ASSERT_EQ(toUTF8(toScalars(exact)), expected);
    ASSERT_EQ(toUTF8(toUTF16(exact)), expected);
    ASSERT_EQ(isWellFormedUTF8(exact), expected == text);
    ASSERT_EQ(scalarCount(exact), toScalars(exact).size());
    ASSERT_EQ(isASCII(exact), std::ranges::all_of(text, [](char byte) { return (byte & 0x80) == 0; }));
  }
}

TEST(UTF8, FindsTheOnlyByteThatIsNotASCIIWhereverItStands) {
  for (std::size_t size = 0; size <= 40; ++size) {
    std::string text(size, 'a');
    ASSERT_TRUE(isASCII(text));
    ASSERT_TRUE(isWellFormedUTF8(text));
    for (std::size_t position = 0; position < size; ++position) {
      text[position] = '\x80';
      ASSERT_FALSE(isASCII(text)) << position << " of " << size;
      ASSERT_FALSE(isWellFormedUTF8(text)) << position << " of " << size;
      text[position] = 'a';
    }
  }
}

TEST(UTF8, WritesLoneSurrogatesAndNumbersThatAreNoScalarsAsReplacementCharacters) {
  EXPECT_EQ(toUTF8(std::u16string{u'a', 0xD800, u'b', 0xDC00, 0xD83D, 0xDE00, 0xD83D}),
            "a\uFFFDb\uFFFD\U0001F600\uFFFD");
  EXPECT_EQ(toUTF8(std::u32string{U'a', 0xD7FF, 0xD800, 0xDFFF, 0xE000, 0x10FFFF, 0x110000}),
            "a\uD7FF\uFFFD\uFFFD\uE000\U0010FFFF\uFFFD");
}

TEST(UTF8, ReadsAScalarCutOffAtTheEndAsOneReplacementCharacter) {
  const std::string whole = "\U0001F600";
  for (std::size_t size = 1; size < whole.size(); ++size) {
    const std::vector<char> bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    const DecodedScalar decoded = decodeScalar({bytes.data(), bytes.size()}, 0);
    EXPECT_EQ(decoded, (DecodedScalar{replacementCharacter, static_cast<std::uint8_t>(size), false}));
  }
}

}  // namespace
}  // namespace tessary
