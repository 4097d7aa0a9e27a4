// Finding a note's lines again: ours, and the plain loop that hashes one window after another. The loop is given the
// same split and the same hashes of lines, so that the search alone makes the difference. Answers are compared first.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "TessaryDomain/documents/DocumentFeedbackAnchor.h"
#include "TessaryDomain/documents/LineHashes.h"

namespace tessary::benchmarks {
namespace {

constexpr std::int64_t lineCount = 50'000;
constexpr std::int64_t span = 400;

/// Lines of prose-like length, all different.
std::string makeText(std::uint64_t seed) {
  std::mt19937_64 random(seed);
  std::string text;
  for (std::int64_t line = 0; line < lineCount; ++line) {
    if (line > 0) text += '\n';
    for (std::uint64_t words = 2 + random() % 9; words > 0; --words)
      text += std::to_string(random() % 1'000'000) + ' ';
  }
  return text;
}

struct Subject {
  std::string text;
  DocumentFeedbackNote note;
};

DocumentFeedbackNote makeNote(std::int64_t startLine, std::string anchor) {
  return {"n", "d", "r", startLine, startLine + span - 1, std::move(anchor), "t", false, Date()};
}

/// A note in the middle whose lines are nowhere.
const Subject& notFound() {
  static const Subject subject{makeText(1), makeNote(lineCount / 2, "0123456789abcdef")};
  return subject;
}

/// Its lines stand where they stood.
const Subject& unmoved() {
  static const Subject subject{
      notFound().text, makeNote(lineCount / 2, *DocumentFeedbackAnchor::fingerprint(notFound().text, lineCount / 2,
                                                                                    lineCount / 2 + span - 1))};
  return subject;
}

/// Ten lines were put in above.
const Subject& movedByTen() {
  static const Subject subject{notFound().text, makeNote(lineCount / 2 - 10, unmoved().note.anchor)};
  return subject;
}

/// Its lines are at the end and were on top.
const Subject& movedToTheEnd() {
  static const Subject subject{notFound().text, makeNote(1, *DocumentFeedbackAnchor::fingerprint(
                                                                notFound().text, lineCount - span + 1, lineCount))};
  return subject;
}

/// All lines are one, and the anchor is made so that all windows have its low bits and none has its highest.
const Subject& hostile() {
  static const Subject subject = [] {
    std::string text;
    for (std::int64_t line = 1; line < lineCount; ++line)
      text += "same\n";
    text += "same";
    std::string anchor = *DocumentFeedbackAnchor::fingerprint(text, 1, span);
    anchor[0] = anchor[0] == '0' ? '1' : '0';
    return Subject{text, makeNote(lineCount / 2, anchor)};
  }();
  return subject;
}

DocumentFeedbackNote relocateByPlainLoop(const DocumentFeedbackNote& note, std::string_view text) {
  std::vector<std::uint64_t> hashes;
  for (const std::string_view line : DocumentFeedbackAnchor::lines(text))
    hashes.push_back(lineHash(line));
  DocumentFeedbackNote relocated = note;
  const std::uint64_t anchor = anchorValue(note.anchor).value();
  const auto old = static_cast<std::size_t>(note.startLine - 1);
  const auto matches = [&](std::size_t window) { return combined(std::span(hashes).subspan(window, span)) == anchor; };
  std::vector<std::size_t> found;
  if (old + span <= hashes.size() && matches(old)) {
    found.push_back(old);
  } else {
    for (std::size_t window = 0; window + span <= hashes.size(); ++window) {
      if (matches(window)) found.push_back(window);
    }
  }
  relocated.isStale = found.empty();
  // No subject has its lines twice.
  if (!found.empty()) relocated.startLine = static_cast<std::int64_t>(found.front()) + 1;
  relocated.endLine = relocated.startLine + span - 1;
  return relocated;
}

void checkAnswer(const Subject& subject) {
  if (DocumentFeedbackAnchor::relocate(subject.note, "r", subject.text) ==
      relocateByPlainLoop(subject.note, subject.text))
    return;
  std::fputs("the plain loop gives another answer\n", stderr);
  std::abort();
}

void relocate(benchmark::State& state, const Subject& (*make)()) {
  const Subject& subject = make();
  checkAnswer(subject);
  for (auto _ : state)
    benchmark::DoNotOptimize(DocumentFeedbackAnchor::relocate(subject.note, "r", subject.text));
}

void relocatePlain(benchmark::State& state, const Subject& (*make)()) {
  const Subject& subject = make();
  for (auto _ : state)
    benchmark::DoNotOptimize(relocateByPlainLoop(subject.note, subject.text));
}

BENCHMARK_CAPTURE(relocate, notFound, notFound)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relocatePlain, notFound, notFound)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relocate, unmoved, unmoved)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relocatePlain, unmoved, unmoved)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relocate, movedByTen, movedByTen)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relocatePlain, movedByTen, movedByTen)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relocate, movedToTheEnd, movedToTheEnd)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relocatePlain, movedToTheEnd, movedToTheEnd)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relocate, hostile, hostile)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(relocatePlain, hostile, hostile)->Unit(benchmark::kMillisecond);

/// The part of all of them that neither search can spare.
void hashEveryLine(benchmark::State& state) {
  const Subject& subject = notFound();
  for (auto _ : state) {
    for (const std::string_view line : DocumentFeedbackAnchor::lines(subject.text))
      benchmark::DoNotOptimize(lineHash(line));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(subject.text.size()));
}
BENCHMARK(hashEveryLine)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessary::benchmarks
