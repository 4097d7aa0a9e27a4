// What an archive of boards may hold, and in which order its faults are told. Texts and days have tests of their own.

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Boards.h"

namespace tessary {
namespace {

using testing::archiveOf;
using testing::boardOf;
using testing::edgeBetween;
using testing::freeNode;
using testing::outcome;

// The order of faults.

/// A way to spoil an archive of two boards.
struct Spoiling {
  std::string name;
  std::string_view error;
  void (*apply)(DocumentBoardArchive& archive);
};

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double undefined = std::numeric_limits<double>::quiet_NaN();

void addNodes(DocumentBoard& board, std::size_t count) {
  while (board.nodes.size() < count)
    board.nodes.push_back(freeNode("more" + std::to_string(board.nodes.size())));
}

void addEdges(DocumentBoard& board, std::size_t count) {
  while (board.edges.size() < count)
    board.edges.push_back(edgeBetween("more" + std::to_string(board.edges.size()), "n0", "n1"));
}

void addBoards(DocumentBoardArchive& archive, std::size_t count) {
  while (archive.boards.size() < count)
    archive.boards.push_back(boardOf("more" + std::to_string(archive.boards.size())));
}

/// In the order in which they are told. Where two of them change one field, the earlier stands.
std::vector<Spoiling> spoilings() {
  using Archive = DocumentBoardArchive;
  return {
      {"version", "unsupportedSchema", [](Archive& a) { a.schemaVersion = 2; }},
      {"boards", "tooManyBoards", [](Archive& a) { addBoards(a, 101); }},

      {"board 0 id", "invalidID", [](Archive& a) { a.boards[0].id = "a b"; }},
      {"board 0 title", "invalidBoard", [](Archive& a) { a.boards[0].title = "\n"; }},
      {"board 0 nodes", "tooManyNodes", [](Archive& a) { addNodes(a.boards[0], 2'001); }},
      {"board 0 edges", "tooManyEdges", [](Archive& a) { addEdges(a.boards[0], 8'001); }},

      {"node 0 id", "invalidID", [](Archive& a) { a.boards[0].nodes[0].id = ""; }},
      {"node 0 title", "invalidNode", [](Archive& a) { a.boards[0].nodes[0].title = " "; }},
      {"node 0 position", "invalidPosition", [](Archive& a) { a.boards[0].nodes[0].position.x = undefined; }},
      {"node 0 date", "invalidDate", [](Archive& a) { a.boards[0].nodes[0].date = ""; }},
      {"node 1 id again", "duplicateID",
       [](Archive& a) { a.boards[0].nodes[1].id = "n2", a.boards[0].nodes[2].id = "n2"; }},
      {"node 2 document", "invalidID", [](Archive& a) { a.boards[0].nodes[2].documentID = "."; }},
      {"node 2 note", "invalidNode", [](Archive& a) { a.boards[0].nodes[2].note = "\r"; }},
      {"node 2 position", "invalidPosition", [](Archive& a) { a.boards[0].nodes[2].position.z = -infinity; }},
      {"node 2 date", "invalidDate", [](Archive& a) { a.boards[0].nodes[2].date = "2023-02-29"; }},

      {"edge 0 id", "invalidID", [](Archive& a) { a.boards[0].edges[0].id = "é"; }},
      {"edge 0 label", "invalidEdge", [](Archive& a) { a.boards[0].edges[0].label = "\n"; }},
      {"edge 1 to", "invalidID", [](Archive& a) { a.boards[0].edges[1].toNodeID = ""; }},
      {"edge 1 id again", "duplicateID", [](Archive& a) { a.boards[0].edges[1].id = "e0"; }},
      {"edge 1 from elsewhere", "invalidEdge", [](Archive& a) { a.boards[0].edges[1].fromNodeID = "n9"; }},

      {"board 1 id again", "duplicateID", [](Archive& a) { a.boards[1].id = a.boards[0].id; }},
      {"board 1 time", "invalidBoard",
       [](Archive& a) { a.boards[1].updatedAt = Date::fromSecondsSince2001(infinity); }},
      {"board 1 nodes", "tooManyNodes", [](Archive& a) { addNodes(a.boards[1], 2'001); }},
      {"board 1 edges", "tooManyEdges", [](Archive& a) { addEdges(a.boards[1], 8'001); }},
      {"board 1 node 2 position", "invalidPosition",
       [](Archive& a) { a.boards[1].nodes[2].position.y = std::nextafter(100'000.0, infinity); }},
      {"board 1 edge 0 ends", "invalidEdge", [](Archive& a) { a.boards[1].edges[0].toNodeID = "n0"; }},
  };
}

DocumentBoardArchive twoBoards() {
  return {.schemaVersion = 1, .boards = {boardOf("b0"), boardOf("b1")}};
}

TEST(DocumentBoardArchiveValidation, TellsEveryFault) {
  EXPECT_EQ(outcome(twoBoards()), "valid");
  for (const Spoiling& spoiling : spoilings()) {
    DocumentBoardArchive archive = twoBoards();
    spoiling.apply(archive);
    EXPECT_EQ(outcome(archive), spoiling.error) << spoiling.name;
  }
}

TEST(DocumentBoardArchiveValidation, TellsTheFirstOfEveryTwoFaults) {
  const std::vector<Spoiling> all = spoilings();
  for (std::size_t first = 0; first < all.size(); ++first) {
    for (std::size_t second = first + 1; second < all.size(); ++second) {
      DocumentBoardArchive archive = twoBoards();
      all[second].apply(archive);
      all[first].apply(archive);
      EXPECT_EQ(outcome(archive), all[first].error) << all[first].name << " and " << all[second].name;
    }
  }
}

/// The faults of one node or edge, which the table above cannot all hold beside each other.
template <class Change>
void expectOrder(const std::vector<std::pair<std::string_view, Change>>& rows) {
  for (std::size_t first = 0; first < rows.size(); ++first) {
    for (std::size_t second = first; second < rows.size(); ++second) {
      DocumentBoard board = boardOf("b");
      rows[second].second(board);
      rows[first].second(board);
      EXPECT_EQ(outcome(board), rows[first].first) << first << " and " << second;
    }
  }
}

TEST(DocumentBoardArchiveValidation, TakesTheFieldsOfANodeInTheirOrder) {
  using Change = void (*)(DocumentBoard&);
  expectOrder<Change>({
      {"invalidID", [](DocumentBoard& board) { board.nodes[1].id = "n/1"; }},
      {"duplicateID", [](DocumentBoard& board) { board.nodes[1].id = "n0"; }},
      {"invalidID", [](DocumentBoard& board) { board.nodes[1].documentID = ""; }},
      {"invalidNode", [](DocumentBoard& board) { board.nodes[1].title = "\x01"; }},
      {"invalidNode", [](DocumentBoard& board) { board.nodes[1].note = "\x7F"; }},
      {"invalidPosition", [](DocumentBoard& board) { board.nodes[1].position.y = 1e9; }},
      {"invalidDate", [](DocumentBoard& board) { board.nodes[1].date = "today"; }},
      {"invalidID", [](DocumentBoard& board) { board.nodes[2].id = ""; }},
      {"invalidID", [](DocumentBoard& board) { board.edges[0].fromNodeID = ""; }},
  });
}

TEST(DocumentBoardArchiveValidation, TakesTheFieldsOfAnEdgeInTheirOrder) {
  using Change = void (*)(DocumentBoard&);
  expectOrder<Change>({
      {"invalidID", [](DocumentBoard& board) { board.edges[1].id = "e 1"; }},
      {"invalidID", [](DocumentBoard& board) { board.edges[1].fromNodeID = "n 1"; }},
      {"invalidID", [](DocumentBoard& board) { board.edges[1].toNodeID = "n 2"; }},
      {"duplicateID", [](DocumentBoard& board) { board.edges[1].id = "e0"; }},
      {"invalidEdge", [](DocumentBoard& board) { board.edges[1].label = "\r\n"; }},
      {"invalidEdge", [](DocumentBoard& board) { board.edges[1].toNodeID = board.edges[1].fromNodeID; }},
  });
}

// Versions and numbers.

TEST(DocumentBoardArchiveValidation, AcceptsAnEmptyArchiveOfTheFirstVersionAlone) {
  EXPECT_EQ(outcome(DocumentBoardArchive::empty), "valid");
  for (const std::int64_t version : {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1}, std::int64_t{0},
                                     std::int64_t{2}, std::numeric_limits<std::int64_t>::max()}) {
    EXPECT_EQ(outcome(DocumentBoardArchive{version, {}}), "unsupportedSchema") << version;
  }
}

TEST(DocumentBoardArchiveValidation, AcceptsAHundredBoards) {
  for (const std::size_t count : {99U, 100U, 101U}) {
    DocumentBoardArchive archive;
    addBoards(archive, count);
    EXPECT_EQ(outcome(archive), count <= 100 ? "valid" : "tooManyBoards") << count;
  }
  EXPECT_EQ(outcome(DocumentBoardArchive{1, std::vector<DocumentBoard>(101)}), "tooManyBoards");
  EXPECT_EQ(outcome(DocumentBoardArchive{1, std::vector<DocumentBoard>(100)}), "invalidID");
}

TEST(DocumentBoardArchiveValidation, AcceptsTwoThousandNodesOnABoard) {
  for (const std::size_t count : {1'999U, 2'000U, 2'001U}) {
    DocumentBoard board = boardOf("b");
    addNodes(board, count);
    EXPECT_EQ(outcome(board), count <= 2'000 ? "valid" : "tooManyNodes") << count;
  }
  DocumentBoard board = boardOf("b");
  board.nodes.assign(2'001, {});
  EXPECT_EQ(outcome(board), "tooManyNodes");
}

TEST(DocumentBoardArchiveValidation, AcceptsEightThousandEdgesOnABoard) {
  for (const std::size_t count : {7'999U, 8'000U, 8'001U}) {
    DocumentBoard board = boardOf("b");
    addEdges(board, count);
    EXPECT_EQ(outcome(board), count <= 8'000 ? "valid" : "tooManyEdges") << count;
  }
  DocumentBoard board = boardOf("b");
  board.nodes.assign(2'000, {});
  board.edges.assign(8'001, {});
  EXPECT_EQ(outcome(board), "tooManyEdges");
}

// Identifiers.

TEST(DocumentBoardArchiveValidation, AcceptsIdentifiersOfOneToAHundredAndTwentyEightBytes) {
  for (const std::size_t size : {0U, 1U, 2U, 127U, 128U, 129U, 1'000'000U}) {
    const std::string id(size, 'x');
    const std::string_view expected = size >= 1 && size <= 128 ? "valid" : "invalidID";
    DocumentBoard board = boardOf("b");
    board.id = id;
    EXPECT_EQ(outcome(board), expected) << size;
    board = boardOf("b");
    board.nodes[0].id = id;
    board.edges[0].fromNodeID = id;
    EXPECT_EQ(outcome(board), expected) << size;
    board = boardOf("b");
    board.nodes[0].documentID = id;
    EXPECT_EQ(outcome(board), expected) << size;
    board = boardOf("b");
    board.edges[0].id = id;
    EXPECT_EQ(outcome(board), expected) << size;
  }
}

TEST(DocumentBoardArchiveValidation, HoldsTheEndsOfAnEdgeToTheLengthOfIdentifiersBeforeItSeeksThem) {
  for (std::string DocumentBoardEdge::* end : {&DocumentBoardEdge::fromNodeID, &DocumentBoardEdge::toNodeID}) {
    for (const std::size_t size : {0U, 1U, 2U, 127U, 128U, 129U, 1'000'000U}) {
      const bool isIdentifier = size >= 1 && size <= 128;
      DocumentBoard board = boardOf("b");
      board.edges[1].*end = std::string(size, 'x');
      EXPECT_EQ(outcome(board), isIdentifier ? "invalidEdge" : "invalidID") << size << ", of no node";
      // The longest identifier is a node's, and what is longer begins with it.
      board.nodes.push_back(freeNode(std::string(std::min<std::size_t>(size, 127) + 1, 'x')));
      EXPECT_EQ(outcome(board), size == 128 ? "valid" : isIdentifier ? "invalidEdge" : "invalidID") << size;
    }
  }
}

TEST(DocumentBoardArchiveValidation, AcceptsLettersDigitsLowLinesAndHyphensInIdentifiers) {
  constexpr std::string_view allowed = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-";
  for (int byte = 0; byte < 256; ++byte) {
    const char character = static_cast<char>(byte);
    const std::string_view expected = allowed.contains(character) ? "valid" : "invalidID";
    for (const std::size_t size : {1U, 2U, 31U, 128U}) {
      for (const std::size_t at : {std::size_t{0}, size / 2, size - 1}) {
        std::string id(size, 'x');
        id[at] = character;
        EXPECT_EQ(outcome(boardOf(id)), expected) << byte << " at " << at << " of " << size;
      }
    }
  }
}

TEST(DocumentBoardArchiveValidation, TellsIdentifiersApartByEveryByte) {
  DocumentBoard board = boardOf("b");
  board.nodes.push_back(freeNode("N0"));
  EXPECT_EQ(outcome(board), "valid");
  board.edges[0].fromNodeID = "N1";
  EXPECT_EQ(outcome(board), "invalidEdge");
}

TEST(DocumentBoardArchiveValidation, LetsNodesEdgesAndBoardsShareAnIdentifier) {
  DocumentBoardArchive archive = twoBoards();
  archive.boards[0].id = "n0";
  archive.boards[0].edges[0].id = "n0";
  archive.boards[0].edges[1].id = "n1";
  EXPECT_EQ(outcome(archive), "valid");
  archive.boards[1].id = "n0";
  EXPECT_EQ(outcome(archive), "duplicateID");
}

// Nodes and edges.

TEST(DocumentBoardArchiveValidation, AcceptsAnyKindOfNodeWithAndWithoutADocument) {
  for (const BoardNodeKind kind : allCases<BoardNodeKind>()) {
    DocumentBoard board = boardOf("b");
    board.nodes[0].kind = kind;
    EXPECT_EQ(outcome(board), "valid");
    board.nodes[0].documentID = "gone";
    EXPECT_EQ(outcome(board), "valid");
  }
}

TEST(DocumentBoardArchiveValidation, RefusesWhatIsFartherOutThanTheCanvas) {
  const double limit = 100'000.0;
  for (double BoardPoint::* axis : {&BoardPoint::x, &BoardPoint::y, &BoardPoint::z}) {
    for (const double inside : {limit, -limit, std::nextafter(limit, 0), -0.0, 5e-324}) {
      DocumentBoard board = boardOf("b");
      board.nodes[0].position.*axis = inside;
      EXPECT_EQ(outcome(board), "valid") << inside;
    }
    for (const double outside : {std::nextafter(limit, infinity), std::nextafter(-limit, -infinity), infinity,
                                 -infinity, undefined, -undefined, 1.7e308}) {
      DocumentBoard board = boardOf("b");
      board.nodes[0].position.*axis = outside;
      EXPECT_EQ(outcome(board), "invalidPosition") << outside;
    }
  }
}

TEST(DocumentBoardArchiveValidation, RefusesATimeThatIsNone) {
  for (const double seconds : {infinity, -infinity, undefined}) {
    DocumentBoard board = boardOf("b");
    board.updatedAt = Date::fromSecondsSince2001(seconds);
    EXPECT_EQ(outcome(board), "invalidBoard") << seconds;
  }
  for (const double seconds : {-1.7e308, 0.0, 0.5, 1.7e308}) {
    DocumentBoard board = boardOf("b");
    board.updatedAt = Date::fromSecondsSince2001(seconds);
    EXPECT_EQ(outcome(board), "valid") << seconds;
  }
}

TEST(DocumentBoardArchiveValidation, RefusesEdgesThatJoinNoTwoNodesOfTheirBoard) {
  DocumentBoardArchive archive = twoBoards();
  archive.boards[0].nodes.push_back(freeNode("elsewhere"));
  archive.boards[0].edges[0].toNodeID = "elsewhere";
  EXPECT_EQ(outcome(archive), "valid");
  archive.boards[1].edges[0].toNodeID = "elsewhere";
  EXPECT_EQ(outcome(archive), "invalidEdge");
  archive.boards[1].edges[0] = edgeBetween("e0", "elsewhere", "n0");
  EXPECT_EQ(outcome(archive), "invalidEdge");
  archive.boards[1].edges[0] = edgeBetween("e0", "n0", "n0");
  EXPECT_EQ(outcome(archive), "invalidEdge");
  // An edge is no end of an edge.
  archive.boards[1].edges[0] = edgeBetween("e0", "n0", "e1");
  EXPECT_EQ(outcome(archive), "invalidEdge");
}

TEST(DocumentBoardArchiveValidation, AcceptsTwoEdgesBetweenTheSameNodes) {
  DocumentBoard board = boardOf("b");
  board.edges = {edgeBetween("e0", "n0", "n1"), edgeBetween("e1", "n0", "n1"), edgeBetween("e2", "n1", "n0")};
  EXPECT_EQ(outcome(board), "valid");
}

TEST(DocumentBoardArchiveValidation, FindsADuplicateHoweverFarApart) {
  DocumentBoard full = boardOf("b");
  addNodes(full, 2'000);
  addEdges(full, 8'000);
  DocumentBoard board = full;
  board.nodes.back().id = "n0";
  EXPECT_EQ(outcome(board), "duplicateID");
  board = full;
  board.edges.back().id = "e0";
  EXPECT_EQ(outcome(board), "duplicateID");
}

// What becomes of the archive.

TEST(DocumentBoardArchiveValidation, MovesTheBoardsOfAnArchiveThatIsGivenAway) {
  DocumentBoardArchive archive = twoBoards();
  const DocumentBoard* const boards = archive.boards.data();
  const auto checked = std::move(archive).validated();
  ASSERT_TRUE(checked);
  EXPECT_EQ(checked->boards.data(), boards);
  EXPECT_EQ(*checked, twoBoards());
}

TEST(DocumentBoardArchiveValidation, LeavesARefusedArchiveAsItWas) {
  DocumentBoardArchive archive = twoBoards();
  archive.boards[1].title = "";
  DocumentBoardArchive given = archive;
  const auto checked = std::move(given).validated();
  ASSERT_FALSE(checked);
  EXPECT_EQ(checked.error(), DocumentBoardValidationError::invalidBoard);
  EXPECT_EQ(given, archive);
}

TEST(DocumentBoardArchiveValidation, HasItsErrorsInOrder) {
  std::string names;
  for (int error = 0; error <= static_cast<int>(DocumentBoardValidationError::invalidEdge); ++error)
    names.append(testing::nameOf(static_cast<DocumentBoardValidationError>(error))).append(" ");
  EXPECT_EQ(names,
            "unsupportedSchema tooManyBoards tooManyNodes tooManyEdges invalidID duplicateID invalidBoard invalidNode "
            "invalidPosition invalidDate invalidEdge ");
}

}  // namespace
}  // namespace tessary
