#include <chrono>
#include <cstdint>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryPlatform/time/Calendar.h"
#include "TessaryPlatform/time/ISO8601.h"

namespace tessary {
namespace {

using Calendar::Day;
using ISO8601::Fraction;

Day dayOf(int year, unsigned month, unsigned day) {
  return Day(std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day));
}

/// The day of "YYYY-MM-DD".
Day dayOf(std::string_view text) {
  const auto midnight = ISO8601::date(std::string(text) + "T00:00:00Z", Fraction::none);
  EXPECT_TRUE(midnight) << text;
  const auto seconds = static_cast<std::int64_t>(midnight.value_or(Date()).secondsSince1970());
  return Day(std::chrono::days(seconds / 86'400 - (seconds % 86'400 < 0 ? 1 : 0)));
}

Date at(std::string_view text) {
  const auto date = ISO8601::date(text, Fraction::none);
  EXPECT_TRUE(date) << text;
  return date.value_or(Date());
}

std::string inUTC(std::optional<Date> date) {
  return date ? ISO8601::text(*date, Fraction::none).value_or("unwritable") : "absent";
}

struct MomentRow {
  std::string_view zone;
  std::string_view day;
  int hour;
  int minute;
  std::string_view moment;
};

TEST(Calendar, FindsATimeOfDayAcrossChangesOfTheClocks) {
  for (const auto& [zoneName, day, hour, minute, moment] : {
           // 02:00 becomes 03:00: what is skipped moves to 03:00.
           MomentRow{"Europe/Berlin", "2026-03-29", 0, 0, "2026-03-28T23:00:00Z"},
           MomentRow{"Europe/Berlin", "2026-03-29", 1, 59, "2026-03-29T00:59:00Z"},
           MomentRow{"Europe/Berlin", "2026-03-29", 2, 0, "2026-03-29T01:00:00Z"},
           MomentRow{"Europe/Berlin", "2026-03-29", 2, 30, "2026-03-29T01:00:00Z"},
           MomentRow{"Europe/Berlin", "2026-03-29", 3, 0, "2026-03-29T01:00:00Z"},
           MomentRow{"Europe/Berlin", "2026-03-29", 3, 1, "2026-03-29T01:01:00Z"},
           // 03:00 becomes 02:00: of what occurs twice the first is taken.
           MomentRow{"Europe/Berlin", "2026-10-25", 1, 59, "2026-10-24T23:59:00Z"},
           MomentRow{"Europe/Berlin", "2026-10-25", 2, 0, "2026-10-25T00:00:00Z"},
           MomentRow{"Europe/Berlin", "2026-10-25", 2, 59, "2026-10-25T00:59:00Z"},
           MomentRow{"Europe/Berlin", "2026-10-25", 3, 0, "2026-10-25T02:00:00Z"},
           MomentRow{"America/New_York", "2026-03-08", 2, 30, "2026-03-08T07:00:00Z"},
           MomentRow{"America/New_York", "2026-03-08", 4, 0, "2026-03-08T08:00:00Z"},
           MomentRow{"America/New_York", "2026-11-01", 1, 30, "2026-11-01T05:30:00Z"},
           MomentRow{"America/New_York", "2026-11-01", 4, 0, "2026-11-01T09:00:00Z"},
           // Seoul kept summer time in 1987 and 1988, and left +08:30 for +09:00 at a midnight of 1961.
           MomentRow{"Asia/Seoul", "1987-05-10", 2, 30, "1987-05-09T17:00:00Z"},
           MomentRow{"Asia/Seoul", "1987-10-11", 2, 30, "1987-10-10T16:30:00Z"},
           MomentRow{"Asia/Seoul", "1961-08-10", 0, 0, "1961-08-09T15:30:00Z"},
           MomentRow{"Asia/Seoul", "1961-08-10", 0, 30, "1961-08-09T15:30:00Z"},
           MomentRow{"Asia/Seoul", "2026-01-02", 4, 0, "2026-01-01T19:00:00Z"},
           // A change by half an hour.
           MomentRow{"Australia/Lord_Howe", "2026-10-04", 2, 15, "2026-10-03T15:30:00Z"},
           MomentRow{"Australia/Lord_Howe", "2026-10-04", 2, 30, "2026-10-03T15:30:00Z"},
           MomentRow{"Australia/Lord_Howe", "2026-04-05", 1, 45, "2026-04-04T14:45:00Z"},
           MomentRow{"Australia/Lord_Howe", "2026-04-05", 2, 0, "2026-04-04T15:30:00Z"},
           // A quarter of an hour, once, at the midnight of a New Year.
           MomentRow{"Asia/Kathmandu", "1986-01-01", 0, 0, "1985-12-31T18:30:00Z"},
           MomentRow{"Asia/Kathmandu", "1986-01-01", 0, 15, "1985-12-31T18:30:00Z"},
           MomentRow{"Asia/Kathmandu", "2026-01-01", 0, 0, "2025-12-31T18:15:00Z"},
           // Two hours.
           MomentRow{"Antarctica/Troll", "2021-03-28", 2, 30, "2021-03-28T01:00:00Z"},
           // Midnight itself is skipped, and falls back behind midnight.
           MomentRow{"America/Sao_Paulo", "2018-11-04", 0, 0, "2018-11-04T03:00:00Z"},
           MomentRow{"America/Sao_Paulo", "2018-11-04", 0, 59, "2018-11-04T03:00:00Z"},
           MomentRow{"America/Sao_Paulo", "2018-11-04", 1, 0, "2018-11-04T03:00:00Z"},
           MomentRow{"America/Sao_Paulo", "2018-02-17", 23, 30, "2018-02-18T01:30:00Z"},
           MomentRow{"America/Sao_Paulo", "2018-02-18", 0, 0, "2018-02-18T03:00:00Z"},
           // Midnight occurs twice.
           MomentRow{"America/Havana", "2021-11-07", 0, 0, "2021-11-07T04:00:00Z"},
           MomentRow{"America/Havana", "2021-11-07", 0, 30, "2021-11-07T04:30:00Z"},
           MomentRow{"America/Havana", "2021-11-07", 1, 0, "2021-11-07T06:00:00Z"},
           // One minute of the new day, and then an hour of the old one again.
           MomentRow{"America/St_Johns", "2006-10-28", 23, 30, "2006-10-29T02:00:00Z"},
           MomentRow{"America/St_Johns", "2006-10-29", 0, 0, "2006-10-29T02:30:00Z"},
           MomentRow{"America/St_Johns", "2006-10-29", 0, 1, "2006-10-29T03:31:00Z"},
           // The last half hour of a day is skipped.
           MomentRow{"Asia/Pyongyang", "2018-05-04", 23, 45, "2018-05-04T15:00:00Z"},
           MomentRow{"Asia/Pyongyang", "2018-05-05", 0, 0, "2018-05-04T15:00:00Z"},
           // Whole days are skipped at the date line.
           MomentRow{"Pacific/Apia", "2011-12-29", 23, 59, "2011-12-30T09:59:00Z"},
           MomentRow{"Pacific/Apia", "2011-12-30", 0, 0, "2011-12-30T10:00:00Z"},
           MomentRow{"Pacific/Apia", "2011-12-30", 12, 0, "2011-12-30T10:00:00Z"},
           MomentRow{"Pacific/Apia", "2011-12-31", 0, 0, "2011-12-30T10:00:00Z"},
           MomentRow{"Pacific/Apia", "2011-12-31", 4, 0, "2011-12-30T14:00:00Z"},
           MomentRow{"Pacific/Kwajalein", "1993-08-21", 0, 0, "1993-08-21T12:00:00Z"},
           MomentRow{"UTC", "2026-03-29", 2, 30, "2026-03-29T02:30:00Z"},
           MomentRow{"GMT+14", "2026-01-01", 0, 0, "2025-12-31T10:00:00Z"},
       }) {
    const auto zone = TimeZone::named(zoneName);
    ASSERT_TRUE(zone) << zoneName;
    EXPECT_EQ(inUTC(Calendar::moment(dayOf(day), hour * 60 + minute, *zone)), moment)
        << zoneName << " " << day << " " << hour << ":" << minute;
    if (hour == 0 && minute == 0) {
      EXPECT_EQ(inUTC(Calendar::startOfDay(dayOf(day), *zone)), moment) << zoneName << " " << day;
    }
  }
}

TEST(Calendar, AgreesWithCPythonAroundTheChangesOfFiftyYears) {
  std::ifstream vectors(TESSARY_TEST_VECTORS "/time/moments.tsv");
  std::string line;
  int rows = 0;
  for (; std::getline(vectors, line); ++rows) {
    std::istringstream fields(line);
    std::string zoneName;
    std::string day;
    int minute = 0;
    double moment = 0;
    fields >> zoneName >> day >> minute >> moment;
    const auto zone = TimeZone::named(zoneName);
    ASSERT_TRUE(zone) << line;
    EXPECT_EQ(Calendar::moment(dayOf(day), minute, *zone), Date::fromSecondsSince1970(moment)) << line;
  }
  EXPECT_GT(rows, 2'000);
}

struct DayRow {
  std::string_view zone;
  std::string_view moment;
  std::string_view day;
};

TEST(Calendar, KnowsTheDayThatTheClocksShow) {
  for (const auto& [zoneName, moment, day] : {
           DayRow{"UTC", "2026-01-01T23:59:59Z", "2026-01-01"},
           DayRow{"UTC", "2026-01-02T00:00:00Z", "2026-01-02"},
           DayRow{"UTC", "1969-12-31T23:59:59Z", "1969-12-31"},
           DayRow{"Asia/Seoul", "2026-01-01T14:59:59Z", "2026-01-01"},
           DayRow{"Asia/Seoul", "2026-01-01T15:00:00Z", "2026-01-02"},
           DayRow{"America/Sao_Paulo", "2018-11-04T02:59:59Z", "2018-11-03"},
           DayRow{"America/Sao_Paulo", "2018-11-04T03:00:00Z", "2018-11-04"},
           DayRow{"America/Sao_Paulo", "2018-02-18T02:30:00Z", "2018-02-17"},
           DayRow{"Pacific/Apia", "2011-12-30T09:59:59Z", "2011-12-29"},
           DayRow{"Pacific/Apia", "2011-12-30T10:00:00Z", "2011-12-31"},
           DayRow{"America/St_Johns", "2006-10-29T02:30:30Z", "2006-10-29"},
           DayRow{"America/St_Johns", "2006-10-29T02:31:30Z", "2006-10-28"},
           DayRow{"America/St_Johns", "2006-10-29T03:31:00Z", "2006-10-29"},
       }) {
    const auto zone = TimeZone::named(zoneName);
    ASSERT_TRUE(zone) << zoneName;
    EXPECT_EQ(Calendar::day(at(moment), *zone), dayOf(day)) << zoneName << " " << moment;
  }
}

TEST(Calendar, AFractionBeforeMidnightIsStillTheOldDay) {
  EXPECT_EQ(Calendar::day(at("2026-01-02T00:00:00Z") - 0.001, TimeZone::utc()), dayOf("2026-01-01"));
}

TEST(Calendar, AWeekBeginsOnMonday) {
  // 2026-01-05 is a Monday.
  EXPECT_EQ(Calendar::startOfWeek(dayOf("2026-01-05")), dayOf("2026-01-05"));
  EXPECT_EQ(Calendar::startOfWeek(dayOf("2026-01-04")), dayOf("2025-12-29"));
  EXPECT_EQ(Calendar::startOfWeek(dayOf("2026-01-06")), dayOf("2026-01-05"));
  EXPECT_EQ(Calendar::startOfWeek(dayOf("2026-01-11")), dayOf("2026-01-05"));
  EXPECT_EQ(Calendar::startOfWeek(dayOf("1970-01-01")), dayOf("1969-12-29"));
  // Every day of 800 years: 1769-01-02 was a Monday.
  Day monday = dayOf("1769-01-02");
  for (Day day = monday; day < dayOf("2569-01-01"); day += std::chrono::days(1)) {
    if (day == monday + std::chrono::days(7)) monday = day;
    ASSERT_EQ(Calendar::startOfWeek(day), monday);
  }
}

TEST(Calendar, DaysAreCountedWithoutTheClocks) {
  const auto berlin = TimeZone::named("Europe/Berlin");
  ASSERT_TRUE(berlin);
  // 47 hours apart, because a clock change lies between, and two days.
  const auto earlier = Calendar::day(at("2026-03-27T23:00:00Z"), *berlin);
  const auto later = Calendar::day(at("2026-03-29T22:00:00Z"), *berlin);
  ASSERT_TRUE(earlier && later);
  EXPECT_EQ((*later - *earlier).count(), 2);
  EXPECT_EQ((*earlier - *later).count(), -2);
}

TEST(Calendar, AnswersOnlyWithinItsReach) {
  constexpr Day limit{std::chrono::days(10'000'000)};
  constexpr Day negativeLimit{-std::chrono::days(10'000'000)};
  constexpr std::chrono::days one(1);
  const TimeZone utc = TimeZone::utc();
  for (const Day day : {limit, negativeLimit, limit - one, negativeLimit + one}) {
    EXPECT_EQ(Calendar::startOfDay(day, utc),
              Date::fromSecondsSince1970(static_cast<double>(day.time_since_epoch().count()) * 86'400));
    EXPECT_TRUE(Calendar::text(day));
  }
  for (const Day day : {limit + one, negativeLimit - one, Day::max(), Day::min()}) {
    EXPECT_EQ(Calendar::startOfDay(day, utc), std::nullopt);
    EXPECT_EQ(Calendar::moment(day, 0, utc), std::nullopt);
    EXPECT_EQ(Calendar::text(day), std::nullopt);
  }
  for (const double seconds : {1e18, -1e18, 1e300, std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(Calendar::day(Date::fromSecondsSince1970(seconds), utc), std::nullopt) << seconds;
  }
}

TEST(Calendar, ADayHasMinutes0To1439) {
  const Day day = dayOf("2026-01-02");
  const TimeZone utc = TimeZone::utc();
  EXPECT_EQ(inUTC(Calendar::moment(day, 0, utc)), "2026-01-02T00:00:00Z");
  EXPECT_EQ(inUTC(Calendar::moment(day, 1'439, utc)), "2026-01-02T23:59:00Z");
  for (const int minute : {-1, 1'440, 1'441, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_EQ(Calendar::moment(day, minute, utc), std::nullopt) << minute;
  }
}

TEST(Calendar, WritesADayWithFourDigitsOfItsYear) {
  EXPECT_EQ(Calendar::text(dayOf(2026, 1, 2)), "2026-01-02");
  EXPECT_EQ(Calendar::text(dayOf(987, 12, 31)), "0987-12-31");
  EXPECT_EQ(Calendar::text(dayOf(0, 2, 29)), "0000-02-29");
  EXPECT_EQ(Calendar::text(dayOf(-1, 3, 1)), "-001-03-01");
  EXPECT_EQ(Calendar::text(dayOf(12'345, 6, 7)), "12345-06-07");
  EXPECT_EQ(Calendar::text(dayOf(-12'345, 6, 7)), "-12345-06-07");
}

}  // namespace
}  // namespace tessary
