#include "TessaryPlatform/text/GraphemeClusters.h"

#include <cstdint>
#include <cstring>
#include <limits>

#include "TessaryPlatform/text/GraphemeBreak.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

constexpr std::uint64_t everyByte(std::uint64_t byte) {
  return byte * 0x0101010101010101;
}

/// True for eight bytes that are ASCII and hold no CR: each of them begins a character, whatever its neighbours.
/// (The subtraction borrows, and so finds a zero byte, only from a byte that equals CR once no high bit is set.)
constexpr bool isEightCharacters(std::uint64_t word) {
  const std::uint64_t differences = word ^ everyByte('\r');
  return ((word | ((differences - everyByte(1)) & ~differences)) & everyByte(0x80)) == 0;
}

struct Walk {
  std::size_t position;
  std::size_t count;
};

bool beginsWithTwoASCII(std::string_view text, std::size_t position) {
  return position + 1 < text.size() && ((text[position] | text[position + 1]) & 0x80) == 0;
}

/// True for a state that is no more than a plain class.
bool isPlain(GraphemeBreakState state) {
  return static_cast<std::size_t>(state) < graphemeBreakClassCount && isPlain(static_cast<GraphemeBreakClass>(state));
}

/// Walks over at most `limit` characters from the beginning: where the last of them ends, and how many there were.
Walk walk(std::string_view text, std::size_t limit) {
  GraphemeBreakState state = GraphemeBreakState::start;
  std::size_t position = 0;
  std::size_t count = 0;
  std::uint64_t word = 0;
  while (position < text.size()) {
    // OPTIMIZATION: eight ASCII characters at a time, unless what stands before them may take the first (a CR, or a
    // prepended mark). Ten bytes a nanosecond on ASCII prose.
    if (state != GraphemeBreakState::carriageReturn && state != GraphemeBreakState::prepend) {
      const std::size_t before = position;
      for (; text.size() - position >= sizeof word && limit - count >= sizeof word;
           position += sizeof word, count += sizeof word) {
        std::memcpy(&word, text.data() + position, sizeof word);
        if (!isEightCharacters(word)) break;
      }
      if (position == text.size()) break;
      if (position != before) state = static_cast<GraphemeBreakState>(graphemeBreakClass(text[position - 1] & 0x7F));
    }
    // Then scalar by scalar, until two ASCII bytes in a row make it likely that more follow: the blank between two
    // words of another script does not.
    do {
      const DecodedScalar decoded = decodeScalar(text, position);
      const GraphemeBreakClass next = graphemeBreakClass(decoded.scalar);
      // OPTIMIZATION: between plain scalars no step waits for the state that the one before it looked up.
      if (isPlain(next) && isPlain(state)) [[likely]] {
        if (count == limit) return {position, count};
        ++count;
        state = static_cast<GraphemeBreakState>(next);
        position += decoded.byteCount;
        continue;
      }
      const GraphemeBreakStep step = graphemeBreakStep(state, next);
      if (step.breaks && count == limit) return {position, count};
      count += step.breaks ? 1 : 0;
      state = step.state;
      position += decoded.byteCount;
    } while (position < text.size() && !beginsWithTwoASCII(text, position));
  }
  return {position, count};
}

GraphemeBreakClass classAt(std::string_view text, std::size_t position) {
  return graphemeBreakClass(decodeScalar(text, position).scalar);
}

std::size_t countRegionalIndicatorsBefore(std::string_view text, std::size_t position) {
  std::size_t count = 0;
  for (; position > 0; ++count) {
    position = previousScalarStart(text, position);
    if (classAt(text, position) != GraphemeBreakClass::regionalIndicator) break;
  }
  return count;
}

bool isMark(GraphemeBreakClass value) {
  using enum GraphemeBreakClass;
  return value == extend || value == combiningExtend || value == virama;
}

/// The state of a reader who stands behind a ZERO WIDTH JOINER at `joiner`: only a pictograph with nothing but marks up
/// to the joiner is bound by it. Marks never begin a character, so no mark is passed here twice in a walk over a text.
GraphemeBreakState stateBehindJoiner(std::string_view text, std::size_t joiner) {
  while (joiner > 0) {
    joiner = previousScalarStart(text, joiner);
    const GraphemeBreakClass last = classAt(text, joiner);
    if (last == GraphemeBreakClass::pictographic) return GraphemeBreakState::pictographicJoiner;
    if (!isMark(last)) break;
  }
  return GraphemeBreakState::zeroWidthJoiner;
}

/// The state of a reader at `position`, in front of a consonant: whether marks with a virama among them stand there,
/// and a consonant before them.
GraphemeBreakState stateBeforeConsonant(std::string_view text, std::size_t position) {
  using enum GraphemeBreakClass;
  bool hasVirama = false;
  while (position > 0) {
    position = previousScalarStart(text, position);
    const GraphemeBreakClass last = classAt(text, position);
    if (last == linkingConsonant && hasVirama) return GraphemeBreakState::conjunct;
    if (last != combiningExtend && last != virama && last != zeroWidthJoiner) break;
    hasVirama = hasVirama || last == virama;
  }
  return GraphemeBreakState::other;
}

/// Finds the beginning of the character that ends at `end`. The states are recovered from what stands before, which
/// takes a look further back in three cases only. `indicators` is how many regional indicators stand directly before
/// `end`, if that is known, and comes to be how many stand before the answer.
std::size_t stepBack(std::string_view text, std::size_t end, std::optional<std::size_t>& indicators) {
  // OPTIMIZATION: a character of one ASCII byte, seen from the byte before it.
  if (end >= 2 && beginsWithTwoASCII(text, end - 2) && text[end - 1] != '\n') {
    indicators.reset();
    return end - 1;
  }
  std::size_t position = previousScalarStart(text, end);
  GraphemeBreakClass next = classAt(text, position);
  const auto pass = [&](GraphemeBreakClass passed) {
    if (passed != GraphemeBreakClass::regionalIndicator || indicators == 0) indicators.reset();
    if (indicators) --*indicators;
  };
  pass(next);
  while (position > 0) {
    const std::size_t before = previousScalarStart(text, position);
    const GraphemeBreakClass last = classAt(text, before);
    auto state = static_cast<GraphemeBreakState>(last);
    if (last == GraphemeBreakClass::regionalIndicator && next == last) {
      if (!indicators) indicators = countRegionalIndicatorsBefore(text, position);
      if (*indicators % 2 == 0) state = GraphemeBreakState::evenRegionalIndicators;
    } else if (last == GraphemeBreakClass::zeroWidthJoiner && next == GraphemeBreakClass::pictographic) {
      state = stateBehindJoiner(text, before);
    } else if (next == GraphemeBreakClass::linkingConsonant &&
               (isMark(last) || last == GraphemeBreakClass::zeroWidthJoiner)) {
      state = stateBeforeConsonant(text, position);
    }
    if (graphemeBreakStep(state, next).breaks) break;
    pass(last);
    position = before;
    next = last;
  }
  return position;
}

/// How many regional indicators a character consists of; absent where it holds anything else.
std::optional<std::size_t> regionalIndicatorsAlone(std::string_view character) {
  std::size_t count = 0;
  for (const char32_t scalar : ScalarView(character)) {
    if (graphemeBreakClass(scalar) != GraphemeBreakClass::regionalIndicator) return std::nullopt;
    ++count;
  }
  return count;
}

}  // namespace

std::size_t characterEnd(std::string_view text, std::size_t start) noexcept {
  // OPTIMIZATION: a character of one ASCII byte, seen from the byte behind it.
  if (beginsWithTwoASCII(text, start) && text[start] != '\r') return start + 1;
  GraphemeBreakState state = GraphemeBreakState::start;
  std::size_t position = start;
  do {
    const DecodedScalar decoded = decodeScalar(text, position);
    const GraphemeBreakStep step = graphemeBreakStep(state, graphemeBreakClass(decoded.scalar));
    if (step.breaks && position != start) break;
    state = step.state;
    position += decoded.byteCount;
  } while (position < text.size());
  return position;
}

std::size_t previousCharacterStart(std::string_view text, std::size_t end) noexcept {
  std::optional<std::size_t> unknown;
  return stepBack(text, end, unknown);
}

std::size_t characterCount(std::string_view text) noexcept {
  return walk(text, std::numeric_limits<std::size_t>::max()).count;
}

std::size_t characterOffset(std::string_view text, std::size_t count) noexcept {
  return walk(text, count).position;
}

std::string_view characterPrefix(std::string_view text, std::size_t count) noexcept {
  return text.substr(0, characterOffset(text, count));
}

std::string_view characterSuffix(std::string_view text, std::size_t count) noexcept {
  const CharacterView view(text);
  CharacterView::Iterator first = view.end();
  for (; count > 0 && first != view.begin(); --count)
    --first;
  return text.substr(first.position());
}

std::optional<std::string_view> characterAt(std::string_view text, std::size_t index) noexcept {
  const std::size_t start = characterOffset(text, index);
  if (start == text.size()) return std::nullopt;
  return text.substr(start, characterEnd(text, start) - start);
}

std::vector<std::string_view> characters(std::string_view text) {
  std::vector<std::string_view> list;
  for (const std::string_view character : CharacterView(text))
    list.push_back(character);
  return list;
}

CharacterView::Iterator::Iterator(std::string_view text, std::size_t position)
    : text_(text), position_(position), end_(position < text.size() ? characterEnd(text, position) : position) {}

CharacterView::Iterator& CharacterView::Iterator::operator++() {
  if (regionalIndicatorsBefore_) {
    const std::optional<std::size_t> passed = regionalIndicatorsAlone(**this);
    if (passed) {
      *regionalIndicatorsBefore_ += *passed;
    } else {
      regionalIndicatorsBefore_.reset();
    }
  }
  position_ = end_;
  if (position_ < text_.size()) end_ = characterEnd(text_, position_);
  return *this;
}

CharacterView::Iterator& CharacterView::Iterator::operator--() {
  end_ = position_;
  position_ = stepBack(text_, position_, regionalIndicatorsBefore_);
  return *this;
}

}  // namespace tessary
