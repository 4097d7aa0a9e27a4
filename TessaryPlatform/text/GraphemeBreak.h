#pragma once

#include <array>
#include <cstdint>

#include "TessaryPlatform/text/GraphemeBreakTable.h"

namespace tessary {

// Where one character ends and the next begins, as an automaton.
//
// Annex #29 states its rules GB1 to GB999 over pairs of neighbours, but four of them look further back: GB9c (in six
// Indic scripts a consonant is joined to the one before by a virama, with marks between), GB11 (a pictograph is joined
// to another by a ZERO WIDTH JOINER, with marks between) and GB12 and GB13 (regional indicators pair up into flags, so
// that it matters whether an even or an odd number stands before). What they need to know fits into four states beside
// the classes:
//
//   evenRegionalIndicators   a flag is complete; the next indicator begins another
//   pictographicExtend       a pictograph and marks so far, so that a joiner would still bind
//   pictographicJoiner       the joiner that binds a pictograph to the one before
//   conjunct                 a consonant and a virama, and perhaps marks: the next consonant is bound
//
// So a text is cut by one table look-up for the class of a scalar and one for the step from state to state. Example:
// woman, skin tone, joiner, rocket: pictographic -> pictographicExtend -> pictographicJoiner -> pictographic, and no
// step breaks. The rules become a small table, computed by the compiler from the rules as the annex writes them.
//
// GB9c came into the annex with Unicode 15.1, but ICU's rules have held it since before, and so does this table: it
// cuts as ICU cuts. The test file of 15.0 allows both.

/// The property Grapheme_Cluster_Break, in which GB9c and GB11 tell apart some of its Other (`pictographic`,
/// `linkingConsonant`) and of its Extend (`combiningExtend` of a combining class other than 0, and `virama`).
enum class GraphemeBreakClass : std::uint8_t {
  other,
  control,
  carriageReturn,
  lineFeed,
  extend,
  zeroWidthJoiner,
  regionalIndicator,
  prepend,
  spacingMark,
  hangulL,
  hangulV,
  hangulT,
  hangulLV,
  hangulLVT,
  pictographic,
  linkingConsonant,
  combiningExtend,
  virama
};
inline constexpr std::size_t graphemeBreakClassCount = 18;

/// What has been read: the class of the last scalar, or one of the four states that remember more.
/// `regionalIndicator` here means an odd number of them, and `linkingConsonant` may have marks behind it.
enum class GraphemeBreakState : std::uint8_t {
  other,
  control,
  carriageReturn,
  lineFeed,
  extend,
  zeroWidthJoiner,
  regionalIndicator,
  prepend,
  spacingMark,
  hangulL,
  hangulV,
  hangulT,
  hangulLV,
  hangulLVT,
  pictographic,
  linkingConsonant,
  combiningExtend,
  virama,
  evenRegionalIndicators,
  pictographicExtend,
  pictographicJoiner,
  conjunct,
  /// Nothing yet. A break follows in any case (GB1), as it does behind a control (GB4).
  start = control
};
inline constexpr std::size_t graphemeBreakStateCount = 22;

/// A step from state to state: where it leads, and whether a character ends before the scalar that makes it.
struct GraphemeBreakStep {
  GraphemeBreakState state;
  bool breaks;
};

namespace graphemeBreakRules {

constexpr bool isOneOf(GraphemeBreakClass value, auto... classes) {
  return ((value == classes) || ...);
}

constexpr GraphemeBreakClass lastClass(GraphemeBreakState state) {
  switch (state) {
    case GraphemeBreakState::evenRegionalIndicators:
      return GraphemeBreakClass::regionalIndicator;
    case GraphemeBreakState::pictographicExtend:
      return GraphemeBreakClass::extend;
    case GraphemeBreakState::pictographicJoiner:
      return GraphemeBreakClass::zeroWidthJoiner;
    default:
      return static_cast<GraphemeBreakClass>(state);
  }
}

constexpr bool breaks(GraphemeBreakState state, GraphemeBreakClass next) {
  using enum GraphemeBreakClass;
  const GraphemeBreakClass last = lastClass(state);
  if (last == carriageReturn && next == lineFeed) return false;                                   // GB3
  if (isOneOf(last, control, carriageReturn, lineFeed)) return true;                              // GB4
  if (isOneOf(next, control, carriageReturn, lineFeed)) return true;                              // GB5
  if (last == hangulL && isOneOf(next, hangulL, hangulV, hangulLV, hangulLVT)) return false;      // GB6
  if (isOneOf(last, hangulLV, hangulV) && isOneOf(next, hangulV, hangulT)) return false;          // GB7
  if (isOneOf(last, hangulLVT, hangulT) && next == hangulT) return false;                         // GB8
  if (isOneOf(next, extend, combiningExtend, virama, zeroWidthJoiner)) return false;              // GB9
  if (next == spacingMark) return false;                                                          // GB9a
  if (last == prepend) return false;                                                              // GB9b
  if (state == GraphemeBreakState::conjunct && next == linkingConsonant) return false;            // GB9c
  if (state == GraphemeBreakState::pictographicJoiner && next == pictographic) return false;      // GB11
  if (state == GraphemeBreakState::regionalIndicator && next == regionalIndicator) return false;  // GB12, GB13
  return true;                                                                                    // GB999
}

constexpr GraphemeBreakState following(GraphemeBreakState state, GraphemeBreakClass next) {
  using enum GraphemeBreakClass;
  using State = GraphemeBreakState;
  if (state == State::pictographic || state == State::pictographicExtend) {
    if (isOneOf(next, extend, combiningExtend, virama)) return State::pictographicExtend;
    if (next == zeroWidthJoiner) return State::pictographicJoiner;
  }
  if (state == State::linkingConsonant || state == State::conjunct) {
    if (next == virama) return State::conjunct;
    if (isOneOf(next, combiningExtend, zeroWidthJoiner)) return state;
  }
  if (state == State::regionalIndicator && next == regionalIndicator) return State::evenRegionalIndicators;
  return static_cast<State>(next);
}

using Table = std::array<std::array<GraphemeBreakStep, graphemeBreakClassCount>, graphemeBreakStateCount>;

inline constexpr Table table = [] {
  Table steps{};
  for (std::size_t index = 0; index < graphemeBreakStateCount; ++index) {
    const auto state = static_cast<GraphemeBreakState>(index);
    for (std::size_t column = 0; column < graphemeBreakClassCount; ++column) {
      const auto next = static_cast<GraphemeBreakClass>(column);
      steps[index][column] = {following(state, next), breaks(state, next)};
    }
  }
  return steps;
}();

}  // namespace graphemeBreakRules

/// The break class of a scalar (at most U+10FFFF).
constexpr GraphemeBreakClass graphemeBreakClass(char32_t scalar) {
  const std::size_t block = graphemeBreakBlocks[scalar >> 7];
  return static_cast<GraphemeBreakClass>(graphemeBreakClasses[(block << 7) | (scalar & 0x7F)]);
}

/// The step that a scalar of class `next` makes from `state`.
constexpr GraphemeBreakStep graphemeBreakStep(GraphemeBreakState state, GraphemeBreakClass next) {
  return graphemeBreakRules::table[static_cast<std::size_t>(state)][static_cast<std::size_t>(next)];
}

/// True for a class that is plain: of two plain scalars in a row each is a character's beginning, and what the first
/// was need not be remembered. Nearly all text is plain, and the look at the state that the table needs is what costs.
constexpr bool isPlain(GraphemeBreakClass value) {
  using enum GraphemeBreakClass;
  constexpr auto bit = [](GraphemeBreakClass member) { return 1U << static_cast<unsigned>(member); };
  constexpr unsigned plain = bit(other) | bit(control) | bit(lineFeed) | bit(hangulLV) | bit(hangulLVT) |
                             bit(pictographic) | bit(linkingConsonant);
  return (plain >> static_cast<unsigned>(value) & 1U) != 0;
}

static_assert([] {
  for (std::size_t last = 0; last < graphemeBreakClassCount; ++last) {
    for (std::size_t next = 0; next < graphemeBreakClassCount; ++next) {
      const GraphemeBreakStep step =
          graphemeBreakStep(static_cast<GraphemeBreakState>(last), static_cast<GraphemeBreakClass>(next));
      const bool isPlainPair =
          isPlain(static_cast<GraphemeBreakClass>(last)) && isPlain(static_cast<GraphemeBreakClass>(next));
      if (isPlainPair && (!step.breaks || step.state != static_cast<GraphemeBreakState>(next))) return false;
    }
  }
  return true;
}());

}  // namespace tessary
