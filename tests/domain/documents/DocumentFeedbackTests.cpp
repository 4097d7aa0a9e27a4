#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/DocumentFeedback.h"
#include "support/RecordSweep.h"
#include "support/Texts.h"

namespace tessary {
namespace {

using enum testing::SweepRule;
using enum JSONExpectation;
using testing::goldenText;
using testing::repeated;
using Kind = JSONDecodingError::Kind;

const std::vector<testing::SweepDate> dates = {{"2026-01-02T03:04:05Z", 789'015'845},
                                               {"2026-01-03T00:00:00Z", 789'091'200}};
const Date first = Date::fromSecondsSince2001(789'015'845);
const Date second = Date::fromSecondsSince2001(789'091'200);
constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

DocumentFeedbackNote note(std::string id) {
  return {std::move(id), "d", "r", 1, 1, "0123456789abcdef", "text", false, first, second};
}

DocumentFeedbackArchive archive() {
  DocumentFeedbackArchive archive({{"n1", "d1", "r1", 1, 1, "0123456789abcdef", "", false, first},
                                   {"n2", "d2", "r2", 7, 9, "a", "b", true, second, first}},
                                  {{"d1", {"d1", "r1", DocumentFeedbackRequestKind::revise, second}},
                                   {"d2", {"d3", "", DocumentFeedbackRequestKind::confirm, first}}});
  archive.version = 3;
  return archive;
}

TEST(DocumentFeedbackNoteRecord, HoldsToItsTableWithDatesInEachForm) {
  const DocumentFeedbackNote written("note-1", "document-1", "revision-2", 12, 14, "00f0a1b2c3d4e5f6",
                                     "왜 \"두 번\"?\nTwice.", true, first, second);
  for (const JSONDateForm form : testing::everyDateForm) {
    testing::sweepRecord(testing::inDateForm(goldenText("documents/DocumentFeedbackNote.json"), dates, form), written,
                         {{"id", required, text},
                          {"documentID", required, text},
                          {"revisionID", required, text},
                          {"startLine", required, integer},
                          {"endLine", required, integer},
                          {"anchor", required, text},
                          {"text", required, text},
                          {"isStale", required, boolean},
                          {"createdAt", required, date},
                          {"updatedAt", required, date}},
                         {.coder = {.dates = form}});
  }
}

TEST(DocumentFeedbackRequestRecord, HoldsToItsTableWithDatesInEachForm) {
  const DocumentFeedbackRequest written{"document-1", "revision-2", DocumentFeedbackRequestKind::question, first};
  for (const JSONDateForm form : testing::everyDateForm) {
    const std::vector<testing::SweepDate> dateOfRequest = {dates[0]};
    testing::sweepRecord(testing::inDateForm(goldenText("documents/DocumentFeedbackRequest.json"), dateOfRequest, form),
                         written,
                         {{"documentID", required, text},
                          {"revisionID", required, text},
                          {"kind", required, text, {.words = testing::SweepRow::Words::closed}},
                          {"sentAt", required, date}},
                         {.coder = {.dates = form}});
  }
}

TEST(DocumentFeedbackArchiveRecord, HoldsToItsTableWithDatesInEachForm) {
  for (const JSONDateForm form : testing::everyDateForm) {
    testing::sweepRecord(testing::inDateForm(goldenText("documents/DocumentFeedbackArchive.json"), dates, form),
                         archive(),
                         {{"version", required, integer},
                          {"notes", required, list, {.element = object}},
                          {"requests", required, object}},
                         {.coder = {.dates = form}});
  }
}

TEST(DocumentFeedbackArchiveRecord, OneBadNoteOrRequestFailsTheWholeFileAndIsNamed) {
  struct Row {
    std::string_view piece;
    /// The mark "^" shows the position of the error and is not part of the text.
    std::string_view by;
    Kind kind;
    JSONPath path;
    std::optional<JSONExpectation> expected;
  };
  const std::size_t zero = 0;
  const std::size_t one = 1;
  const std::vector<Row> rows = {
      {R"({"id":"n2",)", "^{", Kind::missingKey, {"notes", one, "id"}, std::nullopt},
      {R"("startLine":7)", R"("startLine":^7.0)", Kind::wrongType, {"notes", one, "startLine"}, integer},
      {R"("startLine":7)",
       R"("startLine":^9223372036854775808)",
       Kind::outOfRange,
       {"notes", one, "startLine"},
       integer},
      {R"("isStale":false)", R"("isStale":^0)", Kind::wrongType, {"notes", zero, "isStale"}, boolean},
      {R"("text":"b")", R"("text":^null)", Kind::nullValue, {"notes", one, "text"}, text},
      {R"("createdAt":"2026-01-03T00:00:00Z")",
       R"("createdAt":^789091200)",
       Kind::wrongType,
       {"notes", one, "createdAt"},
       date},
      {R"("kind":"revise")", R"("kind":^"Revise")", Kind::unknownRawValue, {"requests", "d1", "kind"}, text},
      {R"("d1":{)", R"("d1":^null,"d4":{)", Kind::nullValue, {"requests", "d1"}, object},
      {R"("kind":"confirm",)", R"()", Kind::missingKey, {"requests", "d2", "kind"}, std::nullopt},
  };
  for (const Row& row : rows) {
    std::string damaged = goldenText("documents/DocumentFeedbackArchive.json");
    damaged.replace(damaged.find(row.piece), row.piece.size(), row.by);
    std::size_t position = damaged.find('^');
    if (position == std::string::npos) {
      position = damaged.find(R"({"documentID":"d3")");
    } else {
      damaged.erase(position, 1);
    }
    const auto read = readJSON<DocumentFeedbackArchive>(damaged, {.dates = JSONDateForm::iso8601});
    ASSERT_FALSE(read) << damaged;
    EXPECT_EQ(read.error(), (JSONDecodingError{row.kind, row.path, row.expected, "", position, std::nullopt}))
        << damaged;
  }
}

TEST(DocumentFeedbackRequestKind, HasItsCasesInOrderAndIsKnownByItsRawValue) {
  using enum DocumentFeedbackRequestKind;
  EXPECT_EQ(allCases<DocumentFeedbackRequestKind>(), (std::array{revise, question, confirm}));
  EXPECT_EQ(id(revise), "revise");
  EXPECT_EQ(id(question), "question");
  EXPECT_EQ(id(confirm), "confirm");
}

TEST(DocumentFeedbackNote, IsUpdatedWhenCreatedUnlessItSaysOtherwise) {
  const DocumentFeedbackNote fresh("i", "d", "r", 1, 2, "a", "t", false, first);
  EXPECT_EQ(fresh.createdAt, first);
  EXPECT_EQ(fresh.updatedAt, first);
  const DocumentFeedbackNote edited("i", "d", "r", 1, 2, "a", "t", false, first, second);
  EXPECT_EQ(edited.createdAt, first);
  EXPECT_EQ(edited.updatedAt, second);
  EXPECT_NE(fresh, edited);
}

TEST(DocumentFeedbackNote, HasItsLimits) {
  EXPECT_EQ(DocumentFeedbackNote::maximumTextLength, 2'000);
  EXPECT_EQ(DocumentFeedbackNote::maximumLineSpan, 400);
  EXPECT_EQ(DocumentFeedbackArchive::maximumNotes, 5'000);
  EXPECT_EQ(DocumentFeedbackArchive::maximumRequests, 5'000);
}

TEST(DocumentFeedbackArchive, IsOfVersion1WhenMade) {
  EXPECT_EQ(writeJSON(DocumentFeedbackArchive::empty), R"({"version":1,"notes":[],"requests":{}})");
  EXPECT_EQ(DocumentFeedbackArchive({}, {}), DocumentFeedbackArchive::empty);
  const DocumentFeedbackArchive made(archive().notes, archive().requests);
  EXPECT_EQ(made.version, 1);
  EXPECT_EQ(made.notes, archive().notes);
  EXPECT_EQ(made.requests, archive().requests);
}

/// The archive of one note, validated: whether the note is still there.
bool isKept(const DocumentFeedbackNote& candidate) {
  const DocumentFeedbackArchive validated = DocumentFeedbackArchive({candidate}, {}).validated();
  if (validated.notes.empty()) return false;
  EXPECT_EQ(validated.notes, std::vector{candidate});
  return true;
}

TEST(ValidatedFeedback, AlwaysHasVersion1AndLeavesGoodContentsAlone) {
  for (const std::int64_t version : {least, std::int64_t{0}, std::int64_t{1}, std::int64_t{2}, greatest}) {
    DocumentFeedbackArchive given({note("b"), note("a")},
                                  {{"d", {"d", "r", DocumentFeedbackRequestKind::revise, first}}});
    const DocumentFeedbackArchive expected = given;
    given.version = version;
    EXPECT_EQ(given.validated(), expected);
  }
}

TEST(ValidatedFeedback, DropsNotesWithAnEmptyIdentifier) {
  EXPECT_TRUE(isKept(note("a")));
  EXPECT_FALSE(isKept(note("")));
  DocumentFeedbackNote candidate = note("a");
  candidate.documentID = "";
  EXPECT_FALSE(isKept(candidate));
  candidate = note("a");
  candidate.revisionID = "";
  EXPECT_FALSE(isKept(candidate));
}

TEST(ValidatedFeedback, DropsNotesOnLinesThatDoNotExistAndOnMoreThan400) {
  struct Row {
    std::int64_t startLine;
    std::int64_t endLine;
    bool isKept;
  };
  for (const Row& row : std::vector<Row>{{1, 1, true},
                                         {1, 399, true},
                                         {1, 400, true},
                                         {1, 401, false},
                                         {2, 401, true},
                                         {2, 402, false},
                                         {0, 0, false},
                                         {0, 1, false},
                                         {-1, 1, false},
                                         {2, 1, false},
                                         {1, 0, false},
                                         {greatest - 399, greatest, true},
                                         {greatest - 400, greatest, false},
                                         {greatest, greatest, true},
                                         {1, greatest, false},
                                         {least, greatest, false},
                                         {least, least, false},
                                         {greatest, least, false}}) {
    DocumentFeedbackNote candidate = note("a");
    candidate.startLine = row.startLine;
    candidate.endLine = row.endLine;
    EXPECT_EQ(isKept(candidate), row.isKept) << row.startLine << " to " << row.endLine;
  }
}

/// Pieces that are one character each, however often they follow one another.
const std::vector<std::string_view> characterPieces = {
    "a",
    "\xED\x95\x9C",                                // Hangul, composed
    "\u1112\u1161\u11AB",                          // the same in three jamo
    "e\u0301\u0302",                               // a letter with two marks
    "\U0001F468\u200D\U0001F469\u200D\U0001F467",  // a family
    "\U0001F44D\U0001F3FD",                        // a skin tone
    "\U0001F1F0\U0001F1F7",                        // a flag
    "\r\n",
    "\xFF",  // reads as one U+FFFD
};

TEST(ValidatedFeedback, CountsTheCharactersOfTheText) {
  for (const std::string_view piece : characterPieces) {
    DocumentFeedbackNote candidate = note("a");
    candidate.text = repeated(piece, 1'999);
    EXPECT_TRUE(isKept(candidate)) << piece;
    candidate.text = repeated(piece, 2'000);
    EXPECT_TRUE(isKept(candidate)) << piece;
    candidate.text = repeated(piece, 2'001);
    EXPECT_FALSE(isKept(candidate)) << piece;
  }
  DocumentFeedbackNote candidate = note("a");
  candidate.text = "";
  EXPECT_TRUE(isKept(candidate));
  // A thousand flags of two indicators, and one indicator more.
  candidate.text = repeated("\U0001F1F0", 4'000);
  EXPECT_TRUE(isKept(candidate));
  candidate.text += "\U0001F1F0";
  EXPECT_FALSE(isKept(candidate));
  // A carriage return and a line feed apart are two.
  candidate.text = repeated("\n\r", 1'000);
  EXPECT_TRUE(isKept(candidate));
  candidate.text = repeated("\n\r", 1'001);
  EXPECT_TRUE(isKept(candidate)) << "1,000 pairs between the first line feed and the last carriage return";
  candidate.text = "a" + repeated("\u0301", 100'000);
  EXPECT_TRUE(isKept(candidate));
}

TEST(ValidatedFeedback, CountsTheCharactersOfTheAnchor) {
  for (const std::string_view piece : characterPieces) {
    DocumentFeedbackNote candidate = note("a");
    candidate.anchor = repeated(piece, 31);
    EXPECT_TRUE(isKept(candidate)) << piece;
    candidate.anchor = repeated(piece, 32);
    EXPECT_TRUE(isKept(candidate)) << piece;
    candidate.anchor = repeated(piece, 33);
    EXPECT_FALSE(isKept(candidate)) << piece;
  }
  DocumentFeedbackNote candidate = note("a");
  candidate.anchor = "";
  EXPECT_TRUE(isKept(candidate));
}

TEST(ValidatedFeedback, KeepsTheFirstGoodNoteOfAnIdentifier) {
  DocumentFeedbackNote bad = note("a");
  bad.startLine = 0;
  DocumentFeedbackNote good = note("a");
  good.text = "good";
  DocumentFeedbackNote later = note("a");
  later.text = "later";
  // Identifiers are compared exactly: neither letter case nor composition makes two the same.
  const DocumentFeedbackArchive given({bad, note("A"), good, note("\u00E9"), later, note("e\u0301"), bad}, {});
  EXPECT_EQ(given.validated().notes, (std::vector{note("A"), good, note("\u00E9"), note("e\u0301")}));
}

TEST(ValidatedFeedback, KeepsTheLastOfTooManyNotes) {
  for (const std::size_t count : {std::size_t{4'999}, std::size_t{5'000}, std::size_t{5'001}, std::size_t{5'002}}) {
    std::vector<DocumentFeedbackNote> notes;
    for (std::size_t index = 0; index < count; ++index) {
      notes.push_back(note(std::to_string(index)));
      // Bad notes and repeated ones do not count.
      if (index % 1'000 == 0) notes.push_back(note(""));
      if (index % 1'000 == 1) notes.push_back(note("0"));
    }
    const std::size_t dropped = count < 5'000 ? 0 : count - 5'000;
    const DocumentFeedbackArchive validated = DocumentFeedbackArchive(std::move(notes), {}).validated();
    ASSERT_EQ(validated.notes.size(), count - dropped);
    for (std::size_t index = 0; index < validated.notes.size(); ++index)
      ASSERT_EQ(validated.notes[index].id, std::to_string(index + dropped));
  }
}

DocumentFeedbackRequest request(std::string document, Date sentAt) {
  return {std::move(document), "r", DocumentFeedbackRequestKind::confirm, sentAt};
}

TEST(ValidatedFeedback, DropsRequestsUnderAnotherKeyAndWithoutARevision) {
  DocumentFeedbackRequest withoutRevision = request("c", first);
  withoutRevision.revisionID = "";
  const DocumentFeedbackArchive given({}, {{"", request("", first)},
                                           {"a", request("a", first)},
                                           {"b", request("a", first)},
                                           {"c", withoutRevision},
                                           {"D", request("d", first)},
                                           {"e", request("", first)}});
  EXPECT_EQ(given.validated().requests,
            (DocumentFeedbackArchive::Requests{{"", request("", first)}, {"a", request("a", first)}}));
}

std::string numbered(std::size_t number) {
  std::string digits = std::to_string(number);
  return "d" + std::string(5 - digits.size(), '0') + digits;
}

TEST(ValidatedFeedback, KeepsTheNewestOfTooManyRequests) {
  for (const std::size_t count : {std::size_t{4'999}, std::size_t{5'000}, std::size_t{5'001}, std::size_t{5'003}}) {
    DocumentFeedbackArchive::Requests requests;
    DocumentFeedbackArchive::Requests expected;
    for (std::size_t index = 0; index < count; ++index) {
      // The times go up and down, so that neither end of the map is the old one.
      const std::size_t time = index * 3'571 % count;
      const DocumentFeedbackRequest sent = request(numbered(index), first + static_cast<double>(time));
      requests.emplace(sent.documentID, sent);
      if (count - time <= 5'000) expected.emplace(sent.documentID, sent);
    }
    // Those that are dropped for another reason take no place.
    requests.emplace("x", request("y", second + 1e6));
    const DocumentFeedbackArchive::Requests kept = DocumentFeedbackArchive({}, requests).validated().requests;
    EXPECT_EQ(kept.size(), std::min<std::size_t>(count, 5'000));
    EXPECT_EQ(kept, expected);
  }
}

TEST(ValidatedFeedback, OfRequestsOfOneTimeKeepsTheLowerDocuments) {
  DocumentFeedbackArchive::Requests requests;
  for (std::size_t index = 0; index < 5'002; ++index)
    requests.emplace(numbered(index), request(numbered(index), first));
  requests.at(numbered(5'001)).sentAt = second;
  const DocumentFeedbackArchive::Requests kept = DocumentFeedbackArchive({}, requests).validated().requests;
  EXPECT_EQ(kept.size(), 5'000);
  EXPECT_TRUE(kept.contains(numbered(4'998)));
  EXPECT_FALSE(kept.contains(numbered(4'999)));
  EXPECT_FALSE(kept.contains(numbered(5'000)));
  EXPECT_TRUE(kept.contains(numbered(5'001)));
}

TEST(ValidatedFeedback, CountsATimeThatIsNotDefinedAsOlderThanAny) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const Date undefined = Date::fromSecondsSince2001(std::numeric_limits<double>::quiet_NaN());
  DocumentFeedbackArchive::Requests requests;
  for (std::size_t index = 0; index < 5'003; ++index) {
    const bool isUndefined = index % 1'668 == 0;  // 0, 1668, 3336
    requests.emplace(numbered(index), request(numbered(index), isUndefined ? undefined : first));
  }
  requests.at(numbered(1)).sentAt = Date::fromSecondsSince2001(infinity);
  const DocumentFeedbackArchive::Requests kept = DocumentFeedbackArchive({}, requests).validated().requests;
  EXPECT_EQ(kept.size(), 5'000);
  for (std::size_t index = 0; index < 5'003; ++index)
    EXPECT_EQ(kept.contains(numbered(index)), index % 1'668 != 0) << index;

  // Where there is room they stay.
  EXPECT_EQ(DocumentFeedbackArchive({}, {{"a", request("a", undefined)}}).validated().requests.size(), 1);
  // Nothing but such times are sorted too.
  for (auto& [document, sent] : requests)
    sent.sentAt = undefined;
  EXPECT_EQ(DocumentFeedbackArchive({}, requests).validated().requests.size(), 5'000);
}

TEST(ValidatedFeedback, ChangesNothingWhenDoneAgain) {
  const DocumentFeedbackArchive once = archive().validated();
  EXPECT_EQ(once.version, 1);
  EXPECT_EQ(once.notes, archive().notes);
  EXPECT_EQ(once.requests, (DocumentFeedbackArchive::Requests{*archive().requests.find("d1")}));
  EXPECT_EQ(once.validated(), once);
}

}  // namespace
}  // namespace tessary
