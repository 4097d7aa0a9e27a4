// A library file of 20,000 documents with five revisions each: read, written, and its documents asked what they are.
// Peers are simdjson's own tree of the same file, nlohmann's dump, and copying. Results are compared first.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <simdjson.h>

#include "TessaryDomain/documents/DocumentRecord.h"
#include "TessaryPlatform/json/JSONRecord.h"

#include "AllocationCount.h"
#include "LibraryFile.h"

namespace tessary::benchmarks {
namespace {

using nlohmann::ordered_json;

struct Subject {
  CaptureLibrary library = makeLibrary(20'000);
  std::string text = writeJSON(library).value();

  Subject() {
    if (readJSON<CaptureLibrary>(text) == library) return;
    std::fputs("what was written is read differently\n", stderr);
    std::abort();
  }
};

const Subject& subject() {
  static const Subject instance;
  return instance;
}

void reportBytes(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(subject().text.size()));
}

/// A host keeps what it has read, so freeing is left out.
void readLibrary(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state) {
    auto library = readJSON<CaptureLibrary>(given.text);
    benchmark::DoNotOptimize(library);
    state.PauseTiming();
    library = CaptureLibrary();
    state.ResumeTiming();
  }
  reportBytes(state);
}
BENCHMARK(readLibrary)->Unit(benchmark::kMillisecond);

void readAndFreeLibrary(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state)
    benchmark::DoNotOptimize(readJSON<CaptureLibrary>(given.text));
  reportBytes(state);
}
BENCHMARK(readAndFreeLibrary)->Unit(benchmark::kMillisecond);

/// Parser and tree are made and freed in every round, as the records are.
void readTreeOfSimdjson(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state) {
    simdjson::dom::parser parser;
    simdjson::dom::element tree = parser.parse(given.text);
    benchmark::DoNotOptimize(tree);
  }
  reportBytes(state);
}
BENCHMARK(readTreeOfSimdjson)->Unit(benchmark::kMillisecond);

/// The part of reading that any reader of these records has to pay: their memory.
void copyLibrary(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state) {
    CaptureLibrary library = given.library;
    benchmark::DoNotOptimize(library);
  }
  reportBytes(state);
}
BENCHMARK(copyLibrary)->Unit(benchmark::kMillisecond);

void writeLibrary(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state)
    benchmark::DoNotOptimize(writeJSON(given.library));
  reportBytes(state);
}
BENCHMARK(writeLibrary)->Unit(benchmark::kMillisecond);

/// The tree stands ready; only its writing counts.
void dumpOfNlohmann(benchmark::State& state) {
  const auto tree = std::make_unique<ordered_json>(ordered_json::parse(subject().text));
  if (tree->dump() != subject().text) std::abort();
  for (auto _ : state)
    benchmark::DoNotOptimize(tree->dump());
  reportBytes(state);
}
BENCHMARK(dumpOfNlohmann)->Unit(benchmark::kMillisecond);

/// The floor of writing: the bytes into memory that is new each time.
void copyText(benchmark::State& state) {
  const std::string& text = subject().text;
  for (auto _ : state) {
    const auto memory = std::make_unique_for_overwrite<char[]>(text.size());
    std::memcpy(memory.get(), text.data(), text.size());
    benchmark::DoNotOptimize(memory.get());
    benchmark::ClobberMemory();
  }
  reportBytes(state);
}
BENCHMARK(copyText)->Unit(benchmark::kMillisecond);

/// Asks every record one question, and reports how often memory was asked for.
template <class Question>
void askAll(benchmark::State& state, Question question) {
  const Subject& given = subject();
  const std::size_t before = allocationCount();
  for (auto _ : state) {
    for (const DocumentRecord& record : given.library.documents)
      benchmark::DoNotOptimize(question(record));
  }
  const auto calls = static_cast<double>(state.iterations()) * static_cast<double>(given.library.documents.size());
  state.counters["allocationsPerCall"] = static_cast<double>(allocationCount() - before) / calls;
  state.SetItemsProcessed(static_cast<std::int64_t>(calls));
}
BENCHMARK_CAPTURE(askAll, category, [](const DocumentRecord& record) { return record.category(); });
BENCHMARK_CAPTURE(askAll, supportsTextContent,
                  [](const DocumentRecord& record) { return record.supportsTextContent(); });
BENCHMARK_CAPTURE(askAll, sourceProfile, [](const DocumentRecord& record) { return record.sourceProfile(); });
BENCHMARK_CAPTURE(askAll, symbol, [](const DocumentRecord& record) { return record.symbol(); });

}  // namespace
}  // namespace tessary::benchmarks
