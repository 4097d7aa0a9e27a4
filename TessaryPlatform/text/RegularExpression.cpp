#include "TessaryPlatform/text/RegularExpression.h"

#include <algorithm>
#include <utility>

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

std::uint32_t flags(RegularExpression::Options options) {
  std::uint32_t value = 0;
  if ((options & RegularExpression::anchorsMatchLines) != 0) value |= UREGEX_MULTILINE;
  if ((options & RegularExpression::dotMatchesLineEnds) != 0) value |= UREGEX_DOTALL;
  return value;
}

/// ICU's view of the units, without a copy; both must stay while a matcher runs over them.
icu::UnicodeString alias(std::u16string_view units) {
  return {false, icu::ConstChar16Ptr(units.data()), static_cast<int32_t>(units.size())};
}

constexpr std::size_t mostUnits = std::numeric_limits<int32_t>::max();

/// ICU counts places saved on its stack in rounds of ten thousand, and calls the number of rounds a time limit.
int32_t timeLimit(std::size_t unitCount) {
  constexpr std::size_t round = 10'000;
  const std::size_t steps = std::max(RegularExpression::leastSteps, unitCount * RegularExpression::stepsPerUnit);
  return static_cast<int32_t>(std::min<std::size_t>(steps / round, std::numeric_limits<int32_t>::max()));
}

RegexMatch currentMatch(const icu::RegexMatcher& matcher, const RegexSubject& subject) {
  RegexMatch match;
  const int32_t groupCount = matcher.groupCount();
  match.groups.reserve(static_cast<std::size_t>(groupCount) + 1);
  for (int32_t group = 0; group <= groupCount; ++group) {
    UErrorCode status = U_ZERO_ERROR;
    const int32_t start = matcher.start(group, status);
    const int32_t end = matcher.end(group, status);
    if (U_FAILURE(status) || start < 0) {
      match.groups.emplace_back();
    } else {
      match.groups.emplace_back(ByteRange{subject.byteOffset(static_cast<std::size_t>(start)),
                                          subject.byteOffset(static_cast<std::size_t>(end))});
    }
  }
  return match;
}

/// Appends what the template stands for in the case of one match.
void appendReplacement(std::string& result, std::string_view replacement, const RegexMatch& match,
                       std::string_view text) {
  for (std::size_t position = 0; position < replacement.size(); ++position) {
    const char byte = replacement[position];
    const bool hasNext = position + 1 < replacement.size();
    if (byte == '\\' && hasNext) {
      result.push_back(replacement[++position]);
    } else if (byte == '$' && hasNext && isASCIIDigit(replacement[position + 1])) {
      std::size_t number = static_cast<std::size_t>(replacement[++position] - '0');
      while (position + 1 < replacement.size() && isASCIIDigit(replacement[position + 1])) {
        const std::size_t longer = number * 10 + static_cast<std::size_t>(replacement[position + 1] - '0');
        if (longer >= match.groups.size()) break;
        number = longer;
        ++position;
      }
      if (const std::optional<ByteRange> group = match.group(number)) result += group->in(text);
    } else {
      result.push_back(byte);
    }
  }
}

}  // namespace

RegularExpression::RegularExpression(std::string_view pattern, Options options) {
  UErrorCode status = U_ZERO_ERROR;
  UParseError error{};
  const std::u16string units = toUTF16(pattern);
  if (units.size() > mostUnits) return;
  std::unique_ptr<const icu::RegexPattern> compiled(
      icu::RegexPattern::compile(alias(units), flags(options), error, status));
  if (U_FAILURE(status) || !compiled) return;
  const icu::UnicodeString empty;
  const std::unique_ptr<icu::RegexMatcher> matcher(compiled->matcher(empty, status));
  if (U_FAILURE(status) || !matcher) return;
  groupCount_ = static_cast<std::size_t>(matcher->groupCount());
  pattern_ = std::move(compiled);
}

RegularExpression::RegularExpression(RegularExpression&&) noexcept = default;
RegularExpression& RegularExpression::operator=(RegularExpression&&) noexcept = default;
RegularExpression::~RegularExpression() = default;

/// A matcher of its own for each call, since a matcher belongs to one thread; absent where none could be made.
std::unique_ptr<icu::RegexMatcher> RegularExpression::matcher(const icu::UnicodeString& units) const {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::RegexMatcher> matcher(pattern_->matcher(units, status));
  if (matcher) matcher->setTimeLimit(timeLimit(static_cast<std::size_t>(units.length())), status);
  return U_SUCCESS(status) ? std::move(matcher) : nullptr;
}

RegexFind RegularExpression::first(const RegexSubject& subject, std::size_t from, auto match) const {
  if (!isValid() || from > subject.text().size()) return {};
  if (subject.units().size() > mostUnits) return {std::nullopt, false};
  const icu::UnicodeString units = alias(subject.units());
  const std::unique_ptr<icu::RegexMatcher> run = matcher(units);
  if (!run) return {std::nullopt, false};
  UErrorCode status = U_ZERO_ERROR;
  const bool found = match(*run, status);
  if (U_FAILURE(status)) return {std::nullopt, false};
  return {found ? std::optional(currentMatch(*run, subject)) : std::nullopt, true};
}

RegexFind RegularExpression::find(const RegexSubject& subject, std::size_t from) const {
  const auto start = static_cast<int64_t>(subject.unitOffset(from));
  return first(subject, from, [&](icu::RegexMatcher& run, UErrorCode& status) { return run.find(start, status); });
}

RegexFind RegularExpression::matchPrefix(const RegexSubject& subject, std::size_t from) const {
  const auto start = static_cast<int64_t>(subject.unitOffset(from));
  const auto end = static_cast<int64_t>(subject.units().size());
  return first(subject, from, [&](icu::RegexMatcher& run, UErrorCode& status) {
    return run.region(start, end, status).lookingAt(status);
  });
}

RegexFind RegularExpression::matchWhole(const RegexSubject& subject) const {
  return first(subject, 0, [](icu::RegexMatcher& run, UErrorCode& status) { return run.matches(status); });
}

RegexFindAll RegularExpression::findAll(const RegexSubject& subject, std::size_t limit) const {
  RegexFindAll found;
  if (!isValid()) return found;
  if (subject.units().size() > mostUnits) return {{}, false};
  const icu::UnicodeString units = alias(subject.units());
  const std::unique_ptr<icu::RegexMatcher> run = matcher(units);
  if (!run) return {{}, false};
  UErrorCode status = U_ZERO_ERROR;
  while (found.matches.size() < limit && run->find(status) && U_SUCCESS(status))
    found.matches.push_back(currentMatch(*run, subject));
  found.isComplete = U_SUCCESS(status);
  return found;
}

RegexReplacement RegularExpression::replaceAll(const RegexSubject& subject, std::string_view replacement) const {
  const RegexFindAll found = findAll(subject);
  RegexReplacement result{{}, found.isComplete};
  std::size_t copied = 0;
  for (const RegexMatch& match : found.matches) {
    result.text += subject.text().substr(copied, match.range().start - copied);
    appendReplacement(result.text, replacement, match, subject.text());
    copied = match.range().end;
  }
  result.text += subject.text().substr(copied);
  return result;
}

std::string RegularExpression::escaped(std::string_view literal) {
  constexpr std::string_view metacharacters = R"(\*?+[](){}^$|./-&#)";
  std::string pattern;
  pattern.reserve(literal.size() + literal.size() / 4);
  for (const char byte : literal) {
    if (metacharacters.contains(byte)) pattern.push_back('\\');
    pattern.push_back(byte);
  }
  return pattern;
}

}  // namespace tessary
