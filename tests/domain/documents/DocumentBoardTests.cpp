#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/DocumentBoardArchive.h"
#include "support/RecordSweep.h"

namespace tessary {
namespace {

using testing::everyDateForm;
using testing::goldenText;
using testing::inDateForm;
using testing::sweepRecord;
using testing::SweepRow;
using enum testing::SweepRule;
using enum JSONExpectation;

constexpr testing::SweepDate sooner{"2026-01-02T03:04:05Z", 789'015'845};
constexpr testing::SweepDate later{"2026-01-03T00:00:00Z", 789'091'200};

Date dateOf(const testing::SweepDate& date) {
  return Date::fromSecondsSince2001(static_cast<double>(date.secondsSince2001));
}

TEST(BoardPoint, IsReadAndWrittenByItsTable) {
  sweepRecord<BoardPoint>(goldenText("documents/BoardPoint.json"), {-12.5, 100'000, 0.001},
                          {{"x", required, number}, {"y", required, number}, {"z", required, number}});
}

TEST(BoardPoint, CannotBeWrittenWithAnInfiniteCoordinate) {
  const auto written = writeJSON(BoardPoint{.x = 0, .y = 1 / 0.0, .z = 0});
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().path, (JSONPath{"y"}));
}

TEST(DocumentBoardNode, IsReadAndWrittenByItsTable) {
  const DocumentBoardNode node{.id = "n-1",
                               .kind = BoardNodeKind::document,
                               .documentID = "d_1",
                               .title = "계획 \"A\"",
                               .note = "One\nTwo",
                               .position = {.x = 1, .y = -2.5, .z = 0},
                               .display = BoardNodeDisplay::summary,
                               .color = BoardNodeColor::rose,
                               .date = "2024-02-29"};
  sweepRecord(goldenText("documents/DocumentBoardNode.json"), node,
              {{"id", required, text},
               {"kind", required, text, {.words = SweepRow::Words::closed}},
               {"documentID", optional, text},
               {"title", required, text},
               {"note", required, text},
               {"position", required, object},
               {"display", required, text, {.words = SweepRow::Words::closed}},
               {"color", required, text, {.words = SweepRow::Words::closed}},
               {"date", optional, text}});
}

TEST(DocumentBoardEdge, IsReadAndWrittenByItsTable) {
  const DocumentBoardEdge edge{.id = "e1",
                               .fromNodeID = "n-1",
                               .toNodeID = "n-2",
                               .label = "leads to",
                               .direction = BoardEdgeDirection::bidirectional};
  sweepRecord(goldenText("documents/DocumentBoardEdge.json"), edge,
              {{"id", required, text},
               {"fromNodeID", required, text},
               {"toNodeID", required, text},
               {"label", required, text},
               {"direction", required, text, {.words = SweepRow::Words::closed}}});
}

TEST(DocumentBoard, IsReadAndWrittenByItsTableInEachFormOfDates) {
  const DocumentBoardNode ada{.id = "n1",
                              .kind = BoardNodeKind::person,
                              .title = "Ada",
                              .note = "",
                              .position = {.x = 0, .y = 0, .z = 1},
                              .display = BoardNodeDisplay::icon,
                              .color = BoardNodeColor::amber};
  const DocumentBoardNode fair{.id = "n2",
                               .kind = BoardNodeKind::event,
                               .title = "Fair",
                               .note = "",
                               .position = {.x = 10, .y = 20, .z = 2},
                               .display = BoardNodeDisplay::title,
                               .color = BoardNodeColor::gray,
                               .date = "2026-05-01"};
  const DocumentBoard board{
      .id = "b1",
      .title = "Spring",
      .nodes = {ada, fair},
      .edges =
          {{.id = "e1", .fromNodeID = "n1", .toNodeID = "n2", .label = "", .direction = BoardEdgeDirection::forward}},
      .updatedAt = dateOf(sooner)};
  for (const JSONDateForm form : everyDateForm) {
    sweepRecord(inDateForm(goldenText("documents/DocumentBoard.json"), {sooner}, form), board,
                {{"id", required, text},
                 {"title", required, text},
                 {"nodes", required, list, {.element = object}},
                 {"edges", required, list, {.element = object}},
                 {"updatedAt", required, date}},
                {.coder = {.dates = form}});
  }
}

TEST(DocumentBoardArchive, IsReadAndWrittenByItsTableInEachFormOfDates) {
  const DocumentBoardNode node{.id = "n1",
                               .kind = BoardNodeKind::note,
                               .title = "t",
                               .note = "n",
                               .position = {},
                               .display = BoardNodeDisplay::title,
                               .color = BoardNodeColor::blue};
  const DocumentBoardArchive archive{
      .schemaVersion = 1,
      .boards = {{.id = "b2", .title = "Later", .nodes = {}, .edges = {}, .updatedAt = dateOf(later)},
                 {.id = "b1", .title = "Sooner", .nodes = {node}, .edges = {}, .updatedAt = dateOf(sooner)}}};
  for (const JSONDateForm form : everyDateForm) {
    sweepRecord(inDateForm(goldenText("documents/DocumentBoardArchive.json"), {sooner, later}, form), archive,
                {{"schemaVersion", required, integer}, {"boards", required, list, {.element = object}}},
                {.coder = {.dates = form}});
  }
}

TEST(DocumentBoardArchive, IsEmptyOfTheFirstVersion) {
  EXPECT_EQ(DocumentBoardArchive::empty.schemaVersion, 1);
  EXPECT_TRUE(DocumentBoardArchive::empty.boards.empty());
  EXPECT_EQ(writeJSON(DocumentBoardArchive::empty), R"({"schemaVersion":1,"boards":[]})");
}

TEST(DocumentBoardArchive, NamesThePlaceOfABadFieldDeepInside) {
  std::string text = goldenText("documents/DocumentBoardArchive.json");
  const std::size_t at = text.find("\"blue\"");
  ASSERT_NE(at, std::string::npos);
  text.replace(at, 6, "\"cyan\"");
  const auto read = readJSON<DocumentBoardArchive>(text, {.dates = JSONDateForm::iso8601});
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().kind, JSONDecodingError::Kind::unknownRawValue);
  EXPECT_EQ(read.error().path, (JSONPath{"boards", std::size_t{1}, "nodes", std::size_t{0}, "color"}));
  EXPECT_EQ(read.error().position, at);
}

TEST(DocumentBoardArchive, IsReadWithoutBeingChecked) {
  const auto read = readJSON<DocumentBoardArchive>(
      R"({"schemaVersion":2,"boards":[{"id":"","title":"","nodes":[],"edges":[],"updatedAt":0}]})");
  EXPECT_EQ(read, (DocumentBoardArchive{2, {{}}}));
}

template <class Case>
std::string namesOf() {
  std::string names;
  for (const Case value : allCases<Case>()) {
    EXPECT_EQ(id(value), rawValue(value));
    EXPECT_EQ(fromRawValue<Case>(rawValue(value)), value);
    EXPECT_EQ(writeJSON(value), '"' + std::string(id(value)) + '"');
    names.append(rawValue(value)).append(" ");
  }
  return names;
}

TEST(BoardVocabularies, HaveTheirCasesInOrderIdentifiedByTheirRawValues) {
  EXPECT_EQ(namesOf<BoardNodeKind>(), "document note person event ");
  EXPECT_EQ(namesOf<BoardNodeDisplay>(), "icon title summary ");
  EXPECT_EQ(namesOf<BoardNodeColor>(), "amber blue green purple rose gray ");
  EXPECT_EQ(namesOf<BoardEdgeDirection>(), "none forward bidirectional ");
}

TEST(DocumentBoard, IsAValueThatDiffersInEachField) {
  const DocumentBoardNode node{.id = "n", .title = "t", .note = ""};
  std::vector<DocumentBoardNode> nodes(10, node);
  nodes[1].id = "m";
  nodes[2].kind = BoardNodeKind::event;
  nodes[3].documentID = "";
  nodes[4].title = "";
  nodes[5].note = "x";
  nodes[6].position.z = 1;
  nodes[7].display = BoardNodeDisplay::title;
  nodes[8].color = BoardNodeColor::gray;
  nodes[9].date = "";
  for (std::size_t one = 0; one < nodes.size(); ++one) {
    for (std::size_t other = 0; other < nodes.size(); ++other)
      EXPECT_EQ(nodes[one] == nodes[other], one == other) << one << ", " << other;
  }
}

}  // namespace
}  // namespace tessary
