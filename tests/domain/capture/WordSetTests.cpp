#include <algorithm>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/ArtifactExtensions.h"
#include "TessaryDomain/capture/WordSet.h"

namespace tessary {
namespace {

using testing::ElementsAre;

constexpr WordSet words(std::to_array<std::string_view>({"beta", "", "alpha", ".b", "한"}));

TEST(WordSet, HoldsItsWordsInAscendingOrder) {
  EXPECT_TRUE(std::ranges::equal(words, words.sorted()));
  EXPECT_THAT(words.sorted(), ElementsAre("", ".b", "alpha", "beta", "한"));
  EXPECT_EQ(words.size(), 5U);
  for (std::size_t index = 0; index < words.size(); ++index)
    EXPECT_EQ(words.index(words.sorted()[index]), index);
}

TEST(WordSet, HoldsNothingElse) {
  for (const std::string_view word :
       {"a", "alph", "alphaa", "Alpha", "bets", "b", ".", ".bb", "b.", "하", "\xED\x95"}) {
    EXPECT_FALSE(words.contains(word)) << word;
    EXPECT_EQ(words.index(word), words.size()) << word;
  }
  EXPECT_FALSE(words.contains(std::string_view("\0", 1)));
  EXPECT_FALSE(words.contains(std::string(1 << 20, 'a')));
  constexpr WordSet withoutEmpty(std::to_array<std::string_view>({"a"}));
  EXPECT_FALSE(withoutEmpty.contains(""));
}

TEST(WordSet, AnswersAsASearchThroughAllWordsForEveryShortText) {
  constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz01459._";
  std::size_t found = 0;
  for (const char first : letters) {
    for (const char second : letters) {
      for (const char third : letters) {
        for (const std::string& text :
             {std::string{first}, std::string{first, second}, std::string{first, second, third}}) {
          const bool isThere = std::ranges::find(codeExtensions, text) != codeExtensions.end();
          ASSERT_EQ(codeExtensionSet.contains(text), isThere) << text;
          found += isThere && text.size() == 3;
        }
      }
    }
  }
  EXPECT_EQ(found, static_cast<std::size_t>(std::ranges::count(codeExtensions, 3U, &std::string_view::size)));
}

TEST(WordSet, JoinsTwoSets) {
  constexpr WordSet joined = words.joined(WordSet(std::to_array<std::string_view>({"b", "z"})));
  EXPECT_THAT(joined.sorted(), ElementsAre("", ".b", "alpha", "b", "beta", "z", "한"));
  EXPECT_TRUE(joined.contains("b"));
}

}  // namespace
}  // namespace tessary
