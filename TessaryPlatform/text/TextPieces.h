#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

// Long text handed to ICU piece by piece, for two reasons: ICU counts in 32 bits, and its transforms rewrite a text in
// place, which takes quadratic time. A piece begins only where nothing before it can change what becomes of it, so the
// answers in pieces, joined, are the answer for the whole.

/// How many bytes a piece has. It ends before the first scalar at or behind byte `least` that may begin another, but
/// where none comes before byte `most` it ends there all the same. `most` is at least `least` and four.
struct PieceSize {
  std::size_t least;
  std::size_t most;
};

/// Leaves room within 32 bits for text that grows by half in ICU. Only a stretch of more than half a gibibyte without
/// any place to cut, which no one writes, is cut elsewhere.
inline constexpr PieceSize longestPieces{.least = std::size_t{1} << 29, .most = std::size_t{1} << 30};

/// Where the first piece of well-formed text ends.
[[nodiscard]] std::size_t pieceEnd(std::string_view text, PieceSize size, auto mayBegin) {
  if (text.size() <= size.least) return text.size();
  std::size_t position = size.least;
  while (position < text.size() && (static_cast<unsigned char>(text[position]) & 0xC0) == 0x80)
    ++position;
  while (position < text.size()) {
    const DecodedScalar decoded = decodeScalar(text, position);
    if (mayBegin(decoded.scalar) || position + decoded.byteCount > size.most) break;
    position += decoded.byteCount;
  }
  return position;
}

/// `lowercased`, `normalizedToFormC` and `latinToASCII` in pieces of a given size.
[[nodiscard]] std::string lowercasedInPieces(std::string_view text, PieceSize size);
[[nodiscard]] std::string normalizedToFormCInPieces(std::string_view text, PieceSize size);
[[nodiscard]] std::optional<std::string> latinToASCIIInPieces(std::string_view text, PieceSize size);

}  // namespace tessary
