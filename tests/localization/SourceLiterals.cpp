#include "SourceLiterals.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary {
namespace {

bool isWordCharacter(char character) {
  return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
         (character >= 'A' && character <= 'Z') || character == '_';
}

class Scanner {
 public:
  explicit Scanner(std::string_view source) : source_(source) {}

  std::vector<SourceLiteral> literals() && {
    while (position_ < source_.size())
      step();
    return std::move(literals_);
  }

 private:
  [[nodiscard]] bool startsWith(std::string_view text) const { return source_.substr(position_).starts_with(text); }

  /// Passes one token, comment or blank.
  void step() {
    const char character = source_[position_];
    start_ = position_;
    if (startsWith("//")) {
      position_ = std::min(source_.find('\n', position_), source_.size());
    } else if (startsWith("/*")) {
      const std::size_t end = source_.find("*/", position_ + 2);
      position_ = end == std::string_view::npos ? source_.size() : end + 2;
    } else if (character == '"') {
      append(escapedText('"'));
    } else if (character == '\'') {
      escapedText('\'');
      code_ += "''";
    } else if (isWordCharacter(character)) {
      word();
    } else {
      if (character != ' ' && character != '\n') code_ += character;
      ++position_;
    }
  }

  /// Passes a name or number. A quote within a number separates digits; a name in front of a quote is its prefix.
  void word() {
    const bool isNumber = source_[start_] >= '0' && source_[start_] <= '9';
    while (position_ < source_.size() &&
           (isWordCharacter(source_[position_]) || (isNumber && source_[position_] == '\'')))
      ++position_;
    const std::string_view name = source_.substr(start_, position_ - start_);
    if (startsWith("\"") && name.ends_with('R')) return append(rawText());
    if (startsWith("\"") && (name == "u8" || name == "u" || name == "U" || name == "L")) return;
    code_ += name;
  }

  /// Reads from the quote at the position to the one that closes it.
  std::string escapedText(char quote) {
    std::string text;
    ++position_;
    while (position_ < source_.size() && source_[position_] != quote && source_[position_] != '\n') {
      if (source_[position_] == '\\') {
        ++position_;
        appendEscape(text);
      } else {
        text += source_[position_++];
      }
    }
    position_ = std::min(position_ + 1, source_.size());
    return text;
  }

  void appendEscape(std::string& text) {
    if (position_ == source_.size()) return;
    const char letter = source_[position_++];
    if (letter == 'x' || letter == 'u' || letter == 'U') {
      constexpr std::size_t anyNumber = 16;
      const std::size_t digits = letter == 'u' ? 4 : letter == 'U' ? 8 : anyNumber;
      const std::string_view rest = source_.substr(position_, digits);
      std::uint32_t value = 0;
      const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value, 16);
      position_ += static_cast<std::size_t>(end - rest.data());
      if (letter == 'x') {
        text += static_cast<char>(value);
      } else {
        appendScalar(text, value);
      }
      return;
    }
    constexpr std::string_view letters = "ntr0";
    constexpr std::string_view meanings{"\n\t\r\0", 4};
    const std::size_t known = letters.find(letter);
    text += known == std::string_view::npos ? letter : meanings[known];
  }

  std::string rawText() {
    const std::size_t parenthesis = std::min(source_.find('(', position_), source_.size());
    const std::string close = ")" + std::string(source_.substr(position_ + 1, parenthesis - position_ - 1)) + "\"";
    const std::size_t start = std::min(parenthesis + 1, source_.size());
    const std::size_t end = std::min(source_.find(close, start), source_.size());
    position_ = std::min(end + close.size(), source_.size());
    return std::string(source_.substr(start, end - start));
  }

  void append(std::string text) {
    if (code_.empty() && !literals_.empty()) {
      literals_.back().text += text;
      return;
    }
    SourceLiteral literal{.text = std::move(text)};
    literal.line = 1 + static_cast<int>(std::ranges::count(source_.substr(0, start_), '\n'));
    literal.isInclude = code_.ends_with("#include");
    literal.isTranslated = code_.ends_with("L10n::text(");
    literals_.push_back(std::move(literal));
    code_.clear();
  }

  std::string_view source_;
  std::size_t position_ = 0;
  /// Where the token at hand begins.
  std::size_t start_ = 0;
  /// What stands between the last literal and here, without blanks and comments.
  std::string code_;
  std::vector<SourceLiteral> literals_;
};

}  // namespace

std::vector<SourceLiteral> sourceLiterals(std::string_view source) {
  return Scanner(source).literals();
}

}  // namespace tessary
