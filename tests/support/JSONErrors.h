#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <variant>

#include "TessaryPlatform/json/JSONErrors.h"

namespace tessary {

/// Found by GoogleTest, so that a failing row shows its error.
inline std::ostream& operator<<(std::ostream& stream, const JSONDecodingError& error) {
  stream << "kind " << static_cast<int>(error.kind) << " at ";
  for (const JSONPathStep& step : error.path) {
    if (const auto* key = std::get_if<std::string>(&step)) stream << "." << *key;
    if (const auto* index = std::get_if<std::size_t>(&step)) stream << "[" << *index << "]";
  }
  if (error.expected) stream << " for " << static_cast<int>(*error.expected);
  return stream << ", byte " << error.position << " " << error.description;
}

}  // namespace tessary
