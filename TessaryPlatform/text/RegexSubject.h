#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessary {

/// A piece of UTF-8 text: the bytes from `start` up to `end`.
struct ByteRange {
  std::size_t start = 0;
  std::size_t end = 0;

  [[nodiscard]] std::size_t size() const { return end - start; }
  [[nodiscard]] bool isEmpty() const { return start == end; }
  /// The piece of `text` that the range names; the range lies within the text.
  [[nodiscard]] std::string_view in(std::string_view text) const { return text.substr(start, size()); }

  bool operator==(const ByteRange&) const = default;
};

/// Text made ready for regular expressions: converted to UTF-16 once, however many expressions run over it. The text
/// must outlive the subject. A broken sequence is matched as U+FFFD; ranges still name the bytes that stood there.
class RegexSubject {
 public:
  RegexSubject(std::string_view text);  // NOLINT(google-explicit-constructor): a text is a subject
  RegexSubject(const std::string& text) : RegexSubject(std::string_view(text)) {}
  RegexSubject(const char* text) : RegexSubject(std::string_view(text)) {}

  /// The text as it was handed in.
  [[nodiscard]] std::string_view text() const { return text_; }
  /// The text in UTF-16.
  [[nodiscard]] std::u16string_view units() const { return units_; }

  /// The byte at which UTF-16 unit `unit` begins; the text's size for the end. `unit` is a scalar's beginning.
  [[nodiscard]] std::size_t byteOffset(std::size_t unit) const;
  /// The UTF-16 unit at which byte `byte` begins; the end for the text's size and beyond. Within a scalar: the one
  /// behind it.
  [[nodiscard]] std::size_t unitOffset(std::size_t byte) const;

 private:
  /// A scalar's beginning in both forms. There is one for every `checkpointDistance` units, the first at or behind
  /// each, and none in ASCII text, where both numbers are the same.
  struct Checkpoint {
    std::size_t unit;
    std::size_t byte;
  };
  static constexpr std::size_t checkpointDistance = 64;

  std::string_view text_;
  std::u16string units_;
  std::vector<Checkpoint> checkpoints_;
};

}  // namespace tessary
