#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryDomain/capture/PythonText.h"
#include "TessaryPlatform/text/RegexSubject.h"

/// The headings of a Markdown text, as the capture rules see them: one regular expression of Python's over the raw
/// text, which knows nothing of fences or of any other structure.
///
/// The expression is what a heading is. It is not run: it begins and ends with open runs of white space that may hold
/// line ends, so that a backtracking matcher takes quadratic time on hostile text. A scanner of linear time stands for
/// it and gives the same matches, byte for byte.
///
/// What follows from the expression, though Markdown would have it otherwise: white space between the marks and the
/// text may hold line ends ("#\n\nTitle" is the heading "Title"), and so may the closing marks ("# Title\n##" is one
/// heading); a run of more than six marks is no heading; where only white space follows the marks up to the end of the
/// text, the heading is the last scalar of it that is no U+000A, if one stands behind the first.
///
/// Any bytes are taken; an ill-formed one is a scalar like any other. Positions are bytes.
namespace tessary::Headings {

/// The expression, in ICU's syntax, without options. Group 1 is the text of the heading.
[[nodiscard]] inline std::string pattern() {
  const std::string space(PythonText::spaceClass);
  return R"((?<![^\n])#{1,6})" + space + R"(+([^\n]+?))" + space + "*#*" + space + R"(*(?![^\n]))";
}

/// One match of the expression.
struct Match {
  /// All that the expression matches.
  ByteRange whole;
  /// Group 1: not empty, without U+000A, with the white space of its ends only where nothing else stands in it.
  ByteRange text;

  bool operator==(const Match&) const = default;
};

/// The first match that begins at byte `from` or behind it; what stands before `from` is seen by the look-behind.
[[nodiscard]] std::optional<Match> find(std::string_view text, std::size_t from = 0);

/// Group 1 of the matches from the left, none overlapping, at most `limit`, as views into the text.
[[nodiscard]] std::vector<std::string_view> matches(std::string_view text,
                                                    std::size_t limit = std::numeric_limits<std::size_t>::max());

}  // namespace tessary::Headings
