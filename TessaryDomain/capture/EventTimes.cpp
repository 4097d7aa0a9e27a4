#include "TessaryDomain/capture/EventTimes.h"

#include <array>
#include <charconv>
#include <cstdint>

#include "TessaryDomain/capture/PythonISOTimestamp.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

constexpr std::int64_t microsecondsPerSecond = 1'000'000;

// By way of the decimal text, which is read as the nearest number. A division of the microseconds as a floating-point
// number would round twice where they need more than 53 bits, centuries away from 1970.
double exactSeconds(std::int64_t microseconds) {
  const bool isNegative = microseconds < 0;
  const std::int64_t magnitude = isNegative ? -microseconds : microseconds;
  std::array<char, 32> text{};
  char* end = text.data();
  if (isNegative) *end++ = '-';
  end = std::to_chars(end, text.data() + text.size(), magnitude / microsecondsPerSecond).ptr;
  *end++ = '.';
  std::int64_t fraction = magnitude % microsecondsPerSecond;
  for (char* digit = end + 5; digit >= end; --digit, fraction /= 10)
    *digit = static_cast<char>('0' + fraction % 10);
  double seconds = 0;
  std::from_chars(text.data(), end + 6, seconds);
  return seconds;
}

std::string withNumericOffset(std::string_view text) {
  std::string replaced;
  replaced.reserve(text.size() + 5);
  for (const char unit : text) {
    if (unit == 'Z')
      replaced += "+00:00";
    else
      replaced.push_back(unit);
  }
  return replaced;
}

std::optional<double> parsedSeconds(std::string_view text) {
  // All of them, not only one at the end: "2026-01-01Z00:00Z" is no time, for there is an offset in its middle.
  const auto microseconds = text.contains('Z') ? PythonISOTimestamp::microseconds(withNumericOffset(text))
                                               : PythonISOTimestamp::microseconds(text);
  if (!microseconds) return std::nullopt;
  return exactSeconds(*microseconds);
}

}  // namespace

std::optional<double> EventTimes::seconds(std::string_view text) {
  if (text.size() > longestText || !isASCII(text)) return parsedSeconds(text);
  {
    const std::lock_guard guard(lock_);
    if (const auto found = answers_.find(text); found != answers_.end()) return found->second;
  }
  const std::optional<double> answer = parsedSeconds(text);
  const std::lock_guard guard(lock_);
  if (answers_.size() >= capacity) answers_.clear();
  answers_.emplace(text, answer);
  return answer;
}

std::size_t EventTimes::size() const {
  const std::lock_guard guard(lock_);
  return answers_.size();
}

bool EventTimes::holds(std::string_view text) const {
  const std::lock_guard guard(lock_);
  return answers_.contains(text);
}

std::optional<double> CaptureRules::eventSeconds(std::string_view text) {
  // Never destroyed, since threads may outlive the end of main.
  static EventTimes& eventTimes = *new EventTimes;
  return eventTimes.seconds(text);
}

}  // namespace tessary
