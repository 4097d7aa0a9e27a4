#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "TessaryPlatform/text/ByteBlock.h"

// How texts are found to need no escape, many bytes at a time.

namespace tessary::json {

/// True for a byte that does not stand for itself between quotes, or that only may if its neighbours are UTF-8.
constexpr bool isPlain(char byte) {
  return static_cast<signed char>(byte) >= 0x20 && byte != '"' && byte != '\\';
}

/// The bytes are compared as signed, so those of 0x80 and above are below 0x20.
[[nodiscard]] inline bool isPlain(SignedByteBlock bytes) {
  return !hasByte((bytes < 0x20) | (bytes == '"') | (bytes == '\\'));
}

template <class Word>
[[nodiscard]] bool copyIfPlain(const char* from, char* to) {
  SignedByteBlock bytes;
  // Where the word is shorter, the rest is filled with what is plain.
  std::memset(&bytes, ' ', sizeof bytes);
  std::memcpy(&bytes, from, sizeof(Word));
  if (!isPlain(bytes)) return false;
  std::memcpy(to, &bytes, sizeof(Word));
  return true;
}

/// Copies from the front of `text` what is plain, or less of it, to `to`, which has room for all of `text`. The count
/// of bytes; it is that of `text` where all of it is plain.
///
/// OPTIMIZATION: texts of records are mostly short, so their ends are read by words that overlap what was copied.
[[nodiscard]] inline std::size_t copyPlain(std::string_view text, char* to) {
  const char* const from = text.data();
  const std::size_t size = text.size();
  std::size_t position = 0;
  if (size >= 16) {
    for (; size - position >= 16; position += 16) {
      if (!copyIfPlain<SignedByteBlock>(from + position, to + position)) return position;
    }
    return copyIfPlain<SignedByteBlock>(from + size - 16, to + size - 16) ? size : position;
  }
  if (size >= 8) {
    const bool isCopied =
        copyIfPlain<std::uint64_t>(from, to) && copyIfPlain<std::uint64_t>(from + size - 8, to + size - 8);
    return isCopied ? size : 0;
  }
  if (size >= 4) {
    const bool isCopied =
        copyIfPlain<std::uint32_t>(from, to) && copyIfPlain<std::uint32_t>(from + size - 4, to + size - 4);
    return isCopied ? size : 0;
  }
  for (; position < size && isPlain(from[position]); ++position)
    to[position] = from[position];
  return position;
}

}  // namespace tessary::json
