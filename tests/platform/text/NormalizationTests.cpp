#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/translit.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/text/Normalization.h"
#include "TessaryPlatform/text/TextPieces.h"
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

std::string latinToASCIIByICU(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  static const std::unique_ptr<icu::Transliterator> transform(
      icu::Transliterator::createInstance("Latin-ASCII", UTRANS_FORWARD, status));
  icu::UnicodeString units = icu::UnicodeString::fromUTF8(icu::StringPiece(text));
  transform->transliterate(units);
  std::string transformed;
  units.toUTF8String(transformed);
  return transformed;
}

/// Letters with and without marks, marks of other scripts, scalars that become several, and runs of marks on both sides
/// of the length from which they are put in order before ICU sees them.
std::string randomLatin(std::mt19937& random) {
  static const std::vector<std::string> alphabet = {
      "a",      "e",      "1",      " ",      "\u0301", "\u0323", "\u0327", "\u0344", "\u0345", "\u3099", "\u05B0",
      "\u094D", "\u0F73", "\u0E31", "\u0903", "\u00DF", "\u1ED9", "\u2026", "\u00BD", "\u2044", "\uFF21", "\u03B1",
      "\u0430", "\uD55C", "\u1100", "\u1161", "\u11A8", "\u3007", "\u3000", "\u02B0", "\u0131", "\u1E9A", "\xFF"};
  std::string text;
  for (std::size_t pieces = random() % 24; pieces > 0; --pieces)
    text += alphabet[random() % alphabet.size()];
  if (random() % 4 != 0) return text;
  for (std::size_t marks = 28 + random() % 12; marks > 0; --marks)
    text += alphabet[4 + random() % 8];
  return text;
}

TEST(LatinToASCII, AgreesWithICUOnEveryScalarBetweenLettersAndMarks) {
  for (char32_t scalar = 0; scalar <= 0x1FFFF; ++scalar) {
    if (scalar >= 0x3400 && scalar < 0xD7A4) continue;
    std::string text = "a";
    appendScalar(text, scalar);
    text += "\u0301e\u0301";
    ASSERT_EQ(latinToASCII(text), latinToASCIIByICU(text)) << static_cast<unsigned>(scalar);
    ASSERT_EQ(latinToASCIIInPieces(text, {.least = 1, .most = 1000}), latinToASCIIByICU(text))
        << static_cast<unsigned>(scalar);
  }
}

TEST(LatinToASCII, InPiecesIsTheTransformOfTheWhole) {
  std::mt19937 random(41);
  for (int round = 0; round < 10'000; ++round) {
    const std::string text = randomLatin(random);
    const std::size_t least = 1 + random() % 16;
    ASSERT_EQ(latinToASCIIInPieces(text, {.least = least, .most = 1000}), latinToASCIIByICU(text))
        << testing::PrintToString(text) << " by " << least;
  }
}

TEST(Normalization, InPiecesIsNormalizationOfTheWhole) {
  std::mt19937 random(43);
  for (int round = 0; round < 10'000; ++round) {
    const std::string text = randomLatin(random);
    const std::size_t least = 1 + random() % 16;
    ASSERT_EQ(normalizedToFormCInPieces(text, {.least = least, .most = 1000}), normalizedByICU(text))
        << testing::PrintToString(text) << " by " << least;
  }
}

/// A careless transform reads or moves the rest of the text once for each of these.
TEST(LatinToASCII, TakesLinearTime) {
  struct Row {
    std::string head, unit, headInASCII, unitInASCII;
  };
  const std::vector<Row> rows = {{"", "\u00E9", "", "e"},
                                 {"", "e\u0301", "", "e"},
                                 {"a", "\u0301\u0323", "a", ""},
                                 {"", "\u2026", "", "..."},
                                 {"\uD55C", "\u1161", "\uD55C", "\u1161"},
                                 {"", "\uD55Ce\u0301", "", "\uD55Ce"}};
  for (const Row& row : rows) {
    std::string text = row.head;
    std::string expected = row.headInASCII;
    for (int count = 0; count < 200'000; ++count) {
      text += row.unit;
      expected += row.unitInASCII;
    }
    EXPECT_TRUE(latinToASCII(text) == expected) << row.unit;
  }
  std::string marks = "\uD55C";
  for (int count = 0; count < 200'000; ++count)
    marks += "\u0301\u0323";
  EXPECT_EQ(latinToASCII(marks)->size(), marks.size()) << "marks on another script stay";
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
