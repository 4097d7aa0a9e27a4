#include "TessaryDomain/capture/PythonISOTimestamp.h"

#include <algorithm>
#include <chrono>
#include <cstddef>

#include "TessaryPlatform/text/ASCII.h"

// CPython reads a C string that ends in a zero byte, and looks one byte past what it has read before it knows where it
// stands. So that every text has the same answer here, the bytes are read through `Bytes`, past whose end all is zero;
// a zero byte inside the text then means the same as its end wherever a single byte is looked at, which is what makes
// "...Z\0junk" a time.

namespace tessary::PythonISOTimestamp {

namespace {

constexpr std::size_t leastCharacters = 7;
constexpr int leastYear = 1;
constexpr int greatestYear = 9999;
constexpr std::int64_t microsecondsPerSecond = 1'000'000;
constexpr std::int64_t secondsPerDay = 86'400;
constexpr std::int64_t greatestOffset = secondsPerDay * microsecondsPerSecond - 1;

constexpr bool isDecimalMark(char byte) {
  return byte == '.' || byte == ',';
}

class Bytes {
 public:
  explicit Bytes(std::string_view text) : text_(text) {}

  [[nodiscard]] std::size_t size() const { return text_.size(); }
  [[nodiscard]] char operator[](std::size_t position) const { return position < text_.size() ? text_[position] : '\0'; }

  /// Reads exactly `count` digits, at most 9, and moves `position` behind them; absent if one of them is none.
  [[nodiscard]] std::optional<int> digits(std::size_t& position, std::size_t count) const {
    int value = 0;
    for (std::size_t index = 0; index < count; ++index) {
      const char byte = (*this)[position + index];
      if (!isASCIIDigit(byte)) return std::nullopt;
      value = value * 10 + (byte - '0');
    }
    position += count;
    return value;
  }

  [[nodiscard]] std::size_t endOfDigits(std::size_t position) const {
    while (position < text_.size() && isASCIIDigit(text_[position]))
      ++position;
    return position;
  }

  /// The first sign or "Z" at or behind `position`; no less than the size if there is none.
  [[nodiscard]] std::size_t findZone(std::size_t position) const {
    while (position < text_.size() && text_[position] != '+' && text_[position] != '-' && text_[position] != 'Z')
      ++position;
    return position;
  }

 private:
  std::string_view text_;
};

struct CalendarDate {
  int year;
  int month;
  int day;
};

struct Clock {
  int hour = 0;
  int minute = 0;
  int second = 0;
  int microsecond = 0;

  [[nodiscard]] std::int64_t inMicroseconds() const {
    return ((std::int64_t{hour} * 60 + minute) * 60 + second) * microsecondsPerSecond + microsecond;
  }
};

/// How reading a clock ended.
enum class ClockEnd { complete, leftOver, failed };

std::chrono::sys_days daysOf(const CalendarDate& date) {
  using namespace std::chrono;
  return sys_days{year{date.year} / month{static_cast<unsigned>(date.month)} / day{static_cast<unsigned>(date.day)}};
}

int daysInMonth(int year, int month) {
  using namespace std::chrono;
  const auto last = (std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)} / std::chrono::last);
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

/// The byte at which the date ends and the separator stands, guessed from a few bytes before anything is read; at or
/// beyond the end for a date alone. Absent for a week date that is cut off.
std::optional<std::size_t> separatorPosition(const Bytes& bytes) {
  if (bytes.size() == 7) return 7;  // YYYYMMDD is 8 long, so this can only be YYYYWww.
  if (bytes[4] == '-') {
    if (bytes[5] != 'W') return 10;  // YYYY-MM-DD
    if (bytes[8] != '-') return 8;   // YYYY-Www
    if (bytes.size() == 9) return std::nullopt;
    // YYYY-Www-D, unless "-" is the separator and an hour follows.
    return bytes.size() > 10 && isASCIIDigit(bytes[10]) ? 8 : 10;
  }
  if (bytes[4] != 'W') return 8;  // YYYYMMDD
  const std::size_t end = bytes.endOfDigits(7);
  if (end < 9) return end;
  // YYYYWww or YYYYWwwD with a digit for a separator: the clock that follows has an even number of digits.
  return end % 2 == 0 ? 7 : 8;
}

/// The date of an ISO week date; absent if there is no such week or weekday. May lie in the year 10000.
std::optional<CalendarDate> dateOfWeek(int weekYear, int week, int weekday) {
  using namespace std::chrono;
  if (weekYear < leastYear || weekYear > greatestYear || weekday < 1 || weekday > 7 || week < 1 || week > 53)
    return std::nullopt;
  if (week == 53) {
    const auto newYear = std::chrono::weekday{daysOf({weekYear, 1, 1})};
    if (newYear != Thursday && !(newYear == Wednesday && year{weekYear}.is_leap())) return std::nullopt;
  }
  // The week that holds the first Thursday is the one that holds 4 January.
  const sys_days fourth = daysOf({weekYear, 1, 4});
  const sys_days firstMonday = fourth - days{std::chrono::weekday{fourth}.iso_encoding() - 1};
  const year_month_day date{firstMonday + days{(week - 1) * 7 + weekday - 1}};
  return CalendarDate{static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                      static_cast<int>(static_cast<unsigned>(date.day()))};
}

/// Reads the date at the start. Neither month nor day is held against the calendar yet, and what stands between the
/// date and `separator` is not looked at.
std::optional<CalendarDate> readDate(const Bytes& bytes, std::size_t separator) {
  std::size_t position = 0;
  const std::optional<int> year = bytes.digits(position, 4);
  if (!year) return std::nullopt;
  const bool isSeparated = bytes[position] == '-';
  if (isSeparated) ++position;

  if (bytes[position] == 'W') {
    ++position;
    const std::optional<int> week = bytes.digits(position, 2);
    if (!week) return std::nullopt;
    std::optional<int> weekday = 1;
    if (position < separator) {
      if (isSeparated && bytes[position++] != '-') return std::nullopt;
      weekday = bytes.digits(position, 1);
    }
    return weekday ? dateOfWeek(*year, *week, *weekday) : std::nullopt;
  }

  const std::optional<int> month = bytes.digits(position, 2);
  if (!month || (isSeparated && bytes[position++] != '-')) return std::nullopt;
  const std::optional<int> day = bytes.digits(position, 2);
  if (!day) return std::nullopt;
  return CalendarDate{*year, *month, *day};
}

/// Reads the digits of a fraction that begins before `end`.
ClockEnd readFraction(const Bytes& bytes, std::size_t position, std::size_t end, Clock& clock) {
  constexpr std::size_t mostDigits = 6;
  const std::size_t count = std::min(end - position, mostDigits);
  const std::optional<int> fraction = bytes.digits(position, count);
  if (!fraction) return ClockEnd::failed;
  clock.microsecond = *fraction;
  for (std::size_t digit = count; digit < mostDigits; ++digit)
    clock.microsecond *= 10;
  return bytes[bytes.endOfDigits(position)] == '\0' ? ClockEnd::complete : ClockEnd::leftOver;
}

/// Reads hh[:mm[:ss[.f]]] or hh[mm[ss[.f]]] from `position` on. The range that it may fill ends at `end`, and its bytes
/// are followed by the rest of the text: a field that does not fit is read from there.
ClockEnd readClock(const Bytes& bytes, std::size_t position, std::size_t end, Clock& clock) {
  bool hasColons = false;
  for (int Clock::* const field : {&Clock::hour, &Clock::minute, &Clock::second}) {
    const std::optional<int> value = bytes.digits(position, 2);
    if (!value) return ClockEnd::failed;
    clock.*field = *value;

    const bool isLast = field == &Clock::second;
    const char next = bytes[position];
    if (!isLast && isDecimalMark(next)) return ClockEnd::failed;
    // A single byte behind the field is never looked at, be it a colon, a digit or anything else.
    if (position + 1 >= end) return next == '\0' ? ClockEnd::complete : ClockEnd::leftOver;
    if (field == &Clock::hour) hasColons = next == ':';
    if (isLast ? isDecimalMark(next) : hasColons && next == ':') {
      ++position;
    } else if (hasColons) {
      return ClockEnd::failed;
    }
  }
  return readFraction(bytes, position, end, clock);
}

/// Reads the offset that begins at `position` with its sign or "Z" and must fill the rest of the text.
std::optional<std::int64_t> readOffset(const Bytes& bytes, std::size_t position) {
  if (bytes[position] == 'Z') return bytes[position + 1] == '\0' ? std::optional<std::int64_t>(0) : std::nullopt;
  Clock clock;
  if (readClock(bytes, position + 1, bytes.size(), clock) != ClockEnd::complete) return std::nullopt;
  // Its fields are not held against the clock one by one: "+00:99" is an hour and 39 minutes.
  const std::int64_t offset = clock.inMicroseconds();
  if (offset > greatestOffset) return std::nullopt;
  return bytes[position] == '-' ? -offset : offset;
}

/// Makes 24:00 the start of the next day. False for 24 hours and something.
bool carryMidnight(CalendarDate& date, Clock& clock) {
  if (clock.minute != 0 || clock.second != 0 || clock.microsecond != 0) return false;
  clock.hour = 0;
  if (++date.day <= daysInMonth(date.year, date.month)) return true;
  date.day = 1;
  if (++date.month <= 12) return true;
  date.month = 1;
  ++date.year;
  return true;
}

bool isOnCalendar(const CalendarDate& date) {
  return date.year >= leastYear && date.year <= greatestYear && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
         date.day <= daysInMonth(date.year, date.month);
}

std::size_t characterByteCount(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  if (byte < 0x80) return 1;
  if (byte >= 0xF0) return 4;
  return byte >= 0xE0 ? 3 : 2;
}

}  // namespace

std::optional<std::int64_t> microseconds(std::string_view text) noexcept {
  // 1. The shortest date has seven characters. Those of a date are ASCII, so that where the text holds enough bytes but
  // fewer characters, reading the date fails, and the characters need no count.
  if (text.size() < leastCharacters) return std::nullopt;
  const Bytes bytes(text);

  // 2.-4. The date, on this side of the separator.
  const std::optional<std::size_t> separator = separatorPosition(bytes);
  if (!separator) return std::nullopt;
  std::optional<CalendarDate> date = readDate(bytes, *separator);
  // 5. A date alone is no event time. One character, whatever it is, stands between the date and the time.
  if (!date || *separator >= bytes.size()) return std::nullopt;
  const std::size_t start = *separator + characterByteCount(bytes[*separator]);

  // 6.-8. The clock, and the offset, without which it names no point in time. What is left over between the two is
  // not looked at.
  const std::size_t zone = bytes.findZone(start);
  Clock clock;
  if (zone >= bytes.size() || readClock(bytes, start, zone, clock) == ClockEnd::failed) return std::nullopt;
  // 9. The offset is below a day either way.
  const std::optional<std::int64_t> offset = readOffset(bytes, zone);
  if (!offset) return std::nullopt;

  // 10. Everything is held against calendar and clock, after 24:00 has become the next day.
  if (clock.hour == 24 && date->month >= 1 && date->month <= 12 && date->day <= daysInMonth(date->year, date->month)) {
    if (!carryMidnight(*date, clock)) return std::nullopt;
  }
  if (!isOnCalendar(*date) || clock.hour >= 24 || clock.minute >= 60 || clock.second >= 60) return std::nullopt;

  // 11. On the proleptic Gregorian calendar, in UTC.
  const std::int64_t days = daysOf(*date).time_since_epoch().count();
  return days * secondsPerDay * microsecondsPerSecond + clock.inMicroseconds() - *offset;
}

}  // namespace tessary::PythonISOTimestamp
