#include "TessaryPlatform/text/UTF8.h"

#include <array>
#include <cstring>

namespace tessary {

namespace {

constexpr std::uint64_t highBits = 0x8080808080808080;

constexpr bool isContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

/// What a lead byte says of its sequence (The Unicode Standard, table 3-7): how long it is and what its second byte
/// may be. Overlong forms, surrogates and numbers above U+10FFFF are all excluded by the range of the second byte.
struct Lead {
  std::uint8_t byteCount;
  unsigned char secondLow;
  unsigned char secondHigh;
};

constexpr Lead leadOf(unsigned char byte) {
  if (byte < 0x80) return {1, 0, 0};
  if (byte < 0xC2) return {0, 0, 0};
  if (byte < 0xE0) return {2, 0x80, 0xBF};
  if (byte == 0xE0) return {3, 0xA0, 0xBF};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3, 0x80, 0xBF};
  if (byte == 0xF0) return {4, 0x90, 0xBF};
  if (byte < 0xF4) return {4, 0x80, 0xBF};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

constexpr char32_t leadBits(unsigned char byte, std::uint8_t byteCount) {
  return static_cast<char32_t>(byte & (0xFF >> (byteCount + 1)));
}

constexpr bool isScalar(char32_t value) {
  return value <= 0x10FFFF && !isSurrogate(value);
}

/// The end of the run of ASCII bytes that begins at `position`, to within seven bytes: whole words only.
std::size_t skipASCIIWords(std::string_view text, std::size_t position) {
  std::uint64_t word = 0;
  while (text.size() - position >= sizeof word) {
    std::memcpy(&word, text.data() + position, sizeof word);
    if ((word & highBits) != 0) break;
    position += sizeof word;
  }
  return position;
}

}  // namespace

DecodedScalar decodeRareScalar(std::string_view text, std::size_t position) noexcept {
  const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const unsigned char first = byteAt(position);
  if (first < 0x80) return {first, 1, true};
  const Lead lead = leadOf(first);
  if (lead.byteCount == 0) return {replacementCharacter, 1, false};
  char32_t scalar = leadBits(first, lead.byteCount);
  for (std::uint8_t offset = 1; offset < lead.byteCount; ++offset) {
    if (position + offset >= text.size()) return {replacementCharacter, offset, false};
    const unsigned char byte = byteAt(position + offset);
    const bool fits = offset == 1 ? byte >= lead.secondLow && byte <= lead.secondHigh : isContinuation(byte);
    if (!fits) return {replacementCharacter, offset, false};
    scalar = (scalar << 6) | (byte & 0x3F);
  }
  return {scalar, lead.byteCount, true};
}

std::size_t previousScalarStart(std::string_view text, std::size_t position) noexcept {
  // OPTIMIZATION: an ASCII byte is a scalar of its own, whatever stands before it.
  if (static_cast<unsigned char>(text[position - 1]) < 0x80) return position - 1;
  // OPTIMIZATION: a well-formed sequence ends here if one begins at the nearest lead, and readers always stop at leads.
  std::size_t lead = position - 1;
  while (lead > 0 && position - lead < 4 && isContinuation(static_cast<unsigned char>(text[lead])))
    --lead;
  const DecodedScalar decoded = decodeScalar(text, lead);
  if (decoded.isWellFormed && lead + decoded.byteCount == position) return lead;
  // A sequence has at most four bytes, so one of the last four positions begins the scalar: the earliest from which
  // reading forwards ends exactly here. Where none does, the last byte stands alone.
  const std::size_t earliest = position > 4 ? position - 4 : 0;
  for (std::size_t start = earliest; start + 1 < position; ++start) {
    if (isContinuation(static_cast<unsigned char>(text[start]))) continue;
    if (start + decodeScalar(text, start).byteCount == position) return start;
  }
  return position - 1;
}

void appendScalar(std::string& text, char32_t scalar) {
  if (!isScalar(scalar)) scalar = replacementCharacter;
  if (scalar < 0x80) {
    text.push_back(static_cast<char>(scalar));
    return;
  }
  std::array<char, longestUTF8Sequence> bytes;
  const char* const end = writeScalar(bytes.data(), scalar);
  text.append(bytes.data(), static_cast<std::size_t>(end - bytes.data()));
}

bool isWellFormedUTF8(std::string_view text) noexcept {
  std::size_t position = 0;
  while (position < text.size()) {
    position = skipASCIIWords(text, position);
    if (position == text.size()) break;
    const DecodedScalar decoded = decodeScalar(text, position);
    if (!decoded.isWellFormed) return false;
    position += decoded.byteCount;
  }
  return true;
}

std::string repairedUTF8(std::string_view text) {
  std::string repaired;
  repaired.reserve(text.size());
  for (const char32_t scalar : ScalarView(text))
    appendScalar(repaired, scalar);
  return repaired;
}

bool isASCII(std::string_view text) noexcept {
  for (std::size_t position = skipASCIIWords(text, 0); position < text.size(); ++position) {
    if (static_cast<unsigned char>(text[position]) >= 0x80) return false;
  }
  return true;
}

std::size_t scalarCount(std::string_view text) noexcept {
  std::size_t count = 0;
  for (std::size_t position = 0; position < text.size(); ++count)
    position += decodeScalar(text, position).byteCount;
  return count;
}

std::u32string toScalars(std::string_view text) {
  std::u32string scalars;
  scalars.reserve(text.size());
  for (const char32_t scalar : ScalarView(text))
    scalars.push_back(scalar);
  return scalars;
}

std::u16string toUTF16(std::string_view text) {
  std::u16string units;
  // No scalar has more units than bytes.
  units.resize_and_overwrite(text.size(), [text](char16_t* const begin, std::size_t) {
    char16_t* out = begin;
    std::size_t position = 0;
    while (position < text.size()) {
      // OPTIMIZATION: runs of ASCII are widened in one go, at four times the speed of decoding them.
      for (const std::size_t end = skipASCIIWords(text, position); position < end; ++position)
        *out++ = static_cast<char16_t>(text[position]);
      if (position == text.size()) break;
      const DecodedScalar decoded = decodeScalar(text, position);
      position += decoded.byteCount;
      if (decoded.scalar < 0x10000) {
        *out++ = static_cast<char16_t>(decoded.scalar);
      } else {
        *out++ = static_cast<char16_t>(0xD800 + ((decoded.scalar - 0x10000) >> 10));
        *out++ = static_cast<char16_t>(0xDC00 + (decoded.scalar & 0x3FF));
      }
    }
    return static_cast<std::size_t>(out - begin);
  });
  return units;
}

std::string toUTF8(std::u32string_view scalars) {
  std::string text;
  text.reserve(scalars.size());
  for (const char32_t scalar : scalars)
    appendScalar(text, scalar);
  return text;
}

std::string toUTF8(std::u16string_view units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t index = 0; index < units.size(); ++index) {
    const char16_t unit = units[index];
    if (isHighSurrogate(unit) && index + 1 < units.size() && isLowSurrogate(units[index + 1])) {
      appendScalar(text, scalarOfPair(unit, units[++index]));
    } else {
      appendScalar(text, unit);
    }
  }
  return text;
}

}  // namespace tessary
