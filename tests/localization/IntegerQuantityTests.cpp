#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include "TessaryLocalization/IntegerQuantity.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

struct Row {
  std::string_view text;
  std::optional<std::int64_t> quantity;
};

TEST(IntegerQuantity, ReadsFormattedNumbers) {
  for (const auto& [text, quantity] : {
           Row{"0", 0},
           {"7", 7},
           {"1,234", 1'234},
           {"1.234", 1'234},
           {"1 234", 1'234},
           {"1'234", 1'234},
           {"1\u2019234", 1'234},
           {"1\u00A0234", 1'234},
           {"1\u202F234", 1'234},
           {"1\u2009234", 1'234},
           {"١٬٢٣٤", 1'234},
           {"12,34,567", 1'234'567},
           {"٣", 3},
           {"１２３", 123},
           {"三五", 35},
           {"十", 10},
           {"三十", 310},
           {"兆", 1'000'000'000'000},
           {"Ⅻ", 12},
           {"⑳", 20},
           {"𝟘𝟙", 1},
           {"0007", 7},
           {" 7 ", 7},
           {",,7", 7},
       })
    EXPECT_EQ(integerQuantity(text), quantity) << text;
}

TEST(IntegerQuantity, IsAbsentWhereAnotherCharacterStands) {
  for (const std::string_view text :
       {"12a", "a12",     "-5",       "+5",      "\u22125", "1\t2",    "1\n2",      "1_2",
        "½",   "1½",      "\u0F33",   "1\u0301", "1\u20E3", "1\uFE0F", "1\u200D2",  "1,\u0301 2",
        "5%",  "\u06DD5", "1\u200E2", "\uFFFD",  "1\xFF",   "\xFF",    "1\xE2\x80", "五個"})
    EXPECT_EQ(integerQuantity(text), std::nullopt) << text;
}

TEST(IntegerQuantity, IsAbsentWithoutADigit) {
  for (const std::string_view text : {"", "...", " ", ",", "'\u2019\u00A0\u202F\u2009\u066C"})
    EXPECT_EQ(integerQuantity(text), std::nullopt) << text;
}

TEST(IntegerQuantity, EndsWhereSixtyFourBitsEnd) {
  constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(integerQuantity("9223372036854775806"), greatest - 1);
  EXPECT_EQ(integerQuantity("9,223,372,036,854,775,807"), greatest);
  EXPECT_EQ(integerQuantity("9223372036854775808"), std::nullopt);
  EXPECT_EQ(integerQuantity("9223372036854775810"), std::nullopt);
  EXPECT_EQ(integerQuantity("10000000000000000000"), std::nullopt);
  EXPECT_EQ(integerQuantity("18446744073709551617"), std::nullopt);
  // Characters of more than one digit count with all of them: 900,000,000,000 * 10^13 is too much.
  EXPECT_EQ(integerQuantity("900000兆"), 9'000'001'000'000'000'000);
  EXPECT_EQ(integerQuantity("9000000兆"), std::nullopt);
  EXPECT_EQ(integerQuantity("922337203685477580十"), std::nullopt);
  EXPECT_EQ(integerQuantity(std::string(100'000, '0') + "42"), 42);
  EXPECT_EQ(integerQuantity(std::string(100'000, '1')), std::nullopt);
}

/// Every single scalar against the database.
TEST(IntegerQuantity, TakesEveryCharacterOfWholeValueAndNoOther) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    std::optional<std::int64_t> expected;
    const double value = u_getNumericValue(static_cast<UChar32>(scalar));
    if (value != U_NO_NUMERIC_VALUE && value >= 0 && value == static_cast<double>(static_cast<std::int64_t>(value)))
      expected = static_cast<std::int64_t>(value);
    const std::string text = toUTF8(std::u32string_view(&scalar, 1));
    ASSERT_EQ(integerQuantity(text), expected) << "U+" << std::hex << static_cast<std::uint32_t>(scalar);
  }
}

}  // namespace
}  // namespace tessary
