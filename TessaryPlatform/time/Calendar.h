#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "TessaryPlatform/time/Date.h"
#include "TessaryPlatform/time/TimeZone.h"

/// The ISO 8601 calendar: proleptic Gregorian days, in weeks that begin on Monday.
///
/// What a date is on the calendar depends on the time zone; a day by itself does not. So arithmetic of days is done on
/// `Day`, where it has no exceptions (`day + std::chrono::days(7)`, `later - earlier`), and only the way back to a
/// point in time meets the clock changes of the zone.
namespace tessary::Calendar {

/// A calendar day, wherever it is lived. The answers below reach 10,000,000 days from 1970 to both sides,
/// some 27,000 years.
using Day = std::chrono::local_days;

/// Minutes from one midnight to the next.
inline constexpr int minutesPerDay = 1'440;

/// The day that the clocks of `zone` show at `date`. Absent for a date that is not finite or out of reach.
[[nodiscard]] std::optional<Day> day(Date date, const TimeZone& zone);

/// The Monday on or before `day`, for any day that `day` above can answer.
[[nodiscard]] Day startOfWeek(Day day);

/// The first moment of `day` in `zone`: midnight, or the end of the gap where a change of the clocks skips midnight.
/// For a day that the zone skipped as a whole this is the start of the day after it. Absent out of reach.
[[nodiscard]] std::optional<Date> startOfDay(Day day, const TimeZone& zone);

/// The first moment of `day` at which the clocks of `zone` show `minute` minutes after midnight, 0 to 1,439, and no
/// seconds. A time that a change of the clocks skips moves to the next time that they show, and of a time that occurs
/// twice the first is taken. Absent for another `minute` and out of reach.
[[nodiscard]] std::optional<Date> moment(Day day, int minute, const TimeZone& zone);

/// The day as "YYYY-MM-DD"; a year below 1000 is filled up with zeros, one above 9999 has five digits, and one below 0
/// has a "-" and at least three. Absent out of reach.
[[nodiscard]] std::optional<std::string> text(Day day);

}  // namespace tessary::Calendar
