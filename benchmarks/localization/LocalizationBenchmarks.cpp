// A message with two arguments, against the map look-up and the string append that it is made of; a stored sentence
// that no pattern matches, against every pattern in turn as a regular expression; and the catalogs of all languages
// with their patterns, against parsing the same files alone. Answers are compared before anything is timed.

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>
#include <simdjson.h>

#include "TessaryLocalization/L10n.h"
#include "TessaryLocalization/LocalizationBundle.h"
#include "TessaryLocalization/LocalizationCatalogs.h"
#include "TessaryLocalization/StoredSentences.h"
#include "TessaryPlatform/text/RegularExpression.h"

namespace tessary::benchmarks {
namespace {

constexpr std::string_view key = "{0}개를 ‘{1}’으로 분류했습니다";
const std::vector<std::string> arguments{"12", "나중에 볼 것"};

void require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "benchmark: %s\n", what);
  std::abort();
}

/// The message cut at its placeholders once, so that only the look-up and the append are left.
struct CutMessage {
  std::string before;
  std::string between;
  std::string after;
};

CutMessage cut(std::string_view message) {
  const std::size_t first = message.find("{0}");
  const std::size_t second = message.find("{1}");
  require(first < second && second != std::string_view::npos, "the message does not have its placeholders in order");
  return {std::string(message.substr(0, first)), std::string(message.substr(first + 3, second - first - 3)),
          std::string(message.substr(second + 3))};
}

void floorOfText(benchmark::State& state) {
  const auto& messages = L10n::catalog("ko")->messages;
  const CutMessage pieces = cut(messages.find(key)->second);
  const auto make = [&] {
    const auto found = messages.find(key);
    benchmark::DoNotOptimize(found);
    std::string text;
    return text.append(pieces.before)
        .append(arguments[0])
        .append(pieces.between)
        .append(arguments[1])
        .append(pieces.after);
  };
  require(make() == L10n::text(key, arguments, {}, "ko"), "floor and text differ");
  for (auto _ : state)
    benchmark::DoNotOptimize(make());
}
BENCHMARK(floorOfText);

void text(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(L10n::text(key, arguments, {}, "ko"));
}
BENCHMARK(text);

void textInSelectedLanguage(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(L10n::text(key, arguments));
}
BENCHMARK(textInSelectedLanguage);

void textWithCount(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(L10n::text(key, arguments, 12, "ru"));
}
BENCHMARK(textWithCount);

/// Sentences that no pattern matches: a title, one that begins and ends like messages, a long one.
std::string unknownSentence(std::int64_t number) {
  switch (number) {
    case 0:
      return "Quarterly plan for the capture service, second draft";
    case 1:
      return "Marked as “x” by 3 people, and ‘x’으로 분류했습니다 too";
    default: {
      std::string sentence;
      while (sentence.size() < 8000)
        sentence += "Played the “sound” of 12 items. ";
      return sentence;
    }
  }
}

std::vector<RegularExpression> expressions() {
  std::vector<RegularExpression> all;
  for (const MessagePattern& pattern : StoredSentences::shared().patterns())
    all.emplace_back(pattern.expression.pattern());
  return all;
}

void displayUnknown(benchmark::State& state) {
  const std::string sentence = unknownSentence(state.range(0));
  require(L10n::display(sentence, "ko") == sentence, "the sentence is known");
  for (auto _ : state)
    benchmark::DoNotOptimize(L10n::display(sentence, "ko"));
}
BENCHMARK(displayUnknown)->DenseRange(0, 2);

/// The two look-ups, and then every pattern in turn.
void displayUnknownByEveryPattern(benchmark::State& state) {
  const std::string sentence = unknownSentence(state.range(0));
  const std::vector<RegularExpression> all = expressions();
  const auto& messages = L10n::catalog("en")->messages;
  const auto reverse = reverseMessages(LocalizationCatalogs::shared());
  const auto display = [&] {
    if (messages.contains(sentence) || reverse.contains(sentence)) return std::string();
    const RegexSubject subject(sentence);
    for (const RegularExpression& expression : all)
      if (expression.find(subject).match) return std::string();
    return std::string(sentence);
  };
  require(display() == sentence, "the sentence is known");
  for (auto _ : state)
    benchmark::DoNotOptimize(display());
}
BENCHMARK(displayUnknownByEveryPattern)->DenseRange(0, 2);

void displayKnown(benchmark::State& state) {
  const std::string sentence = L10n::text(key, arguments, 12, "en");
  require(L10n::display(sentence, "ko") == L10n::text(key, arguments, 12, "ko"), "the sentence is not known");
  for (auto _ : state)
    benchmark::DoNotOptimize(L10n::display(sentence, "ko"));
}
BENCHMARK(displayKnown);

/// All that is made once: catalogs, reverse messages and patterns of all languages, read from their files.
void build(benchmark::State& state) {
  const std::string& folder = LocalizationBundle::sharedResources();
  for (auto _ : state) {
    const auto catalogs = LocalizationCatalogs::load(folder);
    const StoredSentences sentences(*catalogs);
    benchmark::DoNotOptimize(sentences.patterns().data());
  }
}
BENCHMARK(build)->Unit(benchmark::kMillisecond);

void buildCatalogs(benchmark::State& state) {
  const std::string& folder = LocalizationBundle::sharedResources();
  for (auto _ : state)
    benchmark::DoNotOptimize(LocalizationCatalogs::load(folder));
}
BENCHMARK(buildCatalogs)->Unit(benchmark::kMillisecond);

void buildPatterns(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(messagePatterns(LocalizationCatalogs::shared()));
}
BENCHMARK(buildPatterns)->Unit(benchmark::kMillisecond);

/// The floor: the same files read and parsed into simdjson's tree.
void parseFiles(benchmark::State& state) {
  const std::string& folder = LocalizationBundle::sharedResources();
  for (auto _ : state) {
    for (const std::string& code : L10n::availableCatalogLanguages()) {
      const auto bytes = LocalizationBundle::readFile(folder + "/" + code + ".json");
      simdjson::dom::parser parser;
      const simdjson::padded_string padded(*bytes);
      require(parser.parse(padded).error() == simdjson::SUCCESS, "a catalog is no JSON");
    }
  }
}
BENCHMARK(parseFiles)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessary::benchmarks
