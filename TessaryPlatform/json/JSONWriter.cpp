#include "TessaryPlatform/json/JSONWriter.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>

#include <simdjson.h>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

/// Sixteen bytes that the compiler handles at once (a vector extension that g++ and clang share); a comparison makes
/// each byte 0xFF or 0.
using Block = unsigned char __attribute__((vector_size(16)));

/// Of sixteen bytes, the first that is a quote, a backslash or below 0x20, or, with `stopsAtHigh`, 0x7F or above; 16 if
/// none is.
template <bool stopsAtHigh>
std::size_t findSpecialInBlock(const char* bytes) {
  Block block;
  std::memcpy(&block, bytes, sizeof block);
  auto special = (block < 0x20) | (block == '"') | (block == '\\');
  if constexpr (stopsAtHigh) special |= block >= 0x7F;
  std::array<std::uint64_t, 2> words;
  static_assert(sizeof words == sizeof special);
  std::memcpy(words.data(), &special, sizeof words);
  const auto firstByte = [](std::uint64_t word) {
    const int zeros = std::endian::native == std::endian::little ? std::countr_zero(word) : std::countl_zero(word);
    return static_cast<std::size_t>(zeros) / 8;
  };
  if (words[0] != 0) return firstByte(words[0]);
  return words[1] != 0 ? sizeof words[0] + firstByte(words[1]) : sizeof block;
}

template <bool stopsAtHigh>
constexpr bool isSpecial(unsigned char byte) {
  return byte < 0x20 || byte == '"' || byte == '\\' || (stopsAtHigh && byte >= 0x7F);
}

/// The end of the run, from `position`, of bytes that are written as they are.
template <bool stopsAtHigh>
std::size_t skipPlain(std::string_view text, std::size_t position) {
  while (text.size() - position >= sizeof(Block)) {
    const std::size_t index = findSpecialInBlock<stopsAtHigh>(text.data() + position);
    position += index;
    if (index < sizeof(Block)) return position;
  }
  while (position < text.size() && !isSpecial<stopsAtHigh>(static_cast<unsigned char>(text[position])))
    ++position;
  return position;
}

void appendUnitEscape(std::string& json, char32_t unit) {
  constexpr std::string_view digits = "0123456789abcdef";
  json += {'\\', 'u', digits[unit >> 12 & 0xF], digits[unit >> 8 & 0xF], digits[unit >> 4 & 0xF], digits[unit & 0xF]};
}

void appendEscape(std::string& json, char32_t scalar) {
  switch (scalar) {
    case '"':
      json += "\\\"";
      return;
    case '\\':
      json += "\\\\";
      return;
    case '\b':
      json += "\\b";
      return;
    case '\t':
      json += "\\t";
      return;
    case '\n':
      json += "\\n";
      return;
    case '\f':
      json += "\\f";
      return;
    case '\r':
      json += "\\r";
      return;
    default:
      break;
  }
  if (scalar >= 0x10000) {
    appendUnitEscape(json, 0xD800 + ((scalar - 0x10000) >> 10));
    scalar = 0xDC00 + ((scalar - 0x10000) & 0x3FF);
  }
  appendUnitEscape(json, scalar);
}

/// Well-formed text, of which only quotes, backslashes and control characters are escaped.
void appendWellFormed(std::string& json, std::string_view text, std::size_t position) {
  while (true) {
    const std::size_t end = skipPlain<false>(text, position);
    json.append(text.data() + position, end - position);
    if (end == text.size()) return;
    appendEscape(json, static_cast<unsigned char>(text[end]));
    position = end + 1;
  }
}

/// The digits and the place of the point of a finite, positive number: 0.DIGITS times ten to the power of `point`.
struct Decimal {
  std::array<char, 17> digits{};
  int count = 0;
  int point = 0;
};

Decimal shortestDecimal(double value) {
  // The longest is 1.2345678901234567e-308.
  std::array<char, 32> text{};
  const char* const end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
  Decimal decimal;
  const char* at = text.data();
  for (; *at != 'e'; ++at) {
    if (*at != '.') decimal.digits[static_cast<std::size_t>(decimal.count++)] = *at;
  }
  // from_chars takes no plus sign.
  at += at[1] == '+' ? 2 : 1;
  std::from_chars(at, end, decimal.point);
  ++decimal.point;
  return decimal;
}

void appendZeros(std::string& json, int count) {
  json.append(static_cast<std::size_t>(count), '0');
}

void appendFixed(std::string& json, const Decimal& decimal) {
  const auto count = static_cast<std::size_t>(decimal.count);
  if (decimal.point <= 0) {
    json += "0.";
    appendZeros(json, -decimal.point);
    json.append(decimal.digits.data(), count);
  } else if (decimal.point >= decimal.count) {
    json.append(decimal.digits.data(), count);
    appendZeros(json, decimal.point - decimal.count);
  } else {
    const auto whole = static_cast<std::size_t>(decimal.point);
    json.append(decimal.digits.data(), whole);
    json += '.';
    json.append(decimal.digits.data() + whole, count - whole);
  }
}

void appendScientific(std::string& json, const Decimal& decimal, int leastExponentDigits) {
  json += decimal.digits[0];
  if (decimal.count > 1) {
    json += '.';
    json.append(decimal.digits.data() + 1, static_cast<std::size_t>(decimal.count - 1));
  }
  const int exponent = decimal.point - 1;
  json += exponent < 0 ? "e-" : "e+";
  if (leastExponentDigits == 2 && std::abs(exponent) < 10) json += '0';
  appendJSONInteger(json, std::abs(exponent));
}

}  // namespace

void appendJSONInteger(std::string& json, std::int64_t value) {
  std::array<char, 20> text{};
  json.append(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
}

void appendJSONNumber(std::string& json, double value, JSONStyle::Numbers numbers) {
  const bool isPython = numbers == JSONStyle::Numbers::python;
  if (std::signbit(value)) json += '-';
  const Decimal decimal = value == 0 ? Decimal{{'0'}, 1, 1} : shortestDecimal(std::abs(value));
  // The places of the point between which no exponent is written: Number::toString, and `repr` with format code 'r'.
  const int lowest = isPython ? -3 : -5;
  const int highest = isPython ? 16 : 21;
  if (decimal.point < lowest || decimal.point > highest) {
    appendScientific(json, decimal, isPython ? 2 : 1);
    return;
  }
  appendFixed(json, decimal);
  if (isPython && decimal.point >= decimal.count) json += ".0";
}

void appendJSONText(std::string& json, std::string_view text, JSONStyle::Escapes escapes) {
  json += '"';
  appendRestOfJSONText(json, text, 0, escapes);
}

void appendRestOfJSONText(std::string& json, std::string_view text, std::size_t position, JSONStyle::Escapes escapes) {
  const bool isASCII = escapes == JSONStyle::Escapes::ascii;
  std::optional<bool> isWellFormed;
  while (true) {
    const std::size_t end = skipPlain<true>(text, position);
    json.append(text.data() + position, end - position);
    position = end;
    if (position == text.size()) break;
    const DecodedScalar decoded = decodeScalar(text, position);
    if (isASCII || decoded.scalar < 0x20 || decoded.scalar == '"' || decoded.scalar == '\\') {
      appendEscape(json, decoded.scalar);
    } else {
      // OPTIMIZATION: one check by vectors spares a look at every scalar behind the first that is not ASCII.
      if (!isWellFormed) isWellFormed = simdjson::validate_utf8(text.data() + position, text.size() - position);
      if (*isWellFormed) {
        appendWellFormed(json, text, position);
        break;
      }
      appendScalar(json, decoded.scalar);
    }
    position += decoded.byteCount;
  }
  json += '"';
}

}  // namespace tessary
