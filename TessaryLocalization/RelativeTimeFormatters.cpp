#include "TessaryLocalization/RelativeTimeFormatters.h"

#include <array>
#include <cmath>

#include <unicode/locid.h>
#include <unicode/reldatefmt.h>
#include <unicode/udisplaycontext.h>
#include <unicode/unistr.h>
#include <unicode/ureldatefmt.h>

#include "TessaryLocalization/NumberTexts.h"

namespace tessary {
namespace {

struct Unit {
  double seconds;
  URelativeDateTimeUnit unit;
};

/// From the greatest to the smallest: the first that has passed is written.
constexpr auto units = std::to_array<Unit>({
    {3'600, UDAT_REL_UNIT_HOUR},
    {60, UDAT_REL_UNIT_MINUTE},
    {1, UDAT_REL_UNIT_SECOND},
});

}  // namespace

RelativeTimeFormatter::RelativeTimeFormatter(const Locale& locale)
    : formatter_(madeForLocale(locale, [](const icu::Locale& candidate, UErrorCode& status) {
        auto formatter = std::make_unique<const icu::RelativeDateTimeFormatter>(
            candidate, /*nfToAdopt=*/nullptr, UDAT_STYLE_SHORT, UDISPCTX_CAPITALIZATION_NONE, status);
        for (int use = 0; use < usesBeforeSharing; ++use) {
          icu::UnicodeString written;
          formatter->formatNumeric(-1, UDAT_REL_UNIT_SECOND, written, status);
        }
        return formatter;
      })) {}

std::string RelativeTimeFormatter::textForSecondsAgo(double seconds) const {
  const Unit* chosen = &units.back();
  for (const Unit& unit : units) {
    if (seconds < unit.seconds) continue;
    chosen = &unit;
    break;
  }
  const double count = -std::floor(seconds / chosen->seconds);
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString written;
  if (formatter_) formatter_->format(count, chosen->unit, written, status);
  if (!formatter_ || U_FAILURE(status)) return numberText(count, NumberLayout(), Locale());
  std::string text;
  return written.toUTF8String(text);
}

RelativeTimeFormatters& RelativeTimeFormatters::shared() {
  static auto& formatters = *new RelativeTimeFormatters;
  return formatters;
}

const RelativeTimeFormatter& RelativeTimeFormatters::formatter(const Locale& locale) {
  return *formatters_.formatter(locale.identifier(), [&] { return std::make_unique<RelativeTimeFormatter>(locale); });
}

}  // namespace tessary
