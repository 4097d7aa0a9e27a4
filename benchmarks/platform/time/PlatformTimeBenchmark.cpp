#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/time/Calendar.h"
#include "TessaryPlatform/time/Date.h"
#include "TessaryPlatform/time/ISO8601.h"
#include "TessaryPlatform/time/TimeZone.h"

// Timestamps with milliseconds, and the start of the day of a date, against the C library and ICU on the same values. A
// task is timed only after its answers have been compared with those of the peer.

namespace {

using tessary::Date;
using tessary::ISO8601::Fraction;

constexpr std::size_t sampleSize = 4'096;
constexpr double millisecondsPerSecond = 1'000;
const char* const zoneName = "Europe/Berlin";

void require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "The answers differ: %s\n", what);
  std::exit(1);
}

/// Milliseconds since 1970, from 2020 to 2029, in no order.
const std::vector<std::int64_t>& moments() {
  static const std::vector<std::int64_t> list = [] {
    std::mt19937_64 random(20'260'102);
    std::uniform_int_distribution<std::int64_t> moment(1'577'836'800'000, 1'893'455'999'999);
    std::vector<std::int64_t> result(sampleSize);
    for (auto& value : result)
      value = moment(random);
    return result;
  }();
  return list;
}

std::string written(std::int64_t moment) {
  const std::time_t seconds = moment / 1'000;
  std::tm parts{};
  ::gmtime_r(&seconds, &parts);
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", parts.tm_year + 1'900,
                parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec,
                static_cast<int>(moment % 1'000));
  return text.data();
}

const std::vector<std::string>& timestamps() {
  static const std::vector<std::string> list = [] {
    std::vector<std::string> result;
    for (const auto moment : moments())
      result.push_back(written(moment));
    return result;
  }();
  return list;
}

/// The road of the C library: fields by strptime, the fraction by strtod, the sum by timegm.
double readByCLibrary(const std::string& text) {
  std::tm parts{};
  const char* const rest = ::strptime(text.c_str(), "%Y-%m-%dT%H:%M:%S", &parts);
  if (rest == nullptr) return NAN;
  char* end = nullptr;
  const double fraction = std::strtod(rest, &end);
  return end[0] == 'Z' && end[1] == '\0' ? static_cast<double>(::timegm(&parts)) + fraction : NAN;
}

/// ICU's format, made once. It takes and gives UTF-16; the conversion is not timed.
class ICUFormat {
 public:
  ICUFormat() : format_("yyyy-MM-dd'T'HH:mm:ss.SSS'Z'", icu::Locale::getRoot(), status_) {
    format_.setTimeZone(*icu::TimeZone::getGMT());
    require(U_SUCCESS(status_), "ICU has no format");
  }

  [[nodiscard]] double read(const icu::UnicodeString& text) {
    return format_.parse(text, status_) / millisecondsPerSecond;
  }

  void write(std::int64_t moment, icu::UnicodeString& text) {
    text.remove();
    format_.format(static_cast<UDate>(moment), text);
  }

 private:
  UErrorCode status_ = U_ZERO_ERROR;
  icu::SimpleDateFormat format_;
};

std::vector<icu::UnicodeString> timestampsInUTF16() {
  std::vector<icu::UnicodeString> result;
  for (const auto& text : timestamps())
    result.push_back(icu::UnicodeString::fromUTF8(text));
  return result;
}

bool isNear(double one, double other) {
  return std::abs(one - other) < 1e-6;
}

void finish(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(sampleSize));
}

void readTimestamps(benchmark::State& state) {
  for (std::size_t index = 0; index < sampleSize; ++index) {
    const auto date = tessary::ISO8601::date(timestamps()[index], Fraction::present);
    require(date && isNear(date->secondsSince1970(), static_cast<double>(moments()[index]) / millisecondsPerSecond),
            "reading a timestamp");
  }
  for (auto _ : state) {
    for (const auto& text : timestamps())
      benchmark::DoNotOptimize(tessary::ISO8601::date(text, Fraction::present));
  }
  finish(state);
}

void readTimestampsByCLibrary(benchmark::State& state) {
  for (std::size_t index = 0; index < sampleSize; ++index) {
    require(isNear(readByCLibrary(timestamps()[index]), static_cast<double>(moments()[index]) / millisecondsPerSecond),
            "reading a timestamp by the C library");
  }
  for (auto _ : state) {
    for (const auto& text : timestamps())
      benchmark::DoNotOptimize(readByCLibrary(text));
  }
  finish(state);
}

void readTimestampsByICU(benchmark::State& state) {
  ICUFormat format;
  const auto texts = timestampsInUTF16();
  for (std::size_t index = 0; index < sampleSize; ++index) {
    require(isNear(format.read(texts[index]), static_cast<double>(moments()[index]) / millisecondsPerSecond),
            "reading a timestamp by ICU");
  }
  for (auto _ : state) {
    for (const auto& text : texts)
      benchmark::DoNotOptimize(format.read(text));
  }
  finish(state);
}

std::vector<Date> dates() {
  std::vector<Date> result;
  for (const auto moment : moments())
    result.push_back(Date::fromSecondsSince1970(static_cast<double>(moment) / millisecondsPerSecond));
  return result;
}

void writeTimestamps(benchmark::State& state) {
  const auto sample = dates();
  for (std::size_t index = 0; index < sampleSize; ++index)
    require(tessary::ISO8601::text(sample[index], Fraction::present) == timestamps()[index], "writing a timestamp");
  for (auto _ : state) {
    for (const auto date : sample)
      benchmark::DoNotOptimize(tessary::ISO8601::text(date, Fraction::present));
  }
  finish(state);
}

/// `written` is what the texts of this benchmark were made with.
void writeTimestampsByCLibrary(benchmark::State& state) {
  for (auto _ : state) {
    for (const auto moment : moments())
      benchmark::DoNotOptimize(written(moment));
  }
  finish(state);
}

void writeTimestampsByICU(benchmark::State& state) {
  ICUFormat format;
  const auto texts = timestampsInUTF16();
  icu::UnicodeString text;
  for (std::size_t index = 0; index < sampleSize; ++index) {
    format.write(moments()[index], text);
    require(text == texts[index], "writing a timestamp by ICU");
  }
  for (auto _ : state) {
    for (const auto moment : moments()) {
      format.write(moment, text);
      benchmark::DoNotOptimize(text);
    }
  }
  finish(state);
}

/// ICU's calendar, made once, in the same zone.
class ICUCalendar {
 public:
  ICUCalendar() : calendar_(icu::TimeZone::createTimeZone(zoneName), status_) {
    require(U_SUCCESS(status_), "ICU has no calendar");
  }

  /// Seconds since 1970 of the moment on the day of `date` that is `minute` minutes after midnight by the clock.
  [[nodiscard]] double moment(Date date, int minute) {
    calendar_.setTime(date.secondsSince1970() * millisecondsPerSecond, status_);
    calendar_.set(UCAL_HOUR_OF_DAY, minute / 60);
    calendar_.set(UCAL_MINUTE, minute % 60);
    calendar_.set(UCAL_SECOND, 0);
    calendar_.set(UCAL_MILLISECOND, 0);
    return calendar_.getTime(status_) / millisecondsPerSecond;
  }

 private:
  UErrorCode status_ = U_ZERO_ERROR;
  icu::GregorianCalendar calendar_;
};

std::optional<Date> moment(Date date, int minute, const tessary::TimeZone& zone) {
  const auto day = tessary::Calendar::day(date, zone);
  if (!day) return std::nullopt;
  return tessary::Calendar::moment(*day, minute, zone);
}

void requireEqualMoments(const std::vector<Date>& sample, int minute, const tessary::TimeZone& zone,
                         ICUCalendar& peer) {
  for (const auto date : sample) {
    const auto answer = moment(date, minute, zone);
    require(answer && answer->secondsSince1970() == peer.moment(date, minute), "a moment of a day");
  }
}

/// `minute` is a time of day that no change of the clocks of the zone touches: for those the two have other rules.
void findMoments(benchmark::State& state, int minute) {
  const auto zone = tessary::TimeZone::named(zoneName);
  require(zone.has_value(), "no zone");
  ICUCalendar peer;
  const auto sample = dates();
  requireEqualMoments(sample, minute, *zone, peer);
  for (auto _ : state) {
    for (const auto date : sample)
      benchmark::DoNotOptimize(moment(date, minute, *zone));
  }
  finish(state);
}

void findMomentsByICU(benchmark::State& state, int minute) {
  const auto zone = tessary::TimeZone::named(zoneName);
  require(zone.has_value(), "no zone");
  ICUCalendar calendar;
  const auto sample = dates();
  requireEqualMoments(sample, minute, *zone, calendar);
  for (auto _ : state) {
    for (const auto date : sample)
      benchmark::DoNotOptimize(calendar.moment(date, minute));
  }
  finish(state);
}

BENCHMARK(readTimestamps);
BENCHMARK(readTimestampsByCLibrary);
BENCHMARK(readTimestampsByICU);
BENCHMARK(writeTimestamps);
BENCHMARK(writeTimestampsByCLibrary);
BENCHMARK(writeTimestampsByICU);
BENCHMARK_CAPTURE(findMoments, startOfDay, 0);
BENCHMARK_CAPTURE(findMomentsByICU, startOfDay, 0);
BENCHMARK_CAPTURE(findMoments, fourInTheMorning, 240);
BENCHMARK_CAPTURE(findMomentsByICU, fourInTheMorning, 240);

}  // namespace
