#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

namespace tessary {

/// UTF-8, UTF-16 and UTF-32 and the roads between them.
///
/// Every operation survives any bytes. A broken UTF-8 sequence reads as U+FFFD once for each maximal subpart of an
/// ill-formed sequence (The Unicode Standard, section 3.9, "U+FFFD Substitution of Maximal Subparts"), which is what
/// CPython's `bytes.decode("utf-8", "replace")` and the WHATWG decoder do.

/// What stands in for text that could not be read.
inline constexpr char32_t replacementCharacter = U'\uFFFD';

/// One scalar read out of UTF-8.
struct DecodedScalar {
  /// The scalar, or U+FFFD where the bytes are ill-formed.
  char32_t scalar;
  /// How many bytes it took, 1 to 4 (1 to 3 where ill-formed).
  std::uint8_t byteCount;
  /// False where `scalar` stands in for ill-formed bytes, which a genuine U+FFFD does not.
  bool isWellFormed;

  bool operator==(const DecodedScalar&) const = default;
};

/// `decodeScalar` for all but the well-formed sequences that it reads itself.
[[nodiscard]] DecodedScalar decodeRareScalar(std::string_view text, std::size_t position) noexcept;

/// Reads the scalar that begins at byte `position`, which must be less than `text.size()`.
[[nodiscard]] inline DecodedScalar decodeScalar(std::string_view text, std::size_t position) noexcept {
  // OPTIMIZATION: one, two and three well-formed bytes, which is nearly all text, are read in place.
  const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const auto isContinuationAt = [&](std::size_t index) { return (byteAt(index) & 0xC0) == 0x80; };
  const char32_t first = byteAt(position);
  if (first < 0x80) return {first, 1, true};
  const std::size_t available = text.size() - position;
  if (first >= 0xC2 && first < 0xE0 && available >= 2 && isContinuationAt(position + 1))
    return {((first & 0x1F) << 6) | (byteAt(position + 1) & 0x3FU), 2, true};
  if (first >= 0xE0 && first < 0xF0 && available >= 3 && isContinuationAt(position + 1) &&
      isContinuationAt(position + 2)) {
    const char32_t scalar =
        ((first & 0x0F) << 12) | ((byteAt(position + 1) & 0x3FU) << 6) | (byteAt(position + 2) & 0x3FU);
    if (scalar >= 0x800 && (scalar & 0xF800) != 0xD800) return {scalar, 3, true};
  }
  return decodeRareScalar(text, position);
}

/// The byte position at which the scalar that ends at byte `position` begins. `position` is 1 to `text.size()` and a
/// boundary that reading forwards stops at; the answer is again such a boundary.
[[nodiscard]] std::size_t previousScalarStart(std::string_view text, std::size_t position) noexcept;

/// The most bytes that a scalar has in UTF-8.
inline constexpr std::size_t longestUTF8Sequence = 4;

/// Writes the UTF-8 form of `scalar`, which is a Unicode scalar value, at `to`, where there is room for it. The place
/// behind it.
inline char* writeScalar(char* to, char32_t scalar) noexcept {
  const auto write = [&to](char32_t byte) { *to++ = static_cast<char>(static_cast<unsigned char>(byte)); };
  if (scalar < 0x80) {
    write(scalar);
  } else if (scalar < 0x800) {
    write(0xC0 | (scalar >> 6));
    write(0x80 | (scalar & 0x3F));
  } else if (scalar < 0x10000) {
    write(0xE0 | (scalar >> 12));
    write(0x80 | ((scalar >> 6) & 0x3F));
    write(0x80 | (scalar & 0x3F));
  } else {
    write(0xF0 | (scalar >> 18));
    write(0x80 | ((scalar >> 12) & 0x3F));
    write(0x80 | ((scalar >> 6) & 0x3F));
    write(0x80 | (scalar & 0x3F));
  }
  return to;
}

/// Appends the UTF-8 form of `scalar`; a surrogate or a number above U+10FFFF is written as U+FFFD.
void appendScalar(std::string& text, char32_t scalar);

/// True for text that holds no ill-formed sequence.
[[nodiscard]] bool isWellFormedUTF8(std::string_view text) noexcept;

/// The text with U+FFFD in the place of every maximal ill-formed subpart.
[[nodiscard]] std::string repairedUTF8(std::string_view text);

/// True for text of ASCII bytes alone.
[[nodiscard]] bool isASCII(std::string_view text) noexcept;

/// The number of scalars, each maximal ill-formed subpart counted as one.
[[nodiscard]] std::size_t scalarCount(std::string_view text) noexcept;

/// True for the first unit of a pair that stands for one scalar in UTF-16.
[[nodiscard]] constexpr bool isHighSurrogate(char16_t unit) noexcept {
  return (unit & 0xFC00) == 0xD800;
}

/// True for the second unit of such a pair.
[[nodiscard]] constexpr bool isLowSurrogate(char16_t unit) noexcept {
  return (unit & 0xFC00) == 0xDC00;
}

/// True for a number, or a UTF-16 unit, that is a surrogate of either kind and so no scalar.
[[nodiscard]] constexpr bool isSurrogate(char32_t value) noexcept {
  return value >= 0xD800 && value <= 0xDFFF;
}

/// The scalar for which a high and a low surrogate stand together.
[[nodiscard]] constexpr char32_t scalarOfPair(char16_t high, char16_t low) noexcept {
  return 0x10000 + (static_cast<char32_t>(high & 0x3FF) << 10) + (low & 0x3FF);
}

/// The scalars of UTF-8 text.
[[nodiscard]] std::u32string toScalars(std::string_view text);

/// The UTF-16 units of UTF-8 text.
[[nodiscard]] std::u16string toUTF16(std::string_view text);

/// The UTF-8 form of scalars; a surrogate or a number above U+10FFFF is written as U+FFFD.
[[nodiscard]] std::string toUTF8(std::u32string_view scalars);

/// The UTF-8 form of UTF-16 units; a lone surrogate is written as U+FFFD.
[[nodiscard]] std::string toUTF8(std::u16string_view units);

/// The scalars of UTF-8 text without a copy: `for (char32_t scalar : ScalarView(text))`. The iterator's
/// `position()` is the byte at which its scalar begins. The text must outlive the view.
class ScalarView {
 public:
  class Iterator {
   public:
    using value_type = char32_t;
    using difference_type = std::ptrdiff_t;
    using iterator_category = std::forward_iterator_tag;

    Iterator() = default;

    char32_t operator*() const { return current_.scalar; }
    Iterator& operator++() {
      position_ += current_.byteCount;
      read();
      return *this;
    }
    Iterator operator++(int) {
      Iterator before = *this;
      ++*this;
      return before;
    }
    bool operator==(const Iterator& other) const { return position_ == other.position_; }

    /// The byte at which the scalar begins.
    [[nodiscard]] std::size_t position() const { return position_; }

   private:
    friend class ScalarView;
    Iterator(std::string_view text, std::size_t position) : text_(text), position_(position) { read(); }

    void read() {
      if (position_ < text_.size()) current_ = decodeScalar(text_, position_);
    }

    std::string_view text_;
    std::size_t position_ = 0;
    DecodedScalar current_{};
  };

  explicit ScalarView(std::string_view text) : text_(text) {}

  [[nodiscard]] Iterator begin() const { return {text_, 0}; }
  [[nodiscard]] Iterator end() const { return {text_, text_.size()}; }

 private:
  std::string_view text_;
};

}  // namespace tessary
