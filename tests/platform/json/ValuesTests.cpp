#include <limits>

#include <gtest/gtest.h>

#include "TessaryPlatform/values/ForcedRange.h"
#include "TessaryPlatform/values/RawValue.h"

#include "TestRecord.h"

namespace tessary {
namespace {

TEST(RawValue, OneTableGivesTextCaseAndAllCases) {
  EXPECT_EQ(rawValue(TestColor::darkGreen), "dark-green");
  EXPECT_EQ(fromRawValue<TestColor>("red"), TestColor::red);
  EXPECT_EQ(allCases<TestColor>(), (std::array{TestColor::red, TestColor::darkGreen}));
}

TEST(RawValue, OnlyTheExactTextNamesACase) {
  for (const std::string_view text : {"Red", "red ", "", "darkGreen", "dark-green2"}) {
    EXPECT_EQ(fromRawValue<TestColor>(text), std::nullopt) << text;
  }
}

TEST(RawValue, ATableOutOfOrderOrWithATextTwiceIsNoTable) {
  using Row = RawValueRow<TestColor>;
  EXPECT_TRUE(isRawValueTable(std::array{Row{TestColor::red, "a"}, Row{TestColor::darkGreen, "b"}}));
  EXPECT_FALSE(isRawValueTable(std::array{Row{TestColor::darkGreen, "b"}, Row{TestColor::red, "a"}}));
  EXPECT_FALSE(isRawValueTable(std::array{Row{TestColor::red, "a"}, Row{TestColor::darkGreen, "a"}}));
}

TEST(ForcedRange, BelowIsTheLowEndAboveTheHighEndAndNoNumberTheDefault) {
  constexpr ForcedRange range{.low = 1, .high = 30, .otherwise = 5};
  EXPECT_EQ(range.forced(0), 1);
  EXPECT_EQ(range.forced(1), 1);
  EXPECT_EQ(range.forced(1.5), 1.5);
  EXPECT_EQ(range.forced(30), 30);
  EXPECT_EQ(range.forced(31), 30);
  EXPECT_EQ(range.forced(std::numeric_limits<double>::infinity()), 5);
  EXPECT_EQ(range.forced(-std::numeric_limits<double>::infinity()), 5);
  EXPECT_EQ(range.forced(std::numeric_limits<double>::quiet_NaN()), 5);
}

}  // namespace
}  // namespace tessary
