#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tessary {

/// FNV-1a, whose state is a number of the type `Word`. The low bits of its state never depend on the higher ones: a
/// byte goes into the lowest eight bits, and a product's low bits come from the factors' low bits. So the hash over a
/// shorter word is the low part of the hash over a longer one.
template <class Word>
struct FNV1a {
  static constexpr auto offsetBasis = static_cast<Word>(0xCBF29CE484222325);
  static constexpr auto prime = static_cast<Word>(0x100000001B3);
};

/// The hash of a line: FNV-1a over its bytes without the spaces and tabs at its end. A blank is dropped as a character
/// only: one that carries a mark, or is taken by a prepended one before it, stays.
[[nodiscard]] std::uint64_t lineHash(std::string_view line);

/// FNV-1a over the eight bytes of each hash, the least significant first.
[[nodiscard]] std::uint64_t combined(std::span<const std::uint64_t> lineHashes);

/// The combination that an anchor spells in hexadecimal digits of either case: with leading zeros, one leading "+", and
/// a leading "-" for zero alone. Absent where it spells no number of 64 bits.
[[nodiscard]] std::optional<std::uint64_t> anchorValue(std::string_view anchor);

/// Of all windows of `span` neighbouring hashes whose combination is `combination`, where the one nearest to
/// `position` begins; of two equally near, the lower. Absent where there is none. `span` is at least 1 and at most the
/// number of hashes, and a window begins at `position`.
[[nodiscard]] std::optional<std::size_t> nearestWindow(std::span<const std::uint64_t> lineHashes, std::size_t span,
                                                       std::uint64_t combination, std::size_t position);

}  // namespace tessary
