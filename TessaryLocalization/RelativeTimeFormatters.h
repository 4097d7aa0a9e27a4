#pragma once

#include <memory>
#include <string>

#include <unicode/reldatefmt.h>

#include "TessaryLocalization/FormatterCache.h"
#include "TessaryLocalization/Locale.h"

namespace tessary {

/// Writes how long ago something was: with CLDR's short unit names, and in words instead of numbers where the language
/// has them ("now", "5 min. ago"). It never changes, and may be used from any thread.
class RelativeTimeFormatter {
 public:
  explicit RelativeTimeFormatter(const Locale& locale);

  /// The text for a moment `seconds` ago, 0 to less than 86,400. The greatest of hour, minute and second of which at
  /// least one has passed is the unit, and what is left of it is dropped; less than a second ago is the present moment.
  [[nodiscard]] std::string textForSecondsAgo(double seconds) const;

 private:
  /// ICU's is immutable too. Empty only where there is none even for the locale of no language.
  std::unique_ptr<const icu::RelativeDateTimeFormatter> formatter_;
};

/// The relative formatters, one for each locale identifier, made when first asked for and kept. May be used from any
/// thread.
class RelativeTimeFormatters {
 public:
  /// The one that all of this process share.
  [[nodiscard]] static RelativeTimeFormatters& shared();

  /// The formatter of `locale`; every call gives the same one.
  [[nodiscard]] const RelativeTimeFormatter& formatter(const Locale& locale);

 private:
  FormatterCache<std::string, RelativeTimeFormatter> formatters_;
};

}  // namespace tessary
