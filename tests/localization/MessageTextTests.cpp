#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryLocalization/MessageText.h"
#include "TessaryPlatform/text/GraphemeClusters.h"

namespace tessary {
namespace {

std::string filled(std::string_view message, const std::vector<std::string>& arguments) {
  return filledMessage(message, [&](std::size_t index) {
    return index < arguments.size() ? std::optional<std::string_view>(arguments[index]) : std::nullopt;
  });
}

/// The rule as it is told: character by character, from every "{" to the next "}".
std::string filledByCharacters(std::string_view message, const std::vector<std::string>& arguments) {
  const std::vector<std::string_view> all = characters(message);
  std::string text;
  for (std::size_t position = 0; position < all.size(); ++position) {
    if (all[position] == "{") {
      const auto close = std::find(all.begin() + static_cast<std::ptrdiff_t>(position) + 1, all.end(), "}");
      if (close != all.end()) {
        std::string between;
        for (auto each = all.begin() + static_cast<std::ptrdiff_t>(position) + 1; each != close; ++each)
          between += *each;
        const std::optional<std::size_t> index = placeholderIndex(between);
        if (index && *index < arguments.size()) {
          text += arguments[*index];
          position = static_cast<std::size_t>(close - all.begin());
          continue;
        }
      }
    }
    text += all[position];
  }
  return text;
}

TEST(MessageText, ReadsTheNumberOfAPlaceholderAsAnyInteger) {
  const std::vector<std::pair<std::string_view, std::optional<std::size_t>>> rows{
      {"0", 0},
      {"12", 12},
      {"007", 7},
      {"+0", 0},
      {"+3", 3},
      {"-0", 0},
      {"-00", 0},
      {"9223372036854775807", 9223372036854775807U},
      {"9223372036854775808", std::nullopt},
      {"-1", std::nullopt},
      {"", std::nullopt},
      {"+", std::nullopt},
      {"-", std::nullopt},
      {"+-0", std::nullopt},
      {"--0", std::nullopt},
      {" 0", std::nullopt},
      {"0 ", std::nullopt},
      {"0x1", std::nullopt},
      {"1.0", std::nullopt},
      {"٣", std::nullopt},
      {"x", std::nullopt},
  };
  for (const auto& [text, index] : rows)
    EXPECT_EQ(placeholderIndex(text), index) << text;
}

struct Filling {
  std::string message;
  std::string text;
};

TEST(MessageText, FillsPlaceholdersAndKeepsAllElse) {
  const std::vector<std::string> arguments{"A", "{0}"};
  const std::string manyZeros(5000, '0');
  const std::vector<Filling> rows{
      {"", ""},
      {"no braces", "no braces"},
      {"{0}", "A"},
      {"{0}{1}{0}", "A{0}A"},
      {"{0} {5}", "A {5}"},
      {"{x}", "{x}"},
      {"{}", "{}"},
      {"{", "{"},
      {"}", "}"},
      {"{0", "{0"},
      {"0}", "0}"},
      {"{{0}}", "{A}"},
      {"{1{0}", "{1A"},
      {"{ 0}", "{ 0}"},
      {"{+0}{-0}{00}", "AAA"},
      {"{-1}", "{-1}"},
      {"{2}{0}", "{2}A"},
      {"{9223372036854775807}{0}", "{9223372036854775807}A"},
      {"{99999999999999999999}{0}", "{99999999999999999999}A"},
      {"{" + manyZeros + "}", "A"},
      {"{٠}", "{٠}"},
      {"문서 {0}개", "문서 A개"},
      {"한{0}글", "한A글"},
      // An accent makes of a brace another character.
      {"{\u0301"
       "0}",
       "{\u0301"
       "0}"},
      {"{0}\u0301", "{0}\u0301"},
      {"{0}\u200D", "{0}\u200D"},
      {"{0}\u0301}", "{0}\u0301}"},
      {"{0\u0301}", "{0\u0301}"},
      // A prepended sign (U+0600 ARABIC NUMBER SIGN) takes the brace in, a letter does not.
      {"\u0600{0}", "\u0600{0}"},
      {"\u0627{0}\u0627", "\u0627A\u0627"},
      // Broken bytes are characters of their own.
      {"\xE2\x82{0}\xFF",
       "\xE2\x82"
       "A\xFF"},
      {"\r\n{0}\r\n", "\r\nA\r\n"},
  };
  for (const Filling& row : rows) {
    EXPECT_EQ(filled(row.message, arguments), row.text) << row.message;
    EXPECT_EQ(filledByCharacters(row.message, arguments), row.text) << row.message;
  }
}

TEST(MessageText, ReadsEveryTextAsTheWalkByCharactersDoes) {
  constexpr std::array<std::string_view, 24> units{
      "{",      "}",      "0",      "1",      "7",      "+",    "-",    "x",    " ",   "\r",  "\n",     "가",
      "\u0301", "\u200D", "\u0600", "\u0E33", "\u0903", "\xFF", "\xE2", "\x80", "{0}", "{1}", "\u1100", "\u0D4E"};
  constexpr std::uint32_t seed = 20261;
  std::mt19937 random(seed);
  for (int round = 0; round < 60'000; ++round) {
    std::string message;
    for (std::size_t count = random() % 12; count > 0; --count)
      message += units[random() % units.size()];
    ASSERT_EQ(filled(message, {"A", "b{0}"}), filledByCharacters(message, {"A", "b{0}"})) << "round " << round;
  }
}

TEST(MessageText, TakesLinearTimeOnBracesThatGoNowhere) {
  for (const std::string_view unit : {"{", "}", "{0", "{+", "{}", "{0}\u0301", "\u0600{0}", "{00000000"}) {
    std::string message;
    while (message.size() < 1'000'000)
      message += unit;
    EXPECT_EQ(filled(message, {}), message);
  }
  const std::string digits = "{" + std::string(1'000'000, '9');
  EXPECT_EQ(filled(digits, {"A"}), digits);
  EXPECT_EQ(filled(digits + "}", {"A"}), digits + "}");
}

}  // namespace
}  // namespace tessary
