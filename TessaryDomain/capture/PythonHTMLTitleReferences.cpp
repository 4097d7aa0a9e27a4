#include "TessaryDomain/capture/PythonHTMLTitleReferences.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "TessaryDomain/capture/HTMLEntities.h"
#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/UTF8.h"

// CPython takes up to 32 scalars behind the "&" that are no blank, "<", "&", "#" or ";", with the ";" that may follow,
// looks the whole up, and then ever shorter pieces of it from the front. Names are ASCII letters and digits, then
// perhaps a ";"; so what it finds is the run of letters and digits with the ";" behind it, or else the longest front
// part of that run that may stand without ";", at most six units long. The cap of 32 is the length of the longest name,
// and never cuts one. That needs no more than six look-ups for a reference, and works on bytes as on scalars.

namespace tessary::PythonHTMLTitle {

namespace {

/// Who asks: references without ";" are read more carefully in an attribute.
enum class Place : std::uint8_t { text, attribute };

/// What a reference at a "&" stands for.
struct Reference {
  /// The units that it takes, its "&" included; 0 if there is none.
  std::size_t length = 0;
  /// The scalars that stand for it: none, one or two.
  std::array<char32_t, 2> scalars{};
  std::size_t scalarCount = 0;
};

constexpr char32_t greatestScalar = 0x10FFFF;

/// What the numbers 0x80 to 0x9F stand for in a reference: the characters of Windows-1252, or the control characters
/// themselves where it has none. With 0, and 0x0D which stands for itself, they are CPython's 34 exceptions.
constexpr std::array<char32_t, 32> invalidCharacterReferences = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 0x80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 0x88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 0x90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 0x98
};

/// Control characters and noncharacters, for which a reference stands for nothing at all.
constexpr bool isDropped(char32_t value) {
  return (value >= 0x1 && value <= 0x8) || value == 0xB || (value >= 0xE && value <= 0x1F) ||
         (value >= 0x7F && value <= 0x9F) || (value >= 0xFDD0 && value <= 0xFDEF) || (value & 0xFFFE) == 0xFFFE;
}

template <typename Unit>
constexpr char32_t scalarOf(Unit unit) {
  // Bytes from 0x80 become numbers that are no ASCII, which is all that is asked of them here.
  return static_cast<char32_t>(static_cast<std::make_unsigned_t<Unit>>(unit));
}

/// The value of a digit of the base 10 or 16, or the base if it is none.
constexpr std::uint32_t digitValue(char32_t scalar, std::uint32_t base) {
  if (isASCIIDigit(scalar)) return scalar - U'0';
  const char32_t letter = scalar | 0x20;
  if (base == 16 && letter >= U'a' && letter <= U'f') return letter - U'a' + 10;
  return base;
}

Reference numericReference(char32_t value, std::size_t length) {
  if (value == 0) return {length, {replacementCharacter}, 1};
  if (value >= 0x80 && value <= 0x9F) return {length, {invalidCharacterReferences[value - 0x80]}, 1};
  if (isSurrogate(value) || value > greatestScalar) return {length, {replacementCharacter}, 1};
  if (isDropped(value)) return {length, {}, 0};
  return {length, {value}, 1};
}

/// A "&#" stands at `at`.
template <typename Unit>
Reference readNumericReference(std::basic_string_view<Unit> text, std::size_t at) {
  const auto scalarAt = [&](std::size_t index) { return index < text.size() ? scalarOf(text[index]) : U'\0'; };
  const bool isHexadecimal = (scalarAt(at + 2) | 0x20) == U'x';
  const std::uint32_t base = isHexadecimal ? 16 : 10;
  const std::size_t digits = at + (isHexadecimal ? 3 : 2);
  std::size_t position = digits;
  char32_t value = 0;
  for (std::uint32_t digit = 0; (digit = digitValue(scalarAt(position), base)) < base; ++position)
    value = std::min(value * base + digit, greatestScalar + 1);  // stays too large, whatever follows
  if (position == digits) return {};
  if (scalarAt(position) == U';') ++position;
  return numericReference(value, position - at);
}

Reference expansion(const HTMLEntities::Entity& entity) {
  return {1 + entity.name.size(), {entity.first, entity.second}, entity.scalarCount()};
}

template <typename Unit>
Reference readNamedReference(std::basic_string_view<Unit> text, std::size_t at, Place place) {
  std::array<char, HTMLEntities::longestName> name{};
  const std::size_t start = at + 1;
  std::size_t length = 0;
  while (length < name.size() && start + length < text.size() && isASCIIAlphanumeric(scalarOf(text[start + length]))) {
    name[length] = static_cast<char>(text[start + length]);
    ++length;
  }
  if (length < name.size() && start + length < text.size() && scalarOf(text[start + length]) == U';') {
    name[length] = ';';
    if (const auto* entity = HTMLEntities::find({name.data(), length + 1})) return expansion(*entity);
  }
  length = std::min(length, HTMLEntities::longestOpenName);
  for (; length >= HTMLEntities::shortestOpenName; --length) {
    const auto* entity = HTMLEntities::find({name.data(), length});
    if (entity == nullptr) continue;
    if (place == Place::attribute && start + length < text.size()) {
      const char32_t next = scalarOf(text[start + length]);
      if (next == U'=' || isASCIIAlphanumeric(next)) return {};
    }
    return expansion(*entity);
  }
  return {};
}

/// The reference at the "&" at `at`.
template <typename Unit>
Reference characterReference(std::basic_string_view<Unit> text, std::size_t at, Place place) {
  if (at + 1 < text.size() && scalarOf(text[at + 1]) == U'#') return readNumericReference(text, at);
  return readNamedReference(text, at, place);
}

void append(std::string& text, char32_t scalar) {
  appendScalar(text, scalar);
}
void append(std::u32string& text, char32_t scalar) {
  text.push_back(scalar);
}

template <typename Unit>
std::basic_string<Unit> decodeReferences(std::basic_string_view<Unit> text, Place place) {
  std::basic_string<Unit> decoded;
  decoded.reserve(text.size());
  std::size_t copied = 0;
  std::size_t at = text.find(Unit{'&'});
  while (at != text.npos) {
    const Reference reference = characterReference(text, at, place);
    if (reference.length > 0) {
      decoded.append(text, copied, at - copied);
      for (std::size_t index = 0; index < reference.scalarCount; ++index)
        append(decoded, reference.scalars[index]);
      copied = at + reference.length;
    }
    at = text.find(Unit{'&'}, at + std::max<std::size_t>(reference.length, 1));
  }
  decoded.append(text, copied);
  return decoded;
}

/// Broken bytes are repaired first: once a reference between them has vanished, they could join to a scalar.
std::string decodeUTF8(std::string_view text, Place place) {
  if (isWellFormedUTF8(text)) return decodeReferences(text, place);
  const std::string repaired = repairedUTF8(text);
  return decodeReferences(std::string_view(repaired), place);
}

}  // namespace

std::u32string unescape(std::u32string_view scalars) {
  return decodeReferences(scalars, Place::text);
}

std::string unescape(std::string_view text) {
  return decodeUTF8(text, Place::text);
}

std::u32string unescapeAttribute(std::u32string_view scalars) {
  return decodeReferences(scalars, Place::attribute);
}

std::string unescapeAttribute(std::string_view text) {
  return decodeUTF8(text, Place::attribute);
}

}  // namespace tessary::PythonHTMLTitle
