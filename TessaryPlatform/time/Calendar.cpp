#include "TessaryPlatform/time/Calendar.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace tessary::Calendar {
namespace {

/// As far as the zones reach, and no year beyond what `std::chrono::year` can hold.
constexpr std::chrono::days reach(10'000'000);

bool isInReach(Day day) {
  return day.time_since_epoch() >= -reach && day.time_since_epoch() <= reach;
}

}  // namespace

std::optional<Day> day(Date date, const TimeZone& zone) {
  const auto offset = zone.offset(date);
  if (!offset) return std::nullopt;
  const std::chrono::seconds sinceEpoch(static_cast<std::int64_t>(std::floor(date.secondsSince1970())));
  return std::chrono::floor<std::chrono::days>(std::chrono::local_seconds(sinceEpoch + *offset));
}

Day startOfWeek(Day day) {
  return day - (std::chrono::weekday(day) - std::chrono::Monday);
}

std::optional<Date> startOfDay(Day day, const TimeZone& zone) {
  return moment(day, 0, zone);
}

std::optional<Date> moment(Day day, int minute, const TimeZone& zone) {
  if (minute < 0 || minute >= minutesPerDay || !isInReach(day)) return std::nullopt;
  return zone.firstMoment(std::chrono::local_seconds(day) + std::chrono::minutes(minute));
}

std::optional<std::string> text(Day day) {
  if (!isInReach(day)) return std::nullopt;
  const std::chrono::year_month_day date(day);
  std::array<char, sizeof "-25410-01-01"> buffer{};
  const int length = std::snprintf(buffer.data(), buffer.size(), "%04d-%02u-%02u", static_cast<int>(date.year()),
                                   static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return std::string(buffer.data(), static_cast<std::size_t>(length));
}

}  // namespace tessary::Calendar
