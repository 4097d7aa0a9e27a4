#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "TessaryPlatform/json/JSONCoder.h"
#include "TessaryPlatform/json/JSONCursor.h"
#include "TessaryPlatform/json/JSONErrors.h"
#include "TessaryPlatform/json/JSONTokens.h"
#include "TessaryPlatform/time/Date.h"

namespace tessary {

/// One reading of a text into a value: the cursor, the coder's choices and the first error.
///
/// Every operation that answers false has recorded why; the callers above it add their steps to the path on the way
/// out, so that a reading that succeeds spends nothing on paths.
class JSONReader {
 public:
  JSONReader(const JSONTokens& tokens, const JSONCoder& coder) : cursor_(tokens), text_(tokens.text()), coder_(coder) {}

  [[nodiscard]] JSONCursor& cursor() { return cursor_; }

  [[nodiscard]] bool read(bool& value);
  [[nodiscard]] bool read(std::int32_t& value);
  [[nodiscard]] bool read(std::int64_t& value);
  /// A number too large for a double is out of range; one too small is zero.
  [[nodiscard]] bool read(double& value);
  [[nodiscard]] bool read(Date& value);
  [[nodiscard]] bool read(std::string& value) {
    std::string_view text;
    if (!readText(text)) return false;
    value = std::string(text);
    return true;
  }

  /// Reads a text; the view lives until the next text is read.
  [[nodiscard]] bool readText(std::string_view& text) {
    if (cursor_.peek() != '"') return failType(JSONExpectation::text);
    return cursor_.readText(text, textStorage_);
  }

  /// Reads a key and its colon; the view lives until the next key is read.
  [[nodiscard]] bool readKey(std::string_view& key) { return cursor_.readKey(key, keyStorage_); }

  /// Records that the value at the cursor is of the wrong kind: null, or another type than `expected`.
  bool failType(JSONExpectation expected);

  /// Records an error of the value that begins at `position`, and answers false.
  bool fail(JSONDecodingError::Kind kind, std::size_t position);
  bool fail(JSONDecodingError::Kind kind, JSONExpectation expected, std::size_t position);
  /// Records that the value at `position` breaks the rule that `description` tells.
  bool failCorrupted(std::string description, std::size_t position);

  /// Puts a step in front of the path of the recorded error, and answers false.
  bool within(std::string_view key);
  bool within(std::size_t index);

  /// The error of a reading that answered false: what is wrong with the text, if anything is, or else the recorded one.
  [[nodiscard]] JSONDecodingError takeError();

 private:
  template <class Integer>
  [[nodiscard]] bool readInteger(Integer& value);
  [[nodiscard]] bool readNumber(JSONNumber& number, JSONExpectation expected);

  JSONCursor cursor_;
  std::string_view text_;
  const JSONCoder& coder_;
  std::string keyStorage_;
  std::string textStorage_;
  JSONDecodingError error_;
};

/// The error for a text that is not JSON.
[[nodiscard]] JSONDecodingError malformedJSON(std::string_view text);

}  // namespace tessary
