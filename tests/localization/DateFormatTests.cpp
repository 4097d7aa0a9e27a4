#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>
#include <unicode/reldatefmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include "TessaryLocalization/LocalizedFormat.h"
#include "TessaryLocalization/RelativeTimeFormatters.h"
#include "TessaryPlatform/time/ISO8601.h"
#include "TessaryPlatform/time/SystemTimeZone.h"

#include "FormatLocales.h"

namespace tessary {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double undefined = std::numeric_limits<double>::quiet_NaN();

/// 2026-01-02T03:04:05Z.
const Date morning = ISO8601::date("2026-01-02T03:04:05Z", ISO8601::Fraction::none).value();

std::string toText(const icu::UnicodeString& units) {
  std::string text;
  return units.toUTF8String(text);
}

/// ICU's formatter with the best pattern for a skeleton, which shares no object with the product's.
class PatternFormat {
 public:
  PatternFormat(const char* skeleton, const Locale& locale) {
    const icu::Locale icuLocale(locale.identifier().c_str());
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(icuLocale, status));
    format_ = std::make_unique<icu::SimpleDateFormat>(generator->getBestPattern(icu::UnicodeString(skeleton), status),
                                                      icuLocale, status);
    EXPECT_TRUE(U_SUCCESS(status)) << locale.identifier();
  }

  [[nodiscard]] std::string text(Date date, const char* zone) const {
    format_->adoptTimeZone(icu::TimeZone::createTimeZone(icu::UnicodeString(zone)));
    icu::UnicodeString units;
    return toText(format_->format(date.secondsSince1970() * 1'000, units));
  }

 private:
  std::unique_ptr<icu::SimpleDateFormat> format_;
};

TEST(LocalizedDate, IsAbbreviatedAndHasNoTime) {
  const TimeZone utc = TimeZone::utc();
  EXPECT_EQ(L10n::date(morning, Locale("en_US"), utc), "Jan 2, 2026");
  EXPECT_EQ(L10n::date(morning, Locale("en_GB"), utc), "2 Jan 2026");
  EXPECT_EQ(L10n::date(morning, Locale("ko_KR"), utc), "2026년 1월 2일");
  EXPECT_EQ(L10n::date(morning, Locale("ja_JP"), utc), "2026年1月2日");
  EXPECT_EQ(L10n::date(morning, Locale("de_DE"), utc), "2. Jan. 2026");
}

TEST(LocalizedDate, IsInTheCalendarOfTheReader) {
  const TimeZone utc = TimeZone::utc();
  EXPECT_EQ(L10n::date(morning, Locale("th_TH"), utc), "2 ม.ค. 2569");
  EXPECT_EQ(L10n::date(morning, Locale("th_US"), utc), "2 ม.ค. 2026");
  EXPECT_EQ(L10n::date(morning, Locale("th-TH-u-ca-gregory"), utc), "2 ม.ค. 2026");
  EXPECT_EQ(L10n::date(morning, Locale("ja-JP-u-ca-japanese"), utc), "令和8年1月2日");
}

TEST(LocalizedDate, IsTheDayOfTheZone) {
  const Locale american("en_US");
  EXPECT_EQ(L10n::date(morning, american, TimeZone::named("America/Los_Angeles")), "Jan 1, 2026");
  EXPECT_EQ(L10n::date(morning, american, TimeZone::named("Asia/Seoul")), "Jan 2, 2026");
  EXPECT_EQ(L10n::date(morning, american, TimeZone::named("GMT-12")), "Jan 1, 2026");
}

TEST(LocalizedDate, IsThatOfTheProcessZoneWhereNoneIsNamed) {
  const auto here = TimeZone::named(systemTimeZoneIdentifier());
  ASSERT_TRUE(here);
  EXPECT_EQ(L10n::dateTime(morning, Locale("en_US")), L10n::dateTime(morning, Locale("en_US"), here));
}

TEST(LocalizedDateTime, AddsTheShortTime) {
  const TimeZone utc = TimeZone::utc();
  EXPECT_EQ(L10n::dateTime(morning, Locale("de_DE"), utc), "2. Jan. 2026, 03:04");
  EXPECT_EQ(L10n::dateTime(morning, Locale("ko_KR"), utc), "2026년 1월 2일 오전 3:04");
  EXPECT_EQ(L10n::dateTime(morning, Locale("ja_JP"), utc), "2026年1月2日 3:04");
  EXPECT_EQ(L10n::dateTime(morning, Locale("de_DE"), TimeZone::named("Asia/Kolkata")), "2. Jan. 2026, 08:34");
}

TEST(LocalizedDateTime, HasTheHourCycleOfTheRegionAndTheKeyword) {
  const TimeZone utc = TimeZone::utc();
  EXPECT_EQ(L10n::dateTime(morning, Locale("ko_DE"), utc), "2026년 1월 2일 03:04");
  EXPECT_EQ(L10n::dateTime(morning, Locale("ko-KR-u-hc-h23"), utc), "2026년 1월 2일 03:04");
  EXPECT_EQ(L10n::dateTime(morning, Locale("zh_Hant_US"), utc), "2026年1月2日 上午3:04");
  EXPECT_EQ(L10n::dateTime(morning, Locale("zh_Hant_DE"), utc), "2026年1月2日 03:04");
}

TEST(LocalizedDateTime, IsThatOfICUForEveryReader) {
  std::mt19937_64 random(8'204);
  std::uniform_real_distribution<double> moments(-4e9, 8e9);
  for (const Locale& locale : test::readersLocales()) {
    const PatternFormat abbreviatedDate("yMMMd", locale);
    const PatternFormat dateAndTime("yMMMdjmm", locale);
    for (const char* zoneName : {"UTC", "Europe/Berlin", "America/New_York", "Asia/Kathmandu"}) {
      const auto zone = TimeZone::named(zoneName);
      const Date date = Date::fromSecondsSince1970(moments(random));
      ASSERT_EQ(L10n::date(date, locale, zone), abbreviatedDate.text(date, zoneName)) << locale.identifier();
      ASSERT_EQ(L10n::dateTime(date, locale, zone), dateAndTime.text(date, zoneName)) << locale.identifier();
    }
  }
}

TEST(LocalizedDateTime, ReadsTheClockAroundItsChanges) {
  const Locale german("de_DE");
  const auto berlin = TimeZone::named("Europe/Berlin");
  const auto at = [&](std::string_view text) {
    return L10n::dateTime(ISO8601::date(text, ISO8601::Fraction::none).value(), german, berlin);
  };
  EXPECT_EQ(at("2026-03-29T00:59:59Z"), "29. März 2026, 01:59");
  EXPECT_EQ(at("2026-03-29T01:00:00Z"), "29. März 2026, 03:00");
  EXPECT_EQ(at("2026-10-25T00:59:59Z"), "25. Okt. 2026, 02:59");
  EXPECT_EQ(at("2026-10-25T01:00:00Z"), "25. Okt. 2026, 02:00");
}

TEST(LocalizedDateTime, WritesSomethingForEveryDate) {
  for (const Locale& locale :
       {Locale("en_US"), Locale("ko_KR"), Locale("th_TH"), Locale("fa_IR"), Locale("ar_SA"), Locale("ja-u-ca-japanese"),
        Locale("zh-u-ca-chinese"), Locale("he-u-ca-hebrew"), Locale("de@numbers=foobar"), Locale("xx"), Locale()}) {
    for (const double seconds :
         {0.0, 1e9, -1e11, 8.64e12, -8.64e12, 1e15, -1e15, 1e300, -1e300, infinity, -infinity, undefined,
          std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()}) {
      EXPECT_FALSE(L10n::date(Date::fromSecondsSince1970(seconds), locale).empty()) << locale.identifier() << seconds;
      EXPECT_FALSE(L10n::dateTime(Date::fromSecondsSince1970(seconds), locale).empty());
    }
  }
  EXPECT_EQ(L10n::date(Date::fromSecondsSince1970(undefined), Locale("en")), "NaN");
  EXPECT_EQ(L10n::dateTime(Date::fromSecondsSince1970(undefined), Locale("ru")), "не\u00A0число");
  EXPECT_EQ(L10n::date(Date::fromSecondsSince1970(infinity), Locale("en"), TimeZone::utc()),
            L10n::date(Date::fromSecondsSince1970(1e300), Locale("en"), TimeZone::utc()));
}

TEST(LocalizedDateTime, OfATextIsThatOfItsTimestamp) {
  const Locale german("de_DE");
  const TimeZone utc = TimeZone::utc();
  EXPECT_EQ(L10n::dateTime("2026-01-02T03:04:05Z", german, utc), "2. Jan. 2026, 03:04");
  EXPECT_EQ(L10n::dateTime("2026-01-02T03:04:05.678Z", german, utc), "2. Jan. 2026, 03:04");
  EXPECT_EQ(L10n::dateTime("2026-01-02T03:04:05+0900", german, utc), "1. Jan. 2026, 18:04");
}

TEST(LocalizedDateTime, OfAnyOtherTextIsTheTextItself) {
  for (const std::string& text :
       {std::string(), std::string("yesterday"), std::string("2026-01-02"), std::string("\xFF\xC0\x80"),
        std::string("2026-01-02T03:04:05Z\0", 21), std::string(100'000, '2'), std::string("2026-01-02T03:04:05Z ")})
    EXPECT_EQ(L10n::dateTime(text, Locale("de_DE")), text);
}

struct TimestampRow {
  std::string text;
  /// The same moment in the form of UTC with milliseconds; absent for a text that is no timestamp.
  std::optional<std::string> moment;
};

TEST(Timestamp, HasTheTwoFormsAndNoOther) {
  const std::optional<std::string> none;
  const std::string whole = "2026-01-02T03:04:05";
  const std::string moment = "2026-01-02T03:04:05.000Z";
  for (const auto& [text, expected] : {
           TimestampRow{"2026-01-02T03:04:05Z", moment},
           {"2026-01-02T03:04:05.678Z", "2026-01-02T03:04:05.678Z"},
           {"2026-01-02T03:04:05.6Z", "2026-01-02T03:04:05.600Z"},
           {"2026-01-02T03:04:05.678901Z", "2026-01-02T03:04:05.679Z"},
           // A text that names no zone is UTC.
           {whole, moment},
           {whole + ".678", "2026-01-02T03:04:05.678Z"},
           {whole + "+0000", moment},
           {whole + "-0000", moment},
           {whole + "+0900", "2026-01-01T18:04:05.000Z"},
           {whole + "-0330", "2026-01-02T06:34:05.000Z"},
           {whole + ".5+2359", "2026-01-01T03:05:05.500Z"},
           {"2024-02-29T00:00:00Z", "2024-02-29T00:00:00.000Z"},
           {"0001-01-01T00:00:00Z", "0001-01-01T00:00:00.000Z"},
           {"9999-12-31T23:59:59Z", "9999-12-31T23:59:59.000Z"},
           // A zone offset has no separator.
           {whole + "+09:00", none},
           {whole + "-03:30", none},
           {whole + ".678+00:00", none},
           {whole + "+09", none},
           {whole + "+9", none},
           {whole + "+2400", none},
           {whole + "+0960", none},
           {whole + "+09:0", none},
           {whole + "0900", none},
           {whole + "z", none},
           {whole + " Z", none},
           {whole + "ZZ", none},
           {whole + "UTC", none},
           {whole + ".Z", none},
           {whole + ",678Z", none},
           {whole + ".67 8Z", none},
           {" " + whole + "Z", none},
           {whole + "Z\n", none},
           {"2026-01-02", none},
           {"2026-01-02T", none},
           {"2026-01-02Z", none},
           {"2026-01-02T03", none},
           {"2026-01-02T03:04", none},
           {"2026-01-02T03:04Z", none},
           {"2026-01-02 03:04:05Z", none},
           {"2026-01-02t03:04:05Z", none},
           {"20260102T030405Z", none},
           {"2026/01/02T03:04:05Z", none},
           {"2026-1-2T3:4:5Z", none},
           {"26-01-02T03:04:05Z", none},
           {"+2026-01-02T03:04:05Z", none},
           {"12026-01-02T03:04:05Z", none},
           {"2026-00-02T03:04:05Z", none},
           {"2026-13-02T03:04:05Z", none},
           {"2026-02-29T03:04:05Z", none},
           {"2026-01-00T03:04:05Z", none},
           {"2026-04-31T03:04:05Z", none},
           {"2026-01-02T24:00:00Z", none},
           {"2026-01-02T03:60:05Z", none},
           {"2026-01-02T03:04:60Z", none},
           {"2026-W01-5T03:04:05Z", none},
           {"2026-002T03:04:05Z", none},
           {"２０２６-01-02T03:04:05Z", none},
           {"1767323045", none},
           {"", none},
           {"\xFF", none},
       }) {
    const auto date = L10n::timestamp(text);
    EXPECT_EQ(date ? ISO8601::text(*date, ISO8601::Fraction::present) : none, expected) << text;
  }
}

TEST(Timestamp, IsAbsentAboveItsLongestText) {
  const auto ofSize = [](std::size_t size) {
    const std::string start = "2026-01-02T03:04:05.";
    return start + std::string(size - start.size() - 1, '5') + "Z";
  };
  EXPECT_TRUE(L10n::timestamp(ofSize(L10n::maximumTimestampBytes - 1)));
  EXPECT_TRUE(L10n::timestamp(ofSize(L10n::maximumTimestampBytes)));
  EXPECT_FALSE(L10n::timestamp(ofSize(L10n::maximumTimestampBytes + 1)));
  EXPECT_EQ(L10n::maximumTimestampBytes, 128U);
}

std::string relativeOfICU(const Locale& locale, double count, URelativeDateTimeUnit unit) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::RelativeDateTimeFormatter formatter(icu::Locale(locale.identifier().c_str()), nullptr, UDAT_STYLE_SHORT,
                                                 UDISPCTX_CAPITALIZATION_NONE, status);
  icu::UnicodeString units;
  formatter.format(count, unit, units, status);
  EXPECT_TRUE(U_SUCCESS(status)) << locale.identifier();
  return toText(units);
}

struct RelativeRow {
  double secondsAgo;
  double count;
  URelativeDateTimeUnit unit;
};

TEST(ShortRelative, CountsTheGreatestUnitThatHasPassed) {
  for (const Locale& locale : test::readersLocales()) {
    for (const auto& [secondsAgo, count, unit] : {
             RelativeRow{0, 0, UDAT_REL_UNIT_SECOND},
             {0.999, 0, UDAT_REL_UNIT_SECOND},
             {1, -1, UDAT_REL_UNIT_SECOND},
             {59.5, -59, UDAT_REL_UNIT_SECOND},
             {60, -1, UDAT_REL_UNIT_MINUTE},
             {119, -1, UDAT_REL_UNIT_MINUTE},
             {120, -2, UDAT_REL_UNIT_MINUTE},
             {3'599, -59, UDAT_REL_UNIT_MINUTE},
             {3'600, -1, UDAT_REL_UNIT_HOUR},
             {7'199, -1, UDAT_REL_UNIT_HOUR},
             {7'200, -2, UDAT_REL_UNIT_HOUR},
             {86'399, -23, UDAT_REL_UNIT_HOUR},
             {86'399.5, -23, UDAT_REL_UNIT_HOUR},
         })
      ASSERT_EQ(L10n::shortRelative(morning - secondsAgo, morning, locale), relativeOfICU(locale, count, unit))
          << locale.identifier() << " " << secondsAgo;
  }
}

TEST(ShortRelative, IsInWordsAndShortUnits) {
  EXPECT_EQ(L10n::shortRelative(morning, morning, Locale("en_US")), "now");
  EXPECT_EQ(L10n::shortRelative(morning - 300, morning, Locale("en_US")), "5 min. ago");
  EXPECT_EQ(L10n::shortRelative(morning, morning, Locale("ko_KR")), "지금");
  EXPECT_EQ(L10n::shortRelative(morning - 300, morning, Locale("ko_KR")), "5분 전");
  EXPECT_EQ(L10n::shortRelative(morning - 7'200, morning, Locale("ar_EG")), "قبل ساعتين");
}

TEST(ShortRelative, ReadsADateInTheNearFutureAsThePresentMoment) {
  for (const Locale& locale : test::readersLocales())
    for (const double ahead : {0.5, 1.0, 60.0, 3'600.0, 86'399.0, 86'399.999})
      ASSERT_EQ(L10n::shortRelative(morning + ahead, morning, locale), L10n::shortRelative(morning, morning, locale))
          << locale.identifier() << " " << ahead;
}

TEST(ShortRelative, IsTheDateItselfFromOneDayOnToBothSides) {
  const Locale american("en_US");
  const TimeZone utc = TimeZone::utc();
  EXPECT_EQ(L10n::relativeTimeLimit, 86'400);
  EXPECT_EQ(L10n::shortRelative(morning - 86'399, morning, american, utc), "23 hr. ago");
  EXPECT_EQ(L10n::shortRelative(morning - 86'400, morning, american, utc), "Jan 1, 2026");
  EXPECT_EQ(L10n::shortRelative(morning - 86'401, morning, american, utc), "Jan 1, 2026");
  EXPECT_EQ(L10n::shortRelative(morning + 86'399, morning, american, utc), "now");
  EXPECT_EQ(L10n::shortRelative(morning + 86'400, morning, american, utc), "Jan 3, 2026");
  EXPECT_EQ(L10n::shortRelative(morning + 86'401, morning, american, utc), "Jan 3, 2026");
}

TEST(ShortRelative, SurvivesDatesWithoutADistance) {
  const Locale american("en_US");
  const TimeZone utc = TimeZone::utc();
  const auto at = [](double seconds) { return Date::fromSecondsSince1970(seconds); };
  EXPECT_EQ(L10n::shortRelative(at(undefined), morning, american, utc), "NaN");
  EXPECT_EQ(L10n::shortRelative(morning, at(undefined), american, utc), "Jan 2, 2026");
  EXPECT_EQ(L10n::shortRelative(morning, at(infinity), american, utc), "Jan 2, 2026");
  EXPECT_EQ(L10n::shortRelative(morning, at(-infinity), american, utc), "Jan 2, 2026");
  EXPECT_EQ(L10n::shortRelative(at(infinity), at(infinity), american, utc), L10n::date(at(infinity), american, utc));
  EXPECT_EQ(L10n::shortRelative(at(-1e300), at(1e300), american, utc), L10n::date(at(-1e300), american, utc));
  EXPECT_EQ(L10n::shortRelative(at(1e300), at(1e300), american, utc), "now");
}

TEST(ShortRelative, KeepsOneFormatterForEachLocale) {
  auto& formatters = RelativeTimeFormatters::shared();
  const RelativeTimeFormatter* const german = &formatters.formatter(Locale("de_DE"));
  EXPECT_EQ(&formatters.formatter(Locale("de-DE.UTF-8")), german);
  EXPECT_NE(&formatters.formatter(Locale("de_AT")), german);
  EXPECT_EQ(&formatters.formatter(Locale("de_DE")), german);
}

}  // namespace
}  // namespace tessary
