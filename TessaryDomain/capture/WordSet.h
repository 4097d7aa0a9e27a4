#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace tessary {

/// A set of words that stands in the program: made from a table when the program is built, in which no word may stand
/// twice. Words are compared byte by byte, and iterated in ascending order of their scalars, whatever the order of the
/// table. Nothing happens at start-up.
///
///     inline constexpr WordSet colors(std::to_array<std::string_view>({"red", "green"}));
///     if (PythonText::isMember(name, colors)) ...
template <std::size_t count>
class WordSet {
 public:
  consteval explicit WordSet(const std::array<std::string_view, count>& words) : words_(words) {
    std::ranges::sort(words_);
    if (std::ranges::adjacent_find(words_) != words_.end()) throw "a word stands in the table twice";
  }

  /// True if `word` is in the set.
  [[nodiscard]] constexpr bool contains(std::string_view word) const noexcept {
    return std::ranges::binary_search(words_, word);
  }

  [[nodiscard]] static constexpr std::size_t size() noexcept { return count; }
  [[nodiscard]] constexpr auto begin() const noexcept { return words_.begin(); }
  [[nodiscard]] constexpr auto end() const noexcept { return words_.end(); }

  /// The words in ascending order.
  [[nodiscard]] constexpr std::span<const std::string_view> sorted() const noexcept { return words_; }

  /// The words of two sets that share none.
  template <std::size_t otherCount>
  [[nodiscard]] consteval WordSet<count + otherCount> joined(const WordSet<otherCount>& other) const {
    std::array<std::string_view, count + otherCount> both{};
    std::ranges::copy(other, std::ranges::copy(words_, both.begin()).out);
    return WordSet<count + otherCount>(both);
  }

 private:
  std::array<std::string_view, count> words_;
};

}  // namespace tessary
