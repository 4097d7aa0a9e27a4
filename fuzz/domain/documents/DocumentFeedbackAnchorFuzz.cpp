// Any note on any text, against a search of every place by its written fingerprint.
//
// An input is a byte of choices, the first and the last line in two or sixteen bytes, and two texts apart by a NUL. The
// second text is the new revision. The first is the old one, whose lines give the anchor, or it is the anchor itself.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryDomain/documents/DocumentFeedbackAnchor.h"
#include "support/RecordRoundTrip.h"

using namespace tessary;
using tessary::testing::require;

namespace {

constexpr std::uint8_t hasLongNumbers = 1;
constexpr std::uint8_t isAnchorItself = 2;

std::int64_t takeNumber(std::string_view& rest, bool isLong) {
  std::int64_t number = 0;
  if (isLong && rest.size() >= sizeof number) {
    std::memcpy(&number, rest.data(), sizeof number);
    rest.remove_prefix(sizeof number);
  } else if (!rest.empty()) {
    number = static_cast<signed char>(rest.front());
    rest.remove_prefix(1);
  }
  return number;
}

/// The anchor as a fingerprint is written; absent where it spells no number of 64 bits.
std::optional<std::string> writtenAnchor(std::string_view anchor) {
  const bool isNegative = anchor.starts_with('-');
  if (isNegative || anchor.starts_with('+')) anchor.remove_prefix(1);
  if (anchor.empty() || anchor.find_first_not_of("0123456789abcdefABCDEF") != std::string_view::npos)
    return std::nullopt;
  std::string digits(anchor.substr(std::min(anchor.find_first_not_of('0'), anchor.size())));
  if (digits.size() > 16 || (isNegative && !digits.empty())) return std::nullopt;
  for (char& digit : digits) {
    if (digit >= 'A' && digit <= 'F') digit = static_cast<char>(digit - 'A' + 'a');
  }
  return std::string(16 - digits.size(), '0') + digits;
}

__extension__ using Wide = __int128;

DocumentFeedbackNote relocatedByDefinition(DocumentFeedbackNote note, std::string_view revision,
                                           std::string_view text) {
  const std::vector<std::string_view> lines = DocumentFeedbackAnchor::lines(text);
  const std::optional<std::string> anchor = writtenAnchor(note.anchor);
  const auto count = static_cast<Wide>(lines.size());
  const Wide span = Wide{note.endLine} - note.startLine + 1;
  const Wide old = Wide{note.startLine} - 1;
  note.isStale = true;
  if (span < 1 || span > count || !anchor) return note;
  std::optional<Wide> best;
  for (Wide position = 0; position + span <= count; ++position) {
    const auto window = std::span(lines).subspan(static_cast<std::size_t>(position), static_cast<std::size_t>(span));
    if (DocumentFeedbackAnchor::fingerprint(window) != anchor) continue;
    const auto distance = [&](Wide place) { return place < old ? old - place : place - old; };
    if (!best || distance(position) < distance(*best)) best = position;
  }
  if (!best) return note;
  note.isStale = false;
  note.revisionID = revision;
  note.startLine = static_cast<std::int64_t>(*best + 1);
  note.endLine = static_cast<std::int64_t>(*best + span);
  return note;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0 || size > 4'096) return 0;
  const std::uint8_t choices = data[0];
  std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::int64_t start = takeNumber(rest, (choices & hasLongNumbers) != 0);
  const std::int64_t end = takeNumber(rest, (choices & hasLongNumbers) != 0);
  const std::string_view before = rest.substr(0, rest.find('\0'));
  const std::string_view text = rest.substr(std::min(before.size() + 1, rest.size()));

  const std::vector<std::string_view> lines = DocumentFeedbackAnchor::lines(text);
  require(static_cast<std::ptrdiff_t>(lines.size()) == std::ranges::count(text, '\n') + 1);
  const std::optional<std::string> fingerprint = DocumentFeedbackAnchor::fingerprint(before, start, end);
  const bool isAnchor = (choices & isAnchorItself) != 0;
  const DocumentFeedbackNote note("n", "d", "old", start, end,
                                  isAnchor ? std::string(before) : fingerprint.value_or("absent"), "t", isAnchor,
                                  Date());
  const DocumentFeedbackNote relocated = DocumentFeedbackAnchor::relocate(note, "new", text);
  require(relocated == relocatedByDefinition(note, "new", text));
  if (!relocated.isStale) require(DocumentFeedbackAnchor::relocate(relocated, "new", text) == relocated);
  // The lines of the old revision stand in it where the note says.
  if (fingerprint && !isAnchor) {
    const DocumentFeedbackNote unmoved = DocumentFeedbackAnchor::relocate(note, "old", before);
    require(!unmoved.isStale && unmoved.startLine == start && unmoved.endLine == end);
  }
  return 0;
}
