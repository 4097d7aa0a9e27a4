#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessary::testing {

/// `count` times `unit`, one behind the other.
[[nodiscard]] inline std::string repeated(std::string_view unit, std::size_t count) {
  std::string text;
  text.reserve(unit.size() * count);
  for (; count > 0; --count)
    text += unit;
  return text;
}

}  // namespace tessary::testing
