#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tessary {

/// A set of words that stands in the program: made from a table when the program is built, in which no word may stand
/// twice. Words are compared byte by byte, and iterated in ascending order of their scalars, whatever the order of the
/// table. Nothing happens at start-up.
///
///     inline constexpr WordSet colors(std::to_array<std::string_view>({"red", "green"}));
///     if (PythonText::isMember(name, colors)) ...
///
/// A word is looked for in a small hash table, since most of what is asked for is not there: at most half of the slots
/// are taken, and the hash looks at the length and at three bytes. Most questions compare no word, or one.
template <std::size_t count>
class WordSet {
 public:
  consteval explicit WordSet(const std::array<std::string_view, count>& words) : words_(words) {
    static_assert(count > 0 && count <= 255, "a slot holds the number of a word in one byte");
    std::ranges::sort(words_);
    if (std::ranges::adjacent_find(words_) != words_.end()) throw "a word stands in the table twice";
    for (std::size_t index = 0; index < count; ++index) {
      longest_ = std::max(longest_, words_[index].size());
      std::size_t slot = firstSlot(words_[index]);
      while (slots_[slot] != 0)
        slot = (slot + 1) % slotCount;
      slots_[slot] = static_cast<std::uint8_t>(index + 1);
    }
  }

  /// The place of `word` in `sorted`; `size()` if it is not in the set.
  [[nodiscard]] constexpr std::size_t index(std::string_view word) const noexcept {
    if (word.size() > longest_) return count;
    for (std::size_t slot = firstSlot(word); slots_[slot] != 0; slot = (slot + 1) % slotCount) {
      const std::size_t index = slots_[slot] - 1U;
      if (words_[index] == word) return index;
    }
    return count;
  }

  /// True if `word` is in the set.
  [[nodiscard]] constexpr bool contains(std::string_view word) const noexcept { return index(word) != count; }

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
  static constexpr std::size_t slotCount = std::bit_ceil(2 * count);

  /// The slot in which a word stands, unless it and those behind it are taken.
  static constexpr std::size_t firstSlot(std::string_view word) noexcept {
    if (word.empty()) return 0;
    const auto byte = [word](std::size_t index) { return std::size_t{static_cast<unsigned char>(word[index])}; };
    return (word.size() * 31 + byte(0) * 7 + byte(word.size() / 2) * 13 + byte(word.size() - 1) * 3) % slotCount;
  }

  std::array<std::string_view, count> words_;
  std::size_t longest_ = 0;
  /// For each slot the place of its word in `words_`, counted from 1; 0 for a free one.
  std::array<std::uint8_t, slotCount> slots_{};
};

}  // namespace tessary
