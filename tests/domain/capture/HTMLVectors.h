#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessary {

/// One line of a vector file: its fields, decoded.
using HTMLVector = std::vector<std::string>;

/// The records of `tests/vectors/html/<name>`, which tools/html-vectors writes: one a line, fields separated by tabs,
/// and "\{HEX}" in a field for a control character or a backslash. Empty if the file cannot be read.
[[nodiscard]] std::vector<HTMLVector> readHTMLVectors(std::string_view name);

}  // namespace tessary
