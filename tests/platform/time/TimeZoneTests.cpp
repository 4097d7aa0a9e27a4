#include <array>
#include <chrono>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryPlatform/time/ISO8601.h"
#include "TessaryPlatform/time/TimeZone.h"

namespace tessary {
namespace {

using std::chrono::seconds;

TimeZone zoneNamed(std::string_view identifier) {
  const auto zone = TimeZone::named(identifier);
  EXPECT_TRUE(zone) << identifier;
  return zone.value_or(TimeZone::utc());
}

Date at(std::string_view text) {
  const auto date = ISO8601::date(text, ISO8601::Fraction::none);
  EXPECT_TRUE(date) << text;
  return date.value_or(Date());
}

TEST(TimeZone, IsFoundByItsName) {
  for (const std::string_view identifier : {"UTC", "Europe/Berlin", "Asia/Seoul", "America/Argentina/Buenos_Aires",
                                            "US/Pacific", "Asia/Katmandu", "Etc/GMT+5", "EST5EDT"}) {
    EXPECT_EQ(zoneNamed(identifier).identifier(), identifier);
  }
}

TEST(TimeZone, OfAFixedOffsetHasItsFullName) {
  EXPECT_EQ(zoneNamed("GMT+9").identifier(), "GMT+09:00");
  EXPECT_EQ(zoneNamed("GMT+9").offset(Date()), seconds(9 * 3'600));
  EXPECT_EQ(zoneNamed("GMT-03:30").identifier(), "GMT-03:30");
  EXPECT_EQ(zoneNamed("GMT-03:30").offset(Date()), seconds(-12'600));
  EXPECT_EQ(zoneNamed("GMT+23:59").offset(Date()), seconds(86'340));
}

TEST(TimeZone, IsAbsentForAnUnknownName) {
  for (const auto identifier : std::to_array<std::string_view>({"",
                                                                " ",
                                                                "Etc/Unknown",
                                                                "Europe/Nowhere",
                                                                "europe/berlin",
                                                                "Europe/Berlin ",
                                                                "GMT+24",
                                                                "GMT+9:60",
                                                                "GMT-03E30",
                                                                "GMT+1E1",
                                                                "gmt+9",
                                                                "GMT+ 9",
                                                                "GMT+9.5",
                                                                "KST",
                                                                "Z",
                                                                "+09:00",
                                                                "Europe",
                                                                "\xFF\xFE",
                                                                "Europe/Berl\xC3\xADn",
                                                                std::string_view("UTC\0", 4)})) {
    EXPECT_EQ(TimeZone::named(identifier), std::nullopt) << identifier;
  }
}

TEST(TimeZone, LooksUpNamesUpToTheLimit) {
  static_assert(TimeZone::maximumIdentifierBytes == 64);
  // No zone has a name of such a length, so only that nothing is found can be seen, at the limit and on both sides.
  for (const std::size_t length : {63U, 64U, 65U, 1'000'000U}) {
    EXPECT_EQ(TimeZone::named(std::string(length, 'A')), std::nullopt) << length;
  }
}

TEST(TimeZone, IsEqualToItsNameAlone) {
  EXPECT_EQ(zoneNamed("Asia/Seoul"), zoneNamed("Asia/Seoul"));
  EXPECT_FALSE(zoneNamed("Asia/Seoul") == zoneNamed("Asia/Tokyo"));
  EXPECT_EQ(zoneNamed("UTC"), TimeZone::utc());
}

TEST(TimeZone, KnowsItsOffsetAtEveryDate) {
  const TimeZone berlin = zoneNamed("Europe/Berlin");
  EXPECT_EQ(berlin.offset(at("2026-03-29T00:59:59Z")), seconds(3'600));
  EXPECT_EQ(berlin.offset(at("2026-03-29T01:00:00Z")), seconds(7'200));
  EXPECT_EQ(berlin.offset(at("2026-03-29T01:00:00Z") - 0.001), seconds(3'600));
  EXPECT_EQ(berlin.offset(at("2026-10-25T00:59:59Z")), seconds(7'200));
  EXPECT_EQ(berlin.offset(at("2026-10-25T01:00:00Z")), seconds(3'600));
  EXPECT_EQ(berlin.offset(at("1880-01-01T00:00:00Z")), seconds(53 * 60 + 28));  // local mean time
  EXPECT_EQ(TimeZone::utc().offset(at("2026-03-29T01:00:00Z")), seconds(0));
}

TEST(TimeZone, AnswersTenMillionDaysFrom1970ToBothSides) {
  constexpr double limit = 10'000'000 * 86'400.0;
  constexpr auto limitOfClock = std::chrono::local_seconds(std::chrono::days(10'000'000));
  for (const TimeZone& zone : {TimeZone::utc(), zoneNamed("America/New_York")}) {
    EXPECT_TRUE(zone.offset(Date::fromSecondsSince1970(limit)));
    EXPECT_TRUE(zone.offset(Date::fromSecondsSince1970(-limit)));
    EXPECT_TRUE(zone.offset(Date::fromSecondsSince1970(limit - 1)));
    EXPECT_EQ(zone.offset(Date::fromSecondsSince1970(limit + 1)), std::nullopt);
    EXPECT_EQ(zone.offset(Date::fromSecondsSince1970(-limit - 1)), std::nullopt);
    EXPECT_EQ(zone.offset(Date::fromSecondsSince1970(std::numeric_limits<double>::max())), std::nullopt);
    EXPECT_EQ(zone.offset(Date::fromSecondsSince1970(std::numeric_limits<double>::infinity())), std::nullopt);
    EXPECT_EQ(zone.offset(Date::fromSecondsSince1970(std::numeric_limits<double>::quiet_NaN())), std::nullopt);
    for (const auto sign : {1, -1}) {
      const auto edge = std::chrono::local_seconds(sign * limitOfClock.time_since_epoch());
      EXPECT_TRUE(zone.firstMoment(edge));
      EXPECT_TRUE(zone.firstMoment(edge - sign * seconds(1)));
      EXPECT_EQ(zone.firstMoment(edge + sign * seconds(1)), std::nullopt);
    }
    EXPECT_EQ(zone.firstMoment(std::chrono::local_seconds::max()), std::nullopt);
    EXPECT_EQ(zone.firstMoment(std::chrono::local_seconds::min()), std::nullopt);
  }
  EXPECT_EQ(TimeZone::utc().firstMoment(limitOfClock), Date::fromSecondsSince1970(limit));
}

/// The meaning of `firstMoment`, tried minute by minute on nothing but the offsets.
double firstMomentByTrying(const TimeZone& zone, std::int64_t clock) {
  std::int64_t moment = clock - 25 * 3'600;
  while (moment + zone.offset(Date::fromSecondsSince1970(static_cast<double>(moment)))->count() < clock)
    moment += 60;
  return static_cast<double>(moment);
}

TEST(TimeZone, FindsTheFirstMomentThatTryingEveryMinuteFinds) {
  constexpr std::int64_t year1973 = 94'694'400;
  constexpr std::int64_t year2100 = 4'102'444'800;
  std::mt19937_64 random(20260329);
  std::uniform_int_distribution<std::int64_t> anyMinute(year1973 / 60, year2100 / 60);
  std::uniform_int_distribution<std::int64_t> nearby(-180, 180);
  for (const std::string_view name :
       {"Europe/Berlin", "America/New_York", "America/Sao_Paulo", "America/St_Johns", "Australia/Lord_Howe",
        "Asia/Kathmandu", "Pacific/Apia", "Africa/Casablanca", "Asia/Seoul", "Antarctica/Troll"}) {
    const TimeZone zone = zoneNamed(name);
    for (int round = 0; round < 12; ++round) {
      // Half of the rounds go to the hours around a change of the clocks, found by halving a stretch of half a year.
      std::int64_t moment = anyMinute(random) * 60;
      if (round % 2 == 0) {
        const auto offsetAt = [&](std::int64_t time) {
          return zone.offset(Date::fromSecondsSince1970(static_cast<double>(time)));
        };
        std::int64_t end = moment + 190 * 86'400;
        while (end - moment > 60 && offsetAt(moment) != offsetAt(end)) {
          const std::int64_t middle = moment + (end - moment) / 120 * 60;
          (offsetAt(moment) == offsetAt(middle) ? moment : end) = middle;
        }
      }
      const std::int64_t clock =
          moment + zone.offset(Date::fromSecondsSince1970(static_cast<double>(moment)))->count() + nearby(random) * 60;
      const auto found = zone.firstMoment(std::chrono::local_seconds(seconds(clock)));
      ASSERT_TRUE(found);
      ASSERT_EQ(found->secondsSince1970(), firstMomentByTrying(zone, clock)) << name << " " << clock;
    }
  }
}

}  // namespace
}  // namespace tessary
