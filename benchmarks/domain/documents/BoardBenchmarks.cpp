// The check of an archive of boards that is at every limit at once, against one pass over its titles, notes and labels
// that counts their characters and does nothing else. Before anything is timed it is shown that the archive passes, and
// that it fails with one thing more of each kind.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include <benchmark/benchmark.h>

#include "TessaryDomain/documents/DocumentBoardArchive.h"
#include "TessaryPlatform/text/GraphemeClusters.h"

namespace tessary::benchmarks {
namespace {

using Archive = DocumentBoardArchive;

/// What a text is made of, over and over, up to its limit.
struct Script {
  std::string_view piece;
  /// The characters of the piece.
  std::size_t characters;
};

constexpr Script ascii{"The quick brown fox. ", 21};
constexpr Script korean{"다람쥐 헌 쳇바퀴에 타고파. ", 16};
constexpr Script decomposed{
    "e\u0301 \u1112\u1161\u11AB \U0001F468\u200D\U0001F469\u200D\U0001F467 \U0001F1F0\U0001F1F7 ", 8};

/// A text of exactly `count` characters.
std::string textOf(const Script& script, std::size_t count) {
  std::string text;
  for (; count >= script.characters; count -= script.characters)
    text += script.piece;
  return text.append(characterPrefix(script.piece, count));
}

/// An identifier of as many bytes as are allowed.
std::string idOf(char kind, std::size_t number) {
  std::string id = kind + std::to_string(number);
  return id.append(Archive::maximumIDBytes - id.size(), '-');
}

DocumentBoard boardOf(const Script& script, std::size_t number, std::size_t nodes, std::size_t edges) {
  DocumentBoard board{
      .id = idOf('b', number), .title = textOf(script, Archive::maximumBoardTitleCharacters), .nodes = {}, .edges = {}};
  for (std::size_t index = 0; index < nodes; ++index) {
    board.nodes.push_back({.id = idOf('n', index),
                           .documentID = idOf('d', index),
                           .title = textOf(script, Archive::maximumNodeTitleCharacters),
                           .note = textOf(script, Archive::maximumNodeNoteCharacters),
                           .position = {.x = Archive::maximumCoordinate, .y = -Archive::maximumCoordinate, .z = 0},
                           .date = "2024-02-29"});
  }
  for (std::size_t index = 0; index < edges; ++index) {
    board.edges.push_back({.id = idOf('e', index),
                           .fromNodeID = idOf('n', index * 7 % nodes),
                           .toNodeID = idOf('n', (index * 7 + 1 + index % (nodes - 1)) % nodes),
                           .label = textOf(script, Archive::maximumEdgeLabelCharacters)});
  }
  return board;
}

/// As many boards as there can be, the first of them with as many nodes and edges as there can be.
Archive fullArchive(const Script& script) {
  Archive archive;
  archive.boards.push_back(boardOf(script, 0, Archive::maximumNodesPerBoard, Archive::maximumEdgesPerBoard));
  while (archive.boards.size() < Archive::maximumBoards)
    archive.boards.push_back(boardOf(script, archive.boards.size(), 2, 1));
  return archive;
}

/// The titles, notes and labels.
template <class Use>
void forEachText(const Archive& archive, Use use) {
  for (const DocumentBoard& board : archive.boards) {
    use(std::string_view(board.title));
    for (const DocumentBoardNode& node : board.nodes) {
      use(std::string_view(node.title));
      use(std::string_view(node.note));
    }
    for (const DocumentBoardEdge& edge : board.edges)
      use(std::string_view(edge.label));
  }
}

std::size_t countCharacters(const Archive& archive) {
  std::size_t count = 0;
  forEachText(archive, [&](std::string_view text) { count += characterCount(text); });
  return count;
}

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s\n", what);
  std::exit(1);
}

template <class Change>
void requireRefused(const Archive& archive, Change change) {
  Archive changed = archive;
  change(changed.boards[0]);
  require(!std::move(changed).validated(), "an archive beyond a limit passes");
}

const Archive& checkedArchive(const Archive& archive) {
  const std::size_t texts = (Archive::maximumBoards)*Archive::maximumBoardTitleCharacters +
                            (Archive::maximumNodesPerBoard + 2 * 99) *
                                (Archive::maximumNodeTitleCharacters + Archive::maximumNodeNoteCharacters) +
                            (Archive::maximumEdgesPerBoard + 99) * Archive::maximumEdgeLabelCharacters;
  require(countCharacters(archive) == texts, "the texts are not at their limits");
  require(archive.validated() == archive, "an archive at the limits is refused");
  requireRefused(archive, [](DocumentBoard& board) { board.title += 'x'; });
  requireRefused(archive, [](DocumentBoard& board) { board.nodes.back().title += 'x'; });
  requireRefused(archive, [](DocumentBoard& board) { board.nodes.back().note += 'x'; });
  requireRefused(archive, [](DocumentBoard& board) { board.edges.back().label += 'x'; });
  requireRefused(archive, [](DocumentBoard& board) { board.edges.back().id += 'x'; });
  return archive;
}

template <const Script& script>
Archive& subject() {
  static Archive archive = checkedArchive(fullArchive(script));
  return archive;
}

void reportBytes(benchmark::State& state, const Archive& archive) {
  std::size_t bytes = 0;
  forEachText(archive, [&](std::string_view text) { bytes += text.size(); });
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

template <const Script& script>
void countingFloor(benchmark::State& state) {
  const Archive& archive = subject<script>();
  for (auto _ : state)
    benchmark::DoNotOptimize(countCharacters(archive));
  reportBytes(state, archive);
}

/// The same with the identifiers and days, so over every byte of text that the check has to read.
template <const Script& script>
void countingEverything(benchmark::State& state) {
  const Archive& archive = subject<script>();
  for (auto _ : state) {
    std::size_t count = countCharacters(archive);
    for (const DocumentBoard& board : archive.boards) {
      count += characterCount(board.id);
      for (const DocumentBoardNode& node : board.nodes)
        count += characterCount(node.id) + characterCount(*node.documentID) + characterCount(*node.date);
      for (const DocumentBoardEdge& edge : board.edges)
        count += characterCount(edge.id) + characterCount(edge.fromNodeID) + characterCount(edge.toNodeID);
    }
    benchmark::DoNotOptimize(count);
  }
  reportBytes(state, archive);
}

/// The archive goes in and comes out again, as it does when a host reads its file.
template <const Script& script>
void validatedMoved(benchmark::State& state) {
  Archive& archive = subject<script>();
  for (auto _ : state) {
    archive = std::move(archive).validated().value();
    benchmark::DoNotOptimize(archive);
  }
  reportBytes(state, archive);
}

template <const Script& script>
void validatedCopied(benchmark::State& state) {
  const Archive& archive = subject<script>();
  for (auto _ : state)
    benchmark::DoNotOptimize(archive.validated());
  reportBytes(state, archive);
}

template <const Script& script>
void copyFloor(benchmark::State& state) {
  const Archive& archive = subject<script>();
  for (auto _ : state)
    benchmark::DoNotOptimize(Archive(archive));
  reportBytes(state, archive);
}

#define TESSARY_BENCHMARK_SCRIPT(script)                                         \
  BENCHMARK_TEMPLATE(countingFloor, script)->Unit(benchmark::kMicrosecond);      \
  BENCHMARK_TEMPLATE(countingEverything, script)->Unit(benchmark::kMicrosecond); \
  BENCHMARK_TEMPLATE(validatedMoved, script)->Unit(benchmark::kMicrosecond);     \
  BENCHMARK_TEMPLATE(copyFloor, script)->Unit(benchmark::kMicrosecond);          \
  BENCHMARK_TEMPLATE(validatedCopied, script)->Unit(benchmark::kMicrosecond)

TESSARY_BENCHMARK_SCRIPT(ascii);
TESSARY_BENCHMARK_SCRIPT(korean);
TESSARY_BENCHMARK_SCRIPT(decomposed);

/// Sixteen megabytes as the title of a board: refused without reading them.
void refuseLongTitle(benchmark::State& state) {
  Archive archive;
  archive.boards.push_back({.id = "b", .title = std::string(16U << 20, 'x'), .nodes = {}, .edges = {}});
  for (auto _ : state) {
    auto checked = std::move(archive).validated();
    if (checked) state.SkipWithError("a long title passes");
    benchmark::DoNotOptimize(checked);
  }
}
BENCHMARK(refuseLongTitle);

}  // namespace
}  // namespace tessary::benchmarks
