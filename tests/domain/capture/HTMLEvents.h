#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessary {

/// The events of a page as one text each, in the notation of the vectors: "S" and the tag of a start, "A" and the name
/// of an attribute, "V" and the value of the attribute before it, "E" and the tag of an end, "T" and a text, decoded.
using HTMLEvents = std::vector<std::string>;

/// What the scanner over scalars gives.
[[nodiscard]] HTMLEvents scalarEvents(std::string_view html, bool end);

/// What the scanner over UTF-8 gives.
[[nodiscard]] HTMLEvents utf8Events(std::string_view html, bool end);

/// What a slow reading of the rules gives: one small function for each rule, on scalars, with copies wherever they make
/// it easier to follow. It shares no code with the scanner but the lower-casing of text outside ASCII and the table of
/// names.
[[nodiscard]] HTMLEvents referenceEvents(std::string_view html, bool end);

/// The same for the decoding of references.
[[nodiscard]] std::u32string referenceUnescape(const std::u32string& text, bool isAttribute);

}  // namespace tessary
