#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessary {

/// One string literal of C++ source text.
struct SourceLiteral {
  /// What it denotes in UTF-8: escapes resolved, literals next to each other joined.
  std::string text;
  /// The line on which it begins, from 1.
  int line = 0;
  /// True for the operand of an `#include`.
  bool isInclude = false;
  /// True where it is written as the first argument of `L10n::text`.
  bool isTranslated = false;

  bool operator==(const SourceLiteral&) const = default;
};

/// The string literals of `source` in their order, plain and raw. Comments, character literals and digit separators
/// are seen for what they are. Escapes are read as far as tables of words need them: the simple ones, "\x" and "\u".
std::vector<SourceLiteral> sourceLiterals(std::string_view source);

}  // namespace tessary
