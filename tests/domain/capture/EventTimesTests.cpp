#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TessaryDomain/capture/EventTimes.h"

#include "PythonVectors.h"

namespace tessary {
namespace {

using CaptureRules::eventSeconds;
using testing::Optional;

constexpr std::string_view newYear = "2026-01-01T00:00:00Z";
constexpr double newYearSeconds = 1767225600.0;

/// The bits of a number, so that -0.0 is not 0.0.
std::optional<std::uint64_t> bits(std::optional<double> seconds) {
  if (!seconds) return std::nullopt;
  return std::bit_cast<std::uint64_t>(*seconds);
}

/// A time that differs from those of all other indices, as text.
std::string timeText(std::size_t index) {
  const std::string digits = std::to_string(index);
  return "2026-01-01T00:00:00." + std::string(6 - digits.size(), '0') + digits + "Z";
}

TEST(EventSeconds, AreThoseOfCPythonBitForBit) {
  const std::vector<PythonVector> vectors = readPythonVectors("eventseconds.tsv", "capture");
  ASSERT_GT(vectors.size(), 5000U);
  std::size_t present = 0;
  for (const PythonVector& vector : vectors) {
    SCOPED_TRACE("line " + std::to_string(vector.line) + ": " + testing::PrintToString(vector.fields.at(0)));
    std::optional<double> expected;
    if (vector.fields.at(1) != "absent") expected = std::strtod(vector.fields[1].c_str(), nullptr);
    if (expected) ++present;
    // Once worked out, and once remembered.
    EXPECT_EQ(bits(eventSeconds(vector.fields[0])), bits(expected));
    EXPECT_EQ(bits(eventSeconds(vector.fields[0])), bits(expected));
  }
  EXPECT_GT(present, 3000U);
}

TEST(EventSeconds, CountFrom1970) {
  EXPECT_THAT(eventSeconds(newYear), Optional(newYearSeconds));
  EXPECT_THAT(eventSeconds("2026-01-01T09:00:00.5+09:00"), Optional(newYearSeconds + 0.5));
  EXPECT_THAT(eventSeconds("1969-12-31T23:59:59.999999Z"), Optional(-0.000001));
  EXPECT_THAT(eventSeconds("1969-12-31T23:59:58.500000Z"), Optional(-1.5));
  EXPECT_FALSE(std::signbit(eventSeconds("1970-01-01T00:00:00-00:00").value()));
}

TEST(EventSeconds, ReadEveryCapitalZAsAnOffsetAndNoSmallOne) {
  EXPECT_EQ(eventSeconds("2026-01-01T00:00:00z"), std::nullopt);
  EXPECT_EQ(eventSeconds("2026-01-01Z00:00:00Z"), std::nullopt);
  EXPECT_EQ(eventSeconds("2026-01-01T00:00:00ZZ"), std::nullopt);
  EXPECT_EQ(eventSeconds("2026-01-01T00:00:00"), std::nullopt);
  EXPECT_EQ(eventSeconds("2026-01-01"), std::nullopt);
  EXPECT_EQ(eventSeconds(""), std::nullopt);
}

TEST(EventSeconds, SurviveAnyBytes) {
  EXPECT_EQ(eventSeconds("\xFF"), std::nullopt);
  EXPECT_EQ(eventSeconds(std::string(1 << 20, 'Z')), std::nullopt);
  EXPECT_EQ(eventSeconds(std::string(1 << 20, '\0')), std::nullopt);
  EXPECT_THAT(eventSeconds("2026-01-01T00:00:00." + std::string(1 << 20, '0') + "Z"), Optional(newYearSeconds));
}

TEST(EventTimes, HoldTheAnswerAlsoWhereThereIsNone) {
  EventTimes times;
  EXPECT_EQ(times.size(), 0U);
  EXPECT_THAT(times.seconds(newYear), Optional(newYearSeconds));
  EXPECT_TRUE(times.holds(newYear));
  EXPECT_EQ(times.seconds("no time"), std::nullopt);
  EXPECT_TRUE(times.holds("no time"));
  EXPECT_EQ(times.size(), 2U);
  EXPECT_EQ(times.seconds("no time"), std::nullopt);
  EXPECT_THAT(times.seconds(newYear), Optional(newYearSeconds));
  EXPECT_EQ(times.size(), 2U);
}

TEST(EventTimes, HoldTextsAsTheyAreGiven) {
  EventTimes times;
  EXPECT_THAT(times.seconds("2026-01-01T00:00:00+00:00"), Optional(newYearSeconds));
  EXPECT_FALSE(times.holds(newYear));
  EXPECT_EQ(times.seconds(std::string_view("\0", 1)), std::nullopt);
  EXPECT_TRUE(times.holds(std::string_view("\0", 1)));
  EXPECT_FALSE(times.holds(""));
}

TEST(EventTimes, HoldNothingOutsideASCII) {
  EventTimes times;
  EXPECT_THAT(times.seconds("2026-01-01é00:00:00Z"), Optional(newYearSeconds));
  EXPECT_EQ(times.seconds("é"), std::nullopt);
  EXPECT_EQ(times.seconds("\x80"), std::nullopt);
  EXPECT_EQ(times.size(), 0U);
  EXPECT_EQ(times.seconds("\x7F"), std::nullopt);
  EXPECT_EQ(times.size(), 1U);
}

TEST(EventTimes, HoldNoTextThatIsTooLong) {
  const std::string start = "2026-01-01T00:00:00.";
  for (const std::size_t size : {EventTimes::longestText - 1, EventTimes::longestText, EventTimes::longestText + 1}) {
    EventTimes times;
    const std::string text = start + std::string(size - start.size() - 1, '0') + "Z";
    ASSERT_EQ(text.size(), size);
    EXPECT_THAT(times.seconds(text), Optional(newYearSeconds));
    EXPECT_EQ(times.holds(text), size <= EventTimes::longestText) << size;
  }
}

TEST(EventTimes, StartAnewWhenTheyAreFull) {
  EventTimes times;
  for (std::size_t index = 0; index < EventTimes::capacity - 1; ++index)
    EXPECT_TRUE(times.seconds(timeText(index)));
  EXPECT_EQ(times.size(), 16'383U);
  EXPECT_EQ(times.seconds("the last one that fits"), std::nullopt);
  EXPECT_EQ(times.size(), 16'384U);
  // What is held already needs no room.
  EXPECT_TRUE(times.seconds(timeText(0)));
  EXPECT_EQ(times.size(), 16'384U);
  EXPECT_THAT(times.seconds(newYear), Optional(newYearSeconds));
  EXPECT_EQ(times.size(), 1U);
  EXPECT_TRUE(times.holds(newYear));
  EXPECT_FALSE(times.holds(timeText(0)));
  EXPECT_THAT(times.seconds(timeText(0)), Optional(newYearSeconds));
  EXPECT_EQ(times.size(), 2U);
}

TEST(EventTimes, GiveTheSameAnswersToManyThreads) {
  EventTimes times;
  constexpr std::size_t count = 20'000;  // more than are held, so that some thread starts anew while others read
  std::vector<std::thread> threads;
  std::vector<std::size_t> wrong(4);
  for (std::size_t thread = 0; thread < wrong.size(); ++thread) {
    threads.emplace_back([&times, &wrong, thread] {
      for (std::size_t step = 0; step < count; ++step) {
        const std::size_t index = (step + thread * 4999) % count;
        const auto expected = static_cast<double>(1'767'225'600'000'000 + static_cast<std::int64_t>(index)) / 1e6;
        if (times.seconds(timeText(index)) != expected) ++wrong[thread];
        if (times.seconds("no time") != std::nullopt) ++wrong[thread];
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_THAT(wrong, testing::Each(0U));
  EXPECT_LE(times.size(), EventTimes::capacity);
}

}  // namespace
}  // namespace tessary
