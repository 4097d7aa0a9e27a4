#pragma once

#include <array>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <variant>

#include "TessaryPlatform/json/JSONErrors.h"

namespace tessary {

/// An error of reading in one line, with all that it says: "wrongType at .types.code, boolean expected, byte 17".
inline std::string text(const JSONDecodingError& error) {
  constexpr auto kinds = std::to_array<std::string_view>(
      {"malformed", "missingKey", "nullValue", "wrongType", "outOfRange", "unknownRawValue", "corrupted"});
  constexpr auto expectations =
      std::to_array<std::string_view>({"boolean", "integer", "number", "text", "date", "list", "object"});
  std::string text(kinds.at(static_cast<std::size_t>(error.kind)));
  text += " at ";
  for (const JSONPathStep& step : error.path) {
    if (const auto* key = std::get_if<std::string>(&step)) text += "." + *key;
    if (const auto* index = std::get_if<std::size_t>(&step)) text += "[" + std::to_string(*index) + "]";
  }
  if (error.expected) {
    text += ", ";
    text += expectations.at(static_cast<std::size_t>(*error.expected));
    text += " expected";
  }
  return text + ", byte " + std::to_string(error.position) + error.description;
}

/// Found by GoogleTest, so that a failing row shows its error.
inline std::ostream& operator<<(std::ostream& stream, const JSONDecodingError& error) {
  return stream << text(error);
}

}  // namespace tessary
