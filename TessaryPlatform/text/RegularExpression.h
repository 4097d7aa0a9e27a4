#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <unicode/uversion.h>

#include "TessaryPlatform/text/RegexSubject.h"

U_NAMESPACE_BEGIN
class RegexPattern;
class RegexMatcher;
class UnicodeString;
U_NAMESPACE_END

namespace tessary {

/// Where an expression matched.
struct RegexMatch {
  /// The whole match, then each capture group in order; absent for a group that took no part.
  std::vector<std::optional<ByteRange>> groups;

  [[nodiscard]] ByteRange range() const { return *groups.front(); }
  /// Group `number`, 0 for the whole match; absent for one that took no part or does not exist.
  [[nodiscard]] std::optional<ByteRange> group(std::size_t number) const {
    return number < groups.size() ? groups[number] : std::nullopt;
  }

  bool operator==(const RegexMatch&) const = default;
};

/// The answer of a search. `isComplete` is false when the expression gave up at its limits before it could tell: an
/// absent match then says nothing, and who keeps secrets by the expression has to take it for a match.
struct RegexFind {
  std::optional<RegexMatch> match;
  bool isComplete = true;
};

/// The matches before the end of the text, or, with `isComplete` false, before the place at which the expression gave
/// up.
struct RegexFindAll {
  std::vector<RegexMatch> matches;
  bool isComplete = true;
};

/// The text with what was found replaced; with `isComplete` false the text behind the place at which the expression
/// gave up stands as it was.
struct RegexReplacement {
  std::string text;
  bool isComplete = true;
};

/// A regular expression in the syntax and with the meaning of ICU, compiled once. One that does not compile matches
/// nothing. All operations may be called from several threads at once.
///
/// ICU matches by backtracking, so a bad expression over hostile text can take exponential time and any amount of
/// memory. Both are bounded, memory by ICU's own limit and time by `stepsPerUnit` and `leastSteps`, and reaching a
/// bound shows in `isComplete`, as it does for text of more than 2^31 - 1 units, which ICU cannot number. What is
/// counted is places to come back to, not the text read between them: one step may read as far as a back-reference to
/// a long group or a run that it repeats goes. So an expression with such a group is not for outside text.
///
///   static const RegularExpression key(R"((\w+)=(\S*))");
///   const RegexSubject subject(line);
///   if (const RegexFind found = key.find(subject); found.match) use(found.match->group(1)->in(line));
class RegularExpression {
 public:
  /// What can be switched on beside the pattern, to be combined with "|".
  enum Options : std::uint32_t {
    noOptions = 0,
    /// "^" and "$" match at every line.
    anchorsMatchLines = 1,
    /// "." matches line ends too.
    dotMatchesLineEnds = 2
  };

  /// How often a match operation may save a place to come back to, for each UTF-16 unit of the text and at least.
  /// ICU counts in rounds of ten thousand; ten million take from a tenth of a second to half of one.
  static constexpr std::size_t stepsPerUnit = 100;
  static constexpr std::size_t leastSteps = 10'000'000;

  explicit RegularExpression(std::string_view pattern, Options options = noOptions);
  RegularExpression(RegularExpression&&) noexcept;
  RegularExpression& operator=(RegularExpression&&) noexcept;
  ~RegularExpression();

  /// True when the pattern compiled.
  [[nodiscard]] bool isValid() const { return pattern_ != nullptr; }
  /// How many capture groups the pattern has; 0 when it did not compile.
  [[nodiscard]] std::size_t groupCount() const { return groupCount_; }

  /// The first match that begins at byte `from` or behind it; behind the text's end there is none, not even an empty
  /// one. What stands before `from` is seen by look-behind, and "^" is the beginning of the text.
  [[nodiscard]] RegexFind find(const RegexSubject& subject, std::size_t from = 0) const;

  /// The match that begins exactly at byte `from`, which "^", "\b" and "\A" take for the beginning of the text. ICU's
  /// look-behind still sees what stands before.
  [[nodiscard]] RegexFind matchPrefix(const RegexSubject& subject, std::size_t from = 0) const;

  /// The match that takes the whole text.
  [[nodiscard]] RegexFind matchWhole(const RegexSubject& subject) const;

  /// The matches from the beginning to the end, none overlapping, at most `limit`.
  [[nodiscard]] RegexFindAll findAll(const RegexSubject& subject,
                                     std::size_t limit = std::numeric_limits<std::size_t>::max()) const;

  /// The text with every match replaced. In the template "$" and digits stand for a group (as many digits as make a
  /// group that exists; one that took no part, and a single digit that names none, are empty), a backslash makes the
  /// scalar behind it stand for itself, and all else, also any other "$", stands for itself.
  [[nodiscard]] RegexReplacement replaceAll(const RegexSubject& subject, std::string_view replacement) const;

  /// A pattern that matches exactly this text.
  [[nodiscard]] static std::string escaped(std::string_view literal);

 private:
  std::unique_ptr<icu::RegexMatcher> matcher(const icu::UnicodeString& units) const;
  RegexFind first(const RegexSubject& subject, std::size_t from, auto match) const;

  std::unique_ptr<const icu::RegexPattern> pattern_;
  std::size_t groupCount_ = 0;
};

constexpr RegularExpression::Options operator|(RegularExpression::Options left, RegularExpression::Options right) {
  return static_cast<RegularExpression::Options>(static_cast<std::uint32_t>(left) | static_cast<std::uint32_t>(right));
}

}  // namespace tessary
