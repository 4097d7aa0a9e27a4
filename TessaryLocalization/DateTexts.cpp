#include "TessaryLocalization/DateTexts.h"

#include <cmath>
#include <memory>
#include <mutex>
#include <utility>

#include <unicode/datefmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include "TessaryLocalization/FormatterCache.h"
#include "TessaryLocalization/NumberTexts.h"
#include "TessaryPlatform/time/TimeZone.h"

namespace tessary {
namespace {

constexpr double millisecondsPerSecond = 1'000;

icu::UnicodeString skeleton(DateLayout layout) {
  return layout == DateLayout::abbreviatedDate ? UNICODE_STRING_SIMPLE("yMMMd") : UNICODE_STRING_SIMPLE("yMMMdjmm");
}

/// ICU's date formatter behind a lock of its own: it may not be shared among threads, and a copy costs ten times what
/// it takes to write a date. The zone is that of the call before; nearly always it stays the same.
class DateFormatter {
 public:
  explicit DateFormatter(std::unique_ptr<icu::DateFormat> format) : format_(std::move(format)) {}

  [[nodiscard]] std::string text(Date date, std::string_view zoneIdentifier) const {
    icu::UnicodeString units;
    {
      const std::lock_guard guard(lock_);
      if (zoneIdentifier_ != zoneIdentifier) setZone(zoneIdentifier);
      format_->format(date.secondsSince1970() * millisecondsPerSecond, units);
    }
    std::string text;
    return units.toUTF8String(text);
  }

 private:
  void setZone(std::string_view identifier) const {
    // ICU would read offsets of years into some names; the platform's zones refuse these.
    const std::string name = TimeZone::named(identifier).value_or(TimeZone::utc()).identifier();
    format_->adoptTimeZone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
    zoneIdentifier_ = identifier;
  }

  mutable std::mutex lock_;
  mutable std::string zoneIdentifier_;
  std::unique_ptr<icu::DateFormat> format_;
};

const DateFormatter* formatterFor(DateLayout layout, const Locale& locale) {
  static auto& cache = *new FormatterCache<std::pair<std::string, DateLayout>, DateFormatter>;
  return cache.formatter({locale.identifier(), layout}, [&]() -> std::unique_ptr<const DateFormatter> {
    auto format = madeForLocale(locale, [&](const icu::Locale& candidate, UErrorCode& status) {
      return std::unique_ptr<icu::DateFormat>(
          icu::DateFormat::createInstanceForSkeleton(skeleton(layout), candidate, status));
    });
    return format ? std::make_unique<const DateFormatter>(std::move(format)) : nullptr;
  });
}

}  // namespace

std::string dateText(Date date, DateLayout layout, const Locale& locale, std::string_view zoneIdentifier) {
  const DateFormatter* const formatter = formatterFor(layout, locale);
  // ICU would put an undefined date on a day and at an hour that do not exist.
  if (formatter == nullptr || std::isnan(date.secondsSince1970()))
    return numberText(date.secondsSince1970(), NumberLayout(), locale);
  return formatter->text(date, zoneIdentifier);
}

}  // namespace tessary
