#include <array>
#include <bitset>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/FoldedPhrases.h"
#include "TessaryDomain/capture/PythonText.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

constexpr auto phrases = std::to_array<std::string_view>({"do not redo", "do not reset", "final fist", "a", "thesis"});
constexpr FoldedPhrases wanted = {.phrases = phrases, .commonStart = "do not "};

TEST(FoldedPhrases, AreFoundInAnyLetterCase) {
  EXPECT_EQ(foundPhrases("", wanted).to_ulong(), 0U);
  EXPECT_EQ(foundPhrases("Do NOT reDO", wanted).to_ulong(), 0b1U);
  EXPECT_EQ(foundPhrases("do not re", wanted).to_ulong(), 0U);
  EXPECT_EQ(foundPhrases("\uFB01nal \uFB01\uFB06", wanted).to_ulong(), 0b1100U) << "the a is in it";
  EXPECT_EQ(foundPhrases("\u1E97hesi\u00DF", wanted).to_ulong(), 0U) << "a mark stands behind the t";
  EXPECT_EQ(foundPhrases("thesi\u00DF", wanted).to_ulong(), 0b10000U) << "the first half of what it folds to";
}

TEST(FoldedPhrases, AreThoseOfTheWholeFoldHoweverItIsCut) {
  std::mt19937 random(20260324);
  const std::vector<std::string> units = {"do not ", "Do",   " n",        "ot re",  "redo",   "reSet",  "do", "\uFB01",
                                          "nal ",    "fi",   "fi\u017Ft", "\uFB06", "\uFB05", "the",    "si", "\u1E9E",
                                          "s",       "\xE2", "\xEF\xAC",  "\x81",   "\xFF",   "\u212A", " ",  "xyz"};
  for (int round = 0; round < 5000; ++round) {
    const std::string text = randomText(units, random() % 60, random);
    const std::string folded = PythonText::casefold(text);
    std::bitset<mostFoldedPhrases> expected;
    for (std::size_t index = 0; index < phrases.size(); ++index)
      expected[index] = PythonText::contains(folded, phrases[index]);
    ASSERT_EQ(foundPhrases(text, wanted), expected) << testing::PrintToString(text);
    for (const std::size_t pieceBytes : std::to_array<std::size_t>({1, 2, 3, 7, 20, 64}))
      ASSERT_EQ(foundPhrases(text, wanted, pieceBytes), expected) << testing::PrintToString(text) << pieceBytes;
  }
}

}  // namespace
}  // namespace tessary
