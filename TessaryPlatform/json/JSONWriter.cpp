#include "TessaryPlatform/json/JSONWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

#include <simdjson.h>

#include "TessaryPlatform/text/ByteBlock.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

/// The most bytes that a byte of text becomes: those of "\u0000".
constexpr std::size_t mostBytesOfByte = 6;

/// True for a byte that is not written as it is, or that begins a scalar that is not.
template <JSONStyle::Escapes escapes>
constexpr bool isSpecial(unsigned char byte) {
  return byte < 0x20 || byte == '"' || byte == '\\' || (escapes == JSONStyle::Escapes::ascii && byte >= 0x7F);
}

/// Copies sixteen bytes, and gives the index of the first for which `isSpecial` holds; 16 if it holds for none.
template <JSONStyle::Escapes escapes>
std::size_t copyBlock(const char* from, char* to) {
  const ByteBlock block = byteBlockAt(from);
  std::memcpy(to, &block, sizeof block);
  auto special = (block < 0x20) | (block == '"') | (block == '\\');
  if constexpr (escapes == JSONStyle::Escapes::ascii) special |= block >= 0x7F;
  return firstByte(special);
}

/// The two hexadecimal digits of every byte.
constexpr auto hexPairs = [] {
  constexpr std::string_view digits = "0123456789abcdef";
  std::array<std::array<char, 2>, 256> pairs{};
  for (std::size_t byte = 0; byte < pairs.size(); ++byte)
    pairs[byte] = {digits[byte >> 4], digits[byte & 0xF]};
  return pairs;
}();

/// The letter behind the backslash for the bytes that have an escape of their own; 0 for all others.
constexpr auto escapeLetters = [] {
  std::array<char, 128> letters{};
  letters['"'] = '"';
  letters['\\'] = '\\';
  letters['\b'] = 'b';
  letters['\t'] = 't';
  letters['\n'] = 'n';
  letters['\f'] = 'f';
  letters['\r'] = 'r';
  return letters;
}();

char* writeUnitEscape(char* to, char32_t unit) {
  std::memcpy(to, "\\u", 2);
  std::memcpy(to + 2, hexPairs[unit >> 8].data(), 2);
  std::memcpy(to + 4, hexPairs[unit & 0xFF].data(), 2);
  return to + 6;
}

/// Writes the escape of a scalar and gives the place behind it.
char* writeEscape(char* to, char32_t scalar) {
  if (scalar < escapeLetters.size() && escapeLetters[scalar] != 0) {
    to[0] = '\\';
    to[1] = escapeLetters[scalar];
    return to + 2;
  }
  if (scalar < 0x10000) return writeUnitEscape(to, scalar);
  to = writeUnitEscape(to, 0xD800 + ((scalar - 0x10000) >> 10));
  return writeUnitEscape(to, 0xDC00 + ((scalar - 0x10000) & 0x3FF));
}

/// A piece of a text on its way to where it is written.
struct Writing {
  std::string_view text;
  /// The next byte of the text, at which a scalar begins, and where it goes.
  std::size_t position;
  char* to;
};

/// How many bytes are written at once, at the most: by one block, or by one scalar.
constexpr std::size_t mostBytesAtOnce = sizeof(ByteBlock);

/// Writes what stands for itself, up to byte `end` or to the end of the block in which that lies.
template <JSONStyle::Escapes escapes>
void writePlain(Writing& at, std::size_t end) {
  while (at.position < end && at.text.size() - at.position >= sizeof(ByteBlock)) {
    const std::size_t index = copyBlock<escapes>(at.text.data() + at.position, at.to);
    at.position += index;
    at.to += index;
    if (index < sizeof(ByteBlock)) return;
  }
  while (at.position < end && !isSpecial<escapes>(static_cast<unsigned char>(at.text[at.position])))
    *at.to++ = at.text[at.position++];
}

/// Writes what does not, and single bytes between that do: they are not worth a block.
template <JSONStyle::Escapes escapes>
void writeSpecial(Writing& at, std::size_t end) {
  const auto isSpecialAt = [&at](std::size_t position) {
    return position < at.text.size() && isSpecial<escapes>(static_cast<unsigned char>(at.text[position]));
  };
  while (at.position < end) {
    if (isSpecialAt(at.position)) {
      const DecodedScalar decoded = decodeScalar(at.text, at.position);
      at.to = writeEscape(at.to, decoded.scalar);
      at.position += decoded.byteCount;
    } else if (isSpecialAt(at.position + 1)) {
      *at.to++ = at.text[at.position++];
    } else {
      return;
    }
  }
}

/// Appends a text without the quotes. What is not escaped is copied as it stands, so that a text of which only ASCII
/// is escaped must be well-formed.
///
/// OPTIMIZATION: the string is lengthened once for a piece of the text, by the most that may come of it, so that no
/// byte asks for room.
template <JSONStyle::Escapes escapes>
void appendEscaped(std::string& json, std::string_view text) {
  constexpr std::size_t pieceBytes = 1024;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = json.size();
    const std::size_t end = std::min(position + pieceBytes, text.size());
    json.resize_and_overwrite(start + (end - position) * mostBytesOfByte + mostBytesAtOnce,
                              [&](char* bytes, std::size_t) {
                                Writing at{text, position, bytes + start};
                                while (at.position < end) {
                                  writePlain<escapes>(at, end);
                                  writeSpecial<escapes>(at, end);
                                }
                                position = at.position;
                                return static_cast<std::size_t>(at.to - bytes);
                              });
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
  const std::string_view rest = text.substr(position);
  if (escapes == JSONStyle::Escapes::ascii) {
    appendEscaped<JSONStyle::Escapes::ascii>(json, rest);
  } else if (simdjson::validate_utf8(rest.data(), rest.size())) {
    appendEscaped<JSONStyle::Escapes::minimal>(json, rest);
  } else {
    appendEscaped<JSONStyle::Escapes::minimal>(json, repairedUTF8(rest));
  }
  json += '"';
}

}  // namespace tessary
