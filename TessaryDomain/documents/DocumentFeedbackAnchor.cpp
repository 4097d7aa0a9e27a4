#include "TessaryDomain/documents/DocumentFeedbackAnchor.h"

#include <algorithm>

#include "TessaryDomain/documents/LineHashes.h"

namespace tessary::DocumentFeedbackAnchor {
namespace {

/// Gives the lines of a text one after another.
class LineWalk {
 public:
  explicit LineWalk(std::string_view text) : rest_(text) {}

  /// Absent behind the last line.
  std::optional<std::string_view> next() {
    if (isAtEnd_) return std::nullopt;
    // As characters, a line feed joins nothing but a carriage return before it, so bytes tell where lines end.
    const std::size_t feed = rest_.find('\n');
    std::string_view line = rest_.substr(0, feed);
    if (feed == std::string_view::npos) {
      isAtEnd_ = true;
      return line;
    }
    rest_.remove_prefix(feed + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

 private:
  std::string_view rest_;
  bool isAtEnd_ = false;
};

/// The first `count` lines, or all where there are fewer.
std::vector<std::string_view> firstLines(std::string_view text, std::size_t count) {
  std::vector<std::string_view> list;
  LineWalk walk(text);
  while (list.size() < count) {
    const std::optional<std::string_view> line = walk.next();
    if (!line) break;
    list.push_back(*line);
  }
  return list;
}

std::vector<std::uint64_t> hashesOf(std::span<const std::string_view> lines) {
  std::vector<std::uint64_t> hashes(lines.size());
  std::ranges::transform(lines, hashes.begin(), lineHash);
  return hashes;
}

std::string fingerprintOf(std::span<const std::uint64_t> lineHashes) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text(2 * sizeof(std::uint64_t), '0');
  std::uint64_t rest = combined(lineHashes);
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, rest >>= 4)
    *digit = digits[rest & 0xF];
  return text;
}

/// How many lines a note covers; absent where that is none, or more than `most`. Taken without the sum that overflows
/// for lines at the ends of 64 bits.
std::optional<std::size_t> spanOf(const DocumentFeedbackNote& note, std::size_t most) {
  if (note.endLine < note.startLine) return std::nullopt;
  const std::uint64_t difference =
      static_cast<std::uint64_t>(note.endLine) - static_cast<std::uint64_t>(note.startLine);
  if (difference >= most) return std::nullopt;
  return static_cast<std::size_t>(difference) + 1;
}

/// Where a note's lines stand now.
struct Place {
  /// The index of the first line, from 0.
  std::size_t position;
  std::size_t span;
};

std::optional<Place> find(const DocumentFeedbackNote& note, std::string_view text) {
  // One line too many is enough to know that there are.
  const std::vector<std::string_view> list = firstLines(text, maximumLines + 1);
  const std::optional<std::size_t> span = spanOf(note, list.size());
  const std::optional<std::uint64_t> anchor = anchorValue(note.anchor);
  if (!span || list.size() > maximumLines || !anchor) return std::nullopt;

  // The window at the old place. Where the text has none there, the window at that end of it: of all windows it is the
  // nearest to the old place, and another is the nearer to the old place the nearer it is to this one.
  const std::size_t last = list.size() - *span;
  const std::size_t near = note.startLine < 1 ? 0 : std::min(static_cast<std::size_t>(note.startLine - 1), last);

  // Mostly the lines have not moved, and then no others need to be hashed.
  const std::span<const std::string_view> covered = std::span(list).subspan(near, *span);
  if (combined(hashesOf(covered)) == *anchor) return Place{near, *span};

  const std::optional<std::size_t> position = nearestWindow(hashesOf(list), *span, *anchor, near);
  if (!position) return std::nullopt;
  return Place{*position, *span};
}

}  // namespace

std::vector<std::string_view> lines(std::string_view text) {
  return firstLines(text, std::string_view::npos);
}

std::string fingerprint(std::span<const std::string_view> lines) {
  return fingerprintOf(hashesOf(lines));
}

std::optional<std::string> fingerprint(std::string_view text, std::int64_t startLine, std::int64_t endLine) {
  if (startLine < 1 || endLine < startLine) return std::nullopt;
  std::vector<std::uint64_t> hashes;
  LineWalk walk(text);
  for (std::int64_t number = 1; number <= endLine; ++number) {
    const std::optional<std::string_view> line = walk.next();
    if (!line) return std::nullopt;
    if (number >= startLine) hashes.push_back(lineHash(*line));
  }
  return fingerprintOf(hashes);
}

DocumentFeedbackNote relocate(const DocumentFeedbackNote& note, std::string_view toRevision, std::string_view text) {
  DocumentFeedbackNote relocated = note;
  const std::optional<Place> place = find(note, text);
  relocated.isStale = !place;
  if (place) {
    relocated.revisionID = toRevision;
    relocated.startLine = static_cast<std::int64_t>(place->position) + 1;
    relocated.endLine = static_cast<std::int64_t>(place->position + place->span);
  }
  return relocated;
}

}  // namespace tessary::DocumentFeedbackAnchor
