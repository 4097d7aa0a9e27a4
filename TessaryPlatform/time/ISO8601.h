#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "TessaryPlatform/time/Date.h"

/// The internet form of ISO 8601 date-time text, "2026-01-02T03:04:05Z" or "2026-01-02T03:04:05.678Z": what records and
/// JSON files hold. (What the capture engine reads of ISO 8601 follows CPython instead and lives with capture.)
namespace tessary::ISO8601 {

/// Which of the two forms a text has. They exclude each other: a reader that takes both tries one and then the other.
enum class Fraction {
  /// Whole seconds, "…:05Z".
  none,
  /// A "." and a fraction behind the seconds, "…:05.678Z".
  present,
};

/// What a reader makes of a text that ends behind its time of day, without saying which zone it means.
enum class MissingZone {
  /// No date: nobody can tell what moment is meant.
  refused,
  /// The time of day is UTC.
  meansUTC,
};

/// The date that `text` stands for, or absent where it has not exactly this form, in ASCII, with nothing around it:
///
///     YYYY-MM-DDTHH:MM:SS[.fraction][zone]
///
/// - The year has four digits, 0000 to 9999, on the proleptic Gregorian calendar, and the day must exist in its month.
/// - Hours are 00 to 23, minutes and seconds 00 to 59: neither 24:00 nor a leap second is a date here.
/// - The fraction has one digit or more. Digits behind the ninth must be digits but say nothing; what is before them
///   is kept as well as a double can hold it.
/// - The zone is "Z", or a sign and an offset of at most 23:59, with or without a ":" ("+09:00", "+0900"). An offset of
///   hours alone is refused. The letters "T" and "Z" are capital.
///
/// A text of any length is read in one pass.
[[nodiscard]] std::optional<Date> date(std::string_view text, Fraction fraction,
                                       MissingZone missingZone = MissingZone::refused);

/// The text of `date` in UTC, always with the suffix "Z": with `Fraction::present` rounded to the nearest millisecond,
/// of which it writes three digits, otherwise cut to the second at or before it. So a text written is read and written
/// again unchanged, although a double seldom holds a millisecond exactly.
///
/// Absent where the year of the rounded date is not one of 0000 to 9999, and for an infinite or undefined date.
[[nodiscard]] std::optional<std::string> text(Date date, Fraction fraction);

}  // namespace tessary::ISO8601
