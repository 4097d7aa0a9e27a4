#include "TessaryPlatform/time/TimeZone.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include <unicode/basictz.h>
#include <unicode/simpletz.h>
#include <unicode/timezone.h>
#include <unicode/tztrans.h>
#include <unicode/ucal.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

constexpr std::int64_t secondsPerDay = 86'400;
/// How far from 1970 a zone answers, to both sides: farther than any date that is meant, and near enough that neither
/// ICU nor `std::chrono::year` runs out of numbers.
constexpr std::int64_t maximumSeconds = 10'000'000 * secondsPerDay;
/// No clock is a whole day apart from UTC: the widest fixed offset is 23:59, and none of the database reaches 16 hours.
constexpr std::int64_t offsetBound = secondsPerDay;

/// True for a name that ICU can be asked for. Any that is not in its database it tries to read as "GMT" and an offset,
/// in any letter case and with whatever its number format takes: "GMT-03E30" has an offset of thirty years.
bool isReadable(std::string_view identifier) {
  if (identifier.empty() || identifier.size() > TimeZone::maximumIdentifierBytes || !isASCII(identifier)) return false;
  if (identifier.size() < 4 || (identifier[3] != '+' && identifier[3] != '-')) return true;
  return identifier.starts_with("GMT") && identifier.find_first_not_of("0123456789:", 4) == std::string_view::npos;
}

constexpr UDate toMilliseconds(std::int64_t seconds) {
  return static_cast<UDate>(seconds) * 1'000;
}
std::int64_t toSeconds(UDate milliseconds) {
  return static_cast<std::int64_t>(std::floor(milliseconds / 1'000));
}

}  // namespace

struct TimeZone::Rules {
  std::string identifier;
  std::unique_ptr<const icu::BasicTimeZone> zone;

  [[nodiscard]] std::int64_t offsetAt(std::int64_t secondsSince1970) const {
    std::int32_t standard = 0;
    std::int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    zone->getOffset(toMilliseconds(secondsSince1970), /*local=*/false, standard, saving, status);
    return U_SUCCESS(status) ? toSeconds(standard + saving) : 0;
  }

  /// The first moment after `secondsSince1970` at which the offset may change.
  [[nodiscard]] std::optional<std::int64_t> transitionAfter(std::int64_t secondsSince1970) const {
    icu::TimeZoneTransition transition;
    if (!zone->getNextTransition(toMilliseconds(secondsSince1970), /*inclusive=*/false, transition)) {
      return std::nullopt;
    }
    return toSeconds(transition.getTime());
  }
};

std::optional<TimeZone> TimeZone::named(std::string_view identifier) {
  if (!isReadable(identifier)) return std::nullopt;
  const icu::UnicodeString name(identifier.data(), static_cast<std::int32_t>(identifier.size()), US_INV);
  std::unique_ptr<icu::TimeZone> found(icu::TimeZone::createTimeZone(name));
  // For a name that it does not know, ICU answers with a zone of its own that stands for "unknown".
  icu::UnicodeString fullName;
  if (!found || found->getID(fullName) == UNICODE_STRING_SIMPLE(UCAL_UNKNOWN_ZONE_ID)) return std::nullopt;
  auto* const zone = dynamic_cast<icu::BasicTimeZone*>(found.get());
  if (zone == nullptr) return std::nullopt;
  found.release();
  std::string text;
  fullName.toUTF8String(text);
  return TimeZone(
      std::make_shared<const Rules>(Rules{std::move(text), std::unique_ptr<const icu::BasicTimeZone>(zone)}));
}

TimeZone TimeZone::utc() {
  return TimeZone(std::make_shared<const Rules>(
      Rules{"UTC", std::make_unique<const icu::SimpleTimeZone>(0, UNICODE_STRING_SIMPLE("UTC"))}));
}

const std::string& TimeZone::identifier() const {
  return rules_->identifier;
}

std::optional<std::chrono::seconds> TimeZone::offset(Date date) const {
  const double seconds = std::floor(date.secondsSince1970());
  if (!(std::abs(seconds) <= static_cast<double>(maximumSeconds))) return std::nullopt;
  return std::chrono::seconds(rules_->offsetAt(static_cast<std::int64_t>(seconds)));
}

/// Between two changes of the offset the clocks run evenly, so the years are a row of stretches on each of which the
/// wanted time is one subtraction away. The answer is on the first stretch that does not end before it; where that
/// stretch begins later than the wanted time, the time was skipped and the beginning is the answer. Before the first
/// stretch that is looked at, all clocks show less.
std::optional<Date> TimeZone::firstMoment(std::chrono::local_seconds clock) const {
  const std::int64_t wanted = clock.time_since_epoch().count();
  if (wanted < -maximumSeconds || wanted > maximumSeconds) return std::nullopt;
  std::int64_t start = wanted - offsetBound;
  while (true) {
    const std::int64_t moment = std::max(start, wanted - rules_->offsetAt(start));
    const auto end = rules_->transitionAfter(start);
    if (!end || moment < *end) return Date::fromSecondsSince1970(static_cast<double>(moment));
    start = *end;
  }
}

}  // namespace tessary
