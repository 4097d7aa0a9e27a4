#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tessary {

// Texts on which a scanner is held against the expression that it stands for.

/// Calls `body` with every text of up to `longest` of the given units.
template <typename Body>
void forEveryText(const std::vector<std::string>& units, std::size_t longest, const Body& body) {
  std::vector<std::size_t> chosen;
  std::string text;
  for (;;) {
    text.clear();
    for (const std::size_t unit : chosen)
      text += units[unit];
    body(text);
    std::size_t place = 0;
    while (place < chosen.size() && ++chosen[place] == units.size())
      chosen[place++] = 0;
    if (place < chosen.size()) continue;
    if (chosen.size() == longest) return;
    chosen.push_back(0);
  }
}

/// A text of `count` of the given units.
inline std::string randomText(const std::vector<std::string>& units, std::size_t count, std::mt19937& random) {
  std::string text;
  for (; count > 0; --count)
    text += units[random() % units.size()];
  return text;
}

/// The unit as often as it goes into `leastBytes`, and once more.
inline std::string repeated(std::string_view unit, std::size_t leastBytes) {
  std::string text;
  text.reserve(leastBytes + unit.size());
  while (text.size() < leastBytes)
    text += unit;
  return text;
}

constexpr std::size_t mebibyte = std::size_t{1} << 20;

}  // namespace tessary
