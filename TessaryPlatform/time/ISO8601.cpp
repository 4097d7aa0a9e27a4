#include "TessaryPlatform/time/ISO8601.h"

#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "TessaryPlatform/text/ASCII.h"

namespace tessary::ISO8601 {
namespace {

constexpr std::int64_t secondsPerDay = 86'400;
constexpr int millisecondsPerSecond = 1'000;
constexpr int greatestYear = 9'999;
/// Fraction digits that are read for their value; a double of today's dates holds about seven.
constexpr int significantFractionDigits = 9;
constexpr double nanosecondsPerSecond = 1e9;

/// Midnight UTC at the beginning of `day`, in seconds since 1970.
constexpr std::int64_t secondsAt(std::chrono::year_month_day day) {
  return std::chrono::sys_days(day).time_since_epoch().count() * secondsPerDay;
}
constexpr std::int64_t secondsOf2001 = secondsAt(std::chrono::year(2001) / 1 / 1);
constexpr std::int64_t firstSecond = secondsAt(std::chrono::year(0) / 1 / 1);
constexpr std::int64_t endSecond = secondsAt(std::chrono::year(greatestYear + 1) / 1 / 1);

/// Reads a text from the left. Once a piece is missing, every further piece is missing too.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  /// A number of exactly `count` digits, at most `greatest`.
  int number(std::size_t count, int greatest) {
    int value = 0;
    for (std::size_t index = 0; index < count; ++index)
      value = value * 10 + digit();
    if (value > greatest) failed_ = true;
    return value;
  }

  void expect(char byte) {
    if (!take(byte)) failed_ = true;
  }

  bool take(char byte) {
    if (!rest_.starts_with(byte)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  /// One digit or more, as a fraction of a second.
  double fraction() {
    std::int64_t nanoseconds = digit();
    for (int count = 1; count < significantFractionDigits; ++count) {
      nanoseconds = nanoseconds * 10 + (nextIsDigit() ? digit() : 0);
    }
    while (nextIsDigit())
      digit();
    return static_cast<double>(nanoseconds) / nanosecondsPerSecond;
  }

  [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }
  /// True where every piece was there and nothing is left over.
  [[nodiscard]] bool succeeded() const { return !failed_ && isAtEnd(); }

 private:
  [[nodiscard]] bool nextIsDigit() const { return !rest_.empty() && isASCIIDigit(rest_.front()); }

  int digit() {
    if (!nextIsDigit()) {
      failed_ = true;
      return 0;
    }
    const int value = rest_.front() - '0';
    rest_.remove_prefix(1);
    return value;
  }

  std::string_view rest_;
  bool failed_ = false;
};

/// The seconds by which the zone that the text names runs ahead of UTC.
std::int64_t readZone(Reader& reader, MissingZone missingZone) {
  if (reader.take('Z')) return 0;
  if (reader.isAtEnd() && missingZone == MissingZone::meansUTC) return 0;
  const bool isWest = reader.take('-');
  if (!isWest) reader.expect('+');
  const int hours = reader.number(2, 23);
  reader.take(':');
  const int minutes = reader.number(2, 59);
  const std::int64_t offset = (hours * 60 + minutes) * 60;
  return isWest ? -offset : offset;
}

void appendNumber(std::string& text, int value, int digitCount) {
  const std::size_t start = text.size();
  text.resize(start + static_cast<std::size_t>(digitCount));
  for (std::size_t index = text.size(); index > start; value /= 10)
    text[--index] = static_cast<char>('0' + value % 10);
}

}  // namespace

std::optional<Date> date(std::string_view text, Fraction fraction, MissingZone missingZone) {
  Reader reader(text);
  const int year = reader.number(4, greatestYear);
  reader.expect('-');
  const int month = reader.number(2, 12);
  reader.expect('-');
  const int dayOfMonth = reader.number(2, 31);
  reader.expect('T');
  const int hour = reader.number(2, 23);
  reader.expect(':');
  const int minute = reader.number(2, 59);
  reader.expect(':');
  const int second = reader.number(2, 59);
  double fractionOfSecond = 0;
  if (fraction == Fraction::present) {
    reader.expect('.');
    fractionOfSecond = reader.fraction();
  }
  const std::int64_t offset = readZone(reader, missingZone);
  if (!reader.succeeded()) return std::nullopt;

  const auto day = std::chrono::year(year) / month / dayOfMonth;
  if (!day.ok()) return std::nullopt;
  const std::int64_t seconds = secondsAt(day) + (hour * 60 + minute) * 60 + second - offset;
  // One addition to a whole number of seconds, so that the fraction is rounded once.
  return Date::fromSecondsSince2001(static_cast<double>(seconds - secondsOf2001) + fractionOfSecond);
}

std::optional<std::string> text(Date date, Fraction fraction) {
  // The range is asked first, so that what follows fits an integer; rounding up may still leave it.
  const double whole = std::floor(date.secondsSince2001());
  if (!(whole >= static_cast<double>(firstSecond - secondsOf2001))) return std::nullopt;
  if (!(whole < static_cast<double>(endSecond - secondsOf2001))) return std::nullopt;
  std::int64_t seconds = static_cast<std::int64_t>(whole) + secondsOf2001;
  int milliseconds = 0;
  if (fraction == Fraction::present) {
    milliseconds = static_cast<int>(std::lround((date.secondsSince2001() - whole) * millisecondsPerSecond));
    seconds += milliseconds / millisecondsPerSecond;
    milliseconds %= millisecondsPerSecond;
    if (seconds >= endSecond) return std::nullopt;
  }

  const std::chrono::sys_seconds instant{std::chrono::seconds(seconds)};
  const auto midnight = std::chrono::floor<std::chrono::days>(instant);
  const std::chrono::year_month_day day(midnight);
  const int secondOfDay = static_cast<int>((instant - midnight).count());
  std::string text;
  text.reserve(sizeof "YYYY-MM-DDTHH:MM:SS.mmmZ");
  appendNumber(text, static_cast<int>(day.year()), 4);
  text += '-';
  appendNumber(text, static_cast<int>(static_cast<unsigned>(day.month())), 2);
  text += '-';
  appendNumber(text, static_cast<int>(static_cast<unsigned>(day.day())), 2);
  text += 'T';
  appendNumber(text, secondOfDay / 3'600, 2);
  text += ':';
  appendNumber(text, secondOfDay / 60 % 60, 2);
  text += ':';
  appendNumber(text, secondOfDay % 60, 2);
  if (fraction == Fraction::present) {
    text += '.';
    appendNumber(text, milliseconds, 3);
  }
  text += 'Z';
  return text;
}

}  // namespace tessary::ISO8601
