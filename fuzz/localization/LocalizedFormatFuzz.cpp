#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "TessaryLocalization/IntegerQuantity.h"
#include "TessaryLocalization/Locale.h"
#include "TessaryLocalization/LocalizedFormat.h"
#include "TessaryPlatform/time/ISO8601.h"
#include "TessaryPlatform/time/TimeZone.h"
#include "support/Require.h"

using namespace tessary;

namespace {

using tessary::testing::require;

/// A timestamp is a date of the wider reader, and a text that is none is shown as it stands.
void checkTimestamp(std::string_view text, const Locale& locale) {
  const auto date = L10n::timestamp(text);
  const std::string shown = L10n::dateTime(text, locale, TimeZone::utc());
  if (!date) {
    require(shown == text);
    return;
  }
  require(text.size() <= L10n::maximumTimestampBytes);
  require(ISO8601::date(text, ISO8601::Fraction::none, ISO8601::MissingZone::meansUTC) == date ||
          ISO8601::date(text, ISO8601::Fraction::present, ISO8601::MissingZone::meansUTC) == date);
  require(shown == L10n::dateTime(*date, locale, TimeZone::utc()));
}

/// A quantity is never negative, is found again in its own formatted text, and does not mind a separator behind it.
void checkQuantity(std::string_view text) {
  const auto quantity = integerQuantity(text);
  if (!quantity) return;
  require(*quantity >= 0);
  require(integerQuantity(L10n::number(*quantity, Locale("ar_EG"))) == quantity);
  require(integerQuantity(std::string(text) + ',') == quantity);
  require(!integerQuantity(std::string(text) + 'a'));
}

/// Any text is a locale and gives one identifier, which reads as itself and under another language keeps a region (a
/// code that CLDR has replaced becomes its successor).
void checkLocale(std::string_view text) {
  const Locale locale(text);
  require(Locale(locale.identifier()) == locale);
  const Locale other = locale.withLanguage("ko");
  require(Locale(other.identifier()) == other);
  require(locale.region().empty() || !other.region().empty());
}

void checkNumber(double value, const Locale& locale) {
  require(!L10n::decimal(value, 2, locale).empty());
  require(!L10n::duration(value, "ko", locale).empty());
  const Date date = Date::fromSecondsSince2001(value);
  require(!L10n::date(date, locale, TimeZone::utc()).empty());
  require(!L10n::shortRelative(date, Date(), locale, TimeZone::utc()).empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Locale korean("ko_KR");
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  checkTimestamp(text, korean);
  checkQuantity(text);
  checkLocale(text);
  double value = 0;
  if (size < sizeof value) return 0;
  std::memcpy(&value, data, sizeof value);
  checkNumber(value, korean);
  return 0;
}
