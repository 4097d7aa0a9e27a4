#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonISOTimestamp.h"

#include "PythonVectors.h"

namespace tessary {
namespace {

using Microseconds = std::optional<std::int64_t>;

/// Reads `text` from a buffer of exactly its size, so that a sanitizer sees every byte read beyond it.
Microseconds microseconds(std::string_view text) {
  const auto buffer = std::make_unique<char[]>(text.size());
  std::ranges::copy(text, buffer.get());
  return PythonISOTimestamp::microseconds({buffer.get(), text.size()});
}

constexpr std::int64_t second = 1'000'000;
constexpr std::int64_t hour = 3600 * second;
constexpr std::int64_t day = 24 * hour;

/// 2026-01-01T00:00:00Z.
constexpr std::int64_t newYear2026 = 1'767'225'600 * second;

TEST(PythonISOTimestamp, AnswersAsCPythonDoesButForItsDepartures) {
  const std::vector<PythonVector> vectors = readPythonVectors("timestamp.tsv");
  ASSERT_GT(vectors.size(), 10000U);
  std::map<std::string, int> departures;
  for (const PythonVector& vector : vectors) {
    const std::string& answer = vector.fields.at(1);
    const std::string departure = vector.fields.size() > 2 ? vector.fields[2] : "";
    ++departures[departure];
    Microseconds expected;
    if (departure == "fraction") {
      // An offset below a second counts.
      expected = vector.number(1) - vector.number(3);
    } else if (departure.empty() && answer != "invalid" && answer != "naive") {
      // A time without an offset, and the other departures, are absent.
      expected = vector.number(1);
    }
    EXPECT_EQ(microseconds(vector.fields[0]), expected)
        << "line " << vector.line << ": " << testing::PrintToString(vector.fields[0]) << ", CPython: " << answer;
  }
  EXPECT_GT(departures["mark"], 20);
  EXPECT_GT(departures["month"], 5);
  EXPECT_GT(departures["fraction"], 10);
}

TEST(PythonISOTimestamp, ReadsUTCUnderEitherName) {
  EXPECT_EQ(microseconds("2026-01-02T03:04:05+00:00"), newYear2026 + day + 3 * hour + (4 * 60 + 5) * second);
  EXPECT_EQ(microseconds("2026-01-02T03:04:05Z"), microseconds("2026-01-02T03:04:05+00:00"));
  EXPECT_EQ(microseconds("1970-01-01T00:00:00Z"), 0);
  EXPECT_EQ(microseconds("1969-12-31T23:59:59.999999Z"), -1);
}

TEST(PythonISOTimestamp, HasNoAnswerWithoutAnOffset) {
  EXPECT_EQ(microseconds("2026-01-02T03:04:05"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-02"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-02T03:04:05z"), std::nullopt);
  EXPECT_EQ(microseconds("2026W01"), std::nullopt);
}

TEST(PythonISOTimestamp, CountsTheSevenLeastCharactersAsScalars) {
  // Seven bytes, or nine, that are six characters.
  EXPECT_EQ(microseconds("2026W1Z"), std::nullopt);
  EXPECT_EQ(microseconds("2026W0\u00E9"), std::nullopt);
  EXPECT_EQ(microseconds(""), std::nullopt);
  EXPECT_EQ(microseconds("2026W01 00Z"), newYear2026 - 3 * day);
}

TEST(PythonISOTimestamp, ReadsWeekDates) {
  EXPECT_EQ(microseconds("2026-W01-1T00:00:00+00:00"), newYear2026 - 3 * day);
  EXPECT_EQ(microseconds("2026-W01T00:00:00+00:00"), newYear2026 - 3 * day);
  EXPECT_EQ(microseconds("2026W014T00Z"), newYear2026);
  EXPECT_EQ(microseconds("2026-W53-5T00Z"), newYear2026 + 365 * day);
  EXPECT_EQ(microseconds("2025-W53-1T00Z"), std::nullopt);
  EXPECT_EQ(microseconds("2026-W54-1T00Z"), std::nullopt);
  EXPECT_EQ(microseconds("9999-W52-6T00Z"), std::nullopt);
}

TEST(PythonISOTimestamp, TakesAnyOneCharacterForTheSeparator) {
  for (const char* const separator : {"T", " ", "\u00E9", "\uD55C", "\U0001F600", "-", "5"})
    EXPECT_EQ(microseconds("2026-01-01" + std::string(separator) + "00:00Z"), newYear2026) << separator;
  EXPECT_EQ(microseconds("2026-01-01TT00:00Z"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01e\u030100:00Z"), std::nullopt);
}

TEST(PythonISOTimestamp, StaysInsideATextThatEndsWithinASeparator) {
  for (const char* const lead : {"\xC3", "\xE2", "\xF0", "\xFF", "\x80"}) {
    EXPECT_EQ(microseconds("2026-01-02" + std::string(lead)), std::nullopt);
    EXPECT_EQ(microseconds("20260102" + std::string(lead) + "Z"), std::nullopt);
  }
}

TEST(PythonISOTimestamp, TakesMidnightAsTheStartOfTheNextDay) {
  EXPECT_EQ(microseconds("2024-12-31T24:00:00+00:00"), microseconds("2025-01-01T00:00:00Z"));
  EXPECT_EQ(microseconds("2024-02-28T24:00Z"), microseconds("2024-02-29T00:00Z"));
  EXPECT_EQ(microseconds("2023-02-28T24Z"), microseconds("2023-03-01T00:00Z"));
  EXPECT_EQ(microseconds("2024-12-31T24:00:01+00:00"), std::nullopt);
  EXPECT_EQ(microseconds("2024-12-31T24:00:00.000001+00:00"), std::nullopt);
  EXPECT_EQ(microseconds("2023-02-29T24:00Z"), std::nullopt);
  EXPECT_EQ(microseconds("9999-12-31T24:00:00+00:00"), std::nullopt);
  EXPECT_EQ(microseconds("9999-12-30T24:00:00+00:00"), microseconds("9999-12-31T00:00:00+00:00"));
  EXPECT_EQ(microseconds("0000-06-01T24:00:00+00:00"), std::nullopt);
  // Calendar and year are asked about the day that midnight begins.
  EXPECT_EQ(microseconds("0000-12-31T24:00:00+00:00"), microseconds("0001-01-01T00:00:00+00:00"));
  EXPECT_EQ(microseconds("2024-01-00T24:00Z"), microseconds("2024-01-01T00:00Z"));
  EXPECT_EQ(microseconds("2024-00-00T24:00Z"), std::nullopt);
  EXPECT_EQ(microseconds("9999-W52-5T24:00Z"), std::nullopt);
}

TEST(PythonISOTimestamp, CutsAFractionAfterSixDigits) {
  EXPECT_EQ(microseconds("2026-01-01T00:00:00.9999999999Z"), newYear2026 + 999'999);
  EXPECT_EQ(microseconds("2026-01-01T00:00:00,5Z"), newYear2026 + 500'000);
  EXPECT_EQ(microseconds("2026-01-01T00:00:00.Z"), newYear2026);
  // What follows six digits is not looked at; what stands among them is.
  EXPECT_EQ(microseconds("2026-01-01T00:00:00.123456x+00:00"), newYear2026 + 123'456);
  EXPECT_EQ(microseconds("2026-01-01T00:00:00.12x+00:00"), std::nullopt);
}

TEST(PythonISOTimestamp, RefusesADecimalMarkDirectlyBehindHoursOrMinutes) {
  EXPECT_EQ(microseconds("2026-01-01T03.Z"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T03,+01:00"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T03:04.Z"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T0304,Z"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T03:04.5Z"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T00:00Z."), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T00:00+01."), std::nullopt);
}

TEST(PythonISOTimestamp, HoldsOffsetsBelowADayAndNotTheirFieldsOneByOne) {
  EXPECT_EQ(microseconds("2026-01-01T00:00+24:00"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T00:00-24:00"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T00:00+23:59:59.999999"), newYear2026 - day + 1);
  EXPECT_EQ(microseconds("2026-01-01T00:00-23:59:59.999999"), newYear2026 + day - 1);
  EXPECT_EQ(microseconds("2026-01-01T00:00+23:59:60"), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T00:00+22:99"), newYear2026 - (22 * 60 + 99) * 60 * second);
  EXPECT_EQ(microseconds("2026-01-01T00:00-00:00:00.000001"), newYear2026 + 1);
}

TEST(PythonISOTimestamp, TakesAZeroByteForTheEndWhereOneByteIsLookedAt) {
  using namespace std::string_view_literals;
  EXPECT_EQ(microseconds("2026-01-01T00:00Z\0x"sv), newYear2026);
  EXPECT_EQ(microseconds("2026-01-01T00:00+00:00\0"sv), newYear2026);
  EXPECT_EQ(microseconds("2026-01-01T00:00+00:00\0x"sv), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T00:00Zx"sv), std::nullopt);
}

TEST(PythonISOTimestamp, KeepsToTheYearsOneTo9999) {
  EXPECT_EQ(microseconds("0001-01-01T00:00:00Z"), -719'162 * day);
  EXPECT_EQ(microseconds("0001-01-01T00:00:00+23:00"), -719'162 * day - 23 * hour);
  EXPECT_EQ(microseconds("0000-12-31T23:59:59Z"), std::nullopt);
  EXPECT_EQ(microseconds("9999-12-31T23:59:59.999999Z"), (2'932'897 * day) - 1);
  EXPECT_EQ(microseconds("2026-01-01T00:00:60Z"), std::nullopt);
}

TEST(PythonISOTimestamp, ReadsAMegabyteOfDigitsOrSignsOnce) {
  const std::string digits(1'000'000, '7');
  EXPECT_EQ(microseconds("2026-01-01T00:00:00." + digits + "Z"), newYear2026 + 777'777);
  EXPECT_EQ(microseconds("2026W01" + digits), std::nullopt);
  EXPECT_EQ(microseconds("2026-01-01T00:00:00" + std::string(1'000'000, '+')), std::nullopt);
}

}  // namespace
}  // namespace tessary
