#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "TessaryLocalization/Locale.h"
#include "TessaryPlatform/time/Date.h"
#include "TessaryPlatform/time/TimeZone.h"
#include "TessaryPlatform/values/RawValue.h"

/// Numbers, dates and durations as the reader writes them, and the reading of stored timestamps.
///
/// An absent `locale` means the one that is now in force; the authority for what each looks like is CLDR as the linked
/// ICU holds it. An absent `zone` means the zone of this process, asked anew at each call; the calendar is the locale's
/// own, which a keyword of it or its region decides. No function fails: whatever is handed in, some text comes out. All
/// may be called from any thread.
namespace tessary::L10n {

/// The integer in the locale's digits and groups: "1,234", "1.234", "١٬٢٣٤".
[[nodiscard]] std::string number(std::int64_t value, const std::optional<Locale>& locale = {});

/// The most digits that `decimal` writes behind the decimal sign.
inline constexpr int maximumPrecision = 999;

/// The number in the locale's digits and groups with exactly `precision` digits behind the decimal sign, forced into 0
/// to `maximumPrecision`. What is cut off is rounded, half to even, as if from the shortest decimal text of `value`.
[[nodiscard]] std::string decimal(double value, int precision, const std::optional<Locale>& locale = {});

/// Year, abbreviated month and day, without the time: "Jan 2, 2026".
///
/// A date too far away for a calendar is the nearest that has a day, some 5.8 million years from 1970; an undefined one
/// is the locale's text for what is not a number.
[[nodiscard]] std::string date(Date date, const std::optional<Locale>& locale = {},
                               const std::optional<TimeZone>& zone = {});

/// What `date` writes, with the time in hours and minutes, in the hour cycle that the region or a keyword asks for:
/// "Jan 2, 2026, 3:04 AM".
[[nodiscard]] std::string dateTime(Date date, const std::optional<Locale>& locale = {},
                                   const std::optional<TimeZone>& zone = {});

/// `dateTime` of the date that `text` holds where it is a `timestamp`, and otherwise `text` as it stands, of whatever
/// bytes.
[[nodiscard]] std::string dateTime(std::string_view text, const std::optional<Locale>& locale = {},
                                   const std::optional<TimeZone>& zone = {});

/// The longest text, in bytes, that `timestamp` reads.
inline constexpr std::size_t maximumTimestampBytes = 128;

/// The date of a stored timestamp in ISO 8601 form, with a fraction of a second or without, as `ISO8601::date` reads
/// it:
///
///     YYYY-MM-DDTHH:MM:SS[.fraction][zone]
///
/// Of the forms of a zone it takes "Z" and the one without a separator, "+0900"; "+09:00" is not a timestamp of this
/// system. A text without a zone is UTC. Absent for every other text, a date alone included, and above
/// `maximumTimestampBytes`.
[[nodiscard]] std::optional<Date> timestamp(std::string_view text);

/// The distance in seconds, to both sides, from which on `shortRelative` writes the date itself.
inline constexpr double relativeTimeLimit = 86'400;

/// How long before `now` the date lies, in short words: "now", "5 min. ago", "23 hr. ago". A date less than a day ahead
/// reads as the present moment, since clocks differ; one a day or more away, and one that has no distance, is written
/// by `date`.
///
/// The units are hours, minutes and seconds that have passed, cut to whole ones.
[[nodiscard]] std::string shortRelative(Date date, Date now, const std::optional<Locale>& locale = {},
                                        const std::optional<TimeZone>& zone = {});

/// The duration in seconds with the unit's word in `language`, absent for the one now selected: "12 sec", and with two
/// digits behind the decimal sign, "12.50 sec", where `seconds` is not a whole number of 1 or more. The number is in
/// the digits and with the decimal sign of the locale and is not grouped.
[[nodiscard]] std::string duration(double seconds, std::optional<std::string_view> language = {},
                                   const std::optional<Locale>& locale = {});

/// A type whose values count, as opposed to characters and truth values.
template <typename Value>
concept MessageInteger = std::integral<Value> && sizeof(Value) <= sizeof(std::int64_t) && !std::same_as<Value, bool> &&
                         !std::same_as<Value, char> && !std::same_as<Value, wchar_t> && !std::same_as<Value, char8_t> &&
                         !std::same_as<Value, char16_t> && !std::same_as<Value, char32_t>;

/// The text of an argument of a message, in the locale now in force. An integer is written as `number` does.
[[nodiscard]] std::string argument(std::int64_t value);
[[nodiscard]] std::string argument(std::uint64_t value);

/// The locale's decimal format: at most three digits behind the decimal sign.
[[nodiscard]] std::string argument(double value);

/// Text is its own argument.
[[nodiscard]] std::string argument(std::string_view value);

template <MessageInteger Value>
[[nodiscard]] std::string argument(Value value) {
  if constexpr (std::signed_integral<Value>)
    return argument(static_cast<std::int64_t>(value));
  else
    return argument(static_cast<std::uint64_t>(value));
}

/// "true" or "false".
template <std::same_as<bool> Value>
[[nodiscard]] std::string argument(Value value) {
  return value ? "true" : "false";
}

/// A floating-point number of another size: its shortest decimal text, in ASCII.
[[nodiscard]] std::string argument(float value);
[[nodiscard]] std::string argument(long double value);

/// The character.
template <std::same_as<char> Value>
[[nodiscard]] std::string argument(Value value) {
  return std::string(1, value);
}

/// The raw text of a case.
template <typename Value>
  requires std::is_enum_v<Value>
[[nodiscard]] std::string argument(Value value) {
  return std::string(rawValue(value));
}

}  // namespace tessary::L10n
