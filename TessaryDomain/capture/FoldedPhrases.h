#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tessary {

/// How many phrases can be looked for at once, and how many bytes each may have.
inline constexpr std::size_t mostFoldedPhrases = 8;
inline constexpr std::size_t shortestFoldedPhrase = 4;
inline constexpr std::size_t longestFoldedPhrase = 64;

/// Phrases to look for, with the table that tells how far the search may leap; made by the compiler. The source tells
/// how the search works.
class FoldedPhrases {
 public:
  /// The phrases must be ASCII and folded, and outlive this; their number and lengths must lie within the limits above.
  explicit constexpr FoldedPhrases(std::span<const std::string_view> phrases) : phrases_(phrases) {
    for (const std::string_view phrase : phrases)
      window_ = std::min(window_, phrase.size());
    longestLeap_ = window_ - groupBytes + 1;
    for (const std::string_view phrase : phrases) {
      for (std::size_t start = 0; start + groupBytes <= window_; ++start) {
        std::uint8_t& cut = cuts_[hash(phrase.data() + start)];
        cut = std::max(cut, static_cast<std::uint8_t>(start + 1));
      }
    }
  }

  /// Sets the bits of the phrases that stand in `text`, bit for bit in their order, where only "A" to "Z" are folded.
  void findIn(std::string_view text, std::bitset<mostFoldedPhrases>& found) const;

 private:
  /// How many bytes at the end of the window are looked at.
  static constexpr std::size_t groupBytes = shortestFoldedPhrase;

  /// The number of a group of bytes in the table, the same for both cases of a letter.
  static constexpr std::size_t hash(const char* bytes) {
    std::array<char, groupBytes> copied{};
    std::copy_n(bytes, groupBytes, copied.begin());
    const auto group = std::bit_cast<std::uint32_t>(copied);
    // The cases of a letter differ in no lower bit; the factor spreads what is left over the upper ones.
    return (group & 0x1F1F1F1FU) * 0x9E3779B1U >> (32 - hashBits);
  }

  static constexpr int hashBits = 12;

  std::span<const std::string_view> phrases_;
  /// The length of the shortest phrase.
  std::size_t window_ = longestFoldedPhrase;
  /// By how much the window moves where its last group stands nowhere at the front of a phrase.
  std::size_t longestLeap_ = 0;
  /// By how much less it moves for a group; all of it where a phrase may begin with the window.
  std::array<std::uint8_t, std::size_t{1} << hashBits> cuts_{};
};

/// Which of the phrases `PythonText::casefold(text)` contains, bit for bit in their order. What has to be folded by
/// more than its ASCII letters is folded in pieces, so that no second text of its length is needed; `pieceBytes` is at
/// least 1.
[[nodiscard]] std::bitset<mostFoldedPhrases> foundPhrases(std::string_view text, const FoldedPhrases& wanted,
                                                          std::size_t pieceBytes = std::size_t{1} << 14);

}  // namespace tessary
