#include "TessaryLocalization/SentenceExpression.h"

#include <algorithm>
#include <utility>

#include "TessaryPlatform/text/RegularExpression.h"
#include "TessaryPlatform/text/UTF8.h"
#include "TessaryPlatform/text/WhiteSpace.h"

namespace tessary {
namespace {

/// Where "$" matches first. The two parts of CR LF are not told apart: "$" does not match between them.
std::size_t endBeforeLineEnd(std::string_view text) {
  if (text.empty()) return 0;
  if (text.ends_with("\r\n")) return text.size() - 2;
  const std::size_t last = previousScalarStart(text, text.size());
  return isNewline(decodeScalar(text, last).scalar) ? last : text.size();
}

constexpr bool isScalarStart(std::string_view text, std::size_t position) {
  return position == text.size() || (static_cast<unsigned char>(text[position]) & 0xC0) != 0x80;
}

/// Every place at or behind `from` at which `literal` stands, in ascending order. An empty one stands between any two
/// scalars.
std::vector<std::size_t> placesOf(std::string_view literal, std::string_view text, std::size_t from) {
  std::vector<std::size_t> places;
  if (literal.empty()) {
    for (std::size_t position = from; position <= text.size(); ++position)
      if (isScalarStart(text, position)) places.push_back(position);
    return places;
  }
  for (std::size_t found = text.find(literal, from); found != std::string_view::npos;
       found = text.find(literal, found + 1))
    places.push_back(found);
  return places;
}

}  // namespace

StoredSentence::StoredSentence(std::string_view text) : text_(text), firstEnd_(endBeforeLineEnd(text)) {}

bool StoredSentence::isWithinReach(std::size_t from, std::size_t to) const {
  if (scalars_.empty()) count();
  return scalars_[to] - scalars_[from] <= maximumArgumentScalars && lineEnds_[to] == lineEnds_[from];
}

void StoredSentence::count() const {
  scalars_.resize(text_.size() + 1);
  lineEnds_.resize(text_.size() + 1);
  std::uint32_t scalars = 0;
  std::uint32_t lineEnds = 0;
  for (std::size_t position = 0; position < text_.size(); ++position) {
    scalars_[position] = scalars;
    lineEnds_[position] = lineEnds;
    if (!isScalarStart(text_, position)) continue;
    ++scalars;
    if (isNewline(decodeScalar(text_, position).scalar)) ++lineEnds;
  }
  scalars_.back() = scalars;
  lineEnds_.back() = lineEnds;
}

SentenceExpression::SentenceExpression(std::vector<std::string> literals) : literals_(std::move(literals)) {}

std::string SentenceExpression::pattern() const {
  std::string pattern = "^" + RegularExpression::escaped(literals_.front());
  for (std::size_t index = 1; index < literals_.size(); ++index)
    pattern += "(.{0,2048}?)" + RegularExpression::escaped(literals_[index]);
  return pattern + "$";
}

bool SentenceExpression::mayMatch(const StoredSentence& sentence) const {
  const std::string_view text = sentence.text();
  return text.starts_with(literals_.front()) &&
         (text.ends_with(literals_.back()) || text.substr(0, sentence.firstEnd()).ends_with(literals_.back()));
}

/// The good places of a literal that is not the first, in ascending order, from those of the one behind it.
std::vector<std::size_t> SentenceExpression::goodPlaces(const StoredSentence& sentence, std::size_t literal,
                                                        const std::vector<std::size_t>& next) const {
  const std::string& wanted = literals_[literal];
  std::vector<std::size_t> places = placesOf(wanted, sentence.text(), literals_.front().size());
  std::size_t nearest = next.size();
  std::size_t firstKept = places.size();
  for (std::size_t index = places.size(); index > 0; --index) {
    const std::size_t end = places[index - 1] + wanted.size();
    while (nearest > 0 && next[nearest - 1] >= end)
      --nearest;
    if (nearest == next.size() || !sentence.isWithinReach(end, next[nearest])) continue;
    places[--firstKept] = places[index - 1];
  }
  places.erase(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(firstKept));
  return places;
}

std::optional<std::vector<ByteRange>> SentenceExpression::match(const StoredSentence& sentence) const {
  if (!mayMatch(sentence)) return std::nullopt;
  const std::string_view text = sentence.text();
  const std::size_t start = literals_.front().size();

  // Without a group the one literal is the sentence.
  if (groupCount() == 0) {
    if (start != sentence.firstEnd() && start != sentence.lastEnd()) return std::nullopt;
    return std::vector<ByteRange>();
  }

  // The good places of each literal, the last first; `good[0]` belongs to the literal behind the first group.
  std::vector<std::vector<std::size_t>> good(groupCount());
  for (const std::size_t end : {sentence.firstEnd(), sentence.lastEnd()}) {
    const std::string& last = literals_.back();
    if (end < start + last.size() || !text.substr(0, end).ends_with(last)) continue;
    if (good.back().empty() || good.back().back() != end - last.size()) good.back().push_back(end - last.size());
  }
  for (std::size_t group = groupCount() - 1; group > 0; --group)
    good[group - 1] = goodPlaces(sentence, group, good[group]);

  // Each group ends at the nearest good place; only the first can find none.
  std::vector<ByteRange> groups;
  std::size_t position = start;
  for (std::size_t group = 0; group < groupCount(); ++group) {
    const auto place = std::ranges::lower_bound(good[group], position);
    if (place == good[group].end() || !sentence.isWithinReach(position, *place)) return std::nullopt;
    groups.push_back({.start = position, .end = *place});
    position = *place + literals_[group + 1].size();
  }
  return groups;
}

}  // namespace tessary
