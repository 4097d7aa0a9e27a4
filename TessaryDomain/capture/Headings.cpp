#include "TessaryDomain/capture/Headings.h"

#include <algorithm>

#include "TessaryPlatform/text/UTF8.h"

// How the expression is read. Let a line begin at `start`, behind U+000A or at the beginning of the text.
//
//   #{1,6}     The marks must be followed by white space, so they are the whole run of "#", or there is no match.
//   S+         takes all white space, line ends too. If the text goes on, what follows is neither white space nor
//              U+000A, and a match is certain: at the worst the rest of the line is the heading. So S+ never gives
//              anything back, unless it reaches the end of the text; then it gives back as little as lets group 1 have
//              a scalar that is no U+000A, and the rest of the expression takes the white space behind that.
//   [^\n]+?    ends at the first place behind one scalar from which the rest of its line is S*#*S*: where the white
//              space at the line's end, the marks before it, and the white space before those begin.
//   S*#*S*     are greedy and go on over line ends as long as a place to stop remains within reach, which is the end
//              of the text or a U+000A. From such a place the next search goes on.
//
// Each run is read at most a constant number of times, since a search goes on behind all but the last run of the
// match before, and a line that begins no match is left at its first scalar that does not fit.

namespace tessary::Headings {

namespace {

constexpr std::size_t mostMarks = 6;

std::size_t spacesEnd(std::string_view text, std::size_t position) {
  return text.size() - PythonText::stripStart(text.substr(position)).size();
}

std::size_t marksEnd(std::string_view text, std::size_t position) {
  return std::min(text.find_first_not_of('#', position), text.size());
}

/// The first line at or behind `position` that begins with a mark, or the end of the text.
std::size_t findMarkedLine(std::string_view text, std::size_t position) {
  // Marks are rarer than line ends, and so are what is looked for.
  for (position = text.find('#', position); position != std::string_view::npos;
       position = text.find('#', position + 1)) {
    if (position == 0 || text[position - 1] == '\n') return position;
  }
  return text.size();
}

/// Group 1 where nothing but the white space from `start` follows the marks.
std::optional<ByteRange> blankText(std::string_view text, std::size_t start) {
  // At the latest the mark before `start` is found.
  const std::size_t last = text.find_last_not_of('\n');
  if (last <= start) return std::nullopt;
  const std::size_t textStart = previousScalarStart(text, last + 1);
  if (textStart <= start) return std::nullopt;
  return ByteRange{.start = textStart, .end = last + 1};
}

/// Group 1 where it begins at `start`, with what is no white space.
ByteRange textFrom(std::string_view text, std::size_t start) {
  const std::string_view line = text.substr(start, text.find('\n', start) - start);
  const std::string_view marked = PythonText::strip(line);
  const std::string_view unmarked = marked.substr(0, marked.find_last_not_of('#') + 1);
  const std::size_t least = decodeScalar(line, 0).byteCount;
  return {.start = start, .end = start + std::max(PythonText::strip(unmarked).size(), least)};
}

/// Where the match ends whose group 1 ends at `position`.
std::size_t matchEnd(std::string_view text, std::size_t position) {
  const std::size_t marks = spacesEnd(text, position);
  const std::size_t spaces = marksEnd(text, marks);
  const std::size_t end = spacesEnd(text, spaces);
  if (end == text.size()) return end;
  const std::size_t behindMarks = text.substr(spaces, end - spaces).rfind('\n');
  if (behindMarks != std::string_view::npos) return spaces + behindMarks;
  return text.rfind('\n', marks - 1);
}

std::optional<Match> matchAt(std::string_view text, std::size_t start) {
  const std::size_t spaces = marksEnd(text, start);
  if (spaces - start > mostMarks) return std::nullopt;
  const std::size_t textStart = spacesEnd(text, spaces);
  if (textStart == spaces) return std::nullopt;
  const auto group = textStart < text.size() ? textFrom(text, textStart) : blankText(text, spaces);
  if (!group) return std::nullopt;
  return Match{.whole = {.start = start, .end = matchEnd(text, group->end)}, .text = *group};
}

}  // namespace

std::optional<Match> find(std::string_view text, std::size_t from) {
  for (std::size_t start = findMarkedLine(text, from); start < text.size(); start = findMarkedLine(text, start + 1)) {
    if (const auto match = matchAt(text, start)) return match;
  }
  return std::nullopt;
}

std::vector<std::string_view> matches(std::string_view text, std::size_t limit) {
  std::vector<std::string_view> texts;
  for (std::size_t from = 0; texts.size() < limit;) {
    const auto match = find(text, from);
    if (!match) break;
    texts.push_back(match->text.in(text));
    from = match->whole.end;
  }
  return texts;
}

}  // namespace tessary::Headings
