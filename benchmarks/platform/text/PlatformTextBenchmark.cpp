#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/brkiter.h>
#include <unicode/casemap.h>
#include <unicode/locid.h>
#include <unicode/regex.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/text/Casing.h"
#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/RegularExpression.h"
#include "TessaryPlatform/text/UTF8.h"

// Counting characters against ICU's character break iterator, on the same text; the iterator gets its text in UTF-16,
// which is the form that it is fastest in, and the conversion is not timed.

namespace {

constexpr std::size_t textSize = 1 << 20;

std::string repeated(std::string_view piece) {
  std::string text;
  while (text.size() < textSize)
    text += piece;
  return text;
}

struct Sample {
  const char* name;
  std::string text;
};

const std::vector<Sample>& samples() {
  static const std::vector<Sample> list = {
      {"ASCIIProse",
       repeated("The segmenter walks over plain prose, line by line; most of what agents write is such text.\n"
                "It holds numbers (12,345.67), `code`, and [links](https://example.com/path?query=1).\n")},
      {"ASCIIProseWithCRLF", repeated("The same prose from another system, which ends its lines in two bytes.\r\n")},
      {"KoreanProse", repeated("문서는 사람이 읽는 글이므로 글자 수를 사람이 세는 대로 센다. 한글 음절은 한 글자이다.\n"
                               "계획과 보고서, 회의록과 명세를 모두 같은 규칙으로 나눈다.\n")},
      {"EmojiMixed", repeated("Status: done \u2705 and \uBC30\uD3EC \uC644\uB8CC \U0001F389 family "
                              "\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466 flags "
                              "\U0001F1F0\U0001F1F7\U0001F1E9\U0001F1EA hands \U0001F44B\U0001F3FD heart "
                              "\u2764\uFE0F and plain words in between, as in a chat.\n")},
      {"CombiningMarks", "a" + repeated("\u0301")},
      {"RegionalIndicators", repeated("\U0001F1E6")},
      {"JoinedEmoji", "\U0001F469" + repeated("\u200D\U0001F469")}};
  return list;
}

std::size_t countByICU(icu::BreakIterator& iterator) {
  std::size_t count = 0;
  for (iterator.first(); iterator.next() != icu::BreakIterator::DONE;)
    ++count;
  return count;
}

std::size_t countBackwards(std::string_view text) {
  const tessary::CharacterView view(text);
  std::size_t count = 0;
  for (auto character = view.end(); character != view.begin(); ++count)
    --character;
  return count;
}

std::size_t countByStepping(std::string_view text) {
  std::size_t count = 0;
  for (const std::string_view character : tessary::CharacterView(text))
    count += character.empty() ? 0U : 1U;
  return count;
}

using Count = std::size_t (*)(std::string_view);

void countCharacters(benchmark::State& state, const Sample& sample, Count count) {
  for (auto round : state) {
    (void)round;
    benchmark::DoNotOptimize(count(sample.text));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.text.size()));
}

std::unique_ptr<icu::BreakIterator> characterIterator() {
  UErrorCode status = U_ZERO_ERROR;
  return std::unique_ptr<icu::BreakIterator>(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
}

void countCharactersByICU(benchmark::State& state, const Sample& sample) {
  const icu::UnicodeString units = icu::UnicodeString::fromUTF8(sample.text);
  const std::unique_ptr<icu::BreakIterator> iterator = characterIterator();
  for (auto round : state) {
    (void)round;
    // The iterator remembers what it has found; a new text makes it look again.
    iterator->setText(units);
    benchmark::DoNotOptimize(countByICU(*iterator));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.text.size()));
}

void lowerByUs(benchmark::State& state, const Sample& sample) {
  for (auto round : state) {
    (void)round;
    benchmark::DoNotOptimize(tessary::lowercased(sample.text));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.text.size()));
}

void lowerByICU(benchmark::State& state, const Sample& sample) {
  for (auto round : state) {
    (void)round;
    std::string lowered;
    icu::UnicodeString::fromUTF8(sample.text).toLower(icu::Locale::getRoot()).toUTF8String(lowered);
    benchmark::DoNotOptimize(lowered);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.text.size()));
}

constexpr std::string_view searchPattern = R"((?<![\p{L}\p{N}])\d[\d,.]*+)";

/// What the wrapper adds: the same search by ICU alone, over text in UTF-16, with positions in units.
void findAllByUs(benchmark::State& state, const Sample& sample) {
  const tessary::RegularExpression expression(searchPattern);
  const tessary::RegexSubject subject(sample.text);
  for (auto round : state) {
    (void)round;
    benchmark::DoNotOptimize(expression.findAll(subject));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.text.size()));
}

void findAllByICU(benchmark::State& state, const Sample& sample) {
  const icu::UnicodeString units = icu::UnicodeString::fromUTF8(sample.text);
  for (auto round : state) {
    (void)round;
    UErrorCode status = U_ZERO_ERROR;
    icu::RegexMatcher matcher(icu::UnicodeString::fromUTF8(icu::StringPiece(searchPattern)), units, 0, status);
    std::vector<std::pair<int32_t, int32_t>> ranges;
    while (matcher.find(status))
      ranges.emplace_back(matcher.start(status), matcher.end(status));
    benchmark::DoNotOptimize(ranges);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.text.size()));
}

/// Nothing is timed whose answer is wrong.
void requireSameAnswers() {
  const std::unique_ptr<icu::BreakIterator> iterator = characterIterator();
  for (const Sample& sample : samples()) {
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(sample.text);
    iterator->setText(units);
    const std::size_t expected = countByICU(*iterator);
    std::string lowered;
    icu::UnicodeString(units).toLower(icu::Locale::getRoot()).toUTF8String(lowered);
    if (tessary::characterCount(sample.text) != expected || countByStepping(sample.text) != expected ||
        countBackwards(sample.text) != expected || tessary::lowercased(sample.text) != lowered)
      std::abort();
  }
}

const bool registered = [] {
  requireSameAnswers();
  for (const Sample& sample : samples()) {
    const std::string name = sample.name;
    benchmark::RegisterBenchmark(("Count/ICU/" + name).c_str(), countCharactersByICU, sample);
    benchmark::RegisterBenchmark(("Count/Tessary/" + name).c_str(), countCharacters, sample, tessary::characterCount);
    benchmark::RegisterBenchmark(("Step/Tessary/" + name).c_str(), countCharacters, sample, countByStepping);
    benchmark::RegisterBenchmark(("StepBack/Tessary/" + name).c_str(), countCharacters, sample, countBackwards);
  }
  for (std::size_t index : {std::size_t{0}, std::size_t{2}}) {
    const std::string name = samples()[index].name;
    benchmark::RegisterBenchmark(("Lower/ICU/" + name).c_str(), lowerByICU, samples()[index]);
    benchmark::RegisterBenchmark(("Lower/Tessary/" + name).c_str(), lowerByUs, samples()[index]);
    benchmark::RegisterBenchmark(("FindAll/ICU/" + name).c_str(), findAllByICU, samples()[index]);
    benchmark::RegisterBenchmark(("FindAll/Tessary/" + name).c_str(), findAllByUs, samples()[index]);
  }
  return true;
}();

}  // namespace
