#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "TessaryLocalization/Locale.h"
#include "TessaryPlatform/time/Date.h"

namespace tessary {

/// What is told of a date.
enum class DateLayout : std::uint8_t {
  /// Year, abbreviated month and day: the skeleton "yMMMd" of CLDR.
  abbreviatedDate,
  /// The same with hour and minute in the hour cycle that the locale prefers: "yMMMdjmm".
  abbreviatedDateAndShortTime,
};

/// The text of `date` in the calendar of `locale`, by the clocks of the zone of that name (UTC where none has it).
/// Always some text: a date that no calendar reaches is the nearest that ICU's does, some 5.8 million years from 1970,
/// and an undefined one is the locale's text for what is not a number.
[[nodiscard]] std::string dateText(Date date, DateLayout layout, const Locale& locale, std::string_view zoneIdentifier);

}  // namespace tessary
