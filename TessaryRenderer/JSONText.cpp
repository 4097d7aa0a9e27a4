#include "TessaryRenderer/JSONText.h"

#include <algorithm>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary::JSONText {

namespace {

/// A unit that stands for itself in a JSON string and is one byte of UTF-8.
constexpr bool isPlain(char16_t unit) {
  return unit >= 0x20 && unit < 0x80 && unit != u'"' && unit != u'\\';
}

/// The length of the run of plain units that `units` begins with.
std::size_t plainRun(std::u16string_view units) {
  // Text of other scripts has no such runs, and is not to pay for a look at each of its blocks.
  if (units.empty() || !isPlain(units.front())) return 0;
  // OPTIMIZATION: whole blocks first, which the compiler turns into vector comparisons.
  constexpr std::size_t block = 16;
  std::size_t length = 0;
  while (units.size() - length >= block) {
    unsigned odd = 0;
    for (std::size_t index = 0; index < block; ++index)
      odd |= static_cast<unsigned>(!isPlain(units[length + index]));
    if (odd != 0) break;
    length += block;
  }
  while (length < units.size() && isPlain(units[length]))
    ++length;
  return length;
}

void appendPlain(std::string& json, std::u16string_view units) {
  const std::size_t before = json.size();
  json.resize(before + units.size());
  char* out = json.data() + before;
  for (std::size_t index = 0; index < units.size(); ++index)
    out[index] = static_cast<char>(units[index]);
}

void appendEscape(std::string& json, char16_t unit) {
  constexpr std::string_view named = "\"\\\b\f\n\r\t";
  constexpr std::string_view letters = "\"\\bfnrt";
  const std::size_t place = named.find(static_cast<char>(unit));
  if (place != std::string_view::npos) {
    json.append({'\\', letters[place]});
  } else {
    constexpr std::string_view digits = "0123456789abcdef";
    json.append({'\\', 'u', '0', '0', digits[unit >> 4], digits[unit & 0x0F]});
  }
}

/// Reads the scalar that begins `units`, and drops its units; a lone surrogate reads as U+FFFD.
char32_t takeScalar(std::u16string_view& units) {
  const char16_t first = units.front();
  units.remove_prefix(1);
  if (!isSurrogate(first)) return first;
  if (!isHighSurrogate(first) || units.empty() || !isLowSurrogate(units.front())) return replacementCharacter;
  const char16_t second = units.front();
  units.remove_prefix(1);
  return scalarOfPair(first, second);
}

/// Units in the order of the scalars that they belong to: surrogates above all others.
constexpr char16_t scalarRank(char16_t unit) {
  if (isSurrogate(unit)) return static_cast<char16_t>(unit + 0x2000);
  return unit >= 0xE000 ? static_cast<char16_t>(unit - 0x800) : unit;
}

}  // namespace

bool append(std::string& json, std::u16string_view units, std::size_t limit) {
  const auto hasRoomFor = [&](std::size_t bytes) { return json.size() <= limit && bytes <= limit - json.size(); };
  // Every unit takes a byte at least, except that two of a pair take four together.
  if (!hasRoomFor(units.size() + 2)) return false;
  json.push_back('"');
  while (!units.empty()) {
    const std::size_t run = plainRun(units);
    if (!hasRoomFor(run)) return false;
    appendPlain(json, units.substr(0, run));
    units.remove_prefix(run);
    if (units.empty()) break;
    if (units.front() < 0x80) {
      appendEscape(json, units.front());
      units.remove_prefix(1);
    } else {
      appendScalar(json, takeScalar(units));
    }
    if (!hasRoomFor(0)) return false;
  }
  json.push_back('"');
  return hasRoomFor(0);
}

std::u16string withoutLoneSurrogates(std::u16string_view units) {
  std::u16string clean(units);
  if (std::ranges::none_of(clean, isSurrogate)) return clean;
  for (std::size_t index = 0; index < clean.size(); ++index) {
    if (!isSurrogate(clean[index])) continue;
    const bool paired = isHighSurrogate(clean[index]) && index + 1 < clean.size() && isLowSurrogate(clean[index + 1]);
    if (paired) {
      ++index;
    } else {
      clean[index] = static_cast<char16_t>(replacementCharacter);
    }
  }
  return clean;
}

bool isOrderedByScalar(std::u16string_view left, std::u16string_view right) {
  return std::ranges::lexicographical_compare(left, right, {}, scalarRank, scalarRank);
}

}  // namespace tessary::JSONText
