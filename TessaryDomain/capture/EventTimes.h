#pragma once

#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tessary {

/// Remembers what time a text names, since the same few texts are asked for with each of thousands of files. What a
/// text names never changes, so that an answer cannot grow old; a text that names no time is remembered too.
///
/// May be used from any thread. Two threads that ask for the same new text may both work it out.
class EventTimes {
 public:
  /// How many answers are held. The one that would be more takes the place of all of them: they are few in practice,
  /// and nothing is to be gained from keeping the right ones.
  static constexpr std::size_t capacity = 16'384;
  /// The longest text whose answer is held, in bytes: any number of digits may stand behind the seconds, and the
  /// memory must not grow with them.
  static constexpr std::size_t longestText = 1024;

  /// `CaptureRules::eventSeconds` of `text`, worked out at most once while it is held. Only for ASCII texts are answers
  /// held.
  [[nodiscard]] std::optional<double> seconds(std::string_view text);

  /// How many answers are held now.
  [[nodiscard]] std::size_t size() const;
  /// True if the answer for `text` is held now.
  [[nodiscard]] bool holds(std::string_view text) const;

 private:
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  mutable std::mutex lock_;
  std::unordered_map<std::string, std::optional<double>, Hash, std::equal_to<>> answers_;
};

namespace CaptureRules {

/// The seconds from 1970-01-01T00:00:00Z to the time that `text` names, negative before it; absent for a text that
/// names none. The grammar is that of `PythonISOTimestamp::microseconds`, once every "Z" in the text is replaced by
/// "+00:00"; a small "z" is none. The number is the one nearest to the exact time, as CPython's `datetime.timestamp()`
/// gives it, bit for bit.
///
/// Answers are remembered for the life of the process, in an `EventTimes`.
[[nodiscard]] std::optional<double> eventSeconds(std::string_view text);

}  // namespace CaptureRules

}  // namespace tessary
