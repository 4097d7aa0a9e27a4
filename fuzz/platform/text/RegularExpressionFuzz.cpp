#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "TessaryPlatform/text/RegularExpression.h"
#include "TessaryPlatform/text/UTF8.h"
#include "support/Require.h"

// Any bytes as text, under patterns of the kinds that the system uses, and as a pattern, a template and a literal.

namespace {

using tessary::ByteRange;
using tessary::RegexFind;
using tessary::RegexSubject;
using tessary::RegularExpression;

using tessary::testing::require;

bool isBoundary(std::string_view text, std::size_t position) {
  return position == text.size() ||
         tessary::toScalars(text).size() ==
             tessary::toScalars(text.substr(0, position)).size() + tessary::toScalars(text.substr(position)).size();
}

void checkMatches(const RegularExpression& expression, const RegexSubject& subject) {
  const std::string_view text = subject.text();
  std::size_t end = 0;
  const tessary::RegexFindAll all = expression.findAll(subject, 100);
  for (const tessary::RegexMatch& match : all.matches) {
    const ByteRange range = match.range();
    require(range.start >= end && range.end >= range.start && range.end <= text.size());
    require(isBoundary(text, range.start) && isBoundary(text, range.end));
    end = range.end;
    for (const std::optional<ByteRange>& group : match.groups)
      require(!group || (group->start <= group->end && group->end <= text.size()));
  }
  const RegexFind first = expression.find(subject);
  require(!first.isComplete || first.match.has_value() == !all.matches.empty() || !all.isComplete);
  if (first.match) require(*first.match == all.matches.front());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  static const std::array<RegularExpression, 6> expressions = {
      RegularExpression(R"((?<![\p{L}\p{N}])\d[\d,.]*+)"),
      RegularExpression(R"(\[([^\]]*)\]\(([^)]*)\))"),
      RegularExpression("(a)|(b*)", RegularExpression::anchorsMatchLines),
      RegularExpression(R"(\X)"),
      RegularExpression(R"(^\s*(.*?)\s*$)", RegularExpression::anchorsMatchLines),
      RegularExpression(R"(<(\w+)>.*?</\1>)", RegularExpression::dotMatchesLineEnds)};
  const RegexSubject subject(text);
  for (const RegularExpression& expression : expressions) {
    checkMatches(expression, subject);
    require(expression.replaceAll(subject, "$0").text == text);
    (void)expression.replaceAll(subject, text.substr(0, 64));
  }
  const RegularExpression literal(RegularExpression::escaped(text));
  require(literal.isValid() && literal.matchWhole(subject).match.has_value());
  // As a pattern: short, since ICU takes exponential time over what people do not write.
  const std::string_view shortText = text.substr(0, 24);
  const RegularExpression expression(shortText);
  (void)expression.find(shortText);
  return 0;
}
