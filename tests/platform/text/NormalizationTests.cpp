#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/text/Normalization.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

/// The same by another door of the authority.
std::string normalizedByICU(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  std::string normalized;
  icu::Normalizer2::getNFCInstance(status)
      ->normalize(icu::UnicodeString::fromUTF8(icu::StringPiece(text)), status)
      .toUTF8String(normalized);
  return normalized;
}

TEST(Normalization, ComposesWhatCanBeComposed) {
  EXPECT_EQ(normalizedToFormC("e\u0301"), "\u00E9");
  EXPECT_EQ(normalizedToFormC("\u1112\u1161\u11AB"), "\uD55C") << "jamo become a syllable";
  EXPECT_EQ(normalizedToFormC("\u30AB\u3099"), "\u30AC");
  EXPECT_EQ(normalizedToFormC("a\u0327\u0301"), normalizedToFormC("a\u0301\u0327"));
  EXPECT_EQ(normalizedToFormC("\uF900"), "\u8C48") << "a compatibility ideograph has a canonical form";
  EXPECT_EQ(normalizedToFormC("\uFB01"), "\uFB01") << "a ligature has none";
  EXPECT_EQ(normalizedToFormC(""), "");
  EXPECT_EQ(normalizedToFormC("plain"), "plain");
}

TEST(Normalization, AgreesWithICUOnEveryScalarAndChangesNothingTwice) {
  for (char32_t scalar = 0; scalar <= 0x2FFFF; ++scalar) {
    std::string text = "a";
    appendScalar(text, scalar);
    text += "\u0323\u0301";
    const std::string normalized = normalizedToFormC(text);
    ASSERT_EQ(normalized, normalizedByICU(text)) << static_cast<unsigned>(scalar);
    ASSERT_EQ(normalizedToFormC(normalized), normalized) << static_cast<unsigned>(scalar);
  }
}

TEST(Normalization, ReadsBrokenSequencesAsReplacementCharacters) {
  EXPECT_EQ(normalizedToFormC("e\xCC\x81\xFF"
                              "e\xCC"),
            "\u00E9\uFFFDe\uFFFD");
}

/// Runs on both sides of the length from which they are put in order before ICU sees them.
TEST(Normalization, AgreesWithICUOnRunsOfMarksOfAnyLength) {
  const std::vector<std::string> alphabet = {"\u0301", "\u0323", "\u0327", "\u0344", "\u0F73", "\u0F71",
                                             "\u0F72", "\u3099", "\u0308", "\u1DCE", "\u094D", "\u0345"};
  std::mt19937 random(11);
  for (int round = 0; round < 2000; ++round) {
    std::string text = round % 2 == 0 ? "a" : "\u00EA";
    for (std::size_t marks = 28 + random() % 10; marks > 0; --marks)
      text += alphabet[random() % alphabet.size()];
    text += round % 3 == 0 ? "b\u0301" : "";
    ASSERT_EQ(normalizedToFormC(text), normalizedByICU(text)) << testing::PrintToString(text);
  }
}

TEST(Normalization, TakesLinearTimeOverARunOfMarks) {
  std::string text = "a";
  std::string expected = "\u1EA1";
  for (int mark = 0; mark < 300'000; ++mark)
    text += "\u0301\u0323";
  for (int mark = 1; mark < 300'000; ++mark)
    expected += "\u0323";
  for (int mark = 0; mark < 300'000; ++mark)
    expected += "\u0301";
  EXPECT_TRUE(normalizedToFormC(text) == expected);
  std::string tibetan = "\u0F40";
  for (int mark = 0; mark < 300'000; ++mark)
    tibetan += "\u0F73";
  EXPECT_EQ(normalizedToFormC(tibetan).size(), 3U + 6 * 300'000);
}

TEST(LatinToASCII, SpellsLatinLettersInASCII) {
  EXPECT_EQ(latinToASCII("résumé"), "resume");
  EXPECT_EQ(latinToASCII("Straße"), "Strasse");
  EXPECT_EQ(latinToASCII("Đặc tả"), "Dac ta");
  EXPECT_EQ(latinToASCII("año"), "ano");
  EXPECT_EQ(latinToASCII("æon"), "aeon");
  EXPECT_EQ(latinToASCII("план 계획"), "план 계획") << "no other script is touched";
  EXPECT_EQ(latinToASCII("a\xFF"), "a\uFFFD");
  EXPECT_EQ(latinToASCII(""), "");
}

TEST(LatinToASCII, MayBeUsedByManyThreads) {
  std::vector<std::thread> threads;
  std::vector<int> wrong(4);
  for (std::size_t thread = 0; thread < wrong.size(); ++thread) {
    threads.emplace_back([&wrong, thread] {
      for (int round = 0; round < 300; ++round)
        wrong[thread] += latinToASCII("trị giá") == "tri gia" ? 0 : 1;
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(wrong, std::vector<int>(4));
}

}  // namespace
}  // namespace tessary
