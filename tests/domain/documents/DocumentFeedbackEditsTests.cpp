// Notes on texts that are edited at random, against the rule in its plainest form.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/DocumentFeedbackAnchor.h"
#include "TessaryPlatform/text/GraphemeClusters.h"

namespace tessary::DocumentFeedbackAnchor {
namespace {

// The rule, character by character and window by window.

std::vector<std::string> plainLines(std::string_view text) {
  std::vector<std::string> list = {""};
  for (const std::string_view character : CharacterView(text)) {
    if (character == "\n" || character == "\r\n") {
      list.emplace_back();
    } else {
      list.back() += character;
    }
  }
  return list;
}

std::uint64_t plainHash(std::uint64_t state, std::string_view bytes) {
  for (const char byte : bytes)
    state = (state ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
  return state;
}

std::uint64_t plainLineHash(std::string_view line) {
  std::vector<std::string_view> kept = characters(line);
  while (!kept.empty() && (kept.back() == " " || kept.back() == "\t"))
    kept.pop_back();
  std::uint64_t state = 0xCBF29CE484222325;
  for (const std::string_view character : kept)
    state = plainHash(state, character);
  return state;
}

std::uint64_t plainCombination(const std::vector<std::string>& list, std::size_t begin, std::size_t span) {
  std::uint64_t state = 0xCBF29CE484222325;
  for (std::size_t line = begin; line < begin + span; ++line) {
    std::string bytes;
    for (std::uint64_t rest = plainLineHash(list[line]), byte = 0; byte < 8; ++byte, rest /= 256)
      bytes += static_cast<char>(rest % 256);
    state = plainHash(state, bytes);
  }
  return state;
}

DocumentFeedbackNote plainRelocate(DocumentFeedbackNote note, std::string_view revision, std::string_view text) {
  const std::vector<std::string> list = plainLines(text);
  const auto count = static_cast<std::int64_t>(list.size());
  const std::int64_t span = note.endLine - note.startLine + 1;
  const std::int64_t old = note.startLine - 1;
  const std::uint64_t anchor = std::stoull(note.anchor, nullptr, 16);
  std::optional<std::int64_t> found;
  for (std::int64_t position = 0; span >= 1 && position + span <= count; ++position) {
    if (plainCombination(list, static_cast<std::size_t>(position), static_cast<std::size_t>(span)) != anchor) continue;
    if (!found || std::abs(position - old) < std::abs(*found - old)) found = position;
  }
  note.isStale = !found;
  if (found) {
    note.revisionID = revision;
    note.startLine = *found + 1;
    note.endLine = *found + span;
  }
  return note;
}

/// A text as lines with their ends, edited at random.
class EditedText {
 public:
  EditedText(std::uint64_t seed, std::vector<std::string> words) : random_(seed), words_(std::move(words)) {
    const std::size_t count = below(25);
    for (std::size_t line = 0; line < count; ++line)
      lines_.push_back({word(), ending()});
    last_ = word();
  }

  std::size_t below(std::size_t limit) { return random_() % limit; }

  [[nodiscard]] std::string text() const {
    std::string text;
    for (const Line& line : lines_)
      text.append(line.words).append(line.ending);
    return text + last_;
  }
  [[nodiscard]] std::size_t lineCount() const { return lines_.size() + 1; }

  void edit() {
    const std::size_t begin = below(lines_.size() + 1);
    const std::size_t end = begin + below(std::min<std::size_t>(lines_.size() - begin, 6) + 1);
    const std::vector<Line> piece(at(begin), at(end));
    switch (below(7)) {
      case 0:  // insert
        lines_.insert(at(begin), {word(), ending()});
        break;
      case 1:  // delete
        lines_.erase(at(begin), at(end));
        break;
      case 2:  // move
        lines_.erase(at(begin), at(end));
        lines_.insert(at(below(lines_.size() + 1)), piece.begin(), piece.end());
        break;
      case 3:  // duplicate
        if (lines_.size() < 60) lines_.insert(at(below(lines_.size() + 1)), piece.begin(), piece.end());
        break;
      case 4:  // other endings
        for (auto line = at(begin); line != at(end); ++line)
          line->ending = ending();
        break;
      case 5:  // blanks at ends
        for (auto line = at(begin); line != at(end); ++line)
          line->words += std::vector<std::string>{" ", "\t", "  \t", " \u0301", "\u0600 "}[below(5)];
        break;
      default:  // other words
        for (auto line = at(begin); line != at(end); ++line)
          line->words = word();
        if (below(4) == 0) last_ = word();
        break;
    }
  }

 private:
  struct Line {
    std::string words;
    std::string ending;
  };

  std::vector<Line>::iterator at(std::size_t index) { return lines_.begin() + static_cast<std::ptrdiff_t>(index); }
  std::string word() { return words_[below(words_.size())]; }
  std::string ending() { return below(2) == 0 ? "\n" : "\r\n"; }

  std::mt19937_64 random_;
  std::vector<std::string> words_;
  std::vector<Line> lines_;
  std::string last_;
};

void expectTheRule(std::uint64_t seed, const std::vector<std::string>& words) {
  EditedText edited(seed, words);
  const std::size_t start = edited.below(edited.lineCount());
  const std::size_t span = 1 + edited.below(std::min<std::size_t>(edited.lineCount() - start, 5));
  const std::string before = edited.text();
  const auto anchor =
      fingerprint(before, static_cast<std::int64_t>(start) + 1, static_cast<std::int64_t>(start + span));
  ASSERT_TRUE(anchor);
  DocumentFeedbackNote note("n", "d", "r0", static_cast<std::int64_t>(start) + 1,
                            static_cast<std::int64_t>(start + span), *anchor, "t", false, Date());
  for (int revision = 1; revision <= 8; ++revision) {
    for (std::size_t edits = edited.below(4); edits > 0; --edits)
      edited.edit();
    const std::string name = "r" + std::to_string(revision);
    const std::string text = edited.text();
    const DocumentFeedbackNote expected = plainRelocate(note, name, text);
    const DocumentFeedbackNote relocated = relocate(note, name, text);
    ASSERT_TRUE(relocated == expected) << "seed " << seed << ", revision " << revision << ": " << relocated.startLine
                                       << (relocated.isStale ? " stale" : "") << " instead of " << expected.startLine
                                       << (expected.isStale ? " stale" : "") << " in\n"
                                       << text;
    note = relocated;
    // Now and then somebody else's line numbers, so that the old place lies anywhere.
    if (edited.below(4) == 0) {
      const auto shift = static_cast<std::int64_t>(edited.below(41)) - 20;
      note.startLine += shift;
      note.endLine += shift;
    }
  }
}

TEST(FeedbackRelocate, FollowsRandomEditsOfFewDifferentLinesByTheRule) {
  for (std::uint64_t seed = 1; seed <= 600; ++seed)
    ASSERT_NO_FATAL_FAILURE(expectTheRule(seed, {"", "a"}));
}

TEST(FeedbackRelocate, FollowsRandomEditsByTheRule) {
  for (std::uint64_t seed = 1'001; seed <= 1'600; ++seed)
    ASSERT_NO_FATAL_FAILURE(expectTheRule(seed, {"", "a", " a", "a\r", "\r", "\r ", "b ", "b \u0301", "\u0301",
                                                 "\u0600", "\u0600 ", "계획", "e\u0301\t"}));
}

TEST(FeedbackLines, AreThoseOfTheCharacters) {
  const std::vector<std::string_view> pieces = {"\n", "\r", "a", " ", "\u0301", "\u0600", "\u200D", "\xE2"};
  // Every text of up to five pieces.
  std::size_t texts = 1;
  for (int length = 0; length <= 5; ++length, texts *= pieces.size()) {
    for (std::size_t number = 0; number < texts; ++number) {
      std::string text;
      std::size_t rest = number;
      for (int piece = 0; piece < length; ++piece, rest /= pieces.size())
        text += pieces[rest % pieces.size()];
      const std::vector<std::string_view> slices = lines(text);
      ASSERT_EQ(std::vector<std::string>(slices.begin(), slices.end()), plainLines(text));
    }
  }
}

}  // namespace
}  // namespace tessary::DocumentFeedbackAnchor
