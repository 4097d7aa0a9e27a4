#include "TessaryLocalization/IntegerQuantity.h"

#include <cmath>

#include <unicode/uchar.h>

#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

constexpr std::u32string_view separators = U"., '\u2019\u00A0\u202F\u2009\u066C";

/// The greatest value of a character that is taken, far above any in the database and without loss in a double.
constexpr double greatestCharacterValue = 1e15;

/// The scalar of a character that has one and is well-formed.
std::optional<char32_t> onlyScalar(std::string_view character) {
  const DecodedScalar first = decodeScalar(character, 0);
  if (!first.isWellFormed || first.byteCount != character.size()) return std::nullopt;
  return first.scalar;
}

std::optional<std::int64_t> wholeNumber(char32_t scalar) {
  if (scalar < 0x80) {
    if (!isASCIIDigit(scalar)) return std::nullopt;
    return scalar - U'0';
  }
  const double value = u_getNumericValue(static_cast<UChar32>(scalar));
  if (!(value >= 0 && value <= greatestCharacterValue) || value != std::floor(value)) return std::nullopt;
  return static_cast<std::int64_t>(value);
}

/// Puts the decimal digits of `value` behind those of `number`; false where that leaves 64 bits.
bool append(std::int64_t& number, std::int64_t value) {
  std::int64_t scale = 10;
  while (scale <= value)
    scale *= 10;
  return !__builtin_mul_overflow(number, scale, &number) && !__builtin_add_overflow(number, value, &number);
}

}  // namespace

std::optional<std::int64_t> integerQuantity(std::string_view text) noexcept {
  std::int64_t number = 0;
  bool hasDigits = false;
  for (const std::string_view character : CharacterView(text)) {
    const auto scalar = onlyScalar(character);
    if (!scalar) return std::nullopt;
    if (separators.contains(*scalar)) continue;
    const auto value = wholeNumber(*scalar);
    if (!value || !append(number, *value)) return std::nullopt;
    hasDigits = true;
  }
  return hasDigits ? std::optional(number) : std::nullopt;
}

}  // namespace tessary
