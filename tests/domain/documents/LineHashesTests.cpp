#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/LineHashes.h"

namespace tessary {
namespace {

TEST(LineHash, IsFNV1a) {
  // From the test suite that the authors of the function publish.
  EXPECT_EQ(lineHash(""), 0xCBF29CE484222325);
  EXPECT_EQ(lineHash("a"), 0xAF63DC4C8601EC8C);
  EXPECT_EQ(lineHash("foobar"), 0x85944171F73967E8);
  EXPECT_EQ(lineHash("foobar \t "), 0x85944171F73967E8);
}

TEST(LineHash, TakesBlanksAndMarksInLinearTime) {
  const std::string blanks(1'000'000, ' ');
  EXPECT_EQ(lineHash(blanks), lineHash(""));
  EXPECT_EQ(lineHash("a" + blanks), lineHash("a"));
  EXPECT_NE(lineHash(blanks + "a"), lineHash("a"));
  // A million prepended marks take the space behind them; a million joined marks do not.
  std::string prepended;
  std::string joined = "a";
  for (int mark = 0; mark < 1'000'000; ++mark) {
    prepended += "\u0600";
    joined += "\u0301";
  }
  EXPECT_NE(lineHash(prepended + " "), lineHash(prepended));
  EXPECT_EQ(lineHash(joined + blanks), lineHash(joined));
  EXPECT_NE(lineHash(blanks + joined), lineHash(joined));
}

TEST(AnchorValue, IsThatOfTheDigits) {
  struct Row {
    std::string_view anchor;
    std::optional<std::uint64_t> value;
  };
  for (const Row& row : std::vector<Row>{{"0", 0},
                                         {"0000000000000000", 0},
                                         {"1", 1},
                                         {"f", 15},
                                         {"F", 15},
                                         {"aBcDeF", 0xABCDEF},
                                         {"0123456789abcdef", 0x0123456789ABCDEF},
                                         {"ffffffffffffffff", 0xFFFFFFFFFFFFFFFF},
                                         {"0ffffffffffffffff", 0xFFFFFFFFFFFFFFFF},
                                         {"10000000000000000", std::nullopt},
                                         {"fffffffffffffffff", std::nullopt},
                                         {"+0", 0},
                                         {"+ff", 255},
                                         {"+10000000000000000", std::nullopt},
                                         {"-0", 0},
                                         {"-00000000000000000000000", 0},
                                         {"-1", std::nullopt},
                                         {"-01", std::nullopt},
                                         {"-ffffffffffffffff", std::nullopt},
                                         {"--0", std::nullopt},
                                         {"-+0", std::nullopt},
                                         {"+-0", std::nullopt},
                                         {"++0", std::nullopt},
                                         {"", std::nullopt},
                                         {"+", std::nullopt},
                                         {"-", std::nullopt},
                                         {" 1", std::nullopt},
                                         {"1 ", std::nullopt},
                                         {"1\n", std::nullopt},
                                         {"0x1", std::nullopt},
                                         {"1g", std::nullopt},
                                         {"1-", std::nullopt},
                                         {"\uFF11", std::nullopt},
                                         {std::string_view("1\0", 2), std::nullopt},
                                         {"\u22120", std::nullopt}})
    EXPECT_EQ(anchorValue(row.anchor), row.value) << row.anchor;
}

TEST(AnchorValue, TakesAnyNumberOfLeadingZeros) {
  EXPECT_EQ(anchorValue(std::string(1'000'000, '0') + "1f"), 0x1F);
  EXPECT_EQ(anchorValue("-" + std::string(1'000'000, '0')), 0);
  EXPECT_EQ(anchorValue(std::string(1'000'000, 'f')), std::nullopt);
}

using Hashes = std::vector<std::uint64_t>;

/// The definition: the bytes of all hashes in one row, low before high.
std::uint64_t combinationByDefinition(const Hashes& hashes, std::size_t begin, std::size_t span) {
  std::uint64_t state = 0xCBF29CE484222325;
  for (std::size_t line = begin; line < begin + span; ++line) {
    for (std::uint64_t rest = hashes[line], byte = 0; byte < 8; ++byte, rest /= 256) {
      state ^= rest % 256;
      state *= 0x100000001B3;
    }
  }
  return state;
}

/// The plain loop.
std::optional<std::size_t> nearestByDefinition(const Hashes& hashes, std::size_t span, std::uint64_t combination,
                                               std::size_t position) {
  std::optional<std::size_t> best;
  const auto distance = [&](std::size_t window) { return std::max(window, position) - std::min(window, position); };
  for (std::size_t window = 0; window + span <= hashes.size(); ++window) {
    if (combinationByDefinition(hashes, window, span) != combination) continue;
    if (!best || distance(window) < distance(*best)) best = window;
  }
  return best;
}

TEST(Combined, FeedsTheLeastByteFirst) {
  EXPECT_EQ(combined({}), 0xCBF29CE484222325);
  const Hashes hashes = {0x0123456789ABCDEF, 0, 0xFFFFFFFFFFFFFFFF, 0xCBF29CE484222325};
  for (std::size_t begin = 0; begin < hashes.size(); ++begin) {
    for (std::size_t span = 1; begin + span <= hashes.size(); ++span)
      EXPECT_EQ(combined(std::span(hashes).subspan(begin, span)), combinationByDefinition(hashes, begin, span));
  }
}

TEST(NearestWindow, IsThatOfThePlainLoopForEveryWindowAndPosition) {
  // Lists around the length of a block, over so few different lines that most windows are there many times.
  std::mt19937_64 random(20'260'301);
  const Hashes alphabet = {lineHash(""), lineHash("a"), lineHash("b"), 0xFFFFFFFFFFFFFFFF};
  for (const std::size_t count : std::vector<std::size_t>{1, 2, 7, 8, 9, 63, 64, 65, 127, 128, 129, 130, 200}) {
    for (int round = 0; round < 4; ++round) {
      const std::size_t letters = 1 + static_cast<std::size_t>(round);
      Hashes hashes(count);
      for (std::uint64_t& hash : hashes)
        hash = alphabet[random() % letters];
      for (const std::size_t span : {std::size_t{1}, std::size_t{2}, std::size_t{5}, count / 2, count - 1, count}) {
        if (span < 1 || span > count) continue;
        const std::size_t windows = count - span + 1;
        for (int attempt = 0; attempt < 6; ++attempt) {
          std::uint64_t sought = combinationByDefinition(hashes, random() % windows, span);
          // Sometimes one of which only the low bits are there.
          if (attempt % 3 == 2) sought ^= std::uint64_t{1} << (16 + random() % 48);
          const std::size_t position = random() % windows;
          ASSERT_EQ(nearestWindow(hashes, span, sought, position), nearestByDefinition(hashes, span, sought, position))
              << count << " lines, span " << span << ", position " << position;
        }
      }
    }
  }
}

TEST(NearestWindow, FindsAWindowWhereverItIs) {
  constexpr std::size_t count = 300;
  std::mt19937_64 random(20'260'302);
  Hashes hashes(count);
  for (std::uint64_t& hash : hashes)
    hash = random();
  for (const std::size_t span : {std::size_t{1}, std::size_t{3}, std::size_t{100}}) {
    for (std::size_t window = 0; window + span <= count; ++window) {
      const std::uint64_t sought = combinationByDefinition(hashes, window, span);
      for (const std::size_t position : {std::size_t{0}, std::size_t{64}, std::size_t{100}, count - span})
        ASSERT_EQ(nearestWindow(hashes, span, sought, position), window);
    }
    EXPECT_EQ(nearestWindow(hashes, span, random(), 10), std::nullopt);
  }
}

TEST(NearestWindow, PrefersTheNearerAndOfTwoTheLower) {
  // Two windows at every pair of distances around the position, also across the borders of blocks.
  constexpr std::size_t position = 150;
  const std::vector<std::size_t> distances = {1, 2, 62, 63, 64, 65, 127, 128, 129, 149};
  for (const std::size_t below : distances) {
    for (const std::size_t above : distances) {
      Hashes hashes(301);
      hashes[position - below] = 1;
      hashes[position + above] = 1;
      const std::size_t expected = below <= above ? position - below : position + above;
      EXPECT_EQ(nearestWindow(hashes, 1, combined(Hashes{1}), position), expected) << below << " or " << above;
    }
  }
}

TEST(NearestWindow, IsNotMisledWhereAllLowBitsAgree) {
  // Every window is the same one, and is not the one that is sought, of which all but the highest bit agree.
  const Hashes hashes(20'000, lineHash("same"));
  const std::uint64_t same = combined(std::span(hashes).first(100));
  EXPECT_EQ(nearestWindow(hashes, 100, same ^ (std::uint64_t{1} << 63), 10'000), std::nullopt);
  EXPECT_EQ(nearestWindow(hashes, 100, same, 10'000), 10'000);
}

}  // namespace
}  // namespace tessary
