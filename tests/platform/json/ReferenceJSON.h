#pragma once

#include <cstddef>
#include <string_view>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary::testing {

/// A slow and obvious checker of JSON texts, one function for each rule of the grammar, that shares nothing with the
/// reader but the test for well-formed UTF-8. It answers yes or no.
class ReferenceJSON {
 public:
  static bool accepts(std::string_view text, std::size_t deepest) {
    ReferenceJSON checker(text, deepest);
    if (!isWellFormedUTF8(text)) return false;
    checker.whitespace();
    if (!checker.value(0)) return false;
    checker.whitespace();
    return checker.at_ == text.size();
  }

 private:
  ReferenceJSON(std::string_view text, std::size_t deepest) : text_(text), deepest_(deepest) {}

  [[nodiscard]] bool next(char byte) const { return at_ < text_.size() && text_[at_] == byte; }
  bool take(char byte) {
    if (!next(byte)) return false;
    ++at_;
    return true;
  }
  bool take(std::string_view word) {
    if (text_.substr(at_, word.size()) != word) return false;
    at_ += word.size();
    return true;
  }
  void whitespace() {
    while (next(' ') || next('\t') || next('\n') || next('\r'))
      ++at_;
  }
  bool digit() {
    for (char byte = '0'; byte <= '9'; ++byte) {
      if (take(byte)) return true;
    }
    return false;
  }

  // NOLINTNEXTLINE(misc-no-recursion): the depth is bounded.
  bool value(std::size_t depth) {
    if (next('{')) return depth < deepest_ && object(depth + 1);
    if (next('[')) return depth < deepest_ && array(depth + 1);
    if (next('"')) return string();
    return take("true") || take("false") || take("null") || number();
  }

  // NOLINTNEXTLINE(misc-no-recursion)
  bool array(std::size_t depth) {
    take('[');
    whitespace();
    if (take(']')) return true;
    do {
      whitespace();
      if (!value(depth)) return false;
      whitespace();
    } while (take(','));
    return take(']');
  }

  // NOLINTNEXTLINE(misc-no-recursion)
  bool object(std::size_t depth) {
    take('{');
    whitespace();
    if (take('}')) return true;
    do {
      whitespace();
      if (!string()) return false;
      whitespace();
      if (!take(':')) return false;
      whitespace();
      if (!value(depth)) return false;
      whitespace();
    } while (take(','));
    return take('}');
  }

  bool number() {
    take('-');
    if (!take('0')) {
      if (!digit()) return false;
      while (digit()) {
      }
    }
    if (take('.')) {
      if (!digit()) return false;
      while (digit()) {
      }
    }
    if (take('e') || take('E')) {
      if (!take('+')) take('-');
      if (!digit()) return false;
      while (digit()) {
      }
    }
    return true;
  }

  bool string() {
    if (!take('"')) return false;
    while (at_ < text_.size()) {
      if (take('"')) return true;
      if (static_cast<unsigned char>(text_[at_]) < 0x20) return false;
      if (next('\\')) {
        if (!escape()) return false;
      } else {
        ++at_;
      }
    }
    return false;
  }

  bool escape() {
    take('\\');
    for (const char byte : {'"', '\\', '/', 'b', 'f', 'n', 'r', 't'}) {
      if (take(byte)) return true;
    }
    unsigned unit = 0;
    if (!take('u') || !hex(unit)) return false;
    if (unit < 0xD800 || unit > 0xDFFF) return true;
    unsigned second = 0;
    return unit < 0xDC00 && take("\\u") && hex(second) && second >= 0xDC00 && second <= 0xDFFF;
  }

  bool hex(unsigned& unit) {
    for (int count = 0; count < 4; ++count) {
      constexpr std::string_view digits = "0123456789abcdef0123456789ABCDEF";
      const std::size_t found = at_ < text_.size() ? digits.find(text_[at_]) : std::string_view::npos;
      if (found == std::string_view::npos) return false;
      unit = unit * 16 + static_cast<unsigned>(found % 16);
      ++at_;
    }
    return true;
  }

  std::string_view text_;
  std::size_t deepest_;
  std::size_t at_ = 0;
};

}  // namespace tessary::testing
