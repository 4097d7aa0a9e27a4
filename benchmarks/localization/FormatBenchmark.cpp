// Numbers, dates and relative times against ICU: a formatter made for each text, which is what a formatter cache saves,
// and one formatter that is kept and used without any look-up or lock, which is the floor. All answers are compared
// before anything is timed.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/reldatefmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include "TessaryLocalization/IntegerQuantity.h"
#include "TessaryLocalization/LocalizedFormat.h"

namespace tessary::benchmarks {
namespace {

const char* const localeName = "de_DE";
const char* const zoneName = "Europe/Berlin";
constexpr std::int64_t value = 1'234'567;
constexpr double secondsSince1970 = 1'767'323'045;

std::string toText(const icu::UnicodeString& units) {
  std::string text;
  return units.toUTF8String(text);
}

void require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "The answers differ: %s\n", what);
  std::exit(1);
}

using NumberFormatter = icu::number::LocalizedNumberFormatter;

NumberFormatter newNumberFormatter() {
  return icu::number::NumberFormatter::withLocale(icu::Locale(localeName));
}

std::string numberBy(const NumberFormatter& formatter) {
  UErrorCode status = U_ZERO_ERROR;
  return toText(formatter.formatInt(value, status).toTempString(status));
}

std::unique_ptr<icu::DateFormat> newDateFormat() {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::DateFormat> format(
      icu::DateFormat::createInstanceForSkeleton("yMMMdjmm", icu::Locale(localeName), status));
  format->adoptTimeZone(icu::TimeZone::createTimeZone(zoneName));
  return format;
}

std::string dateBy(const icu::DateFormat& format) {
  icu::UnicodeString units;
  return toText(format.format(secondsSince1970 * 1'000, units));
}

std::unique_ptr<icu::RelativeDateTimeFormatter> newRelativeFormatter() {
  UErrorCode status = U_ZERO_ERROR;
  return std::make_unique<icu::RelativeDateTimeFormatter>(icu::Locale(localeName), nullptr, UDAT_STYLE_SHORT,
                                                          UDISPCTX_CAPITALIZATION_NONE, status);
}

std::string relativeBy(const icu::RelativeDateTimeFormatter& formatter) {
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString units;
  return toText(formatter.format(-5, UDAT_REL_UNIT_MINUTE, units, status));
}

template <typename Write>
void run(benchmark::State& state, const std::string& expected, const Write& write) {
  require(write() == expected, expected.c_str());
  for (auto _ : state)
    benchmark::DoNotOptimize(write());
}

void numberTessary(benchmark::State& state) {
  const Locale locale(localeName);
  run(state, numberBy(newNumberFormatter()), [&] { return L10n::number(value, locale); });
}
void numberMadeEachTime(benchmark::State& state) {
  run(state, numberBy(newNumberFormatter()), [] { return numberBy(newNumberFormatter()); });
}
void numberKept(benchmark::State& state) {
  const NumberFormatter kept = newNumberFormatter();
  run(state, numberBy(newNumberFormatter()), [&] { return numberBy(kept); });
}
BENCHMARK(numberTessary);
BENCHMARK(numberMadeEachTime);
BENCHMARK(numberKept);

void dateTimeTessary(benchmark::State& state) {
  const Locale locale(localeName);
  const auto zone = TimeZone::named(zoneName);
  const Date date = Date::fromSecondsSince1970(secondsSince1970);
  run(state, dateBy(*newDateFormat()), [&] { return L10n::dateTime(date, locale, zone); });
}
void dateTimeTessaryInProcessZone(benchmark::State& state) {
  const Locale locale(localeName);
  const Date date = Date::fromSecondsSince1970(secondsSince1970);
  run(state, L10n::dateTime(date, locale), [&] { return L10n::dateTime(date, locale); });
}
void dateTimeMadeEachTime(benchmark::State& state) {
  run(state, dateBy(*newDateFormat()), [] { return dateBy(*newDateFormat()); });
}
void dateTimeKept(benchmark::State& state) {
  const auto kept = newDateFormat();
  run(state, dateBy(*newDateFormat()), [&] { return dateBy(*kept); });
}
BENCHMARK(dateTimeTessary);
BENCHMARK(dateTimeTessaryInProcessZone);
BENCHMARK(dateTimeMadeEachTime);
BENCHMARK(dateTimeKept);

void relativeTessary(benchmark::State& state) {
  const Locale locale(localeName);
  const Date now = Date::fromSecondsSince1970(secondsSince1970);
  run(state, relativeBy(*newRelativeFormatter()), [&] { return L10n::shortRelative(now - 300, now, locale); });
}
void relativeMadeEachTime(benchmark::State& state) {
  run(state, relativeBy(*newRelativeFormatter()), [] { return relativeBy(*newRelativeFormatter()); });
}
void relativeKept(benchmark::State& state) {
  const auto kept = newRelativeFormatter();
  run(state, relativeBy(*newRelativeFormatter()), [&] { return relativeBy(*kept); });
}
BENCHMARK(relativeTessary);
BENCHMARK(relativeMadeEachTime);
BENCHMARK(relativeKept);

void quantityOfAFormattedNumber(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(integerQuantity("1.234.567"));
}
BENCHMARK(quantityOfAFormattedNumber);

}  // namespace
}  // namespace tessary::benchmarks
