#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "TessaryPlatform/json/JSONSyntax.h"
#include "TessaryPlatform/json/JSONTokens.h"

namespace tessary {

/// The four bytes that RFC 8259 allows between tokens.
constexpr bool isJSONWhitespace(char byte) {
  return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t';
}

/// The bytes that are tokens by themselves.
constexpr bool isJSONPunctuation(char byte) {
  return byte == ',' || byte == ':' || byte == '{' || byte == '}' || byte == '[' || byte == ']';
}

/// The bytes that may follow a number or a word.
constexpr bool isJSONDelimiter(char byte) {
  return isJSONWhitespace(byte) || isJSONPunctuation(byte);
}

/// A number as it is spelled.
struct JSONNumber {
  std::string_view spelling;
  /// False where the spelling has a fraction or an exponent, whatever the value.
  bool isInteger;
};

/// Steps over the tokens of a JSON text and holds every one of them to the grammar, whether its value is wanted or not.
///
/// Each `read…` and `skip…` expects the cursor before a value, and answers false where the value is malformed; then the
/// cursor stays before what is wrong, `fault` tells it, and no further step may be taken. Objects and arrays are read
/// so:
///
///     cursor.enter();
///     for (bool more = !cursor.leaveIfEmpty(']'); more;) {
///       … read the value …
///       if (!cursor.continueOrLeave(']', more)) return false;
///     }
///
/// The operations of the road that every value takes are inline; the token index makes them short.
class JSONCursor {
 public:
  /// Begins at the first token of [`token`, `end`), positions in `text`; `*end` is readable and stands where the last
  /// token's surroundings end. Text and tokens must outlive the cursor.
  JSONCursor(std::string_view text, const std::uint32_t* token, const std::uint32_t* end)
      : text_(text), token_(token), end_(end) {}
  explicit JSONCursor(const JSONTokens& tokens) : JSONCursor(tokens.text(), tokens.begin(), tokens.end()) {}

  [[nodiscard]] bool isAtEnd() const { return token_ == end_; }

  /// The byte at which the token begins, or the end.
  [[nodiscard]] std::size_t position() const { return *token_; }

  /// The first byte of the token; NUL at the end, which begins no token of JSON.
  [[nodiscard]] char peek() const { return token_ == end_ ? '\0' : text_[*token_]; }

  /// What is wrong, after a step that answered false.
  [[nodiscard]] const JSONSyntaxError& fault() const { return fault_; }

  /// The kind of the value that the token begins, judged by its first byte alone. False where it begins none.
  [[nodiscard]] bool peekKind(JSONKind& kind);

  /// Reads a text. `value` is a view of the text read, or of `storage` where there were escapes to resolve.
  [[nodiscard]] bool readText(std::string_view& value, std::string& storage) {
    const std::string_view raw = rawText();
    if (std::memchr(raw.data(), '\\', raw.size()) == nullptr) [[likely]] {
      ++token_;
      value = raw;
      return true;
    }
    if (!unescape(raw, storage)) return false;
    ++token_;
    value = storage;
    return true;
  }

  /// Reads a number's spelling.
  [[nodiscard]] bool readNumber(JSONNumber& number);

  /// Reads "true" or "false".
  [[nodiscard]] bool readBoolean(bool& value) {
    value = peek() == 't';
    return skipWord(value ? "true" : "false");
  }

  /// Reads "null".
  [[nodiscard]] bool skipNull() { return skipWord("null"); }

  /// Walks one whole value.
  [[nodiscard]] bool skipValue();

  /// Steps into the object or array that the token opens. False where that is one level too many.
  [[nodiscard]] bool enter() {
    if (depth_ == maximumJSONNesting) return fail(JSONSyntaxError::Reason::nestedTooDeep);
    ++depth_;
    ++token_;
    return true;
  }

  /// Directly behind `enter`: steps out again if `close` follows. `close` is '}' or ']'.
  [[nodiscard]] bool leaveIfEmpty(char close) {
    if (peek() != close) return false;
    leave();
    return true;
  }

  /// Behind an element or a member: steps over a comma and sets `more`, or steps out over `close` and clears it.
  [[nodiscard]] bool continueOrLeave(char close, bool& more) {
    const char byte = peek();
    more = byte == ',';
    if (more) {
      ++token_;
      return true;
    }
    if (byte != close) return fail(JSONSyntaxError::Reason::expectedCommaOrEnd);
    leave();
    return true;
  }

  /// At the opening bracket of an array: how many elements it has, as far as commas tell, and at most `most`.
  [[nodiscard]] std::size_t elementCount(std::size_t most) const {
    if (token_ + 1 == end_ || text_[token_[1]] == ']') return 0;
    std::size_t count = 1;
    std::size_t depth = 0;
    for (const std::uint32_t* token = token_; token != end_ && count < most; ++token) {
      const char byte = text_[*token];
      // Of the bytes that begin a token only the brackets and braces have this bit with these others.
      const char folded = static_cast<char>(byte | 0x20);
      if (folded == '{') ++depth;
      if (folded == '}' && --depth == 0) break;
      if (byte == ',' && depth == 1) ++count;
    }
    return count;
  }

  /// Reads a member's key and its colon. `value` as in `readText`.
  [[nodiscard]] bool readKey(std::string_view& value, std::string& storage) {
    if (peek() != '"') return fail(JSONSyntaxError::Reason::expectedKey);
    return readText(value, storage) && skipColon();
  }

  /// A member's key as it is spelled, escapes and all; empty where no key stands.
  [[nodiscard]] std::string_view spelledKey() const { return peek() == '"' ? rawText() : std::string_view(); }

  /// Steps over a key without escapes, and its colon.
  [[nodiscard]] bool skipSpelledKey() {
    ++token_;
    return skipColon();
  }

  /// Where the tokens end before the opening quote of a broken text: holds its escapes before byte `end` to the
  /// grammar.
  [[nodiscard]] bool checkEscapes(std::size_t end) {
    return checkEscapes(text_.substr(*token_ + 1, end - *token_ - 1));
  }

  /// Behind the value on top: true if nothing follows.
  [[nodiscard]] bool finish() { return isAtEnd() || fail(JSONSyntaxError::Reason::trailingContent); }

 private:
  bool fail(JSONSyntaxError::Reason reason) { return failAt(reason, *token_); }
  bool failAt(JSONSyntaxError::Reason reason, std::size_t position) {
    fault_ = {reason, position};
    return false;
  }

  void leave() {
    --depth_;
    ++token_;
  }

  [[nodiscard]] bool skipColon() {
    if (peek() != ':') return fail(JSONSyntaxError::Reason::expectedColon);
    ++token_;
    return true;
  }

  /// What lies between the quotes of the text that the token opens. Nothing but white space lies between the closing
  /// quote and the next token, so the quote is found from behind.
  [[nodiscard]] std::string_view rawText() const {
    std::size_t closing = token_[1] - 1;
    while (isJSONWhitespace(text_[closing]))
      --closing;
    return text_.substr(*token_ + 1, closing - *token_ - 1);
  }

  [[nodiscard]] bool skipText();
  [[nodiscard]] bool skipScalar();
  [[nodiscard]] bool skipWord(std::string_view word);
  [[nodiscard]] bool checkEscapes(std::string_view raw);
  [[nodiscard]] bool unescape(std::string_view raw, std::string& value);

  std::string_view text_;
  const std::uint32_t* token_;
  const std::uint32_t* end_;
  std::size_t depth_ = 0;
  JSONSyntaxError fault_;
};

}  // namespace tessary
