#pragma once

#include <bitset>
#include <cstddef>
#include <span>
#include <string_view>

namespace tessary {

/// How many phrases can be looked for at once, and how many bytes each may have.
inline constexpr std::size_t mostFoldedPhrases = 8;
inline constexpr std::size_t longestFoldedPhrase = 64;

/// Phrases to look for: ASCII, folded, not empty, within the limits above.
struct FoldedPhrases {
  std::span<const std::string_view> phrases;
  /// What some of them begin with, which is looked for before those. Not empty.
  std::string_view commonStart;
};

/// Which of the phrases `PythonText::casefold(text)` contains, bit for bit in their order. The text is folded in
/// pieces, so that no second text of its length is needed; `pieceBytes` is at least 1.
[[nodiscard]] std::bitset<mostFoldedPhrases> foundPhrases(std::string_view text, const FoldedPhrases& wanted,
                                                          std::size_t pieceBytes = std::size_t{1} << 14);

}  // namespace tessary
