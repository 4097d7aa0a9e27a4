#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tessary {

// Sixteen bytes that the compiler handles at once: a vector extension that g++ and clang share. Arithmetic and
// comparisons go byte by byte; a comparison makes each byte all ones where it holds, and 0 where not.

using ByteBlock [[gnu::vector_size(16)]] = std::uint8_t;
using SignedByteBlock [[gnu::vector_size(16)]] = std::int8_t;

/// The sixteen bytes at `bytes`, which need no alignment.
[[nodiscard]] inline ByteBlock byteBlockAt(const char* bytes) {
  ByteBlock block;
  std::memcpy(&block, bytes, sizeof block);
  return block;
}

/// A block, or the answer of a comparison, as two words in the order of memory.
template <class Block>
[[nodiscard]] std::array<std::uint64_t, 2> wordsOf(const Block& block) {
  static_assert(sizeof block == sizeof(ByteBlock));
  std::array<std::uint64_t, 2> words;
  std::memcpy(words.data(), &block, sizeof words);
  return words;
}

/// True if any byte is not 0.
template <class Block>
[[nodiscard]] bool hasByte(const Block& block) {
  const auto [front, back] = wordsOf(block);
  return (front | back) != 0;
}

/// The index of the first byte that is not 0; 16 if all are.
template <class Block>
[[nodiscard]] std::size_t firstByte(const Block& block) {
  const auto firstOfWord = [](std::uint64_t word) {
    const int zeros = std::endian::native == std::endian::little ? std::countr_zero(word) : std::countl_zero(word);
    return static_cast<std::size_t>(zeros) / 8;
  };
  const auto [front, back] = wordsOf(block);
  if (front != 0) return firstOfWord(front);
  return sizeof front + firstOfWord(back);
}

}  // namespace tessary
