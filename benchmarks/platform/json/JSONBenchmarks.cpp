// Reading and writing of a library file of about 20 MB, by the record form and by its peers: nlohmann::json into the
// same structs; simdjson's own tree and its On-Demand parser with nothing decoded. Results are compared first.

#include <cstdio>
#include <cstdlib>
#include <string>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <simdjson.h>

#include "TessaryPlatform/json/JSONRecord.h"

#include "LibraryFile.h"

namespace tessary::benchmarks {
namespace {

using nlohmann::ordered_json;

// The peer's road between a tree and the same structs, driven by the same tables.

template <class T>
void fromTree(const nlohmann::json& tree, T& value) {
  if constexpr (JSONRecord<T>) {
    const auto readField = [&](const auto& field) {
      auto& member = value.*field.member;
      const auto found = tree.find(field.key.text);
      if (found == tree.end() || found->is_null()) {
        if (!field.rule.settleAbsent(member)) std::abort();
      } else {
        fromTree(*found, member);
      }
    };
    std::apply([&](const auto&... field) { (readField(field), ...); }, JSONForm<T>::fields);
  } else if constexpr (json::isOptional<T>) {
    fromTree(tree, value.emplace());
  } else if constexpr (json::isList<T>) {
    value.reserve(tree.size());
    for (const auto& element : tree)
      fromTree(element, value.emplace_back());
  } else if constexpr (RawRepresentable<T>) {
    value = fromRawValue<T>(tree.get_ref<const std::string&>()).value();
  } else {
    tree.get_to(value);
  }
}

template <class T>
void toTree(const T& value, ordered_json& tree) {
  if constexpr (JSONRecord<T>) {
    tree = ordered_json::object();
    const auto writeField = [&](const auto& field) {
      const auto& member = value.*field.member;
      if constexpr (json::isOptional<std::remove_cvref_t<decltype(member)>>) {
        if (!member) return;
      }
      // Every key is new: what is appended need not be looked for.
      toTree(member, static_cast<ordered_json::object_t::Container&>(tree.get_ref<ordered_json::object_t&>())
                         .emplace_back(std::string(field.key.text), ordered_json())
                         .second);
    };
    std::apply([&](const auto&... field) { (writeField(field), ...); }, JSONForm<T>::fields);
  } else if constexpr (json::isOptional<T>) {
    toTree(*value, tree);
  } else if constexpr (json::isList<T>) {
    tree = ordered_json::array();
    for (const auto& element : value)
      toTree(element, tree.emplace_back());
  } else if constexpr (RawRepresentable<T>) {
    tree = rawValue(value);
  } else {
    tree = value;
  }
}

struct Subject {
  Library library = makeLibrary();
  std::string text = writeJSON(library).value();
  ordered_json tree;

  Subject() {
    Library other;
    fromTree(nlohmann::json::parse(text), other);
    toTree(library, tree);
    if (readJSON<Library>(text) != library || other != library || tree.dump() != text) {
      std::fputs("the roads disagree\n", stderr);
      std::abort();
    }
  }
};

const Subject& subject() {
  static const Subject instance;
  return instance;
}

void report(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(subject().text.size()));
}

void readRecords(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state)
    benchmark::DoNotOptimize(readJSON<Library>(given.text));
  report(state);
}
BENCHMARK(readRecords)->Unit(benchmark::kMillisecond);

void readRecordsPeer(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state) {
    Library library;
    fromTree(nlohmann::json::parse(given.text), library);
    benchmark::DoNotOptimize(library);
  }
  report(state);
}
BENCHMARK(readRecordsPeer)->Unit(benchmark::kMillisecond);

void readTreeOfSimdjson(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state) {
    simdjson::dom::parser parser;
    simdjson::dom::element tree = parser.parse(given.text);
    benchmark::DoNotOptimize(tree);
  }
  report(state);
}
BENCHMARK(readTreeOfSimdjson)->Unit(benchmark::kMillisecond);

/// Copies what the records hold and frees it again: the part of reading that any reader of these structs has to pay.
void copyRecords(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state) {
    Library library = given.library;
    benchmark::DoNotOptimize(library);
  }
  report(state);
}
BENCHMARK(copyRecords)->Unit(benchmark::kMillisecond);

void walk(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state)
    benchmark::DoNotOptimize(walkJSON(given.text));
  report(state);
}
BENCHMARK(walk)->Unit(benchmark::kMillisecond);

// NOLINTNEXTLINE(misc-no-recursion): a peer, on a text that is known.
void walkOnDemand(simdjson::ondemand::value value) {
  switch (value.type().value()) {
    case simdjson::ondemand::json_type::object:
      for (auto field : value.get_object()) {
        benchmark::DoNotOptimize(field.unescaped_key().value());
        walkOnDemand(field.value());
      }
      break;
    case simdjson::ondemand::json_type::array:
      for (auto element : value.get_array())
        walkOnDemand(element.value());
      break;
    case simdjson::ondemand::json_type::string:
      benchmark::DoNotOptimize(value.get_string().value());
      break;
    case simdjson::ondemand::json_type::number:
      benchmark::DoNotOptimize(value.get_number().value());
      break;
    case simdjson::ondemand::json_type::boolean:
      benchmark::DoNotOptimize(value.get_bool().value());
      break;
    case simdjson::ondemand::json_type::null:
      benchmark::DoNotOptimize(value.is_null());
      break;
  }
}

/// On-Demand with every value looked at, which is what a strict reader would have to ask of it.
void walkWithOnDemand(benchmark::State& state) {
  const Subject& given = subject();
  const simdjson::padded_string padded(given.text);
  for (auto _ : state) {
    simdjson::ondemand::parser parser;
    auto document = parser.iterate(padded);
    walkOnDemand(document.get_value().value());
  }
  report(state);
}
BENCHMARK(walkWithOnDemand)->Unit(benchmark::kMillisecond);

void writeRecords(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state)
    benchmark::DoNotOptimize(writeJSON(given.library));
  report(state);
}
BENCHMARK(writeRecords)->Unit(benchmark::kMillisecond);

/// The tree stands ready; only its writing counts.
void dumpPeer(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state)
    benchmark::DoNotOptimize(given.tree.dump());
  report(state);
}
BENCHMARK(dumpPeer)->Unit(benchmark::kMillisecond);

void copyText(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state)
    benchmark::DoNotOptimize(std::string(given.text));
  report(state);
}
BENCHMARK(copyText)->Unit(benchmark::kMillisecond);

void readDynamic(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state)
    benchmark::DoNotOptimize(JSONValue::parse(given.text));
  report(state);
}
BENCHMARK(readDynamic)->Unit(benchmark::kMillisecond);

void readDynamicPeer(benchmark::State& state) {
  const Subject& given = subject();
  for (auto _ : state)
    benchmark::DoNotOptimize(ordered_json::parse(given.text));
  report(state);
}
BENCHMARK(readDynamicPeer)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessary::benchmarks
