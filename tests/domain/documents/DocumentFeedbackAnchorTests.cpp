#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/DocumentFeedbackAnchor.h"

namespace tessary::DocumentFeedbackAnchor {
namespace {

using Slices = std::vector<std::string_view>;

constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

// The fingerprints here were worked out apart from this code, by a few lines in another language.
constexpr std::string_view fingerprintOfEmptyLine = "f4ed18ebf16aa5cc";
constexpr std::string_view fingerprintOfA = "db00b066433b2f78";

TEST(FeedbackLines, AreWhatStandsBetweenLineFeeds) {
  EXPECT_EQ(lines(""), (Slices{""}));
  EXPECT_EQ(lines("a"), (Slices{"a"}));
  EXPECT_EQ(lines("a\n"), (Slices{"a", ""}));
  EXPECT_EQ(lines("\n"), (Slices{"", ""}));
  EXPECT_EQ(lines("\n\n\n"), (Slices{"", "", "", ""}));
  EXPECT_EQ(lines("a\n\nb"), (Slices{"a", "", "b"}));
  EXPECT_EQ(lines(" a \r\n\tb\r\n"), (Slices{" a ", "\tb", ""}));
  // Nothing else is a line end here.
  EXPECT_EQ(lines("a\vb\fc\u0085d\u2028e\u2029f"), (Slices{"a\vb\fc\u0085d\u2028e\u2029f"}));
}

TEST(FeedbackLines, KeepACarriageReturnThatStandsAlone) {
  EXPECT_EQ(lines("\r"), (Slices{"\r"}));
  EXPECT_EQ(lines("a\rb"), (Slices{"a\rb"}));
  EXPECT_EQ(lines("a\r"), (Slices{"a\r"}));
  EXPECT_EQ(lines("a\r\r\nb"), (Slices{"a\r", "b"}));
  EXPECT_EQ(lines("a\n\rb"), (Slices{"a", "\rb"}));
  EXPECT_EQ(lines("\r\n\r"), (Slices{"", "\r"}));
  EXPECT_EQ(lines("\r\r\n\n"), (Slices{"\r", "", ""}));
}

TEST(FeedbackLines, AreSlicesOfTheText) {
  const std::string text = "one\r\ntwo\n";
  const Slices slices = lines(text);
  ASSERT_EQ(slices.size(), 3);
  EXPECT_EQ(slices[0].data(), text.data());
  EXPECT_EQ(slices[1].data(), text.data() + 5);
}

TEST(FeedbackLines, EndAtALineFeedWhateverStandsAroundIt) {
  // A mark behind a line feed, a prepended mark before one, a joiner, broken UTF-8 before one.
  EXPECT_EQ(lines("a\n\u0301b"), (Slices{"a", "\u0301b"}));
  EXPECT_EQ(lines("a\u0600\nb"), (Slices{"a\u0600", "b"}));
  EXPECT_EQ(lines("a\u200D\r\nb"), (Slices{"a\u200D", "b"}));
  EXPECT_EQ(lines("a\xE2\x80\nb"), (Slices{"a\xE2\x80", "b"}));
}

std::string fingerprintOf(const Slices& slices) {
  return fingerprint(slices);
}

TEST(FeedbackFingerprint, IsTheCombinationOfTheHashesOfLines) {
  EXPECT_EQ(fingerprintOf({}), "cbf29ce484222325");
  EXPECT_EQ(fingerprintOf({""}), fingerprintOfEmptyLine);
  EXPECT_EQ(fingerprintOf({"", ""}), "64b9bc1dafc8c0a5");
  EXPECT_EQ(fingerprintOf({"a"}), fingerprintOfA);
  EXPECT_EQ(fingerprintOf({"b"}), "100b41d8c0d1f2cb");
  EXPECT_EQ(fingerprintOf({"계획"}), "f9ef6901490db6e0");
  EXPECT_EQ(fingerprintOf({"alpha", "  beta"}), "39ea9f2b04f71a6e");
}

TEST(FeedbackFingerprint, HasZerosOnTheLeft) {
  EXPECT_EQ(fingerprintOf({"line 368"}), "000a60672c87f9b3");
}

TEST(FeedbackFingerprint, DropsBlanksAtTheEndOfALine) {
  for (const char* line : {"a ", "a\t", "a \t  \t\t", "a                                 "})
    EXPECT_EQ(fingerprintOf({line}), fingerprintOfA) << line;
  for (const char* line : {" ", "\t", "\t \t "})
    EXPECT_EQ(fingerprintOf({line}), fingerprintOfEmptyLine) << line;
}

TEST(FeedbackFingerprint, KeepsEverythingElse) {
  for (const char* line : {" a", "\ta", "a\r", "a \r", "a\u00A0", "a\u3000", "a\v", "a\f", "a\u2028", "a.", "a  b"})
    EXPECT_NE(fingerprintOf({line}), fingerprintOfA) << line;
  // Blanks before something that stays, stay.
  EXPECT_NE(fingerprintOf({"a \r"}), fingerprintOf({"a\r"}));
  EXPECT_NE(fingerprintOf({"a \u00A0"}), fingerprintOf({"a\u00A0"}));
}

TEST(FeedbackFingerprint, KeepsABlankThatIsPartOfALongerCharacter) {
  // A space with a mark is no blank, nor is one behind a mark that takes what follows.
  EXPECT_NE(fingerprintOf({"a \u0301"}), fingerprintOfA);
  EXPECT_EQ(fingerprintOf({"a \u0301 \t"}), fingerprintOf({"a \u0301"}));
  EXPECT_NE(fingerprintOf({"a \u0301"}), fingerprintOf({"a\u0301"}));
  EXPECT_NE(fingerprintOf({"a \u200D"}), fingerprintOf({"a"}));
  EXPECT_NE(fingerprintOf({"a\u0600 "}), fingerprintOf({"a\u0600"}));
  EXPECT_EQ(fingerprintOf({"a\u0600  "}), fingerprintOf({"a\u0600 "}));
  // A tab takes no mark and is taken by none.
  EXPECT_EQ(fingerprintOf({"a\u0600\t"}), fingerprintOf({"a\u0600"}));
  EXPECT_NE(fingerprintOf({"a\t\u0301"}), fingerprintOf({"a\u0301"}));
  // Behind a mark, a space is a character of its own.
  EXPECT_EQ(fingerprintOf({"a\u0301 "}), fingerprintOf({"a\u0301"}));
  EXPECT_EQ(fingerprintOf({"\U0001F1F0 "}), fingerprintOf({"\U0001F1F0"}));
  EXPECT_EQ(fingerprintOf({"\U0001F468\u200D "}), fingerprintOf({"\U0001F468\u200D"}));
}

TEST(FeedbackFingerprint, HashesExactlyWhatIsLeftOfALine) {
  EXPECT_EQ(fingerprintOf({"x \u0301  "}), "4aa84a43721f0781");         // x, space, mark
  EXPECT_EQ(fingerprintOf({"\u0600  \t "}), "e348a99c0279c51a");        // the prepended mark and its space
  EXPECT_EQ(fingerprintOf({"\u0600\t "}), "70c16611746da126");          // the prepended mark alone
  EXPECT_EQ(fingerprintOf({"a\t\u0301"}), "e98805e542dcdbfb");          // all of it
  EXPECT_EQ(fingerprintOf({"a \r"}), "0d0cf6d433098d31");               // all of it
  EXPECT_EQ(fingerprint("a\n\u0301b \r\n", 1, 2), "1759f51caf8f4338");  // a; mark, b
}

TEST(FeedbackFingerprint, ReadsBrokenBytesAsReplacementCharacters) {
  EXPECT_EQ(fingerprintOf({"\uFFFD"}), "4e21cb273edda7c6");
  for (const char* line : {"\xFF", "\xFF ", "\xE2\x80", "\xF0\x9F\x98\t"})
    EXPECT_EQ(fingerprintOf({line}), fingerprintOf({"\uFFFD"}));
  EXPECT_EQ(fingerprintOf({"a\xC0\xAFz"}), fingerprintOf({"a\uFFFD\uFFFDz"}));
}

TEST(FeedbackFingerprint, OfLinesOfATextIsThatOfTheLines) {
  const std::string text = "a\n  beta\nalpha \r\n  beta\t\n";
  EXPECT_EQ(fingerprint(text, 1, 1), fingerprintOfA);
  EXPECT_EQ(fingerprint(text, 3, 4), "39ea9f2b04f71a6e");
  EXPECT_EQ(fingerprint(text, 5, 5), fingerprintOfEmptyLine);
  EXPECT_EQ(fingerprint(text, 1, 5), fingerprintOf({"a", "  beta", "alpha", "  beta", ""}));
  EXPECT_EQ(fingerprint("", 1, 1), fingerprintOfEmptyLine);
}

TEST(FeedbackFingerprint, IsAbsentForLinesThatTheTextDoesNotHave) {
  const std::string text = "a\nb\nc";
  EXPECT_TRUE(fingerprint(text, 3, 3));
  for (const auto& [start, end] : std::vector<std::pair<std::int64_t, std::int64_t>>{{0, 0},
                                                                                     {0, 1},
                                                                                     {-1, 2},
                                                                                     {2, 1},
                                                                                     {3, 4},
                                                                                     {4, 4},
                                                                                     {1, 4},
                                                                                     {1, greatest},
                                                                                     {greatest, greatest},
                                                                                     {least, least},
                                                                                     {least, greatest},
                                                                                     {least, 1},
                                                                                     {greatest, least}})
    EXPECT_EQ(fingerprint(text, start, end), std::nullopt) << start << " to " << end;
  EXPECT_EQ(fingerprint("", 1, 2), std::nullopt);
}

TEST(FeedbackFingerprint, DoesNotKnowLineEndings) {
  EXPECT_EQ(fingerprint("a\r\nb\r\nc", 1, 3), fingerprint("a\nb\nc", 1, 3));
  EXPECT_EQ(fingerprint("a\r\nb\nc", 1, 3), fingerprint("a\nb\r\nc", 1, 3));
  EXPECT_EQ(fingerprint("a\rb\rc", 1, 3), std::nullopt);
  EXPECT_NE(fingerprint("a\r\r\nb", 1, 2), fingerprint("a\nb", 1, 2));
}

/// A note on lines of a text, stale or not, in revision "old".
DocumentFeedbackNote noteOn(std::string_view text, std::int64_t startLine, std::int64_t endLine, bool isStale = false) {
  const Date created = Date::fromSecondsSince2001(1);
  return {"n",     "d",     "old",   startLine,  endLine, fingerprint(text, startLine, endLine).value_or("absent"),
          "words", isStale, created, created + 1};
}

/// What a note becomes when its lines stand at `startLine` in revision "new".
DocumentFeedbackNote foundAt(DocumentFeedbackNote note, std::int64_t startLine) {
  note.endLine = startLine + (note.endLine - note.startLine);
  note.startLine = startLine;
  note.revisionID = "new";
  note.isStale = false;
  return note;
}

DocumentFeedbackNote lost(DocumentFeedbackNote note) {
  note.isStale = true;
  return note;
}

/// GoogleTest would show a note's bytes.
std::string shown(const DocumentFeedbackNote& note) {
  return note.revisionID + " " + std::to_string(note.startLine) + "-" + std::to_string(note.endLine) +
         (note.isStale ? " stale" : " found");
}

void expectRelocated(const DocumentFeedbackNote& note, std::string_view text, const DocumentFeedbackNote& expected) {
  const DocumentFeedbackNote relocated = relocate(note, "new", text);
  EXPECT_EQ(shown(relocated), shown(expected)) << text;
  EXPECT_TRUE(relocated == expected) << "anchor, text or dates have changed";
}

TEST(FeedbackRelocate, LeavesANoteWhereItsLinesStillAre) {
  const DocumentFeedbackNote note = noteOn("x\na\nb\ny", 2, 3);
  expectRelocated(note, "x\na\nb\ny", foundAt(note, 2));
  expectRelocated(note, "other\na\nb", foundAt(note, 2));
  expectRelocated(note, "x\r\na\r\nb\r\n", foundAt(note, 2));
  expectRelocated(note, "x\na  \nb\t\ny", foundAt(note, 2));
}

TEST(FeedbackRelocate, LosesANoteWhoseLinesChanged) {
  const DocumentFeedbackNote note = noteOn("x\na\nb\ny", 2, 3);
  for (const char* text : {"x\n a\nb\ny", "x\na\nb.\ny", "x\na\n\nb\ny", "x\nb\na\ny", "x\na", "", "\n\n\n\n\n",
                           "x\na\rb\ny", "x\na\r\r\nb\ny"})
    expectRelocated(note, text, lost(note));
}

TEST(FeedbackRelocate, FollowsLinesThatMoved) {
  const DocumentFeedbackNote note = noteOn("x\na\nb\ny", 2, 3);
  expectRelocated(note, "a\nb\ny", foundAt(note, 1));
  expectRelocated(note, "1\n2\n3\n4\na\nb", foundAt(note, 5));
  // The old place is beyond the end.
  const DocumentFeedbackNote deep = noteOn("1\n2\n3\n4\n5\na\nb", 6, 7);
  expectRelocated(deep, "a\nb", foundAt(deep, 1));
  expectRelocated(deep, "a\nb\nc\na\nb\nd", foundAt(deep, 4));
}

TEST(FeedbackRelocate, TakesTheNearestCopyAndOfTwoTheUpper) {
  const DocumentFeedbackNote note = noteOn("1\n2\n3\n4\na\n6", 5, 5);
  // The old place wins wherever copies are.
  expectRelocated(note, "a\na\na\na\na\na\na", foundAt(note, 5));
  expectRelocated(note, "1\n2\n3\na\na\na", foundAt(note, 5));
  expectRelocated(note, "1\n2\n3\na\n5\na", foundAt(note, 4));
  expectRelocated(note, "1\n2\na\n4\n5\n6\na", foundAt(note, 3));
  expectRelocated(note, "1\na\n3\n4\n5\n6\na", foundAt(note, 7));
  expectRelocated(note, "a\n2\n3\n4\n5\n6\n7\n8\n9\n10", foundAt(note, 1));
  expectRelocated(note, "a\na\n3\n4\n5", foundAt(note, 2));
  expectRelocated(note, "1\n2\n3\n4\n5\n6\n7\n8\na\na", foundAt(note, 9));
}

TEST(FeedbackRelocate, TakesTheNearestOfOverlappingCopies) {
  const DocumentFeedbackNote note = noteOn("a\na\na\nb\nc", 1, 2);
  expectRelocated(note, "b\na\na\na\na", foundAt(note, 2));
  DocumentFeedbackNote below = note;
  below.startLine = 100;
  below.endLine = 101;
  expectRelocated(below, "b\na\na\na\na", foundAt(below, 4));
}

TEST(FeedbackRelocate, FindsAStaleNoteAgainWhenItsLinesReturn) {
  const std::string text = "x\na\nb\ny";
  const DocumentFeedbackNote note = noteOn(text, 2, 3);
  const DocumentFeedbackNote stale = relocate(note, "between", "x\ny");
  EXPECT_EQ(shown(stale), "old 2-3 stale");
  expectRelocated(stale, text, foundAt(note, 2));
  expectRelocated(stale, "a\nb", foundAt(note, 1));
  expectRelocated(stale, "z", lost(note));
}

TEST(FeedbackRelocate, LosesANoteOfMoreLinesThanTheText) {
  const DocumentFeedbackNote note = noteOn("a\na\na", 1, 3);
  expectRelocated(note, "a\na\na", foundAt(note, 1));
  expectRelocated(note, "a\na", lost(note));
  expectRelocated(note, "", lost(note));
}

TEST(FeedbackRelocate, ReadsAnchorsByTheirValue) {
  const std::string text = "x\na";
  struct Row {
    std::string anchor;
    bool isFound;
  };
  for (const Row& row : std::vector<Row>{{"db00b066433b2f78", true},
                                         {"DB00B066433B2F78", true},
                                         {"Db00b066433B2f78", true},
                                         {"+db00b066433b2f78", true},
                                         {"000000000000000000db00b066433b2f78", true},
                                         {"+0db00b066433b2f78", true},
                                         {"-db00b066433b2f78", false},
                                         {"++db00b066433b2f78", false},
                                         {"+-db00b066433b2f78", false},
                                         {"1db00b066433b2f78", false},
                                         {"db00b066433b2f780", false},
                                         {"10000000000000000db00b066433b2f78", false},
                                         {"db00b066433b2f7", false},
                                         {"0xdb00b066433b2f78", false},
                                         {" db00b066433b2f78", false},
                                         {"db00b066433b2f78 ", false},
                                         {"db00b066433b2f7g", false},
                                         {std::string("db00b066433b2f78\0", 17), false},
                                         {"db00_b066433b2f78", false},
                                         {"ｄb00b066433b2f78", false},
                                         {"", false},
                                         {"+", false},
                                         {"-", false},
                                         {"0", false},
                                         {"ffffffffffffffff", false}}) {
    DocumentFeedbackNote note = noteOn(text, 2, 2);
    note.anchor = row.anchor;
    expectRelocated(note, text, row.isFound ? foundAt(note, 2) : lost(note));
  }
}

TEST(FeedbackRelocate, SurvivesLinesAtTheEndsOf64Bits) {
  const std::string text = "a\nx\na\nx";
  const DocumentFeedbackNote note = noteOn(text, 1, 1);
  struct Row {
    std::int64_t startLine;
    std::int64_t endLine;
    /// 0 where the note is lost.
    std::int64_t foundAt;
  };
  for (const Row& row : std::vector<Row>{{greatest, greatest, 3},
                                         {least, least, 1},
                                         {0, 0, 1},
                                         {-5, -5, 1},
                                         {greatest, least, 0},
                                         {least, greatest, 0},
                                         {1, greatest, 0},
                                         {0, greatest, 0},
                                         {-1, greatest, 0},
                                         {least, -1, 0},
                                         {least, 0, 0},
                                         {2, 1, 0},
                                         {1, 0, 0},
                                         {greatest - 3, greatest, 0},
                                         {5, 8, 0}}) {
    DocumentFeedbackNote placed = note;
    placed.startLine = row.startLine;
    placed.endLine = row.endLine;
    if (row.foundAt == 0) {
      expectRelocated(placed, text, lost(placed));
    } else {
      expectRelocated(placed, text, foundAt(placed, row.foundAt));
    }
  }
  // All 2^64 lines are not none, whose fingerprint would be the offset basis.
  DocumentFeedbackNote all = note;
  all.startLine = least;
  all.endLine = greatest;
  all.anchor = "cbf29ce484222325";
  expectRelocated(all, text, lost(all));
  // Four lines, found whole wherever they were.
  DocumentFeedbackNote whole = noteOn(text, 1, 4);
  for (const std::int64_t start : {greatest - 3, least, std::int64_t{-1}, std::int64_t{2}}) {
    whole.startLine = start;
    whole.endLine = start + 3;
    expectRelocated(whole, text, foundAt(whole, 1));
  }
}

TEST(FeedbackRelocate, LosesANoteOfNoLinesWhateverItsAnchorSays) {
  // The combination of no lines; a number of lines taken in 64 bits would come round to none for the last two.
  DocumentFeedbackNote note = noteOn("a", 1, 1);
  note.anchor = fingerprintOf({});
  for (const auto& [start, end] : std::vector<std::pair<std::int64_t, std::int64_t>>{
           {1, 0}, {2, 1}, {greatest, greatest - 1}, {0, -1}, {greatest, least}, {least, greatest}}) {
    note.startLine = start;
    note.endLine = end;
    for (const char* text : {"", "a", "a\nb\n"})
      expectRelocated(note, text, lost(note));
  }
}

TEST(FeedbackRelocate, SearchesNoTextOfMoreThan50000Lines) {
  EXPECT_EQ(maximumLines, 50'000);
  std::string text(49'998, '\n');
  text += "a";  // 49,999 lines
  const DocumentFeedbackNote note = noteOn("a", 1, 1);
  for (const std::int64_t count : {49'999, 50'000}) {
    expectRelocated(note, text, foundAt(note, count));
    text.insert(0, "\n");
  }
  expectRelocated(note, text, lost(note));
  // Not even where the note was.
  DocumentFeedbackNote there = note;
  there.startLine = there.endLine = 50'001;
  expectRelocated(there, text, lost(there));
  text.pop_back();
  DocumentFeedbackNote onTop = noteOn("\n", 1, 1);
  expectRelocated(onTop, text, lost(onTop));
  text.pop_back();
  expectRelocated(onTop, text, foundAt(onTop, 1));
}

TEST(FeedbackRelocate, FollowsANoteOfMoreLinesThanAnArchiveKeeps) {
  std::string text;
  for (int line = 0; line < 1'000; ++line)
    text += std::to_string(line) + "\n";
  const DocumentFeedbackNote note = noteOn(text, 101, 900);
  expectRelocated(note, "new\n" + text, foundAt(note, 102));
}

}  // namespace
}  // namespace tessary::DocumentFeedbackAnchor
