#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "TessaryPlatform/time/Calendar.h"
#include "TessaryPlatform/time/ISO8601.h"
#include "TessaryPlatform/time/TimeZone.h"

using namespace tessary;

namespace {

/// What is written reads as itself, and a date read lies within the years that can be written, or an offset beyond.
void checkWriting(Date date) {
  for (const auto fraction : {ISO8601::Fraction::none, ISO8601::Fraction::present}) {
    const auto text = ISO8601::text(date, fraction);
    if (!text) continue;
    const auto again = ISO8601::date(*text, fraction);
    if (!again || ISO8601::text(*again, fraction) != text) std::abort();
  }
}

void checkReading(std::string_view text) {
  int readings = 0;
  for (const auto fraction : {ISO8601::Fraction::none, ISO8601::Fraction::present}) {
    const auto strict = ISO8601::date(text, fraction);
    const auto lenient = ISO8601::date(text, fraction, ISO8601::MissingZone::meansUTC);
    if (strict && lenient != strict) std::abort();
    if (!lenient) continue;
    ++readings;
    checkWriting(*lenient);
  }
  // The two forms exclude each other.
  if (readings > 1) std::abort();
}

/// The start of a date's day is not after the date, and both are of one day.
void checkDay(Date date, const TimeZone& zone) {
  const auto day = Calendar::day(date, zone);
  if (!day) return;
  const auto start = Calendar::startOfDay(*day, zone);
  if (!start || *start > date || Calendar::day(*start, zone) != day) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TimeZone newYork = TimeZone::named("America/New_York").value_or(TimeZone::utc());
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  checkReading(text);
  if (const auto zone = TimeZone::named(text)) checkDay(Date(), *zone);

  double seconds = 0;
  if (size < sizeof seconds) return 0;
  std::memcpy(&seconds, data, sizeof seconds);
  const Date date = Date::fromSecondsSince2001(seconds);
  checkWriting(date);
  checkDay(date, newYork);
  return 0;
}
