#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryPlatform/time/ISO8601.h"

namespace tessary {
namespace {

using ISO8601::Fraction;
using ISO8601::MissingZone;

std::optional<double> secondsSince1970(std::string_view text, Fraction fraction,
                                       MissingZone missingZone = MissingZone::refused) {
  // An exactly sized buffer, so that the sanitizer sees a byte read too far.
  const std::unique_ptr<char[]> bytes(new char[text.size()]);
  text.copy(bytes.get(), text.size());
  const auto date = ISO8601::date({bytes.get(), text.size()}, fraction, missingZone);
  if (!date) return std::nullopt;
  return date->secondsSince1970();
}

/// The days from 1970-01-01 to a day, counted by walking the years and months.
std::int64_t daysSince1970(int year, int month, int day) {
  const auto isLeap = [](int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; };
  const auto length = [&](int y, int m) {
    static constexpr std::array lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return lengths[static_cast<std::size_t>(m - 1)] + (m == 2 && isLeap(y) ? 1 : 0);
  };
  std::int64_t days = day - 1;
  for (int y = 1970; y < year; ++y)
    days += isLeap(y) ? 366 : 365;
  for (int y = year; y < 1970; ++y)
    days -= isLeap(y) ? 366 : 365;
  for (int m = 1; m < month; ++m)
    days += length(year, m);
  return days;
}

struct ReadRow {
  std::string_view text;
  double seconds;
};

TEST(ISO8601, ReadsWholeSeconds) {
  for (const auto& [text, seconds] : {
           ReadRow{"1970-01-01T00:00:00Z", 0},
           ReadRow{"2001-01-01T00:00:00Z", 978'307'200},
           ReadRow{"2001-09-09T01:46:40Z", 1'000'000'000},
           ReadRow{"2009-02-13T23:31:30Z", 1'234'567'890},
           ReadRow{"2038-01-19T03:14:08Z", 2'147'483'648},
           ReadRow{"1901-12-13T20:45:52Z", -2'147'483'648},
           ReadRow{"1969-12-31T23:59:59Z", -1},
           ReadRow{"0001-01-01T00:00:00Z", -62'135'596'800},
           ReadRow{"0000-01-01T00:00:00Z", -62'167'219'200},
           ReadRow{"9999-12-31T23:59:59Z", 253'402'300'799},
           ReadRow{"2000-02-29T12:00:00Z", 951'825'600},
       }) {
    EXPECT_EQ(secondsSince1970(text, Fraction::none), seconds) << text;
    EXPECT_EQ(secondsSince1970(text, Fraction::present), std::nullopt) << text;
  }
}

TEST(ISO8601, ReadsFractionsOfAnyLength) {
  for (const auto& [text, seconds] : {
           ReadRow{"1970-01-01T00:00:00.5Z", 0.5},
           ReadRow{"2001-01-01T00:00:00.25Z", 978'307'200.25},
           ReadRow{"2001-09-09T01:46:40.000Z", 1'000'000'000},
           ReadRow{"2001-09-09T01:46:40.125Z", 1'000'000'000.125},
           ReadRow{"2001-09-09T01:46:40.000000000Z", 1'000'000'000},
           ReadRow{"2001-09-09T01:46:40.12500000099999Z", 1'000'000'000.125},
           ReadRow{"1969-12-31T23:59:59.75Z", -0.25},
       }) {
    EXPECT_EQ(secondsSince1970(text, Fraction::present), seconds) << text;
    EXPECT_EQ(secondsSince1970(text, Fraction::none), std::nullopt) << text;
  }
}

TEST(ISO8601, KeepsMicrosecondsAsWellAsADoubleCan) {
  const auto date = ISO8601::date("2026-01-02T03:04:05.678901Z", Fraction::present);
  ASSERT_TRUE(date);
  // 9132 days after 2001-01-01, and the nearest double to the whole sum.
  EXPECT_EQ(date->secondsSince2001(), 9'132 * 86'400.0 + 3 * 3'600 + 4 * 60 + 5.678901);
}

TEST(ISO8601, DigitsBehindTheNinthSayNothing) {
  const auto nine = ISO8601::date("1970-01-01T00:00:00.999999999Z", Fraction::present);
  const auto ten = ISO8601::date("1970-01-01T00:00:00.9999999999Z", Fraction::present);
  const auto eight = ISO8601::date("2001-01-01T00:00:00.99999999Z", Fraction::present);
  ASSERT_TRUE(nine && ten && eight);
  EXPECT_EQ(*nine, *ten);
  EXPECT_EQ(eight->secondsSince2001(), 0.99999999);
  EXPECT_EQ(ISO8601::date("2001-01-01T00:00:00.999999999Z", Fraction::present)->secondsSince2001(), 0.999999999);
  EXPECT_EQ(ISO8601::date("2001-01-01T00:00:00.9999999999Z", Fraction::present)->secondsSince2001(), 0.999999999);
  EXPECT_EQ(ISO8601::date("2001-01-01T00:00:00.1234567890x", Fraction::present), std::nullopt);
}

TEST(ISO8601, ReadsAnOffsetWithAndWithoutSeparator) {
  for (const auto& [text, seconds] : {
           ReadRow{"1970-01-01T09:00:00+09:00", 0},
           ReadRow{"1970-01-01T09:00:00+0900", 0},
           ReadRow{"1970-01-01T00:00:00+00:00", 0},
           ReadRow{"1970-01-01T00:00:00-00:00", 0},
           ReadRow{"1970-01-01T00:00:00-0330", 12'600},
           ReadRow{"1970-01-01T00:00:00+23:59", -86'340},
           ReadRow{"1970-01-01T00:00:00-23:59", 86'340},
           ReadRow{"0000-01-01T00:00:00+00:01", -62'167'219'260},
       }) {
    EXPECT_EQ(secondsSince1970(text, Fraction::none), seconds) << text;
    EXPECT_EQ(secondsSince1970(text, Fraction::none, MissingZone::meansUTC), seconds) << text;
    std::string withFraction(text);
    withFraction.insert(19, ".0");
    EXPECT_EQ(secondsSince1970(withFraction, Fraction::present), seconds) << withFraction;
  }
}

TEST(ISO8601, AMissingZoneIsUTCOnlyWhereTheReaderSaysSo) {
  EXPECT_EQ(secondsSince1970("1970-01-01T00:00:07", Fraction::none), std::nullopt);
  EXPECT_EQ(secondsSince1970("1970-01-01T00:00:07.5", Fraction::present), std::nullopt);
  EXPECT_EQ(secondsSince1970("1970-01-01T00:00:07", Fraction::none, MissingZone::meansUTC), 7);
  EXPECT_EQ(secondsSince1970("1970-01-01T00:00:07.5", Fraction::present, MissingZone::meansUTC), 7.5);
  for (const std::string_view text : {"1970-01-01T00:00:07 ", "1970-01-01T00:00:07z", "1970-01-01T00:00:07+",
                                      "1970-01-01T00:00", "1970-01-01", "1970-01-01T", ""}) {
    EXPECT_EQ(secondsSince1970(text, Fraction::none, MissingZone::meansUTC), std::nullopt) << text;
  }
}

TEST(ISO8601, RefusesEveryOtherForm) {
  for (const auto text : std::to_array<std::string_view>({
           "2026-01-02",
           "2026-01-02T03:04Z",
           "2026-01-02t03:04:05Z",
           "2026-01-02T03:04:05z",
           "2026-01-02 03:04:05Z",
           " 2026-01-02T03:04:05Z",
           "2026-01-02T03:04:05Z ",
           "2026-01-02T03:04:05Z\n",
           "2026-01-02T03:04:05 Z",
           "20260102T030405Z",
           "2026-01-02T030405Z",
           "2026-1-2T03:04:05Z",
           "26-01-02T03:04:05Z",
           "02026-01-02T03:04:05Z",
           "+2026-01-02T03:04:05Z",
           "-001-01-02T03:04:05Z",
           "2026-W01-5T03:04:05Z",
           "2026-002T03:04:05Z",
           "2026-00-02T03:04:05Z",
           "2026-13-02T03:04:05Z",
           "2026-01-00T03:04:05Z",
           "2026-01-32T03:04:05Z",
           "2026-02-29T03:04:05Z",
           "1900-02-29T03:04:05Z",
           "2026-04-31T03:04:05Z",
           "2026-01-02T24:00:00Z",
           "2026-01-02T03:60:05Z",
           "2026-01-02T03:04:60Z",
           "2016-12-31T23:59:60Z",
           "2026-01-02T03:04:05,678Z",
           "2026-01-02T03:04:05.Z",
           "2026-01-02T03:04:05.",
           "2026-01-02T03:04:05.-1Z",
           "2026-01-02T03:04:05.1",
           "2026-01-02T03:04:05+09",
           "2026-01-02T03:04:05+9:00",
           "2026-01-02T03:04:05+09:0",
           "2026-01-02T03:04:05+24:00",
           "2026-01-02T03:04:05+09:60",
           "2026-01-02T03:04:05+09:00:00",
           "2026-01-02T03:04:05+09:00Z",
           "2026-01-02T03:04:05Z+09:00",
           "2026-01-02T03:04:05\xE2\x88\x92"
           "09:00",  // U+2212 MINUS SIGN
           "2026-01-02T03:04:05UTC",
           "2026-01-02T03:04:05",
           "\xEF\xBC\x92"
           "026-01-02T03:04:05Z",  // FULLWIDTH DIGIT TWO
           "2026-01-02T03:04:0\xFFZ",
           std::string_view("2026-01-02T03:04:05\0Z", 21),
           std::string_view("2026-01-02T03:04:05Z\0", 21),
       })) {
    EXPECT_EQ(secondsSince1970(text, Fraction::none), std::nullopt) << text;
    EXPECT_EQ(secondsSince1970(text, Fraction::present), std::nullopt) << text;
  }
}

TEST(ISO8601, RefusesEveryProperBeginningOfAText) {
  constexpr std::string_view whole = "2026-01-02T03:04:05+09:00";
  constexpr std::string_view fraction = "2026-01-02T03:04:05.678+0900";
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_EQ(secondsSince1970(whole.substr(0, length), Fraction::none), std::nullopt) << length;
  }
  for (std::size_t length = 0; length < fraction.size(); ++length) {
    EXPECT_EQ(secondsSince1970(fraction.substr(0, length), Fraction::present), std::nullopt) << length;
  }
}

TEST(ISO8601, ReadsAMillionFractionDigits) {
  const std::string digits(1'000'000, '5');
  EXPECT_EQ(secondsSince1970("1970-01-01T00:00:00." + digits + "Z", Fraction::present).has_value(), true);
  EXPECT_EQ(secondsSince1970("1970-01-01T00:00:00." + digits, Fraction::present), std::nullopt);
}

/// Two rounds of the 400 years after which the calendar repeats itself, and the end of the range.
TEST(ISO8601, ReadsAndWritesEveryDay) {
  static constexpr std::array lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  std::int64_t seconds = daysSince1970(0, 1, 1) * 86'400;
  for (int year = 0; year <= 9'999; ++year) {
    const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    for (int month = 1; month <= 12; ++month) {
      const int length = lengths[static_cast<std::size_t>(month - 1)] + (month == 2 && isLeap ? 1 : 0);
      for (int day = 1; day <= length; ++day, seconds += 86'400) {
        if ((year > 400 && year < 1'800) || (year > 2'200 && year < 9'900)) continue;
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT00:00:00Z", year, month, day);
        const auto date = Date::fromSecondsSince1970(static_cast<double>(seconds));
        ASSERT_EQ(ISO8601::date(text.data(), Fraction::none), date) << text.data();
        ASSERT_EQ(ISO8601::text(date, Fraction::none), text.data());
      }
    }
  }
}

struct WriteRow {
  double secondsSince2001;
  std::optional<std::string_view> whole;
  std::optional<std::string_view> milliseconds;
};

TEST(ISO8601, WritesWholeSecondsCutAndFractionsRounded) {
  constexpr double first = -63'145'526'400;  // 0000-01-01
  constexpr double end = 252'423'993'600;    // 10000-01-01
  for (const auto& [seconds, whole, milliseconds] : {
           WriteRow{0, "2001-01-01T00:00:00Z", "2001-01-01T00:00:00.000Z"},
           WriteRow{0.0004, "2001-01-01T00:00:00Z", "2001-01-01T00:00:00.000Z"},
           WriteRow{0.0006, "2001-01-01T00:00:00Z", "2001-01-01T00:00:00.001Z"},
           WriteRow{0.9994, "2001-01-01T00:00:00Z", "2001-01-01T00:00:00.999Z"},
           WriteRow{0.9996, "2001-01-01T00:00:00Z", "2001-01-01T00:00:01.000Z"},
           WriteRow{-0.25, "2000-12-31T23:59:59Z", "2000-12-31T23:59:59.750Z"},
           WriteRow{-0.0004, "2000-12-31T23:59:59Z", "2001-01-01T00:00:00.000Z"},
           WriteRow{86'399.9999, "2001-01-01T23:59:59Z", "2001-01-02T00:00:00.000Z"},
           WriteRow{first, "0000-01-01T00:00:00Z", "0000-01-01T00:00:00.000Z"},
           WriteRow{first - 1, std::nullopt, std::nullopt},
           WriteRow{end - 1, "9999-12-31T23:59:59Z", "9999-12-31T23:59:59.000Z"},
           WriteRow{end - 0.5, "9999-12-31T23:59:59Z", "9999-12-31T23:59:59.500Z"},
           WriteRow{end - 0.0001, "9999-12-31T23:59:59Z", std::nullopt},
           WriteRow{end, std::nullopt, std::nullopt},
           WriteRow{1e300, std::nullopt, std::nullopt},
           WriteRow{-1e300, std::nullopt, std::nullopt},
           WriteRow{std::numeric_limits<double>::infinity(), std::nullopt, std::nullopt},
           WriteRow{-std::numeric_limits<double>::infinity(), std::nullopt, std::nullopt},
           WriteRow{std::numeric_limits<double>::quiet_NaN(), std::nullopt, std::nullopt},
       }) {
    EXPECT_EQ(ISO8601::text(Date::fromSecondsSince2001(seconds), Fraction::none), whole) << seconds;
    EXPECT_EQ(ISO8601::text(Date::fromSecondsSince2001(seconds), Fraction::present), milliseconds) << seconds;
  }
}

TEST(ISO8601, AWrittenTextIsReadAndWrittenAgainUnchanged) {
  std::mt19937_64 random(20260102);
  std::uniform_real_distribution<double> anyDate(-63'145'526'400.0, 252'423'993'500.0);
  std::uniform_real_distribution<double> ourDays(700'000'000.0, 900'000'000.0);
  for (int round = 0; round < 20'000; ++round) {
    const auto date = Date::fromSecondsSince2001(round % 2 == 0 ? anyDate(random) : ourDays(random));
    for (const Fraction fraction : {Fraction::none, Fraction::present}) {
      const auto text = ISO8601::text(date, fraction);
      ASSERT_TRUE(text);
      const auto again = ISO8601::date(*text, fraction);
      ASSERT_TRUE(again) << *text;
      ASSERT_EQ(ISO8601::text(*again, fraction), text);
      const double change = *again - date;
      ASSERT_LE(std::abs(change), fraction == Fraction::none ? 1.0 : 0.00054) << *text;
    }
  }
}

TEST(ISO8601, EveryMillisecondOfASecondSurvives) {
  for (int millisecond = 0; millisecond < 1'000; ++millisecond) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "2026-01-02T03:04:05.%03dZ", millisecond);
    const auto date = ISO8601::date(text.data(), Fraction::present);
    ASSERT_TRUE(date);
    EXPECT_EQ(ISO8601::text(*date, Fraction::present), text.data());
  }
}

}  // namespace
}  // namespace tessary
