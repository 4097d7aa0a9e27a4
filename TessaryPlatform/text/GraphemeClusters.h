#pragma once

#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

namespace tessary {

/// Characters: extended grapheme clusters over UTF-8, cut in place. The authority is Unicode Standard Annex #29 in the
/// version of the linked ICU (its property data; its test file is the proof).
///
/// Positions are bytes. Every text begins anew: what stands before the view that is handed in has no say. A broken
/// sequence reads as one U+FFFD for each maximal subpart, and so is a character of its own unless marks follow it.
/// Everything takes linear time, also backwards and also over one cluster of a million marks.

/// The byte position behind the character that begins at byte `start`, a character boundary before the text's end.
[[nodiscard]] std::size_t characterEnd(std::string_view text, std::size_t start) noexcept;

/// The byte position at which the character that ends at byte `end` begins; `end` is a character boundary above 0.
/// The cost is that of the character and of a run of regional indicators before `end`: to walk a text backwards use
/// `CharacterView`, which counts such a run once.
[[nodiscard]] std::size_t previousCharacterStart(std::string_view text, std::size_t end) noexcept;

/// The number of characters.
[[nodiscard]] std::size_t characterCount(std::string_view text) noexcept;

/// The byte position of character number `count`, counted from 0; the text's size where it has no more than that many.
/// So "has more than n characters" is `characterOffset(text, n) < text.size()`, which reads no further than it must.
[[nodiscard]] std::size_t characterOffset(std::string_view text, std::size_t count) noexcept;

/// The first `count` characters, or all where there are fewer.
[[nodiscard]] std::string_view characterPrefix(std::string_view text, std::size_t count) noexcept;

/// The last `count` characters, or all where there are fewer.
[[nodiscard]] std::string_view characterSuffix(std::string_view text, std::size_t count) noexcept;

/// Character number `index`, counted from 0; absent behind the end.
[[nodiscard]] std::optional<std::string_view> characterAt(std::string_view text, std::size_t index) noexcept;

/// The characters of a text in both directions without a copy: `for (std::string_view character :
/// CharacterView(text))`. The iterator's `position()` is the byte at which its character begins. The text must outlive
/// the view.
class CharacterView {
 public:
  class Iterator {
   public:
    using value_type = std::string_view;
    using reference = std::string_view;
    using pointer = const std::string_view*;
    using difference_type = std::ptrdiff_t;
    using iterator_category = std::bidirectional_iterator_tag;

    Iterator() = default;

    std::string_view operator*() const { return text_.substr(position_, end_ - position_); }
    Iterator& operator++();
    Iterator& operator--();
    Iterator operator++(int) {
      Iterator before = *this;
      ++*this;
      return before;
    }
    Iterator operator--(int) {
      Iterator before = *this;
      --*this;
      return before;
    }
    bool operator==(const Iterator& other) const { return position_ == other.position_; }

    /// The byte at which the character begins.
    [[nodiscard]] std::size_t position() const { return position_; }

   private:
    friend class CharacterView;
    Iterator(std::string_view text, std::size_t position);

    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t end_ = 0;
    /// How many regional indicators stand directly before `position_`, once a step back has counted them.
    std::optional<std::size_t> regionalIndicatorsBefore_;
  };

  explicit CharacterView(std::string_view text) : text_(text) {}

  [[nodiscard]] Iterator begin() const { return {text_, 0}; }
  [[nodiscard]] Iterator end() const { return {text_, text_.size()}; }

 private:
  std::string_view text_;
};

/// The characters as a list, for algorithms that need them by number.
[[nodiscard]] std::vector<std::string_view> characters(std::string_view text);

}  // namespace tessary
