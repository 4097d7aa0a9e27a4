#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/PythonText.h"

/// The entries of a code map: list items that begin with a path into one of the folders of the product's own sources.
namespace tessary::CodeMapEntries {

/// What an entry is, in ICU's syntax, without options. It is not run: a scanner of linear time gives the same matches.
[[nodiscard]] inline std::string pattern() {
  return R"((?<![^\n]))" + std::string(PythonText::spaceClass) + R"(*- `(?:Projects|Sources|Scripts|Tests)/[^`]+`)";
}

/// How many matches there are from the left, none overlapping, at most `limit`. The white space before the list mark
/// and the path itself may hold line ends.
[[nodiscard]] std::size_t count(std::string_view text, std::size_t limit);

}  // namespace tessary::CodeMapEntries
