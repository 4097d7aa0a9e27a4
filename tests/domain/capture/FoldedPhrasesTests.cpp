#include <array>
#include <bitset>
#include <cstddef>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/FoldedPhrases.h"
#include "TessaryDomain/capture/PythonText.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

constexpr auto phrases =
    std::to_array<std::string_view>({"do not redo", "do not reset", "final fist", "do n", "thesis"});
constexpr FoldedPhrases wanted(phrases);

TEST(FoldedPhrases, AreFoundInAnyLetterCase) {
  EXPECT_EQ(foundPhrases("", wanted).to_ulong(), 0U);
  EXPECT_EQ(foundPhrases("Do NOT reDO", wanted).to_ulong(), 0b1001U);
  EXPECT_EQ(foundPhrases("o not redo", wanted).to_ulong(), 0U);
  EXPECT_EQ(foundPhrases("do not re", wanted).to_ulong(), 0b1000U);
  EXPECT_EQ(foundPhrases("\uFB01nal \uFB01\uFB06", wanted).to_ulong(), 0b100U);
  EXPECT_EQ(foundPhrases("\u1E97hesi\u00DF", wanted).to_ulong(), 0U) << "a mark stands behind the t";
  EXPECT_EQ(foundPhrases("thesi\u00DF", wanted).to_ulong(), 0b10000U) << "the first half of what it folds to";
}

TEST(FoldedPhrases, AreNotMistakenForTextThatDiffersByTheBitOfCase) {
  static constexpr auto signs = std::to_array<std::string_view>({"no a/b", "[mark]"});
  static constexpr FoldedPhrases wantedSigns(signs);
  EXPECT_EQ(foundPhrases("NO A/B", wantedSigns).to_ulong(), 0b1U);
  EXPECT_EQ(foundPhrases("no a\x0F"
                         "b",
                         wantedSigns)
                .to_ulong(),
            0U);
  EXPECT_EQ(foundPhrases("no aob", wantedSigns).to_ulong(), 0U);
  EXPECT_EQ(foundPhrases("{mark}", wantedSigns).to_ulong(), 0U);
  EXPECT_EQ(foundPhrases("[MARK]", wantedSigns).to_ulong(), 0b10U);
}

TEST(FoldedPhrases, MayBeAsShortAndAsLongAsTheLimits) {
  const std::string longest = std::string(longestFoldedPhrase - 1, 'a') + 'b';
  const auto both = std::to_array<std::string_view>({longest, "abca"});
  const FoldedPhrases wantedBoth(both);
  EXPECT_EQ(foundPhrases(std::string(longestFoldedPhrase - 2, 'A') + "BCA", wantedBoth).to_ulong(), 0b10U);
  EXPECT_EQ(foundPhrases(std::string(longestFoldedPhrase + 9, 'A') + "BCA", wantedBoth).to_ulong(), 0b11U);
  const FoldedPhrases wantedLongest(std::span<const std::string_view>(both).first(1));
  for (std::size_t before = 0; before < 200; ++before) {
    const std::string text = std::string(before, 'x') + longest;
    EXPECT_EQ(foundPhrases(text, wantedLongest).to_ulong(), 1U) << before;
    EXPECT_EQ(foundPhrases(text.substr(0, text.size() - 1), wantedLongest).to_ulong(), 0U) << before;
    EXPECT_EQ(foundPhrases("\u00DF" + text, wantedLongest, 7).to_ulong(), 1U) << before;
  }
}

std::bitset<mostFoldedPhrases> slowlyFound(std::string_view text, std::span<const std::string_view> all) {
  const std::string folded = PythonText::casefold(text);
  std::bitset<mostFoldedPhrases> found;
  for (std::size_t index = 0; index < all.size(); ++index)
    found[index] = folded.find(all[index]) != std::string::npos;
  return found;
}

TEST(FoldedPhrases, AreThoseOfTheWholeFoldHoweverItIsCut) {
  std::mt19937 random(20260324);
  const std::vector<std::string> units = {"do not ", "Do",   " n",        "ot re",  "redo",   "reSet",  "do", "\uFB01",
                                          "nal ",    "fi",   "fi\u017Ft", "\uFB06", "\uFB05", "the",    "si", "\u1E9E",
                                          "s",       "\xE2", "\xEF\xAC",  "\x81",   "\xFF",   "\u212A", " ",  "xyz"};
  for (int round = 0; round < 5000; ++round) {
    const std::string text = randomText(units, random() % 60, random);
    const std::bitset<mostFoldedPhrases> expected = slowlyFound(text, phrases);
    ASSERT_EQ(foundPhrases(text, wanted), expected) << testing::PrintToString(text);
    for (const std::size_t pieceBytes : std::to_array<std::size_t>({1, 2, 3, 7, 20, 64}))
      ASSERT_EQ(foundPhrases(text, wanted, pieceBytes), expected) << testing::PrintToString(text) << pieceBytes;
  }
}

TEST(FoldedPhrases, AreThoseOfTheWholeFoldForRandomPhrases) {
  std::mt19937 random(20260325);
  // Few letters, so that phrases overlap with themselves and one another; capitals only in the text.
  const std::vector<std::string> folded = {"a", "b", "ab", "ba", " ", "/"};
  std::vector<std::string> units = folded;
  units.insert(units.end(), {"A", "B", "aB", "O", "\x0F", "\u00E9"});
  for (int round = 0; round < 5000; ++round) {
    std::vector<std::string> owned(1 + random() % mostFoldedPhrases);
    for (std::string& phrase : owned) {
      while (phrase.size() < shortestFoldedPhrase)
        phrase += randomText(folded, random() % 12, random);
    }
    const std::vector<std::string_view> all(owned.begin(), owned.end());
    const std::string text = randomText(units, random() % 200, random);
    ASSERT_EQ(foundPhrases(text, FoldedPhrases(all)), slowlyFound(text, all))
        << "round " << round << ": " << testing::PrintToString(text) << testing::PrintToString(all);
  }
}

}  // namespace
}  // namespace tessary
