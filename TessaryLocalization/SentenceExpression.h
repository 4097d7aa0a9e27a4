#pragma once

// How a stored sentence is taken apart again.
//
// A message with placeholders, "Moved {0} to {1}.", is turned round into the expression (ICU syntax, no options)
//
//     ^Moved (.{0,2048}?) to (.{0,2048}?)\.$
//
// whose groups are the texts that were filled in. What the expression means is the authority; ICU is not run, because
// it backtracks: over a hostile sentence of n bytes with k groups it takes on the order of n^k steps.
//
// The idea. The match begins at the first byte, and every group is lazy, so among all ways to match the right one makes
// the first group as short as possible, then the second, and so on. Call a place where literal number j stands
// "good" when the rest of the expression can match from there. The good places of the last literal are those that end
// at the end of the sentence; a place of literal j is good when a good place of literal j + 1 follows within the
// reach of one group. And the reach of a group is monotone (what is in reach stays in reach from a later start), so
// only the nearest good place behind has to be looked at. One walk over the sentence from its end for each literal
// finds all good places; one walk forward takes the nearest good place each time, which is the shortest group each
// time. For "a (.{0,2048}?) to (.{0,2048}?)$" over "a b to c to d" both " to " are good, and the first is taken: "b",
// "c to d".
//
// Cost: O(n) for each literal, whatever the sentence, and a few comparisons where the first or last literal does not
// stand where it must.
//
// Three details of the expression's meaning. "." is any scalar but a line end (U+000A to U+000D, U+0085, U+2028,
// U+2029), and a group holds at most 2,048 of them. "$" matches at the end and also in front of a line end that ends
// the sentence, with CR LF as one line end. And a group may be empty.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryPlatform/text/RegexSubject.h"

namespace tessary {

/// The longest text that one group takes, in scalars.
inline constexpr std::size_t maximumArgumentScalars = 2048;

/// A sentence to be taken apart, with what all expressions ask of it. Not for more than one thread at once. The text is
/// well-formed UTF-8 and outlives it.
class StoredSentence {
 public:
  explicit StoredSentence(std::string_view text);

  [[nodiscard]] std::string_view text() const { return text_; }

  /// The places at which "$" matches, in ascending order: in front of a line end at the end of the text, and the end.
  [[nodiscard]] std::size_t firstEnd() const { return firstEnd_; }
  [[nodiscard]] std::size_t lastEnd() const { return text_.size(); }

  /// True where one group may hold what stands between two boundaries of scalars.
  [[nodiscard]] bool isWithinReach(std::size_t from, std::size_t to) const;

 private:
  void count() const;

  std::string_view text_;
  std::size_t firstEnd_;
  /// For each byte position the scalars, and the line ends, that begin before it; empty until they are asked for.
  mutable std::vector<std::uint32_t> scalars_;
  mutable std::vector<std::uint32_t> lineEnds_;
};

/// An expression "^L0(.{0,2048}?)L1 … (.{0,2048}?)Lk$" over literal texts. May be used by several threads at once.
class SentenceExpression {
 public:
  /// The texts between the groups, each well-formed UTF-8: one more than there are groups, and at least one. Any may
  /// be empty.
  explicit SentenceExpression(std::vector<std::string> literals);

  [[nodiscard]] std::size_t groupCount() const { return literals_.size() - 1; }

  /// The expression in ICU's syntax. It always compiles, since all but its groups is escaped.
  [[nodiscard]] std::string pattern() const;

  /// A cheap necessary condition for a match: the first bytes of the sentence, and the last before one of its ends, are
  /// those of the first and last literal. In most cases it decides alone that nothing matches.
  [[nodiscard]] bool mayMatch(const StoredSentence& sentence) const;

  /// What each group holds, where the expression matches.
  [[nodiscard]] std::optional<std::vector<ByteRange>> match(const StoredSentence& sentence) const;

 private:
  std::vector<std::size_t> goodPlaces(const StoredSentence& sentence, std::size_t literal,
                                      const std::vector<std::size_t>& next) const;

  std::vector<std::string> literals_;
};

}  // namespace tessary
